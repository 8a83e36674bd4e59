#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "tests/model/Operations.h"

// A task's side of people, goals, obstacles and notes.
namespace mrlxmlclass::model {
namespace {

constexpr int kKinds = 4;

/// A new item, and a new relation to it, on a task's lists.
template <class Relations, class Items>
bool AddTie(const Edit& edit, const Ref<Relations>& relations, const Ref<Relations>& own, const Ref<Items>& items,
            Boolean (TasksCol::*tie)(const Variant&, const Ref<typename Relations::Held>&,
                                     const Ref<typename Items::Held>&)) {
    const auto item = items->AddItem(Make<typename Items::Held>());
    const auto relation = relations->Add();
    relation->TaskKey(edit.task->TaskKey());
    if constexpr (std::same_as<Items, NotesCol>) {
        relation->NoteKey(item->NoteKey());
    } else {
        In(relation).item_key(In(item).key());
    }
    const Long before = own->Count();
    (edit.col().*tie)(edit.key(), relation, item);
    if (own->Count() != before + 1) edit.world.Complain("ties", "none was added");
    return true;
}

/// The first relation that a task lists goes, on its side and out of the project.
template <class Relations, class Copies>
bool TakeTie(const Edit& edit, const Ref<Relations>& relations, const Ref<Relations>& own, const Ref<Copies>& copies,
             Boolean (TasksCol::*untie)(const Variant&, const Variant&, const Variant&)) {
    const Long ties = own->Count();
    const Long copied = copies->Count();
    if (ties == 0) return false;
    const String key = (*own->NewEnum().begin()).item->elementKey();
    (edit.col().*untie)(edit.key(), key, In(relations->Item(key)).item_key());
    relations->Remove(key);
    if (own->Count() != ties - 1) edit.world.Complain("ties", "none was taken off");
    if (copies->Count() != copied - 1) edit.world.Complain("ties", "the copy was not taken off");
    return true;
}

bool Assign(const Edit& edit) {
    Application& app = *edit.world.app;
    TasksCls& task = *edit.task;
    switch (edit.number()) {
        case 0:
            return AddTie(edit, app.xTaskPeopleRelationcol(), task.TaskPeopleRelation(), app.xPeopleCol(),
                          &TasksCol::AddAssigment);
        case 1:
            return AddTie(edit, app.xTaskGoalRelationcol(), task.TaskGoalRelation(), app.xGoalCol(),
                          &TasksCol::AddGoals);
        case 2:
            return AddTie(edit, app.xTaskObstaclesRelationcol(), task.TaskObstaclesRelation(), app.xObstaclesCol(),
                          &TasksCol::AddObstacles);
        default:
            return AddTie(edit, app.xTaskNotesRelationcol(), task.TaskNoteRelation(), app.xNoteCol(),
                          &TasksCol::AddNote);
    }
}

bool TakeTie(const Edit& edit, int kind) {
    Application& app = *edit.world.app;
    TasksCls& task = *edit.task;
    switch (kind) {
        case 0:
            return TakeTie(edit, app.xTaskPeopleRelationcol(), task.TaskPeopleRelation(), task.TasksPeople(),
                           &TasksCol::RemoveAssigment);
        case 1:
            return TakeTie(edit, app.xTaskGoalRelationcol(), task.TaskGoalRelation(), task.TasksGoals(),
                           &TasksCol::RemoveAssigendGoals);
        case 2:
            return TakeTie(edit, app.xTaskObstaclesRelationcol(), task.TaskObstaclesRelation(), task.TaskObstacles(),
                           &TasksCol::RemoveAssigendObstacles);
        default:
            return TakeTie(edit, app.xTaskNotesRelationcol(), task.TaskNoteRelation(), task.TaskNotes(),
                           &TasksCol::RemoveNote);
    }
}

/// From a kind on the next one that the task has.
bool Unassign(const Edit& edit) {
    for (int kind = edit.number(); kind < edit.number() + kKinds; ++kind) {
        if (TakeTie(edit, kind % kKinds)) return true;
    }
    return false;
}

/// Takes all of a task's people out of the project, and off the task's side; nothing without force.
bool Untie(const Edit& edit) {
    const Ref<TaskAssigmentRelationCol> ties = edit.world.app->xTaskPeopleRelationcol();
    const auto own = edit.task->TaskPeopleRelation()->NewEnum();
    const Long before = ties->Count();
    edit.col().RemoveRelation(edit.key(), ties, {}, {}, {}, {}, {}, /*ForceDelete=*/edit.Is(0));
    if (ties->Count() != before - (edit.Is(0) ? Long(own.size()) : Long(0))) {
        edit.world.Complain("ties", "others were taken off");
    }
    if (!edit.Is(0)) return true;
    for (const auto& entry : own) edit.col().RemoveAssigment(edit.key(), entry.key.text(), entry.item->personkey());
    return true;
}

/// The first person of a task gets another name, which all tasks take over that have that person.
bool RenamePerson(const Edit& edit) {
    Application& app = *edit.world.app;
    if (edit.task->TaskPeopleRelation()->Count() == 0) return false;
    const Long key = (*edit.task->TaskPeopleRelation()->NewEnum().begin()).item->personkey();
    const String name = "P" + std::to_string(edit.number());
    app.xPeopleCol()->Item(key)->PersonName(name);
    edit.col().UpdatePeopleCollection(app.xTaskPeopleRelationcol(), app.xPeopleCol(), key);
    if (edit.task->TasksPeople()->Item(key)->PersonName() != name) edit.world.Complain("ties", "a copy is out of date");
    return true;
}

}  // namespace

std::span<const Operation> ItemOperations() {
    static constexpr Operation kOperations[] = {
        {"Assign", 12, About::kTask, 0, kKinds - 1, Assign},
        {"Unassign", 8, About::kTask, 0, kKinds - 1, Unassign},
        {"Untie", 5, About::kTask, 0, 1, Untie},
        {"RenamePerson", 3, About::kTask, 0, 9, RenamePerson},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
