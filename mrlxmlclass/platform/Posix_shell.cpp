#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass::platform {
namespace {

constexpr int kNotFound = 2;
constexpr int kNoProgram = 31;
constexpr int kStarted = 42;

// What the opener is told; "" when the target is not there. A file's name is led by a folder, so that none is taken
// for an option or an address.
String ArgumentFor(const String& target) {
    struct stat status {};
    if (!Askable(target)) return {};
    if (stat(target.c_str(), &status) == 0) return target.starts_with('/') ? target : "./" + target;
    return HasScheme(target) ? target : String();
}

String ProgramOnPath(const String& name) {
    const char* path = std::getenv("PATH");
    for (const String& folder : Split(path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path, ":")) {
        if (!folder.starts_with('/')) continue;
        String program = folder;
        program.append("/").append(name);
        struct stat status {};
        if (stat(program.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(program.c_str(), X_OK) == 0) {
            return program;
        }
    }
    return {};
}

// Runs in the forked process, where only plain system calls are safe. It inherits nothing of the host's but the
// environment and the working folder; an exec that fails is told on `tell`.
[[noreturn]] void Become(char* const arguments[], int tell) {
    tell = fcntl(tell, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nothing = open("/dev/null", O_RDWR);
    for (int standard = STDIN_FILENO; standard <= STDERR_FILENO; ++standard) dup2(nothing, standard);
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    signal(SIGPIPE, SIG_DFL);
    signal(SIGCHLD, SIG_DFL);
    setsid();
    // The process between ends at once, so the program is nobody's child here and leaves nothing to be waited for.
    const pid_t program = fork();
    if (program == 0) execve(arguments[0], arguments, environ);
    if (program <= 0) [[maybe_unused]]
        const ssize_t told = write(tell, "x", 1);
    _exit(0);
}

bool Start(String program, String argument) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const Descriptor heard(ends[0]);
    Descriptor tell(ends[1]);
    char* const arguments[] = {program.data(), argument.data(), nullptr};
    const pid_t between = fork();
    if (between < 0) return false;
    if (between == 0) Become(arguments, tell.number());
    tell.Close();
    Retry([&] { return waitpid(between, nullptr, 0); });
    char failed = 0;
    return Retry([&] { return read(heard.number(), &failed, 1); }) == 0;
}

class PosixShell final : public Shell {
public:
    Long Open(const String& target) override {
        const String argument = ArgumentFor(target);
        if (argument.empty()) return kNotFound;
        const String program = ProgramOnPath("xdg-open");
        return !program.empty() && Start(program, argument) ? kStarted : kNoProgram;
    }
};

}  // namespace

Shell& SystemShell() {
    return Lasting<PosixShell>();
}

}  // namespace mrlxmlclass::platform
