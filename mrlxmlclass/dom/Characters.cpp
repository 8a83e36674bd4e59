#include "mrlxmlclass/dom/Characters.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace mrlxmlclass::dom {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

constexpr unsigned ByteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// How many bytes follow a lead byte; 0 for one that leads nothing.
constexpr std::size_t FollowersOf(unsigned lead) {
    if (lead >= 0xC2U && lead <= 0xDFU) return 1;
    if (lead >= 0xE0U && lead <= 0xEFU) return 2;
    if (lead >= 0xF0U && lead <= 0xF4U) return 3;
    return 0;
}

/// Eight bytes that are all printable ASCII: the common case, and told at once.
bool AllPlain(const char* eight) {
    constexpr std::uint64_t kHighs = 0x8080808080808080U;
    constexpr std::uint64_t kBlanks = 0x2020202020202020U;
    std::uint64_t word = 0;
    std::memcpy(&word, eight, sizeof word);
    return ((word | (word - kBlanks)) & kHighs) == 0;
}

struct Range {
    char32_t first, last;
};

// What may start a name beside ASCII, in order.
constexpr Range kNameStarts[] = {
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
    {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

bool StartsName(char32_t c) {
    if (c < 0x80) return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    return std::any_of(std::begin(kNameStarts), std::end(kNameStarts),
                       [c](Range range) { return c >= range.first && c <= range.last; });
}

bool ContinuesName(char32_t c) {
    return StartsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == 0xB7 || (c >= 0x300 && c <= 0x36F) ||
           c == 0x203F || c == 0x2040;
}

bool IsPlainName(std::string_view text) {
    std::size_t at = 0;
    if (text.empty() || !StartsName(NextCharacter(text, at))) return false;
    while (at < text.size()) {
        if (!ContinuesName(NextCharacter(text, at))) return false;
    }
    return true;
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& at) {
    const unsigned lead = ByteAt(text, at++);
    if (lead < 0x80U) return lead;
    const std::size_t followers = FollowersOf(lead);
    if (followers == 0 || at + followers > text.size()) return kNoCharacter;
    char32_t character = lead & (0x3FU >> followers);
    for (std::size_t n = 0; n < followers; ++n) {
        const unsigned byte = ByteAt(text, at + n);
        if ((byte & 0xC0U) != 0x80U) return kNoCharacter;
        character = (character << 6U) | (byte & 0x3FU);
    }
    const bool too_long = (followers == 2 && character < 0x800) || (followers == 3 && character < 0x10000);
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (too_long || surrogate || character > 0x10FFFF) return kNoCharacter;
    at += followers;
    return character;
}

void AppendCharacter(String& text, char32_t character) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto follow = [&](unsigned shift) { put(0x80U | ((character >> shift) & 0x3FU)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        follow(0);
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        follow(6);
        follow(0);
    } else {
        put(0xF0U | (character >> 18U));
        follow(12);
        follow(6);
        follow(0);
    }
}

bool IsAllowed(char32_t c) {
    if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
    return c <= 0xD7FF || (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

std::size_t FirstForbidden(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (at + 8 <= text.size() && AllPlain(text.data() + at)) {
            at += 8;
            continue;
        }
        const std::size_t start = at;
        if (!IsAllowed(NextCharacter(text, at))) return start;
    }
    return kNone;
}

String Cleaned(std::string_view text) {
    if (text.find('\r') == kNone && FirstForbidden(text) == kNone) return String(text);
    String clean;
    clean.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const char32_t c = NextCharacter(text, at);
        if (c == '\r') {
            clean.push_back('\n');
            if (at < text.size() && text[at] == '\n') ++at;
        } else if (IsAllowed(c)) {
            AppendCharacter(clean, c);
        }
    }
    return clean;
}

bool IsName(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == kNone) return IsPlainName(text);
    return IsPlainName(text.substr(0, colon)) && IsPlainName(text.substr(colon + 1));
}

}  // namespace mrlxmlclass::dom
