#include "prx/OneDayEach.h"

#include "prx/Edit.h"
#include "prx/Outline.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr double kADay = 1;

bool LastsSomeDays(TasksCls& task) {
    return CountsInDays(task) && !task.TaskMilstones();
}

bool IsPartOfOneDay(TasksCls& task) {
    return task.TaskBDate().set() && task.TaskDuration() > 0 && task.TaskDuration() < kADay &&
           task.TaskEDate().day() == task.TaskBDate().day();
}

}  // namespace

OneDayEach::OneDayEach(const Project& project, const TasksCls* but) : tasks_(project.tasks()) {
    for (const OutlineRow& row : Outline(tasks_)) {
        TasksCls& task = *row.task;
        if (&task == but || !IsPartOfOneDay(task) || !LastsSomeDays(task) || tasks_->isParent(KeyOf(task))) continue;
        short_tasks_.push_back({row.task, task.TaskDuration(), task.TaskBDate()});
        task.TaskDuration(kADay);
    }
}

OneDayEach::~OneDayEach() {
    for (const auto& [task, length, start] : short_tasks_) {
        if (task->TaskDuration() != kADay || !LastsSomeDays(*task)) continue;  // it was given another
        task->TaskDuration(length);                                            // one of less than a day moves no end
        if (task->TaskBDate() == start) continue;
        for (const auto event : {&TasksColEvents::DurationChange, &TasksColEvents::TaskDurationChange}) {
            tasks_->Events.Raise(event, task->TaskKey(), length, task->TaskDurationUnit(), False, False);
        }
    }
}

}  // namespace prx
