#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

#include "mrlxmlclass/platform/Posix_internal.h"

namespace mrlxmlclass::platform {
namespace {

struct flock WholeFile() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

// The former holder deletes the file while it holds it, so what was opened may no longer be what the path names.
bool StillAt(const String& path, const struct stat& opened) {
    struct stat there {};
    return stat(path.c_str(), &there) == 0 && there.st_dev == opened.st_dev && there.st_ino == opened.st_ino;
}

/// Opens a file for everybody to hold, making it if need be: what a dead holder leaves must not keep others out.
Descriptor OpenForAll(const String& path) {
    Descriptor file = OpenPath(path, O_RDWR);
    if (file || errno != ENOENT) return file;
    file = OpenPath(path, O_RDWR | O_CREAT, 0666);
    if (file) fchmod(file.number(), 0666);  // also what this user denies to new files
    return file;
}

// A lock of the open file, not of the process: it conflicts inside the process too, and closing some other
// descriptor of the file does not drop it.
Descriptor OpenHeld(const String& path) {
    DemandAskable(path);
    constexpr int kTries = 100;
    for (int tried = 0; tried < kTries; ++tried) {
        Descriptor file = OpenForAll(path);
        struct stat opened {};
        if (!file || fstat(file.number(), &opened) != 0) RaiseFor(errno, path);
        if (!S_ISREG(opened.st_mode)) Raise(failure::kPathAccess);
        struct flock lock = WholeFile();
        if (Retry([&] { return fcntl(file.number(), F_OFD_SETLK, &lock); }) != 0) {
            const bool held = errno == EAGAIN || errno == EACCES;
            Raise(held ? failure::kPermissionDenied : failure::kDeviceFailure);
        }
        if (StillAt(path, opened)) return file;
    }
    Raise(failure::kPermissionDenied);
}

}  // namespace

FileUse UseOf(const String& path) {
    if (!Askable(path)) return FileUse::Absent;
    const Descriptor file = OpenPath(path, O_RDONLY);
    if (!file) return errno == ENOENT || errno == ENOTDIR ? FileUse::Absent : FileUse::InUse;
    struct stat opened {};
    if (fstat(file.number(), &opened) != 0 || S_ISDIR(opened.st_mode)) return FileUse::InUse;
    struct flock lock = WholeFile();
    // Where locks are not to be had, nobody holds one.
    if (fcntl(file.number(), F_OFD_GETLK, &lock) != 0) return FileUse::Free;
    return lock.l_type == F_UNLCK ? FileUse::Free : FileUse::InUse;
}

std::size_t FileNumbers::FirstFree() const {
    const auto place = std::ranges::find_if(held_, [](const Held& held) { return !held.file; });
    return static_cast<std::size_t>(place - held_.begin());
}

Integer FileNumbers::Next() {
    const std::scoped_lock guard(mutex_);
    return FirstFree() + 1;
}

Integer FileNumbers::Hold(const String& path) {
    Descriptor file = OpenHeld(path);
    const std::scoped_lock guard(mutex_);
    const std::size_t place = FirstFree();
    const Integer number = place + 1;
    if (place == held_.size()) held_.emplace_back();
    held_[place] = {std::move(file), path};
    return number;
}

void FileNumbers::Release(Integer number, const String& path_to_delete) {
    const std::scoped_lock guard(mutex_);
    const bool known = number > 0 && number <= std::ssize(held_);
    Held none;
    Held& held = known ? held_[static_cast<std::size_t>(number.value() - 1)] : none;
    const bool ours = path_to_delete.empty() || held.path == path_to_delete;
    const Held released = ours ? std::exchange(held, {}) : Held();  // closed at the end, whatever comes
    if (path_to_delete.empty()) return;
    DemandAskable(path_to_delete);
    // Deleted while it is still held, so that nobody finds it free meanwhile. A file that somebody put in its place is
    // theirs.
    struct stat opened {};
    const bool replaced =
        released.file && !(fstat(released.file.number(), &opened) == 0 && StillAt(path_to_delete, opened));
    if (!replaced && unlink(path_to_delete.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) {
        RaiseFor(errno, path_to_delete);
    }
}

}  // namespace mrlxmlclass::platform
