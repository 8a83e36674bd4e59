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

/// Refuses to hand out a property whose flag is down (1).
[[noreturn]] inline void RaiseNotValid(const String& property, SourceLine where = SourceLine::Here()) {
    Raise(failure::kDeliberate, "The Property " + property + " is not valid set m_" + property + "Valid = true", where);
}

}  // namespace mrlxmlclass
