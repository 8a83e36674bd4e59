#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

// --- ValidPredecessors ----------------------------------------------------------------------------------------------

struct Answer {
    const char* rows;
    Boolean valid;
};

/// 1 Before, 2 Phase, 3   Inside, 4 Design, 5 Build, which waits for Design.
class InsertedRows : public Plan {
public:
    InsertedRows() {
        WithLinks().Task("Before").Task("Phase").Task("Inside").Under("Phase").Task("Design").Task("Build");
    }
};

TEST(ValidPredecessors, TakesAListOfRowsThatAreAllValid) {
    for (const Answer& list : {
             Answer{"", True},       Answer{"1", True},      Answer{"1,4", True},
             Answer{"1, 4", True},   Answer{"4,1,4", True},  Answer{"01", True},
             Answer{"2", False},                          // has children
             Answer{"5", False},                          // the task itself
             Answer{"1,2,4", False}, Answer{"6", False},  // no such row
             Answer{"0", False},     Answer{",", False},     Answer{"1,", False},
             Answer{",1", False},    Answer{"1,,4", False},  Answer{"1, ", False},
             Answer{" 1", False},    Answer{"1,  4", False}, Answer{"1,4 1", False},
             Answer{"1;4", False},   Answer{"1.0", False},   Answer{"-1", False},
             Answer{"one", False},   Answer{"32768", False}, Answer{"99999999999999999999", False},
         }) {
        SCOPED_TRACE(list.rows);
        InsertedRows plan;
        EXPECT_EQ(plan.col().ValidPredecessors("5", list.rows), list.valid);
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(ValidPredecessors, RefusesANumberLongerThanAnyDouble) {
    InsertedRows plan;
    EXPECT_EQ(plan.col().ValidPredecessors("5", "1," + String(400, '9')), False);
}

TEST(ValidPredecessors, KeepsAnEmptyListValidForWhomever) {
    InsertedRows plan;
    EXPECT_EQ(plan.col().ValidPredecessors("5", ""), True);
    EXPECT_EQ(plan.col().ValidPredecessors("", "", True), True);
    EXPECT_EQ(plan.col().ValidPredecessors("77", ""), True);
}

TEST(ValidPredecessors, AsksTheOtherWayRoundForSuccessors) {
    InsertedRows plan;
    EXPECT_EQ(plan.col().ValidPredecessors("4", "2"), False);
    EXPECT_EQ(plan.col().ValidPredecessors("4", "2", /*l_succ=*/True), True) << "a summary may wait";
    EXPECT_EQ(plan.col().ValidPredecessors("2", "4"), True);
    EXPECT_EQ(plan.col().ValidPredecessors("2", "4", True), False) << "it may not be waited for";
}

TEST(ValidPredecessors, LooksForLoopsOfTwoInEitherDirection) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design");
    EXPECT_EQ(plan.col().ValidPredecessors("2", "1"), True);
    EXPECT_EQ(plan.col().ValidPredecessors("1", "2"), False);
    EXPECT_EQ(plan.col().ValidPredecessors("1", "2", True), True);
    EXPECT_EQ(plan.col().ValidPredecessors("2", "1", True), False);
}

TEST(ValidPredecessors, ReadsRowsAndNotKeys) {
    InsertedRows plan;
    plan["Before"].TaskPosition(2);
    plan["Phase"].TaskPosition(1);
    EXPECT_EQ(plan.col().ValidPredecessors("5", "2"), True);
    EXPECT_EQ(plan.col().ValidPredecessors("5", "1"), False);
}

// --- ArrangePred ----------------------------------------------------------------------------------------------------

/// "T" in row 5 behind four tasks, each named as its row, waits for 3 and 4.
class FourRows : public LinkingPlan {
public:
    FourRows() {
        for (const char* row : {"1", "2", "3", "4"}) Task(row).From(Monday);
        Task("T").From(Friday).After("3", 3).After("4", 3);
    }
    String Predecessors() { return Listed((*this)["T"].TaskPredecessor()); }
};

TEST(ArrangePred, AddsWhatIsMissingKeepsWhatIsThereAndRemovesTheRest) {
    FourRows plan;

    EXPECT_EQ(plan.col().ArrangePred("2,3", "5"), False);

    EXPECT_EQ(Links(plan), "2 -> T\n3 -> T\nT <- 3|3 2|0\n") << "a link that is made this way has no gap stored";
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(5, 3, 2, 4)\n"
              "PredecessorKeyChange(5, 2, add)\n"
              "SucessorChange(2, 5)\n"
              "SucessorChange(4, )\n"
              "PredecessorChange(5, 3, 2)\n"
              "PredecessorKeyChange(5, 4, remove)\n");
}

TEST(ArrangePred, ReadsRowsAndNotKeys) {
    FourRows plan;
    plan["1"].TaskPosition(4);
    plan["4"].TaskPosition(1);
    plan.col().ArrangePred("4", "5");
    EXPECT_EQ(plan.Predecessors(), "1");
}

TEST(ArrangePred, ChangesNothingForAnEmptyList) {
    for (const char* list : {"", ",", ", ", ",,"}) {
        SCOPED_TRACE(list);
        FourRows plan;
        EXPECT_EQ(plan.col().ArrangePred(list, "5"), False);
        EXPECT_EQ(plan.Predecessors(), "3 4");
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(ArrangePred, ChangesNothingForAListThatIsNone) {
    for (const char* list : {"1,x", "1.0", " 1", "1;2", "-1", "1, 2 3"}) {
        SCOPED_TRACE(list);
        FourRows plan;
        plan["4"].TaskCondidat(False);
        EXPECT_EQ(plan.col().ArrangePred(list, "5"), False);
        EXPECT_EQ(plan.Predecessors(), "3 4") << "not even a stale link goes";
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(ArrangePred, PassesByWhatIsNoNumberAndNoRow) {
    for (const char* list : {"1,4 2,3", "1,,3", ",1,3", "1,3, ", "1,40000,3", "1,99999999999999999999,3", "1,77,3"}) {
        SCOPED_TRACE(list);
        FourRows plan;
        plan.col().ArrangePred(list, "5");
        EXPECT_EQ(plan.Predecessors(), "3 1");
    }
}

TEST(ArrangePred, PassesByANumberLongerThanAnyDouble) {
    FourRows plan;
    plan.col().ArrangePred("1," + String(400, '9') + ",3", "5");
    EXPECT_EQ(plan.Predecessors(), "3 1");
    plan.Heard();
}

TEST(ArrangePred, RemovesAllForARowThatIsNotThere) {
    FourRows plan;
    plan.col().ArrangePred("77", "5");
    EXPECT_EQ(plan.Predecessors(), "");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(3, )\n"
              "PredecessorChange(5, 4)\n"
              "PredecessorKeyChange(5, 3, remove)\n"
              "SucessorChange(4, )\n"
              "PredecessorChange(5, )\n"
              "PredecessorKeyChange(5, 4, remove)\n");
}

TEST(ArrangePred, DropsAStaleLinkFirst) {
    FourRows plan;
    plan["4"].TaskCondidat(False);
    plan.col().ArrangePred(",", "5");
    EXPECT_EQ(plan.Predecessors(), "3");
    EXPECT_EQ(plan.Heard(), "SucessorChange(4, )\nPredecessorChange(5, 3)\nPredecessorKeyChange(5, 4, remove)\n");
}

TEST(ArrangePred, KeepsWritingALeadWhereTheLinkIsRefused) {
    LinkingPlan plan;
    plan.Task("Phase").Task("Inside").Under("Phase").Task("T");
    plan.col().ArrangePred("1,3", "3");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(Listed(plan["T"].TaskLeadTime()), "1|0 3|0");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ArrangePred, MovesTheTaskWithoutAutoLinkAndLinksNothing) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(2).Task("Build").From(Friday);
    plan.col().ArrangePred("1", "2");
    EXPECT_EQ(Links(plan), "");
    EXPECT_EQ(plan["Build"].TaskBDate(), Wednesday);
}

TEST(ArrangePred, RecordsATaskThatIsNotThere) {
    FourRows plan;
    EXPECT_EQ(plan.col().ArrangePred("1", "77"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/PredessorAsString 91\nTasksCol/ArrangePred 91\n");
    EXPECT_EQ(plan.Heard(), "");
}

// --- ArrangeSuccessor -----------------------------------------------------------------------------------------------

/// "T" in row 1, for which the tasks in rows 3 and 4 wait; each is named as its row.
class WaitedFor : public LinkingPlan {
public:
    WaitedFor() {
        Task("T").From(Monday);
        Task("2").From(Friday).Task("3").From(Friday).After("T", 3).Task("4").From(Friday).After("T", 3);
    }
    String Successors() { return Listed((*this)["T"].TaskSuccessor()); }
};

TEST(ArrangeSuccessor, AddsWhatIsMissingKeepsWhatIsThereAndRemovesTheRest) {
    WaitedFor plan;

    EXPECT_EQ(plan.col().ArrangeSuccessor("2, 3", "1"), False);

    EXPECT_EQ(Links(plan), "T -> 3 2\n2 <- T|3\n3 <- T|3\n") << "the gap stays as it was measured";
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 1)\n"
              "PredecessorKeyChange(2, 1, add)\n"
              "SucessorChange(1, 3, 4, 2)\n"
              "SucessorChange(1, 3, 2)\n"
              "PredecessorChange(4, )\n"
              "PredecessorKeyChange(4, 1, remove)\n");
}

TEST(ArrangeSuccessor, ChangesNothingForAListWithoutANumberOrThatIsNone) {
    for (const char* list : {"", ",", "2,x", "2.0", " 2"}) {
        SCOPED_TRACE(list);
        WaitedFor plan;
        EXPECT_EQ(plan.col().ArrangeSuccessor(list, "1"), False);
        EXPECT_EQ(plan.Successors(), "3 4");
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(ArrangeSuccessor, PassesByWhatIsNoNumberAndNoRow) {
    for (const char* list : {"2,3 4,3", "2,,3", "2,40000,3", "2,77,3"}) {
        SCOPED_TRACE(list);
        WaitedFor plan;
        plan.col().ArrangeSuccessor(list, "1");
        EXPECT_EQ(plan.Successors(), "3 2");
    }
}

TEST(ArrangeSuccessor, PassesByANumberLongerThanAnyDouble) {
    InsertedRows plan;
    plan.col().AutoLink(True);
    plan.col().ArrangeSuccessor("4," + String(400, '9') + ",5", "1");
    EXPECT_EQ(plan.col().SucessorAsString("1"), "4, 5");
    plan.Heard();
}

TEST(ArrangeSuccessor, DropsKeysThatFindNoTaskFirst) {
    WaitedFor plan;
    plan["T"].TaskSuccessor()->Add("77", "77");
    plan.col().ArrangeSuccessor(",", "1");
    EXPECT_EQ(plan.Successors(), "3 4");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ArrangeSuccessor, WritesNoLeadWhereTheLinkIsRefused) {
    WaitedFor plan;
    plan.Task("Inside").Under("T");
    plan.col().ArrangeSuccessor("2", "1");
    EXPECT_EQ(plan.Successors(), "") << "a summary is not waited for, and the old links go";
    EXPECT_EQ(plan["2"].TaskLeadTime()->Count(), 0);
}

TEST(ArrangeSuccessor, RecordsATaskThatIsNotThere) {
    WaitedFor plan;
    EXPECT_EQ(plan.col().ArrangeSuccessor("2", "77"), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\nTasksCol/ArrangeSuccessor 91\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ArrangePred, RaisesNoFlagOfATaskThatGetsNoLink) {
    LinkingPlan plan;
    plan.Task("Alone");
    plan.col().ArrangePred("1", "1");
    plan.col().ArrangeSuccessor("1", "1");
    EXPECT_FALSE(plan["Alone"].TaskPredecessorValid());
    EXPECT_FALSE(plan["Alone"].TaskSuccessorValid());
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
