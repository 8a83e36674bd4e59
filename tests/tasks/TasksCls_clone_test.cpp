#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/support/Days.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(Clone, CopiesEveryValueWithItsFlag) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->ProjectID(1);
    task->ParentID(2);
    task->TaskType(True);
    task->TaskCondidat(False);
    task->TaskMilstones(True);
    task->TaskKey(3);
    task->TaskName("Roof");
    task->TaskColor(7);
    task->TaskStatusKey(8);
    task->TaskPercentDone(9);
    task->TaskLink("a:|LINK|b");
    task->TaskModifiedDate(Monday);
    task->TaskModified(True);
    In(task).elementName("Task");
    task->TaskPosition(10);
    task->TaskPositionValid(False);
    task->TaskSubPosition(11);
    task->TaskPositionInitem(12);
    task->PredecessorDirty(True);
    const auto clone = task->Clone();
    EXPECT_EQ(clone->ProjectID(), 1);
    EXPECT_EQ(clone->ParentID(), 2);
    EXPECT_EQ(clone->ParentIDValid(), True);
    EXPECT_EQ(clone->TaskType(), True);
    EXPECT_EQ(clone->TaskCondidat(), False);
    EXPECT_EQ(clone->TaskMilstones(), True);
    EXPECT_EQ(clone->TaskKey(), 3);
    EXPECT_EQ(clone->TaskName(), "Roof");
    EXPECT_EQ(clone->TaskColor(), 7);
    EXPECT_EQ(clone->TaskcolorValid(), True);
    EXPECT_EQ(clone->TaskStatusKey(), 8);
    EXPECT_EQ(clone->TaskPercentDone(), 9);
    EXPECT_EQ(clone->TaskPercentDoneValid(), True);
    EXPECT_EQ(clone->TaskLink(), "a:|LINK|b");
    EXPECT_EQ(clone->TaskModifiedDate(), Monday);
    EXPECT_EQ(clone->TaskModified(), True);
    EXPECT_EQ(In(clone).elementName(), "Task");
    EXPECT_EQ(clone->TaskPosition(), 10);
    EXPECT_EQ(clone->TaskPositionValid(), False);
    EXPECT_EQ(clone->TaskSubPosition(), 11);
    EXPECT_EQ(clone->TaskPositionInitem(), 12);
    EXPECT_EQ(clone->PredecessorDirty(), True);
    clone->TaskName("Wall");
    EXPECT_EQ(task->TaskName(), "Roof");
}

TEST(Clone, CopiesDatesAndDurationWithTheirFlags) {
    TestSession session;
    const auto task = Make<TasksCls>();
    In(task).StoreStart(Sunday + 0.5);
    In(task).TaskEDate_Int(Saturday);
    In(task).StoreDuration(4.5);
    In(task).TaskLag_Int(-6);
    task->TaskDurationUnit("fortnights");
    task->TaskDurationUnitValid("True");
    const auto clone = task->Clone();
    EXPECT_EQ(clone->TaskBDate(), Sunday) << "no date logic runs";
    EXPECT_EQ(clone->TaskBDateValid(), True);
    EXPECT_EQ(clone->TaskEDate(), Saturday);
    EXPECT_EQ(clone->TaskEDateValid(), False);
    EXPECT_EQ(clone->TaskDuration(), 4.5);
    EXPECT_EQ(clone->TaskDurationValid(), True);
    EXPECT_EQ(clone->TaskLag(), -6);
    EXPECT_EQ(clone->TaskLagValid(), False);
    EXPECT_EQ(clone->IsVaildDuration(), False) << "the unit is copied as it stands";
    EXPECT_EQ(clone->TaskDurationUnitValid(), "True");
}

TEST(Clone, LeavesAFreshUnitUnrepaired) {
    TestSession session;
    const auto clone = Make<TasksCls>()->Clone();
    EXPECT_EQ(clone->TaskDurationUnitValid(), "False");
    EXPECT_EQ(clone->TaskDurationUnit(), "days");
    EXPECT_EQ(clone->TaskDurationUnitValid(), "True");
}

TEST(Clone, SharesItsCollectionsBeforeAnythingWasRead) {
    TestSession session;
    const auto task = Make<TasksCls>();
    const auto clone = task->Clone();
    const auto second = clone->Clone();
    clone->TaskPredecessor()->Add("5", "5");
    EXPECT_EQ(task->isPredecessor(5), True);
    EXPECT_EQ(second->isPredecessor(5), True);
    EXPECT_EQ(task->TaskPredecessorValid(), False) << "each keeps its own flag";
    EXPECT_EQ(task->TaskPredecessor(), clone->TaskPredecessor());
    EXPECT_EQ(task->TaskPredecessorValid(), True);
    EXPECT_EQ(task->TaskSuccessor(), second->TaskSuccessor());
    EXPECT_EQ(task->TaskNoteRelation(), clone->TaskNoteRelation());
    EXPECT_EQ(task->TaskGoalRelation(), clone->TaskGoalRelation());
    EXPECT_EQ(task->TaskObstaclesRelation(), clone->TaskObstaclesRelation());
    EXPECT_EQ(task->TaskPeopleRelation(), clone->TaskPeopleRelation());
    EXPECT_EQ(task->TasksPeople(), clone->TasksPeople());
    EXPECT_EQ(In(task).Tasks(), In(second).Tasks());
}

TEST(Clone, SharesWhatWasReadBefore) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskPredecessor()->Add("5", "5");
    In(task).Tasks()->Add("8", "8");
    const auto clone = task->Clone();
    EXPECT_EQ(clone->TaskPredecessorValid(), True);
    clone->TaskPredecessor()->Add("6", "6");
    EXPECT_EQ(task->isPredecessor(6), True);
    EXPECT_TRUE(In(clone).HasChildren());
}

TEST(Clone, DropsAndReplacesCollectionsOfItsOwnOnly) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskPredecessor()->Add("5", "5");
    const auto clone = task->Clone();
    clone->TaskPredecessorValid(False);
    EXPECT_EQ(task->isPredecessor(5), True);
    EXPECT_EQ(clone->TaskPredecessor()->Count(), 0);
    task->TasksPeople(Make<PeopleCol>());
    EXPECT_FALSE(task->TasksPeople() == clone->TasksPeople());
}

TEST(Clone, KeepsItsLeadTimesNotesGoalsAndObstaclesEmpty) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskLeadTime()->Add("5|2", "5");
    const auto note = Make<NotesCls>();
    note->NoteKey("1");
    task->TaskNotes()->AddItem(note);
    const auto goals = task->TasksGoals();
    const auto obstacles = task->TaskObstacles();
    const auto clone = task->Clone();
    EXPECT_EQ(clone->TaskLeadTime()->Count(), 0);
    EXPECT_EQ(clone->TaskNotes()->Count(), 0);
    EXPECT_FALSE(clone->TasksGoals() == goals);
    EXPECT_FALSE(clone->TaskObstacles() == obstacles);
    EXPECT_EQ(task->TaskLeadTime()->Count(), 1);
    EXPECT_EQ(task->TaskNotes()->Count(), 1);
}

TEST(Clone, KeepsCountingItsCostsAsSet) {
    TestSession session;
    const auto task = Make<TasksCls>();
    const auto clone = task->Clone();
    EXPECT_EQ(clone->TaskCost(), Currency());
    EXPECT_EQ(task->ToXml(False).find("<TaskCost"), String::npos);
    EXPECT_NE(clone->ToXml(False).find("<TaskCost>0</TaskCost>"), String::npos);
    EXPECT_NE(clone->ToXml(False).find("<TaskCostUp>0</TaskCostUp>"), String::npos);
}

TEST(Clone, AddsNoEmptyElementsOfCollections) {
    TestSession session;
    Module().BVersion = True;
    const auto task = Make<TasksCls>();
    const String before = task->ToXml(False);
    task->Clone()->TaskPredecessor();
    task->isPredecessor(1);
    task->PeopleAsString();
    EXPECT_EQ(task->ToXml(False), before);
}

#if !defined(__SANITIZE_ADDRESS__)  // which would end the program itself

/// The memory of this process cannot grow by more than so many bytes.
class MemoryLimit {
public:
    explicit MemoryLimit(rlim_t bytes) {
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        getrlimit(RLIMIT_AS, &before_);
        rlimit limited = before_;
        limited.rlim_cur = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes;
        setrlimit(RLIMIT_AS, &limited);
    }
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before_); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    rlimit before_{};
};

TEST(Clone, KeepsRecordingUnderAnotherNameThatMemoryIsLacking) {
    TestSession session;
    const auto task = Make<TasksCls>();
    constexpr std::size_t kLarge = 64U << 20U;
    task->TaskLink(String(kLarge, 'x'));
    {
        const MemoryLimit limit(kLarge / 2);
        EXPECT_FALSE(task->Clone());
    }
    EXPECT_EQ(session.failures.Taken(), "TasksCls/Clone_Error 7\n");
}

#endif

}  // namespace
}  // namespace mrlxmlclass
