#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"
#include "tests/support/TimeLimit.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- RemoveTaskPredecessor ------------------------------------------------------------------------------------------

TEST(RemoveTaskPredecessor, TellsTheSuccessorSideFirst) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design", 2);
    plan["Build"].TaskLag(2);

    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);

    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan["Build"].TaskLeadTime()->Count(), 0);
    EXPECT_EQ(plan["Build"].TaskLag(), 0);
    EXPECT_EQ(plan["Build"].TaskLagValid(), True);
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n");
}

TEST(RemoveTaskPredecessor, LeavesTheOtherLinksAndAllDates) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday).Task("B").From(Monday);
    plan.Task("T").From(Friday).After("A", 1).After("B", 2).Task("U").From(Friday).After("A", 3);
    const String before = plan.Drawn();
    plan.col().RemoveTaskPredecessor("3", "1");
    EXPECT_EQ(Links(plan), "A -> U\nB -> T\nT <- B|2\nU <- A|3\n");
    EXPECT_EQ(plan.Drawn(), before);
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, 4)\nPredecessorChange(3, 2)\nPredecessorKeyChange(3, 1, remove)\n");
}

TEST(RemoveTaskPredecessor, WorksWithoutLiveLinksTheSame) {
    Plan plan;
    plan.Task("Design").Task("Build").After("Design", 2);
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(2, )\nPredecessorKeyChange(2, 1, remove)\n");
}

TEST(RemoveTaskPredecessor, CuresALinkThatOnlyOneSideKnows) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").Task("Test");
    plan["Build"].TaskPredecessor()->Add("1", "1");
    plan["Design"].TaskSuccessor()->Add("3", "3");
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Links(plan), "Design -> Test\n");
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("3", "1"), True);
    EXPECT_EQ(Links(plan), "");
}

TEST(RemoveTaskPredecessor, KeepsTellingOfALinkThatWasNotThere) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build");
    plan["Build"].TaskLag(5);
    plan.col().AddLeadTime("2", "1", 5);
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan["Build"].TaskLag(), 0);
    EXPECT_EQ(plan["Build"].TaskLeadTime()->Count(), 0);
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(2, )\nPredecessorKeyChange(2, 1, remove)\n");
    EXPECT_EQ(plan["Build"].TaskPredecessorValid(), False) << "no list is made";
    EXPECT_EQ(plan["Design"].TaskSuccessorValid(), False);
}

TEST(RemoveTaskPredecessor, RecordsATaskThatIsNotThereButFreesThePredecessor) {
    Plan plan;
    plan.WithLinks().Task("Design");
    plan["Design"].TaskSuccessor()->Add("77", "77");
    const int yields = plan.platform.ui.yields;
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("77", "1"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemoveTaskPredecessor 91\n");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.platform.ui.yields, yields);
}

TEST(RemoveTaskPredecessor, FreesATaskOfAPredecessorThatIsNotThere) {
    Plan plan;
    plan.WithLinks().Task("Build");
    plan["Build"].TaskPredecessor()->Add("77", "77");
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("1", "77"), True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n") << "there is no text of its successors";
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "SucessorChange(77, )\nPredecessorChange(1, )\nPredecessorKeyChange(1, 77, remove)\n");
}

TEST(RemoveTaskPredecessor, TakesKeysThatAreNone) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design");
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("", ""), False);
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("", "1"), False);
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("0", "1"), False);
    EXPECT_EQ(plan.failures.Taken(),
              "TasksCol/RemoveTaskPredecessor 91\n"
              "TasksCol/RemoveTaskPredecessor 91\n"
              "TasksCol/RemoveTaskPredecessor 91\n");
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", ""), True);
    EXPECT_EQ(plan.Heard(), "SucessorChange(0, )\nPredecessorChange(2, 1)\nPredecessorKeyChange(2, , remove)\n");
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "01"), True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n") << "keys are compared to the letter";
}

TEST(RemoveTaskPredecessor, YieldsOnceForASilencedHostToo) {
    Plan plan;
    plan.Silenced().WithLinks().Task("Design").Task("Build").After("Design");
    const int yields = plan.platform.ui.yields;
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan.platform.ui.yields, yields + 1);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveTaskPredecessor, LeavesOtherStaleLinksAloneForASilencedHost) {
    Plan plan;
    plan.Silenced().WithLinks().Task("Aside").Task("Design").Task("Build").After("Aside").After("Design");
    plan["Aside"].TaskCondidat(False);
    plan.col().RemoveTaskPredecessor("3", "2");
    EXPECT_EQ(Links(plan), "Aside -> Build\nBuild <- Aside|0\n") << "no text is read that would drop them";
}

TEST(RemoveTaskPredecessor, TellsWhatTheHostMadeOfTheLinksWhenItCameBackIn) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Friday).After("Design");
    String heard_before_the_yield = "?";
    plan.platform.ui.on_yield = [&] {
        heard_before_the_yield = plan.Heard();
        EXPECT_EQ(Links(plan), "");
        EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    };
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(heard_before_the_yield, "");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|3\n");
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n"
              "SucessorChange(1, 2)\n"
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, remove)\n");
}

TEST(RemoveTaskPredecessor, SurvivesAHostThatRemovesBothTasksMeanwhile) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design");
    plan.platform.ui.on_yield = [&] {
        plan.col().RemoveForLib("1");
        plan.col().RemoveForLib("2");
    };
    EXPECT_EQ(plan.col().RemoveTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\nTasksCol/PredessorAsString 91\n");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(2, )\nPredecessorKeyChange(2, 1, remove)\n");
}

// --- RemoveAllTaskPredecessor ---------------------------------------------------------------------------------------

TEST(RemoveAllTaskPredecessor, KeepsFreeingTheSuccessorsInSpiteOfItsName) {
    Plan plan;
    plan.WithLinks().Task("Before").Task("Design").After("Before");
    plan.Task("Build").After("Design").Task("Test").After("Design").After("Before");
    EXPECT_EQ(plan.col().RemoveAllTaskPredecessor("2"), False);
    EXPECT_EQ(Links(plan), "Before -> Design Test\nDesign <- Before|0\nTest <- Before|0\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(2, 4)\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(4, 1)\n"
              "PredecessorKeyChange(4, 2, remove)\n");
}

TEST(RemoveAllTaskPredecessor, DoesNothingForATaskWithoutSuccessors) {
    Plan plan;
    plan.WithLinks().Task("Design");
    EXPECT_EQ(plan.col().RemoveAllTaskPredecessor("1"), False);
    EXPECT_EQ(plan["Design"].TaskSuccessorValid(), False);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveAllTaskPredecessor, RecordsATaskThatIsNotThere) {
    Plan plan;
    plan.WithLinks().Task("Design");
    EXPECT_EQ(plan.col().RemoveAllTaskPredecessor("77"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemoveAllTaskPredecessor 91\n");
}

TEST(RemoveAllTaskPredecessor, GoesOnBehindASuccessorThatIsNotThere) {
    Plan plan;
    plan.WithLinks().Task("Design");
    plan["Design"].TaskSuccessor()->Add("77", "77");
    plan.Task("Build").After("Design");
    plan.col().RemoveAllTaskPredecessor("1");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemoveTaskPredecessor 91\n");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(2, )\nPredecessorKeyChange(2, 1, remove)\n");
}

TEST(RemoveAllTaskPredecessor, WalksTheSuccessorsAsTheyStoodAtFirst) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Friday).After("Design").Task("Test").From(Friday);
    plan.After("Design").Task("Late").From(Friday);
    int yields = 0;
    plan.platform.ui.on_yield = [&] {
        if (++yields > 1) return;
        plan.col().RemoveTaskPredecessor("3", "1");
        plan.col().AddTaskPredecessor("4", "1");
    };
    plan.col().RemoveAllTaskPredecessor("1");
    EXPECT_EQ(Links(plan), "Design -> Late\nLate <- Design|3\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 1, remove)\n"
              "PredecessorChange(4, 1)\n"
              "PredecessorKeyChange(4, 1, add)\n"
              "SucessorChange(1, 4)\n"
              "SucessorChange(1, 4)\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "SucessorChange(1, 4)\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 1, remove)\n");
}

// --- ReplacePredecessor ---------------------------------------------------------------------------------------------

TEST(ReplacePredecessor, LetsTheSuccessorsWaitForTheNewTaskToo) {
    LinkingPlan plan;
    plan.Task("Old").From(Monday).Task("New").From(Tuesday);
    plan.Task("Build").From(Friday).After("Old", 3).Task("Test").From(Friday).After("Old", 3);
    EXPECT_EQ(plan.col().ReplacePredecessor("1", "2"), False);
    EXPECT_EQ(Links(plan), "Old -> Build Test\nNew -> Build Test\nBuild <- Old|3 New|2\nTest <- Old|3 New|2\n");
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(3, 1, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n"
              "PredecessorChange(4, 1, 2)\n"
              "PredecessorKeyChange(4, 2, add)\n"
              "SucessorChange(2, 3, 4)\n");
}

TEST(ReplacePredecessor, LinksNothingWhereTheNewTaskFollowsTheOld) {
    LinkingPlan plan;
    plan.Task("Old").From(Monday).Task("New").From(Tuesday).After("Old").Task("Build").From(Friday).After("Old");
    plan.col().ReplacePredecessor("1", "2");
    EXPECT_EQ(Links(plan), "Old -> New Build\nNew <- Old|0\nBuild <- Old|0\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ReplacePredecessor, MovesTheSuccessorsWithoutAutoLink) {
    Plan plan;
    plan.WithLinks().Task("Old").From(Monday).Task("New").From(Tuesday).Task("Build").From(Friday).After("Old");
    plan.col().ReplacePredecessor("1", "2");
    EXPECT_EQ(Links(plan), "Old -> Build\nBuild <- Old|0\n");
    EXPECT_EQ(plan["Build"].TaskBDate(), Wednesday);
}

TEST(ReplacePredecessor, TakesKeysThatFindNoTask) {
    LinkingPlan plan;
    plan.Task("Old").From(Monday).Task("Build").From(Friday).After("Old");
    EXPECT_EQ(plan.col().ReplacePredecessor("1", "77"), False);
    EXPECT_EQ(plan.col().ReplacePredecessor("1", ""), False);
    EXPECT_EQ(plan.col().ReplacePredecessor("2", "77"), False);
    EXPECT_EQ(plan.failures.Taken(), "");
    EXPECT_EQ(plan.col().ReplacePredecessor("77", "1"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ReplacePredecessor 91\n");
    EXPECT_EQ(Links(plan), "Old -> Build\nBuild <- Old|0\n");
    EXPECT_EQ(plan.Heard(), "");
}

// --- cleanPredcessor ------------------------------------------------------------------------------------------------

/// 1 Early, 2 Phase, 3   Design, 4   Build, 5     Detail, 6 Last
class Outline : public Plan {
public:
    Outline() {
        WithLinks().Task("Early").Task("Phase").Task("Design").Under("Phase").Task("Build").Under("Phase");
        Task("Detail").Under("Build").Task("Last");
    }
    /// Lets a task wait for another.
    void Tie(const String& task, const String& predecessor) {
        (*this)[task].TaskPredecessor()->Add(Key(predecessor), Key(predecessor));
        (*this)[predecessor].TaskSuccessor()->Add(Key(task), Key(task));
    }
};

TEST(cleanPredcessor, DropsTheLinksOfASubtreeThatPointBackward) {
    Outline plan;
    plan.Tie("Early", "Phase");
    plan.Tie("Design", "Build");
    plan.Tie("Last", "Build");
    plan.Tie("Early", "Detail");
    plan.Tie("Phase", "Last");

    EXPECT_EQ(plan.col().cleanPredcessor("2"), False);

    EXPECT_EQ(Links(plan),
              "Early <- Phase\n"
              "Phase <- Last\n"
              "Phase -> Early\n"
              "Build -> Last\n"
              "Last <- Build\n"
              "Last -> Phase\n")
        << "the task's own links stay, and so do those of others";
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(4, 6)\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 4, remove)\n"
              "SucessorChange(5, )\n"
              "PredecessorChange(1, 2)\n"
              "PredecessorKeyChange(1, 5, remove)\n");
}

TEST(cleanPredcessor, TakesTheChildrenByRow) {
    Outline plan;
    plan["Design"].TaskPosition(5);
    plan["Build"].TaskPosition(3);
    plan["Detail"].TaskPosition(4);
    plan.Tie("Early", "Design");
    plan.Tie("Early", "Detail");
    plan.Tie("Early", "Build");
    plan.col().cleanPredcessor("2");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(4, )\n"
              "PredecessorChange(1, 5, 4)\n"
              "PredecessorKeyChange(1, 4, remove)\n"
              "SucessorChange(5, )\n"
              "PredecessorChange(1, 5)\n"
              "PredecessorKeyChange(1, 5, remove)\n"
              "SucessorChange(3, )\n"
              "PredecessorChange(1, )\n"
              "PredecessorKeyChange(1, 3, remove)\n");
}

TEST(cleanPredcessor, FreesCandidates) {
    Outline plan;
    plan.Tie("Last", "Design");
    plan["Last"].TaskCondidat(False);
    plan["Last"].TaskPosition(0);
    plan.col().cleanPredcessor("2");
    EXPECT_EQ(Links(plan), "");
}

TEST(cleanPredcessor, KnowsALeafAndRecordsATaskThatIsNotThere) {
    Outline plan;
    plan.Tie("Early", "Last");
    EXPECT_EQ(plan.col().cleanPredcessor("6"), False);
    EXPECT_EQ(Links(plan), "Early <- Last\nLast -> Early\n");
    EXPECT_EQ(plan.col().cleanPredcessor("77"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/cleanPredcessor 91\n");
}

TEST(cleanPredcessor, RecordsASuccessorThatIsNotThere) {
    Outline plan;
    plan["Design"].TaskSuccessor()->Add("77", "77");
    plan.col().cleanPredcessor("2");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/cleanPredcessor 91\n");
}

TEST(cleanPredcessor, EndsInARing) {
    const TimeLimit limit("cleaning a ring");
    Plan ring;
    BuildRing(ring);
    EXPECT_EQ(ring.col().cleanPredcessor("1"), False);
    EXPECT_EQ(ring.failures.Taken(), "TasksCol/cleanPredcessor 28\n");

    Plan alone;
    BuildSelfParent(alone);
    EXPECT_EQ(alone.col().cleanPredcessor("1"), False);
    EXPECT_EQ(alone.failures.Taken(), "TasksCol/cleanPredcessor 28\n");
}

TEST(cleanPredcessor, CleansADeepOutlineOnASmallStack) {
    dom::OnSmallStack(
        [] {
            Plan plan;
            BuildChain(plan, 3000);
            plan.Task("Early");
            plan["Early"].TaskPosition(0);
            plan.After("3000");
            plan.col().cleanPredcessor("1");
            EXPECT_EQ(Links(plan), "");
            plan.Heard();
        },
        std::size_t{1} << 18U);
}

}  // namespace
}  // namespace mrlxmlclass
