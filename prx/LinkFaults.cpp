#include "prx/LinkFaults.h"

#include <fmt/core.h>

#include <set>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/Waits.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "prx/Edit.h"
#include "prx/Findings.h"
#include "prx/Outline.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

std::string Shown(const std::string& lead) {
    constexpr std::size_t kWidest = 60;
    return Plain(CutTo(lead, kWidest));
}

/// The links of all tasks, looked at or mended.
class Links {
public:
    Links(Ref<TasksCol> tasks, Findings::Purpose purpose) : tasks_(std::move(tasks)), found_(purpose) {}

    std::vector<std::string> Look() {
        for (const auto& entry : tasks_->NewEnum()) {
            TasksCls& task = *entry.item;
            if (task.TaskKey() == 0) continue;  // no link can name it
            if (task.TaskPredecessorValid()) LookAtPredecessors(task);
            if (task.TaskSuccessorValid()) LookAtSuccessors(task);
            LookAtLeads(task);
        }
        return found_.Take();
    }
    std::vector<std::string> TakeOffWhatMayNotBe(const std::vector<std::pair<Long, Long>>& links) {
        std::vector<std::string> told;
        for (const auto& [task, key] : links) {
            TasksCls& waiting = *tasks_->Item(task);
            TasksCls& predecessor = *tasks_->Item(key);
            std::string why = WhyNot(waiting, predecessor);
            if (why.empty() && !IsSummary(waiting) && WaitsFor(predecessor, KeyOf(waiting))) {
                why = TitleOf(predecessor) + ", which waits for it";
            }
            if (why.empty()) continue;
            told.push_back(fmt::format("{} was to wait for {}: taken off", TitleOf(waiting), why));
            tasks_->RemoveTaskPredecessor(KeyOf(waiting), KeyOf(predecessor));
        }
        return told;
    }
    std::vector<std::string> MeasureMissingLeads() {
        for (const auto& entry : tasks_->NewEnum()) {
            if (entry.item->TaskKey() != 0 && entry.item->TaskPredecessorValid()) LookForLeads(*entry.item);
        }
        return found_.Take();
    }

private:
    void LookAtPredecessors(TasksCls& task) {
        for (const auto& entry : task.TaskPredecessor()->Snapshot()) {
            const std::string key = entry.item.Key().text();
            const Ref<TasksCls> predecessor = tasks_->Item(key);
            if (!predecessor) {
                found_.Tell(fmt::format("{} waits for task {}, which is not there", TitleOf(task), Plain(key)),
                            "taken off", /*nowhere=*/true);
                if (found_.mends()) TakeOff(task, key);
            } else if (const std::string why = WhyNot(task, *predecessor); !why.empty()) {
                found_.Tell(fmt::format("{} waits for {}", TitleOf(task), why), "taken off");
                off_.emplace(KeyOf(task), key);
                if (!found_.mends()) continue;
                TakeOff(task, key);
                if (predecessor->isSucesser(KeyOf(task))) predecessor->TaskSuccessor()->Remove(KeyOf(task));
            } else if (!predecessor->isSucesser(KeyOf(task))) {
                found_.Tell(
                    fmt::format("{} waits for {}, which does not list it", TitleOf(task), TitleOf(*predecessor)),
                    "put on");
                if (found_.mends()) predecessor->TaskSuccessor()->Add(KeyOf(task), KeyOf(task));
            }
        }
    }

    /// Why the library makes no such link; of two tasks that wait for each other one goes on doing so.
    std::string WhyNot(TasksCls& task, TasksCls& predecessor) const {
        if (task.TaskKey() == predecessor.TaskKey()) return "itself";
        if (StandsBelow(tasks_, predecessor, task)) return TitleOf(predecessor) + ", which stands below it";
        if (IsSummary(predecessor)) return TitleOf(predecessor) + ", which is a summary";
        if (!IsSummary(task) && WaitsFor(predecessor, KeyOf(task)) && GivesWay(task, predecessor)) {
            return TitleOf(predecessor) + ", which waits for it";
        }
        return {};
    }
    bool IsSummary(const TasksCls& task) const { return static_cast<bool>(tasks_->isParent(KeyOf(task))); }
    /// The one whose link is known to one side alone, else the one that stands first.
    static bool GivesWay(TasksCls& task, TasksCls& other) {
        const bool known = static_cast<bool>(other.isSucesser(KeyOf(task)));
        const bool others_known = static_cast<bool>(task.isSucesser(KeyOf(other)));
        if (known != others_known) return others_known;
        return std::pair(task.TaskPosition(), task.TaskKey()) < std::pair(other.TaskPosition(), other.TaskKey());
    }

    /// As the library takes a link off, but for the events.
    void TakeOff(TasksCls& task, const std::string& key) {
        task.TaskPredecessor()->Remove(key);
        task.TaskLag(0);
    }

    void LookAtSuccessors(TasksCls& task) {
        for (const auto& entry : task.TaskSuccessor()->Snapshot()) {
            const std::string key = entry.item.Key().text();
            const Ref<TasksCls> successor = tasks_->Item(key);
            if (successor && WaitsFor(*successor, KeyOf(task))) continue;
            if (off_.contains({key, KeyOf(task)})) continue;  // told already
            found_.Tell(successor
                            ? fmt::format("{} lists {}, which does not wait for it", TitleOf(task), TitleOf(*successor))
                            : fmt::format("{} lists task {}, which is not there", TitleOf(task), Plain(key)),
                        "taken off", !successor);
            if (found_.mends()) task.TaskSuccessor()->Remove(key);
        }
    }

    /// Behind the links: what leads nowhere has no lead time any more.
    void LookAtLeads(TasksCls& task) {
        for (const auto& entry : task.TaskLeadTime()->Snapshot()) {
            const std::string lead = entry.item.As<String>();
            const std::string key = tasks_->GetPredecessor(lead);
            if (!WaitsFor(task, key)) {
                found_.Tell(fmt::format("{} keeps a lead time for {}, for which it does not wait", TitleOf(task),
                                        key.empty() ? "no task" : "task " + Plain(key)),
                            "taken out");
                if (found_.mends()) tasks_->RemoveLeadTime(KeyOf(task), key, 0);
            } else if (!HoldsDays(lead)) {
                found_.Tell(fmt::format("{} keeps the lead time \"{}\" for task {}, which is no number of days",
                                        TitleOf(task), Shown(lead), Plain(key)),
                            "measured anew");
                if (found_.mends()) tasks_->AddLeadTime(KeyOf(task), key, GapTowards(task, key));
            }
        }
        if (task.TaskPredecessorValid()) LookForLeads(task);
    }

    /// A link without a lead time is read as one of no days.
    void LookForLeads(TasksCls& task) {
        std::set<std::string> led;
        for (const auto& entry : task.TaskLeadTime()->Snapshot()) {
            led.insert(tasks_->GetPredecessor(entry.item.As<String>()));
        }
        for (const auto& entry : task.TaskPredecessor()->Snapshot()) {
            const std::string key = entry.item.Key().text();
            const Ref<TasksCls> predecessor = tasks_->Item(key);
            if (led.contains(key) || !predecessor || !WaitsFor(task, key)) continue;
            if (!WhyNot(task, *predecessor).empty()) continue;  // the link itself is what is wrong
            found_.Tell(fmt::format("{} keeps no lead time for task {}, for which it waits", TitleOf(task), Plain(key)),
                        "measured anew");
            if (found_.mends()) tasks_->AddLeadTime(KeyOf(task), key, GapTowards(task, key));
        }
    }

    /// Whether the library finds them there.
    static bool HoldsDays(const std::string& lead) {
        return static_cast<bool>(FailureTail("prx").Silent().Run<Boolean>("HoldsDays", [&](Boolean& result) {
            const std::vector<String> parts = Split(lead, "|");
            if (parts.size() < 2) return;
            Conversions::StringToInteger(parts[1]);
            result = True;
        }));
    }

    /// As the dates tell it; none where they tell nothing.
    Integer GapTowards(const TasksCls& task, const std::string& key) const {
        const LinkDates dates{tasks_->Item(key)->TaskEDate(), task.TaskBDate()};
        return dates.measurable() ? Integer(dates.Gap()) : Integer(0);
    }

    bool WaitsFor(TasksCls& task, const std::string& key) const {
        return task.TaskPredecessorValid() && task.isPredecessor(key) && !off_.contains({KeyOf(task), key});
    }

    Ref<TasksCol> tasks_;
    Findings found_;
    std::set<std::pair<std::string, std::string>> off_;  ///< a task and one that it is told not to wait for
};

}  // namespace

std::vector<std::string> LinkFaults(const Project& project) {
    return Links(project.tasks(), Findings::Purpose::kTell).Look();
}

std::vector<std::string> LinksToNowhere(const Project& project) {
    return Links(project.tasks(), Findings::Purpose::kTellWhatLeadsNowhere).Look();
}

std::vector<std::string> MendLinks(const Project& project) {
    return Links(project.tasks(), Findings::Purpose::kMend).Look();
}

std::vector<std::string> TakeOffWhatMayNotBe(const Project& project, const std::vector<std::pair<Long, Long>>& links) {
    return Links(project.tasks(), Findings::Purpose::kMend).TakeOffWhatMayNotBe(links);
}

std::vector<std::string> MeasureMissingLeads(const Project& project) {
    return Links(project.tasks(), Findings::Purpose::kMend).MeasureMissingLeads();
}

}  // namespace prx
