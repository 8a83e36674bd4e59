#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

void TasksCol::Internal::TellStart(const Ref<TasksCls>& task, KeyText key, bool summary) {
    if (!Loud()) return;
    self_.Events.Raise(&TasksColEvents::DateStartChange, key.Number(), task->TaskBDate(), task->TaskMilstones(),
                       summary || IsParent(task, key));
}

void TasksCol::Internal::TellEnd(const Ref<TasksCls>& task, KeyText key, bool summary) {
    if (!Loud()) return;
    self_.Events.Raise(&TasksColEvents::DateEndChange, key.Number(), task->TaskEDate(), task->TaskMilstones(),
                       summary || IsParent(task, key), In(task).Unit().name);
}

void TasksCol::Internal::TellDuration(const Ref<TasksCls>& task, KeyText key, bool summary) {
    if (!Loud()) return;
    self_.Events.Raise(&TasksColEvents::DurationChange, key.Number(), task->TaskDuration(), In(task).Unit().name,
                       task->TaskMilstones(), summary || IsParent(task, key));
}

void TasksCol::Internal::TellTaskDuration(const Ref<TasksCls>& task, KeyText key, bool summary) {
    self_.Events.Raise(&TasksColEvents::TaskDurationChange, key.Number(), task->TaskDuration(), In(task).Unit().name,
                       task->TaskMilstones(), summary || IsParent(task, key));
}

void TasksCol::Internal::TellDates(const Ref<TasksCls>& task, KeyText key) {
    TellStart(task, key);
    TellEnd(task, key);
    TellDuration(task, key);
    TellTaskDuration(task, key);  // Kept: even a silenced host hears this one.
}

}  // namespace mrlxmlclass
