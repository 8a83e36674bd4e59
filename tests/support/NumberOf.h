#pragma once

#include <utility>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

/// The number under which `act()` fails, or 0 when it does not.
template <class Act>
int NumberOf(Act&& act) {
    try {
        std::forward<Act>(act)();
    } catch (const Failure& failed) {
        return failed.number();
    }
    return 0;
}

}  // namespace mrlxmlclass
