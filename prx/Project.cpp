#include "prx/Project.h"

#include <fmt/core.h>
#include <fmt/ranges.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/Waits.h"
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "mrlxmlclass/xml/DateText.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Inspection.h"
#include "prx/LinkFaults.h"
#include "prx/LostRecords.h"
#include "prx/Refusal.h"
#include "prx/Summaries.h"
#include "prx/TaskKeys.h"
#include "prx/Terminal.h"
#include "prx/TieFaults.h"
#include "prx/ValueFaults.h"

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

/// What the system refuses to do with a file is told of it.
template <class Work>
auto Asked(const std::string& path, Work&& work) {
    try {
        return work();
    } catch (const Failure& failed) {
        throw Refusal(fmt::format("{}: {}", Plain(path), Plain(failed.description())));
    }
}

FileFacts FactsOf(const std::string& path) {
    return Asked(path, [&] { return Platform().files.Facts(path); });
}

/// As long as it lives, a new file gives nobody a right that a file of such rights does not give them. The group may be
/// another one: it gets no right but everybody's.
class RightsLike {
public:
    explicit RightsLike(std::uint32_t mode) : before_(umask(0777)) {
        const std::uint32_t others = mode & ((mode & 07U) * 011U);
        umask(before_ | (~others & 077U));
    }
    ~RightsLike() { umask(before_); }
    RightsLike(const RightsLike&) = delete;
    RightsLike& operator=(const RightsLike&) = delete;

private:
    mode_t before_;
};

/// About as many yields as a load of the file takes: one for each record.
std::size_t RecordsIn(const std::string& path) {
    if (!ErrorsGoToTerminal()) return 0;
    constexpr std::size_t kBytesOfARecord = 700;
    return static_cast<std::size_t>(Platform().files.Facts(path).size) / kBytesOfARecord;
}

/// What a recorded failure is about.
enum class About { kWizard, kReading, kOther };

About AboutWhat(const ErrorEntry& entry) {
    if (entry.ClassSource() == "Persist" || entry.ClassSource() == "Steps") return About::kWizard;
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
    return static_cast<std::size_t>(RecordedFailures().value());
}

/// The wizard's state stands in a file of this program's own.
void TellOfWizard(std::size_t first) {
    TellEach("no fault of the project, but of the wizard's state", Recorded({About::kWizard}, first, CountRecorded()));
}

}  // namespace

Project::Project(Host& host, const std::string& file)
    : host_(&host), path_(Absolute(file)), app_(Make<Application>()), document_(Make<dom::Document>()) {
    // Links live: without them a load and a save would drop them from the file.
    app().Init(/*BVersion=*/True);
    app().xFileName(path_);
}

void Project::DemandFile() const {
    const FileFacts facts = FactsOf(path_);
    if (!facts.exists) throw Refusal(fmt::format("{}: there is no such file", Plain(path_)));
    if (facts.folder) throw Refusal(fmt::format("{}: this is a folder, not a project", Plain(path_)));
}

void Project::Load() {
    Asked(path_, [&] { host_->files().Keep(path_); });
    Boolean read_only;
    Boolean loaded;
    {
        const ProgressDuring bar(host_->progress(), "Reading", RecordsIn(path_));
        loaded = app().LoadXML(/*p_onlyTasks=*/False, /*p_for_lib=*/False, read_only);
    }
    read_only_ = read_only && locks_.empty();
    failures_at_opening_ = CountRecorded();
    if (!document_->Load(path_) || !loaded) {
        const String fault = document_->error_text();
        throw Refusal(fmt::format("{}: this cannot be read as a project: {}", Plain(path_),
                                  fault.empty() ? "see " + Host::ErrorFile() : Plain(fault)));
    }
    TellOfWizard(0);
    ReadDates();
}

Project Project::ToLook(Host& host, const std::string& file) {
    Project project(host, file);
    project.DemandFile();
    project.Load();
    return project;
}

Project Project::ToEdit(Host& host, const std::string& file, bool force) {
    Project project(host, file);
    project.DemandFile();
    project.Lock();
    project.Load();
    if (force) {
        project.lost_at_opening_ = Unread(project);
        project.mended_at_opening_ = project.Mend();  // nothing stays tied to what is lost
        project.TellFailures("the mending did not go through");
    } else {
        project.RefuseUnlessWhole();
    }
    for (std::string& line : MeasureMissingLeads(project)) project.mended_at_opening_.push_back(std::move(line));
    project.in_disorder_ = !OutlineFaults(project).empty();
    CountSummariesInDays(project);  // the library cannot add up below one of hours
    project.tasks()->Phases();      // a list that is not there yet cannot lose a phase
    project.tasks()->AutoLink(True);
    project.links().Remember(project.tasks());
    return project;
}

Project Project::Fresh(Host& host, const std::string& file) {
    Project project(host, file);
    project.LockNewFile();
    project.failures_at_opening_ = CountRecorded();
    return project;
}

void Project::RefuseToReplace(const std::string& file) {
    const std::string path = Absolute(file);
    if (FactsOf(path).exists) throw Refusal(fmt::format("{}: there is such a file already", Plain(path)));
}

void Project::Lock() {
    using Beside = ProjectLock::Beside;
    Files& files = host_->files().below();
    std::error_code none;
    const bool linked = std::filesystem::is_symlink(path_, none);
    locks_.emplace_back(files, path_, linked ? Beside::Another : Beside::Nothing);
    if (linked) locks_.emplace_back(files, files.Resolve(path_));  // others may have it by its own name
}

void Project::LockNewFile() {
    RefuseToReplace(path_);
    Lock();
    RefuseToReplace(path_);  // somebody may have made it meanwhile
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
    std::vector<std::string> disorder = OtherFailures();
    for (const auto& to_nowhere : {TiesToNowhere(*this), LinksToNowhere(*this)}) {
        disorder.insert(disorder.end(), to_nowhere.begin(), to_nowhere.end());
    }
    if (!disorder.empty()) {
        refuse("nothing of this project is lost, but it is in disorder, so that a change may go wrong", disorder);
    }
}

/// A load passes by the day of creation, so that the next save would write none, and reads the two lines, and when a
/// task was changed, as dates of this system, whatever the format of the file.
void Project::ReadDates() {
    const String written_in = root().selectSingleNode("DateFormat").Text();
    const String format = written_in.empty() ? SystemDatePattern() : written_in;
    const auto date_of = [&](dom::Node parent, const char* element) {
        return FailureTail("prx").Silent().Run<Date>(
            "ReadDates", [&](Date& result) { result = ParseDate(parent.selectSingleNode(element).Text(), format); });
    };
    ProjectsCls& record = *app().xProject();
    record.ProjectCreationDate(date_of(root(), "ProjectCreationDate"));
    if (const Date start = date_of(root(), "ProjectStartLine"); start.set()) record.ProjectStartLine(start);
    if (const Date deadline = date_of(root(), "ProjectDeadLine"); deadline.set()) record.ProjectDeadLine(deadline);
    if (format == SystemDatePattern()) return;
    ForEachElement(root().selectSingleNode("Tasks"), "Task", [&](dom::Node task) {
        const Ref<TasksCls> held = tasks()->Item(String(Trim(task.selectSingleNode("TaskKey").Text())));
        if (!held || !held->TaskModifiedDateValid()) return;
        if (const Date changed = date_of(task, "TaskModifiedDate"); changed.set()) held->TaskModifiedDate(changed);
    });
}

std::vector<std::string> Project::ReadingFailures() const {
    return Recorded({About::kReading}, 0, failures_at_opening_);
}

std::vector<std::string> Project::OtherFailures() const {
    return Recorded({About::kOther}, 0, failures_at_opening_);
}

std::vector<std::string> Project::FailuresSince() const {
    return Recorded({About::kReading, About::kOther}, failures_at_opening_, CountRecorded());
}

std::vector<std::string> Project::Mend() {
    std::vector<std::string> told = MendKeys(*this);  // ties and links lead to keys
    for (const auto mend : {MendTies, MendLinks, MendSummaries}) {
        const std::vector<std::string> more = mend(*this);
        told.insert(told.end(), more.begin(), more.end());
    }
    return told;
}

/// Damage that led somewhere before the change; the next one would be refused.
std::vector<std::string> Project::MendWhatLeadsNowhere() {
    std::vector<std::string> told;
    if (!TiesToNowhere(*this).empty()) told = MendTies(*this);
    if (!LinksToNowhere(*this).empty()) {
        const std::vector<std::string> links = MendLinks(*this);
        told.insert(told.end(), links.begin(), links.end());
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
        const std::vector<std::string> costs = CostsBeyondRange(*this);
        if (!costs.empty()) throw Refusal(fmt::format("nothing was saved: {}", fmt::join(Shortened(costs), "\n  ")));
        throw Refusal(fmt::format("the change did not go through, so nothing was saved:\n  {}",
                                  fmt::join(Shortened(failed), "\n  ")));
    }
}

void Project::Save() {
    constexpr std::size_t kMostLinksTold = 10;
    std::vector<std::string> link_changes = TakeOffWhatMayNotBe(*this, links().Come());
    MendSummaries(*this);        // a walk along the links leaves some as they were
    MeasureMissingLeads(*this);  // and a link that bridges over a task
    for (const auto& [task, predecessor] : links().Changed()) {
        StoreMeasuredLead(tasks(), {tasks()->Item(task), tasks()->Item(predecessor)});
    }
    const std::vector<std::string> mended = MendWhatLeadsNowhere();
    RefuseIfFailed();
    RefuseBeyondLastYear(*this);
    for (std::string& line : links().Told()) link_changes.push_back(std::move(line));
    Write();
    TellEach("was lost", std::exchange(lost_at_opening_, {}));
    TellEach("was mended", std::exchange(mended_at_opening_, {}));
    TellEach("was mended", mended);
    for (const std::string& change : Shortened(link_changes, kMostLinksTold)) Platform().ui.Message(change);
    if (std::exchange(in_disorder_, false)) {
        Platform().ui.Message(
            "the rows or parents of this plan are in disorder, so that other tasks may stand elsewhere now; "
            "\"prx check\" tells which");
    }
}

void Project::SaveAs(const std::string& file) {
    const RightsLike rights(FactsOf(path_).mode);
    path_ = Absolute(file);
    app().xFileName(path_);
    LockNewFile();
    Write();
}

void Project::Write() {
    const std::size_t recorded = CountRecorded();
    const String problem = SaveSafely(app_);
    if (problem.starts_with(path_)) throw Refusal(Plain(problem));
    if (!problem.empty()) throw Refusal(fmt::format("{}: not saved: {}", Plain(path_), Plain(problem)));
    host_->saved(path_);
    TellOfWizard(recorded);
}

}  // namespace prx
