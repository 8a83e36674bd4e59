#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/scheduling/Adjusted.h"
#include "tests/support/Links.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

const Date kFirstWorkingDay =
    Date::Of(2001, 1, 1);  // where day 1 of the calendar ends up: 31 December 2000 is a Sunday

// --- Without live links ---------------------------------------------------------------------------------------------

TEST(AddTaskPredecessor, KeepsReckoningFromThePredecessorsStartWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(4).Task("Build").From(Friday).Lasting(2);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", False, /*setforNonDepend=*/True), True);
    EXPECT_EQ(Weeks(plan),
              "Design |####.  |.....  |\n"
              "Build  |.##..  |.....  |\n");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, WithoutLiveLinksMovesNothingUnlessItIsTold) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", /*FirstTime=*/True), True);
    EXPECT_EQ(plan["Build"].TaskBDate(), Friday);
}

TEST(AddTaskPredecessor, WithoutLiveLinksGoesOnToAWorkingDay) {
    Plan plan;
    plan.Task("Design").From(Friday).Task("Build").From(Monday);
    plan.col().AddTaskPredecessor("2", "1", False, True);
    EXPECT_EQ(plan["Build"].TaskBDate(), Monday + 7);
}

TEST(AddTaskPredecessor, WithoutLiveLinksTakesASummaryAndAParent) {
    Plan plan;
    plan.Task("Phase").From(Monday).Task("Inside").Under("Phase").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", False, True), True);
    EXPECT_EQ(plan["Inside"].TaskBDate(), Tuesday);
}

TEST(AddTaskPredecessor, WithoutLiveLinksBringsTheDayBehindNoDayIntoRange) {
    Plan plan;
    plan.Task("Undated").Task("Build").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", False, True), True);
    EXPECT_EQ(plan["Build"].TaskBDate(), kFirstWorkingDay);
    EXPECT_EQ(plan["Undated"].TaskBDate(), Date()) << "it stays undated";
    EXPECT_EQ(plan.platform.ui.messages, std::vector<String>{kAdjusted});
}

// --- Without AutoLink -----------------------------------------------------------------------------------------------

/// Live links that are not stored.
class Unlinking : public Plan {
public:
    Unlinking() { WithLinks(); }
};

TEST(AddTaskPredecessor, WithoutAutoLinkStartsTheTaskBehindThePredecessorsEnd) {
    Unlinking plan;
    plan.Task("Design").From(Monday).Lasting(5).Task("Build").From(Monday).Lasting(2);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Weeks(plan),
              "Design |#####  |.....  |\n"
              "Build  |.....  |##...  |\n");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, WithoutAutoLinkAppliesTheLagInForce) {
    Unlinking plan;
    plan.Task("Design").From(Monday).Task("Build").From(Monday);
    plan["Build"].TaskLag(2);
    plan.col().AddTaskPredecessor("2", "1");
    EXPECT_EQ(plan["Build"].TaskBDate(), Thursday);
}

TEST(AddTaskPredecessor, WithoutAutoLinkStartsAChildWithItsParent) {
    Unlinking plan;
    plan.Task("Phase").From(Tuesday).Lasting(9).Task("Inside").Under("Phase").From(Monday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan["Inside"].TaskBDate(), Tuesday);
}

TEST(AddTaskPredecessor, WithoutAutoLinkTakesTheStartOfAChildWhoseParentHasNone) {
    Unlinking plan;
    plan.Task("Phase").Task("Inside").Under("Phase").From(Monday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan["Inside"].TaskBDate(), Date());
    EXPECT_EQ(plan["Inside"].TaskBDateValid(), True);
    EXPECT_TRUE(plan.platform.ui.messages.empty());
}

TEST(AddTaskPredecessor, WithoutAutoLinkTakesASummary) {
    Unlinking plan;
    plan.Task("Phase").Task("Inside").Under("Phase").From(Monday).Lasting(2).Task("Build").From(Monday);
    plan.col().AdjustSummary("1");
    plan.Heard();
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "1"), True);
    EXPECT_EQ(plan["Build"].TaskBDate(), Wednesday);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, KeepsMovingATaskBehindItselfWithoutAutoLink) {
    Unlinking plan;
    plan.Task("Design").From(Monday).Lasting(2);
    EXPECT_EQ(plan.col().AddTaskPredecessor("1", "1"), True);
    EXPECT_EQ(plan["Design"].TaskBDate(), Wednesday);
}

TEST(AddTaskPredecessor, WithoutAutoLinkBringsTheDayBehindNoDayIntoRange) {
    Unlinking plan;
    plan.Task("Undated").Task("Build").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan["Build"].TaskBDate(), kFirstWorkingDay);
    EXPECT_EQ(plan.platform.ui.messages, std::vector<String>{kAdjusted});
}

// --- A predecessor without dates ------------------------------------------------------------------------------------

TEST(AddTaskPredecessor, DatesAPredecessorThatHasNoDates) {
    LinkingPlan plan;
    plan.platform.clock.now = Wednesday + 0.5;
    plan.Task("Undated").Task("Build").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Weeks(plan),
              "Undated |..#..  |.....  |\n"
              "Build   |....#  |.....  |\n");
    EXPECT_EQ(plan["Undated"].TaskDuration(), 1);
    EXPECT_EQ(Links(plan), "Undated -> Build\nBuild <- Undated|1\n");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\nPredecessorKeyChange(2, 1, add)\nSucessorChange(1, 2)\n")
        << "its dates are not told";
}

TEST(AddTaskPredecessor, DatesAPredecessorOnAFreeDayForTheNextWorkingDay) {
    LinkingPlan plan;
    plan.platform.clock.now = Saturday + 0.5;
    plan.Task("Undated").Task("Build").From(Friday);
    plan.col().AddTaskPredecessor("2", "1");
    EXPECT_EQ(Weeks(plan),
              "Undated |.....  |#....  |\n"
              "Build   |....#  |.....  |\n");
}

TEST(AddTaskPredecessor, KeepsEndingAnUndatedMilestoneTodayWhichStartsIt) {
    LinkingPlan plan;
    plan.Task("Done");
    plan["Done"].TaskMilstones(True);
    plan.Task("Build").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan["Done"].TaskEDate(), Monday);
    EXPECT_EQ(plan["Done"].TaskBDate(), Monday);
    EXPECT_EQ(plan["Done"].TaskBDateValid(), False) << "only its end was set";
}

TEST(AddTaskPredecessor, DatesAPredecessorBeforeItFindsTheLinkRedundant) {
    LinkingPlan plan;
    plan.Task("X").From(Monday).Task("Undated").After("X").Task("T").From(Friday).After("X");
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2"), False);
    EXPECT_EQ(plan["Undated"].TaskBDate(), Monday);
    EXPECT_EQ(plan["T"].TaskBDate(), Friday);
}

}  // namespace
}  // namespace mrlxmlclass
