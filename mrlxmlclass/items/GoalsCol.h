#pragma once

#include "mrlxmlclass/items/GoalsCls.h"
#include "mrlxmlclass/items/NamedItemCol.h"

namespace mrlxmlclass {

/// Goals: all of the project's, or copies of those of one task.
class GoalsCol : public NamedItemCol<GoalsCol, GoalsCls, TaskGoalRelationCol> {
public:
    /// Ties a goal to a task on the goal's side and in `oTaskGoalCol`. The task's own side is for TasksCol::AddGoals,
    /// which raises the event. Gives True.
    Boolean AssigneGoal(const String& Goalkey, Integer TaskKey, const Ref<TasksCol>& oTaskCol,
                        const Ref<TaskGoalRelationCol>& oTaskGoalCol) {
        return Assigne(Goalkey, TaskKey, oTaskCol, oTaskGoalCol);
    }
    /// Unties them there; the task's own side is for TasksCol::RemoveAssigendGoals. False when they are not tied.
    /// The goal's copy of the task stays and becomes a candidate. It shares its lists with the live task,
    /// which loses its links where they are live, and its place below its parent where the goal has a copy of the
    /// parent too: see docs/hosts.md.
    Boolean UnAssigneGoal(const Variant& Goalkey, const Variant& TaskKey, const Ref<TasksCol>& oTaskCol,
                          const Ref<TaskGoalRelationCol>& oTaskGoalCol) {
        return UnAssigne(Goalkey, TaskKey, oTaskCol, oTaskGoalCol);
    }
    /// Fills the `Tasks` of one goal anew. Gives its answer.
    Boolean SetTasksCollectionByGoal(const Ref<TaskGoalRelationCol>& oTaskGoalRelationcol,
                                     const Ref<TasksCol>& oTaskCol, const Variant& p_goal_id) {
        return SetTasksCollectionOf("SetTasksCollectionByGoal", p_goal_id, oTaskGoalRelationcol, oTaskCol,
                                    Answer::kOfTheItem);
    }
    /// The same goals in a new list, in the order of their positions; this one keeps its own.
    Ref<GoalsCol> Sort();

    class Internal;
};

}  // namespace mrlxmlclass
