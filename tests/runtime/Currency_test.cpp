#include "mrlxmlclass/runtime/Currency.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

constexpr std::int64_t kMost = INT64_MAX;
constexpr std::int64_t kLeast = INT64_MIN;

static_assert(!std::is_convertible_v<double, Currency>, "a fraction is rounded only where it is spelled");

TEST(Currency, KeepsFourDecimals) {
    EXPECT_EQ(Currency(12).ten_thousandths(), 120000);
    EXPECT_EQ(Currency(-1).ten_thousandths(), -10000);
    EXPECT_EQ(Currency(0.1).ten_thousandths(), 1000);
    EXPECT_EQ(Currency(1234.5678).ten_thousandths(), 12345678);
    EXPECT_EQ(Currency(-1234.5678).ten_thousandths(), -12345678);
}

TEST(Currency, RoundsHalfToEvenAtTheFourthDecimal) {
    EXPECT_EQ(Currency(0.03125).ten_thousandths(), 312);
    EXPECT_EQ(Currency(0.09375).ten_thousandths(), 938);
    EXPECT_EQ(Currency(-0.03125).ten_thousandths(), -312);
    EXPECT_EQ(Currency(-0.09375).ten_thousandths(), -938);
    EXPECT_EQ(Currency(0.00004).ten_thousandths(), 0);
    EXPECT_EQ(Currency(0.00006).ten_thousandths(), 1);
}

TEST(Currency, FailsBeyondItsRange) {
    EXPECT_EQ(Currency(kMost / 10000).ten_thousandths(), kMost / 10000 * 10000);
    EXPECT_EQ(Currency(kLeast / 10000).ten_thousandths(), kLeast / 10000 * 10000);
    EXPECT_EQ(NumberOf([] { Currency{kMost / 10000 + 1}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Currency{kLeast / 10000 - 1}; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { Currency{UINT64_MAX}; }), failure::kOverflow);
    for (const double units : {922337203685477.5808, -922337203685478.0, 1e300, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(NumberOf([&] { Currency{units}; }), failure::kOverflow) << units;
    }
}

TEST(Currency, AddsAndSubtractsExactly) {
    EXPECT_EQ(Currency(0.1) + Currency(0.2), Currency(0.3));
    EXPECT_EQ(Currency(5) - Currency(7), Currency(-2));
}

TEST(Currency, FailsWhenASumLeavesTheRange) {
    const Currency most = Currency::OfTenThousandths(kMost);
    const Currency least = Currency::OfTenThousandths(kLeast);
    const Currency step = Currency::OfTenThousandths(1);
    EXPECT_EQ((most - step + step), most);
    EXPECT_EQ(NumberOf([&] { most + step; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([&] { least - step; }), failure::kOverflow);
    EXPECT_EQ(NumberOf([&] { Currency(0) - least; }), failure::kOverflow);
    EXPECT_EQ(most + least, Currency::OfTenThousandths(-1));
}

TEST(Currency, ComparesByAmount) {
    EXPECT_LT(Currency(-1), Currency());
    EXPECT_LT(Currency(0.0001), Currency(1));
    EXPECT_EQ(Currency(2), Currency(2.0));
}

TEST(Currency, GivesItsUnitsAsADouble) {
    EXPECT_EQ(Currency(1234.5678).ToDouble(), 1234.5678);
    EXPECT_EQ(Currency().ToDouble(), 0.0);
}

}  // namespace
}  // namespace mrlxmlclass
