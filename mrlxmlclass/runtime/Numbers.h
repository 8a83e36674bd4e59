#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

using Double = double;

/// Rounds to the nearest whole number, halves to the even one: the rounding of every conversion here.
double RoundHalfToEven(double value);
/// Whether a number such as "0.1e-400" that no double holds lies too close to 0 rather than too far from it.
bool TooSmall(std::string_view number);

template <class N>
concept Whole = std::integral<N> && !std::same_as<N, bool>;

/// A whole number that fails (6) instead of wrapping. Arithmetic runs in 64 bits; the store checks.
template <class Rep>
class Checked {
public:
    constexpr Checked() = default;
    constexpr Checked(Whole auto value, SourceLine where = SourceLine::Here()) : value_(Fit(value, where)) {}
    /// Half to even, then checked. Always spelled, so that no fraction is lost unseen.
    explicit Checked(std::floating_point auto value, SourceLine where = SourceLine::Here())
        : value_(FitRounded(static_cast<double>(value), where)) {}
    template <class Other>
    requires(!std::same_as<Other, Rep>) constexpr Checked(Checked<Other> other, SourceLine where = SourceLine::Here())
        : value_(Fit(other.value(), where)) {}

    constexpr operator std::int64_t() const { return value_; }
    constexpr Rep value() const { return value_; }

    constexpr Checked& operator+=(std::int64_t by) {
        std::int64_t sum = 0;
        if (__builtin_add_overflow(std::int64_t{value_}, by, &sum)) Raise(failure::kOverflow, SourceLine{});
        return *this = Checked(sum, SourceLine{});
    }
    constexpr Checked& operator-=(std::int64_t by) {
        std::int64_t difference = 0;
        if (__builtin_sub_overflow(std::int64_t{value_}, by, &difference)) Raise(failure::kOverflow, SourceLine{});
        return *this = Checked(difference, SourceLine{});
    }
    constexpr Checked& operator++() { return *this += 1; }

private:
    static constexpr Rep Fit(Whole auto value, SourceLine where) {
        if (!std::in_range<Rep>(value)) Raise(failure::kOverflow, where);
        return static_cast<Rep>(value);
    }
    static Rep FitRounded(double value, SourceLine where) {
        if (const auto whole = static_cast<Rep>(value >= kLeast && value <= kMost ? value : 0); whole == value)
            return whole;
        const double rounded = RoundHalfToEven(value);
        if (!(rounded >= -9.0e18 && rounded <= 9.0e18)) Raise(failure::kOverflow, where);
        return Fit(static_cast<std::int64_t>(rounded), where);
    }

    static constexpr double kLeast = std::numeric_limits<Rep>::min();
    static constexpr double kMost = std::numeric_limits<Rep>::max();

    Rep value_ = 0;
};

using Integer = Checked<std::int16_t>;
using Long = Checked<std::int32_t>;

/// A truth value of raw 16 bits: True is -1, False is 0, and a file or a host may bring any other value.
class Boolean {
public:
    constexpr Boolean() = default;
    constexpr Boolean(std::same_as<bool> auto flag) : raw_(flag ? -1 : 0) {}
    static constexpr Boolean Raw(std::int16_t raw) {
        Boolean value;
        value.raw_ = raw;
        return value;
    }

    /// Not 0: what an ordinary test asks.
    constexpr explicit operator bool() const { return raw_ != 0; }
    /// The full True, -1: what the writers and the save rule ask.
    constexpr bool full() const { return raw_ == -1; }
    constexpr std::int16_t raw() const { return raw_; }

    friend constexpr bool operator==(Boolean, Boolean) = default;

private:
    std::int16_t raw_ = 0;
};

inline constexpr Boolean True = true;
inline constexpr Boolean False = false;

}  // namespace mrlxmlclass
