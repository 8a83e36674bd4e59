#include "mrlxmlclass/session/StaticCls.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/session/StaticCls_internal.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;
using Keys = StaticCls::Internal;

TEST(StaticCls, StartsEveryCounterAtZero) {
    const auto counters = Make<StaticCls>();
    EXPECT_EQ(counters->TaskKeyValue(), 0);
    EXPECT_EQ(counters->PersonKeyValue(), 0);
    EXPECT_EQ(counters->GoalKeyValue(), 0);
    EXPECT_EQ(counters->CalendarKeyValue(), 0);
    EXPECT_EQ(counters->GoalTaskRelationKeyValue(), 0);
    EXPECT_EQ(counters->AssigmentTaskRelationKeyValue(), 0);
    EXPECT_EQ(counters->ObstalcesTaskRelationKeyValue(), 0);
    EXPECT_EQ(In(counters).Counter(Keys::Note), 0);
    EXPECT_EQ(In(counters).Counter(Keys::Obstacle), 0);
    EXPECT_EQ(In(counters).Counter(Keys::NoteRelation), 0);
}

TEST(StaticCls, HoldsEachCounterOnItsOwn) {
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(1);
    counters->PersonKeyValue(2);
    counters->GoalKeyValue(3);
    counters->CalendarKeyValue(4);
    counters->GoalTaskRelationKeyValue(5);
    counters->AssigmentTaskRelationKeyValue(6);
    counters->ObstalcesTaskRelationKeyValue(7);
    In(counters).Counter(Keys::Note, 8);
    In(counters).Counter(Keys::Obstacle, 9);
    In(counters).Counter(Keys::NoteRelation, 10);
    EXPECT_EQ(counters->TaskKeyValue(), 1);
    EXPECT_EQ(counters->PersonKeyValue(), 2);
    EXPECT_EQ(counters->GoalKeyValue(), 3);
    EXPECT_EQ(counters->CalendarKeyValue(), 4);
    EXPECT_EQ(counters->GoalTaskRelationKeyValue(), 5);
    EXPECT_EQ(counters->AssigmentTaskRelationKeyValue(), 6);
    EXPECT_EQ(counters->ObstalcesTaskRelationKeyValue(), 7);
    EXPECT_EQ(In(counters).Counter(Keys::Note), 8);
    EXPECT_EQ(In(counters).Counter(Keys::Obstacle), 9);
    EXPECT_EQ(In(counters).Counter(Keys::NoteRelation), 10);
    EXPECT_EQ(In(counters).Counter(Keys::Task), 1);
}

TEST(NextKey, CountsFromOne) {
    const auto counters = Make<StaticCls>();
    EXPECT_EQ(In(counters).NextKey(Keys::Note), 1);
    EXPECT_EQ(In(counters).NextKey(Keys::Note), 2);
    EXPECT_EQ(In(counters).NextKey(Keys::Obstacle), 1);
}

TEST(NextKey, FailsPastTheLastKeyAndLeavesTheCounterThere) {
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(32766);
    EXPECT_EQ(In(counters).NextKey(Keys::Task), 32767);
    EXPECT_EQ(NumberOf([&] { In(counters).NextKey(Keys::Task); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([&] { In(counters).NextKey(Keys::Task, Keys::Task); }), failure::kOverflow);
    EXPECT_EQ(counters->TaskKeyValue(), 32767);
}

TEST(NextKey, TakesTheFirstFreedKeyFirst) {
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(9);
    In(counters).Free(Keys::Task, "5");
    In(counters).Free(Keys::Task, "3");
    EXPECT_EQ(In(counters).NextKey(Keys::Task, Keys::Task).Number(), 5);
    EXPECT_EQ(In(counters).NextKey(Keys::Task, Keys::Task).Number(), 3);
    EXPECT_EQ(In(counters).NextKey(Keys::Task, Keys::Task).Number(), 10);
    EXPECT_EQ(counters->TaskKeyValue(), 10);
}

TEST(NextKey, DrawsFromAPoolOfAnotherKindWhereItIsTold) {
    const auto counters = Make<StaticCls>();
    In(counters).Free(Keys::Goal, "3");
    EXPECT_EQ(In(counters).NextKey(Keys::GoalRelation, Keys::Goal).Number(), 3);
    EXPECT_EQ(counters->GoalTaskRelationKeyValue(), 0);
}

TEST(NextKey, StillGivesFreedKeysWhenTheCounterHasReachedItsEnd) {
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(32767);
    In(counters).Free(Keys::Task, "12");
    EXPECT_EQ(In(counters).NextKey(Keys::Task, Keys::Task).Number(), 12);
}

TEST(RaiseTo, LiftsTheCounterAndNeverLowersIt) {
    const auto counters = Make<StaticCls>();
    In(counters).RaiseTo(Keys::Task, 12);
    EXPECT_EQ(counters->TaskKeyValue(), 12);
    In(counters).RaiseTo(Keys::Task, 5);
    In(counters).RaiseTo(Keys::Task, -40000);
    EXPECT_EQ(counters->TaskKeyValue(), 12);
}

TEST(RaiseTo, FailsOnAKeyThatNoCounterHolds) {
    const auto counters = Make<StaticCls>();
    EXPECT_EQ(NumberOf([&] { In(counters).RaiseTo(Keys::Task, 32768); }), failure::kOverflow);
    EXPECT_EQ(counters->TaskKeyValue(), 0);
}

TEST(KeyPool, ComesIntoBeingAtItsFirstUse) {
    const auto counters = Make<StaticCls>();
    EXPECT_FALSE(In(counters).PeekPool(Keys::Person));
    EXPECT_FALSE(In(counters).IsFree(Keys::Person, "1"));
    In(counters).Free(Keys::Person, "1");
    EXPECT_TRUE(In(counters).IsFree(Keys::Person, "1"));
    EXPECT_EQ(In(counters).PeekPool(Keys::Person), In(counters).Pool(Keys::Person));
    EXPECT_EQ(In(counters).Pool(Keys::Person)->Item("1"), Variant("1"));
    EXPECT_FALSE(In(counters).PeekPool(Keys::Goal));
}

TEST(KeyPool, RefusesAKeyTwice) {
    const auto counters = Make<StaticCls>();
    In(counters).Free(Keys::Person, "1");
    EXPECT_EQ(NumberOf([&] { In(counters).Free(Keys::Person, "1"); }), failure::kDuplicateKey);
}

TEST(Reset, SetsAllCountersToZeroAndDropsThePools) {
    const auto counters = Make<StaticCls>();
    counters->TaskKeyValue(5);
    In(counters).Counter(Keys::NoteRelation, 6);
    In(counters).Free(Keys::Task, "3");
    In(counters).Reset();
    EXPECT_EQ(counters->TaskKeyValue(), 0);
    EXPECT_EQ(In(counters).Counter(Keys::NoteRelation), 0);
    EXPECT_FALSE(In(counters).PeekPool(Keys::Task));
    EXPECT_EQ(In(counters).NextKey(Keys::Task, Keys::Task).Number(), 1);
}

TEST(KeyExist, ComparesKeysAsTexts) {
    TestSession session;
    const auto counters = Make<StaticCls>();
    In(counters).Free(Keys::Task, "5");
    const Ref<Collection> pool = In(counters).Pool(Keys::Task);
    EXPECT_EQ(counters->KeyExist(pool, 5), True);
    EXPECT_EQ(counters->KeyExist(pool, "5"), True);
    EXPECT_EQ(counters->KeyExist(pool, "05"), False);
    EXPECT_EQ(counters->KeyExist(pool, 6), False);
}

TEST(KeyExist, FindsNothingInAPoolThatIsEmptyOrMissing) {
    TestSession session;
    const auto counters = Make<StaticCls>();
    EXPECT_EQ(counters->KeyExist(Make<Collection>(), 5), False);
    EXPECT_EQ(counters->KeyExist({}, 5), False);
}

TEST(KeyExist, RecordsAnArgumentThatIsNoKey) {
    TestSession session;
    EXPECT_EQ(Make<StaticCls>()->KeyExist(Make<Collection>(), Variant::Null{}), False);
    EXPECT_EQ(session.failures.Taken(), "StaticCls/KeyExist 13\n");
}

}  // namespace
}  // namespace mrlxmlclass
