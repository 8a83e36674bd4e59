#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design, 3 Build: each Monday to Friday of the first week of March 2026; 3 waits for 2).
class OneField : public testing::Test {
protected:
    OneField() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        for (const char* name : {"Design", "Build"}) {
            plan_.Output({"add", "a.prx", name, "--under", "Phase", "--start", "2026-03-02", "--duration", "5"});
        }
        plan_.Output({"link", "a.prx", "Build", "Design"});
    }
    void ExpectIn(const std::string& task, const std::string& member) const {
        EXPECT_NE(plan_.Row(task).find(member), std::string::npos) << plan_.Row(task);
    }
    const PlanFolder plan_;
};

using Rename = OneField;
using Milestone = OneField;
using Done = OneField;
using Cost = OneField;

}  // namespace

TEST_F(Rename, GivesATaskAnotherName) {
    EXPECT_NE(plan_.Edit({"rename", "Design", "Draft=1"}).find("TaskNameChanged(2, Draft=1)\n"), std::string::npos);
    EXPECT_EQ(plan_.Drawing(), "1 Phase\n2   Draft=1\n3   Build\n");
    for (const char* name : {"", " ", "two\nlines"}) EXPECT_NE(plan_.Refused({"rename", "Build", name}), "");
}

TEST_F(Milestone, MakesATaskADayAndPullsWhatWaitsForIt) {
    plan_.Edit({"milestone", "Design"});
    ExpectIn("Design", R"("milestone": true, "start": "2026-03-02", "end": "2026-03-02", "duration": 0)");
    EXPECT_EQ(plan_.Days("Build"), "2026-03-03 2026-03-09");

    plan_.Edit({"milestone", "Design", "--off"});
    ExpectIn("Design", R"("milestone": false, "start": "2026-03-02", "end": "2026-03-02", "duration": 1)");
}

TEST_F(Milestone, RefusesASummary) {
    EXPECT_NE(plan_.Refused({"milestone", "Phase"}).find("follows from the tasks below it"), std::string::npos);
}

TEST_F(Done, TellsHowFarATaskHasCome) {
    EXPECT_EQ(plan_.Edit({"done", "Design", "60"}), "CompletedChange(2, 60)\n");
    EXPECT_EQ(plan_.Edit({"done", "Phase", "30%"}), "CompletedChange(1, 30)\n");
    ExpectIn("Design", "\"done\": 60");
    for (const char* bad : {"101", "-1", "half", ""}) EXPECT_NE(plan_.Refused({"done", "Design", bad}), "") << bad;
}

TEST_F(Cost, IsAddedUpByTheSummaries) {
    plan_.Edit({"cost", "Design", "100.50"});
    EXPECT_EQ(plan_.Edit({"cost", "Build", "20"}), "RoolUpCostChange(3, 20)\nRoolUpCostChange(1, 120.5)\n");
    ExpectIn("Phase", "\"cost\": 120.5");
    EXPECT_NE(plan_.Refused({"cost", "Phase", "5"}), "");
    EXPECT_NE(plan_.Refused({"cost", "Design", "1,50"}), "");
}

}  // namespace prx_test
