#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <ctime>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

using namespace platform;

TEST(PosixClock, TellsTheLocalTimeInWholeSeconds) {
    const std::time_t before = std::time(nullptr);
    const Date now = SystemServices().clock.Now();
    std::tm local{};
    localtime_r(&before, &local);
    const Date then = Date(Date::Of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).days() +
                           ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) / 86400.0);
    EXPECT_GE(now, then);
    EXPECT_LT(now.days() - then.days(), 5.0 / 86400);
    EXPECT_EQ(SystemServices().clock.Today(), now.day());
}

TEST(PosixMessage, IsOneLineOnTheErrorOutput) {
    ::testing::internal::CaptureStderr();
    SystemServices().ui.Message("Some dates\r\nhad to be adjusted. ");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Some dates  had to be adjusted. \n");
}

TEST(PosixMessage, NeverWaitsForAFullPipe) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const String filling(1 << 16, 'x');
    while (write(ends[1], filling.data(), filling.size()) > 0) continue;
    ASSERT_EQ(fcntl(ends[1], F_SETFL, 0), 0);  // from here on a write would wait
    const int kept = dup(STDERR_FILENO);
    dup2(ends[1], STDERR_FILENO);
    SystemServices().ui.Message("nobody reads this");
    dup2(kept, STDERR_FILENO);
    for (const int number : {kept, ends[0], ends[1]}) close(number);
}

TEST(OpenPath, NeverGivesAStandardDescriptor) {
    const int kept = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    const Descriptor opened = OpenPath("/dev/null", O_RDONLY);
    EXPECT_GT(opened.number(), STDERR_FILENO);
    EXPECT_NE(fcntl(opened.number(), F_GETFD) & FD_CLOEXEC, 0);
    if (kept >= 0) {
        dup2(kept, STDIN_FILENO);
        close(kept);
    }
}

TEST(Descriptor, ClosesOnce) {
    Descriptor opened = OpenPath("/dev/null", O_RDONLY);
    const int number = opened.number();
    EXPECT_EQ(opened.Close(), 0);
    EXPECT_EQ(opened.Close(), 0);
    EXPECT_EQ(fcntl(number, F_GETFD), -1);
}

TEST(RaiseFor, GivesEveryErrorItsNumber) {
    TestPlatform plat;
    struct Row {
        int error;
        int number;
    };
    for (const Row& row :
         {Row{ENOENT, 53}, Row{ENOTDIR, 76}, Row{EACCES, 70}, Row{EPERM, 70}, Row{EROFS, 70}, Row{EISDIR, 75},
          Row{ELOOP, 75}, Row{ENAMETOOLONG, 75}, Row{ENOSPC, 57}, Row{EIO, 57}, Row{EFBIG, 57}, Row{EDQUOT, 57}}) {
        SCOPED_TRACE(std::strerror(row.error));
        EXPECT_EQ(NumberOf([&] { RaiseFor(row.error, plat.Path("a")); }), row.number);
    }
    EXPECT_EQ(NumberOf([&] { RaiseFor(ENOENT, plat.Path("no/a")); }), 76);
    EXPECT_EQ(NumberOf([] { RaiseFor(ENOENT, "a"); }), 53);
    EXPECT_EQ(NumberOf([] { RaiseFor(ENOENT, "/a"); }), 53);
}

TEST(RaiseForOpenFile, KnowsTwoNumbers) {
    EXPECT_EQ(NumberOf([] { RaiseForOpenFile(EPERM); }), 70);
    EXPECT_EQ(NumberOf([] { RaiseForOpenFile(EFBIG); }), 57);
    EXPECT_EQ(NumberOf([] { RaiseForOpenFile(EINVAL); }), 57);
}

TEST(RaiseForOpenFile, SaysWhatIsWrongWithTheDisk) {
    for (const auto& [error, words] :
         {std::pair{ENOSPC, "The disk is full"}, std::pair{EDQUOT, "There is no more room on the disk for this user"},
          std::pair{EROFS, "The disk can only be read"}}) {
        try {
            RaiseForOpenFile(error);
        } catch (const Failure& failed) {
            EXPECT_EQ(failed.description(), words);
        }
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
