#pragma once

#include <utility>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// A value with its Valid flag.
template <class T>
struct Flagged {
    T value{};
    Boolean valid = False;

    void Let(T new_value) {
        value = std::move(new_value);
        valid = True;
    }
    /// A change of the flag clears the value.
    void LetFlag(Boolean flag) {
        if (flag == valid) return;
        valid = flag;
        value = T{};
    }
};

}  // namespace mrlxmlclass
