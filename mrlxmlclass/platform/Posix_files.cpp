#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "mrlxmlclass/platform/Posix_internal.h"

namespace mrlxmlclass::platform {
namespace {

class PosixOutputFile final : public OutputFile {
public:
    explicit PosixOutputFile(Descriptor file) : file_(std::move(file)) {}

    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count =
                Retry([&] { return pwrite(file_.number(), bytes.data(), bytes.size(), static_cast<off_t>(offset)); });
            if (count < 0) RaiseForOpenFile(errno);
            if (count == 0) RaiseForOpenFile(ENOSPC);
            bytes.remove_prefix(static_cast<std::size_t>(count));
            offset += static_cast<std::uint64_t>(count);
        }
    }

    void Cut(std::uint64_t length) override {
        if (Retry([&] { return ftruncate(file_.number(), static_cast<off_t>(length)); }) != 0) RaiseForOpenFile(errno);
    }

    void Sync() override {
        if (Retry([&] { return fsync(file_.number()); }) != 0) RaiseForOpenFile(errno);
    }

    FileFacts Facts() override {
        struct stat status {};
        if (fstat(file_.number(), &status) != 0) RaiseForOpenFile(errno);
        return FactsOf(status);
    }

    void Close() override {
        if (const int error = file_.Close(); error != 0) RaiseForOpenFile(error);
    }

private:
    Descriptor file_;
};

Descriptor OpenForWriting(const String& path, int flags) {
    DemandAskable(path);
    Descriptor file = OpenPath(path, O_WRONLY | flags, 0666);
    if (!file) RaiseFor(errno, path);
    struct stat status {};
    if (fstat(file.number(), &status) != 0) RaiseForOpenFile(errno);
    if (S_ISFIFO(status.st_mode)) Raise(failure::kPathAccess);
    if ((status.st_mode & 0222) == 0) Raise(failure::kPermissionDenied);  // an administrator could write all the same
    return file;
}

/// What a link points to, from where the path itself counts; "" when the path is no link.
String PointedTo(const String& path) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(path.c_str(), target.data(), target.size());
    if (length <= 0) return {};
    const std::string_view to(target.data(), static_cast<std::size_t>(length));
    const std::size_t folder = to.starts_with('/') ? 0 : path.rfind('/') + 1;  // without a "/": 0
    return path.substr(0, folder).append(to);
}

/// Where a chain of links ends, though nothing is there yet; the path itself when the chain has no end.
String EndOfLinks(const String& path) {
    constexpr int kMostLinks = 40;  // as many as the system follows
    String place = path;
    for (int followed = 0; followed <= kMostLinks; ++followed) {
        const String next = PointedTo(place);
        if (next.empty()) return place;
        place = next;
    }
    return path;
}

class PosixFiles final : public Files {
public:
    FileFacts Facts(const String& path) override {
        struct stat status {};
        if (!Askable(path)) return {};
        if (stat(path.c_str(), &status) == 0) return FactsOf(status);
        if (errno == ENOENT || errno == ENOTDIR) return {};
        RaiseFor(errno, path);
    }

    String Read(const String& path) override {
        DemandAskable(path);
        String content;
        if (!ReadInto(path, content)) RaiseFor(errno, path);
        return content;
    }

    std::unique_ptr<OutputFile> Create(const String& path) override {
        Descriptor file = OpenForWriting(path, O_CREAT);
        struct stat status {};
        if (fstat(file.number(), &status) != 0) RaiseForOpenFile(errno);
        auto output = std::make_unique<PosixOutputFile>(std::move(file));
        if (S_ISREG(status.st_mode)) output->Cut(0);  // a device has nothing to cut
        return output;
    }

    std::unique_ptr<OutputFile> Open(const String& path) override {
        return std::make_unique<PosixOutputFile>(OpenForWriting(path, 0));
    }

    void Rename(const String& from, const String& to) override {
        DemandAskable(from);
        DemandAskable(to);
        const FileFacts replaced = Facts(to);
        if (replaced.exists && !(replaced == Facts(from))) attributes_.Forget(to);
        if (rename(from.c_str(), to.c_str()) == 0) return;
        const int error = errno;
        struct stat status {};
        if (error == ENOENT && lstat(from.c_str(), &status) == 0) Raise(failure::kPathNotFound);
        RaiseFor(error, from);
    }

    void Delete(const String& path) override {
        DemandAskable(path);
        attributes_.Forget(path);
        if (unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) RaiseFor(errno, path);
    }

    void SetMode(const String& path, std::uint32_t mode) override {
        DemandAskable(path);
        if (chmod(path.c_str(), static_cast<mode_t>(mode & 07777)) != 0) RaiseFor(errno, path);
    }

    void SetOwner(const String& path, const FileFacts& like) override {
        DemandAskable(path);
        if (chown(path.c_str(), like.owner, like.group) == 0) return;
        // Where the owner is not this process's to give, the group may be all the same.
        constexpr auto kSameOwner = static_cast<uid_t>(-1);
        if (errno == EPERM && chown(path.c_str(), kSameOwner, like.group) == 0) return;
        if (errno != EPERM) RaiseFor(errno, path);
    }

    void SyncFolder(const String& folder) override {
        const String path = folder.empty() ? "." : folder;
        DemandAskable(path);
        Descriptor opened = OpenPath(path, O_RDONLY | O_DIRECTORY);
        if (!opened && (errno == ENOENT || errno == ENOTDIR)) Raise(failure::kPathNotFound);
        if (!opened) RaiseFor(errno, path);
        // Some file systems know no such call for folders; theirs need none.
        if (Retry([&] { return fsync(opened.number()); }) != 0 && errno != EINVAL) RaiseForOpenFile(errno);
    }

    String Resolve(const String& path) override {
        if (!Askable(path)) return path;
        const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
        return resolved ? String(resolved.get()) : EndOfLinks(path);
    }

    Integer Attributes(const String& path) override { return attributes_.Get(path); }
    void SetAttributes(const String& path, Integer value) override { attributes_.Set(path, value); }

    FileUse Use(const String& path) override { return UseOf(path); }
    Integer NextNumber() override { return numbers_.Next(); }
    Integer Hold(const String& path) override { return numbers_.Hold(path); }
    void Release(Integer number, const String& path_to_delete) override { numbers_.Release(number, path_to_delete); }

    String ProgramFolder() override { return ProgramFolderOfProcess(); }
    String StateFolder() override { return StateFolderOfUser(); }
    String SpecialFolder(Long number) override { return SpecialFolderOfUser(number); }

private:
    AttributeStore attributes_;
    FileNumbers numbers_;
};

}  // namespace

Files& SystemFiles() {
    return Lasting<PosixFiles>();
}

bool ReadInto(const String& path, String& content) {
    const Descriptor file = OpenPath(path, O_RDONLY);
    if (!file) return false;
    struct stat status {};
    if (fstat(file.number(), &status) != 0) return false;
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return false;
    }
    content.resize(static_cast<std::size_t>(status.st_size));
    for (std::size_t done = 0; done < content.size();) {
        const ssize_t count = Retry([&] { return read(file.number(), content.data() + done, content.size() - done); });
        if (count < 0) return false;
        if (count == 0) content.resize(done);  // it has shrunk meanwhile
        done += static_cast<std::size_t>(count);
    }
    // What has grown meanwhile, and files that tell no size.
    std::array<char, 4096> more{};
    for (;;) {
        const ssize_t count = Retry([&] { return read(file.number(), more.data(), more.size()); });
        if (count < 0) return false;
        if (count == 0) return true;
        content.append(more.data(), static_cast<std::size_t>(count));
    }
}

}  // namespace mrlxmlclass::platform
