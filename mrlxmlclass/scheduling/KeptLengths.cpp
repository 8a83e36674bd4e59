#include "mrlxmlclass/scheduling/KeptLengths.h"

#include "mrlxmlclass/scheduling/TaskEdit.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/scheduling/Waits.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

namespace {

constexpr FailureTail kTail{"KeptLengths", FailureTail::Gives::Empty};

constexpr double kADay = 1;

bool InWeeksOrMonths(TasksCls& task) {
    const String unit = task.TaskDurationUnit();
    return unit == "wks" || unit == "mons";
}

bool LastsADay(TasksCls& task) {
    return IsDays(task.TaskDurationUnit()) && !task.TaskMilstones() && task.TaskDuration() == kADay;
}

/// Of a day, week or month; hours and minutes never leave their day.
bool IsPartOnOneDay(TasksCls& task) {
    const bool moves = IsDays(task.TaskDurationUnit()) || InWeeksOrMonths(task);
    return moves && task.TaskDuration() > 0 && task.TaskDuration() < kADay &&
           task.TaskEDate().day() == task.TaskBDate().day();
}

}  // namespace

KeptLengths::KeptLengths(const Ref<TasksCol>& tasks, const TasksCls* but, Tells tells)
    : tasks_(tasks), tells_(tells), told_(tasks) {
    for (const auto& entry : tasks->NewEnum()) {
        const Ref<TasksCls>& task = entry.item;
        if (task.get() == but || !task->TaskCondidat() || task->TaskMilstones() || !task->TaskBDate().set()) continue;
        if (TasksCol::Internal::IsParent(task, entry.key)) continue;
        const bool part = IsPartOnOneDay(*task);
        if (!part && !InWeeksOrMonths(*task)) continue;
        const Kept kept{task, task->TaskDuration(), task->TaskDurationUnit(), task->TaskBDate(), task->TaskEDate()};
        if (part) {
            parts_.push_back(kept);
        } else {
            wholes_.push_back({kept, LeadsTo(kept)});
        }
    }
    for (const Kept& part : parts_) {
        part.task->TaskDurationUnit("days");
        part.task->TaskDuration(kADay);
    }
}

std::vector<KeptLengths::Lead> KeptLengths::LeadsTo(const Kept& kept) const {
    std::vector<Lead> leads;
    for (const Ref<TasksCls>& follower : FollowersOf(tasks_, *kept.task)) {
        const LinkDates dates{kept.end, follower->TaskBDate()};
        if (dates.measurable()) leads.push_back({follower, dates.Gap()});
    }
    return leads;
}

KeptLengths::~KeptLengths() {
    // What follows one may be another, below a summary that moves once more.
    constexpr int kMostRounds = 10;
    bool moved = true;
    for (int round = 0; moved && round < kMostRounds; ++round) {
        moved = false;
        for (Whole& whole : wholes_) {
            kTail.Run("GiveEndBack", [&] { moved |= GiveEndBack(whole); });
        }
    }
    for (const Kept& part : parts_) {
        kTail.Run("GiveLengthBack", [&] { GiveLengthBack(part); });
    }
}

void KeptLengths::GiveLengthBack(const Kept& part) const {
    const TasksCls& stored = *part.task;
    const KeyText key(stored.TaskKey());
    if (!LastsADay(*part.task) || TasksCol::Internal::IsParent(part.task, key)) return;  // it was given another
    part.task->TaskDurationUnit(part.unit);
    part.task->TaskDuration(part.length);  // one of less than a unit moves no end
    if (tells_ == Tells::kNothing || !told_.Has(stored)) return;
    if (!IsDays(part.unit)) In(*tasks_).TellEnd(part.task, key);
    In(*tasks_).TellDuration(part.task, key);
    In(*tasks_).TellTaskDuration(part.task, key);
}

/// Whether it ended elsewhere.
bool KeptLengths::GiveEndBack(Whole& whole) const {
    TasksCls& task = *whole.task;
    const KeyText key(task.TaskKey());
    const bool stands = task.TaskBDate() == whole.start && task.TaskEDate() == whole.end;
    const bool same = task.TaskDuration() == whole.length && task.TaskDurationUnit() == whole.unit;
    if (stands || !same || task.TaskMilstones() || TasksCol::Internal::IsParent(whole.task, key)) return false;
    const Date end = task.TaskEDate();
    const Long lag = task.TaskLag();
    StoreStart(task, task.TaskBDate());
    task.TaskLag(lag);
    whole.start = task.TaskBDate();
    whole.end = task.TaskEDate();
    if (whole.end == end || tells_ == Tells::kNothing) return false;
    for (const auto& [follower, days] : whole.leads) {  // the walk measured them from the wrong end
        if (!In(follower).HasPredecessor(key)) continue;
        tasks_->AddLeadTime(KeyText(follower->TaskKey()).text(), key.text(), Integer(days));
    }
    TaskEdit(tasks_, whole.task).Follow();
    return true;
}

}  // namespace mrlxmlclass
