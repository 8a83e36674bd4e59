#pragma once

#include <string>
#include <utility>

#include "mrlxmlclass/platform/Files.h"

namespace prx {

/// The lock of a project, held for as long as this lives. A project that is to be changed is locked before its file is
/// read: the library would take the lock behind that, when somebody may have saved another one already.
class ProjectLock {
public:
    /// Whether another lock holds the project as well; it is enough where this one may not be made.
    enum class Beside { Nothing, Another };
    /// Refuses where it cannot be had.
    ProjectLock(mrlxmlclass::Files& files, const std::string& project, Beside beside = Beside::Nothing);
    ~ProjectLock();
    ProjectLock(ProjectLock&& other) noexcept
        : files_(other.files_), path_(std::exchange(other.path_, {})), number_(other.number_) {}

private:
    mrlxmlclass::Files& files_;
    std::string path_;  ///< empty where it holds nothing
    mrlxmlclass::Integer number_;
};

}  // namespace prx
