#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "tests/support/OtherProcess.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

/// A process that holds a file until it is killed.
class Holder {
public:
    explicit Holder(const String& path) {
        int ends[2];
        if (pipe(ends) != 0) return;
        process_ = fork();
        if (process_ == 0) {
            platform::FileNumbers numbers;
            const char answer = NumberOf([&] { numbers.Hold(path); }) == 0 ? 'y' : 'n';
            if (write(ends[1], &answer, 1) != 1) _exit(1);
            for (;;) pause();
        }
        close(ends[1]);
        char answer = 0;
        holds_ = read(ends[0], &answer, 1) == 1 && answer == 'y';
        close(ends[0]);
    }
    ~Holder() { Kill(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool holds() const { return holds_; }
    void Kill() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = 0;
    }

private:
    pid_t process_ = 0;
    bool holds_ = false;
};

class HeldFile : public ::testing::Test {
protected:
    int NumberOfHold() {
        return NumberOf([&] { numbers.Hold(path); });
    }
    FileUse Use() { return plat.files.Use(path); }

    TestPlatform plat;
    platform::FileNumbers numbers;
    String path = plat.Path("~a.prxl");
};

TEST_F(HeldFile, IsCreatedEmptyAndInUse) {
    EXPECT_EQ(Use(), FileUse::Absent);
    EXPECT_EQ(numbers.Hold(path), 1);
    EXPECT_EQ(Use(), FileUse::InUse);
    EXPECT_EQ(plat.files.Facts(path).size, 0u);
    EXPECT_TRUE(plat.Exists("~a.prxl"));
}

TEST_F(HeldFile, IsRefusedToASecondHoldInTheProcess) {
    numbers.Hold(path);
    EXPECT_EQ(NumberOfHold(), failure::kPermissionDenied);
    platform::FileNumbers others;
    EXPECT_EQ(NumberOf([&] { others.Hold(path); }), failure::kPermissionDenied);
    EXPECT_EQ(Use(), FileUse::InUse);
}

TEST_F(HeldFile, IsRefusedToAnotherProcess) {
    numbers.Hold(path);
    EXPECT_EQ(InAnotherProcess([&] { return NumberOfHold(); }), failure::kPermissionDenied);
    EXPECT_EQ(InAnotherProcess([&] { return static_cast<int>(Use()); }), static_cast<int>(FileUse::InUse));
}

TEST_F(HeldFile, IsFreeOnceItsHolderIsKilled) {
    Holder holder(path);
    ASSERT_TRUE(holder.holds());
    EXPECT_EQ(Use(), FileUse::InUse);
    EXPECT_EQ(NumberOfHold(), failure::kPermissionDenied);
    holder.Kill();
    EXPECT_EQ(Use(), FileUse::Free);
    EXPECT_EQ(numbers.Hold(path), 1);
}

TEST_F(HeldFile, IsFreeWhenItIsALeftover) {
    plat.Write("~a.prxl", "");
    EXPECT_EQ(Use(), FileUse::Free);
    EXPECT_EQ(NumberOfHold(), 0);
}

TEST_F(HeldFile, CanBeHeldByEverybodyOnceItsHolderIsGone) {
    const mode_t before = umask(022);
    {
        const Holder holder(path);
        ASSERT_TRUE(holder.holds());
    }
    umask(before);
    EXPECT_EQ(plat.files.Facts(path).mode, 0666u);
    if (!MayBecomeAnybody()) return;
    ASSERT_EQ(chmod(plat.folder.path().c_str(), 0755), 0);
    EXPECT_EQ(AsUser({5003, 5002, 5002}, [&] { return NumberOfHold(); }), 0);
}

TEST_F(HeldFile, LeavesTheRightsOfAFileAloneThatWasThere) {
    plat.Write("~a.prxl", "");
    plat.files.SetMode(path, 0600);
    numbers.Hold(path);
    EXPECT_EQ(plat.files.Facts(path).mode, 0600u);
}

TEST_F(HeldFile, StaysHeldWhoeverReadsOrTestsIt) {
    numbers.Hold(path);
    for (int round = 0; round < 3; ++round) EXPECT_EQ(Use(), FileUse::InUse);
    plat.files.Read(path);  // closing another descriptor of the file drops nothing
    EXPECT_EQ(Use(), FileUse::InUse);
    EXPECT_EQ(InAnotherProcess([&] { return NumberOfHold(); }), failure::kPermissionDenied);
}

TEST_F(HeldFile, IsNotKeptFromAnybodyByATest) {
    plat.Write("~a.prxl", "");
    EXPECT_EQ(Use(), FileUse::Free);
    const Holder holder(path);
    EXPECT_TRUE(holder.holds());
}

TEST_F(HeldFile, CountsAFolderAsInUse) {
    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    EXPECT_EQ(Use(), FileUse::InUse);
    EXPECT_EQ(NumberOfHold(), failure::kPathAccess);
}

TEST_F(HeldFile, IsAbsentWhereItsFolderIs) {
    EXPECT_EQ(plat.files.Use(plat.Path("absent/a")), FileUse::Absent);
    EXPECT_EQ(plat.files.Use(""), FileUse::Absent);
    EXPECT_EQ(NumberOf([&] { numbers.Hold(plat.Path("absent/a")); }), failure::kPathNotFound);
}

TEST_F(HeldFile, CannotBeMadeInAFolderThatTakesNoFiles) {
    // Nobody, an administrator included, creates a file here.
    EXPECT_NE(NumberOf([&] { numbers.Hold("/proc/~a.prxl"); }), 0);
    if (geteuid() == 0) return;
    plat.files.SetMode(plat.folder.path(), 0500);
    EXPECT_EQ(NumberOfHold(), failure::kPermissionDenied);
    plat.files.SetMode(plat.folder.path(), 0700);
}

TEST_F(HeldFile, RefusesAPipeWithoutWaiting) {
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(NumberOfHold(), failure::kPathAccess);
}

TEST_F(HeldFile, TakesTheLowestFreeNumber) {
    EXPECT_EQ(numbers.Hold(plat.Path("a")), 1);
    EXPECT_EQ(numbers.Hold(plat.Path("b")), 2);
    EXPECT_EQ(numbers.Hold(plat.Path("c")), 3);
    numbers.Release(2, plat.Path("b"));
    EXPECT_EQ(numbers.Hold(plat.Path("d")), 2);
    EXPECT_EQ(numbers.Hold(plat.Path("e")), 4);
}

TEST_F(HeldFile, TellsTheNumberBeforeItIsTaken) {
    EXPECT_EQ(numbers.Next(), 1);
    numbers.Hold(plat.Path("a"));
    numbers.Hold(plat.Path("b"));
    EXPECT_EQ(numbers.Next(), 3);
    numbers.Release(1, plat.Path("a"));
    EXPECT_EQ(numbers.Next(), 1);
    EXPECT_EQ(numbers.Hold(plat.Path("c")), 1);
}

TEST_F(HeldFile, GoesWithItsRelease) {
    numbers.Hold(path);
    numbers.Release(1, path);
    EXPECT_EQ(Use(), FileUse::Absent);
    numbers.Hold(path);
    numbers.Release(1, "");
    EXPECT_EQ(Use(), FileUse::Free);
}

TEST_F(HeldFile, IsLetGoEvenIfItCannotBeDeleted) {
    const auto holds_on = [&] {
        numbers.Hold(path);
        chmod(plat.folder.path().c_str(), 0555);
        const auto failed = [&] { return NumberOf([&] { numbers.Release(1, path); }) == failure::kPermissionDenied; };
        if (!failed()) return 1;
        if (Use() != FileUse::Free) return 2;
        numbers.Hold(plat.Path("real") + "/other");  // takes the number
        if (!failed()) return 3;
        if (plat.files.Use(plat.Path("real") + "/other") != FileUse::InUse) return 4;
        chmod(plat.folder.path().c_str(), 0755);
        numbers.Release(1, path);
        return Use() == FileUse::Absent ? 0 : 5;
    };
    ASSERT_EQ(mkdir(plat.Path("real").c_str(), 0777), 0);
    if (MayBecomeAnybody()) {
        ASSERT_EQ(chown(plat.folder.path().c_str(), 5003, 5002), 0);
        ASSERT_EQ(chown(plat.Path("real").c_str(), 5003, 5002), 0);
        EXPECT_EQ(AsUser({5003, 5002, 5002}, holds_on), 0);
    } else {
        EXPECT_EQ(InAnotherProcess(holds_on), 0);
    }
}

TEST_F(HeldFile, GoesEvenIfTheNumberIsNotOpen) {
    for (const int number : {0, -1, 1, 7}) {
        plat.Write("~a.prxl", "");
        numbers.Release(number, path);
        EXPECT_EQ(Use(), FileUse::Absent) << number;
        numbers.Release(number, path);  // nor is it a failure when it is gone already
    }
}

TEST_F(HeldFile, LeavesAloneWhatSomebodyPutInItsPlace) {
    numbers.Hold(path);
    plat.files.Delete(path);
    platform::FileNumbers others;
    others.Hold(path);

    numbers.Release(1, path);
    EXPECT_EQ(Use(), FileUse::InUse) << "theirs";
    others.Release(1, path);
    EXPECT_EQ(Use(), FileUse::Absent);
}

TEST_F(HeldFile, CanBeHeldAnewAfterSomebodyDeletedIt) {
    numbers.Hold(path);
    plat.files.Delete(path);
    EXPECT_EQ(Use(), FileUse::Absent);
    EXPECT_EQ(numbers.Hold(path), 2);
    EXPECT_EQ(Use(), FileUse::InUse);
}

// Two processes take and release the same file over and over: never do both hold it, and what one of them holds is
// what the path names.
TEST_F(HeldFile, IsNeverHeldTwiceInARace) {
    const auto race = [&] {
        platform::FileNumbers own;
        int held = 0;
        for (int round = 0; round < 2000 || held == 0; ++round) {  // until the other is done, if need be
            if (NumberOf([&] { own.Hold(path); }) != 0) continue;
            ++held;
            if (plat.files.Use(path) != FileUse::InUse) _exit(2);
            own.Release(1, path);
        }
        return 0;
    };
    const pid_t other = fork();
    if (other == 0) _exit(race());
    const int mine = InAnotherProcess(race);
    int status = 0;
    waitpid(other, &status, 0);
    EXPECT_EQ(mine, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(SystemFiles, HoldsByOneTableForTheProcess) {
    TestPlatform plat;
    const Integer first = plat.files.Hold(plat.Path("a"));
    const Integer second = plat.files.Hold(plat.Path("b"));
    EXPECT_EQ(second, first + 1);
    plat.files.Release(first, plat.Path("a"));
    plat.files.Release(second, plat.Path("b"));
    EXPECT_FALSE(plat.Exists("a"));
}

}  // namespace
}  // namespace mrlxmlclass::testing
