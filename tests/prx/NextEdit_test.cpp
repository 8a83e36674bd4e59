#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// A plan with damage that an edit does not mind.
class NextEdit : public testing::Test {
protected:
    NextEdit() { plan_.CopyExample("house.prx", "a.prx"); }

    void Damage(const std::string& from, const std::string& to) const {
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, from, to));
        EXPECT_NE(plan_.Read("a.prx"), whole) << from;
        plan_.Output({"done", "a.prx", "2", "90"});
    }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(NextEdit, FollowsOneThatTakesAwayWhatOthersList) {
    const std::string told =
        "prx: was mended: task 43 \"Cables and boxes\" lists assignment 15, which is not there: taken off\n";
    for (const std::vector<std::string>& edit : {std::vector<std::string>{"remove", "a.prx", "44"},
                                                 {"person", "a.prx", "remove", "5"},
                                                 {"unassign", "a.prx", "44", "person", "5"}}) {
        SCOPED_TRACE(edit.front());
        plan_.CopyExample("house.prx", "a.prx");
        Damage("<tKey>14</tKey>", "<tKey>15</tKey>");
        const Result result = plan_.Prx(edit);
        EXPECT_EQ(result.status, 0);
        EXPECT_TRUE(Has(result.err, told)) << result.err;
        plan_.Edit({"rename", "2", "Survey"});
    }
}

TEST_F(NextEdit, TellsThatRowsAreInDisorder) {
    const std::string whole = plan_.Read("a.prx");
    const std::size_t key = whole.find("<TaskKey>5</TaskKey>");
    const std::size_t row = whole.find("<TaskPosition>5<", whole.rfind("<Task>", key));
    ASSERT_LT(row, whole.find("</Task>", key));
    plan_.Write("a.prx", whole.substr(0, row) + "<TaskPosition>-5<" + whole.substr(row + 16));

    EXPECT_EQ(plan_.Prx({"done", "a.prx", "5", "7"}).err,
              "prx: the rows or parents of this plan are in disorder, so that other tasks may stand elsewhere now; "
              "\"prx check\" tells which\n");
}

TEST_F(NextEdit, FollowsOneThatTakesAwayWhatOthersAreLinkedTo) {
    Damage("<TaskPredecessor>43</TaskPredecessor><TaskLeadTime>43|2</TaskLeadTime>", "");
    plan_.Output({"remove", "a.prx", "46"});
    plan_.Edit({"rename", "2", "Survey"});
}

}  // namespace prx_test
