#include <unistd.h>

#include <filesystem>

#include "prx/Windows.h"

namespace prx {

// What windows need takes longer to load than most commands take to run: it stands in a program of its own.
void GoOnWithWindows(char** arguments) {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    execv((self.parent_path() / "prx-windows").c_str(), arguments);
}

mrlxmlclass::TaskScreens& Windows() {
    return mrlxmlclass::NoTaskScreens();
}

bool LeftByOk() {
    return false;
}

bool ShowMessage(const std::string&) {
    return false;
}

std::string WhyNoWindow() {
    return "this prx was built without windows; build it where Qt 6 Widgets is installed";
}

}  // namespace prx
