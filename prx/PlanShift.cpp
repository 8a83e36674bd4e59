#include "prx/PlanShift.h"

#include <fmt/core.h>

#include <algorithm>

#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "prx/OneDayEach.h"
#include "prx/Outline.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// The day that a lead time allows.
Date StartBehind(TasksCls& task, Date end, Integer lead) {
    task.TaskLag(lead);
    task.TaskBDate(lead < 0 ? end : end + 1);
    return task.TaskBDate();
}

/// As the dates have it; `unknown` where they have none.
Integer LeadOf(const Wait& wait, Integer unknown) {
    const LinkDates dates{wait.predecessor->TaskEDate(), wait.waiting->TaskBDate()};
    return dates.measurable() ? Integer(dates.Gap()) : unknown;
}

void TellDates(TasksCol& tasks, TasksCls& task) {
    const Long key = task.TaskKey();
    const Boolean milestone = task.TaskMilstones();
    const String unit = task.TaskDurationUnit();
    tasks.Events.Raise(&TasksColEvents::DateStartChange, key, task.TaskBDate(), milestone, False);
    tasks.Events.Raise(&TasksColEvents::DateEndChange, key, task.TaskEDate(), milestone, False, unit);
    for (const auto event : {&TasksColEvents::DurationChange, &TasksColEvents::TaskDurationChange}) {
        tasks.Events.Raise(event, key, task.TaskDuration(), unit, milestone, False);
    }
}

}  // namespace

PlanShift::PlanShift(const Project& project, Long days) : project_(project), days_(days) {
    const Ref<TasksCol> tasks = project.tasks();
    for (const OutlineRow& row : Outline(tasks)) {
        if (tasks->isParent(KeyOf(*row.task)) || !row.task->TaskBDate().set()) continue;
        Leaf leaf{.task = row.task,
                  .start = row.task->TaskBDate(),
                  .end = row.task->TaskEDate(),
                  .waits = WaitsOf(project, row.task),
                  .leads = {}};
        for (const Wait& wait : leaf.waits) {
            leaf.leads.push_back(LeadOf(wait, LagOf(project, *wait.waiting, *wait.predecessor)));
        }
        places_.emplace(row.task->TaskKey(), leaves_.size());
        leaves_.push_back(std::move(leaf));
    }
}

Date PlanShift::first() const {
    Date first;
    for (const Leaf& leaf : leaves_) first = first.set() ? std::min(first, leaf.start) : leaf.start;
    return first.set() ? ByDays(first) : first;
}

Date PlanShift::last() const {
    Date last;
    for (const Leaf& leaf : leaves_) last = std::max({last, leaf.start, leaf.task->TaskEDate()});
    return last.set() ? last + static_cast<double>(days_.value()) : last;
}

void PlanShift::Run() {
    {
        const OneDayEach aside(project_, nullptr, /*tells=*/false);
        for (Leaf& leaf : leaves_) PlaceBehindOthers(leaf);
    }
    for (const Leaf& leaf : leaves_) Follow(leaf);
}

Remarks PlanShift::Stayed() const {
    Remarks lines;
    for (const Leaf& leaf : leaves_) {
        if (!leaf.moved()) lines.push_back(TitleOf(*leaf.task) + " did not move");
    }
    return lines;
}

Date PlanShift::ByDays(Date start) const {
    return Gloabal::NextWorkingDay(start + static_cast<double>(days_.value()), days_ < 0 ? -1 : 1);
}

/// Nothing for a summary, and for a task without dates.
PlanShift::Leaf* PlanShift::LeafOf(const TasksCls& task) {
    const auto found = places_.find(task.TaskKey());
    return found == places_.end() ? nullptr : &leaves_[found->second];
}

/// What a task waits for comes before it, to any depth. In a circle, the one that closes it does not wait for the
/// first.
void PlanShift::PlaceBehindOthers(Leaf& leaf) {
    if (leaf.reached) return;
    leaf.reached = true;
    std::vector<Leaf*> open = {&leaf};
    while (!open.empty()) {
        Leaf& next = *open.back();
        if (next.looked_at == next.waits.size()) {
            Place(next);
            open.pop_back();
            continue;
        }
        Leaf* before = LeafOf(*next.waits[next.looked_at++].predecessor);
        if (before == nullptr || before->reached) continue;
        before->reached = true;
        open.push_back(before);
    }
}

void PlanShift::Place(Leaf& leaf) {
    TasksCls& task = *leaf.task;
    leaf.placed = true;
    StoreStart(task, ByDays(leaf.start));
    Date latest;
    bool waits = false;  // itself
    for (std::size_t i = 0; i < leaf.waits.size(); ++i) {
        const auto& [waiting, predecessor] = leaf.waits[i];
        const Leaf* before = LeafOf(*predecessor);
        if (before == nullptr || before == &leaf || !before->placed || !predecessor->TaskEDate().set()) continue;
        latest = std::max(latest, StartBehind(task, predecessor->TaskEDate(), leaf.leads[i]));
        waits |= waiting == leaf.task;
    }
    StoreStart(task, waits ? latest : std::max(latest, ByDays(leaf.start)));
}

/// Its lead times are measured anew, and where it moved it is told. The summaries follow when the plan is saved.
void PlanShift::Follow(const Leaf& leaf) const {
    const Ref<TasksCol> tasks = project_.tasks();
    leaf.task->TaskLag(tasks->CalcLeadTime(KeyOf(*leaf.task)));
    for (std::size_t i = 0; i < leaf.waits.size(); ++i) {
        const Wait& wait = leaf.waits[i];
        // The library counts the free day on which a predecessor of weeks or months may end.
        if (wait.waiting == leaf.task) {
            tasks->AddLeadTime(KeyOf(*wait.waiting), KeyOf(*wait.predecessor), LeadOf(wait, leaf.leads[i]));
        }
    }
    if (leaf.moved()) TellDates(*tasks, *leaf.task);
}

}  // namespace prx
