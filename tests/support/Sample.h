#pragma once

namespace mrlxmlclass::testing {

/// How much less a build with sanitizers tries where the debug build tries many cases that differ in little: one in so
/// many, of drawn values as of cases in a row.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr unsigned kSample = 4;
#else
inline constexpr unsigned kSample = 1;
#endif

}  // namespace mrlxmlclass::testing
