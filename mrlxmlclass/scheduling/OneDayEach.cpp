#include "mrlxmlclass/scheduling/OneDayEach.h"

#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

namespace {

constexpr FailureTail kTail{"OneDayEach", FailureTail::Gives::Empty};

constexpr double kADay = 1;

bool LastsADay(TasksCls& task) {
    return IsDays(task.TaskDurationUnit()) && !task.TaskMilstones() && task.TaskDuration() == kADay;
}

/// Of a day, week or month; hours and minutes never leave their day.
bool IsPartOnOneDay(TasksCls& task) {
    const String unit = task.TaskDurationUnit();
    const bool moves = IsDays(unit) || unit == "wks" || unit == "mons";
    return moves && !task.TaskMilstones() && task.TaskBDate().set() && task.TaskDuration() > 0 &&
           task.TaskDuration() < kADay && task.TaskEDate().day() == task.TaskBDate().day();
}

}  // namespace

OneDayEach::OneDayEach(const Ref<TasksCol>& tasks, const TasksCls* but, Told told) : tasks_(tasks), told_(told) {
    for (const auto& entry : tasks->NewEnum()) {
        const Ref<TasksCls>& task = entry.item;
        if (task.get() == but || !task->TaskCondidat() || !IsPartOnOneDay(*task)) continue;
        if (TasksCol::Internal::IsParent(task, entry.key)) continue;
        short_tasks_.push_back({task, task->TaskDuration(), task->TaskDurationUnit(), task->TaskBDate()});
        task->TaskDurationUnit("days");
        task->TaskDuration(kADay);
    }
}

OneDayEach::~OneDayEach() {
    for (const ShortTask& short_task : short_tasks_) {
        kTail.Run("GiveLengthBack", [&] { GiveLengthBack(short_task); });
    }
}

void OneDayEach::GiveLengthBack(const ShortTask& short_task) const {
    const auto& [task, length, unit, start] = short_task;
    const KeyText key(task->TaskKey());
    if (!LastsADay(*task) || TasksCol::Internal::IsParent(task, key)) return;  // it was given another
    task->TaskDurationUnit(unit);
    task->TaskDuration(length);  // one of less than a unit moves no end
    if (told_ == Told::kNothing || task->TaskBDate() == start) return;
    if (!IsDays(unit)) In(*tasks_).TellEnd(task, key);
    In(*tasks_).TellDuration(task, key);
    In(*tasks_).TellTaskDuration(task, key);
}

}  // namespace mrlxmlclass
