#include <gtest/gtest.h>

#include "tests/support/Interruption.h"
#include "tests/support/Links.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/Told.h"
#include "tests/tasks/Family.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// What holds for a move in either mode: with live links the host is told of rows besides.
class Moving : public ::testing::TestWithParam<bool> {
protected:
    Moving() {
        if (GetParam()) plan.WithLinks();
    }
    /// What was heard but for the rows of links; a plan without live links has none to tell.
    String Heard() {
        const String heard = plan.Heard();
        return GetParam() ? WithoutLinkRows(heard) : heard;
    }
    /// The label under which a failure of the move is recorded.
    String Failed(int number) const {
        return String("TasksCol/MoveTaskUpOrDown") + (GetParam() ? "depend " : " ") + std::to_string(number) + "\n";
    }

    Plan plan;
};

INSTANTIATE_TEST_SUITE_P(MoveTaskUpOrDown, Moving, ::testing::Bool(),
                         [](const auto& mode) { return mode.param ? "WithLinks" : "WithoutLinks"; });

TEST_P(Moving, TellsAMoveAtTheTopAndChangesNothing) {
    struct Row {
        bool up;
        const char* parent;
        const char* old_parent;
    };
    plan.Task("A").From(Monday).Task("B").From(Tuesday).Task("C").From(Wednesday);
    for (const Row& row : {Row{true, "", ""}, Row{true, "0", "0"}, Row{true, "0", ""}, Row{false, "", ""},
                           Row{false, "0", "0"}, Row{false, "0", ""}}) {
        SCOPED_TRACE(String(row.up ? "up, " : "down, ") + row.parent + ", " + row.old_parent);
        if (row.up) {
            Number(plan, {"B", "A", "C"});
        } else {
            Number(plan, {"A", "C", "B"});
        }
        const String before = plan.Drawn();
        EXPECT_TRUE(plan.col().MoveTaskUpOrDown("2", row.up, row.parent, row.old_parent, False, "grid").is_empty());
        EXPECT_EQ(plan.Drawn(), before);
        EXPECT_EQ(Heard(), String("UpDown(") + (row.up ? "True" : "False") + ", 2, " + row.parent + ", " +
                               row.old_parent + ", False, grid)\n");
    }
}

TEST_P(Moving, LeavesATaskUnderItsParentAmongItsSiblings) {
    plan.Task("House").Task("A").Under("House").From(Monday).Task("B").Under("House").From(Tuesday);
    plan.Task("C").Under("House").From(Wednesday);
    Settle(plan, {"House"});
    Number(plan, {"House", "B", "A", "C"});
    plan.col().MoveTaskUpOrDown("3", True, "1", "1", False, "grid");
    EXPECT_EQ(Family(plan), "1 House: A B C\n2   -B\n3   -A\n4   -C\n");
    EXPECT_EQ(Heard(), "UpDown(True, 3, 1, 1, False, grid)\n");
    Number(plan, {"House", "A", "B", "C"});
    plan.col().MoveTaskUpOrDown("3", False, "1", "1", False, "grid");
    EXPECT_EQ(Family(plan), "1 House: A B C\n2   -A\n3   -B\n4   -C\n");
    EXPECT_EQ(Heard(), "UpDown(False, 3, 1, 1, False, grid)\n");
}

TEST_P(Moving, KeepsMakingAPlainRowOfEveryTaskWithAParent) {
    plan.Task("House").Task("Phase").Under("House").Task("Design").Under("Phase").From(Monday).Task("Roof");
    plan["Phase"].TaskType(False);
    plan["Roof"].TaskType(True);
    plan.col().MoveTaskUpOrDown("2", True, "1", "1", False, "grid");
    plan.col().MoveTaskUpOrDown("4", True, "0", "0", False, "grid");
    EXPECT_EQ(Family(plan), "1 House: Phase\n2   -Phase: Design\n3     -Design\n4 Roof\n");
    Heard();
}

/// 1 Phase, with a task on Tuesday and Wednesday behind the one that moves down into it
class MovingIntoAPhase : public Moving {
protected:
    MovingIntoAPhase() {
        plan.Task("T").From(Monday).Task("Phase").Task("C").Under("Phase").From(Tuesday).Lasting(2);
        Settle(plan, {"Phase"});
        Number(plan, {"Phase", "T", "C"});
    }
};

INSTANTIATE_TEST_SUITE_P(MoveTaskUpOrDown, MovingIntoAPhase, ::testing::Bool());

TEST_P(MovingIntoAPhase, TakesTheDatesOffATaskThatComesDownFromTheTop) {
    plan.col().MoveTaskUpOrDown("1", False, "2", "0", True, "grid");
    EXPECT_EQ(Family(plan), "1 Phase: C T\n2   -T\n3   -C\n");
    EXPECT_EQ(plan.Drawn(),
              "1 Phase  2026-03-03 2026-03-04\n"
              "2   T\n"
              "3   C  2026-03-03 2026-03-04\n");
    EXPECT_EQ(plan["T"].TaskDuration(), 0);
    EXPECT_EQ(Heard(), Summed(2, Tuesday, Wednesday, 2) + "IamASummary(2, True)\nUpDown(False, 1, 2, 0, True, grid)\n");
}

TEST_P(MovingIntoAPhase, TakesAnOldParentThatIsNotSaidForTheTop) {
    plan.col().MoveTaskUpOrDown("1", False, "2", "", True, "grid");
    EXPECT_FALSE(plan["T"].TaskBDate().set());
    EXPECT_EQ(Heard(), Summed(2, Tuesday, Wednesday, 2) + "IamASummary(2, True)\nUpDown(False, 1, 2, , True, grid)\n");
}

TEST_P(MovingIntoAPhase, LeavesTheDatesOfABatchAlone) {
    plan.col().MoveTaskUpOrDown("1", False, "2", "0", True, "grid", True);
    EXPECT_EQ(Family(plan), "1 Phase: C T\n2   -T\n3   -C\n");
    EXPECT_EQ(DayName(plan["T"].TaskBDate()), DayName(Monday));
    EXPECT_EQ(Heard(), String("IamASummary(2, True)\n") + (GetParam() ? "" : "UpDown(False, 1, 2, 0, True, grid)\n"));
}

TEST_P(MovingIntoAPhase, LeavesTheParentWithoutAChangeOfParents) {
    plan.col().MoveTaskUpOrDown("1", False, "2", "0", False, "grid");
    EXPECT_EQ(Family(plan), "1 Phase: C\n2 T\n3   -C\n");
    EXPECT_EQ(Heard(), "UpDown(False, 1, 2, 0, False, grid)\n");
}

TEST_P(MovingIntoAPhase, StopsAtAParentThatIsNotThere) {
    plan.col().MoveTaskUpOrDown("1", False, "77", "0", True, "grid");
    EXPECT_EQ(plan.failures.Taken(), Failed(91));
    EXPECT_EQ(plan["T"].ParentID(), 0);
    EXPECT_EQ(Heard(), "");
}

TEST_P(Moving, RebuildsASummaryThatComesDownFromTheTop) {
    plan.Task("T").Task("K").Under("T").From(Monday).Task("Phase").Task("C").Under("Phase").From(Tuesday).Lasting(2);
    Settle(plan, {"T", "Phase"});
    Number(plan, {"Phase", "T", "K", "C"});
    plan.col().MoveTaskUpOrDown("1", False, "3", "0", True, "grid");
    EXPECT_EQ(Family(plan), "1 Phase: C T\n2   -T: K\n3     -K\n4   -C\n");
    EXPECT_EQ(plan.Drawn(),
              "1 Phase  2026-03-02 2026-03-04\n"
              "2   T  2026-03-02 2026-03-02\n"
              "3     K  2026-03-02 2026-03-02\n"
              "4   C  2026-03-03 2026-03-04\n");
    EXPECT_TRUE(Heard().ends_with("UpDown(False, 1, 3, 0, True, grid)\n"));
}

/// 1 Old: A on Monday and T on Tuesday
/// 4 New: C on Wednesday
class MovingBetweenParents : public Moving {
protected:
    MovingBetweenParents() {
        plan.Task("Old").Task("A").Under("Old").From(Monday).Costing(5).Task("T").Under("Old").From(Tuesday).Costing(
            10);
        plan.Task("New").Task("C").Under("New").From(Wednesday).Costing(1);
        Settle(plan, {"Old", "New"});
        Number(plan, {"Old", "A", "New", "T", "C"});
    }
};

INSTANTIATE_TEST_SUITE_P(MoveTaskUpOrDown, MovingBetweenParents, ::testing::Bool());

TEST_P(MovingBetweenParents, AdjustsTheDatesOfTheNewAndTheCostOfTheOld) {
    plan.col().MoveTaskUpOrDown("3", False, "4", "1", True, "grid");
    EXPECT_EQ(Family(plan), "1 Old: A\n2   -A\n3 New: C T\n4   -T\n5   -C\n");
    EXPECT_EQ(Heard(), Summed(4, Tuesday, Wednesday, 2) + "IamASummary(4, True)\nIamASummary(1, True)\n" + Costs(1, 5) +
                           "UpDown(False, 3, 4, 1, True, grid)\n");
    EXPECT_EQ(plan["New"].TaskCost(), Currency(1));
    EXPECT_EQ(DayName(plan["Old"].TaskEDate()), DayName(Tuesday));
}

TEST_P(MovingBetweenParents, LeavesTheDatesOfABatchToTheCaller) {
    plan.col().MoveTaskUpOrDown("3", False, "4", "1", True, "grid", True);
    EXPECT_EQ(Family(plan), "1 Old: A\n2   -A\n3 New: C T\n4   -T\n5   -C\n");
    EXPECT_EQ(Heard(), "IamASummary(4, True)\nIamASummary(1, True)\n" + Costs(1, 5) +
                           (GetParam() ? "" : "UpDown(False, 3, 4, 1, True, grid)\n"));
}

TEST_P(MovingBetweenParents, PutsATaskAtTheTop) {
    plan.col().MoveTaskUpOrDown("3", False, "0", "1", True, "grid");
    EXPECT_EQ(Family(plan), "1 Old: A\n2   -A\n3 New: C\n4 T\n5   -C\n");
    const String heard = Heard();
    EXPECT_TRUE(heard.ends_with("IamASummary(1, True)\n" + Costs(1, 5) + "UpDown(False, 3, 0, 1, True, grid)\n"))
        << heard;
    EXPECT_EQ(DayName(plan["T"].TaskBDate()), DayName(Tuesday));
}

TEST_P(MovingBetweenParents, TellsAnOldParentThatItLostItsLastChild) {
    plan.col().RemoveForLib("2");
    In(plan["Old"]).Tasks()->Remove("2");
    plan.col().MoveTaskUpOrDown("3", False, "4", "1", True, "grid");
    EXPECT_EQ(Heard(), Summed(4, Tuesday, Wednesday, 2) + "IamASummary(4, True)\nIamASummary(1, False)\n" +
                           Costs(1, 15) + "UpDown(False, 3, 4, 1, True, grid)\n")
        << "which keeps the cost that it had";
}

TEST_P(MovingBetweenParents, ComesUpUnderTheParentRightBehindTheOldOne) {
    Number(plan, {"Old", "New", "T", "C", "A"});
    plan.col().MoveTaskUpOrDown("3", True, "4", "1", False, "grid");
    EXPECT_EQ(Family(plan), "1 Old: A\n2 New: C T\n3   -T\n4   -C\n5   -A\n");
    EXPECT_EQ(Heard(), "UpDown(True, 3, 4, 1, False, grid)\n");
}

TEST_P(MovingBetweenParents, ComesUpInABatchWhateverIsSaidOfTheParent) {
    Number(plan, {"Old", "New", "T", "C", "A"});
    plan.col().MoveTaskUpOrDown("3", True, "4", "1", True, "grid", True);
    EXPECT_EQ(Family(plan), "1 Old: A\n2 New: C T\n3   -T\n4   -C\n5   -A\n");
    EXPECT_EQ(Heard(), GetParam() ? "" : "UpDown(True, 3, 4, 1, True, grid)\n");
}

TEST_P(MovingBetweenParents, KeepsTheParentOnAMoveUpThatSaysItChanges) {
    Number(plan, {"Old", "New", "T", "C", "A"});
    plan.col().MoveTaskUpOrDown("3", True, "4", "1", True, "grid");
    EXPECT_EQ(Family(plan), "1 Old: A T\n2 New: C\n3   -T\n4   -C\n5   -A\n");
    EXPECT_EQ(Heard(), "UpDown(True, 3, 4, 1, True, grid)\n");
}

TEST_P(MovingBetweenParents, ComesUpUnderAnotherParentInFrontOfATaskThatWaitsForItWhateverIsSaidOfTheParent) {
    plan.About("C").After("T");
    Number(plan, {"Old", "New", "T", "C", "A"});
    plan.col().MoveTaskUpOrDown("3", True, "4", "1", True, "grid");
    EXPECT_EQ(Family(plan), "1 Old: A\n2 New: C T\n3   -T\n4   -C\n5   -A\n");
    EXPECT_TRUE(Heard().ends_with("UpDown(True, 3, 4, 1, True, grid)\n"));
}

TEST_P(MovingBetweenParents, ComesUpUnderAParentOneRowFurther) {
    Number(plan, {"Old", "A", "New", "T", "C"});
    plan.col().MoveTaskUpOrDown("3", True, "4", "1", False, "grid");
    EXPECT_EQ(Family(plan), "1 Old: A\n2   -A\n3 New: C T\n4   -T\n5   -C\n");
    EXPECT_EQ(plan["New"].TaskCost(), Currency(11));
    EXPECT_EQ(plan["Old"].TaskCost(), Currency(5));
    const String heard = Heard();
    EXPECT_NE(heard.find(Summed(4, Tuesday, Wednesday, 2)), String::npos) << heard;
    EXPECT_LT(heard.find(Summed(4, Tuesday, Wednesday, 2)), heard.find(Costs(4, 11))) << heard;
    EXPECT_TRUE(heard.ends_with(Costs(1, 5) + "UpDown(True, 3, 4, 1, False, grid)\n")) << heard;
}

TEST_P(Moving, TakesItsCostOffAnOldParentThatHasNoChildLeft) {
    plan.Task("Old").Task("T").Under("Old").From(Tuesday).Costing(10).Task("X").From(Monday);
    plan.Task("New").Task("C").Under("New").From(Wednesday).Costing(1);
    Settle(plan, {"Old", "New"});
    Number(plan, {"Old", "X", "New", "T", "C"});
    plan.col().MoveTaskUpOrDown("2", True, "4", "1", False, "grid");
    EXPECT_EQ(plan["New"].TaskCost(), Currency(11));
    EXPECT_EQ(plan["Old"].TaskCost(), Currency(0));
    EXPECT_TRUE(Heard().ends_with(Costs(1, 0) + "UpDown(True, 2, 4, 1, False, grid)\n"));
}

TEST_P(MovingBetweenParents, KeepsTheParentWhereTheNewOneStandsElsewhere) {
    struct Row {
        const char* what;
        std::initializer_list<const char*> rows;
        Boolean batch;
    };
    for (const Row& row : {Row{"one row further, in a batch", {"Old", "A", "New", "T", "C"}, True},
                           Row{"two rows further", {"Old", "A", "C", "New", "T"}, False},
                           Row{"above", {"New", "Old", "T", "C", "A"}, False}}) {
        SCOPED_TRACE(row.what);
        Number(plan, row.rows);
        plan.col().MoveTaskUpOrDown("3", True, "4", "1", False, "grid", row.batch);
        EXPECT_EQ(plan["T"].ParentID(), 1);
        EXPECT_EQ(Listed(In(plan["Old"]).Tasks()), "2 3");
        Heard();
    }
}

TEST_P(Moving, RecordsATaskThatIsNotThere) {
    plan.Task("House").Task("A").Under("House").From(Monday);
    const String before = Family(plan);
    for (const char* task : {"77", "", "0"}) {
        for (const bool up : {true, false}) {
            EXPECT_TRUE(plan.col().MoveTaskUpOrDown(task, up, "1", "0", True, "grid").is_empty());
            EXPECT_EQ(plan.failures.Taken(), Failed(91)) << task;
            EXPECT_TRUE(plan.col().MoveTaskUpOrDowndepend(task, up, "1", "0", True, "grid").is_empty());
            EXPECT_EQ(plan.failures.Taken(), "TasksCol/MoveTaskUpOrDowndepend 91\n") << task;
        }
    }
    EXPECT_EQ(Family(plan), before);
    EXPECT_EQ(plan.Heard(), "");
}

TEST_P(Moving, EndsInARingOfParents) {
    BuildRing(plan);
    const TimeLimit limit("two tasks, each the parent of the other");
    for (const bool up : {true, false}) {
        for (const bool changing : {true, false}) {
            plan.col().MoveTaskUpOrDown("1", up, "2", "2", changing, "grid");
            plan.col().MoveTaskUpOrDown("1", up, "0", "2", changing, "grid");
        }
    }
    plan.failures.Taken();
    plan.Heard();
}

TEST_P(MovingBetweenParents, SurvivesAListenerThatTakesTheTaskAway) {
    {
        const Interruption host(plan, "TaskDurationChange", 4, [&] { plan.col().RemoveForLib("3"); });
        plan.col().MoveTaskUpOrDown("3", False, "4", "1", True, "grid");
    }
    plan.failures.Taken();
    EXPECT_EQ(plan.col().Count(True), 4);
    plan.Heard();
}

TEST(MoveTaskUpOrDown, TellsASilencedHostTheDurationsAlone) {
    for (const bool links : {false, true}) {
        Plan plan;
        if (links) plan.WithLinks();
        plan.Silenced().Task("Old").Task("T").Under("Old").From(Tuesday).Task("New");
        plan.Task("C").Under("New").From(Wednesday);
        plan.col().MoveTaskUpOrDown("2", False, "3", "1", True, "grid");
        EXPECT_EQ(plan["T"].ParentID(), 3);
        EXPECT_EQ(plan.Heard(), "TaskDurationChange(3, 2, days, False, True)\n");
    }
}

TEST(MoveTaskUpOrDown, CleansLinksThatPointBackwardFromAMovedSummary) {
    Plan plan;
    plan.Task("S").From(Monday).Task("T").Task("K").Under("T").From(Tuesday).Task("L").Under("T").From(Wednesday);
    plan["S"].TaskPredecessor()->Add("3", "3");
    plan["K"].TaskSuccessor()->Add("1", "1");
    plan.col().MoveTaskUpOrDown("2", False, "0", "0", False, "grid");
    EXPECT_EQ(Links(plan), "");
    EXPECT_TRUE(plan.Heard().ends_with("UpDown(False, 2, 0, 0, False, grid)\n"));
}

}  // namespace
}  // namespace mrlxmlclass
