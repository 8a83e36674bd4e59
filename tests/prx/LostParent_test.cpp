#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 First (2 A (3 B)), 4 Second; the parent of A is lost.
class LostParent : public testing::Test {
protected:
    LostParent() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "First"});
        plan_.Output({"add", "a.prx", "A", "--under", "First"});
        plan_.Output({"add", "a.prx", "B", "--under", "A"});
        plan_.Output({"add", "a.prx", "Second"});
        Become("777");
    }
    /// The parent of A.
    void Become(const std::string& parent) const {
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, "<ParentID>1</ParentID>", "<ParentID>" + parent + "</ParentID>"));
        EXPECT_NE(plan_.Read("a.prx"), whole);
    }

    const PlanFolder plan_;
};

}  // namespace

TEST_F(LostParent, IsNoLoss) {
    const std::string told = plan_.Refused({"rename", "B", "C"});
    EXPECT_EQ(told, "prx: " + plan_.Path("a.prx") +
                        ": nothing of this project is lost, but it is in disorder, so that a change may go wrong:\n"
                        "  The object is not set (91 in TasksCol.AddTaskParentForAll)\n"
                        "Look at it with \"prx check\"; --force goes on all the same.\n");
}

TEST_F(LostParent, IsTheReasonWhyATaskDoesNotMove) {
    const std::string reason = "prx: \"A\" belongs to task 777, which is not there\n";
    EXPECT_EQ(plan_.Refused({"phase", "A", "--force"}), reason);
    EXPECT_EQ(plan_.Refused({"phase", "B", "--force"}), reason);
    EXPECT_EQ(plan_.Refused({"outdent", "A", "--force"}), reason);
    EXPECT_EQ(plan_.Refused({"move", "A", "--under", "Second", "--force"}), reason);
    EXPECT_EQ(plan_.Refused({"move", "Second", "--under", "B", "--force"}), reason);
    EXPECT_EQ(plan_.Refused({"add", "C", "--under", "B", "--force"}), reason);
}

TEST_F(LostParent, LetsEditsElsewherePass) {
    plan_.Output({"rename", "a.prx", "Second", "Last", "--force"});
    for (const char* name : {"B", "A"}) plan_.Output({"remove", "a.prx", name, "--force"});
    plan_.Output({"check", "a.prx"});
    EXPECT_EQ(plan_.Drawing(), "1 First\n2 Last\n");
}

TEST(RingOfParents, IsToldByItsName) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    plan.Output({"add", "a.prx", "First"});
    plan.Output({"add", "a.prx", "A", "--under", "First"});
    plan.Output({"add", "a.prx", "Second"});
    plan.Write("a.prx", Replaced(plan.Read("a.prx"), "<ParentID>1</ParentID>", "<ParentID>2</ParentID>"));
    EXPECT_EQ(plan.Refused({"phase", "A", "--force"}), "prx: the parents of \"A\" run in a circle\n");
}

}  // namespace prx_test
