#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Told.h"
#include "tests/tasks/Family.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// 1 House: a roof on Tuesday and a door on Thursday
template <class Base>
class RoofAndDoor : public Base {
public:
    RoofAndDoor() {
        this->Task("House").Task("Roof").Under("House").From(Tuesday).Costing(100);
        this->Task("Door").Under("House").From(Thursday).Costing(10);
        Settle(*this, {"House"});
    }
};

/// 1 Phase: a task of three days
template <class Base>
class OnlyChild : public Base {
public:
    OnlyChild() {
        this->Task("Phase").Task("Only").Under("Phase").From(Monday).Lasting(3).Costing(10);
        Settle(*this, {"Phase"});
    }
};

TEST(ChangeRemoveTaskParent, TakesTheOldParentForAPredecessorOfItsOnlyChild) {
    OnlyChild<LinkingPlan> plan;
    EXPECT_EQ(plan.col().ChangeRemoveTaskParent("2", "0", "1", "", "", "grid"), 0);
    EXPECT_EQ(Family(plan), "1 Phase\n2 Only\n");
    EXPECT_EQ(plan.Heard(), Costs(1, 0) + Costs(1, 0) + "IamASummary(1, False)\n" + Linked(2, 1, "1", "2") +
                                "IamASummary(1, False)\nOutented(2, 0, 1, grid)\n");
    EXPECT_EQ(Links(plan), "Phase -> Only\nOnly <- Phase|-3\n");
}

TEST(ChangeRemoveTaskParent, KeepsTellingTheOldParentOnceMoreWhereNoLinkIsStored) {
    OnlyChild<LinkingPlan> plan;
    plan.col().AutoLink(False);
    plan.col().ChangeRemoveTaskParent("2", "0", "1", "", "", "grid");
    EXPECT_EQ(plan.Heard(),
              Costs(1, 0) + Costs(1, 0) + "IamASummary(1, False)\nIamASummary(1, False)\nOutented(2, 0, 1, grid)\n");
    EXPECT_EQ(DayName(plan["Only"].TaskBDate()), DayName(Thursday));
    EXPECT_EQ(Links(plan), "");
}

TEST(ChangeRemoveTaskParent, LinksNothingWithoutLiveLinks) {
    OnlyChild<Plan> plan;
    EXPECT_EQ(plan.col().ChangeRemoveTaskParent("2", "0", "1", "", "", "grid"), 0);
    EXPECT_EQ(Family(plan), "1 Phase\n2 Only\n");
    EXPECT_EQ(plan.Heard(), Costs(1, 0) + Costs(1, 0) + "IamASummary(1, False)\nOutented(2, 0, 1, grid)\n");
    EXPECT_EQ(DayName(plan["Only"].TaskBDate()), DayName(Monday));
}

TEST(ChangeRemoveTaskParent, AsksForALinkToTheLastOfTheOldParentWhateverItFinds) {
    RoofAndDoor<Plan> plan;
    plan["Roof"].TaskLag(3);
    EXPECT_EQ(plan.col().ChangeRemoveTaskParent("3", "0", "1", "", "", "grid"), 0);
    EXPECT_EQ(Family(plan), "1 House: Roof\n2   -Roof\n3 Door\n");
    EXPECT_EQ(plan.Heard(), Costs(1, 100) + Costs(1, 100) + "IamASummary(1, True)\n" + Summed(1, Tuesday, Tuesday, 1) +
                                Unlinked(2, 3) + "Outented(3, 0, 1, grid)\n");
    EXPECT_EQ(plan["Roof"].TaskLag(), 0);
}

TEST(ChangeRemoveTaskParent, TakesOffTheFirstPredecessorAlone) {
    LinkingPlan plan;
    plan.Task("House").Task("Roof").Under("House").From(Tuesday).Task("Wall").Under("House").From(Tuesday);
    plan.Task("Door").Under("House").From(Thursday).After("Wall").After("Roof");
    Settle(plan, {"House"});
    plan.col().ChangeRemoveTaskParent("4", "0", "1", "", "", "grid");
    EXPECT_EQ(plan.Heard(), Costs(1, 0) + Costs(1, 0) + "IamASummary(1, True)\n" + Summed(1, Tuesday, Tuesday, 1) +
                                Unlinked(4, 3, "", "2") + "Outented(4, 0, 1, grid)\n");
    EXPECT_EQ(plan.col().PredessorAsString("4"), "2");
}

TEST(ChangeRemoveTaskParent, FreesTheLastOfTheOldParentFromTheLastOfTheTask) {
    LinkingPlan plan;
    plan.Task("House").Task("Group").Under("House").Task("Design").Under("Group").From(Monday);
    plan.Task("Roof").Under("House").From(Tuesday).After("Design");
    Settle(plan, {"Group"});

    plan.col().ChangeRemoveTaskParent("2", "0", "1", "", "", "grid");

    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), Costs(1, 0) + Moved(3, Monday, Monday, 1) + Moved(4, Tuesday, Tuesday, 1) +
                                Summed(1, Tuesday, Tuesday, 1) + Summed(2, Monday, Monday, 1) + Costs(1, 0) +
                                "IamASummary(1, True)\n" + Summed(1, Tuesday, Tuesday, 1) + Unlinked(4, 2, "", "3") +
                                Unlinked(4, 3) + "Outented(2, 0, 1, grid)\n");
}

TEST(ChangeRemoveTaskParent, LinksATaskAtTheTopBehindItsPredecessor) {
    RoofAndDoor<LinkingPlan> plan;
    plan.col().ChangeRemoveTaskParent("3", "0", "1", "", "2", "grid");
    EXPECT_EQ(plan.Heard(), Costs(1, 100) + Costs(1, 100) + "IamASummary(1, True)\n" + Summed(1, Tuesday, Tuesday, 1) +
                                Unlinked(2, 3) + Linked(3, 2, "2", "3") + "Outented(3, 0, 1, grid)\n");
    EXPECT_EQ(Links(plan), "Roof -> Door\nDoor <- Roof|1\n");
}

/// 1 House
/// 2   Group: a task on Tuesday
class Nested : public LinkingPlan {
public:
    Nested() {
        Task("House").Task("Group").Under("House").Task("Build").Under("Group").From(Tuesday);
        Settle(*this, {"Group"});
    }
    /// What is told while the task comes up into the house, before the chain is mended.
    String lifted = "IamASummary(1, True)\n" + Summed(1, Tuesday, Tuesday, 1) + Costs(3, 0) + Costs(1, 0) +
                    Costs(2, 0) + Costs(1, 0) + Costs(2, 0) + Costs(1, 0);
};

TEST(ChangeRemoveTaskParent, LinksATaskBelowTheTopBehindItsOldParent) {
    Nested plan;
    EXPECT_EQ(plan.col().ChangeRemoveTaskParent("3", "1", "2", "", "2", "grid"), 0);
    EXPECT_EQ(Family(plan), "1 House: Group Build\n2   -Group\n3   -Build\n");
    EXPECT_EQ(plan.Heard(), plan.lifted + "IamASummary(2, False)\n" + Linked(3, 2, "2", "3") +
                                "Outented(3, 1, 2, grid)\n" + Summed(1, Tuesday, Tuesday, 1));
    EXPECT_EQ(Links(plan), "Group -> Build\nBuild <- Group|-1\n");
}

TEST(ChangeRemoveTaskParent, LinksNothingBehindAnOldParentThatKeepsChildren) {
    Nested plan;
    plan.Task("Test").Under("Group").From(Tuesday);
    Settle(plan, {"Group"});
    plan.col().ChangeRemoveTaskParent("4", "1", "2", "", "3", "grid");
    EXPECT_EQ(Links(plan), "") << "a task with children is nobody's predecessor";
    const String heard = plan.Heard();
    EXPECT_TRUE(heard.ends_with("IamASummary(2, True)\n" + Summed(2, Tuesday, Tuesday, 1) +
                                Summed(1, Tuesday, Tuesday, 1) + Unlinked(3, 4) + "Outented(4, 1, 2, grid)\n" +
                                Summed(1, Tuesday, Tuesday, 1)))
        << heard;
}

TEST(ChangeRemoveTaskParent, LinksASuccessorBelowTheTopBehindTheTask) {
    Nested plan;
    plan.Task("Roof").Under("House").From(Wednesday);
    Settle(plan, {"House"});
    plan.col().ChangeRemoveTaskParent("3", "1", "2", "4", "", "grid");
    const String heard = plan.Heard();
    EXPECT_TRUE(heard.ends_with("IamASummary(2, False)\n" + Linked(3, 2, "2", "3") + "IamASummary(2, False)\n" +
                                Linked(4, 3, "3", "4") + "Outented(3, 1, 2, grid)\n" +
                                Summed(1, Tuesday, Wednesday, 2)))
        << heard;
    EXPECT_EQ(Links(plan), "Group -> Build\nBuild <- Group|-1\nBuild -> Roof\nRoof <- Build|0\n");
}

TEST(ChangeRemoveTaskParent, FreesASuccessorOfATaskAtTheTop) {
    OnlyChild<LinkingPlan> plan;
    plan.Task("Roof").From(Thursday).After("Only");
    plan.col().ChangeRemoveTaskParent("2", "0", "1", "3", "", "grid");
    EXPECT_EQ(plan.Heard(), Costs(1, 0) + Costs(1, 0) + "IamASummary(1, False)\n" + Linked(2, 1, "1", "2") +
                                "IamASummary(1, False)\n" + Unlinked(3, 2) + "Outented(2, 0, 1, grid)\n");
    EXPECT_EQ(Links(plan), "Phase -> Only\nOnly <- Phase|-3\n");
}

TEST(ChangeRemoveTaskParent, FreesASuccessorWhereEitherOfThemHasChildren) {
    Nested plan;
    plan.Task("Shed").Task("Wall").Under("Shed").From(Friday);
    plan["Shed"].TaskPredecessor()->Add("3", "3");
    plan["Build"].TaskSuccessor()->Add("4", "4");
    plan.Heard();
    plan.col().ChangeRemoveTaskParent("3", "1", "2", "4", "", "grid");
    EXPECT_EQ(Links(plan), "Group -> Build\nBuild <- Group|-1\n");
    plan.Heard();
}

TEST(ChangeRemoveTaskParent, LeavesLinksAndDatesOfABatchToTheCaller) {
    RoofAndDoor<LinkingPlan> plan;
    EXPECT_EQ(plan.col().ChangeRemoveTaskParent("3", "0", "1", "2", "2", "grid", True), 0);
    EXPECT_EQ(plan.Heard(), Costs(1, 100) + "Outented(3, 0, 1, grid)\n");

    Nested nested;
    nested.col().ChangeRemoveTaskParent("3", "1", "2", "", "2", "grid", True);
    EXPECT_EQ(nested.Heard(), "IamASummary(1, True)\n" + Costs(2, 0) + Costs(1, 0) + "Outented(3, 1, 2, grid)\n" +
                                  Summed(1, Tuesday, Tuesday, 1))
        << "but the new parent is adjusted";
}

TEST(ChangeRemoveTaskParent, KeepsTellingTheTopThatItIsNoSummaryWithoutAnOldParent) {
    RoofAndDoor<Plan> plan;
    plan.col().ChangeRemoveTaskParent("3", "0", "", "", "", "grid");
    EXPECT_EQ(Family(plan), "1 House: Roof\n2   -Roof\n3 Door\n");
    EXPECT_EQ(plan.Heard(), Costs(1, 100) + Costs(1, 100) + "IamASummary(0, False)\nOutented(3, 0, , grid)\n");

    RoofAndDoor<LinkingPlan> linked;
    linked.col().ChangeRemoveTaskParent("3", "0", "", "", "", "grid");
    EXPECT_EQ(linked.Heard(),
              Costs(1, 100) + Costs(1, 100) + "IamASummary(0, False)\nIamASummary(0, False)\nOutented(3, 0, , grid)\n");
}

TEST(ChangeRemoveTaskParent, RecordsATaskThatIsNotThereAndDoesNothingElse) {
    RoofAndDoor<LinkingPlan> plan;
    const String before = Family(plan);
    const String links = Links(plan);
    for (const char* parent : {"0", "1"}) {
        for (const char* old_parent : {"1", "2", "0", ""}) {
            for (const bool batch : {true, false}) {
                EXPECT_EQ(plan.col().ChangeRemoveTaskParent("77", parent, old_parent, "3", "2", "grid", batch), 0);
                EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeRemoveTaskParent 91\n");
                EXPECT_EQ(plan.Heard(), "") << parent << " " << old_parent;
            }
        }
    }
    EXPECT_EQ(Family(plan), before);
    EXPECT_EQ(Links(plan), links);
}

TEST(ChangeRemoveTaskParent, TellsASilencedHostTheDurationsAlone) {
    Plan plan;
    plan.Silenced().Task("House").Task("Roof").Under("House").From(Tuesday).Task("Door").Under("House").From(Thursday);
    plan.col().ChangeRemoveTaskParent("3", "0", "1", "", "", "grid");
    EXPECT_EQ(Family(plan), "1 House: Roof\n2   -Roof\n3 Door\n");
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 1, days, False, True)\n");
}

}  // namespace
}  // namespace mrlxmlclass
