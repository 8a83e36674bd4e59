#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/tasks/Sorting.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// The start of a task that comes to a row: its parent's, or today.
void SetFirstStart(TasksCol& tasks, const Ref<TasksCls>& task, bool first_row) {
    const Date today = Platform().clock.Today();
    if (task->ParentID() == 0) {
        task->TaskBDate(today);
        return;
    }
    const Date start = tasks.Item(task->ParentID())->TaskBDate();
    if (!first_row || start.set()) {
        task->TaskBDate(start);
    } else {
        task->TaskBDate(today);
        tasks.AdjustSummary(KeyText(task->ParentID()).text());
    }
}

/// The successors of a milestone follow its new end.
void MoveSuccessors(TasksCol& tasks, const Ref<TasksCls>& milestone, const String& key) {
    for (const String& successor : In(milestone).SuccessorKeys()) {
        const Ref<TasksCls> task = tasks.Item(successor);
        if (task && !task->isPredecessor(key)) continue;
        const Integer lead = task ? tasks.GetLeadTime(key, task->TaskLeadTime()) : Integer(0);
        tasks.AdjustDate(successor, milestone, lead, /*LeadTimeCalc=*/True, /*AdjustOtherDate=*/True,
                         /*adjustParent=*/True, {}, /*p_do_same_parent=*/True);
    }
}

/// Tells a task's dates where no walk does. A handler may silence the rest.
void TellDatesIfLoud(TasksCol& tasks, const Ref<TasksCls>& task, KeyText key) {
    In(tasks).TellStart(task, key);
    In(tasks).TellEnd(task, key);
    In(tasks).TellDuration(task, key);
    if (Loud()) In(tasks).TellTaskDuration(task, key);
}

}  // namespace

Boolean TasksCol::AddPhase(ByRef<Variant> p_phase_id) {
    return kTail.Run<Boolean>("AddPhase", [&](Boolean&) {
        *p_phase_id = p_phase_id->Key().text();
        if (!phases_) phases_ = Make<Collection>();
        phases_->Add(*p_phase_id, p_phase_id->Key());
    });
}

Boolean TasksCol::RemovePhase(ByRef<Variant> p_phases_id) {
    return kTail.Run<Boolean>("RemovePhase", [&](Boolean&) {
        *p_phases_id = p_phases_id->Key().text();
        phases_->Remove(*p_phases_id);
    });
}

Ref<Collection> TasksCol::Phases() {
    return kTail.Run<Ref<Collection>>("Phases", [&](Ref<Collection>& result) {
        if (!phases_) phases_ = Make<Collection>();
        const auto unsorted = phases_->Snapshot();
        const auto order = HeapOrder(unsorted.size(), [&](std::size_t place) {
            return std::int64_t{In(*this).Item(unsorted[place].item.Key())->TaskSubPosition()};
        });
        result = Make<Collection>();
        for (const std::size_t place : order) result->Add(unsorted[place].item, unsorted[place].key);
    });
}

Variant TasksCol::SetPhases() {
    return kTail.Run<Variant>("SetPhases", [&](Variant&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        phases_ = {};
        for (const auto& entry : NewEnum()) {
            const TasksCls& task = *entry.item;
            if (task.ParentID() == 0 && task.TaskCondidat() && !task.TaskType()) AddPhase(Variant(task.TaskKey()));
        }
    });
}

Boolean TasksCol::ChangeName(const String& TaskKey, const String& NewName, Boolean NewTask) {
    return kTail.Run<Boolean>("ChangeName", [&, TaskKey, NewName](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Long key = KeyNumber(TaskKey);
        if (const auto task = Item(TaskKey); NewTask && task->TaskCondidat() && Loud()) {
            Events.Raise(&TasksColEvents::TaskInserted, key, KeyText(task->ParentID()).text(), task->TaskPosition());
        }
        Item(TaskKey)->TaskName(NewName);
        if (Loud()) Events.Raise(&TasksColEvents::TaskNameChanged, key, NewName);
        TellDatesIfLoud(*this, Item(TaskKey), TaskKey);
    });
}

Boolean TasksCol::SetNewCondidat(Integer p_pos, const String& p_task_key) {
    return kTail.Run<Boolean>("SetNewCondidat", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const bool first_row = p_pos == 1 || GetTaskKeyByPosition(Integer(p_pos - 1)).empty();
        const String key = p_task_key.empty() ? GetTaskKeyByPosition(p_pos) : p_task_key;
        const Ref<TasksCls> task = Item(key);
        const String parent = KeyText(task->ParentID()).text();
        SetFirstStart(*this, task, first_row);
        if (first_row && task->ParentID() != 0) RemoveAllTaskPredecessor(parent);
        TellDatesIfLoud(*this, task, key);
        // Kept: at the top this tells of a parent 0.
        if (first_row && Loud()) Events.Raise(&TasksColEvents::IamASummary, KeyNumber(parent), True);
        result = True;
    });
}

Boolean TasksCol::SeTAsMilstones(const Ref<TasksCol>& oTaskCol, const Variant& oTaskKey) {
    return kTail.Run<Boolean>("SeTAsMilstones", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const String key = oTaskKey.Key().text();
        if (isParent(key)) return;
        const Ref<TasksCls> task = oTaskCol->Item(key);
        task->TaskMilstones(True);
        task->TaskDuration(0);
        task->TaskEDate(task->TaskBDate());
        task->TaskDurationUnit(Gloabal::unitvalid("d"));
        TellDatesIfLoud(*this, task, key);
        if (Module().BVersion) MoveSuccessors(*this, task, key);
        if (task->ParentID() != 0) {
            const String parent = KeyText(task->ParentID()).text();
            if (isParent(parent)) SummaryTaskDateChanged2(parent, Item(parent)->TaskBDate());
            AdjustSummary(parent);
        }
        result = True;
    });
}

}  // namespace mrlxmlclass
