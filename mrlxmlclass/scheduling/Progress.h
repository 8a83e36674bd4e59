#pragma once

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass::Gloabal {

/// A typed percentage in form: whole, and 100 at most; a negative one passes.
Integer AdjustComplte(Double value);

}  // namespace mrlxmlclass::Gloabal
