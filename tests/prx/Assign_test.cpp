#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design, 3 Build, 4 Test, each waits for the one before), and an item of each kind.
class Assign : public testing::Test {
protected:
    Assign() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        for (const char* name : {"Design", "Build", "Test"}) {
            plan_.Output({"add", "a.prx", name, "--under", "Phase", "--start", "2026-03-02", "--duration", "3"});
        }
        plan_.Output({"link", "a.prx", "Build", "Design"});
        plan_.Output({"link", "a.prx", "Test", "Build"});
        for (const char* kind : kKinds) plan_.Output({kind, "a.prx", "add", std::string("A ") + kind});
    }
    static constexpr const char* kKinds[] = {"person", "goal", "obstacle", "note"};
    const PlanFolder plan_;
};

using Unassign = Assign;

/// How often a text stands in another.
int Times(const std::string& text, const std::string& part) {
    int times = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++times;
    return times;
}

}  // namespace

TEST_F(Assign, PrintsTheEvent) {
    EXPECT_EQ(plan_.Edit({"assign", "Build", "person", "A person"}), "AssigmentChange(3, A person)\n");
    EXPECT_EQ(plan_.Edit({"assign", "Build", "goal", "1"}), "GoalChange(3, A goal; )\n");
    EXPECT_EQ(plan_.Edit({"assign", "Build", "obstacle", "A obstacle"}), "ObstaclesChange(3, A obstacle; )\n");
    EXPECT_EQ(plan_.Edit({"assign", "#3", "note", "A note"}), "NoteChange(3, A note)\n");
}

TEST_F(Assign, WritesTheRelationAndBothLists) {
    for (const char* kind : kKinds) plan_.Edit({"assign", "Build", kind, "1"});

    const std::string file = plan_.Read("a.prx");

    for (const char* part :
         {"<TaskAssigmentRelation><Key>1</Key><TaskKey>3</TaskKey><PersonKey>1</PersonKey></TaskAssigmentRelation>",
          "<TaskGoalRelation><TaskKey>3</TaskKey><GoalKey>1</GoalKey><Description/><Key>1</Key></TaskGoalRelation>",
          "<TaskKey>3</TaskKey><ObstacleKey>1</ObstacleKey>", "<TaskKey>3</TaskKey><NoteKey>1</NoteKey>",
          "<TaskPeopleRelationKeys><tKey>1</tKey>", "<TaskGoalRelationKeys><tKey>1</tKey>",
          "<TaskObstaclesRelationKeys><Key>1</Key>", "<TaskNoteRelationsKeys><Key>1</Key>",
          "<PeopleTaskRelationKeys><Key>1</Key>", "<GoalTaskRelationKeys><Key>1</Key>",
          "<ObstaclesTaskRelationKeys><Key>1</Key>"}) {
        EXPECT_EQ(Times(file, part), 1) << part << "\n" << file;
    }
}

TEST_F(Assign, RefusesAPairThatIsTiedAlready) {
    for (const char* kind : kKinds) {
        plan_.Edit({"assign", "Build", kind, "1"});
        EXPECT_EQ(plan_.Refused({"assign", "Build", kind, "1"}),
                  std::string("prx: task \"Build\" has the ") + kind + " \"A " + kind + "\" already\n");
    }
}

TEST_F(Assign, GivesANoteToOneTaskAlone) {
    plan_.Edit({"assign", "Build", "note", "1"});
    EXPECT_EQ(plan_.Refused({"assign", "Test", "note", "1"}), "prx: task 3 has that note; unassign it there first\n");
    plan_.Edit({"unassign", "Build", "note", "1"});
    plan_.Edit({"assign", "Test", "note", "1"});
}

TEST_F(Assign, RefusesWhatIsNotThere) {
    EXPECT_EQ(plan_.Refused({"assign", "Build", "person", "Nobody"}), "prx: there is no person \"Nobody\"\n");
    EXPECT_EQ(plan_.Refused({"assign", "Nothing", "person", "1"}), "prx: there is no task \"Nothing\"\n");
    EXPECT_EQ(plan_.Refused({"assign", "Build", "worker", "1"}),
              "prx: \"worker\" is no kind of item; there are person, goal, obstacle and note\n");
    EXPECT_NE(plan_.Refused({"assign", "Build", "person"}), "");
    EXPECT_EQ(plan_.Refused({"unassign", "Build", "goal", "Nothing"}), "prx: there is no goal \"Nothing\"\n");
}

TEST_F(Unassign, PrintsTheEventAndLeavesNoKey) {
    for (const char* kind : kKinds) plan_.Edit({"assign", "Build", kind, "1"});

    EXPECT_EQ(plan_.Edit({"unassign", "Build", "person", "A person"}), "AssigmentChange(3, )\n");
    EXPECT_EQ(plan_.Edit({"unassign", "Build", "goal", "1"}), "GoalChange(3, )\n");
    EXPECT_EQ(plan_.Edit({"unassign", "Build", "obstacle", "1"}), "ObstaclesChange(3, )\n");
    EXPECT_EQ(plan_.Edit({"unassign", "Build", "note", "A note"}), "NoteChange(3, )\n");

    const std::string file = plan_.Read("a.prx");
    EXPECT_EQ(Times(file, "<Key>"), 0) << file;
    EXPECT_EQ(Times(file, "<tKey>"), 0) << file;
    EXPECT_EQ(plan_.Refused({"unassign", "Build", "goal", "1"}),
              "prx: task \"Build\" does not have the goal \"A goal\"\n");
}

TEST_F(Unassign, KeepsTheLinksAndTheOutline) {
    for (const char* kind : kKinds) {
        SCOPED_TRACE(kind);
        const std::string before = plan_.Output({"show", "--json", "a.prx"});
        plan_.Edit({"assign", "Build", kind, "1"});
        plan_.Edit({"unassign", "Build", kind, "1"});
        EXPECT_EQ(plan_.Output({"show", "--json", "a.prx"}), before);
    }
}

TEST_F(Unassign, KeepsThemWhereTheItemHasTheNeighboursAndTheParentToo) {
    for (const char* kind : {"person", "goal", "obstacle"}) {
        SCOPED_TRACE(kind);
        const std::string before = plan_.Output({"show", "--json", "a.prx"});
        for (const char* task : {"Phase", "Design", "Build", "Test"}) plan_.Edit({"assign", task, kind, "1"});
        for (const char* task : {"Build", "Phase", "Test", "Design"}) plan_.Edit({"unassign", task, kind, "1"});
        EXPECT_EQ(plan_.Output({"show", "--json", "a.prx"}), before);

        for (const char* task : {"Phase", "Design", "Build", "Test"}) plan_.Edit({"assign", task, kind, "1"});
        plan_.Edit({kind, "remove", "1"});
        EXPECT_EQ(plan_.Output({"show", "--json", "a.prx"}), before);
    }
}

TEST_F(Unassign, TakesOffWhatAnotherHostTiedTwice) {
    plan_.Edit({"assign", "Build", "goal", "1"});
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "</TaskGoalRelations>",
                                  "<TaskGoalRelation><TaskKey>3</TaskKey><GoalKey>1</GoalKey><Description/>"
                                  "<Key>2</Key></TaskGoalRelation></TaskGoalRelations>"));

    plan_.Edit({"unassign", "Build", "goal", "1"});

    EXPECT_EQ(Times(plan_.Read("a.prx"), "<TaskGoalRelation>"), 0);
}

TEST_F(Assign, LeavesNothingOfATaskThatIsRemoved) {
    for (const char* kind : kKinds) plan_.Edit({"assign", "Build", kind, "1"});

    const std::string events = plan_.Edit({"remove", "Build"});

    EXPECT_NE(events.find("TaskDeleted(3, , 0, True)"), std::string::npos);
    const std::string file = plan_.Read("a.prx");
    EXPECT_EQ(Times(file, "<Task>"), 3);
    EXPECT_EQ(Times(file, "<Key>"), 0) << file;
    EXPECT_EQ(plan_.Output({"goal", "a.prx", "list"}), "Key  Name    Tasks\n  1  A goal\n");
    EXPECT_EQ(plan_.Predecessors("Test"), "2");
}

TEST_F(Assign, LeavesNothingOfASummaryThatIsRemoved) {
    for (const char* kind : {"person", "goal", "obstacle"}) {
        for (const char* task : {"Phase", "Design", "Build", "Test"}) plan_.Edit({"assign", task, kind, "1"});
    }

    plan_.Edit({"remove", "Phase"});

    const std::string file = plan_.Read("a.prx");
    EXPECT_EQ(Times(file, "<Task>"), 0);
    EXPECT_EQ(Times(file, "<Key>"), 0) << file;
}

TEST_F(Assign, LastsThroughOtherEdits) {
    for (const char* kind : kKinds) plan_.Edit({"assign", "Build", kind, "1"});

    plan_.Edit({"move", "Build", "--up"});
    plan_.Edit({"outdent", "Build"});
    plan_.Edit({"shift", "7"});

    for (const char* kind : kKinds) {
        EXPECT_NE(plan_.Output({kind, "a.prx", "list"}).find("3"), std::string::npos) << kind;
    }
}

}  // namespace prx_test
