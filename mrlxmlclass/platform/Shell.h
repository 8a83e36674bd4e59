#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// Opens files and addresses with whatever program the desktop has for them.
class Shell {
public:
    virtual ~Shell() = default;
    /// Above 32 when a program was started; 2 when the target is not there, 31 when no program is.
    virtual Long Open(const String& target) = 0;
};

/// Whether a text is an address: a scheme of two characters or more (a letter, then letters, digits, "+", "-", "."),
/// then ":".
bool HasScheme(std::string_view text);

}  // namespace mrlxmlclass
