#pragma once

#include <compare>
#include <cstdint>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// An amount of money: 64-bit fixed point with four decimals. Leaving the range fails (6).
class Currency {
public:
    static constexpr std::int64_t kScale = 10000;

    constexpr Currency() = default;
    Currency(Whole auto units, SourceLine where = SourceLine::Here()) {
        if (__builtin_mul_overflow(units, kScale, &ten_thousandths_)) Raise(failure::kOverflow, where);
    }
    /// Rounded half to even at the fourth decimal.
    explicit Currency(double units, SourceLine where = SourceLine::Here());
    static constexpr Currency OfTenThousandths(std::int64_t count) {
        Currency value;
        value.ten_thousandths_ = count;
        return value;
    }

    constexpr std::int64_t ten_thousandths() const { return ten_thousandths_; }
    double ToDouble() const { return static_cast<double>(ten_thousandths_) / kScale; }

    friend Currency operator+(Currency a, Currency b) { return Sum(a.ten_thousandths_, b.ten_thousandths_); }
    friend Currency operator-(Currency a, Currency b) { return Difference(a.ten_thousandths_, b.ten_thousandths_); }
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    static Currency Sum(std::int64_t a, std::int64_t b);
    static Currency Difference(std::int64_t a, std::int64_t b);

    std::int64_t ten_thousandths_ = 0;
};

}  // namespace mrlxmlclass
