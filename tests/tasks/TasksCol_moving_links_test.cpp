#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Told.h"
#include "tests/tasks/Family.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// 1 Other
/// 2 Design on Monday to Wednesday
/// 3 Build on Thursday, which waits for it
class Chain : public LinkingPlan {
public:
    Chain() {
        Task("Other").From(Friday).Task("Design").From(Monday).Lasting(3);
        Task("Build").From(Thursday).After("Design");
    }
};

TEST(ChangeTaskParent, MakesAParentOfAPredecessorBesideTheTask) {
    Chain plan;
    String parent = "1";

    EXPECT_EQ(plan.col().ChangeTaskParent("3", parent, "", "", "2", True, "indent", "grid"), 1);

    EXPECT_EQ(parent, "2");
    EXPECT_EQ(Family(plan), "1 Other\n2 Design: Build\n3   -Build\n");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(),
              Unlinked(3, 2) + "IamASummary(2, True)\n" + Moved(3, Monday, Monday, 1) + "Indented(3, 2, grid)\n");
    EXPECT_EQ(DayName(plan["Design"].TaskEDate()), DayName(Wednesday)) << "the new parent keeps its span";
}

TEST(ChangeTaskParent, LetsWhatWaitsForTheTaskFollowIt) {
    Chain plan;
    plan.Task("Test").From(Friday).After("Build");
    plan.col().ChangeTaskParent("3", String("1"), "", "", "2", True);
    EXPECT_EQ(plan.Heard(),
              Unlinked(3, 2) + "IamASummary(2, True)\n" + Moved(3, Monday, Monday, 1) + Moved(4, Tuesday, Tuesday, 1));
    EXPECT_EQ(Links(plan), "Build -> Test\nTest <- Build|0\n");
}

TEST(ChangeTaskParent, FreesWhatWaitsForTheNewParentFirst) {
    Chain plan;
    EXPECT_EQ(plan.col().ChangeTaskParent("3", String("2"), "", "", "2", True), 1);
    EXPECT_EQ(plan.Heard(), Unlinked(3, 2) + Unlinked(3, 2) + "IamASummary(2, True)\n" + Moved(3, Monday, Monday, 1))
        << "the link is taken off twice";
}

TEST(ChangeTaskParent, FreesAllThatWaitsForTheNewParent) {
    Chain plan;
    plan.Task("Door").From(Friday);
    EXPECT_EQ(plan.col().ChangeTaskParent("4", String("2"), "", "", "", True), 0);
    EXPECT_EQ(plan.Heard(), Unlinked(3, 2) + "IamASummary(2, True)\n" + Moved(4, Monday, Monday, 1) + Costs(4, 0) +
                                Costs(2, 0) + Summed(2, Monday, Monday, 1));
    EXPECT_EQ(Links(plan), "");
}

TEST(ChangeTaskParent, KeepsFreeingTheTaskFromALinkThatOnlyItKnows) {
    Chain plan;
    plan.Task("Door").From(Friday);
    plan["Door"].TaskPredecessor()->Add("1", "1");
    plan.col().ChangeTaskParent("4", String("1"), "", "", "", True);
    EXPECT_EQ(plan.Heard(), Unlinked(4, 1) + "IamASummary(1, True)\n" + Moved(4, Friday, Friday, 1) + Costs(4, 0) +
                                Costs(1, 0) + Summed(1, Friday, Friday, 1));
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
}

TEST(ChangeTaskParent, ReplacesNoParentUnlessItIndentsATaskBesideThePredecessor) {
    struct Row {
        const char* predecessor;
        Boolean indent;
        Boolean batch;
    };
    for (const Row& row : {Row{"", True, False}, Row{"2", False, False}, Row{"2", True, True}, Row{"4", True, False}}) {
        Chain plan;
        plan.Task("Inside").Under("Other").From(Friday);
        String parent = "1";
        EXPECT_EQ(plan.col().ChangeTaskParent("3", parent, "", "", row.predecessor, row.indent, "", "", row.batch), 0);
        EXPECT_EQ(parent, "1");
        EXPECT_EQ(plan["Build"].ParentID(), 1);
        EXPECT_EQ(plan.col().PredessorAsString("3"), "2");
        EXPECT_EQ(plan.col().SucessorAsString("2"), "3");
        plan.Heard();
    }
}

TEST(ChangeTaskParent, RecordsAPredecessorThatIsNotThere) {
    Chain plan;
    String parent = "1";
    EXPECT_EQ(plan.col().ChangeTaskParent("3", parent, "", "", "77", True, "indent", "grid"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeTaskParent 91\n");
    EXPECT_EQ(Family(plan), "1 Other\n2 Design\n3 Build\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ChangeTaskParent, LeavesAllLinksOfABatchAlone) {
    Chain plan;
    EXPECT_EQ(plan.col().ChangeTaskParent("1", String("2"), "", "", "2", True, "indent", "grid", True), 0);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
    EXPECT_EQ(plan.Heard(), "IamASummary(2, True)\nIndented(1, 2, grid)\n");
}

TEST(ChangeTaskParent, AsksForNoLinkWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
    String parent = "1";
    EXPECT_EQ(plan.col().ChangeTaskParent("2", parent, "", "", "1", True), 0);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
    EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\n" + Summed(1, Tuesday, Tuesday, 1) + Costs(2, 0) + Costs(1, 0))
        << "with a predecessor the task keeps its dates";
}

TEST(ChangeTaskParent, SplicesATaskBehindAPredecessorThatWaitsItself) {
    LinkingPlan plan;
    plan.Task("House").Task("A").Under("House").From(Monday).Task("B").Under("House").From(Tuesday).After("A");
    plan.Task("Door").Under("House").From(Wednesday).After("B");
    Settle(plan, {"House"});

    plan.col().ChangeTaskParent("4", String("0"), "", "", "3", False);

    EXPECT_EQ(plan.Heard(), Unlinked(4, 3) + Linked(4, 3, "3", "4") + Costs(1, 0) + Costs(1, 0));
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\nB -> Door\nDoor <- B|0\n");
    EXPECT_EQ(DayName(plan["Door"].TaskBDate()), DayName(Wednesday));
}

TEST(ChangeTaskParent, KeepsTheGapOfATaskThatItSplicesRightBehindThePredecessor) {
    LinkingPlan plan;
    plan.Task("House").Task("A").Under("House").From(Monday).Task("B").Under("House").From(Tuesday).After("A");
    plan.Task("Door").Under("House").From(Friday);
    Settle(plan, {"House"});
    plan.col().ChangeTaskParent("4", String("0"), "", "", "3", False);
    EXPECT_EQ(Links(plan), "A -> B\nB <- A|0\nB -> Door\nDoor <- B|2\n");
    EXPECT_EQ(DayName(plan["Door"].TaskBDate()), DayName(Wednesday));
    plan.Heard();
}

TEST(ChangeTaskParent, LeavesTheParentsSuccessorsWhenTheTaskIsNotThere) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A").Task("C");
    const String links = Links(plan);
    for (const char* old_parent : {"3", "0", ""}) {
        EXPECT_EQ(plan.col().ChangeTaskParent("77", String("1"), old_parent, "", "2", True, "indent"), 0);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeTaskParent 91\n");
    }
    EXPECT_EQ(Links(plan), links);
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
