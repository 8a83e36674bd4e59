#pragma once

#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {

/// Stores a start as it is, whatever the task waits for; the end follows, and nothing else.
void StoreStart(TasksCls& task, Date start);

/// What a user asks of a task without children: to start, to end or to last otherwise. Of the library's operations each
/// takes the one that does so for a task of its unit, and the summaries above it and what waits for it follow, as that
/// operation tells. Make a `KeptLengths` around it.
///
/// A task that is not announced yet, one that is being filled in before its first name, has its dates stored and takes
/// nothing along.
class TaskEdit {
public:
    TaskEdit(const Ref<TasksCol>& tasks, const Ref<TasksCls>& task, bool announced = true);

    /// On the next working day. The gaps to what it waits for are measured anew: the day is the one that was asked for.
    void MoveStart(Date wanted);
    /// A task in days ends there, and lasts as long as that takes.
    void MoveEnd(Date wanted);
    /// Lasts so long, in the unit that it has where none is named. 0 makes a milestone.
    void ChangeLength(Double length, const String& unit = {});
    /// On the day of its start.
    void MakeMilestone();
    /// A length is counted from a working day, and the calendar may have changed since the task got its start: moves it
    /// to the next one. True where it had to. Both changes of the length, and MoveEnd, begin with it.
    bool LeaveFreeDay();

    /// Where its dates were stored: tells them, what waits for it moves along, and the summaries above follow.
    void Follow();

private:
    /// Whether a walk along the links starts here: it gives no first date.
    bool walks() const { return announced_ && task_->TaskBDate().set(); }
    String key() const;
    void AdjustSummaries();

    Ref<TasksCol> tasks_;
    Ref<TasksCls> task_;
    bool announced_;
};

}  // namespace mrlxmlclass
