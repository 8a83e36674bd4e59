#include "mrlxmlclass/runtime/Collection.h"

#include <gtest/gtest.h>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

/// The items in order, as one text.
String Drawn(const Collection& collection) {
    String items;
    for (const auto& entry : collection.Snapshot()) items += entry.item.As<String>();
    return items;
}

TEST(Collection, IsEmptyAtFirst) {
    const Collection collection;
    EXPECT_EQ(collection.Count(), 0);
    EXPECT_EQ(NumberOf([&] { collection.Item(1); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { collection.Item("a"); }), failure::kUnknownKey);
}

TEST(Collection, TakesANumberAsAPlaceAndATextAsAKey) {
    Collection collection;
    collection.Add("first", "2");
    collection.Add("second", "1");
    EXPECT_EQ(collection.Item(1), Variant("first"));
    EXPECT_EQ(collection.Item("1"), Variant("second"));
    EXPECT_EQ(collection.Item(Integer(2)), Variant("second"));
}

TEST(Collection, RoundsAFractionalPlaceHalfToEven) {
    Collection collection;
    for (const char* item : {"a", "b", "c"}) collection.Add(item);
    EXPECT_EQ(collection.Item(1.5), Variant("b"));
    EXPECT_EQ(collection.Item(2.5), Variant("b"));
    EXPECT_EQ(NumberOf([&] { collection.Item(0.5); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { collection.Item(1e300); }), failure::kOverflow);
}

TEST(Collection, FailsOutsideItsPlaces) {
    Collection collection;
    collection.Add("a");
    for (const int place : {0, -1, 2, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(NumberOf([&] { collection.Item(place); }), failure::kIndexOutOfRange) << place;
        EXPECT_EQ(NumberOf([&] { collection.Remove(place); }), failure::kIndexOutOfRange) << place;
        EXPECT_EQ(NumberOf([&] { collection.Add("b", "b", place); }), failure::kIndexOutOfRange) << place;
    }
    EXPECT_EQ(collection.Count(), 1);
    EXPECT_FALSE(collection.Has("b"));
}

TEST(Collection, FailsOnAPlaceOfAnotherKind) {
    Collection collection;
    collection.Add("a");
    for (const Variant& index : {Variant(), Variant(True), Variant(Date(1)), Variant(Variant::Missing{})}) {
        EXPECT_EQ(NumberOf([&] { collection.Item(index); }), failure::kTypeMismatch);
    }
}

TEST(Collection, FailsOnAKeyThatIsTaken) {
    Collection collection;
    collection.Add("a", "1");
    EXPECT_EQ(NumberOf([&] { collection.Add("b", "1"); }), failure::kDuplicateKey);
    collection.Add("c", "01");
    EXPECT_EQ(Drawn(collection), "ac");
}

TEST(Collection, TakesAnyNumberOfItemsWithoutAKey) {
    Collection collection;
    for (int i = 0; i < 20; ++i) collection.Add("x");
    EXPECT_EQ(collection.Count(), 20);
    EXPECT_FALSE(collection.Has(KeyText()));
    EXPECT_FALSE(collection.Has(""));
}

TEST(Collection, TakesTheEmptyTextAsAKeyLikeAnyOther) {
    Collection collection;
    collection.Add("a", "");
    EXPECT_TRUE(collection.Has(""));
    EXPECT_EQ(collection.Item(""), Variant("a"));
    EXPECT_EQ(NumberOf([&] { collection.Add("b", ""); }), failure::kDuplicateKey);
}

TEST(Collection, AddsBeforeAPlaceOrAKey) {
    Collection collection;
    collection.Add("c", "c");
    collection.Add("a", "a", 1);
    collection.Add("b", "b", "c");
    EXPECT_EQ(Drawn(collection), "abc");
    EXPECT_EQ(NumberOf([&] { collection.Add("d", "d", "unknown"); }), failure::kUnknownKey);
    EXPECT_EQ(Drawn(collection), "abc");
}

TEST(Collection, RemovesByPlaceAndByKey) {
    Collection collection;
    for (const char* item : {"a", "b", "c", "d"}) collection.Add(item, item);
    collection.Remove(2);
    collection.Remove("d");
    EXPECT_EQ(Drawn(collection), "ac");
    EXPECT_EQ(NumberOf([&] { collection.Remove("b"); }), failure::kUnknownKey);
    EXPECT_EQ(collection.Item("c"), Variant("c"));
}

TEST(Collection, StampsEveryChange) {
    Collection collection;
    const auto fresh = collection.Stamp();
    collection.Add("a", "a");
    const auto added = collection.Stamp();
    collection.Item("a");
    collection.Snapshot();
    EXPECT_NE(added, fresh);
    EXPECT_EQ(collection.Stamp(), added);
    collection.Remove("a");
    EXPECT_NE(collection.Stamp(), added);
    EXPECT_NE(collection.Stamp(), fresh);
}

TEST(Collection, CanBeEmptiedWhileItsSnapshotIsWalked) {
    Collection collection;
    for (int i = 1; i <= 100; ++i) collection.Add(i, i);
    std::int64_t sum = 0;
    for (const auto& entry : collection.Snapshot()) {
        collection.Remove(entry.key.text());
        sum += entry.item.As<Long>();
    }
    EXPECT_EQ(sum, 5050);
    EXPECT_EQ(collection.Count(), 0);
}

}  // namespace
}  // namespace mrlxmlclass
