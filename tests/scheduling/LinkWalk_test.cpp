#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Links.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A task that waits for that many candidates.
class Stale : public Plan {
public:
    explicit Stale(int count) {
        WithLinks();
        for (int i = 0; i < count; ++i) Task("Aside" + std::to_string(i)).Candidate();
        Task("T");
        for (int i = 0; i < count; ++i) After("Aside" + std::to_string(i));
        yields_before_ = platform.ui.yields;
    }
    /// Each removal yields to the host once.
    int Removals() const { return platform.ui.yields - yields_before_; }

private:
    int yields_before_ = 0;
};

TEST(PredessorAsString, KeepsRemovingAgainWhatAReadingFromWithinRemoved) {
    for (const int count : {1, 2, 3, 10}) {
        SCOPED_TRACE(count);
        Stale plan(count);
        EXPECT_EQ(plan.col().PredessorAsString(plan.Key("T")), "");
        EXPECT_EQ(Links(plan), "");
        EXPECT_EQ(plan.Removals(), count * (count + 1) / 2) << "all, then all but one from within, and so on";
    }
}

TEST(PredessorAsString, ComesBackIntoItselfHundredsOfTimesOnASmallStack) {
    dom::OnSmallStack(
        [] {
            Stale plan(400);
            EXPECT_EQ(plan.col().PredessorAsString(plan.Key("T")), "");
            EXPECT_EQ(plan.Removals(), 400 * 401 / 2);
            plan.Heard();
        },
        std::size_t{1} << 18U);
}

TEST(RemoveTaskPredecessor, DropsHundredsOfStaleLinksOnASmallStack) {
    dom::OnSmallStack(
        [] {
            Stale plan(400);
            plan.Task("Design");
            EXPECT_EQ(plan.col().RemoveTaskPredecessor(plan.Key("T"), plan.Key("Design")), True);
            EXPECT_EQ(Links(plan), "");
            plan.Heard();
        },
        std::size_t{1} << 18U);
}

}  // namespace
}  // namespace mrlxmlclass
