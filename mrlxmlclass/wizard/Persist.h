#pragma once

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/wizard/Steps.h"

/// Keeps the wizard's states of all projects in one side file, steps.xml in the program's folder, which is hidden and
/// system between uses. A project's branch is named by the letters of its path: the name is cleaned in the caller's
/// string, so callers hand in a copy. Projects whose paths have the same letters share one state. All copies of the
/// host on a machine write this file without a lock; the later save wins.
namespace mrlxmlclass::Persist {

/// Stores the state of a project. True if the file already held a state of that class, whether or not this one could be
/// stored: the very first save gives False although it saved. A missing or broken side file is made anew. Without a
/// file name nothing is done, and the result is False; a name that leaves no element name (5) and a file that cannot be
/// written are recorded.
Boolean SaveObject(const Ref<Steps>& object, ByRef<String> file_name);

/// Restores it; an object of which nothing was stored stays as it is. Always False.
Boolean GetObject(const Ref<Steps>& object, ByRef<String> file_name);

}  // namespace mrlxmlclass::Persist
