#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail = kTasksColTail;

/// The number that goes out with an event.
Long NumberOf(const Variant& key) {
    return key.Key().Number();
}

/// Calls one operation on every task; gives the last task's answer.
template <class Operation>
Boolean OnEveryTask(const char* member_label, const TasksCol& tasks, Operation&& operation) {
    return kTail.Run<Boolean>(member_label, [&](Boolean& result) {
        for (const auto& entry : tasks.NewEnum()) result = operation(entry.item);
    });
}

}  // namespace

// Of all these only AddNote gives True, whatever happens.

Boolean TasksCol::AddAssigment(const Variant& TaskKey, const Ref<TaskAssigmentRelationCls>& OTPR,
                               const Ref<peopleCls>& oPerson) {
    return kTail.Run<Boolean>("AddAssigment", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        const Ref<TaskAssigmentRelationCol> relations = task->TaskPeopleRelation();
        relations->AddItem(OTPR);
        if (!relations->oPublicStaticCls) relations->oPublicStaticCls = oPublicStaticCls;
        task->TasksPeople()->AddItem(oPerson);
        if (Loud()) Events.Raise(&TasksColEvents::AssigmentChange, NumberOf(TaskKey), task->PeopleAsString());
    });
}

Boolean TasksCol::AddGoals(const Variant& TaskKey, const Ref<TaskGoalRelationCls>& OTGR, const Ref<GoalsCls>& oGoal) {
    return kTail.Run<Boolean>("AddGoals", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        task->TaskGoalRelation()->AddItem(OTGR);
        task->TasksGoals()->AddItem(oGoal);
        if (Loud()) Events.Raise(&TasksColEvents::GoalChange, NumberOf(TaskKey), task->GoalsAsString());
    });
}

Boolean TasksCol::AddObstacles(const Variant& TaskKey, const Ref<TaskObstaclesRelationCls>& OTGR,
                               const Ref<ObstaclesCls>& oObstacle) {
    return kTail.Run<Boolean>("AddObstacles", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        task->TaskObstaclesRelation()->AddItem(OTGR);
        task->TaskObstacles()->AddItem(oObstacle);
        if (Loud()) Events.Raise(&TasksColEvents::ObstaclesChange, NumberOf(TaskKey), task->ObstaclesAsString());
    });
}

Boolean TasksCol::AddNote(const Variant& TaskKey, const Ref<TaskNoteRelationCls>& OTNR, const Ref<NotesCls>& Note) {
    return kTail.Run<Boolean>("AddNote", [&](Boolean& result) {
        const Ref<TasksCls> task = Item(TaskKey);
        task->TaskNoteRelation()->AddItem(OTNR);
        task->TaskNotes()->AddItem(Note);
        if (Loud()) Events.Raise(&TasksColEvents::NoteChange, NumberOf(TaskKey), task->NoteAsString());
        result = True;
    });
}

Boolean TasksCol::RemoveAssigment(const Variant& TaskKey, const Variant& OTPRK, const Variant& oPersonkey) {
    return kTail.Run<Boolean>("RemoveAssigment", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        task->TaskPeopleRelation()->Remove(OTPRK);
        task->TasksPeople()->Remove(oPersonkey);
        if (Loud()) Events.Raise(&TasksColEvents::AssigmentChange, NumberOf(TaskKey), task->PeopleAsString());
    });
}

Boolean TasksCol::RemoveAssigendGoals(const Variant& TaskKey, const Variant& OTGRK, const Variant& oGoalkey) {
    return kTail.Run<Boolean>("RemoveAssigendGoals", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        task->TaskGoalRelation()->Remove(OTGRK);
        task->TasksGoals()->Remove(oGoalkey);
        if (Loud()) Events.Raise(&TasksColEvents::GoalChange, NumberOf(TaskKey), task->GoalsAsString());
    });
}

Boolean TasksCol::RemoveAssigendObstacles(const Variant& TaskKey, const Variant& OTGRK, const Variant& oObstacleskey) {
    return kTail.Run<Boolean>("RemoveAssigendObstacles", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        if (!task) return;
        task->TaskObstaclesRelation()->Remove(OTGRK);
        task->TaskObstacles()->Remove(oObstacleskey);
        if (Loud()) Events.Raise(&TasksColEvents::ObstaclesChange, NumberOf(TaskKey), task->ObstaclesAsString());
    });
}

Boolean TasksCol::RemoveNote(const Variant& TaskKey, const Variant& OTNK, const Variant& NoteKey) {
    return kTail.Run<Boolean>("RemoveNote", [&](Boolean&) {
        const Ref<TasksCls> task = Item(TaskKey);
        In(task->TaskNoteRelation()).RemoveOrRaise(OTNK.Key());
        task->TaskNotes()->Remove(NoteKey);
        if (Loud()) Events.Raise(&TasksColEvents::NoteChange, NumberOf(TaskKey), task->NoteAsString());
    });
}

Boolean TasksCol::UpdatePeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                         const Ref<PeopleCol>& oPeopleCol, const Variant& personkey) {
    return OnEveryTask("UpdatePeopleCollection", *this, [&](const Ref<TasksCls>& task) {
        const Boolean changed = task->UpdatePeopleCollection(oTaskPeopleRelationcol, oPeopleCol, personkey);
        if (changed && Loud()) Events.Raise(&TasksColEvents::AssigmentChange, task->TaskKey(), task->PeopleAsString());
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
