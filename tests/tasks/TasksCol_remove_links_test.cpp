#include <gtest/gtest.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Deletes for good, with nothing to untie.
void Delete(Plan& plan, const String& name, Boolean arrange = False) {
    plan.col().SetPhases();
    plan.col().Remove(plan.Key(name), {}, {}, {}, {}, {}, {}, True, False, arrange);
}

/// Takes out of the plan what a relation holds.
void MakeCandidate(Plan& plan, const String& name, Boolean arrange = False) {
    plan.col().Remove(plan.Key(name), {}, {}, {}, {}, {}, {}, False, False, arrange);
}

void DeleteWithAllBelow(Plan& plan, const String& name, Boolean arrange = False) {
    plan.col().SetPhases();
    plan.col().DeleteAllSubTasks(plan.Key(name), plan.app->xTaskPeopleRelationcol(), plan.app->xPeopleCol(),
                                 plan.app->xTaskGoalRelationcol(), plan.app->xGoalCol(),
                                 plan.app->xTaskObstaclesRelationcol(), plan.app->xObstaclesCol(), False, arrange);
}

/// A on Monday and Tuesday, B on Wednesday, C behind it.
void BuildThree(Plan& plan) {
    plan.Task("A").From(Monday).Lasting(2).Task("B").From(Wednesday).After("A");
    plan.Task("C").From(Thursday).Lasting(2).After("B");
}

// --- A task that goes for good --------------------------------------------------------------------------------------

TEST(RemoveTask, TakesItsLinksOffBothSides) {
    LinkingPlan plan;
    BuildThree(plan);
    Delete(plan, "B");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan["C"].TaskLeadTime()->Count(), 0);
    EXPECT_EQ(Weeks(plan, 1),
              "A |##...  |\n"
              "C |...##  |\n")
        << "the hole in the chain stays open";
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "TaskDeleted(2, , 0, False)\n");
}

TEST(RemoveTask, LeavesLinksToTheCallerWhereTheyAreNotLive) {
    for (const Boolean arrange : {False, True}) {
        Plan plan;
        BuildThree(plan);
        Delete(plan, "B", arrange);
        EXPECT_EQ(Links(plan), "A -> 2\nC <- 2|0\n");
    }
}

TEST(RemoveTask, LeavesTheLinksOfACandidateUntilTheyAreRead) {
    LinkingPlan plan;
    BuildThree(plan);
    MakeCandidate(plan, "B");
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\nB -> C\nC <- B|0\n");
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, , 0, False)\n");

    EXPECT_EQ(plan.col().PredessorAsString("3"), "");
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\n");
    EXPECT_EQ(plan.Heard(), "SucessorChange(2, )\nPredecessorChange(3, )\nPredecessorKeyChange(3, 2, remove)\n");
}

TEST(RemoveTask, TakesTheLinksOffACandidateThatGoesForGood) {
    LinkingPlan plan;
    BuildThree(plan);
    MakeCandidate(plan, "B");
    plan.Heard();
    Delete(plan, "B", True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "TaskDeleted(2, , 0, True)\n")
        << "nothing is bridged over a task that was in no row";
}

TEST(RemoveTask, TakesLinksOffForASilencedHostToo) {
    Plan plan;
    plan.Silenced().WithLinks();
    plan.col().AutoLink(True);
    BuildThree(plan);
    Delete(plan, "B", True);
    EXPECT_EQ(Links(plan), "A -> C\nC <- A|0\n");
    EXPECT_EQ(plan["C"].TaskBDate(), Wednesday);
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(3, 2, days, False, False)\n");
}

TEST(RemoveTask, TakesItsLinkToItselfOffOnce) {
    LinkingPlan plan;
    plan.Task("Odd").From(Monday).After("Odd");
    Delete(plan, "Odd");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(1, )\n"
              "PredecessorKeyChange(1, 1, remove)\n"
              "TaskDeleted(1, , 0, False)\n");
}

TEST(RemoveTask, EndsWhereAHostRemovesTheTaskAtTheYield) {
    LinkingPlan plan;
    BuildThree(plan);
    int yields = 0;
    plan.platform.ui.on_yield = [&] {
        if (++yields == 1) Delete(plan, "B");
    };
    Delete(plan, "B");
    plan.failures.Taken();  // what is told of a task that is gone has no text
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(Walked(plan.col()), "A C");
    const String heard = plan.Heard();
    ASSERT_NE(heard.find("TaskDeleted"), String::npos);
    EXPECT_EQ(heard.find("TaskDeleted"), heard.rfind("TaskDeleted")) << heard;
    EXPECT_EQ(plan.col().Add()->TaskKey(), 2) << "its key was freed";
    EXPECT_EQ(plan.col().Add()->TaskKey(), 4) << "once";
}

// --- What becomes of its parent -------------------------------------------------------------------------------------

TEST(RemoveTask, LinksTheLastSuccessorToAParentThatLosesItsOnlyChild) {
    LinkingPlan plan;
    plan.Task("Phase").From(Monday).Lasting(2).Task("Design").Under("Phase").From(Monday).Lasting(2);
    plan.Task("Build").From(Friday).After("Design").Task("Test").From(Friday).After("Design");

    Delete(plan, "Design");

    EXPECT_EQ(Links(plan), "Phase -> Test\nTest <- Phase|2\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(2, 4)\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(4, )\n"
              "PredecessorKeyChange(4, 2, remove)\n"
              "PredecessorChange(4, 1)\n"
              "PredecessorKeyChange(4, 1, add)\n"
              "SucessorChange(1, 4)\n"
              "IamASummary(1, False)\n"
              "TaskDeleted(2, , 0, False)\n");
}

TEST(RemoveTask, KeepsLinkingTheLastSuccessorASecondTimeWhereTheHostTakesItOff) {
    LinkingPlan plan;
    plan.Task("Phase").From(Monday).Lasting(2).Task("Design").Under("Phase").From(Monday).Lasting(2);
    plan.Task("Build").From(Friday).After("Design");
    struct Refusing : TasksColEvents {
        explicit Refusing(Plan& of) : plan(of) { plan.col().Events.Add(*this); }
        ~Refusing() override { plan.col().Events.Remove(*this); }
        void PredecessorKeyChange(Long, const String& predecessor, const String& action) override {
            if (action != "add") return;
            if (++added == 1) plan.col().RemoveTaskPredecessor("3", predecessor);
        }
        Plan& plan;
        int added = 0;
    };
    {
        const Refusing host(plan);
        Delete(plan, "Design");
        EXPECT_EQ(host.added, 2);
    }
    EXPECT_EQ(Links(plan), "Phase -> Build\nBuild <- Phase|2\n");
    plan.Heard();
}

TEST(RemoveTask, TellsAParentThatLosesItsOnlyChildWithoutASuccessorToo) {
    LinkingPlan plan;
    plan.Task("Phase").From(Monday).Task("Design").Under("Phase").From(Monday);
    Delete(plan, "Design");
    EXPECT_EQ(plan.Heard(), "IamASummary(1, False)\nTaskDeleted(2, , 0, False)\n");
}

TEST(RemoveTask, TellsAParentNothingWithoutLiveLinks) {
    Plan plan;
    plan.Task("Phase").From(Monday).Task("Design").Under("Phase").From(Monday);
    Delete(plan, "Design");
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, , 0, False)\n");
}

TEST(RemoveTask, AdjustsAParentThatKeepsOtherChildren) {
    LinkingPlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(2);
    plan.Task("Build").Under("Phase").From(Wednesday).Lasting(3).After("Design");
    plan.col().AdjustSummary("1");
    plan.Heard();

    Delete(plan, "Design");

    EXPECT_EQ(Links(plan), "") << "a parent with children is waited for by nobody";
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "DurationChange(1, 3, days, False, True)\n"
              "TaskDurationChange(1, 3, days, False, True)\n"
              "DateEndChange(1, 2026-03-06, False, True, days)\n"
              "DateStartChange(1, 2026-03-04, False, True)\n"
              "TaskDeleted(2, , 0, False)\n");
}

TEST(RemoveTask, MovesTheLastSuccessorBehindTheParentWithoutAutoLink) {
    Plan plan;
    plan.WithLinks().Task("Phase").From(Monday).Lasting(2).Task("Design").Under("Phase").From(Monday).Lasting(2);
    plan.Task("Build").From(Friday).After("Design");
    Delete(plan, "Design");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan["Build"].TaskBDate(), Wednesday);
}

TEST(RemoveTask, ForgetsTheParentWhereTheOutlineIsClosed) {
    LinkingPlan plan;
    plan.Task("Phase").From(Monday).Task("Design").Under("Phase").From(Monday).Task("Build").From(Friday);
    plan.After("Design");
    Delete(plan, "Design", True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(),
              "RoolUpCostChange(1, 0)\n"
              "IamASummary(1, False)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "TaskDeleted(2, 1, 2, True)\n"
              "TaskDeleted(2, , 0, True)\n");
}

// --- The chain over a hole ------------------------------------------------------------------------------------------

TEST(ArrangePositionAfterDelete, BridgesTheChainOverTheHole) {
    LinkingPlan plan;
    BuildThree(plan);

    EXPECT_EQ(plan.col().ArrangePositionAfterDelete("2"), True);

    EXPECT_EQ(Links(plan), "A -> C\nC <- A|0\n");
    EXPECT_EQ(plan["C"].TaskBDate(), Wednesday);
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "DateStartChange(3, 2026-03-04, False, False)\n"
              "DateEndChange(3, 2026-03-05, False, False, days)\n"
              "DurationChange(3, 2, days, False, False)\n"
              "TaskDurationChange(3, 2, days, False, False)\n"
              "PredecessorChange(3, 1)\n"
              "PredecessorKeyChange(3, 1, add)\n"
              "SucessorChange(1, 2)\n"
              "TaskDeleted(2, 0, 2, True)\n")
        << "the rows are closed by then";
}

TEST(ArrangePositionAfterDelete, KeepsTheParentsSpanFromBeforeTheBridge) {
    LinkingPlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday);
    plan.Task("Build").Under("Phase").From(Tuesday).Lasting(2).After("Design");
    plan.Task("Test").Under("Phase").From(Thursday).After("Build");
    plan.col().AdjustSummary("1");
    plan.Heard();

    plan.col().ArrangePositionAfterDelete("3");

    EXPECT_EQ(plan["Test"].TaskBDate(), Tuesday);
    EXPECT_EQ(plan["Phase"].TaskEDate(), Thursday) << "nobody adjusts it after the move";
    EXPECT_EQ(plan.Heard(),
              "DurationChange(1, 4, days, False, True)\n"
              "TaskDurationChange(1, 4, days, False, True)\n"
              "DateEndChange(1, 2026-03-05, False, True, days)\n"
              "DateStartChange(1, 2026-03-02, False, True)\n"
              "RoolUpCostChange(1, 0)\n"
              "IamASummary(1, True)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "SucessorChange(3, )\n"
              "PredecessorChange(4, )\n"
              "PredecessorKeyChange(4, 3, remove)\n"
              "DateStartChange(4, 2026-03-03, False, False)\n"
              "DateEndChange(4, 2026-03-03, False, False, days)\n"
              "DurationChange(4, 1, days, False, False)\n"
              "TaskDurationChange(4, 1, days, False, False)\n"
              "PredecessorChange(4, 2)\n"
              "PredecessorKeyChange(4, 2, add)\n"
              "SucessorChange(2, 3)\n"
              "TaskDeleted(3, 1, 3, True)\n");
}

TEST(ArrangePositionAfterDelete, KeepsBridgingTheLastPairOnly) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Monday).Task("Gone").From(Wednesday).After("A").After("B");
    plan.Task("C").From(Friday).After("Gone").Task("D").From(Friday).After("Gone");
    plan.col().ArrangePositionAfterDelete("3");
    EXPECT_EQ(Links(plan), "B -> D\nD <- B|0\n");
    EXPECT_EQ(Weeks(plan, 1),
              "A    |#....  |\n"
              "B    |#....  |\n"
              "Gone |..#..  |\n"
              "C    |....#  |\n"
              "D    |.#...  |\n");
}

TEST(ArrangePositionAfterDelete, BridgesNothingAtAnEndOfTheChain) {
    for (const char* end : {"1", "3"}) {
        LinkingPlan plan;
        BuildThree(plan);
        plan.col().ArrangePositionAfterDelete(end);
        EXPECT_EQ(Links(plan), end == String("1") ? "B -> C\nC <- B|0\n" : "A -> B\nB <- A|0\n");
        EXPECT_EQ(plan["C"].TaskBDate(), Thursday);
    }
}

TEST(ArrangePositionAfterDelete, MovesWithoutAutoLinkAndStoresNothing) {
    Plan plan;
    plan.WithLinks();
    BuildThree(plan);
    plan.col().ArrangePositionAfterDelete("2");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan["C"].TaskBDate(), Wednesday);
}

TEST(ArrangePositionAfterDelete, LeavesLinksAloneWhereTheyAreNotLive) {
    Plan plan;
    BuildThree(plan);
    plan.col().ArrangePositionAfterDelete("2");
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\nB -> C\nC <- B|0\n");
}

TEST(RemoveTask, BridgesOverACandidateWhereTheOutlineIsClosed) {
    LinkingPlan plan;
    BuildThree(plan);
    MakeCandidate(plan, "B", True);
    EXPECT_EQ(Links(plan), "A -> C\nC <- A|0\n");
}

// --- A whole subtree ------------------------------------------------------------------------------------------------

TEST(DeleteAllSubTasks, FreesTheSuccessorsSoThatNoneComesToWaitForTheParent) {
    LinkingPlan plan;
    plan.Task("Before").From(Monday).Task("Phase").From(Monday).After("Before");
    plan.Task("Design").Under("Phase").From(Tuesday).Task("Build").From(Friday).After("Design");

    DeleteWithAllBelow(plan, "Phase");

    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(3, )\n"
              "PredecessorChange(4, )\n"
              "PredecessorKeyChange(4, 3, remove)\n"
              "IamASummary(2, False)\n"
              "TaskDeleted(3, , 0, False)\n"
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "TaskDeleted(2, , 0, False)\n");
}

TEST(DeleteAllSubTasks, FreesTheSuccessorsOfWhatBecomesACandidate) {
    LinkingPlan plan;
    plan.Task("Before").From(Monday).Task("Phase").From(Monday).Task("Design").Under("Phase").From(Tuesday);
    plan.After("Before").Task("Build").From(Friday).After("Design");
    plan.app->xTaskGoalRelationcol()->Add()->TaskKey(plan.Number("Design"));
    DeleteWithAllBelow(plan, "Phase");
    EXPECT_EQ(Links(plan), "Before -> Design\nDesign <- Before|0\n") << "what it waits for stays with it";
}

TEST(DeleteAllSubTasks, TakesOffALinkBetweenTwoOfTheSubtree) {
    LinkingPlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Task("Build").Under("Phase").From(Tuesday);
    plan.After("Design").Task("Last").From(Friday).After("Build");
    DeleteWithAllBelow(plan, "Phase", True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Drawn(), "1 Last  2026-03-06 2026-03-06\n");
}

TEST(DeleteAllSubTasks, LeavesLinksToTheCallerWhereTheyAreNotLive) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").Task("Build").After("Design");
    DeleteWithAllBelow(plan, "Phase");
    EXPECT_EQ(Links(plan), "Build <- 2|0\n");
}

TEST(DeleteAllSubTasks, GoesOnBehindAChildThatItsOwnWalkRemoved) {
    LinkingPlan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Inside").Under("Phase").From(Monday);
    plan.Task("Garden").Under("House").From(Monday).Task("Last").From(Friday).After("Garden");
    plan["Phase"].TaskSuccessor()->Add("5", "5");
    plan["Last"].TaskPredecessor()->Add("2", "2");
    DeleteWithAllBelow(plan, "House");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

}  // namespace
}  // namespace mrlxmlclass
