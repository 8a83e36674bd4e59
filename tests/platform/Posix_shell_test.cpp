#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

/// A folder on the search path, with an opener that notes what it was told.
class Opener : public ::testing::Test {
protected:
    void Install(const String& script) {
        plat.Write("xdg-open", "#!/bin/sh\n" + script);
        plat.files.SetMode(plat.Path("xdg-open"), 0755);
    }
    void InstallNoting(const String& after = "") {
        Install("printf '%s|' \"$#\" \"$1\" > " + plat.Path("noting") + "\nmv " + plat.Path("noting") + " " +
                plat.Path("noted") + "\n" + after);
    }
    String Noted() {
        for (int tries = 0; tries < 500 && !plat.Exists("noted"); ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        const String noted = plat.Exists("noted") ? plat.Read("noted") : String("nothing");
        plat.files.Delete(plat.Path("noted"));
        return noted;
    }

    TestPlatform plat;
    Shell& system = SystemServices().shell;
    ScopedEnvironment path{"PATH", plat.folder.path() + ":/usr/bin:/bin"};
};

TEST_F(Opener, IsToldTheTarget) {
    InstallNoting();
    plat.Write("a plan's $HOME; file", "");
    EXPECT_EQ(system.Open(plat.Path("a plan's $HOME; file")), 42);
    EXPECT_EQ(Noted(), "1|" + plat.Path("a plan's $HOME; file") + "|");
    EXPECT_EQ(system.Open("https://x.org/?a=b&c"), 42);
    EXPECT_EQ(Noted(), "1|https://x.org/?a=b&c|");
}

TEST_F(Opener, TakesNoTargetForAnOption) {
    InstallNoting();
    char before[4096];
    ASSERT_NE(getcwd(before, sizeof before), nullptr);
    ASSERT_EQ(chdir(plat.folder.path().c_str()), 0);
    plat.Write("--version", "");
    plat.Write("http:x", "");
    EXPECT_EQ(system.Open("--version"), 42);
    EXPECT_EQ(Noted(), "1|./--version|");
    EXPECT_EQ(system.Open("http:x"), 42);
    EXPECT_EQ(Noted(), "1|./http:x|");
    EXPECT_EQ(system.Open("--help"), 2);
    ASSERT_EQ(chdir(before), 0);
}

TEST_F(Opener, IsNotStartedForATargetThatIsNotThere) {
    InstallNoting();
    for (const String& target : {plat.Path("absent"), String("www.x.org"), String(), String("http://x\0y", 10)}) {
        EXPECT_EQ(system.Open(target), 2) << target;
    }
    EXPECT_FALSE(plat.Exists("noted"));
}

TEST_F(Opener, RunsNothingOfATargetThatLooksLikeACommand) {
    InstallNoting();
    const String touch = "touch " + plat.Path("ran");
    for (const String& command :
         {"\"; " + touch + "; \"", "`" + touch + "`", "$(" + touch + ")", "'; " + touch + " '"}) {
        EXPECT_EQ(system.Open("/" + command), 2) << command;
        EXPECT_EQ(system.Open(command), 2) << command;
        EXPECT_FALSE(plat.Exists("noted"));
        EXPECT_EQ(system.Open("https://x.org/" + command), 42);
        EXPECT_EQ(Noted(), "1|https://x.org/" + command + "|");
    }
    EXPECT_FALSE(plat.Exists("ran"));
}

TEST_F(Opener, IsToldATargetOfAnyLengthAndNotStartedForAFileThatNoneCanBeCalled) {
    InstallNoting();
    const String letters(10'000, 'a');
    EXPECT_EQ(system.Open("/" + letters), 2);
    EXPECT_EQ(system.Open(letters), 2);
    EXPECT_FALSE(plat.Exists("noted"));
    EXPECT_EQ(system.Open("https://x.org/" + letters), 42);
    EXPECT_EQ(Noted(), "1|https://x.org/" + letters + "|");
}

TEST_F(Opener, IsMissed) {
    const ScopedEnvironment nowhere("PATH", plat.folder.path() + "::relative");
    EXPECT_EQ(system.Open("https://x.org"), 31);
    plat.Write("xdg-open", "no program");
    plat.files.SetMode(plat.Path("xdg-open"), 0644);
    EXPECT_EQ(system.Open("https://x.org"), 31);
}

TEST_F(Opener, CountsAsMissingWhenItCannotBeRun) {
    plat.Write("xdg-open", "#!/no/such/interpreter\n");
    plat.files.SetMode(plat.Path("xdg-open"), 0755);
    EXPECT_EQ(system.Open("https://x.org"), 31);
}

TEST_F(Opener, IsNeitherWaitedForNorLeftBehind) {
    InstallNoting("sleep 3\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(system.Open("https://x.org"), 42);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);  // no child of ours, running or ended
    EXPECT_EQ(errno, ECHILD);
    Noted();
}

TEST_F(Opener, InheritsNoneOfTheFilesOfTheHost) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);  // without close-on-exec
    InstallNoting("sleep 3\n");
    EXPECT_EQ(system.Open("https://x.org"), 42);
    Noted();
    close(ends[1]);
    char byte = 0;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(read(ends[0], &byte, 1), 0);  // the end comes at once: the program has no copy of the other end
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    close(ends[0]);
}

}  // namespace
}  // namespace mrlxmlclass::testing
