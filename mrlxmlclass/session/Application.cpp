#include "mrlxmlclass/session/Application.h"

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskRelated.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/session/locking.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/wizard/Steps.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "mrlxmlclass/xml/ProjectsCls.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"Application"};

Integer AsInteger(const Variant& value) {
    const String* text = value.If<String>();
    return text != nullptr ? Conversions::StringToInteger(*text) : Integer(value.Number());
}

/// A new collection that issues its keys from these counters.
template <class T>
void Renew(Ref<T>& collection, const Ref<StaticCls>& counters) {
    collection = Make<T>();
    collection->oPublicStaticCls = counters;
}

}  // namespace

Application::Application() {
    EnsureErrorsHandler();
    TakeMaxYear();
}

// Kept: no lock is let go; without `endreadonly` it is held as long as the process lives.
Application::~Application() {
    xTaskCol_ = {};
    xTaskPeopleRelationcol_ = {};
    xTaskObstaclesRelationcol_ = {};
    xTaskNotesRelationcol_ = {};
    xTaskGoalRelationcol_ = {};
    xGoalCol_ = {};
    xObstaclesCol_ = {};
    xPeopleCol_ = {};
    xNoteCol_ = {};
    oPublicStaticCls_ = {};
    Module().g_ErrorsHandler = {};  // Kept: another session goes on without a log until its next Init or SaveXml
    xProject_ = {};
    xPhases_ = {};
    xCalendar_ = {};
    xStep_ = {};
}

void Application::oPublicStaticCls(const Ref<StaticCls>& counters) {
    oPublicStaticCls_ = counters;
}
Ref<TasksCol> Application::xTaskCol() {
    return MadeOnRead(xTaskCol_);
}
void Application::xTaskCol(const Ref<TasksCol>& tasks) {
    xTaskCol_ = tasks;
}
Ref<TaskAssigmentRelationCol> Application::xTaskPeopleRelationcol() {
    return MadeOnRead(xTaskPeopleRelationcol_);
}
void Application::xTaskPeopleRelationcol(const Ref<TaskAssigmentRelationCol>& relations) {
    xTaskPeopleRelationcol_ = relations;
}
Ref<TaskObstaclesRelationCol> Application::xTaskObstaclesRelationcol() {
    return MadeOnRead(xTaskObstaclesRelationcol_);
}
void Application::xTaskObstaclesRelationcol(const Ref<TaskObstaclesRelationCol>& relations) {
    xTaskObstaclesRelationcol_ = relations;
}
Ref<TaskNoteRelationCol> Application::xTaskNotesRelationcol() {
    return MadeOnRead(xTaskNotesRelationcol_);
}
void Application::xTaskNotesRelationcol(const Ref<TaskNoteRelationCol>& relations) {
    xTaskNotesRelationcol_ = relations;
}
Ref<TaskGoalRelationCol> Application::xTaskGoalRelationcol() {
    return MadeOnRead(xTaskGoalRelationcol_);
}
void Application::xTaskGoalRelationcol(const Ref<TaskGoalRelationCol>& relations) {
    xTaskGoalRelationcol_ = relations;
}
Ref<GoalsCol> Application::xGoalCol() {
    return MadeOnRead(xGoalCol_);
}
void Application::xGoalCol(const Ref<GoalsCol>& goals) {
    xGoalCol_ = goals;
}
Ref<obstaclesCol> Application::xObstaclesCol() {
    return MadeOnRead(xObstaclesCol_);
}
void Application::xObstaclesCol(const Ref<obstaclesCol>& obstacles) {
    xObstaclesCol_ = obstacles;
}
Ref<PeopleCol> Application::xPeopleCol() {
    return MadeOnRead(xPeopleCol_);
}
void Application::xPeopleCol(const Ref<PeopleCol>& people) {
    xPeopleCol_ = people;
}
Ref<NotesCol> Application::xNoteCol() {
    return MadeOnRead(xNoteCol_);
}
void Application::xNoteCol(const Ref<NotesCol>& notes) {
    xNoteCol_ = notes;
}
Ref<ProjectsCls> Application::xProject() {
    return MadeOnRead(xProject_);
}
void Application::xProject(const Ref<ProjectsCls>& project) {
    xProject_ = project;
}
void Application::xPhases(const Ref<TasksCol>& phases) {
    // Kept: never read, since each reading makes the phases anew.
    xPhases_ = phases;
}
void Application::xCalendar(const Ref<CalendarCls>& calendar) {
    xCalendar_ = calendar;
}
void Application::xStep(const Ref<Steps>& steps) {
    xStep_ = steps;
}

Ref<TasksCol> Application::xPhases() {
    const Ref<Application> self(this);  // a listener may let go of it
    return kTail.Run<Ref<TasksCol>>("xPhases", [&](Ref<TasksCol>& result) {
        const Ref<TasksCol> tasks = xTaskCol();
        tasks->SortMe(True);
        auto phases = Make<TasksCol>();
        for (const auto& entry : tasks->NewEnum()) {
            const TasksCls& task = *entry.item;
            if (!task.TaskType() && task.ParentID() == 0 && task.TaskCondidat()) phases->AddItem(entry.item);
        }
        xPhases_ = phases;
        result = phases;
    });
}

void Application::Init(Boolean BVersion, Boolean p_source_prima, Boolean p_for_lib, Boolean p_set_calendar,
                       const String& p_error_file_name) {
    const Ref<Application> self(this);  // a listener may let go of it
    kTail.Run("Init", [&] {
        ModuleState& module = Module();
        module.g_MaxDate = Date();
        module.g_MinDate = Date();
        module.g_MaxDateTaskKey = 0;
        module.g_MinDateTaskKey = 0;
        module.BVersion = BVersion;
        module.g_SourcePrima = p_source_prima;
        EnsureErrorsHandler();
        SetErrorFileName(p_error_file_name);
        if (!oPublicStaticCls_) {
            oPublicStaticCls_ = Make<StaticCls>();
        } else {
            In(oPublicStaticCls_).Reset();
        }
        xProject_ = Make<ProjectsCls>();
        Renew(xTaskCol_, oPublicStaticCls_);
        Renew(xTaskObstaclesRelationcol_, oPublicStaticCls_);
        Renew(xTaskNotesRelationcol_, oPublicStaticCls_);
        Renew(xTaskGoalRelationcol_, oPublicStaticCls_);
        Renew(xGoalCol_, oPublicStaticCls_);
        Renew(xObstaclesCol_, oPublicStaticCls_);
        Renew(xPeopleCol_, oPublicStaticCls_);
        Renew(xNoteCol_, oPublicStaticCls_);
        Renew(xTaskPeopleRelationcol_, oPublicStaticCls_);
        xPhases_ = Make<TasksCol>();
        xCalendar_ = Make<CalendarCls>();
        if (p_set_calendar) In(xCalendar_).SetUsualWeekend();
        if (p_for_lib) return;
        module.g_PublicCalendar = xCalendar_;
        xStep_ = Make<Steps>();
        xStep_->InitSteps();
    });
}

Boolean Application::SetErrorFileName(const String& p_erro_file_name) {
    return kTail.Run<Boolean>("SetErrorFileName", [&](Boolean& result) {
        if (!p_erro_file_name.empty()) Module().g_ErrorsHandler->ErrFileName(p_erro_file_name);
        result = True;
    });
}

Boolean Application::CreateLockFile() {
    return kTail.Run<Boolean>("CreateLockFile", [&](Boolean& result) { result = locking::CreateLockFile(xFileName_); });
}

Boolean Application::endreadonly() {
    return kTail.Run<Boolean>("endreadonly", [&](Boolean& result) { result = locking::EndReadOnly(); });
}

Boolean Application::IsFileInUse(const String& p_file_name) {
    return kTail.Run<Boolean>("IsFileInUse", [&](Boolean& result) {
        if (p_file_name != xFileName_) result = locking::FileCanBeOveriwrite(p_file_name);
    });
}

Date Application::MinDate() {
    return kTail.Run<Date>("MinDate", [&](Date& result) { result = xTaskCol()->GetMinDate(); });
}

// Kept: unlike MaxDate it leaves the cached day alone.
void Application::MinDate(Date date) {
    const Ref<Application> self(this);  // a listener may let go of it
    kTail.Run("MinDate", [&] {
        if (Loud()) Events.Raise(&ApplicationEvents::MinDateChange, date);
    });
}

Date Application::MaxDate() {
    return kTail.Run<Date>("MaxDate", [&](Date& result) { result = In(xTaskCol()).GetMaxDate(); });
}

// Kept: whatever the date, the next reading counts anew.
void Application::MaxDate(Date /*date*/) {
    Module().g_MaxDate = Date();
}

Boolean Application::SetPublicCalendar() {
    Module().g_PublicCalendar = xCalendar_;
    Dirty_ = True;
    return False;  // Kept: the work is done all the same.
}

Integer Application::GetPreviewSettings() {
    return kTail.Run<Integer>("GetPreviewSettings", [&](Integer& result) { result = xProject()->previewsettings(); });
}

void Application::SetPreviewSettings(const Variant& p_value) {
    kTail.Run("SetPreviewSettings", [&] { xProject()->previewsettings(AsInteger(p_value)); });
}

Boolean Application::TaskRelated(const String& p_task_key) {
    return kTail.Run<Boolean>("TaskRelated", [&](Boolean& result) {
        const std::optional<Long> key = KeyIn(p_task_key);
        if (!key) return;
        result = mrlxmlclass::TaskRelated(*key, xTaskPeopleRelationcol(), xTaskGoalRelationcol(),
                                          xTaskObstaclesRelationcol());
    });
}

Boolean Application::Report() {
    return False;
}

}  // namespace mrlxmlclass
