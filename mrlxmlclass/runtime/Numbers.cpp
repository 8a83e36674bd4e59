#include "mrlxmlclass/runtime/Numbers.h"

#include <algorithm>
#include <charconv>

namespace mrlxmlclass {

double RoundHalfToEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

bool TooSmall(std::string_view number) {
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, e);
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos) return true;
    if (e < number.size()) {
        std::string_view exponent = number.substr(e + 1);
        const bool negative = exponent.starts_with('-');
        if (negative || exponent.starts_with('+')) exponent.remove_prefix(1);
        int power = 0;
        const auto [end, error] = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
        // Far beyond the length of any text in memory that could make up for it.
        if (error == std::errc::result_out_of_range) return negative;
        const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
        return point - static_cast<std::int64_t>(first) + (negative ? -power : power) < 0;
    }
    return digits.find('.') < first;
}

}  // namespace mrlxmlclass
