#include <gtest/gtest.h>

#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- One after the other ---------------------------------------------------------------------------------------------

TEST(DependsDateChanged, MovesAChainOverAWeekendAndTellsEachTaskInTurn) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Wednesday).Lasting(2);
    plan.Task("Build").From(Friday).Lasting(2).After("Design");
    plan.Task("Test").From(Tuesday + 7).After("Build");
    ASSERT_EQ(Weeks(plan),
              "Design |..##.  |.....  |\n"
              "Build  |....#==|#....  |\n"
              "Test   |.....  |.#...  |\n");

    EXPECT_TRUE(plan.col().DependsDateChanged(plan.Key("Design"), Thursday, 1));

    EXPECT_EQ(Weeks(plan),
              "Design |...##  |.....  |\n"
              "Build  |.....  |##...  |\n"
              "Test   |.....  |..#..  |\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(1, 2026-03-05, False, False)\n"
              "DateEndChange(1, 2026-03-06, False, False, days)\n"
              "DurationChange(1, 2, days, False, False)\n"
              "TaskDurationChange(1, 2, days, False, False)\n"
              "DateStartChange(2, 2026-03-09, False, False)\n"
              "DateEndChange(2, 2026-03-10, False, False, days)\n"
              "DurationChange(2, 2, days, False, False)\n"
              "TaskDurationChange(2, 2, days, False, False)\n"
              "DateStartChange(3, 2026-03-11, False, False)\n"
              "DateEndChange(3, 2026-03-11, False, False, days)\n"
              "DurationChange(3, 1, days, False, False)\n"
              "TaskDurationChange(3, 1, days, False, False)\n");
}

TEST(DependsDateChanged, TellsAParentOfEachFirstSuccessorInnermostFirst) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday);
    plan.Task("Shell").Task("Build").Under("Shell").From(Tuesday).After("Design");
    plan.Task("Garden").Task("Plant").Under("Garden").From(Wednesday).After("Build");

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));

    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(3, Thursday, Thursday, 1) +
                                Moved(5, Friday, Friday, 1) + Summed(4, Friday, Friday, 1) +
                                Summed(2, Thursday, Thursday, 1));
}

/// A link whose gap is stored, and where its successor stands before and after the predecessor moved.
struct GapRow {
    int gap;
    Date before;
    const char* after;
};

/// Design moves from Monday to Wednesday; Build waits for it.
String AfterTheMove(const GapRow& row, Boolean measured) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(2).Task("Build").From(row.before).After("Design", row.gap);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1, measured));
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|" + std::to_string(row.gap)) << "the gap itself stays";
    EXPECT_EQ(plan["Build"].TaskLag(), measured ? std::max(row.gap, 0) : row.gap);
    return Weeks(plan, 3);
}

TEST(DependsDateChanged, KeepsTheGapOfALinkWhenTheHostMovesATask) {
    for (const GapRow& row : {
             GapRow{-2, Monday, "Design |..##.  |.....  |.....  |\nBuild  |..#..  |.....  |.....  |\n"},
             GapRow{-1, Tuesday, "Design |..##.  |.....  |.....  |\nBuild  |...#.  |.....  |.....  |\n"},
             GapRow{0, Wednesday, "Design |..##.  |.....  |.....  |\nBuild  |....#  |.....  |.....  |\n"},
             GapRow{1, Thursday, "Design |..##.  |.....  |.....  |\nBuild  |.....  |#....  |.....  |\n"},
             GapRow{5, Wednesday + 7, "Design |..##.  |.....  |.....  |\nBuild  |.....  |....#  |.....  |\n"},
         }) {
        SCOPED_TRACE(row.gap);
        EXPECT_EQ(AfterTheMove(row, True), row.after);
    }
}

TEST(DependsDateChanged, KeepsApplyingAGapTwiceWhileItIsNotMeasured) {
    for (const GapRow& row : {
             GapRow{-2, Monday, "Design |..##.  |.....  |.....  |\nBuild  |.#...  |.....  |.....  |\n"},
             GapRow{-1, Tuesday, "Design |..##.  |.....  |.....  |\nBuild  |...#.  |.....  |.....  |\n"},
             GapRow{0, Wednesday, "Design |..##.  |.....  |.....  |\nBuild  |....#  |.....  |.....  |\n"},
             GapRow{1, Thursday, "Design |..##.  |.....  |.....  |\nBuild  |.....  |.#...  |.....  |\n"},
             GapRow{5, Wednesday + 7, "Design |..##.  |.....  |.....  |\nBuild  |.....  |.....  |....#  |\n"},
         }) {
        SCOPED_TRACE(row.gap);
        EXPECT_EQ(AfterTheMove(row, False), row.after);
    }
}

TEST(DependsDateChanged, PutsASuccessorOfAFridayOnTheMonday) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Thursday).Task("Build").From(Friday).After("Design");
    plan.Task("Check").From(Thursday).After("Design", -1);
    plan.col().DependsDateChanged("1", Friday, 1, True);
    EXPECT_EQ(Weeks(plan),
              "Design |....#  |.....  |\n"
              "Build  |.....  |#....  |\n"
              "Check  |....#  |.....  |\n");
}

TEST(DependsDateChanged, PullsAChainBackAsWell) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday + 7).Task("Build").From(Tuesday + 7).Lasting(3).After("Design");
    plan.Task("Test").From(Friday + 7).After("Build");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1, True));
    EXPECT_EQ(Weeks(plan),
              "Design |..#..  |.....  |\n"
              "Build  |...##==|#....  |\n"
              "Test   |.....  |.#...  |\n");
}

TEST(DependsDateChanged, StepsOverHolidaysAndWorksOnExceptionDays) {
    Plan plan;
    plan.WithLinks();
    plan.calendar().SetADayAsHoliday(Thursday);
    plan.calendar().SetADayAsExceptionDay(Saturday);
    plan.Task("Design").From(Monday).Lasting(2).Task("Build").From(Wednesday).Lasting(3).After("Design");
    plan.Task("Test").From(Tuesday + 7).After("Build", 1);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday, 1, True));
    EXPECT_EQ(Weeks(plan),
              "Design |.## .. |.....  |\n"
              "Build  |... ##=|#....  |\n"
              "Test   |... .. |..#..  |\n");
}

TEST(DependsDateChanged, MovesMilestonesWithTheChain) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(2);
    plan.Task("Approved").From(Wednesday).Milestone().After("Design");
    plan.Task("Build").From(Thursday).Lasting(2).After("Approved");

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));

    EXPECT_EQ(Weeks(plan),
              "Design   |..##.  |.....  |\n"
              "Approved |....o  |.....  |\n"
              "Build    |.....  |##...  |\n");
    EXPECT_EQ(plan.Heard(),
              Moved(1, Wednesday, Thursday, 2) + MovedMilestone(2, Friday) + Moved(3, Monday + 7, Tuesday + 7, 2));
}

TEST(DependsDateChanged, MovesATaskInWeeksBehindItsPredecessorAndAppliesItsGapOnce) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Print").From(Wednesday).Lasting(2, "wks").After("Design", 1);
    plan.Task("Ship").From(Thursday + 14).After("Print");

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday, 1));

    EXPECT_EQ(Weeks(plan, 3),
              "Design |.#...  |.....  |.....  |\n"
              "Print  |...##==|#####==|####.  |\n"
              "Ship   |.....  |.....  |....#  |\n");
    const Told print{.key = 2, .start = Thursday, .end = Thursday + 14, .duration = 2, .unit = "wks"};
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + print.Moved() + Moved(3, Friday + 14, Friday + 14, 1));
}

TEST(DependsDateChanged, MovesATaskInMonthsWhoseEndMayBeFree) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Lease").From(Tuesday).Lasting(1, "mons").After("Design");
    plan.Task("Leave").From(Friday).After("Lease");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday, 1));
    EXPECT_EQ(Span(plan["Lease"]), "2026-03-04 2026-04-04 1") << "a Saturday";
    EXPECT_EQ(Span(plan["Leave"]), "2026-04-06 2026-04-06 1");
}

TEST(DependsDateChanged, WalksThroughACandidateInBetween) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Aside").From(Tuesday).Candidate().After("Design");
    plan.Task("Build").From(Wednesday).After("Aside");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(plan.Heard(),
              Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1) + Moved(3, Friday, Friday, 1));
}

TEST(DependsDateChanged, LeavesASuccessorWithoutAStartAndAllBehindIt) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday);
    plan.Task("House").Task("Undated").Under("House").After("Design").Task("Roof").Under("House").From(Thursday);
    plan.Task("Test").From(Friday).After("Undated");
    DateChange change;

    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));

    EXPECT_EQ(Span(plan["Undated"]), "- - 0");
    EXPECT_EQ(Span(plan["Test"]), "2026-03-06 2026-03-06 1");
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Summed(2, Thursday, Thursday, 1));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "3")");
}

TEST(DependsDateChanged, ClearsASuccessorOfATaskWithoutAnEndAndRecordsTheShift) {
    Plan plan;
    plan.WithLinks().Task("Design").Holding(Monday, Date(), 1);
    plan.Task("Build").From(Tuesday).After("Design").Task("Test").From(Wednesday).After("Build");
    DateChange change{.p_calc_date = False, .p_diff = 4};

    EXPECT_TRUE(change.Move(plan, "Design", Monday));

    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustDate 6\n");
    EXPECT_EQ(Span(plan["Build"]), "- - 0");
    EXPECT_EQ(Span(plan["Test"]), "2026-03-04 2026-03-04 1");
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Date(), 1));
    EXPECT_EQ(change.p_diff, 4);
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2")");
}

TEST(DependsDateChanged, MovesTheTaskAloneWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design", 2);
    plan["Build"].TaskLag(2);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(Weeks(plan, 1),
              "Design |..#..  |\n"
              "Build  |.#...  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1));
    EXPECT_EQ(plan["Build"].TaskLag(), 2);
}

TEST(DependsDateChanged, KeepsZeroingTheLagWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Thursday).After("Design", 2);
    plan["Build"].TaskLag(2);
    EXPECT_TRUE(plan.col().DependsDateChanged("2", Friday, 1, True));
    EXPECT_EQ(plan["Build"].TaskLag(), 0);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|2");
}

TEST(DependsDateChanged, TellsASilencedHostTheDurationsOnly) {
    Plan plan;
    plan.WithLinks().Silenced().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(Weeks(plan, 1),
              "Design |..#..  |\n"
              "Build  |...#.  |\n");
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(1, 1, days, False, False)\n"
              "TaskDurationChange(2, 1, days, False, False)\n");
}

TEST(DependsDateChanged, TellsTheHostBeforeItTouchesTheNextTask) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("House");
    plan.Task("Build").Under("House").From(Tuesday).After("Design", 1);
    plan.col().AdjustSummary(plan.Key("House"));
    String seen;
    {
        const OnStart watch(plan, [&](Long key) {
            seen += std::to_string(key.value()) + ": Build " + Span(plan["Build"]) + " lag " +
                    std::to_string(plan["Build"].TaskLag().value()) + ", House " + Span(plan["House"]) + "\n";
        });
        plan.col().DependsDateChanged("1", Wednesday, 1);
    }
    EXPECT_EQ(seen,
              "1: Build 2026-03-03 2026-03-03 1 lag 0, House 2026-03-03 2026-03-03 1\n"
              "3: Build 2026-03-09 2026-03-09 1 lag 1, House 2026-03-03 2026-03-03 1\n"
              "2: Build 2026-03-09 2026-03-09 1 lag 1, House 2026-03-09 2026-03-09 1\n");
}

}  // namespace
}  // namespace mrlxmlclass
