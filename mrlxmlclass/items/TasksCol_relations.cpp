#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail = kTasksColTail;

/// The number that goes out with an event.
Long NumberOf(const Variant& key) {
    return key.Key().Number();
}

/// The task's side of one kind of items: its relations, its copies, and the text and the event that tell of a change.
template <class Relations, class Copies>
struct Side {
    Ref<Relations> (TasksCls::*relations)();
    Ref<Copies> (TasksCls::*copies)();
    String (TasksCls::*text)();
    void (TasksColEvents::*changed)(Long, const String&);
    bool lends_counters = false;  ///< the task's relations receive the project's counters, where they have none

    void Tell(TasksCol& tasks, const Variant& key, TasksCls& task) const {
        if (Loud()) tasks.Events.Raise(changed, NumberOf(key), (task.*text)());
    }
};
constexpr Side<TaskAssigmentRelationCol, PeopleCol> kPeople{&TasksCls::TaskPeopleRelation, &TasksCls::TasksPeople,
                                                            &TasksCls::PeopleAsString, &TasksColEvents::AssigmentChange,
                                                            /*lends_counters=*/true};
constexpr Side<TaskGoalRelationCol, GoalsCol> kGoals{&TasksCls::TaskGoalRelation, &TasksCls::TasksGoals,
                                                     &TasksCls::GoalsAsString, &TasksColEvents::GoalChange};
constexpr Side<TaskObstaclesRelationCol, obstaclesCol> kObstacles{
    &TasksCls::TaskObstaclesRelation, &TasksCls::TaskObstacles, &TasksCls::ObstaclesAsString,
    &TasksColEvents::ObstaclesChange};
constexpr Side<TaskNoteRelationCol, TaskNotes> kNotes{&TasksCls::TaskNoteRelation, &TasksCls::TaskNotes,
                                                      &TasksCls::NoteAsString, &TasksColEvents::NoteChange};

// A listener may let go of the collection in the two that follow, and of what they were called with.

/// Adds a relation and an item to a task's lists. An unknown task fails.
template <class Relations, class Copies, class Item>
void Tie(TasksCol& tasks, const Side<Relations, Copies>& side, Variant key, Ref<typename Relations::Held> relation,
         Ref<Item> item) {
    const Ref<TasksCol> held(&tasks);
    const Ref<TasksCls> task = tasks.Item(key);
    const Ref<Relations> relations = (*task.*side.relations)();
    relations->AddItem(relation);
    // Kept: lent after adding, so that a task's first relation cannot be issued a key.
    if (side.lends_counters && !relations->oPublicStaticCls) relations->oPublicStaticCls = tasks.oPublicStaticCls;
    (*task.*side.copies)()->AddItem(item);
    side.Tell(tasks, key, *task);
}

/// Takes a relation and an item out of a task's lists. An unknown task fails.
template <class Relations, class Copies>
void Untie(TasksCol& tasks, const Side<Relations, Copies>& side, Variant key, Variant relation, Variant item) {
    const Ref<TasksCol> held(&tasks);
    const Ref<TasksCls> task = tasks.Item(key);
    const Ref<Relations> relations = (*task.*side.relations)();
    if constexpr (kRelationRow<typename Relations::Held>.removal == RelationRemoval::Raises) {
        In(relations).RemoveOrRaise(relation.Key());
    } else {
        relations->Remove(relation);
    }
    (*task.*side.copies)()->Remove(item);
    side.Tell(tasks, key, *task);
}

/// Calls one operation on every task; gives the last task's answer.
template <class Operation>
Boolean OnEveryTask(const char* member_label, const TasksCol& tasks, Operation&& operation) {
    return kTail.Run<Boolean>(member_label, [&](Boolean& result) {
        for (const auto& entry : tasks.NewEnum()) result = operation(entry.item);
    });
}

}  // namespace

// Kept: of all these only AddNote gives True, whatever happens.

Boolean TasksCol::AddAssigment(const Variant& TaskKey, const Ref<TaskAssigmentRelationCls>& OTPR,
                               const Ref<peopleCls>& oPerson) {
    return kTail.Run<Boolean>("AddAssigment", [&](Boolean&) { Tie(*this, kPeople, TaskKey, OTPR, oPerson); });
}

Boolean TasksCol::AddGoals(const Variant& TaskKey, const Ref<TaskGoalRelationCls>& OTGR, const Ref<GoalsCls>& oGoal) {
    return kTail.Run<Boolean>("AddGoals", [&](Boolean&) { Tie(*this, kGoals, TaskKey, OTGR, oGoal); });
}

Boolean TasksCol::AddObstacles(const Variant& TaskKey, const Ref<TaskObstaclesRelationCls>& OTGR,
                               const Ref<ObstaclesCls>& oObstacle) {
    return kTail.Run<Boolean>("AddObstacles", [&](Boolean&) { Tie(*this, kObstacles, TaskKey, OTGR, oObstacle); });
}

Boolean TasksCol::AddNote(const Variant& TaskKey, const Ref<TaskNoteRelationCls>& OTNR, const Ref<NotesCls>& Note) {
    return kTail.Run<Boolean>("AddNote", [&](Boolean& result) {
        Tie(*this, kNotes, TaskKey, OTNR, Note);
        result = True;
    });
}

Boolean TasksCol::RemoveAssigment(const Variant& TaskKey, const Variant& OTPRK, const Variant& oPersonkey) {
    return kTail.Run<Boolean>("RemoveAssigment", [&](Boolean&) { Untie(*this, kPeople, TaskKey, OTPRK, oPersonkey); });
}

Boolean TasksCol::RemoveAssigendGoals(const Variant& TaskKey, const Variant& OTGRK, const Variant& oGoalkey) {
    return kTail.Run<Boolean>("RemoveAssigendGoals", [&](Boolean&) { Untie(*this, kGoals, TaskKey, OTGRK, oGoalkey); });
}

Boolean TasksCol::RemoveAssigendObstacles(const Variant& TaskKey, const Variant& OTGRK, const Variant& oObstacleskey) {
    return kTail.Run<Boolean>("RemoveAssigendObstacles", [&](Boolean&) {
        if (Item(TaskKey)) Untie(*this, kObstacles, TaskKey, OTGRK, oObstacleskey);  // the one that asks first
    });
}

Boolean TasksCol::RemoveNote(const Variant& TaskKey, const Variant& OTNK, const Variant& NoteKey) {
    return kTail.Run<Boolean>("RemoveNote", [&](Boolean&) { Untie(*this, kNotes, TaskKey, OTNK, NoteKey); });
}

Boolean TasksCol::UpdatePeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                         const Ref<PeopleCol>& oPeopleCol, const Variant& personkey) {
    const Ref<TasksCol> held(this);  // a listener may let go of the collection, and of what it was called with
    return OnEveryTask(
        "UpdatePeopleCollection", *this, [&, oTaskPeopleRelationcol, oPeopleCol, personkey](const Ref<TasksCls>& task) {
            const Boolean changed = task->UpdatePeopleCollection(oTaskPeopleRelationcol, oPeopleCol, personkey);
            if (changed && Loud())
                Events.Raise(&TasksColEvents::AssigmentChange, task->TaskKey(), task->PeopleAsString());
            return changed;
        });
}

Boolean TasksCol::Internal::SetPeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                                const Ref<PeopleCol>& oPeopleCol) {
    return OnEveryTask("SetPeopleCollection", self_, [&](const Ref<TasksCls>& task) {
        return task->SetPeopleCollection(oTaskPeopleRelationcol, oPeopleCol);
    });
}

Boolean TasksCol::Internal::SetNoteCollection(const Ref<TaskNoteRelationCol>& oTaskNotesRelationcol,
                                              const Ref<NotesCol>& oNoteCol) {
    return OnEveryTask("SetNoteCollection", self_, [&](const Ref<TasksCls>& task) {
        return task->SetNoteCollection(oTaskNotesRelationcol, oNoteCol);
    });
}

Boolean TasksCol::Internal::SetGoalCollection(const Ref<TaskGoalRelationCol>& oTaskGoalRelationcol,
                                              const Ref<GoalsCol>& oGoalCol) {
    return OnEveryTask("SetGoalCollection", self_, [&](const Ref<TasksCls>& task) {
        return task->SetGoalCollection(oTaskGoalRelationcol, oGoalCol);
    });
}

Boolean TasksCol::Internal::SetobstaclesCollection(const Ref<TaskObstaclesRelationCol>& oTaskObstaclesRelationcol,
                                                   const Ref<obstaclesCol>& oObstaclesCol) {
    return OnEveryTask("SetobstaclesCollection", self_, [&](const Ref<TasksCls>& task) {
        return task->SetobstaclesCollection(oTaskObstaclesRelationcol, oObstaclesCol);
    });
}

}  // namespace mrlxmlclass
