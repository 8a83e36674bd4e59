#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// What the system tells of a path. Two files are the same, unchanged, when all of it is equal.
struct FileFacts {
    bool exists = false;
    bool folder = false;
    bool writable = false;   ///< some write bit of its mode is set
    std::uint32_t mode = 0;  ///< the permission bits
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    std::uint64_t device = 0;
    std::uint64_t number = 0;  ///< of the file on its device
    std::uint64_t size = 0;
    std::int64_t changed_ns = 0;  ///< last change of the content, in nanoseconds

    friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

/// A file that is open for writing. Every call fails (57, 70) when the system refuses; a write writes all or fails.
class OutputFile {
public:
    virtual ~OutputFile() = default;  // closes, telling nobody what goes wrong
    virtual void WriteAt(std::uint64_t offset, std::string_view bytes) = 0;
    virtual void Cut(std::uint64_t length) = 0;
    /// Brings what was written onto the disk.
    virtual void Sync() = 0;
    virtual FileFacts Facts() = 0;
    /// Closes; fails when the system tells only now that a write did not succeed.
    virtual void Close() = 0;
};

/// Attribute values of a file; they add up.
namespace file_attribute {
inline constexpr int kReadOnly = 1;
inline constexpr int kHidden = 2;
inline constexpr int kSystem = 4;
}  // namespace file_attribute

/// Whether somebody holds a file.
enum class FileUse { Absent, Free, InUse };

/// Files and folders. Paths are UTF-8 with "/" between the parts. Unless told otherwise a call fails with 53 (no such
/// file), 76 (no such folder), 70 (no right), 75 (a folder, or no path at all) or 57 (anything else).
class Files {
public:
    virtual ~Files() = default;

    /// What is at the path, links followed; nothing there is no failure.
    virtual FileFacts Facts(const String& path) = 0;
    virtual String Read(const String& path) = 0;
    /// Opens for writing what may be there already, empty or as it stands. A file without any write bit is refused
    /// (70), whoever asks.
    virtual std::unique_ptr<OutputFile> Create(const String& path) = 0;
    virtual std::unique_ptr<OutputFile> Open(const String& path) = 0;

    virtual void Rename(const String& from, const String& to) = 0;
    /// Deletes a file; one that is not there is no failure.
    virtual void Delete(const String& path) = 0;
    virtual void SetMode(const String& path, std::uint32_t mode) = 0;
    /// Gives the file to the owner and group of another, each of the two as far as this process may.
    virtual void SetOwner(const String& path, const FileFacts& like) = 0;
    /// Makes the folder's entries durable.
    virtual void SyncFolder(const String& folder) = 0;
    /// The path with every link followed, also that to a file which is not there yet; the path itself where that cannot
    /// be told.
    virtual String Resolve(const String& path) = 0;

    /// The sum of the file_attribute values; 0 when the file is not there.
    virtual Integer Attributes(const String& path) = 0;
    virtual void SetAttributes(const String& path, Integer value) = 0;

    /// Tests, without disturbing anybody, whether a file is held. What cannot be opened counts as in use.
    virtual FileUse Use(const String& path) = 0;
    /// The number that Hold gives next: the lowest free one, from 1.
    virtual Integer NextNumber() = 0;
    /// Creates the file if need be and holds it against other openers, in this process and in others, until it is
    /// released or the process ends. Gives its number. Fails (70) when somebody else holds it.
    virtual Integer Hold(const String& path) = 0;
    /// Lets go of a number; deletes the file first unless `path_to_delete` is empty or names another file by now. A
    /// file that cannot be deleted is let go all the same. A number that holds nothing, or by now another path, does
    /// nothing, but the file still goes.
    virtual void Release(Integer number, const String& path_to_delete) = 0;

    /// The folder of the running program, without a "/" at its end.
    virtual String ProgramFolder() = 0;
    /// The folder in which this user's programs keep state, without a "/" at its end.
    virtual String StateFolder() = 0;
    /// A folder of the user's by its customary number: 0 the desktop, 5 the documents, 26 application data; any other
    /// number gives "".
    virtual String SpecialFolder(Long number) = 0;
};

/// Replaces the content of a file: opens, writes all, closes.
void WriteWhole(Files& files, const String& path, std::string_view bytes);
/// What stands behind the last "/".
String FileNameOf(std::string_view path);
/// What stands before the last "/"; "" when there is none.
String FolderOf(std::string_view path);

}  // namespace mrlxmlclass
