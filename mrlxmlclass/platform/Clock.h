#pragma once

#include "mrlxmlclass/runtime/Date.h"

namespace mrlxmlclass {

class Clock {
public:
    virtual ~Clock() = default;
    /// The present local date and time.
    virtual Date Now() = 0;
    /// The present day, at midnight.
    Date Today() { return Now().day(); }
};

}  // namespace mrlxmlclass
