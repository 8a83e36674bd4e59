#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A task that was longer than a day and became a milestone.
String MovedAndADayLong(int key, Date day) {
    return Told{.key = key, .start = day, .end = day, .duration = 1, .milestone = True}.Moved();
}

TEST(SeTAsMilstones, TurnsATaskOfADayIntoAMilestone) {
    Plan plan;
    plan.Task("Done").From(Friday).Task("Build").From(Monday);
    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), Variant(1)));
    EXPECT_TRUE(plan["Done"].TaskMilstones());
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Friday));
    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1")) << "once more, by its text";
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Friday));
}

TEST(SeTAsMilstones, KeepsADayForALongerTask) {
    Plan plan;
    plan.Task("Done").From(Tuesday).Lasting(3);
    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1"));
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(1, Tuesday)) << "an end that comes forward measures the duration anew";
}

TEST(SeTAsMilstones, CountsInDaysFromThenOn) {
    Plan plan;
    plan.Task("Hours").From(Tuesday).Lasting(4, "hrs").Task("Weeks").From(Tuesday).Lasting(2, "wks");
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1");
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Tuesday));
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "2");
    EXPECT_EQ(plan.Heard(), MovedMilestone(2, Tuesday)) << "weeks are measured by no date";
    EXPECT_EQ(plan["Weeks"].TaskDurationUnit(), "days");
}

TEST(SeTAsMilstones, LeavesATaskWithoutDatesUndated) {
    Plan plan;
    plan.Task("Done");
    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1"));
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Date()));
}

TEST(SeTAsMilstones, ChangesNothingOnASummary) {
    Plan plan;
    plan.Task("Phase").From(Monday).Lasting(3).Task("Design").Under("Phase").From(Monday);
    EXPECT_FALSE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1"));
    EXPECT_FALSE(plan["Phase"].TaskMilstones());
    EXPECT_EQ(plan["Phase"].TaskDuration(), 3);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SeTAsMilstones, LooksTheTaskUpInTheCollectionThatIsGiven) {
    Plan plan;
    plan.Task("Done").From(Friday);
    const Ref<TasksCol> copy = plan.col().Clone();
    EXPECT_TRUE(plan.col().SeTAsMilstones(copy, "1"));
    EXPECT_TRUE(copy->Item("1")->TaskMilstones());
    EXPECT_FALSE(plan["Done"].TaskMilstones());
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Friday)) << "and tells it itself";
}

TEST(SeTAsMilstones, RecordsATaskOrACollectionThatIsNotThere) {
    Plan plan;
    plan.Task("Done").From(Friday);
    for (const Variant& key : {Variant("77"), Variant(77), Variant(""), Variant(0)}) {
        EXPECT_FALSE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), key));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/SeTAsMilstones 91\n");
    }
    EXPECT_FALSE(plan.col().SeTAsMilstones({}, "1"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SeTAsMilstones 91\n");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_FALSE(plan["Done"].TaskMilstones());
}

TEST(SeTAsMilstones, BringsWhatWaitsForItForward) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(3).Task("Build").From(Thursday).After("Design");
    plan.Task("Test").From(Friday).After("Build").Task("Report").From(Friday).After("Design", 1);
    plan.Task("Talk").From(Wednesday).After("Design", -1);

    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1"));

    EXPECT_EQ(Weeks(plan, 1),
              "Design |o....  |\n"
              "Build  |.#...  |\n"
              "Test   |..#..  |\n"
              "Report |..#..  |\n"
              "Talk   |#....  |\n");
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(1, Monday) + Moved(2, Tuesday, Tuesday, 1) +
                                Moved(3, Wednesday, Wednesday, 1) + Moved(4, Wednesday, Wednesday, 1) +
                                Moved(5, Monday, Monday, 1));
    EXPECT_EQ(Links(plan),
              "Design -> Build Report Talk\n"
              "Build <- Design|0\nBuild -> Test\n"
              "Test <- Build|0\n"
              "Report <- Design|1\n"
              "Talk <- Design|-1\n");
}

TEST(SeTAsMilstones, KeepsMovingATaskOnceForEachSuccessorThatItWaitsFor) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(3).Task("Left").From(Thursday).After("Design");
    plan.Task("Right").From(Thursday).After("Design").Task("Both").From(Friday).After("Left").After("Right");
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1");
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(1, Monday) + Moved(2, Tuesday, Tuesday, 1) +
                                Moved(4, Wednesday, Wednesday, 1) + Moved(3, Tuesday, Tuesday, 1) +
                                Moved(4, Monday, Monday, 1))
        << "the gap to the right was measured as an overlap while that had not moved yet";
    EXPECT_EQ(Links(plan),
              "Design -> Left Right\nLeft <- Design|0\nLeft -> Both\nRight <- Design|0\nRight -> Both\n"
              "Both <- Left|-2 Right|-2\n");
}

TEST(SeTAsMilstones, LeavesASuccessorThatKnowsNoSuchLink) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(3).Task("Build").From(Thursday);
    plan["Design"].TaskSuccessor()->Add("2", "2");
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1");
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(1, Monday));
}

TEST(SeTAsMilstones, LeavesSuccessorsWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Thursday).After("Design");
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1");
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(1, Monday));
}

TEST(SeTAsMilstones, AdjustsTheParentTwiceWithItsChildrenInBetween) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(3);
    plan.Task("Build").Under("Phase").From(Thursday).Lasting(2);
    plan.col().AdjustSummary("1");
    plan.Heard();

    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "2"));

    EXPECT_EQ(Weeks(plan, 1),
              "Phase  |#####  |\n"
              "Design |o....  |\n"
              "Build  |...##  |\n");
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(2, Monday) + MovedMilestone(2, Monday) + Moved(3, Thursday, Friday, 2) +
                                Summed(1, Monday, Friday, 5) + Summed(1, Monday, Friday, 5));
}

TEST(SeTAsMilstones, AdjustsEveryParentAbove) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Design").Under("Phase").From(Monday).Lasting(3);
    plan.col().AdjustSummary("2");
    plan.Heard();
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "3");
    const String rebuilt = Summed(2, Monday, Monday, 1) + Summed(1, Monday, Monday, 1);
    EXPECT_EQ(plan.Heard(), MovedAndADayLong(3, Monday) + MovedMilestone(3, Monday) + rebuilt + rebuilt);
}

TEST(SeTAsMilstones, FollowsLinksOfItsOwnButNotThoseOfSiblingsBehind) {
    Plan plan;
    plan.WithLinks().Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(3);
    plan.Task("Build").Under("Phase").From(Thursday).After("Design");
    plan.Task("Test").Under("Phase").From(Friday).After("Build");
    plan.col().AdjustSummary("1");
    plan.Heard();

    plan.col().SeTAsMilstones(plan.app->xTaskCol(), "2");

    EXPECT_EQ(plan.Heard(), MovedAndADayLong(2, Monday) + Moved(3, Tuesday, Tuesday, 1) + Summed(1, Monday, Friday, 5) +
                                MovedMilestone(2, Monday) + Moved(3, Tuesday, Tuesday, 1) +
                                Moved(4, Friday, Friday, 1) + Summed(1, Monday, Friday, 5) +
                                Summed(1, Monday, Friday, 5));
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\nBuild -> Test\nTest <- Build|2\n");
}

TEST(SeTAsMilstones, IsSilentForASilencedHost) {
    Plan plan;
    plan.WithLinks().Silenced().Task("Design").From(Monday).Lasting(3);
    plan.Task("Build").From(Thursday).After("Design");
    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1"));
    EXPECT_EQ(Weeks(plan, 1), "Design |o....  |\nBuild  |.#...  |\n");
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(2, 1, days, False, False)\n") << "which the walk tells in any case";
}

TEST(SeTAsMilstones, EndsInACycleOfLinks) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday).Task("B").From(Tuesday).After("A");
    plan["B"].TaskSuccessor()->Add("1", "1");
    plan["A"].TaskPredecessor()->Add("2", "2");
    const TimeLimit limit("two tasks that wait for each other");
    EXPECT_TRUE(plan.col().SeTAsMilstones(plan.app->xTaskCol(), "1"));
    EXPECT_TRUE(plan["A"].TaskMilstones());
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
