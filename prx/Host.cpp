#include "prx/Host.h"

#include <fmt/core.h>

#include <filesystem>

#include "prx/Terminal.h"

namespace prx {

void HostUi::Message(const std::string& text) {
    if (ShowMessage(text)) return;
    progress_.Clear();
    fmt::print(stderr, "prx: {}\n", Plain(text));
}

Host::Host() {
    // Where the folder cannot be had, the library says itself that its error file could not be written.
    std::error_code ignored;
    std::filesystem::create_directories(files_.ProgramFolder(), ignored);
}

}  // namespace prx
