#include "mrlxmlclass/runtime/Text.h"

#include <algorithm>

namespace mrlxmlclass {
namespace {

constexpr bool Continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}
/// 16-bit units of the character that starts with this byte.
constexpr std::size_t UnitsOf(char lead) {
    return static_cast<unsigned char>(lead) >= 0xF0U ? 2 : 1;
}

/// The byte offset behind the first `units` units; a character that does not fit whole is left out.
std::size_t OffsetBehind(std::string_view text, std::size_t units) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t needed = UnitsOf(text[at]);
        if (needed > units) break;
        units -= needed;
        do {
            ++at;
        } while (at < text.size() && Continues(text[at]));
    }
    return at;
}

/// The place of a character among others by its 16-bit form, as far as its first byte tells: a pair of units comes
/// before U+E000, whose first byte is 0xEE.
constexpr unsigned UnitRank(char lead) {
    const unsigned byte = static_cast<unsigned char>(lead);
    return byte >= 0xF0U ? 2U * 0xEDU + 1U : 2U * byte;
}

}  // namespace

std::size_t Length(std::string_view text) {
    std::size_t units = 0;
    for (const char byte : text) {
        if (!Continues(byte)) units += UnitsOf(byte);
    }
    return units;
}

String Left(std::string_view text, std::size_t units) {
    return String(text.substr(0, OffsetBehind(text, units)));
}

String Mid(std::string_view text, std::size_t start, std::size_t units) {
    if (start == 0) Raise(failure::kUnknownKey);
    std::size_t first = OffsetBehind(text, start - 1);
    const bool halved = first < text.size() && Length(text.substr(0, first)) < start - 1;
    if (halved) {
        first = OffsetBehind(text, start);
        units -= std::min<std::size_t>(units, 1);
    }
    const std::string_view rest = text.substr(first);
    return String(rest.substr(0, OffsetBehind(rest, units)));
}

int CompareUnits(std::string_view a, std::string_view b) {
    const auto [at_a, at_b] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (at_a == a.end() || at_b == b.end())
        return static_cast<int>(at_a != a.end()) - static_cast<int>(at_b != b.end());
    const auto at = static_cast<std::size_t>(at_a - a.begin());
    if (!Continues(a[at]) && !Continues(b[at])) {
        const unsigned rank_a = UnitRank(a[at]);
        const unsigned rank_b = UnitRank(b[at]);
        if (rank_a != rank_b) return rank_a < rank_b ? -1 : 1;
    }
    return static_cast<unsigned char>(a[at]) < static_cast<unsigned char>(b[at]) ? -1 : 1;
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

String LowerCase(std::string_view text) {
    String lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && LowerCase(a) == LowerCase(b);
}

String Replace(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) return String(text);
    String replaced;
    std::size_t at = 0;
    for (std::size_t hit = text.find(from); hit != std::string_view::npos; hit = text.find(from, at)) {
        replaced.append(text.substr(at, hit - at)).append(to);
        at = hit + from.size();
    }
    return replaced.append(text.substr(at));
}

std::vector<String> Split(std::string_view text, std::string_view separator) {
    std::vector<String> pieces;
    if (text.empty()) return pieces;
    if (separator.empty()) return {String(text)};
    std::size_t at = 0;
    for (std::size_t hit = text.find(separator); hit != std::string_view::npos; hit = text.find(separator, at)) {
        pieces.emplace_back(text.substr(at, hit - at));
        at = hit + separator.size();
    }
    pieces.emplace_back(text.substr(at));
    return pieces;
}

}  // namespace mrlxmlclass
