#pragma once

#include <stdexcept>

namespace prx {

/// Why a command cannot do what it was asked to, in plain words for the person at the terminal. It ends the command:
/// nothing has been saved, and the exit status is 2.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace prx
