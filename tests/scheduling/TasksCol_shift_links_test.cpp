#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/scheduling/DatedRow.h"
#include "tests/support/Interruption.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

class LinkedPlan : public Plan {
public:
    LinkedPlan() { WithLinks(); }
    LinkedPlan& Rolled(const String& summary) {
        col().AdjustSummary(Key(summary));
        Heard();
        return *this;
    }
};

TEST(ResetStartDate, LetsWhatWaitsFollowWithItsGap) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Thursday).Lasting(3).After("Design");
    plan.Task("Test").From(Wednesday + 7).Lasting(2).After("Build", 1);
    EXPECT_EQ(Weeks(plan, 3),
              "Design |###..  |.....  |.....  |\n"
              "Build  |...##==|#....  |.....  |\n"
              "Test   |.....  |..##.  |.....  |\n");
    const String links = Links(plan);

    EXPECT_FALSE(plan.col().ResetStartDate(2));

    EXPECT_EQ(Weeks(plan, 3),
              "Design |..###  |.....  |.....  |\n"
              "Build  |.....  |###..  |.....  |\n"
              "Test   |.....  |....#==|#....  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Friday, 3) + Moved(2, Monday + 7, Wednesday + 7, 3) +
                                Moved(3, Friday + 7, Monday + 14, 2) + Shifted(1, Wednesday, Friday))
        << "only the anchor is told once more, when its walk is over";
    EXPECT_EQ(Links(plan), links);
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-04 of 1, max 2026-03-16 of 3");
}

TEST(ResetStartDate, StepsOverAWeekendWithItsSuccessorsBehind) {
    LinkedPlan plan;
    plan.Task("Design").From(Friday).Task("Build").From(Monday + 7).After("Design");
    plan.col().ResetStartDate(7);
    EXPECT_EQ(plan.Heard(), Moved(1, Monday + 14, Monday + 14, 1) + Moved(2, Tuesday + 14, Tuesday + 14, 1) +
                                Shifted(1, Monday + 14, Monday + 14));
    plan.col().ResetStartDate(-1);
    EXPECT_EQ(plan.Heard(), Moved(1, Friday + 7, Friday + 7, 1) + Moved(2, Monday + 14, Monday + 14, 1) +
                                Shifted(1, Friday + 7, Friday + 7));
}

TEST(ResetStartDate, TakesTheLagOffAnAnchor) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday);
    plan["Design"].TaskLag(2);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Shifted(1, Tuesday, Tuesday));
    EXPECT_EQ(plan["Design"].TaskLag(), 0);
}

TEST(ResetStartDate, AnchorsNothingThatListsAPredecessor) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Tuesday);
    plan.Task("Phase").Task("Child").Under("Phase").From(Tuesday);
    plan.Rolled("Phase");
    for (const char* name : {"Build", "Phase"}) plan[name].TaskPredecessor()->Add("1", "1");  // one side only

    plan.col().ResetStartDate(1);

    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Shifted(1, Tuesday, Tuesday));
    EXPECT_EQ(Weeks(plan, 1),
              "Design |.#...  |\n"
              "Build  |.#...  |\n"
              "Phase  |.#...  |\n"
              "Child  |.#...  |\n");
}

TEST(ResetStartDate, KeepsMovingASuccessorOfOneSideTwice) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Tuesday);
    plan["Design"].TaskSuccessor()->Add("2", "2");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Moved(2, Wednesday, Wednesday, 1) +
                                Shifted(1, Tuesday, Tuesday) + Moved(2, Thursday, Thursday, 1) +
                                Shifted(2, Thursday, Thursday));
}

TEST(ResetStartDate, KeepsPushingASuccessorOfTwoAnchorsForEach) {
    LinkedPlan plan;
    plan.Task("A").From(Monday).Lasting(2).Task("B").From(Monday).Lasting(2);
    plan.Task("Both").From(Wednesday).After("A").After("B");

    plan.col().ResetStartDate(1);

    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Wednesday, 2) + Moved(3, Thursday, Thursday, 1) +
                                Shifted(1, Tuesday, Wednesday) + Moved(2, Tuesday, Wednesday, 2) +
                                Moved(3, Friday, Friday, 1) + Shifted(2, Tuesday, Wednesday))
        << "the gap to the second was measured while it had not moved yet";
    EXPECT_EQ(Links(plan), "A -> Both\nB -> Both\nBoth <- A|1 B|1\n");
}

TEST(ResetStartDate, TakesLinkedChildrenOfASummaryAlongOnce) {
    LinkedPlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(2);
    plan.Task("Build").Under("Phase").From(Wednesday).Lasting(2).After("Design");
    plan.Rolled("Phase");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(),
              Moved(2, Tuesday, Wednesday, 2) + Moved(3, Thursday, Friday, 2) + Summed(1, Tuesday, Friday, 4));
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
}

TEST(ResetStartDate, LetsATaskOutsideFollowAChild) {
    LinkedPlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Task("Roof").From(Tuesday).After("Design");
    plan.Rolled("Phase");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(),
              Moved(2, Tuesday, Tuesday, 1) + Moved(3, Wednesday, Wednesday, 1) + Summed(1, Tuesday, Tuesday, 1));
}

TEST(ResetStartDate, KeepsMovingAChildThatWaitsForAnAnchorTwice) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Phase").Task("Build").Under("Phase").From(Tuesday).After("Design");
    plan.Rolled("Phase");

    plan.col().ResetStartDate(1);

    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Moved(3, Wednesday, Wednesday, 1) +
                                Summed(2, Wednesday, Wednesday, 1) + Shifted(1, Tuesday, Tuesday) +
                                Moved(3, Thursday, Thursday, 1) + Summed(2, Thursday, Thursday, 1));
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|1\n");
}

TEST(ResetStartDate, LetsASummaryFollowAnAnchorWithItsGap) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Phase").After("Design");
    plan.Task("Build").Under("Phase").From(Tuesday).Lasting(2);
    plan.Rolled("Phase");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Moved(3, Wednesday, Thursday, 2) +
                                Summed(2, Wednesday, Thursday, 2) + Shifted(1, Tuesday, Tuesday));
    EXPECT_EQ(Links(plan), "Design -> Phase\nPhase <- Design|0\n");
}

TEST(ResetStartDate, LeavesACycleOfLinksWhereItIs) {
    LinkedPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A").Task("C").From(Wednesday).After("B");
    plan["C"].TaskSuccessor()->Add("1", "1");
    plan["A"].TaskPredecessor()->Add("3", "3");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-02 of 1, max 2026-03-04 of 3");
}

TEST(ResetStartDate, DropsASuccessorThatIsNoTask) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday);
    plan["Design"].TaskSuccessor()->Add("77", "77");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Shifted(1, Tuesday, Tuesday));
    EXPECT_EQ(Links(plan), "");
}

TEST(ResetStartDate, CountsTheSpanOfThePlanAnew) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Undated").After("Design");
    DatedRow::SetCaches(Date(), 0, Date(), 0);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-02 of 2, max 2026-03-03 of 1")
        << "a task without a start makes it today";
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Shifted(1, Tuesday, Tuesday));
}

TEST(ResetStartDatefordependency, LeavesTheSpanAsTheDatesKeptIt) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Undated").After("Design");
    DatedRow::SetCaches(Date(), 0, Date(), 0);
    EXPECT_FALSE(plan.col().ResetStartDatefordependency(1));
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-03 of 1, max 2026-03-03 of 1");
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Shifted(1, Tuesday, Tuesday));
}

TEST(ResetStartDate, TakesTodayForTheSpanOfAnEmptyPlan) {
    LinkedPlan plan;
    EXPECT_FALSE(plan.col().ResetStartDate(5));
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-02 of 0, max 2026-03-02 of 0");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ResetStartDate, RecordsAShiftThatNoIntegerHoldsAndCountsTheSpan) {
    LinkedPlan plan;
    plan.Task("Design").From(Tuesday);
    EXPECT_FALSE(plan.col().ResetStartDate(32'768));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ResetStartDatefordependency 6\n");
    EXPECT_EQ(DatedRow::Caches(), "min 2026-03-03 of 1, max 2026-03-03 of 1");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ResetStartDatefordependency, MovesOnlyWhatWaitsForNothingWithoutLiveLinks) {
    Plan plan;
    plan.Task("Second").From(Wednesday).Task("First").From(Monday).Task("Build").From(Tuesday).After("First");
    plan["Second"].TaskPosition(2);
    plan["First"].TaskPosition(1);
    plan["First"].TaskLag(2);
    EXPECT_FALSE(plan.col().ResetStartDatefordependency(1));
    EXPECT_EQ(Walked(plan.col()), "First Second Build");
    EXPECT_EQ(plan.Heard(), Moved(2, Tuesday, Tuesday, 1) + Shifted(2, Tuesday, Tuesday) +
                                Moved(1, Thursday, Thursday, 1) + Shifted(1, Thursday, Thursday));
    EXPECT_EQ(Links(plan), "First -> Build\nBuild <- First|0\n");
}

TEST(ResetStartDatefordependency, LeavesCandidatesAndChildrenOfPlainRowsWhereTheyAre) {
    LinkedPlan plan;
    plan.Task("Aside").From(Monday).Candidate();
    plan.Task("Phase").From(Monday).Lasting(2).Task("Design").Under("Phase").From(Monday);
    plan["Phase"].TaskType(True);
    plan.col().ResetStartDatefordependency(1);
    const Told phase{.key = 2, .start = Tuesday, .end = Wednesday, .duration = 2, .parent = True};
    EXPECT_EQ(plan.Heard(), phase.Moved() + phase.Shifted());
}

TEST(ResetStartDate, TellsASilencedHostOfALinkedPlanTheDurationsAlone) {
    Plan plan;
    plan.WithLinks().Silenced().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan.col().ResetStartDate(1);
    EXPECT_EQ(Weeks(plan, 1), "Design |.#...  |\nBuild  |..#..  |\n");
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(1, 1, days, False, False)\n"
              "TaskDurationChange(2, 1, days, False, False)\n");
}

TEST(ResetStartDate, SurvivesAListenerThatUnlinksDuringTheWalk) {
    LinkedPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    {
        const Interruption host(plan, "DateStartChange", 1, [&] { plan.col().RemoveTaskPredecessor("2", "1"); });
        plan.col().ResetStartDate(1);
    }
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), DayName(Tuesday));
    plan.Heard();
}

TEST(ResetStartDate, WalksAChainOfAnyLengthOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kLong = 8'000;
        Plan plan;
        plan.WithLinks().Silenced().Task("1").From(Monday);
        for (int row = 2; row <= kLong; ++row) {
            plan.Task(std::to_string(row)).From(Monday).After(std::to_string(row - 1), -1);
        }
        plan.col().ResetStartDate(1);
        EXPECT_EQ(DayName(plan[std::to_string(kLong)].TaskBDate()), DayName(Tuesday));
        plan.Heard();
    });
}

}  // namespace
}  // namespace mrlxmlclass
