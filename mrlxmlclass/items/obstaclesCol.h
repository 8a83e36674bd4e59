#pragma once

#include "mrlxmlclass/items/NamedItemCol.h"
#include "mrlxmlclass/items/ObstaclesCls.h"

namespace mrlxmlclass {

/// Obstacles: all of the project's, or copies of those of one task.
class obstaclesCol : public NamedItemCol<obstaclesCol, ObstaclesCls, TaskObstaclesRelationCol> {
public:
    /// Ties an obstacle to a task on the obstacle's side and in `oTaskObstaclesCol`. The task's own side is for
    /// TasksCol::AddObstacles, which raises the event. Gives True.
    Boolean AssigneObstacles(const String& Obstacleskey, Integer TaskKey, const Ref<TasksCol>& oTaskCol,
                             const Ref<TaskObstaclesRelationCol>& oTaskObstaclesCol) {
        return Assigne(Obstacleskey, TaskKey, oTaskCol, oTaskObstaclesCol);
    }
    /// Unties them there; the task's own side is for TasksCol::RemoveAssigendObstacles. False when they are not tied.
    /// The obstacle's copy of the task stays and becomes a candidate. It shares its lists with the live task,
    /// which loses its links where they are live, and its place below its parent where the obstacle has a copy of the
    /// parent too: see docs/hosts.md.
    Boolean UnAssigneObstacles(const Variant& Obstacleskey, const Variant& TaskKey, const Ref<TasksCol>& oTaskCol,
                               const Ref<TaskObstaclesRelationCol>& oTaskObstaclesCol) {
        return UnAssigne(Obstacleskey, TaskKey, oTaskCol, oTaskObstaclesCol);
    }
    /// Fills the `Tasks` of one obstacle anew. Gives True for an obstacle that is there, as PeopleCol does.
    Boolean SetTasksCollectionByID(const Variant& p_obstacleId,
                                   const Ref<TaskObstaclesRelationCol>& oTaskObstaclesRelationcol,
                                   const Ref<TasksCol>& oTaskCol) {
        return SetTasksCollectionOf("SetTasksCollectionByID", p_obstacleId, oTaskObstaclesRelationcol, oTaskCol,
                                    Answer::kTrue);
    }
};

}  // namespace mrlxmlclass
