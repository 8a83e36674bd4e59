#include "mrlxmlclass/scheduling/Gaps.h"

#include <gtest/gtest.h>

#include "tests/support/CalendarSession.h"
#include "tests/support/NumberOf.h"
#include "tests/support/Printing.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(GapBetween, CountsTheWorkingDaysFromAnEndToAStart) {
    CalendarSession session;
    EXPECT_EQ(GapBetween(Tuesday, Monday), 1);
    EXPECT_EQ(GapBetween(NextMonday, Friday), 1);
    EXPECT_EQ(GapBetween(Friday, NextMonday), -1);
    EXPECT_EQ(GapBetween(Monday, Friday), -4);
    EXPECT_EQ(GapBetween(Monday, Monday), 0);
}

TEST(GapBetween, KeepsGiving1BetweenAFreeDayAndItself) {
    CalendarSession session;
    EXPECT_EQ(GapBetween(Saturday, Saturday), 1);
}

TEST(GapBetween, IsZeroWithoutAStart) {
    CalendarSession session;
    EXPECT_EQ(GapBetween(Date(), Monday), 0);
    EXPECT_EQ(GapBetween(Date(), Date()), 0);
}

TEST(GapBetween, CountsNoDaysWithoutAnEnd) {
    CalendarSession session;
    EXPECT_EQ(GapBetween(Monday, Date()), -1) << "day 0 was a Saturday";
    session.WithoutCalendar();
    EXPECT_EQ(GapBetween(Monday, Date()), 0);
}

TEST(GapBetween, HoldsAnyDistance) {
    CalendarSession session;
    session.WithoutCalendar();
    const Date first = Date::Of(100, 1, 1);
    const Date last = Date::Of(9999, 12, 31);
    EXPECT_EQ(GapBetween(last, first), 3'615'899);
    EXPECT_EQ(GapBetween(first, last), -3'615'899);
}

TEST(SeekGap, StepsForwardToTheGapWanted) {
    CalendarSession session;
    for (const auto& [from, wanted, found] :
         {std::tuple{Monday, 0, Monday}, std::tuple{Tuesday, 1, Tuesday}, std::tuple{Monday, 4, Friday},
          std::tuple{Tuesday, 5, NextMonday}, std::tuple{Friday - 7, 3, Thursday},
          std::tuple{Tuesday, 9, Friday + 7}}) {
        SCOPED_TRACE(DayName(from) + " to " + std::to_string(wanted));
        Date start = from;
        EXPECT_TRUE(SeekGap(start, Monday, wanted));
        EXPECT_EQ(start, found);
    }
}

TEST(SeekGap, StepsBackForANegativeGap) {
    CalendarSession session;
    for (const auto& [from, wanted, found] :
         {std::tuple{Friday, -1, Thursday}, std::tuple{Thursday, -4, Monday}, std::tuple{Thursday, -5, Friday - 7},
          std::tuple{NextMonday, -2, Wednesday}, std::tuple{Monday, -4, Monday}}) {
        SCOPED_TRACE(DayName(from) + " to " + std::to_string(wanted));
        Date start = from;
        EXPECT_TRUE(SeekGap(start, Friday, wanted));
        EXPECT_EQ(start, found);
    }
}

TEST(SeekGap, StopsAtTheFirstDayOfTheGap) {
    CalendarSession session;
    Date start = Friday;
    EXPECT_TRUE(SeekGap(start, Friday, 0));
    EXPECT_EQ(start, Friday);
    start = Saturday;
    EXPECT_TRUE(SeekGap(start, Friday, 0)) << "no working day between them";
    EXPECT_EQ(start, Saturday);
}

TEST(SeekGap, GivesUpWhereTheGapIsNeverMet) {
    CalendarSession session;
    session.WithoutAnyWorkingDay();
    Date start = Monday;
    EXPECT_FALSE(SeekGap(start, Monday, 2));
    EXPECT_EQ(start, Monday + 366'000);
    start = Monday;
    EXPECT_FALSE(SeekGap(start, Monday, -2));
    EXPECT_EQ(start, Monday - 366'000);
}

TEST(SeekGap, GivesUpAtOnceWithoutAReference) {
    CalendarSession session;
    session.WithoutCalendar();
    Date start = Monday;
    EXPECT_TRUE(SeekGap(start, Date(), 0));
    EXPECT_FALSE(SeekGap(start, Date(), 3));
    EXPECT_EQ(start, Monday);
    start = Date();
    EXPECT_TRUE(SeekGap(start, Monday, 0));
}

TEST(SeekGap, FailsWhereItLeavesTheCalendar) {
    CalendarSession session;
    session.WithoutAnyWorkingDay();
    Date start = Date::Of(9999, 12, 1);
    EXPECT_EQ(NumberOf([&] { SeekGap(start, Date::Of(9999, 11, 30), 5); }), 6);
    EXPECT_EQ(start, Date::Of(9999, 12, 31));
}

TEST(WithoutIdleDays, TakesDaysOffEitherDirection) {
    EXPECT_EQ(WithoutIdleDays(5, 2), 3);
    EXPECT_EQ(WithoutIdleDays(-5, 2), -3);
    EXPECT_EQ(WithoutIdleDays(0, 2), -2);
    EXPECT_EQ(WithoutIdleDays(2.5, 1.0), 1.5);
}

TEST(WithoutIdleDays, KeepsTakingDaysOffBeyondTheSign) {
    EXPECT_EQ(WithoutIdleDays(1, 2), -1);
    EXPECT_EQ(WithoutIdleDays(-1, 2), 1);
}

}  // namespace
}  // namespace mrlxmlclass
