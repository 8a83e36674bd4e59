#include <cstdlib>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr int kYearOfNoDate = 1900;

/// The span of a summary, widened by its children in their order.
void WidenOverChildren(const TasksCol::Internal& tasks, const Ref<TasksCls>& summary, const ChildOrder& children) {
    Date start = summary->TaskBDate();
    Date end = summary->TaskEDate();
    for (const Long key : children.keys) {
        const TasksCls& child = tasks.Existing(KeyText(key));
        // Kept: a child without a start lowers the start to 0, and only a later dated child sets it again.
        if (child.TaskBDate() < start || !start.set()) In(summary).StoreStart(start = child.TaskBDate());
        if (child.TaskEDate() > end) In(summary).StoreEnd(end = child.TaskEDate());
    }
}

/// The non-working days behind `from` up to `to`, in whichever direction that lies.
std::int64_t NonWorkingBehind(Date from, Date to) {
    return to > from ? PublicDays().CountNonWorking(from + 1, to) : PublicDays().CountNonWorking(to, from - 1);
}

void StoreWorkingDuration(const Ref<TasksCls>& summary) {
    const Long days = DaysBetween(summary->TaskBDate(), summary->TaskEDate()) + 1;
    const Integer span = std::abs(std::int64_t{days});
    const std::int64_t idle = NonWorkingBehind(summary->TaskBDate(), summary->TaskEDate());
    In(summary).StoreDuration(static_cast<double>(span - idle));
}

/// Rebuilds one summary; gives the key of its parent.
Long AdjustOne(TasksCol::Internal& tasks, KeyText key, Boolean anew, const Ref<TasksCol>& copies) {
    const Ref<TasksCls> summary = tasks.Item(key);
    const Ref<ChildOrder> children = tasks.Children(summary);
    // Kept: the setters see the date caches pass through 0, and may leave this summary's key beside an empty cache.
    if (anew && !children->keys.empty()) summary->InitDate();
    WidenOverChildren(tasks, summary, *children);
    if (!summary->TaskBDate().set()) summary->TaskBDate(summary->TaskEDate());
    StoreWorkingDuration(summary);
    // Kept: never so, since the duration of no dates at all is 1.
    if (summary->TaskDuration() == 0 && !summary->TaskBDate().set()) summary->TaskBDate(Platform().clock.Today());
    summary->TaskLag(tasks.CalcLeadTime(summary));  // Kept: 0 without live links.
    summary->TaskMilstones(summary->TaskEDate() == summary->TaskBDate() && summary->TaskDuration() == 0);
    tasks.TellDuration(summary, key, /*summary=*/true);
    tasks.TellTaskDuration(summary, key, /*summary=*/true);  // Kept: even a silenced host hears this one.
    tasks.TellEnd(summary, key, /*summary=*/true);
    tasks.TellStart(summary, key, /*summary=*/true);
    if (copies) {
        const Ref<TasksCls> copy = In(*copies).Item(key);
        In(copy).StoreStart(summary->TaskBDate());
        In(copy).StoreEnd(summary->TaskEDate());
        In(copy).StoreDuration(summary->TaskDuration());
    }
    return summary->ParentID();
}

/// The date that `pick` gives for the first task of the outline, then whatever is `better`; the holder's key with it.
/// Kept: a first task without a date holds the key, and what is earlier than none is never found.
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

Variant TasksCol::AdjustSummary(const String& TaskKey, Boolean InitDate, const Ref<TasksCol>& oTaskCol) {
    In(*this).AdjustSummary(TaskKey, InitDate, oTaskCol);
    return {};
}

bool TasksCol::Internal::AdjustSummary(KeyText key, Boolean InitDate, Ref<TasksCol> oTaskCol) {
    const Ref<TasksCol> held(&self_);  // a listener may let go of the collection
    OutlineWalk walk(self_);
    kTail.Run("AdjustSummary", [&] {
        while (key != KeyText(Long(0))) {
            walk.Climb(key);
            key = KeyText(AdjustOne(*this, key, InitDate, oTaskCol));
            InitDate = True;
            oTaskCol = {};
        }
    });
    return !walk.over();
}

Date TasksCol::GetMinDate(Boolean p_force) {
    return kTail.Run<Date>("GetMinDate", [&](Date& result) {
        ModuleState& module = Module();
        if (!p_force && module.g_MinDate.set()) {
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
