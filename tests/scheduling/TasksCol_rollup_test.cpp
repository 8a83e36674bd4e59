#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Site  |.####  |
/// House |.####  |
/// Walls |.##..  |
/// Roof  |...##  |
class Site : public Plan {
public:
    Site() {
        Task("Site").Task("House").Under("Site").Task("Walls").Under("House").From(Tuesday).Lasting(2);
        Task("Roof").Under("House").From(Thursday).Lasting(2);
        col().AdjustSummary("2");
        Heard();
    }
    Boolean RollUp(const String& task, Double from = 0) {
        diff = from;
        return col().RollUpDateChanged(Key(task), diff);
    }

    Double diff = 0;
};

const String kSummaries = "IamASummary(1, True)\nIamASummary(2, True)\n";

// --- RollUpDateChanged -----------------------------------------------------------------------------------------------

TEST(RollUpDateChanged, RebuildsTheParentsAndAddsUpTheDurationsOnTheWay) {
    Site plan;
    EXPECT_EQ(plan.RollUp("Walls", 10), False);
    EXPECT_EQ(plan.Heard(), Summed(2, Tuesday, Friday, 4) + Summed(1, Tuesday, Friday, 4) +
                                Summed(1, Tuesday, Friday, 4) + kSummaries);
    EXPECT_EQ(plan.diff, 16) << "two days of the task and four of its parent";
}

TEST(RollUpDateChanged, TellsTheParentOfALaterEndFirst) {
    Site plan;
    plan["Roof"].TaskEDate(Monday + 7);
    plan.RollUp("Roof");
    const Told house{.key = 2, .start = Tuesday, .end = Monday + 7, .duration = 5, .parent = True};
    EXPECT_EQ(plan.Heard(), house.End() + house.Summed() + Summed(1, Tuesday, Monday + 7, 5) +
                                Summed(1, Tuesday, Monday + 7, 5) + kSummaries);
    EXPECT_EQ(plan.diff, 8);
}

TEST(RollUpDateChanged, BringsAnEarlierStartWithTheTasksOwnEnd) {
    Site plan;
    plan["Walls"].TaskBDate(Monday);
    plan.RollUp("Walls", 0.5);
    const Told narrowed{.key = 2, .start = Monday, .end = Tuesday, .parent = True};
    EXPECT_EQ(plan.Heard(), narrowed.Start() + narrowed.End() + Summed(2, Monday, Friday, 5) +
                                Summed(1, Monday, Friday, 5) + Summed(1, Monday, Friday, 5) + kSummaries);
    EXPECT_EQ(plan.diff, 7.5);
}

TEST(RollUpDateChanged, PassesOverAFreeStartOfTheTaskUntilTheParentIsRebuilt) {
    Site plan;
    plan.About("Walls").Holding(Saturday - 7, Sunday - 7, 1);
    plan.RollUp("Walls");
    const Told refused{.key = 2, .start = Monday, .end = Thursday, .parent = True};
    EXPECT_EQ(plan.Heard(), refused.Start() + refused.End() + Summed(2, Saturday - 7, Friday, 6) +
                                Summed(1, Saturday - 7, Friday, 6) + Summed(1, Saturday - 7, Friday, 6) + kSummaries);
}

TEST(RollUpDateChanged, GivesAnUndatedParentTheDatesOfTheTask) {
    Plan plan;
    plan.Task("House").Task("Walls").Under("House").From(Tuesday).Lasting(2);
    EXPECT_EQ(plan.col().RollUpDateChanged("2", 0.0), False);
    const Told house{.key = 1, .start = Tuesday, .end = Wednesday, .duration = 2, .parent = True};
    EXPECT_EQ(plan.Heard(), house.Start() + house.End() + house.Summed() + "IamASummary(1, True)\n");
}

TEST(RollUpDateChanged, DoesNothingAtTheTop) {
    Site plan;
    EXPECT_EQ(plan.RollUp("Site", 5), False);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.diff, 5);
}

TEST(RollUpDateChanged, TellsASilencedHostTheDurationsOnly) {
    Plan plan;
    plan.Silenced().Task("House").Task("Walls").Under("House").From(Tuesday).Lasting(2);
    plan.col().RollUpDateChanged("2", 0.0);
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 2, days, False, True)\n");
    EXPECT_EQ(Span(plan["House"]), "2026-03-03 2026-03-04 2");
}

TEST(RollUpDateChanged, RecordsATaskOrAParentThatIsNotThere) {
    Site plan;
    EXPECT_EQ(plan.col().RollUpDateChanged("77", 0.0), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpDateChanged 91\n");
    plan["Walls"].ParentID(77);
    EXPECT_EQ(plan.RollUp("Walls", 3), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpDateChanged 91\n");
    EXPECT_EQ(plan.diff, 3);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RollUpDateChanged, StopsInARing) {
    const TimeLimit limit("a ring of parents");
    Plan plan;
    BuildRing(plan);
    plan.col().RollUpDateChanged("1", 0.0);
    EXPECT_NE(plan.failures.Taken().find(" 28\n"), String::npos);
    plan.Heard();
}

TEST(RollUpDateChanged, ClimbsAnyOutlineOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 300;
        Plan plan;
        plan.Silenced();
        BuildChain(plan, kDeep);
        plan.From(Monday).Lasting(3);
        Double diff = 0;
        plan.col().RollUpDateChanged(std::to_string(kDeep), diff);
        EXPECT_EQ(Span(plan["1"]), "2026-03-02 2026-03-04 3");
        EXPECT_EQ(diff, 3.0 * (kDeep - 1));
    });
}

// --- RolUpOneDate ----------------------------------------------------------------------------------------------------

/// The four events of a parent that took over a task's dates.
String Taken(const Told& parent) {
    const String duration = Conversions::DoubleToString(parent.duration);
    const String key = std::to_string(parent.key);
    const String rest = "(" + key + ", " + duration + ", days, False, True)\n";
    return "TaskDurationChange" + rest + "DurationChange" + rest + parent.End() + parent.Start();
}

TEST(RolUpOneDate, GivesEachParentTheDatesOfTheOneBelow) {
    Site plan;
    EXPECT_EQ(plan.col().RolUpOneDate(plan.Key("Walls"), plan.Key("House")), False);
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(2, 2, days, False, True)\n"
              "DurationChange(2, 2, days, False, True)\n"
              "DateEndChange(2, 2026-03-04, False, True, days)\n"
              "DateStartChange(2, 2026-03-03, False, True)\n"
              "TaskDurationChange(1, 2, days, False, True)\n"
              "DurationChange(1, 2, days, False, True)\n"
              "DateEndChange(1, 2026-03-04, False, True, days)\n"
              "DateStartChange(1, 2026-03-03, False, True)\n");
}

TEST(RolUpOneDate, KeepsPushingTheEndOutByTheStartThatComesLast) {
    Site plan;
    plan.col().RolUpOneDate(plan.Key("Roof"), plan.Key("Site"));
    EXPECT_EQ(plan.Heard(), Taken({.key = 1, .start = Thursday, .end = Tuesday + 7, .duration = 4, .parent = True}))
        << "four days to the end of Roof, moved to its start";
}

TEST(RolUpOneDate, TakesTheDurationOffEachParent) {
    Site plan;
    EXPECT_EQ(plan.col().RolUpOneDate(plan.Key("Walls"), plan.Key("House"), True), False);
    EXPECT_EQ(plan.Heard(), Taken({.key = 2, .start = Tuesday, .end = Wednesday, .duration = 2, .parent = True}) +
                                Taken({.key = 1, .start = Tuesday, .end = Wednesday, .duration = 2, .parent = True}))
        << "the second less what the first has left";
}

TEST(RolUpOneDate, LeavesAnUndatedParentADurationBelowZero) {
    Plan plan;
    plan.Task("House").Task("Walls").Under("House").From(Tuesday).Lasting(2);
    plan.col().RolUpOneDate("2", "1", True);
    EXPECT_EQ(plan.Heard(), Taken({.key = 1, .start = Monday, .end = {}, .duration = -2, .parent = True}))
        << "it starts today";
}

TEST(RolUpOneDate, TellsASilencedHostTheDurationsOnly) {
    Plan plan;
    plan.Silenced().Task("House").Task("Walls").Under("House").From(Tuesday).Lasting(2);
    plan.col().RolUpOneDate("2", "1", True);
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, -2, days, False, True)\n");
}

TEST(RolUpOneDate, RecordsTasksThatAreNotThere) {
    Site plan;
    EXPECT_EQ(plan.col().RolUpOneDate("77", "2"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneDate 91\n");
    EXPECT_EQ(plan.col().RolUpOneDate("3", "77"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneDate 91\n");
    EXPECT_EQ(plan.Heard(), "");
    plan["House"].ParentID(77);
    EXPECT_EQ(plan.col().RolUpOneDate("3", "2"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneDate 91\n");
    EXPECT_EQ(plan.Heard(), Taken({.key = 2, .start = Tuesday, .end = Wednesday, .duration = 2, .parent = True}));
}

TEST(RolUpOneDate, StopsInARing) {
    const TimeLimit limit("a ring of parents");
    for (const Boolean minus : {True, False}) {
        Plan plan;
        BuildRing(plan);
        plan.col().RolUpOneDate("1", "2", minus);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneDate 28\n");
        plan.Heard();
    }
}

TEST(RolUpOneDate, ClimbsAnyOutlineOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 10'000;
        Plan plan;
        plan.Silenced();
        BuildChain(plan, kDeep);
        plan.From(Monday).Lasting(3);
        plan.col().RolUpOneDate(std::to_string(kDeep), std::to_string(kDeep - 1));
        EXPECT_EQ(Span(plan["1"]), "2026-03-02 2026-03-04 3");
    });
}

}  // namespace
}  // namespace mrlxmlclass
