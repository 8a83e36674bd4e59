#pragma once

#include <string>

namespace prx {

class Project;

/// What a save of the project would write now. Touches no file.
std::string ContentOf(const Project& project);

}  // namespace prx
