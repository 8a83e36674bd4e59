#include <gtest/gtest.h>

#include "tests/support/Interruption.h"
#include "tests/support/Links.h"
#include "tests/support/Weeks.h"
#include "tests/tasks/Family.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A, B, C and D, each behind the one before.
class FourInARow : public Plan {
public:
    FourInARow() {
        WithLinks().Task("A").From(Monday).Task("B").From(Tuesday).After("A");
        Task("C").From(Wednesday).After("B").Task("D").From(Thursday).After("C");
    }
};

/// Whether all of them are among those that were told.
void ExpectAmong(const std::set<String>& told, std::initializer_list<const char*> names) {
    for (const char* name : names) EXPECT_TRUE(told.contains(name)) << name << " was not told";
}

TEST(MoveTaskUpOrDowndepend, TellsATaskThatMovesUpAndAllItsNeighbours) {
    FourInARow plan;
    Number(plan, {"A", "C", "B", "D"});
    const String links = Links(plan);
    const String weeks = Weeks(plan, 1);

    EXPECT_TRUE(plan.col().MoveTaskUpOrDowndepend("3", True, "0", "0", False, "grid").is_empty());

    const String heard = plan.Heard();
    ExpectAmong(ToldOfPredecessors(plan, heard), {"A", "B", "C", "D"});
    EXPECT_EQ(WithoutLinkRows(heard), "UpDown(True, 3, 0, 0, False, grid)\n") << "no link is made or taken off";
    EXPECT_TRUE(heard.ends_with("UpDown(True, 3, 0, 0, False, grid)\n"));
    EXPECT_EQ(Links(plan), links);
    EXPECT_EQ(Weeks(plan, 1), weeks);
}

TEST(MoveTaskUpOrDowndepend, TellsATaskThatMovesDownAndAllItsNeighbours) {
    FourInARow plan;
    Number(plan, {"A", "C", "B", "D"});
    const String links = Links(plan);
    plan.col().MoveTaskUpOrDowndepend("2", False, "0", "0", False, "grid");
    const String heard = plan.Heard();
    ExpectAmong(ToldOfPredecessors(plan, heard), {"A", "B", "C", "D"});
    EXPECT_EQ(WithoutLinkRows(heard), "UpDown(False, 2, 0, 0, False, grid)\n");
    EXPECT_EQ(Links(plan), links);
}

TEST(MoveTaskUpOrDowndepend, IsWhatAMoveWithLiveLinksIs) {
    for (const bool up : {true, false}) {
        FourInARow one;
        FourInARow other;
        for (FourInARow* plan : {&one, &other}) Number(*plan, {"A", "C", "B", "D"});
        const char* task = up ? "3" : "2";
        one.col().MoveTaskUpOrDown(task, up, "0", "0", False, "grid", False);
        other.col().MoveTaskUpOrDowndepend(task, up, "0", "0", False, "grid", False);
        EXPECT_EQ(one.Heard(), other.Heard());
        one.col().MoveTaskUpOrDown(task, up, "0", "0", False, "grid", True);
        other.col().MoveTaskUpOrDowndepend(task, up, "0", "0", False, "grid", True);
        EXPECT_EQ(one.Heard(), other.Heard());
    }
}

TEST(MoveTaskUpOrDowndepend, TellsNoMoveOfABatch) {
    FourInARow plan;
    Number(plan, {"A", "C", "B", "D"});
    const String links = Links(plan);
    plan.col().MoveTaskUpOrDowndepend("3", True, "0", "0", False, "grid", True);
    plan.col().MoveTaskUpOrDowndepend("2", False, "0", "0", False, "grid", True);
    EXPECT_EQ(plan.Heard().find("UpDown"), String::npos);
    EXPECT_EQ(Links(plan), links);
}

TEST(MoveTaskUpOrDowndepend, TellsTheLastOfASummaryThatItPasses) {
    for (const bool up : {true, false}) {
        SCOPED_TRACE(up ? "up" : "down");
        Plan plan;
        plan.WithLinks().Task("Phase").Task("X").Under("Phase").From(Monday);
        plan.Task("Y").Under("Phase").From(Tuesday).After("X").Task("T").From(Wednesday).After("Y");
        plan.Task("Z").From(Thursday).After("T");
        Settle(plan, {"Phase"});
        const String links = Links(plan);
        if (up) {
            Number(plan, {"T", "Phase", "X", "Y", "Z"});
            plan.col().MoveTaskUpOrDowndepend("4", True, "0", "0", False, "grid");
        } else {
            Number(plan, {"Phase", "X", "Y", "Z", "T"});
            plan.col().MoveTaskUpOrDowndepend("4", False, "0", "0", False, "grid");
        }
        ExpectAmong(ToldOfPredecessors(plan, plan.Heard()), {"T", "Y", "Z"});
        EXPECT_EQ(Links(plan), links);
    }
}

TEST(MoveTaskUpOrDowndepend, TellsTheNeighboursOfTheLastOfAMovedSummary) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday).Task("Phase").Task("X").Under("Phase").From(Tuesday).After("A");
    plan.Task("Z").From(Wednesday).After("X");
    Settle(plan, {"Phase"});
    Number(plan, {"Phase", "X", "A", "Z"});
    const String links = Links(plan);
    plan.col().MoveTaskUpOrDowndepend("2", True, "0", "0", False, "grid");
    const String heard = plan.Heard();
    ExpectAmong(ToldOfPredecessors(plan, heard), {"Phase", "Z"});
    EXPECT_TRUE(heard.ends_with("UpDown(True, 2, 0, 0, False, grid)\n"));
    EXPECT_EQ(Links(plan), links);
}

TEST(MoveTaskUpOrDowndepend, LeavesTheLinksOfATaskThatChangesItsParent) {
    Plan plan;
    plan.WithLinks().Task("Old").Task("A").Under("Old").From(Monday);
    plan.Task("T").Under("Old").From(Tuesday).After("A").Task("New").Task("C").Under("New").From(Wednesday).After("T");
    Settle(plan, {"Old", "New"});
    Number(plan, {"Old", "A", "New", "T", "C"});
    plan.col().MoveTaskUpOrDowndepend("3", False, "4", "1", True, "grid");
    const String heard = plan.Heard();
    ExpectAmong(ToldOfPredecessors(plan, heard), {"A", "T", "C"});
    EXPECT_EQ(Family(plan), "1 Old: A\n2   -A\n3 New: C T\n4   -T\n5   -C\n");
    EXPECT_EQ(plan.col().PredessorAsString("3"), "2");
    EXPECT_EQ(plan.col().PredessorAsString("5"), "4");
    EXPECT_EQ(heard.find("PredecessorKeyChange"), String::npos);
}

TEST(MoveTaskUpOrDowndepend, TellsASilencedHostNothing) {
    Plan plan;
    plan.WithLinks().Silenced().Task("A").From(Monday).Task("B").From(Tuesday).After("A");
    Number(plan, {"B", "A"});
    const String links = Links(plan);
    plan.col().MoveTaskUpOrDowndepend("2", True, "0", "0", False, "grid");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Links(plan), links);
}

TEST(MoveTaskUpOrDowndepend, TakesNothingOffWithoutLiveLinksEither) {
    Plan plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A").Task("C").From(Wednesday).After("B");
    Number(plan, {"B", "A", "C"});
    const String links = Links(plan);
    plan.col().MoveTaskUpOrDowndepend("2", True, "0", "0", False, "grid");
    EXPECT_EQ(WithoutLinkRows(plan.Heard()), "UpDown(True, 2, 0, 0, False, grid)\n");
    EXPECT_EQ(Links(plan), links);
}

TEST(MoveTaskUpOrDowndepend, SurvivesAListenerThatUnlinks) {
    FourInARow plan;
    Number(plan, {"A", "C", "B", "D"});
    {
        const Interruption host(plan, "PredecessorChange", 3, [&] { plan.col().RemoveAllTaskPredecessor("3"); });
        plan.col().MoveTaskUpOrDowndepend("3", True, "0", "0", False, "grid");
    }
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\nB -> C\nC <- B|0\n");
    EXPECT_TRUE(plan.Heard().ends_with("UpDown(True, 3, 0, 0, False, grid)\n"));
}

TEST(MoveTaskUpOrDowndepend, SurvivesACycleOfLinksAndOneThatLeadsNowhere) {
    FourInARow plan;
    plan["D"].TaskSuccessor()->Add("1", "1");
    plan["A"].TaskPredecessor()->Add("4", "4");
    Number(plan, {"A", "C", "B", "D"});
    plan.col().MoveTaskUpOrDowndepend("3", True, "0", "0", False, "grid");
    EXPECT_TRUE(plan.Heard().ends_with("UpDown(True, 3, 0, 0, False, grid)\n"));

    plan["C"].TaskSuccessor()->Add("77", "77");
    plan.col().MoveTaskUpOrDowndepend("3", True, "0", "0", False, "grid");
    plan.failures.Taken();
    EXPECT_EQ(plan.col().PredessorAsString("3"), "3");
    plan.Heard();
}

TEST(MoveTaskUpOrDowndepend, TellsItsOwnLinksBeforeItStopsAtAParentThatIsNotThere) {
    for (const bool up : {true, false}) {
        FourInARow plan;
        plan.col().MoveTaskUpOrDowndepend("2", up, "77", "0", True, "grid");
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/MoveTaskUpOrDowndepend 91\n");
        EXPECT_EQ(plan.Heard().substr(0, 48), "PredecessorChange(3, 2)\nPredecessorChange(2, 1)\n");
        EXPECT_EQ(plan["B"].ParentID(), 0);
    }
}

TEST(MoveTaskUpOrDowndepend, StoresAParentThatIsNotThereWhenABatchMovesDown) {
    Plan plan;
    plan.WithLinks().Task("Old").Task("T").Under("Old").From(Monday);
    Settle(plan, {"Old"});
    plan.col().MoveTaskUpOrDowndepend("2", False, "77", "1", True, "grid", True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/MoveTaskUpOrDowndepend 91\n");
    EXPECT_EQ(plan["T"].ParentID(), 77);
    EXPECT_EQ(Listed(In(plan["Old"]).Tasks()), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(MoveTaskUpOrDowndepend, StopsABatchThatMovesUpToAParentThatIsNotThere) {
    Plan plan;
    plan.WithLinks().Task("Old").Task("T").Under("Old").From(Monday);
    Settle(plan, {"Old"});
    plan.col().MoveTaskUpOrDowndepend("2", True, "77", "1", True, "grid", True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/MoveTaskUpOrDowndepend 91\n");
    EXPECT_EQ(plan["T"].ParentID(), 1);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(MoveTaskUpOrDowndepend, NeedsNoParentForABatchThatStaysUnderItsOwn) {
    FourInARow plan;
    plan.col().MoveTaskUpOrDowndepend("2", False, "77", "0", False, "grid", True);
    EXPECT_EQ(plan.failures.Taken(), "");
    EXPECT_EQ(plan["B"].ParentID(), 0);
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
