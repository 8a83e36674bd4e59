#include "tests/items/Items.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

/// A plan with one task, one goal and one obstacle.
struct GoalPlan : Plan {
    explicit GoalPlan(bool links = false) {
        if (links) WithLinks();
        Task("Dig");
        goals().Add()->GoalName("Dry");
        obstacles().Add()->ObstaclesName("Rain");
        (void)Heard();
    }
    GoalsCol& goals() const { return *app->xGoalCol(); }
    obstaclesCol& obstacles() const { return *app->xObstaclesCol(); }
    Ref<TaskGoalRelationCol> relations() const { return app->xTaskGoalRelationcol(); }
    Integer dig() const { return Number("Dig"); }
    Boolean AssigneGoal() { return goals().AssigneGoal("1", dig(), app->xTaskCol(), relations()); }
    Boolean UnAssigneGoal() { return goals().UnAssigneGoal(1, dig(), app->xTaskCol(), relations()); }
};

TEST(AssigneGoal, TiesTheGoalAndTheProjectAndLeavesTheTaskToAddGoals) {
    GoalPlan plan;
    EXPECT_EQ(plan.AssigneGoal(), True);
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(KeysOf(plan.relations()), "1");
    EXPECT_EQ(plan.relations()->Item(1)->Goalkey(), 1);
    EXPECT_EQ(plan.relations()->Item(1)->TaskKey(), plan.dig());
    EXPECT_EQ(KeysOf(plan.goals().Item(1)->TaskGoalRelation()), "1");
    EXPECT_EQ(plan.goals().Item(1)->Tasks()->Item(plan.dig())->TaskName(), "Dig");

    plan.col().AddGoals(plan.dig(), plan.relations()->Item(1), plan.goals().Item(1));
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "Dry; ");
    EXPECT_EQ(plan.Heard(), "GoalChange(1, Dry; )\n");
}

TEST(AssigneGoal, OfAnUnknownGoalIsRecordedOnce) {
    GoalPlan plan;
    EXPECT_EQ(plan.goals().AssigneGoal("8", plan.dig(), plan.app->xTaskCol(), plan.relations()), False);
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/AssigneGoal 91\n");
    EXPECT_EQ(plan.relations()->Count(), 0);
}

TEST(AssigneGoal, OfAnUnknownTaskTiesTheRestAndRecordsIt) {
    GoalPlan plan;
    EXPECT_EQ(plan.goals().AssigneGoal("1", 77, plan.app->xTaskCol(), plan.relations()), True);
    EXPECT_EQ(KeysOf(plan.relations()), "1");
    EXPECT_EQ(KeysOf(plan.goals().Item(1)->TaskGoalRelation()), "1");
    EXPECT_EQ(plan.goals().Item(1)->Tasks()->Count(True), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddItem 91\n");
}

TEST(UnAssigneGoal, OfAPairWithoutARelationChangesNothing) {
    GoalPlan plan;
    EXPECT_EQ(plan.UnAssigneGoal(), False);
    EXPECT_EQ(plan.goals().Item(1)->TaskGoalRelationValid(), False) << "a save would add an empty list";
    plan.AssigneGoal();
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, 99, plan.app->xTaskCol(), plan.relations()), False);
    EXPECT_EQ(plan.relations()->Count(), 1);
}

TEST(UnAssigneGoal, FindsTheTaskByItsNumber) {
    GoalPlan plan;
    plan.AssigneGoal();
    const Ref<GoalsCls> goal = plan.goals().Item(1);
    for (const char* one : {"1", "01", "1.0"}) EXPECT_EQ(goal->TaskAssigned(one, plan.relations()), True) << one;
    for (const char* other : {"", "1.5", "2", "99999999999"}) {
        EXPECT_EQ(goal->TaskAssigned(other, plan.relations()), False) << other;
    }
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, "01", plan.app->xTaskCol(), plan.relations()), True);
    EXPECT_EQ(plan.relations()->Count(), 0);
}

TEST(UnAssigneGoal, ClearsTheGoalAndTheProjectAndKeepsTheTasksSideAndACandidate) {
    GoalPlan plan;
    plan.AssigneGoal();
    plan.col().AddGoals(plan.dig(), plan.relations()->Item(1), plan.goals().Item(1));
    (void)plan.Heard();
    EXPECT_EQ(plan.UnAssigneGoal(), True);
    EXPECT_EQ(plan.relations()->Count(), 0);
    EXPECT_EQ(plan.goals().Item(1)->TaskGoalRelation()->Count(), 0);
    EXPECT_EQ(plan.goals().Item(1)->Tasks()->Item(plan.dig())->TaskCondidat(), False);
    EXPECT_EQ(plan["Dig"].TaskCondidat(), True);
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "Dry; ");
    EXPECT_EQ(plan.Heard(), "");  // the goal's own list has listeners of its own
}

TEST(UnAssigneGoal, KeepsTakingTheChildFromTheLiveParentWhereTheGoalHasACopyOfThatToo) {
    GoalPlan plan;
    plan.Task("Phase").Task("Pour").Under("Phase").Task("Frame").Under("Phase");
    const auto assigne = [&](const char* name) {
        plan.goals().AssigneGoal("1", plan.Number(name), plan.app->xTaskCol(), plan.relations());
    };
    const auto unassigne = [&](const char* name) {
        return plan.goals().UnAssigneGoal(1, plan.Number(name), plan.app->xTaskCol(), plan.relations());
    };
    assigne("Pour");
    EXPECT_EQ(unassigne("Pour"), True);
    EXPECT_EQ(plan.col().GetTasksAsKeys(plan.Key("Phase"))->Count(), 2);  // the goal had no copy of the parent
    assigne("Phase");
    assigne("Frame");
    EXPECT_EQ(unassigne("Frame"), True);
    EXPECT_EQ(plan.col().GetTasksAsKeys(plan.Key("Phase"))->Count(), 1);
    EXPECT_EQ(plan["Frame"].ParentID(), plan.Number("Phase"));  // the live child still names it
}

TEST(UnAssigneGoal, OfAnUnknownGoalIsRecordedOnce) {
    GoalPlan plan;
    EXPECT_EQ(plan.goals().UnAssigneGoal(9, plan.dig(), plan.app->xTaskCol(), plan.relations()), False);
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/UnAssigneGoal 91\n");
}

/// A goal with two tasks of which one waits for the other, so that taking the copy of that one away yields to the host.
struct LinkedGoalPlan : GoalPlan {
    LinkedGoalPlan() : GoalPlan(/*links=*/true) {
        Task("Fill").After("Dig");
        for (const char* name : {"Dig", "Fill"}) {
            goals().AssigneGoal("1", Number(name), app->xTaskCol(), relations());
        }
    }
    ~LinkedGoalPlan() { platform.ui.on_yield = nullptr; }
};

TEST(UnAssigneGoal, TakesTheGoalsRelationBeforeTheCopyAndTheProjectsAfterIt) {
    LinkedGoalPlan plan;
    String seen;
    plan.platform.ui.on_yield = [&] {
        seen += KeysOf(plan.goals().Item(1)->TaskGoalRelation()) + " of the goal, " + KeysOf(plan.relations()) +
                " of the project\n";
    };
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, plan.Number("Fill"), plan.app->xTaskCol(), plan.relations()), True);
    EXPECT_EQ(seen, "1 of the goal, 1 2 of the project\n");
    EXPECT_EQ(KeysOf(plan.relations()), "1");
}

TEST(UnAssigneGoal, GoesOnWithTheRelationsThatItWasCalledWith) {
    LinkedGoalPlan plan;
    const Ref<TaskGoalRelationCol> project = plan.relations();
    Ref<TaskGoalRelationCol> relations = project;
    plan.platform.ui.on_yield = [&] { relations = {}; };
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, plan.Number("Fill"), plan.app->xTaskCol(), relations), True);
    EXPECT_EQ(KeysOf(project), "1");
    EXPECT_FALSE(relations);
}

TEST(UnAssigneGoal, SortsTheGoalsCopiesByTheirRows) {
    GoalPlan plan;
    plan.Task("Fill");
    for (const char* name : {"Dig", "Fill"}) {
        plan.goals().AssigneGoal("1", plan.Number(name), plan.app->xTaskCol(), plan.relations());
    }
    const Ref<TasksCol> copies = plan.goals().Item(1)->Tasks();
    EXPECT_EQ(KeysOf(copies), "1 2");
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, plan.Number("Fill"), plan.app->xTaskCol(), plan.relations()), True);
    EXPECT_EQ(KeysOf(copies), "2 1") << "the one that became a candidate has row 0";
}

TEST(UnAssigneGoal, KeepsTheFreedKeyOutOfNewRelations) {
    GoalPlan plan;
    plan.AssigneGoal();
    plan.UnAssigneGoal();
    plan.goals().Item(1)->Tasks(Ref<TasksCol>());
    EXPECT_EQ(plan.AssigneGoal(), True);
    EXPECT_EQ(KeysOf(plan.relations()), "2");
}

TEST(AssigneGoal, KeepsTakingTheKeyOfADeletedGoalForANewRelation) {
    GoalPlan plan;
    for (int i = 0; i < 2; ++i) plan.goals().Add();
    plan.goals().Remove(3);
    plan.AssigneGoal();
    EXPECT_EQ(KeysOf(plan.relations()), "3");
    EXPECT_EQ(plan.goals().Add()->Goalkey(), 4);
}

TEST(AssigneObstacles, TiesAsGoalsDoAndKeepsLabelsOfItsOwn) {
    GoalPlan plan;
    const auto relations = plan.app->xTaskObstaclesRelationcol();
    EXPECT_EQ(plan.obstacles().AssigneObstacles("1", plan.dig(), plan.app->xTaskCol(), relations), True);
    EXPECT_EQ(relations->Item(1)->Obstaclekey(), 1);
    EXPECT_EQ(plan.obstacles().UnAssigneObstacles("1", plan.dig(), plan.app->xTaskCol(), relations), True);
    EXPECT_EQ(relations->Count(), 0);
    plan.obstacles().AssigneObstacles("9", plan.dig(), plan.app->xTaskCol(), relations);
    plan.obstacles().UnAssigneObstacles("9", plan.dig(), plan.app->xTaskCol(), relations);
    EXPECT_EQ(plan.failures.Taken(), "ObstaclessCol/AssigneObstacles 91\nObstaclessCol/UnAssigneObstacles 91\n");
}

TEST(NamedItemRemoveTasksRelations, UntiesEveryItemAndGivesTrue) {
    GoalPlan plan;
    plan.goals().Add();
    plan.AssigneGoal();
    plan.goals().AssigneGoal("2", plan.dig(), plan.app->xTaskCol(), plan.relations());
    EXPECT_EQ(plan.goals().RemoveTasksRelations(plan.dig(), plan.relations(), plan.app->xTaskCol()), True);
    EXPECT_EQ(plan.relations()->Count(), 0);
    EXPECT_EQ(plan.goals().RemoveTasksRelations(plan.dig(), plan.relations(), plan.app->xTaskCol()), True);
}

TEST(SetTasksCollectionByGoal, FillsOneGoalAndFailsForAnUnknownOne) {
    GoalPlan plan;
    plan.AssigneGoal();
    plan.goals().Item(1)->Tasks(Ref<TasksCol>());
    EXPECT_EQ(plan.goals().SetTasksCollectionByGoal(plan.relations(), plan.app->xTaskCol(), 1), True);
    EXPECT_EQ(KeysOf(plan.goals().Item(1)->Tasks()), "1");
    EXPECT_EQ(plan.goals().SetTasksCollectionByGoal(plan.relations(), plan.app->xTaskCol(), 9), False);
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/SetTasksCollectionByGoal 91\n");
}

TEST(SetTasksCollectionByGoal, GivesTheAnswerOfTheGoal) {
    GoalPlan plan;
    plan.AssigneGoal();
    EXPECT_EQ(plan.goals().SetTasksCollectionByGoal(plan.relations(), {}, 1), False);
    EXPECT_EQ(plan.failures.Taken(), "GoalCls/SetTasksCollection 91\n");
}

TEST(SetTasksCollectionByID, GivesTrueForAnyObstacleThatIsThere) {
    GoalPlan plan;
    const auto relations = plan.app->xTaskObstaclesRelationcol();
    plan.obstacles().AssigneObstacles("1", 1, plan.app->xTaskCol(), relations);
    EXPECT_EQ(plan.obstacles().SetTasksCollectionByID(1, relations, plan.app->xTaskCol()), True);
    EXPECT_EQ(plan.obstacles().SetTasksCollectionByID(1, Make<TaskObstaclesRelationCol>(), plan.app->xTaskCol()), True);
    EXPECT_EQ(plan.failures.Taken(), "TaskObstaclesRelationCol/Item 5\nobstaclesCls/SetTasksCollection 91\n");
    EXPECT_EQ(plan.obstacles().SetTasksCollectionByID(9, relations, plan.app->xTaskCol()), False);
    EXPECT_EQ(plan.failures.Taken(), "obstaclesCol/SetTasksCollectionByID 91\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
