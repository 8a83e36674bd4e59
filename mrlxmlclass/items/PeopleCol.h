#pragma once

#include "mrlxmlclass/items/PlanItemCol.h"
#include "mrlxmlclass/items/peopleCls.h"

namespace mrlxmlclass {

/// People: all of the project's, or copies of those on one task.
class PeopleCol : public PlanItemCol<PeopleCol, peopleCls, TaskAssigmentRelationCol> {
public:
    /// Fills the `Tasks` of one person anew. Gives True.
    Boolean SetTasksCollectionByID(const Variant& p_personleId,
                                   const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                   const Ref<TasksCol>& oTaskCol);
    /// Assigns a person to a task: in `oTaskAssigCol`, on the task's side (`AssignTask`; raises `AssigmentChange`) and
    /// on the person's (`AssignPeople`). Whether the task has the person already is for the host to ask. Gives True.
    Boolean AssignePerson(const String& personkey, Integer TaskKey, const Ref<TasksCol>& oTaskCol,
                          const Ref<TaskAssigmentRelationCol>& oTaskAssigCol, Boolean AssignTask = True,
                          Boolean AssignPeople = True);
    /// Takes a person off a task, on the task's side and in `oTaskAssigCol`; raises `AssigmentChange`. The person's own
    /// lists keep their entries. Where only the person knows the pair, the person's side goes, and a candidate with it.
    /// Gives True.
    Boolean UnAssignePerson(const Variant& personkey, const Variant& TaskKey, const Ref<TasksCol>& oTaskCol,
                            const Ref<TaskAssigmentRelationCol>& oTaskAssigCol);
    /// When a task is deleted: takes every person of this list off it. `ForceDelete` also unties people that the task
    /// itself does not know. Gives False.
    Boolean RemoveTasksRelations(const Variant& TaskKey, const Ref<TaskAssigmentRelationCol>& TaskAssigR,
                                 const Ref<TasksCol>& oTaskCol, Boolean ForceDelete = False);
    /// True when some person has that `PersonKeyChar`; blanks do not count.
    Boolean AlreadyLinked(const String& p_key);

    class Internal;
};

}  // namespace mrlxmlclass
