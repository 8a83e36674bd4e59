#include "mrlxmlclass/tasks/TasksCls.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/support/Days.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(TasksCls, StartsAsAPlainRowOfThePlan) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->TaskCondidat(), True);
    EXPECT_EQ(task->TaskType(), False);
    EXPECT_EQ(task->TaskMilstones(), False);
    EXPECT_EQ(task->TaskName(), "");
    EXPECT_EQ(task->ProjectID(), 0);
    EXPECT_EQ(task->ParentID(), 0);
    EXPECT_EQ(task->TaskKey(), 0);
    EXPECT_EQ(task->TaskBDate(), Date());
    EXPECT_EQ(task->TaskEDate(), Date());
    EXPECT_EQ(task->TaskDuration(), 0);
    EXPECT_EQ(task->TaskLag(), 0);
    EXPECT_EQ(task->TaskStatusKey(), 0);
    EXPECT_EQ(task->TaskPercentDone(), 0);
    EXPECT_EQ(task->TaskLink(), "");
    EXPECT_EQ(task->TaskCost(), Currency());
    EXPECT_EQ(task->TaskCostUp(), Currency());
    EXPECT_EQ(task->TaskPosition(), 0);
    EXPECT_EQ(task->TaskSubPosition(), 0);
    EXPECT_EQ(task->TaskPositionInitem(), 0);
    EXPECT_EQ(task->TaskColor(), 0);
    EXPECT_EQ(task->PredecessorDirty(), False);
    EXPECT_EQ(In(task).elementName(), "Tasks");
    EXPECT_FALSE(In(task).PeekSuccessor());
    EXPECT_FALSE(In(task).PeekPeople());
    EXPECT_FALSE(In(task).PeekTasks());
}

TEST(TasksCls, RepairsItsUnitAtTheFirstRead) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->TaskDurationUnitValid(), "False");
    EXPECT_EQ(task->TaskDurationUnit(), "days");
    EXPECT_EQ(task->TaskDurationUnitValid(), "True");
}

TEST(TasksCls, StartsWithEveryFlagDown) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->ParentIDValid(), False);
    EXPECT_EQ(task->TaskBDateValid(), False);
    EXPECT_EQ(task->TaskEDateValid(), False);
    EXPECT_EQ(task->TaskDurationValid(), False);
    EXPECT_EQ(task->TaskLagValid(), False);
    EXPECT_EQ(task->TaskNoteValid(), False);
    EXPECT_EQ(task->TaskPercentDoneValid(), False);
    EXPECT_EQ(task->TaskObstaclesRelationValid(), False);
    EXPECT_EQ(task->TaskGoalRelationValid(), False);
    EXPECT_EQ(task->TaskPeopleRelationValid(), False);
    EXPECT_EQ(task->TaskLinkValid(), False);
    EXPECT_EQ(task->TaskModifiedDateValid(), False);
    EXPECT_EQ(task->TaskModifiedValid(), False);
    EXPECT_EQ(task->TaskSuccessorValid(), False);
    EXPECT_EQ(task->TaskPredecessorValid(), False);
    EXPECT_EQ(task->TaskPositionValid(), False);
    EXPECT_EQ(task->TaskSubPositionValid(), False);
    EXPECT_EQ(task->TaskPositionInitemValid(), False);
    EXPECT_EQ(task->TaskcolorValid(), False);
}

TEST(TasksCls, MakesTheSharedErrorLogWhereThereIsNone) {
    TestSession session;
    const Ref<ErrorsHandler> before = Module().g_ErrorsHandler;
    Make<TasksCls>();
    EXPECT_EQ(Module().g_ErrorsHandler, before);
    Module().g_ErrorsHandler = {};
    Make<TasksCls>();
    EXPECT_TRUE(Module().g_ErrorsHandler);
}

TEST(TasksCls, CarriesPlainValues) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->ProjectID(-3);
    task->TaskType(Boolean::Raw(1));
    task->TaskKey(70000);
    task->TaskMilstones(True);
    task->TaskStatusKey(4);
    task->TaskCondidat(False);
    task->PredecessorDirty(True);
    task->TaskDurationUnitValid("whatever");
    EXPECT_EQ(task->ProjectID(), -3);
    EXPECT_EQ(task->TaskType().raw(), 1);
    EXPECT_EQ(task->TaskKey(), 70000);
    EXPECT_EQ(task->TaskMilstones(), True);
    EXPECT_EQ(task->TaskStatusKey(), 4);
    EXPECT_EQ(task->TaskCondidat(), False);
    EXPECT_EQ(task->PredecessorDirty(), True);
    EXPECT_EQ(task->TaskDurationUnitValid(), "whatever");
}

TEST(TaskName, CutsSilentlyBehind160Characters) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskName(String(160, 'a'));
    EXPECT_EQ(task->TaskName(), String(160, 'a'));
    task->TaskName(String(161, 'b'));
    EXPECT_EQ(task->TaskName(), String(160, 'b'));
    EXPECT_TRUE(session.ui.messages.empty());
}

TEST(TaskName, CountsUnitsOfSixteenBitsAndNeverHalvesACharacter) {
    TestSession session;
    const auto task = Make<TasksCls>();
    const String emoji = "\xF0\x9F\x8F\xA0";
    task->TaskName(String(158, 'a') + emoji);
    EXPECT_EQ(Length(task->TaskName()), 160U);
    EXPECT_EQ(task->TaskName(), String(158, 'a') + emoji);
    task->TaskName(String(159, 'a') + emoji);
    EXPECT_EQ(task->TaskName(), String(159, 'a'));
    task->TaskName(String(160, 'a') + emoji);
    EXPECT_EQ(task->TaskName(), String(160, 'a'));
    const String umlaut = "\xC3\xBC";
    task->TaskName(String(159, 'a') + umlaut + umlaut);
    EXPECT_EQ(task->TaskName(), String(159, 'a') + umlaut);
}

TEST(TaskName, StaysWholeWhereItComesFromAFileOrAClone) {
    TestSession session;
    const auto task = Make<TasksCls>();
    const String name(161, 'a');
    EXPECT_EQ(task->FromXml("<Tasks><TaskName>" + name + "</TaskName></Tasks>", {}), True);
    EXPECT_EQ(task->TaskName(), name);
    EXPECT_EQ(task->Clone()->TaskName(), name);
}

// --- Links -----------------------------------------------------------------------------------------------------------

TEST(IsPredecessor, ComparesTheTextsOfKeys) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->isPredecessor(5), False);
    EXPECT_EQ(task->isSucesser(5), False);
    EXPECT_EQ(task->TaskPredecessorValid(), False) << "asking makes nothing";
    task->TaskPredecessor()->Add("5", "5");
    task->TaskSuccessor()->Add(Long(6), "6");
    EXPECT_EQ(task->isPredecessor(5), True);
    EXPECT_EQ(task->isPredecessor("5"), True);
    EXPECT_EQ(task->isPredecessor("05"), False);
    EXPECT_EQ(task->isPredecessor(6), False);
    EXPECT_EQ(task->isSucesser("6"), True);
    EXPECT_EQ(task->isSucesser(5), False);
}

TEST(IsPredecessor, RecordsAKeyThatIsNone) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskPredecessor()->Add("5", "5");
    task->TaskSuccessor()->Add("5", "5");
    EXPECT_EQ(task->isPredecessor(Variant(Variant::Null{})), False);
    EXPECT_EQ(task->isSucesser(Variant(VariantArray{})), False);
    EXPECT_EQ(session.failures.Taken(), "TasksCls/isPredecessor 13\nTasksCls/isSucesser 13\n");
}

TEST(TaskLeadTime, IsMadeOnFirstReadAndMayBeReplaced) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_FALSE(In(task).PeekLeadTime());
    const auto entries = task->TaskLeadTime();
    ASSERT_TRUE(entries);
    EXPECT_EQ(task->TaskLeadTime(), entries);
    const auto others = Make<Collection>();
    task->TaskLeadTime(others);
    EXPECT_EQ(task->TaskLeadTime(), others);
}

TEST(SetTaskLink, ReplacesTheWholeText) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskLink("before");
    task->TaskLinkValid(False);
    String linked_to = "X";
    EXPECT_EQ(task->SetTaskLink("V", linked_to), True);
    EXPECT_EQ(task->TaskLink(), "X:|LINK|V");
    EXPECT_EQ(task->TaskLinkValid(), True);
    EXPECT_EQ(linked_to, "X");
}

TEST(GetTaskLink, GivesTheValueBehindWhatContainsTheText) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->GetTaskLink("X"), "");
    task->SetTaskLink("V", "task X");
    EXPECT_EQ(task->GetTaskLink("task X"), "V");
    EXPECT_EQ(task->GetTaskLink("X"), "V");
    EXPECT_EQ(task->GetTaskLink(""), "V") << "every text contains the empty one";
    EXPECT_EQ(task->GetTaskLink("x"), "");
    EXPECT_EQ(task->GetTaskLink("Y"), "");
    EXPECT_EQ(task->GetTaskLink("V"), "") << "nothing follows the value";
    task->TaskLink("X without a mark");
    EXPECT_EQ(task->GetTaskLink("X"), "");
}

TEST(GetTaskLink, KeepsTheLastOfSeveralHits) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskLink("X:|LINK|first X|LINK|second|LINK|third");
    EXPECT_EQ(task->GetTaskLink("X"), "second");
    EXPECT_EQ(task->GetTaskLink("second"), "third");
}

// --- Texts of the items ----------------------------------------------------------------------------------------------

TEST(TasksClsTexts, JoinTheCopiesOfTheItems) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->PeopleAsString() + task->GoalsAsString() + task->ObstaclesAsString() + task->NoteAsString(), "");
    EXPECT_FALSE(In(task).PeekPeople()) << "asking makes nothing";
    const auto people = Make<PeopleCol>();
    people->oPublicStaticCls = Make<StaticCls>();
    people->Add()->PersonName("Ann");
    people->Add()->PersonName("Bob");
    people->Item(2)->PersonCompany("Unseen");
    const auto nameless = people->Add();
    nameless->PersonName("  ");
    nameless->PersonCompany("Builders");
    task->TasksPeople(people);
    EXPECT_EQ(task->PeopleAsString(), "Ann, Bob, Builders");
    const auto goals = Make<GoalsCol>();
    goals->oPublicStaticCls = Make<StaticCls>();
    goals->Add()->GoalName("Dry");
    task->TasksGoals(goals);
    EXPECT_EQ(task->GoalsAsString(), "Dry; ");
}

TEST(NoteIndex, CountsFromOneAndIsMinusOneForANoteThatIsNotThere) {
    TestSession session;
    const auto task = Make<TasksCls>();
    EXPECT_EQ(task->NoteIndex("4"), -1);
    for (const char* key : {"4", "9"}) {
        const auto note = Make<NotesCls>();
        note->NoteKey(key);
        task->TaskNotes()->AddItem(note);
    }
    EXPECT_EQ(task->NoteIndex("4"), 1);
    EXPECT_EQ(task->NoteIndex("9"), 2);
    EXPECT_EQ(task->NoteIndex("5"), -1);
    EXPECT_EQ(task->NoteExist("9"), True);
    EXPECT_EQ(task->NoteExist("09"), False);
}

// --- Keys ------------------------------------------------------------------------------------------------------------

TEST(IncrementID, TakesAFreedKeyBeforeTheNext) {
    TestSession session;
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(8);
    In(counters).Free(StaticCls::Internal::Task, "3");
    In(counters).Free(StaticCls::Internal::Task, "2");
    const auto task = Make<TasksCls>();
    for (const int key : {3, 2, 9, 10}) {
        EXPECT_EQ(In(task).IncrementID(counters), True);
        EXPECT_EQ(task->TaskKey(), key);
    }
    EXPECT_EQ(counters->TaskKeyValue(), 10);
}

TEST(IncrementID, KeepsRecordingUnderTheNameOfObstacles) {
    TestSession session;
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(32766);
    const auto task = Make<TasksCls>();
    EXPECT_EQ(In(task).IncrementID(counters), True);
    EXPECT_EQ(task->TaskKey(), 32767);
    EXPECT_EQ(In(task).IncrementID(counters), False);
    EXPECT_EQ(task->TaskKey(), 32767);
    EXPECT_EQ(In(task).IncrementID({}), False);
    EXPECT_EQ(session.failures.Taken(), "ObstaclesCls/IncrementID 6\nObstaclesCls/IncrementID 91\n");
}

TEST(TaskCost, IsWrittenOnceItWasSet) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskCost(Currency(12));
    task->TaskCostUp(Currency(3));
    EXPECT_EQ(task->TaskCost(), Currency(12));
    EXPECT_EQ(task->TaskCostUp(), Currency(3));
    EXPECT_NE(task->ToXml(False).find("<TaskCost>12</TaskCost><TaskCostUp>3</TaskCostUp>"), String::npos);
}

// --- The row's place among the candidates
// -----------------------------------------------------------------------------

TEST(TaskCondidat, MovesTheStampOfCandidaciesWhenItChangesOnly) {
    TestSession session;
    const auto task = Make<TasksCls>();
    const auto stamp = Module().candidacy_stamp;
    task->TaskCondidat(True);
    EXPECT_EQ(Module().candidacy_stamp, stamp);
    task->TaskCondidat(False);
    EXPECT_NE(Module().candidacy_stamp, stamp);
}

}  // namespace
}  // namespace mrlxmlclass
