#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// The number with which a text begins, blanks and a sign before it allowed; 0 when it begins with none. One beyond a
/// Long fails (6).
Long LeadingNumber(std::string_view text);

/// Whether that number is 0, however large it may be.
bool LeadsWithNothing(std::string_view text);

}  // namespace mrlxmlclass
