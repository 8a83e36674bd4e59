#include <gtest/gtest.h>

#include "tests/model/Shrinking.h"
#include "tests/support/Draws.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass::model {
namespace {

constexpr unsigned kSeeds = 500;  // of each part

unsigned FirstSeed(unsigned part) {
    return part * testing::Rounds(kSeeds) + 1;
}

/// Drawn scripts, in parts that can run side by side.
class Scripts : public ::testing::TestWithParam<unsigned> {};

TEST_P(Scripts, LeaveThePlanConsistent) {
    for (unsigned seed = FirstSeed(GetParam()); seed < FirstSeed(GetParam() + 1); ++seed) {
        const std::string name = "seed " + std::to_string(seed);
        const testing::TimeLimit limit(name.c_str());
        const Outcome run = RunSeed(seed);
        ASSERT_FALSE(run.complaint) << name << "\n" << Report(run);
    }
}

INSTANTIATE_TEST_SUITE_P(Model, Scripts, ::testing::Range(0U, 4U), [](const auto& part) {
    return "Seeds" + std::to_string(FirstSeed(part.param)) + "To" + std::to_string(FirstSeed(part.param + 1) - 1);
});

/// Four tasks, of which the second waits for the first, and something that has nothing to do with the damage.
Script DamagedBy(int damage, int task = 4, int other = 3) {
    return {.setting = {},
            .steps = {{"Add", 1, 0, 5},
                      {"Add", 2, 0, 5},
                      {"Link", 2, 1, 0},
                      {"Add", 3, 2, 0},
                      {"Add", 4, 0, 5},
                      {"Holiday", 0, 0, 3},
                      {"ChangeDuration", 4, 0, 6},
                      {"Damage", task, other, damage},
                      {"MoveStart", 1, 0, 20}}};
}

TEST(RunScript, FindsWhatNoEditDoes) {
    struct Row {
        std::string_view check;
        Script script;
    };
    for (const Row& row :
         {Row{"rows", DamagedBy(0)}, Row{"children", DamagedBy(1)}, Row{"subtrees", DamagedBy(1, 1, 4)},
          Row{"links", DamagedBy(2)}, Row{"candidates", DamagedBy(3)}, Row{"span", DamagedBy(4)},
          Row{"event", DamagedBy(5)}, Row{"failure", DamagedBy(6)}, Row{"span", DamagedBy(7)}}) {
        SCOPED_TRACE(row.check);
        const Outcome run = RunScript(row.script);
        ASSERT_TRUE(run.complaint);
        EXPECT_EQ(run.complaint->check, row.check) << run.complaint->text;
        EXPECT_EQ(run.done.steps.back().operation, "Damage");
    }
}

TEST(RunScript, HasNothingToComplainOfWithoutDamage) {
    Script script = DamagedBy(0);
    std::erase_if(script.steps, [](const Step& step) { return step.operation == "Damage"; });
    const Outcome run = RunScript(script);
    EXPECT_FALSE(run.complaint) << run.complaint->text;
    EXPECT_EQ(run.done.steps.size(), script.steps.size());
}

TEST(RunScript, PassesByStepsThatMakeNoSense) {
    const Script script{.setting = {}, .steps = {{"Add", 1, 0, 5}, {"Indent", 1, 0, 0}, {"Unlink", 1, 7, 0}}};
    EXPECT_EQ(RunScript(script).done.steps.size(), 1);
}

TEST(Report, ShowsTheShortestScriptAndThePlanAroundItsLastStep) {
    EXPECT_EQ(Report(RunScript(DamagedBy(2))),
              "links: task 2 \"T4\" waits for others than those that it follows\n"
              "after Script{.setting = {.links = true, .auto_link = true, .silent = false},\n"
              "       .steps = {\n"
              "           {\"Add\", 3, 2, 0},\n"
              "           {\"Add\", 4, 0, 5},\n"
              "           {\"Damage\", 4, 3, 2},\n"
              "       }}\n"
              "the plan before the last step:\n"
              "1 T3  2026-03-02 2026-03-02\n"
              "2 T4  2026-03-09 2026-03-10\n"
              "and after it:\n"
              "1 T3  2026-03-02 2026-03-02\n"
              "2 T4  2026-03-09 2026-03-10\n"
              "T4 <- T3\n");
}

}  // namespace
}  // namespace mrlxmlclass::model
