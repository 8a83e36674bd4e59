#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/Application_internal.h"
#include "mrlxmlclass/session/locking.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/wizard/Persist.h"
#include "mrlxmlclass/wizard/Steps.h"
#include "mrlxmlclass/xml/ProjectsCls.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"Application"};

/// Adds one section to the document and saves; without an object the document stays as it is.
// Kept: each save goes straight over the old file, and a failing one leaves it cut.
template <class Section>
void WriteSectionOf(const Ref<Section>& section, const String& file_name, Ref<dom::Document>& document) {
    if (!section) return;
    document = section->ToXmlFile(file_name, document, /*includeDocHeader=*/False, /*useNamespace=*/False,
                                  /*unicode=*/False, /*FileExist=*/False, /*Save=*/True);
}

/// A document that got lost on the way fails here.
Boolean IsWellFormed(const Ref<dom::Document>& document) {
    return document->error_code() == 0;
}

}  // namespace

Boolean Application::SaveXml(Boolean p_persit) {
    const Ref<Application> self(this);  // a listener may let go of it
    // Kept: not the name of the member.
    return kTail.Run<Boolean>("Save", [&](Boolean& result) {
        Ref<dom::Document> document;  // the first section makes it
        EnsureErrorsHandler();
        if (xProject_) {
            xProject_->DateFormat(Gloabal::GetSystemDateFormat());
            document = xProject_->ToXmlFile(xFileName_, document, /*includeDocHeader=*/True, /*useNamespace=*/False,
                                            /*unicode=*/True, /*FileExist=*/False, /*Save=*/True);
        }
        Internal::EachSection(
            [&](std::string_view /*name*/, const auto& held) { WriteSectionOf(held(*this), xFileName_, document); });
        if (p_persit) Persist::SaveObject(xStep_, String(xFileName_));
        result = IsWellFormed(document);
    });
}

/// One run of LoadXML: its stages, and what they hand to each other.
class Application::Loading {
public:
    Loading(Application& app, Boolean only_tasks, Boolean for_lib)
        : app_(app), only_tasks_(only_tasks), for_lib_(for_lib) {}

    void StartAnew(const String& error_file_name) {
        app_.xTaskCol_ = {};
        app_.xPeopleCol_ = {};
        app_.xTaskPeopleRelationcol_ = {};
        app_.xTaskGoalRelationcol_ = {};
        app_.xProject_ = {};
        app_.xGoalCol_ = {};
        app_.xCalendar_ = {};
        const ModuleState& module = Module();  // Init forgets the cached dates
        app_.Init(module.BVersion, module.g_SourcePrima, for_lib_, /*p_set_calendar=*/True, error_file_name);
    }

    void ReadProject() { document_ = app_.xProject_->FromXmlFile(app_.xFileName_, False, document_); }

    void TakeLock(ByRef<Boolean>& its_read_only) {
        app_.CreateLockFile();
        *its_read_only = Module().g_ReadOnly;
    }

    /// The dates of the file are adjusted when it names another format than the system's.
    void CompareDateFormats() {
        dates_.file_format = app_.xProject_->DateFormat();
        if (dates_.file_format.empty()) {
            app_.xProject_->DateFormat(dates_.system_format);
            return;
        }
        dates_.on = dates_.file_format != dates_.system_format;
        if (!dates_.on) return;
        Gloabal::SetALLFormat(dates_.file_format, dates_.system_format, dates_.system_parts, dates_.file_parts,
                              dates_.separator);
    }

    void ReadTasks() {
        Yield();
        app_.xTaskCol()->FromXmlFile(app_.xFileName_, True, document_, for_lib_, dates_.on, dates_.file_format,
                                     dates_.system_format, dates_.separator, dates_.file_parts, dates_.system_parts);
        Yield();
    }

    void ReadItemsOfTasks() {
        ReadForLib(app_.xPeopleCol());
        ReadForLib(app_.xGoalCol());
        ReadForLib(app_.xObstaclesCol());
    }

    void ReadTheRest() {
        Read(app_.xNoteCol());
        app_.xCalendar_->FromXmlFile(app_.xFileName_, True, document_, dates_.on, dates_.file_format,
                                     dates_.system_format, dates_.separator, dates_.file_parts, dates_.system_parts);
        Yield();
        Read(app_.xTaskPeopleRelationcol());
        Read(app_.xTaskGoalRelationcol());
        Read(app_.xTaskObstaclesRelationcol());
        Read(app_.xTaskNotesRelationcol());
    }

    /// Resolves the relation keys of both sides into copies of what they name.
    void Wire() {
        app_.xPeopleCol()->SetTasksCollection(app_.xTaskPeopleRelationcol(), app_.xTaskCol());
        Yield();
        In(app_.xTaskCol()).SetPeopleCollection(app_.xTaskPeopleRelationcol(), app_.xPeopleCol());
        Yield();
        In(app_.xTaskCol()).SetNoteCollection(app_.xTaskNotesRelationcol(), app_.xNoteCol());
        Yield();
        In(app_.xTaskCol()).SetGoalCollection(app_.xTaskGoalRelationcol(), app_.xGoalCol());
        Yield();
        app_.xGoalCol()->SetTasksCollection(app_.xTaskGoalRelationcol(), app_.xTaskCol());
        Yield();
        In(app_.xTaskCol()).SetobstaclesCollection(app_.xTaskObstaclesRelationcol(), app_.xObstaclesCol());
        Yield();
        app_.xObstaclesCol()->SetTasksCollection(app_.xTaskObstaclesRelationcol(), app_.xTaskCol());
        Yield();
        Module().g_PublicCalendar = app_.xCalendar_;
        Yield();
        Persist::GetObject(app_.xStep_, String(app_.xFileName_));
        Yield();
    }

    Boolean Parsed() const { return IsWellFormed(document_); }

    void Run(ByRef<Boolean>& its_read_only) {
        ReadProject();
        if (!for_lib_) {
            dates_.system_format = Gloabal::GetSystemDateFormat();
            Yield();
            TakeLock(its_read_only);
            CompareDateFormats();
        }
        ReadTasks();
        if (only_tasks_) return;
        ReadItemsOfTasks();
        if (for_lib_) return;
        ReadTheRest();
        Wire();
    }

private:
    static void Yield() { Platform().ui.YieldToHost(); }

    template <class Section>
    void Read(const Ref<Section>& section) {
        section->FromXmlFile(app_.xFileName_, True, document_);
        Yield();
    }
    template <class Section>
    void ReadForLib(const Ref<Section>& section) {
        section->FromXmlFile(app_.xFileName_, True, document_, for_lib_);
        Yield();
    }

    Application& app_;
    Boolean only_tasks_;
    Boolean for_lib_;
    Ref<dom::Document> document_;
    DateAdjustment dates_;
};

Boolean Application::LoadXML(Boolean p_onlyTasks, Boolean p_for_lib, ByRef<Boolean> p_its_read_only,
                             const String& p_errFileName) {
    const Ref<Application> self(this);  // a listener, or whoever hears a yield, may let go of it
    return kTail.Run<Boolean>("LoadXML", [&](Boolean& result) {
        Loading loading(*this, p_onlyTasks, p_for_lib);
        loading.StartAnew(p_errFileName);
        loading.Run(p_its_read_only);
        result = loading.Parsed();
    });
}

}  // namespace mrlxmlclass
