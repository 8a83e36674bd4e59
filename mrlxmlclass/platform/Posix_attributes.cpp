#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <charconv>

#include "mrlxmlclass/platform/Posix_internal.h"

namespace mrlxmlclass::platform {
namespace {

constexpr int kStoredBits = file_attribute::kHidden | file_attribute::kSystem;
// The customary name among file servers for these bits; its text is a hexadecimal number, "0x6".
constexpr const char* kAttributeName = "user.DOSATTRIB";

bool Unsupported(int error) {
    return error == ENOTSUP || error == ENOSYS;
}

int BitsFrom(std::string_view text) {
    if (!text.starts_with("0x")) return 0;
    int bits = 0;
    std::from_chars(text.data() + 2, text.data() + text.size(), bits, 16);  // 0 where no digits follow
    return bits & kStoredBits;
}

const char* TextOf(int bits) {
    switch (bits) {
        case file_attribute::kHidden:
            return "0x2";
        case file_attribute::kSystem:
            return "0x4";
        default:
            return "0x6";
    }
}

}  // namespace

Integer AttributeStore::Get(const String& path) {
    struct stat status {};
    if (!Askable(path) || stat(path.c_str(), &status) != 0) return 0;
    const int read_only = (status.st_mode & 0222) == 0 ? file_attribute::kReadOnly : 0;
    std::array<char, 1024> text{};
    const ssize_t length = getxattr(path.c_str(), kAttributeName, text.data(), text.size());
    if (length >= 0) return read_only | BitsFrom({text.data(), static_cast<std::size_t>(length)});
    if (!Unsupported(errno)) return read_only;
    const std::scoped_lock guard(mutex_);
    const auto found = remembered_.find({status.st_dev, status.st_ino});
    return read_only | (found == remembered_.end() ? 0 : found->second);
}

void AttributeStore::Set(const String& path, Integer value) {
    DemandAskable(path);
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) RaiseFor(errno, path);
    const mode_t mode = status.st_mode & 07777;
    const bool writable = (mode & 0222) != 0;
    const bool read_only = (value.value() & file_attribute::kReadOnly) != 0;
    const auto set_mode = [&](mode_t wanted) {
        if (chmod(path.c_str(), wanted) != 0) RaiseFor(errno, path);
    };
    // The bits of a file that its owner may not write cannot be stored, so it is opened up first.
    if (!writable) set_mode(mode | 0200);
    SetBits(path, {status.st_dev, status.st_ino}, value.value() & kStoredBits);
    if (read_only) set_mode(mode & ~mode_t{0222});
}

void AttributeStore::SetBits(const String& path, const Identity& file, int bits) {
    const int failed = bits == 0 ? removexattr(path.c_str(), kAttributeName)
                                 : setxattr(path.c_str(), kAttributeName, TextOf(bits), 3, 0);
    if (failed == 0 || (bits == 0 && errno == ENODATA)) return;
    if (!Unsupported(errno)) RaiseFor(errno, path);
    const std::scoped_lock guard(mutex_);
    if (bits == 0) {
        remembered_.erase(file);
    } else {
        remembered_[file] = bits;
    }
}

void AttributeStore::Forget(const String& path) {
    const std::scoped_lock guard(mutex_);
    struct stat status {};
    if (remembered_.empty() || lstat(path.c_str(), &status) != 0) return;
    remembered_.erase({status.st_dev, status.st_ino});
}

}  // namespace mrlxmlclass::platform
