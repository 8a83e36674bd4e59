#include "mrlxmlclass/runtime/Variant.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass {
namespace {

struct Person : Counted {};
struct Goal : Counted {};

TEST(Variant, TakesWholeNumbersAsLongs) {
    EXPECT_NE(Variant(5).If<Long>(), nullptr);
    EXPECT_NE(Variant(0).If<Long>(), nullptr);
    EXPECT_NE(Variant(std::size_t{5}).If<Long>(), nullptr);
    EXPECT_NE(Variant(Integer(5)).If<Long>(), nullptr);
    EXPECT_EQ(Variant(Integer(5)), Variant(Long(5)));
    EXPECT_EQ(NumberOf([] { Variant{std::int64_t{INT32_MAX} + 1}; }), failure::kOverflow);
}

TEST(Variant, TakesLiteralsAsTexts) {
    EXPECT_EQ(Variant("5").As<String>(), "5");
    EXPECT_EQ(Variant(std::string_view("5")).As<String>(), "5");
    EXPECT_EQ(Variant(String("5")).As<String>(), "5");
}

TEST(Variant, KeepsEveryKindApart) {
    const Variant kinds[] = {Variant(),     Variant::Null{},         Variant::Missing{}, True,
                             Variant(-1),   Variant(-1.0),           Currency(-1),       Date(-1),
                             Variant("-1"), Variant(Make<Person>()), VariantArray{},     Variant(nullptr)};
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        for (std::size_t k = 0; k < std::size(kinds); ++k) EXPECT_EQ(kinds[i] == kinds[k], i == k) << i << " " << k;
    }
}

TEST(Variant, IsEmptyUntilItHoldsSomething) {
    EXPECT_TRUE(Variant().is_empty());
    EXPECT_TRUE(Variant(Variant::Null{}).is_null());
    EXPECT_TRUE(Variant(Variant::Missing{}).is_missing());
    EXPECT_FALSE(Variant("").is_empty());
    EXPECT_FALSE(Variant(nullptr).is_empty());
}

TEST(Variant, TakesATruthValueAsABoolean) {
    EXPECT_EQ(Variant(true).As<Boolean>(), True);
    EXPECT_EQ(Variant(Boolean::Raw(1)).As<Boolean>().raw(), 1);
}

TEST(Variant, GivesItsValueAsThatVeryKindAlone) {
    EXPECT_EQ(Variant(5).As<Long>(), 5);
    EXPECT_EQ(NumberOf([] { Variant(5).As<String>(); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { Variant("5").As<Long>(); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { Variant(5.0).As<Long>(); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { Variant().As<Long>(); }), failure::kTypeMismatch);
    EXPECT_EQ(Variant(5).If<double>(), nullptr);
}

TEST(Variant, LetsItsValueBeChangedInPlace) {
    Variant value = "a";
    *value.If<String>() += "b";
    EXPECT_EQ(value, Variant("ab"));
}

TEST(Variant, GivesAnObjectAsItsClass) {
    const Ref<Person> person = Make<Person>();
    EXPECT_EQ(Variant(person).Object<Person>(), person);
    EXPECT_EQ(Variant(person).Object<Counted>(), person);
    EXPECT_EQ(NumberOf([&] { Variant(person).Object<Goal>(); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { Variant(5).Object<Goal>(); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { Variant(Variant::Null{}).Object<Goal>(); }), failure::kTypeMismatch);
}

TEST(Variant, LetsNothingStayNothing) {
    EXPECT_FALSE(Variant().Object<Goal>());
    EXPECT_FALSE(Variant(nullptr).Object<Goal>());
    EXPECT_FALSE(Variant(Ref<Person>()).Object<Goal>());
}

TEST(Variant, SharesTheObjectItHolds) {
    const Ref<Person> person = Make<Person>();
    {
        const Variant one = person;
        const Variant other = one;
        EXPECT_FALSE(person.alone());
    }
    EXPECT_TRUE(person.alone());
}

TEST(Variant, HoldsArraysOfItsKind) {
    const Variant nested = VariantArray{1, "two", VariantArray{3.0}};
    const auto& outer = nested.As<VariantArray>();
    EXPECT_EQ(outer.size(), 3U);
    EXPECT_EQ(outer[2].As<VariantArray>()[0], Variant(3.0));
    EXPECT_EQ(nested, Variant(VariantArray{1, "two", VariantArray{3.0}}));
}

TEST(VariantNumber, IsTheValueOfEveryKindThatIsANumber) {
    EXPECT_EQ(Variant(5).Number(), 5);
    EXPECT_EQ(Variant(INT32_MIN).Number(), INT32_MIN);
    EXPECT_EQ(Variant(2.5).Number(), 2.5);
    EXPECT_EQ(Variant(True).Number(), -1);
    EXPECT_EQ(Variant(Boolean::Raw(7)).Number(), 7);
    EXPECT_EQ(Variant(Currency(2.5)).Number(), 2.5);
    EXPECT_EQ(Variant(Date(2.5)).Number(), 2.5);
    EXPECT_EQ(Variant().Number(), 0);
}

TEST(VariantNumber, FailsOnWhatIsNone) {
    for (const Variant& value : {Variant("5"), Variant(""), Variant(Variant::Null{}), Variant(Variant::Missing{}),
                                 Variant(nullptr), Variant(Make<Person>()), Variant(VariantArray{})}) {
        EXPECT_EQ(NumberOf([&] { value.Number(); }), failure::kTypeMismatch);
    }
}

TEST(VariantKey, IsTheTextForm) {
    EXPECT_EQ(Variant(5).Key(), KeyText("5"));
    EXPECT_EQ(Variant("05").Key(), KeyText("05"));
    EXPECT_EQ(Variant(-1).Key(), KeyText("-1"));
    EXPECT_EQ(Variant(5.0).Key(), KeyText("5"));
    EXPECT_EQ(Variant(-0.0).Key(), KeyText("0"));
    EXPECT_EQ(Variant().Key(), KeyText(""));
    EXPECT_EQ(Variant("").Key(), KeyText(""));
}

TEST(VariantKey, IsTheTextFormOfTheLocale) {
    mrlxmlclass::testing::TestPlatform platform;
    EXPECT_EQ(Variant(5.5).Key(), KeyText("5.5"));
    EXPECT_EQ(Variant(3e9).Key(), KeyText("3000000000"));
    EXPECT_EQ(Variant(Currency(5)).Key(), KeyText("5"));
    EXPECT_EQ(Variant(True).Key(), KeyText("True"));
    EXPECT_EQ(Variant(Boolean::Raw(1)).Key(), KeyText("True"));
    EXPECT_EQ(Variant(False).Key(), KeyText("False"));
    EXPECT_EQ(Variant(Date::Of(2026, 3, 2)).Key(), KeyText("3/2/2026"));
    platform.locale.Use("dd.MM.yyyy", ",");
    EXPECT_EQ(Variant(5.5).Text(), "5,5");
    EXPECT_EQ(Variant(Currency(5.25)).Text(), "5,25");
    EXPECT_EQ(Variant(Date::Of(2026, 3, 2)).Text(), "02.03.2026");
}

TEST(VariantKey, FailsOnWhatHasNoText) {
    for (const Variant& value : {Variant(Variant::Null{}), Variant(Variant::Missing{}), Variant(nullptr),
                                 Variant(Make<Person>()), Variant(VariantArray{})}) {
        EXPECT_EQ(NumberOf([&] { value.Key(); }), failure::kTypeMismatch);
        EXPECT_EQ(NumberOf([&] { value.Text(); }), failure::kTypeMismatch);
    }
    EXPECT_EQ(NumberOf([] { Variant(std::numeric_limits<double>::quiet_NaN()).Key(); }), failure::kOverflow);
}

}  // namespace
}  // namespace mrlxmlclass
