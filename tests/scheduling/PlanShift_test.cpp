#include "mrlxmlclass/scheduling/PlanShift.h"

#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

class Shifted : public Plan {
public:
    Shifted() { WithLinks(); }
    PlanShift By(int days) const { return PlanShift(app->xTaskCol(), days); }
};

/// 1 Phase (2 Design, 3 Build behind it), 4 Party.
void BuildHouse(Plan& plan) {
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(3);
    plan.Task("Build").Under("Phase").From(Friday).Lasting(2).After("Design", 1);
    plan.Task("Party").From(Wednesday);
    plan.col().AdjustSummary(plan.Key("Phase"));
    plan.Heard();
}

TEST(PlanShift, MovesNothingBeforeItRuns) {
    Shifted plan;
    BuildHouse(plan);
    const PlanShift shift = plan.By(7);
    EXPECT_EQ(plan["Design"].TaskBDate(), Monday);
    EXPECT_EQ(shift.first(), Monday + 7);
    EXPECT_EQ(shift.last(), Monday + 14);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(PlanShift, MovesEachTaskOnceAndTellsItByRowThenTheSummaries) {
    Shifted plan;
    BuildHouse(plan);
    const String links = Links(plan);

    EXPECT_TRUE(plan.By(7).Run());

    EXPECT_EQ(Weeks(plan, 3),
              "Phase  |.....  |#####==|#....  |\n"
              "Design |.....  |###..  |.....  |\n"
              "Build  |.....  |....#==|#....  |\n"
              "Party  |.....  |..#..  |.....  |\n");
    EXPECT_EQ(plan.Heard(), Moved(2, Monday + 7, Wednesday + 7, 3) + Moved(3, Friday + 7, Monday + 14, 2) +
                                Moved(4, Wednesday + 7, Wednesday + 7, 1) + Summed(1, Monday + 7, Monday + 14, 6));
    EXPECT_EQ(Links(plan), links);
    EXPECT_EQ(Module().g_MinDate, Monday + 7);
    EXPECT_EQ(Module().g_MaxDate, Monday + 14);
}

TEST(PlanShift, MovesWeeksAndMonthsToo) {
    Shifted plan;
    plan.Task("Weeks").From(Monday).Lasting(2, "wks").Task("Months").From(Tuesday).Lasting(1, "mons");
    plan.Task("Hours").From(Friday).Lasting(3, "hrs");
    plan.By(7).Run();
    EXPECT_EQ(plan["Weeks"].TaskBDate(), Monday + 7);
    EXPECT_EQ(plan["Weeks"].TaskEDate(), Monday + 21);
    EXPECT_EQ(plan["Months"].TaskBDate(), Tuesday + 7);
    EXPECT_EQ(plan["Hours"].TaskBDate(), Friday + 7);
}

TEST(PlanShift, KeepsLeadTimesOverAHolidayAndMeasuresThemAnew) {
    Shifted plan;
    BuildHouse(plan);
    plan.calendar().SetADayAsHoliday(Tuesday + 7);
    const String links = Links(plan);
    plan.By(7).Run();
    EXPECT_EQ(Weeks(plan, 3),
              "Phase  |.....  |#=###==|##...  |\n"
              "Design |.....  |#=##.  |.....  |\n"
              "Build  |.....  |. ...  |##...  |\n"
              "Party  |.....  |. #..  |.....  |\n");
    EXPECT_EQ(Links(plan), links);
}

TEST(PlanShift, StepsOverFreeDaysThatWay) {
    Shifted plan;
    plan.Task("Party").From(Friday);
    plan.By(1).Run();
    EXPECT_EQ(plan["Party"].TaskBDate(), Monday + 7);
    plan.By(-1).Run();
    EXPECT_EQ(plan["Party"].TaskBDate(), Friday);
}

TEST(PlanShift, NamesWhatTheCalendarKeepsInItsPlace) {
    Shifted plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A");
    plan.calendar().SetADayAsHoliday(Monday);
    PlanShift shift = plan.By(-1);
    shift.Run();
    EXPECT_EQ(plan["A"].TaskBDate(), Friday - 7);
    EXPECT_EQ(plan["B"].TaskBDate(), Tuesday) << "the first working day behind";
    ASSERT_EQ(shift.Stayed().size(), 1U);
    EXPECT_EQ(shift.Stayed().front()->TaskName(), "B");
}

TEST(PlanShift, KeepsAHalfDayOnItsDayAndTellsItAsItIs) {
    Shifted plan;
    plan.Task("Half").From(Monday).Lasting(0.5);
    plan.Heard();
    plan.By(2).Run();
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 0.5));
}

TEST(PlanShift, MovesACircleOfLinks) {
    Shifted plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A");
    plan.About("A").After("B", -3);
    EXPECT_TRUE(plan.By(7).Run());
    EXPECT_EQ(plan["A"].TaskBDate(), Monday + 7);
    EXPECT_EQ(plan["B"].TaskBDate(), Tuesday + 7);
}

TEST(PlanShift, LeavesTasksWithoutDatesAndCandidates) {
    Shifted plan;
    plan.Task("Open").Holding({}, {}, 1).Task("Gone").From(Monday).Candidate().Task("Here").From(Tuesday).After("Open");
    plan.Heard();
    PlanShift shift = plan.By(7);
    EXPECT_TRUE(shift.Run());
    EXPECT_EQ(plan.Heard(), Moved(3, Tuesday + 7, Tuesday + 7, 1));
    EXPECT_FALSE(plan["Open"].TaskBDate().set());
    EXPECT_EQ(plan["Gone"].TaskBDate(), Monday);
    EXPECT_TRUE(shift.Stayed().empty());
}

TEST(PlanShift, OfAnEmptyPlanDoesNothing) {
    Shifted plan;
    PlanShift shift = plan.By(7);
    EXPECT_TRUE(shift.Run());
    EXPECT_FALSE(shift.first().set());
    EXPECT_FALSE(shift.last().set());
    EXPECT_EQ(plan.Heard(), "");
}

TEST(PlanShift, EndsWhereParentsRunInACircle) {
    Shifted plan;
    BuildRing(plan);
    plan.Task("Leaf").Under("A").From(Monday);
    plan.By(7).Run();
    EXPECT_EQ(plan["Leaf"].TaskBDate(), Monday + 7);
    plan.failures.Taken();
}

TEST(PlanShift, TellsASilencedHostTheLengthAlone) {
    Shifted plan;
    plan.Silenced().WithLinks().Task("A").From(Monday);
    plan.Heard();
    Module().g_SourcePrima = True;
    plan.By(1).Run();
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 1, days, False, False)\n");
}

}  // namespace
}  // namespace mrlxmlclass
