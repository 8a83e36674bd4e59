#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- ValidPredecessor -----------------------------------------------------------------------------------------------

TEST(ValidPredecessor, AnswersByTheRulesOfALink) {
    struct Row {
        const char* what;
        const char* task;
        const char* predecessor;
        Boolean valid;
    };
    for (const Row& row : {
             Row{"any two", "1", "5", True},
             Row{"one that has children", "1", "2", False},
             Row{"a task with children waits", "2", "1", True},
             Row{"a child of the task", "3", "4", False},
             Row{"a grandchild of the task", "2", "4", True},
             Row{"the task itself", "5", "5", False},
             Row{"a loop of two", "1", "6", False},
             Row{"what is linked already", "6", "1", True},
             Row{"a loop of three", "1", "7", True},
             Row{"a predecessor that is not there", "1", "77", True},
             Row{"no predecessor", "1", "", True},
             Row{"a task that is not there", "77", "1", True},
             Row{"the top, whose child it is", "0", "1", False},
             Row{"no task, which counts as the top", "", "1", False},
             Row{"a word, which counts as the top", "x", "1", False},
             Row{"the top, and one that stands below a task", "0", "4", True},
         }) {
        SCOPED_TRACE(row.what);
        Plan plan;
        plan.WithLinks().Task("Before").Task("House").Task("Phase").Under("House").Task("Inside").Under("Phase");
        plan.Task("Last").Task("Build").After("Before").Task("Test").After("Build");
        EXPECT_EQ(plan.col().ValidPredecessor(row.task, row.predecessor), row.valid);
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(ValidPredecessor, TakesTheTaskByNumberWhereItLooksForTheParent) {
    Plan plan;
    plan.WithLinks().Task("Phase").Task("Inside").Under("Phase");
    EXPECT_EQ(plan.col().ValidPredecessor("01", "2"), False);
}

TEST(ValidPredecessor, AsksForDirectLinksWithoutMakingLists) {
    Plan plan;
    plan.WithLinks().Task("A").Task("B");
    plan.col().ValidPredecessor("1", "2");
    EXPECT_EQ(plan["A"].TaskPredecessorValid(), False);
    EXPECT_EQ(plan["B"].TaskPredecessorValid(), False);
}

// --- SetPredSucByPos ------------------------------------------------------------------------------------------------

TEST(SetPredSucByPos, SplicesTheTaskBetweenItsNeighbours) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Lasting(2).Task("B").From(Monday).Task("C").From(Wednesday).After("A");

    EXPECT_EQ(plan.col().SetPredSucByPos(2), True);

    EXPECT_EQ(Links(plan), "A -> B\nB <- A|-2\nB -> C\nC <- B|1\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 1, remove)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n"
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n");
}

TEST(SetPredSucByPos, TheFirstTimeMovesTheTaskAndNotTheNext) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Lasting(2).Task("B").From(Monday).Task("C").From(Wednesday).After("A");
    EXPECT_EQ(plan.col().SetPredSucByPos(2, "", True), True);
    EXPECT_EQ(Weeks(plan, 1),
              "A |##...  |\n"
              "B |..#..  |\n"
              "C |..#..  |\n");
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\nB -> C\nC <- B|-1\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 1, remove)\n"
              "DateStartChange(2, 2026-03-04, False, False)\n"
              "DateEndChange(2, 2026-03-04, False, False, days)\n"
              "DurationChange(2, 1, days, False, False)\n"
              "TaskDurationChange(2, 1, days, False, False)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n"
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n");
}

TEST(SetPredSucByPos, LinksTheLastTaskToTheOneAbove) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday);
    EXPECT_EQ(plan.col().SetPredSucByPos(2), True);
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\n");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\nPredecessorKeyChange(2, 1, add)\nSucessorChange(1, 2)\n");
}

TEST(SetPredSucByPos, TakesTheTaskThatIsNamedBetweenTheNeighboursOfTheRow) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Monday).Task("C").From(Monday).Task("Named").From(Monday);
    plan.col().SetPredSucByPos(2, "4");
    EXPECT_EQ(Links(plan), "A -> Named\nC <- Named|-1\nNamed <- A|-1\nNamed -> C\n");
}

TEST(SetPredSucByPos, StartsTheFirstOfAllToday) {
    LinkingPlan plan;
    plan.Task("A").From(Friday).Lasting(2).Task("B").From(Friday);
    plan.platform.clock.now = Tuesday + 0.5;

    EXPECT_EQ(plan.col().SetPredSucByPos(1), True);

    EXPECT_EQ(Weeks(plan, 1),
              "A |.##..  |\n"
              "B |....#  |\n");
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|1\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(1, 2026-03-03, False, False)\n"
              "DateEndChange(1, 2026-03-04, False, False, days)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(SetPredSucByPos, TheFirstTimeMovesTheNextBehindTheFirstOfAll) {
    LinkingPlan plan;
    plan.Task("A").From(Friday).Lasting(2).Task("B").From(Friday);
    plan.col().SetPredSucByPos(1, {}, True);
    EXPECT_EQ(Weeks(plan, 1),
              "A |##...  |\n"
              "B |..#..  |\n");
}

TEST(SetPredSucByPos, StartsTheFirstChildWithItsParentAndTakesThePlaceOfTheParentsLink) {
    LinkingPlan plan;
    plan.Task("Phase").From(Tuesday).Task("Design").Under("Phase").From(Friday).Lasting(2);
    plan.Task("Build").Under("Phase").From(Friday).After("Phase");

    EXPECT_EQ(plan.col().SetPredSucByPos(2), True);

    EXPECT_EQ(plan["Design"].TaskBDate(), Tuesday);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|1\n");
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, 2026-03-03, False, False)\n"
              "DateEndChange(2, 2026-03-04, False, False, days)\n"
              "SucessorChange(1, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 1, remove)\n"
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n");
}

TEST(SetPredSucByPos, LeavesTheLinksOfTheNextToOthersAlone) {
    LinkingPlan plan;
    plan.Task("Phase").From(Tuesday).Task("Design").Under("Phase").From(Friday);
    plan.Task("Last").From(Monday).Task("Build").Under("Phase").From(Friday).After("Last");
    plan["Build"].TaskPosition(3);
    plan["Last"].TaskPosition(4);
    plan.Heard();
    plan.col().SetPredSucByPos(2);
    EXPECT_EQ(Links(plan), "Design -> Build\nLast -> Build\nBuild <- Design|2 Last|3\n");
}

TEST(SetPredSucByPos, TakesTheStartOfTheFirstChildOfAParentWithoutOne) {
    LinkingPlan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Friday);
    EXPECT_EQ(plan.col().SetPredSucByPos(2), True);
    EXPECT_EQ(plan["Design"].TaskBDate(), Date());
    EXPECT_EQ(plan.Heard(),
              "DateStartChange(2, -, False, False)\n"
              "DateEndChange(2, 2026-03-06, False, False, days)\n");
}

TEST(SetPredSucByPos, DatesTheFirstForASilencedHostWithoutAWord) {
    Plan plan;
    plan.Silenced().WithLinks().Task("A").From(Friday).Task("B").From(Friday);
    plan.col().AutoLink(True);
    plan.col().SetPredSucByPos(1);
    EXPECT_EQ(plan["A"].TaskBDate(), Monday);
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|3\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SetPredSucByPos, TakesLinksOffButMakesNoneWithoutLiveLinks) {
    Plan plan;
    plan.Task("A").From(Monday).Task("B").From(Monday).Task("C").From(Friday).After("A");
    plan.col().SetPredSucByPos(2, {}, True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(3, )\nPredecessorKeyChange(3, 1, remove)\n");
}

TEST(SetPredSucByPos, KeepsFindingACandidateAboveTheFirstRow) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Friday).Task("Aside").From(Monday).Candidate();

    EXPECT_EQ(plan.col().SetPredSucByPos(1), True);

    EXPECT_EQ(Links(plan), "A -> B\nB <- A|3\n") << "told, the link to the candidate went again";
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(3, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 3, remove)\n"
              "SucessorChange(3, )\n"
              "PredecessorChange(1, )\n"
              "PredecessorKeyChange(1, 3, remove)\n"
              "PredecessorChange(1, )\n"
              "PredecessorKeyChange(1, 3, add)\n"
              "SucessorChange(3, )\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(SetPredSucByPos, RecordsARowWithoutATask) {
    for (const int row : {0, 3, 9, -5}) {
        SCOPED_TRACE(row);
        LinkingPlan plan;
        plan.Task("A").From(Monday).Task("B").From(Tuesday);
        EXPECT_EQ(plan.col().SetPredSucByPos(row), False);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/SetPredSucByPos 91\n");
        EXPECT_EQ(Links(plan), "");
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(SetPredSucByPos, RecordsRowsWhoseNeighboursNoIntegerHolds) {
    for (const int row : {32767, -32768}) {
        SCOPED_TRACE(row);
        LinkingPlan plan;
        plan.Task("A").From(Monday);
        EXPECT_EQ(plan.col().SetPredSucByPos(row, "1"), False);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/SetPredSucByPos 6\n");
    }
}

TEST(SetPredSucByPos, RecordsAParentThatIsNotThere) {
    LinkingPlan plan;
    plan.Task("A").From(Monday);
    plan["A"].ParentID(77);
    EXPECT_EQ(plan.col().SetPredSucByPos(1), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SetPredSucByPos 91\n");
    EXPECT_EQ(plan["A"].TaskBDate(), Monday);
}

// --- GetALLRelatedTask ----------------------------------------------------------------------------------------------

TEST(GetALLRelatedTask, ListsAllBelowATaskInOutlineOrder) {
    Plan plan;
    plan.Task("House").Task("Wall").Under("House").Task("Roof").Under("House").Task("Beam").Under("Roof");
    plan.Task("Brick").Under("Wall").Task("Garden");
    plan["Wall"].TaskPosition(4);
    plan["Roof"].TaskPosition(2);
    plan["Beam"].TaskPosition(3);
    Ref<Collection> related;
    EXPECT_EQ(plan.col().GetALLRelatedTask("1", related), True);
    ASSERT_TRUE(related) << "made for the caller";
    EXPECT_EQ(Listed(related), "3 4 2 5");
    EXPECT_EQ(related->Item("4"), Variant("4"));
    EXPECT_EQ(plan.Heard(), "");
}

TEST(GetALLRelatedTask, AddsToTheCallersCollection) {
    Plan plan;
    plan.Task("House").Task("Wall").Under("House");
    auto related = Make<Collection>();
    const Ref<Collection> same = related;
    related->Add("mine");
    EXPECT_EQ(plan.col().GetALLRelatedTask("1", related), True);
    EXPECT_EQ(Listed(same), "mine 2");
}

TEST(GetALLRelatedTask, GivesALeafAnEmptyCollection) {
    Plan plan;
    plan.Task("Leaf");
    Ref<Collection> related;
    EXPECT_EQ(plan.col().GetALLRelatedTask("1", related), True);
    ASSERT_TRUE(related);
    EXPECT_EQ(related->Count(), 0);
    EXPECT_EQ(plan.col().GetALLRelatedTask("1", {}), True);
}

TEST(GetALLRelatedTask, RecordsATaskThatIsNotThereAndAKeyThatIsListedAlready) {
    Plan plan;
    plan.Task("House").Task("Wall").Under("House");
    Ref<Collection> related;
    EXPECT_EQ(plan.col().GetALLRelatedTask("77", related), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetALLRelatedTask 91\n");
    plan.col().GetALLRelatedTask("1", related);
    EXPECT_EQ(plan.col().GetALLRelatedTask("1", related), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetALLRelatedTask 457\n");
    EXPECT_EQ(Listed(related), "2");
}

/// Lists what is below the first task of a plan in which the walk ends with that failure.
String ListedUntil(int number, Plan& plan) {
    const TimeLimit limit("listing a ring");
    Ref<Collection> related;
    EXPECT_EQ(plan.col().GetALLRelatedTask("1", related), True) << "of the outermost call";
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetALLRelatedTask " + std::to_string(number) + "\n");
    return Listed(related);
}

TEST(GetALLRelatedTask, EndsInARing) {
    Plan ring;
    BuildRing(ring);
    EXPECT_EQ(ListedUntil(failure::kEndlessWalk, ring), "2 1");

    Plan alone;
    BuildSelfParent(alone);
    EXPECT_EQ(ListedUntil(failure::kEndlessWalk, alone), "1");
}

TEST(GetALLRelatedTask, RecordsAChildThatTwoParentsListAsAKeyThatIsThereAlready) {
    Plan plan;
    plan.Task("House").Task("Wall").Under("House").Task("Roof").Under("House").Task("Gate").Under("House");
    plan.col().AddParentTask("3", "2");
    EXPECT_EQ(ListedUntil(failure::kDuplicateKey, plan), "2 3 4");
}

TEST(GetALLRelatedTask, ListsADeepOutlineOnASmallStack) {
    dom::OnSmallStack(
        [] {
            Plan plan;
            BuildChain(plan, 3000);
            Ref<Collection> related;
            EXPECT_EQ(plan.col().GetALLRelatedTask("1", related), True);
            EXPECT_EQ(related->Count(), 2999);
        },
        std::size_t{1} << 18U);
}

}  // namespace
}  // namespace mrlxmlclass
