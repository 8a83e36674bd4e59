#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design, 3 Build, 4 Test: each Monday to Wednesday of the first week of March 2026).
class Link : public testing::Test {
protected:
    Link() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        for (const char* name : {"Design", "Build", "Test"}) {
            plan_.Output({"add", "a.prx", name, "--under", "Phase", "--start", "2026-03-02", "--duration", "3"});
        }
    }
    const PlanFolder plan_;
};

using Unlink = Link;

}  // namespace

TEST_F(Link, PutsATaskThatStartsTooEarlyBehindItsPredecessor) {
    EXPECT_EQ(plan_.Edit({"link", "Build", "Design"}),
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n"
              "DateStartChange(3, 2026-03-05, False, False)\n"
              "DateEndChange(3, 2026-03-09, False, False, days)\n"
              "DurationChange(3, 3, days, False, False)\n"
              "TaskDurationChange(3, 3, days, False, False)\n"
              "DurationChange(1, 6, days, False, True)\n"
              "TaskDurationChange(1, 6, days, False, True)\n"
              "DateEndChange(1, 2026-03-09, False, True, days)\n"
              "DateStartChange(1, 2026-03-02, False, True)\n");
    EXPECT_EQ(plan_.Predecessors("Build"), "2");
}

TEST_F(Link, KeepsTheDatesOfATaskThatStartsLateEnough) {
    plan_.Edit({"set", "Build", "start=2026-03-09"});

    plan_.Edit({"link", "Build", "Design"});

    EXPECT_EQ(plan_.Days("Build"), "2026-03-09 2026-03-11");
    EXPECT_TRUE(Has(plan_.Row("Build"), R"("predecessors": [{"key": 2, "lag": 2}])"));
    plan_.Edit({"set", "Design", "start=2026-03-03"});  // the two days in between stay
    EXPECT_EQ(plan_.Days("Build"), "2026-03-10 2026-03-12");
}

TEST_F(Link, KeepsALagInWorkingDays) {
    struct Row {
        const char* lag;
        const char* days;
    };
    // Design ends on Wednesday the 4th.
    for (const Row& row :
         {Row{"0", "2026-03-05 2026-03-09"}, Row{"1", "2026-03-06 2026-03-10"}, Row{"2", "2026-03-09 2026-03-11"},
          Row{"5", "2026-03-12 2026-03-16"}, Row{"-1", "2026-03-04 2026-03-06"}}) {
        SCOPED_TRACE(row.lag);
        plan_.Edit({"link", "Build", "Design", std::string("--lag=") + row.lag});
        EXPECT_EQ(plan_.Days("Build"), row.days);
        plan_.Edit({"unlink", "Build", "Design"});
    }
}

TEST_F(Link, TakesALagAsAWordOfItsOwn) {
    plan_.Edit({"link", "Build", "Design", "--lag", "-1"});
    EXPECT_EQ(plan_.Days("Build"), "2026-03-04 2026-03-06");
}

TEST_F(Link, MovesAllThatWaitsForTheTask) {
    plan_.Edit({"link", "Test", "Build"});
    plan_.Edit({"link", "Build", "Design"});

    EXPECT_EQ(plan_.Days("Build"), "2026-03-05 2026-03-09");
    EXPECT_EQ(plan_.Days("Test"), "2026-03-10 2026-03-12");
}

TEST_F(Link, PutsASummaryWithAllBelowItBehindItsPredecessor) {
    plan_.Edit({"add", "Second", "--start", "2026-03-02"});
    plan_.Edit({"add", "Paint", "--under", "Second", "--start", "2026-03-02", "--duration", "2"});
    plan_.Edit({"add", "Clean", "--under", "Second", "--start", "2026-03-04", "--duration", "1"});

    plan_.Edit({"link", "Second", "Design"});

    EXPECT_EQ(plan_.Days("Second"), "2026-03-05 2026-03-09");
    EXPECT_EQ(plan_.Days("Paint"), "2026-03-05 2026-03-06");
    EXPECT_EQ(plan_.Days("Clean"), "2026-03-09 2026-03-09");
}

TEST_F(Link, SaysWhyATaskCannotWait) {
    plan_.Edit({"link", "Build", "Design"});

    EXPECT_EQ(plan_.Refused({"link", "Build", "Design"}),
              "prx: \"Build\" was not made to wait for \"Design\": it does so already\n");
    EXPECT_TRUE(Has(plan_.Refused({"link", "Design", "Build"}), "\"Build\" waits for it already"));
    EXPECT_TRUE(Has(plan_.Refused({"link", "Build", "Phase"}), "\"Phase\" is a summary"));
    EXPECT_TRUE(Has(plan_.Refused({"link", "Phase", "Build"}), "what stands below it"));
    EXPECT_TRUE(Has(plan_.Refused({"link", "Build", "Build"}), "for itself"));
    plan_.Edit({"link", "Test", "Design"});
    EXPECT_TRUE(Has(plan_.Refused({"link", "Test", "Build"}), "it waits already for a task that \"Build\" waits for"));
}

TEST_F(Link, TellsACircle) {
    plan_.Edit({"link", "Build", "Design"});
    plan_.Edit({"link", "Test", "Build"});

    const Result result = plan_.Prx({"link", "a.prx", "Design", "Test"});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "prx: the links run in a circle now: the task waits for itself\n");
    plan_.Edit({"set", "Build", "start=2026-03-16"});
}

TEST_F(Link, TellsACircleThroughASummary) {
    plan_.Edit({"add", "Apart"});
    const std::string circle = "prx: the links run in a circle now: the task waits for itself\n";

    plan_.Edit({"link", "Phase", "Apart"});
    EXPECT_EQ(plan_.Prx({"link", "a.prx", "Apart", "Test"}).err, circle);
    plan_.Edit({"unlink", "Phase"});
    EXPECT_EQ(plan_.Prx({"link", "a.prx", "Phase", "Apart"}).err, circle);
}

TEST_F(Link, TellsACircleThatAMoveMakes) {
    plan_.Edit({"add", "Apart"});
    plan_.Edit({"link", "Phase", "Apart"});
    plan_.Edit({"add", "Free"});
    plan_.Edit({"link", "Apart", "Free"});
    const std::string circle = "prx: the links run in a circle now: the task waits for itself\n";
    EXPECT_TRUE(Has(plan_.Prx({"move", "a.prx", "Free", "--under", "Phase"}).err, circle));
    EXPECT_EQ(plan_.Prx({"done", "a.prx", "Free", "50"}).err, "") << "told once";
}

TEST_F(Link, MakesNoSummaryWaitForWhatStandsFurtherBelowIt) {
    plan_.Edit({"add", "Part", "--under", "Test"});
    EXPECT_TRUE(Has(plan_.Refused({"link", "Phase", "Part"}), "a task cannot wait for what stands below it"));
}

TEST_F(Link, RefusesBadInput) {
    for (const char* lag : {"--lag=", "--lag=two", "--lag=1.5", "--lag=1000", "--lag=-1000", "--lag=99999999999"}) {
        EXPECT_NE(plan_.Refused({"link", "Build", "Design", lag}), "") << lag;
    }
    EXPECT_EQ(plan_.Refused({"link", "Build", "Nobody"}), "prx: there is no task \"Nobody\"\n");
    EXPECT_EQ(plan_.Refused({"link", "#9", "Build"}), "prx: there is no task \"#9\"\n");
    EXPECT_NE(plan_.Refused({"link", "Build"}), "");
}

TEST_F(Unlink, TakesOneLinkOffAndKeepsTheDates) {
    plan_.Edit({"link", "Build", "Design"});

    EXPECT_EQ(plan_.Edit({"unlink", "Build", "Design"}),
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n");

    EXPECT_EQ(plan_.Days("Build"), "2026-03-05 2026-03-09");
    plan_.Edit({"set", "Design", "start=2026-03-09"});
    EXPECT_EQ(plan_.Days("Build"), "2026-03-05 2026-03-09");
}

TEST_F(Unlink, TakesAllLinksOffWithoutAName) {
    plan_.Edit({"link", "Test", "Design"});
    plan_.Edit({"link", "Test", "Build"});

    plan_.Edit({"unlink", "Test"});

    EXPECT_EQ(plan_.Predecessors("Test"), "");
}

TEST_F(Unlink, RefusesWhatIsNotLinked) {
    EXPECT_EQ(plan_.Refused({"unlink", "Build", "Design"}), "prx: \"Build\" does not wait for \"Design\"\n");
    EXPECT_EQ(plan_.Refused({"unlink", "Build"}), "prx: the task waits for nothing\n");
}

TEST_F(Link, SurvivesAReadAndASave) {
    plan_.Edit({"link", "Build", "Design", "--lag=2"});
    plan_.Edit({"rename", "Test", "Trial"});

    plan_.Edit({"set", "Design", "duration=4"});

    EXPECT_EQ(plan_.Days("Build"), "2026-03-10 2026-03-12");
}

TEST_F(Link, BridgesTheHoleThatARemovedTaskLeaves) {
    plan_.Edit({"link", "Build", "Design"});
    plan_.Edit({"link", "Test", "Build"});

    plan_.Edit({"remove", "Build"});

    EXPECT_EQ(plan_.Predecessors("Test"), "2");
    EXPECT_EQ(plan_.Days("Test"), "2026-03-05 2026-03-09");
}

}  // namespace prx_test
