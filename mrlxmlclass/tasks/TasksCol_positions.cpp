#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// Calls `move(task)` for each task of the outline but `except`, in walking order.
template <class Move>
void ForOutline(const TasksCol& tasks, const Ref<TasksCls>& except, Move&& move) {
    for (const auto& entry : tasks.NewEnum()) {
        if (entry.item->TaskCondidat() && entry.item != except) move(*entry.item);
    }
}

/// Makes way for a task that moved from `old_position` to `position`.
void MakeWay(TasksCol& tasks, const Ref<TasksCls>& moved, Integer& old_position) {
    const Long position = moved->TaskPosition();
    ForOutline(tasks, moved, [&](TasksCls& other) {
        const Long row = other.TaskPosition();
        if (row >= position && row <= old_position) {
            if (row < tasks.Count(True)) {  // Kept: candidates count as room here, though not in ArrangePosition.
                other.TaskPosition(row + 1);
                if (row + 1 == old_position) ++old_position;
            }
        } else if (row >= position || row >= old_position) {
            // Kept: a move down pulls up what stands behind the new row, too.
            other.TaskPosition(row - 1);
        }
    });
}

}  // namespace

Boolean TasksCol::AddParentTask(const Variant& p_parent_id, const Variant& p_task_id) {
    return kTail.Run<Boolean>("AddParentTask", [&](Boolean& result) {
        const Ref<TasksCls> parent = Item(p_parent_id);
        if (!parent || p_parent_id.Key().Number() == 0) return;
        const String child = p_task_id.Key().text();
        if (!In(parent).Tasks()->Exists(child)) In(parent).Tasks()->Add(child, child);
        result = True;
    });
}

Boolean TasksCol::RemoveParentTask(const Variant& p_parent_id, const Variant& p_task_id, Boolean p_raise) {
    return kTail.Run<Boolean>("RemoveParentTask", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Ref<TasksCls> parent = Item(p_parent_id);
        const Long parent_number = p_parent_id.Key().Number();
        if (!parent || parent_number == 0) return;
        const String child = p_task_id.Key().text();
        if (In(parent).HasChildren() && In(parent).Tasks()->Exists(child)) In(parent).Tasks()->Remove(child);
        // Kept: the caller's wish alone decides, even while the host is silenced.
        if (p_raise) {
            Events.Raise(&TasksColEvents::IamASummary, parent_number, isParent(p_parent_id.Key().text()));
        }
        result = True;
    });
}

Boolean TasksCol::ArrangePositionAfterDelete(const String& TaskId) {
    return kTail.Run<Boolean>("ArrangePositionAfterDelete", [&, TaskId](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Ref<TasksCls> task = Item(TaskId);
        if (!task || !task->TaskCondidat()) return;
        ForOutline(*this, task, [&](TasksCls& other) {
            if (other.TaskPosition() >= task->TaskPosition()) other.TaskPosition(other.TaskPosition() - 1);
        });

        const Long parent_number = task->ParentID();
        const String parent = KeyText(parent_number).text();
        RemoveParentTask(parent, TaskId);
        task->ParentID(0);
        if (parent_number != 0) {
            if (isParent(parent)) {
                AdjustSummary(parent);
                AdjustCost(parent);
                if (Loud()) Events.Raise(&TasksColEvents::IamASummary, parent_number, True);
            } else if (const Ref<TasksCls> lonely = Item(parent)) {
                lonely->TaskCost(0);
                if (Loud()) Events.Raise(&TasksColEvents::RoolUpCostChange, parent_number, Variant(Currency(0)));
                if (Loud()) Events.Raise(&TasksColEvents::IamASummary, parent_number, False);
            }
        }
        if (Module().BVersion) {
            // Kept: of several on either side only the last ones are bridged.
            const auto [last_predecessor, last_successor] = In(*this).TakeLinksOff(task, TaskId);
            if (!last_predecessor.empty() && !last_successor.empty()) {
                AddTaskPredecessor(last_successor, last_predecessor, /*FirstTime=*/True);
            }
        }
        if (Loud()) Events.Raise(&TasksColEvents::TaskDeleted, KeyNumber(TaskId), parent, task->TaskPosition(), True);
        result = True;
    });
}

Boolean TasksCol::ArrangePositionAfterInsert(const String& TaskId, ByRef<Integer> oldPos, Integer Descending,
                                             Integer /*Assending*/, Boolean /*p_undo*/) {
    return kTail.Run<Boolean>("ArrangePositionAfterInsert", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Ref<TasksCls> task = Item(TaskId);
        if (!task) Raise(failure::kNothing);
        if (*oldPos != 0) {
            MakeWay(*this, task, *oldPos);
        } else if (Descending != 0) {
            ForOutline(*this, {}, [&](TasksCls& any) {
                if (any.TaskPosition() > Descending) any.TaskPosition(any.TaskPosition() - 1);
            });
        } else {
            ForOutline(*this, task, [&](TasksCls& other) {
                if (other.TaskPosition() >= task->TaskPosition()) other.TaskPosition(other.TaskPosition() + 1);
            });
        }
        if (!task->TaskName().empty() && Loud()) {
            // Kept: this event carries the place within the parent, not the row.
            Events.Raise(&TasksColEvents::TaskInserted, KeyNumber(TaskId), KeyText(task->ParentID()).text(),
                         task->TaskSubPosition());
        }
        result = True;
    });
}

Boolean TasksCol::ArrangePosition(Integer ParentID, Integer TaskId, Integer oldPos, Boolean InsertInPhase) {
    return kTail.Run<Boolean>("ArrangePosition", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const String parent_key = KeyText(Long(ParentID)).text();
        const String key = KeyText(Long(TaskId)).text();
        const Ref<TasksCls> parent = Item(parent_key);
        const Ref<TasksCls> child = Item(key);

        if (parent->TaskPosition() == Count(False)) {
            child->TaskPosition(Count(False));
            ArrangePositionAfterInsert(key, oldPos);
            return;
        }
        const Integer last_row = GetTaskAndSubNumber(parent_key, False, Integer(0));
        if (!InsertInPhase) {
            if (last_row == Count(False)) {
                child->TaskPosition(last_row);
            } else if (GetTaskAndSubNumber(parent_key, True, Integer(0)) != child->TaskKey() ||
                       child->TaskPosition() == 0) {
                child->TaskPosition(last_row + 1);
            }
            if (child->TaskPosition() == 1) child->TaskPosition(parent->TaskPosition() + 1);
            ArrangePositionAfterInsert(key);
        } else {
            child->TaskPosition(last_row);
            ArrangePositionAfterInsert(key, oldPos);
        }

        if (child->TaskPosition() == oldPos) return;
        if (child->TaskPosition() < parent->TaskPosition()) {
            const Long row = child->TaskPosition();
            child->TaskPosition(parent->TaskPosition());
            parent->TaskPosition(row);
            return;
        }
        if (parent->TaskPosition() == Count(False)) return;
        if (!InsertInPhase) {
            // Kept: without an old row this inserts a second time and leaves a hole.
            ArrangePositionAfterInsert(key, Integer(0), oldPos);
        } else if (oldPos > child->TaskPosition()) {
            ArrangePositionAfterInsert(key, oldPos);
        }
    });
}

}  // namespace mrlxmlclass
