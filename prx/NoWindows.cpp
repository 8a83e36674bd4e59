#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "prx/Windows.h"

namespace prx {
namespace {

std::string why_no_window = "this prx was built without windows; build it where Qt 6 Widgets is installed";

/// Whether a program that does nothing but start comes to its end: what it is linked to may be missing, and the loader
/// tells that itself.
bool Starts(std::string program) {
    std::string option = "--version";
    char* arguments[] = {program.data(), option.data(), nullptr};
    std::signal(SIGCHLD, SIG_DFL);  // where they are ignored no child can be waited for
    posix_spawn_file_actions_t quiet{};
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const bool spawned = posix_spawn(&child, program.c_str(), &quiet, nullptr, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&quiet);
    int status = 0;
    return spawned && waitpid(child, &status, 0) == child && status == 0;
}

}  // namespace

// What windows need takes longer to load than most commands take to run: it stands in a program of its own.
void GoOnWithWindows(char** arguments) {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path other = self.parent_path() / "prx-windows";
    if (error) {
        why_no_window = "the program of its windows cannot be found: " + error.message();
    } else if (std::filesystem::exists(other, error) || error) {
        if (Starts(other)) execv(other.c_str(), arguments);
        why_no_window = "the program of its windows does not start";
    }
}

mrlxmlclass::TaskScreens& Windows() {
    return mrlxmlclass::NoTaskScreens();
}

mrlxmlclass::EditTask::Ending EndingOfDialog() {
    return mrlxmlclass::EditTask::Ending::Failed;
}

bool ShowMessage(const std::string&) {
    return false;
}

std::string WhyNoWindow() {
    return why_no_window;
}

}  // namespace prx
