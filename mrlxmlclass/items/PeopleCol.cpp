#include "mrlxmlclass/items/PeopleCol.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"PeopleCol", FailureTail::Gives::SoFar};

String WithoutBlanks(const String& text) {
    return Replace(text, " ", "");
}

}  // namespace

Boolean PeopleCol::SetTasksCollectionByID(const Variant& p_personleId,
                                          const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                          const Ref<TasksCol>& oTaskCol) {
    return kTail.Run<Boolean>("SetTasksCollectionByID", [&](Boolean& result) {
        In(*this).Find(p_personleId.Key())->SetTasksCollection(oTaskPeopleRelationcol, oTaskCol);
        result = True;
    });
}

Boolean PeopleCol::AssignePerson(const String& personkey, Integer TaskKey, const Ref<TasksCol>& oTaskCol,
                                 const Ref<TaskAssigmentRelationCol>& oTaskAssigCol, Boolean AssignTask,
                                 Boolean AssignPeople) {
    const Ref<PeopleCol> held(this);  // a listener may let go of the list, and of what it was called with
    return kTail.Run<Boolean>("AssignePerson", [&, oTaskCol, oTaskAssigCol](Boolean& result) {
        const auto relation = Make<TaskAssigmentRelationCls>();
        In(relation).IncrementID(oPublicStaticCls);
        relation->TaskKey(TaskKey);
        relation->personkey(Conversions::StringToLong(personkey));

        const Ref<peopleCls> person = In(*this).Find(personkey);
        const Ref<TaskAssigmentRelationCol> own = person->TaskPeopleRelation();
        if (!own->oPublicStaticCls) own->oPublicStaticCls = oPublicStaticCls;
        if (AssignPeople) own->AddItem(relation);
        if (AssignTask) oTaskCol->AddAssigment(KeyText(Long(TaskKey)).text(), relation, person);
        oTaskAssigCol->AddItem(relation);
        if (AssignPeople) person->Tasks()->AddItem(oTaskCol->Item(TaskKey));
        if (!person->Tasks()->oPublicStaticCls) person->Tasks()->oPublicStaticCls = oPublicStaticCls;
        result = True;
    });
}

Boolean PeopleCol::UnAssignePerson(const Variant& personkey, const Variant& TaskKey, const Ref<TasksCol>& oTaskCol,
                                   const Ref<TaskAssigmentRelationCol>& oTaskAssigCol) {
    const Ref<PeopleCol> held(this);  // a listener may let go of the list, and of what it was called with
    return kTail.Run<Boolean>("UnAssignePerson", [&, personkey, TaskKey, oTaskCol, oTaskAssigCol](Boolean& result) {
        const Ref<TasksCls> task = oTaskCol->Item(TaskKey);
        const Variant known = task->GetTaskPeopleRelation(personkey);
        if (!known.is_empty()) {
            // Kept: the person's own relation and copy of the task go stale; look-ups through the project pass them by.
            oTaskCol->RemoveAssigment(TaskKey, known, personkey);
            oTaskAssigCol->Remove(known);
        } else {
            const Ref<peopleCls> person = In(*this).Find(personkey.Key());
            const Variant key = person->FindRelationKey(TaskKey, oTaskAssigCol);
            if (!key.is_empty()) {
                const Ref<TaskAssigmentRelationCol> own = person->TaskPeopleRelation();
                own->oPublicStaticCls = oPublicStaticCls;
                own->Remove(key);
                oTaskAssigCol->Remove(key);
                if (!task->TaskCondidat()) {
                    oTaskCol->Remove(TaskKey, {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True, /*p_sort=*/True,
                                     /*p_arrange=*/True);
                }
            }
        }
        result = True;
    });
}

Boolean PeopleCol::RemoveTasksRelations(const Variant& TaskKey, const Ref<TaskAssigmentRelationCol>& TaskAssigR,
                                        const Ref<TasksCol>& oTaskCol, Boolean ForceDelete) {
    const Ref<PeopleCol> held(this);  // a listener may let go of the list, and of what it was called with
    return kTail.Run<Boolean>("RemoveTasksRelations", [&, TaskKey, TaskAssigR, oTaskCol](Boolean&) {
        for (const auto& entry : NewEnum()) {
            const Ref<TasksCls> task = oTaskCol->Item(TaskKey);  // unassigning may take the task away
            if (!task || (!task->isAssigned(entry.item->personkey()) && !ForceDelete)) continue;
            UnAssignePerson(entry.item->personkey(), TaskKey, oTaskCol, TaskAssigR);
            // Kept: it passes by what unassigning has just taken out of the project, so the person's copy goes stale.
            entry.item->RemoveTasksRelation(TaskKey, TaskAssigR);
        }
    });
}

Boolean PeopleCol::AlreadyLinked(const String& p_key) {
    return kTail.Run<Boolean>("AlreadyLinked", [&](Boolean& result) {
        const String wanted = WithoutBlanks(p_key);
        for (const auto& entry : NewEnum()) {
            if (WithoutBlanks(entry.item->PersonKeyChar()) != wanted) continue;
            result = True;
            return;
        }
    });
}

Long PeopleCol::Internal::FindPersonKeys(const String& name) const {
    for (const auto& entry : self_.NewEnum()) {
        if (entry.item->PersonName() == name) return entry.item->personkey();
    }
    return 0;
}

}  // namespace mrlxmlclass
