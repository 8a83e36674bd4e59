#include "mrlxmlclass/items/PlanItem.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{LabelOf<Self>::label, FailureTail::Gives::SoFar};

}  // namespace

template <class Self, class Relations, class FieldsOf>
Ref<TasksCol> PlanItem<Self, Relations, FieldsOf>::Tasks() {
    return kTail<Self>.template Run<Ref<TasksCol>>(
        "Tasks", [&](Ref<TasksCol>& result) { result = f_.Tasks.ReadOr([] { return Make<TasksCol>(); }); });
}

template <class Self, class Relations, class FieldsOf>
Boolean PlanItem<Self, Relations, FieldsOf>::SetTasksCollection(const Ref<Relations>& oTaskRelationcol,
                                                                const Ref<TasksCol>& TaskCol) {
    const Ref<Self> held(static_cast<Self*>(this));  // a listener may let go of it, and of what it was called with
    const auto wire = [&, oTaskRelationcol, TaskCol](Boolean& result) {
        if constexpr (kItemRow<Self>.drops_copies) {
            f_.Tasks.Set({});
        } else {
            In(Tasks()).RemoveALL();
        }
        if (const Ref<Relations> own = Internal(*this).PeekRelations()) {
            for (const auto& entry : own->NewEnum()) {
                const auto relation = oTaskRelationcol->Item(entry.item->elementKey());
                if (kItemRow<Self>.wants_relation && !relation) continue;
                const Ref<TasksCls> task = TaskCol->Item(relation->TaskKey());
                if (kItemRow<Self>.wants_task && !task) continue;
                Tasks()->AddItem(task);
            }
        }
        result = True;
    };
    return kTail<Self>.As(kItemRow<Self>.wiring).template Run<Boolean>("SetTasksCollection", wire);
}

template <class Self, class Relations, class FieldsOf>
Boolean PlanItem<Self, Relations, FieldsOf>::TaskAssigned(const Variant& TaskKey, const Ref<Relations>& cTaskRelation) {
    return kTail<Self>.template Run<Boolean>("TaskAssigned", [&](Boolean& result) {
        result = !Internal(*this).FirstRelationTo(TaskKey.KeyValue(), cTaskRelation).none();
    });
}

template <class Self, class Relations, class FieldsOf>
Variant PlanItem<Self, Relations, FieldsOf>::FindRelationKey(const Variant& TaskKey,
                                                             const Ref<Relations>& cTaskRelation) {
    return kTail<Self>.template Run<Variant>("FindRelationKey", [&](Variant& result) {
        const KeyText key = Internal(*this).FirstRelationTo(TaskKey.KeyValue(), cTaskRelation);
        if (!key.none()) result = key.text();
    });
}

template <class Self, class Relations, class FieldsOf>
Boolean PlanItem<Self, Relations, FieldsOf>::Internal::IncrementID(const Ref<StaticCls>& oPublicStaticCls) {
    return kTail<Self>.template Run<Boolean>("IncrementID", [&](Boolean& result) {
        f_.key = IssueKey(oPublicStaticCls, kItemRow<Self>.counter, kItemRow<Self>.draws_from).Number();
        result = True;
    });
}

template <class Self, class Relations, class FieldsOf>
void PlanItem<Self, Relations, FieldsOf>::Internal::WriteKey(RecordWriter& out) const {
    out.Write(kItemRow<Self>.key_element, f_.key);
}

template <class Self, class Relations, class FieldsOf>
void PlanItem<Self, Relations, FieldsOf>::Internal::WriteRelations(RecordWriter& out) const {
    if (!f_.relations.valid) return;
    const dom::Node wrapper = out.Wrapper(kItemRow<Self>.relations_element);
    if (const Ref<Relations> own = PeekRelations()) own->ToXmlInt(out.document(), wrapper, /*onlykey=*/True);
}

template <class Self, class Relations, class FieldsOf>
void PlanItem<Self, Relations, FieldsOf>::Internal::ReadKey(RecordReader& in, const Reading& reading) {
    if (in.Read(kItemRow<Self>.key_element, f_.key)) In(reading.counters).RaiseTo(kItemRow<Self>.counter, f_.key);
}

template <class Self, class Relations, class FieldsOf>
void PlanItem<Self, Relations, FieldsOf>::Internal::ReadRelationKeys(RecordReader& in, const Reading& reading) {
    if (reading.for_lib || !in.At(kItemRow<Self>.relations_element)) return;
    const auto own = Make<Relations>();
    In(own).FromXmlInt(in.position(), in.position().firstChild(), /*onlykey=*/True);
    if (kItemRow<Self>.lends_counters) own->oPublicStaticCls = reading.counters;
    f_.relations.Let(own);
    in.Step();
}

template class PlanItem<peopleCls, TaskAssigmentRelationCol, PersonFields>;
template class PlanItem<GoalsCls, TaskGoalRelationCol, NamedItemFields<TaskGoalRelationCol>>;
template class PlanItem<ObstaclesCls, TaskObstaclesRelationCol, NamedItemFields<TaskObstaclesRelationCol>>;

}  // namespace mrlxmlclass
