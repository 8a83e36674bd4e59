#pragma once

#include <string>
#include <vector>

#include "prx/Project.h"

/// Whether each task has a key: without one no operation finds it. A project holds one such task at most.
namespace prx {

/// The task without one; empty for a file that is in order.
std::vector<std::string> KeyFaults(const Project& project);
/// Files it, in memory, under the key that stands out of its place in the file or by which its ties and links go on
/// naming it, else under the next one, and tells that. Its parent, its children and the phases know it from then on.
std::vector<std::string> MendKeys(const Project& project);

}  // namespace prx
