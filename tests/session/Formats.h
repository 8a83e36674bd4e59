#pragma once

namespace mrlxmlclass {

/// Date formats of hosts that write and read each other's files.
inline constexpr const char* kFormats[] = {"M/d/yyyy", "dd/MM/yyyy", "d.M.yyyy", "yyyy-MM-dd"};

}  // namespace mrlxmlclass
