#include <gtest/gtest.h>

#include <functional>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Two tasks that nothing ties yet.
class Two : public LinkingPlan {
public:
    Two() { Task("Design").From(Monday).Lasting(2).Task("Build").From(Friday); }
};

TEST(AddTaskPredecessor, StoresTheLinkOnBothSidesAndTellsTheSuccessorFirst) {
    Two plan;

    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);

    EXPECT_EQ(Links(plan),
              "Design -> Build\n"
              "Build <- Design|2\n");
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, FilesEachKeyAsTextUnderItself) {
    Two plan;
    plan.col().AddTaskPredecessor("2", "1");
    EXPECT_EQ(plan["Build"].TaskPredecessor()->Item("1"), Variant("1"));
    EXPECT_EQ(plan["Design"].TaskSuccessor()->Item("2"), Variant("2"));
    EXPECT_EQ(plan["Build"].TaskLeadTime()->Item("1"), Variant("1|2"));
    EXPECT_EQ(plan["Build"].TaskPredecessorValid(), True);
    EXPECT_EQ(plan["Design"].TaskSuccessorValid(), True);
}

TEST(AddTaskPredecessor, LeavesDatesAndLagAloneUnlessItIsTheFirstTime) {
    Two plan;
    plan["Build"].TaskLag(7);
    plan.col().AddTaskPredecessor("2", "1");
    EXPECT_EQ(plan.Drawn(), "1 Design  2026-03-02 2026-03-03\n2 Build  2026-03-06 2026-03-06\n");
    EXPECT_EQ(plan["Build"].TaskLag(), 7);
}

TEST(AddTaskPredecessor, TellsKeysByNumberAndLinksByRow) {
    Two plan;
    plan["Design"].TaskPosition(2);
    plan["Build"].TaskPosition(1);
    plan.col().AddTaskPredecessor("2", "1");
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 2)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 1)\n");
}

TEST(AddTaskPredecessor, LinksForASilencedHostTheSame) {
    Plan plan;
    plan.Silenced().WithLinks().Task("Design").From(Monday).Task("Build").From(Friday);
    plan.col().AutoLink(True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|3\n");
    EXPECT_EQ(plan.Heard(), "");
}

// --- What is refused ------------------------------------------------------------------------------------------------

TEST(AddTaskPredecessor, RefusesALoopOfTwo) {
    Two plan;
    EXPECT_EQ(plan.col().AddTaskPredecessor("1", "2"), True);
    plan.Heard();
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), False);
    EXPECT_EQ(Links(plan), "Design <- Build|-5\nBuild -> Design\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, TakesALoopOfThree) {
    LinkingPlan plan;
    plan.Task("A").From(Monday).Task("B").From(Tuesday).After("A").Task("C").From(Wednesday).After("B");
    EXPECT_EQ(plan.col().AddTaskPredecessor("1", "3"), True);
    EXPECT_EQ(Links(plan),
              "A <- C|-3\n"
              "A -> B\n"
              "B <- A|0\n"
              "B -> C\n"
              "C <- B|0\n"
              "C -> A\n");
}

TEST(AddTaskPredecessor, RefusesWithoutAWord) {
    struct Row {
        const char* what;
        const char* task;
        const char* predecessor;
    };
    for (const Row& row : {
             Row{"no task", "", "1"},
             Row{"no predecessor", "1", ""},
             Row{"nothing at all", "", ""},
             Row{"the top as a predecessor", "1", "0"},
             Row{"the top as a task", "0", "1"},
             Row{"the task itself", "1", "1"},
             Row{"a predecessor with children", "1", "2"},
             Row{"the task's own parent", "3", "2"},
             Row{"a child of the task", "2", "3"},
         }) {
        SCOPED_TRACE(row.what);
        LinkingPlan plan;
        plan.Task("Before").Task("Phase").Task("Inside").Under("Phase");
        EXPECT_EQ(plan.col().AddTaskPredecessor(row.task, row.predecessor, True), False);
        EXPECT_EQ(Links(plan), "");
        EXPECT_EQ(plan.Drawn(), "1 Before\n2 Phase\n3   Inside\n");
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(AddTaskPredecessor, TakesASummaryAsASuccessor) {
    LinkingPlan plan;
    plan.Task("Before").From(Monday).Task("Phase").From(Thursday).Task("Inside").Under("Phase").From(Thursday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Links(plan), "Before -> Phase\nPhase <- Before|2\n");
}

TEST(AddTaskPredecessor, TakesAGrandchildAsAPredecessor) {
    LinkingPlan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Inside").Under("Phase").From(Monday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("1", "3"), True);
    EXPECT_EQ(plan["House"].isPredecessor("3"), True);
}

TEST(AddTaskPredecessor, SaysTrueToAPredecessorThatIsNotThere) {
    Two plan;
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "77", True), True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "01"), True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "Design"), True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, RecordsATaskThatIsNotThere) {
    Two plan;
    EXPECT_EQ(plan.col().AddTaskPredecessor("77", "1"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskPredecessor 91\n");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, RefusesAPredecessorThatTheTaskHasAlready) {
    LinkingPlan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Friday).After("Design", 9);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), False);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|9\n") << "the gap is not measured again";
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, RefusesWhatFollowsAPredecessorAlready) {
    LinkingPlan plan;
    plan.Task("X").From(Monday).Task("B").From(Tuesday).After("X").Task("T").From(Friday).After("X");
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2"), False);
    EXPECT_EQ(Links(plan), "X -> B T\nB <- X|0\nT <- X|0\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, TakesWhatAPredecessorFollows) {
    LinkingPlan plan;
    plan.Task("X").From(Monday).Task("B").From(Tuesday).After("X").Task("T").From(Wednesday).After("B");
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "1"), True) << "only the new one's own predecessors are looked at";
    EXPECT_EQ(Links(plan), "X -> B T\nB <- X|0\nB -> T\nT <- X|1 B|0\n");
}

TEST(AddTaskPredecessor, KeepsALoopOfTwoThatOnlyTheOtherSideKnows) {
    Two plan;
    plan["Build"].TaskSuccessor()->Add("1", "1");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True) << "only the predecessors of the predecessor count";
}

// --- The order of the lists -----------------------------------------------------------------------------------------

/// "T" in row 6 behind five tasks, each named as its row; it waits for those that are named.
class Rows : public LinkingPlan {
public:
    explicit Rows(std::initializer_list<const char*> predecessors) {
        for (const char* row : {"1", "2", "3", "4", "5"}) Task(row).From(Monday);
        Task("T").From(Friday);
        for (const char* row : predecessors) After(row);
    }
    String Linked(const char* predecessor) {
        EXPECT_EQ(col().AddTaskPredecessor("6", predecessor), True);
        return Listed((*this)["T"].TaskPredecessor());
    }
};

TEST(AddTaskPredecessor, KeepsComparingRowsWithTheLastPredecessorOnly) {
    EXPECT_EQ(Rows({}).Linked("3"), "3");
    EXPECT_EQ(Rows({"3"}).Linked("5"), "3 5");
    EXPECT_EQ(Rows({"3"}).Linked("1"), "1 3");
    EXPECT_EQ(Rows({"5", "2"}).Linked("3"), "5 2 3");
    EXPECT_EQ(Rows({"2", "5"}).Linked("1"), "2 1 5");
}

TEST(AddTaskPredecessor, PutsOneOfTheSameRowBehindTheLast) {
    Rows plan({"3"});
    plan["2"].TaskPosition(3);
    EXPECT_EQ(plan.Linked("2"), "3 2");
}

TEST(AddTaskPredecessor, PutsANewSuccessorLast) {
    Rows plan({});
    plan.Task("U");
    plan.col().AddTaskPredecessor("7", "4");
    plan.col().AddTaskPredecessor("5", "4");
    plan.col().AddTaskPredecessor("6", "4");
    EXPECT_EQ(Listed(plan["4"].TaskSuccessor()), "7 5 6");
}

TEST(AddTaskPredecessor, KeepsMeasuringEveryLinkOfTheTaskAnew) {
    Rows plan({"2", "1"});
    plan.col().AddLeadTime("6", "2", 99);
    plan.Linked("4");
    EXPECT_EQ(Listed(plan["T"].TaskLeadTime()), "2|3 1|3 4|3") << "in the order of the links";
}

// --- Damaged links and failures -------------------------------------------------------------------------------------

TEST(AddTaskPredecessor, KeepsTheTasksSideWhereTheOtherStandsAlready) {
    Two plan;
    plan["Design"].TaskSuccessor()->Add("2", "2");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskPredecessor 457\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, DoesNotCureALinkThatOnlyTheTaskKnows) {
    Two plan;
    plan["Build"].TaskPredecessor()->Add("1", "1");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), False);
    EXPECT_EQ(Links(plan), "Build <- Design\n");
}

TEST(AddTaskPredecessor, RecordsALastPredecessorThatIsNotThere) {
    Two plan;
    plan["Build"].TaskPredecessor()->Add("77", "77");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskPredecessor 91\n");
    EXPECT_EQ(Links(plan), "Build <- 77\n");
}

TEST(AddTaskPredecessor, GoesOnWhereTheGapIsBeyondAnInteger) {
    Two plan;
    In(plan["Design"]).StoreStart(Date::Of(1900, 1, 1));
    In(plan["Design"]).StoreEnd(Date::Of(1900, 1, 2));
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CalcLeadTime 6\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design\n");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\nPredecessorKeyChange(2, 1, add)\nSucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, DropsAPredecessorThatBecameACandidateWhileItTells) {
    LinkingPlan plan;
    plan.Task("Aside").From(Monday).Task("Design").From(Monday).Task("Build").From(Friday).After("Aside");
    plan["Aside"].TaskCondidat(False);
    plan["Aside"].TaskPosition(0);
    EXPECT_EQ(plan.col().AddTaskPredecessor("3", "2"), True);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|3\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 1, remove)\n"
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n");
}

// --- Without live links, and without AutoLink -----------------------------------------------------------------------

TEST(AddTaskPredecessor, StoresNothingWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Friday);
    plan.col().AutoLink(True);
    for (const Boolean forced : {False, True}) {
        EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True, False, forced), True);
        EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True, True, forced), True);
    }
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.col().PredessorAsString("2"), "");
    EXPECT_EQ(plan.col().SucessorAsString("1"), "");
    EXPECT_EQ(plan["Build"].TaskPredecessorValid(), False);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskPredecessor, StoresALinkWithoutAutoLinkOnlyByForce) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Task("Build").From(Friday);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", True), True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", False, True), True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1", False, False, True), True);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\nPredecessorKeyChange(2, 1, add)\nSucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, RefusesKeysAndALoopOfTwoEvenWhereNothingIsStored) {
    for (const bool live : {false, true}) {
        SCOPED_TRACE(live);
        Plan plan;
        if (live) plan.WithLinks();
        plan.Task("Design").From(Monday).Task("Build").From(Friday).After("Design");
        EXPECT_EQ(plan.col().AddTaskPredecessor("1", "2", False, True), False);
        EXPECT_EQ(plan.col().AddTaskPredecessor("", "1", False, True), False);
        EXPECT_EQ(plan.col().AddTaskPredecessor("2", "0", False, True), False);
        EXPECT_EQ(plan.Drawn(), "1 Design  2026-03-02 2026-03-02\n2 Build  2026-03-06 2026-03-06\n");
    }
}

TEST(AddTaskPredecessor, KeepsTheOtherRulesForLinksThatAreStored) {
    Plan plan;
    plan.Task("Phase").Task("Inside").Under("Phase");
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "2"), True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("1", "2"), True);
    EXPECT_EQ(plan.col().AddTaskPredecessor("77", "78"), True) << "not even the tasks need be there";
}

TEST(AddTaskPredecessor, RecordsAPredecessorThatIsNotThereWhereItsDatesAreRead) {
    for (const bool live : {false, true}) {
        SCOPED_TRACE(live);
        Plan plan;
        if (live) plan.WithLinks();
        plan.Task("Build").From(Friday);
        EXPECT_EQ(plan.col().AddTaskPredecessor("1", "77", False, True), False);
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskPredecessor 91\n");
        EXPECT_EQ(plan["Build"].TaskBDate(), Friday);
    }
}

// --- Hosts that call back -------------------------------------------------------------------------------------------

/// Does something once, at the first event that tells a task's predecessors.
class AtPredecessorChange : public TasksColEvents {
public:
    AtPredecessorChange(TasksCol& col, std::function<void(TasksCol&)> act) : col_(col), act_(std::move(act)) {
        col_.Events.Add(*this);
    }
    ~AtPredecessorChange() override { col_.Events.Remove(*this); }

    void PredecessorChange(Long, const String&) override {
        if (const auto act = std::exchange(act_, nullptr)) act(col_);
    }

private:
    TasksCol& col_;
    std::function<void(TasksCol&)> act_;
};

TEST(AddTaskPredecessor, LetsAListenerLinkMore) {
    Two plan;
    plan.Task("Test").From(Friday);
    const AtPredecessorChange listener(plan.col(), [](TasksCol& col) { col.AddTaskPredecessor("3", "2"); });
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|2\nBuild -> Test\nTest <- Build|-1\n");
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 1)\n"
              "PredecessorChange(3, 2)\n"
              "PredecessorKeyChange(3, 2, add)\n"
              "SucessorChange(2, 3)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 2)\n");
}

TEST(AddTaskPredecessor, TellsTheRestWhenAListenerTakesTheLinkOffAgain) {
    Two plan;
    const AtPredecessorChange listener(plan.col(), [](TasksCol& col) { col.RemoveTaskPredecessor("2", "1"); });
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 1)\n"
              "SucessorChange(1, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 1, remove)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, )\n");
}

TEST(AddTaskPredecessor, RecordsAPredecessorThatAListenerRemoves) {
    Two plan;
    const AtPredecessorChange listener(plan.col(), [](TasksCol& col) { col.RemoveForLib("1"); });
    EXPECT_EQ(plan.col().AddTaskPredecessor("2", "1"), True);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n");
    EXPECT_EQ(plan.Heard(), "PredecessorChange(2, 1)\nPredecessorKeyChange(2, 1, add)\nSucessorChange(1, )\n");
}

}  // namespace
}  // namespace mrlxmlclass
