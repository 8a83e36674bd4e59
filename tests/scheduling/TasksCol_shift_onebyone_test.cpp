#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr const char* kRanAway = "TasksCol/ResetStartDatefordependency2 6\n";

TEST(ResetStartDatefordependency2, MovesEachTaskAndTellsItsDatesOnce) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Thursday).Lasting(2);
    EXPECT_FALSE(plan.col().ResetStartDatefordependency2(7));
    EXPECT_EQ(Weeks(plan),
              "Design |.....  |###..  |\n"
              "Build  |.....  |...##  |\n");
    EXPECT_EQ(plan.Heard(), Shifted(1, Monday + 7, Wednesday + 7) + Shifted(2, Thursday + 7, Friday + 7));
}

TEST(ResetStartDatefordependency2, AsksNoLinks) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Lasting(3).Task("Build").From(Thursday).Lasting(2).After("Design", 4);
    const String links = Links(plan);
    plan.col().ResetStartDatefordependency2(7);
    EXPECT_EQ(plan.Heard(), Shifted(1, Monday + 7, Wednesday + 7) + Shifted(2, Thursday + 7, Friday + 7));
    EXPECT_EQ(Links(plan), links);
}

TEST(ResetStartDatefordependency2, FindsAWorkingDayAndStepsOverNothingMore) {
    struct Row {
        Date from;
        double by;
        Date to;
    };
    for (const Row& row : {Row{Friday, 0, Friday}, Row{Friday, 1, Monday + 7}, Row{Friday, 3, Monday + 7},
                           Row{Monday + 7, -1, Monday + 7}, Row{Monday + 7, -3, Friday}, Row{Monday, 0.5, Monday},
                           Row{Monday, 1.5, Tuesday}}) {
        Plan plan;
        plan.Task("Design").From(row.from);
        plan.col().ResetStartDatefordependency2(row.by);
        EXPECT_EQ(plan.Heard(), Shifted(1, row.to, row.to)) << DayName(row.from) << " by " << row.by;
    }
}

TEST(ResetStartDatefordependency2, KeepsTheWorkingDaysBetweenTwoTasksOverAWeekend) {
    Plan plan;
    plan.Task("Design").From(Thursday).Task("Build").From(Friday).Task("Test").From(Monday + 7);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(Weeks(plan),
              "Design |....#  |.....  |\n"
              "Build  |.....  |#....  |\n"
              "Test   |.....  |.#...  |\n");
    EXPECT_EQ(plan.Heard(),
              Shifted(1, Friday, Friday) + Shifted(2, Monday + 7, Monday + 7) + Shifted(3, Tuesday + 7, Tuesday + 7));
}

TEST(ResetStartDatefordependency2, LeavesTheLagAside) {
    Plan plan;
    plan.Task("Design").From(Monday);
    plan["Design"].TaskLag(3);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(plan.Heard(), Shifted(1, Tuesday, Tuesday));
    EXPECT_EQ(plan["Design"].TaskLag(), 3);
}

TEST(ResetStartDatefordependency2, MovesTasksInWeeksAndMilestonesToo) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(2, "wks");
    plan.col().ResetStartDatefordependency2(7);
    EXPECT_EQ(plan.Heard(), Shifted(1, Monday + 7, Monday + 21)) << "the unit is told as days";

    Plan other;
    other.Task("Done").From(Friday).Milestone();
    other.col().ResetStartDatefordependency2(3);
    EXPECT_EQ(other.Heard(), (Told{.key = 1, .start = Monday + 7, .end = Monday + 7, .milestone = True}.Shifted()));
}

TEST(ResetStartDatefordependency2, AdjustsTheSummariesWhenAllHaveMoved) {
    Plan plan;
    plan.Task("House").Task("Design").Under("House").From(Monday).Task("Build").Under("House").From(Tuesday);
    plan.Task("Roof").From(Wednesday);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(plan.Heard(), Shifted(2, Tuesday, Tuesday) + Shifted(3, Wednesday, Wednesday) +
                                Shifted(4, Thursday, Thursday) + Summed(1, Tuesday, Wednesday, 2));
}

TEST(ResetStartDatefordependency2, AdjustsEverySummaryInTheOrderOfRowsWithAllAboveIt) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Design").Under("Phase").From(Monday);
    plan["Phase"].TaskType(False);
    plan.col().AdjustSummary("2");
    plan.Heard();
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(plan.Heard(), Shifted(3, Tuesday, Tuesday) + Summed(1, Monday, Monday, 1) +
                                Summed(2, Tuesday, Tuesday, 1) + Summed(1, Tuesday, Tuesday, 1))
        << "the house is adjusted first while the phase still stands where it was";
}

TEST(ResetStartDatefordependency2, KeepsTakingAPlainRowWithChildrenForATaskWithoutChildren) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Design").Under("Phase").From(Monday);
    plan.col().AdjustSummary("2");
    plan.Heard();
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(plan.Heard(), (Told{.key = 2, .start = Tuesday, .end = Tuesday, .parent = True}.Shifted()) +
                                Shifted(3, Tuesday, Tuesday) + Summed(1, Tuesday, Tuesday, 1));
}

TEST(ResetStartDatefordependency2, LeavesCandidatesWhereTheyAreAndGoesByRows) {
    Plan plan;
    plan.Task("Second").From(Tuesday).Task("Aside").From(Monday).Candidate().Task("First").From(Monday);
    plan["Second"].TaskPosition(2);
    plan["First"].TaskPosition(1);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(Walked(plan.col()), "Aside First Second");
    EXPECT_EQ(plan.Heard(), Shifted(3, Tuesday, Tuesday) + Shifted(1, Wednesday, Wednesday));
}

TEST(ResetStartDatefordependency2, KeepsRunningAwayFromAGapThatGrew) {
    Plan plan;
    plan.Task("House").Task("Design").Under("House").From(Friday).Task("Build").Under("House").From(Monday + 7);
    plan.Task("Roof").From(Tuesday + 7);
    plan["Build"].TaskLag(4);
    plan.col().AdjustSummary("1");
    plan.Heard();

    EXPECT_FALSE(plan.col().ResetStartDatefordependency2(-1));  // Thursday, and the Monday after the Sunday

    EXPECT_EQ(plan.failures.Taken(), kRanAway);
    EXPECT_EQ(plan.Heard(), Shifted(2, Thursday, Thursday)) << "neither the tasks behind nor the summaries are reached";
    EXPECT_EQ(Weeks(plan),
              "House  |....#==|#....  |\n"
              "Design |...#.  |.....  |\n"
              "Build  |.....  |#....  |\n"
              "Roof   |.....  |.#...  |\n");
    EXPECT_EQ(plan["Build"].TaskLag(), 4);
}

TEST(ResetStartDatefordependency2, KeepsRunningAwayFromAGapThatShrank) {
    Plan plan;
    plan.Task("Design").From(Wednesday).Task("Build").From(Friday).Task("Roof").From(Friday);
    plan["Build"].TaskLag(-4);
    plan.col().ResetStartDatefordependency2(3);  // both on the Monday after the weekend
    EXPECT_EQ(plan.failures.Taken(), kRanAway);
    EXPECT_EQ(plan.Heard(), Shifted(1, Monday + 7, Monday + 7));
    EXPECT_EQ(Weeks(plan),
              "Design |.....  |#....  |\n"
              "Build  |.....  |#....  |\n"
              "Roof   |....#  |.....  |\n");
    EXPECT_EQ(plan["Build"].TaskLag(), -4);
}

/// Two weeks of one task and a day of another in the middle of them, which a shift by a day brings out of measure: four
/// free days lie in between then, not two.
class Overlap : public Plan {
public:
    Overlap() { Task("Long").From(Monday).Lasting(10).Task("Short").From(Tuesday); }
};

TEST(ResetStartDatefordependency2, MendsAnOverlapWhoseFirstMeasureMeetsIt) {
    Overlap plan;
    plan.col().ResetStartDatefordependency2(1);  // Wednesday less four days is a Saturday
    EXPECT_EQ(Weeks(plan, 3),
              "Long  |.####==|#####==|#....  |\n"
              "Short |#....  |.....  |.....  |\n");
    EXPECT_EQ(plan.Heard(), Shifted(1, Tuesday, Monday + 14) + Shifted(2, Monday, Monday));
}

TEST(ResetStartDatefordependency2, KeepsAddingTheLagToAMendedStart) {
    Overlap plan;
    plan["Short"].TaskLag(1);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(plan.Heard(), Shifted(1, Tuesday, Monday + 14) + Shifted(2, Tuesday, Tuesday));
}

TEST(ResetStartDatefordependency2, MeasuresTheNextTaskFromTheMendedEnd) {
    Overlap plan;
    plan.Task("Next").From(Wednesday);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(plan.failures.Taken(), kRanAway) << "the gap grew when the task before it went back to Monday";
    EXPECT_EQ(plan.Heard(), Shifted(1, Tuesday, Monday + 14) + Shifted(2, Monday, Monday));
    EXPECT_EQ(DayName(plan["Next"].TaskBDate()), DayName(Thursday));
}

TEST(ResetStartDatefordependency2, KeepsReckoningFromDayZeroForATaskWithoutDates) {
    Plan plan;
    plan.Task("Undated").Task("Design").From(Monday);
    plan.col().ResetStartDatefordependency2(7);
    EXPECT_EQ(plan.Heard(), Shifted(1, Date::Of(2000, 1, 6), Date()) + Shifted(2, Monday + 7, Monday + 7));
    EXPECT_EQ(plan.platform.ui.messages.size(), 1U);
}

TEST(ResetStartDatefordependency2, StopsAtTheYearsThatATaskMayHave) {
    struct Row {
        double by;
        Date to;
        std::size_t messages;
    };
    for (const Row& row : {Row{40'000, Date::Of(2036, 9, 8), 0}, Row{-10'000, Date::Of(2000, 10, 16), 1}}) {
        Plan plan;
        plan.Task("Design").From(Tuesday);
        plan.col().ResetStartDatefordependency2(row.by);
        EXPECT_EQ(plan.Heard(), Shifted(1, row.to, row.to));
        EXPECT_EQ(plan.platform.ui.messages.size(), row.messages);
    }
}

TEST(ResetStartDatefordependency2, RecordsAShiftOutOfAllDates) {
    Plan plan;
    plan.Task("Design").From(Tuesday);
    for (const double by : {1e9, -1e9, 1e300}) {
        EXPECT_FALSE(plan.col().ResetStartDatefordependency2(by));
        EXPECT_EQ(plan.failures.Taken(), kRanAway) << by;
    }
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), DayName(Tuesday));
}

TEST(ResetStartDatefordependency2, TellsASilencedHostTheDurationsOfSummariesAlone) {
    Plan plan;
    plan.Silenced().Task("House").Task("Design").Under("House").From(Monday);
    plan.col().ResetStartDatefordependency2(1);
    EXPECT_EQ(Weeks(plan, 1), "House  |.#...  |\nDesign |.#...  |\n");
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 1, days, False, True)\n");
}

TEST(ResetStartDatefordependency2, DoesNothingToAnEmptyPlan) {
    Plan plan;
    EXPECT_FALSE(plan.col().ResetStartDatefordependency2(1));
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
