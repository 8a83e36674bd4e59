#include "tests/reference/ReferenceWalks.h"

namespace mrlxmlclass::reference {

/// One task on its way under another parent.
struct ReferenceWalks::Reparenting {
    String key;
    String& new_parent;
    String old_parent;
    String PredecessorKey;
    Boolean Indent;
    Boolean p_first_time;
    bool replaced = false;  ///< the predecessor took the new parent's place
};

Boolean ReferenceWalks::ChangeParent(const String& old_parent, const String& new_parent) {
    return kTasksColTail.Run<Boolean>("ChangeParent", [&](Boolean&) {
        for (const String& child_key : Children(old_parent)) {
            const Ref<TasksCls> child = Task(child_key);
            if (child->TaskPosition() <= Task(new_parent)->TaskPosition()) continue;
            child->ParentID(KeyNumber(new_parent));
            col_.AddParentTask(new_parent, child_key);
            col_.RemoveParentTask(old_parent, child_key);
        }
    });
}

Integer ReferenceWalks::ChangeTaskParent(const String& key, String& new_parent, String old_parent,
                                         const String& /*SuccessorKey*/, const String& PredecessorKey, Boolean Indent,
                                         const String& Action, const String& source, Boolean p_first_time) {
    return kTasksColTail.Run<Integer>("ChangeTaskParent", [&](Integer& result) {
        if (key.empty()) return;
        const Ref<TasksCls> task = Task(key);
        if (old_parent.empty()) old_parent = ParentOf(task);
        Reparenting move{key, new_parent, old_parent, PredecessorKey, Indent, p_first_time};
        TakeUnder(move);
        task->TaskType(task->ParentID() != 0);
        if (!p_first_time) MoveDates(move);
        if (KeyNumber(old_parent) != 0) DropCost(old_parent);
        if (Action == "indent" && Loud()) {
            col_.Events.Raise(&TasksColEvents::Indented, KeyNumber(key), new_parent, source);
        }
        result = move.replaced ? 1 : 0;
    });
}

void ReferenceWalks::TakeUnder(Reparenting& move) {
    const Ref<TasksCls> task = Task(move.key);
    if (KeyNumber(move.new_parent) == 0) {
        task->ParentID(0);
        col_.AddParentTask(move.new_parent, move.key);
        col_.RemoveParentTask(move.old_parent, move.key);
        return;
    }
    if (!move.p_first_time && Module().BVersion) {
        RemoveAllTaskPredecessor(move.new_parent);
        if (WaitsFor(task, move.new_parent)) {
            RemoveTaskPredecessor(move.key, move.new_parent);
        } else if (!move.PredecessorKey.empty() && move.Indent &&
                   task->ParentID() == Task(move.PredecessorKey)->ParentID()) {
            move.new_parent = move.PredecessorKey;
            RemoveTaskPredecessor(move.key, move.new_parent);
            move.replaced = true;
        }
    }
    task->ParentID(KeyNumber(move.new_parent));
    col_.AddParentTask(move.new_parent, move.key);
    col_.RemoveParentTask(move.old_parent, move.key);
    TellSummary(move.new_parent, True);
    Task(move.new_parent)->TaskType(False);
}

void ReferenceWalks::MoveDates(const Reparenting& move) {
    const Ref<TasksCls> task = Task(move.key);
    if (!move.PredecessorKey.empty() && !move.replaced && Module().BVersion &&
        !Predecessors(Task(move.PredecessorKey)).empty()) {
        RemoveAllTaskPredecessor(move.PredecessorKey);
        AddTaskPredecessor(move.key, move.PredecessorKey);
        SetPredSucByPos(task->TaskPosition(), "", True);
    }
    const String parent_key = ParentOf(task);
    if (!move.PredecessorKey.empty() || parent_key == "0" || !move.Indent) {
        if (move.replaced) {
            const Date start = Task(parent_key)->TaskBDate();
            task->TaskBDate(start);
            WalkFrom(move.key, start, /*LeadTimeCalc=*/False);
        } else if (parent_key != "0") {
            AdjustSummary(parent_key);
            const Ref<TasksCls> parent = Task(parent_key);
            if (parent->ParentID() != 0) MoveSummary(parent_key, Task(ParentOf(parent))->TaskBDate());
            AdjustCost(move.key);
        }
    } else {
        const Date start = Task(parent_key)->TaskBDate();
        task->TaskBDate(start);
        WalkFrom(move.key, start, /*LeadTimeCalc=*/True);
        AdjustCost(move.key);
        AdjustSummary(move.new_parent);
    }
    if (move.Indent && KeyNumber(move.old_parent) != 0) {
        AdjustSummary(move.old_parent);
    } else if (KeyNumber(move.old_parent) != 0) {
        DropCost(move.old_parent);
    }
    if (IsParent(move.key)) MoveSummary(move.key, task->TaskBDate());
}

void ReferenceWalks::DropCost(const String& key) {
    Task(key)->TaskCost(0);
    AdjustCost(key);
}

Integer ReferenceWalks::ChangeRemoveTaskParent(const String& key, const String& new_parent, const String& old_parent,
                                               const String& SuccessorKey, const String& PredecessorKey,
                                               const String& source, Boolean p_first_time) {
    return kTasksColTail.Run<Integer>("ChangeRemoveTaskParent", [&](Integer&) {
        String parent = new_parent;
        ChangeTaskParent(key, parent, "", SuccessorKey, PredecessorKey, /*Indent=*/False, "", "", p_first_time);
        if (!p_first_time) {
            if (IsParent(old_parent)) {
                MendAroundOldPlace(key, old_parent);
            } else {
                TellSummary(old_parent, False);
            }
            TieBehind(key, new_parent, old_parent, PredecessorKey);
            if (!SuccessorKey.empty() && KeyNumber(new_parent) != 0 && !IsParent(SuccessorKey) && !IsParent(key)) {
                AddTaskPredecessor(SuccessorKey, key);
            } else if (!SuccessorKey.empty()) {
                RemoveTaskPredecessor(SuccessorKey, key);
            }
        }
        if (Loud()) col_.Events.Raise(&TasksColEvents::Outented, KeyNumber(key), new_parent, old_parent, source);
        if (KeyNumber(new_parent) != 0) AdjustSummary(new_parent);
    });
}

void ReferenceWalks::MendAroundOldPlace(const String& key, const String& old_parent) {
    TellSummary(old_parent, True);
    if (KeyNumber(old_parent) != 0) AdjustSummary(old_parent);
    const std::vector<String> predecessors = Predecessors(Task(key));
    if (!predecessors.empty()) {
        RemoveTaskPredecessor(key, predecessors.front());
        return;
    }
    const String last = KeyText(Long(col_.GetTaskAndSubNumber(old_parent, True))).text();
    RemoveTaskPredecessor(col_.GetLastParentPosKey(last, old_parent, True), key);
    const String own_last = KeyText(Long(col_.GetTaskAndSubNumber(key, True))).text();
    if (last != "0" && own_last != "0" && WaitsFor(Task(last), own_last)) RemoveTaskPredecessor(last, own_last);
}

void ReferenceWalks::TieBehind(const String& key, const String& new_parent, const String& old_parent,
                               const String& PredecessorKey) {
    if (!PredecessorKey.empty() && KeyNumber(new_parent) != 0) {
        AddTaskPredecessor(key, old_parent);
    } else if (!PredecessorKey.empty()) {
        if (!WaitsFor(Task(key), PredecessorKey)) AddTaskPredecessor(key, PredecessorKey);
    } else if (!IsParent(old_parent) && Module().BVersion) {
        AddTaskPredecessor(key, old_parent);
        TellSummary(old_parent, False);
    }
}

Boolean ReferenceWalks::SeTAsMilstones(const Ref<TasksCol>& /*tasks*/, const String& key) {
    return kTasksColTail.Run<Boolean>("SeTAsMilstones", [&](Boolean& result) {
        if (IsParent(key)) return;
        const Ref<TasksCls> task = Task(key);
        task->TaskMilstones(True);
        task->TaskDuration(0);
        task->TaskEDate(task->TaskBDate());
        task->TaskDurationUnit("days");
        TellStart(key, IsParent(key));
        TellEnd(key, IsParent(key));
        TellDuration(key, IsParent(key));
        if (Loud()) TellTaskDuration(key, IsParent(key));
        if (Module().BVersion) {
            for (const String& successor_key : Successors(task)) {
                const Ref<TasksCls> successor = Task(successor_key);
                if (successor && !WaitsFor(successor, key)) continue;
                Ref<Dictionary> reached;
                Integer shift;
                Date old_start;
                AdjustDate(successor_key, task, successor ? StoredLead(key, successor) : Integer(0), True, True, True,
                           reached, True, shift, old_start);
            }
        }
        if (task->ParentID() != 0) {
            const String parent = ParentOf(task);
            if (IsParent(parent)) MoveSummary(parent, Task(parent)->TaskBDate());
            AdjustSummary(parent);
        }
        result = True;
    });
}

}  // namespace mrlxmlclass::reference
