#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/scheduling/Adjusted.h"
#include "tests/support/Links.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- The first time -------------------------------------------------------------------------------------------------

TEST(AddTaskPredecessor, TheFirstTimePutsTheTaskBehindItsPredecessor) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Monday).Lasting(2);

    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True), True);

    EXPECT_EQ(Weeks(plan),
              "Design |###..  |.....  |\n"
              "Build  |...##  |.....  |\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, 2026-03-05, False, False)\n"
              "DateEndChange(2, 2026-03-06, False, False, days)\n"
              "DurationChange(2, 2, days, False, False)\n"
              "TaskDurationChange(2, 2, days, False, False)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, TheFirstTimeGoesOverAWeekend) {
    LinkingPlan plan;
    plan.Task("Design").From(Wednesday).Lasting(3).Task("Build").From(Monday).Lasting(7);
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(Weeks(plan, 3),
              "Design |..###  |.....  |.....  |\n"
              "Build  |.....  |#####==|##...  |\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
}

TEST(AddTaskPredecessor, TheFirstTimeGoesOverHolidaysAndWorksOnExceptionDays) {
    LinkingPlan plan;
    plan.Task("Design").From(Wednesday).Lasting(3).Task("Build").From(Monday).Lasting(2);
    plan.calendar().SetADayAsHoliday(Monday + 7);
    plan.calendar().SetADayAsExceptionDay(Sunday);
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(Weeks(plan),
              "Design |..### .| ....  |\n"
              "Build  |..... #|=#...  |\n");
}

TEST(AddTaskPredecessor, TheFirstTimeBringsALaterTaskBack) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Monday + 9).Lasting(2);
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(Weeks(plan),
              "Design |#....  |.....  |\n"
              "Build  |.##..  |.....  |\n");
}

TEST(AddTaskPredecessor, TheFirstTimeDatesATaskThatHasNoDates) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True), True);
    EXPECT_EQ(Weeks(plan),
              "Design |###..  |.....  |\n"
              "Build  |...#.  |.....  |\n");
}

TEST(AddTaskPredecessor, TheFirstTimeMovesAMilestone) {
    LinkingPlan plan;
    plan.Task("Design").From(Wednesday).Lasting(3).Task("Done").From(Monday).Milestone();
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(Weeks(plan),
              "Design |..###  |.....  |\n"
              "Done   |.....  |o....  |\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, 2026-03-09, True, False)\n"
              "DateEndChange(2, 2026-03-09, True, False, days)\n"
              "DurationChange(2, 0, days, True, False)\n"
              "TaskDurationChange(2, 0, days, True, False)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, TheFirstTimeMovesATaskInWeeks) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Monday).Lasting(1, "wks");
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, 2026-03-03, False, False)\n"
              "DateEndChange(2, 2026-03-10, False, False, wks)\n"
              "DurationChange(2, 1, wks, False, False)\n"
              "TaskDurationChange(2, 1, wks, False, False)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, TheFirstTimeTakesTheTasksSuccessorsAlong) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Monday).Lasting(2);
    plan.Task("Test").From(Wednesday).After("Build").Task("Ship").From(Friday).After("Test", 1);

    plan.col().AddTaskPredecessor("2", "1", True);

    EXPECT_EQ(Weeks(plan),
              "Design |###..  |.....  |\n"
              "Build  |...##  |.....  |\n"
              "Test   |.....  |#....  |\n"
              "Ship   |.....  |...#.  |\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, 2026-03-05, False, False)\n"
              "DateEndChange(2, 2026-03-06, False, False, days)\n"
              "DurationChange(2, 2, days, False, False)\n"
              "TaskDurationChange(2, 2, days, False, False)\n"
              "DateStartChange(3, 2026-03-09, False, False)\n"
              "DateEndChange(3, 2026-03-09, False, False, days)\n"
              "DurationChange(3, 1, days, False, False)\n"
              "TaskDurationChange(3, 1, days, False, False)\n"
              "DateStartChange(4, 2026-03-12, False, False)\n"
              "DateEndChange(4, 2026-03-12, False, False, days)\n"
              "DurationChange(4, 1, days, False, False)\n"
              "TaskDurationChange(4, 1, days, False, False)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
    EXPECT_EQ(Links(plan),
              "Design -> Build\n"
              "Build <- Design|0\n"
              "Build -> Test\n"
              "Test <- Build|0\n"
              "Test -> Ship\n"
              "Ship <- Test|1\n");
}

TEST(AddTaskPredecessor, TheFirstTimeVisitsEachTaskOfACycleOnce) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A").Task("C").From(Wednesday).After("B");

    EXPECT_EQ(plan.col().AddTaskPredecessor("1", "3", True), True);

    EXPECT_EQ(Weeks(plan),
              "A |...#.  |.....  |\n"
              "B |....#  |.....  |\n"
              "C |.....  |#....  |\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(1, 2026-03-05, False, False)\n"
              "DateEndChange(1, 2026-03-05, False, False, days)\n"
              "DurationChange(1, 1, days, False, False)\n"
              "TaskDurationChange(1, 1, days, False, False)\n"
              "DateStartChange(2, 2026-03-06, False, False)\n"
              "DateEndChange(2, 2026-03-06, False, False, days)\n"
              "DurationChange(2, 1, days, False, False)\n"
              "TaskDurationChange(2, 1, days, False, False)\n"
              "DateStartChange(3, 2026-03-09, False, False)\n"
              "DateEndChange(3, 2026-03-09, False, False, days)\n"
              "DurationChange(3, 1, days, False, False)\n"
              "TaskDurationChange(3, 1, days, False, False)\n"
              "PredecessorChange(1, 3)\n"
              "PredecessorKeyChange(1, 3, add)\n"
              "SucessorChange(3, 1)\n");
    EXPECT_EQ(plan["A"].isPredecessor("3"), True);
    EXPECT_EQ(plan["A"].TaskLeadTime()->Item("3"), Variant("3|-3")) << "three worked days back from C's end";
}

TEST(AddTaskPredecessor, TheFirstTimeLeavesTheTasksOwnParentToTheCaller) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Phase").Task("Build").Under("Phase").From(Monday).Lasting(2);
    plan.col().AdjustSummary("2");
    plan.col().AddTaskPredecessor("3", "1", True);
    EXPECT_EQ(Weeks(plan),
              "Design |###..  |.....  |\n"
              "Phase  |##...  |.....  |\n"
              "Build  |...##  |.....  |\n");
}

TEST(AddTaskPredecessor, TheFirstTimeKeepsApplyingALagThatIsInForceTwice) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Monday);
    plan["Build"].TaskLag(1);
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(Weeks(plan),
              "Design |#....  |.....  |\n"
              "Build  |...#.  |.....  |\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|2\n");
}

TEST(AddTaskPredecessor, TheFirstTimeMeasuresNothingWhenAListenerTakesTheLinkOffAgain) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Monday).Lasting(2);
    struct Quick : TasksColEvents {
        explicit Quick(TasksCol& tasks) : tasks_(tasks) {}
        void DateStartChange(Long, Date, Boolean, Boolean) override { tasks_.RemoveTaskPredecessor("2", "1"); }
        TasksCol& tasks_;
    } quick(plan.col());
    plan.col().Events.Add(quick);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True), True);
    plan.col().Events.Remove(quick);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan["Build"].TaskLeadTime()->Count(), 0);
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, 2026-03-05, False, False)\n"
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "DateEndChange(2, 2026-03-06, False, False, days)\n"
              "DurationChange(2, 2, days, False, False)\n"
              "TaskDurationChange(2, 2, days, False, False)\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, )\n");
}

// --- A summary that comes to wait -----------------------------------------------------------------------------------

/// 1 Before, 2 Phase over 3 Design and 4 Build, which have a worked day between them.
class BeforePhase : public LinkingPlan {
public:
    BeforePhase(Date before, Double lasting) {
        Task("Before").From(before).Lasting(lasting).Task("Phase");
        Task("Design").Under("Phase").From(Monday).Lasting(2).Task("Build").Under("Phase").From(Thursday).Lasting(2);
        col().AdjustSummary("2");
        Heard();
    }
};

TEST(AddTaskPredecessor, TheFirstTimeMovesASummaryWithWhatIsInIt) {
    BeforePhase plan(Monday, 2);

    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True), True);

    EXPECT_EQ(Weeks(plan),
              "Before |##...  |.....  |\n"
              "Phase  |..###==|##...  |\n"
              "Design |..##.  |.....  |\n"
              "Build  |.....  |##...  |\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(3, 2026-03-04, False, False)\n"
              "DateEndChange(3, 2026-03-05, False, False, days)\n"
              "DurationChange(3, 2, days, False, False)\n"
              "TaskDurationChange(3, 2, days, False, False)\n"
              "DateStartChange(4, 2026-03-09, False, False)\n"
              "DateEndChange(4, 2026-03-10, False, False, days)\n"
              "DurationChange(4, 2, days, False, False)\n"
              "TaskDurationChange(4, 2, days, False, False)\n"
              "DurationChange(2, 5, days, False, True)\n"
              "TaskDurationChange(2, 5, days, False, True)\n"
              "DateEndChange(2, 2026-03-10, False, True, days)\n"
              "DateStartChange(2, 2026-03-04, False, True)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
    EXPECT_EQ(Links(plan), "Before -> Phase\nPhase <- Before|0\n");
}

TEST(AddTaskPredecessor, TheFirstTimeMovesASummaryOverAWeekend) {
    BeforePhase plan(Monday, 5);
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(Weeks(plan),
              "Before |#####  |.....  |\n"
              "Phase  |.....  |#####  |\n"
              "Design |.....  |##...  |\n"
              "Build  |.....  |...##  |\n");
    EXPECT_EQ(Links(plan), "Before -> Phase\nPhase <- Before|0\n");
}

TEST(AddTaskPredecessor, TheFirstTimeTellsASummaryThatStandsRightAlready) {
    LinkingPlan plan;
    plan.Task("Before").From(Monday).Task("Phase").Task("Inside").Under("Phase").From(Tuesday).Lasting(2);
    plan.col().AdjustSummary("2");
    plan.Heard();
    plan.col().AddTaskPredecessor("2", "1", True);
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(3, 2026-03-03, False, False)\n"
              "DateEndChange(3, 2026-03-04, False, False, days)\n"
              "DurationChange(3, 2, days, False, False)\n"
              "TaskDurationChange(3, 2, days, False, False)\n"
              "DurationChange(2, 2, days, False, True)\n"
              "TaskDurationChange(2, 2, days, False, True)\n"
              "DateEndChange(2, 2026-03-04, False, True, days)\n"
              "DateStartChange(2, 2026-03-03, False, True)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

// --- A second predecessor -------------------------------------------------------------------------------------------

/// "Q" on Monday and Tuesday, "P" from Wednesday to Friday, and "T", which waits for Q and starts late.
class Second : public LinkingPlan {
public:
    Second() {
        Task("Q").From(Monday).Lasting(2).Task("P").From(Wednesday).Lasting(3);
        Task("T").From(Monday + 9).Lasting(2).After("Q", 5);
    }
};

TEST(AddTaskPredecessor, KeepsReckoningASecondPredecessorFromItsStart) {
    Second plan;

    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2", True), True);

    EXPECT_EQ(Weeks(plan),
              "Q |##...  |.....  |\n"
              "P |..###  |.....  |\n"
              "T |...##  |.....  |\n");
    EXPECT_EQ(Links(plan), "Q -> T\nP -> T\nT <- Q|5 P\n") << "no gap is measured";
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(3, 1, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n")
        << "nor are its dates told";
}

TEST(AddTaskPredecessor, ReckonsASecondPredecessorFromTheNearestRowAboveTheTask) {
    Second plan;
    plan["Q"].TaskPosition(2);
    plan["P"].TaskPosition(1);
    plan.col().AddTaskPredecessor("3", "2", True);
    EXPECT_EQ(plan["T"].TaskBDate(), Tuesday) << "behind the start of Q";
}

TEST(AddTaskPredecessor, KeepsToTheFirstOfTwoPredecessorsInOneRow) {
    Second plan;
    plan["P"].TaskPosition(1);
    plan.col().AddTaskPredecessor("3", "2", True);
    EXPECT_EQ(plan["T"].TaskBDate(), Tuesday) << "behind the start of Q";
}

TEST(AddTaskPredecessor, PassesOverPredecessorsBelowTheTask) {
    Second plan;
    plan["T"].TaskPosition(2);
    plan["P"].TaskPosition(3);
    plan.col().AddTaskPredecessor("3", "2", True);
    EXPECT_EQ(plan["T"].TaskBDate(), Tuesday) << "behind the start of Q";
}

TEST(AddTaskPredecessor, KeepsReckoningFromNoDayWhereAllPredecessorsStandBelow) {
    Second plan;
    plan["T"].TaskPosition(1);
    plan["Q"].TaskPosition(2);
    plan["P"].TaskPosition(3);
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2", True), True);
    EXPECT_EQ(plan["T"].TaskBDate(), Date::Of(2001, 1, 1)) << "31 December 2000 was a Sunday";
    EXPECT_EQ(plan.platform.ui.messages, std::vector<String>{kAdjusted});
}

TEST(AddTaskPredecessor, MovesASummaryToTheStartOfASecondPredecessor) {
    LinkingPlan plan;
    plan.Task("Q").From(Monday).Task("P").From(Tuesday).Lasting(2);
    plan.Task("Phase").After("Q", 2).Task("Inside").Under("Phase").From(Thursday).Lasting(2);
    plan.col().AdjustSummary("3");
    plan.Heard();

    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2", True), True);

    EXPECT_EQ(Weeks(plan),
              "Q      |#....  |.....  |\n"
              "P      |.##..  |.....  |\n"
              "Phase  |.##..  |.....  |\n"
              "Inside |.##..  |.....  |\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(4, 2026-03-03, False, False)\n"
              "DateEndChange(4, 2026-03-04, False, False, days)\n"
              "DurationChange(4, 2, days, False, False)\n"
              "TaskDurationChange(4, 2, days, False, False)\n"
              "DurationChange(3, 2, days, False, True)\n"
              "TaskDurationChange(3, 2, days, False, True)\n"
              "DateEndChange(3, 2026-03-04, False, True, days)\n"
              "DateStartChange(3, 2026-03-03, False, True)\n"
              "PredecessorChange(3, 1, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n");
    EXPECT_EQ(Links(plan), "Q -> Phase\nP -> Phase\nPhase <- Q|0 P|-2\n") << "measured by the summary";
}

TEST(AddTaskPredecessor, KeepsMovingTheTaskBehindAPredecessorThatIsRedundant) {
    LinkingPlan plan;
    plan.Task("X").From(Monday).Task("B").From(Tuesday).Lasting(2).After("X").Task("T").From(Monday + 7).After("X");
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2", True), False);
    EXPECT_EQ(Weeks(plan),
              "X |#....  |.....  |\n"
              "B |.##..  |.....  |\n"
              "T |...#.  |.....  |\n");
    EXPECT_EQ(Links(plan), "X -> B T\nB <- X|0\nT <- X|0\n");
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
