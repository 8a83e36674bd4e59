#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"

/// What DependsDateChanged does to the task that it is called for.
namespace mrlxmlclass {
namespace {

using namespace testing;

// --- The date that is set --------------------------------------------------------------------------------------------

TEST(DependsDateChanged, SetsAStartOrAnEndOnAWorkingDay) {
    struct Row {
        const char* what;
        int start_finish;
        Date date;
        const char* week;
        const char* span;
    };
    for (const Row& row : {
             Row{"a start", 1, Wednesday, "A |..###==|##...  |\n", "2026-03-04 2026-03-10 5"},
             Row{"a start with a time of day", 1, Wednesday + 0.75, "A |..###==|##...  |\n", "2026-03-04 2026-03-10 5"},
             Row{"a start looked for forward", 1, Saturday, "A |.....  |#####  |\n", "2026-03-09 2026-03-13 5"},
             Row{"a start looked for backward", -1, Saturday, "A |....#==|####.  |\n", "2026-03-06 2026-03-12 5"},
             Row{"a start before the weekend", -1, Sunday, "A |....#==|####.  |\n", "2026-03-06 2026-03-12 5"},
             Row{"a start on a working day", -1, Tuesday, "A |.####==|#....  |\n", "2026-03-03 2026-03-09 5"},
             Row{"a later end", 2, Friday + 7, "A |#####==|#####  |\n", "2026-03-02 2026-03-13 10"},
             Row{"an earlier end", 2, Wednesday, "A |###..  |.....  |\n", "2026-03-02 2026-03-04 3"},
             Row{"an end on a Saturday", 2, Saturday, "A |#####==|#....  |\n", "2026-03-02 2026-03-09 6"},
         }) {
        SCOPED_TRACE(row.what);
        Plan plan;
        plan.WithLinks().Task("A").From(Monday).Lasting(5);
        DateChange change{.StartFinishDate = row.start_finish};
        EXPECT_TRUE(change.Move(plan, "A", row.date));
        EXPECT_EQ(Weeks(plan), row.week);
        EXPECT_EQ(Span(plan["A"]), row.span);
        EXPECT_EQ(change.aDateChanged, row.date);
    }
}

TEST(DependsDateChanged, KeepsSteppingTwoDaysAtATimeInSearchOfAnEnd) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday).Lasting(5);
    DateChange change{.StartFinishDate = 2};
    EXPECT_TRUE(change.Move(plan, "A", Sunday));
    EXPECT_EQ(Weeks(plan), "A |#####==|##...  |\n") << "over the Monday";
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Tuesday + 7, 7));
}

TEST(DependsDateChanged, SetsNothingForAnyOtherKindOfDateButTellsAndWalks) {
    for (const int kind : {0, 3, -2, 32767, -32768}) {
        SCOPED_TRACE(kind);
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday).After("Design");
        DateChange change{.StartFinishDate = kind, .LeadTimeCalc = True};
        EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
        EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + Moved(2, Tuesday, Tuesday, 1));
        EXPECT_EQ(change.p_diff, -3);
    }
}

TEST(DependsDateChanged, SetsNothingWithoutADate) {
    for (const int kind : {1, -1, 2}) {
        for (const Boolean measured : {True, False}) {
            Plan plan;
            plan.WithLinks().Task("Design").From(Wednesday).Lasting(3).Task("Build").From(Friday).After("Design");
            DateChange change{.StartFinishDate = kind, .LeadTimeCalc = measured};
            EXPECT_TRUE(change.Move(plan, "Design", Date()));
            EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Friday, 3) + Moved(2, Monday + 7, Monday + 7, 1));
        }
    }
}

TEST(DependsDateChanged, SetsNothingWhenItIsToldNotToButTellsAndWalks) {
    for (const int kind : {1, -1, 2}) {
        SCOPED_TRACE(kind);
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Lasting(2).Task("Build").From(Friday).After("Design");
        plan["Design"].TaskLag(4);
        DateChange change{.StartFinishDate = kind, .LeadTimeCalc = True, .p_calc_date = False};
        EXPECT_TRUE(change.Move(plan, "Design", Thursday));
        EXPECT_EQ(plan.Heard(), Moved(1, Monday, Tuesday, 2) + Moved(2, Wednesday, Wednesday, 1));
        EXPECT_EQ(plan["Design"].TaskLag(), 4);
    }
}

TEST(DependsDateChanged, TellsTheOldEndWhereTheNewOneIsRefused) {
    for (const Date end : {Monday, Date::Of(2030, 3, 6)}) {
        SCOPED_TRACE(DayName(end));
        Plan plan;
        plan.WithLinks().Task("Design").From(Wednesday).Lasting(3).Task("Build").From(Wednesday).After("Design");
        DateChange change{.StartFinishDate = 2};
        EXPECT_TRUE(change.Move(plan, "Design", end));
        EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Friday, 3) + Moved(2, Monday + 7, Monday + 7, 1));
    }
}

TEST(DependsDateChanged, BringsAnEndBeyondTheLastYearIntoItInTheCallersVariableToo) {
    Plan plan;
    plan.WithLinks().Task("A").From(Date::Of(2036, 3, 3));
    DateChange change{.StartFinishDate = 2};
    EXPECT_TRUE(change.Move(plan, "A", Date::Of(2050, 3, 5)));
    EXPECT_EQ(change.aDateChanged, Date::Of(2036, 3, 5));
    EXPECT_EQ(Span(plan["A"]), "2036-03-03 2036-03-05 3");
}

TEST(DependsDateChanged, BringsAStartIntoTheRangeAndLeavesTheCallersVariable) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday);
    DateChange change;
    EXPECT_TRUE(change.Move(plan, "A", Date::Of(2050, 3, 4)));
    EXPECT_EQ(change.aDateChanged, Date::Of(2050, 3, 4));
    EXPECT_EQ(Span(plan["A"]), "2036-03-04 2036-03-04 1");
    EXPECT_TRUE(plan.platform.ui.messages.empty());

    EXPECT_TRUE(change.Move(plan, "A", Date::Of(1999, 3, 3)));
    EXPECT_EQ(Span(plan["A"]), "2000-03-03 2000-03-03 1");
    EXPECT_EQ(plan.platform.ui.messages.size(), 1U);
}

TEST(DependsDateChanged, EndsAtA29FebruaryThatTheLastYearDoesNotHave) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday).After("Design");
    Module().g_MaxYear = 2035;
    DateChange change{.StartFinishDate = 2};
    EXPECT_FALSE(change.Move(plan, "Design", Date::Of(2040, 2, 29)));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 13\n");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Visited(change.p_changeds), R"("1")");
    EXPECT_EQ(change.aDateChanged, Date::Of(2040, 2, 29));
}

TEST(DependsDateChanged, GoesOnWithTheOldStartWhereTheTaskRecordsAFailure) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday).After("Design");
    Module().g_MaxYear = 2035;
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Date::Of(2040, 2, 29), 1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/TaskBDate 13\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + Moved(2, Tuesday, Tuesday, 1));
}

// --- Kinds of tasks --------------------------------------------------------------------------------------------------

TEST(DependsDateChanged, SetsNoStartOfATaskInWeeksOrMonthsButTellsAndWalks) {
    struct Row {
        const char* unit;
        Date end;
    };
    for (const Row& row : {Row{"wks", Monday + 7}, Row{"mons", Date::Of(2026, 4, 2)}}) {
        for (const int kind : {1, -1}) {
            SCOPED_TRACE(row.unit);
            Plan plan;
            plan.WithLinks().Task("Print").From(Monday).Lasting(1, row.unit).Task("Ship").From(Monday).After("Print");
            plan["Print"].TaskLag(4);
            DateChange change{.StartFinishDate = kind, .LeadTimeCalc = True};
            EXPECT_TRUE(change.Move(plan, "Print", Wednesday));
            const Told print{.key = 1, .start = Monday, .end = row.end, .duration = 1, .unit = row.unit};
            EXPECT_EQ(plan.Heard(), print.Moved() + Moved(2, row.end + 1, row.end + 1, 1));
            EXPECT_EQ(plan["Print"].TaskLag(), 4) << "nor is its gap measured";
        }
    }
}

TEST(DependsDateChanged, SetsTheEndOfATaskInWeeksAsItStands) {
    Plan plan;
    plan.WithLinks().Task("Print").From(Monday).Lasting(2, "wks").Task("Ship").From(Tuesday + 14).After("Print");
    DateChange change{.StartFinishDate = 2};
    EXPECT_TRUE(change.Move(plan, "Print", Saturday + 14));
    EXPECT_EQ(Weeks(plan, 4),
              "Print |#####==|#####==|#####= |.....  |\n"
              "Ship  |.....  |.....  |.....  |#....  |\n");
    const Told print{.key = 1, .start = Monday, .end = Saturday + 14, .duration = 2, .unit = "wks"};
    EXPECT_EQ(plan.Heard(), print.Moved() + Moved(2, Monday + 21, Monday + 21, 1));
}

TEST(DependsDateChanged, KeepsTheEndOfATaskInWeeksWhereItIsShortened) {
    Plan plan;
    plan.WithLinks().Task("Print").From(Monday).Lasting(2, "wks");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Saturday, 2));
    EXPECT_EQ(Span(plan["Print"]), "2026-03-02 2026-03-16 2");
}

TEST(DependsDateChanged, MovesAMilestoneByEitherDate) {
    Plan plan;
    plan.WithLinks().Task("Approved").From(Friday).Milestone();
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday + 7, 1));
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Tuesday + 7));
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday + 7, 2));
    EXPECT_EQ(plan.Heard(), MovedMilestone(1, Thursday + 7));
}

TEST(DependsDateChanged, MovesASummaryAndNotItsChildren) {
    Plan plan;
    plan.WithLinks().Task("House").Task("Walls").Under("House").From(Monday).Lasting(3);
    plan.col().AdjustSummary("1");
    plan.Heard();
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(Weeks(plan, 1),
              "House |..###  |\n"
              "Walls |###..  |\n");
    const Told house{.key = 1, .start = Wednesday, .end = Friday, .duration = 3, .parent = True};
    EXPECT_EQ(plan.Heard(), house.Moved());
}

TEST(DependsDateChanged, GivesAnUndatedTaskADate) {
    Plan plan;
    plan.WithLinks().Task("A").Task("B");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 2));
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1));
    EXPECT_TRUE(plan.col().DependsDateChanged("2", Wednesday, 1));
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Date(), 1)) << "a fresh record loses its end at the first start";
}

TEST(DependsDateChanged, KeepsEndingAtTheShiftOfATaskThatHadNoStart) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").From(Monday).After("Design");
    DateChange change{.LeadTimeCalc = True};
    EXPECT_FALSE(change.Move(plan, "Design", Wednesday));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 6\n");
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), "2026-03-04") << "the date stands";
    EXPECT_EQ(Span(plan["Build"]), "2026-03-02 2026-03-02 1");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(change.p_diff, 0);
    EXPECT_EQ(Visited(change.p_changeds), R"("1")");
}

TEST(DependsDateChanged, HasNoShiftToReckonForAnUndatedTaskInAWalkThatHasOne) {
    Plan plan;
    plan.WithLinks().Task("A");
    DateChange change{.LeadTimeCalc = True, .p_diff = 5};
    EXPECT_TRUE(change.Move(plan, "A", Wednesday));
    EXPECT_EQ(change.p_diff, 5);
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Date(), 1));
}

// --- Gap and shift ---------------------------------------------------------------------------------------------------

TEST(DependsDateChanged, PutsATaskWhereTheHostWantsItAndMeasuresItsGap) {
    for (const int lag : {3, -2}) {
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Wednesday).After("Design", lag);
        plan["Build"].TaskLag(lag);
        EXPECT_TRUE(plan.col().DependsDateChanged("2", Thursday, 1, True));
        EXPECT_EQ(plan.Heard(), Moved(2, Thursday, Thursday, 1));
        EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|2");
        EXPECT_EQ(plan["Build"].TaskLag(), 2);
    }
}

TEST(DependsDateChanged, KeepsTheLagInForceWhereTheGapIsNotMeasured) {
    struct Row {
        int lag;
        Date start;
    };
    for (const Row& row : {Row{3, Tuesday + 7}, Row{-1, Thursday}, Row{-2, Wednesday}}) {
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Wednesday).After("Design", row.lag);
        plan["Build"].TaskLag(row.lag);
        EXPECT_TRUE(plan.col().DependsDateChanged("2", Thursday, 1));
        EXPECT_EQ(plan.Heard(), Moved(2, row.start, row.start, 1));
        EXPECT_EQ(plan["Build"].TaskLag(), row.lag);
        EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|" + std::to_string(row.lag));
    }
}

TEST(DependsDateChanged, MeasuresNoGapForANewEnd) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Wednesday).After("Design", 7);
    plan["Build"].TaskLag(7);
    EXPECT_TRUE(plan.col().DependsDateChanged("2", Friday, 2, True));
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Friday, 3));
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|7");
    EXPECT_EQ(plan["Build"].TaskLag(), 7);
}

TEST(DependsDateChanged, HandsBackTheShiftLessUpToTwoFreeDays) {
    struct Row {
        const char* what;
        Date from;
        Date to;
        int kind;
        int given;
        int handed_back;
    };
    for (const Row& row : {
             Row{"within a week", Monday, Thursday, 1, 0, 3},
             Row{"over a weekend", Thursday, Tuesday + 7, 1, 0, 3},
             Row{"over two weekends", Thursday, Thursday + 14, 1, 0, 12},
             Row{"back over a weekend", Tuesday + 7, Thursday, 1, 0, -3},
             Row{"from Friday to Monday", Friday, Monday + 7, 1, 0, 1},
             Row{"from Monday to Friday", Monday + 7, Friday, 1, 0, -1},
             Row{"to a Saturday", Monday, Saturday, 1, 0, 5},
             Row{"back from a Saturday", Monday + 7, Saturday, -1, 0, -1},
             Row{"to where it stands", Monday, Monday, 1, 0, 0},
             Row{"to the weekend before it", Monday + 7, Saturday, 1, 0, 0},
             Row{"in a walk that has a shift", Monday, Thursday, 1, 7, 7},
         }) {
        SCOPED_TRACE(row.what);
        Plan plan;
        plan.WithLinks().Task("A").From(row.from);
        DateChange change{.StartFinishDate = row.kind, .LeadTimeCalc = True, .p_diff = row.given};
        EXPECT_TRUE(change.Move(plan, "A", row.to));
        EXPECT_EQ(change.p_diff, row.handed_back);
    }
}

TEST(DependsDateChanged, HandsBackTheShiftOfATaskThatLeavesAFreeDay) {
    Plan plan;
    plan.WithLinks().Task("A").Holding(Saturday, Saturday, 1);
    DateChange change{.LeadTimeCalc = True};
    EXPECT_TRUE(change.Move(plan, "A", Monday + 7));
    EXPECT_EQ(change.p_diff, 0) << "two days, both of them free";
}

TEST(DependsDateChanged, KeepsTurningTheSignOfAShiftWhereNoDayIsWorked) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday);
    for (int weekday = 1; weekday <= 7; ++weekday) plan.calendar().SetAsNonWorkingDay(weekday);
    DateChange change{.LeadTimeCalc = True};
    EXPECT_TRUE(change.Move(plan, "A", Tuesday));
    EXPECT_EQ(change.p_diff, -1) << "a day on, two free days off";
    EXPECT_NE(plan.failures.Taken().find("Gloabal/SetNextWorkingDay 28\n"), String::npos);
}

TEST(DependsDateChanged, ReckonsNoShiftWhereTheGapIsNotMeasured) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday);
    DateChange change;
    EXPECT_TRUE(change.Move(plan, "A", Thursday));
    EXPECT_EQ(change.p_diff, 0);
    change.StartFinishDate = 2;
    change.LeadTimeCalc = True;
    EXPECT_TRUE(change.Move(plan, "A", Friday));
    EXPECT_EQ(change.p_diff, 0);
}

// --- Keys ------------------------------------------------------------------------------------------------------------

TEST(DependsDateChanged, TakesAKeyAsNumberOrText) {
    for (const Variant& key : {Variant(1), Variant("1")}) {
        Plan plan;
        plan.WithLinks().Task("A").From(Monday);
        Ref<Dictionary> visited;
        EXPECT_TRUE(plan.col().DependsDateChanged(key, Wednesday, 1, False, True, 0, False, True, visited));
        EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1));
        EXPECT_EQ(Visited(visited), R"("1")");
    }
}

TEST(DependsDateChanged, RecordsATaskThatIsNotThere) {
    struct Row {
        Variant key;
        const char* visited;
    };
    for (const Row& row : {Row{77, R"("77")"}, Row{"77", R"("77")"}, Row{"0", R"("0")"}, Row{0, R"("0")"},
                           Row{"", R"("")"}, Row{"05", R"("05")"}, Row{"x", R"("x")"}}) {
        Plan plan;
        plan.WithLinks().Task("A").From(Monday);
        Ref<Dictionary> visited;
        EXPECT_FALSE(plan.col().DependsDateChanged(row.key, Wednesday, 1, False, True, 0, False, True, visited));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 91\n");
        EXPECT_EQ(plan.Heard(), "");
        EXPECT_EQ(Visited(visited), row.visited);
    }
}

}  // namespace
}  // namespace mrlxmlclass
