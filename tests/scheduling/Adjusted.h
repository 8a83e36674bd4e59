#pragma once

namespace mrlxmlclass::testing {

/// What the user is told when dates were out of range.
inline constexpr const char* kAdjusted = "Some dates had to be adjusted to fit within the program's range. ";

}  // namespace mrlxmlclass::testing
