#include <gtest/gtest.h>

#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/support/Days.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// One value with its flag, told apart from its empty state by 5.
template <class Value>
struct Pair {
    const char* name;
    Value (TasksCls::*get)() const;
    void (TasksCls::*let)(Value);
    Boolean (TasksCls::*flag)() const;
    void (TasksCls::*let_flag)(Boolean);
};

const Pair<Long> kClearing[] = {
    {"ParentID", &TasksCls::ParentID, &TasksCls::ParentID, &TasksCls::ParentIDValid, &TasksCls::ParentIDValid},
    {"TaskLag", &TasksCls::TaskLag, &TasksCls::TaskLag, &TasksCls::TaskLagValid, &TasksCls::TaskLagValid},
    {"TaskPercentDone", &TasksCls::TaskPercentDone, &TasksCls::TaskPercentDone, &TasksCls::TaskPercentDoneValid,
     &TasksCls::TaskPercentDoneValid},
};
const Pair<Long> kStanding[] = {
    {"TaskPosition", &TasksCls::TaskPosition, &TasksCls::TaskPosition, &TasksCls::TaskPositionValid,
     &TasksCls::TaskPositionValid},
    {"TaskSubPosition", &TasksCls::TaskSubPosition, &TasksCls::TaskSubPosition, &TasksCls::TaskSubPositionValid,
     &TasksCls::TaskSubPositionValid},
    {"TaskPositionInitem", &TasksCls::TaskPositionInitem, &TasksCls::TaskPositionInitem,
     &TasksCls::TaskPositionInitemValid, &TasksCls::TaskPositionInitemValid},
    {"TaskColor", &TasksCls::TaskColor, &TasksCls::TaskColor, &TasksCls::TaskcolorValid, &TasksCls::TaskcolorValid},
};

TEST(ValidFlag, RisesWithItsValueAndClearsItWhenItChanges) {
    TestSession session;
    for (const Pair<Long>& pair : kClearing) {
        SCOPED_TRACE(pair.name);
        const auto held = Make<TasksCls>();
        TasksCls& task = *held;
        (task.*pair.let)(5);
        EXPECT_EQ((task.*pair.get)(), 5);
        EXPECT_EQ((task.*pair.flag)(), True);
        (task.*pair.let_flag)(True);
        EXPECT_EQ((task.*pair.get)(), 5) << "the same flag changes nothing";
        (task.*pair.let_flag)(False);
        EXPECT_EQ((task.*pair.get)(), 0);
        EXPECT_EQ((task.*pair.flag)(), False);
    }
}

TEST(ValidFlag, ClearsAValueOnItsWayUpToo) {
    TestSession session;
    const auto task = Make<TasksCls>();
    In(task).TaskLag_Int(5);
    task->TaskLagValid(True);
    EXPECT_EQ(task->TaskLag(), 0);
    In(task).TaskLink_Int("a");
    task->TaskLinkValid(True);
    EXPECT_EQ(task->TaskLink(), "");
}

TEST(ValidFlag, OnlyStoresWhereAValueStandsByItself) {
    TestSession session;
    for (const Pair<Long>& pair : kStanding) {
        SCOPED_TRACE(pair.name);
        const auto held = Make<TasksCls>();
        TasksCls& task = *held;
        (task.*pair.let)(5);
        EXPECT_EQ((task.*pair.flag)(), True);
        (task.*pair.let_flag)(False);
        EXPECT_EQ((task.*pair.get)(), 5);
        EXPECT_EQ((task.*pair.flag)(), False);
    }
}

TEST(ValidFlag, ClearsTheLinkTextAndTheModification) {
    TestSession session;
    const auto task = Make<TasksCls>();
    task->TaskLink("a:|LINK|b");
    task->TaskModifiedDate(Monday + 0.5);
    task->TaskModified(True);
    EXPECT_EQ(task->TaskLinkValid(), True);
    EXPECT_EQ(task->TaskModifiedDate(), Monday + 0.5);
    EXPECT_EQ(task->TaskModified(), True);
    for (const Boolean flag : {False, True}) {
        task->TaskLinkValid(flag);
        task->TaskModifiedDateValid(flag);
        task->TaskModifiedValid(flag);
    }
    EXPECT_EQ(task->TaskLink(), "");
    EXPECT_EQ(task->TaskModifiedDate(), Date());
    EXPECT_EQ(task->TaskModified(), False);
}

TEST(ValidFlag, GuardsTheModification) {
    TestSession session;
    const auto task = Make<TasksCls>();
    In(task).TaskModifiedDate_Int(Monday);
    In(task).TaskModified_Int(True);
    EXPECT_EQ(task->TaskModifiedDate(), Date());
    EXPECT_EQ(session.failures.LatestWords(),
              "The Property TaskModifiedDate is not valid set m_TaskModifiedDateValid = true");
    EXPECT_EQ(task->TaskModified(), False);
    EXPECT_EQ(session.failures.LatestWords(), "The Property TaskModified is not valid set m_TaskModifiedValid = true");
    EXPECT_EQ(session.failures.Taken(), "TasksCls/TaskModifiedDate 1\nTasksCls/TaskModified 1\n");
}

/// A collection behind a flag: read, dropped, filled from inside.
template <class Held>
struct GuardedPair {
    const char* failure;
    const char* words;
    Ref<Held> (TasksCls::*read)();
    void (TasksCls::*let)(const Ref<Held>&);
    Boolean (TasksCls::*flag)() const;
    void (TasksCls::*let_flag)(Boolean);
    void (TasksCls::Internal::*let_inside)(const Ref<Held>&);
};

template <class Held>
void ExpectGuard(const GuardedPair<Held>& pair) {
    SCOPED_TRACE(pair.words);
    TestSession session;
    const auto held = Make<TasksCls>();
    TasksCls& task = *held;
    const Ref<Held> made = (task.*pair.read)();
    ASSERT_TRUE(made);
    EXPECT_EQ((task.*pair.flag)(), True) << "the first read raises the flag";
    EXPECT_EQ((task.*pair.read)(), made);
    (task.*pair.let_flag)(True);
    EXPECT_EQ((task.*pair.read)(), made);
    (task.*pair.let_flag)(False);
    EXPECT_EQ((task.*pair.flag)(), False);
    const Ref<Held> again = (task.*pair.read)();
    ASSERT_TRUE(again);
    EXPECT_FALSE(again == made) << "the change of the flag dropped it";
    EXPECT_EQ((task.*pair.flag)(), True);
    const auto given = Make<Held>();
    (task.*pair.let)(given);
    EXPECT_EQ((task.*pair.read)(), given);

    const auto other = Make<TasksCls>();
    auto inside = In(other);
    (inside.*pair.let_inside)(given);
    EXPECT_EQ(((*other).*pair.flag)(), False);
    EXPECT_EQ(session.failures.Taken(), "");
    EXPECT_FALSE(((*other).*pair.read)());
    EXPECT_EQ(session.failures.Taken(), pair.failure);
    EXPECT_EQ(Module().g_ErrorsHandler->RaisedBy(), "TasksCls");
    EXPECT_EQ(session.failures.LatestWords(), pair.words);
    const auto clone = other->Clone();
    EXPECT_FALSE(((*clone).*pair.read)()) << "a clone is filled from inside too";
    EXPECT_EQ(session.failures.Taken(), pair.failure);
    ((*other).*pair.let_flag)(True);
    EXPECT_TRUE(((*other).*pair.read)());

    const auto empty = Make<TasksCls>();
    auto inside_empty = In(empty);
    (inside_empty.*pair.let_inside)({});
    const auto early_clone = empty->Clone();
    EXPECT_TRUE(((*empty).*pair.read)()) << "nothing to guard";
    EXPECT_EQ(((*early_clone).*pair.read)(), ((*empty).*pair.read)());
}

TEST(Guard, HoldsOfWhatWasFilledFromInside) {
    ExpectGuard<Collection>({"TasksCls/TaskSuccessor 1\n",
                             "The Property TaskSuccessor is not valid set m_TaskSuccessorValid = true",
                             &TasksCls::TaskSuccessor, &TasksCls::TaskSuccessor, &TasksCls::TaskSuccessorValid,
                             &TasksCls::TaskSuccessorValid, &TasksCls::Internal::TaskSuccessor_Int});
    ExpectGuard<Collection>({"TasksCls/TaskPredecessor 1\n",
                             "The Property TaskPredecessor is not valid set m_TaskPredecessorValid = true",
                             &TasksCls::TaskPredecessor, &TasksCls::TaskPredecessor, &TasksCls::TaskPredecessorValid,
                             &TasksCls::TaskPredecessorValid, &TasksCls::Internal::TaskPredecessor_Int});
    ExpectGuard<TaskObstaclesRelationCol>(
        {"TasksCls/TaskObstaclesRelation 1\n",
         "The Property TaskObstaclesRelation is not valid set m_TaskObstaclesRelationValid = true",
         &TasksCls::TaskObstaclesRelation, &TasksCls::TaskObstaclesRelation, &TasksCls::TaskObstaclesRelationValid,
         &TasksCls::TaskObstaclesRelationValid, &TasksCls::Internal::TaskObstaclesRelation_Int});
    ExpectGuard<TaskGoalRelationCol>({"TasksCls/TaskGoalRelation 1\n",
                                      "The Property TaskGoalRelation is not valid set m_TaskGoalRelationValid = true",
                                      &TasksCls::TaskGoalRelation, &TasksCls::TaskGoalRelation,
                                      &TasksCls::TaskGoalRelationValid, &TasksCls::TaskGoalRelationValid,
                                      &TasksCls::Internal::TaskGoalRelation_Int});
}

TEST(Guard, KeepsTheNumberlessRefusalOfNoteRelations) {
    ExpectGuard<TaskNoteRelationCol>({"TasksCls/TaskNoteRelation 0\n", "", &TasksCls::TaskNoteRelation,
                                      &TasksCls::TaskNoteRelation, &TasksCls::TaskNoteValid, &TasksCls::TaskNoteValid,
                                      &TasksCls::Internal::TaskNoteRelation_Int});
}

TEST(Guard, KeepsRefusingPeopleUnderTheNameOfObstacles) {
    ExpectGuard<TaskAssigmentRelationCol>(
        {"TasksCls/TaskObstaclesRelation 1\n",
         "The Property TaskPeopleRelationValid is not valid set m_m_TaskPeopleRelationValid = true",
         &TasksCls::TaskPeopleRelation, &TasksCls::TaskPeopleRelation, &TasksCls::TaskPeopleRelationValid,
         &TasksCls::TaskPoepleRelationValid, &TasksCls::Internal::TaskPoepleRelation_Int});
}

}  // namespace
}  // namespace mrlxmlclass
