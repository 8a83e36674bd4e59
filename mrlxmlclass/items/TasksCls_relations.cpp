#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Guarded.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"TasksCls"};

/// What stands in a collection that may be absent.
template <class Col>
typename Col::Store ItemsOf(const Ref<Col>& col) {
    return col ? col->NewEnum() : typename Col::Store();
}

/// A task's relations, made on first read. While the guard holds they are refused, in the words of `refuse`.
template <class Relations, class Refusal>
Ref<Relations> ReadGuarded(const char* member_label, Guarded<Relations>& relations, Refusal&& refuse) {
    return kTail.Run<Ref<Relations>>(member_label, [&](Ref<Relations>& result) {
        result = relations.Read([] { return Make<Relations>(); });
        if (!result) refuse();
    });
}

/// Takes a task's relations out of the project's; the task keeps its own.
template <class Relations>
Boolean Unhook(const char* member_label, const Ref<Relations>& own, ByRef<Ref<Relations>>& project) {
    return kTail.Run<Boolean>(member_label, [&](Boolean& result) {
        for (const auto& entry : ItemsOf(own)) (*project)->Remove(entry.item->elementKey());
        result = True;
    });
}

/// Adds the items that a task's relations name in the project's relations and items. Kept: a key that leads nowhere
/// ends it, and the rest of the task's relations stay unresolved.
template <class Relations, class Items, class Copies>
Boolean ResolveAll(const char* member_label, Ref<Relations> own, Ref<Relations> project, Ref<Items> all,
                   Copies&& copies) {
    return kTail.Run<Boolean>(member_label, [&](Boolean&) {
        for (const auto& entry : ItemsOf(own)) {
            const auto relation = project->Item(entry.item->elementKey());
            const auto item = all->Item(In(relation).item_key());
            if (!item) Raise(failure::kNothing);
            copies()->AddItem(item);
        }
    });
}

}  // namespace

// --- The task's relations --------------------------------------------------------------------------------------------

Ref<TaskNoteRelationCol> TasksCls::TaskNoteRelation() {
    return ReadGuarded("TaskNoteRelation", f_.TaskNoteRelation,
                       [] { Raise(0, ""); });  // Kept: this refusal has neither a number nor words.
}

void TasksCls::TaskNoteRelation(const Ref<TaskNoteRelationCol>& relations) {
    f_.TaskNoteRelation.Let(relations);
}

Ref<TaskObstaclesRelationCol> TasksCls::TaskObstaclesRelation() {
    return ReadGuarded("TaskObstaclesRelation", f_.TaskObstaclesRelation,
                       [] { RaiseNotValid("TaskObstaclesRelation"); });
}

void TasksCls::TaskObstaclesRelation(const Ref<TaskObstaclesRelationCol>& relations) {
    f_.TaskObstaclesRelation.Let(relations);
}

Ref<TaskGoalRelationCol> TasksCls::TaskGoalRelation() {
    return ReadGuarded("TaskGoalRelation", f_.TaskGoalRelation, [] { RaiseNotValid("TaskGoalRelation"); });
}

void TasksCls::TaskGoalRelation(const Ref<TaskGoalRelationCol>& relations) {
    f_.TaskGoalRelation.Let(relations);
}

Ref<TaskAssigmentRelationCol> TasksCls::TaskPeopleRelation() {
    // Kept: recorded under the name of another property, and in words of its own.
    return ReadGuarded("TaskObstaclesRelation", f_.TaskPeopleRelation, [] {
        Raise(failure::kDeliberate,
              "The Property TaskPeopleRelationValid is not valid set m_m_TaskPeopleRelationValid = true");
    });
}

void TasksCls::TaskPeopleRelation(const Ref<TaskAssigmentRelationCol>& relations) {
    f_.TaskPeopleRelation.Let(relations);
}

Boolean TasksCls::RemoveTaskRelation(ByRef<Ref<TaskAssigmentRelationCol>> oTaskAssigRelation) {
    return Unhook("RemoveTaskRelation", f_.TaskPeopleRelation.cell.Peek(), oTaskAssigRelation);
}

Boolean TasksCls::RemoveGoalRelation(ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation) {
    return Unhook("RemoveGoalRelation", f_.TaskGoalRelation.cell.Peek(), oTaskGoalRelation);
}

Boolean TasksCls::RemoveObstacleRelation(ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation) {
    return Unhook("RemoveObstacleRelation", f_.TaskObstaclesRelation.cell.Peek(), oTaskObstacleRelation);
}

// --- Copies of the items ---------------------------------------------------------------------------------------------

Ref<PeopleCol> TasksCls::TasksPeople() {
    return kTail.Run<Ref<PeopleCol>>("TasksPeople", [&](Ref<PeopleCol>& result) {
        result = f_.TasksPeople.ReadOr([] { return Make<PeopleCol>(); });
    });
}

void TasksCls::TasksPeople(const Ref<PeopleCol>& people) {
    f_.TasksPeople.Set(people);
}

Ref<GoalsCol> TasksCls::TasksGoals() {
    return kTail.Run<Ref<GoalsCol>>("TasksGoals", [&](Ref<GoalsCol>& result) { result = MadeOnRead(f_.TasksGoals); });
}

void TasksCls::TasksGoals(const Ref<GoalsCol>& goals) {
    f_.TasksGoals = goals;
}

Ref<class TaskNotes> TasksCls::TaskNotes() {
    return kTail.Run<Ref<class TaskNotes>>("TaskNotes",
                                           [&](Ref<class TaskNotes>& result) { result = MadeOnRead(f_.TaskNotes); });
}

void TasksCls::TaskNotes(const Ref<class TaskNotes>& notes) {
    f_.TaskNotes = notes;
}

Ref<obstaclesCol> TasksCls::TaskObstacles() {
    return kTail.Run<Ref<obstaclesCol>>("TaskObstacles",
                                        [&](Ref<obstaclesCol>& result) { result = MadeOnRead(f_.TaskObstacles); });
}

void TasksCls::TaskObstacles(const Ref<obstaclesCol>& obstacles) {
    f_.TaskObstacles = obstacles;
}

// --- Resolving keys after a load -------------------------------------------------------------------------------------

// Kept: of these four none sets its result, done or not they give False.

Boolean TasksCls::SetNoteCollection(const Ref<TaskNoteRelationCol>& oTaskNoteRelationCol,
                                    const Ref<class NotesCol>& NotesCol) {
    const Ref<TasksCls> held(this);  // a listener may let go of it, and of what it was called with
    return kTail.Run<Boolean>("SetNoteCollection", [&, oTaskNoteRelationCol, NotesCol](Boolean&) {
        for (const auto& entry : ItemsOf(f_.TaskNoteRelation.cell.Peek())) {
            const Ref<TaskNoteRelationCls> relation = In(oTaskNoteRelationCol).Find(entry.item->elementKey());
            if (relation) TaskNotes()->AddItem(NotesCol->Item(relation->NoteKey()));
        }
    });
}

Boolean TasksCls::SetGoalCollection(const Ref<TaskGoalRelationCol>& oTaskGoalRelationcol,
                                    const Ref<GoalsCol>& oGoalCol) {
    return ResolveAll("SetGoalCollection", f_.TaskGoalRelation.cell.Peek(), oTaskGoalRelationcol, oGoalCol,
                      [held = Ref<TasksCls>(this)] { return held->TasksGoals(); });
}

Boolean TasksCls::SetobstaclesCollection(const Ref<TaskObstaclesRelationCol>& oTaskobstaclesRelationcol,
                                         const Ref<obstaclesCol>& oobstaclesCol) {
    // Kept: recorded under another spelling.
    return ResolveAll("SetObstaclesCollection", f_.TaskObstaclesRelation.cell.Peek(), oTaskobstaclesRelationcol,
                      oobstaclesCol, [held = Ref<TasksCls>(this)] { return held->TaskObstacles(); });
}

Boolean TasksCls::SetPeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                      const Ref<PeopleCol>& oPeopleCol) {
    const Ref<TasksCls> held(this);  // a listener may let go of it, and of what it was called with
    return kTail.Run<Boolean>("SetPeopleCollection", [&, oTaskPeopleRelationcol, oPeopleCol](Boolean&) {
        for (const auto& entry : ItemsOf(f_.TaskPeopleRelation.cell.Peek())) {
            const Ref<TaskAssigmentRelationCls> relation = oTaskPeopleRelationcol->Item(entry.item->elementKey());
            if (!relation || relation->TaskKey() != f_.TaskKey) continue;
            const Ref<peopleCls> person = In(oPeopleCol).Find(relation->personkey());
            if (!person) continue;
            entry.item->personkey(relation->personkey());
            TasksPeople()->AddItem(person);
        }
    });
}

Boolean TasksCls::UpdatePeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                         const Ref<PeopleCol>& oPeopleCol, const Variant& personkey) {
    const Ref<TasksCls> held(this);  // a listener may let go of it, and of what it was called with
    // Kept: recorded under the name of another member.
    return kTail.Run<Boolean>(
        "SetPeopleCollection", [&, oTaskPeopleRelationcol, oPeopleCol, personkey](Boolean& result) {
            const double person = personkey.KeyValue();
            for (const auto& entry : ItemsOf(f_.TaskPeopleRelation.cell.Peek())) {
                if (entry.item->personkey().value() != person) continue;
                TasksPeople()->Remove(personkey);
                const Ref<TaskAssigmentRelationCls> relation = oTaskPeopleRelationcol->Item(entry.item->elementKey());
                TasksPeople()->AddItem(oPeopleCol->Item(relation->personkey()));
                result = True;
            }
        });
}

// --- Questions and texts ---------------------------------------------------------------------------------------------

Boolean TasksCls::isAssigned(const Variant& personkey) {
    // Kept: recorded under the name of another member.
    return kTail.Run<Boolean>("isPredecessor", [&](Boolean& result) {
        const KeyText wanted = personkey.Key();
        for (const auto& entry : ItemsOf(f_.TasksPeople.Peek())) {
            if (!(KeyText(entry.item->personkey()) == wanted)) continue;
            result = True;
            return;
        }
    });
}

Variant TasksCls::GetTaskPeopleRelation(const Variant& personkey) {
    return kTail.Run<Variant>("GetTaskPeopleRelation", [&](Variant& result) {
        const KeyText wanted = personkey.Key();
        for (const auto& entry : ItemsOf(f_.TaskPeopleRelation.cell.Peek())) {
            if (!(KeyText(entry.item->personkey()) == wanted)) continue;
            result = entry.item->elementKey();
            return;
        }
    });
}

Integer TasksCls::NoteIndex(const String& p_key) {
    return kTail.Run<Integer>("NoteIndex", [&](Integer& result) {
        Integer place;
        for (const auto& entry : ItemsOf(f_.TaskNotes)) {
            ++place;
            if (entry.item->NoteKey() != p_key) continue;
            result = place;
            return;
        }
        result = -1;
    });
}

Boolean TasksCls::NoteExist(const String& p_key) {
    return kTail.Run<Boolean>("NoteExist", [&](Boolean& result) { result = static_cast<bool>(GetTaskNote(p_key)); });
}

Ref<NotesCls> TasksCls::GetTaskNote(const String& p_key) {
    return kTail.Run<Ref<NotesCls>>("GetTaskNote", [&](Ref<NotesCls>& result) {
        for (const auto& entry : ItemsOf(f_.TaskNotes)) {
            if (entry.item->NoteKey() != p_key) continue;
            result = entry.item;
            return;
        }
    });
}

String TasksCls::PeopleAsString() {
    return kTail.Run<String>("PeopleAsString", [&](String& result) {
        bool first = true;
        for (const auto& entry : ItemsOf(f_.TasksPeople.Peek())) {
            if (!first) result += ", ";
            first = false;
            const String name = entry.item->PersonName();
            result += Trim(name).empty() ? entry.item->PersonCompany() : name;
        }
    });
}

String TasksCls::NoteAsString() {
    return kTail.Run<String>("NoteAsString", [&](String& result) {
        for (const auto& entry : ItemsOf(f_.TaskNotes)) result += entry.item->NoteDescription();
    });
}

String TasksCls::LinkAsString() {
    return kTail.Run<String>("LinkAsString", [&](String& result) {
        for (const auto& entry : ItemsOf(f_.TaskNotes)) result += entry.item->NoteLink();
    });
}

Boolean TasksCls::HasAttachemt() {
    // Kept: recorded under the name of another member.
    return kTail.Run<Boolean>("NoteAsString", [&](Boolean& result) {
        for (const auto& entry : ItemsOf(f_.TaskNotes)) {
            if (entry.item->NoteLink().empty()) continue;
            result = True;
            return;
        }
    });
}

String TasksCls::GoalsAsString() {
    return kTail.Run<String>("GoalsAsString", [&](String& result) {
        for (const auto& entry : ItemsOf(f_.TasksGoals)) result += entry.item->GoalName() + "; ";
    });
}

String TasksCls::ObstaclesAsString() {
    return kTail.Run<String>("ObstaclesAsString", [&](String& result) {
        for (const auto& entry : ItemsOf(f_.TaskObstacles)) result += entry.item->ObstaclesName() + "; ";
    });
}

}  // namespace mrlxmlclass
