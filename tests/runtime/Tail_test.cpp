#include "mrlxmlclass/runtime/Tail.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>

#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

// Silent tails throughout: what a tail writes down, and under which labels, is the error log's affair.
namespace mrlxmlclass {
namespace {

struct Plan : Counted {
    int tasks = 0;
};

constexpr FailureTail kTail{"Test"};
constexpr FailureTail kEmpty = kTail.Silent();
constexpr FailureTail kSoFar = FailureTail("Test", FailureTail::Gives::SoFar).Silent();

TEST(FailureTail, GivesTheResultOfABodyThatEnds) {
    const auto set = [](Long& result) { result = 42; };
    EXPECT_EQ(kEmpty.Run<Long>("Set", set), 42);
    EXPECT_EQ(kSoFar.Run<Long>("Set", set), 42);
}

TEST(FailureTail, GivesTheResultThatStoodAtAnEarlyExit) {
    const auto leave = [](String& result) {
        result = "left";
        if (!result.empty()) return;
        result = "stayed";
    };
    EXPECT_EQ(kEmpty.Run<String>("Leave", leave), "left");
}

TEST(FailureTail, StartsFromTheEmptyValue) {
    EXPECT_EQ(kEmpty.Run<Long>("Nothing", [](Long&) {}), 0);
    EXPECT_EQ(kEmpty.Run<Boolean>("Nothing", [](Boolean&) {}), False);
    EXPECT_EQ(kEmpty.Run<String>("Nothing", [](String&) {}), "");
    EXPECT_FALSE(kEmpty.Run<Ref<Plan>>("Nothing", [](Ref<Plan>&) {}));
}

TEST(FailureTail, GivesTheEmptyValueAfterAFailure) {
    const auto fail = [](auto& result, auto value) {
        result = value;
        Raise(failure::kNothing);
    };
    EXPECT_EQ(kEmpty.Run<Long>("Fail", [&](Long& result) { fail(result, 42); }), 0);
    EXPECT_EQ(kEmpty.Run<Boolean>("Fail", [&](Boolean& result) { fail(result, True); }), False);
    EXPECT_EQ(kEmpty.Run<String>("Fail", [&](String& result) { fail(result, "half"); }), "");
    EXPECT_FALSE(kEmpty.Run<Ref<Plan>>("Fail", [&](Ref<Plan>& result) { fail(result, Make<Plan>()); }));
}

TEST(FailureTail, GivesTheResultSoFarWhereItIsToldTo) {
    const Long sum = kSoFar.Run<Long>("Sum", [](Long& result) {
        result = 30;
        result += 12;
        result += INT32_MAX;
    });
    EXPECT_EQ(sum, 42);
}

TEST(FailureTail, SwallowsWhateverIsThrown) {
    const auto after = [](auto raise) {
        return kSoFar.Run<Long>("Throw", [&](Long& result) {
            result = 1;
            raise();
            result = 2;
        });
    };
    EXPECT_EQ(after([] { throw std::bad_alloc(); }), 1);
    EXPECT_EQ(after([] { throw std::runtime_error("a library gave up"); }), 1);
    EXPECT_EQ(after([] { throw 5; }), 1);
    EXPECT_EQ(after([] { throw std::make_unique<Long>(5); }), 1);
}

TEST(FailureTail, EndsABodyWithoutResultTheSameWay) {
    int steps = 0;
    kEmpty.Run("Walk", [&] {
        ++steps;
        if (steps == 1) Raise(failure::kUnknownKey);
        ++steps;
    });
    kEmpty.Run("Walk", [&] { ++steps; });
    EXPECT_EQ(steps, 2);
}

TEST(FailureTail, KeepsAnInnerFailureFromTheOuterMember) {
    const Long outer = kEmpty.Run<Long>("Outer", [](Long& result) {
        const Long inner = kEmpty.Run<Long>("Inner", [](Long& part) {
            part = 7;
            Raise(failure::kOverflow);
        });
        result = inner + 5;
    });
    EXPECT_EQ(outer, 5);
}

TEST(FailureTail, LetsEveryObjectOfTheBodyDie) {
    auto watched = std::make_shared<int>(0);
    kEmpty.Run("Hold", [held = watched] {
        const auto copy = held;
        Raise(failure::kNothing);
    });
    EXPECT_EQ(watched.use_count(), 1);
}

TEST(FailureTail, GoesOnUnderAnotherClassLabel) {
    constexpr FailureTail other = kSoFar.As("Other");
    EXPECT_EQ(other.Run<Long>("Fail",
                              [](Long& result) {
                                  result = 3;
                                  Raise(failure::kNothing);
                              }),
              3);
}

TEST(FailureTail, IsSilentForOneNumberWithoutChangingTheResult) {
    constexpr FailureTail lookup("Test", FailureTail::Gives::Empty, failure::kUnknownKey);
    EXPECT_EQ(lookup.Run<Long>("Item",
                               [](Long& result) {
                                   result = 3;
                                   Raise(failure::kUnknownKey);
                               }),
              0);
}

}  // namespace
}  // namespace mrlxmlclass
