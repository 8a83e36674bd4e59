#include <gtest/gtest.h>

#include <random>

#include "tests/scheduling/DatedRow.h"
#include "tests/support/PlainCalendar.h"

namespace mrlxmlclass {
namespace {

using namespace testing;
using Row = DatedRow;

// --- The three conversions -------------------------------------------------------------------------------------------

TEST(SetDateWithoutWeekend, CountsTheStartDayWhateverItIs) {
    struct Case {
        Date start;
        double duration;
        Date end;
    };
    for (const Case& c : {Case{Thursday, 3, Monday + 7}, Case{Friday, 3, Tuesday + 7}, Case{Monday, 5, Friday},
                          Case{Monday, 6, Monday + 7}, Case{Saturday, 2, Monday + 7}, Case{Saturday, 1, Saturday},
                          Case{Monday, 2.5, Wednesday}, Case{Thursday, 1.5, Friday}, Case{Friday, 1.5, Monday + 7},
                          Case{Friday, 0.5, Saturday}, Case{Monday, 0, Tuesday}, Case{Monday, -4, Tuesday}}) {
        SCOPED_TRACE(DayName(c.start) + " " + std::to_string(c.duration));
        Row row;
        EXPECT_EQ(row.task.SetDateWithoutWeekend(c.start, c.duration), c.end);
    }
}

TEST(SetDateWithoutWeekend, StartsTodayWithoutADate) {
    Row row;
    row.clock.now = Thursday + kTenOClock;
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Date(), 3), Monday + 7);
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Date(), 1), Thursday);
    row.Holding(Monday, Monday, 2, "wks");
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Date(), 1), Thursday + 14);
}

TEST(SetDateWithoutWeekend, TakesTheTasksOwnDurationForWeeksAndMonths) {
    struct Case {
        const char* unit;
        double duration;
        Date start;
        Date end;
    };
    const Date last_of_january = Date::Of(2026, 1, 31);
    for (const Case& c : {Case{"wks", 2, Monday, Monday + 14}, Case{"wks", 2.5, Monday, Monday + 14},
                          Case{"wks", 3.5, Monday, Monday + 28}, Case{"wks", 0, Monday, Monday},
                          Case{"mons", 1, last_of_january, Date::Of(2026, 2, 28)},
                          Case{"mons", 25, last_of_january, Date::Of(2028, 2, 29)},
                          Case{"mons", 12, Date::Of(2028, 2, 29), Date::Of(2029, 2, 28)}}) {
        SCOPED_TRACE(c.unit);
        Row row;
        row.Holding(Monday, Monday, c.duration, c.unit);
        Double given = 7;
        EXPECT_EQ(row.task.SetDateWithoutWeekend(c.start, given), c.end);
        EXPECT_EQ(given, 7);
    }
}

TEST(SetDateWithoutWeekend, StaysInTheDayForHoursAndMinutes) {
    for (const char* unit : {"hrs", "mins"}) {
        Row row;
        row.task.TaskDurationUnit(unit);
        for (const double duration : {1.5, 2.0, 8.0, 1000.0, 1e9, 1e300}) {
            EXPECT_EQ(row.task.SetDateWithoutWeekend(Tuesday, duration), Tuesday) << unit << duration;
            EXPECT_EQ(row.task.SetDateWithoutWeekend(Tuesday + kTenOClock, duration), Tuesday) << unit << duration;
        }
        EXPECT_EQ(row.task.SetDateWithoutWeekend(Tuesday + kTenOClock, 1), Tuesday + kTenOClock);
    }
}

TEST(SetDateWithoutWeekend, FailsAtOnceForHoursOnAFreeDay) {
    Row row;
    row.task.TaskDurationUnit("hrs");
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Saturday, 3), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDateWithoutWeekend 6\n");
}

TEST(SetDateWithoutWeekend, StridesWhereEveryDayIsWorked) {
    struct Case {
        const char* unit;
        double duration;
        Date end;
    };
    const Date last = Date::Of(9999, 1, 1);
    for (const Case& c : {Case{"days", 3, Saturday + 1}, Case{"days", 2.5, Saturday + 1}, Case{"days", 0.5, Saturday},
                          Case{"days", 1.5, Saturday}, Case{"days", 1e9, last}, Case{"hrs", 5, Friday + 4.0 / 24},
                          Case{"hrs", 25, Saturday}, Case{"mins", 61, Friday + 1.0 / 24}, Case{"mins", 1e12, last},
                          Case{"hrs", 1e300, last}}) {
        SCOPED_TRACE(String(c.unit) + " " + std::to_string(c.duration));
        Row row;
        row.WithoutCalendar();
        row.task.TaskDurationUnit(c.unit);
        EXPECT_EQ(row.task.SetDateWithoutWeekend(Friday, c.duration), c.end);
    }
}

TEST(SetDateWithoutWeekend, EndsOnTheFirstDayOf9999) {
    Row row;
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Date::Of(9990, 1, 4), 1e9), Date::Of(9999, 1, 1));
    row.calendar->SetAsNonWorkingDay(6);  // the weekday of that day
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Date::Of(9990, 1, 4), 1e9), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDateWithoutWeekend 6\n");
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Date::Of(9999, 12, 31), 2), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDateWithoutWeekend 6\n");
}

TEST(SetDateWithoutWeekend, ComesBackFromACalendarWithoutAnyWorkingDay) {
    Row row;
    row.WithoutAnyWorkingDay();
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Monday, 3), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDateWithoutWeekend 28\n");
}

TEST(SetStartDateWithoutWeekend, KeepsAFirstStepThatMayLandOnAFreeDay) {
    struct Case {
        Date end;
        double duration;
        Date start;
    };
    for (const Case& c : {Case{Monday + 7, 3, Friday}, Case{Monday + 7, 2, Sunday}, Case{Monday + 7, 4, Thursday},
                          Case{Friday, 5, Monday}, Case{Saturday, 1, Monday + 7}, Case{Wednesday, 1, Wednesday},
                          Case{Saturday, 0, Monday + 7}, Case{Wednesday, -3, Wednesday}, Case{Wednesday, 1.5, Tuesday},
                          Case{Wednesday, 2.5, Monday}}) {
        SCOPED_TRACE(DayName(c.end) + " " + std::to_string(c.duration));
        Row row;
        EXPECT_EQ(row.task.SetStartDateWithoutWeekend(c.end, c.duration), c.start);
    }
}

TEST(SetStartDateWithoutWeekend, IsNotTheInverseOfTheWayForward) {
    Row row;
    const Date start = row.task.SetStartDateWithoutWeekend(Monday + 7, 3);
    EXPECT_EQ(start, Friday);
    EXPECT_EQ(row.task.SetDateWithoutWeekend(start, 3), Tuesday + 7);
}

TEST(SetStartDateWithoutWeekend, GoesBackPlainlyInWeeksAndMonths) {
    Row row;
    row.Holding(Monday, Monday, 2, "wks");
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Sunday, 9), Sunday - 14);
    row.Holding(Monday, Monday, 1, "mons");
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Date::Of(2026, 3, 31), 9), Date::Of(2026, 2, 28));
}

TEST(SetStartDateWithoutWeekend, FindsTheNextWorkingDayFromTodayWithoutADate) {
    Row row;
    row.clock.now = Sunday + kTenOClock;
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Date(), 4), Monday + 7);
}

TEST(SetStartDateWithoutWeekend, GoesBackADayAtEachHour) {
    Row row;
    row.task.TaskDurationUnit("hrs");
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Wednesday, 2), Tuesday + 23.0 / 24);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Wednesday, 3), Tuesday);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Wednesday, 4), Monday);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Wednesday, 5), Friday - 7);
}

TEST(SetStartDateWithoutWeekend, StridesWhereEveryDayIsWorked) {
    Row row;
    row.WithoutCalendar();
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Monday, 3), Monday - 2);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Monday, 2.5), Monday - 2);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Monday, 2), Monday - 1);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Monday, 1.5), Monday - 1);
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Saturday, 1), Saturday);
    row.task.TaskDurationUnit("hrs");
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Tuesday, 5), Monday + 20.0 / 24);
    row.task.TaskDurationUnit("mins");
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Tuesday, 1e12), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetStartDateWithoutWeekend 6\n");
}

TEST(SetStartDateWithoutWeekend, ComesBackFromTheEndsOfTheCalendar) {
    Row row;
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Date::Of(101, 1, 1), 1e9), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetStartDateWithoutWeekend 6\n");
    row.WithoutAnyWorkingDay();
    EXPECT_EQ(row.task.SetStartDateWithoutWeekend(Monday, 3), Date());
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetStartDateWithoutWeekend 28\n");
}

TEST(SetDurationWithoutWeekend, CountsTheStartDayWhateverItIs) {
    struct Case {
        Date start;
        Date end;
        int duration;
    };
    for (const Case& c : {Case{Thursday, Monday + 7, 3}, Case{Thursday, Sunday, 2}, Case{Monday, Friday, 5},
                          Case{Saturday, Monday + 7, 2}, Case{Saturday, Sunday, 1}, Case{Monday, Monday, 1},
                          Case{Monday, Monday + kTenOClock, 1}, Case{Monday + kTenOClock, Monday, 1},
                          Case{Wednesday, Monday, 2}, Case{Friday, Monday, 1}, Case{Date(), Friday, 0}}) {
        SCOPED_TRACE(DayName(c.start) + " to " + DayName(c.end));
        Row row;
        EXPECT_EQ(row.task.SetDurationWithoutWeekend(c.start, c.end), c.duration);
    }
}

TEST(SetDurationWithoutWeekend, GivesTheTasksOwnForWeeksAndMonths) {
    for (const char* unit : {"wks", "mons"}) {
        Row row;
        row.Holding(Monday, Monday, 2.5, unit);
        EXPECT_EQ(row.task.SetDurationWithoutWeekend(Date(), Friday), 2);
        row.Holding(Monday, Monday, 3.5, unit);
        EXPECT_EQ(row.task.SetDurationWithoutWeekend(Monday, Monday), 4);
        row.Holding(Monday, Monday, 1e10, unit);
        EXPECT_EQ(row.task.SetDurationWithoutWeekend(Monday, Friday), 0);
        EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDurationWithoutWeekend 6\n");
    }
}

TEST(SetDurationWithoutWeekend, FailsAtOnceForHoursAndMinutesAcrossDays) {
    for (const char* unit : {"hrs", "mins"}) {
        Row row;
        row.task.TaskDurationUnit(unit);
        for (const Date start : {Monday, Monday + kTenOClock, Saturday}) {
            EXPECT_EQ(row.task.SetDurationWithoutWeekend(start, start + 2), 0);
            EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDurationWithoutWeekend 6\n");
        }
        EXPECT_EQ(row.task.SetDurationWithoutWeekend(Monday, Monday + kTenOClock), 1);
    }
}

TEST(SetDurationWithoutWeekend, CountsHoursAndMinutesWhereEveryDayIsWorked) {
    Row row;
    row.WithoutCalendar();
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Friday, Monday + 7), 4);
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Friday, Monday), 2);
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Friday + kTenOClock, Sunday), 3);
    row.task.TaskDurationUnit("hrs");
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Monday, Tuesday), 25);
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Monday + kTenOClock, Tuesday), 15);
    row.task.TaskDurationUnit("mins");
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Monday, Tuesday), 1441);
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Date::Of(2000, 1, 1), Date::Of(9999, 1, 1)), 0);
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDurationWithoutWeekend 6\n");
}

TEST(SetDurationWithoutWeekend, RecordsAWalkPastTheEndOfTheCalendar) {
    Row row;
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Date::Of(9999, 12, 31), Monday), 0);
    EXPECT_EQ(row.task.SetDurationWithoutWeekend(Date::Of(9999, 12, 1), Date(1e9)), 0);
    EXPECT_EQ(row.failures.Taken(), "TasksCls/SetDurationWithoutWeekend 6\nTasksCls/SetDurationWithoutWeekend 6\n");
}

TEST(Conversions, RepairABadUnitAndCountDays) {
    Row row;
    row.task.TaskDurationUnit("fortnights");
    EXPECT_EQ(row.task.SetDateWithoutWeekend(Thursday, 3), Monday + 7);
    EXPECT_EQ(row.task.SetAddValue(), "d");
}

TEST(Conversions, AgreeWithCountingOnFingers) {
    std::mt19937 random(1234567);
    const auto draw = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        Row row;
        row.calendar = Make<CalendarCls>();
        Module().g_PublicCalendar = row.calendar;
        PlainCalendar plain;
        for (int n = draw(0, 5); n > 0; --n) plain.free_weekdays.insert(draw(1, 7));
        for (int n = draw(0, 30); n > 0; --n) plain.holidays.insert((Monday + draw(-80, 80)).days());
        for (int n = draw(0, 30); n > 0; --n) plain.exceptions.insert((Monday + draw(-80, 80)).days());
        plain.Set(*row.calendar);
        if (round % 10 == 0) {  // the strides are held against the fingers too
            plain = {};
            row.WithoutCalendar();
        }
        for (int n = 0; n < 25; ++n) {
            const Date day = Monday + draw(-60, 60);
            const double duration = draw(-2, 160) / 4.0;
            const Date other = day + draw(-20, 60);
            SCOPED_TRACE(DayName(day) + " " + std::to_string(duration) + " " + DayName(other));
            EXPECT_EQ(row.task.SetDateWithoutWeekend(day, duration), plain.End(day, duration));
            EXPECT_EQ(row.task.SetStartDateWithoutWeekend(day, duration), plain.Start(day, duration));
            EXPECT_EQ(row.task.SetDurationWithoutWeekend(day, other), plain.Duration(day, other));
        }
    }
}

}  // namespace
}  // namespace mrlxmlclass
