#pragma once

#include <algorithm>

#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"

namespace mrlxmlclass {

/// True when some relation of that collection holds the task; a collection that is nothing holds none.
template <class Relations>
bool HoldsTask(const Ref<Relations>& relations, Long task_key) {
    if (!relations) return false;
    const auto snapshot = relations->NewEnum();
    return std::any_of(snapshot.begin(), snapshot.end(),
                       [&](const auto& entry) { return entry.item->TaskKey() == task_key; });
}

/// True when an assignment, else a goal relation, else an obstacle relation holds the task. Kept: notes do not count.
inline bool TaskRelated(Long task_key, const Ref<TaskAssigmentRelationCol>& assigments,
                        const Ref<TaskGoalRelationCol>& goals, const Ref<TaskObstaclesRelationCol>& obstacles) {
    return HoldsTask(assigments, task_key) || HoldsTask(goals, task_key) || HoldsTask(obstacles, task_key);
}

}  // namespace mrlxmlclass
