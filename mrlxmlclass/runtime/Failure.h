#pragma once

#include <exception>
#include <string>
#include <utility>

namespace mrlxmlclass {

/// Text, UTF-8. What counts characters counts 16-bit units: see runtime/Text.h.
using String = std::string;

/// The source line at which a failure was raised; it ends up in the error file.
struct SourceLine {
    int line = 0;  ///< 0 = not known
    static constexpr SourceLine Here(int line = __builtin_LINE()) { return {line}; }
};

/// The numbers under which failures are known to hosts and stand in the error file.
namespace failure {
inline constexpr int kDeliberate = 1;  ///< raised on purpose, with a description of its own
inline constexpr int kUnknownKey = 5;  ///< also any other argument that makes no sense
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kIndexOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;  ///< also a text that is no number, date or Boolean
inline constexpr int kEndlessWalk = 28;   ///< a walk took more steps than there can be
inline constexpr int kInternal = 51;      ///< an exception of another library
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceFailure = 57;  ///< a read or a write failed, the disk is full
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathAccess = 75;  ///< a folder where a file should be, and the like
inline constexpr int kPathNotFound = 76;
inline constexpr int kNothing = 91;        ///< a reference to nothing was followed
inline constexpr int kCannotCreate = 429;  ///< a component is missing
inline constexpr int kDuplicateKey = 457;
}  // namespace failure

/// A failure on its way to the tail of the member that it ends (runtime/Tail.h).
class Failure : public std::exception {
public:
    Failure(int number, String description, SourceLine where)
        : number_(number), description_(std::move(description)), where_(where) {}

    int number() const { return number_; }
    const String& description() const { return description_; }
    SourceLine where() const { return where_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    String description_;
    SourceLine where_;
};

/// Raises `number` with the description that belongs to it.
[[noreturn]] void Raise(int number, SourceLine where = SourceLine::Here());
[[noreturn]] void Raise(int number, String description, SourceLine where = SourceLine::Here());

}  // namespace mrlxmlclass
