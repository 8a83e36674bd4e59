#pragma once

#include <string>
#include <vector>

#include "prx/Project.h"

/// Whether tasks, items and the relations between them agree: each item and relation has a key, every relation leads to
/// a task and an item that are there, no two tie the same pair, a note stands at one task, both sides list exactly
/// their own, and a task shows the items that it is tied to.
namespace prx {

/// Where they do not; empty for a file that is in order.
std::vector<std::string> TieFaults(const Project& project);
/// Only what leads to a task, an item or a relation that is not there.
std::vector<std::string> TiesToNowhere(const Project& project);
/// Mends that in memory and tells what was done. The relations count: what leads nowhere goes, what has no
/// key gets one, a list that says otherwise follows them.
std::vector<std::string> MendTies(const Project& project);

}  // namespace prx
