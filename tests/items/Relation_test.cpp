#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(RelationRecord, StartsWithTheKeyOfItsKind) {
    Items s;
    EXPECT_EQ(Make<TaskAssigmentRelationCls>()->elementKey(), "0");
    EXPECT_EQ(Make<TaskGoalRelationCls>()->elementKey(), "");
    EXPECT_EQ(Make<TaskObstaclesRelationCls>()->elementKey(), "");
    EXPECT_EQ(Make<TaskNoteRelationCls>()->elementKey(), "");
    EXPECT_EQ(In(Make<TaskGoalRelationCls>()).elementName(), "TaskGoalsRelation");
    EXPECT_EQ(In(Make<TaskObstaclesRelationCls>()).elementName(), "TaskObstaclesRelation");
    EXPECT_EQ(In(Make<TaskAssigmentRelationCls>()).elementName(), "TaskAssigmentRelation");
    EXPECT_EQ(In(Make<TaskNoteRelationCls>()).elementName(), "TaskNoteKeys");
}

TEST(RelationDescription, IsGuardedWhereItHasAFlag) {
    Items s;
    const auto assigment = Make<TaskAssigmentRelationCls>();
    const auto note = Make<TaskNoteRelationCls>();
    EXPECT_EQ(assigment->Description(), "");
    EXPECT_EQ(note->Description(), "");
    EXPECT_EQ(s.failures.LatestWords(), "The Property Description is not valid set m_DescriptionValid = true");
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCls/Description 1\nTaskNoteRelationCls/Description 1\n");
    assigment->Description("half a day");
    EXPECT_EQ(assigment->Description(), "half a day");
    assigment->DescriptionValid(False);
    assigment->DescriptionValid(True);
    EXPECT_EQ(assigment->Description(), "");
    In(note).Description_Int("inside");
    EXPECT_EQ(note->DescriptionValid(), False);
    In(note).DescriptionValid_Int(True);
    EXPECT_EQ(note->Description(), "inside");
}

TEST(RelationDescription, IsPlainWhereItHasNone) {
    Items s;
    const auto goal = Make<TaskGoalRelationCls>();
    EXPECT_EQ(goal->Description(), "");
    goal->Description("because");
    EXPECT_EQ(goal->Description(), "because");
}

TEST(RelationClone, CopiesEveryField) {
    Items s;
    const auto relation = Make<TaskNoteRelationCls>();
    relation->TaskKey(3);
    relation->NoteKey("4");
    relation->Description("d");
    relation->elementKey("5");
    In(relation).elementName("X");
    EXPECT_EQ(relation->Clone()->ToXml(False), relation->ToXml(False));
    EXPECT_EQ(relation->Clone()->elementKey(), "5");
}

TEST(RelationXml, WritesTheChildrenInTheOrderOfTheKind) {
    Items s;
    const auto goal = Make<TaskGoalRelationCls>();
    goal->TaskKey(1);
    goal->Goalkey(2);
    goal->elementKey("3");
    EXPECT_EQ(goal->ToXml(False),
              "<TaskGoalsRelation><TaskKey>1</TaskKey><GoalKey>2</GoalKey><Description/><Key>3</Key>"
              "</TaskGoalsRelation>");
    const auto obstacle = Make<TaskObstaclesRelationCls>();
    obstacle->TaskKey(1);
    obstacle->Obstaclekey(2);
    obstacle->Description("d");
    obstacle->elementKey("3");
    EXPECT_EQ(obstacle->ToXml(False),
              "<TaskObstaclesRelation><TaskKey>1</TaskKey><ObstacleKey>2</ObstacleKey>"
              "<Description>d</Description><Key>3</Key></TaskObstaclesRelation>");
    const auto assigment = Make<TaskAssigmentRelationCls>();
    assigment->TaskKey(1);
    assigment->personkey(2);
    assigment->elementKey("3");
    EXPECT_EQ(assigment->ToXml(False),
              "<TaskAssigmentRelation><Key>3</Key><TaskKey>1</TaskKey><PersonKey>2</PersonKey>"
              "</TaskAssigmentRelation>");
    const auto note = Make<TaskNoteRelationCls>();
    note->TaskKey(1);
    note->NoteKey("2");
    note->elementKey("3");
    note->Description("");
    EXPECT_EQ(note->ToXml(False),
              "<TaskNoteKeys><TaskKey>1</TaskKey><NoteKey>2</NoteKey><Key>3</Key><Description/></TaskNoteKeys>");
}

TEST(RelationXml, ReadsBackWhatItWroteAndRaisesTheCounterOfItsKind) {
    Items s;
    const auto relation = Make<TaskAssigmentRelationCls>();
    EXPECT_EQ(
        relation->FromXml("<R><Key>12</Key><TaskKey>1</TaskKey><PersonKey>2</PersonKey><Description/></R>", s.counters),
        True);
    EXPECT_EQ(relation->elementKey(), "12");
    EXPECT_EQ(relation->personkey(), 2);
    EXPECT_EQ(relation->DescriptionValid(), True);  // it stands, though it is empty
    EXPECT_EQ(In(relation).elementName(), "R");
    EXPECT_EQ(s.counters->AssigmentTaskRelationKeyValue(), 12);
    relation->FromXml("<R><Key>5</Key></R>", s.counters);
    EXPECT_EQ(s.counters->AssigmentTaskRelationKeyValue(), 12);
    EXPECT_EQ(relation->TaskKey(), 0);  // each reading starts anew
}

TEST(RelationXml, StandsUnderTheFirstKeyOfItsKindWhereNoneIsTold) {
    Items s;
    const auto key_of = [&](const auto& relation) {
        relation->elementKey("7");
        EXPECT_EQ(relation->FromXml("<R><TaskKey>1</TaskKey></R>", s.counters), True);
        return relation->elementKey();
    };
    EXPECT_EQ(key_of(Make<TaskAssigmentRelationCls>()), "0");
    EXPECT_EQ(key_of(Make<TaskGoalRelationCls>()), "");
    EXPECT_EQ(key_of(Make<TaskObstaclesRelationCls>()), "");
    EXPECT_EQ(key_of(Make<TaskNoteRelationCls>()), "");
}

TEST(RelationXml, LeavesAnElementOutOfOrderUnread) {
    Items s;
    const auto relation = Make<TaskGoalRelationCls>();
    relation->FromXml("<R><Key>3</Key><TaskKey>1</TaskKey></R>", s.counters);
    EXPECT_EQ(relation->elementKey(), "3");
    EXPECT_EQ(relation->TaskKey(), 0);
}

TEST(RelationXml, ABadNumberOrAKeyPastTheLastIsRecorded) {
    Items s;
    const auto relation = Make<TaskGoalRelationCls>();
    EXPECT_EQ(relation->FromXml("<R><TaskKey>x</TaskKey></R>", s.counters), False);
    EXPECT_EQ(relation->FromXml("<R><Key>32768</Key></R>", s.counters), False);
    EXPECT_EQ(relation->FromXml("<R><Key>1</Key></R>", {}), False);
    EXPECT_EQ(s.failures.Taken(),
              "TaskGoalRelationCls/FromXml 13\nTaskGoalRelationCls/FromXml 6\nTaskGoalRelationCls/FromXml 91\n");
}

TEST(RelationIncrementID, KeepsTheGoalRelationDrawingFromTheFreedKeysOfGoals) {
    Items s;
    In(s.counters).Free(Keys::Goal, "3");
    In(s.counters).Free(Keys::GoalRelation, "4");
    const auto relation = Make<TaskGoalRelationCls>();
    In(relation).IncrementID(s.counters);
    EXPECT_EQ(relation->elementKey(), "3");
    In(relation).IncrementID(s.counters);
    EXPECT_EQ(relation->elementKey(), "1");
    EXPECT_EQ(FreedIn(s.counters, Keys::GoalRelation), "4");
}

TEST(RelationIncrementID, OfAnAssignmentTakesTheFirstFreedOne) {
    Items s;
    In(s.counters).Free(Keys::AssigmentRelation, "9");
    In(s.counters).Free(Keys::AssigmentRelation, "2");
    const auto relation = Make<TaskAssigmentRelationCls>();
    In(relation).IncrementID(s.counters);
    EXPECT_EQ(relation->elementKey(), "9");
}

TEST(RelationIncrementID, OfObstaclesAndNotesOnlyCounts) {
    Items s;
    In(s.counters).Free(Keys::ObstacleRelation, "9");
    In(s.counters).Free(Keys::NoteRelation, "9");
    const auto obstacle = Make<TaskObstaclesRelationCls>();
    const auto note = Make<TaskNoteRelationCls>();
    In(obstacle).IncrementID(s.counters);
    In(note).IncrementID(s.counters);
    EXPECT_EQ(obstacle->elementKey(), "1");
    EXPECT_EQ(note->elementKey(), "1");
    EXPECT_EQ(s.counters->ObstalcesTaskRelationKeyValue(), 1);
}

TEST(RelationIncrementID, OverflowsPastTheLastKey) {
    Items s;
    s.counters->GoalTaskRelationKeyValue(32767);
    const auto relation = Make<TaskGoalRelationCls>();
    In(relation).IncrementID(s.counters);
    EXPECT_EQ(relation->elementKey(), "");
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCls/IncrementID 6\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
