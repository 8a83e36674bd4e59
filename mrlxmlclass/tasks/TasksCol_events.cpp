#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

void TasksCol::Internal::TellStart(const Ref<TasksCls>& task, Boolean is_parent) {
    if (!Loud()) return;
    self_.Events.Raise(&TasksColEvents::DateStartChange, task->TaskKey(), task->TaskBDate(), task->TaskMilstones(),
                       is_parent);
}

void TasksCol::Internal::TellEnd(const Ref<TasksCls>& task, Boolean is_parent) {
    if (!Loud()) return;
    self_.Events.Raise(&TasksColEvents::DateEndChange, task->TaskKey(), task->TaskEDate(), task->TaskMilstones(),
                       is_parent, In(task).Unit().name);
}

void TasksCol::Internal::TellDuration(const Ref<TasksCls>& task, Boolean is_parent) {
    if (!Loud()) return;
    self_.Events.Raise(&TasksColEvents::DurationChange, task->TaskKey(), task->TaskDuration(), In(task).Unit().name,
                       task->TaskMilstones(), is_parent);
}

void TasksCol::Internal::TellTaskDuration(const Ref<TasksCls>& task, Boolean is_parent) {
    self_.Events.Raise(&TasksColEvents::TaskDurationChange, task->TaskKey(), task->TaskDuration(), In(task).Unit().name,
                       task->TaskMilstones(), is_parent);
}

void TasksCol::Internal::TellDates(const Ref<TasksCls>& task, Boolean is_parent) {
    TellStart(task, is_parent);
    TellEnd(task, is_parent);
    TellDuration(task, is_parent);
    TellTaskDuration(task, is_parent);  // Kept: even a silenced host hears this one.
}

}  // namespace mrlxmlclass
