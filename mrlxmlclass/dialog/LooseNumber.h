#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// The number with which a typed text begins, blanks passed by, a point before its fraction whatever the locale; 0 when
/// it begins with none. One beyond a Double is endless.
Double LooseNumber(std::string_view text);

/// A whole number of three digits at least, halves away from zero, for a text that the locale reads as a number; one
/// with a minus sign or beyond a Double, and any other text, comes back as it stands.
String FormatWhole(const String& text);

/// Whether the locale reads the text as a number, a sign before it allowed.
bool IsNumeric(std::string_view text);

}  // namespace mrlxmlclass
