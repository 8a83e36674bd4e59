#include "mrlxmlclass/scheduling/Gaps.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// Moves a start so that its gap to a date that moved stays; gives the non-working days that it passed.
Integer KeepGap(TasksCol& tasks, Date& start, Date reference, Date old_reference) {
    const Date old_start = start;
    const Integer wanted = tasks.GetLeadTimeNoLink(start, old_reference);
    tasks.GetDateNoLink(start, reference, wanted);
    if (!SeekGap(start, reference, wanted)) Raise(failure::kEndlessWalk);
    return Gloabal::NumberOFNonWorkingDay(old_start, start);
}

}  // namespace

Integer TasksCol::GetLeadTimeNoLink(Date p_start_date, Date p_end_date) {
    return kTail.Run<Integer>("GetLeadTimeNoLink",
                              [&](Integer& result) { result = GapBetween(p_start_date, p_end_date); });
}

Integer TasksCol::CalcLeadTimeNoLink(const String& TaskKey, Date p_end_date) {
    return kTail.Run<Integer>("CalcLeadTimeNoLink", [&](Integer& result) {
        if (const Ref<TasksCls> task = Item(TaskKey)) result = GetLeadTimeNoLink(task->TaskBDate(), p_end_date);
    });
}

Boolean TasksCol::GetDateNoLink(ByRef<Date> p_task_date, Date p_preview_date, Integer p_lead_time) {
    return kTail.Run<Boolean>("GetDateNoLink", [&](Boolean& result) {
        *p_task_date = p_lead_time == 0 ? p_preview_date : p_preview_date + static_cast<double>(p_lead_time.value());
        result = True;
    });
}

Boolean TasksCol::AdjustDateNoLink(const String& p_key, const String& p_prev_key, Integer p_lead_time) {
    return In(*this).AdjustDateNoLink(Item(p_key), Item(p_prev_key), p_lead_time);
}

Boolean TasksCol::Internal::AdjustDateNoLink(const Ref<TasksCls>& task, const Ref<TasksCls>& previous,
                                             Integer p_lead_time) {
    return kTail.Run<Boolean>("AdjustDateNoLink", [&](Boolean& result) {
        if (task->TaskBDate().set()) {
            const Date end = previous->TaskEDate();
            if (end.set()) {
                task->TaskBDate(end + static_cast<double>(p_lead_time.value()));
            } else {
                task->InitDate();
            }
        }
        result = True;
    });
}

Variant TasksCol::AdjustDateForSummary(ByRef<Date> p_start_date, Date p_preview_date, Date p_old_prev_date,
                                       ByRef<Variant> p_diff) {
    return kTail.Run<Variant>("AdjustDateForSummary", [&](Variant&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Integer idle = KeepGap(*this, *p_start_date, p_preview_date, p_old_prev_date);
        const Double shift = WithoutIdleDays<Double>(p_diff->Number(), idle.value());
        *p_diff = p_diff->If<double>() != nullptr ? Variant(shift) : Variant(Long(shift));
    });
}

void TasksCol::Internal::AdjustDateForSummary(Date& p_start_date, Date p_preview_date, Date p_old_prev_date,
                                              Integer& p_diff) {
    kTail.Run("AdjustDateForSummary", [&] {
        const Integer idle = KeepGap(self_, p_start_date, p_preview_date, p_old_prev_date);
        p_diff = WithoutIdleDays<std::int64_t>(p_diff, idle);
    });
}

}  // namespace mrlxmlclass
