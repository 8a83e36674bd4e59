#include "mrlxmlclass/tasks/Sorting.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

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
            return std::int64_t{In(*this).Find(unsorted[place].item.Key())->TaskSubPosition()};
        });
        result = Make<Collection>();
        for (const std::size_t place : order) result->Add(unsorted[place].item, unsorted[place].key);
    });
}

Variant TasksCol::SetPhases() {
    return kTail.Run<Variant>("SetPhases", [&](Variant&) {
        phases_ = {};
        for (const auto& entry : NewEnum()) {
            const TasksCls& task = *entry.item;
            if (task.ParentID() == 0 && task.TaskCondidat() && !task.TaskType()) AddPhase(Variant(task.TaskKey()));
        }
    });
}

Boolean TasksCol::ChangeName(const String& TaskKey, const String& NewName, Boolean NewTask) {
    return kTail.Run<Boolean>("ChangeName", [&](Boolean&) {
        const Long key = Item(TaskKey)->TaskKey();
        if (const auto task = Item(TaskKey); NewTask && task->TaskCondidat() && Loud()) {
            Events.Raise(&TasksColEvents::TaskInserted, key, KeyText(task->ParentID()).text(), task->TaskPosition());
        }
        Item(TaskKey)->TaskName(NewName);
        if (Loud()) Events.Raise(&TasksColEvents::TaskNameChanged, key, NewName);
        In(*this).TellStart(Item(TaskKey), isParent(TaskKey));
        In(*this).TellEnd(Item(TaskKey), isParent(TaskKey));
        In(*this).TellDuration(Item(TaskKey), isParent(TaskKey));
        if (Loud()) In(*this).TellTaskDuration(Item(TaskKey), isParent(TaskKey));
    });
}

}  // namespace mrlxmlclass
