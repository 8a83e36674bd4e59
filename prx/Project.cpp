#include "prx/Project.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "mrlxmlclass/xml/DateText.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Inspection.h"
#include "prx/LinkFaults.h"
#include "prx/Refusal.h"
#include "prx/TaskKeys.h"
#include "prx/Terminal.h"
#include "prx/TieFaults.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// A bare name would put the lock into the root folder.
std::string Absolute(const std::string& file) {
    if (file.empty()) throw Refusal("the file needs a name");
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(file, error);
    if (error) throw Refusal(fmt::format("{}: {}", Plain(file), error.message()));
    return path.string();
}

/// About as many yields as a load of the file takes: one for each record.
std::size_t RecordsIn(const std::string& path) {
    if (!ErrorsGoToTerminal()) return 0;
    constexpr std::size_t kBytesOfARecord = 700;
    return static_cast<std::size_t>(Platform().files.Facts(path).size) / kBytesOfARecord;
}

/// What a recorded failure is about.
enum class About { kLock, kReading, kOther };

About AboutWhat(const ErrorEntry& entry) {
    if (entry.ClassSource() == "locking" || entry.FunctionSource() == "CreateLockFile") return About::kLock;
    // A list of keys that ends early is no loss: the relations tell what belongs on it. Those are counted.
    const bool read = entry.FunctionSource().starts_with("FromXml") && !entry.ClassSource().ends_with("RelationCol");
    return read ? About::kReading : About::kOther;
}

/// Those about that among the entries `first` to `end`, counted from 0.
std::vector<std::string> Recorded(std::initializer_list<About> about, std::size_t first, std::size_t end) {
    std::vector<std::string> lines;
    const Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
    if (!handler) return lines;
    const Ref<ErrorEntries> entries = handler->Log()->Error_Col();
    for (std::size_t n = first; n < end; ++n) {
        const ErrorEntry entry = entries->Item(Long(n + 1));
        if (std::ranges::count(about, AboutWhat(entry)) == 0) continue;
        std::string what = entry.ErrDescription();
        what.erase(std::min(what.find(",Line: "), what.size()));
        lines.push_back(
            Plain(fmt::format("{} ({} in {}.{})", what, entry.ID(), entry.ClassSource(), entry.FunctionSource())));
    }
    return lines;
}

void TellEach(const char* what, const std::vector<std::string>& lines) {
    for (const std::string& line : Shortened(lines)) Platform().ui.Message(fmt::format("{}: {}", what, line));
}

std::size_t CountRecorded() {
    const Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
    return handler ? static_cast<std::size_t>(handler->Log()->Error_Col()->Count().value()) : 0;
}

}  // namespace

Project::Project(const std::string& file) : path_(Absolute(file)), session_(Make<Application>()) {
    // Links live: without them a load and a save would drop them from the file.
    app().Init(/*BVersion=*/True);
    app().xFileName(path_);
}

void Project::Load(Host& host) {
    const FileFacts facts = Platform().files.Facts(path_);
    if (!facts.exists) throw Refusal(fmt::format("{}: there is no such file", Plain(path_)));
    if (facts.folder) throw Refusal(fmt::format("{}: this is a folder, not a project", Plain(path_)));

    Boolean read_only;
    Boolean loaded;
    {
        const ProgressDuring bar(host.progress(), "Reading", RecordsIn(path_));
        loaded = app().LoadXML(/*p_onlyTasks=*/False, /*p_for_lib=*/False, read_only);
    }
    read_only_ = static_cast<bool>(read_only);
    failures_at_opening_ = CountRecorded();
    if (loaded) return;
    const auto document = Make<dom::Document>();
    document->Load(path_);
    throw Refusal(
        fmt::format("{}: this cannot be read as a project: {}", Plain(path_),
                    document->error_text().empty() ? "see " + host.ErrorFile() : Plain(document->error_text())));
}

Project Project::ToLook(Host& host, const std::string& file) {
    Project project(file);
    project.Load(host);
    return project;
}

Project Project::ToEdit(Host& host, const std::string& file, bool force) {
    Project project(file);
    project.Load(host);
    if (project.read_only_) {
        throw Refusal(fmt::format("{}: somebody else has this project open; try again later", Plain(project.path_)));
    }
    if (force) {
        TellEach("was lost", Unread(project));
        TellEach("was mended", project.Mend());  // nothing stays tied to what is lost
        project.TellFailures("the mending did not go through");
    } else {
        project.RefuseUnlessWhole();
    }
    project.KeepCreationDate();
    project.tasks()->Phases();  // a list that is not there yet cannot lose a phase
    project.tasks()->AutoLink(True);
    return project;
}

Project Project::Fresh(Host& /*host*/, const std::string& file) {
    RefuseToReplace(file);
    Project project(file);
    project.LockNewFile();
    project.failures_at_opening_ = CountRecorded();
    return project;
}

void Project::RefuseToReplace(const std::string& file) {
    const std::string path = Absolute(file);
    if (Platform().files.Facts(path).exists)
        throw Refusal(fmt::format("{}: there is such a file already", Plain(path)));
}

void Project::LockNewFile() {
    if (app().CreateLockFile() || !Module().g_ReadOnly) return;
    throw Refusal(fmt::format("{}: somebody else is at work on this project", Plain(path_)));
}

void Project::RefuseUnlessWhole() const {
    const auto refuse = [&](const char* why, const std::vector<std::string>& lines) {
        throw Refusal(fmt::format("{}: {}:\n  {}\nLook at it with \"prx check\"; --force goes on all the same.",
                                  Plain(path_), why, fmt::join(Shortened(lines), "\n  ")));
    };
    if (!Unread(*this).empty()) {
        refuse("this project could not be read whole, and saving it would lose the rest", Losses(*this));
    }
    const std::vector<std::string> keyless = KeyFaults(*this);
    if (!keyless.empty()) {
        throw Refusal(
            fmt::format("{}: {}, and no change can find it.\n\"prx check --repair\" files it under one in a "
                        "new file; --force does so before the change.",
                        Plain(path_), fmt::join(keyless, "\n  ")));
    }
    const std::vector<std::string> failures = OtherFailures();
    if (!failures.empty()) {
        refuse("nothing of this project is lost, but it is in disorder, so that a change may go wrong", failures);
    }
}

/// A load never takes this date back, and the next save would write none.
void Project::KeepCreationDate() {
    const auto document = Make<dom::Document>();
    if (!document->Load(path_)) return;
    const dom::Node root = document->documentElement();
    const String format = root.selectSingleNode("DateFormat").Text();
    const Date date = FailureTail("prx").Silent().Run<Date>("KeepCreationDate", [&](Date& result) {
        result = ParseDate(root.selectSingleNode("ProjectCreationDate").Text(), format);
    });
    app().xProject()->ProjectCreationDate(date);
}

std::vector<std::string> Project::ReadingFailures() const {
    return Recorded({About::kReading}, 0, failures_at_opening_);
}

std::vector<std::string> Project::OtherFailures() const {
    return Recorded({About::kOther}, 0, failures_at_opening_);
}

std::vector<std::string> Project::LockFailures() const {
    return Recorded({About::kLock}, 0, CountRecorded());
}

std::vector<std::string> Project::FailuresSince() const {
    return Recorded({About::kReading, About::kOther}, failures_at_opening_, CountRecorded());
}

std::vector<std::string> Project::Mend() {
    std::vector<std::string> told = MendKeys(*this);  // ties and links lead to keys
    for (const auto mend : {MendTies, MendLinks}) {
        const std::vector<std::string> more = mend(*this);
        told.insert(told.end(), more.begin(), more.end());
    }
    return told;
}

void Project::TellFailures(const char* what) {
    TellEach(what, FailuresSince());
    failures_at_opening_ = CountRecorded();
}

void Project::RefuseIfFailed() const {
    const std::vector<std::string> failed = FailuresSince();
    if (!failed.empty()) {
        throw Refusal(fmt::format("the change did not go through, so nothing was saved:\n  {}",
                                  fmt::join(Shortened(failed), "\n  ")));
    }
}

void Project::Save() {
    RefuseIfFailed();
    Write();
}

void Project::SaveAs(const std::string& file) {
    RefuseToReplace(file);
    KeepCreationDate();
    app().endreadonly();
    path_ = Absolute(file);
    app().xFileName(path_);
    LockNewFile();
    Write();
}

void Project::Write() {
    const String problem = SaveSafely(session_.app);
    if (!problem.empty()) throw Refusal(fmt::format("{}: not saved: {}", Plain(path_), Plain(problem)));
}

}  // namespace prx
