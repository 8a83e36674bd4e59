#include <exception>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/TaskRelated.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/runtime/Walk.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// `g_InAddOrRemove` goes down when a removal fails half way.
class LowersFlagOnFailure {
public:
    LowersFlagOnFailure() = default;
    ~LowersFlagOnFailure() {
        if (std::uncaught_exceptions() > before_) Module().g_InAddOrRemove = False;
    }
    LowersFlagOnFailure(const LowersFlagOnFailure&) = delete;
    LowersFlagOnFailure& operator=(const LowersFlagOnFailure&) = delete;

private:
    int before_ = std::uncaught_exceptions();
};

/// Forgets the cached dates that a removed task held, or that nobody holds.
void ForgetDatesOf(Long key) {
    ModuleState& module = Module();
    if (module.g_MaxDateTaskKey == key || module.g_MaxDateTaskKey == 0) {
        module.g_MaxDate = Date();
        module.g_MaxDateTaskKey = 0;
    }
    if (module.g_MinDateTaskKey == key || module.g_MinDateTaskKey == 0) {
        module.g_MinDate = Date();
        module.g_MinDateTaskKey = 0;
    }
}

/// What a task that is deleted is taken out of, as far as it is given.
struct Ties {
    Ref<TaskAssigmentRelationCol> assigments;
    Ref<PeopleCol> people;
    Ref<TaskGoalRelationCol> goal_relations;
    Ref<GoalsCol> goals;
    Ref<TaskObstaclesRelationCol> obstacle_relations;
    Ref<obstaclesCol> obstacles;

    void Untie(const Ref<TasksCol>& tasks, const Variant& key) {
        const Ref<TasksCls> task = tasks->Item(key);
        if (people) people->RemoveTasksRelations(key, assigments, tasks, True);
        if (assigments) task->RemoveTaskRelation(assigments);
        if (goals) goals->RemoveTasksRelations(key, goal_relations, tasks);
        if (goal_relations) task->RemoveGoalRelation(goal_relations);
        if (obstacles) obstacles->RemoveTasksRelations(key, obstacle_relations, tasks);
        if (obstacle_relations) task->RemoveObstacleRelation(obstacle_relations);
    }
    /// A task goes for good only when no relation holds it.
    bool Hold(const String& key) const {
        return bool(TaskRelated(KeyNumber(key), assigments, goal_relations, obstacle_relations));
    }
};

/// The removal of a whole subtree, bottom up.
struct SubtreeRemoval {
    TasksCol& tasks;
    Ties ties;
    Boolean arrange;
    OutlineWalk walk;

    Walk<Ref<Collection>> DeleteBelow(String key) {
        auto& deleted = co_await kTail.Begin("DeleteAllSubTasks");
        walk.Step();
        deleted = Make<Collection>();
        const std::vector<Variant> children = tasks.GetTasksAsKeys(key)->Keys();
        for (const Variant& entry : children) {
            const String child = entry.Key().text();
            deleted->Add(child, child);
            if (tasks.isParent(child)) {
                auto below = DeleteBelow(child);
                co_await std::move(below);
            }
            // A child with children of its own may have gone with them.
            if (Module().BVersion && tasks.Item(child)) tasks.RemoveAllTaskPredecessor(child);
            // Kept: a summary was removed below already, and is asked again; on the way down the obstacles' own records
            // are left to the top call.
            tasks.Remove(child, ties.assigments, ties.people, ties.goal_relations, ties.goals, {}, {},
                         !ties.Hold(child), False, arrange);
        }
        tasks.Remove(key, ties.assigments, ties.people, ties.goal_relations, ties.goals, ties.obstacle_relations,
                     ties.obstacles, !ties.Hold(key), True, arrange);
    }
};

/// Lets the last task that waited for the removed one wait for its parent, and brings that parent up to date.
void MendAround(TasksCol& tasks, const String& parent, const String& last_successor) {
    if (KeyNumber(parent) == 0) return;
    if (!last_successor.empty()) tasks.AddTaskPredecessor(last_successor, parent);
    if (tasks.isParent(parent)) {
        tasks.AdjustSummary(parent);
    } else {
        if (!last_successor.empty()) tasks.AddTaskPredecessor(last_successor, parent);  // Kept: a second time
        if (Loud()) tasks.Events.Raise(&TasksColEvents::IamASummary, KeyNumber(parent), False);
    }
}

}  // namespace

void TasksCol::Remove(const Variant& Index, ByRef<Ref<TaskAssigmentRelationCol>> oTaskPeopleRelation,
                      const Ref<PeopleCol>& oPeopleCol, ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation,
                      const Ref<GoalsCol>& oGoalGoal, ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation,
                      const Ref<obstaclesCol>& oObstacleCol, Boolean ForceDelete, Boolean p_sort, Boolean p_arrange) {
    kTail.Run("Remove", [&] {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const LowersFlagOnFailure guard;
        Module().g_InAddOrRemove = True;
        const KeyText key = Index.Key();
        const Ref<TasksCls> task = Item(Index);
        if (!task) return;  // Kept: the flag stays up until the next task is added or removed

        String parent;
        String last_successor;
        if (ForceDelete) {
            Ties{*oTaskPeopleRelation, oPeopleCol, *oTaskGoalRelation, oGoalGoal, *oTaskObstacleRelation, oObstacleCol}
                .Untie(Ref<TasksCol>(this), key.text());
            if (task->TaskCondidat()) {
                if (p_arrange) {
                    ArrangePositionAfterDelete(key.text());
                } else if (task->ParentID() != 0) {
                    RemoveParentTask(task->ParentID(), key.text());
                }
            }
            if (Module().BVersion) {
                last_successor = In(*this).TakeLinksOff(task, key.text()).last_successor;
                parent = KeyText(task->ParentID()).text();
            }
            if (!task->TaskCondidat()) candidates_ -= 1;  // Kept: a second time where a listener removed it meanwhile
            RemovePhase(Variant(key.text()));
            if (!In(*this).TakeOut(key)) Raise(failure::kUnknownKey);  // a relation or a listener was quicker
        } else {
            if (p_arrange) ArrangePositionAfterDelete(key.text());
            task->ParentID(0);  // Kept: without arranging it stays in its former parent's list.
            if (task->TaskCondidat()) candidates_ += 1;
            task->TaskCondidat(False);
            task->TaskType(True);
            task->TaskPosition(0);
        }

        if (Module().BVersion) MendAround(*this, parent, last_successor);
        const Long number = key.Number();
        // Kept: the real parent and row went out with the arranging; here they are "" and 0.
        if (Loud()) Events.Raise(&TasksColEvents::TaskDeleted, number, String(), Long(0), p_arrange);
        if (oPublicStaticCls && ForceDelete && !In(oPublicStaticCls).IsFree(StaticCls::Internal::Task, key)) {
            In(oPublicStaticCls).Free(StaticCls::Internal::Task, key);
        }
        if (p_sort) In(*this).SortRows();
        Module().g_InAddOrRemove = False;
        ForgetDatesOf(number);
    });
}

void TasksCol::RemoveRelation(const Variant& Index, ByRef<Ref<TaskAssigmentRelationCol>> oTaskPeopleRelation,
                              const Ref<PeopleCol>& oPeopleCol, ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation,
                              const Ref<GoalsCol>& oGoalGoal,
                              ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation,
                              const Ref<obstaclesCol>& oObstacleCol, Boolean ForceDelete) {
    kTail.Run("RemoveRelation", [&] {
        if (!Item(Index) || !ForceDelete) return;
        Ties{*oTaskPeopleRelation, oPeopleCol, *oTaskGoalRelation, oGoalGoal, *oTaskObstacleRelation, oObstacleCol}
            .Untie(Ref<TasksCol>(this), Index.Key().text());
    });
}

void TasksCol::RemoveForLib(const Variant& Index) {
    kTail.Run("RemoveForLib", [&] {
        if (Item(Index)) In(*this).TakeOut(Index.Key());
    });
}

Ref<Collection> TasksCol::DeleteAllSubTasks(
    const Variant& aTaskKey, const Ref<TaskAssigmentRelationCol>& oTaskAssigRelation, const Ref<PeopleCol>& oPeopleCol,
    const Ref<TaskGoalRelationCol>& oTaskGoalRelation, const Ref<GoalsCol>& oGoalsCol,
    const Ref<TaskObstaclesRelationCol>& oTaskObstacleRelation, const Ref<obstaclesCol>& oobstaclesCol,
    Boolean /*ForceDelete*/, Boolean p_arrange) {
    // Kept: whatever the caller wishes, the relations alone decide.
    return kTail.Run<Ref<Collection>>("DeleteAllSubTasks", [&](Ref<Collection>& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Ties ties{oTaskAssigRelation,    oPeopleCol,   oTaskGoalRelation, oGoalsCol,
                        oTaskObstacleRelation, oobstaclesCol};
        SubtreeRemoval removal{*this, ties, p_arrange, OutlineWalk(*this)};
        result = removal.DeleteBelow(aTaskKey.Key().text()).Run();
    });
}

}  // namespace mrlxmlclass
