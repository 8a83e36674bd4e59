#include "mrlxmlclass/scheduling/HeldDates.h"

#include <unordered_set>

#include "mrlxmlclass/scheduling/Waits.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

namespace {

constexpr FailureTail kTail{"HeldDates", FailureTail::Gives::Empty};

}  // namespace

HeldDates::HeldDates(const Ref<TasksCol>& tasks) : tasks_(tasks), told_(tasks) {
    for (const auto& entry : tasks->NewEnum()) {
        const Ref<TasksCls>& task = entry.item;
        if (!task->TaskCondidat() || !task->TaskBDate().set()) continue;
        if (TasksCol::Internal::IsParent(task, entry.key)) continue;
        held_.push_back({task, task->TaskBDate(), task->TaskEDate()});
    }
}

HeldDates::~HeldDates() {
    kTail.Run("PutBack", [&] {
        std::vector<Ref<TasksCls>> moved;
        for (const Held& held : held_) {
            if (PutBack(held)) moved.push_back(held.task);
        }
        std::unordered_set<std::int64_t> parents;
        for (const Ref<TasksCls>& task : moved) {
            MeasureLeads(task);
            if (task->ParentID() != 0) parents.insert(task->ParentID());
        }
        for (const std::int64_t parent : parents) tasks_->AdjustSummary(KeyText(Long(parent)).text());
    });
}

/// Whether it had moved unheard.
bool HeldDates::PutBack(const Held& held) const {
    TasksCls& task = *held.task;
    const KeyText key(task.TaskKey());
    if (told_.Has(task) || (task.TaskBDate() == held.start && task.TaskEDate() == held.end)) return false;
    if (In(*tasks_).Find(key) != held.task || !task.TaskCondidat() || TasksCol::Internal::IsParent(held.task, key)) {
        return false;  // it went, or became a summary
    }
    In(task).TaskBDate_Int(held.start);
    In(task).TaskEDate_Int(held.end);
    return true;
}

/// Of its links to both sides.
void HeldDates::MeasureLeads(const Ref<TasksCls>& task) const {
    task->TaskLag(In(*tasks_).CalcLeadTime(task));
    for (const Ref<TasksCls>& follower : FollowersOf(tasks_, *task)) StoreMeasuredLead(tasks_, {follower, task});
    for (const Ref<TasksCls>& predecessor : PredecessorsOf(tasks_, *task))
        StoreMeasuredLead(tasks_, {task, predecessor});
}

}  // namespace mrlxmlclass
