#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// Mends the chain around the place that an outdented task has left.
struct MendingChain {
    TasksCol& tasks;
    const String& key;
    const String& new_parent;
    const String& old_parent;
    const String& successor;
    const String& predecessor;

    bool to_top() const { return KeyNumber(new_parent) == 0; }
    bool last_child_gone() const { return !tasks.isParent(old_parent); }

    void TellOldParent(Boolean summary) const {
        if (Loud()) tasks.Events.Raise(&TasksColEvents::IamASummary, KeyNumber(old_parent), summary);
    }

    /// The key of the last leaf; "0" when there is none.
    String LastLeafOf(const String& of) const { return KeyText(tasks.GetTaskAndSubNumber(of, True)).text(); }

    void DetachFromOldParent() const {
        TellOldParent(True);
        if (KeyNumber(old_parent) != 0) tasks.AdjustSummary(old_parent);
        const std::vector<String> predecessors = In(tasks.Item(key)).PredecessorKeys();
        if (!predecessors.empty()) {
            tasks.RemoveTaskPredecessor(key, predecessors.front());
            return;
        }
        const String last = LastLeafOf(old_parent);
        tasks.RemoveTaskPredecessor(tasks.GetLastParentPosKey(last, old_parent, True), key);
        const String own_last = LastLeafOf(key);
        if (last != "0" && own_last != "0" && tasks.Item(last)->isPredecessor(own_last)) {
            tasks.RemoveTaskPredecessor(last, own_last);
        }
    }

    void AttachBehind() const {
        if (!predecessor.empty()) {
            if (!to_top()) {
                tasks.AddTaskPredecessor(key, old_parent);
            } else if (!tasks.Item(key)->isPredecessor(predecessor)) {
                tasks.AddTaskPredecessor(key, predecessor);
            }
        } else if (last_child_gone() && Module().BVersion) {
            tasks.AddTaskPredecessor(key, old_parent);
            TellOldParent(False);  // Kept: once more
        }
    }

    void AttachSuccessor() const {
        if (successor.empty()) return;
        if (!to_top() && !tasks.isParent(successor) && !tasks.isParent(key)) {
            tasks.AddTaskPredecessor(successor, key);
        } else {
            tasks.RemoveTaskPredecessor(successor, key);
        }
    }
};

}  // namespace

Integer TasksCol::ChangeRemoveTaskParent(const String& TaskId, const String& NewParentID, const String& oldParentID,
                                         const String& SuccessorKey, const String& PredecessorKey, const String& source,
                                         Boolean p_first_time) {
    return kTail.Run<Integer>("ChangeRemoveTaskParent", [&, TaskId, NewParentID, oldParentID, SuccessorKey,
                                                         PredecessorKey, source](Integer&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (!Item(TaskId)) Raise(failure::kNothing);
        ChangeTaskParent(TaskId, String(NewParentID), "", SuccessorKey, PredecessorKey, False, "", "", p_first_time);
        if (!p_first_time) {
            const MendingChain chain{*this, TaskId, NewParentID, oldParentID, SuccessorKey, PredecessorKey};
            if (chain.last_child_gone()) {
                chain.TellOldParent(False);  // Kept: also of the top, whose key is 0
            } else {
                chain.DetachFromOldParent();
            }
            chain.AttachBehind();
            chain.AttachSuccessor();
        }
        if (Loud()) Events.Raise(&TasksColEvents::Outented, KeyNumber(TaskId), NewParentID, oldParentID, source);
        if (KeyNumber(NewParentID) != 0) AdjustSummary(NewParentID);
    });
}

}  // namespace mrlxmlclass
