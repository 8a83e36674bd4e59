#pragma once

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass::testing {

/// Deletes for good, with nothing to untie.
inline void Delete(Plan& plan, const Variant& key, Boolean arrange = False, Boolean sort = False) {
    plan.col().Remove(key, {}, {}, {}, {}, {}, {}, True, sort, arrange);
}

/// Three tasks on rows 1 to 3, the phases listed.
class ThreePhases : public Plan {
public:
    ThreePhases() {
        Task("A").Task("B").Task("C");
        col().SetPhases();
        Heard();
    }
};

/// 1 Phase (costs 30)
/// 2   Design (10)
/// 3   Build (20)
/// 4 Last
class OnePhase : public Plan {
public:
    OnePhase() {
        Task("Phase").Costing(30).Task("Design").Under("Phase").Costing(10).Task("Build").Under("Phase").Costing(20);
        Task("Last");
        col().SetPhases();
        Heard();
    }
    Ref<Collection> DeletePhase(Boolean arrange = False, Boolean force = False) {
        return col().DeleteAllSubTasks(Key("Phase"), app->xTaskPeopleRelationcol(), app->xPeopleCol(),
                                       app->xTaskGoalRelationcol(), app->xGoalCol(), app->xTaskObstaclesRelationcol(),
                                       app->xObstaclesCol(), force, arrange);
    }
};

template <class Relations>
void Tie(const Ref<Relations>& relations, Long task_key) {
    relations->Add()->TaskKey(task_key);
}

/// Ties a task to an obstacle, a goal and a person by its own lists, so that only untying it by name finds them.
struct OwnLists {
    OwnLists(Plan& plan, TasksCls& task)
        : assigments(plan.app->xTaskPeopleRelationcol()),
          goals(plan.app->xTaskGoalRelationcol()),
          obstacles(plan.app->xTaskObstaclesRelationcol()) {
        task.TaskPeopleRelation()->AddItem(assigments->Add());
        task.TaskGoalRelation()->AddItem(goals->Add());
        task.TaskObstaclesRelation()->AddItem(obstacles->Add());
    }
    String Left() const {
        const auto count = [](Long value) { return std::to_string(value.value()); };
        return count(assigments->Count()) + count(goals->Count()) + count(obstacles->Count());
    }
    Ref<TaskAssigmentRelationCol> assigments;
    Ref<TaskGoalRelationCol> goals;
    Ref<TaskObstaclesRelationCol> obstacles;
};

}  // namespace mrlxmlclass::testing
