#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

}  // namespace

Variant TasksCol::AdjustCost(ByRef<String> TaskKey, ByRef<Boolean> Initcost) {
    return kTail.Run<Variant>("AdjustCost", [&](Variant&) {
        Boolean anew = *Initcost;
        OutlineWalk walk(*this);
        String key = *TaskKey;
        do {
            walk.Step();
            const Ref<TasksCls> task = Item(key);
            if (anew && isParent(key)) task->TaskCost(0);
            for (const auto& entry : GetTasksAsKeys(key)->Snapshot()) {
                task->TaskCost(task->TaskCost() + Item(entry.key.value())->TaskCost());
            }
            if (Loud()) Events.Raise(&TasksColEvents::RoolUpCostChange, task->TaskKey(), Variant(task->TaskCost()));
            key = KeyText(task->ParentID()).text();
            anew = True;
        } while (key != "0");
    });
}

}  // namespace mrlxmlclass
