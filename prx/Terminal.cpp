#include "prx/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "mrlxmlclass/dom/Characters.h"

namespace prx {
namespace {

using mrlxmlclass::dom::NextCharacter;

struct Range {
    char32_t first;
    char32_t last;
};

/// Characters that take two columns: the scripts of East Asia and the pictures.
constexpr std::array kWide = {Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},  Range{0x3041, 0xA4CF},
                              Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},  Range{0xFE30, 0xFE6F},
                              Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6},  Range{0x1F300, 0x1F64F},
                              Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD}};
/// Characters that take none: they stand on the one before them.
constexpr std::array kCombining = {Range{0x0300, 0x036F}, Range{0x200B, 0x200F}, Range{0x20D0, 0x20FF},
                                   Range{0xFE00, 0xFE0F}};

bool Among(char32_t character, const auto& ranges) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](Range range) { return character >= range.first && character <= range.last; });
}

std::size_t WidthOf(char32_t character) {
    if (Among(character, kCombining)) return 0;
    return Among(character, kWide) ? 2 : 1;
}

std::string Blanks(std::string_view text, std::size_t width) {
    const std::size_t taken = Width(text);
    return std::string(taken < width ? width - taken : 0, ' ');
}

}  // namespace

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

std::size_t OutputWidth() {
    constexpr std::size_t kUsual = 80;
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return kUsual;
    return std::max<std::size_t>(size.ws_col, kUsual);
}

std::size_t Width(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) width += WidthOf(NextCharacter(text, at));
    return width;
}

std::string CutTo(std::string_view text, std::size_t width) {
    constexpr std::string_view kMore = "...";
    std::size_t taken = 0;
    std::size_t keep = 0;  // what stays when the text has to be cut
    for (std::size_t at = 0; at < text.size();) {
        taken += WidthOf(NextCharacter(text, at));
        if (taken + kMore.size() <= width) keep = at;
        if (taken > width) return std::string(text.substr(0, keep)).append(kMore);
    }
    return std::string(text);
}

std::string PadRight(std::string_view text, std::size_t width) {
    return std::string(text) + Blanks(text, width);
}

std::string PadLeft(std::string_view text, std::size_t width) {
    return Blanks(text, width) + std::string(text);
}

std::string Plain(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = NextCharacter(text, at);
        const bool steers = character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
                            character == 0x2029 || (character >= 0x202A && character <= 0x202E) ||
                            (character >= 0x2066 && character <= 0x2069);
        if (steers) {
            plain += ' ';
        } else if (character == mrlxmlclass::dom::kNoCharacter) {
            plain += '?';
        } else {
            plain += text.substr(start, at - start);
        }
    }
    return plain;
}

}  // namespace prx
