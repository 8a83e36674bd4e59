#include "mrlxmlclass/runtime/Date.h"

#include <gtest/gtest.h>

#include <cmath>

#include <limits>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

constexpr double kNoon = 0.5;

const Date kFirst = Date::Of(100, 1, 1);
const Date kLast = Date::Of(9999, 12, 31);

void ExpectParts(Date date, int year, int month, int day) {
    SCOPED_TRACE(date.days());
    EXPECT_EQ(date.year(), year);
    EXPECT_EQ(date.month(), month);
    EXPECT_EQ(date.day_of_month(), day);
}

TEST(Date, CountsFromTheLastDaysOf1899) {
    EXPECT_EQ(Date::Of(1899, 12, 30).days(), 0);
    EXPECT_EQ(Date::Of(1900, 1, 1).days(), 2);
    EXPECT_EQ(Date::Of(2000, 1, 1).days(), 36526);
    EXPECT_EQ(kFirst.days(), -657434);
    EXPECT_EQ(kLast.days(), 2958465);
}

TEST(Date, IsNotSetAtZero) {
    EXPECT_FALSE(Date().set());
    EXPECT_FALSE(Date::Of(1899, 12, 30).set());
    EXPECT_TRUE(Date(0.25).set());
    EXPECT_TRUE(Date(-1).set());
}

TEST(Date, TakesOnlyDaysThatTheCalendarHas) {
    EXPECT_EQ(Date::Of(2024, 2, 29).days() + 1, Date::Of(2024, 3, 1).days());
    EXPECT_EQ(Date::Of(2000, 2, 29).days() + 1, Date::Of(2000, 3, 1).days());
    struct Row {
        int year, month, day;
    };
    for (const Row& row :
         {Row{2023, 2, 29}, Row{1900, 2, 29}, Row{2024, 4, 31}, Row{2024, 13, 1}, Row{2024, 0, 1}, Row{2024, 1, 0},
          Row{2024, 1, 32}, Row{2024, -1, 1}, Row{2024, 1, -1}, Row{99, 12, 31}, Row{10000, 1, 1}, Row{-2024, 1, 1},
          Row{65536 + 2024, 1, 1}, Row{2024, 257, 1}, Row{2024, 1, 257}, Row{2024, 1, 256 + 31}, Row{2024, -255, 1}}) {
        SCOPED_TRACE(testing::Message() << row.year << "-" << row.month << "-" << row.day);
        EXPECT_EQ(NumberOf([&] { Date::Of(row.year, row.month, row.day); }), failure::kTypeMismatch);
    }
}

TEST(Date, TellsItsParts) {
    ExpectParts(Date::Of(2024, 2, 29) + 0.999, 2024, 2, 29);
    ExpectParts(Date(0), 1899, 12, 30);
    ExpectParts(Date(-1), 1899, 12, 29);
    ExpectParts(kFirst, 100, 1, 1);
    ExpectParts(kLast + 0.999, 9999, 12, 31);
}

TEST(Date, CutsTheTimeDownwardsOnBothSidesOfZero) {
    EXPECT_EQ(Date(10.75).day(), Date(10));
    EXPECT_EQ(Date(-10.25).day(), Date(-11));
    ExpectParts(Date(-0.25), 1899, 12, 29);
}

TEST(Date, KeepsWhatIsWholeHoweverFarAway) {
    for (const double size : {0.0, 1.0, 46083.0, 2958465.0, 0x1p51, 0x1p52 + 1, 0x1p53, 1e300}) {
        for (const double days : {size, -size}) EXPECT_EQ(Date(days).day(), Date(days)) << days;
    }
    EXPECT_EQ(Date(0x1p50 + 0.5).day(), Date(0x1p50));
    EXPECT_EQ(Date(-0x1p50 - 0.5).day(), Date(-0x1p50 - 1));
    EXPECT_EQ(Date(2958465.999).day(), Date(2958465));
    EXPECT_TRUE(std::isinf(Date(HUGE_VAL).day().days()));
    EXPECT_TRUE(std::isnan(Date(std::nan("")).day().days()));
}

TEST(Date, CountsWeekdaysFromSunday) {
    EXPECT_EQ(Date::Of(2024, 9, 1).weekday(), 1);
    EXPECT_EQ(Date::Of(2024, 9, 7).weekday(), 7);
    EXPECT_EQ((Date::Of(2024, 9, 7) + 0.999).weekday(), 7);
    EXPECT_EQ(Date(0).weekday(), 7);
    EXPECT_EQ(kFirst.weekday(), 6);
    EXPECT_EQ(kLast.weekday(), 6);
}

TEST(Date, GoesThroughTheWeekAcrossZero) {
    for (int day = -20; day < 20; ++day) EXPECT_EQ(Date(day + 1).weekday(), Date(day).weekday() % 7 + 1) << day;
    EXPECT_EQ(Date(-0.25).weekday(), Date(-1).weekday());
}

TEST(Date, FailsWhenAMomentOutsideTheCalendarIsAskedForItsParts) {
    for (const double days : {-657435.0, 2958466.0, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
        SCOPED_TRACE(days);
        EXPECT_EQ(NumberOf([&] { Date(days).year(); }), failure::kOverflow);
        EXPECT_EQ(NumberOf([&] { Date(days).month(); }), failure::kOverflow);
        EXPECT_EQ(NumberOf([&] { Date(days).day_of_month(); }), failure::kOverflow);
        EXPECT_EQ(NumberOf([&] { Date(days).weekday(); }), failure::kOverflow);
    }
}

TEST(Date, FailsWhenArithmeticLeavesTheCalendar) {
    EXPECT_EQ((kLast - 1) + 1, kLast);
    EXPECT_EQ((kFirst + 1) - 1, kFirst);
    EXPECT_EQ(NumberOf([] { kLast + 1; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { kFirst - 0.25; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Date() + std::numeric_limits<double>::quiet_NaN(); }), failure::kOverflow);
    Date date = kLast;
    EXPECT_EQ(NumberOf([&] { date += 1; }), failure::kOverflow);
    EXPECT_EQ(date, kLast);
    EXPECT_EQ(date += -1, Date::Of(9999, 12, 30));
}

TEST(DaysBetween, LeavesTheTimesOut) {
    EXPECT_EQ(DaysBetween(Date(10.9), Date(11.1)), 1);
    EXPECT_EQ(DaysBetween(Date(11.1), Date(10.9)), -1);
    EXPECT_EQ(DaysBetween(Date(10.1), Date(10.9)), 0);
    EXPECT_EQ(DaysBetween(Date(-1.5), Date(1.5)), 3);
    EXPECT_EQ(DaysBetween(kFirst, kLast), 3615899);
    EXPECT_EQ(NumberOf([] { DaysBetween(Date(-1e10), Date(1e10)); }), failure::kOverflow);
}

TEST(DateAdd, StepsWholeDaysAndWeeks) {
    const Date monday = Date::Of(2024, 9, 2);
    EXPECT_EQ(DateAdd(Interval::Days, 3, monday), monday + 3);
    EXPECT_EQ(DateAdd(Interval::Days, -3, monday + kNoon), monday - 3 + kNoon);
    EXPECT_EQ(DateAdd(Interval::Weeks, 2, monday), monday + 14);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Days, 1, kLast); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Weeks, -1, kFirst + 6); }), failure::kOverflow);
}

TEST(DateAdd, RoundsAFractionalCountHalfToEven) {
    const Date day = Date::Of(2024, 9, 2);
    EXPECT_EQ(DateAdd(Interval::Days, 2.5, day), day + 2);
    EXPECT_EQ(DateAdd(Interval::Days, 3.5, day), day + 4);
    EXPECT_EQ(DateAdd(Interval::Weeks, 0.5, day), day);
    EXPECT_EQ(DateAdd(Interval::Weeks, 1.5, day), day + 14);
    EXPECT_EQ(DateAdd(Interval::Months, 2.5, day), Date::Of(2024, 11, 2));
}

TEST(DateAdd, ClipsAMonthToItsEnd) {
    struct Row {
        Date from;
        int count;
        Date to;
    };
    for (const Row& row :
         {Row{Date::Of(2023, 1, 31), 1, Date::Of(2023, 2, 28)}, Row{Date::Of(2024, 1, 31), 1, Date::Of(2024, 2, 29)},
          Row{Date::Of(2024, 1, 31), 2, Date::Of(2024, 3, 31)}, Row{Date::Of(2024, 3, 31), -1, Date::Of(2024, 2, 29)},
          Row{Date::Of(2024, 1, 15), -1, Date::Of(2023, 12, 15)}, Row{Date::Of(2024, 12, 31), 1, Date::Of(2025, 1, 31)},
          Row{Date::Of(2024, 2, 29), 12, Date::Of(2025, 2, 28)},
          Row{Date::Of(2024, 2, 29), -2400 + 12 * 8, Date::Of(1832, 2, 29)},
          Row{Date::Of(1900, 1, 31), -13, Date::Of(1898, 12, 31)}}) {
        SCOPED_TRACE(testing::Message() << row.from.days() << " + " << row.count);
        EXPECT_EQ(DateAdd(Interval::Months, row.count, row.from), row.to);
    }
}

TEST(DateAdd, KeepsTheTimeOverMonths) {
    EXPECT_EQ(DateAdd(Interval::Months, 1, Date::Of(2024, 1, 31) + kNoon), Date::Of(2024, 2, 29) + kNoon);
    EXPECT_EQ(DateAdd(Interval::Months, -1, Date::Of(1900, 1, 20) + 0.25), Date::Of(1899, 12, 20) + 0.25);
}

TEST(DateAdd, KeepsMonthsInsideTheCalendar) {
    EXPECT_EQ(DateAdd(Interval::Months, 12 * 9900 - 1, kFirst), Date::Of(9999, 12, 1));
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Months, 12 * 9900, kFirst); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Months, -1, kFirst + 30); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Months, 1, kLast); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Months, 3e9, Date()); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Months, -2147483648.0, Date()); }), failure::kOverflow);
}

TEST(DateAdd, AddsHoursAndMinutesInWholeSeconds) {
    const Date day = Date::Of(2024, 9, 2);
    Date date = day;
    for (int hour = 0; hour < 24; ++hour) date = DateAdd(Interval::Hours, 1, date);
    EXPECT_EQ(date, day + 1);
    for (int minute = 0; minute < 24 * 60; ++minute) date = DateAdd(Interval::Minutes, -1, date);
    EXPECT_EQ(date, day);
    EXPECT_EQ(DateAdd(Interval::Hours, 24, day + 1.0 / 3), day + 4.0 / 3);
    EXPECT_EQ(DateAdd(Interval::Hours, 0.5, day), DateAdd(Interval::Minutes, 30, day));
    EXPECT_EQ(DateAdd(Interval::Hours, -12, Date()), Date(-0.5));
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Hours, 24, kLast); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DateAdd(Interval::Minutes, 1e308, kLast); }), failure::kOverflow);
}

TEST(DateAdd, RefusesAnIntervalThatIsNone) {
    EXPECT_EQ(NumberOf([] { DateAdd(static_cast<Interval>(99), 1, kFirst); }), failure::kUnknownKey);
}

TEST(WithYear, KeepsDayMonthAndTime) {
    EXPECT_EQ(WithYear(Date::Of(2024, 9, 2) + kNoon, 2031), Date::Of(2031, 9, 2) + kNoon);
    EXPECT_EQ(WithYear(Date::Of(2024, 9, 2) + 0.25, 1800), Date::Of(1800, 9, 2) + 0.25);
    EXPECT_EQ(WithYear(Date::Of(2024, 2, 29), 2028), Date::Of(2028, 2, 29));
}

TEST(WithYear, FailsOn29FebruaryWhereTheYearHasNone) {
    EXPECT_EQ(NumberOf([] { WithYear(Date::Of(2024, 2, 29), 2025); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { WithYear(Date::Of(2024, 3, 1), 99); }), failure::kTypeMismatch);
}

}  // namespace
}  // namespace mrlxmlclass
