#include "mrlxmlclass/dialog/LooseNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/xml/NumberText.h"

namespace mrlxmlclass {

Double LooseNumber(std::string_view text) {
    String dense;
    for (const char character : text) {
        if (character != ' ' && character != '\t' && character != '\r' && character != '\n') dense += character;
    }
    std::string_view number = dense;
    if (number.starts_with('+') && !number.starts_with("+-")) number.remove_prefix(1);
    const std::size_t sign = number.starts_with('-') ? 1 : 0;
    if (number.size() <= sign || !(IsDigit(number[sign]) || number[sign] == '.')) return 0;  // "inf" is no number
    Double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        value = TooSmall({number.data(), end}) ? 0 : std::numeric_limits<Double>::infinity();
        if (sign != 0) value = -value;
    }
    return value;
}

String FormatWhole(const String& text) {
    const std::optional<String> plain = PlainNumber(text, Platform().locale.Settings());
    if (!plain) return text;
    const double number = LooseNumber(*plain);
    if (std::signbit(number) || std::isinf(number)) return text;
    std::array<char, 400> digits{};
    char* const end = std::to_chars(digits.begin(), digits.end(), std::round(number), std::chars_format::fixed, 0).ptr;
    String formatted(digits.begin(), end);
    return formatted.insert(0, 3 - std::min<std::size_t>(3, formatted.size()), '0');
}

bool IsNumeric(std::string_view text) {
    return PlainNumber(text, Platform().locale.Settings()).has_value();
}

}  // namespace mrlxmlclass
