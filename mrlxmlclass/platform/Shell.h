#pragma once

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// Opens files and addresses with whatever program the desktop has for them.
class Shell {
public:
    virtual ~Shell() = default;
    /// Above 32 when a program was started; 2 when the target is not there, 31 when no program is.
    virtual Long Open(const String& target) = 0;
};

}  // namespace mrlxmlclass
