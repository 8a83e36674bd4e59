#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace prx_test {

/// How a program is started.
struct Start {
    std::string folder;
    std::vector<std::string> variables;  ///< "NAME=value", beside those of this process or in their place
    std::string output;                  ///< the file that takes what it prints
    std::string errors;                  ///< and the one for its error output
    /// A time in which the slowest build answers many times over.
    std::chrono::milliseconds limit{60'000};
};

/// Runs a program to its end: its exit status, 128 and the signal that ended it, or 124 where it and what it started
/// had to be stopped at the limit.
int RunProgram(std::vector<std::string> words, Start start);

}  // namespace prx_test
