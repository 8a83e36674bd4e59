#include "prx/OneDayEach.h"

#include "prx/Edit.h"
#include "prx/Outline.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr double kADay = 1;

bool LastsADay(TasksCls& task) {
    return CountsInDays(task) && !task.TaskMilstones() && task.TaskDuration() == kADay;
}

/// Of a day, week or month; hours and minutes never leave their day.
bool IsPartOnOneDay(TasksCls& task) {
    const bool moves = CountsInDays(task) || task.TaskDurationUnit() == "wks" || task.TaskDurationUnit() == "mons";
    return moves && !task.TaskMilstones() && task.TaskBDate().set() && task.TaskDuration() > 0 &&
           task.TaskDuration() < kADay && task.TaskEDate().day() == task.TaskBDate().day();
}

}  // namespace

OneDayEach::OneDayEach(const Project& project, const TasksCls* but, bool tells)
    : tasks_(project.tasks()), tells_(tells) {
    for (const OutlineRow& row : Outline(tasks_)) {
        TasksCls& task = *row.task;
        if (&task == but || !IsPartOnOneDay(task) || tasks_->isParent(KeyOf(task))) continue;
        short_tasks_.push_back({row.task, task.TaskDuration(), task.TaskDurationUnit(), task.TaskBDate()});
        task.TaskDurationUnit("days");
        task.TaskDuration(kADay);
    }
}

OneDayEach::~OneDayEach() {
    for (const auto& [task, length, unit, start] : short_tasks_) {
        if (!LastsADay(*task) || tasks_->isParent(KeyOf(*task))) continue;  // it was given another
        task->TaskDurationUnit(unit);
        task->TaskDuration(length);  // one of less than a unit moves no end
        if (!tells_ || task->TaskBDate() == start) continue;
        if (!CountsInDays(*task)) {
            tasks_->Events.Raise(&TasksColEvents::DateEndChange, task->TaskKey(), task->TaskEDate(), False, False,
                                 unit);
        }
        for (const auto event : {&TasksColEvents::DurationChange, &TasksColEvents::TaskDurationChange}) {
            tasks_->Events.Raise(event, task->TaskKey(), length, task->TaskDurationUnit(), False, False);
        }
    }
}

}  // namespace prx
