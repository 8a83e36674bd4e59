#include "mrlxmlclass/runtime/Numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A fraction or a truth value becomes a number only where it is spelled.
static_assert(!std::is_convertible_v<double, Long> && std::is_constructible_v<Long, double>);
static_assert(!std::is_constructible_v<Long, bool> && !std::is_constructible_v<Long, Boolean>);
static_assert(!std::is_constructible_v<Boolean, int> && !std::is_convertible_v<Boolean, bool>);
static_assert(std::is_convertible_v<Integer, Long> && std::is_convertible_v<Long, Integer>);
static_assert(sizeof(Integer) == 2 && sizeof(Long) == 4 && sizeof(Boolean) == 2);

TEST(RoundHalfToEven, TakesHalvesToTheEvenNeighbour) {
    struct Row {
        double value, rounded;
    };
    for (const Row& row : {Row{0.5, 0}, Row{1.5, 2}, Row{2.5, 2}, Row{3.5, 4}, Row{-0.5, 0}, Row{-1.5, -2},
                           Row{-2.5, -2}, Row{-3.5, -4}, Row{4503599627370495.5, 4503599627370496.0}}) {
        EXPECT_EQ(RoundHalfToEven(row.value), row.rounded) << row.value;
    }
}

TEST(RoundHalfToEven, TakesAllElseToTheNearest) {
    struct Row {
        double value, rounded;
    };
    for (const Row& row : {Row{0.49999999999999994, 0}, Row{-0.49999999999999994, 0}, Row{0.50000000000000011, 1},
                           Row{2.4999999999999996, 2}, Row{2.5000000000000004, 3}, Row{-2.5000000000000004, -3},
                           Row{-1e-300, 0}, Row{7, 7}, Row{-7, -7}, Row{1e300, 1e300}}) {
        EXPECT_EQ(RoundHalfToEven(row.value), row.rounded) << row.value;
    }
}

TEST(RoundHalfToEven, LeavesWhatIsNoNumber) {
    EXPECT_EQ(RoundHalfToEven(kInfinity), kInfinity);
    EXPECT_EQ(RoundHalfToEven(-kInfinity), -kInfinity);
    EXPECT_TRUE(std::isnan(RoundHalfToEven(kNan)));
}

TEST(Integer, HoldsSixteenBitsAndFailsBeyond) {
    EXPECT_EQ(Integer(32767), 32767);
    EXPECT_EQ(Integer(-32768), -32768);
    EXPECT_EQ(NumberOf([] { Integer{32768}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Integer{-32769}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Integer{65536 + 5}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Integer{Long(40000)}; }), failure::kOverflow);
}

TEST(Long, HoldsThirtyTwoBitsAndFailsBeyond) {
    EXPECT_EQ(Long(INT32_MAX), INT32_MAX);
    EXPECT_EQ(Long(INT32_MIN), INT32_MIN);
    EXPECT_EQ(NumberOf([] { Long{std::int64_t{INT32_MAX} + 1}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Long{std::int64_t{INT32_MIN} - 1}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Long{UINT32_MAX}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Long{UINT64_MAX}; }), failure::kOverflow);
}

TEST(Long, RoundsAFractionHalfToEvenBeforeItChecks) {
    EXPECT_EQ(Long(2.5), 2);
    EXPECT_EQ(Long(-3.5), -4);
    EXPECT_EQ(Long(2147483647.4), INT32_MAX);
    EXPECT_EQ(Long(-2147483648.5), INT32_MIN);
    EXPECT_EQ(NumberOf([] { Long(2147483647.5); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Integer(32767.5); }), failure::kOverflow);
    EXPECT_EQ(Integer(32767.4F - 0.4F), 32767);
}

TEST(Long, FailsOnWhatIsNoNumber) {
    for (const double value : {kNan, kInfinity, -kInfinity, 1e300, -1e300, 9.3e18}) {
        EXPECT_EQ(NumberOf([&] { Long{value}; }), failure::kOverflow) << value;
    }
}

TEST(Long, CountsInSixtyFourBitsUntilItIsStored) {
    const Long most = INT32_MAX;
    EXPECT_EQ(most * most - most * most + 1, 1);
    EXPECT_EQ(Long((most + most) / 2), most);
    EXPECT_EQ(NumberOf([&] { Long{most + 1}; }), failure::kOverflow);
}

TEST(Long, ChecksWhenItAddsToItself) {
    Long value = INT32_MAX - 1;
    EXPECT_EQ(++value, INT32_MAX);
    EXPECT_EQ(NumberOf([&] { ++value; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([&] { value += INT64_MAX; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([&] { value -= INT64_MIN; }), failure::kOverflow);
    EXPECT_EQ(value, INT32_MAX);
    value -= INT32_MAX;
    value -= -5;
    EXPECT_EQ(value, 5);
}

TEST(Long, ComparesWithEveryWidth) {
    EXPECT_TRUE(Integer(5) == Long(5));
    EXPECT_TRUE(Long(-1) < 0);
    EXPECT_TRUE(Long(-1) < Integer(1));
    EXPECT_FALSE(Long(-1) == std::int64_t{UINT32_MAX});
}

TEST(Boolean, IsTrueForAnyRawValueButZero) {
    EXPECT_TRUE(Boolean::Raw(1));
    EXPECT_TRUE(Boolean::Raw(INT16_MIN));
    EXPECT_FALSE(Boolean::Raw(0));
    EXPECT_FALSE(Boolean());
}

TEST(Boolean, IsFullForMinusOneAlone) {
    EXPECT_TRUE(True.full());
    EXPECT_EQ(True.raw(), -1);
    EXPECT_FALSE(Boolean::Raw(1).full());
    EXPECT_FALSE(False.full());
}

TEST(Boolean, ComparesRaw) {
    EXPECT_EQ(Boolean(1 < 2), True);
    EXPECT_EQ(False.raw(), 0);
    EXPECT_NE(Boolean::Raw(1), True);
    EXPECT_EQ(Boolean::Raw(-1), True);
}

}  // namespace
}  // namespace mrlxmlclass
