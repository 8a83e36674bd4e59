#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

String KeyOf(Long key) {
    return KeyText(key).text();
}

/// The stored cost goes, what the children cost comes in its place.
void RebuildCost(TasksCol& tasks, const String& key) {
    tasks.Item(key)->TaskCost(0);
    tasks.AdjustCost(key);
}

/// Takes a task to the start of its parent, and with it what waits for it.
void StartWithParent(TasksCol& tasks, const Ref<TasksCls>& task, const String& key, Boolean measure_gaps) {
    const Ref<TasksCls> parent = tasks.Item(task->ParentID());
    task->TaskBDate(parent->TaskBDate());
    tasks.DependsDateChanged(key, parent->TaskBDate(), 1, measure_gaps);
}

/// A task on its way under another parent.
struct Reparenting {
    TasksCol& tasks;
    const String& key;
    String& new_parent;
    const String& old_parent;
    const String& predecessor;
    Boolean indent;
    bool replaced = false;

    Ref<TasksCls> task() const { return tasks.Item(key); }
    bool to_top() const { return KeyNumber(new_parent) == 0; }
    bool from_top() const { return KeyNumber(old_parent) == 0; }

    /// A parent is no predecessor: neither of the task nor of the tasks behind it. A predecessor beside the task
    /// becomes the parent in its place.
    void FreeLinksOfParent() {
        tasks.RemoveAllTaskPredecessor(new_parent);
        if (task()->isPredecessor(new_parent)) {  // Kept: only a link that the parent does not know is left here
            tasks.RemoveTaskPredecessor(key, new_parent);
        } else if (!predecessor.empty() && indent && task()->ParentID() == tasks.Item(predecessor)->ParentID()) {
            new_parent = predecessor;
            tasks.RemoveTaskPredecessor(key, new_parent);
            replaced = true;
        }
    }

    void Reparent() {
        task()->ParentID(KeyNumber(new_parent));
        tasks.AddParentTask(new_parent, key);     // the top keeps no list
        tasks.RemoveParentTask(old_parent, key);  // Kept: also where it is the new one
        if (!to_top()) {
            if (Loud()) tasks.Events.Raise(&TasksColEvents::IamASummary, KeyNumber(new_parent), True);
            tasks.Item(new_parent)->TaskType(False);
        }
        task()->TaskType(task()->ParentID() != 0);  // Kept: with children below it, too
    }

    void SpliceIntoChain() {
        if (predecessor.empty() || replaced || !Module().BVersion) return;
        if (In(tasks.Item(predecessor)).PredecessorKeys().empty()) return;
        tasks.RemoveAllTaskPredecessor(predecessor);
        tasks.AddTaskPredecessor(key, predecessor);
        tasks.SetPredSucByPos(Integer(task()->TaskPosition()), "", True);
    }

    void AdjustUpwards() {
        const Long parent_number = task()->ParentID();
        if (parent_number != 0) {
            const String parent = KeyOf(parent_number);
            tasks.AdjustSummary(parent);
            if (const Long grandparent = tasks.Item(parent)->ParentID(); grandparent != 0) {
                tasks.SummaryTaskDateChanged2(parent, tasks.Item(grandparent)->TaskBDate());
            }
        }
    }

    void MoveDates() {
        if (!predecessor.empty() || task()->ParentID() == 0 || !indent) {
            if (replaced) {
                StartWithParent(tasks, task(), key, False);
            } else if (task()->ParentID() != 0) {
                AdjustUpwards();
                tasks.AdjustCost(key);
            }
        } else {
            StartWithParent(tasks, task(), key, True);
            tasks.AdjustCost(key);
            tasks.AdjustSummary(new_parent);
        }
        if (!indent || from_top()) {
            if (!from_top()) RebuildCost(tasks, old_parent);
        } else {
            tasks.AdjustSummary(old_parent);
        }
        if (tasks.isParent(key)) tasks.SummaryTaskDateChanged2(key, task()->TaskBDate());
    }
};

}  // namespace

Boolean TasksCol::ChangeParent(const String& oldParentID, const String& NewParentID) {
    return kTail.Run<Boolean>("ChangeParent", [&](Boolean&) {
        const Ref<ChildOrder> children = In(*this).Children(Item(oldParentID));
        for (const Long child : std::vector<Long>(children->keys)) {
            if (Item(child)->TaskPosition() <= Item(NewParentID)->TaskPosition()) continue;
            Item(child)->ParentID(KeyNumber(NewParentID));
            AddParentTask(NewParentID, child);
            RemoveParentTask(oldParentID, child);
        }
    });
}

Integer TasksCol::ChangeTaskParent(const String& TaskId, ByRef<String> NewParentID, const String& oldParentID,
                                   const String& /*SuccessorKey*/, const String& PredecessorKey, Boolean Indent,
                                   const String& Action, const String& source, Boolean p_first_time) {
    return kTail.Run<Integer>("ChangeTaskParent", [&, TaskId, PredecessorKey, Action, source](Integer& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (TaskId.empty()) return;
        if (!Item(TaskId)) Raise(failure::kNothing);
        const String old_parent = oldParentID.empty() ? KeyOf(Item(TaskId)->ParentID()) : oldParentID;
        Reparenting move{*this, TaskId, *NewParentID, old_parent, PredecessorKey, Indent};
        if (!move.to_top() && !p_first_time && Module().BVersion) move.FreeLinksOfParent();
        move.Reparent();
        if (!p_first_time) {
            move.SpliceIntoChain();
            move.MoveDates();
        }
        if (!move.from_top()) RebuildCost(*this, old_parent);
        if (Action == "indent" && Loud()) {
            Events.Raise(&TasksColEvents::Indented, KeyNumber(TaskId), *NewParentID, source);
        }
        result = move.replaced ? 1 : 0;
    });
}

}  // namespace mrlxmlclass
