#include <gtest/gtest.h>

#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Build, in the House, waits for Design, and Test for Build.
///
///     Design |###..  |.....  |
///     House  |...##  |.....  |
///     Build  |...##  |.....  |
///     Test   |.....  |#....  |
class Durations : public Plan {
public:
    Durations() {
        WithLinks().Task("Design").From(Monday).Lasting(3);
        Task("House").Task("Build").Under("House").From(Thursday).Lasting(2).After("Design");
        Task("Test").From(Monday + 7).After("Build");
        col().AdjustSummary(Key("House"));
        Heard();
    }
    Boolean Change(const String& task, Double to, const String& unit = {}) {
        duration = to;
        return col().DurationChanged(Key(task), duration, unit);
    }

    Double duration = 0;
};

TEST(DurationChanged, TakesTheChainAlong) {
    Durations plan;

    EXPECT_TRUE(plan.Change("Design", 5));

    EXPECT_EQ(Weeks(plan),
              "Design |#####  |.....  |\n"
              "House  |.....  |##...  |\n"
              "Build  |.....  |##...  |\n"
              "Test   |.....  |..#..  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Friday, 5) + Moved(3, Monday + 7, Tuesday + 7, 2) +
                                Moved(4, Wednesday + 7, Wednesday + 7, 1) + Summed(2, Monday + 7, Tuesday + 7, 2));
}

TEST(DurationChanged, PullsTheChainBack) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Design", 1));
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + Moved(3, Tuesday, Wednesday, 2) +
                                Moved(4, Thursday, Thursday, 1) + Summed(2, Tuesday, Wednesday, 2));
}

TEST(DurationChanged, TellsAndWalksWhenNothingChanged) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Design", 3));
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Wednesday, 3) + Moved(3, Thursday, Friday, 2) +
                                Moved(4, Monday + 7, Monday + 7, 1) + Summed(2, Thursday, Friday, 2));
}

TEST(DurationChanged, WidensTheParentsLast) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Build", 4));
    const Told house{.key = 2, .start = Thursday, .end = Tuesday + 7, .duration = 4, .parent = True};
    EXPECT_EQ(plan.Heard(), Moved(3, Thursday, Tuesday + 7, 4) + Moved(4, Wednesday + 7, Wednesday + 7, 1) +
                                house.End() + house.Summed() + "IamASummary(2, True)\n");
}

TEST(DurationChanged, MakesAMilestoneOfATaskThatLastsNothing) {
    Durations plan;

    EXPECT_TRUE(plan.Change("Design", 0));

    EXPECT_TRUE(plan["Design"].TaskMilstones());
    EXPECT_EQ(Weeks(plan, 1),
              "Design |o....  |\n"
              "House  |.##..  |\n"
              "Build  |.##..  |\n"
              "Test   |...#.  |\n");
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Monday) + Moved(3, Tuesday, Wednesday, 2) +
                                Moved(4, Thursday, Thursday, 1) + Summed(2, Tuesday, Wednesday, 2));
}

TEST(DurationChanged, KeepsADurationFromAMilestoneAtOneDayUntilItIsAskedAgain) {
    Plan plan;
    plan.WithLinks().Task("Approved").From(Friday).Milestone().Task("Build").From(Monday + 7).After("Approved");
    EXPECT_TRUE(plan.col().DurationChanged("1", 3.0));
    EXPECT_FALSE(plan["Approved"].TaskMilstones());
    EXPECT_EQ(plan.Heard(), Moved(1, Friday, Friday, 1) + Moved(2, Monday + 7, Monday + 7, 1));

    EXPECT_TRUE(plan.col().DurationChanged("1", 3.0));
    EXPECT_EQ(plan.Heard(), Moved(1, Friday, Tuesday + 7, 3) + Moved(2, Wednesday + 7, Wednesday + 7, 1));
}

TEST(DurationChanged, StopsAt999WithoutChildrenInTheCallersVariableToo) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Design", 1200));
    EXPECT_EQ(plan.duration, 999);
    EXPECT_EQ(Span(plan["Design"]), "2026-03-02 2029-12-27 999");
    EXPECT_EQ(Span(plan["Build"]), "2029-12-28 2029-12-31 2");
    EXPECT_TRUE(plan.Change("Design", 999));
    EXPECT_EQ(Span(plan["Design"]), "2026-03-02 2029-12-27 999");
}

TEST(DurationChanged, LimitsNoSummaryAtTheTop) {
    Durations plan;
    EXPECT_TRUE(plan.Change("House", 1200));
    EXPECT_EQ(plan.duration, 1200);
    const Date end = Date::Of(2030, 10, 9);
    const Told house{.key = 2, .start = Thursday, .end = end, .duration = 1200, .parent = True};
    EXPECT_EQ(plan.Heard(), house.Moved()) << "nobody rebuilds it from its children";
}

TEST(DurationChanged, TakesAParentWithoutTheRowOfASummaryForNoLeaf) {
    Durations plan;
    plan["House"].TaskType(True);
    ASSERT_FALSE(plan.col().Summary(plan.Key("House")));
    EXPECT_TRUE(plan.Change("House", 1200));
    EXPECT_EQ(plan.duration, 1200);
}

TEST(DurationChanged, TakesAUnitByItsFirstLetters) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Design", 2, "week"));
    const Told design{.key = 1, .start = Monday, .end = Monday + 14, .duration = 2, .unit = "wks"};
    EXPECT_EQ(plan.Heard(), design.Moved() + Moved(3, Tuesday + 14, Wednesday + 14, 2) +
                                Moved(4, Thursday + 14, Thursday + 14, 1) + Summed(2, Tuesday + 14, Wednesday + 14, 2));
    EXPECT_TRUE(plan.Change("Design", 2));
    EXPECT_EQ(plan["Design"].TaskDurationUnit(), "wks") << "no unit, no change";
    EXPECT_TRUE(plan.Change("Design", 2, "anything"));
    EXPECT_EQ(plan["Design"].TaskDurationUnit(), "days");
}

TEST(DurationChanged, LeavesTheUnitOfAMilestoneToBe) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Design", 0, "week"));
    EXPECT_EQ(plan["Design"].TaskDurationUnit(), "days");
}

TEST(DurationChanged, KeepsRoundingAFractionToTheDaysBetweenTheDates) {
    struct Row {
        double duration;
        const char* span;
    };
    for (const Row& row : {Row{2.5, "2026-03-02 2026-03-04 3"}, Row{0.5, "2026-03-02 2026-03-04 3"},
                           Row{3.25, "2026-03-02 2026-03-05 4"}, Row{-3, "2026-03-02 2026-03-04 3"}}) {
        SCOPED_TRACE(row.duration);
        Durations plan;
        EXPECT_TRUE(plan.Change("Design", row.duration));
        EXPECT_EQ(plan.duration, row.duration) << "the caller's own stays";
        EXPECT_EQ(Span(plan["Design"]), row.span);
    }
}

TEST(DurationChanged, EndsAtAShiftThatNoIntegerHolds) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Undated").Under("House").Task("Build").From(Friday).After("Undated");
    plan.Task("Far").Holding(Monday, Date::Of(9000, 1, 1), 1);
    EXPECT_FALSE(plan.col().DurationChanged("2", 2.0));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DurationChanged 6\n");
    EXPECT_EQ(Span(plan["Undated"]), "2026-03-02 2026-03-03 2") << "from today on";
    EXPECT_FALSE(plan.col().DurationChanged("4", 2.0));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DurationChanged 6\n");
    EXPECT_EQ(Span(plan["Far"]), "2026-03-02 2026-03-03 2");
    EXPECT_EQ(Span(plan["Build"]), "2026-03-06 2026-03-06 1");
    EXPECT_EQ(plan.Heard(), "") << "nobody is told, no parent is adjusted";
}

TEST(DurationChanged, GivesAnUndatedMilestoneADurationAndNoDates) {
    Plan plan;
    plan.WithLinks().Task("Approved");
    plan["Approved"].TaskMilstones(True);
    EXPECT_TRUE(plan.col().DurationChanged("1", 2.0));
    EXPECT_EQ(plan.Heard(), Moved(1, Date(), Date(), 2));
}

TEST(DurationChanged, TellsAnUndatedMilestone) {
    Plan plan;
    plan.WithLinks().Task("Approved");
    EXPECT_TRUE(plan.col().DurationChanged("1", 0.0));
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Date()));
}

TEST(DurationChanged, KeepsPullingASummaryBackBehindATaskThatBecomesLonger) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(2).Task("House").After("Design");
    plan.Task("Walls").Under("House").From(Wednesday).Lasting(2);
    plan.col().AdjustSummary(plan.Key("House"));
    plan.Heard();
    EXPECT_TRUE(plan.col().DurationChanged("1", 4.0));
    EXPECT_EQ(plan.Heard(),
              Moved(1, Monday, Thursday, 4) + Moved(3, Friday - 7, Monday, 2) + Summed(2, Friday - 7, Monday, 2))
        << "as far in front of the start as it stood in front of the new end";
}

TEST(DurationChanged, AdjustsTheParentsOfATaskWhoseWalkFailed) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Walls").Under("House").From(Monday).Lasting(2);
    plan.Task("Tent").From(Wednesday).After("Walls").Task("Party").From(Wednesday).After("Walls");
    plan.col().AdjustSummary("1");
    plan["Walls"].TaskLag(100'000);
    plan.Heard();
    EXPECT_FALSE(plan.col().DurationChanged("2", 4.0));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 6\n");
    const Told house{.key = 1, .start = Monday, .end = Thursday, .duration = 4, .parent = True};
    EXPECT_EQ(plan.Heard(), Moved(2, Monday, Thursday, 4) + Moved(3, Friday, Friday, 1) + house.End() + house.Summed() +
                                "IamASummary(1, True)\n");
}

TEST(DurationChanged, WalksEachTimeWithASetOfItsOwn) {
    Durations plan;
    EXPECT_TRUE(plan.Change("Design", 5));
    EXPECT_TRUE(plan.Change("Design", 3));
    EXPECT_EQ(Weeks(plan),
              "Design |###..  |.....  |\n"
              "House  |...##  |.....  |\n"
              "Build  |...##  |.....  |\n"
              "Test   |.....  |#....  |\n");
}

TEST(DurationChanged, MovesNobodyElseWithoutLiveLinksButWidensTheParents) {
    Plan plan;
    plan.Task("House").Task("Walls").Under("House").From(Monday).Task("Roof").Under("House").From(Tuesday);
    plan.About("Roof").After("Walls");
    plan.col().AdjustSummary("1");
    plan.Heard();
    EXPECT_TRUE(plan.col().DurationChanged("2", 4.0));
    const Told house{.key = 1, .start = Monday, .end = Thursday, .duration = 4, .parent = True};
    EXPECT_EQ(plan.Heard(), Moved(2, Monday, Thursday, 4) + house.End() + house.Summed() + "IamASummary(1, True)\n");
}

TEST(DurationChanged, TellsASilencedHostTheDurationsOnly) {
    Plan plan;
    plan.Silenced().Task("House").Task("Walls").Under("House").From(Monday);
    plan.col().AdjustSummary("1");
    plan.Heard();
    EXPECT_TRUE(plan.col().DurationChanged("2", 4.0));
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(2, 4, days, False, False)\n"
              "TaskDurationChange(1, 4, days, False, True)\n");
}

TEST(DurationChanged, RecordsATaskThatIsNotThere) {
    for (const Variant& key : {Variant(77), Variant("77"), Variant(""), Variant(0)}) {
        for (const Double to : {0.0, 5.0, 2000.0}) {
            Plan plan;
            plan.WithLinks();
            Double duration = to;
            EXPECT_FALSE(plan.col().DurationChanged(key, duration));
            EXPECT_EQ(plan.failures.Taken(), "TasksCol/DurationChanged 91\n");
            EXPECT_EQ(duration, std::min(to, 999.0)) << "no task, no children";
        }
    }
}

TEST(DurationChanged, MovesASummaryBehindTheTaskByTheDaysThatItsEndMoved) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(3).Task("House").After("Design");
    plan.Task("Walls").Under("House").From(Thursday);
    plan.col().AdjustSummary(plan.Key("House"));
    plan.col().DurationChanged("1", 1.0);
    EXPECT_EQ(plan["Walls"].TaskBDate(), Tuesday);
    plan.Heard();
}

TEST(DurationChanged, AppliesTheGapOfASuccessorOnceAndMeasuresItAnew) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday).After("Design", 3);
    plan.col().DurationChanged("1", 2.0);
    EXPECT_EQ(plan["Build"].TaskBDate(), Monday + 7);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|3");
    plan.Heard();
}

TEST(DurationChanged, BringsAMilestoneFromAFreeDayForward) {
    Plan plan;
    plan.WithLinks().Task("Done").Holding(Saturday, Saturday, 1);
    plan.col().DurationChanged("1", 0.0);
    EXPECT_EQ(plan["Done"].TaskBDate(), Monday + 7);
    EXPECT_TRUE(plan["Done"].TaskMilstones());
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
