#include "prx/Links.h"

#include <fmt/core.h>

#include "mrlxmlclass/scheduling/KeptLengths.h"
#include "mrlxmlclass/scheduling/Waits.h"
#include "prx/Edit.h"
#include "prx/Outline.h"
#include "prx/Refusal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

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
    const KeptLengths aside(project.tasks());
    const Ref<TasksCol> tasks = project.tasks();
    project.links().AskedFor(*task, *predecessor);
    // The library looks one level down.
    if (StandsBelow(tasks, *predecessor, *task) || !tasks->AddTaskPredecessor(KeyOf(*task), KeyOf(*predecessor))) {
        RefuseLink(project, *task, *predecessor);
    }
    if (!lag && LeadOf(tasks, {task, predecessor}) >= 0) return;
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

}  // namespace prx
