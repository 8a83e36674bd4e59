#include "prx/Links.h"

#include <fmt/core.h>

#include <algorithm>
#include <unordered_set>

#include "prx/Edit.h"
#include "prx/OneDayEach.h"
#include "prx/Outline.h"
#include "prx/Refusal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// A task and its parents, from below, also where they run in a circle.
std::vector<Ref<TasksCls>> WithParents(const Ref<TasksCol>& tasks, Ref<TasksCls> task) {
    std::vector<Ref<TasksCls>> way;
    std::unordered_set<std::int64_t> passed;
    while (task && passed.insert(task->TaskKey()).second) {
        way.push_back(task);
        task = task->ParentID() != 0 ? tasks->Item(task->ParentID()) : nullptr;
    }
    return way;
}

[[noreturn]] void RefuseLink(const Project& project, TasksCls& task, TasksCls& predecessor) {
    const auto because = [&]() -> std::string {
        if (task.TaskKey() == predecessor.TaskKey()) return "a task cannot wait for itself";
        if (project.tasks()->isParent(KeyOf(predecessor))) {
            return fmt::format("{} is a summary; link a task below it", Quoted(predecessor));
        }
        if (StandsBelow(project.tasks(), predecessor, task)) return "a task cannot wait for what stands below it";
        if (predecessor.isPredecessor(KeyOf(task))) return fmt::format("{} waits for it already", Quoted(predecessor));
        if (task.isPredecessor(KeyOf(predecessor))) return "it does so already";
        return fmt::format("it waits already for a task that {} waits for", Quoted(predecessor));
    };
    throw Refusal(fmt::format("{} was not made to wait for {}: {}", Quoted(task), Quoted(predecessor), because()));
}

/// Puts a linked task behind its predecessor, by the lag of their link, and all that follows from it.
void PutBehind(const Project& project, TasksCls& task, const Ref<TasksCls>& predecessor, Integer lag) {
    const Ref<TasksCol> tasks = project.tasks();
    const std::string key = KeyOf(task);
    Ref<Dictionary> reached;
    Integer shift = 0;
    const bool summary = static_cast<bool>(tasks->isParent(key));
    tasks->AdjustDate(key, predecessor, lag, /*LeadTimeCalc=*/True, /*AdjustOtherDate=*/!summary, /*adjustParent=*/True,
                      reached, /*p_do_same_parent=*/False, shift);
    if (summary) {
        tasks->SummaryTaskDateChanged2(key, task.TaskBDate(), Date(), /*CalcLead=*/True, Date(), reached,
                                       /*p_form_scheduler=*/False, shift);
    }
}

}  // namespace

void LinkTasks(const Project& project, const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor,
               std::optional<Integer> lag) {
    const OneDayEach aside(project);
    const Ref<TasksCol> tasks = project.tasks();
    project.links().AskedFor(*task, *predecessor);
    // The library looks one level down.
    if (StandsBelow(tasks, *predecessor, *task) || !tasks->AddTaskPredecessor(KeyOf(*task), KeyOf(*predecessor))) {
        RefuseLink(project, *task, *predecessor);
    }
    if (!lag && LagOf(project, *task, *predecessor) >= 0) return;
    tasks->AddLeadTime(KeyOf(*task), KeyOf(*predecessor), lag.value_or(0));
    PutBehind(project, *task, predecessor, lag.value_or(0));
}

void UnlinkTasks(const Project& project, const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor) {
    if (!task->isPredecessor(KeyOf(*predecessor)) && !predecessor->isSucesser(KeyOf(*task))) {
        throw Refusal(fmt::format("{} does not wait for {}", Quoted(*task), Quoted(*predecessor)));
    }
    project.links().AskedFor(*task, *predecessor);
    project.tasks()->RemoveTaskPredecessor(KeyOf(*task), KeyOf(*predecessor));
}

std::vector<Ref<TasksCls>> Predecessors(const Project& project, TasksCls& task) {
    std::vector<Ref<TasksCls>> predecessors;
    if (!task.TaskPredecessorValid()) return predecessors;
    for (const auto& entry : task.TaskPredecessor()->Snapshot()) {
        Ref<TasksCls> predecessor = project.tasks()->Item(entry.item);
        if (predecessor && predecessor->TaskCondidat()) predecessors.push_back(std::move(predecessor));
    }
    return predecessors;
}

Integer LagOf(const Project& project, TasksCls& task, const TasksCls& predecessor) {
    return project.tasks()->GetLeadTime(KeyOf(predecessor), task.TaskLeadTime());
}

std::vector<Wait> WaitsOf(const Project& project, const Ref<TasksCls>& task) {
    std::vector<Wait> found;
    for (const Ref<TasksCls>& waiting : WithParents(project.tasks(), task)) {
        for (Ref<TasksCls>& predecessor : Predecessors(project, *waiting)) {
            found.push_back({waiting, std::move(predecessor)});
        }
    }
    return found;
}

bool StandsBelow(const Ref<TasksCol>& tasks, const TasksCls& task, const TasksCls& above) {
    const Ref<TasksCls> parent = task.ParentID() != 0 ? tasks->Item(task.ParentID()) : nullptr;
    return std::ranges::any_of(WithParents(tasks, parent),
                               [&](const Ref<TasksCls>& other) { return other->TaskKey() == above.TaskKey(); });
}

bool WaitsForItself(const Project& project, const Ref<TasksCls>& task) {
    std::unordered_set<std::int64_t> seen;
    std::vector<Wait> open = WaitsOf(project, task);
    while (!open.empty()) {
        const Ref<TasksCls> next = open.back().predecessor;
        open.pop_back();
        if (next->TaskKey() == task->TaskKey() || StandsBelow(project.tasks(), *next, *task)) return true;
        if (!seen.insert(next->TaskKey()).second) continue;
        for (Wait& further : WaitsOf(project, next)) open.push_back(std::move(further));
    }
    return false;
}

}  // namespace prx
