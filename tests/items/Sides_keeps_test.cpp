#include "tests/items/Sides.h"
#include "tests/support/Links.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass::testing {
namespace {

/// Three tasks in a chain, and one item of each kind.
class Ties : public Plan {
public:
    explicit Ties(bool links = true) {
        if (links) WithLinks();
        Task("Dig").From(Monday).Lasting(1);
        Task("Pour").From(Tuesday).Lasting(1);
        Task("Paint").From(Wednesday).Lasting(1);
        if (links) About("Pour").After("Dig", 2).About("Paint").After("Pour");
        col().SetPhases();
        people().Add()->PersonName("Ann");
        goals().Add()->GoalName("Dry");
        obstacles().Add()->ObstaclesName("Rain");
        Heard();
    }

    PeopleCol& people() { return *app->xPeopleCol(); }
    GoalsCol& goals() { return *app->xGoalCol(); }
    obstaclesCol& obstacles() { return *app->xObstaclesCol(); }
    Ref<TaskAssigmentRelationCol> assignments() { return app->xTaskPeopleRelationcol(); }
    Ref<TaskGoalRelationCol> goal_relations() { return app->xTaskGoalRelationcol(); }
    Ref<TaskObstaclesRelationCol> obstacle_relations() { return app->xTaskObstaclesRelationcol(); }

    template <class Relations>
    static auto Newest(const Ref<Relations>& relations) {
        const auto all = relations->NewEnum();
        return (*std::prev(all.end())).item;
    }
    void Assign(const String& task, int person = 1) { PersonSides::Assign(*this, person, Int(task)); }
    void UnAssign(const String& task, int person = 1) { PersonSides::UnAssign(*this, person, Int(task)); }
    /// On the goal's side, and where told on the task's.
    void Serve(const String& task, int goal = 1, bool both = true) {
        GoalSides::Assign(*this, goal, Int(task));
        if (both) col().AddGoals(Number(task), Newest(goal_relations()), goals().Item(goal));
    }
    void Hinder(const String& task, int obstacle = 1) {
        ObstacleSides::Assign(*this, obstacle, Int(task));
        col().AddObstacles(Number(task), Newest(obstacle_relations()), obstacles().Item(obstacle));
    }
    int Int(const String& task) { return static_cast<int>(Number(task).value()); }

    /// The links of a task, as its lists tell them: "before 1 behind 3".
    String Links(const String& task) {
        const auto list = [](const Ref<Collection>& keys) {
            String text;
            for (const auto& entry : keys->Snapshot()) text += " " + entry.item.As<String>();
            return text;
        };
        return "before" + list((*this)[task].TaskPredecessor()) + " behind" + list((*this)[task].TaskSuccessor());
    }
};

// --- What a copy shares with the task of the plan --------------------------------------------------------------------

TEST(UnAssigneGoal, KeepsEmptyingTheLinksOfTheTaskItself) {
    Ties plan;
    plan.Serve("Pour");
    plan.Heard();
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, 2, plan.app->xTaskCol(), plan.goal_relations()), True);
    EXPECT_EQ(plan.Links("Pour"), "before behind") << "the lists are those of the goal's copy";
    EXPECT_EQ(plan.Links("Dig"), "before behind 2") << "whose list knows no other task";
    EXPECT_EQ(plan.Links("Paint"), "before 2 behind");
    EXPECT_EQ(plan["Pour"].TaskCondidat(), True) << "only the copy became a candidate";
    EXPECT_EQ(plan.Heard(), "") << "what is raised is the goal's own list's";
    EXPECT_EQ(plan.failures.Taken(),
              "TasksCol/SucessorAsString 91\nTasksCol/RemoveTaskPredecessor 91\nTasksCol/AddTaskPredecessor 91\n")
        << "the neighbours are unknown there, and are not bridged";
}

TEST(UnAssigneGoal, LeavesTheLinksAloneWhereTheyAreNotLive) {
    Ties plan(/*links=*/false);
    plan.About("Pour").After("Dig").About("Paint").After("Pour");
    plan.Serve("Pour");
    plan.goals().UnAssigneGoal(1, 2, plan.app->xTaskCol(), plan.goal_relations());
    EXPECT_EQ(plan.Links("Pour"), "before 1 behind 3");
}

TEST(UnAssigneObstacles, KeepsEmptyingTheLinksOfTheTaskItself) {
    Ties plan;
    plan.Hinder("Paint");
    plan.Heard();
    EXPECT_EQ(plan.obstacles().UnAssigneObstacles(1, 3, plan.app->xTaskCol(), plan.obstacle_relations()), True);
    EXPECT_EQ(plan.Links("Paint"), "before behind");
    EXPECT_EQ(plan.Links("Pour"), "before 1 behind 3");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n") << "of the task before, unknown there";
}

TEST(RemoveTasksRelationOfAPerson, KeepsEmptyingTheLinksOfTheTaskItself) {
    Ties plan;
    plan.Assign("Paint");
    plan.Heard();
    EXPECT_EQ(plan.people().Item(1)->RemoveTasksRelation(3, plan.assignments()), True);
    EXPECT_EQ(plan.Links("Paint"), "before behind");
    EXPECT_EQ(plan.Links("Pour"), "before 1 behind 3");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n") << "of the task before, unknown there";
}

TEST(UnAssigneGoal, KeepsTakingTheTaskOutOfItsLiveParentWhereTheGoalServesBoth) {
    Plan plan;
    plan.Task("House").Task("Walls").Under("House").Costing(Currency(7));
    plan["House"].TaskCost(Currency(7));
    plan.app->xGoalCol()->Add();
    const auto relations = plan.app->xTaskGoalRelationcol();
    for (const int task : {1, 2}) plan.app->xGoalCol()->AssigneGoal("1", task, plan.app->xTaskCol(), relations);
    plan.Heard();
    plan.app->xGoalCol()->UnAssigneGoal(1, 2, plan.app->xTaskCol(), relations);
    EXPECT_EQ(plan.col().isParent("1"), False) << "the children are those of the goal's copy";
    EXPECT_EQ(plan["Walls"].ParentID(), 1);
    EXPECT_EQ(plan["House"].TaskCost(), Currency(7)) << "the cost is the copy's own";
    EXPECT_EQ(plan.Heard(), "");
}

// --- Sides that go stale ---------------------------------------------------------------------------------------------

TEST(AssigneGoal, KeepsTheTaskUntoldUntilTheHostAddsIt) {
    Ties plan;
    plan.Serve("Dig", 1, /*both=*/false);
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "");
    EXPECT_EQ(plan.Heard(), "");
    plan.col().AddGoals(1, plan.goal_relations()->Item("1"), plan.goals().Item(1));
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "Dry; ");
    EXPECT_EQ(plan.Heard(), "GoalChange(1, Dry; )\n");
}

TEST(UnAssigneGoal, KeepsTheTasksSideAndACandidateInTheGoal) {
    Ties plan(/*links=*/false);
    plan.Serve("Dig");
    plan.goals().UnAssigneGoal(1, 1, plan.app->xTaskCol(), plan.goal_relations());
    EXPECT_EQ(DrawnSides<GoalSides>(plan),
              "project\ntask 1 relations 1 copies 1\ntask 2 relations copies\ntask 3 relations copies\n"
              "item 1 relations tasks 1c");
    EXPECT_EQ(plan.goals().UnAssigneGoal(1, 1, plan.app->xTaskCol(), plan.goal_relations()), False) << "no such pair";
    plan.col().RemoveAssigendGoals(1, "1", 1);
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "");
}

TEST(AssignePerson, KeepsAnOldEntryThatANewAssignmentBringsBackToLife) {
    Ties plan(/*links=*/false);
    plan.people().Add();
    plan.Assign("Dig", 1);
    plan.UnAssign("Dig", 1);
    plan.Assign("Pour", 2);  // takes the freed key, which the first person still lists
    EXPECT_EQ(plan.people().Item(1)->TaskAssigned(2, plan.assignments()), True) << "though it is the second's";
    plan.UnAssign("Pour", 1);
    EXPECT_EQ(plan.assignments()->Count(), 0) << "which unassigning the first takes away";
    EXPECT_EQ(plan["Pour"].isAssigned(2), True) << "and the task does not hear of it";
}

TEST(AssignePerson, KeepsFailingToTieAPersonAgainWhoWasUnassigned) {
    Ties plan(/*links=*/false);
    plan.Assign("Dig");
    plan.UnAssign("Dig");
    plan.Assign("Dig");
    EXPECT_EQ(plan.failures.Taken(), "TaskAssigmentRelationCol/AddItem 457\nTasksCol/AddItem 457\n")
        << "both entries were there";
    EXPECT_EQ(DrawnSides<PersonSides>(plan),
              "project 1:1-1\ntask 1 relations 1 copies 1\ntask 2 relations copies\ntask 3 relations copies\n"
              "item 1 relations 1 tasks 1");
}

/// Ties the first task to the first item on all sides, unties them on all, and ties them again.
template <class Kind>
String RecordedByTyingAgain(bool fill) {
    Ties plan(/*links=*/false);
    const auto tie = [&] {
        Kind::Assign(plan, 1, 1);
        Kind::AddToTask(plan, 1, Ties::Newest(Kind::Master(plan)), Kind::All(plan)->Item(1));
    };
    const auto tied_by = [](const String& key, const String& copy) {
        return "project" + (key.empty() ? "" : key + ":1-1") + "\ntask 1 relations" + key +
               (key.empty() ? " copies" : " copies 1") + "\ntask 2 relations copies\ntask 3 relations copies" +
               "\nitem 1 relations" + key + " tasks" + copy;
    };
    tie();
    EXPECT_EQ(DrawnSides<Kind>(plan), tied_by(" 1", " 1"));
    Kind::UnAssign(plan, 1, 1);
    if constexpr (Kind::ties_the_task) Kind::OnItem(*Kind::All(plan)->Item(1))->Remove(1);
    Kind::RemoveFromTask(plan, 1, 1, 1);
    const String stale = Kind::ties_the_task ? " 1" : " 1c";
    EXPECT_EQ(DrawnSides<Kind>(plan), tied_by("", stale)) << "the item's copy of the task stays";
    if (fill) {
        Kind::FillTasks(plan, 1);
        EXPECT_EQ(DrawnSides<Kind>(plan), tied_by("", ""));
    }
    tie();
    EXPECT_EQ(DrawnSides<Kind>(plan), tied_by(Kind::frees_relations ? " 1" : " 2", fill ? " 1" : stale));
    return plan.failures.Taken();
}

TEST(TyingAgain, KeepsFailingUntilTheTasksOfTheItemAreFilledAnew) {
    const char* failed = "TasksCol/AddItem 457\n";
    EXPECT_EQ(RecordedByTyingAgain<PersonSides>(/*fill=*/false), failed);
    EXPECT_EQ(RecordedByTyingAgain<GoalSides>(/*fill=*/false), failed);
    EXPECT_EQ(RecordedByTyingAgain<ObstacleSides>(/*fill=*/false), failed);
    EXPECT_EQ(RecordedByTyingAgain<PersonSides>(/*fill=*/true), "");
    EXPECT_EQ(RecordedByTyingAgain<GoalSides>(/*fill=*/true), "");
    EXPECT_EQ(RecordedByTyingAgain<ObstacleSides>(/*fill=*/true), "");
}

TEST(SetTasksCollectionByGoal, KeepsCountingTheCandidateThatIsGone) {
    Ties plan(/*links=*/false);
    plan.Serve("Dig");
    GoalSides::UnAssign(plan, 1, 1);
    GoalSides::FillTasks(plan, 1);
    const Ref<TasksCol> copies = plan.goals().Item(1)->Tasks();
    EXPECT_EQ(copies->Count(/*p_all=*/True), 0);
    EXPECT_EQ(copies->Count(), -1);
}

TEST(RemoveForRelatedPople, KeepsTheTasksCopyOfTheDeletedPerson) {
    Ties plan(/*links=*/false);
    plan.Assign("Dig");
    plan.people().Remove(1);
    plan.Heard();
    EXPECT_EQ(plan.assignments()->RemoveForRelatedPople(String("1"), plan.app->xTaskCol()), True);
    EXPECT_EQ(DrawnSides<PersonSides>(plan),
              "project\ntask 1 relations copies 1\ntask 2 relations copies\ntask 3 relations copies");
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "Ann");
    EXPECT_EQ(plan["Dig"].isAssigned(1), True);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveAnItem, KeepsItsRelationsOnEverySideUntilALoadMeetsThem) {
    WholeProject plan;
    plan.app->xGoalCol()->Remove(1);
    plan.app->xObstaclesCol()->Remove(1);
    plan.app->xNoteCol()->Remove(1, "1");
    plan.app->xPeopleCol()->Remove(1);
    EXPECT_EQ(plan["Roof"].GoalsAsString(), "Dry by winter; ");
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    ASSERT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(plan.failures.Taken(),
              "NotesCol/Item 5\nTaskNotes/AddItem 91\n"
              "GoalsCol/Item 5\nTasksCls/SetGoalCollection 91\n"
              "obstaclesCol/Item 5\nTasksCls/SetObstaclesCollection 91\n");
    EXPECT_EQ(KeysOf(plan["Roof"].TaskGoalRelation()), "1") << "the keys stay with the task";
    EXPECT_EQ(KeysOf(plan["Walls"].TaskPeopleRelation()), "1");
    EXPECT_EQ(plan["Roof"].GoalsAsString() + plan["Walls"].PeopleAsString(), "");
}

TEST(RemoveATask, KeepsItsNotesAndTheirRelationsInTheProject) {
    WholeProject plan;
    plan.col().SetPhases();
    plan.col().Remove(plan.Key("Garden"), {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True);
    EXPECT_EQ(plan.app->xNoteCol()->Count(), 1);
    EXPECT_EQ(plan.app->xTaskNotesRelationcol()->Count(), 1);
}

TEST(RemoveATask, KeepsEveryRelationOfACandidate) {
    Ties plan(/*links=*/false);
    plan.Assign("Dig");
    plan.Serve("Dig");
    plan.Hinder("Dig");
    plan.col().Remove(1, plan.assignments(), plan.app->xPeopleCol(), plan.goal_relations(), plan.app->xGoalCol(),
                      plan.obstacle_relations(), plan.app->xObstaclesCol(), /*ForceDelete=*/False);
    const String kept =
        "project 1:1-1\ntask 1 relations 1 copies 1\ntask 2 relations copies\ntask 3 relations copies\n"
        "item 1 relations 1 tasks 1";
    EXPECT_EQ(DrawnSides<PersonSides>(plan), kept);
    EXPECT_EQ(DrawnSides<GoalSides>(plan), kept);
    EXPECT_EQ(DrawnSides<ObstacleSides>(plan), kept);
}

TEST(RemoveATask, KeepsRecordingObstacleRelationsThatAreTakenTwiceAndNoOthers) {
    Ties plan(/*links=*/false);
    plan.obstacles().Add();
    plan.obstacles().Add();
    plan.Assign("Dig");
    plan.Serve("Dig");
    for (const int obstacle : {1, 2, 3}) plan.Hinder("Dig", obstacle);
    plan.col().Remove(1, plan.assignments(), plan.app->xPeopleCol(), plan.goal_relations(), plan.app->xGoalCol(),
                      plan.obstacle_relations(), plan.app->xObstaclesCol(), /*ForceDelete=*/True);
    EXPECT_EQ(plan.failures.Taken(),
              "TaskObstaclesRelationCol/Remove 5\nTaskObstaclesRelationCol/Remove 5\n"
              "TaskObstaclesRelationCol/Remove 5\n");
    EXPECT_EQ(plan.assignments()->Count() + plan.goal_relations()->Count() + plan.obstacle_relations()->Count(), 0);
}

TEST(RemoveATask, KeepsRecordingThatThereIsNoListOfPhasesYet) {
    Plan plan;
    plan.Task("Dig").Task("Pour");
    plan.app->xPeopleCol()->Add();
    PersonSides::Assign(plan, 1, 1);
    PersonSides::RemoveTask(plan, 1);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemovePhase 91\n");
    EXPECT_FALSE(plan.col().Item(1));
    EXPECT_EQ(plan.app->xTaskPeopleRelationcol()->Count(), 0);
}

// --- Keys that come back ---------------------------------------------------------------------------------------------

TEST(AssigneGoal, KeepsTakingADeletedGoalsKeyThatAnotherRelationHas) {
    Ties plan(/*links=*/false);
    plan.goals().Add();
    plan.Serve("Dig", 1);
    plan.goals().Remove(1);
    EXPECT_EQ(plan.goals().AssigneGoal("2", 3, plan.app->xTaskCol(), plan.goal_relations()), True);
    EXPECT_EQ(plan.failures.Taken(), "TaskGoalRelationCol/AddItem 457\n");
    EXPECT_EQ(DrawnSides<GoalSides>(plan),
              "project 1:1-1\ntask 1 relations 1 copies 1\ntask 2 relations copies\ntask 3 relations copies\n"
              "item 2 relations 1 tasks 3")
        << "the relation of the deleted goal stands in the project, the new one on its goal alone";
}

}  // namespace
}  // namespace mrlxmlclass::testing
