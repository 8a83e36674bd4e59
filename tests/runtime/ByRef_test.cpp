#include "mrlxmlclass/runtime/ByRef.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"
#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {
namespace {

struct Task : Counted {
    Long lag = 0;
};

Long AddOne(ByRef<Long> value) {
    *value += 1;
    return *value;
}

Boolean IsGiven(ByRef<String> text) {
    return text.Given();
}
Boolean IsHeard(ByRef<String> text) {
    return text.Heard();
}

TEST(ByRef, WritesBackIntoAVariable) {
    Long value = 5;
    EXPECT_EQ(AddOne(value), 6);
    EXPECT_EQ(value, 6);
}

TEST(ByRef, OnlyUsesAValueOrALiteral) {
    const Long fixed = 5;
    EXPECT_EQ(AddOne(fixed), 6);
    EXPECT_EQ(fixed, 5);
    EXPECT_EQ(AddOne(5), 6);
    EXPECT_EQ(AddOne(Long(5)), 6);
}

TEST(ByRef, OnlyUsesAVariableOfAnotherType) {
    Integer narrow = 5;
    EXPECT_EQ(AddOne(narrow), 6);
    EXPECT_EQ(narrow, 5);
}

TEST(ByRef, CountsAsTheEmptyValueWhenLeftOut) {
    EXPECT_EQ(AddOne({}), 1);
    EXPECT_FALSE(IsGiven({}));
    EXPECT_FALSE(IsHeard({}));
}

TEST(ByRef, TellsWhetherItWasGivenAndIsHeard) {
    String variable;
    const String fixed;
    EXPECT_TRUE(IsGiven(variable));
    EXPECT_TRUE(IsHeard(variable));
    EXPECT_TRUE(IsGiven(fixed));
    EXPECT_FALSE(IsHeard(fixed));
    EXPECT_TRUE(IsGiven("literal"));
    EXPECT_FALSE(IsHeard("literal"));
    EXPECT_TRUE(IsGiven(String()));
}

TEST(ByRef, WritesIntoTheSameVariableFromItsCopy) {
    Long value = 5;
    ByRef<Long> first = value;
    ByRef<Long> copy = first;
    *copy = 9;
    EXPECT_EQ(value, 9);
    EXPECT_EQ(*first, 9);
    EXPECT_TRUE(copy.Heard());
}

TEST(ByRef, CopiesAValueOfItsOwn) {
    ByRef<Long> first = 5;
    ByRef<Long> copy = first;
    *copy = 9;
    EXPECT_EQ(*first, 5);
    EXPECT_FALSE(copy.Heard());
    ByRef<Long> moved = std::move(first);
    EXPECT_EQ(*moved, 5);
}

TEST(ByRef, CopiesThatItWasLeftOut) {
    ByRef<Long> left_out;
    const ByRef<Long> copy = left_out;
    EXPECT_FALSE(copy.Given());
    EXPECT_EQ(*copy, 0);
}

TEST(ByRef, OutlivesTheArgumentThatItOnlyUses) {
    ByRef<String> text;
    {
        const String argument(100, 'x');
        text = ByRef<String>(argument);
    }
    EXPECT_EQ(text->size(), 100U);
}

TEST(ByRef, ReachesIntoWhatItRefersTo) {
    Ref<Task> task = Make<Task>();
    const ByRef<Ref<Task>> parameter = task;
    (*parameter)->lag = 3;
    EXPECT_EQ(task->lag, 3);
    EXPECT_EQ(parameter->get(), task.get());
}

TEST(ByRef, TakesAnyKindIntoAVariant) {
    const auto key_of = [](ByRef<Variant> value) { return value->Key().text(); };
    Variant variable = 5;
    EXPECT_EQ(key_of(variable), "5");
    EXPECT_EQ(key_of("05"), "05");
    EXPECT_EQ(key_of(7), "7");
    EXPECT_EQ(key_of({}), "");
}

}  // namespace
}  // namespace mrlxmlclass
