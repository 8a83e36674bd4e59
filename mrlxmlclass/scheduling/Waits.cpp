#include "mrlxmlclass/scheduling/Waits.h"

#include <algorithm>
#include <unordered_set>

#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

namespace {

/// A task and its parents, from below, also where they run in a circle.
std::vector<Ref<TasksCls>> WithParents(const Ref<TasksCol>& tasks, Ref<TasksCls> task) {
    std::vector<Ref<TasksCls>> way;
    std::unordered_set<std::int64_t> passed;
    while (task && passed.insert(task->TaskKey()).second) {
        way.push_back(task);
        task = task->ParentID() != 0 ? In(*tasks).Item(KeyText(task->ParentID())) : nullptr;
    }
    return way;
}

}  // namespace

bool LinkDates::measurable() const {
    return predecessor_end.set() && start.set() && predecessor_end.in_calendar() && start.in_calendar();
}

std::int64_t LinkDates::Gap() const {
    const std::int64_t days = DaysBetween(predecessor_end, start).value();
    const Date last = predecessor_end.day();
    const Date first = start.day();
    const PublicDays calendar;
    if (days > 0) return days - 1 - (days == 1 ? 0 : calendar.CountNonWorking(last + 1, first - 1));
    return -std::max<std::int64_t>(1, 1 - days - calendar.CountNonWorking(first, last));
}

std::vector<Ref<TasksCls>> PredecessorsOf(const Ref<TasksCol>& tasks, TasksCls& task) {
    std::vector<Ref<TasksCls>> predecessors;
    if (!task.TaskPredecessorValid()) return predecessors;
    for (const auto& entry : task.TaskPredecessor()->Snapshot()) {
        Ref<TasksCls> predecessor = tasks->Item(entry.item);
        if (predecessor && predecessor->TaskCondidat()) predecessors.push_back(std::move(predecessor));
    }
    return predecessors;
}

std::vector<Wait> WaitsOf(const Ref<TasksCol>& tasks, const Ref<TasksCls>& task) {
    std::vector<Wait> found;
    for (const Ref<TasksCls>& waiting : WithParents(tasks, task)) {
        for (Ref<TasksCls>& predecessor : PredecessorsOf(tasks, *waiting)) {
            found.push_back({waiting, std::move(predecessor)});
        }
    }
    return found;
}

std::vector<Ref<TasksCls>> FollowersOf(const Ref<TasksCol>& tasks, TasksCls& task) {
    std::vector<Ref<TasksCls>> followers;
    if (!In(task).HasSuccessors()) return followers;
    const KeyText key(task.TaskKey());
    for (const auto& entry : In(task).PeekSuccessor()->Snapshot()) {
        Ref<TasksCls> follower = tasks->Item(entry.item);
        if (follower && In(follower).HasPredecessor(key)) followers.push_back(std::move(follower));
    }
    return followers;
}

Integer LeadOf(const Ref<TasksCol>& tasks, const Wait& wait) {
    return In(*tasks).LeadTowards(wait.waiting, KeyText(wait.predecessor->TaskKey()));
}

void StoreMeasuredLead(const Ref<TasksCol>& tasks, const Wait& wait) {
    const LinkDates dates{wait.predecessor->TaskEDate(), wait.waiting->TaskBDate()};
    if (!dates.measurable() || dates.Gap() == LeadOf(tasks, wait)) return;
    tasks->AddLeadTime(KeyText(wait.waiting->TaskKey()).text(), KeyText(wait.predecessor->TaskKey()).text(),
                       Integer(dates.Gap()));
}

bool StandsBelow(const Ref<TasksCol>& tasks, const TasksCls& task, const TasksCls& above) {
    const Ref<TasksCls> parent = task.ParentID() != 0 ? In(*tasks).Item(KeyText(task.ParentID())) : nullptr;
    return std::ranges::any_of(WithParents(tasks, parent),
                               [&](const Ref<TasksCls>& other) { return other->TaskKey() == above.TaskKey(); });
}

bool WaitsForItself(const Ref<TasksCol>& tasks, const Ref<TasksCls>& task) {
    std::unordered_set<std::int64_t> seen;
    std::vector<Wait> open = WaitsOf(tasks, task);
    while (!open.empty()) {
        const Ref<TasksCls> next = open.back().predecessor;
        open.pop_back();
        if (next->TaskKey() == task->TaskKey() || StandsBelow(tasks, *next, *task)) return true;
        if (!seen.insert(next->TaskKey()).second) continue;
        for (Wait& further : WaitsOf(tasks, next)) open.push_back(std::move(further));
    }
    return false;
}

}  // namespace mrlxmlclass
