#include <gtest/gtest.h>

#include "tests/scheduling/Adjusted.h"
#include "tests/scheduling/DatedRow.h"
#include "tests/support/HeldByHost.h"

namespace mrlxmlclass {
namespace {

using namespace testing;
using Row = DatedRow;

// --- The start -------------------------------------------------------------------------------------------------------

TEST(TaskBDate, StoresZeroWithItsFlagAndNoMore) {
    Row row;
    row.task.TaskLag(5);
    row.task.TaskBDate(Date());
    EXPECT_EQ(row.Drawn(), "- - 0");
    EXPECT_EQ(row.task.TaskBDateValid(), True);
    EXPECT_EQ(row.task.TaskDurationValid(), False);
    EXPECT_TRUE(row.ui.messages.empty());
}

TEST(TaskBDate, TellsADateBelowTheRangeAndMovesItTo2000) {
    Row row;
    row.task.TaskBDate(Date::Of(1999, 3, 1));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2000, 3, 1));
    EXPECT_EQ(row.ui.messages, std::vector<String>{kAdjusted});
    row.task.TaskBDate(Date::Of(100, 1, 3));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2000, 1, 3));
    EXPECT_EQ(row.ui.messages.size(), 2U);
}

TEST(TaskBDate, FindsAWorkingDayAfterTheYearWasChanged) {
    Row row;
    row.task.TaskBDate(Date::Of(1999, 1, 1));  // a Saturday in 2000
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2000, 1, 3));
}

TEST(TaskBDate, MovesADateBeyondTheLastYearWithoutAMessage) {
    Row row;
    row.task.TaskBDate(Date::Of(2050, 3, 3));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2036, 3, 3));
    row.task.TaskBDate(Date::Of(9999, 12, 31));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2036, 12, 31));
    row.task.TaskBDate(Date::Of(2036, 12, 31));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2036, 12, 31));
    EXPECT_TRUE(row.ui.messages.empty());
}

TEST(TaskBDate, MayLeaveTheLastYearInSearchOfAWorkingDay) {
    Row row;
    Module().g_MaxYear = 2033;  // its last day is a Saturday
    row.task.TaskBDate(Date::Of(2050, 12, 31));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2034, 1, 2));
}

TEST(TaskBDate, RecordsA29FebruaryThatTheLastYearDoesNotHave) {
    Row row;
    row.Holding(Monday, Wednesday, 3);
    Module().g_MaxYear = 2035;
    row.task.TaskBDate(Date::Of(2040, 2, 29));
    EXPECT_EQ(row.failures.Taken(), "TasksCls/TaskBDate 13\n");
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
    row.task.TaskBDate(Date::Of(1996, 2, 29));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2000, 2, 29));
}

TEST(TaskBDate, GoesFromAFreeDayToTheNextWorkingDay) {
    Row row;
    row.task.TaskBDate(Saturday);
    EXPECT_EQ(row.task.TaskBDate(), Monday + 7);
    row.calendar->SetADayAsHoliday(Monday + 7);
    row.task.TaskBDate(Sunday);
    EXPECT_EQ(row.task.TaskBDate(), Tuesday + 7);
    row.WithoutCalendar();
    row.task.TaskBDate(Sunday);
    EXPECT_EQ(row.task.TaskBDate(), Sunday);
}

TEST(TaskBDate, KeepsALagOfMinusOneWhereThePredecessorEnds) {
    struct Case {
        int lag;
        Date given;
        Date start;
    };
    for (const Case& c : {Case{-1, Saturday, Friday}, Case{1, Saturday, Tuesday + 7}, Case{0, Saturday, Monday + 7},
                          Case{-1, Wednesday, Wednesday}, Case{1, Wednesday, Thursday}, Case{0, Wednesday, Wednesday},
                          Case{-2, Wednesday, Tuesday}, Case{-2, Saturday, Thursday}, Case{-3, Monday, Thursday - 7},
                          Case{1, Friday, Monday + 7}, Case{6, Monday, Tuesday + 7}}) {
        SCOPED_TRACE(DayName(c.given) + " lag " + std::to_string(c.lag));
        Row row;
        row.task.TaskLag(c.lag);
        row.task.TaskBDate(c.given);
        EXPECT_EQ(row.task.TaskBDate(), c.start);
    }
}

TEST(TaskBDate, KeepsWipingTheEndOfAFreshRecordAtTheFirstTime) {
    Row row;
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Date(), 1));
    EXPECT_EQ(row.task.TaskEDateValid(), True);
    EXPECT_EQ(row.task.TaskDurationValid(), True);
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday, 1));
}

TEST(TaskBDate, EndsATaskWithoutAnEndOnItsStartWhereTheFlagIsUp) {
    Row row;
    row.task.TaskEDateValid(True);
    row.task.TaskBDate(Thursday);
    EXPECT_EQ(row.Drawn(), Drawing(Thursday, Thursday, 1));
}

TEST(TaskBDate, TakesTheEndAlongAndKeepsTheDuration) {
    Row row;
    row.Holding(Monday, Wednesday, 3);
    row.task.TaskBDate(Thursday);
    EXPECT_EQ(row.Drawn(), Drawing(Thursday, Monday + 7, 3));
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
}

TEST(TaskBDate, MendsAnEndThatDoesNotFitEvenWhereTheStartStays) {
    Row row;
    row.Holding(Monday, Friday, 3);
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
}

TEST(TaskBDate, GivesADayToATaskThatStandsStillWithoutADuration) {
    Row row;
    row.Holding(Monday, Monday, 0);
    In(row.task).TaskDurationValid_Int(False);
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday, 1));
    EXPECT_EQ(row.task.TaskDurationValid(), True);
}

TEST(TaskBDate, MovesAMilestoneWhole) {
    Row row;
    row.Holding(Monday, Monday, 0);
    row.task.TaskMilstones(True);
    row.task.TaskBDate(Wednesday);
    EXPECT_EQ(row.Drawn(), Drawing(Wednesday, Wednesday, 0));
    row.task.TaskBDate(Tuesday);
    EXPECT_EQ(row.Drawn(), Drawing(Tuesday, Tuesday, 0));
}

TEST(TaskBDate, StepsWeeksAndMonthsThroughThePlainCalendar) {
    Row row;
    row.Holding(Monday, Monday, 2, "wks");
    row.task.TaskBDate(Tuesday);
    EXPECT_EQ(row.Drawn(), Drawing(Tuesday, Tuesday + 14, 2));
    row.Holding(Monday, Monday, 1, "mons");
    row.task.TaskBDate(Date::Of(2026, 1, 30));
    EXPECT_EQ(row.task.TaskEDate(), Date::Of(2026, 2, 28));
}

TEST(TaskBDate, DropsTheTimeAfterComparing) {
    Row row;
    row.WithoutCalendar();
    row.Holding(Monday, Monday, 3);
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday, 3)) << "nothing has changed";
    row.task.TaskBDate(Monday + kTenOClock);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3)) << "the moment differs from the day";
}

TEST(TaskBDate, KeepsTheEarliestStartOfThePlan) {
    struct Case {
        const char* what;
        Date min;
        int holder;
        Date given;
        const char* caches;
    };
    for (const Case& c : {Case{"none is known", Date(), 0, Wednesday, "min 2026-03-04 of 7"},
                          Case{"the holder moves on", Monday, 7, Wednesday, "min - of 0"},
                          Case{"the holder stays", Monday, 7, Monday, "min - of 0"},
                          Case{"another holds it", Monday, 5, Wednesday, "min 2026-03-02 of 5"},
                          Case{"another starts then too", Monday, 5, Monday, "min 2026-03-02 of 5"},
                          Case{"it comes first", Wednesday, 5, Monday, "min 2026-03-02 of 7"},
                          Case{"no start", Monday, 5, Date(), "min 2026-03-02 of 5"},
                          Case{"the holder loses its start", Monday, 7, Date(), "min 2026-03-02 of 7"},
                          Case{"no start, none known", Date(), 0, Date(), "min - of 7"}}) {
        SCOPED_TRACE(c.what);
        Row row;
        row.Holding(Tuesday, Tuesday, 1);
        Row::SetCaches(c.min, c.holder, Friday, 5);
        row.task.TaskBDate(c.given);
        EXPECT_EQ(Row::Caches().substr(0, Row::Caches().find(',')), c.caches);
    }
}

TEST(TaskBDate, KeepsTheLatestEndOfThePlan) {
    struct Case {
        const char* what;
        Date max;
        int holder;
        Date given;
        const char* caches;
    };
    for (const Case& c : {Case{"none is known", Date(), 0, Wednesday, "max 2026-03-05 of 7"},
                          Case{"it comes last", Wednesday, 5, Wednesday, "max 2026-03-05 of 7"},
                          Case{"the holder comes last", Wednesday, 7, Wednesday, "max 2026-03-05 of 7"},
                          Case{"the holder ends earlier", Friday, 7, Wednesday, "max - of 0"},
                          Case{"the holder ends then again", Thursday, 7, Wednesday, "max - of 0"},
                          Case{"another holds it", Friday, 5, Wednesday, "max 2026-03-06 of 5"}}) {
        SCOPED_TRACE(c.what);
        Row row;
        row.Holding(Monday, Tuesday, 2);
        Row::SetCaches(Monday - 7, 5, c.max, c.holder);
        row.task.TaskBDate(c.given);
        EXPECT_EQ(Row::Caches(), String("min 2026-02-23 of 5, ") + c.caches);
    }
}

TEST(TaskBDate, LeavesTheCachesToRowsOfThePlan) {
    Row row;
    row.task.TaskCondidat(False);
    row.task.TaskBDate(Monday);
    row.task.TaskEDate(Wednesday);
    EXPECT_EQ(Row::Caches(), "min - of 0, max - of 0");
}

TEST(TaskBDate, FailsAtOnceOnALagThatLeavesTheCalendar) {
    for (const Long lag : {Long(2147483647), Long(-2147483647 - 1), Long(3'000'000), Long(-1'000'000)}) {
        SCOPED_TRACE(lag.value());
        Row row;
        row.task.TaskLag(lag);
        row.task.TaskBDate(Monday);
        EXPECT_EQ(row.failures.Taken(), "TasksCls/TaskBDate 6\n");
        EXPECT_EQ(row.Drawn(), "- - 0");
        EXPECT_EQ(row.task.TaskBDateValid(), False);
    }
}

TEST(TaskBDate, RecordsADateOutsideTheCalendar) {
    Row row;
    row.task.TaskBDate(Date(1e9));
    row.task.TaskBDate(Date(-1e9));
    EXPECT_EQ(row.failures.Taken(), "TasksCls/TaskBDate 6\nTasksCls/TaskBDate 6\n");
    EXPECT_EQ(row.Drawn(), "- - 0");
}

TEST(TaskBDate, ComesBackFromACalendarWithoutAnyWorkingDay) {
    Row row;
    row.WithoutAnyWorkingDay();
    row.task.TaskBDate(Monday);
    EXPECT_EQ(row.failures.Taken(), "Gloabal/SetNextWorkingDay 28\n");
    EXPECT_EQ(row.task.TaskBDate(), Monday);
    row.task.TaskLag(1);
    row.task.TaskBDate(Tuesday);
    EXPECT_EQ(row.failures.Taken(), "Gloabal/SetNextWorkingDay 28\nTasksCls/TaskBDate 28\n");
    EXPECT_EQ(row.task.TaskBDate(), Monday);
}

TEST(TaskBDateValid, ClearsTheDateWhenItChanges) {
    Row row;
    row.Holding(Monday, Wednesday, 3);
    row.task.TaskBDateValid(True);
    row.task.TaskEDateValid(True);
    row.task.TaskDurationValid(True);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
    row.task.TaskBDateValid(False);
    row.task.TaskEDateValid(False);
    row.task.TaskDurationValid(False);
    EXPECT_EQ(row.Drawn(), "- - 0");
}

// --- The rest --------------------------------------------------------------------------------------------------------

TEST(SetBDatewithoutWeekend, MovesTheStartInFrontOfTheFreeDays) {
    Row row;
    row.Holding(Monday + 7, Wednesday + 7, 3);
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), True);
    // Three plain days on is Monday, which shortens the task.
    EXPECT_EQ(row.Drawn(), Drawing(Friday, Monday + 7, 2));
    row.calendar->SetADayAsHoliday(Friday);
    row.Holding(Monday + 7, Monday + 7, 1);
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), True);
    EXPECT_EQ(row.task.TaskBDate(), Thursday);
}

TEST(SetBDatewithoutWeekend, DoesNothingBehindAWorkingDay) {
    Row row;
    row.Holding(Tuesday, Wednesday, 2);
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), False);
    EXPECT_EQ(row.Drawn(), Drawing(Tuesday, Wednesday, 2));
    In(row.task).TaskBDate_Int(Tuesday + kTenOClock);
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), False);
    EXPECT_EQ(row.Drawn(), Drawing(Tuesday, Wednesday, 2));
    row.WithoutCalendar();
    row.Holding(Monday, Wednesday, 3);
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), False);
    Row fresh;
    EXPECT_EQ(fresh.task.setBDatewithoutWeekend(), False);
    EXPECT_EQ(fresh.Drawn(), "- - 0");
}

TEST(SetBDatewithoutWeekend, ComesBackFromACalendarWithoutAnyWorkingDay) {
    Row row;
    row.WithoutAnyWorkingDay();
    row.Holding(Monday, Wednesday, 3);
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), False);
    EXPECT_EQ(row.failures.Taken(), "Gloabal/SetNextWorkingDay 28\n");
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Wednesday, 3));
}

TEST(InitDate, TakesDatesAndDurationBack) {
    Row row;
    row.Holding(Monday, Wednesday, 3);
    EXPECT_EQ(row.task.InitDate(), True);
    EXPECT_EQ(row.Drawn(), "- - 0");
    EXPECT_EQ(row.task.TaskBDateValid(), True);
    EXPECT_EQ(row.task.TaskEDateValid(), True);
    EXPECT_EQ(row.task.TaskDurationValid(), True);
    EXPECT_EQ(Make<TasksCls>()->InitDate(), True);
}

TEST(SetAddValue, NamesTheStepOfTheStoredUnit) {
    struct Case {
        const char* unit;
        const char* step;
        Boolean valid;
    };
    for (const Case& c : {Case{"days", "d", True}, Case{"wks", "ww", True}, Case{"hrs", "h", True},
                          Case{"mins", "n", True}, Case{"mons", "m", True}, Case{"", "", False},
                          Case{"Days", "", False}, Case{"day", "", False}, Case{"hrs ", "", False}}) {
        Row row;
        row.task.TaskDurationUnit(c.unit);
        EXPECT_EQ(row.task.SetAddValue(), c.step) << c.unit;
        EXPECT_EQ(row.task.IsVaildDuration(), c.valid) << c.unit;
    }
}

TEST(TaskDurationUnit, RepairsTheRecordWhenItIsRead) {
    Row row;
    EXPECT_EQ(row.task.TaskDurationUnitValid(), "False");
    EXPECT_EQ(row.task.TaskDurationUnit(), "days");
    EXPECT_EQ(row.task.TaskDurationUnitValid(), "True");
    EXPECT_EQ(row.task.IsVaildDuration(), True);
    for (const char* unit : {"Days", "WKS", "hours", " days"}) {
        Row bad;
        bad.task.TaskDurationUnit(unit);
        EXPECT_EQ(bad.task.TaskDurationUnit(), "days") << unit;
        EXPECT_EQ(bad.task.SetAddValue(), "d") << unit;
        EXPECT_EQ(bad.task.TaskDurationUnitValid(), "False") << "only an empty unit raises the flag";
    }
}

/// A host that acts when it is told of a date that does not fit.
class ActingUi : public RecordingUi {
public:
    explicit ActingUi(DatedRow& row) : services_{row.clock, row.locale, row.faults, row.shell, *this} {}
    void Message(const String& text) override {
        RecordingUi::Message(text);
        if (act) act();
    }
    std::function<void()> act;

private:
    Services services_;
    InstalledServices installed_{services_};
};

TEST(TaskBDate, TellsOfTheRangeBeforeItTakesTheLag) {
    Row row;
    ActingUi ui(row);
    ui.act = [&] { row.task.TaskLag(3); };
    row.task.TaskBDate(Date::Of(1999, 3, 1));
    EXPECT_EQ(row.task.TaskBDate(), Date::Of(2000, 3, 6)) << "three working days behind Wednesday";
}

TEST(TaskBDate, GoesToItsEndUnderAHostThatLetsGoOfTheTask) {
    Row row;
    ActingUi ui(row);
    HeldByHost<TasksCls> task(row);
    task->TaskKey(9);
    ui.act = [&] { task.LetGo(); };
    task->TaskBDate(Date::Of(1999, 3, 1));
    EXPECT_TRUE(task.outlived());
    EXPECT_EQ(Module().g_MinDateTaskKey, 9);
}

TEST(TaskDates, GoToTheirEndUnderAListenerThatLetsGoOfTheTask) {
    for (const auto& set : std::vector<std::function<void(TasksCls&)>>{
             [](TasksCls& task) { task.TaskBDate(Wednesday); },
             [](TasksCls& task) {
                 task.TaskDurationUnit("hrs");
                 task.TaskEDate(Friday);
             },
             [](TasksCls& task) { task.TaskDuration(2); },
             [](TasksCls& task) { task.setBDatewithoutWeekend(); },
         }) {
        Row row;
        row.WithoutAnyWorkingDay();
        HeldByHost<TasksCls> task(row);
        In(*task).StoreStart(Monday);
        In(*task).StoreEnd(Tuesday);
        set(*task);
        EXPECT_TRUE(task.outlived());
        EXPECT_NE(row.failures.Taken(), "");
    }
}

TEST(SetBDatewithoutWeekend, LeavesTheStartItsTimeOfDay) {
    Row row;
    row.Holding(Monday + 7 + kTenOClock, Monday + 7, 1);
    Module().g_MaxDate = Date();
    EXPECT_EQ(row.task.setBDatewithoutWeekend(), True);
    EXPECT_EQ(row.task.TaskBDate(), Friday);
    EXPECT_EQ(Module().g_MaxDate, Friday + kTenOClock) << "the end, of which no getter tells the time";
}

}  // namespace
}  // namespace mrlxmlclass
