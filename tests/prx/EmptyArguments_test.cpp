#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {

/// An argument that is empty, such as a variable of the shell that nobody set, is none that was left out.
TEST(EmptyArguments, AreRefused) {
    const PlanFolder plan;
    plan.CopyExample("house.prx", "a.prx");
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"unlink", "21", ""},
                                                      {"add", "X", "--under", ""},
                                                      {"add", "X", "--under="},
                                                      {"add", "X", "--after", ""},
                                                      {"add", "X", "--start", ""},
                                                      {"add", "X", "--cost", ""},
                                                      {"link", "3", "2", "--lag", ""},
                                                      {"phase", ""},
                                                      {"move", "3", "--under", ""},
                                                      {"show", "--gantt", "--from", ""},
                                                      {"show", "--gantt", "--to", ""},
                                                      {"show", "--gantt", "--width", ""},
                                                      {"remove", ""},
                                                      {"calendar", "--holiday", ""}}) {
        SCOPED_TRACE(arguments.front() + " " + arguments.back());
        EXPECT_NE(plan.Refused(arguments), "");
    }
}

TEST(EmptyArguments, StartNoPlan) {
    const Folder folder;
    for (const char* option : {"--name", "--start", "--deadline"}) {
        EXPECT_NE(folder.Refusal({"new", "a.prx", option, ""}), "") << option;
        EXPECT_FALSE(folder.Has("a.prx"));
    }
}

TEST(EmptyArguments, NameNoTaskWithoutAName) {
    const PlanFolder plan;
    plan.CopyExample("house.prx", "a.prx");
    plan.Write("a.prx", Replaced(plan.Read("a.prx"), "<TaskName>Curing</TaskName>", "<TaskName></TaskName>"));
    EXPECT_EQ(plan.Refused({"remove", ""}), "prx: name a task by its key, #row or name\n");
    plan.Output({"rename", "a.prx", "23", "Drying"});
}

TEST(EmptyArguments, NameNoItemWithoutAName) {
    const PlanFolder plan;
    plan.CopyExample("house.prx", "a.prx");
    plan.Write("a.prx", Replaced(plan.Read("a.prx"), "<GoalName>In before Christmas</GoalName>", "<GoalName/>"));
    EXPECT_EQ(plan.Refusal({"goal", "a.prx", "remove", ""}), "prx: name a goal by its key or name\n");
    EXPECT_EQ(plan.Refusal({"assign", "a.prx", "2", "goal", ""}), "prx: name a goal by its key or name\n");
}

}  // namespace prx_test
