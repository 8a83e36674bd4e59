#pragma once

#include "tests/items/Sides.h"

namespace mrlxmlclass::testing {

template <class Kind>
int SidesModel<Kind>::AddTask() {
    const int key = Next(&freed_tasks_, task_counter_);
    tasks_[key] = {};
    return key;
}

template <class Kind>
int SidesModel<Kind>::AddItem() {
    const int key = Next(Kind::frees_items ? &freed_items_ : nullptr, item_counter_);
    items_[key] = {};
    item_order_.push_back(key);
    return key;
}

template <class Kind>
void SidesModel<Kind>::TieTask(const Relation& relation) {
    OnTask& task = tasks_.at(relation.task);
    AddRelation(task.relations, relation.key, relation);
    if (Has(task.copies, relation.item)) {
        Record(Kind::items_label, "AddItem", 457);
    } else {
        task.copies.push_back(relation.item);
    }
}

template <class Kind>
void SidesModel<Kind>::Assign(int item, int task) {
    std::vector<int>* pool = Kind::draws_item_keys   ? &freed_items_
                             : Kind::frees_relations ? &freed_relations_
                                                     : nullptr;
    const Relation relation{Next(pool, relation_counter_), task, item};
    AddRelation(items_.at(item).relations, relation.key, relation.key);
    if (Kind::ties_the_task) TieTask(relation);
    AddRelation(master_, relation.key, relation);
    if (!items_.at(item).tasks.emplace(task, !tasks_.at(task).candidate).second) Record("TasksCol", "AddItem", 457);
    if (Kind::ties_the_task) return;
    // The host adds the task's side, with the relation that the item finds.
    if (const int found = FirstTo(item, task); found != 0) {
        const Relation* known = Find(master_, found);
        TieTask({known->key, task, item});
    }
}

/// The first of an item's relations that leads to a task in the project's list; 0 when there is none.
template <class Kind>
int SidesModel<Kind>::FirstTo(int item, int task) {
    for (const int key : items_.at(item).relations) {
        const Relation* relation = Find(master_, key);
        if (relation == nullptr) {
            if (!Kind::silent_lookup) Record(Kind::relations_label, "Item", 5);
        } else if (relation->task == task) {
            return key;
        }
    }
    return 0;
}

template <class Kind>
int SidesModel<Kind>::RelationOnTask(int task, int item) const {
    const auto& relations = tasks_.at(task).relations;
    const auto found = std::ranges::find(relations, item, &Relation::item);
    return found == relations.end() ? 0 : found->key;
}

template <class Kind>
void SidesModel<Kind>::UnAssign(int item, int task) {
    OnItem& own = items_.at(item);
    if (const int known = Kind::ties_the_task ? RelationOnTask(task, item) : 0; known != 0) {
        TakeOut(tasks_.at(task).relations, known);
        std::erase(tasks_.at(task).copies, item);
        TakeOut(master_, known);
        return;
    }
    const int key = FirstTo(item, task);
    if (key == 0) return;
    std::erase(own.relations, key);
    if (!Kind::ties_the_task && own.tasks.contains(task)) own.tasks[task] = false;
    TakeOut(master_, key);
    if (Kind::ties_the_task && tasks_.at(task).candidate) DropTask(task);
}

template <class Kind>
void SidesModel<Kind>::RemoveFromTask(int task, int item) {
    const int key = RelationOnTask(task, item);
    TakeOut(tasks_.at(task).relations, key);
    std::erase(tasks_.at(task).copies, item);
}

template <class Kind>
void SidesModel<Kind>::RemoveTask(int task) {
    const auto relations_then = [&] { return tasks_.at(task).relations; };
    for (const int item : item_order_) {
        UnAssign(item, task);
        if (!Kind::ties_the_task) continue;
        OnItem& own = items_.at(item);
        if (const int key = FirstTo(item, task); key != 0) {
            std::erase(own.relations, key);
            Free(key);
            if (own.tasks.contains(task)) own.tasks[task] = false;
        }
    }
    for (const Relation& relation : relations_then()) TakeOut(master_, relation.key);
    DropTask(task);
}

template <class Kind>
void SidesModel<Kind>::RemoveItem(int item) {
    items_.erase(item);
    std::erase(item_order_, item);
    if (Kind::frees_items && !Has(freed_items_, item)) freed_items_.push_back(item);
}

template <class Kind>
void SidesModel<Kind>::RemoveRelationsOf(int item) {
    std::vector<Relation> gathered = master_;
    std::erase_if(gathered, [&](const Relation& relation) { return relation.item != item; });
    for (const Relation& relation : gathered) {
        if (!tasks_.contains(relation.task)) return Record(Kind::relations_label, "RemoveForRelatedPople", 91);
        TakeOut(tasks_.at(relation.task).relations, relation.key);
        TakeOut(master_, relation.key);
    }
}

template <class Kind>
String SidesModel<Kind>::Drawn() const {
    String text = "project";
    for (const Relation& each : master_) {
        text += " " + std::to_string(each.key) + ":" + std::to_string(each.task) + "-" + std::to_string(each.item);
    }
    for (const auto& [key, task] : tasks_) {
        text += "\ntask " + std::to_string(key) + " relations";
        for (const Relation& each : task.relations) text += " " + std::to_string(each.key);
        text += " copies";
        for (const int item : task.copies) text += " " + std::to_string(item);
    }
    for (const auto& [key, item] : items_) {
        text += "\nitem " + std::to_string(key) + " relations";
        for (const int relation : item.relations) text += " " + std::to_string(relation);
        text += " tasks";
        for (const auto& [task, in_outline] : item.tasks) text += " " + std::to_string(task) + (in_outline ? "" : "c");
    }
    return text;
}

template <class Kind>
String DrawnSides(Plan& plan) {
    String text = "project";
    for (const auto& entry : Kind::Master(plan)->NewEnum()) {
        text += " " + entry.key.text() + ":" + KeyText(entry.item->TaskKey()).text() + "-" +
                KeyText(Kind::ItemKey(*entry.item)).text();
    }
    const auto keys = [](const auto& held) { return (held->Count() == 0 ? "" : " ") + KeysOf(held); };
    std::map<int, String> lines;
    for (const auto& entry : plan.col().NewEnum()) {
        lines[entry.item->TaskKey().value()] =
            " relations" + keys(Kind::OnTask(*entry.item)) + " copies" + keys(Kind::Copies(*entry.item));
    }
    for (const auto& [key, line] : lines) text += "\ntask " + std::to_string(key) + line;
    lines.clear();
    for (const auto& entry : Kind::All(plan)->NewEnum()) {
        std::map<int, String> tasks;
        for (const auto& task : entry.item->Tasks()->NewEnum()) {
            tasks[task.item->TaskKey().value()] = task.item->TaskCondidat() ? "" : "c";
        }
        String& line = lines[static_cast<int>(entry.key.Number().value())];
        line = " relations" + keys(Kind::OnItem(*entry.item)) + " tasks";
        for (const auto& [task, mark] : tasks) line += " " + std::to_string(task) + mark;
    }
    for (const auto& [key, line] : lines) text += "\nitem " + std::to_string(key) + line;
    return text;
}

}  // namespace mrlxmlclass::testing
