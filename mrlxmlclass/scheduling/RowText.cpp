#include "mrlxmlclass/scheduling/RowText.h"

#include <algorithm>
#include <cmath>

#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

/// Beyond them no number is small enough for a row, whatever its leading zeros.
constexpr std::size_t kMostDigits = 300;

}  // namespace
Boolean Gloabal::isInteger(const String& text) {
    char latest_mark = 0;
    for (const char character : text) {
        if (IsDigit(character)) continue;
        if (character != ',' && !(character == ' ' && latest_mark == ',')) return False;
        latest_mark = character;
    }
    return True;
}

Boolean Gloabal::isNumber(ByRef<String> text) {
    *text = Trim(*text);
    const auto digits = std::count_if(text->begin(), text->end(), IsDigit);
    const auto marks = std::count_if(text->begin(), text->end(), [](char c) { return c == ',' || c == '.'; });
    return digits > 0 && marks <= 1 && digits + marks == static_cast<std::ptrdiff_t>(text->size());
}

Boolean Gloabal::isNegative(const String& text) {
    return text.starts_with('-');
}

std::vector<RowPart> RowParts(const String& list) {
    std::vector<RowPart> parts;
    for (String text : Split(list, ",")) {
        RowPart part;
        part.number = bool(Gloabal::isNumber(text));
        if (part.number && text.size() <= kMostDigits) {
            const double row = RoundHalfToEven(Conversions::StringToDouble(text));
            if (row <= INT16_MAX) part.row = Integer(row);
        }
        parts.push_back(part);
    }
    return parts;
}

}  // namespace mrlxmlclass
