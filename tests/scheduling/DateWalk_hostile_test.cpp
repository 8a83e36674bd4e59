#include <gtest/gtest.h>

#include "tests/dom/SmallStack.h"
#include "tests/scheduling/DateChange.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"

/// Walks along links under hosts that interfere, numbers that don't fit and plans that go deep.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// Build and Test wait for Design; Late waits for nobody.
class LooseFork : public Plan {
public:
    LooseFork() {
        WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
        Task("Test").From(Tuesday).After("Design").Task("Late").From(Tuesday);
    }
    Ref<Collection> links() { return (*this)["Design"].TaskSuccessor(); }
};

// --- Hosts that come back in -----------------------------------------------------------------------------------------

TEST(DependsDateChanged, WalksTheLinksAsTheyStoodBeforeTheFirstSuccessorMoved) {
    LooseFork plan;
    {
        const OnStart act(plan, [&](Long key) {
            if (key != 2) return;
            plan.links()->Remove("3");
            plan.links()->Add("4", "4");
        });
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    }
    EXPECT_EQ(plan.Heard(),
              Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1) + Moved(3, Thursday, Thursday, 1));
}

TEST(DependsDateChanged, SeesLinksThatTheHostMakesWhenItHearsOfTheTask) {
    LooseFork plan;
    {
        const OnStart act(plan, [&](Long key) {
            if (key == 1) plan.links()->Add("4", "4");
        });
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    }
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1) +
                                Moved(3, Thursday, Thursday, 1) + Moved(4, Thursday, Thursday, 1));
}

TEST(DependsDateChanged, TakesOffTheLinkToATaskThatTheHostTookAwayMeanwhile) {
    LooseFork plan;
    DateChange change;
    {
        const OnStart act(plan, [&](Long key) {
            if (key == 2) plan.col().RemoveForLib("3");
        });
        EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    }
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
    EXPECT_EQ(Listed(plan.links()), "2");
    EXPECT_EQ(Visited(change.p_changeds), R"("1" "2" "3")");
}

TEST(DependsDateChanged, LetsTheHostStartAnotherWalkInside) {
    LooseFork plan;
    plan.Task("Other").From(Monday).Task("Behind").From(Tuesday).After("Other");
    bool once = true;
    {
        const OnStart act(plan, [&](Long key) {
            if (key != 2 || !std::exchange(once, false)) return;
            plan.Heard();
            EXPECT_TRUE(plan.col().DependsDateChanged("5", Thursday, 1));
            EXPECT_EQ(plan.Heard(), Moved(5, Thursday, Thursday, 1) + Moved(6, Friday, Friday, 1));
        });
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    }
    EXPECT_EQ(Weeks(plan, 1),
              "Design |..#..  |\n"
              "Build  |...#.  |\n"
              "Test   |...#.  |\n"
              "Late   |.#...  |\n"
              "Other  |...#.  |\n"
              "Behind |....#  |\n");
}

TEST(DependsDateChanged, LetsTheHostMoveTheSameTaskAgainInside) {
    LooseFork plan;
    bool once = true;
    {
        const OnStart act(plan, [&](Long key) {
            if (key == 2 && std::exchange(once, false)) plan.col().DependsDateChanged("1", Thursday, 1);
        });
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    }
    EXPECT_EQ(Weeks(plan, 1),
              "Design |...#.  |\n"
              "Build  |....#  |\n"
              "Test   |....#  |\n"
              "Late   |.#...  |\n");
}

TEST(DependsDateChanged, SurvivesAHostThatTakesTheTaskAwayWhileItIsTold) {
    for (const int victim : {1, 2}) {
        LooseFork plan;
        {
            const OnStart act(plan, [&](Long key) {
                if (key == victim) plan.col().RemoveForLib(key);
            });
            plan.col().DependsDateChanged("1", Wednesday, 1);
        }
        EXPECT_FALSE(plan.col().Item(victim));
        EXPECT_EQ(Span(plan["Late"]), "2026-03-03 2026-03-03 1");
        const String failures = plan.failures.Taken();
        EXPECT_TRUE(failures.empty() || failures == "TasksCol/DependsDateChanged 91\n") << failures;
        EXPECT_NE(plan.Heard().find("DateStartChange(1, 2026-03-04, False, False)\n"), String::npos);
    }
}

TEST(DependsDateChanged, EndsACycleUnderAHostThatEmptiesItsDictionary) {
    const TimeLimit limit("a cycle without a memory");
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    plan.About("Design").After("Build");
    DateChange change{.p_changeds = Make<Dictionary>()};
    const Ref<Dictionary> visited = change.p_changeds;
    {
        const OnStart act(plan, [&](Long) { visited->RemoveAll(); });
        EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
    }
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1));
}

// --- Numbers ---------------------------------------------------------------------------------------------------------

TEST(DependsDateChanged, RecordsGapsThatMoveATaskFurtherThanAnIntegerCounts) {
    constexpr int kWeeks = 6553;  // 32,767 working days are so many weeks and two days
    struct Row {
        int gap;
        Date start;
    };
    for (const Row& row : {Row{32767, Tuesday + 7 * kWeeks + 2}, Row{-32768, Monday - 7 * kWeeks - 4}}) {
        SCOPED_TRACE(row.gap);
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design", row.gap);
        DateChange change{.LeadTimeCalc = True};
        EXPECT_TRUE(change.Move(plan, "Design", Monday));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustDate 6\n");
        EXPECT_EQ(DayName(plan["Build"].TaskBDate()), DayName(row.start)) << "the date stands";
        EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1));
        EXPECT_EQ(Visited(change.p_changeds), R"("1" "2")");
    }
}

TEST(DependsDateChanged, EndsAtALagOfTheChangedTaskThatNoIntegerHolds) {
    LooseFork plan;
    plan["Design"].TaskLag(100'000);
    DateChange change{.p_calc_date = False};
    EXPECT_FALSE(change.Move(plan, "Design", Monday));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 6\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + Moved(2, Tuesday, Tuesday, 1));
}

TEST(DependsDateChanged, RecordsARingOfParentsOnceForEachClimb) {
    const TimeLimit limit("a ring of parents");
    Plan plan;
    plan.WithLinks();
    BuildRing(plan);
    plan.Task("Design").From(Monday).Task("Build").Under("B").From(Tuesday).After("Design");
    EXPECT_TRUE(plan.col().DependsDateChanged("3", Wednesday, 1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 28\n");
    EXPECT_EQ(Span(plan["Build"]), "2026-03-05 2026-03-05 1");
}

TEST(DependsDateChanged, ComesBackFromACalendarWithoutAnyWorkingDay) {
    const TimeLimit limit("a chain of tasks where no day is worked", std::chrono::seconds(20));
    constexpr int kTasks = 1'000;
    Plan plan;
    plan.WithLinks().Silenced().Task("1").From(Monday);
    for (int number = 2; number <= kTasks; ++number) {
        plan.Task(std::to_string(number)).Holding(Monday, Monday, 1).After(std::to_string(number - 1), -1);
    }
    for (int weekday = 1; weekday <= 7; ++weekday) plan.calendar().SetAsNonWorkingDay(weekday);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday, 1));
    EXPECT_EQ(DayName(plan["1"].TaskBDate()), DayName(Tuesday)) << "a date that finds no working day stays";
    EXPECT_NE(plan.failures.Taken().find("Gloabal/SetNextWorkingDay 28\n"), String::npos);
}

TEST(DependsDateChanged, GoesOnWithoutGapsThatCannotBeMeasuredOrRead) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday).After("Design");
    plan["Build"].TaskPredecessor()->Add("77", "77");
    EXPECT_TRUE(plan.col().DependsDateChanged("2", Thursday, 1, True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CalcLeadTime 91\n");
    EXPECT_EQ(plan.Heard(), Moved(2, Thursday, Thursday, 1));

    plan["Build"].TaskLeadTime(Make<Collection>());
    plan["Build"].TaskLeadTime()->Add("1|x", "1");
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Tuesday, 1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTime 13\nTasksCol/GetLeadTime 13\n")
        << "asked for the side of the end, and again for the steps";
    EXPECT_EQ(plan.Heard(), Moved(1, Tuesday, Tuesday, 1) + Moved(2, Wednesday, Wednesday, 1));
}

// --- Depth -----------------------------------------------------------------------------------------------------------

constexpr int kLong = 10'000;

/// Tasks "1" to "10000", each on the end of the one before; the last is waited for by the first.
void BuildRope(Plan& plan, bool closed) {
    plan.WithLinks().Silenced().Task("1").From(Monday);
    for (int number = 2; number <= kLong; ++number) {
        plan.Task(std::to_string(number)).Holding(Monday, Monday, 1).After(std::to_string(number - 1), -1);
    }
    if (closed) plan.About("1").After(std::to_string(kLong), -1);
}

TEST(DependsDateChanged, WalksAnyLengthOnASmallStack) {
    for (const bool closed : {false, true}) {
        dom::OnSmallStack([closed] {
            Plan plan;
            BuildRope(plan, closed);
            DateChange change{.LeadTimeCalc = True};
            EXPECT_TRUE(change.Move(plan, "1", Friday));
            EXPECT_EQ(DayName(plan[std::to_string(kLong)].TaskBDate()), DayName(Friday));
            EXPECT_EQ(change.p_changeds->Count(), kLong);
            EXPECT_EQ(change.p_diff, 4);
        });
    }
}

TEST(DurationChanged, WalksAnyLengthOnASmallStack) {
    dom::OnSmallStack([] {
        Plan plan;
        BuildRope(plan, false);
        EXPECT_TRUE(plan.col().DurationChanged("1", 3.0));
        EXPECT_EQ(DayName(plan[std::to_string(kLong)].TaskBDate()), DayName(Wednesday));
    });
}

TEST(DependsDateChanged, WalksSummariesWithinAndBehindEachOtherOnASmallStack) {
    constexpr int kDeep = 300;
    dom::OnSmallStack([] {
        Plan plan;
        plan.WithLinks().Silenced().Task("Design").From(Monday).Task("1");
        for (int level = 2; level <= kDeep; ++level) {
            plan.Task(std::to_string(level)).Under(std::to_string(level - 1));
        }
        plan.From(Tuesday).About("1").After("Design");
        plan.Task("Behind").From(Wednesday).After(std::to_string(kDeep));
        plan.col().AdjustSummary(plan.Key(std::to_string(kDeep - 1)));
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1, True));
        EXPECT_EQ(Span(plan["1"]), "2026-03-05 2026-03-05 1");
        EXPECT_EQ(Span(plan["Behind"]), "2026-03-06 2026-03-06 1");
    });
}

}  // namespace
}  // namespace mrlxmlclass
