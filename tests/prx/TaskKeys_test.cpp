#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design, 3 Build), 4 Later; a task loses its key.
class KeylessTask : public testing::Test {
protected:
    KeylessTask() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase"});
        for (const char* name : {"Design", "Build"}) plan_.Output({"add", "a.prx", name, "--under", "Phase"});
        plan_.Output({"add", "a.prx", "Later"});
    }
    void Damage(const std::string& from, const std::string& to) const {
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, from, to));
        ASSERT_NE(plan_.Read("a.prx"), whole) << from << "\n" << whole;
    }
    void LoseKey(const std::string& key) const { Damage("<TaskKey>" + key + "</TaskKey>", ""); }
    static std::string Fault(const std::string& name) { return "task \"" + name + "\" has no key"; }
    /// Every kind of edit can find the task.
    void ExpectInOrder(const std::string& name) const {
        plan_.Output({"check", "a.prx"});
        plan_.Edit({"move", name, "--up"});
        plan_.Edit({"done", name, "50"});
        plan_.Edit({"add", "Last", "--after", name});
        plan_.Edit({"link", "Last", name});
        plan_.Edit({"remove", name});
    }

    const PlanFolder plan_;
};

}  // namespace

TEST_F(KeylessTask, IsFoundAndFiledUnderTheNextKey) {
    LoseKey("2");

    const Result found = plan_.Prx({"check", "a.prx"});
    EXPECT_EQ(found.status, 1);
    EXPECT_EQ(found.out, "Without a key; --repair files it under one in a new file:\n  " + Fault("Design") + "\n");
    EXPECT_EQ(plan_.Output({"check", "a.prx", "--repair", "b.prx"}),
              "Mended:\n  " + Fault("Design") + ": filed under key 5\n" + plan_.Path("b.prx") + ": written\n");
    plan_.Write("a.prx", plan_.Read("b.prx"));
    EXPECT_EQ(plan_.Drawing(), "1 Phase\n2   Design\n3   Build\n4 Later\n");
    plan_.Edit({"move", "Design", "--down"});
    ExpectInOrder("Design");
}

TEST_F(KeylessTask, IsRefusedInPlainWords) {
    LoseKey("2");
    EXPECT_EQ(plan_.Refused({"rename", "Build", "Make"}),
              "prx: " + plan_.Path("a.prx") + ": " + Fault("Design") +
                  ", and no change can find it.\n\"prx check --repair\" files it under one in a new file; --force does "
                  "so before the change.\n");
}

TEST_F(KeylessTask, IsFiledBeforeAForcedEdit) {
    LoseKey("2");
    const Result result = plan_.Prx({"done", "a.prx", "Design", "5", "--force"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "prx: was mended: " + Fault("Design") + ": filed under key 5\n");
    plan_.Edit({"move", "Design", "--down"});
    ExpectInOrder("Design");
}

TEST_F(KeylessTask, CanBeAPhase) {
    LoseKey("4");
    plan_.Refused({"rename", "Build", "Make"});
    plan_.Output({"rename", "a.prx", "Build", "Make", "--force"});
    EXPECT_EQ(plan_.Output({"phase", "a.prx"}), "  1    1  Phase\n  4    4  Later\n");
    ExpectInOrder("Later");
}

TEST_F(KeylessTask, CanBeOneWhoseKeyStandsOutOfItsPlace) {
    for (const std::string key : {"4", "1"}) {
        const std::string whole = plan_.Read("a.prx");
        const std::string rest =
            "<TaskCondidat>true</TaskCondidat><TaskMilstones>false</TaskMilstones><TaskKey>" + key + "<";
        Damage("<ProjectID>0</ProjectID><TaskType>false</TaskType>" + rest,
               "<TaskType>false</TaskType><ProjectID>0</ProjectID>" + rest);
        const std::string copy = key + ".prx";
        const Result repaired = plan_.Prx({"check", "a.prx", "--repair", copy, "--force"});
        EXPECT_TRUE(Has(repaired.out, Fault("") + ": filed under key " + key + "\n")) << repaired.out;
        for (const char* name : {"Make", "Build"}) plan_.Output({"rename", copy, "3", name});
        plan_.Output({"rename", "a.prx", "3", "Make", "--force"});
        plan_.Output({"rename", "a.prx", "3", "Build"});
        plan_.Write("a.prx", whole);
    }
}

TEST_F(KeylessTask, GetsAFreeKeyWhereTheLastOneIsTaken) {
    Damage("<TaskKey>4</TaskKey>", "<TaskKey>32767</TaskKey>");
    LoseKey("2");
    plan_.Output({"check", "a.prx", "--repair", "b.prx"});
    plan_.Write("a.prx", plan_.Read("b.prx"));
    EXPECT_NE(plan_.Row("Design").find("\"key\": 2,"), std::string::npos) << plan_.Row("Design");
}

TEST(KeylessTasks, GetTheKeyBackThatTheirTiesAndLinksName) {
    const PlanFolder plan;
    plan.CopyExample("house.prx", "whole.prx");
    const std::string whole = plan.Output({"show", "--json", "whole.prx"});
    const std::string key = "<TaskKey>43</TaskKey>";
    for (const bool tie_too : {false, true}) {
        const std::string copy = tie_too ? "c.prx" : "b.prx";
        plan.Write("a.prx", tie_too ? Replaced(plan.Read("whole.prx"), key, "")
                                    : Replaced(plan.Read("whole.prx"), key + "<TaskName>", "<TaskName>"));

        const Result found = plan.Prx({"check", "a.prx"});
        EXPECT_TRUE(Has(found.out, "task \"Cables and boxes\" has no key\n")) << found.out;
        EXPECT_FALSE(Has(found.out, "task 0")) << found.out;
        const std::string told = plan.Output({"check", "a.prx", "--repair", copy});
        EXPECT_TRUE(Has(told, "Mended:\n  task \"Cables and boxes\" has no key: filed under key 43\n")) << told;
        EXPECT_FALSE(Has(told, "taken o")) << told;
        EXPECT_EQ(plan.Output({"show", "--json", copy}), whole);
        plan.Output({"check", copy});
    }
}

TEST(KeylessTasks, GetTheKeyBackThatALinkAloneNames) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    for (const char* name : {"Design", "Build", "Test"}) plan.Output({"add", "a.prx", name});
    plan.Output({"link", "a.prx", "Build", "Design"});
    plan.Write("a.prx", Replaced(plan.Read("a.prx"), "<TaskKey>1</TaskKey>", "<TaskKey>0</TaskKey>"));

    plan.Output({"rename", "a.prx", "Test", "Try", "--force"});

    EXPECT_NE(plan.Row("Design").find("\"key\": 1,"), std::string::npos);
    EXPECT_EQ(plan.Predecessors("Build"), "1");
    plan.Output({"check", "a.prx"});
}

TEST(KeylessTasks, LeaveTheirParentsInPeace) {
    const PlanFolder plan;
    plan.CopyExample("orchard.prx", "a.prx");
    plan.Write("a.prx", Replaced(plan.Read("a.prx"), "<TaskKey>15</TaskKey>", ""));
    const std::string found = plan.Prx({"check", "a.prx"}).out;
    EXPECT_FALSE(Has(found, "is filed under another key")) << found;
    EXPECT_TRUE(Has(found, "task \"Bees arrive\" has no key")) << found;
}

}  // namespace prx_test
