#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/HeldByHost.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

Ref<TasksCls> TaskOfKey(Long key) {
    auto task = Make<TasksCls>();
    task->TaskKey(key);
    return task;
}

TEST(TasksColAdd, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    TestSession session;
    HeldByHost<TasksCol> tasks(session);
    EXPECT_TRUE(tasks->Add("")) << "filed under 0";
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(session.failures.Taken(), "ObstaclesCls/IncrementID 91\n");
}

TEST(TasksColAddItem, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    TestSession session;
    HeldByHost<TasksCol> tasks(session);
    EXPECT_TRUE(tasks->AddItem(Make<TasksCls>()));
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(session.failures.Taken(), "ObstaclesCls/IncrementID 91\n");
}

TEST(GetTaskAndSubNumber, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    TestSession session;
    HeldByHost<TasksCol> tasks(session);
    for (const int key : {1, 2, 3}) tasks->AddItem(TaskOfKey(key))->TaskPosition(key);
    for (const int child : {2, 3}) tasks->AddParentTask(1, child);
    tasks->AddParentTask(2, 8);  // which is no task
    EXPECT_EQ(tasks->GetTaskAndSubNumber("1", True), 3);
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(session.failures.Taken(), "TasksCol/GetTaskAndSubNumber 91\n");
}

TEST(CanbeLeveled, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    TestSession session;
    HeldByHost<TasksCol> tasks(session);
    tasks->AddItem(TaskOfKey(1));
    tasks->AddParentTask(1, 8);  // which is no task
    EXPECT_TRUE(tasks->CanbeLeveled("1", ""));
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(session.failures.Taken(), "TasksCol/GetFirstChildKey 91\n");
}

TEST(AddTaskParentForAll, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    TestSession session;
    HeldByHost<TasksCol> tasks(session);
    const auto phase = tasks->AddItem(TaskOfKey(1));
    phase->TaskType(False);
    phase->TaskPosition(1);
    const auto candidate = tasks->AddItem(TaskOfKey(2));
    candidate->TaskCondidat(False);
    candidate->TaskPosition(2);
    tasks->AddPhase(Variant(Long(1)));  // it is there already
    EXPECT_FALSE(tasks->AddTaskParentForAll());
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(session.failures.Taken(), "TasksCol/AddPhase 457\n");
}

TEST(SetPhases, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    TestSession session;
    HeldByHost<TasksCol> tasks(session);
    for (const char* key : {"x", "y"}) tasks->Add(key)->TaskType(False);  // both with the key 0
    tasks->SetPhases();
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(session.failures.Taken(), "TasksCol/AddPhase 457\n");
}

}  // namespace
}  // namespace mrlxmlclass
