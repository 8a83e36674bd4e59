#include "mrlxmlclass/runtime/Walk.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr int kMostLevels = 10;
constexpr int kMostVisits = 100'000;  // lists that share children multiply

String KeyOf(const TasksCls& task) {
    return KeyText(task.TaskKey()).text();
}
String PositionOf(const TasksCls& task) {
    return KeyText(task.TaskPosition()).text();
}

/// Levels below a task along the line of first children.
Integer LineBelow(TasksCol& tasks, String key) {
    Integer levels;
    for (OutlineWalk walk(tasks); tasks.isParent(key); key = tasks.GetFirstChildKey(key)) {
        walk.Step();
        ++levels;
    }
    return levels;
}

/// Steps from a task up to the top.
Integer StepsAbove(const TasksCol& tasks, const Ref<TasksCls>& task) {
    Integer steps;
    OutlineWalk walk(tasks);
    for (Long parent = task->ParentID(); parent != 0; parent = tasks.Item(parent)->ParentID()) {
        walk.Step();
        ++steps;
    }
    return steps;
}

/// The depth that a new parent's own parent stands for.
Integer LevelUpwards(TasksCol& tasks, Long key) {
    const Ref<TasksCls> task = tasks.Item(key);
    // Kept: a top-level task counts its line of first children instead.
    return task->ParentID() != 0 ? Integer(StepsAbove(tasks, task) + 1) : LineBelow(tasks, KeyText(key).text());
}

/// The depth that a subtree will have under a new parent; only the line of first children counts.
Integer LevelUnder(TasksCol& tasks, const String& key, const String& new_parent_key) {
    if (key.empty()) return 0;
    const Ref<TasksCls> task = tasks.Item(key);
    const Ref<TasksCls> new_parent = tasks.Item(new_parent_key);
    const bool has_children = bool(tasks.isParent(key));
    if (!has_children && task->ParentID() == 0) return 0;

    const Integer level = has_children ? LineBelow(tasks, key) : StepsAbove(tasks, tasks.Item(task->ParentID()));
    if (!new_parent) return level;
    if (tasks.isParent(new_parent_key)) return level + LineBelow(tasks, new_parent_key);
    const Long above = new_parent->ParentID();
    if (above == 0) return level;
    if (has_children) return level + 1 + LevelUpwards(tasks, above);
    return above == task->ParentID() ? level : Integer(level + LevelUpwards(tasks, above));
}

/// The last leaf of a subtree, or its highest row. A branch that is damaged counts as 0, and its siblings go on; one
/// that leads back into itself ends all. A task is visited once for each list that it stands in.
struct LastOfSubtree {
    TasksCol& tasks;
    Boolean keys;
    Integer& highest;
    int visits = 0;
    bool over = false;

    /// `line` came down to the task.
    Walk<Integer> Of(KeyText key, OutlineWalk line) {
        auto& result = co_await kTail.Begin("GetTaskAndSubNumber");
        if (over) co_return;
        Visit(key, line);
        Ref<TasksCls> task = In(tasks).Item(key);
        while (In(task).HasChildren()) {
            const Ref<ChildOrder> children = In(tasks).Children(task);
            const std::vector<Long>& keys_below = children->keys;
            for (std::size_t place = 0; place + 1 < keys_below.size(); ++place) {
                auto below = Of(KeyText(keys_below[place]), line);
                co_await std::move(below);
            }
            // The last child's answer is its parent's, so that a deep line of them is a loop.
            if (over) co_return;
            key = KeyText(keys_below.back());
            Visit(key, line);
            task = In(tasks).Item(key);
        }
        if (!keys && task->TaskPosition() > highest) highest = task->TaskPosition();
        result = keys ? Integer(task->TaskKey()) : highest;
    }

    void Visit(KeyText key, OutlineWalk& line) {
        over = true;  // where one of these fails
        if (++visits > kMostVisits) Raise(failure::kEndlessWalk);
        line.Climb(key);
        over = false;
    }
};

}  // namespace

Boolean TasksCol::isParent(const String& TaskId) {
    return kTail.Run<Boolean>("isParent", [&](Boolean& result) {
        if (KeyNumber(TaskId) == 0) return;
        const Ref<TasksCls> task = Item(TaskId);
        result = task && In(task).HasChildren();
    });
}

Boolean TasksCol::Summary(const String& TaskId) {
    return kTail.Run<Boolean>("Summary", [&](Boolean& result) {
        if (TaskId.empty() || !isParent(TaskId)) return;
        const Ref<TasksCls> task = Item(TaskId);
        result = task->TaskCondidat() && !task->TaskType();
    });
}

Integer TasksCol::GetTaskNumber(Integer TaskId) {
    return kTail.Run<Integer>("GetTaskNumber", [&](Integer& result) {
        const Ref<Dictionary> children = In(Item(TaskId)).PeekTasks();
        if (children) result = children->Count();
    });
}

Integer TasksCol::GetLevel(const String& TaskId) {
    return kTail.Run<Integer>("GetLevel", [&](Integer& result) { result = StepsAbove(*this, Item(TaskId)); });
}

String TasksCol::GetFirstChildKey(const String& TaskId) {
    return kTail.Run<String>("GetFirstChildKey", [&](String& result) {
        const Ref<TasksCls> task = Item(TaskId);
        const Ref<Dictionary> children = In(task).PeekTasks();
        if (!children) return;
        for (const auto& entry : children->Snapshot()) {
            if (Item(entry.key.value())->TaskPosition() == task->TaskPosition() + 1) {
                result = entry.key.Key().text();
                return;
            }
        }
    });
}

Boolean TasksCol::FirstChildInParent(const String& TaskKey) {
    return kTail.Run<Boolean>("FirstChildInParent", [&](Boolean& result) {
        const Ref<TasksCls> task = Item(TaskKey);
        if (task->ParentID() == 0) return;
        result = task->TaskPosition() == Item(task->ParentID())->TaskPosition() + 1;
    });
}

String TasksCol::GetTaskKeyByPosition(Integer p_pos) {
    return kTail.Run<String>("GetTaskKeyByPosition", [&](String& result) {
        for (const auto& entry : tasks_) {
            if (entry.item->TaskPosition() == p_pos) {
                result = KeyOf(*entry.item);
                return;
            }
        }
    });
}

String TasksCol::GetFirstLevelParentPosKey(const String& TaskKey, Boolean keys) {
    return kTail.Run<String>("GetFirstLevelParentPosKey", [&](String& result) {
        Ref<TasksCls> task = Item(TaskKey);
        for (OutlineWalk walk(*this); task->ParentID() != 0; task = Item(task->ParentID())) walk.Step();
        result = keys ? KeyOf(*task) : PositionOf(*task);
    });
}

String TasksCol::GetLastParentPosKey(const String& TaskKey, const String& SharedParent, Boolean keys) {
    return kTail.Run<String>("GetLastParentPosKey", [&](String& result) {
        if (TaskKey == "0") return;
        const Long shared_parent = KeyNumber(SharedParent);
        Ref<TasksCls> task = Item(TaskKey);
        for (OutlineWalk walk(*this); task->ParentID() != 0 && task->ParentID() != shared_parent;
             task = Item(task->ParentID())) {
            walk.Step();
        }
        result = keys ? KeyOf(*task) : PositionOf(*task);
    });
}

Integer TasksCol::GetTaskAndSubNumber(const String& TaskId, Boolean keys, ByRef<Integer> oldPos) {
    return kTail.Run<Integer>("GetTaskAndSubNumber", [&](Integer& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        LastOfSubtree last{*this, keys, *oldPos};
        if (!TaskId.empty()) result = last.Of(KeyText(TaskId), OutlineWalk(*this)).Run();
    });
}

Boolean TasksCol::CanbeLeveled(const String& p_task_id, const String& p_task_level_to) {
    return kTail.Run<Boolean>("CanbeLeveled", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        result = LevelUnder(*this, p_task_id, p_task_level_to) < kMostLevels;
    });
}

}  // namespace mrlxmlclass
