#include <gtest/gtest.h>

#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"

/// Summaries that wait for a task that moves.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// Design |##...  |.....  |
/// House  |..###==|##...  |
/// Walls  |..##.  |.....  |
/// Roof   |.....  |##...  |
class Waiting : public Plan {
public:
    /// Order, if it is there, waits for Design in front of the House.
    explicit Waiting(bool later = false) {
        WithLinks().Task("Design").From(Monday).Lasting(2);
        if (later) Task("Order").From(Wednesday).After("Design");
        Task("House").After("Design").Task("Walls").Under("House").From(Wednesday).Lasting(2);
        Task("Roof").Under("House").From(Monday + 7).Lasting(2);
        col().AdjustSummary(Key("House"));
        Heard();
    }
};

const String kHouseOfWaitingMoved =
    Moved(3, Monday + 7, Tuesday + 7, 2) + Moved(4, Thursday + 7, Friday + 7, 2) + Summed(2, Monday + 7, Friday + 7, 5);

// --- The first successor ---------------------------------------------------------------------------------------------

TEST(DependsDateChanged, MovesASummaryWithItsChildrenAcrossAWeekend) {
    Waiting plan;
    DateChange change{.LeadTimeCalc = True};

    EXPECT_TRUE(change.Move(plan, "Design", Thursday));

    EXPECT_EQ(Weeks(plan),
              "Design |...##  |.....  |\n"
              "House  |.....  |#####  |\n"
              "Walls  |.....  |##...  |\n"
              "Roof   |.....  |...##  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Friday, 2) + kHouseOfWaitingMoved);
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "3" 2 "4" "2")");
    EXPECT_EQ(change.p_diff, 1) << "three days, less the two free ones that the summary's start stepped over";
    EXPECT_EQ(Listed(plan["House"].TaskLeadTime()), "1|0");
}

TEST(DependsDateChanged, PullsASummaryBackAcrossAWeekend) {
    Waiting plan;
    DateChange change{.LeadTimeCalc = True};

    EXPECT_TRUE(change.Move(plan, "Design", Friday - 7));

    EXPECT_EQ(plan.Heard(), Moved(1, Friday - 7, Monday, 2) + Moved(3, Tuesday, Wednesday, 2) +
                                Moved(4, Friday, Monday + 7, 2) + Summed(2, Tuesday, Monday + 7, 5));
    EXPECT_EQ(change.p_diff, -1);
}

TEST(DependsDateChanged, TakesTheDaysOfASummaryOffAShiftThatNobodyReckoned) {
    Waiting plan;
    DateChange change;
    EXPECT_TRUE(change.Move(plan, "Design", Thursday));
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Friday, 2) + kHouseOfWaitingMoved);
    EXPECT_EQ(change.p_diff, -2);
}

TEST(DependsDateChanged, LeavesASummaryInPlaceWhereTheStartDidNotChange) {
    Waiting plan;
    DateChange change{.LeadTimeCalc = True};
    EXPECT_TRUE(change.Move(plan, "Design", Monday));
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Tuesday, 2) + Moved(3, Wednesday, Thursday, 2) +
                                Moved(4, Monday + 7, Tuesday + 7, 2) + Summed(2, Wednesday, Tuesday + 7, 5));
    EXPECT_EQ(change.p_diff, 0);
}

TEST(DependsDateChanged, MovesASummaryByTheCallersShiftWhereTheStartDidNotChange) {
    for (const Boolean set : {True, False}) {
        Waiting plan;
        DateChange change{.p_calc_date = set, .p_diff = 3};
        EXPECT_TRUE(change.Move(plan, "Design", Monday));
        EXPECT_EQ(plan.Heard(), Moved(1, Monday, Tuesday, 2) + kHouseOfWaitingMoved);
        EXPECT_EQ(change.p_diff, 3);
        EXPECT_EQ(plan["House"].TaskLag(), 3) << "measured when the summary was rebuilt";
    }
}

TEST(DependsDateChanged, KeepsMeasuringASummaryFromTheOldEndToTheStartForANewEnd) {
    Waiting plan;
    DateChange change{.StartFinishDate = 2};

    EXPECT_TRUE(change.Move(plan, "Design", Thursday));

    EXPECT_EQ(Weeks(plan),
              "Design |####.  |.....  |\n"
              "House  |.####==|#....  |\n"
              "Walls  |.##..  |.....  |\n"
              "Roof   |....#==|#....  |\n")
        << "the working day behind the old end becomes the one behind the start";
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Thursday, 4) + Moved(3, Tuesday, Wednesday, 2) +
                                Moved(4, Friday, Monday + 7, 2) + Summed(2, Tuesday, Monday + 7, 5));
    EXPECT_EQ(Listed(plan["House"].TaskLeadTime()), "1|-3");
}

TEST(DependsDateChanged, KeepsMeasuringASummaryFromNoDateBehindATaskInWeeks) {
    Plan plan;
    plan.WithLinks().Task("Print").From(Monday).Lasting(1, "wks").Task("House").After("Print");
    plan.Task("Walls").Under("House").From(Tuesday + 7).Lasting(2);
    plan.col().AdjustSummary(plan.Key("House"));
    plan.Heard();
    DateChange change;

    EXPECT_TRUE(change.Move(plan, "Print", Wednesday));

    const Told print{.key = 1, .start = Monday, .end = Monday + 7, .duration = 1, .unit = "wks"};
    EXPECT_EQ(plan.Heard(), print.Moved() + Moved(3, Friday - 7, Monday, 2) + Summed(2, Friday - 7, Monday, 2))
        << "a distance of -1 from the start, since day 0 was a Saturday";
    EXPECT_EQ(change.p_diff, -4);
    EXPECT_EQ(Listed(plan["House"].TaskLeadTime()), "1|-7");
}

TEST(DependsDateChanged, KeepsMeasuringASummaryFromNoDateForAnyOtherKindOfDate) {
    Waiting plan;
    DateChange change{.StartFinishDate = 0};
    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Tuesday, 2) + Moved(3, Friday - 7, Monday, 2) +
                                Moved(4, Wednesday, Thursday, 2) + Summed(2, Friday - 7, Thursday, 5));
    EXPECT_EQ(change.p_diff, -2);
}

TEST(DependsDateChanged, WalksOnFromTheChildrenOfASummaryToTasksOutsideIt) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("House").After("Design");
    plan.Task("Walls").Under("House").From(Tuesday).Lasting(2);
    plan.Task("Roof").Under("House").From(Thursday).After("Walls").Task("Party").From(Friday).After("Roof");
    plan.col().AdjustSummary(plan.Key("House"));
    plan.Heard();
    DateChange change{.LeadTimeCalc = True};

    EXPECT_TRUE(change.Move(plan, "Design", Wednesday));

    EXPECT_EQ(Weeks(plan),
              "Design |..#..  |.....  |\n"
              "House  |...##==|#....  |\n"
              "Walls  |...##  |.....  |\n"
              "Roof   |.....  |#....  |\n"
              "Party  |.....  |.#...  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(3, Thursday, Friday, 2) +
                                Moved(4, Monday + 7, Monday + 7, 1) + Moved(5, Tuesday + 7, Tuesday + 7, 1) +
                                Summed(2, Thursday, Monday + 7, 3));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "3" 2 "4" "5" "2")");
}

TEST(DependsDateChanged, LeavesOutASummaryThatWasReached) {
    Waiting plan;
    DateChange change{.p_changeds = Make<Dictionary>()};
    change.p_changeds->Add("2", "2");
    EXPECT_TRUE(change.Move(plan, "Design", Thursday));
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Friday, 2));
}

// --- A later successor -----------------------------------------------------------------------------------------------

TEST(DependsDateChanged, MovesALaterSummaryBehindTheEndByItsShift) {
    Waiting plan(true);
    DateChange change{.LeadTimeCalc = True};

    EXPECT_TRUE(change.Move(plan, "Design", Thursday));

    EXPECT_EQ(Weeks(plan),
              "Design |...##  |.....  |\n"
              "Order  |.....  |#....  |\n"
              "House  |.....  |#####  |\n"
              "Walls  |.....  |##...  |\n"
              "Roof   |.....  |...##  |\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Friday, 2) + Moved(2, Monday + 7, Monday + 7, 1) +
                                Moved(4, Monday + 7, Tuesday + 7, 2) + Moved(5, Thursday + 7, Friday + 7, 2) +
                                Summed(3, Monday + 7, Friday + 7, 5));
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2" "4" 3 "5" "3")");
    EXPECT_EQ(change.p_diff, 5) << "calendar days that the summary moved";
}

TEST(DependsDateChanged, AdjustsTheParentOfALaterSummaryBeforeItsChildrenMoveAndBehind) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Order").From(Tuesday).After("Design");
    plan.Task("Site").Task("House").Under("Site").After("Design");
    plan.Task("Walls").Under("House").From(Tuesday).Lasting(2);
    plan.col().AdjustSummary(plan.Key("House"));
    plan.Heard();

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday, 1, True));

    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) +
                                Summed(3, Friday, Monday + 7, 2) + Moved(5, Friday, Monday + 7, 2) +
                                Summed(4, Friday, Monday + 7, 2) + Summed(3, Friday, Monday + 7, 2));
}

TEST(DependsDateChanged, ReckonsUndatedChildrenFromDayZeroAndTellsThatTheyWereAdjusted) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Order").From(Tuesday).After("Design");
    plan.Task("House").After("Design").Task("Walls").Under("House");
    plan["Walls"].TaskEDateValid(True);
    const Date first = Date::Of(2000, 1, 3);

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday, 1, True));

    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) + Moved(4, first, first, 1) +
                                Summed(3, first, first, 1));
    EXPECT_EQ(plan.platform.ui.messages.size(), 1U);
}

TEST(DependsDateChanged, RecordsTheShiftOfAnUndatedChildOfAFirstSummary) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("House").After("Design").Task("Walls").Under("House");
    plan["Walls"].TaskEDateValid(True);

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday, 1, True));

    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 6\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Summed(2, Thursday, Thursday, 1));
    EXPECT_EQ(Span(plan["Walls"]), "2026-03-05 2026-03-05 1") << "the date stands";
}

// --- Without summaries -----------------------------------------------------------------------------------------------

TEST(DependsDateChanged, LeavesSummariesAloneWhenItIsToldTo) {
    for (const bool later : {false, true}) {
        Waiting plan(later);
        plan.col().AddLeadTime(plan.Key("House"), "1", 4);
        DateChange change{.SummaryCalc = False};
        EXPECT_TRUE(change.Move(plan, "Design", Thursday));
        EXPECT_EQ(Span(plan["House"]), "2026-03-04 2026-03-10 5");
        EXPECT_EQ(plan.Heard(), later ? Moved(1, Thursday, Friday, 2) + Moved(2, Monday + 7, Monday + 7, 1)
                                      : Moved(1, Thursday, Friday, 2));
        EXPECT_EQ(Visited(change.p_changeds), later ? R"("1" "2" "3")" : R"("1" "2")") << "but it counts as reached";
        EXPECT_EQ(plan["House"].TaskLag(), later ? 0 : 4) << "the first takes up its gap";
    }
}

TEST(DependsDateChanged, KeepsLeavingSummariesAloneAtTheFirstLinkOnly) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan.Task("House").After("Build").Task("Walls").Under("House").From(Wednesday).Lasting(2);
    plan.col().AdjustSummary(plan.Key("House"));
    plan.Heard();
    DateChange change{.LeadTimeCalc = True, .SummaryCalc = False};
    EXPECT_TRUE(change.Move(plan, "Design", Thursday));
    EXPECT_EQ(plan.Heard(), Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) +
                                Moved(4, Monday + 7, Tuesday + 7, 2) + Summed(3, Monday + 7, Tuesday + 7, 2));
}

TEST(DependsDateChanged, TakesOffALaterDanglingLinkWhateverTheLagOfTheTaskThatChanged) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan["Design"].TaskSuccessor()->Add("99", "99");
    plan["Design"].TaskLag(40'000);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Date(), 0));
    EXPECT_EQ(Listed(plan["Design"].TaskSuccessor()), "2");
    plan.Heard();
}

TEST(DependsDateChanged, FindsNoShiftForADateThatTheTaskHasAlready) {
    Plan plan;
    plan.WithLinks().Task("A").Holding(Saturday, Saturday, 1);
    plan.calendar().SetADayAsHoliday(Monday + 7);
    DateChange change{.LeadTimeCalc = True};
    EXPECT_TRUE(change.Move(plan, "A", Saturday));
    EXPECT_EQ(plan["A"].TaskBDate(), Tuesday + 7) << "over three free days";
    EXPECT_EQ(change.p_diff, 0);
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
