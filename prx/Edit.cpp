#include "prx/Edit.h"

#include <fmt/core.h>

#include <unordered_map>
#include <unordered_set>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/scheduling/HeldDates.h"
#include "mrlxmlclass/scheduling/KeptLengths.h"
#include "prx/Items.h"
#include "prx/Outline.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

Ref<TasksCls> OfTheOutline(Ref<TasksCls> task, const std::string& text) {
    if (!task) throw Refusal(fmt::format("there is no task \"{}\"", Plain(text)));
    if (!task->TaskCondidat()) throw Refusal(fmt::format("task \"{}\" does not stand in the outline", Plain(text)));
    return task;
}

Ref<TasksCls> FindByName(const Project& project, const std::string& name) {
    Ref<TasksCls> found;
    for (const auto& entry : project.tasks()->NewEnum()) {
        if (!entry.item->TaskCondidat() || entry.item->TaskName() != name) continue;
        if (found) {
            throw Refusal(fmt::format("there is more than one task \"{}\"; give its key or #row instead", Plain(name)));
        }
        found = entry.item;
    }
    return found;
}

Ref<TasksCls> InRow(const Project& project, std::string_view row) {
    for (const OutlineRow& other : Outline(project.tasks())) {
        if (Text(other.task->TaskPosition()) == row) return other.task;
    }
    return nullptr;
}

Ref<TasksCls> MakeTask(const Project& project) {
    constexpr int kLastKey = 32767;
    const Ref<TasksCls> task = project.tasks()->Add();
    if (task && task->TaskKey() != 0) return task;
    if (project.tasks()->Item(Long(kLastKey))) {
        throw Refusal(fmt::format("the plan is full: one task has the key {}, the last that there is", kLastKey));
    }
    throw Refusal("the library could not make a new task");
}

/// Makes the new task a child of `parent`, which is a summary from now on.
void PutUnder(const Project& project, TasksCls& task, TasksCls& parent) {
    task.ParentID(parent.TaskKey());
    task.TaskType(True);
    parent.TaskType(False);
    CountInDays(parent);
    if (!project.tasks()->isParent(KeyOf(parent))) project.tasks()->RemoveAllTaskPredecessor(KeyOf(parent));
    project.tasks()->AddParentTask(parent.TaskKey(), task.TaskKey());
    if (!project.tasks()->CanbeLeveled(KeyOf(task), "")) {
        throw Refusal("the outline cannot get any deeper than that");
    }
}

void PutOnTop(const Project& project, TasksCls& task) {
    task.TaskType(False);
    project.tasks()->AddPhase(Variant(task.TaskKey()));
}

/// A new task takes its parent's start, or keeps the day that the library gave it, as a date that was set.
void GiveFirstDates(TasksCls& task, const Ref<TasksCls>& parent) {
    task.TaskBDate(parent && parent->TaskBDate().set() ? parent->TaskBDate() : task.TaskBDate());
}

/// The task and all below it, also where parents run in a circle.
std::vector<Ref<TasksCls>> Subtree(const Project& project, const Ref<TasksCls>& task) {
    std::unordered_multimap<std::int64_t, Ref<TasksCls>> children;
    for (const auto& entry : project.tasks()->NewEnum()) children.emplace(entry.item->ParentID(), entry.item);
    std::vector<Ref<TasksCls>> subtree = {task};
    std::unordered_set<std::int64_t> seen = {task->TaskKey()};
    for (std::size_t i = 0; i < subtree.size(); ++i) {
        const auto [first, last] = children.equal_range(subtree[i]->TaskKey());
        for (auto child = first; child != last; ++child) {
            if (seen.insert(child->second->TaskKey()).second) subtree.push_back(child->second);
        }
    }
    return subtree;
}

}  // namespace

Ref<TasksCls> FindTask(const Project& project, const std::string& text) {
    if (text.empty()) throw Refusal("name a task by its key, #row or name");
    if (IsNumber(text)) {
        if (Ref<TasksCls> task = project.tasks()->Item(text)) return OfTheOutline(task, text);
    }
    if (text.starts_with('#') && IsNumber(text.substr(1))) {
        if (Ref<TasksCls> task = InRow(project, std::string_view(text).substr(1))) return OfTheOutline(task, text);
    }
    return OfTheOutline(FindByName(project, text), text);
}

Ref<TasksCls> FindAnyTask(const Project& project, const std::string& text) {
    if (IsNumber(text)) {
        if (Ref<TasksCls> task = project.tasks()->Item(text)) return task;
    }
    return FindTask(project, text);
}

std::string KeyOf(const TasksCls& task) {
    return Text(task.TaskKey());
}

void RefuseWithoutWayUp(const Project& project, const TasksCls& task) {
    std::unordered_set<std::int64_t> passed = {task.TaskKey()};
    std::string name = Quoted(task);
    for (Long above = task.ParentID(); above != 0;) {
        const Ref<TasksCls> parent = project.tasks()->Item(above);
        if (!parent) throw Refusal(fmt::format("{} belongs to task {}, which is not there", name, above.value()));
        if (!passed.insert(above).second) throw Refusal(fmt::format("the parents of {} run in a circle", Quoted(task)));
        name = Quoted(*parent);
        above = parent->ParentID();
    }
}

Remarks LostAsSummary(const Project& project, TasksCls& task) {
    if (project.tasks()->isParent(KeyOf(task)) || task.TaskCost() == Currency(0)) return {};
    return {fmt::format("{} cost {}; as a summary it costs what the tasks below it cost", Quoted(task),
                        Text(task.TaskCost()))};
}

bool CountsInDays(TasksCls& task) {
    return task.TaskDurationUnit() == "days";
}

void CountInDays(TasksCls& summary) {
    summary.TaskDurationUnit("days");
    summary.TaskDurationUnitValid("True");
}

Ref<TasksCls> AddTask(const Project& project, const Place& place) {
    const Ref<TasksCol> tasks = project.tasks();
    if (place.under) RefuseWithoutWayUp(project, *place.under);
    if (place.after) RefuseWithoutWayUp(project, *place.after);
    if (tasks->TaskCanNotBeAdd()) throw Refusal("the plan is full: it cannot take another task");
    const Ref<TasksCls> task = MakeTask(project);
    const Long last_row = task->TaskPosition();

    const Ref<TasksCls> parent = place.after ? tasks->Item(place.after->ParentID()) : place.under;
    if (parent) {
        PutUnder(project, *task, *parent);
    } else {
        PutOnTop(project, *task);
    }
    if (place.after) {
        task->TaskPosition(Long(tasks->GetTaskAndSubNumber(KeyOf(*place.after)) + 1));
        tasks->ArrangePositionAfterInsert(KeyOf(*task));
    } else if (parent) {
        task->TaskPosition(0);  // a row of its own would count as the end of the parent's subtree
        tasks->ArrangePosition(Integer(parent->TaskKey()), Integer(task->TaskKey()), Integer(last_row));
    }
    GiveFirstDates(*task, parent);
    return task;
}

void NameNewTask(const Project& project, const Ref<TasksCls>& task, const std::string& name) {
    project.tasks()->ChangeName(KeyOf(*task), name, /*NewTask=*/True);
    AdjustDatesAbove(project, *task);
    if (task->ParentID() != 0 || task->TaskCost() != Currency(0)) AdjustCostFrom(project, *task);
}

Ref<TasksCls> AddBeside(const Project& project, const std::string& name, Long place) {
    const Ref<TasksCls> task = MakeTask(project);
    const Date today = Platform().clock.Today();
    task->ProjectID(1);
    task->TaskBDate(today);
    task->TaskEDate(today);
    task->TaskDuration(1);
    task->TaskName(name);
    task->TaskCondidat(False);
    task->TaskType(True);
    task->TaskPosition(0);
    task->TaskPositionInitem(place);
    return task;
}

void RemoveTask(const Project& project, const Ref<TasksCls>& task) {
    // A task that something is tied to would stay as a candidate, which no command shows.
    UnassignAll(project, Subtree(project, task));
    const KeptLengths lengths(project.tasks());
    const HeldDates dates(project.tasks());
    Application& app = project.app();
    project.tasks()->DeleteAllSubTasks(KeyOf(*task), app.xTaskPeopleRelationcol(), app.xPeopleCol(),
                                       app.xTaskGoalRelationcol(), app.xGoalCol(), app.xTaskObstaclesRelationcol(),
                                       app.xObstaclesCol(), /*ForceDelete=*/True, /*p_arrange=*/True);
}

void AdjustDatesAbove(const Project& project, const TasksCls& task) {
    if (task.ParentID() != 0) project.tasks()->AdjustSummary(Text(task.ParentID()));
}

void AdjustCostFrom(const Project& project, const TasksCls& task) {
    project.tasks()->AdjustCost(KeyOf(task));
}

}  // namespace prx
