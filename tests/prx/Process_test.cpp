#include "tests/prx/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

constexpr int kStopped = 124;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    return pointers;
}

/// The variables, and those of this process that are not among them.
std::vector<char*> Environment(std::vector<std::string>& variables) {
    std::vector<char*> pointers = Pointers(variables);
    for (char** own = environ; *own != nullptr; ++own) {
        const std::string name = std::string(*own).substr(0, std::string(*own).find('=') + 1);
        const auto same = [&](const std::string& variable) { return variable.starts_with(name); };
        if (std::none_of(variables.begin(), variables.end(), same)) pointers.push_back(*own);
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Whether a process ended in that time.
bool EndsWithin(pid_t process, std::chrono::milliseconds limit) {
    pollfd end{static_cast<int>(syscall(SYS_pidfd_open, process, 0)), POLLIN, 0};
    EXPECT_GE(end.fd, 0);
    const int ended = poll(&end, 1, static_cast<int>(limit.count()));
    close(end.fd);
    return ended == 1;
}

}  // namespace

int RunProgram(std::vector<std::string> words, Start start) {
    std::vector<char*> arguments = Pointers(words);
    arguments.push_back(nullptr);
    std::vector<char*> variables = Environment(start.variables);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, start.folder.c_str());
    posix_spawn_file_actions_addopen(&actions, 1, start.output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, start.errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);  // so that what it starts can be stopped with it
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments[0], &actions, &attributes, arguments.data(), variables.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    EXPECT_EQ(error, 0) << words[0];
    if (error != 0) return -1;

    const bool ended = EndsWithin(process, start.limit);
    if (!ended) kill(-process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    if (!ended) return kStopped;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

namespace {

class RunOfAProgram : public ::testing::Test {
protected:
    int Shell(const std::string& script) { return RunProgram({"sh", "-c", script}, start); }

    Folder folder;
    Start start{folder.Path(""), {}, folder.Path("out"), folder.Path("err")};
};

TEST_F(RunOfAProgram, GivesItsStatusAndWhatItPrints) {
    EXPECT_EQ(Shell("echo told; echo wrong >&2; exit 3"), 3);
    EXPECT_EQ(folder.Read("out"), "told\n");
    EXPECT_EQ(folder.Read("err"), "wrong\n");
}

TEST_F(RunOfAProgram, GivesTheSignalThatEndedIt) {
    EXPECT_EQ(Shell("kill -TERM $$"), 128 + SIGTERM);
}

TEST_F(RunOfAProgram, TakesPlaceInItsFolderWithItsVariables) {
    start.variables = {"PATH=" + std::string(std::getenv("PATH")), "HOME=nowhere"};
    EXPECT_EQ(Shell("echo $HOME; env | grep -c ^HOME=; touch here"), 0);
    EXPECT_EQ(folder.Read("out"), "nowhere\n1\n");
    EXPECT_TRUE(folder.Has("here"));
}

TEST_F(RunOfAProgram, IsStoppedWithWhatItStarted) {
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);  // whose parent is stopped becomes a child of this process
    start.limit = std::chrono::milliseconds(300);
    EXPECT_EQ(Shell("sleep 30 & echo $!; wait"), kStopped);
    const pid_t sleeper = std::stoi(folder.Read("out"));
    int status = 0;
    EXPECT_EQ(waitpid(sleeper, &status, 0), sleeper);
    EXPECT_TRUE(WIFSIGNALED(status));
}

}  // namespace
}  // namespace prx_test
