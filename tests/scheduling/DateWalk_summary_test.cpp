#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/scheduling/SummaryMove.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// House |..###==|###..  |
/// Walls |..##.  |.....  |
/// Roof  |....#==|#....  |
/// Paint |.....  |..#..  |
class House : public Plan {
public:
    House() {
        WithLinks().Task("House").Task("Walls").Under("House").From(Wednesday).Lasting(2);
        Task("Roof").Under("House").From(Friday).Lasting(2).Task("Paint").Under("House").From(Wednesday + 7);
        col().AdjustSummary("1");
        Heard();
    }
};

const String kTwoDaysLater = Moved(2, Friday, Monday + 7, 2) + Moved(3, Tuesday + 7, Wednesday + 7, 2) +
                             Moved(4, Friday + 7, Friday + 7, 1) + Summed(1, Friday, Friday + 7, 6);
const String kTwoDaysEarlier = Moved(2, Monday, Tuesday, 2) + Moved(3, Wednesday, Thursday, 2) +
                               Moved(4, Monday + 7, Monday + 7, 1) + Summed(1, Monday, Monday + 7, 6);
const String kInPlace = Moved(2, Wednesday, Thursday, 2) + Moved(3, Friday, Monday + 7, 2) +
                        Moved(4, Wednesday + 7, Wednesday + 7, 1) + Summed(1, Wednesday, Wednesday + 7, 6);
const String kFromNextMonday = Moved(2, Monday + 7, Tuesday + 7, 2) + Moved(3, Wednesday + 7, Thursday + 7, 2) +
                               Moved(4, Monday + 14, Monday + 14, 1) + Summed(1, Monday + 7, Monday + 14, 6);

// --- Where it goes ---------------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, KeepsTheGapsBetweenTheChildrenAcrossAWeekend) {
    House plan;
    SummaryMove move{.stDate = Friday};

    EXPECT_TRUE(move.Of(plan, "House"));

    EXPECT_EQ(Weeks(plan),
              "House |....#==|#####  |\n"
              "Walls |....#==|#....  |\n"
              "Roof  |.....  |.##..  |\n"
              "Paint |.....  |....#  |\n");
    EXPECT_EQ(plan.Heard(), kTwoDaysLater);
    EXPECT_EQ(Visited(move.p_changeds), R"("2" 1 "3" "4")");
    EXPECT_EQ(move.stDate, Friday);
    EXPECT_EQ(move.UsethisDate, Date());
}

TEST(SummaryTaskDateChanged2, MovesBackAsWell) {
    House plan;
    SummaryMove move{.stDate = Monday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(), kTwoDaysEarlier);
}

TEST(SummaryTaskDateChanged2, KeepsMovingByAShiftWhateverTheDates) {
    struct Row {
        int shift;
        Date exact;
        const String& told;
    };
    for (const Row& row : {Row{2, Date(), kTwoDaysLater}, Row{2, Monday + 7, kTwoDaysLater},
                           Row{-2, Date(), kTwoDaysEarlier}, Row{-2, Monday + 7, kTwoDaysEarlier}}) {
        House plan;
        SummaryMove move{.stDate = Saturday, .UsethisDate = row.exact, .p_diff = row.shift};
        EXPECT_TRUE(move.Of(plan, "House"));
        EXPECT_EQ(plan.Heard(), row.told);
        EXPECT_EQ(move.stDate, Saturday) << "nobody looks at it";
        EXPECT_EQ(move.UsethisDate, row.exact);
    }
}

TEST(SummaryTaskDateChanged2, PutsTheFirstChildOnAnExactDate) {
    House plan;
    SummaryMove move{.stDate = Tuesday, .UsethisDate = Monday + 7};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(), kFromNextMonday);
    EXPECT_EQ(move.stDate, Tuesday);
}

TEST(SummaryTaskDateChanged2, TakesAnExactDateToTheWorkingDayBehindAFreeStart) {
    House plan;
    SummaryMove move{.stDate = Saturday, .UsethisDate = Tuesday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(), kFromNextMonday);
    EXPECT_EQ(move.stDate, Monday + 7);
    EXPECT_EQ(move.UsethisDate, Monday + 7) << "both come back";
}

TEST(SummaryTaskDateChanged2, TakesOneVariableForBothDates) {
    House plan;
    Date day = Saturday;
    EXPECT_TRUE(plan.col().SummaryTaskDateChanged2("1", day, day));
    EXPECT_EQ(plan.Heard(), kFromNextMonday);
    EXPECT_EQ(day, Monday + 7);
}

TEST(SummaryTaskDateChanged2, KeepsTheChildrenWhereTheyAreForAFreeStart) {
    House plan;
    SummaryMove move{.stDate = Saturday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(), kInPlace);
    EXPECT_EQ(move.stDate, Monday + 7) << "only the date itself goes on";
}

TEST(SummaryTaskDateChanged2, TellsEveryChildInPlace) {
    House plan;
    SummaryMove move{.stDate = Wednesday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(), kInPlace);
}

TEST(SummaryTaskDateChanged, IsTheSameWithoutAShift) {
    House plan;
    Date start = Saturday;
    Date exact = Tuesday;
    Ref<Dictionary> visited;
    EXPECT_TRUE(plan.col().SummaryTaskDateChanged("1", start, exact, True, Date(), visited));
    EXPECT_EQ(plan.Heard(), kFromNextMonday);
    EXPECT_EQ(start, Monday + 7);
    EXPECT_EQ(exact, Monday + 7);
    EXPECT_EQ(Visited(visited), R"("2" 1 "3" "4")");
    EXPECT_TRUE(plan.col().SummaryTaskDateChanged("1", Wednesday));
    EXPECT_EQ(plan.Heard(), kInPlace);
}

TEST(SummaryTaskDateChanged2, DoesNotAskForTheCarriedArguments) {
    House plan;
    EXPECT_TRUE(plan.col().SummaryTaskDateChanged2("1", Friday, {}, False, Monday, {}, True, 0, "77"));
    EXPECT_EQ(plan.Heard(), kTwoDaysLater);
}

// --- Whom it passes by -----------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, PassesByChildrenThatWereReachedAlready) {
    struct Row {
        const char* reached;
        const char* weeks;
    };
    for (const Row& row : {Row{"2",
                               "House |..###==|####.  |\n"
                               "Walls |..##.  |.....  |\n"
                               "Roof  |.....  |##...  |\n"
                               "Paint |.....  |...#.  |\n"},
                           Row{"3",
                               "House |....#==|#####  |\n"
                               "Walls |....#==|#....  |\n"
                               "Roof  |....#==|#....  |\n"
                               "Paint |.....  |....#  |\n"}}) {
        SCOPED_TRACE(row.reached);
        House plan;
        SummaryMove move{.stDate = Friday, .p_changeds = Make<Dictionary>()};
        move.p_changeds->Add(row.reached, row.reached);
        plan["Walls"].TaskLag(5);
        EXPECT_TRUE(move.Of(plan, "House"));
        EXPECT_EQ(Weeks(plan), row.weeks);
        EXPECT_EQ(plan["Walls"].TaskLag(), String(row.reached) == "2" ? 5 : 0) << "not even its lag is touched";
    }
}

TEST(SummaryTaskDateChanged2, RebuildsASummaryWhoseChildrenWereAllReached) {
    House plan;
    SummaryMove move{.stDate = Friday, .p_changeds = Make<Dictionary>()};
    for (const char* child : {"2", "3", "4"}) move.p_changeds->Add(child, child);
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(), Summed(1, Wednesday, Wednesday + 7, 6));
}

TEST(SummaryTaskDateChanged2, OnlyRebuildsATaskWithoutChildren) {
    Plan plan;
    plan.WithLinks().Task("Leaf").From(Wednesday).Lasting(3);
    SummaryMove move{.stDate = Friday};
    EXPECT_TRUE(move.Of(plan, "Leaf"));
    EXPECT_EQ(plan.Heard(), Summed(1, Wednesday, Friday, 3));
    EXPECT_EQ(Visited(move.p_changeds), "");
}

// --- Links -----------------------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, MeasuresTheGapsOfTheChildrensOwnLinks) {
    Plan plan;
    plan.WithLinks().Task("Order").From(Monday).Task("House");
    plan.Task("Walls").Under("House").From(Wednesday).After("Order", 7);
    plan.Task("Roof").Under("House").From(Thursday).After("Walls", 7);
    plan.col().AdjustSummary("2");
    plan["Walls"].TaskLag(7);
    plan["Roof"].TaskLag(7);
    SummaryMove move{.stDate = Thursday};

    EXPECT_TRUE(move.Of(plan, "House"));

    EXPECT_EQ(Weeks(plan, 1),
              "Order |#....  |\n"
              "House |...##  |\n"
              "Walls |...#.  |\n"
              "Roof  |....#  |\n")
        << "no lag is applied on the way";
    EXPECT_EQ(Listed(plan["Walls"].TaskLeadTime()) + ", " + Listed(plan["Roof"].TaskLeadTime()), "1|2, 3|0");
    EXPECT_EQ(plan["Walls"].TaskLag(), 2);
    EXPECT_EQ(plan["Roof"].TaskLag(), 0);
}

TEST(SummaryTaskDateChanged2, TakesAlongWhoWaitsOutsideInTheOrderOfTheChildren) {
    House plan;
    plan.Task("Tent").From(Friday).After("Walls").Task("Party").From(Thursday + 7).After("Paint");
    SummaryMove move{.stDate = Friday};

    EXPECT_TRUE(move.Of(plan, "House"));

    EXPECT_EQ(plan.Heard(), Moved(2, Friday, Monday + 7, 2) + Moved(5, Tuesday + 7, Tuesday + 7, 1) +
                                Moved(3, Tuesday + 7, Wednesday + 7, 2) + Moved(4, Friday + 7, Friday + 7, 1) +
                                Moved(6, Monday + 14, Monday + 14, 1) + Summed(1, Friday, Friday + 7, 6));
    EXPECT_EQ(Visited(move.p_changeds), R"("2" 1 "5" "3" "4" "6")");
}

TEST(SummaryTaskDateChanged2, MovesTheChildrenAndNobodyElseWithoutLiveLinks) {
    Plan plan;
    plan.Task("House").Task("Walls").Under("House").From(Wednesday).Task("Roof").Under("House").From(Thursday);
    plan.Task("Tent").From(Thursday).After("Walls");
    plan.col().AdjustSummary("1");
    plan.Heard();
    SummaryMove move{.stDate = Friday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(),
              Moved(2, Friday, Friday, 1) + Moved(3, Monday + 7, Monday + 7, 1) + Summed(1, Friday, Monday + 7, 2));
}

TEST(SummaryTaskDateChanged2, TellsASilencedHostTheDurationsOnly) {
    Plan plan;
    plan.WithLinks().Silenced().Task("House").Task("Walls").Under("House").From(Wednesday);
    SummaryMove move{.stDate = Friday, .UsethisDate = Friday};
    EXPECT_TRUE(move.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(2, 1, days, False, False)\n"
              "TaskDurationChange(1, 1, days, False, True)\n");
}

// --- The ends of the plan --------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, KeepsTheSummarysKeyBesideEmptyCaches) {
    House plan;
    plan.Task("Last").From(Friday + 21);
    plan.col().GetMinDate(True);
    SummaryMove move{.stDate = Friday};
    EXPECT_TRUE(move.Of(plan, "House"));
    const ModuleState& module = Module();
    EXPECT_EQ(DayName(module.g_MinDate) + " " + DayName(module.g_MaxDate), "- -");
    EXPECT_EQ(module.g_MinDateTaskKey, 1);
    EXPECT_EQ(module.g_MaxDateTaskKey, 1);
    EXPECT_EQ(DayName(plan.col().GetMinDate()), DayName(Friday));
}

TEST(SummaryTaskDateChanged2, EmptiesTheCachesOfALeaf) {
    Plan plan;
    plan.WithLinks().Task("Leaf").From(Wednesday);
    ModuleState& module = Module();
    module.g_MinDate = module.g_MaxDate = Wednesday;
    module.g_MinDateTaskKey = module.g_MaxDateTaskKey = 1;
    SummaryMove move{.stDate = Friday};
    EXPECT_TRUE(move.Of(plan, "Leaf"));
    EXPECT_EQ(DayName(module.g_MinDate) + " " + DayName(module.g_MaxDate), "- -");
    EXPECT_EQ(module.g_MinDateTaskKey, 0);
    EXPECT_EQ(module.g_MaxDateTaskKey, 0);
}

// --- Bounds ----------------------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, RecordsATaskThatIsNotThere) {
    for (const char* key : {"77", "", "0"}) {
        for (const int shift : {0, 3}) {
            Plan plan;
            plan.WithLinks();
            EXPECT_FALSE(plan.col().SummaryTaskDateChanged2(key, Friday, {}, True, {}, {}, False, shift));
            EXPECT_EQ(plan.failures.Taken(), "TasksCol/SummaryTaskDateChanged2 91\n");
        }
        Plan plan;
        plan.WithLinks();
        EXPECT_FALSE(plan.col().SummaryTaskDateChanged(key, Friday, Friday));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/SummaryTaskDateChanged2 91\n");
    }
}

TEST(SummaryTaskDateChanged2, EndsInAFailureWhereAGapIsNeverMet) {
    const TimeLimit limit("a gap that is never met");
    Plan plan;
    plan.WithLinks().Task("House").Holding(Monday, Tuesday, 2);
    plan.Task("Walls").Under("House").Holding(Monday, Monday, 1);
    plan.Task("Roof").Under("House").Holding(Tuesday, Tuesday, 1);
    for (int weekday = 2; weekday <= 6; ++weekday) plan.calendar().SetAsNonWorkingDay(Long(weekday));
    SummaryMove move{.stDate = Monday, .UsethisDate = Monday};
    EXPECT_FALSE(move.Of(plan, "House"));
    const String failures = plan.failures.Taken();
    const String last = "TasksCol/SummaryTaskDateChanged2 28\n";
    ASSERT_GE(failures.size(), last.size());
    EXPECT_EQ(failures.substr(failures.size() - last.size()), last) << failures;
    plan.Heard();
}

TEST(SummaryTaskDateChanged2, RecordsAChildThatIsNotThere) {
    House plan;
    plan.col().RemoveForLib("3");
    SummaryMove move{.stDate = Friday};
    EXPECT_FALSE(move.Of(plan, "House"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTasksAsKeys 91\nTasksCol/SummaryTaskDateChanged2 91\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SummaryTaskDateChanged2, RecordsAShiftThatNoIntegerHolds) {
    House plan;
    SummaryMove move{.stDate = Date::Of(9000, 1, 1)};
    EXPECT_FALSE(move.Of(plan, "House"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SummaryTaskDateChanged2 6\n");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Visited(move.p_changeds), "");
}

TEST(SummaryTaskDateChanged2, StopsInARingAndAtATaskThatIsItsOwnParent) {
    const TimeLimit limit("a ring of parents");
    for (const bool ring : {true, false}) {
        Plan plan;
        plan.WithLinks().Silenced();
        if (ring) {
            BuildRing(plan);
        } else {
            BuildSelfParent(plan);
        }
        SummaryMove move{.stDate = Friday, .UsethisDate = Friday};
        move.Of(plan, "A");
        EXPECT_NE(plan.failures.Taken().find(" 28\n"), String::npos);
        plan.Heard();
    }
}

TEST(SummaryTaskDateChanged2, GoesDownAnyOutlineOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 300;
        Plan plan;
        plan.WithLinks().Silenced();
        BuildChain(plan, kDeep);
        plan.From(Monday);
        plan.col().AdjustSummary(std::to_string(kDeep - 1));
        SummaryMove move{.stDate = Friday, .UsethisDate = Friday};
        EXPECT_TRUE(move.Of(plan, "1"));
        EXPECT_EQ(Span(plan[std::to_string(kDeep)]), "2026-03-06 2026-03-06 1");
        EXPECT_EQ(Span(plan["1"]), "2026-03-06 2026-03-06 1");
    });
}

TEST(SummaryTaskDateChanged2, GivesAChildItsLagBackBeforeAShiftThatNoIntegerHolds) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Walls").Under("House").From(Wednesday);
    plan.Task("Roof").Under("House").Holding(Date(), Friday, 1);
    plan["Roof"].TaskLag(4);
    SummaryMove move{.stDate = Friday, .p_diff = 2};
    EXPECT_FALSE(move.Of(plan, "House"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SummaryTaskDateChanged2 6\n");
    EXPECT_EQ(plan["Roof"].TaskLag(), 4);
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
