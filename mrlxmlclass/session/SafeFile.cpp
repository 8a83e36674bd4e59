#include "mrlxmlclass/session/SafeFile.h"

#include <optional>

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
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/wizard/Persist.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"SafeFile", FailureTail::Gives::SoFar};
constexpr std::string_view kDeclaration = "<?xml version=";

/// What the error log takes up from here on.
class NewFailures {
public:
    NewFailures() {
        EnsureErrorsHandler();
        entries_ = Module().g_ErrorsHandler->Log()->Error_Col();
        before_ = entries_->Count();
    }

    /// The latest, in words.
    String Last() const {
        if (entries_->Count() == before_) return "the reason could not be recorded";
        return Words(entries_->Item(entries_->Count()));
    }

    /// The first that ended the writing of a record or a section: it stands in the file all the same, cut short.
    /// "" when there is none.
    String OfAWriter() const {
        for (Long n = before_ + 1; n <= entries_->Count(); ++n) {
            const ErrorEntry entry = entries_->Item(n);
            if (entry.FunctionSource().starts_with("ToXml")) return Words(entry);
        }
        return {};
    }

private:
    /// Without the line and the time that the log puts behind the description.
    static String Words(const ErrorEntry& entry) {
        const String text = entry.ErrDescription();
        return text.substr(0, text.rfind(",Line: "));
    }

    Ref<ErrorEntries> entries_;
    Long before_;
};

/// The file that is to be replaced.
struct Target {
    String path;  ///< links followed
    FileFacts old;
    bool autosave = false;

    /// For a file of that group: where it is not the old file's, it gets no right but everybody's.
    std::uint32_t ModeFor(std::uint32_t group) const {
        const std::uint32_t mode = autosave ? old.mode | 0200U : old.mode;
        const std::uint32_t everybodys = (mode & 07U) << 3U;
        return group == old.group ? mode : mode & (~070U | everybodys);
    }
    Integer attributes() const {
        if (autosave) return file_attribute::kHidden + file_attribute::kSystem;
        return Platform().files.Attributes(path);
    }
};

Target TargetOf(const String& file_name) {
    if (file_name.empty()) Raise(failure::kPathAccess, "The project has no file name");
    Files& files = Platform().files;
    const String path = files.Resolve(file_name);
    return {path, files.Facts(path), IsAutosave(file_name)};
}

/// Fails for what a plain save would not write over, and for what is no file.
void DemandReplaceable(const Target& target) {
    if (!target.old.exists) return;
    Files& files = Platform().files;
    if (target.old.writable || !target.autosave) files.Open(target.path)->Close();
    // What seems empty may be a device, which must not make room for a file; reading refuses a device.
    if (target.old.size == 0) files.Read(target.path);
}

/// Whether something bears the name that no dead save left: what one leaves is empty, or begins as all saved files do.
Boolean IsForeign(const String& path) {
    Files& files = Platform().files;
    if (FileNameOf(files.Resolve(path)) != FileNameOf(path)) return True;  // a link
    const FileFacts there = files.Facts(path);
    if (!there.exists || there.folder) return there.folder;
    return kTail.Silent().Run<Boolean>("IsForeign", [&](Boolean& result) {
        result = True;
        const String content = files.Read(path);
        result = !content.starts_with(kDeclaration.substr(0, content.size()));
    });
}

/// The same for every save of a file, so that each clears away what a dead one left. A "~" before each dot keeps it
/// from being an autosave by its own name. A folder, a link or a foreign file that bears the name is gone around.
String NameOfCopy(const String& path) {
    const std::size_t name = path.rfind('/') + 1;  // without a "/": 0
    String copy = path.substr(0, name) + "~";
    for (const char letter : std::string_view(path).substr(name)) {
        if (letter == '.') copy += '~';
        copy += letter;
    }
    do {
        copy += '~';
    } while (IsForeign(copy));
    return copy;
}

/// The new file on its way. Whatever ends the save before the copy stands in its place takes it away.
class Copy {
public:
    explicit Copy(const String& target) : path_(NameOfCopy(target)) {}
    ~Copy() {
        if (!placed_) kTail.Silent().Run("Delete", [this] { Platform().files.Delete(path_); });
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    const String& path() const { return path_; }

    /// Makes it empty, and readable for nobody who may not read the original.
    void Create(const Target& target) {
        Files& files = Platform().files;
        files.Delete(path_);
        files.Create(path_)->Close();
        if (!target.old.exists) return;
        files.SetOwner(path_, target.old);
        files.SetMode(path_, target.ModeFor(files.Facts(path_).group));
    }

    /// Brings all of it onto the disk.
    void Sync(const Target& target) {
        Files& files = Platform().files;
        files.SetAttributes(path_, target.attributes());
        const auto file = files.Open(path_);
        file->Sync();
        file->Close();
    }

    void Place(const Target& target) {
        Platform().files.Rename(path_, target.path);
        placed_ = true;
    }

private:
    String path_;
    bool placed_ = false;
};

/// Saves under another name than the project's own, which it has again afterwards.
Boolean SaveAs(Application& project, const String& path) {
    const String own_name = project.xFileName();
    project.xFileName(path);
    const Boolean saved = project.SaveXml(/*p_persit=*/False);
    project.xFileName(own_name);
    return saved;
}

void WriteCopy(Application& project, const String& path) {
    const NewFailures failures;
    const Boolean saved = SaveAs(project, path);
    const String cut_short = failures.OfAWriter();
    if (!cut_short.empty()) Raise(failure::kDeviceFailure, cut_short);
    if (!saved) Raise(failure::kDeviceFailure, failures.Last());
}

/// How many records a section must hold; nothing of one that is a single record.
std::optional<Long> RecordsOf(const TasksCol& tasks) {
    return tasks.Count(/*p_all=*/True);
}
std::optional<Long> RecordsOf(const CalendarCls& /*calendar*/) {
    return std::nullopt;
}
template <class Col>
std::optional<Long> RecordsOf(const Col& records) {
    return records.Count();
}

void DemandWhole(Application& project, const String& path) {
    const Ref<dom::Document> document = DocumentOfFile(path);
    const dom::Node root = RootOf(document);
    Application::Internal::EachSection([&](const String& name, const auto& held) {
        const dom::Node section = root.selectSingleNode(name);
        if (!section) Raise(failure::kDeliberate, "The section " + name + " is missing");
        const Long count = section.childCount();
        const std::optional<Long> records = RecordsOf(*held(project));
        if (!records || *records == count) return;
        Raise(failure::kDeliberate, "The section " + name + " holds " + std::to_string(count.value()) +
                                        " records instead of " + std::to_string(records->value()));
    });
}

void SyncFolderOf(const String& path) {
    const String folder = FolderOf(path);
    Platform().files.SyncFolder(folder.empty() && path.starts_with('/') ? "/" : folder);
}

/// One run of SaveSafely. `trouble` says at each moment what a failure would mean.
void Replace(Application& project, const String& file_name, String& trouble) {
    const String not_saved = file_name + " was not saved: ";
    trouble = not_saved + "it cannot be replaced";
    const Target target = TargetOf(file_name);
    DemandReplaceable(target);

    trouble = not_saved + "the new copy beside it could not be written";
    Copy copy(target.path);
    copy.Create(target);
    WriteCopy(project, copy.path());
    trouble = not_saved + "the new copy beside it is not whole";
    DemandWhole(project, copy.path());
    trouble = not_saved + "the new copy beside it could not be brought onto the disk";
    copy.Sync(target);
    trouble = not_saved + "the new copy beside it could not take its place";
    copy.Place(target);
    trouble = file_name + " was saved, but a power cut may still undo that";
    SyncFolderOf(target.path);
}

/// Gives "" when the attempt came to its end, else what it left as its trouble, and why.
template <class Attempt>
String TroubleOf(const char* member_label, Attempt&& attempt) {
    const NewFailures failures;
    const String trouble = kTail.Run<String>(member_label, [&](String& result) {
        attempt(result);
        result = String();
    });
    return trouble.empty() ? trouble : trouble + " (" + failures.Last() + ").";
}

}  // namespace

String SaveSafely(const Ref<Application>& application, Boolean persist) {
    const Ref<Application> project = application;  // a listener may let go of the caller's
    return TroubleOf("SaveSafely", [&](String& trouble) {
        trouble = "There is no project to save";
        const String file_name = project->xFileName();
        Replace(*project, file_name, trouble);
        trouble = String();
        if (persist) Persist::SaveObject(project->xStep(), String(file_name));
    });
}

String WhyNotReplaceable(const String& file_name) {
    return TroubleOf("WhyNotReplaceable", [&](String& trouble) {
        trouble = file_name + " cannot be replaced";
        DemandReplaceable(TargetOf(file_name));
    });
}

Ref<Collection> MissingSections(const String& path) {
    return kTail.Run<Ref<Collection>>("MissingSections", [&](Ref<Collection>& result) {
        result = Make<Collection>();
        const Ref<dom::Document> document = DocumentOfFile(path);
        const dom::Node root = document->documentElement();
        Application::Internal::EachSection([&](const String& name, const auto& /*held*/) {
            if (!root.selectSingleNode(name)) result->Add(name);
        });
    });
}

}  // namespace mrlxmlclass
