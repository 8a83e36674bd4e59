#include "mrlxmlclass/session/locking.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass::locking {
namespace {

constexpr FailureTail kTail{"locking", FailureTail::Gives::SoFar};
constexpr int kAbsent = -999;
constexpr int kInUse = -1;
constexpr int kFree = 0;

}  // namespace

String LockFileOf(const String& project) {
    String folder = FolderOf(project);
    // Kept: a bare file name has no folder, and its lock lands in the root folder.
    if (!folder.ends_with('/')) folder += '/';
    return folder + "~" + FileNameOf(project) + "l";
}

Integer IsFileInUse(const String& p_path) {
    return kTail.Run<Integer>("IsFileInUse", [&](Integer& result) {
        switch (Platform().files.Use(p_path)) {
            case FileUse::Absent:
                result = kAbsent;
                break;
            case FileUse::InUse:
                result = kInUse;
                break;
            case FileUse::Free:
                result = kFree;
                break;
        }
    });
}

Boolean CreateLockFile(const String& p_file) {
    return kTail.Run<Boolean>("CreateLockFile", [&](Boolean& result) {
        ModuleState& module = Module();
        module.g_ReadOnly = False;
        if (p_file.empty()) return;
        const String lock_file = LockFileOf(p_file);
        if (IsFileInUse(lock_file) == kInUse) {
            module.g_ReadOnly = True;
            return;
        }
        // Kept: an earlier lock is not released, only forgotten, and its number is forgotten even where this one fails.
        module.g_LockFileNumber = Platform().files.NextNumber();
        module.g_LockFileNumber = Platform().files.Hold(lock_file);
        module.g_LockFileName = lock_file;
        result = True;
    });
}

Boolean FileCanBeOveriwrite(const String& p_file) {
    // Kept: contrary to its name, True while somebody has the project open.
    return kTail.Run<Boolean>("FileCanBeOveriwrite",
                              [&](Boolean& result) { result = IsFileInUse(LockFileOf(p_file)) == kInUse; });
}

Boolean EndReadOnly() {
    return kTail.Run<Boolean>("EndReadOnly", [&](Boolean& result) {
        ModuleState& module = Module();
        // Without a name the number was let go before, and may be somebody else's by now. Kept: it is not set back.
        if (!module.g_LockFileName.empty()) Platform().files.Release(module.g_LockFileNumber, module.g_LockFileName);
        module.g_LockFileName.clear();
        result = True;
    });
}

}  // namespace mrlxmlclass::locking
