#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

using Gloabal::NextWorkingDay;

constexpr auto kTail = kTasksColTail;

/// How many non-working days lie from a day on, in one direction.
Long RunOfNonWorkingDays(Date from, int direction) {
    return DaysBetween(from, NextWorkingDay(from, direction));
}

/// The start of an anchor after the shift: next to non-working days it steps over them. Kept: a shift of 0 does so too,
/// a fraction goes into the date, and an undated task is reckoned from day 0.
Date Shifted(Date start, Double shift) {
    const int direction = Integer(shift) < 0 ? -1 : 1;
    return start + shift + static_cast<double>(RunOfNonWorkingDays(start + direction, direction).value());
}

/// Kept: the unit is told as days, whatever it is.
void TellInDays(TasksCol& tasks, const Ref<TasksCls>& task, KeyText key) {
    In(tasks).TellStart(task, key);
    if (!Loud()) return;
    tasks.Events.Raise(&TasksColEvents::DateEndChange, key.Number(), task->TaskEDate(), task->TaskMilstones(),
                       TasksCol::Internal::IsParent(task, key), String("days"));
}

/// Moves the anchors of the plan: its top level, or what of that `anchors` says.
template <class Anchors>
void MoveAnchors(TasksCol& tasks, Double shift, Boolean measure_gaps, Anchors&& anchors) {
    In(tasks).SortRows();
    for (const auto& entry : tasks.NewEnum()) {
        const Ref<TasksCls>& task = entry.item;
        if (task->ParentID() != 0 || !anchors(task)) continue;
        const String key = KeyText(task->TaskKey()).text();
        if (tasks.Summary(key)) {
            tasks.SummaryTaskDateChanged2(key, task->TaskBDate(), {}, /*CalcLead=*/True, {}, {},
                                          /*p_form_scheduler=*/False, Integer(shift));
        } else if (task->TaskCondidat()) {
            tasks.DependsDateChanged(key, Shifted(task->TaskBDate(), shift), 1, measure_gaps, /*SummaryCalc=*/True,
                                     shift);
            TellInDays(tasks, task, key);
        }
    }
}

/// Working days between an end and a start; 0 where no end came before.
std::int64_t DaysBehind(Date end, Date start) {
    return end.set() ? DaysBetween(end, start) - Gloabal::NumberOFNonWorkingDay(end, start) - 1 : 0;
}

/// Brings a start to the distance wanted. Kept: a distance that is too long grows for good, and so does one that is too
/// short unless the first step meets it; both leave the range of dates.
Date Repaired(Date start, Date end, std::int64_t have, std::int64_t wanted) {
    if (have > wanted) Raise(failure::kOverflow);
    while (have < wanted) {
        start += static_cast<double>(have - wanted);
        have = DaysBetween(end, start) - PublicDays().CountNonWorking(std::min(end, start), std::max(end, start));
    }
    return start;
}

}  // namespace

Boolean TasksCol::ResetStartDate(Double p_shift_time) {
    return kTail.Run<Boolean>("ResetStartDate", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        ModuleState& module = Module();
        if (module.BVersion) {
            ResetStartDatefordependency(p_shift_time);
            module.g_MinDate = module.g_MaxDate = Date();
            GetMinDate();
            In(*this).GetMaxDate();
        } else {
            MoveAnchors(*this, p_shift_time, /*measure_gaps=*/False, [](const Ref<TasksCls>&) { return true; });
        }
    });
}

Boolean TasksCol::ResetStartDatefordependency(Double p_shift_time) {
    return kTail.Run<Boolean>("ResetStartDatefordependency", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        MoveAnchors(*this, p_shift_time, /*measure_gaps=*/True,
                    [](const Ref<TasksCls>& task) { return In(task).PredecessorKeys().empty(); });
    });
}

Boolean TasksCol::ResetStartDatefordependency2(Double p_shift_time) {
    return kTail.Run<Boolean>("ResetStartDatefordependency2", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        In(*this).SortRows();
        Date old_end;
        Date new_end;
        for (const auto& entry : NewEnum()) {
            const Ref<TasksCls>& task = entry.item;
            const KeyText key(task->TaskKey());
            if (!task->TaskCondidat() || Summary(key.text())) continue;
            const std::int64_t wanted = DaysBehind(old_end, task->TaskBDate());
            const Date new_start = task->TaskBDate() + p_shift_time;
            old_end = task->TaskEDate();
            const Long lag = task->TaskLag();
            task->TaskLag(0);
            task->TaskBDate(new_start);
            task->TaskLag(lag);
            const std::int64_t have = DaysBehind(new_end, task->TaskBDate());
            new_end = task->TaskEDate();
            if (have != wanted) {
                task->TaskBDate(Repaired(task->TaskBDate(), new_end, have, wanted));  // Kept: the lag is added again
                new_end = task->TaskEDate();
            }
            TellInDays(*this, task, key);
        }
        for (const auto& entry : NewEnum()) {
            const String key = KeyText(entry.item->TaskKey()).text();
            if (Summary(key)) AdjustSummary(key);
        }
    });
}

}  // namespace mrlxmlclass
