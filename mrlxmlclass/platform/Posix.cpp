#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>

#include "mrlxmlclass/platform/Posix_internal.h"

namespace mrlxmlclass::platform {
namespace {

class PosixClock final : public Clock {
public:
    Date Now() override {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        const int second = std::min(local.tm_sec, 59);  // a leap second is the last one over again
        const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + second;
        const Date day = Date::Of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
        return Date(day.days() + seconds / 86400.0);
    }
};

class PosixUi final : public Ui {
public:
    // One line a message. One that could not be written at once is dropped: nobody may wait for a full pipe.
    void Message(const String& text) override {
        pollfd output{STDERR_FILENO, POLLOUT, 0};
        if (Retry([&] { return poll(&output, 1, 0); }) != 1 || output.revents != POLLOUT) return;
        String line = text;
        std::ranges::replace_if(
            line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
        line += '\n';
        for (std::size_t done = 0; done < line.size();) {
            const ssize_t count = Retry([&] { return write(STDERR_FILENO, line.data() + done, line.size() - done); });
            if (count <= 0) return;
            done += static_cast<std::size_t>(count);
        }
    }

protected:
    void DoEvents() override {}
};

}  // namespace

Clock& SystemClock() {
    return Lasting<PosixClock>();
}
Ui& SystemUi() {
    return Lasting<PosixUi>();
}

int Descriptor::Close() {
    // An interrupted close has closed: to try again might close what another thread has opened since.
    const int number = std::exchange(number_, -1);
    return number >= 0 && close(number) != 0 && errno != EINTR ? errno : 0;
}

Descriptor OpenPath(const String& path, int flags, mode_t mode) {
    flags |= O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    Descriptor opened(Retry([&] { return open(path.c_str(), flags, mode); }));
    if (!opened || opened.number() > STDERR_FILENO) return opened;
    return Descriptor(fcntl(opened.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

bool Askable(const String& path) {
    return !path.empty() && path.find('\0') == String::npos;
}

void DemandAskable(const String& path, SourceLine where) {
    if (!Askable(path)) Raise(failure::kPathAccess, where);
}

FileFacts FactsOf(const struct stat& status) {
    FileFacts facts;
    facts.exists = true;
    facts.folder = S_ISDIR(status.st_mode);
    facts.writable = (status.st_mode & 0222) != 0;
    facts.mode = status.st_mode & 07777;
    facts.owner = status.st_uid;
    facts.group = status.st_gid;
    facts.device = status.st_dev;
    facts.number = status.st_ino;
    facts.size = static_cast<std::uint64_t>(status.st_size);
    facts.changed_ns = std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    return facts;
}

namespace {

[[noreturn]] void RaiseForDisk(int error, SourceLine where) {
    switch (error) {
        case EROFS:
            Raise(failure::kPermissionDenied, "The disk can only be read", where);
        case ENOSPC:
            Raise(failure::kDeviceFailure, "The disk is full", where);
        case EDQUOT:
            Raise(failure::kDeviceFailure, "There is no more room on the disk for this user", where);
        default:
            Raise(failure::kDeviceFailure, where);
    }
}

}  // namespace

void RaiseFor(int error, const String& path, SourceLine where) {
    switch (error) {
        case ENOENT: {
            const std::size_t last = path.rfind('/');
            struct stat status {};
            const bool folder_there = last == String::npos || last == 0 ||
                                      (stat(path.substr(0, last).c_str(), &status) == 0 && S_ISDIR(status.st_mode));
            Raise(folder_there ? failure::kFileNotFound : failure::kPathNotFound, where);
        }
        case ENOTDIR:
            Raise(failure::kPathNotFound, where);
        case EACCES:
        case EPERM:
        case ETXTBSY:
            Raise(failure::kPermissionDenied, where);
        case EISDIR:
        case EINVAL:
        case EEXIST:
        case ENOTEMPTY:
        case ENXIO:  // a pipe that nobody reads, a socket
        case ELOOP:
        case ENAMETOOLONG:
            Raise(failure::kPathAccess, where);
        default:
            RaiseForDisk(error, where);
    }
}

void RaiseForOpenFile(int error, SourceLine where) {
    if (error == EACCES || error == EPERM) Raise(failure::kPermissionDenied, where);
    RaiseForDisk(error, where);
}

}  // namespace mrlxmlclass::platform
