#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- GetLinkedTask --------------------------------------------------------------------------------------------------

/// Copies of task 1 and of task 2, at the top and under "Phase", and others that only look like it.
class Copies : public Plan {
public:
    Copies() {
        Task("Phase");
        Link("Top of 1", "1");
        Link("Below of 1", "1");
        Under("Phase");
        Link("Of 2", "2");
        Link("Similar", "fs1S");
        Task("Other").Task("Free");
        String other = "web";
        (*this)["Other"].SetTaskLink("1", other);
    }
    String Found(const String& key, const String& parent = {}, const Variant& similar = False, const String& sup = {}) {
        const Ref<TasksCol> found = col().GetLinkedTask(key, parent, similar, sup);
        String names;
        for (const auto& entry : found->NewEnum()) names += (names.empty() ? "" : ", ") + entry.item->TaskName();
        return names;
    }
    /// The names of the tasks that still have a link text.
    String StillLinked() const {
        String names;
        for (const auto& entry : col().NewEnum()) {
            if (!entry.item->TaskLink().empty()) names += (names.empty() ? "" : ", ") + entry.item->TaskName();
        }
        return names;
    }

private:
    void Link(const String& name, const String& value) {
        Task(name);
        String marker = "mrl";
        (*this)[name].SetTaskLink(value, marker);
    }
};

TEST(GetLinkedTask, FindsTheTasksWhoseLinkNamesATask) {
    Copies plan;
    EXPECT_EQ(plan.Found("1"), "Top of 1, Below of 1");
    EXPECT_EQ(plan.Found("2"), "Of 2");
    EXPECT_EQ(plan.Found("3"), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(GetLinkedTask, FindsOnlyThoseBelowAParentThatIsGiven) {
    Copies plan;
    EXPECT_EQ(plan.Found("1", "1"), "Below of 1");
    EXPECT_EQ(plan.Found("1", "0"), "Top of 1");
    EXPECT_EQ(plan.Found("1", "77"), "");
    EXPECT_EQ(plan.Found("1", "01"), "") << "parents are compared to the letter";
}

TEST(GetLinkedTask, FindsSimilarTasksByTheirWholeLink) {
    Copies plan;
    EXPECT_EQ(plan.Found("1", "", True, "S"), "Similar");
    EXPECT_EQ(plan.Found("1", "0", True, "S"), "Similar");
    EXPECT_EQ(plan.Found("1", "1", True, "S"), "");
    EXPECT_EQ(plan.Found("1", "", True), "");
    EXPECT_EQ(plan.Found("1", "", False, "S"), "Top of 1, Below of 1") << "without it the last key plays no part";
    EXPECT_EQ(plan.Found("fs1S"), "Similar");
}

TEST(GetLinkedTask, FindsNothingForAnAnswerThatIsNeither) {
    Copies plan;
    EXPECT_EQ(plan.Found("1", "", Long(5)), "");
    EXPECT_EQ(plan.Found("1", "", Long(1)), "");
    EXPECT_EQ(plan.failures.Taken(), "");
}

TEST(GetLinkedTask, ReadsTheFieldBehindTheLastOneThatHoldsTheMarker) {
    Plan plan;
    plan.Task("Task");
    plan["Task"].TaskLink("web:|LINK|9|LINK|a mrl b|LINK|4|LINK|mrl:|LINK|5|LINK|6");
    EXPECT_EQ(plan.col().GetLinkedTask("5")->Count(True), 1);
    EXPECT_EQ(plan.col().GetLinkedTask("4")->Count(True), 0);
    EXPECT_EQ(plan.col().GetLinkedTask("9")->Count(True), 0);
}

TEST(GetLinkedTask, GivesClonesThatShareTheirLists) {
    Copies plan;
    plan["Top of 1"].TaskPredecessor()->Add("1", "1");
    const Ref<TasksCol> found = plan.col().GetLinkedTask("1");
    const Ref<TasksCls> clone = found->Item("2");
    ASSERT_TRUE(clone);
    EXPECT_TRUE(clone->isPredecessor("1"));
    clone->TaskName("Renamed");
    EXPECT_EQ(plan["Top of 1"].TaskName(), "Top of 1");
    EXPECT_FALSE(found->oPublicStaticCls);
}

TEST(GetLinkedTask, FindsCandidates) {
    Copies plan;
    plan["Top of 1"].TaskCondidat(False);
    EXPECT_EQ(plan.Found("1"), "Top of 1, Below of 1");
}

TEST(GetLinkedTask, KeepsFindingEveryTaskWithoutALinkForNoKey) {
    Copies plan;
    EXPECT_EQ(plan.Found(""), "Phase, Other, Free");
}

// --- RemoveLinkedTask -----------------------------------------------------------------------------------------------

TEST(RemoveLinkedTask, EmptiesTheLinkOfEachMatch) {
    Copies plan;
    EXPECT_EQ(In(plan.col()).RemoveLinkedTask("1"), False);
    EXPECT_EQ(plan.StillLinked(), "Of 2, Similar, Other");
    EXPECT_EQ(plan["Top of 1"].TaskLink(), "");
    EXPECT_EQ(plan["Top of 1"].TaskLinkValid(), True);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveLinkedTask, MatchesAsTheSearchDoes) {
    Copies plan;
    In(plan.col()).RemoveLinkedTask("1", "1");
    EXPECT_EQ(plan.StillLinked(), "Top of 1, Of 2, Similar, Other");
    In(plan.col()).RemoveLinkedTask("1", "", True, "S");
    EXPECT_EQ(plan.StillLinked(), "Top of 1, Of 2, Other");
    In(plan.col()).RemoveLinkedTask("2", "", Long(5));
    EXPECT_EQ(plan.StillLinked(), "Top of 1, Of 2, Other");
}

// --- GetNonChildSuccessor -------------------------------------------------------------------------------------------

TEST(GetNonChildSuccessor, ListsTheChildrenForWhichATaskDoesNotWait) {
    Plan plan;
    plan.WithLinks().Task("Phase").Task("A").Under("Phase").Task("B").Under("Phase").Task("C").Under("Phase");
    plan.After("A").Task("Outside").After("B");
    const auto listed = [&](const char* successor) {
        return Listed(In(plan.col()).GetNonChildSuccessor("1", successor));
    };
    EXPECT_EQ(listed("4"), "3") << "neither itself nor A, for which it waits";
    EXPECT_EQ(listed("5"), "2 4");
    EXPECT_EQ(listed("77"), "2 3 4");
}

TEST(GetNonChildSuccessor, HoldsEachKeyUnderItself) {
    Plan plan;
    plan.WithLinks().Task("Phase").Task("A").Under("Phase");
    const Ref<Dictionary> found = In(plan.col()).GetNonChildSuccessor("1", "1");
    ASSERT_EQ(found->Count(), 1);
    const auto entries = found->Snapshot();
    for (const auto& entry : entries) EXPECT_EQ(entry.item.Key().text(), entry.key.Key().text());
}

TEST(GetNonChildSuccessor, IsEmptyForALeaf) {
    Plan plan;
    plan.WithLinks().Task("Leaf");
    EXPECT_EQ(Listed(In(plan.col()).GetNonChildSuccessor("1", "2")), "");
}

// --- NotifyLinkChange, NotifyPredecessorChange ----------------------------------------------------------------------

TEST(NotifyLinkChange, TellsBothSidesAsTheyStand) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design").Task("Test").After("Build");
    In(plan.col()).NotifyLinkChange("2", "1");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\nSucessorChange(1, 2)\n");
    In(plan.col()).NotifyLinkChange("1", "3");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(1, )\nSucessorChange(3, )\n") << "linked or not";
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\nBuild -> Test\nTest <- Build|0\n");
}

TEST(NotifyLinkChange, TellsOneSideWithoutAnother) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design");
    In(plan.col()).NotifyLinkChange("2", "");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\n");
    In(plan.col()).NotifyPredecessorChange("2");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\n");
}

TEST(NotifyLinkChange, DropsStaleLinksOnTheWay) {
    Plan plan;
    plan.WithLinks().Task("Aside").Task("Build").After("Aside");
    plan["Aside"].TaskCondidat(False);
    In(plan.col()).NotifyPredecessorChange("2");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "PredecessorChange(2, )\n");
}

TEST(NotifyLinkChange, SaysNothingToASilencedHost) {
    Plan plan;
    plan.Silenced().WithLinks().Task("Aside").Task("Build").After("Aside");
    plan["Aside"].TaskCondidat(False);
    In(plan.col()).NotifyLinkChange("2", "1");
    In(plan.col()).NotifyPredecessorChange("2");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Links(plan), "Aside -> Build\nBuild <- Aside|0\n") << "nothing is read, so nothing is dropped";
}

}  // namespace
}  // namespace mrlxmlclass
