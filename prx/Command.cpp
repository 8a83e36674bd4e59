#include "prx/Command.h"

#include <fmt/core.h>

namespace prx {

void Command::Note(const std::string& text) {
    fmt::print(stderr, "prx: {}\n", text);
}

}  // namespace prx
