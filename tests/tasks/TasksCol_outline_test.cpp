#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr int kDeep = 30'000;

/// 1 House
/// 2   Cellar
/// 3     Dig
/// 4     Pour
/// 5   Roof
/// 6 Garden
class HouseWithCellar : public Plan {
public:
    HouseWithCellar() {
        Task("House").Task("Cellar").Under("House").Task("Dig").Under("Cellar").Task("Pour").Under("Cellar");
        Task("Roof").Under("House").Task("Garden");
        for (const char* summary : {"House", "Cellar"}) (*this)[summary].TaskType(False);
    }
};

TEST(IsParent, AsksForChildrenOnly) {
    HouseWithCellar plan;
    EXPECT_TRUE(plan.col().isParent(plan.Key("Cellar")));
    EXPECT_FALSE(plan.col().isParent(plan.Key("Dig")));
    for (const char* key : {"", "0", "77", "abc"}) EXPECT_FALSE(plan.col().isParent(key)) << key;
}

TEST(IsParent, CountsACandidateThatStillHasChildren) {
    HouseWithCellar plan;
    plan["Cellar"].TaskCondidat(False);
    EXPECT_TRUE(plan.col().isParent(plan.Key("Cellar")));
}

TEST(Summary, IsATaskOfTheOutlineWithChildrenThatIsNoPlainRow) {
    HouseWithCellar plan;
    EXPECT_TRUE(plan.col().Summary(plan.Key("Cellar")));
    EXPECT_FALSE(plan.col().Summary(plan.Key("Garden")));
    EXPECT_FALSE(plan.col().Summary(""));
    plan["Cellar"].TaskType(True);
    EXPECT_FALSE(plan.col().Summary(plan.Key("Cellar")));
    plan["House"].TaskCondidat(False);
    EXPECT_FALSE(plan.col().Summary(plan.Key("House")));
}

TEST(GetTaskNumber, CountsChildrenAndNotGrandchildren) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetTaskNumber(1), 2);
    EXPECT_EQ(plan.col().GetTaskNumber(6), 0);
    EXPECT_EQ(plan.col().GetTaskNumber(77), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskNumber 91\n");
}

TEST(GetLevel, IsZeroAtTheTop) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetLevel(plan.Key("Garden")), 0);
    EXPECT_EQ(plan.col().GetLevel(plan.Key("Roof")), 1);
    EXPECT_EQ(plan.col().GetLevel(plan.Key("Dig")), 2);
}

TEST(GetLevel, RecordsATaskOrAParentThatIsNotThere) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetLevel("77"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLevel 91\n");
    plan["Cellar"].ParentID(77);
    EXPECT_EQ(plan.col().GetLevel(plan.Key("Dig")), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLevel 91\n");
}

TEST(GetLevel, KnowsATaskByTheIDThatItIsFiledUnder) {
    HouseWithCellar plan;
    plan.col().Add("abc");
    EXPECT_EQ(plan.col().GetLevel("abc"), 0);
}

TEST(GetLevel, StopsInARing) {
    Plan plan;
    BuildRing(plan);
    EXPECT_EQ(plan.col().GetLevel("1"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLevel 28\n");
}

TEST(GetLevel, StopsAtATaskThatIsItsOwnParent) {
    Plan plan;
    BuildSelfParent(plan);
    EXPECT_EQ(plan.col().GetLevel("1"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLevel 28\n");
}

TEST(GetFirstChildKey, IsTheChildRightBehindItsParent) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetFirstChildKey(plan.Key("House")), plan.Key("Cellar"));
    plan["Cellar"].TaskPosition(9);
    EXPECT_EQ(plan.col().GetFirstChildKey(plan.Key("House")), "");
    EXPECT_EQ(plan.col().GetFirstChildKey(plan.Key("Garden")), "");
}

TEST(GetFirstChildKey, TakesTheFirstOfTwoOnTheSameRow) {
    HouseWithCellar plan;
    plan["Roof"].TaskPosition(2);
    EXPECT_EQ(plan.col().GetFirstChildKey(plan.Key("House")), plan.Key("Cellar"));
}

TEST(GetFirstChildKey, RecordsATaskOrAChildThatIsNotThere) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetFirstChildKey("77"), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetFirstChildKey 91\n");
    plan.col().AddParentTask(plan.Key("Garden"), 77);
    EXPECT_EQ(plan.col().GetFirstChildKey(plan.Key("Garden")), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetFirstChildKey 91\n");
}

TEST(FirstChildInParent, IsNeverTrueAtTheTop) {
    HouseWithCellar plan;
    EXPECT_TRUE(plan.col().FirstChildInParent(plan.Key("Cellar")));
    EXPECT_TRUE(plan.col().FirstChildInParent(plan.Key("Dig")));
    EXPECT_FALSE(plan.col().FirstChildInParent(plan.Key("Roof")));
    EXPECT_FALSE(plan.col().FirstChildInParent(plan.Key("House")));
    plan["Dig"].ParentID(77);
    EXPECT_FALSE(plan.col().FirstChildInParent(plan.Key("Dig")));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/FirstChildInParent 91\n");
}

TEST(GetTaskKeyByPosition, FindsTheFirstTaskOfARowAndACandidateAtRowZero) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetTaskKeyByPosition(3), plan.Key("Dig"));
    EXPECT_EQ(plan.col().GetTaskKeyByPosition(7), "");
    EXPECT_EQ(plan.col().GetTaskKeyByPosition(0), "");
    plan["Garden"].TaskPosition(3);
    EXPECT_EQ(plan.col().GetTaskKeyByPosition(3), plan.Key("Dig"));
    plan.Task("Kept aside").Candidate();
    EXPECT_EQ(plan.col().GetTaskKeyByPosition(0), plan.Key("Kept aside"));
}

TEST(GetFirstLevelParentPosKey, ClimbsToTheTop) {
    HouseWithCellar plan;
    plan["House"].TaskPosition(11);
    EXPECT_EQ(plan.col().GetFirstLevelParentPosKey(plan.Key("Dig"), True), "1");
    EXPECT_EQ(plan.col().GetFirstLevelParentPosKey(plan.Key("Dig")), "11");
    EXPECT_EQ(plan.col().GetFirstLevelParentPosKey(plan.Key("Garden")), "6");
}

TEST(GetFirstLevelParentPosKey, StopsInARingAndAtAParentThatIsNotThere) {
    Plan plan;
    BuildRing(plan);
    EXPECT_EQ(plan.col().GetFirstLevelParentPosKey("2", True), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetFirstLevelParentPosKey 28\n");
    plan["A"].ParentID(77);
    EXPECT_EQ(plan.col().GetFirstLevelParentPosKey("2", True), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetFirstLevelParentPosKey 91\n");
}

TEST(GetLastParentPosKey, IsTheAncestorOnTheLevelBelowTheSharedParent) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetLastParentPosKey(plan.Key("Dig"), plan.Key("House"), True), plan.Key("Cellar"));
    EXPECT_EQ(plan.col().GetLastParentPosKey(plan.Key("Dig"), plan.Key("House")), "2");
    EXPECT_EQ(plan.col().GetLastParentPosKey(plan.Key("Dig"), plan.Key("Cellar"), True), plan.Key("Dig"));
    EXPECT_EQ(plan.col().GetLastParentPosKey(plan.Key("Dig"), "0", True), plan.Key("House"));
    EXPECT_EQ(plan.col().GetLastParentPosKey(plan.Key("Dig"), "", True), plan.Key("House"));
    EXPECT_EQ(plan.col().GetLastParentPosKey("0", plan.Key("House")), "");
}

TEST(GetLastParentPosKey, ComparesTheSharedParentAsANumber) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetLastParentPosKey(plan.Key("Dig"), "02", True), plan.Key("Dig"));
}

TEST(GetLastParentPosKey, StopsInARing) {
    Plan plan;
    BuildRing(plan);
    EXPECT_EQ(plan.col().GetLastParentPosKey("1", "77", True), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLastParentPosKey 28\n");
}

TEST(GetTaskAndSubNumber, GivesTheHighestRowOfASubtree) {
    HouseWithCellar plan;
    Integer highest = 0;
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("House"), False, highest), 5);
    EXPECT_EQ(highest, 5);
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("Cellar")), 4);
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("Garden")), 6);
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(""), 0);
}

TEST(GetTaskAndSubNumber, StartsFromTheRowThatIsHandedIn) {
    HouseWithCellar plan;
    Integer highest = 9;
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("House"), False, highest), 9);
    EXPECT_EQ(highest, 9);
}

TEST(GetTaskAndSubNumber, GivesTheKeyOfTheLastLeafAndNotOfTheParent) {
    HouseWithCellar plan;
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("House"), True), plan.Number("Roof"));
    plan["Roof"].TaskPosition(0);
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("House"), True), plan.Number("Pour"));
}

TEST(GetTaskAndSubNumber, CountsABranchThatFailsAsNothingAndGoesOn) {
    HouseWithCellar plan;
    plan.col().AddParentTask(plan.Key("Cellar"), 77);  // a third child, which is no task
    Integer highest = 0;
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("House"), False, highest), 5);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTasksAsKeys 91\nTasksCol/GetTaskAndSubNumber 91\n");
    EXPECT_EQ(plan.col().GetTaskAndSubNumber("77"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskAndSubNumber 91\n");
}

/// 1 A
/// 2   B (1 child)
/// 3     the child
/// 4   C (1 child)
/// 5     the child
/// 6   Last
class TwoPairs : public Plan {
public:
    TwoPairs() {
        Task("A").Task("B").Under("A").Task("Below B").Under("B").Task("C").Under("A").Task("Below C").Under("C");
        Task("Last").Under("A");
        col().SetPhases();
        Heard();
    }
    /// Makes it a candidate that stays in its parent's list.
    void SetAside(const String& name) { col().Remove(Key(name), {}, {}, {}, {}, {}, {}, False); }
};

TEST(GetTaskAndSubNumber, GoesOnPastAnyNumberOfChildrenThatAreNoTasks) {
    TwoPairs plan;
    for (const char* name : {"Below B", "Below C"}) {
        plan.SetAside(name);
        plan.col().Remove(plan.Key(name), {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True);
    }
    plan.failures.Taken();
    EXPECT_EQ(plan.col().Count(True), 4);
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("A"), True), plan.Number("Last"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskAndSubNumber 91\nTasksCol/GetTaskAndSubNumber 91\n");
}

TEST(GetTaskAndSubNumber, TakesAChildThatStandsInSeveralLists) {
    TwoPairs plan;
    for (const char* name : {"Below B", "Below C"}) {
        plan.SetAside(name);
        for (const char* parent : {"B", "C"}) plan.col().AddParentTask(plan.Key(parent), plan.Key(name));
    }
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("A"), True), plan.Number("Last"));
    EXPECT_EQ(plan.col().GetTaskAndSubNumber(plan.Key("A")), 6);
}

TEST(GetTaskAndSubNumber, EndsWhereTheListsMultiplyBeyondMeasure) {
    const TimeLimit limit("lists that multiply");
    Plan plan;
    constexpr int kLevels = 40;
    for (int i = 1; i <= 2 * kLevels; ++i) plan.Task(std::to_string(i));
    for (int level = 0; level + 1 < kLevels; ++level) {
        for (const int above : {1, 2}) {
            for (const int below : {3, 4}) plan.col().AddParentTask(2 * level + above, 2 * level + below);
        }
    }
    plan.col().GetTaskAndSubNumber("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskAndSubNumber 28\n");
}

TEST(GetTaskAndSubNumber, CountsALeafBeyondTheRangeAsNothingAndGoesOn) {
    Plan plan;
    plan.Task("Phase").Task("Near").Under("Phase");
    plan["Near"].TaskPosition(3);
    const auto far = Make<TasksCls>();
    far->TaskKey(40000);
    far->TaskPosition(2);
    plan.col().AddItem(far);
    plan.col().AddParentTask(1, 40000);

    EXPECT_EQ(plan.col().GetTaskAndSubNumber("1", True), 2);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskAndSubNumber 6\n");
}

TEST(GetTaskAndSubNumber, TellsARingOnceHoweverManyTasksHangOnIt) {
    Plan plan;
    BuildRing(plan);
    for (int i = 0; i < 50; ++i) plan.Task("Leaf " + std::to_string(i)).Under("B");
    plan.col().GetTaskAndSubNumber("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskAndSubNumber 28\n");
}

TEST(GetTaskAndSubNumber, StopsAtATaskThatIsItsOwnChild) {
    Plan plan;
    BuildSelfParent(plan);
    EXPECT_EQ(plan.col().GetTaskAndSubNumber("1", True), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTaskAndSubNumber 28\n");
}

TEST(CanbeLeveled, IsTrueWhileTheLineOfFirstChildrenStaysBelowTen) {
    Plan plan;
    BuildChain(plan, 11);
    EXPECT_TRUE(plan.col().CanbeLeveled("2", "0")) << "nine levels below it";
    EXPECT_FALSE(plan.col().CanbeLeveled("1", "0")) << "ten levels below it";
    EXPECT_FALSE(plan.col().CanbeLeveled("1", ""));
}

TEST(CanbeLeveled, FollowsOnlyTheLineOfFirstChildren) {
    Plan plan;
    plan.Task("Top").Task("First").Under("Top").Task("Second").Under("Top");
    String parent = "Second";
    for (int i = 0; i < 12; ++i) {
        const String name = "Deep " + std::to_string(i);
        plan.Task(name).Under(parent);
        parent = name;
    }
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Top"), "0"));
}

TEST(CanbeLeveled, AddsTheLineOfANewParentThatHasChildren) {
    Plan plan;
    BuildChain(plan, 9);  // a line of eight below "1"
    plan.Task("Leaf").Under("1").Task("Pair").Task("Child").Under("Pair");
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Pair"), "1")) << "1 + 8";
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Leaf"), "1")) << "0 + 9";
    plan.Task("10").Under("9");
    plan["10"].TaskPosition(10);
    EXPECT_FALSE(plan.col().CanbeLeveled(plan.Key("Pair"), "1")) << "1 + 9";
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Leaf"), "1")) << "0 + 9";
}

TEST(CanbeLeveled, AddsTheWayUpFromALeafAsNewParent) {
    Plan plan;
    BuildChain(plan, 10);
    plan.Task("Pair").Task("Child").Under("Pair").Task("Trio").Task("Middle").Under("Trio").Task("Low").Under("Middle");
    plan["Child"].TaskPosition(12);
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Pair"), "9")) << "1 + the line of one below 9";
    EXPECT_FALSE(plan.col().CanbeLeveled(plan.Key("Pair"), "10")) << "1 + 1 + 9 for the level below 9";
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Child"), "10")) << "0 + 9";
}

TEST(CanbeLeveled, IsFalseForALeafBelowTheTenthLevel) {
    Plan plan;
    BuildChain(plan, 11);
    plan.Task("Trio").Task("Low").Under("Trio");
    EXPECT_FALSE(plan.col().CanbeLeveled(plan.Key("Low"), "11")) << "0 + 10";
}

TEST(CanbeLeveled, KeepsCountingTheLineBelowATopLevelTaskAsTheWayUp) {
    Plan plan;
    BuildChain(plan, 9);  // a line of eight below "1"
    plan.Task("Leaf").Under("1").Task("Pair").Task("Child").Under("Pair");
    EXPECT_FALSE(plan.col().CanbeLeveled(plan.Key("Pair"), plan.Key("Leaf"))) << "1 + 1 + 8, for a depth of two";
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Child"), plan.Key("Leaf"))) << "0 + 9";
}

TEST(CanbeLeveled, CountsALeafFromItsParentUp) {
    Plan plan;
    BuildChain(plan, 12);
    EXPECT_FALSE(plan.col().CanbeLeveled("12", "")) << "ten steps above its parent";
    plan.Task("Leaf").Under("10");
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Leaf"), "")) << "nine steps above its parent";
    plan.Task("Single");
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Single"), "11")) << "a leaf at the top counts 0, whatever the parent";
}

TEST(CanbeLeveled, AddsNothingForASiblingOrATopLevelLeafAsNewParent) {
    Plan plan;
    plan.Task("Top").Task("A").Under("Top").Task("B").Under("Top").Task("Alone");
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("A"), plan.Key("Alone")));
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("Top"), plan.Key("Alone")));
    EXPECT_TRUE(plan.col().CanbeLeveled("", plan.Key("Alone")));
    EXPECT_TRUE(plan.col().CanbeLeveled(plan.Key("A"), "77")) << "no such parent";

    Plan deep;
    BuildChain(deep, 6);
    deep.Task("A").Under("6").Task("B").Under("6");
    EXPECT_TRUE(deep.col().CanbeLeveled(deep.Key("A"), deep.Key("B"))) << "five steps above their parent, once";
}

TEST(CanbeLeveled, StopsInARing) {
    Plan plan;
    BuildRing(plan);
    plan["A"].TaskPosition(1);
    plan.Task("Leaf").Under("B");
    EXPECT_FALSE(plan.col().CanbeLeveled(plan.Key("Leaf"), "0"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CanbeLeveled 28\n");
    EXPECT_FALSE(plan.col().CanbeLeveled("77", "0"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CanbeLeveled 91\n");
}

TEST(Outline, IsClimbedAndDescendedAtAnyDepthOnASmallStack) {
    dom::OnSmallStack([] {
        Plan plan;
        BuildChain(plan, kDeep);
        const String bottom = std::to_string(kDeep);
        EXPECT_EQ(plan.col().GetLevel(bottom), kDeep - 1);
        EXPECT_EQ(plan.col().GetFirstLevelParentPosKey(bottom, True), "1");
        EXPECT_EQ(plan.col().GetLastParentPosKey(bottom, "1", True), "2");
        EXPECT_EQ(plan.col().GetTaskAndSubNumber("1", True), kDeep);
        EXPECT_EQ(plan.col().GetTaskAndSubNumber("1"), kDeep);
        EXPECT_FALSE(plan.col().CanbeLeveled("1", "0"));
        EXPECT_FALSE(plan.col().CanbeLeveled(bottom, ""));
    });
}

}  // namespace
}  // namespace mrlxmlclass
