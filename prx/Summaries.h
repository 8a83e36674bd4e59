#pragma once

#include <string>
#include <vector>

#include "prx/Project.h"

/// Whether each summary runs as long as the tasks below it and costs what they cost, as the library adds them up.
namespace prx {

/// Where they do not; empty for a file that is in order, and for an outline that is not: nothing can be added up there.
/// A summary counts in days; one that does not is told, too.
std::vector<std::string> SummaryFaults(const Project& project);
/// Has the library add those up anew, the deepest first, and tells which.
std::vector<std::string> MendSummaries(const Project& project);
/// Where the tasks below a summary cost more than can be added up; nothing mends that.
std::vector<std::string> CostsBeyondRange(const Project& project);
/// Gives all of them that unit; the length follows when they are mended.
void CountSummariesInDays(const Project& project);

}  // namespace prx
