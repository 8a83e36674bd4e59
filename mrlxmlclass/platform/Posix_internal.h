#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <cstdint>
#include <map>
#include <mutex>
#include <string_view>
#include <utility>
#include <vector>

#include "mrlxmlclass/platform/Services.h"

/// What the files of the POSIX platform share among themselves.
namespace mrlxmlclass::platform {

Clock& SystemClock();
Locale& SystemLocale();
Files& SystemFiles();
Shell& SystemShell();
Ui& SystemUi();

/// One object for the life of the process. It is never destroyed: other threads may still use it while statics end.
template <class T>
T& Lasting() {
    static T& object = *new T;
    return object;
}

/// Repeats a system call for as long as signals interrupt it.
template <class Call>
auto Retry(Call&& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

/// An open descriptor, closed with its owner.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { Close(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    /// 0, or the error that the system tells at the close. Closing again does nothing.
    int Close();

private:
    int number_ = -1;
};

/// Opens close-on-exec, without waiting for anybody, and never as one of the three standard descriptors: a message
/// must not end up in a file because the host had closed its error output. An empty descriptor leaves errno.
Descriptor OpenPath(const String& path, int flags, mode_t mode = 0);

/// Whether the system can be asked about the path at all: it is not empty and holds no NUL.
bool Askable(const String& path);
/// Fails (75) unless the path is askable.
void DemandAskable(const String& path, SourceLine where = SourceLine::Here());

FileFacts FactsOf(const struct stat& status);

/// Raises the failure that an error of the system means for a call on `path`.
[[noreturn]] void RaiseFor(int error, const String& path, SourceLine where = SourceLine::Here());
/// The same for a file that is open already: 70 or 57.
[[noreturn]] void RaiseForOpenFile(int error, SourceLine where = SourceLine::Here());

/// The files that this process holds, by number.
class FileNumbers {
public:
    Integer Next();
    Integer Hold(const String& path);
    void Release(Integer number, const String& path_to_delete);

private:
    struct Held {
        Descriptor file;
        String path;
    };

    std::size_t FirstFree() const;

    std::mutex mutex_;
    std::vector<Held> held_;  // number 1 stands first; one without a file is free
};

FileUse UseOf(const String& path);

/// The hidden and system bits of files. They stand in an extended attribute; where the file system has none, they are
/// remembered until the process ends.
class AttributeStore {
public:
    Integer Get(const String& path);
    void Set(const String& path, Integer value);
    /// Forgets what was remembered of a file that is about to go.
    void Forget(const String& path);

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>;  // device, number on it

    void SetBits(const String& path, const Identity& file, int bits);

    std::mutex mutex_;
    std::map<Identity, int> remembered_;
};

String ProgramFolderOfProcess();
String StateFolderOfUser();
String SpecialFolderOfUser(Long number);
/// The folder that a user-dirs.dirs text assigns to `name`, its "$HOME" filled in; "" when it assigns none.
String AssignedFolder(std::string_view user_dirs, std::string_view name, const String& home);

/// The content of a regular file; false with errno where that fails (EINVAL: it is no regular file).
bool ReadInto(const String& path, String& content);

/// A locale as the system describes it.
struct LocaleFacts {
    String name;         ///< of its dates, such as "de_DE.UTF-8"
    String date_format;  ///< of strftime
    String decimal;
    String group;
    bool utf8 = true;  ///< what its texts are encoded in
};
LocaleSettings SettingsOf(const LocaleFacts& facts);
/// The short date pattern that a strftime format means; "yyyy-MM-dd" where it is no plain one of day, month and year.
String ShortDateOf(std::string_view date_format);

}  // namespace mrlxmlclass::platform
