#include <gtest/gtest.h>

#include "tests/scheduling/SummaryMove.h"
#include "tests/support/Outlines.h"

/// Kinds of children under a summary that moves.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// A House whose children are said one by one.
class Household : public Plan {
public:
    Household() { WithLinks().Task("House"); }
    Household& Child(const String& name, Date start, Double duration = 1, const String& unit = "days") {
        Task(name).Under("House");
        if (start.set()) From(start).Lasting(duration, unit);
        return *this;
    }
    /// Moves the House, rebuilt from its children, and gives what the host is told.
    String Move(SummaryMove move) {
        col().AdjustSummary("1");
        Heard();
        EXPECT_TRUE(move.Of(*this, "House"));
        return Heard();
    }
};

// --- Gaps ------------------------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, SearchesOnWhereAGapEndsInAWeekend) {
    Household plan;
    plan.Child("Walls", Tuesday).Child("Roof", Thursday, 2);
    EXPECT_EQ(plan.Move({.stDate = Friday}), Moved(2, Friday, Friday, 1) + Moved(3, Tuesday + 7, Wednesday + 7, 2) +
                                                 Summed(1, Friday, Wednesday + 7, 4))
        << "two working days behind, as before";
}

TEST(SummaryTaskDateChanged2, KeepsAnOverlapOfTheChildren) {
    Household plan;
    plan.Child("Walls", Monday, 3).Child("Roof", Tuesday, 2);
    EXPECT_EQ(plan.Move({.stDate = Thursday}),
              Moved(2, Thursday, Monday + 7, 3) + Moved(3, Friday, Monday + 7, 2) + Summed(1, Thursday, Monday + 7, 3));
}

TEST(SummaryTaskDateChanged2, KeepsAChildOnTheLastDayOfTheOneBefore) {
    Household plan;
    plan.Child("Walls", Monday, 2).Child("Roof", Tuesday, 2);
    EXPECT_EQ(plan.Move({.stDate = Friday}), Moved(2, Friday, Monday + 7, 2) + Moved(3, Monday + 7, Tuesday + 7, 2) +
                                                 Summed(1, Friday, Tuesday + 7, 3));
}

TEST(SummaryTaskDateChanged2, CountsHolidaysAndExceptionDaysInTheGaps) {
    Household plan;
    plan.Child("Walls", Wednesday).Child("Roof", Friday);
    plan.calendar().SetADayAsHoliday(Monday + 7);
    plan.calendar().SetADayAsExceptionDay(Saturday);
    EXPECT_EQ(plan.Move({.stDate = Friday}),
              Moved(2, Friday, Friday, 1) + Moved(3, Tuesday + 7, Tuesday + 7, 1) + Summed(1, Friday, Tuesday + 7, 3));
}

// --- Milestones, weeks and months ------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, MovesMilestonesAmongTheChildren) {
    Household plan;
    plan.Child("Walls", Wednesday, 2).Child("Approved", Thursday);
    plan.Milestone();
    plan.Child("Roof", Friday);
    EXPECT_EQ(plan.Move({.stDate = Friday}), Moved(2, Friday, Monday + 7, 2) + MovedMilestone(3, Monday + 7) +
                                                 Moved(4, Tuesday + 7, Tuesday + 7, 1) +
                                                 Summed(1, Friday, Tuesday + 7, 3));
}

TEST(SummaryTaskDateChanged2, KeepsAFirstChildInWeeksWhereItIsAndAllBehindIt) {
    Household plan;
    plan.Child("Walls", Wednesday, 1, "wks").Child("Roof", Thursday + 7);
    const Told walls{.key = 2, .start = Wednesday, .end = Wednesday + 7, .duration = 1, .unit = "wks"};
    EXPECT_EQ(plan.Move({.stDate = Friday}),
              walls.Moved() + Moved(3, Thursday + 7, Thursday + 7, 1) + Summed(1, Wednesday, Thursday + 7, 7));
}

TEST(SummaryTaskDateChanged2, MovesALaterChildInWeeksOrMonthsBehindTheOneBefore) {
    Household weeks;
    weeks.Child("Walls", Wednesday).Child("Print", Thursday, 1, "wks").Child("Roof", Friday + 7);
    const Told print{.key = 3, .start = Monday + 7, .end = Monday + 14, .duration = 1, .unit = "wks"};
    EXPECT_EQ(weeks.Move({.stDate = Friday}), Moved(2, Friday, Friday, 1) + print.Moved() +
                                                  Moved(4, Tuesday + 14, Tuesday + 14, 1) +
                                                  Summed(1, Friday, Tuesday + 14, 8));
    Household months;
    months.Child("Walls", Tuesday).Child("Lease", Thursday, 1, "mons");
    const Date end = Date::Of(2026, 4, 6);
    const Told lease{.key = 3, .start = Friday, .end = end, .duration = 1, .unit = "mons"};
    EXPECT_EQ(months.Move({.stDate = Wednesday}),
              Moved(2, Wednesday, Wednesday, 1) + lease.Moved() + Summed(1, Wednesday, end, 24));
}

TEST(SummaryTaskDateChanged2, KeepsCountingWeeksAsDaysWhereAGapIsSearched) {
    Household plan;
    plan.Child("Walls", Tuesday).Child("Print", Thursday, 2, "wks");
    const Told print{.key = 3, .start = Tuesday + 7, .end = Thursday + 7, .duration = 2, .unit = "wks"};
    EXPECT_EQ(plan.Move({.stDate = Friday}),
              Moved(2, Friday, Friday, 1) + print.Moved() + Summed(1, Friday, Thursday + 7, 5));
}

TEST(SummaryTaskDateChanged2, KeepsRoundingAFractionOfWeeksToDaysWhereAGapIsSearched) {
    Household plan;
    plan.Child("Walls", Tuesday).Child("Print", Thursday, 3.5, "wks");
    const Told print{.key = 3, .start = Tuesday + 7, .end = Saturday + 7, .duration = 3.5, .unit = "wks"};
    EXPECT_EQ(plan.Move({.stDate = Friday}),
              Moved(2, Friday, Friday, 1) + print.Moved() + Summed(1, Friday, Saturday + 7, 6));
}

TEST(SummaryTaskDateChanged2, GivesALaterChildItsLagBackAndKeepsTheFirstOnesAway) {
    Household plan;
    plan.Child("Walls", Wednesday, 1, "wks").Child("Print", Thursday + 7, 1, "wks");
    plan["Walls"].TaskLag(4);
    plan["Print"].TaskLag(4);
    plan.Move({.stDate = Friday});
    EXPECT_EQ(plan["Walls"].TaskLag(), 0);
    EXPECT_EQ(plan["Print"].TaskLag(), 4);
    EXPECT_EQ(DayName(plan["Print"].TaskBDate()), DayName(Thursday + 7)) << "and it was not applied";
}

// --- Children without dates ------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, LeavesAnUndatedFirstChildForNoShift) {
    Household plan;
    plan.Child("Undated", Date()).Child("Roof", Wednesday);
    EXPECT_EQ(plan.Move({.stDate = Wednesday}),
              Moved(2, Date(), Date(), 0) + Moved(3, Wednesday, Wednesday, 1) + Summed(1, Wednesday, Wednesday, 1));
}

TEST(SummaryTaskDateChanged2, ReckonsAnUndatedFirstChildFromDayZeroAndTellsThatItWasAdjusted) {
    Household plan;
    plan.Child("Undated", Date()).Child("Roof", Wednesday);
    plan["Undated"].TaskEDateValid(True);
    const Date first = Date::Of(2000, 1, 3);
    EXPECT_EQ(plan.Move({.stDate = Thursday}),
              Moved(2, first, first, 1) + Moved(3, Thursday, Thursday, 1) + Summed(1, first, Thursday, 6829));
    EXPECT_EQ(plan.platform.ui.messages.size(), 1U);
}

TEST(SummaryTaskDateChanged2, RecordsTheShiftOfAnUndatedChildOnAnExactDateAndGoesOn) {
    Household plan;
    plan.Child("Undated", Date()).Child("Roof", Wednesday);
    plan["Undated"].TaskEDateValid(True);
    EXPECT_EQ(plan.Move({.stDate = Thursday, .UsethisDate = Thursday}),
              Moved(3, Thursday, Thursday, 1) + Summed(1, Thursday, Thursday, 1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 6\n");
    EXPECT_EQ(Span(plan["Undated"]), "2026-03-05 2026-03-05 1") << "the date stands";
}

TEST(SummaryTaskDateChanged2, KeepsReckoningTheShiftOfAnUndatedChildFromDayZero) {
    Household plan;
    plan.Child("Walls", Wednesday).Child("Undated", Date()).Child("Roof", Monday + 7);
    EXPECT_EQ(plan.Move({.stDate = Wednesday, .p_diff = 1}),
              Moved(2, Thursday, Thursday, 1) + Moved(3, Date(), Date(), 0) + Moved(4, Friday, Friday, 1) +
                  Summed(1, Friday, Friday, 1))
        << "day 1 was a Sunday: the next child goes a day back instead of on";
}

TEST(SummaryTaskDateChanged2, StartsAnewBehindAChildWithoutAnEnd) {
    Household plan;
    plan.Child("Walls", Wednesday).Child("Roof", Thursday);
    plan.About("Walls").Holding(Wednesday, Date(), 1);
    EXPECT_EQ(plan.Move({.stDate = Friday}),
              Moved(2, Friday, Friday, 1) + Moved(3, Monday + 7, Monday + 7, 1) + Summed(1, Friday, Monday + 7, 2))
        << "by the shift, not by the gap";
}

TEST(SummaryTaskDateChanged2, GoesOnWithoutAGapThatNoIntegerHolds) {
    Household plan;
    plan.Child("Walls", Monday).Child("Roof", Wednesday);
    plan.col().AdjustSummary("1");
    plan.About("Walls").Holding(Monday, Date::Of(1900, 1, 2), 1);
    plan.Heard();
    SummaryMove move{.stDate = Friday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTimeNoLink 6\n");
    EXPECT_EQ(plan.Heard(), Moved(2, Friday, Friday, 1) + Moved(3, Friday, Friday, 1) + Summed(1, Friday, Friday, 1));
}

// --- Summaries within ------------------------------------------------------------------------------------------------

/// House  |..###==|#....  |
/// Shell  |..###  |.....  |
/// Walls  |..##.  |.....  |
/// Roof   |....#  |.....  |
/// Garden |.....  |#....  |
/// Hedge  |.....  |#....  |
TEST(SummaryTaskDateChanged2, MovesSummariesWithinIt) {
    for (const Date exact : {Date(), Friday}) {
        SCOPED_TRACE(DayName(exact));
        Household plan;
        plan.Task("Shell").Under("House").Task("Walls").Under("Shell").From(Wednesday).Lasting(2);
        plan.Task("Roof").Under("Shell").From(Friday);
        plan.Task("Garden").Under("House").Task("Hedge").Under("Garden").From(Monday + 7);
        plan.col().AdjustSummary("2");
        plan.col().AdjustSummary("5");
        EXPECT_EQ(plan.Move({.stDate = Friday, .UsethisDate = exact}),
                  Moved(3, Friday, Monday + 7, 2) + Moved(4, Tuesday + 7, Tuesday + 7, 1) +
                      Summed(2, Friday, Tuesday + 7, 3) + Summed(1, Friday, Tuesday + 7, 3) +
                      Moved(6, Wednesday + 7, Wednesday + 7, 1) + Summed(5, Wednesday + 7, Wednesday + 7, 1) +
                      Summed(1, Friday, Wednesday + 7, 4) + Summed(1, Friday, Wednesday + 7, 4));
    }
}

/// A summary behind a leaf moves by what that leaf's old end and new start leave, not to the day that was found for it.
TEST(SummaryTaskDateChanged2, KeepsMovingASummaryBehindALeafByTheDaysFromItsOldEndToItsNewStart) {
    struct Row {
        const char* what;
        Date roof;
        int roof_lasts;
        Date to;
        Date hedge;
        Date hedge_moved;
    };
    for (const Row& row : {
             Row{"later: less the free days next to a Friday", Thursday, 2, Wednesday + 7, Monday + 7, Friday + 7},
             Row{"later: all days behind a Monday", Friday, 2, Friday, Tuesday + 7, Wednesday + 7},
             Row{"later: to the day that was found where no days are left", Thursday, 3, Friday, Tuesday + 7,
                 Thursday + 7},
             Row{"later: to that day where the old end is the new start", Thursday, 2, Thursday, Monday + 7,
                 Tuesday + 7},
             Row{"earlier: less the free days in front of a Monday", Thursday, 3, Monday, Tuesday + 7, Friday},
             Row{"earlier: and the free days behind a Friday", Thursday, 2, Monday, Monday + 7, Wednesday},
             Row{"earlier: all days behind a Thursday", Thursday, 1, Monday, Monday + 7, Friday},
         }) {
        SCOPED_TRACE(row.what);
        Household plan;
        plan.Child("Walls", Wednesday).Child("Roof", row.roof, row.roof_lasts);
        plan.Task("Garden").Under("House").Task("Hedge").Under("Garden").From(row.hedge);
        plan.col().AdjustSummary("4");
        plan.Move({.stDate = row.to});
        EXPECT_EQ(DayName(plan["Hedge"].TaskBDate()), DayName(row.hedge_moved));
        EXPECT_EQ(DayName(plan["Garden"].TaskBDate()), DayName(row.hedge_moved));
    }
}

TEST(SummaryTaskDateChanged2, KeepsLettingATaskOutsideDecideTheShiftOfTheSummaryBehindALeaf) {
    for (const bool outside : {true, false}) {
        Household plan;
        plan.Child("Walls", Wednesday).Task("Garden").Under("House").Task("Hedge").Under("Garden").From(Thursday);
        if (outside) plan.Task("Tent").From(Tuesday + 7).After("Walls");
        plan.col().AdjustSummary("3");
        const String told = plan.Move({.stDate = Friday});
        EXPECT_EQ(told, outside ? Moved(2, Friday, Friday, 1) + Moved(5, Monday + 7, Monday + 7, 1) +
                                      Moved(4, Wednesday, Wednesday, 1) + Summed(3, Wednesday, Wednesday, 1) +
                                      Summed(1, Wednesday, Friday, 3) + Summed(1, Wednesday, Friday, 3)
                                : Moved(2, Friday, Friday, 1) + Moved(4, Monday + 7, Monday + 7, 1) +
                                      Summed(3, Monday + 7, Monday + 7, 1) + Summed(1, Friday, Monday + 7, 2) +
                                      Summed(1, Friday, Monday + 7, 2));
    }
}

}  // namespace
}  // namespace mrlxmlclass
