#include "prx/Progress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

namespace prx_test {
namespace {

using namespace std::chrono_literals;

/// A terminal in the place of the error output.
class Terminal {
public:
    Terminal() : screen_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)), errors_(dup(STDERR_FILENO)) {
        grantpt(screen_);
        unlockpt(screen_);
        const int line = open(ptsname(screen_), O_RDWR | O_NOCTTY);
        dup2(line, STDERR_FILENO);
        close(line);
    }
    ~Terminal() {
        dup2(errors_, STDERR_FILENO);
        close(errors_);
        close(screen_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// What came since it was asked last.
    std::string Shown() const {
        char text[1000];
        const ssize_t size = read(screen_, text, sizeof text);
        return size > 0 ? std::string(text, static_cast<std::size_t>(size)) : "";
    }

private:
    int screen_;
    int errors_;
};

TEST(Progress, ShowsABarWhenALoadTakesLong) {
    const Terminal terminal;
    prx::Progress progress;
    progress.Begin("Reading", 4);
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "") << "A short load shows nothing";
    std::this_thread::sleep_for(310ms);
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "\rReading [###############...............]  50%");
    progress.Step();
    EXPECT_EQ(terminal.Shown(), "") << "It is not drawn again at once";
    progress.End();
    EXPECT_EQ(terminal.Shown(), "\r\033[K");
}

TEST(Progress, MakesRoomForAMessage) {
    const Terminal terminal;
    prx::Progress progress;
    progress.Begin("Reading", 1);
    std::this_thread::sleep_for(310ms);
    progress.Step();
    progress.Step();  // one more than was told
    EXPECT_EQ(terminal.Shown(), "\rReading [##############################] 100%");
    progress.Clear();
    EXPECT_EQ(terminal.Shown(), "\r\033[K");
    progress.End();
    EXPECT_EQ(terminal.Shown(), "");
}

TEST(Progress, ShowsNothingWhereNobodyWatches) {
    ::testing::internal::CaptureStderr();
    prx::Progress progress;
    progress.Begin("Reading", 1);
    std::this_thread::sleep_for(310ms);
    progress.Step();
    progress.End();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace prx_test
