#pragma once

#include <string_view>
#include <vector>

#include "mrlxmlclass/runtime/Failure.h"

/// Text as hosts see it: characters of 16 bits. A cut never leaves half a character.
namespace mrlxmlclass {

/// The number of 16-bit units.
std::size_t Length(std::string_view text);
/// The first `units` 16-bit units; a pair that the cut would halve is dropped whole.
String Left(std::string_view text, std::size_t units);
/// From the 1-based unit `start` on, `units` at most; a pair that either cut would halve is dropped whole. 0 as a start
/// fails (5).
String Mid(std::string_view text, std::size_t start, std::size_t units = static_cast<std::size_t>(-1));
/// Compares unit by unit, as a binary comparison of 16-bit texts does: below 0, 0, above 0.
int CompareUnits(std::string_view a, std::string_view b);

/// "0" to "9".
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Without the blanks around.
std::string_view Trim(std::string_view text);
/// ASCII letters to lower case; all else stays.
String LowerCase(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
/// Every occurrence of `from` replaced; an empty `from` changes nothing.
String Replace(std::string_view text, std::string_view from, std::string_view to);
/// The pieces between separators. The empty text has no pieces.
std::vector<String> Split(std::string_view text, std::string_view separator);

}  // namespace mrlxmlclass
