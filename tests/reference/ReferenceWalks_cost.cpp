#include "tests/reference/ReferenceWalks.h"

namespace mrlxmlclass::reference {

void ReferenceWalks::AdjustCost(const String& key, Boolean Initcost) {
    kTasksColTail.Run("AdjustCost", [&] {
        const Ref<TasksCls> task = Task(key);
        if (Initcost && IsParent(key)) task->TaskCost(0);
        for (const String& child : Children(key)) task->TaskCost(task->TaskCost() + Task(child)->TaskCost());
        TellCost(key, task->TaskCost());
        if (task->ParentID() != 0) AdjustCost(ParentOf(task));
    });
}

Boolean ReferenceWalks::RollUpCostChanged(const String& key, Currency difference, Boolean ChangeCost,
                                          Boolean AddValue) {
    return kTasksColTail.Run<Boolean>("RollUpCostChanged", [&](Boolean&) {
        const Ref<TasksCls> task = Task(key);
        if (ChangeCost && AddValue) {
            task->TaskCost(task->TaskCost() + difference);
            TellCost(key, task->TaskCost());
        }
        if (task->ParentID() != 0) RollUpCostChanged(ParentOf(task), difference, ChangeCost, AddValue);
    });
}

Boolean ReferenceWalks::RolUpOneTask(const String& key, Currency difference, Boolean Minus) {
    return kTasksColTail.Run<Boolean>("RolUpOneTask", [&](Boolean&) {
        const Ref<TasksCls> task = Task(key);
        task->TaskCost(Minus ? task->TaskCost() + difference : difference);
        TellCost(key, task->TaskCost());
    });
}

Boolean ReferenceWalks::RollUpCostChangedImdParent(const String& key, Currency difference, Boolean Change) {
    return kTasksColTail.Run<Boolean>("RollUpCostChangedImdParent", [&](Boolean&) {
        const Ref<TasksCls> task = Task(key);
        if (Change) {
            task->TaskCostUp(task->TaskCostUp() + difference);
            TellCost(key, task->TaskCostUp());
        }
        if (task->ParentID() != 0) RollUpCostChanged(ParentOf(task), difference, /*ChangeCost=*/False, True);
    });
}

}  // namespace mrlxmlclass::reference
