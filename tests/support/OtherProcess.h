#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace mrlxmlclass::testing {

/// What `body` gives in another process; -1 when that died.
inline int InAnotherProcess(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) _exit(body());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Who a process is: a user, the group of the files it makes, and one more group that it belongs to.
struct User {
    uid_t user;
    gid_t group;
    gid_t member_of;
};

/// Whether this process can become somebody else.
inline bool MayBecomeAnybody() {
    return geteuid() == 0;
}

/// The same, as somebody else.
inline int AsUser(const User& who, const std::function<int()>& body) {
    return InAnotherProcess([&] {
        const bool is = setgroups(1, &who.member_of) == 0 && setgid(who.group) == 0 && setuid(who.user) == 0;
        return is ? body() : -2;
    });
}

}  // namespace mrlxmlclass::testing
