#include "mrlxmlclass/runtime/Dictionary.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

struct Owner : Counted {};

TEST(Dictionary, KeepsTheOrderInWhichKeysCame) {
    Dictionary dictionary;
    for (const char* key : {"7", "1", "3"}) dictionary.Add(key, key);
    dictionary.Remove("1");
    dictionary.Add("1", "again");
    EXPECT_EQ(dictionary.Keys(), (VariantArray{"7", "3", "1"}));
    EXPECT_EQ(dictionary.Items(), (VariantArray{"7", "3", "again"}));
}

TEST(Dictionary, TellsKeysOfDifferentKindsApart) {
    Dictionary dictionary;
    const VariantArray keys = {"12", 12, Date(12), Variant(), True, -1, "", Make<Owner>(), Make<Owner>(), "012"};
    for (const Variant& key : keys) dictionary.Add(key, dictionary.Count());
    EXPECT_EQ(dictionary.Count(), 10);
    for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(dictionary.Item(keys[i]), Variant(i)) << i;
    EXPECT_EQ(dictionary.Keys(), keys);
}

TEST(Dictionary, TakesWholeNumbersOfOneValueAsOneKey) {
    Dictionary dictionary;
    dictionary.Add(Integer(5), "five");
    EXPECT_TRUE(dictionary.Exists(Long(5)));
    EXPECT_TRUE(dictionary.Exists(5.0));
    EXPECT_TRUE(dictionary.Exists(Currency(5)));
    EXPECT_FALSE(dictionary.Exists(5.5));
    EXPECT_FALSE(dictionary.Exists(Date(5)));
    dictionary.Add(0.0, "zero");
    EXPECT_TRUE(dictionary.Exists(-0.0));
    EXPECT_EQ(NumberOf([&] { dictionary.Add(0, "zero"); }), failure::kDuplicateKey);
}

TEST(Dictionary, GivesItsNumberKeysBackAsLongsWhereTheyFit) {
    Dictionary dictionary;
    for (const Variant& key : {Variant(INT32_MIN), Variant(INT32_MAX), Variant(7.0), Variant(7.5), Variant(3e9)}) {
        dictionary.Add(key, {});
    }
    EXPECT_EQ(dictionary.Keys(), (VariantArray{INT32_MIN, INT32_MAX, 7, 7.5, 3e9}));
}

TEST(Dictionary, FailsOnAKeyThatIsThereAlready) {
    Dictionary dictionary;
    dictionary.Add("a", 1);
    EXPECT_EQ(NumberOf([&] { dictionary.Add("a", 2); }), failure::kDuplicateKey);
    EXPECT_EQ(dictionary.Item("a"), Variant(1));
    EXPECT_EQ(dictionary.Count(), 1);
}

TEST(Dictionary, FailsOnAnUnknownKey) {
    Dictionary dictionary;
    dictionary.Add("1", 1);
    EXPECT_EQ(NumberOf([&] { dictionary.Item(1); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { dictionary.Remove(1); }), failure::kUnknownKey);
    EXPECT_FALSE(dictionary.Exists("2"));
    EXPECT_EQ(dictionary.Count(), 1);
}

TEST(Dictionary, FailsOnAKeyOfAKindThatIsNone) {
    Dictionary dictionary;
    for (const Variant& key : {Variant(Variant::Null{}), Variant(Variant::Missing{}), Variant(VariantArray{})}) {
        EXPECT_EQ(NumberOf([&] { dictionary.Add(key, 1); }), failure::kUnknownKey);
        EXPECT_EQ(NumberOf([&] { dictionary.Exists(key); }), failure::kUnknownKey);
    }
    EXPECT_EQ(dictionary.Count(), 0);
}

TEST(Dictionary, ReplacesAnItemInItsPlace) {
    Dictionary dictionary;
    dictionary.Add("a", 1);
    dictionary.Add("b", 2);
    dictionary.Item("a", 3);
    dictionary.Item("c", 4);
    EXPECT_EQ(dictionary.Keys(), (VariantArray{"a", "b", "c"}));
    EXPECT_EQ(dictionary.Items(), (VariantArray{3, 2, 4}));
}

TEST(Dictionary, OutlivesAKeyThatIsNoNumber) {
    Dictionary dictionary;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (int i = 0; i < 20; ++i) dictionary.Add(i, i);
    dictionary.Add(nan, "lost");
    EXPECT_FALSE(dictionary.Exists(nan));
    for (int i = 0; i < 20; ++i) dictionary.Remove(i);
    EXPECT_EQ(dictionary.Count(), 1);
    dictionary.RemoveAll();
    EXPECT_EQ(dictionary.Count(), 0);
}

TEST(Dictionary, HoldsTheObjectsThatAreItsKeys) {
    const Ref<Owner> owner = Make<Owner>();
    Dictionary dictionary;
    for (int i = 0; i < 20; ++i) dictionary.Add(Make<Owner>(), i);
    dictionary.Add(owner, "mine");
    EXPECT_FALSE(owner.alone());
    EXPECT_EQ(dictionary.Item(owner), Variant("mine"));
    dictionary.Remove(owner);
    EXPECT_TRUE(owner.alone());
}

TEST(Dictionary, TellsItsTextKeys) {
    const Ref<Owner> owner = Make<Owner>();
    ASSERT_NE(DictionaryKey("12").text(), nullptr);
    EXPECT_EQ(*DictionaryKey("12").text(), KeyText("12"));
    for (const Variant& key : {Variant(12), Variant(Date(12)), Variant(), Variant(owner)}) {
        EXPECT_EQ(DictionaryKey(key).text(), nullptr);
    }
}

TEST(Dictionary, StaysAsItWasInASnapshot) {
    Dictionary dictionary;
    dictionary.Add("a", 1);
    const auto before = dictionary.Snapshot();
    const auto stamp = dictionary.Stamp();
    dictionary.RemoveAll();
    EXPECT_NE(dictionary.Stamp(), stamp);
    EXPECT_EQ(dictionary.Count(), 0);
    ASSERT_EQ(before.size(), 1U);
    EXPECT_EQ(before[0].item, Variant(1));
}

}  // namespace
}  // namespace mrlxmlclass
