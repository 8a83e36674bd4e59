#include "mrlxmlclass/scheduling/WorkingDays.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/CalendarSession.h"
#include "tests/support/PlainCalendar.h"

namespace mrlxmlclass {
namespace {

using namespace testing;
using Gloabal::IsNonWorkingDay;
using Gloabal::NumberOFNonWorkingDay;
using Gloabal::SetNextWorkingDay;

TEST(IsNonWorkingDay, NeverHoldsWithoutAPublicCalendar) {
    CalendarSession session;
    session.calendar->SetADayAsHoliday(Monday);
    session.WithoutCalendar();
    for (const Date day : {Monday, Saturday, Sunday, Date(), Date::Of(9999, 12, 31)}) {
        EXPECT_EQ(IsNonWorkingDay(Date(day)), False);
    }
}

TEST(IsNonWorkingDay, WeighsWeekdayExceptionAndHoliday) {
    struct Row {
        Date day;
        bool exception;
        bool holiday;
        Boolean answer;
    };
    for (const Row& row :
         {Row{Friday, false, false, False}, Row{Friday, true, false, False}, Row{Friday, false, true, True},
          Row{Friday, true, true, True}, Row{Saturday, false, false, True}, Row{Saturday, false, true, True},
          Row{Saturday, true, false, False}, Row{Saturday, true, true, True}}) {
        SCOPED_TRACE(DayName(row.day) + (row.exception ? " exception" : "") + (row.holiday ? " holiday" : ""));
        CalendarSession session;
        if (row.exception) session.calendar->SetADayAsExceptionDay(row.day);
        if (row.holiday) session.calendar->SetADayAsHoliday(row.day);
        EXPECT_EQ(IsNonWorkingDay(Date(row.day)), row.answer);
    }
}

TEST(IsNonWorkingDay, SeesThatASetIsAnotherOneThatChangedAsOften) {
    const auto set_of = [](Date day) {
        auto days = Make<Dictionary>();
        days->Add(day, day);
        return days;
    };
    CalendarSession session;
    session.calendar->ExceptionDay(set_of(Saturday));
    EXPECT_EQ(IsNonWorkingDay(Date(Saturday)), False);
    session.calendar->ExceptionDay(set_of(Sunday));
    EXPECT_EQ(IsNonWorkingDay(Date(Saturday)), True);
    EXPECT_EQ(IsNonWorkingDay(Date(Sunday)), False);
}

TEST(IsNonWorkingDay, LeavesWeekendsFreeWithoutASetOfExceptionDays) {
    CalendarSession session;
    session.calendar->SetADayAsExceptionDay(Saturday);
    session.calendar->ExceptionDay(Ref<Dictionary>());
    for (const Date day : {Saturday, Sunday}) EXPECT_EQ(IsNonWorkingDay(Date(day)), True);
    for (const Date day : {Monday, Friday}) EXPECT_EQ(IsNonWorkingDay(Date(day)), False);
    EXPECT_EQ(SetNextWorkingDay(Saturday, Integer(1), Integer(0)), Monday + 7);
    EXPECT_EQ(NumberOFNonWorkingDay(Monday, Monday + 7), 2);
}

TEST(IsNonWorkingDay, MakesADayWorkedAgainWhenAHolidayOnAnExceptionDayIsTakenBack) {
    CalendarSession session;
    session.calendar->SetADayAsExceptionDay(Saturday);
    session.calendar->SetADayAsHoliday(Saturday);
    EXPECT_EQ(IsNonWorkingDay(Date(Saturday)), True);
    session.calendar->SetADayAsNormalDay(Saturday);
    EXPECT_EQ(IsNonWorkingDay(Date(Saturday)), False);
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), True);
}

TEST(IsNonWorkingDay, CutsTheTimeFromTheCallersDateUnderAPublicCalendarOnly) {
    CalendarSession session;
    for (const Date day : {Friday, Saturday}) {
        Date date = day + kTenOClock;
        IsNonWorkingDay(date);
        EXPECT_EQ(date, day);
    }
    session.WithoutCalendar();
    Date date = Friday + kTenOClock;
    IsNonWorkingDay(date);
    EXPECT_EQ(date, Friday + kTenOClock);
}

TEST(IsNonWorkingDay, RecordsADayThatNoCalendarHas) {
    CalendarSession session;
    EXPECT_EQ(IsNonWorkingDay(Date(1e9)), False);
    EXPECT_EQ(session.failures.Taken(), "Gloabal/IsNonWorkingDay 6\n");
}

TEST(NumberOFNonWorkingDay, CountsBothEndsWhicheverIsTheLater) {
    CalendarSession session;
    EXPECT_EQ(NumberOFNonWorkingDay(Friday, Monday + 7), 2);
    EXPECT_EQ(NumberOFNonWorkingDay(Saturday, Sunday), 2);
    EXPECT_EQ(NumberOFNonWorkingDay(Sunday, Saturday), 2);
    EXPECT_EQ(NumberOFNonWorkingDay(Monday + 7, Friday), 2);
    EXPECT_EQ(NumberOFNonWorkingDay(Saturday, Saturday), 1);
    EXPECT_EQ(NumberOFNonWorkingDay(Monday, Monday), 0);
    session.calendar->SetADayAsHoliday(Friday);
    EXPECT_EQ(NumberOFNonWorkingDay(Friday, Monday + 7), 3);
}

TEST(NumberOFNonWorkingDay, StepsFromTheTimeOfTheEarlierEnd) {
    CalendarSession session;
    EXPECT_EQ(NumberOFNonWorkingDay(Saturday + kTenOClock, Sunday + kTenOClock), 2);
    EXPECT_EQ(NumberOFNonWorkingDay(Saturday + kTenOClock, Sunday), 1);
    EXPECT_EQ(NumberOFNonWorkingDay(Sunday, Saturday + kTenOClock), 1);
}

TEST(NumberOFNonWorkingDay, EndsAtTheLargestIntegerWithARecord) {
    CalendarSession session;
    session.WithoutAnyWorkingDay();
    EXPECT_EQ(NumberOFNonWorkingDay(Monday, Monday + 32766), 32767);
    EXPECT_EQ(session.failures.Taken(), "");
    EXPECT_EQ(NumberOFNonWorkingDay(Monday, Monday + 32767), 32767);
    EXPECT_EQ(session.failures.Taken(), "Gloabal/NumberOFNonWorkingDay 6\n");
}

TEST(SetNextWorkingDay, SearchesInEitherDirection) {
    CalendarSession session;
    EXPECT_EQ(SetNextWorkingDay(Saturday, 1, 0), Monday + 7);
    EXPECT_EQ(SetNextWorkingDay(Sunday, 1, 0), Monday + 7);
    EXPECT_EQ(SetNextWorkingDay(Saturday, -1, 0), Friday);
    EXPECT_EQ(SetNextWorkingDay(Wednesday, 1, 0), Wednesday);
    EXPECT_EQ(SetNextWorkingDay(Wednesday, -1, 0), Wednesday);
    session.calendar->SetADayAsHoliday(Friday);
    EXPECT_EQ(SetNextWorkingDay(Sunday, -1, 0), Thursday);
}

TEST(SetNextWorkingDay, StepsAsFarAsItIsTold) {
    CalendarSession session;
    EXPECT_EQ(SetNextWorkingDay(Saturday, 2, 0), Monday + 7);
    EXPECT_EQ(SetNextWorkingDay(Sunday, 2, 0), Tuesday + 7);
}

TEST(SetNextWorkingDay, LeavesNoDateAlone) {
    CalendarSession session;
    EXPECT_EQ(SetNextWorkingDay(Date(), 1, 0), Date());
    EXPECT_EQ(SetNextWorkingDay(Date(), -1, 5), Date());
}

TEST(SetNextWorkingDay, GivesItsDateBackUnchangedWithoutAPublicCalendar) {
    CalendarSession session;
    session.WithoutCalendar();
    EXPECT_EQ(SetNextWorkingDay(Saturday + kTenOClock, 1, 0), Saturday + kTenOClock);
}

TEST(SetNextWorkingDay, LosesTheTimeUnderAPublicCalendar) {
    CalendarSession session;
    EXPECT_EQ(SetNextWorkingDay(Friday + kTenOClock, 1, 0), Friday);
    EXPECT_EQ(SetNextWorkingDay(Saturday + kTenOClock, 1, 0), Monday + 7);
}

TEST(SetNextWorkingDay, GoesOnWhenMoreDaysThanAllowedWereSkipped) {
    CalendarSession session;
    // Saturday to Monday skips 2; going on is by the 1 allowed and the 2 that are not worked.
    EXPECT_EQ(SetNextWorkingDay(Saturday, 1, 1), Thursday + 7);
    EXPECT_EQ(SetNextWorkingDay(Saturday, 1, 2), Monday + 7);
    EXPECT_EQ(SetNextWorkingDay(Wednesday, 1, 1), Wednesday);
    // A search backward skips a negative count.
    EXPECT_EQ(SetNextWorkingDay(Sunday, -1, 1), Friday);
    EXPECT_EQ(SetNextWorkingDay(Sunday, -1, -3), Friday + (-3 + 2));
}

TEST(SetNextWorkingDay, RecordsACalendarWithoutAnyWorkingDay) {
    CalendarSession session;
    session.WithoutAnyWorkingDay();
    EXPECT_EQ(SetNextWorkingDay(Monday, 1, 0), Monday);
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetNextWorkingDay 28\n");
    EXPECT_EQ(SetNextWorkingDay(Monday, -1, 0), Monday);
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetNextWorkingDay 28\n");
}

TEST(SetNextWorkingDay, RecordsASearchThatStandsStill) {
    CalendarSession session;
    EXPECT_EQ(SetNextWorkingDay(Saturday, 0, 0), Saturday);
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetNextWorkingDay 28\n");
}

TEST(SetNextWorkingDay, RecordsASearchPastTheEndOfTheCalendar) {
    CalendarSession session;
    const Date last = Date::Of(9999, 12, 31);
    session.calendar->SetADayAsHoliday(last);
    EXPECT_EQ(SetNextWorkingDay(last, 1, 0), last);
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetNextWorkingDay 6\n");
}

TEST(WorkingDays, AgreeWithCountingOnFingers) {
    std::mt19937 random(20260302);
    const auto draw = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        CalendarSession session;
        session.calendar = Make<CalendarCls>();
        Module().g_PublicCalendar = session.calendar;
        PlainCalendar plain;
        for (int n = draw(0, 4); n > 0; --n) plain.free_weekdays.insert(draw(1, 7));
        for (int n = draw(0, 20); n > 0; --n) plain.holidays.insert((Monday + draw(-60, 60)).days());
        for (int n = draw(0, 20); n > 0; --n) plain.exceptions.insert((Monday + draw(-60, 60)).days());
        plain.Set(*session.calendar);
        for (int n = 0; n < 20; ++n) {
            const Date day = Monday + draw(-70, 70);
            const int length = draw(0, 40);
            EXPECT_EQ(IsNonWorkingDay(Date(day)), Boolean(!plain.Worked(day))) << DayName(day);
            EXPECT_EQ(NumberOFNonWorkingDay(day, day + length), plain.Free(day, day + length)) << DayName(day);
            EXPECT_EQ(SetNextWorkingDay(day, 1, 0), plain.Next(day, 1)) << DayName(day);
            EXPECT_EQ(SetNextWorkingDay(day, -1, 0), plain.Next(day, -1)) << DayName(day);
        }
    }
}

TEST(PublicDays, CountNonWorkingDaysForwardOnly) {
    CalendarSession session;
    EXPECT_EQ(PublicDays().CountNonWorking(Friday, Monday + 7), 2);
    EXPECT_EQ(PublicDays().CountNonWorking(Sunday, Sunday), 1);
    EXPECT_EQ(PublicDays().CountNonWorking(Monday + 7, Friday), 0);
}

}  // namespace
}  // namespace mrlxmlclass
