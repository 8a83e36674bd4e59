#pragma once

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// Tasks that are each the only child of the one before; "1" is the top.
inline void BuildChain(Plan& plan, int levels) {
    plan.Task("1");
    for (int level = 2; level <= levels; ++level) {
        plan.Task(std::to_string(level)).Under(std::to_string(level - 1));
    }
}

/// A and B, each the parent of the other, as a damaged file may bring them.
inline void BuildRing(Plan& plan) {
    plan.Task("A").Task("B").Under("A");
    plan["A"].ParentID(plan.Number("B"));
    plan.col().AddParentTask(plan.Number("B"), plan.Number("A"));
}

/// A, which is its own parent.
inline void BuildSelfParent(Plan& plan) {
    plan.Task("A").Under("A");
}

/// The keys, in their order, with a blank between.
inline String Listed(const Ref<Dictionary>& keys) {
    String list;
    for (const auto& entry : keys->Snapshot()) list += (list.empty() ? "" : " ") + entry.key.value().Key().text();
    return list;
}

/// The items, texts or names of tasks, in their order, with a blank between.
inline String Listed(const Ref<Collection>& items) {
    String list;
    for (const auto& entry : items->Snapshot()) {
        const bool is_task = entry.item.If<Ref<Counted>>() != nullptr;
        list +=
            (list.empty() ? "" : " ") + (is_task ? entry.item.Object<TasksCls>()->TaskName() : entry.item.As<String>());
    }
    return list;
}

/// The names of the tasks in walking order.
inline String Walked(const TasksCol& tasks) {
    String list;
    for (const auto& entry : tasks.NewEnum()) list += (list.empty() ? "" : " ") + entry.item->TaskName();
    return list;
}

/// The rows of the tasks in walking order: "A1 B3".
inline String Rows(const TasksCol& tasks) {
    String list;
    for (const auto& entry : tasks.NewEnum()) {
        list += (list.empty() ? "" : " ") + entry.item->TaskName() + std::to_string(entry.item->TaskPosition().value());
    }
    return list;
}

}  // namespace mrlxmlclass::testing
