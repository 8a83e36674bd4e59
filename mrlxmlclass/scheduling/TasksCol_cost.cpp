#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

Currency AsCurrency(const Variant& amount) {
    if (const Currency* currency = amount.If<Currency>()) return *currency;
    if (const Long* number = amount.If<Long>()) return Currency(number->value());
    if (const double* number = amount.If<double>()) return Currency(*number);
    if (amount.is_empty()) return Currency();
    return Conversions::StringToCurrency(amount.As<String>());
}

void TellCost(TasksCol& tasks, KeyText key, Currency cost) {
    if (Loud()) tasks.Events.Raise(&TasksColEvents::RoolUpCostChange, key.Number(), Variant(cost));
}

/// Rebuilds the cost of one task; gives the key of its parent.
Long AdjustOne(TasksCol& tasks, KeyText key, Boolean anew) {
    const Ref<TasksCls> task = In(tasks).Item(key);
    const Ref<ChildOrder> children = In(tasks).Children(task);
    if (anew && In(tasks).isParent(key)) task->TaskCost(0);
    for (const Long child : children->keys) {
        task->TaskCost(task->TaskCost() + In(tasks).Item(KeyText(child))->TaskCost());
    }
    TellCost(tasks, key, task->TaskCost());
    return task->ParentID();
}

}  // namespace

Variant TasksCol::AdjustCost(const String& TaskKey, Boolean Initcost) {
    In(*this).AdjustCost(TaskKey, Initcost);
    return {};
}

void TasksCol::Internal::AdjustCost(KeyText key, Boolean Initcost) {
    kTail.Run("AdjustCost", [&] {
        const Ref<TasksCol> held(&self_);  // a listener may let go of the collection
        OutlineWalk walk(self_);
        do {
            walk.Climb(key);
            key = KeyText(AdjustOne(self_, key, Initcost));
            Initcost = True;
        } while (key != KeyText(Long(0)));
    });
}

Boolean TasksCol::RollUpCostChanged(const Variant& TaskKey, Currency CostDiff, Boolean ChangeCost, Boolean AddValue) {
    return kTail.Run<Boolean>("RollUpCostChanged", [&](Boolean&) {
        const Ref<TasksCol> held(this);
        OutlineWalk walk(*this);
        KeyText key = TaskKey.Key();
        do {
            walk.Climb(key);
            const Ref<TasksCls> task = In(*this).Item(key);
            if (ChangeCost && AddValue) {
                task->TaskCost(task->TaskCost() + CostDiff);
                TellCost(*this, key, task->TaskCost());
            }
            key = KeyText(task->ParentID());
        } while (key != KeyText(Long(0)));
    });
}

Boolean TasksCol::RolUpOneTask(const Variant& TaskKey, const Variant& CostDiff, Boolean Minus) {
    return kTail.Run<Boolean>("RolUpOneTask", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const KeyText key = TaskKey.Key();
        const Ref<TasksCls> task = In(*this).Item(key);
        // Kept: what is called minus adds; a caller takes off by a negative amount.
        task->TaskCost(Minus ? AsCurrency(CostDiff) + task->TaskCost() : AsCurrency(CostDiff));
        TellCost(*this, key, task->TaskCost());
    });
}

Boolean TasksCol::RollUpCostChangedImdParent(const Variant& TaskKey, Currency CostDiff, Boolean Change) {
    return kTail.Run<Boolean>("RollUpCostChangedImdParent", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const KeyText key = TaskKey.Key();
        const Ref<TasksCls> task = In(*this).Item(key);
        if (Change) {
            task->TaskCostUp(task->TaskCostUp() + CostDiff);
            TellCost(*this, key, task->TaskCostUp());
        }
        // Kept: the parents are climbed, and nothing changes there.
        if (task->ParentID() != 0) RollUpCostChanged(task->ParentID(), CostDiff, /*ChangeCost=*/False);
    });
}

Boolean TasksCol::ChangePercentDone(const String& p_task_id, Integer p_TaskPercentDone) {
    return kTail.Run<Boolean>("ChangePercentDone", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const Ref<TasksCls> task = Item(p_task_id);
        task->TaskPercentDone(p_TaskPercentDone);
        if (Loud()) Events.Raise(&TasksColEvents::CompletedChange, KeyNumber(p_task_id), p_TaskPercentDone);
    });
}

}  // namespace mrlxmlclass
