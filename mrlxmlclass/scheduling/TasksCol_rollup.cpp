#include "mrlxmlclass/runtime/Walk.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// One task's dates on their way up.
struct DateRollUp {
    TasksCol& col;
    OutlineWalk walk;

    Walk<Boolean> From(KeyText key, Double& diff) {
        [[maybe_unused]] auto& result = co_await kTail.Begin("RollUpDateChanged");
        if (walk.over()) co_return;
        walk.Step();
        const Ref<TasksCls> task = In(col).Item(key);
        if (task->ParentID() == 0) co_return;
        const KeyText parent_key(task->ParentID());
        Widen(task, parent_key);
        if (!In(col).AdjustSummary(parent_key)) co_return;  // recorded where the parents led back into themselves
        diff += task->TaskDuration();
        auto above = From(parent_key, diff);
        co_await std::move(above);
        if (Loud()) col.Events.Raise(&TasksColEvents::IamASummary, parent_key.Number(), True);
    }

    /// Widens a parent to the dates of its child.
    void Widen(const Ref<TasksCls>& task, KeyText parent_key) {
        const Ref<TasksCls> parent = In(col).Item(parent_key);
        if (task->TaskBDate() < parent->TaskBDate() || !parent->TaskBDate().set()) {
            parent->TaskBDate(task->TaskBDate());
            In(col).TellStart(parent, parent_key);
            parent->TaskEDate(task->TaskEDate());
            In(col).TellEnd(parent, parent_key);
        }
        if (task->TaskEDate() > parent->TaskEDate()) {
            parent->TaskEDate(task->TaskEDate());
            In(col).TellEnd(parent, parent_key);
        }
    }
};

}  // namespace

Boolean TasksCol::RollUpDateChanged(const Variant& TaskKey, ByRef<Double> diff) {
    return kTail.Run<Boolean>("RollUpDateChanged", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        DateRollUp roll_up{*this, OutlineWalk(*this)};
        result = roll_up.From(TaskKey.Key(), *diff).Run();
    });
}

Boolean TasksCol::RolUpOneDate(const Variant& TaskKey, const Variant& ParentKey, Boolean Minus) {
    return kTail.Run<Boolean>("RolUpOneDate", [&](Boolean&) {
        const Ref<TasksCol> held(this);
        OutlineWalk walk(*this);
        KeyText key = TaskKey.Key();
        KeyText parent_key = ParentKey.Key();
        do {
            walk.Step();
            const Ref<TasksCls> task = In(*this).Item(key);
            const Ref<TasksCls> parent = In(*this).Item(parent_key);
            if (Minus) {
                parent->TaskDuration(parent->TaskDuration() - task->TaskDuration());
            } else {
                parent->TaskDuration(task->TaskDuration());
                parent->TaskEDate(task->TaskEDate());
                parent->TaskBDate(task->TaskBDate());
            }
            // Kept: even a silenced host hears this one.
            In(*this).TellTaskDuration(parent, parent_key, /*summary=*/true);
            In(*this).TellDuration(parent, parent_key, /*summary=*/true);
            In(*this).TellEnd(parent, parent_key, /*summary=*/true);
            In(*this).TellStart(parent, parent_key, /*summary=*/true);
            key = parent_key;
            parent_key = KeyText(parent->ParentID());
        } while (parent_key != KeyText(Long(0)));
    });
}

}  // namespace mrlxmlclass
