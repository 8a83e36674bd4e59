#include "mrlxmlclass/platform/Shell.h"

#include <algorithm>

#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass {
namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

bool HasScheme(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon < 2 || !IsLetter(text.front())) return false;
    return std::ranges::all_of(text.substr(0, colon),
                               [](char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.'; });
}

}  // namespace mrlxmlclass
