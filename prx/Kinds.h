#pragma once

#include <array>
#include <string>
#include <vector>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "prx/Items.h"

/// The four kinds of items, a struct each: where the library keeps the items, their relations to tasks, and the lists
/// of those on either side, and what it calls them; whether a list of relations issues a key to one whose key counts as
/// none. A list that is not there yet is not made by looking. Each task has copies of its items.
namespace prx {

/// A text that an item may have beside its name.
template <class Record>
struct FieldOf {
    ItemField shown;
    mrlxmlclass::String (*get)(Record&);
    void (*set)(Record&, const mrlxmlclass::String&);
};

struct People {
    using Record = mrlxmlclass::peopleCls;
    using Relations = mrlxmlclass::TaskAssigmentRelationCol;
    using Relation = Relations::Held;
    static constexpr Kind kKind = Kind::kPerson;
    static constexpr const char* kName = "person";
    static constexpr const char* kPlural = "people";
    static constexpr const char* kRelation = "assignment";
    static constexpr bool kListsIssueKeys = true;
    static const std::vector<FieldOf<Record>> kFields;

    static mrlxmlclass::Ref<mrlxmlclass::PeopleCol> All(mrlxmlclass::Application& app) { return app.xPeopleCol(); }
    static mrlxmlclass::Ref<Relations> Ties(mrlxmlclass::Application& app) { return app.xTaskPeopleRelationcol(); }
    static std::string KeyOf(const Record& person) { return mrlxmlclass::KeyText(person.personkey()).text(); }
    /// As the library shows it: the company where there is no name.
    static std::string NameOf(Record& person);
    static std::string ItemOf(const Relation& relation) { return mrlxmlclass::KeyText(relation.personkey()).text(); }
    static void LeadTo(Relation& relation, const Record& person) { relation.personkey(person.personkey()); }
    static mrlxmlclass::Ref<Relations> Listed(mrlxmlclass::TasksCls& task) {
        return task.TaskPeopleRelationValid() ? task.TaskPeopleRelation() : nullptr;
    }
    static void List(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<Relations>& ties) {
        task.TaskPeopleRelation(ties);
    }
    static mrlxmlclass::Ref<Relations> Listed(Record& person) {
        return person.TaskPeopleRelationValid() ? person.TaskPeopleRelation() : nullptr;
    }
    static void List(Record& person, const mrlxmlclass::Ref<Relations>& ties) { person.TaskPeopleRelation(ties); }
    static auto Copies(mrlxmlclass::TasksCls& task) { return task.TasksPeople(); }
    static void Copies(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<mrlxmlclass::PeopleCol>& copies) {
        task.TasksPeople(copies);
    }

    static mrlxmlclass::Ref<Record> Add(mrlxmlclass::Application& app, const std::string& name);
    static void Remove(mrlxmlclass::Application& app, const std::string& key) { All(app)->Remove(key); }
    static void Tie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& person);
    static void Untie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& person);
    static void TakeOffTask(mrlxmlclass::Application& app, const std::string& task, const std::string& tie,
                            const std::string& item) {
        app.xTaskCol()->RemoveAssigment(task, tie, item);
    }
};

struct Goals {
    using Record = mrlxmlclass::GoalsCls;
    using Relations = mrlxmlclass::TaskGoalRelationCol;
    using Relation = Relations::Held;
    static constexpr Kind kKind = Kind::kGoal;
    static constexpr const char* kName = "goal";
    static constexpr const char* kPlural = "goals";
    static constexpr const char* kRelation = "goal relation";
    static constexpr bool kListsIssueKeys = true;
    static const std::vector<FieldOf<Record>> kFields;

    static mrlxmlclass::Ref<mrlxmlclass::GoalsCol> All(mrlxmlclass::Application& app) { return app.xGoalCol(); }
    static mrlxmlclass::Ref<Relations> Ties(mrlxmlclass::Application& app) { return app.xTaskGoalRelationcol(); }
    static std::string KeyOf(const Record& goal) { return mrlxmlclass::KeyText(goal.Goalkey()).text(); }
    static std::string NameOf(const Record& goal) { return goal.GoalName(); }
    static std::string ItemOf(const Relation& relation) { return mrlxmlclass::KeyText(relation.Goalkey()).text(); }
    static void LeadTo(Relation& relation, const Record& goal) { relation.Goalkey(goal.Goalkey()); }
    static mrlxmlclass::Ref<Relations> Listed(mrlxmlclass::TasksCls& task) {
        return task.TaskGoalRelationValid() ? task.TaskGoalRelation() : nullptr;
    }
    static void List(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<Relations>& ties) {
        task.TaskGoalRelation(ties);
    }
    static mrlxmlclass::Ref<Relations> Listed(Record& goal) {
        return goal.TaskGoalRelationValid() ? goal.TaskGoalRelation() : nullptr;
    }
    static void List(Record& goal, const mrlxmlclass::Ref<Relations>& ties) { goal.TaskGoalRelation(ties); }
    static auto Copies(mrlxmlclass::TasksCls& task) { return task.TasksGoals(); }
    static void Copies(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<mrlxmlclass::GoalsCol>& copies) {
        task.TasksGoals(copies);
    }

    static mrlxmlclass::Ref<Record> Add(mrlxmlclass::Application& app, const std::string& name);
    static void Remove(mrlxmlclass::Application& app, const std::string& key) { All(app)->Remove(key); }
    static void Tie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& goal);
    static void Untie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& goal);
    static void TakeOffTask(mrlxmlclass::Application& app, const std::string& task, const std::string& tie,
                            const std::string& item) {
        app.xTaskCol()->RemoveAssigendGoals(task, tie, item);
    }
};

struct Obstacles {
    using Record = mrlxmlclass::ObstaclesCls;
    using Relations = mrlxmlclass::TaskObstaclesRelationCol;
    using Relation = Relations::Held;
    static constexpr Kind kKind = Kind::kObstacle;
    static constexpr const char* kName = "obstacle";
    static constexpr const char* kPlural = "obstacles";
    static constexpr const char* kRelation = "obstacle relation";
    static constexpr bool kListsIssueKeys = false;
    static const std::vector<FieldOf<Record>> kFields;

    static mrlxmlclass::Ref<mrlxmlclass::obstaclesCol> All(mrlxmlclass::Application& app) {
        return app.xObstaclesCol();
    }
    static mrlxmlclass::Ref<Relations> Ties(mrlxmlclass::Application& app) { return app.xTaskObstaclesRelationcol(); }
    static std::string KeyOf(const Record& obstacle) { return mrlxmlclass::KeyText(obstacle.Obstacleskey()).text(); }
    static std::string NameOf(const Record& obstacle) { return obstacle.ObstaclesName(); }
    static std::string ItemOf(const Relation& relation) { return mrlxmlclass::KeyText(relation.Obstaclekey()).text(); }
    static void LeadTo(Relation& relation, const Record& obstacle) { relation.Obstaclekey(obstacle.Obstacleskey()); }
    static mrlxmlclass::Ref<Relations> Listed(mrlxmlclass::TasksCls& task) {
        return task.TaskObstaclesRelationValid() ? task.TaskObstaclesRelation() : nullptr;
    }
    static void List(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<Relations>& ties) {
        task.TaskObstaclesRelation(ties);
    }
    static mrlxmlclass::Ref<Relations> Listed(Record& obstacle) {
        return obstacle.TaskObstaclesRelationValid() ? obstacle.TaskObstaclesRelation() : nullptr;
    }
    static void List(Record& obstacle, const mrlxmlclass::Ref<Relations>& ties) {
        obstacle.TaskObstaclesRelation(ties);
    }
    static auto Copies(mrlxmlclass::TasksCls& task) { return task.TaskObstacles(); }
    static void Copies(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<mrlxmlclass::obstaclesCol>& copies) {
        task.TaskObstacles(copies);
    }

    static mrlxmlclass::Ref<Record> Add(mrlxmlclass::Application& app, const std::string& name);
    static void Remove(mrlxmlclass::Application& app, const std::string& key) { All(app)->Remove(key); }
    static void Tie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& obstacle);
    static void Untie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& obstacle);
    static void TakeOffTask(mrlxmlclass::Application& app, const std::string& task, const std::string& tie,
                            const std::string& item) {
        app.xTaskCol()->RemoveAssigendObstacles(task, tie, item);
    }
};

/// A note keeps no list of its relations.
struct Notes {
    using Record = mrlxmlclass::NotesCls;
    using Relations = mrlxmlclass::TaskNoteRelationCol;
    using Relation = Relations::Held;
    static constexpr Kind kKind = Kind::kNote;
    static constexpr const char* kName = "note";
    static constexpr const char* kPlural = "notes";
    static constexpr const char* kRelation = "note relation";
    static constexpr bool kListsIssueKeys = true;
    static const std::vector<FieldOf<Record>> kFields;

    static mrlxmlclass::Ref<mrlxmlclass::NotesCol> All(mrlxmlclass::Application& app) { return app.xNoteCol(); }
    static mrlxmlclass::Ref<Relations> Ties(mrlxmlclass::Application& app) { return app.xTaskNotesRelationcol(); }
    static std::string KeyOf(const Record& note) { return note.NoteKey(); }
    static std::string NameOf(const Record& note) { return note.NoteDescription(); }
    static std::string ItemOf(const Relation& relation) { return relation.NoteKey(); }
    static void LeadTo(Relation& relation, const Record& note) { relation.NoteKey(note.NoteKey()); }
    static mrlxmlclass::Ref<Relations> Listed(mrlxmlclass::TasksCls& task) {
        return task.TaskNoteValid() ? task.TaskNoteRelation() : nullptr;
    }
    static void List(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<Relations>& ties) {
        task.TaskNoteRelation(ties);
    }
    static mrlxmlclass::Ref<Relations> Listed(Record& /*note*/) { return nullptr; }
    static auto Copies(mrlxmlclass::TasksCls& task) { return task.TaskNotes(); }
    static void Copies(mrlxmlclass::TasksCls& task, const mrlxmlclass::Ref<mrlxmlclass::TaskNotes>& copies) {
        task.TaskNotes(copies);
    }

    static mrlxmlclass::Ref<Record> Add(mrlxmlclass::Application& app, const std::string& text);
    static void Remove(mrlxmlclass::Application& app, const std::string& key);
    static void Tie(mrlxmlclass::Application& app, mrlxmlclass::TasksCls& task, Record& note);
    static void Untie(mrlxmlclass::Application& /*app*/, mrlxmlclass::TasksCls& /*task*/, Record& /*note*/) {}
    static void TakeOffTask(mrlxmlclass::Application& app, const std::string& task, const std::string& tie,
                            const std::string& item) {
        app.xTaskCol()->RemoveNote(task, tie, item);
    }
};

/// Calls `work` with the struct of a kind.
template <class Work>
decltype(auto) With(Kind kind, Work&& work) {
    switch (kind) {
        case Kind::kPerson:
            return work(People{});
        case Kind::kGoal:
            return work(Goals{});
        case Kind::kObstacle:
            return work(Obstacles{});
        case Kind::kNote:
            break;
    }
    return work(Notes{});
}

/// Whether a list that may be absent holds a relation.
template <class Relations>
bool Holds(const mrlxmlclass::Ref<Relations>& ties, const std::string& key) {
    return ties && ties->NewEnum().Find(mrlxmlclass::KeyText(key)) != nullptr;
}

}  // namespace prx
