#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/scheduling/DatedRow.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A phase over tasks one behind the other; the phase spans them, and nothing was heard yet.
class PhasePlan : public Plan {
public:
    PhasePlan& Rolled() {
        col().AdjustSummary(Key("Phase"));
        Heard();
        return *this;
    }
};

class DesignAndBuild : public PhasePlan {
public:
    DesignAndBuild() {
        Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(3);
        Task("Build").Under("Phase").From(Thursday).Lasting(3);
        Rolled();
    }
};

TEST(ResetStartDate, TakesTheChildrenOfASummaryAlong) {
    DesignAndBuild plan;
    EXPECT_EQ(Weeks(plan),
              "Phase  |#####==|#....  |\n"
              "Design |###..  |.....  |\n"
              "Build  |...##==|#....  |\n");

    EXPECT_FALSE(plan.col().ResetStartDate(1));

    EXPECT_EQ(Weeks(plan),
              "Phase  |.####==|##...  |\n"
              "Design |.###.  |.....  |\n"
              "Build  |....#==|##...  |\n");
    EXPECT_EQ(plan.Heard(),
              Moved(2, Tuesday, Thursday, 3) + Moved(3, Friday, Tuesday + 7, 3) + Summed(1, Tuesday, Tuesday + 7, 6))
        << "the dates of a summary are not told once more";
}

TEST(ResetStartDate, KeepsTheGapsBetweenTheChildrenAcrossAWeekend) {
    DesignAndBuild plan;
    plan.col().ResetStartDate(2);
    EXPECT_EQ(Weeks(plan),
              "Phase  |..###==|###..  |\n"
              "Design |..###  |.....  |\n"
              "Build  |.....  |###..  |\n");
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Friday, 3) + Moved(3, Monday + 7, Wednesday + 7, 3) +
                                Summed(1, Wednesday, Wednesday + 7, 6));
}

TEST(ResetStartDate, TakesTheChildrenBackAsWell) {
    PhasePlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Tuesday).Lasting(2);
    plan.Task("Build").Under("Phase").From(Thursday);
    plan.Rolled();
    plan.col().ResetStartDate(-1);
    EXPECT_EQ(Weeks(plan, 1),
              "Phase  |###..  |\n"
              "Design |##...  |\n"
              "Build  |..#..  |\n");
    EXPECT_EQ(plan.Heard(),
              Moved(2, Monday, Tuesday, 2) + Moved(3, Wednesday, Wednesday, 1) + Summed(1, Monday, Wednesday, 3));
}

TEST(ResetStartDate, LooksForAWorkingDayForTheFirstChildInTheDirectionOfTheShift) {
    struct Row {
        Date from;
        double by;
        Date to;
    };
    for (const Row& row : {Row{Friday, 1, Monday + 7}, Row{Friday, 3, Monday + 7}, Row{Friday, 4, Tuesday + 7},
                           Row{Monday + 7, -1, Friday}, Row{Tuesday + 7, -2, Friday}, Row{Monday + 7, -4, Thursday}}) {
        PhasePlan plan;
        plan.Task("Phase").Task("Design").Under("Phase").From(row.from);
        plan.Rolled();
        plan.col().ResetStartDate(row.by);
        EXPECT_EQ(plan.Heard(), Moved(2, row.to, row.to, 1) + Summed(1, row.to, row.to, 1))
            << DayName(row.from) << " by " << row.by << ": a summary does not step over what it stands next to";
    }
}

TEST(ResetStartDate, LeavesASummaryInPlaceForAShiftOfNothing) {
    DesignAndBuild plan;
    plan.col().ResetStartDate(0);
    EXPECT_EQ(plan.Heard(),
              Moved(2, Monday, Wednesday, 3) + Moved(3, Thursday, Monday + 7, 3) + Summed(1, Monday, Monday + 7, 6));
}

TEST(ResetStartDate, KeepsTheFractionForATaskAndRoundsItForASummary) {
    PhasePlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Task("Roof").From(Monday);
    plan.Rolled();
    plan.col().ResetStartDate(1.5);
    EXPECT_EQ(Weeks(plan, 1),
              "Phase  |..#..  |\n"
              "Design |..#..  |\n"
              "Roof   |.#...  |\n");
    plan.Heard();
}

TEST(ResetStartDate, GoesDownThroughTheSummariesBelow) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Design").Under("Phase").From(Monday).Lasting(2);
    plan.Task("Roof").Under("House").From(Wednesday);
    plan.col().AdjustSummary(plan.Key("Phase"));
    plan.Heard();

    plan.col().ResetStartDate(1);

    EXPECT_EQ(Weeks(plan, 1),
              "House  |.###.  |\n"
              "Phase  |.##..  |\n"
              "Design |.##..  |\n"
              "Roof   |...#.  |\n");
    EXPECT_EQ(plan.Heard(), Moved(3, Tuesday, Wednesday, 2) + Summed(2, Tuesday, Wednesday, 2) +
                                Summed(1, Tuesday, Wednesday, 2) + Moved(4, Thursday, Thursday, 1) +
                                Summed(1, Tuesday, Thursday, 3));
}

TEST(ResetStartDate, AsksNoChildWhetherItIsACandidate) {
    DesignAndBuild plan;
    plan["Design"].TaskCondidat(False);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(),
              Moved(2, Tuesday, Thursday, 3) + Moved(3, Friday, Tuesday + 7, 3) + Summed(1, Tuesday, Tuesday + 7, 6));
}

TEST(ResetStartDate, PassesBySummariesThatAreCandidates) {
    DesignAndBuild plan;
    plan["Phase"].TaskCondidat(False);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ResetStartDate, GoesOnBehindASummary) {
    PhasePlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Task("Roof").From(Tuesday).Task("Door").From(Monday);
    plan.Rolled();
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), Moved(2, Tuesday, Tuesday, 1) + Summed(1, Tuesday, Tuesday, 1) +
                                Moved(3, Wednesday, Wednesday, 1) + Shifted(3, Wednesday, Wednesday) +
                                Moved(4, Tuesday, Tuesday, 1) + Shifted(4, Tuesday, Tuesday));
}

TEST(ResetStartDate, KeepsTheSummarysKeyBesideAClearedSpan) {
    DesignAndBuild plan;
    plan.col().ResetStartDate(1);
    EXPECT_EQ(DatedRow::Caches(), "min - of 1, max - of 1");
    plan.Heard();
}

TEST(ResetStartDate, TellsASilencedHostTheDurationsAlone) {
    Plan plan;
    plan.Silenced().Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(3);
    plan.col().AdjustSummary("1");
    plan.Heard();
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(2, 3, days, False, False)\n"
              "TaskDurationChange(1, 3, days, False, True)\n");
}

TEST(ResetStartDate, RecordsAShiftThatNoIntegerHoldsForASummary) {
    DesignAndBuild plan;
    plan.col().ResetStartDate(40'000);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ResetStartDate 6\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ResetStartDate, PassesByARingOfParents) {
    Plan plan;
    BuildRing(plan);
    plan.col().ResetStartDate(1);
    EXPECT_EQ(plan.Heard(), "") << "none of them stands at the top";
}

TEST(ResetStartDate, GoesDownThroughADeepOutlineOnASmallStack) {
    constexpr int kDeep = 300;  // the way up is walked from every level, so the time grows with the square
    constexpr std::size_t kStack = std::size_t{256} << 10U;
    dom::OnSmallStack(
        [] {
            Plan plan;
            plan.Silenced();
            BuildChain(plan, kDeep);
            plan[std::to_string(kDeep)].TaskEDate(Monday);
            plan.col().AdjustSummary(std::to_string(kDeep - 1));
            plan.col().ResetStartDate(1);
            EXPECT_EQ(DayName(plan[std::to_string(kDeep)].TaskBDate()), DayName(Tuesday));
            EXPECT_EQ(DayName(plan["1"].TaskBDate()), DayName(Tuesday));
            plan.Heard();
        },
        kStack);
}

TEST(ResetStartDate, EndsInARingOfChildren) {
    Plan plan;
    plan.Task("A").From(Monday).Task("B").Under("A").From(Monday);
    plan.col().AddParentTask(plan.Number("B"), plan.Number("A"));
    const TimeLimit limit("a child that has its parent among its children");
    EXPECT_FALSE(plan.col().ResetStartDate(1));
    EXPECT_NE(plan.failures.Taken(), "");
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
