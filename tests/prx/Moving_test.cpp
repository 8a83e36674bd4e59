#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"
#include "tests/support/Sample.h"

namespace prx_test {
namespace {

/// 1 First (2 A, 3 B (4 C, 5 D), 6 E), 7 Second (8 F).
class Moving : public testing::Test {
protected:
    Moving() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "First", "--start", "2026-03-02"});
        for (const char* name : {"A", "B", "E"}) Add(name, "First");
        for (const char* name : {"C", "D"}) Add(name, "B");
        plan_.Output({"add", "a.prx", "Second", "--start", "2026-03-02"});
        Add("F", "Second");
    }
    void Add(const char* name, const char* parent) const {
        plan_.Output({"add", "a.prx", name, "--under", parent, "--start", "2026-03-03", "--duration", "3"});
    }
    const PlanFolder plan_;
};

using Indent = Moving;
using Outdent = Moving;
using Move = Moving;
using Phase = Moving;

/// Does it to each task of each example, every time to a fresh copy; the outline stays whole or the file as it was.
/// A sample of the tasks starts with row `first`, so that the operations together have them all.
void ToEachTask(int first, const std::vector<std::string>& arguments) {
    constexpr int kStep = mrlxmlclass::testing::kSample;
    const PlanFolder plan;
    for (const char* example : kExamples) {
        plan.CopyExample(example, "a.prx");
        const int count = plan.Count();
        int tried = 0;
        int done = 0;
        for (int row = (first - 1) % kStep + 1; row <= count; row += kStep, ++tried) {
            SCOPED_TRACE(std::string(example) + " #" + std::to_string(row));
            plan.CopyExample(example, "a.prx");
            const std::string before = plan.Read("a.prx");
            std::vector<std::string> with_task = arguments;
            with_task.insert(with_task.begin() + 1, {"a.prx", "#" + std::to_string(row)});
            const int status = plan.Prx(with_task).status;
            if (status == 0) {
                ++done;
                EXPECT_EQ(plan.Prx({"check", "a.prx"}).out,
                          plan.Path("a.prx") + ": nothing is wrong, " + std::to_string(count) + " tasks\n");
            } else {
                EXPECT_EQ(status, 2);
                EXPECT_EQ(plan.Read("a.prx"), before);
            }
        }
        EXPECT_GT(done, tried / 4) << example;
    }
}

}  // namespace

TEST_F(Indent, PutsATaskBelowTheOneAboveIt) {
    const std::string events = plan_.Edit({"indent", "E"});

    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   B\n4     C\n5     D\n6     E\n7 Second\n8   F\n");
    EXPECT_TRUE(Has(events, "IamASummary(3, True)\n")) << events;
    EXPECT_TRUE(events.ends_with("Indented(4, 3, prx)\n")) << events;
}

TEST_F(Indent, TakesAlongAllBelowTheTask) {
    plan_.Edit({"indent", "B"});
    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3     B\n4       C\n5       D\n6   E\n7 Second\n8   F\n");

    plan_.Edit({"indent", "Second"});
    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3     B\n4       C\n5       D\n6   E\n7   Second\n8     F\n");
    EXPECT_EQ(plan_.Output({"phase", "a.prx"}), "  1    1  First\n");
}

TEST_F(Indent, LetsTheTaskStartWithItsNewParentAndMovesWhatWaitsForIt) {
    plan_.Edit({"set", "E", "start=2026-03-16"});
    plan_.Edit({"link", "F", "E"});
    EXPECT_EQ(plan_.Days("F"), "2026-03-19 2026-03-23");

    plan_.Edit({"indent", "E"});

    EXPECT_EQ(plan_.Days("E"), "2026-03-03 2026-03-05");
    EXPECT_EQ(plan_.Days("F"), "2026-03-06 2026-03-10");
}

TEST_F(Indent, FreesTheNewParentOfLinksThatASummaryCannotHave) {
    plan_.Edit({"link", "E", "A"});
    plan_.Edit({"move", "E", "--after", "A"});

    plan_.Edit({"indent", "E"});

    EXPECT_EQ(plan_.Predecessors("E"), "");
}

TEST_F(Indent, FreesTheNewParentFromWaitingForItsChild) {
    plan_.Edit({"move", "E", "--after", "A"});
    plan_.Edit({"link", "A", "E"});

    plan_.Edit({"indent", "E"});

    EXPECT_EQ(plan_.Predecessors("A"), "");
}

TEST_F(Indent, TellsWhatItsNewParentLoses) {
    plan_.Edit({"link", "E", "A"});
    plan_.Edit({"cost", "A", "70"});
    plan_.Edit({"move", "E", "--after", "A"});
    const std::string told =
        "prx: task 4 \"E\" no longer waits for task 2 \"A\", which is a summary now\n"
        "prx: \"A\" cost 70; as a summary it costs what the tasks below it cost\n";
    const std::string before = plan_.Read("a.prx");
    EXPECT_EQ(plan_.Prx({"indent", "a.prx", "E"}).err, told);

    plan_.Write("a.prx", before);
    EXPECT_EQ(plan_.Prx({"move", "a.prx", "F", "--under", "A"}).err, told);
}

TEST_F(Indent, RefusesTheFirstOfALevel) {
    EXPECT_EQ(plan_.Refused({"indent", "A"}), "prx: \"A\" stands first on its level: there is no task above it\n");
    EXPECT_NE(plan_.Refused({"indent", "First"}), "");
}

TEST(DeepOutline, RefusesToGetAnyDeeper) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    plan.Output({"add", "a.prx", "T0"});
    int deepest = 0;
    while (deepest < 20 &&
           plan.Prx({"add", "a.prx", "T" + std::to_string(deepest + 1), "--under", "T" + std::to_string(deepest)})
                   .status == 0) {
        ++deepest;
    }
    ASSERT_GE(deepest, 8);
    ASSERT_LT(deepest, 20);
    const std::string last = "T" + std::to_string(deepest);
    plan.Edit({"add", "First", "--after", last});
    plan.Edit({"indent", "First"});  // a parent without children does not count
    plan.Edit({"add", "Second", "--after", last});

    const std::string told =
        "prx: \"Second\" does not go below \"" + last + "\": the outline cannot get any deeper than that\n";
    EXPECT_EQ(plan.Refused({"indent", "Second"}), told);
    EXPECT_EQ(plan.Refused({"move", "Second", "--under", last}), told);
    EXPECT_NE(plan.Refused({"move", "T0", "--under", "T1"}), "");
}

TEST_F(Outdent, PutsATaskBehindItsFormerParent) {
    const std::string events = plan_.Edit({"outdent", "C"});

    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   B\n4     D\n5   C\n6   E\n7 Second\n8   F\n");
    EXPECT_TRUE(Has(events, "Outented(5, 1, 3, prx)\n")) << events;
}

TEST_F(Outdent, MakesAPhaseOfATaskThatComesToTheTop) {
    plan_.Edit({"outdent", "B"});

    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   E\n4 B\n5   C\n6   D\n7 Second\n8   F\n");
    EXPECT_TRUE(Has(plan_.Output({"phase", "a.prx"}), "  B\n"));
}

TEST_F(Outdent, LinksTheLastChildBehindAParentThatIsLeftWithoutChildren) {
    plan_.Edit({"outdent", "F"});

    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   B\n4     C\n5     D\n6   E\n7 Second\n8 F\n");
    EXPECT_TRUE(Has(plan_.Row("Second"), "\"summary\": false"));
    EXPECT_EQ(plan_.Predecessors("F"), "7");
}

TEST_F(Outdent, RefusesATaskAtTheTop) {
    EXPECT_EQ(plan_.Refused({"outdent", "Second"}), "prx: \"Second\" stands at the top already\n");
}

TEST_F(Move, PassesANeighbourWithAllBelowIt) {
    const std::string events = plan_.Edit({"move", "E", "--up"});
    EXPECT_TRUE(events.ends_with("UpDown(True, 4, 1, 1, False, prx)\n")) << events;
    EXPECT_FALSE(Has(events, "TaskInserted")) << events;
    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   E\n4   B\n5     C\n6     D\n7 Second\n8   F\n");

    plan_.Edit({"move", "E", "--down"});
    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   B\n4     C\n5     D\n6   E\n7 Second\n8   F\n");

    plan_.Edit({"move", "Second", "--up"});
    EXPECT_EQ(plan_.Drawing(), "1 Second\n2   F\n3 First\n4   A\n5   B\n6     C\n7     D\n8   E\n");
}

TEST_F(Move, TellsTheRowsThatLinksShowAfterwards) {
    plan_.Edit({"link", "E", "A"});

    const std::string events = plan_.Edit({"move", "A", "--down"});

    EXPECT_TRUE(Has(events, "PredecessorChange(4, 5)\n")) << events;
    EXPECT_EQ(plan_.Predecessors("E"), "2");
}

TEST_F(Move, GoesUnderAnotherTaskWithItsDatesAndLinks) {
    plan_.Edit({"link", "E", "D"});
    const std::string days = plan_.Days("E");

    plan_.Edit({"move", "B", "--under", "Second"});

    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   E\n4 Second\n5   F\n6   B\n7     C\n8     D\n");
    EXPECT_EQ(plan_.Days("E"), days);
    EXPECT_EQ(plan_.Predecessors("E"), "6");
}

TEST_F(Move, GoesBehindAnotherTask) {
    plan_.Edit({"move", "F", "--after", "A"});
    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   F\n4   B\n5     C\n6     D\n7   E\n8 Second\n");

    plan_.Edit({"move", "Second", "--after", "First"});
    plan_.Edit({"move", "C", "--after", "Second"});
    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   F\n4   B\n5     D\n6   E\n7 Second\n8 C\n");
}

TEST_F(Move, AddsUpTheCostsOfBothParents) {
    plan_.Edit({"cost", "C", "100"});
    plan_.Edit({"cost", "D", "10"});
    plan_.Edit({"cost", "F", "1"});

    plan_.Edit({"move", "C", "--under", "Second"});

    EXPECT_TRUE(Has(plan_.Row("First"), "\"cost\": 10,"));
    EXPECT_TRUE(Has(plan_.Row("Second"), "\"cost\": 101,"));
}

TEST_F(Move, AsksForOnePlaceThatDoesNotMoveAlong) {
    EXPECT_EQ(plan_.Refused({"move", "A", "--up"}), "prx: \"A\" stands first on its level\n");
    EXPECT_EQ(plan_.Refused({"move", "E", "--down"}), "prx: \"E\" stands last on its level\n");
    EXPECT_TRUE(Has(plan_.Refused({"move", "B", "--under", "C"}), "moves along with it"));
    EXPECT_NE(plan_.Refused({"move", "B", "--after", "B"}), "");
    EXPECT_NE(plan_.Refused({"move", "B"}), "");
    EXPECT_NE(plan_.Refused({"move", "B", "--up", "--down"}), "");
    EXPECT_NE(plan_.Refused({"move", "B", "--under", ""}), "");
    EXPECT_NE(plan_.Refused({"move", "B", "--under", "Nobody"}), "");
}

TEST_F(Phase, ListsThePhases) {
    EXPECT_EQ(plan_.Output({"phase", "a.prx"}), "  1    1  First\n  7    7  Second\n");
}

TEST_F(Phase, ListsThePhasesByTheirRows) {
    plan_.Edit({"move", "Second", "--up"});
    EXPECT_EQ(plan_.Output({"phase", "a.prx"}), "  1    7  Second\n  3    1  First\n");
}

TEST_F(Phase, TakesATaskToTheTop) {
    plan_.Edit({"phase", "D"});

    EXPECT_EQ(plan_.Drawing(), "1 First\n2   A\n3   B\n4     C\n5   E\n6 D\n7 Second\n8   F\n");
    EXPECT_EQ(plan_.Refused({"phase", "D"}), "prx: \"D\" is a phase already\n");
}

TEST(Examples, StayWholeWhateverIsIndented) {
    ToEachTask(1, {"indent"});
}

TEST(Examples, StayWholeWhateverIsOutdented) {
    ToEachTask(2, {"outdent"});
}

TEST(Examples, StayWholeWhateverMovesUp) {
    ToEachTask(3, {"move", "--up"});
}

TEST(Examples, StayWholeWhateverMovesDown) {
    ToEachTask(4, {"move", "--down"});
}

TEST(Examples, StayWholeWhateverBecomesAPhase) {
    ToEachTask(5, {"phase"});
}

TEST(Examples, StayWholeWhateverGoesUnderTheFirstTask) {
    ToEachTask(6, {"move", "--under=#1"});
}

TEST(Examples, StayWholeWhateverGoesBehindALaterTask) {
    ToEachTask(7, {"move", "--after=#13"});
}

TEST(Examples, StayWholeWhateverIsUnlinked) {
    const PlanFolder plan;
    plan.CopyExample("house.prx", "a.prx");
    for (const char* task : {"Permit granted", "Curing", "Roof trusses", "Topping-out", "Moving in"}) {
        EXPECT_NE(plan.Predecessors(task), "") << task;
        plan.Edit({"unlink", task});
        EXPECT_EQ(plan.Predecessors(task), "") << task;
    }
}

}  // namespace prx_test
