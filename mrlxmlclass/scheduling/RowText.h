#pragma once

#include <optional>
#include <vector>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Numbers.h"

/// Rows as a host writes them: "3,7".
namespace mrlxmlclass {

namespace Gloabal {

/// True for digits, commas, and blanks whose latest character that is no digit was a comma; also for no text at all.
Boolean isInteger(const String& text);
/// True for at least one digit and otherwise digits and at most one comma or point. Trims the caller's text.
Boolean isNumber(ByRef<String> text);
/// True for a text that begins with "-".
Boolean isNegative(const String& text);

}  // namespace Gloabal

/// A part of a list of rows.
struct RowPart {
    bool number = false;         ///< it is written as a number
    std::optional<Integer> row;  ///< and small enough for a row
};

/// The parts of a list in their order; none of an empty list.
std::vector<RowPart> RowParts(const String& list);

}  // namespace mrlxmlclass
