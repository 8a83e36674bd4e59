#include "mrlxmlclass/platform/Services.h"
#include "tests/reference/ReferenceWalks.h"

namespace mrlxmlclass::reference {

Boolean ReferenceWalks::AddTaskPredecessor(const String& key, const String& predecessor_key, Boolean FirstTime,
                                           Boolean setforNonDepend, Boolean p_force_linking) {
    return kTasksColTail.Run<Boolean>("AddTaskPredecessor", [&](Boolean& result) {
        if (key.empty() || predecessor_key.empty() || predecessor_key == "0") return;
        const Ref<TasksCls> task = Task(key);
        const Ref<TasksCls> predecessor = Task(predecessor_key);
        if (predecessor && WaitsFor(predecessor, key)) return;
        if (!Module().BVersion) {
            if (setforNonDepend) task->TaskBDate(predecessor->TaskBDate() + 1);
            result = True;
            return;
        }
        if (!col_.AutoLink() && !p_force_linking) {
            const bool below = task->ParentID() == KeyNumber(predecessor_key);
            task->TaskBDate(below ? predecessor->TaskBDate() : predecessor->TaskEDate() + 1);
            result = True;
            return;
        }
        if (!predecessor) {
            result = True;
            return;
        }
        if (IsParent(predecessor_key) || predecessor->ParentID() == KeyNumber(key) || predecessor_key == key) return;

        const Date today = Platform().clock.Today();
        if (!predecessor->TaskMilstones() && !predecessor->TaskBDate().set()) predecessor->TaskBDate(today);
        if (!predecessor->TaskEDate().set()) predecessor->TaskEDate(today);
        if (Predecessors(task).empty()) {
            LinkAnew(task, predecessor, FirstTime);
        } else if (!LinkOneMore(task, predecessor, FirstTime)) {
            return;
        }
        TellLinks(key);
        if (Loud()) {
            col_.Events.Raise(&TasksColEvents::PredecessorKeyChange, KeyNumber(key), predecessor_key, String("add"));
        }
        TellFollowers(predecessor_key);
        result = True;
    });
}

void ReferenceWalks::LinkAnew(const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor, Boolean FirstTime) {
    const String key = KeyOf(task);
    task->TaskPredecessor()->Add(KeyOf(predecessor), KeyOf(predecessor));
    Long shift;
    if (FirstTime) {
        shift = DaysBetween(task->TaskBDate(), predecessor->TaskEDate() + 1);
        task->TaskBDate(predecessor->TaskEDate() + 1);
    }
    predecessor->TaskSuccessor()->Add(key, key);
    if (FirstTime) MoveFirst(task, shift);
    CalcLeadTime(key);
}

void ReferenceWalks::MoveFirst(const Ref<TasksCls>& task, Long shift) {
    const String key = KeyOf(task);
    if (IsParent(key)) {
        MoveSummary(key, task->TaskBDate(), shift);
    } else {
        WalkFrom(key, task->TaskBDate(), /*LeadTimeCalc=*/False);
    }
}

/// Gives False where the link says nothing new.
Boolean ReferenceWalks::LinkOneMore(const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor, Boolean FirstTime) {
    const String key = KeyOf(task);
    const String predecessor_key = KeyOf(predecessor);
    const std::vector<String> before = Predecessors(task);
    for (const String& other : before) {
        if (other != predecessor_key && !WaitsFor(predecessor, other)) continue;
        if (FirstTime) task->TaskBDate(predecessor->TaskEDate() + 1);
        return False;
    }
    if (predecessor->TaskPosition() < Task(before.back())->TaskPosition()) {
        task->TaskPredecessor()->Add(predecessor_key, predecessor_key, Long(before.size()));
    } else {
        task->TaskPredecessor()->Add(predecessor_key, predecessor_key);
    }
    if (FirstTime) MoveBehindNearest(task);
    predecessor->TaskSuccessor()->Add(key, key);
    if (!FirstTime) CalcLeadTime(key);
    return True;
}

/// Behind the start of the predecessor that stands nearest above.
void ReferenceWalks::MoveBehindNearest(const Ref<TasksCls>& task) {
    Ref<TasksCls> nearest;
    for (const String& other_key : Predecessors(task)) {
        const Ref<TasksCls> other = Task(other_key);
        if (other->TaskPosition() >= task->TaskPosition()) continue;
        if (!nearest || other->TaskPosition() > nearest->TaskPosition()) nearest = other;
    }
    const Date base = nearest ? nearest->TaskBDate() : Date();
    if (IsParent(KeyOf(task))) {
        MoveSummary(KeyOf(task), base);
    } else {
        task->TaskBDate(base + 1);
    }
}

Boolean ReferenceWalks::RemoveTaskPredecessor(const String& key, const String& predecessor_key) {
    return kTasksColTail.Run<Boolean>("RemoveTaskPredecessor", [&](Boolean& result) {
        const Ref<TasksCls> task = Task(key);
        const Ref<TasksCls> predecessor = Task(predecessor_key);
        if (task && WaitsFor(task, predecessor_key)) task->TaskPredecessor()->Remove(predecessor_key);
        if (predecessor && IsFollowedBy(predecessor, key)) predecessor->TaskSuccessor()->Remove(key);
        task->TaskLag(0);
        col_.RemoveLeadTime(key, predecessor_key, 0);
        Platform().ui.YieldToHost();
        TellFollowers(predecessor_key);
        TellLinks(key);
        if (Loud()) {
            col_.Events.Raise(&TasksColEvents::PredecessorKeyChange, KeyNumber(key), predecessor_key, String("remove"));
        }
        result = True;
    });
}

Boolean ReferenceWalks::RemoveAllTaskPredecessor(const String& key) {
    return kTasksColTail.Run<Boolean>("RemoveAllTaskPredecessor", [&](Boolean&) {
        for (const String& successor : Successors(Task(key))) RemoveTaskPredecessor(successor, key);
    });
}

Boolean ReferenceWalks::ReplacePredecessor(const String& old_key, const String& new_key) {
    return kTasksColTail.Run<Boolean>("ReplacePredecessor", [&](Boolean&) {
        for (const String& successor : Successors(Task(old_key))) {
            if (successor != new_key) AddTaskPredecessor(successor, new_key);
        }
    });
}

Boolean ReferenceWalks::cleanPredcessor(const String& key) {
    return kTasksColTail.Run<Boolean>("cleanPredcessor", [&](Boolean&) {
        for (const String& child_key : Children(key)) {
            const Ref<TasksCls> child = Task(child_key);
            for (const String& successor : Successors(child)) {
                if (Task(successor)->TaskPosition() < child->TaskPosition()) {
                    RemoveTaskPredecessor(successor, child_key);
                }
            }
            cleanPredcessor(child_key);
        }
    });
}

Boolean ReferenceWalks::SetPredSucByPos(Integer row, String key, Boolean p_first_time) {
    return kTasksColTail.Run<Boolean>("SetPredSucByPos", [&](Boolean& result) {
        const String previous = col_.GetTaskKeyByPosition(row - 1);
        const String next = col_.GetTaskKeyByPosition(row + 1);
        if (key.empty()) key = col_.GetTaskKeyByPosition(row);
        const Ref<TasksCls> task = Task(key);
        const String parent = ParentOf(task);
        if (!previous.empty() && previous != parent) {
            if (!next.empty()) RemoveTaskPredecessor(next, previous);
            AddTaskPredecessor(key, previous, p_first_time);
            if (!next.empty()) AddTaskPredecessor(next, key);
        } else {
            task->TaskBDate(parent != "0" ? Task(parent)->TaskBDate() : Platform().clock.Today());
            TellStart(key, IsParent(key));
            TellEnd(key, IsParent(key));
            if (!next.empty()) {
                if (WaitsFor(Task(next), parent)) RemoveTaskPredecessor(next, parent);
                AddTaskPredecessor(next, key, p_first_time);
            }
        }
        result = True;
    });
}

}  // namespace mrlxmlclass::reference
