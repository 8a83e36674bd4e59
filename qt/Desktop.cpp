#include "qt/Desktop.h"

#include <QThread>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace mrlxmlclass::qt {
namespace {

std::unique_ptr<QApplication> NewApplication() {
    // An application keeps references to these.
    static char name[] = "mrlxmlclass";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    return std::make_unique<QApplication>(count, arguments);
}

#ifdef Q_OS_LINUX

/// What stands in the process that tries: an application that cannot start ends its process, and here quietly.
[[noreturn]] void TryInThisProcess(int answer) {
    std::signal(SIGABRT, SIG_DFL);
    const rlimit no_core{0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    [[maybe_unused]] const auto application = NewApplication();
    const bool told = write(answer, "y", 1) == 1;
    _exit(told ? 0 : 1);
}

/// A display may be named and not be there, or not let us in: only trying tells.
bool ApplicationStarts() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const pid_t child = fork();
    if (child == 0) TryInThisProcess(ends[1]);
    close(ends[1]);
    bool started = false;
    if (child > 0) {
        constexpr int kLongest = 10'000;  // milliseconds
        pollfd answer{ends[0], POLLIN, 0};
        char told = 0;
        started = poll(&answer, 1, kLongest) == 1 && read(ends[0], &told, 1) == 1;
        kill(child, SIGKILL);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    close(ends[0]);
    return started;
}

bool DisplayIsThere() {
    const bool named = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                       !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    return named && ApplicationStarts();
}

#else

bool DisplayIsThere() {
    return true;
}

#endif

}  // namespace

bool CanShowWidgets() {
    if (const QCoreApplication* running = QCoreApplication::instance()) {
        return qobject_cast<const QApplication*>(running) != nullptr && running->thread() == QThread::currentThread();
    }
    return DisplayIsThere();
}

Desktop::Desktop() {
    if (QCoreApplication::instance() == nullptr) own_ = NewApplication();
}

}  // namespace mrlxmlclass::qt
