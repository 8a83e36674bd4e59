#include "mrlxmlclass/tasks/TasksCol.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(Item, GivesNothingForNoKeyAndForAnUnknownOne) {
    Plan plan;
    plan.Task("A");
    for (const Variant& key : {Variant(""), Variant(0), Variant("0"), Variant(77), Variant("abc"), Variant()}) {
        EXPECT_FALSE(plan.col().Item(key));
    }
}

TEST(Item, TakesTheKeyAsNumberOrAsText) {
    Plan plan;
    plan.Task("A");
    EXPECT_EQ(plan.col().Item(1)->TaskName(), "A");
    EXPECT_EQ(plan.col().Item(Integer(1))->TaskName(), "A");
    EXPECT_EQ(plan.col().Item("1")->TaskName(), "A");
    EXPECT_FALSE(plan.col().Item("01"));
}

TEST(Item, TakesTheTextOfAnyOtherValueForTheKey) {
    Plan plan;
    plan.Task("A");
    plan.col().Add("1.5");
    EXPECT_EQ(plan.col().Item(Currency(1)), plan.col().Item(1));
    EXPECT_EQ(plan.col().Item(1.0), plan.col().Item(1));
    EXPECT_EQ(plan.col().Item(1.5), plan.col().Item("1.5"));
    for (const Variant& key : {Variant(2.5), Variant(True), Variant(Date(1)), Variant(1e300)}) {
        EXPECT_FALSE(plan.col().Item(key)) << "unknown, and nothing to record";
    }
    plan.col().Remove(2.5, {}, {}, {}, {}, {}, {}, True);
    EXPECT_TRUE(Module().g_InAddOrRemove) << "as after any unknown key";
}

TEST(Item, RecordsAKeyThatHasNoText) {
    Plan plan;
    EXPECT_FALSE(plan.col().Item(plan.app));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/Item 13\n");
}

TEST(AddTask, GivesTheRowBehindTheLastAndAnEndOnTheNextWorkingDay) {
    Plan plan;
    plan.Task("A").Task("Kept aside").Candidate();
    plan.platform.clock.now = Saturday + 0.5;

    const Ref<TasksCls> task = plan.col().Add();

    EXPECT_EQ(task->TaskKey(), 3);
    EXPECT_EQ(task->TaskPosition(), 2);
    EXPECT_EQ(DayName(task->TaskEDate()), DayName(Monday + 7));
    EXPECT_EQ(In(task).elementName(), "Task");
    EXPECT_EQ(plan.col().Item(3), task);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTask, GivesTheFirstRowBehindACandidateThatWasFiledAsItIs) {
    Plan plan;
    const auto candidate = Make<TasksCls>();
    candidate->TaskCondidat(False);
    plan.col().AddItem(candidate);
    EXPECT_EQ(plan.col().Add()->TaskPosition(), 1);
}

TEST(AddTask, KeepsTheStartWithoutItsFlag) {
    Plan plan;
    const Ref<TasksCls> task = plan.col().Add();
    EXPECT_EQ(task->TaskBDate(), Monday);
    EXPECT_FALSE(task->TaskBDateValid());
    EXPECT_TRUE(task->TaskEDateValid());
}

TEST(AddTask, IssuesOnlyAKeyForAnEmptyID) {
    Plan plan;
    plan.Task("A");
    const Ref<TasksCls> task = plan.col().Add("");
    EXPECT_EQ(plan.col().Item(2), task);
    EXPECT_EQ(task->TaskPosition(), 0);
    EXPECT_FALSE(task->TaskEDate().set());
}

TEST(AddTask, KeepsTheOwnKeyOfATaskThatIsFiledUnderAnotherID) {
    Plan plan;
    const Ref<TasksCls> task = plan.col().Add("abc");
    EXPECT_EQ(plan.col().Item("abc"), task);
    EXPECT_EQ(task->TaskKey(), 0);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 1) << "no key was issued for it";
}

TEST(AddTask, RefusesAnIDThatIsTaken) {
    Plan plan;
    plan.Task("A");
    EXPECT_FALSE(plan.col().Add(1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/Add 457\n");
    EXPECT_EQ(plan.col().Count(True), 1);
}

TEST(AddTask, FilesATaskUnderNoKeyWhenKeysHaveRunOut) {
    Plan plan;
    In(plan.col().oPublicStaticCls).RaiseTo(StaticCls::Internal::Task, 32767);

    EXPECT_EQ(plan.col().Add()->TaskKey(), 0);
    EXPECT_EQ(plan.failures.Taken(), "ObstaclesCls/IncrementID 6\n");
    EXPECT_EQ(plan.col().Count(True), 1);
    EXPECT_FALSE(plan.col().Item("0"));

    EXPECT_FALSE(plan.col().Add());
    EXPECT_EQ(plan.failures.Taken(), "ObstaclesCls/IncrementID 6\nTasksCol/Add 457\n");
}

TEST(AddTask, NeedsTheCountersOfASession) {
    Plan plan;
    EXPECT_EQ(Make<TasksCol>()->Add()->TaskKey(), 0);
    EXPECT_EQ(plan.failures.Taken(), "ObstaclesCls/IncrementID 91\n");
}

TEST(AddTask, TakesFreedKeysInTheOrderInWhichTheyWereFreed) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    plan.col().SetPhases();
    plan.col().Remove(plan.Key("C"), {}, {}, {}, {}, {}, {}, True);
    plan.col().Remove(plan.Key("A"), {}, {}, {}, {}, {}, {}, True);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 3);
    EXPECT_EQ(plan.col().Add("")->TaskKey(), 1);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 4);
}

TEST(AddItem, StoresACloneAndGivesIt) {
    Plan plan;
    auto task = Make<TasksCls>();
    task->TaskKey(12);
    task->TaskName("Copied");

    const Ref<TasksCls> stored = plan.col().AddItem(task);

    EXPECT_FALSE(stored == task);
    EXPECT_EQ(plan.col().Item(12), stored);
    EXPECT_EQ(stored->TaskName(), "Copied");
    EXPECT_EQ(In(stored).elementName(), "Task");
    EXPECT_FALSE(Module().g_InAddOrRemove);
}

TEST(AddItem, IssuesAKeyToATaskWithoutOne) {
    Plan plan;
    auto task = Make<TasksCls>();
    EXPECT_EQ(plan.col().AddItem(task)->TaskKey(), 1);
    EXPECT_EQ(task->TaskKey(), 0);
}

TEST(AddItem, KeepsACandidateUncounted) {
    Plan plan;
    auto task = Make<TasksCls>();
    task->TaskCondidat(False);
    plan.col().AddItem(task);
    EXPECT_EQ(plan.col().Count(False), 1);
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 0);
}

TEST(AddItem, KeepsTheFlagUpAfterAFailure) {
    Plan plan;
    plan.Task("A");
    EXPECT_FALSE(plan.col().AddItem(plan.col().Item(1)));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddItem 457\n");
    EXPECT_TRUE(Module().g_InAddOrRemove);

    EXPECT_FALSE(plan.col().AddItem({}));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddItem 91\n");
    EXPECT_TRUE(Module().g_InAddOrRemove);
}

TEST(Count, LeavesCandidatesOutUnlessAskedForAll) {
    Plan plan;
    plan.Task("A").Task("B").Task("Kept aside").Candidate();
    EXPECT_EQ(plan.col().Count(), 2);
    EXPECT_EQ(plan.col().Count(True), 3);
    EXPECT_EQ(plan.col().GetCount(), 3);
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 2);
}

TEST(GetValidTaskNumber, LooksAtTheTasksAndNotAtTheCountOfCandidates) {
    Plan plan;
    plan.Task("A").Task("B");
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 2);
    plan["B"].TaskCondidat(False);
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 1);
    EXPECT_EQ(plan.col().Count(), 2);
    plan["B"].TaskCondidat(True);
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 2);
    plan.Task("C");
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 3);
    plan.col().RemoveForLib(plan.Key("A"));
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 2);
}

TEST(SetNumberOFCondidat, CountsFlipsOfTheHostAndNeverBelowZero) {
    Plan plan;
    plan.Task("A").Task("B");
    plan.col().SetNumberOFCondidat(False);
    EXPECT_EQ(plan.col().Count(), 1);
    plan.col().SetNumberOFCondidat(True);
    plan.col().SetNumberOFCondidat(True);
    EXPECT_EQ(plan.col().Count(), 2);
    EXPECT_TRUE(plan.col().SetNumberOFCondidat(False).is_empty());
}

TEST(SetNumberOFCondidat, KeepsStillWhileATaskIsAddedOrRemoved) {
    Plan plan;
    plan.Task("A").Task("B");
    Module().g_InAddOrRemove = True;
    plan.col().SetNumberOFCondidat(False);
    EXPECT_EQ(plan.col().Count(), 2);
}

TEST(TaskCanNotBeAdd, AnswersTrueFrom999TasksOnAndStopsNobody) {
    Plan plan;
    for (int i = 0; i < 999; ++i) plan.col().Add("");
    EXPECT_TRUE(plan.col().TaskCanNotBeAdd());

    plan.col().Remove(5, {}, {}, {}, {}, {}, {});
    EXPECT_FALSE(plan.col().TaskCanNotBeAdd()) << "a candidate does not count";
    plan.Heard();

    EXPECT_TRUE(plan.col().Add());
    EXPECT_TRUE(plan.col().Add());
    EXPECT_EQ(plan.col().Count(), 1000);
}

TEST(GetTasks, GivesClonesOfTheChildren) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").Task("Build").Under("Phase").Task("Other");
    const Ref<TasksCol> children = plan.col().GetTasks(plan.Key("Phase"));
    EXPECT_EQ(Walked(*children), "Design Build");
    EXPECT_FALSE(children->Item(2) == plan.col().Item(2));
    EXPECT_EQ(plan.col().GetTasks(77)->Count(True), 0);
}

TEST(GetTasks, ComparesAsNumbers) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").Task("Other");
    for (const char* phase : {"1.0", "01", " 1 "}) EXPECT_EQ(Walked(*plan.col().GetTasks(phase)), "Design") << phase;
    for (const char* nobody : {"1.5", "99999999999"}) EXPECT_EQ(Walked(*plan.col().GetTasks(nobody)), "") << nobody;
    EXPECT_EQ(Walked(*plan.col().GetTasks("A")), "Phase Other") << "no number counts as the top";
    plan.platform.locale.Use("M/d/yyyy", ",");
    EXPECT_EQ(Walked(*plan.col().GetTasks(1.5)), "");
    EXPECT_EQ(Walked(*plan.col().GetTasks(True)), "");
}

TEST(GetTasks, KeepsCandidatesAtTheTopLevelUncounted) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").Task("Kept aside").Candidate().Task("Last");
    const Ref<TasksCol> top = plan.col().GetTasks(0);
    EXPECT_EQ(Walked(*top), "Phase Kept aside Last");
    EXPECT_EQ(top->Count(), 3) << "candidates of a snapshot are not counted";
}

TEST(GetTasksAsKeys, GivesTheChildrenAsNumbersInAscendingPosition) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Under("Phase").Task("C").Under("Phase");
    plan["A"].TaskPosition(4);
    plan["C"].TaskPosition(2);
    const Ref<Dictionary> keys = plan.col().GetTasksAsKeys(plan.Key("Phase"));
    EXPECT_EQ(Listed(keys), "4 3 2");
    EXPECT_TRUE(keys->Exists(Long(4)));
    EXPECT_FALSE(keys->Exists("4"));
    EXPECT_EQ(keys->Item(Long(4)), Variant(Long(4)));
}

TEST(GetTasksAsKeys, FollowsARenumberedChildAtOnce) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("B").Under("Phase");
    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys(1)), "2 3");
    plan["A"].TaskPosition(9);
    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys(1)), "3 2");
}

TEST(GetTasksAsKeys, GivesNothingForAnUnknownTaskAndNoKeyForALeaf) {
    Plan plan;
    plan.Task("A");
    EXPECT_FALSE(plan.col().GetTasksAsKeys(77));
    EXPECT_FALSE(plan.col().GetTasksAsKeys(0));
    EXPECT_EQ(plan.col().GetTasksAsKeys("1")->Count(), 0);
}

TEST(GetTasksAsKeys, NeverFindsAChildWithoutAKey) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase");
    In(plan.col()).File("0", Make<TasksCls>());
    plan.col().AddParentTask(1, 0);
    EXPECT_FALSE(plan.col().GetTasksAsKeys(1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTasksAsKeys 91\n");
}

TEST(GetTasksAsKeys, RecordsAChildThatIsNoTask) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase");
    plan.col().AddParentTask(1, 77);
    EXPECT_FALSE(plan.col().GetTasksAsKeys(1));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTasksAsKeys 91\n");
}

TEST(CloneOfTasks, HoldsClonesAndNothingElseOfTheOriginal) {
    Plan plan;
    plan.Task("Phase").Task("A").Under("Phase").Task("Kept aside").Candidate();
    plan.col().AutoLink(True);
    plan.col().SetPhases();

    const Ref<TasksCol> copy = plan.col().Clone();

    EXPECT_EQ(Walked(*copy), "Phase A Kept aside");
    EXPECT_FALSE(copy->Item(1) == plan.col().Item(1));
    EXPECT_EQ(copy->Count(False), 3);
    EXPECT_EQ(copy->Count(True), 3);
    EXPECT_FALSE(copy->oPublicStaticCls);
    EXPECT_FALSE(copy->AutoLink());
    EXPECT_EQ(copy->Phases()->Count(), 0);
    EXPECT_EQ(In(*copy).elementName(), "Task");
    EXPECT_TRUE(copy->isParent("1")) << "the children are shared";
    copy->ChangeName("1", "Nobody hears this");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Phase"].TaskName(), "Phase");
}

TEST(IamNotAvailable, TakesAFreedKeyOnce) {
    Plan plan;
    plan.Task("A").Task("B");
    plan.col().SetPhases();
    EXPECT_FALSE(plan.col().IamNotAvailable("1")) << "nothing was freed yet";
    plan.col().Remove(1, {}, {}, {}, {}, {}, {}, True);
    EXPECT_TRUE(plan.col().IamNotAvailable("1"));
    EXPECT_FALSE(plan.col().IamNotAvailable("1"));
    EXPECT_EQ(plan.col().Add()->TaskKey(), 3);
}

TEST(IamNotAvailable, RecordsItsFailuresUnderALabelOfItsOwn) {
    Plan plan;
    EXPECT_FALSE(Make<TasksCol>()->IamNotAvailable("1"));
    EXPECT_EQ(plan.failures.Taken(), "TaskCol/IamNotAvailable 91\n");
}

TEST(GetValidTasks, KeepsFailingAtTheFirstTaskOfTheOutline) {
    Plan plan;
    plan.Task("Kept aside").Candidate();
    EXPECT_FALSE(plan.col().GetValidTasks());
    EXPECT_EQ(plan.failures.Taken(), "");
    plan.Task("A").Task("B");
    EXPECT_FALSE(plan.col().GetValidTasks());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetValidTasks 91\n");
}

TEST(GetMaxPos, LooksAtTheOutlineOnly) {
    Plan plan;
    EXPECT_EQ(In(plan.col()).GetMaxPos(), 0);
    plan.Task("A").Task("B").Task("Kept aside").Candidate();
    plan["A"].TaskPosition(7);
    plan["Kept aside"].TaskPosition(9);
    EXPECT_EQ(In(plan.col()).GetMaxPos(), 7);
}

TEST(GetMaxPos, RecordsARowThatNoIntegerHolds) {
    Plan plan;
    plan.Task("A");
    plan["A"].TaskPosition(40000);
    EXPECT_EQ(In(plan.col()).GetMaxPos(), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetMaxPos 6\n");
}

TEST(RemoveALL, KeepsTheCountOfCandidatesAndThePhases) {
    Plan plan;
    plan.Task("A").Task("Kept aside").Candidate();
    plan.col().SetPhases();
    EXPECT_TRUE(In(plan.col()).RemoveALL());
    EXPECT_EQ(plan.col().Count(True), 0);
    EXPECT_EQ(plan.col().Count(False), -1);
    EXPECT_EQ(Listed(plan.col().Phases()), "1");
}

TEST(NewEnum, WalksTheTasksAsTheyStoodWhenItBegan) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    String walked;
    for (const auto& entry : plan.col().NewEnum()) {
        walked += entry.item->TaskName();
        plan.col().RemoveForLib(entry.item->TaskKey());
    }
    EXPECT_EQ(walked, "ABC");
    EXPECT_EQ(plan.col().Count(True), 0);
}

}  // namespace
}  // namespace mrlxmlclass
