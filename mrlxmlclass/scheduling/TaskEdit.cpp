#include "mrlxmlclass/scheduling/TaskEdit.h"

#include <cmath>

#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

void StoreStart(TasksCls& task, Date start) {
    const Double length = task.TaskDuration();
    const bool first_of_all = !task.TaskEDate().set();  // leaves the end open and the duration at a day
    task.TaskLag(0);
    task.TaskBDate(start);
    if (!first_of_all) return;
    task.TaskBDate(start);
    task.TaskDuration(length);
}

TaskEdit::TaskEdit(const Ref<TasksCol>& tasks, const Ref<TasksCls>& task, bool announced)
    : tasks_(tasks), task_(task), announced_(announced) {}

void TaskEdit::MoveStart(Date wanted) {
    const DurationUnit& unit = In(task_).Unit();
    // A task in weeks or months takes no start from a walk.
    if (walks() && unit.name != "wks" && unit.name != "mons") {
        tasks_->DependsDateChanged(key(), wanted, /*StartFinishDate=*/1, /*LeadTimeCalc=*/True);
        AdjustSummaries();
        return;
    }
    StoreStart(*task_, wanted);
    if (!announced_) return;
    task_->TaskLag(tasks_->CalcLeadTime(key()));
    Follow();
}

void TaskEdit::MoveEnd(Date wanted) {
    if (!announced_) {
        task_->TaskEDate(wanted);
        return;
    }
    LeaveFreeDay();
    const Integer shift = task_->TaskEDate().set() ? DaysBetween(task_->TaskEDate(), wanted) : Long(0);
    tasks_->DependsDateChanged(key(), wanted, /*StartFinishDate=*/2, /*LeadTimeCalc=*/True, /*SummaryCalc=*/True,
                               /*p_number_to_shift=*/0, /*p_not_same_parent=*/False, /*p_calc_date=*/True,
                               /*p_changeds=*/{}, shift);
    AdjustSummaries();
}

void TaskEdit::ChangeLength(Double length, const String& unit) {
    if (length == 0) return MakeMilestone();
    LeaveFreeDay();
    const String in = unit.empty() ? task_->TaskDurationUnit() : unit;
    const bool whole_days = in != "hrs" && in != "mins" && length == std::floor(length);
    task_->TaskMilstones(False);  // a milestone would keep no duration
    if (walks() && whole_days) {
        tasks_->DurationChanged(key(), length, unit);
        return;
    }
    // A walk that starts at the end would round the duration to whole days.
    if (length < 1) {  // the end would stay where it is
        task_->TaskDurationUnit("days");
        task_->TaskDuration(1);
    }
    task_->TaskDurationUnit(in);
    if (!unit.empty()) task_->TaskDurationUnitValid("True");
    task_->TaskDuration(length);
    if (announced_) Follow();
}

void TaskEdit::MakeMilestone() {
    LeaveFreeDay();
    task_->TaskMilstones(True);
    task_->TaskEDate(task_->TaskBDate());  // an end that comes sooner later on would give it a duration
    task_->TaskDuration(0);
    if (announced_) tasks_->SeTAsMilstones(tasks_, key());
}

bool TaskEdit::LeaveFreeDay() {
    const Date start = task_->TaskBDate();
    if (!walks() || Gloabal::NextWorkingDay(start, 1) == start) return false;
    MoveStart(start);
    return true;
}

void TaskEdit::Follow() {
    tasks_->DependsDateChanged(key(), task_->TaskBDate(), /*StartFinishDate=*/1, /*LeadTimeCalc=*/True,
                               /*SummaryCalc=*/True, /*p_number_to_shift=*/0, /*p_not_same_parent=*/False,
                               /*p_calc_date=*/False);
    AdjustSummaries();
}

String TaskEdit::key() const {
    return KeyText(task_->TaskKey()).text();
}

void TaskEdit::AdjustSummaries() {
    if (task_->ParentID() != 0) tasks_->AdjustSummary(KeyText(task_->ParentID()).text());
}

}  // namespace mrlxmlclass
