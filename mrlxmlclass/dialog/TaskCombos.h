#pragma once

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

class TasksCol;

namespace Gloabal {

/// The tasks that a task may be made to wait for, in outline order, as the list of a cell (see ComboEntries): of their
/// names, and in `positions` of their rows. Sorts the collection.
String SetComboTask(const Ref<TasksCol>& collection, const String& dialog_key, ByRef<String> positions);

}  // namespace Gloabal
}  // namespace mrlxmlclass
