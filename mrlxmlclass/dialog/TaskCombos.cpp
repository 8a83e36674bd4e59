#include "mrlxmlclass/dialog/TaskCombos.h"

#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass::Gloabal {
namespace {

String Entry(const String& key, const String& text) {
    return "#" + key + ";" + text + "|";
}

}  // namespace

String SetComboTask(const Ref<TasksCol>& collection, const String& dialog_key, ByRef<String> positions) {
    String names;
    collection->SortMe(True);
    for (const auto& entry : collection->NewEnum()) {
        const TasksCls& task = *entry.item;
        const String key = std::to_string(task.TaskKey().value());
        if (!task.TaskCondidat() || collection->isParent(key)) continue;
        // Kept: asked the wrong way round, whether that task might wait for this one.
        if (!collection->ValidPredecessor(key, dialog_key)) continue;
        names += Entry(key, task.TaskName());
        *positions += Entry(key, std::to_string(task.TaskPosition().value()));
    }
    return names;
}

}  // namespace mrlxmlclass::Gloabal
