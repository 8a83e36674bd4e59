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

/// Takes a task that is being deleted out of whatever relation collections and item lists are given.
void Untie(const Ref<TasksCol>& tasks, const Variant& key, Ref<TaskAssigmentRelationCol> assigments,
           const Ref<PeopleCol>& people, Ref<TaskGoalRelationCol> goal_relations, const Ref<GoalsCol>& goals,
           Ref<TaskObstaclesRelationCol> obstacle_relations, const Ref<obstaclesCol>& obstacles) {
    const Ref<TasksCls> task = tasks->Item(key);
    if (people) people->RemoveTasksRelations(key, assigments, tasks, True);
    if (assigments) task->RemoveTaskRelation(assigments);
    if (goals) goals->RemoveTasksRelations(key, goal_relations, tasks);
    if (goal_relations) task->RemoveGoalRelation(goal_relations);
    if (obstacles) obstacles->RemoveTasksRelations(key, obstacle_relations, tasks);
    if (obstacle_relations) task->RemoveObstacleRelation(obstacle_relations);
}

/// What a removal of a whole subtree hands down to every task of it.
struct SubtreeRemoval {
    TasksCol& tasks;
    Ref<TaskAssigmentRelationCol> assigments;
    Ref<PeopleCol> people;
    Ref<TaskGoalRelationCol> goal_relations;
    Ref<GoalsCol> goals;
    Ref<TaskObstaclesRelationCol> obstacle_relations;
    Ref<obstaclesCol> obstacles;
    Boolean arrange;
    OutlineWalk walk;

    /// A task goes for good only when no relation holds it.
    Boolean MayGo(const String& key) const {
        return !TaskRelated(KeyNumber(key), assigments, goal_relations, obstacle_relations);
    }

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
            // Kept: on the way down the obstacles' own records are left to the top call.
            tasks.Remove(child, assigments, people, goal_relations, goals, {}, {}, MayGo(child), False, arrange);
        }
        tasks.Remove(key, assigments, people, goal_relations, goals, obstacle_relations, obstacles, MayGo(key), True,
                     arrange);
    }
};

}  // namespace

void TasksCol::Remove(const Variant& Index, ByRef<Ref<TaskAssigmentRelationCol>> oTaskPeopleRelation,
                      const Ref<PeopleCol>& oPeopleCol, ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation,
                      const Ref<GoalsCol>& oGoalGoal, ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation,
                      const Ref<obstaclesCol>& oObstacleCol, Boolean ForceDelete, Boolean p_sort, Boolean p_arrange) {
    kTail.Run("Remove", [&] {
        const LowersFlagOnFailure guard;
        Module().g_InAddOrRemove = True;
        const KeyText key = Index.Key();
        const Ref<TasksCls> task = Item(Index);
        if (!task) return;  // Kept: the flag stays up until the next task is added or removed

        if (ForceDelete) {
            Untie(Ref<TasksCol>(this), key.text(), *oTaskPeopleRelation, oPeopleCol, *oTaskGoalRelation, oGoalGoal,
                  *oTaskObstacleRelation, oObstacleCol);
            if (task->TaskCondidat()) {
                if (p_arrange) {
                    ArrangePositionAfterDelete(key.text());
                } else if (task->ParentID() != 0) {
                    RemoveParentTask(task->ParentID(), key.text());
                }
            }
            RemovePhase(Variant(key.text()));
            if (!tasks_.Remove(key)) Raise(failure::kUnknownKey);  // a relation or a listener was quicker
            if (!task->TaskCondidat()) candidates_ -= 1;
        } else {
            if (p_arrange) ArrangePositionAfterDelete(key.text());
            task->ParentID(0);
            if (task->TaskCondidat()) candidates_ += 1;
            task->TaskCondidat(False);
            task->TaskType(True);
            task->TaskPosition(0);
        }

        const Long number = key.Number();
        // Kept: the real parent and row went out with the arranging; here they are "" and 0.
        if (Loud()) Events.Raise(&TasksColEvents::TaskDeleted, number, String(), Long(0), p_arrange);
        if (oPublicStaticCls && ForceDelete && !In(oPublicStaticCls).IsFree(StaticCls::Internal::Task, key)) {
            In(oPublicStaticCls).Free(StaticCls::Internal::Task, key);
        }
        if (p_sort) SortMe(True);
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
        Untie(Ref<TasksCol>(this), Index.Key().text(), *oTaskPeopleRelation, oPeopleCol, *oTaskGoalRelation, oGoalGoal,
              *oTaskObstacleRelation, oObstacleCol);
    });
}

void TasksCol::RemoveForLib(const Variant& Index) {
    kTail.Run("RemoveForLib", [&] {
        if (Item(Index)) tasks_.Remove(Index.Key());
    });
}

Ref<Collection> TasksCol::DeleteAllSubTasks(
    const Variant& aTaskKey, const Ref<TaskAssigmentRelationCol>& oTaskAssigRelation, const Ref<PeopleCol>& oPeopleCol,
    const Ref<TaskGoalRelationCol>& oTaskGoalRelation, const Ref<GoalsCol>& oGoalsCol,
    const Ref<TaskObstaclesRelationCol>& oTaskObstacleRelation, const Ref<obstaclesCol>& oobstaclesCol,
    Boolean /*ForceDelete*/, Boolean p_arrange) {
    return kTail.Run<Ref<Collection>>("DeleteAllSubTasks", [&](Ref<Collection>& result) {
        SubtreeRemoval removal{
            *this,         oTaskAssigRelation, oPeopleCol,        oTaskGoalRelation, oGoalsCol, oTaskObstacleRelation,
            oobstaclesCol, p_arrange,          OutlineWalk(*this)};
        result = removal.DeleteBelow(aTaskKey.Key().text()).Run();
    });
}

}  // namespace mrlxmlclass
