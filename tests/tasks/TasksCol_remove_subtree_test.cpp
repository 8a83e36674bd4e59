#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/tasks/Removals.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(DeleteAllSubTasks, DeletesBottomUpAndGivesTheChildren) {
    OnePhase plan;
    plan.Task("Detail").Under("Design");
    plan["Detail"].TaskPosition(5);

    const Ref<Collection> deleted = plan.DeletePhase();

    EXPECT_EQ(Listed(deleted), "2 3");
    EXPECT_TRUE(deleted->Has("3"));
    EXPECT_EQ(plan.Heard(),
              "TaskDeleted(5, , 0, False)\n"
              "TaskDeleted(2, , 0, False)\n"
              "TaskDeleted(3, , 0, False)\n"
              "TaskDeleted(1, , 0, False)\n");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

TEST(DeleteAllSubTasks, ClosesTheOutlineAtEachTask) {
    OnePhase plan;
    plan.DeletePhase(True);
    EXPECT_EQ(plan.Drawn(), "1 Last\n");
}

TEST(DeleteAllSubTasks, SortsByRowAtTheEnd) {
    OnePhase plan;
    plan.Task("First");
    plan["First"].TaskPosition(0);
    plan.DeletePhase();
    EXPECT_EQ(Walked(plan.col()), "First Last");
}

TEST(DeleteAllSubTasks, MakesCandidatesOfWhatARelationHolds) {
    OnePhase plan;
    Tie(plan.app->xTaskObstaclesRelationcol(), plan.Number("Design"));
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Build"));
    Tie(plan.app->xTaskPeopleRelationcol(), plan.Number("Phase"));
    EXPECT_EQ(Listed(plan.DeletePhase()), "2 3");
    EXPECT_EQ(Rows(plan.col()), "Phase0 Build0 Design0 Last4") << "the heap's order of equal rows";
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(DeleteAllSubTasks, KeepsDecidingByTheRelationsWhateverTheCallerForces) {
    OnePhase plan;
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Build"));
    Tie(plan.app->xTaskPeopleRelationcol(), plan.Number("Phase"));
    plan.DeletePhase(/*arrange=*/False, /*force=*/True);
    EXPECT_EQ(Rows(plan.col()), "Build0 Phase0 Last4");
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(DeleteAllSubTasks, CountsASummaryThatBecomesACandidateOnce) {
    OnePhase plan;
    plan.Task("Detail").Under("Design");
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Design"));
    plan.DeletePhase();
    EXPECT_EQ(plan.col().Count(True), 2);
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(DeleteAllSubTasks, KeepsTellingTwiceOfASummaryThatBecomesACandidate) {
    OnePhase plan;
    plan.Task("Detail").Under("Design");
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Design"));
    plan.DeletePhase();
    EXPECT_EQ(plan.Heard(),
              "TaskDeleted(5, , 0, False)\n"
              "TaskDeleted(2, , 0, False)\n"
              "TaskDeleted(2, , 0, False)\n"
              "TaskDeleted(3, , 0, False)\n"
              "TaskDeleted(1, , 0, False)\n");
}

TEST(DeleteAllSubTasks, KeepsItsFlagUpAfterASummaryBelow) {
    OnePhase plan;
    plan.Task("Detail").Under("Build");
    plan["Detail"].TaskPosition(5);
    Boolean flag_while_told = False;
    struct Listener : TasksColEvents {
        explicit Listener(Boolean& flag) : flag_(flag) {}
        void TaskDeleted(Long, const String&, Long, Boolean) override { flag_ = Module().g_InAddOrRemove; }
        Boolean& flag_;
    } listener(flag_while_told);
    plan.col().Events.Add(listener);
    plan.DeletePhase();
    EXPECT_TRUE(flag_while_told);
    EXPECT_FALSE(Module().g_InAddOrRemove) << "the last removal lowers it";
    plan.col().Events.Remove(listener);
}

TEST(DeleteAllSubTasks, KeepsTheObstaclesOwnRecordsOnTheWayDown) {
    OnePhase plan;
    const OwnLists below(plan, plan["Design"]);
    plan.DeletePhase();
    EXPECT_EQ(below.Left(), "001");

    OnePhase again;
    const OwnLists top(again, again["Phase"]);
    again.DeletePhase();
    EXPECT_EQ(top.Left(), "000");
}

TEST(DeleteAllSubTasks, RecordsAnUnknownTask) {
    ThreePhases plan;
    EXPECT_FALSE(plan.col().DeleteAllSubTasks(77, {}, {}, {}, {}, {}, {}, True, True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DeleteAllSubTasks 91\n");
    EXPECT_EQ(plan.col().Count(True), 3);
}

TEST(DeleteAllSubTasks, EndsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.Task("Last");
    plan.col().SetPhases();
    plan.col().DeleteAllSubTasks(1, {}, {}, {}, {}, {}, {}, True, False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DeleteAllSubTasks 28\n");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

TEST(DeleteAllSubTasks, EndsAtATaskThatIsItsOwnChild) {
    Plan plan;
    BuildSelfParent(plan);
    plan.Task("Last");
    plan.col().SetPhases();
    plan.col().DeleteAllSubTasks(1, {}, {}, {}, {}, {}, {}, True, True);
    EXPECT_NE(plan.failures.Taken().find("TasksCol/DeleteAllSubTasks 28\n"), String::npos);
    EXPECT_EQ(Walked(plan.col()), "Last");
}

TEST(DeleteAllSubTasks, DeletesADeepOutlineOnASmallStack) {
    // Each summary sorts the whole plan, so the outline is shallower than elsewhere, and so is the stack.
    const auto delete_chain = [] {
        Plan plan;
        BuildChain(plan, 400);
        plan.col().SetPhases();
        EXPECT_EQ(Listed(plan.col().DeleteAllSubTasks(1, {}, {}, {}, {}, {}, {}, True, False)), "2");
        EXPECT_EQ(plan.col().Count(True), 0);
        plan.Heard();
    };
    dom::OnSmallStack(delete_chain, std::size_t{1} << 18U);
}

}  // namespace
}  // namespace mrlxmlclass
