#include <gtest/gtest.h>

#include "tests/scheduling/DatedRow.h"
#include "tests/support/PlainCalendar.h"

namespace mrlxmlclass {
namespace {

using namespace testing;
using Row = DatedRow;

TEST(TaskEDate, RefusesAnEndBeforeTheStartAndMendsItFromTheDuration) {
    for (const Date given : {Sunday - 7, Date()}) {
        Row row;
        row.Holding(Monday, Friday, 3);
        In(row.task).TaskEDateValid_Int(False);
        row.task.TaskEDate(given);
        EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
        EXPECT_EQ(row.task.TaskEDateValid(), False);
        EXPECT_EQ(Row::Caches(), "min - of 0, max - of 0");
    }
}

TEST(TaskEDate, RefusesALeafOfMoreThan999Days) {
    Row row;
    PlainCalendar plain;
    plain.free_weekdays = {1, 7};
    row.Holding(Monday, Wednesday, 3);
    row.task.TaskEDate(plain.End(Monday, 1000));
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
    EXPECT_EQ(Row::Caches(), "min - of 0, max - of 0");
    row.task.TaskEDate(plain.End(Monday, 999));
    EXPECT_EQ(row.Drawn(), Drawing(Monday, plain.End(Monday, 999), 999));
    EXPECT_EQ(row.failures.Taken(), "");
}

TEST(TaskEDate, TakesMoreThan999DaysWithChildrenOrWithoutAnEndSoFar) {
    PlainCalendar plain;
    plain.free_weekdays = {1, 7};
    const Date far = plain.End(Monday, 1500);
    Row parent;
    parent.Holding(Monday, Wednesday, 3);
    In(parent.task).Tasks()->Add("8", "8");
    parent.task.TaskEDate(far);
    EXPECT_EQ(parent.Drawn(), Drawing(Monday, far, 1500));
    Row fresh;
    fresh.Holding(Monday, Date(), 3);
    fresh.task.TaskEDate(far);
    EXPECT_EQ(fresh.Drawn(), Drawing(Monday, far, 1500));
}

TEST(TaskEDate, KeepsTheEndThatWasGivenWhereTheDurationStopsAt999) {
    PlainCalendar plain;
    plain.free_weekdays = {1, 7};
    const Date far = plain.End(Monday, 1500);
    Row child;
    child.task.ParentID(4);
    child.Holding(Monday, Date(), 3);
    child.task.TaskEDate(far);
    EXPECT_EQ(child.Drawn(), Drawing(Monday, far, 999));
}

TEST(TaskEDate, MovesAnEndBeyondTheLastYearWithoutAMessage) {
    Row row;
    row.task.TaskEDate(Date::Of(2050, 3, 3));
    EXPECT_EQ(row.task.TaskEDate(), Date::Of(2036, 3, 3));
    Row holding;
    holding.Holding(Date::Of(2036, 2, 1), Date::Of(2036, 2, 5), 5);
    holding.task.TaskEDate(Date::Of(2037, 2, 27));
    EXPECT_EQ(holding.task.TaskEDate(), Date::Of(2036, 2, 27));
    EXPECT_TRUE(row.ui.messages.empty());
    EXPECT_TRUE(holding.ui.messages.empty());
}

TEST(TaskEDate, RecordsA29FebruaryThatTheLastYearDoesNotHave) {
    Row row;
    Module().g_MaxYear = 2035;
    row.task.TaskEDate(Date::Of(2040, 2, 29));
    EXPECT_EQ(row.failures.Taken(), "TasksCls/TaskEDate 13\n");
    EXPECT_EQ(row.Drawn(), "- - 0");
    EXPECT_EQ(row.task.TaskEDateValid(), False);
}

TEST(TaskEDate, HasNoEarliestYear) {
    Row row;
    row.task.TaskEDate(Date::Of(1990, 5, 1));
    EXPECT_EQ(row.task.TaskEDate(), Date::Of(1990, 5, 1));
    EXPECT_TRUE(row.ui.messages.empty());
}

TEST(TaskEDate, StartsATaskWithoutAStartOnItsEnd) {
    Row row;
    row.task.TaskEDate(Wednesday);
    EXPECT_EQ(row.Drawn(), Drawing(Wednesday, Wednesday, 1));
    EXPECT_EQ(row.task.TaskEDateValid(), True);
    EXPECT_EQ(row.task.TaskDurationValid(), True);
    EXPECT_EQ(row.task.TaskBDateValid(), False) << "the start is stored as it is";
    Row lasting;
    lasting.Holding(Date(), Date(), 3);
    lasting.task.TaskEDate(Wednesday);
    EXPECT_EQ(lasting.Drawn(), Drawing(Wednesday, Wednesday, 3));
}

TEST(TaskEDate, GivesADayWhereTheEndStaysOnTheStart) {
    Row row;
    row.Holding(Monday, Monday, 5);
    row.task.TaskEDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday, 1));
    row.Holding(Monday, Monday, 5);
    row.task.TaskMilstones(True);
    row.task.TaskEDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday, 0));
}

TEST(TaskEDate, LengthensToTheDayThatIsGiven) {
    Row row;
    row.Holding(Monday, Wednesday, 3);
    row.task.TaskEDate(Friday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Friday, 5));
    row.Holding(Monday, Wednesday, 3);
    row.task.TaskEDate(Saturday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Saturday, 5)) << "a free day stands as an end";
}

TEST(TaskEDate, KeepsTheEndThatTheDurationGivesWhenATaskIsShortened) {
    Row row;
    row.Holding(Monday, Friday, 5);
    row.task.TaskEDate(Wednesday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
    row.Holding(Monday, Wednesday + 7, 8);
    row.task.TaskEDate(Sunday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Friday, 5));
}

TEST(TaskEDate, TakesTheStartOfAMilestoneAlong) {
    Row row;
    row.Holding(Monday, Monday, 0);
    row.task.TaskMilstones(True);
    row.task.TaskDurationValid(False);
    row.task.TaskEDate(Friday);
    EXPECT_EQ(row.Drawn(), Drawing(Friday, Friday, 0));
    EXPECT_TRUE(row.task.TaskDurationValid());
}

TEST(TaskEDate, LeavesTheDurationOfWeeksAlone) {
    Row row;
    row.Holding(Monday, Monday + 14, 2, "wks");
    row.task.TaskEDate(Monday + 21);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday + 21, 2));
    row.task.TaskEDate(Monday + 7);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday + 14, 2)) << "shortened: the duration decides";
}

TEST(TaskEDate, GivesAnEndOnTheStartWithoutADurationOneUnit) {
    Row row;
    row.Holding(Monday, Date(), 0, "wks");
    row.task.TaskEDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday + 7, 1));
}

TEST(TaskEDate, HandsOutTheDayOfAMomentThatItStores) {
    Row row;
    row.Holding(Monday, Wednesday, 3);
    row.task.TaskEDate(Friday + kTenOClock);
    EXPECT_EQ(row.task.TaskEDate(), Friday);
    EXPECT_EQ(Module().g_MaxDate, Friday + kTenOClock);
}

TEST(TaskEDate, ShortensATaskWithoutAStartByFindingOne) {
    Row row;
    row.Holding(Date(), Friday, 3);
    row.task.TaskEDate(Wednesday);
    // No start, no duration between; the start is then looked for from the end.
    EXPECT_EQ(row.Drawn(), Drawing(Wednesday, Wednesday, 1));
}

TEST(TaskEDate, KeepsTheLatestEndOfThePlanAndPullsItDownWithItsHolder) {
    struct Case {
        const char* what;
        Date max;
        int holder;
        const char* caches;
    };
    for (const Case& c : {Case{"none is known", Date(), 0, "max 2026-03-04 of 7"},
                          Case{"it comes last", Tuesday, 5, "max 2026-03-04 of 7"},
                          Case{"the holder comes last", Tuesday, 7, "max 2026-03-04 of 7"},
                          Case{"the holder ends earlier", Friday, 7, "max 2026-03-04 of 7"},
                          Case{"another holds it", Friday, 5, "max 2026-03-06 of 5"}}) {
        SCOPED_TRACE(c.what);
        Row row;
        row.Holding(Monday, Friday, 5);
        Row::SetCaches(Monday, 7, c.max, c.holder);
        row.task.TaskEDate(Wednesday);
        EXPECT_EQ(Row::Caches(), String("min 2026-03-02 of 7, ") + c.caches);
    }
}

}  // namespace
}  // namespace mrlxmlclass
