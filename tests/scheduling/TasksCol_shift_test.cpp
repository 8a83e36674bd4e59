#include <gtest/gtest.h>

#include <limits>

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/scheduling/DatedRow.h"
#include "tests/support/Interruption.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A day and where a shift brings it.
struct Step {
    Date from;
    double by;
    Date to;
};

/// Shifts a plan of one task of a day, which may stand on a free day.
void ExpectShifted(Plan& plan, const Step& step) {
    SCOPED_TRACE(DayName(step.from) + " by " + std::to_string(step.by));
    In(plan["Design"]).StoreStart(step.from);
    In(plan["Design"]).StoreEnd(step.from);
    In(plan["Design"]).StoreDuration(1);
    EXPECT_FALSE(plan.col().ResetStartDate(step.by));
    EXPECT_EQ(plan.Heard(), Moved(1, step.to, step.to, 1) + Shifted(1, step.to, step.to));
}

void ExpectShifted(Plan& plan, std::initializer_list<Step> steps) {
    for (const Step& step : steps) ExpectShifted(plan, step);
}

TEST(ResetStartDate, MovesATaskAndTellsItsDatesOnceMore) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EXPECT_FALSE(plan.col().ResetStartDate(1)) << "the caller learns nothing";
    EXPECT_EQ(Weeks(plan, 1), "Design |.###.  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Thursday, 3) + Shifted(1, Tuesday, Thursday));
}

TEST(ResetStartDate, StepsOverTheWeekendThatATaskStandsNextTo) {
    Plan plan;
    plan.Task("Design");
    ExpectShifted(plan, {{Monday, 1, Tuesday},
                         {Thursday, 1, Friday},
                         {Friday, 1, Monday + 7},
                         {Friday, 3, Wednesday + 7},
                         {Friday, 7, Monday + 14},  // nine days on is a Sunday
                         {Thursday, 2, Monday + 7},
                         {Monday + 7, -1, Friday},
                         {Monday + 7, -3, Wednesday},
                         {Monday + 7, -5, Monday},
                         {Tuesday + 7, -1, Monday + 7},
                         {Tuesday + 7, -4, Friday}});
}

TEST(ResetStartDate, LooksForwardForAWorkingDayInEitherDirection) {
    Plan plan;
    plan.Task("Design");
    ExpectShifted(plan, {{Tuesday + 7, -2, Monday + 7}, {Tuesday + 7, -3, Monday + 7}, {Monday + 7, -7, Monday}});
}

TEST(ResetStartDate, KeepsCountingAShiftOfNothingAsForward) {
    Plan plan;
    plan.Task("Design");
    ExpectShifted(plan, {{Thursday, 0, Thursday}, {Friday, 0, Monday + 7}, {Monday, 0, Monday}});
}

TEST(ResetStartDate, StepsOnlyOverTheFreeDaysAheadOfATaskOnAFreeDay) {
    Plan plan;
    plan.Task("Design");
    ExpectShifted(plan, {{Saturday, 1, Monday + 7},   // Sunday is ahead
                         {Saturday, 0, Monday + 7},   // which is where it ends up
                         {Saturday, -1, Friday},      // Friday is worked
                         {Sunday, -1, Friday},        // Saturday is behind
                         {Sunday, 1, Monday + 7},     // Monday is worked
                         {Sunday, 2, Tuesday + 7}});  // nothing to step over
}

TEST(ResetStartDate, StepsOverHolidaysAndOntoExceptionDays) {
    Plan plan;
    plan.Task("Design");
    plan.calendar().SetADayAsHoliday(Monday + 7);
    plan.calendar().SetADayAsHoliday(Wednesday);
    ExpectShifted(plan, {{Friday, 1, Tuesday + 7},
                         {Tuesday + 7, -1, Friday},
                         {Tuesday, 1, Thursday},
                         {Thursday, -1, Tuesday},
                         {Monday, 2, Thursday}});
    plan.calendar().SetADayAsExceptionDay(Saturday);
    ExpectShifted(plan, {{Friday, 1, Saturday}, {Saturday, 1, Tuesday + 7}, {Tuesday + 7, -1, Saturday}});
}

TEST(ResetStartDate, StepsOverNothingWhereEveryDayIsWorked) {
    Plan plan;
    plan.WithoutWeekends().Task("Design");
    ExpectShifted(plan, {{Friday, 1, Saturday}, {Friday, 0, Friday}, {Monday, -1, Monday - 1}});
    Module().g_PublicCalendar = {};
    ExpectShifted(plan, {{Friday, 1, Saturday}, {Monday, -1, Monday - 1}});
}

TEST(ResetStartDate, KeepsTheFractionInTheDateAndDecidesByTheWholeNumber) {
    Plan plan;
    plan.Task("Design");
    ExpectShifted(plan, {{Wednesday, 0.5, Wednesday},
                         {Wednesday, 1.5, Thursday},
                         {Wednesday, -0.5, Tuesday},
                         {Friday, -0.5, Monday + 7},      // forward: 0 is the even neighbour
                         {Friday, -0.6, Thursday},        // backward
                         {Monday + 7, -0.5, Monday + 7},  // forward, and the Sunday gives way to the Monday
                         {Monday + 7, -0.6, Friday}});    // backward, over the weekend
}

TEST(ResetStartDate, KeepsTellingTheUnitDaysWhateverTheTaskHas) {
    Plan plan;
    plan.Task("Design").From(Tuesday).Lasting(4, "hrs");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(),
              (Told{.key = 1, .start = Wednesday, .end = Wednesday, .duration = 4, .unit = "hrs"}.Moved()) +
                  Shifted(1, Wednesday, Wednesday));
}

TEST(ResetStartDate, KeepsATaskInWeeksWhereItIs) {
    Plan plan;
    plan.Task("Design").From(Tuesday).Lasting(2, "wks");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(),
              (Told{.key = 1, .start = Tuesday, .end = Tuesday + 14, .duration = 2, .unit = "wks"}.Moved()) +
                  Shifted(1, Tuesday, Tuesday + 14));
}

TEST(ResetStartDate, KeepsAddingTheLagInForce) {
    Plan plan;
    plan.Task("Design").From(Monday);
    plan["Design"].TaskLag(2);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Shifted(1, Thursday, Thursday));
    EXPECT_EQ(plan["Design"].TaskLag(), 2);
}

TEST(ResetStartDate, MovesAMilestone) {
    Plan plan;
    plan.Task("Done").From(Friday).Milestone();
    plan.col().ResetStartDate(1);
    const Told there{.key = 1, .start = Monday + 7, .end = Monday + 7, .milestone = True};
    EXPECT_EQ(plan.Heard(), there.Moved() + there.Shifted());
    plan.col().ResetStartDate(-1);
    const Told back{.key = 1, .start = Friday, .end = Friday, .milestone = True};
    EXPECT_EQ(plan.Heard(), back.Moved() + back.Shifted());
}

TEST(ResetStartDate, LeavesCandidatesWhereTheyAre) {
    Plan plan;
    plan.Task("Aside").From(Monday).Candidate().Task("Design").From(Monday);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(DayName(plan["Aside"].TaskBDate()), DayName(Monday));
    EXPECT_EQ(plan.Heard(), Moved(2, Tuesday, Tuesday, 1) + Shifted(2, Tuesday, Tuesday));
}

TEST(ResetStartDate, GoesThroughTheRowsInTheirOrder) {
    Plan plan;
    plan.Task("Second").From(Tuesday).Task("First").From(Wednesday);
    plan["Second"].TaskPosition(2);
    plan["First"].TaskPosition(1);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(Walked(plan.col()), "First Second");
    EXPECT_EQ(plan.Heard(), Moved(2, Thursday, Thursday, 1) + Shifted(2, Thursday, Thursday) +
                                Moved(1, Wednesday, Wednesday, 1) + Shifted(1, Wednesday, Wednesday));
}

TEST(ResetStartDate, KeepsTakingAPlainRowWithChildrenForATaskWithoutChildren) {
    Plan plan;
    plan.Task("Phase").From(Monday).Lasting(2).Task("Design").Under("Phase").From(Monday);
    plan["Phase"].TaskType(True);
    plan.col().ResetStartDate(1);
    const Told phase{.key = 1, .start = Tuesday, .end = Wednesday, .duration = 2, .parent = True};
    EXPECT_EQ(plan.Heard(), phase.Moved() + phase.Shifted());
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), DayName(Monday));
}

TEST(ResetStartDate, KeepsReckoningFromDayZeroForATaskWithoutDates) {
    Plan plan;
    plan.Task("Design");
    plan.col().ResetStartDate(5);  // 30 December 1899 stands before a Sunday, so it is 5 January 1900
    const Date there = Date::Of(2000, 1, 5);
    EXPECT_EQ(plan.Heard(), Moved(1, there, Date(), 1) + Shifted(1, there, Date()));
    EXPECT_EQ(plan.platform.ui.messages.size(), 1U);
}

TEST(ResetStartDate, StopsAtTheFirstYearWithAMessage) {
    Plan plan;
    plan.Task("Design").From(Tuesday).Lasting(3);
    plan.col().ResetStartDate(-10'000);  // to 16 October 1998
    const Date there = Date::Of(2000, 10, 16);
    EXPECT_EQ(plan.Heard(), Moved(1, there, there + 2, 3) + Shifted(1, there, there + 2));
    EXPECT_EQ(plan.platform.ui.messages.size(), 1U);
}

TEST(ResetStartDate, PressesThePlanTogetherInTheLastYear) {
    Plan plan;
    plan.Task("Near").From(Tuesday).Task("Far").From(Date::Of(2027, 3, 3));
    plan.col().ResetStartDate(5'000);  // to 10 November 2039 and 9 November 2040
    const Date there = Date::Of(2036, 11, 10);
    EXPECT_EQ(plan.Heard(), Moved(1, there, there, 1) + Shifted(1, there, there) + Moved(2, there, there, 1) +
                                Shifted(2, there, there));
    EXPECT_TRUE(plan.platform.ui.messages.empty());
}

TEST(ResetStartDate, LeavesATaskWhereALeapDayFindsNoPlaceInTheLastYear) {
    Plan plan;
    plan.Task("Design").From(Tuesday);
    Module().g_MaxYear = 2035;
    plan.col().ResetStartDate((Date::Of(2040, 2, 29).days() - Tuesday.days()));
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/TaskBDate 13\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Shifted(1, Tuesday, Tuesday));
}

TEST(ResetStartDate, RecordsAShiftThatNoIntegerHolds) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Tuesday);
    for (const double by : {32'768.0, -32'769.0, 40'000.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        SCOPED_TRACE(by);
        EXPECT_FALSE(plan.col().ResetStartDate(by));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/ResetStartDate 6\n");
    }
    EXPECT_EQ(Weeks(plan, 1), "Design |#....  |\nBuild  |.#...  |\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ResetStartDate, EndsWhereNoDayIsWorked) {
    Plan plan;
    plan.Task("Design").From(Monday);
    for (int weekday = 1; weekday <= 7; ++weekday) plan.calendar().SetAsNonWorkingDay(weekday);
    const TimeLimit limit("a calendar without any working day");
    EXPECT_FALSE(plan.col().ResetStartDate(1));
    EXPECT_NE(plan.failures.Taken().find(" 28\n"), String::npos);
    plan.Heard();
}

TEST(ResetStartDate, DoesNothingToAnEmptyPlan) {
    Plan plan;
    EXPECT_FALSE(plan.col().ResetStartDate(5));
    EXPECT_EQ(DatedRow::Caches(), "min - of 0, max - of 0");
}

TEST(ResetStartDate, LeavesTheSpanAsTheDatesKeptIt) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    DatedRow::SetCaches(Date(), 0, Date(), 0);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-03 of 1, max 2026-03-05 of 1");
    plan.Heard();
}

TEST(ResetStartDate, TellsASilencedHostTheDurationAlone) {
    Plan plan;
    plan.Silenced().Task("Design").From(Monday).Lasting(3);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(Weeks(plan, 1), "Design |.###.  |\n");
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 3, days, False, False)\n");
}

TEST(ResetStartDate, SurvivesAListenerThatShiftsAgain) {
    Plan plan;
    plan.Task("A").From(Monday).Task("B").From(Monday).Task("C").From(Monday);
    {
        const Interruption host(plan, "DateStartChange", 1, [&] { plan.col().ResetStartDate(1); });
        plan.col().ResetStartDate(1);
    }
    EXPECT_EQ(Weeks(plan, 1), "A |..#..  |\nB |..#..  |\nC |..#..  |\n");
    plan.Heard();
}

TEST(ResetStartDate, SurvivesAListenerThatTakesATaskAway) {
    Plan plan;
    plan.Task("A").From(Monday).Task("B").From(Monday).Task("C").From(Monday);
    {
        const Interruption host(plan, "DateStartChange", 2, [&] { plan.col().RemoveForLib("1"); });
        plan.col().ResetStartDate(1);
    }
    EXPECT_EQ(Weeks(plan, 1), "B |.#...  |\nC |.#...  |\n");
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
