#include <gtest/gtest.h>

#include "tests/scheduling/DateChange.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- GetLeadTimeNoLink -----------------------------------------------------------------------------------------------

struct Gap {
    const char* what;
    Date start;
    Date end;
    int days;
};

TEST(GetLeadTimeNoLink, CountsWorkingDaysFromTheEndToTheStart) {
    Plan plan;
    for (const Gap& gap : {
             Gap{"the next day", Tuesday, Monday, 1},
             Gap{"three days on", Thursday, Monday, 3},
             Gap{"the Monday behind a Friday", NextMonday, Friday, 1},
             Gap{"the Tuesday behind a Friday", NextMonday + 1, Friday, 2},
             Gap{"over two weekends", Monday + 15, Thursday, 8},
             Gap{"the same day", Monday, Monday, 0},
             Gap{"the day before", Monday, Tuesday, -1},
             Gap{"two days before", Wednesday, Friday, -2},
             Gap{"the Friday before a Monday", Friday, NextMonday, -1},
             Gap{"back over two weekends", Thursday, Monday + 14, -7},
         }) {
        SCOPED_TRACE(gap.what);
        EXPECT_EQ(plan.col().GetLeadTimeNoLink(gap.start, gap.end), gap.days);
    }
}

TEST(GetLeadTimeNoLink, CountsAFreeDayAtEitherSideAsNone) {
    Plan plan;
    for (const Gap& gap : {
             Gap{"to a Saturday", Saturday, Friday, 0},
             Gap{"to a Sunday", Sunday, Friday, 0},
             Gap{"from a Saturday to the Monday", NextMonday, Saturday, 0},
             Gap{"from a Sunday to the Monday", NextMonday, Sunday, 0},
             Gap{"from a Sunday to the Tuesday", NextMonday + 1, Sunday, 1},
             Gap{"from a Saturday to the Sunday", Sunday, Saturday, -1},
             Gap{"back to a Sunday", Sunday, NextMonday, 0},
             Gap{"back to a Saturday", Saturday, NextMonday, 0},
             Gap{"back from a Sunday", Friday, Sunday, 0},
         }) {
        SCOPED_TRACE(gap.what);
        EXPECT_EQ(plan.col().GetLeadTimeNoLink(gap.start, gap.end), gap.days);
    }
}

TEST(GetLeadTimeNoLink, KeepsGiving1BetweenAFreeDayAndItself) {
    Plan plan;
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Saturday, Saturday), 1);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Saturday, Sunday), 1) << "two days back, both of them and one more free";
}

TEST(GetLeadTimeNoLink, KnowsHolidaysAndExceptionDays) {
    Plan plan;
    plan.calendar().SetADayAsHoliday(Wednesday);
    plan.calendar().SetADayAsExceptionDay(Saturday);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Thursday, Monday), 2);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Monday, Thursday), -2);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(NextMonday, Friday), 2);
}

TEST(GetLeadTimeNoLink, CountsEveryDayWithoutACalendar) {
    Plan plan;
    Module().g_PublicCalendar = {};
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(NextMonday, Friday), 3);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Saturday, Saturday), 0);
}

TEST(GetLeadTimeNoLink, IsZeroWithoutAStart) {
    Plan plan;
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Date(), Friday), 0);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Date(), Date()), 0);
}

TEST(GetLeadTimeNoLink, KeepsCountingDayZeroWhereThereIsNoEnd) {
    Plan plan;
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Friday, Date()), -1) << "day 0 was a Saturday";
    plan.WithoutWeekends();
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Friday, Date()), 0);
}

TEST(GetLeadTimeNoLink, RecordsADistanceThatNoIntegerHolds) {
    Plan plan;
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Monday, Date::Of(1900, 1, 2)), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTimeNoLink 6\n");
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Monday, Date::Of(9999, 12, 31)), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTimeNoLink 6\n");
    plan.WithoutWeekends();
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Monday + 32767, Monday), 32767);
    EXPECT_EQ(plan.col().GetLeadTimeNoLink(Monday, Monday + 32767), -32767);
}

TEST(GetLeadTimeNoLink, RecordsDatesFarOutsideTheCalendarAtOnce) {
    const TimeLimit limit("a gap between dates that no calendar has");
    for (const double far : {-2e9, -3e9, 2e9, -1e300, 1e300}) {
        SCOPED_TRACE(far);
        Plan plan;
        plan.Task("Design").From(Monday);
        EXPECT_EQ(plan.col().GetLeadTimeNoLink(Date(far), Monday), 0);
        EXPECT_EQ(plan.col().GetLeadTimeNoLink(Monday, Date(far)), 0);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTimeNoLink 6\nTasksCol/GetLeadTimeNoLink 6\n");
        EXPECT_EQ(plan.col().CalcLeadTimeNoLink("1", Date(far)), 0);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTimeNoLink 6\n");
    }
}

// --- CalcLeadTimeNoLink ----------------------------------------------------------------------------------------------

TEST(CalcLeadTimeNoLink, MeasuresFromAnEndToATasksStart) {
    for (const bool links : {true, false}) {
        Plan plan;
        if (links) plan.WithLinks();
        plan.Task("Build").From(NextMonday);
        EXPECT_EQ(plan.col().CalcLeadTimeNoLink("1", Friday), 1);
        EXPECT_EQ(plan.col().CalcLeadTimeNoLink("1", NextMonday + 2), -2);
    }
}

TEST(CalcLeadTimeNoLink, IsZeroForAnUnknownAndForAnUndatedTask) {
    Plan plan;
    plan.Task("Undated");
    EXPECT_EQ(plan.col().CalcLeadTimeNoLink("1", Friday), 0);
    for (const char* key : {"77", "", "0"}) EXPECT_EQ(plan.col().CalcLeadTimeNoLink(key, Friday), 0);
}

// --- GetDateNoLink ---------------------------------------------------------------------------------------------------

TEST(GetDateNoLink, CountsPlainDaysFromTheOtherDate) {
    Plan plan;
    for (const int lead : {3, 1, 0, -1, -7}) {
        Date date = Saturday;
        EXPECT_EQ(plan.col().GetDateNoLink(date, Friday, lead), True);
        EXPECT_EQ(date, Friday + lead);
    }
    Date date = Saturday;
    EXPECT_EQ(plan.col().GetDateNoLink(date, Friday + 0.5, 0), True);
    EXPECT_EQ(date, Friday + 0.5) << "exactly that date";
}

TEST(GetDateNoLink, RecordsADateBeyondTheLastOne) {
    Plan plan;
    Date date = Friday;
    EXPECT_EQ(plan.col().GetDateNoLink(date, Date::Of(9999, 12, 31), 1), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetDateNoLink 6\n");
    EXPECT_EQ(date, Friday);
}

// --- AdjustDateNoLink ------------------------------------------------------------------------------------------------

class Neighbours : public Plan {
public:
    Neighbours() { WithLinks().Task("Walls").From(Monday).Lasting(3).Task("Roof").From(Friday).Lasting(2); }
    Boolean Place(Integer lead) { return col().AdjustDateNoLink("2", "1", lead); }
};

TEST(AdjustDateNoLink, PutsATaskPlainDaysBehindAnEndAndOnAWorkingDay) {
    struct Row {
        int lead;
        const char* span;
    };
    for (const Row& row :
         {Row{1, "2026-03-05 2026-03-06 2"}, Row{0, "2026-03-04 2026-03-05 2"}, Row{-2, "2026-03-02 2026-03-03 2"},
          Row{3, "2026-03-09 2026-03-10 2"}, Row{-4, "2026-03-02 2026-03-03 2"}}) {
        SCOPED_TRACE(row.lead);
        Neighbours plan;
        EXPECT_EQ(plan.Place(row.lead), True);
        EXPECT_EQ(Span(plan["Roof"]), row.span);
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(AdjustDateNoLink, KeepsTheLagOfTheTaskInForce) {
    Neighbours plan;
    plan["Roof"].TaskLag(2);
    EXPECT_EQ(plan.Place(1), True);
    EXPECT_EQ(Span(plan["Roof"]), "2026-03-09 2026-03-10 2");
    EXPECT_EQ(plan["Roof"].TaskLag(), 2);
}

TEST(AdjustDateNoLink, LeavesATaskWithoutAStart) {
    Neighbours plan;
    plan.About("Roof").Holding(Date(), Friday, 2);
    EXPECT_EQ(plan.Place(1), True);
    EXPECT_EQ(Span(plan["Roof"]), "- 2026-03-06 2");
}

TEST(AdjustDateNoLink, ClearsATaskBehindOneWithoutAnEnd) {
    Neighbours plan;
    plan.About("Walls").Holding(Monday, Date(), 3);
    EXPECT_EQ(plan.Place(1), True);
    EXPECT_EQ(Span(plan["Roof"]), "- - 0");
}

TEST(AdjustDateNoLink, RecordsTasksThatAreNotThere) {
    Neighbours plan;
    EXPECT_EQ(plan.col().AdjustDateNoLink("77", "1", 1), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustDateNoLink 91\n");
    EXPECT_EQ(plan.col().AdjustDateNoLink("2", "77", 1), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustDateNoLink 91\n");
    EXPECT_EQ(Span(plan["Roof"]), "2026-03-06 2026-03-09 2");
}

// --- AdjustDateForSummary --------------------------------------------------------------------------------------------

/// A summary's start and a shift, before and after the predecessor went from one date to another.
struct Summary {
    const char* what;
    Date start;
    Date from;
    Date to;
    int shift;
    Date moved;
    int left;
};

TEST(AdjustDateForSummary, KeepsTheDistanceInWorkingDaysAndTakesTheFreeDaysOffTheShift) {
    for (const Summary& row : {
             Summary{"within the week", Wednesday, Monday, Tuesday, 1, Thursday, 1},
             Summary{"over the weekend", Thursday, Wednesday, Friday, 2, NextMonday, 0},
             Summary{"over the weekend, shift and all", Thursday, Wednesday, Friday, 4, NextMonday, 2},
             Summary{"far ahead", Thursday, Wednesday, Wednesday + 14, 14, Thursday + 14, 10},
             Summary{"back over the weekend", NextMonday, Friday, Wednesday, -2, Thursday, 0},
             Summary{"back, shift and all", NextMonday, Friday, Wednesday, -4, Thursday, -2},
             Summary{"on the predecessor's day", Monday, Monday, Saturday, 5, NextMonday, 3},
             Summary{"in front of it", Tuesday, Wednesday, NextMonday, 5, Friday, 5},
             Summary{"in front, from behind the weekend", Friday, NextMonday, Monday, -7, Friday - 7, -5},
             Summary{"nowhere", Thursday, Wednesday, Wednesday, 0, Thursday, 0},
             Summary{"without a start", Date(), Monday, Friday, 0, Friday, -13168},
         }) {
        SCOPED_TRACE(row.what);
        Plan plan;
        Date start = row.start;
        Variant shift = row.shift;
        EXPECT_TRUE(plan.col().AdjustDateForSummary(start, row.to, row.from, shift).is_empty());
        EXPECT_EQ(DayName(start), DayName(row.moved));
        EXPECT_EQ(shift, Variant(row.left));
    }
}

TEST(AdjustDateForSummary, KeepsTakingFreeDaysOffAShiftBeyondItsSign) {
    Plan plan;
    Date start = Thursday;
    Variant shift = 1;
    plan.col().AdjustDateForSummary(start, Friday, Wednesday, shift);
    EXPECT_EQ(shift, Variant(-1));
    start = NextMonday;
    shift = -1;
    plan.col().AdjustDateForSummary(start, Wednesday, Friday, shift);
    EXPECT_EQ(shift, Variant(1));
}

TEST(AdjustDateForSummary, TakesFreeDaysOffAnyKindOfNumber) {
    Plan plan;
    for (const auto& [given, left] : {std::pair{Variant(4.5), Variant(2.5)}, std::pair{Variant(), Variant(-2)}}) {
        Date start = Thursday;
        Variant shift = given;
        plan.col().AdjustDateForSummary(start, Friday, Wednesday, shift);
        EXPECT_EQ(shift, left);
    }
}

TEST(AdjustDateForSummary, StepsOverHolidays) {
    Plan plan;
    plan.calendar().SetADayAsHoliday(NextMonday);
    Date start = Thursday;
    Variant shift = 2;
    plan.col().AdjustDateForSummary(start, Friday, Wednesday, shift);
    EXPECT_EQ(DayName(start), DayName(NextMonday + 1));
    EXPECT_EQ(shift, Variant(-1));
}

TEST(AdjustDateForSummary, EndsInAFailureWhereTheDistanceIsNeverMet) {
    const TimeLimit limit("a distance that is never met");
    struct Row {
        const char* what;
        Date start;
        Date from;
    };
    for (const Row& row : {Row{"searched forward", Monday, Wednesday}, Row{"searched backward", Wednesday, Monday}}) {
        SCOPED_TRACE(row.what);
        Plan plan;
        for (int weekday = 2; weekday <= 6; ++weekday) plan.calendar().SetAsNonWorkingDay(Long(weekday));
        Date start = row.start;
        Variant shift = 4;
        EXPECT_TRUE(plan.col().AdjustDateForSummary(start, Friday, row.from, shift).is_empty());
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustDateForSummary 28\n");
        EXPECT_EQ(shift, Variant(4)) << "the shift waits for the distance";
        EXPECT_GT(std::abs(start.days() - Friday.days()), 1000) << "what was searched stands";
        EXPECT_LE(std::abs(start.days() - Friday.days()), 366'010);
    }
}

TEST(AdjustDateForSummary, GoesOnWithoutADistanceThatNoIntegerHolds) {
    Plan plan;
    Date start = Monday;
    Variant shift = 4;
    EXPECT_TRUE(plan.col().AdjustDateForSummary(start, Friday, Date::Of(1900, 1, 2), shift).is_empty());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTimeNoLink 6\n");
    EXPECT_EQ(DayName(start), DayName(Friday));
    EXPECT_EQ(shift, Variant(4));
}

}  // namespace
}  // namespace mrlxmlclass
