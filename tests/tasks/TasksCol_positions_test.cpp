#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Five tasks on rows 1 to 5.
class FiveRows : public Plan {
public:
    FiveRows() { Task("A").Task("B").Task("C").Task("D").Task("E"); }
};

TEST(AddParentTask, FilesTheChildOnceAndLeavesItsParentID) {
    Plan plan;
    plan.Task("Phase").Task("A");
    EXPECT_TRUE(plan.col().AddParentTask(1, 2));
    EXPECT_TRUE(plan.col().AddParentTask("1", "2"));
    const Ref<Dictionary> children = In(plan.col().Item(1)).Tasks();
    EXPECT_EQ(Listed(children), "2");
    EXPECT_EQ(children->Item("2"), Variant("2"));
    EXPECT_EQ(plan["A"].ParentID(), 0);
}

TEST(AddParentTask, RefusesAParentThatIsNotThereOrHasNoKey) {
    Plan plan;
    plan.Task("A");
    const Ref<TasksCls> keyless = plan.col().Add("abc");
    for (const Variant& parent : {Variant(0), Variant(""), Variant(77), Variant("abc")}) {
        EXPECT_FALSE(plan.col().AddParentTask(parent, 1));
    }
    EXPECT_FALSE(In(keyless).HasChildren());
}

TEST(RemoveParentTask, TakesTheChildOutAndLeavesItsParentID) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase");
    EXPECT_TRUE(plan.col().RemoveParentTask(1, 2));
    EXPECT_FALSE(plan.col().isParent("1"));
    EXPECT_EQ(plan["A"].ParentID(), 1);
    EXPECT_TRUE(plan.col().RemoveParentTask(1, 2)) << "a child that is not there";
    EXPECT_FALSE(plan.col().RemoveParentTask(77, 2));
    EXPECT_FALSE(plan.col().RemoveParentTask(0, 2));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveParentTask, TellsWhetherTheParentIsStillASummary) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Under("Phase");
    plan.col().RemoveParentTask(1, 2, True);
    plan.col().RemoveParentTask("1", "3", True);
    EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\nIamASummary(1, False)\n");
}

TEST(RemoveParentTask, KeepsTellingAHostThatIsSilenced) {
    Plan plan;
    plan.Silenced().Task("Phase").Task("A").Under("Phase");
    plan.col().RemoveParentTask(1, 2, True);
    EXPECT_EQ(plan.Heard(), "IamASummary(1, False)\n");
}

TEST(ArrangePositionAfterDelete, ClosesTheRowsBehindAndLeavesTheTaskItsRow) {
    FiveRows plan;
    EXPECT_TRUE(plan.col().ArrangePositionAfterDelete(plan.Key("C")));
    EXPECT_EQ(Rows(plan.col()), "A1 B2 C3 D3 E4");
    EXPECT_EQ(plan.Heard(), "TaskDeleted(3, 0, 3, True)\n");
}

TEST(ArrangePositionAfterDelete, LeavesCandidatesWhereTheyAre) {
    FiveRows plan;
    plan.Task("Aside").Candidate();
    plan["Aside"].TaskPosition(9);
    plan.col().ArrangePositionAfterDelete(plan.Key("A"));
    EXPECT_EQ(Rows(plan.col()), "A1 B1 C2 D3 E4 Aside9");
}

TEST(ArrangePositionAfterDelete, TakesTheCostFromAParentThatLostItsOnlyChild) {
    Plan plan;
    plan.Task("Phase").Costing(25).Task("A").Under("Phase").Task("Last");
    plan.Heard();
    EXPECT_TRUE(plan.col().ArrangePositionAfterDelete(plan.Key("A")));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(0));
    EXPECT_EQ(plan["A"].ParentID(), 0);
    EXPECT_EQ(plan.Heard(),
              "RoolUpCostChange(1, 0)\n"
              "IamASummary(1, False)\n"
              "TaskDeleted(2, 1, 2, True)\n");
}

TEST(ArrangePositionAfterDelete, RebuildsAParentThatKeepsAChild) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").From(Monday).Lasting(5).Costing(10);
    plan.Task("B").Under("Phase").From(Wednesday).Lasting(1).Costing(20);
    plan.Heard();

    EXPECT_TRUE(plan.col().ArrangePositionAfterDelete(plan.Key("A")));

    EXPECT_EQ(plan.Heard(),
              "DurationChange(1, 1, days, False, True)\n"
              "TaskDurationChange(1, 1, days, False, True)\n"
              "DateEndChange(1, 2026-03-04, False, True, days)\n"
              "DateStartChange(1, 2026-03-04, False, True)\n"
              "RoolUpCostChange(1, 20)\n"
              "IamASummary(1, True)\n"
              "TaskDeleted(2, 1, 2, True)\n");
    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys(1)), "3");
    EXPECT_EQ(plan["B"].TaskPosition(), 2);
}

TEST(ArrangePositionAfterDelete, DoesAllItsWorkForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("Phase").Costing(25).Task("A").Under("Phase").Task("Last");
    EXPECT_TRUE(plan.col().ArrangePositionAfterDelete(plan.Key("A")));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(0));
    EXPECT_EQ(plan["Last"].TaskPosition(), 2);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ArrangePositionAfterDelete, RefusesACandidateAndAnUnknownTask) {
    FiveRows plan;
    plan.Task("Aside").Candidate();
    EXPECT_FALSE(plan.col().ArrangePositionAfterDelete(plan.Key("Aside")));
    EXPECT_FALSE(plan.col().ArrangePositionAfterDelete("77"));
    EXPECT_EQ(Rows(plan.col()), "A1 B2 C3 D4 E5 Aside0");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ArrangePositionAfterDelete, PassesOverAParentThatIsNotThere) {
    FiveRows plan;
    plan["C"].ParentID(77);
    EXPECT_TRUE(plan.col().ArrangePositionAfterDelete(plan.Key("C")));
    EXPECT_EQ(plan.Heard(), "TaskDeleted(3, 77, 3, True)\n");
}

TEST(ArrangePositionAfterInsert, MakesRoomForANewRow) {
    FiveRows plan;
    plan["E"].TaskPosition(1);
    EXPECT_TRUE(plan.col().ArrangePositionAfterInsert(plan.Key("E")));
    EXPECT_EQ(Rows(plan.col()), "A2 B3 C4 D5 E1");
    EXPECT_EQ(plan.Heard(), "TaskInserted(5, 0, 0)\n");
}

TEST(ArrangePositionAfterInsert, ClosesAHoleForAllTheTaskIncluded) {
    FiveRows plan;
    plan["E"].TaskPosition(6);
    EXPECT_TRUE(plan.col().ArrangePositionAfterInsert(plan.Key("E"), {}, 3));
    EXPECT_EQ(Rows(plan.col()), "A1 B2 C3 D3 E5");
}

TEST(ArrangePositionAfterInsert, MovesTheRowsBetweenWhenATaskMovedUp) {
    FiveRows plan;
    plan["D"].TaskPosition(2);
    Integer old_row = 4;
    EXPECT_TRUE(plan.col().ArrangePositionAfterInsert(plan.Key("D"), old_row));
    EXPECT_EQ(Rows(plan.col()), "A1 B3 C4 D2 E5");
    EXPECT_EQ(old_row, 5) << "the old row moves on when a row reaches it";
}

TEST(ArrangePositionAfterInsert, KeepsPullingUpTheRowsBehindATaskThatMovedDown) {
    FiveRows plan;
    plan["A"].TaskPosition(4);
    Integer old_row = 1;
    EXPECT_TRUE(plan.col().ArrangePositionAfterInsert(plan.Key("A"), old_row));
    EXPECT_EQ(Rows(plan.col()), "A4 B1 C2 D3 E4");
    EXPECT_EQ(old_row, 1);
}

TEST(ArrangePositionAfterInsert, NeverPushesARowBeyondTheNumberOfTasks) {
    FiveRows plan;
    plan["D"].TaskPosition(2);
    Integer old_row = 9;
    plan.col().ArrangePositionAfterInsert(plan.Key("D"), old_row);
    EXPECT_EQ(Rows(plan.col()), "A1 B3 C4 D2 E5");
    EXPECT_EQ(old_row, 9);
}

TEST(ArrangePositionAfterInsert, KeepsCountingCandidatesAsRoom) {
    FiveRows plan;
    plan.Task("Aside").Candidate();
    plan["D"].TaskPosition(2);
    Integer old_row = 9;
    plan.col().ArrangePositionAfterInsert(plan.Key("D"), old_row);
    EXPECT_EQ(Rows(plan.col()), "A1 B3 C4 D2 E6 Aside0");
}

TEST(ArrangePositionAfterInsert, TellsNothingOfATaskWithoutAName) {
    FiveRows plan;
    plan["E"].TaskName("");
    EXPECT_TRUE(plan.col().ArrangePositionAfterInsert(plan.Key("E")));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ArrangePositionAfterInsert, KeepsTellingThePlaceWithinTheParent) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase");
    plan["A"].TaskSubPosition(8);
    plan.col().ArrangePositionAfterInsert(plan.Key("A"), {}, 0, 5, True);
    EXPECT_EQ(plan.Heard(), "TaskInserted(2, 1, 8)\n");
}

TEST(ArrangePositionAfterInsert, RecordsAnUnknownTask) {
    FiveRows plan;
    for (const int old_row : {0, 2}) {
        for (const int hole : {0, 2}) {
            EXPECT_FALSE(plan.col().ArrangePositionAfterInsert("77", Integer(old_row), hole));
            EXPECT_EQ(plan.failures.Taken(), "TasksCol/ArrangePositionAfterInsert 91\n");
            EXPECT_EQ(Rows(plan.col()), "A1 B2 C3 D4 E5") << old_row << " " << hole;
        }
    }
}

/// Puts a task under a parent, as a move does before it finds the row.
void Reparent(Plan& plan, const String& child, const String& parent) {
    plan[child].ParentID(plan.Number(parent));
    plan.col().AddParentTask(plan.Number(parent), plan.Number(child));
}

TEST(ArrangePosition, PutsATaskBehindAParentInTheLastRow) {
    Plan plan;
    plan.Task("A").Task("B").Task("Phase");
    Reparent(plan, "A", "Phase");
    EXPECT_FALSE(plan.col().ArrangePosition(3, 1, 1));
    EXPECT_EQ(plan.Drawn(), "1 B\n2 Phase\n3   A\n");
    EXPECT_EQ(plan.Heard(), "TaskInserted(1, 3, 0)\n");
}

TEST(ArrangePosition, ClosesTheHoleThatATaskFromRowOneLeaves) {
    Plan plan;
    plan.Task("A").Task("Phase").Task("Last");
    Reparent(plan, "A", "Phase");
    EXPECT_FALSE(plan.col().ArrangePosition(2, 1, 1));
    EXPECT_EQ(plan.Drawn(), "1 Phase\n2   A\n3 Last\n");
    EXPECT_EQ(plan.Heard(), "TaskInserted(1, 2, 0)\nTaskInserted(1, 2, 0)\n");
}

TEST(ArrangePosition, KeepsLeavingAHoleBehindATaskWithoutAnOldRow) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("Last").Task("New").Under("Phase");
    plan["New"].TaskPosition(0);
    EXPECT_FALSE(plan.col().ArrangePosition(1, 4));
    EXPECT_EQ(Rows(plan.col()), "Phase1 A2 Last5 New3");
}

TEST(ArrangePosition, LeavesATaskThatIsItsParentsLastLeafOnItsRow) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Task("C").Task("Last");
    Reparent(plan, "C", "Phase");
    EXPECT_FALSE(plan.col().ArrangePosition(1, 4, 4));
    EXPECT_EQ(Rows(plan.col()), "Phase1 A2 B3 C4 Last6") << "only the insert ran";
}

TEST(ArrangePosition, TakesTheLastRowWhenTheSubtreeEndsThere) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Under("Phase").Task("C").Under("Phase");
    plan["B"].TaskPosition(0);
    EXPECT_FALSE(plan.col().ArrangePosition(1, 3, 4));
    EXPECT_EQ(Rows(plan.col()), "Phase1 A2 B4 C5") << "the old row is met, and nothing is closed";
}

TEST(ArrangePosition, InsertsInThePhaseAtTheRowOfItsLastLeaf) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Task("C").Task("Last");
    Reparent(plan, "C", "Phase");
    plan["C"].TaskPosition(0);
    EXPECT_FALSE(plan.col().ArrangePosition(1, 4, 4, True));
    EXPECT_EQ(Rows(plan.col()), "Phase1 A4 B5 C2 Last5") << "the rows between made way twice";
    EXPECT_EQ(plan.Heard(), "TaskInserted(4, 1, 0)\nTaskInserted(4, 1, 0)\n");
}

TEST(ArrangePosition, IsDoneInThePhaseWhenTheOldRowIsNotBehind) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Under("Phase").Task("Last");
    plan["B"].TaskPosition(0);
    EXPECT_FALSE(plan.col().ArrangePosition(1, 3, 1, True));
    EXPECT_EQ(Rows(plan.col()), "Phase0 A1 B2 Last3") << "one move from row 1 to row 2";
    EXPECT_EQ(plan.Heard(), "TaskInserted(3, 1, 0)\n");
}

TEST(ArrangePosition, ExchangesAParentWithAChildThatStandsBeforeIt) {
    Plan plan;
    plan.Task("First").Task("A").Task("Phase").Task("Last");
    Reparent(plan, "A", "Phase");
    EXPECT_FALSE(plan.col().ArrangePosition(3, 2));
    EXPECT_EQ(Rows(plan.col()), "First1 A4 Phase2 Last5");
}

TEST(ArrangePosition, LeavesTheCallersOldRowAlone) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Task("C").Task("Last");
    Reparent(plan, "C", "Phase");
    plan["C"].TaskPosition(0);
    Integer old_row = 4;
    plan.col().ArrangePosition(1, 4, old_row, True);
    EXPECT_EQ(old_row, 4);
}

TEST(ArrangePosition, RecordsATaskOrAParentThatIsNotThere) {
    FiveRows plan;
    EXPECT_FALSE(plan.col().ArrangePosition(77, 1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ArrangePosition 91\n");
    EXPECT_FALSE(plan.col().ArrangePosition(5, 77));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ArrangePosition 91\n");
}

TEST(ArrangePosition, EndsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.Task("Last");
    EXPECT_FALSE(plan.col().ArrangePosition(1, 2, 2));
    EXPECT_NE(plan.failures.Taken().find("TasksCol/GetTaskAndSubNumber 28\n"), String::npos);
}

TEST(ArrangePositionAfterInsert, TellsTheKeyThatItWasAskedFor) {
    Plan plan;
    plan.col().Add("77")->TaskName("Z");
    plan.col().ArrangePositionAfterInsert("77");
    EXPECT_EQ(plan.Heard(), "TaskInserted(77, 0, 0)\n");
}

}  // namespace
}  // namespace mrlxmlclass
