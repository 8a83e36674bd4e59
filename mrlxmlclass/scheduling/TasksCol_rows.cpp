#include <algorithm>

#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/LinkWalk_internal.h"
#include "mrlxmlclass/scheduling/RowText.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// A list of rows that a host typed, taken apart.
struct TypedRows {
    explicit TypedRows(const String& list) : parts(RowParts(list)) {}

    bool any_number() const {
        return std::any_of(parts.begin(), parts.end(), [](const RowPart& part) { return part.number; });
    }
    bool Name(const Ref<TasksCls>& task) const {
        return std::any_of(parts.begin(), parts.end(),
                           [&](const RowPart& part) { return part.row && task->TaskPosition() == *part.row; });
    }
    /// Calls `take(key)` for each row where a task stands.
    template <class Take>
    void ForTasks(TasksCol& tasks, Take&& take) const {
        for (const RowPart& part : parts) {
            if (!part.row) continue;
            if (const String key = tasks.GetTaskKeyByPosition(*part.row); !key.empty()) take(key);
        }
    }

    std::vector<RowPart> parts;
};

}  // namespace

String TasksCol::PredessorAsString(const String& TaskId, Boolean Name) {
    return kTail.Run<String>("PredessorAsString", [&](String& result) {
        if (!TaskId.empty()) result = LinkWalk(*this).PredessorAsString(TaskId, Name).Run();
    });
}

String TasksCol::SucessorAsString(const String& TaskId, Boolean Name) {
    return kTail.Run<String>("SucessorAsString", [&](String& result) {
        if (TaskId.empty()) return;
        const Ref<TasksCls> task = Item(TaskId);
        LinkList list(Name);
        const Ref<Collection> successors = In(task).PeekSuccessor();
        if (!successors) return;
        for (const auto& entry : successors->Snapshot()) {
            if (const Ref<TasksCls> successor = In(*this).Item(entry.item.Key())) {
                list.Add(*successor);  // Kept: a candidate shows here, though not among predecessors.
            } else {
                successors->Remove(entry.key.text());
            }
        }
        result = list.text;
    });
}

Boolean TasksCol::ValidPredecessors(const String& p_task, const String& p_preds, Boolean l_succ) {
    return kTail.Run<Boolean>("ValidPredecessors", [&](Boolean& result) {
        if (!Gloabal::isInteger(p_preds)) return;
        for (const RowPart& part : RowParts(p_preds)) {  // Kept: a list without any part is valid
            const String key = part.row ? GetTaskKeyByPosition(*part.row) : String();
            if (key.empty()) return;
            if (!(l_succ ? ValidPredecessor(key, p_task) : ValidPredecessor(p_task, key))) return;
        }
        result = True;
    });
}

Boolean TasksCol::ArrangePred(const String& newvalue, const String& TaskKey) {
    return kTail.Run<Boolean>("ArrangePred", [&, newvalue, TaskKey](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (!Gloabal::isInteger(newvalue)) return;
        PredessorAsString(TaskKey);  // takes off what is stale
        const TypedRows rows(newvalue);
        rows.ForTasks(*this, [&](const String& key) {
            if (Item(TaskKey)->isPredecessor(key)) return;
            AddTaskPredecessor(TaskKey, key);
            AddLeadTime(TaskKey, key, 0);  // Kept: also where the link was refused
        });
        if (!rows.any_number()) return;
        for (const String& predecessor : In(Item(TaskKey)).PredecessorKeys()) {
            if (!rows.Name(Item(predecessor))) RemoveTaskPredecessor(TaskKey, predecessor);
        }
    });
}

Boolean TasksCol::ArrangeSuccessor(const String& newvalue, const String& TaskKey) {
    return kTail.Run<Boolean>("ArrangeSuccessor", [&, newvalue, TaskKey](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (!Gloabal::isInteger(newvalue)) return;
        SucessorAsString(TaskKey);  // takes off what is stale
        const TypedRows rows(newvalue);
        rows.ForTasks(*this, [&](const String& key) {
            if (!Item(TaskKey)->isSucesser(key)) AddTaskPredecessor(key, TaskKey);
        });
        if (!rows.any_number()) return;
        for (const String& successor : In(Item(TaskKey)).SuccessorKeys()) {
            if (!rows.Name(Item(successor))) RemoveTaskPredecessor(successor, TaskKey);
        }
    });
}

}  // namespace mrlxmlclass
