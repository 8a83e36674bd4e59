#include <optional>

#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// What the link field of a task must hold to belong to another one; nothing for a kind that is neither True nor
/// False.
std::optional<String> WantedLink(const String& task, const Variant& similar, const String& supplement) {
    const Boolean* flag = similar.If<Boolean>();
    const Long* number = similar.If<Long>();
    const bool is_false =
        similar.is_empty() || (flag != nullptr && *flag == False) || (number != nullptr && *number == 0);
    const bool is_true = (flag != nullptr && *flag == True) || (number != nullptr && *number == -1);
    if (is_false) return task;
    if (is_true) return "fs" + task + supplement;
    return {};
}

/// Calls `take(task)` for each task that is linked to another one by its text. Kept: the key "" finds all without any.
template <class Take>
void ForLinked(const TasksCol& tasks, const String& key, const String& parent, const Variant& similar,
               const String& supplement, Take&& take) {
    const std::optional<String> wanted = WantedLink(key, similar, supplement);
    if (!wanted) return;
    for (const auto& entry : tasks.NewEnum()) {
        const Ref<TasksCls>& task = entry.item;
        if (task->GetTaskLink(String("mrl")) != *wanted) continue;
        if (parent.empty() || KeyText(task->ParentID()).text() == parent) take(task);
    }
}

}  // namespace

Ref<TasksCol> TasksCol::GetLinkedTask(const String& TaskId, const String& ParentID, const Variant& ForSimilair,
                                      const String& SupKey) {
    return kTail.Run<Ref<TasksCol>>("GetLinkedTask", [&](Ref<TasksCol>& result) {
        result = Make<TasksCol>();
        ForLinked(*this, TaskId, ParentID, ForSimilair, SupKey,
                  [&](const Ref<TasksCls>& task) { result->AddItem(task); });
    });
}

Boolean TasksCol::Internal::RemoveLinkedTask(const String& TaskId, const String& ParentID, const Variant& ForSimilair,
                                             const String& SupKey) {
    return kTail.Run<Boolean>("RemoveLinkedTask", [&](Boolean&) {
        ForLinked(self_, TaskId, ParentID, ForSimilair, SupKey, [](const Ref<TasksCls>& task) { task->TaskLink(""); });
    });
}

}  // namespace mrlxmlclass
