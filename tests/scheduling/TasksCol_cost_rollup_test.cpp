#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/scheduling/Costs.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(RollUpCostChanged, AddsTheSameDifferenceOnEveryLevel) {
    Costs plan;
    EXPECT_FALSE(plan.col().RollUpCostChanged(plan.Number("Design"), 5));
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(15));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(12));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(505));
    EXPECT_EQ(plan["Build"].TaskCost(), Currency(20));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(3, 15)\nRoolUpCostChange(2, 12)\nRoolUpCostChange(1, 505)\n");
}

TEST(RollUpCostChanged, TakesADifferenceOff) {
    Costs plan;
    plan.col().RollUpCostChanged(plan.Key("Phase"), Currency(-7.25));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(2, -0.25)\nRoolUpCostChange(1, 492.75)\n");
}

TEST(RollUpCostChanged, TellsADifferenceOfNothingToo) {
    Costs plan;
    plan.col().RollUpCostChanged(plan.Key("Roof"), 0);
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(5, 100)\nRoolUpCostChange(1, 500)\n");
}

TEST(RollUpCostChanged, ChangesNothingWithEitherFlagDown) {
    Costs plan;
    EXPECT_FALSE(plan.col().RollUpCostChanged(plan.Key("Design"), 5, False, True));
    EXPECT_FALSE(plan.col().RollUpCostChanged(plan.Key("Design"), 5, True, False));
    EXPECT_FALSE(plan.col().RollUpCostChanged(plan.Key("Design"), 5, False, False));
    for (const auto& [name, cost] : std::map<String, int>{{"House", 500}, {"Phase", 7}, {"Design", 10}}) {
        EXPECT_EQ(plan[name].TaskCost(), Currency(cost)) << name;
    }
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpCostChanged, ChangesAllValuesForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("House").Task("Roof").Under("House").Costing(100);
    plan.col().RollUpCostChanged(plan.Key("Roof"), 5);
    EXPECT_EQ(plan["Roof"].TaskCost(), Currency(105));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(5));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpCostChanged, LeavesTheLevelsBelowAnOverflowChanged) {
    Costs plan;
    plan["Phase"].TaskCost(Currency(922'337'203'685'470));
    plan.Heard();
    EXPECT_FALSE(plan.col().RollUpCostChanged(plan.Key("Design"), 8));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 6\n");
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(18));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(922'337'203'685'470));
    EXPECT_EQ(plan["House"].TaskCost(), Currency(500));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(3, 18)\n");
}

TEST(RollUpCostChanged, RecordsATaskOrAParentThatIsNotThere) {
    Costs plan;
    for (const Variant& key : {Variant("77"), Variant(77), Variant(""), Variant("0"), Variant(0)}) {
        EXPECT_FALSE(plan.col().RollUpCostChanged(key, 5));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 91\n");
    }
    plan["House"].ParentID(77);
    plan.col().RollUpCostChanged(plan.Key("House"), 5);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 91\n");
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(1, 505)\n");
}

TEST(RollUpCostChanged, StopsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.col().RollUpCostChanged("1", 5);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 28\n");
    plan.Heard();
}

TEST(RollUpCostChanged, StopsAtATaskThatIsItsOwnParent) {
    Plan plan;
    BuildSelfParent(plan);
    plan.col().RollUpCostChanged("1", 5);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 28\n");
    plan.Heard();
}

TEST(RollUpCostChanged, ClimbsFromAnyDepthOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 30'000;
        Plan plan;
        plan.Silenced();
        BuildChain(plan, kDeep);
        plan.col().RollUpCostChanged(std::to_string(kDeep), 5);
        EXPECT_EQ(plan["1"].TaskCost(), Currency(5));
        EXPECT_EQ(plan["15000"].TaskCost(), Currency(5));
    });
}

TEST(RollUpCostChanged, SurvivesAListenerThatStartsAnother) {
    Costs plan;
    const Interruption host(plan, "RoolUpCostChange", plan.Number("Design"),
                            [&] { plan.col().RollUpCostChanged(plan.Key("Build"), 1); });
    plan.col().RollUpCostChanged(plan.Key("Design"), 5);
    EXPECT_EQ(plan.Heard(),
              "RoolUpCostChange(3, 15)\n"
              "RoolUpCostChange(4, 21)\nRoolUpCostChange(2, 8)\nRoolUpCostChange(1, 501)\n"
              "RoolUpCostChange(2, 13)\nRoolUpCostChange(1, 506)\n");
}

TEST(RolUpOneTask, ReplacesTheCostOfThatTaskAlone) {
    Costs plan;
    EXPECT_FALSE(plan.col().RolUpOneTask(plan.Number("Design"), 25));
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(25));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(7)) << "there is no climb";
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(3, 25)\n");
}

TEST(RolUpOneTask, KeepsAddingWithMinusWhateverItsName) {
    Costs plan;
    EXPECT_FALSE(plan.col().RolUpOneTask(plan.Key("Design"), 4, True));
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(14));
    plan.col().RolUpOneTask(plan.Key("Design"), Currency(-20.5), True);
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(3, 14)\nRoolUpCostChange(3, -6.5)\n");
}

TEST(RolUpOneTask, TakesANumberOfAnyKindAsAnAmount) {
    struct Row {
        Variant given;
        double cost;
    };
    for (const Row& row : {Row{7, 7}, Row{1.5, 1.5}, Row{0.03125, 0.0312}, Row{0.09375, 0.0938}, Row{Currency(3), 3},
                           Row{"12.5", 12.5}}) {
        Costs plan;
        plan.col().RolUpOneTask(plan.Key("Design"), row.given);
        EXPECT_EQ(plan["Design"].TaskCost(), Currency(row.cost)) << row.cost;
        plan.Heard();
    }
}

TEST(RolUpOneTask, RecordsWhatIsNoAmount) {
    Costs plan;
    EXPECT_FALSE(plan.col().RolUpOneTask(plan.Key("Design"), "much"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneTask 13\n");
    EXPECT_FALSE(plan.col().RolUpOneTask(plan.Key("Design"), 1e30));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneTask 6\n");
    EXPECT_FALSE(plan.col().RolUpOneTask(plan.Key("Design"), Currency(922'337'203'685'470), True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneTask 6\n");
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(10));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RolUpOneTask, RecordsAnUnknownTask) {
    Costs plan;
    EXPECT_FALSE(plan.col().RolUpOneTask(77, 5));
    EXPECT_FALSE(plan.col().RolUpOneTask("", 5, True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneTask 91\nTasksCol/RolUpOneTask 91\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RolUpOneTask, IsSilentForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("Roof").Costing(100);
    plan.col().RolUpOneTask("1", 5);
    plan.col().RolUpOneTask("1", 5, True);
    EXPECT_EQ(plan["Roof"].TaskCost(), Currency(10));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpCostChangedImdParent, AddsToTheOtherTotalOfThatTaskAlone) {
    Costs plan;
    plan["Design"].TaskCostUp(3);
    EXPECT_FALSE(plan.col().RollUpCostChangedImdParent(plan.Number("Design"), 5));
    EXPECT_EQ(plan["Design"].TaskCostUp(), Currency(8));
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(10));
    EXPECT_EQ(plan["Phase"].TaskCostUp(), Currency(0));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(7)) << "the climb changes nothing";
    EXPECT_EQ(plan["House"].TaskCost(), Currency(500));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(3, 8)\n");
}

TEST(RollUpCostChangedImdParent, ChangesNothingWhenItIsTold) {
    Costs plan;
    EXPECT_FALSE(plan.col().RollUpCostChangedImdParent(plan.Key("Design"), 5, False));
    EXPECT_EQ(plan["Design"].TaskCostUp(), Currency(0));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpCostChangedImdParent, IsSilentForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("House").Task("Roof").Under("House");
    plan.col().RollUpCostChangedImdParent("2", 5);
    EXPECT_EQ(plan["Roof"].TaskCostUp(), Currency(5));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpCostChangedImdParent, RecordsAnUnknownTaskAndAnOverflow) {
    Costs plan;
    EXPECT_FALSE(plan.col().RollUpCostChangedImdParent("77", 5));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChangedImdParent 91\n");
    plan["Design"].TaskCostUp(Currency(922'337'203'685'470));
    EXPECT_FALSE(plan.col().RollUpCostChangedImdParent(plan.Key("Design"), 8));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChangedImdParent 6\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpCostChangedImdParent, KeepsClimbingForNothingThroughAParentThatIsNotThere) {
    Costs plan;
    plan["House"].ParentID(77);
    plan.col().RollUpCostChangedImdParent(plan.Key("House"), 5);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 91\n");
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(1, 5)\n");
}

TEST(RollUpCostChangedImdParent, EndsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.col().RollUpCostChangedImdParent("1", 5);
    EXPECT_EQ(plan["A"].TaskCostUp(), Currency(5));
    EXPECT_EQ(plan["B"].TaskCostUp(), Currency(0));
    EXPECT_EQ(plan.Heard(), "RoolUpCostChange(1, 5)\n");
    plan.failures.Taken();  // whether a climb that changes nothing is walked to its end is nobody's business
}

TEST(ChangePercentDone, SetsAndTellsThatTaskAlone) {
    Costs plan;
    EXPECT_FALSE(plan.col().ChangePercentDone(plan.Key("Phase"), 40));
    EXPECT_EQ(plan["Phase"].TaskPercentDone(), 40);
    EXPECT_TRUE(plan["Phase"].TaskPercentDoneValid());
    EXPECT_EQ(plan["House"].TaskPercentDone(), 0);
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 0);
    EXPECT_EQ(plan.Heard(), "CompletedChange(2, 40)\n");
}

TEST(ChangePercentDone, KeepsWhatIsNoPercentage) {
    Costs plan;
    for (const int percent : {250, -3, 32767, -32768}) {
        plan.col().ChangePercentDone(plan.Key("Design"), percent);
        EXPECT_EQ(plan["Design"].TaskPercentDone(), percent);
        EXPECT_EQ(plan.Heard(), "CompletedChange(3, " + std::to_string(percent) + ")\n");
    }
}

TEST(ChangePercentDone, IsSilentForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("Roof");
    plan.col().ChangePercentDone("1", 40);
    EXPECT_EQ(plan["Roof"].TaskPercentDone(), 40);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ChangePercentDone, RecordsAnUnknownTask) {
    Costs plan;
    for (const char* key : {"77", "", "0"}) {
        EXPECT_FALSE(plan.col().ChangePercentDone(key, 40));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangePercentDone 91\n");
    }
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
