#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// A plan with work beside the outline: 3 and 4 of Ann, 5 of Quiet, 6 of Rain; 1 A (2 B) stand in it.
class Beside : public testing::Test {
protected:
    Beside() {
        plan_.Write("a.csv",
                    "kind,name,tasks\nphase,A,\ntask,B,\nperson,Ann,Call; Fly\ngoal,Quiet,Hush\nobstacle,Rain,Wait\n");
        imported_ = plan_.Prx({"import", "a.csv"});
    }
    /// The records of tasks that the file holds.
    int Records() const {
        const std::string file = plan_.Read("a.prx");
        int records = 0;
        for (std::size_t at = file.find("<Task>"); at != std::string::npos; at = file.find("<Task>", at + 1)) ++records;
        return records;
    }
    void ExpectInOrder() const {
        EXPECT_EQ(plan_.Drawing(), "1 A\n2   B\n");
        plan_.Output({"check", "a.prx"});
    }
    Result imported_;
    const PlanFolder plan_;
};

}  // namespace

TEST_F(Beside, TheImportTellsWhatItIs) {
    EXPECT_EQ(imported_.out, plan_.Path("a.prx") + ": 2 tasks\n");
    EXPECT_NE(imported_.err.find("prx: This work stands beside the outline; \"unassign\" and \"remove\" take it by its "
                                 "key:\n  task 3 \"Call\"\n  task 4 \"Fly\"\n  task 5 \"Hush\"\n  task 6 \"Wait\"\n"),
              std::string::npos)
        << imported_.err;
    EXPECT_EQ(plan_.Output({"check", "a.prx"}),
              plan_.Path("a.prx") + ": nothing is wrong, 2 tasks, 4 beside the outline\n");
}

TEST_F(Beside, GoesWithItsLastTie) {
    plan_.Output({"unassign", "a.prx", "3", "person", "Ann"});
    EXPECT_EQ(Records(), 5);
    plan_.Output({"unassign", "a.prx", "5", "goal", "Quiet"});
    plan_.Output({"unassign", "a.prx", "6", "obstacle", "Rain"});
    EXPECT_EQ(Records(), 3);
    EXPECT_EQ(plan_.Output({"person", "a.prx", "list"}), "Key  Name  Tasks\n  1  Ann   4\n");
    ExpectInOrder();
}

TEST_F(Beside, StaysWhileSomethingIsTiedToIt) {
    const std::string file = plan_.Read("a.prx");
    plan_.Write("a.prx",
                Replaced(Replaced(file, "</TaskGoalRelations>",
                                  "<TaskGoalRelation><TaskKey>3</TaskKey><GoalKey>1</GoalKey><Description/><Key>9"
                                  "</Key></TaskGoalRelation></TaskGoalRelations>"),
                         "<GoalTaskRelationKeys>", "<GoalTaskRelationKeys><Key>9</Key>"));
    plan_.Output({"check", "a.prx", "--repair", "b.prx"});
    plan_.Write("a.prx", plan_.Read("b.prx"));
    plan_.Output({"unassign", "a.prx", "3", "person", "Ann"});
    EXPECT_EQ(Records(), 6);
    plan_.Output({"unassign", "a.prx", "3", "goal", "Quiet"});
    EXPECT_EQ(Records(), 5);
    ExpectInOrder();
}

TEST_F(Beside, GoesWithTheLastItemThatListsIt) {
    plan_.Output({"person", "a.prx", "remove", "Ann"});
    EXPECT_EQ(Records(), 4);
    plan_.Output({"goal", "a.prx", "remove", "Quiet"});
    plan_.Output({"obstacle", "a.prx", "remove", "Rain"});
    EXPECT_EQ(Records(), 2);
    ExpectInOrder();
    EXPECT_EQ(plan_.Read("a.prx").find("<Key>"), std::string::npos);
}

TEST_F(Beside, IsRemovedByItsKey) {
    const std::string events = plan_.Output({"remove", "a.prx", "4"});
    EXPECT_NE(events.find("TaskDeleted(4"), std::string::npos) << events;
    EXPECT_EQ(Records(), 5);
    EXPECT_EQ(plan_.Output({"person", "a.prx", "list"}), "Key  Name  Tasks\n  1  Ann   3\n");
    ExpectInOrder();
}

TEST_F(Beside, IsNoTaskForAnythingElse) {
    EXPECT_EQ(plan_.Refusal({"set", "a.prx", "4", "done=5"}), "prx: task \"4\" does not stand in the outline\n");
    EXPECT_EQ(plan_.Refusal({"assign", "a.prx", "4", "goal", "Quiet"}),
              "prx: task \"4\" does not stand in the outline\n");
    EXPECT_EQ(plan_.Refusal({"remove", "a.prx", "Fly"}), "prx: there is no task \"Fly\"\n");
    EXPECT_EQ(plan_.Refusal({"remove", "a.prx", "40"}), "prx: there is no task \"40\"\n");
}

TEST_F(Beside, LeavesTheOutlineAsItIs) {
    plan_.Edit({"add", "C", "--under", "A"});
    for (const char* task : {"B", "C"}) plan_.Edit({"assign", task, "person", "Ann"});
    plan_.Edit({"link", "C", "B"});
    const std::string before = plan_.Output({"show", "--json", "a.prx"});
    plan_.Output({"remove", "a.prx", "3"});
    plan_.Output({"unassign", "a.prx", "4", "person", "Ann"});
    plan_.Output({"remove", "a.prx", "5"});
    EXPECT_EQ(plan_.Output({"show", "--json", "a.prx"}), before);
    plan_.Output({"check", "a.prx"});
}

}  // namespace prx_test
