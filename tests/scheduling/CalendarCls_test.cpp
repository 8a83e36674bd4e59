#include "mrlxmlclass/scheduling/CalendarCls.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/xml/DictionaryText.h"
#include "tests/support/CalendarSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(CalendarCls, HasNoNonWorkingDayAtFirst) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    for (int weekday = 1; weekday <= 7; ++weekday) EXPECT_EQ(calendar->IsNonWorkingDay(weekday), False);
    EXPECT_EQ(calendar->NonWorkingDay()->Count(), 0);
    EXPECT_EQ(calendar->Holiday()->Count(), 0);
    EXPECT_EQ(calendar->ExceptionDay()->Count(), 0);
    EXPECT_EQ(calendar->CalendarKey(), 0);
    EXPECT_EQ(calendar->elementName(), "Calendar");
    EXPECT_EQ(calendar->WorkStart(), Date());
    EXPECT_EQ(calendar->WorkEnd(), Date());
    EXPECT_EQ(calendar->Monday(), 0);
    EXPECT_EQ(calendar->Sunday(), 0);
}

TEST(CalendarCls, CarriesTheHostsValuesPlainly) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    calendar->Monday(1);
    calendar->Tuesday(2);
    calendar->Wednesday(3);
    calendar->Thursday(4);
    calendar->Friday(5);
    calendar->Saturday(6);
    calendar->Sunday(7);
    calendar->WorkStart(Date(0.25));
    calendar->WorkEnd(Date(0.75));
    EXPECT_EQ(calendar->Monday(), 1);
    EXPECT_EQ(calendar->Tuesday(), 2);
    EXPECT_EQ(calendar->Wednesday(), 3);
    EXPECT_EQ(calendar->Thursday(), 4);
    EXPECT_EQ(calendar->Friday(), 5);
    EXPECT_EQ(calendar->Saturday(), 6);
    EXPECT_EQ(calendar->Sunday(), 7);
    EXPECT_EQ(calendar->WorkStart(), Date(0.25));
    EXPECT_EQ(calendar->WorkEnd(), Date(0.75));
    EXPECT_EQ(calendar->IsNonWorkingDay(2), False);
}

TEST(SetAsNonWorkingDay, FilesTheWeekdayUnderItsText) {
    CalendarSession session;
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->NonWorkingDay()), "7:7;1:1");
    EXPECT_EQ(session.calendar->SetAsNonWorkingDay(4), True);
    EXPECT_EQ(session.calendar->IsNonWorkingDay(4), True);
    EXPECT_EQ(session.calendar->SetAsNonWorkingDay(4), True);
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->NonWorkingDay()), "7:7;1:1;4:4");
}

TEST(SetAsNonWorkingDay, StoresAWeekdayThatNeverComesLikeAnyOther) {
    CalendarSession session;
    for (const int weekday : {0, 8, -1, 2147483647}) {
        EXPECT_EQ(session.calendar->SetAsNonWorkingDay(weekday), True);
        EXPECT_EQ(session.calendar->IsNonWorkingDay(weekday), True);
    }
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->NonWorkingDay()),
              "7:7;1:1;0:0;8:8;-1:-1;2147483647:2147483647");
}

TEST(SetAsWorkingDay, TakesTheExceptionDaysOfThatWeekdayAlong) {
    CalendarSession session;
    for (const Date day : {Saturday, Sunday, Sunday + 7, Friday}) session.calendar->SetADayAsExceptionDay(day);
    EXPECT_EQ(session.calendar->SetAsWorkingDay(1), True);
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->NonWorkingDay()), "7:7");
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->ExceptionDay()),
              "3/7/2026:3/7/2026;3/6/2026:3/6/2026");
}

TEST(SetAsWorkingDay, ChangesNothingWhereTheWeekdayIsWorkedAlready) {
    CalendarSession session;
    session.calendar->SetAsWorkingDay(1);
    session.calendar->SetADayAsExceptionDay(Sunday);
    EXPECT_EQ(session.calendar->SetAsWorkingDay(1), True);
    EXPECT_EQ(session.calendar->isExceptionDay(Sunday), True);
}

TEST(SetAsWorkingDay, KnowsExceptionDaysThatTheHostFiledAsDates) {
    CalendarSession session;
    session.calendar->ExceptionDay()->Add(Saturday, True);
    session.calendar->ExceptionDay()->Add(Sunday, True);
    EXPECT_EQ(session.calendar->SetAsWorkingDay(7), True);
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), False);
    EXPECT_EQ(session.calendar->isExceptionDay(Sunday), True);
}

TEST(SetAsWorkingDay, RecordsAnExceptionDayThatIsNoDate) {
    CalendarSession session;
    session.calendar->ExceptionDay()->Add("soon", "soon");
    EXPECT_EQ(session.calendar->SetAsWorkingDay(7), False);
    EXPECT_EQ(session.failures.Taken(), "CalendarCls/SetAsWorkingDay 13\n");
    EXPECT_EQ(session.calendar->IsNonWorkingDay(7), False);
}

TEST(SetADayAsHoliday, IsHarmlessTheSecondTime) {
    CalendarSession session;
    EXPECT_EQ(session.calendar->SetADayAsHoliday(Friday), True);
    EXPECT_EQ(session.calendar->SetADayAsHoliday(Friday + kTenOClock), True);
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->Holiday()), "3/6/2026:3/6/2026");
}

TEST(SetADayAsHoliday, LeavesTheCallersDateAlone) {
    CalendarSession session;
    Date date = Friday + kTenOClock;
    session.calendar->SetADayAsHoliday(date);
    session.calendar->SetADayAsExceptionDay(date);
    session.calendar->SetAsNonException(date);
    session.calendar->SetADayAsNormalDay(date);
    EXPECT_EQ(date, Friday + kTenOClock);
}

TEST(SetADayAsNormalDay, TakesAHolidayBackAndNothingElse) {
    CalendarSession session;
    session.calendar->SetADayAsHoliday(Friday);
    EXPECT_EQ(session.calendar->SetADayAsNormalDay(Friday + kTenOClock), True);
    EXPECT_EQ(session.calendar->isHoliday(Friday), False);
    EXPECT_EQ(session.calendar->SetADayAsNormalDay(Friday), True);
    EXPECT_EQ(session.calendar->SetADayAsNormalDay(Saturday), True);
    EXPECT_EQ(session.calendar->IsNonWorkingDay(7), True) << "the weekday rule stays";
}

TEST(SetADayAsExceptionDay, ComesAndGoes) {
    CalendarSession session;
    EXPECT_EQ(session.calendar->SetADayAsExceptionDay(Saturday), True);
    EXPECT_EQ(session.calendar->SetADayAsExceptionDay(Saturday), True);
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->ExceptionDay()), "3/7/2026:3/7/2026");
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), True);
    EXPECT_EQ(session.calendar->isExceptionDay(Sunday), False);
    EXPECT_EQ(session.calendar->SetAsNonException(Saturday), True);
    EXPECT_EQ(session.calendar->SetAsNonException(Saturday), True);
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), False);
}

TEST(IsHoliday, CutsTheTimeFromTheCallersDate) {
    CalendarSession session;
    session.calendar->SetADayAsHoliday(Friday);
    Date date = Friday + kTenOClock;
    EXPECT_EQ(session.calendar->isHoliday(date), True);
    EXPECT_EQ(date, Friday);
    date = Thursday + kTenOClock;
    EXPECT_EQ(session.calendar->isHoliday(date), False);
    EXPECT_EQ(date, Thursday);
}

TEST(IsHoliday, LooksForTextsOnly) {
    CalendarSession session;
    session.calendar->Holiday()->Add(Friday, True);
    EXPECT_EQ(session.calendar->isHoliday(Friday), False);
}

TEST(IsHoliday, SeesWhatTheHostPutsIntoTheSetItself) {
    CalendarSession session;
    EXPECT_EQ(session.calendar->isHoliday(Friday), False);
    session.calendar->Holiday()->Add("3/6/2026", "any");
    EXPECT_EQ(session.calendar->isHoliday(Friday), True);
    session.calendar->Holiday()->RemoveAll();
    EXPECT_EQ(session.calendar->isHoliday(Friday), False);
}

TEST(IsHoliday, FindsADayByItsVeryTextOnly) {
    CalendarSession session;
    for (const char* text : {"03/06/2026", "6.3.2026", "3/6/26", " 3/6/2026", "3/6/2026 10:00:00", "soon", ""}) {
        session.calendar->Holiday()->Add(text, text);
    }
    EXPECT_EQ(session.calendar->isHoliday(Friday), False);
}

TEST(IsHoliday, FollowsTheLocale) {
    CalendarSession session;
    session.calendar->SetADayAsHoliday(Friday);
    EXPECT_EQ(session.calendar->isHoliday(Friday), True);
    session.locale.Use("dd.MM.yyyy");
    EXPECT_EQ(session.calendar->isHoliday(Friday), False);
    session.calendar->SetADayAsHoliday(Friday);
    EXPECT_EQ(session.calendar->isHoliday(Friday), True);
    EXPECT_EQ(Conversions::CreateSucessorString(session.calendar->Holiday()),
              "3/6/2026:3/6/2026;06.03.2026:06.03.2026");
}

TEST(IsExceptionDay, CutsTheTimeAndFindsDatesAsWellAsTexts) {
    CalendarSession session;
    session.calendar->ExceptionDay()->Add(Saturday, True);
    session.calendar->SetADayAsExceptionDay(Sunday);
    for (const Date day : {Saturday, Sunday}) {
        Date date = day + kTenOClock;
        EXPECT_EQ(session.calendar->isExceptionDay(date), True);
        EXPECT_EQ(date, day);
    }
}

TEST(IsExceptionDay, LooksIntoTheSetThatTheHostPutInPlace) {
    CalendarSession session;
    session.calendar->SetADayAsExceptionDay(Saturday);
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), True);
    const auto days = Make<Dictionary>();
    days->Add("3/8/2026", "3/8/2026");
    session.calendar->ExceptionDay(days);
    EXPECT_EQ(session.calendar->ExceptionDay(), days);
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), False);
    EXPECT_EQ(session.calendar->isExceptionDay(Sunday), True);
}

TEST(IsExceptionDay, RecordsASetThatIsNothing) {
    CalendarSession session;
    session.calendar->ExceptionDay(Ref<Dictionary>());
    EXPECT_EQ(session.calendar->isExceptionDay(Saturday), False);
    EXPECT_EQ(session.calendar->SetADayAsExceptionDay(Saturday), False);
    EXPECT_EQ(session.failures.Taken(), "CalendarCls/isExceptionDay 91\nCalendarCls/SetADayAsExceptionDay 91\n");
}

TEST(NumberofNonWorkingDay, KeepsTakingTheDayOfTheMonthForTheWeekday) {
    CalendarSession session;
    const Date first = Date::Of(2026, 3, 1);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first, Date::Of(2026, 4, 1)), 2);  // the 1st and the 7th
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first, Date::Of(2027, 3, 1)), 24);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first + 1, Date::Of(2026, 3, 7)), 0);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first + 1, Date::Of(2026, 3, 8)), 1);
    session.calendar->SetADayAsHoliday(Date::Of(2026, 3, 20));
    session.calendar->SetADayAsExceptionDay(first);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first, Date::Of(2026, 4, 1)), 2);
    session.calendar->SetAsNonWorkingDay(31);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first, Date::Of(2026, 4, 1)), 3);
}

TEST(NumberofNonWorkingDay, IsZeroWhereTheStartIsNotBeforeTheEnd) {
    CalendarSession session;
    const Date first = Date::Of(2026, 3, 1);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first, first), 0);
    EXPECT_EQ(session.calendar->numberofNonWorkingDay(first + 40, first), 0);
}

TEST(CalendarClone, KeepsTheSetsBehind) {
    CalendarSession session;
    session.calendar->SetADayAsHoliday(Friday);
    session.calendar->SetADayAsExceptionDay(Saturday);
    session.calendar->CalendarKey(5);
    session.calendar->Monday(8);
    session.calendar->Sunday(3);
    session.calendar->WorkStart(Date(0.25));
    session.calendar->WorkEnd(Date(0.75));
    session.calendar->elementName("Plan");
    const auto clone = session.calendar->Clone();
    EXPECT_EQ(clone->CalendarKey(), 5);
    EXPECT_EQ(clone->Monday(), 8);
    EXPECT_EQ(clone->Sunday(), 3);
    EXPECT_EQ(clone->WorkStart(), Date(0.25));
    EXPECT_EQ(clone->WorkEnd(), Date(0.75));
    EXPECT_EQ(clone->elementName(), "Plan");
    EXPECT_EQ(clone->NonWorkingDay()->Count(), 0);
    EXPECT_EQ(clone->Holiday()->Count(), 0);
    EXPECT_EQ(clone->ExceptionDay()->Count(), 0);
    clone->SetADayAsHoliday(Monday);
    EXPECT_EQ(session.calendar->isHoliday(Monday), False) << "the sets are not shared either";
    EXPECT_EQ(session.calendar->isHoliday(Friday), True);
}

TEST(SetUsualWeekend, PutsSaturdayBeforeSunday) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    In(calendar).SetUsualWeekend();
    EXPECT_EQ(Conversions::CreateSucessorString(calendar->NonWorkingDay()), "7:7;1:1");
}

}  // namespace
}  // namespace mrlxmlclass
