#include "qt/Desktop.h"

#include <QDeadlineTimer>
#include <QThread>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#endif

#include <clocale>

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

/// What a call gives that a signal of the host's may interrupt.
template <class Call>
auto Retried(Call&& call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
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
        const QDeadlineTimer longest(std::chrono::seconds(10));
        pollfd answer{ends[0], POLLIN, 0};
        char told = 0;
        started = Retried([&] { return poll(&answer, 1, static_cast<int>(longest.remainingTime())); }) == 1 &&
                  Retried([&] { return read(ends[0], &told, 1); }) == 1;
        kill(child, SIGKILL);
        Retried([&] { return waitpid(child, nullptr, 0); });
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

Desktop::Desktop() : c_locale_(std::setlocale(LC_ALL, nullptr)) {
    if (QCoreApplication::instance() != nullptr) return;
    own_ = NewApplication();
    PutLocaleBack();
}

Desktop::~Desktop() {
    if (own_) PutLocaleBack();  // what reads the keyboard may have set it again
}

void Desktop::PutLocaleBack() const {
    std::setlocale(LC_ALL, c_locale_.c_str());
}

}  // namespace mrlxmlclass::qt
