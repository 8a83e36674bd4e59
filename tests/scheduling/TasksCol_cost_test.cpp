#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/scheduling/Costs.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(AdjustCost, SumsTheChildrenUpToTheTop) {
    Costs plan;
    EXPECT_TRUE(plan.col().AdjustCost(plan.Key("Phase")).is_empty());
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(30));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(130)) << "what was typed on a summary is lost";
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(2, 30)\nRoolUpCostChange(1, 130)\n");
}

TEST(AdjustCost, AddsToWhatStandsThereWhenToldNotToStartAnew) {
    Costs plan;
    plan.col().AdjustCost(plan.Key("Phase"), False);
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(37));
    plan.col().AdjustCost(plan.Key("Phase"), False);
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(67));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(167)) << "the levels above always start anew";
}

TEST(AdjustCost, LeavesALeafItsOwnCost) {
    Costs plan;
    plan.col().AdjustCost(plan.Key("Roof"));
    EXPECT_EQ(plan["Roof"].TaskCost(), Currency(100));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(5, 100)\nRoolUpCostChange(1, 107)\n");
}

TEST(AdjustCost, TakesTheSumsOfSummariesBelowAsTheyStand) {
    Costs plan;
    plan.col().AdjustCost(plan.Key("House"));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(107));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(7));
}

TEST(AdjustCost, ChangesAllValuesForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("House").Task("Roof").Under("House").Costing(100);
    plan.col().AdjustCost(plan.Key("House"));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(100));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AdjustCost, LeavesWhatIsDoneWhenASumOverflows) {
    Costs plan;
    plan["Roof"].TaskCost(Currency(900'000'000'000'000));
    plan["Design"].TaskCost(Currency(900'000'000'000'000));
    plan.col().AdjustCost(plan.Key("Phase"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustCost 6\n");
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(900'000'000'000'020));
    EXPECT_EQ(plan["House"].TaskCost(), plan["Phase"].TaskCost());
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(2, 900000000000020)\n");
}

TEST(AdjustCost, RecordsATaskAParentOrAChildThatIsNotThere) {
    Costs plan;
    plan.col().AdjustCost("77");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustCost 91\n");
    plan["House"].ParentID(77);
    plan.col().AdjustCost(plan.Key("House"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustCost 91\n");
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(1, 107)\n");
    plan.col().RemoveForLib(plan.Key("Design"));
    plan.col().AdjustCost(plan.Key("Phase"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTasksAsKeys 91\nTasksCol/AdjustCost 91\n");
}

TEST(AdjustCost, StopsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.col().AdjustCost("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustCost 28\n");
    plan.Heard();
}

TEST(AdjustCost, StopsAtATaskThatIsItsOwnParent) {
    Plan plan;
    BuildSelfParent(plan);
    plan.col().AdjustCost("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustCost 28\n");
    plan.Heard();
}

TEST(AdjustCost, ClimbsFromAnyDepthOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 30'000;
        Plan plan;
        plan.Silenced();
        BuildChain(plan, kDeep);
        plan[std::to_string(kDeep)].TaskCost(5);
        plan.col().AdjustCost(std::to_string(kDeep));
        EXPECT_EQ(plan["1"].TaskCost(), Currency(5));
    });
}

TEST(AdjustCost, AddsUpToTheFourthDecimal) {
    Costs plan;
    plan["Design"].TaskCost(Currency(0.0001));
    plan["Build"].TaskCost(Currency(-20.5));
    plan.col().AdjustCost(plan.Key("Phase"));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(2, -20.4999)\nRoolUpCostChange(1, 79.5001)\n");
}

TEST(AdjustCost, LeavesTheOtherTotalAlone) {
    Costs plan;
    plan["Design"].TaskCostUp(3);
    plan.col().AdjustCost(plan.Key("Phase"));
    EXPECT_EQ(plan["Phase"].TaskCostUp(), Currency(0));
    plan.Heard();
}

TEST(AdjustCost, LeavesALeafItsOwnCostWhateverItIsTold) {
    Costs plan;
    plan.col().AdjustCost(plan.Key("Design"), False);
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(10));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(3, 10)\nRoolUpCostChange(2, 30)\nRoolUpCostChange(1, 130)\n");
}

TEST(AdjustCost, RecordsKeysThatAreNone) {
    Costs plan;
    for (const char* key : {"", "0", "01", "Phase"}) {
        SCOPED_TRACE(key);
        EXPECT_TRUE(plan.col().AdjustCost(key).is_empty());
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustCost 91\n");
    }
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AdjustCost, SumsWhatAListenerMadeOfTheCostsAbove) {
    Costs plan;
    const Interruption host(plan, "RoolUpCostChange", plan.Number("Phase"), [&] { plan["Roof"].TaskCost(1); });
    plan.col().AdjustCost(plan.Key("Phase"));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(2, 30)\nRoolUpCostChange(1, 31)\n");
}

TEST(TasksColOperations, TellOfCostsAndProgressTheKeyThatTheyWereAskedFor) {
    Plan plan;
    plan.col().Add("77")->TaskCost(5);
    plan.col().AdjustCost("77");
    plan.col().RollUpCostChanged("77", 1, True, True);
    plan.col().RolUpOneTask("77", 3);
    plan.col().RollUpCostChangedImdParent("77", 4);
    plan.col().ChangePercentDone("77", 50);
    EXPECT_EQ(plan.Heard(),
              "RoolUpCostChange(77, 5)\nRoolUpCostChange(77, 6)\nRoolUpCostChange(77, 3)\nRoolUpCostChange(77, 4)\n"
              "CompletedChange(77, 50)\n");
}

}  // namespace
}  // namespace mrlxmlclass
