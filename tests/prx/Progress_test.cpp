#include "prx/Progress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>

namespace prx_test {
namespace {

using namespace std::chrono_literals;

/// A terminal in the place of the error output, where the system has one to give.
class Terminal {
public:
    Terminal() : screen_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)), errors_(dup(STDERR_FILENO)) {
        const char* name = grantpt(screen_) == 0 && unlockpt(screen_) == 0 ? ptsname(screen_) : nullptr;
        if (name == nullptr) return;
        const int line = open(name, O_RDWR | O_NOCTTY);
        is_there_ = line >= 0 && dup2(line, STDERR_FILENO) == STDERR_FILENO;
        close(line);
    }
    ~Terminal() {
        dup2(errors_, STDERR_FILENO);
        close(errors_);
        close(screen_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    bool is_there() const { return is_there_; }
    /// What came since it was asked last.
    std::string Shown() const {
        char text[1000];
        const ssize_t size = read(screen_, text, sizeof text);
        return size > 0 ? std::string(text, static_cast<std::size_t>(size)) : "";
    }

private:
    int screen_;
    int errors_;
    bool is_there_ = false;
};

/// A load, by a clock that goes as the test says.
class UnwatchedProgress : public ::testing::Test {
protected:
    prx::Progress::Clock::time_point now;
    prx::Progress progress{[this] { return now; }};
};

/// The same with somebody at the terminal.
class Progress : public UnwatchedProgress {
protected:
    void SetUp() override {
        if (!terminal.is_there()) GTEST_SKIP() << "there is no terminal to be had";
    }

    const Terminal terminal;
};

TEST_F(Progress, ShowsABarWhenALoadTakesLong) {
    progress.Begin("Reading", 4);
    now += 299ms;
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "") << "A short load shows nothing";
    now += 1ms;
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "\rReading [###############...............]  50%");
    now += 49ms;
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "") << "It is not drawn again at once";
    progress.End();
    EXPECT_EQ(terminal.Shown(), "\r\033[K");
}

TEST_F(Progress, MakesRoomForAMessage) {
    progress.Begin("Reading", 1);
    now += 1s;
    progress.Step();
    now += 1s;
    progress.Step();  // one more than was told
    terminal.Shown();
    progress.Clear();
    EXPECT_EQ(terminal.Shown(), "\r\033[K");
    progress.End();
    EXPECT_EQ(terminal.Shown(), "");
}

TEST_F(Progress, IsFullAtTheEndThoughMoreCameThanWasTold) {
    progress.Begin("Reading", 1);
    progress.Step();
    now += 1s;
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "\rReading [##############################] 100%");
    progress.End();
}

TEST_F(UnwatchedProgress, ShowsNothing) {
    ::testing::internal::CaptureStderr();
    progress.Begin("Reading", 1);
    now += 1s;
    progress.Step();
    progress.End();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace prx_test
