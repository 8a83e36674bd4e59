#include "prx/ProjectLock.h"

#include <fmt/core.h>

#include <filesystem>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/locking.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// What stands in the place of a lock is one while nothing is in it; it goes with the lock.
void DemandNoOther(Files& files, const std::string& path) {
    const FileFacts there = files.Facts(path);
    std::error_code none;
    if (std::filesystem::is_symlink(path, none) || there.folder || there.size > 0)
        Raise(failure::kPathAccess, path + " is a file of another kind");
}

}  // namespace

ProjectLock::ProjectLock(Files& files, const std::string& project, Beside beside)
    : files_(files), path_(locking::LockFileOf(project)) {
    constexpr int kTries = 5;  // who held it may have let go of it before one asks who does
    for (int tried = 1;; ++tried) {
        try {
            DemandNoOther(files, path_);
            number_ = files.Hold(path_);
            return;
        } catch (const Failure& failed) {
            const bool denied = failed.number() == failure::kPermissionDenied;
            if (denied && files.Use(path_) == FileUse::InUse) {
                throw Refusal(Plain(project) + ": somebody else has this project open; try again later");
            }
            if (denied && tried < kTries) continue;
            const bool left_over = files.Facts(path_).exists;
            if (denied && !left_over && beside == Beside::Another) {
                path_.clear();
                return;
            }
            throw Refusal(fmt::format(
                "{}: the lock beside it cannot be taken: {}{}", Plain(project), Plain(failed.description()),
                denied && left_over ? fmt::format("; nobody holds {}, so it may be deleted", Plain(path_)) : ""));
        }
    }
}

ProjectLock::~ProjectLock() {
    if (path_.empty()) return;
    FailureTail("prx").Silent().Run("~ProjectLock", [&] { files_.Release(number_, path_); });
}

}  // namespace prx
