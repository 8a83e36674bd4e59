#include <gtest/gtest.h>

#include <algorithm>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// A plan whose edits are asked what they tell on the error output. The 7th of December 2026 is a Monday.
class LinkChanges : public testing::Test {
protected:
    LinkChanges() { plan_.Output({"new", "a.prx"}); }

    /// Two days long, or as long as is said.
    void Add(const std::string& name, const std::string& day, const std::string& duration = "2") const {
        plan_.Output({"add", "a.prx", name, "--start", day, "--duration", duration});
    }
    void AddUnder(const std::string& parent, const std::string& name, const std::string& day = "2026-12-07",
                  const std::string& duration = "2") const {
        plan_.Output({"add", "a.prx", name, "--under", parent, "--start", day, "--duration", duration});
    }
    void Open(const std::string& example) const { plan_.CopyExample(example, "a.prx"); }
    /// What an edit that goes through tells.
    std::string Told(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin() + 1, "a.prx");
        const Result result = plan_.Prx(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        return result.err;
    }
    const PlanFolder plan_;
};

std::size_t Lines(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

TEST_F(LinkChanges, TellNothingOfAShiftOfWhatIsLinkedAcrossPhases) {
    Add("A", "2026-12-07");
    AddUnder("A", "a");
    Add("B", "2026-12-09");
    AddUnder("B", "b", "2026-12-09");
    AddUnder("B", "c", "2026-12-11");
    EXPECT_EQ(Told({"link", "b", "a"}), "");
    EXPECT_EQ(Told({"link", "c", "b"}), "");

    EXPECT_EQ(Told({"shift", "7"}), "");
    EXPECT_EQ(plan_.Days("a"), "2026-12-14 2026-12-15");
    EXPECT_EQ(plan_.Days("b"), "2026-12-16 2026-12-17");
    EXPECT_EQ(plan_.Days("c"), "2026-12-18 2026-12-21");
}

TEST_F(LinkChanges, TellNothingOfAShiftOfWhatIsLinkedWithinAPhase) {
    Add("A", "2026-12-07");
    AddUnder("A", "a");
    AddUnder("A", "b");
    Told({"link", "b", "a"});

    EXPECT_EQ(Told({"shift", "7"}), "");
    EXPECT_EQ(Told({"shift", "-14"}), "");
}

TEST_F(LinkChanges, TellASummaryThatGoesBackWhenWhatItWaitsForGrows) {
    Add("P", "2026-12-07");
    Add("S", "2026-12-14");
    AddUnder("S", "a", "2026-12-14", "3");
    EXPECT_EQ(Told({"link", "S", "P", "--lag", "0"}), "");
    const std::string linked = plan_.Read("a.prx");

    const std::string told = "prx: task 2 \"S\" waits for task 1 \"P\" and now starts before it ends (lag 0, now -3)\n";
    EXPECT_EQ(Told({"set", "P", "duration=3"}), told);
    plan_.Write("a.prx", linked);
    EXPECT_EQ(Told({"set", "P", "end=2026-12-10"}), told);
    plan_.Write("a.prx", linked);
    EXPECT_EQ(Told({"set", "P", "start=2026-12-10"}), "");
}

TEST_F(LinkChanges, TellWhatIsOutdentedThatItWaitsNoLonger) {
    Add("A", "2026-12-07");
    for (const char* name : {"x", "y", "z"}) AddUnder("A", name);
    Told({"link", "y", "x"});
    Told({"link", "z", "y"});
    const std::string linked = plan_.Read("a.prx");

    EXPECT_EQ(Told({"outdent", "y"}), "prx: task 3 \"y\" no longer waits for task 2 \"x\"\n");
    plan_.Write("a.prx", linked);
    EXPECT_EQ(Told({"move", "y", "--after", "A"}), "");
}

TEST_F(LinkChanges, TellWhatIsOutdentedThatItWaitsForItsFormerParent) {
    Add("A", "2026-12-07");
    AddUnder("A", "x");

    EXPECT_EQ(Told({"outdent", "x"}), "prx: task 2 \"x\" now waits for task 1 \"A\" (lag -2)\n");
}

TEST_F(LinkChanges, TellATaskThatIsPulledBeforeTheEndOfAnotherPredecessor) {
    Add("A", "2026-12-07", "3");
    Add("B", "2026-12-07", "10");
    Add("C", "2026-12-07", "3");
    EXPECT_EQ(Told({"link", "C", "A"}), "");
    EXPECT_EQ(Told({"link", "C", "B"}), "");

    EXPECT_EQ(Told({"set", "A", "duration=1"}),
              "prx: task 3 \"C\" waits for task 2 \"B\" and now starts before it ends (lag 0, now -2)\n");
}

TEST_F(LinkChanges, TellTheSameInARealPlan) {
    struct Row {
        std::vector<std::string> edit;
        const char* told;
    };
    const Row rows[] = {
        {{"set", "11", "duration=7"},
         "prx: task 12 \"Sign with the builders\" waits for task 9 \"Permit granted\" and now starts before it ends "
         "(lag 0, now -3)\n"},
        {{"set", "34", "start=2026-06-10"},
         "prx: task 35 \"Fit\" waits for task 32 \"Tiles and gutters\" and now starts before it ends (lag 0, now -3)\n"
         "prx: task 57 \"Paths and terrace\" waits for task 55 \"Kitchen\" and now starts before it ends (lag 0, now "
         "-3)\n"},
        {{"milestone", "2"},
         "prx: task 6 \"Structural calculation\" waits for task 5 \"Floor plans\" and now starts even longer before it "
         "ends (lag -3, now -8)\n"
         "prx: task 9 \"Permit granted\" waits for task 8 \"File the application\" and now starts before it ends (lag "
         "18, now -6)\n"
         "prx: task 12 \"Sign with the builders\" waits for task 11 \"Invite offers\" and now starts before it ends "
         "(lag 4, now -20)\n"
         "prx: task 15 \"Access road and site power\" waits for task 14 \"Clear the site\" and now starts later after "
         "it (lag 0, now 31)\n"},
        {{"outdent", "7"}, "prx: task 12 \"Sign with the builders\" no longer waits for task 9 \"Permit granted\"\n"},
        {{"indent", "13"},
         "prx: task 18 \"Drainage\" waits for task 17 \"Excavate\" and now starts before it ends (lag 0, now -4)\n"
         "prx: task 21 \"Reinforcement\" waits for task 20 \"Formwork and insulation\" and now starts before it ends "
         "(lag 1, now -7)\n"
         "prx: task 27 \"Joists and upper floor\" waits for task 26 \"Ground-floor walls\" and now starts later after "
         "it (lag 0, now 12)\n"},
        {{"remove", "12"},
         "prx: task 34 \"Order\" now waits for task 11 \"Invite offers\" (lag 0)\n"
         "prx: task 57 \"Paths and terrace\" waits for task 55 \"Kitchen\" and now starts later after it (lag 0, now "
         "56)\n"
         "prx: task 60 \"Final inspection\" waits for task 58 \"Lawn and hedges\" and now starts later after it (lag "
         "2, now 4)\n"
         "prx: task 62 \"Occupancy certificate\" waits for task 61 \"Mend what was found\" and now starts later after "
         "it (lag 1, now 2)\n"
         "prx: task 63 \"Moving in\" waits for task 62 \"Occupancy certificate\" and now starts later after it (lag 1, "
         "now 2)\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.edit.front() + " " + row.edit[1]);
        Open("house.prx");
        EXPECT_EQ(Told(row.edit), row.told);
    }
}

TEST_F(LinkChanges, TellWhatOverlapsInASummaryThatIsIndented) {
    Add("A", "2026-12-07");
    AddUnder("A", "a");
    Add("S", "2026-12-07");
    AddUnder("S", "c0");
    AddUnder("S", "S1");
    AddUnder("S1", "x", "2026-12-07", "3");
    AddUnder("S1", "y");
    Told({"link", "c0", "a"});
    Told({"link", "x", "c0"});
    Told({"link", "y", "x"});
    const std::string linked = plan_.Read("a.prx");

    EXPECT_EQ(Told({"indent", "S"}),
              "prx: task 7 \"y\" waits for task 6 \"x\" and now starts before it ends (lag 0, now -3)\n");
    plan_.Write("a.prx", linked);
    EXPECT_EQ(Told({"move", "S", "--under", "A"}), "");
}

TEST_F(LinkChanges, TellTheLinkThatBridgesTheHoleOfARemovedTask) {
    Add("A", "2026-12-07", "3");
    Add("B", "2026-12-14");
    Add("C", "2026-12-21");
    Told({"link", "B", "A"});
    Told({"link", "C", "B"});

    EXPECT_EQ(Told({"remove", "B"}), "prx: task 3 \"C\" now waits for task 1 \"A\" (lag 0)\n");
}

TEST_F(LinkChanges, TellTheWorstFirstAndNoMoreThanAFew) {
    Open("house.prx");

    const std::string told = Told({"remove", "Floor plans"});

    EXPECT_EQ(Lines(told), 11U) << told;
    EXPECT_TRUE(
        told.starts_with("prx: task 6 \"Structural calculation\" now waits for task 3 \"Soil investigation\" (lag 0)\n"
                         "prx: task 43 \"Cables and boxes\" waits for task 40 \"Rough-in\" and now starts even longer "
                         "before it ends (lag -2, now -3)\n"
                         "prx: task 8 \"File the application\" waits for task 6 \"Structural calculation\" and now "
                         "starts later after it (lag 2, now 4)\n"))
        << told;
    EXPECT_TRUE(told.ends_with("prx: ... and 10 more\n")) << told;
}

TEST_F(LinkChanges, LeaveSlackUntold) {
    Add("A", "2026-12-07", "10");
    Add("B", "2026-12-07", "2");
    Add("C", "2026-12-07");
    Told({"link", "C", "A"});
    Told({"link", "C", "B"});

    EXPECT_EQ(Told({"set", "A", "duration=5"}), "");  // C goes along with it and comes closer to B
    EXPECT_EQ(plan_.Days("C"), "2026-12-14 2026-12-15");
}

TEST_F(LinkChanges, TellALagThatShrinksAtTheClosestPredecessor) {
    Add("A", "2026-12-07", "20");
    Add("B", "2026-12-07", "19");
    Add("C", "2026-12-07");
    Told({"link", "C", "A"});
    Told({"link", "C", "B"});
    Told({"set", "C", "start=2027-01-18"});

    EXPECT_EQ(Told({"set", "B", "duration=16"}),
              "prx: task 3 \"C\" waits for task 1 \"A\" and now starts sooner after it (lag 10, now 7)\n");
}

TEST_F(LinkChanges, SayNothingOfAnOrdinaryEdit) {
    for (const std::vector<std::string>& edit : {std::vector<std::string>{"set", "12", "start=2026-05-18"},
                                                 {"set", "12", "start=2026-04-20"},
                                                 {"set", "55", "duration=6"},
                                                 {"set", "36", "start=2026-09-15"},
                                                 {"set", "12", "end=2026-05-05"},
                                                 {"done", "12", "50"},
                                                 {"cost", "12", "50"},
                                                 {"rename", "12", "Sign"},
                                                 {"move", "13", "--under", "1"},
                                                 {"move", "13", "--after", "1"},
                                                 {"phase", "2"},
                                                 {"add", "Bench", "--under", "13"},
                                                 {"person", "add", "Kim"},
                                                 {"calendar", "--holiday", "2026-06-03"}}) {
        SCOPED_TRACE(edit.front() + " " + edit[1]);
        Open("house.prx");
        EXPECT_EQ(Told(edit), "");
    }
}

TEST_F(LinkChanges, SayNothingOfTheLinksThatAreNamed) {
    Open("house.prx");
    EXPECT_EQ(Told({"unlink", "12", "9"}), "");
    EXPECT_EQ(Told({"link", "12", "9"}), "");
    EXPECT_EQ(Told({"unlink", "12"}), "");
    EXPECT_EQ(Told({"link", "12", "11", "--lag", "-1"}), "");
}

TEST_F(LinkChanges, TellTheOtherLinksOfATaskThatIsLinkedByALead) {
    Add("A", "2026-12-07", "10");
    Add("B", "2026-12-07");
    Add("C", "2026-12-07");
    Told({"link", "C", "A"});

    EXPECT_EQ(Told({"link", "C", "B", "--lag", "0"}),
              "prx: task 3 \"C\" waits for task 1 \"A\" and now starts before it ends (lag 0, now -8)\n");
}

}  // namespace prx_test
