#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"
#include "tests/support/Draws.h"

namespace prx_test {
namespace {

using mrlxmlclass::testing::Draws;
using Texts = std::vector<std::string>;

constexpr int kRows = 40;

std::string Row(Draws& draws) {
    return "#" + std::to_string(draws.From(1, kRows));
}

/// Mostly inside the plan, so that tasks meet it when it becomes free.
std::string Day(Draws& draws) {
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    const bool anywhere = draws.From(1, 6) == 1;
    const int year = anywhere ? draws.One(std::vector<int>{2025, 2026, 2027, 2036}) : 2026;
    return std::to_string(year) + "-" + two(anywhere ? draws.From(1, 12) : draws.From(3, 8)) + "-" +
           two(draws.From(1, 28));
}

std::string Length(Draws& draws) {
    return draws.One(Texts{"0", "1", "2", "5", "0.5", "1.5", "2wks", "1 mons", "8hrs", "30mins", "0.5wks", "0.9wks",
                           "0.7 months", "100"});
}

std::string Assignment(Draws& draws) {
    switch (draws.From(1, 9)) {
        case 1:
        case 2:
        case 3:
            return "duration=" + Length(draws);
        case 4:
            return "end=" + Day(draws);
        case 5:
        case 6:
            return "unit=" + draws.One(Texts{"days", "wks", "mons", "hrs", "mins"});
        case 7:
            return "milestone=" + draws.One(Texts{"yes", "no"});
        case 8:
            return "cost=" + std::to_string(draws.From(-5, 500));
        default:
            return "start=" + Day(draws);
    }
}

/// What a planner may do to a plan, without the file.
Texts Edit(Draws& draws) {
    switch (draws.From(1, 16)) {
        case 1:
            return {"add", "New", draws.One(Texts{"--under", "--after"}), Row(draws), "--duration", Length(draws)};
        case 2:
            return {"link", Row(draws), Row(draws)};
        case 3:
            return {"link", Row(draws), Row(draws), "--lag=" + std::to_string(draws.From(-5, 9))};
        case 4:
            return {draws.One(Texts{"indent", "outdent", "phase", "milestone", "unlink", "remove"}), Row(draws)};
        case 5:
            return {"move", Row(draws), draws.One(Texts{"--under", "--after"}), Row(draws)};
        case 6:
            return {"move", Row(draws), draws.One(Texts{"--up", "--down"})};
        case 7:
            return {"shift", std::to_string(draws.One(std::vector<int>{-400, -7, 1, 30}))};
        case 8:
            return {"calendar", draws.One(Texts{"--holiday", "--exception", "--no-holiday"}), Day(draws)};
        case 9:
            return {"set", Row(draws), Assignment(draws), "done=5"};
        case 10:
            return {"calendar", draws.One(Texts{"--free", "--work"}), draws.One(Texts{"mon", "wed", "sat"})};
        case 11:
            return {draws.One(Texts{"assign", "unassign"}), Row(draws), draws.One(Texts{"person", "goal", "note"}),
                    std::to_string(draws.From(1, 4))};
        case 12:  // mostly a circle, through a summary where there is one
            return {"link", "#" + std::to_string(draws.From(1, 3)), Row(draws)};
        case 13:
            return {"remove", Row(draws)};
        default:
            return {"set", Row(draws), Assignment(draws)};
    }
}

}  // namespace

/// An edit goes through, and nothing is wrong with the plan afterwards, or it is refused, and the file is as it was.
TEST(DrawnEdits, LeaveThePlanInOrder) {
    constexpr int kEditsOfAPlan = 40;
    const PlanFolder plan;
    for (unsigned seed = 1; seed <= mrlxmlclass::testing::Rounds(4); ++seed) {
        Draws draws(seed);
        plan.CopyExample(kExamples[seed % std::size(kExamples)], "a.prx");
        plan.Output({"calendar", "a.prx", "--free", draws.One(Texts{"mon", "tue", "wed", "thu"})});  // many start on it
        std::string history;
        int done = 0;
        for (int i = 0; i < kEditsOfAPlan; ++i) {
            Texts edit = Edit(draws);
            for (const std::string& argument : edit) history += argument + " ";
            history += "\n";
            SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + history);
            edit.insert(edit.begin() + 1, "a.prx");
            const std::string before = plan.Read("a.prx");
            const Result result = plan.Prx(edit);
            if (result.status == 0) {
                ++done;
                ASSERT_EQ(plan.Prx({"check", "a.prx"}).status, 0) << plan.Prx({"check", "a.prx"}).out;
                ASSERT_EQ(plan.WrongSummaries(), "");
            } else {
                ASSERT_EQ(result.status, 2) << result.err;
                ASSERT_FALSE(Has(result.err, "did not go through")) << result.err;
                ASSERT_EQ(plan.Read("a.prx"), before);
            }
        }
        EXPECT_GT(done, kEditsOfAPlan / 4);
    }
}

}  // namespace prx_test
