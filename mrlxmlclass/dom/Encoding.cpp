#include "mrlxmlclass/dom/Encoding.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "mrlxmlclass/dom/Characters.h"
#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass::dom {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LowFirst = "\xFF\xFE";
constexpr std::string_view kUtf16HighFirst = "\xFE\xFF";

// Windows-1252 from 0x80 to 0x9F. Where it has a hole the byte stands for itself.
constexpr char16_t kWindows[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

/// The value of the pseudo-attribute `encoding`; "" when the declaration has none.
std::string_view EncodingName(std::string_view text) {
    if (!text.starts_with("<?xml")) return {};
    std::string_view head = text.substr(0, text.find("?>"));
    const std::size_t label = head.find("encoding");
    if (label == std::string_view::npos) return {};
    const std::size_t open = head.find_first_of("\"'", label);
    if (open == std::string_view::npos) return {};
    const std::size_t close = head.find(head[open], open + 1);
    return head.substr(open + 1, close == std::string_view::npos ? close : close - open - 1);
}

String FromUtf16(std::string_view bytes, bool low_first, const char*& flaw) {
    String text;
    text.reserve(bytes.size() / 2);
    const auto unit = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(low_first ? second * 256 + first : first * 256 + second);
    };
    std::size_t at = 0;
    for (; at + 1 < bytes.size(); at += 2) {
        char32_t c = unit(at);
        if (c >= 0xD800 && c <= 0xDFFF) {
            const char32_t low = at + 3 < bytes.size() ? unit(at + 2) : 0;
            if (c >= 0xDC00 || low < 0xDC00 || low > 0xDFFF) break;
            c = 0x10000 + ((c - 0xD800) << 10U) + (low - 0xDC00);
            at += 2;
        }
        AppendCharacter(text, c);
    }
    if (at != bytes.size()) flaw = "The UTF-16 text holds half a character";
    return text;
}

String ToUtf16(std::string_view text) {
    String bytes(kUtf16LowFirst);
    bytes.reserve(text.size() * 2 + 2);
    const auto put = [&bytes](char32_t unit) {
        bytes.push_back(static_cast<char>(unit & 0xFFU));
        bytes.push_back(static_cast<char>(unit >> 8U));
    };
    std::size_t at = 0;
    while (at < text.size()) {
        const char32_t c = NextCharacter(text, at);
        if (c < 0x10000) {
            put(c);
        } else {
            put(0xD800 + ((c - 0x10000) >> 10U));
            put(0xDC00 + ((c - 0x10000) & 0x3FFU));
        }
    }
    return bytes;
}

String FromEightBits(std::string_view bytes, Encoding encoding) {
    String text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const bool own = encoding == Encoding::Windows1252 && value >= 0x80 && value < 0xA0;
        AppendCharacter(text, own ? static_cast<char32_t>(kWindows[value - 0x80]) : value);
    }
    return text;
}

/// The byte of a character, or -1 where the encoding has none.
int EightBits(char32_t c, Encoding encoding) {
    if (c < 0x80 || (c >= 0xA0 && c < 0x100)) return static_cast<int>(c);
    if (encoding == Encoding::Latin1) return c < 0x100 ? static_cast<int>(c) : -1;
    const auto* const found = std::find(std::begin(kWindows), std::end(kWindows), c);
    return found == std::end(kWindows) ? -1 : static_cast<int>(found - std::begin(kWindows)) + 0x80;
}

String ToEightBits(std::string_view text, Encoding encoding) {
    String bytes;
    bytes.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const char32_t c = NextCharacter(text, at);
        const int byte = EightBits(c, encoding);
        if (byte >= 0) {
            bytes.push_back(static_cast<char>(byte));
        } else {
            bytes.append("&#").append(std::to_string(static_cast<unsigned>(c))).append(";");
        }
    }
    return bytes;
}

}  // namespace

Encoding DeclaredEncoding(std::string_view text) {
    const std::string_view name = EncodingName(text);
    struct Known {
        const char* name;
        Encoding encoding;
    };
    for (const Known& known :
         {Known{"", Encoding::Utf8}, Known{"utf-8", Encoding::Utf8}, Known{"utf-16", Encoding::Utf16},
          Known{"iso-8859-1", Encoding::Latin1}, Known{"windows-1252", Encoding::Windows1252}}) {
        if (EqualsIgnoringCase(name, known.name)) return known.encoding;
    }
    return Encoding::Unknown;
}

Decoded Decode(String bytes) {
    Decoded decoded;
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.erase(0, kUtf8Mark.size());
        decoded.text = std::move(bytes);
        return decoded;
    }
    if (bytes.starts_with(kUtf16LowFirst) || bytes.starts_with(kUtf16HighFirst)) {
        const bool low_first = bytes.starts_with(kUtf16LowFirst);
        decoded.text = FromUtf16(std::string_view(bytes).substr(2), low_first, decoded.flaw);
        return decoded;
    }
    switch (const Encoding encoding = DeclaredEncoding(bytes)) {
        case Encoding::Utf8:
            decoded.text = std::move(bytes);
            break;
        case Encoding::Latin1:
        case Encoding::Windows1252:
            decoded.text = FromEightBits(bytes, encoding);
            break;
        case Encoding::Utf16:
            decoded.flaw = "UTF-16 is declared, but there is no byte order mark";
            break;
        case Encoding::Unknown:
            decoded.flaw = "The declared encoding is not known";
            break;
    }
    return decoded;
}

String Encode(String text, Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf8:
            return text;
        case Encoding::Utf16:
            return ToUtf16(text);
        case Encoding::Latin1:
        case Encoding::Windows1252:
            return ToEightBits(text, encoding);
        case Encoding::Unknown:
            break;
    }
    Raise(failure::kUnknownKey, "The declared encoding cannot be written");
}

}  // namespace mrlxmlclass::dom
