#pragma once

#include "mrlxmlclass/runtime/Numbers.h"

/// The lock file beside a project: who holds it open has the project, the next opener gets it read-only. What is held
/// stands in the module state (g_LockFileNumber, g_LockFileName, g_ReadOnly), so the latest lock of a thread is the one
/// that `EndReadOnly` ends. No operation here refuses anything to anybody: read-only is a message to the host.
namespace mrlxmlclass::locking {

/// Where the lock file of a project lies: "/plans/p.prx" is locked by "/plans/~p.prxl".
String LockFileOf(const String& project);

/// -999 when there is no such file, -1 when somebody holds it or it cannot be opened for any other reason, 0 when it
/// is free.
Integer IsFileInUse(const String& p_path);

/// Takes the lock of a project and holds it until `EndReadOnly` or the end of the process. False with `g_ReadOnly`
/// True when somebody has it, this thread included; False with `g_ReadOnly` False when there is no file name, or when
/// the lock file cannot be made, which is recorded: such a project opens as writable, without a lock.
/// A lock held before stays held, forgotten; hosts call `EndReadOnly` first.
Boolean CreateLockFile(const String& p_file);

/// Despite its name, True when somebody has that project open.
Boolean FileCanBeOveriwrite(const String& p_file);

/// Lets the lock go and deletes its file; without a lock it does nothing. False only when the file cannot be deleted,
/// which is recorded.
Boolean EndReadOnly();

}  // namespace mrlxmlclass::locking
