#pragma once

#include <string>
#include <vector>

namespace prx {

class Project;

/// What the file holds and the opened project does not: sections that are missing or stand twice, records and
/// elements that were passed over, failures on the way. Empty for a project that was read whole.
std::vector<std::string> Losses(const Project& project);
/// The same without the failures that lost nothing: what no save could bring back.
std::vector<std::string> Unread(const Project& project);
/// The other failures, each once, with how often it was recorded.
std::vector<std::string> Recorded(const Project& project);
/// What the library changed while it opened the file.
std::vector<std::string> Repairs(const Project& project);
/// Where the outline in memory is not an outline: rows 1 to the number of tasks, each once; a subtree right behind its
/// parent; parents and lists of children that agree. It walks each task once, whatever the parents say.
std::vector<std::string> OutlineFaults(const Project& project);

/// The first few lines, and how many there are more.
std::vector<std::string> Shortened(std::vector<std::string> lines, std::size_t most = 20);

}  // namespace prx
