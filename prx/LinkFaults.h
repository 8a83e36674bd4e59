#pragma once

#include <string>
#include <utility>
#include <vector>

#include "prx/Project.h"

/// Whether the links between tasks agree: each leads to a task that is there and is known to both, none is one that the
/// library refuses to make (to the task itself, to a summary, to one that waits for it) or to one below the task, and
/// each has a lead time that tells days.
namespace prx {

/// Where they do not; empty for a file that is in order.
std::vector<std::string> LinkFaults(const Project& project);
/// Only what leads to a task that is not there.
std::vector<std::string> LinksToNowhere(const Project& project);
/// Mends that in memory and tells what was done. What a task waits for counts; what leads nowhere or may not be goes,
/// and a list of those that wait for a task follows them. A lead time that is missing or without days is measured by
/// the dates.
std::vector<std::string> MendLinks(const Project& project);
/// Takes those of the links off that the library refuses to make, or that lead below the task: where it bridges over a
/// task that is removed, it asks nobody. Tells what was done.
std::vector<std::string> TakeOffWhatMayNotBe(const Project& project,
                                             const std::vector<std::pair<mrlxmlclass::Long, mrlxmlclass::Long>>& links);
/// Gives each link without a lead time the one that its dates tell: the library makes such links where it bridges over
/// a task that is removed, and reads them as "right behind". Tells what was done.
std::vector<std::string> MeasureMissingLeads(const Project& project);

}  // namespace prx
