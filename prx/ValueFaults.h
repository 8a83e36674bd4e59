#pragma once

#include <string>
#include <vector>

#include "prx/Project.h"

namespace prx {

/// Values that no plan can mean, though a load takes them as they are: an end before its start, a length that no task
/// has, progress that is no share, a weekday that no week has.
std::vector<std::string> ValueFaults(const Project& project);
/// Refuses a plan that runs beyond the last year, where the next load would cut it.
void RefuseBeyondLastYear(const Project& project);

}  // namespace prx
