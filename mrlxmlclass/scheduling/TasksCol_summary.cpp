#include <cstdlib>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr int kYearOfNoDate = 1900;

/// The span of a summary, widened by its children in their order.
void WidenOverChildren(TasksCol& tasks, const Ref<TasksCls>& summary, const Ref<Dictionary>& children) {
    for (const auto& entry : children->Snapshot()) {
        const Ref<TasksCls> child = tasks.Item(entry.key.value());
        // Kept: a child without a start lowers the start to 0, and only a later dated child sets it again.
        if (child->TaskBDate() < summary->TaskBDate() || !summary->TaskBDate().set()) {
            In(summary).StoreStart(child->TaskBDate());
        }
        if (child->TaskEDate() > summary->TaskEDate()) In(summary).StoreEnd(child->TaskEDate());
    }
}

/// The non-working days behind `from` up to `to`, in whichever direction that lies.
Integer NonWorkingBehind(Date from, Date to) {
    return to > from ? Gloabal::NonWorkingDaysFrom(from + 1, to) : Gloabal::NonWorkingDaysFrom(to, from - 1);
}

void StoreWorkingDuration(const Ref<TasksCls>& summary) {
    const Long days = DaysBetween(summary->TaskBDate(), summary->TaskEDate()) + 1;
    const Integer span = std::abs(std::int64_t{days});
    const Integer idle = NonWorkingBehind(summary->TaskBDate(), summary->TaskEDate());
    In(summary).StoreDuration(static_cast<double>(span - idle));
}

/// Rebuilds one summary; gives the key of its parent.
Long AdjustOne(TasksCol& tasks, const String& key, Boolean anew, const Ref<TasksCol>& copies) {
    const Ref<Dictionary> children = tasks.GetTasksAsKeys(key);
    const Ref<TasksCls> summary = tasks.Item(key);
    if (anew && children->Count() > 0) summary->InitDate();
    WidenOverChildren(tasks, summary, children);
    if (!summary->TaskBDate().set()) summary->TaskBDate(summary->TaskEDate());
    StoreWorkingDuration(summary);
    if (summary->TaskDuration() == 0 && !summary->TaskBDate().set()) summary->TaskBDate(Platform().clock.Today());
    summary->TaskLag(tasks.CalcLeadTime(key));
    summary->TaskMilstones(summary->TaskEDate() == summary->TaskBDate() && summary->TaskDuration() == 0);
    In(tasks).TellDuration(summary, True);
    In(tasks).TellTaskDuration(summary, True);  // Kept: even a silenced host hears this one.
    In(tasks).TellEnd(summary, True);
    In(tasks).TellStart(summary, True);
    if (copies) {
        const Ref<TasksCls> copy = copies->Item(key);
        In(copy).StoreStart(summary->TaskBDate());
        In(copy).StoreEnd(summary->TaskEDate());
        In(copy).StoreDuration(summary->TaskDuration());
    }
    return summary->ParentID();
}

/// The date that `pick` gives for the first task of the outline, then whatever is `better`; the holder's key with it.
template <class Pick, class Better>
Date Extreme(const TasksCol& tasks, Long& holder, Pick&& pick, Better&& better) {
    Date extreme;
    bool first = true;
    for (const auto& entry : tasks.NewEnum()) {
        const TasksCls& task = *entry.item;
        if (!task.TaskCondidat()) continue;
        if (first || better(pick(task), extreme)) {
            extreme = pick(task);
            holder = task.TaskKey();
        }
        first = false;
    }
    return extreme;
}

}  // namespace

Variant TasksCol::AdjustSummary(ByRef<String> TaskKey, ByRef<Boolean> InitDate, ByRef<Ref<TasksCol>> oTaskCol) {
    return kTail.Run<Variant>("AdjustSummary", [&](Variant&) {
        Boolean anew = *InitDate;
        Ref<TasksCol> copies = *oTaskCol;
        OutlineWalk walk(*this);
        for (String key = *TaskKey; key != "0";) {
            walk.Step();
            key = KeyText(AdjustOne(*this, key, anew, copies)).text();
            anew = True;
            copies = {};
        }
    });
}

Date TasksCol::GetMinDate(ByRef<Boolean> p_force) {
    return kTail.Run<Date>("GetMinDate", [&](Date& result) {
        ModuleState& module = Module();
        if (!*p_force && module.g_MinDate.set()) {
            result = module.g_MinDate;
            return;
        }
        result = Extreme(
            *this, module.g_MinDateTaskKey, [](const TasksCls& task) { return task.TaskBDate(); },
            [](Date a, Date b) { return a < b; });
        if (!result.set()) {
            result = Platform().clock.Today();
        } else if (result.year() == kYearOfNoDate) {
            result = Platform().clock.Now();
        }
        module.g_MinDate = result;
    });
}

Date TasksCol::Internal::GetMaxDate() {
    return kTail.Run<Date>("GetMaxDate", [&](Date& result) {
        ModuleState& module = Module();
        if (module.g_MaxDate.set()) {
            result = module.g_MaxDate;
            return;
        }
        result = Extreme(
            self_, module.g_MaxDateTaskKey, [](const TasksCls& task) { return task.TaskEDate(); },
            [](Date a, Date b) { return a > b; });
        if (!result.set()) result = Platform().clock.Today();
        module.g_MaxDate = result;
    });
}

}  // namespace mrlxmlclass
