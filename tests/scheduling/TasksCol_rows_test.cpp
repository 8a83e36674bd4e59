#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// "T" waits for A and B, and is waited for by C and D; keys differ from rows.
class Around : public Plan {
public:
    Around() {
        WithLinks().Task("A").Task("B").Task("T").After("A").After("B").Task("C").After("T").Task("D").After("T");
        int row = 11;
        for (const char* name : {"A", "B", "T", "C", "D"}) (*this)[name].TaskPosition(row++);
    }
    void MakeCandidate(const String& name) {
        (*this)[name].TaskCondidat(False);
        (*this)[name].TaskPosition(0);
    }
};

// --- PredessorAsString ----------------------------------------------------------------------------------------------

TEST(PredessorAsString, JoinsRowsOrNamesInTheOrderOfTheLinks) {
    Around plan;
    EXPECT_EQ(plan.col().PredessorAsString("3"), "11, 12");
    EXPECT_EQ(plan.col().PredessorAsString("3", True), "A, B");
    plan["A"].TaskPosition(14);
    EXPECT_EQ(plan.col().PredessorAsString("3"), "14, 12");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(PredessorAsString, IsEmptyWithoutPredecessorsAndMakesNoList) {
    Around plan;
    EXPECT_EQ(plan.col().PredessorAsString("1"), "");
    EXPECT_EQ(plan.col().PredessorAsString("1", True), "");
    EXPECT_EQ(plan["A"].TaskPredecessorValid(), False);
}

TEST(PredessorAsString, IsEmptyWithoutAKeyAndRecordsATaskThatIsNotThere) {
    Around plan;
    EXPECT_EQ(plan.col().PredessorAsString(""), "");
    EXPECT_EQ(plan.failures.Taken(), "");
    EXPECT_EQ(plan.col().PredessorAsString("77"), "");
    EXPECT_EQ(plan.col().PredessorAsString("0"), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/PredessorAsString 91\nTasksCol/PredessorAsString 91\n");
}

TEST(PredessorAsString, DropsAPredecessorThatBecameACandidateAndTellsIt) {
    Around plan;
    plan.MakeCandidate("A");
    plan["T"].TaskLag(4);
    const int yields = plan.platform.ui.yields;

    EXPECT_EQ(plan.col().PredessorAsString("3", True), "B");

    EXPECT_EQ(Links(plan), "B -> T\nT <- B|0\nT -> C D\nC <- T|0\nD <- T|0\n");
    EXPECT_EQ(plan["T"].TaskLag(), 0);
    EXPECT_EQ(plan.platform.ui.yields, yields + 1);
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(3, 12)\nPredecessorKeyChange(3, 1, remove)\n");
    EXPECT_EQ(plan.col().PredessorAsString("3"), "12");
    EXPECT_EQ(plan.Heard(), "") << "once is enough";
}

TEST(PredessorAsString, DropsAPredecessorOfARemovedTask) {
    Around plan;
    plan.col().Remove("1", {}, {}, {}, {}, {}, {}, False);
    plan.Heard();
    EXPECT_EQ(plan.col().PredessorAsString("3"), "12");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(3, 12)\nPredecessorKeyChange(3, 1, remove)\n");
}

TEST(PredessorAsString, DropsAKeyThatFindsNoTask) {
    Around plan;
    plan["T"].TaskPredecessor()->Add("77", "77", Long(1));
    EXPECT_EQ(plan.col().PredessorAsString("3"), "11, 12");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n") << "as its link is told";
    EXPECT_EQ(Listed(plan["T"].TaskPredecessor()), "1 2");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(77, )\nPredecessorChange(3, 11, 12)\nPredecessorKeyChange(3, 77, remove)\n");
}

TEST(PredessorAsString, KeepsComingBackIntoItselfOverSeveralStaleKeys) {
    Around plan;
    plan.MakeCandidate("A");
    plan.MakeCandidate("B");
    const int yields = plan.platform.ui.yields;
    EXPECT_EQ(plan.col().PredessorAsString("3"), "");
    EXPECT_EQ(Links(plan), "T -> C D\nC <- T|0\nD <- T|0\n");
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(1, )\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 1, remove)\n"
              "SucessorChange(2, )\n"
              "PredecessorChange(3, )\n"
              "PredecessorKeyChange(3, 2, remove)\n")
        << "the second is dropped from within the first, and then again";
    EXPECT_EQ(plan.platform.ui.yields, yields + 3);
}

TEST(PredessorAsString, DropsStaleKeysForASilencedHostToo) {
    Plan plan;
    plan.Silenced().WithLinks().Task("A").Task("B").Task("T").After("A").After("B");
    plan["A"].TaskCondidat(False);
    plan["T"].TaskPredecessor()->Add("77", "77");
    EXPECT_EQ(plan.col().PredessorAsString("3"), "2");
    EXPECT_EQ(Links(plan), "B -> T\nT <- B|0\n");
    EXPECT_EQ(plan.failures.Taken(), "") << "no text is asked for that nobody hears";
    EXPECT_EQ(plan.Heard(), "");
}

TEST(PredessorAsString, SurvivesAHostThatRemovesTheTaskAtTheYield) {
    Around plan;
    plan.MakeCandidate("A");
    plan.platform.ui.on_yield = [&] { plan.col().RemoveForLib("3"); };
    EXPECT_EQ(plan.col().PredessorAsString("3"), "12");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/PredessorAsString 91\n");
    EXPECT_EQ(plan.Heard(), "SucessorChange(1, )\nPredecessorChange(3, )\nPredecessorKeyChange(3, 1, remove)\n");
}

// --- SucessorAsString -----------------------------------------------------------------------------------------------

TEST(SucessorAsString, JoinsRowsOrNamesInTheOrderOfTheLinks) {
    Around plan;
    EXPECT_EQ(plan.col().SucessorAsString("3"), "14, 15");
    EXPECT_EQ(plan.col().SucessorAsString("3", True), "C, D");
    EXPECT_EQ(plan.col().SucessorAsString("5"), "");
    EXPECT_EQ(plan["D"].TaskSuccessorValid(), False) << "asking makes no list";
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SucessorAsString, IsEmptyWithoutAKeyAndRecordsATaskThatIsNotThere) {
    Around plan;
    EXPECT_EQ(plan.col().SucessorAsString(""), "");
    EXPECT_EQ(plan.failures.Taken(), "");
    EXPECT_EQ(plan.col().SucessorAsString("77"), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SucessorAsString 91\n");
}

TEST(SucessorAsString, KeepsShowingCandidatesLikeAnyOther) {
    Around plan;
    plan.MakeCandidate("C");
    EXPECT_EQ(plan.col().SucessorAsString("3"), "0, 15");
    EXPECT_EQ(plan.col().SucessorAsString("3", True), "C, D");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SucessorAsString, DropsKeysThatFindNoTaskWithoutAWord) {
    Around plan;
    plan["T"].TaskSuccessor()->Add("77", "77", Long(1));
    plan["T"].TaskSuccessor()->Add("78", "78");
    const int yields = plan.platform.ui.yields;
    EXPECT_EQ(plan.col().SucessorAsString("3"), "14, 15");
    EXPECT_EQ(Listed(plan["T"].TaskSuccessor()), "4 5");
    EXPECT_EQ(plan.platform.ui.yields, yields);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(SucessorAsString, LeavesTheLeadTimesOfTheTaskAlone) {
    Around plan;
    plan["T"].TaskLag(3);
    plan["T"].TaskSuccessor()->Add("77", "77");
    plan.col().SucessorAsString("3");
    EXPECT_EQ(plan["T"].TaskLag(), 3);
}

TEST(RemoveTaskPredecessor, DropsStaleKeysEvenWhenNobodyListens) {
    Plan session;  // the collection below has no listener of its own
    const auto col = Make<TasksCol>();
    for (const int key : {1, 2, 3}) {
        const auto task = Make<TasksCls>();
        task->TaskKey(key);
        col->AddItem(task);
    }
    col->Item(3)->TaskPredecessor()->Add("1", "1");
    col->Item(3)->TaskPredecessor()->Add("2", "2");
    col->Item(2)->TaskSuccessor()->Add("77", "77");
    col->Item(1)->TaskCondidat(False);
    EXPECT_EQ(col->RemoveTaskPredecessor("3", "2"), True);
    EXPECT_EQ(col->Item(3)->TaskPredecessor()->Count(), 0);
    EXPECT_EQ(col->Item(2)->TaskSuccessor()->Count(), 0);
}

}  // namespace
}  // namespace mrlxmlclass
