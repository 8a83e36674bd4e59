#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Interruption.h"
#include "tests/support/Links.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

int CountOf(const String& text, std::string_view what) {
    int count = 0;
    for (std::size_t at = text.find(what); at != String::npos; at = text.find(what, at + 1)) ++count;
    return count;
}

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

/// T waits for thousands of keys that find no task, as a damaged file may say.
class Flooded : public Plan {
public:
    explicit Flooded(int count) {
        WithLinks().Task("T");
        const Ref<Collection> predecessors = (*this)["T"].TaskPredecessor();
        for (int key = 100'000; key < 100'000 + count; ++key)
            predecessors->Add(std::to_string(key), std::to_string(key));
    }
};

TEST(PredessorAsString, EndsInOneFailureWhereStaleLinksMultiplyBeyondMeasure) {
    const TimeLimit limit("ten thousand stale links");
    Flooded plan(10'000);
    EXPECT_EQ(plan.col().PredessorAsString("1"), "");
    EXPECT_EQ(CountOf(plan.failures.Taken(), " 28\n"), 1);
    plan.Heard();
}

TEST(RemoveTask, TakesThousandsOfStaleLinksOffInOneWalkThatFailsOnce) {
    const TimeLimit limit("the removal of a task with two thousand stale links");
    Flooded plan(2'000);
    plan.Task("Design");
    plan["T"].TaskPredecessor()->Add("2", "2");
    plan["Design"].TaskSuccessor()->Add("1", "1");
    plan.col().SetPhases();
    const Ref<TasksCls> task = plan.col().Item(1);
    plan.col().Remove("1", {}, {}, {}, {}, {}, {}, True);
    EXPECT_EQ(plan.col().Count(True), 1);
    EXPECT_EQ(task->TaskPredecessor()->Count(), 0);
    EXPECT_EQ(Links(plan), "") << "the last link, to a task that is there, goes too";
    EXPECT_EQ(CountOf(plan.failures.Taken(), " 28\n"), 1);
    plan.Heard();
}

TEST(PredessorAsString, SeparatesWhatStandsBehindAnUnnamedTask) {
    LinkingPlan plan;
    plan.Task("X").Task("B").Task("").Task("T").After("X").After("B").After("");
    plan["X"].TaskName("");
    EXPECT_EQ(plan.col().PredessorAsString("4", True), ", B, ");
    EXPECT_EQ(plan.col().PredessorAsString("4"), "1, 2, 3");
}

TEST(SucessorAsString, SeparatesWhatStandsBehindAnUnnamedTask) {
    LinkingPlan plan;
    plan.Task("T").Task("X").After("T").Task("B").After("T");
    plan["X"].TaskName("");
    EXPECT_EQ(plan.col().SucessorAsString("1", True), ", B");
}

// --- A handler that silences the rest --------------------------------------------------------------------------------

/// Design, for which Build waits or will.
struct Pair : LinkingPlan {
    explicit Pair(bool linked) {
        Task("Design").From(Monday).Task("Build").From(Friday);
        if (linked) After("Design");
        Heard();
    }
};

TEST(AddTaskPredecessor, TellsNothingMoreOnceAHandlerHasSilencedIt) {
    Pair first(/*linked=*/false);
    {
        const Interruption host(first, "PredecessorChange", 2, [] { Module().g_SourcePrima = True; });
        EXPECT_EQ(first.col().AddTaskPredecessor("2", "1"), True);
        EXPECT_EQ(first.Heard(), "PredecessorChange(2, 1)\n");
    }
    Pair second(/*linked=*/false);
    const Interruption host(second, "PredecessorKeyChange", 2, [] { Module().g_SourcePrima = True; });
    EXPECT_EQ(second.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(second.Heard(), "PredecessorChange(2, 1)\nPredecessorKeyChange(2, 1, add)\n");
}

TEST(RemoveTaskPredecessor, TellsNothingMoreOnceAHandlerHasSilencedIt) {
    Pair first(/*linked=*/true);
    {
        const Interruption host(first, "SucessorChange", 1, [] { Module().g_SourcePrima = True; });
        EXPECT_EQ(first.col().RemoveTaskPredecessor("2", "1"), True);
        EXPECT_EQ(first.Heard(), "SucessorChange(1, )\n");
    }
    Pair second(/*linked=*/true);
    const Interruption host(second, "PredecessorChange", 2, [] { Module().g_SourcePrima = True; });
    EXPECT_EQ(second.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(second.Heard(), "SucessorChange(1, )\nPredecessorChange(2, )\n");
}

TEST(RemoveTaskPredecessor, TellsNoTextWhoseMakingWasSilenced) {
    Plan plan;
    plan.WithLinks().Task("Aside").Candidate().Task("Design").Task("Build").After("Aside").After("Design");
    plan.Heard();
    const Interruption host(plan, "PredecessorKeyChange", 3, [] { Module().g_SourcePrima = True; });
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("3", "2"), True);
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(2, )\n"
              "SucessorChange(1, )\nPredecessorChange(3, )\nPredecessorKeyChange(3, 1, remove)\n")
        << "the stale one's, which came first";
}

TEST(NotifyPredecessorChange, TellsNoTextWhoseMakingWasSilenced) {
    Plan plan;
    plan.WithLinks().Task("Aside").Candidate().Task("Build").After("Aside");
    plan.Heard();
    const Interruption host(plan, "SucessorChange", 1, [] { Module().g_SourcePrima = True; });
    In(plan.col()).NotifyPredecessorChange("2");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\n");
}

}  // namespace
}  // namespace mrlxmlclass
