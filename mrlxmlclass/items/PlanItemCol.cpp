#include "mrlxmlclass/items/PlanItemCol.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{kSectionRow<Self>.label, FailureTail::Gives::SoFar};

}  // namespace

template <class Self, class ItemOf, class Relations>
Ref<ItemOf> PlanItemCol<Self, ItemOf, Relations>::Add(const Variant& ID) {
    return kTail<Self>.template Run<Ref<ItemOf>>("Add", [&](Ref<ItemOf>& result) {
        const Ref<Self> held(static_cast<Self*>(this));  // a listener may let go of the list
        const auto item = Make<ItemOf>();
        In(item).elementName(this->element_name_);
        // Kept: an ID that is given is used for nothing, the item is filed under its key, 0.
        if (ID.is_missing() || ID.Key() == KeyText("")) In(item).IncrementID(this->oPublicStaticCls);
        In(static_cast<Self&>(*this)).File(In(item).Key(), item);
        result = item;
    });
}

template <class Self, class ItemOf, class Relations>
Ref<ItemOf> PlanItemCol<Self, ItemOf, Relations>::AddItem(const Ref<ItemOf>& newProperty) {
    return kTail<Self>.template Run<Ref<ItemOf>>("AddItem", [&](Ref<ItemOf>& result) {
        const Ref<Self> held(static_cast<Self*>(this));  // a listener may let go of the list
        const Ref<ItemOf> clone = newProperty->Clone();
        In(clone).elementName(this->element_name_);
        if (In(clone).key() == 0) In(clone).IncrementID(this->oPublicStaticCls);
        In(static_cast<Self&>(*this)).File(In(clone).Key(), clone);
        result = clone;
    });
}

template <class Self, class ItemOf, class Relations>
Ref<ItemOf> PlanItemCol<Self, ItemOf, Relations>::Item(const Variant& Index) const {
    return kTail<Self>.template Run<Ref<ItemOf>>("Item", [&](Ref<ItemOf>& result) {
        const Ref<ItemOf>* item = this->records_.Find(Index.Key());
        if (item == nullptr) Raise(failure::kUnknownKey);
        result = *item;
    });
}

template <class Self, class ItemOf, class Relations>
void PlanItemCol<Self, ItemOf, Relations>::Remove(const Variant& Index) {
    kTail<Self>.Silent().Run("Remove", [&] {
        const KeyText key = Index.Key();
        if (!this->records_.Remove(key)) return;
        if (this->oPublicStaticCls) In(this->oPublicStaticCls).Free(kItemRow<ItemOf>.freed, key);
    });
}

template <class Self, class ItemOf, class Relations>
Boolean PlanItemCol<Self, ItemOf, Relations>::IamNotAvailable(const String& p_key) {
    return kTail<Self>.template Run<Boolean>("IamNotAvailable", [&](Boolean& result) {
        const Ref<Collection> freed = In(this->oPublicStaticCls).PeekPool(kItemRow<ItemOf>.freed);
        if (freed && freed->Count() > 0) freed->Remove(p_key);
        result = True;
    });
}

template <class Self, class ItemOf, class Relations>
Boolean PlanItemCol<Self, ItemOf, Relations>::SortMe() {
    return kTail<Self>.template Run<Boolean>(kSectionRow<Self>.sorting,
                                             [&](Boolean&) { this->records_ = SortedByPosition(this->NewEnum()); });
}

template <class Self, class ItemOf, class Relations>
Boolean PlanItemCol<Self, ItemOf, Relations>::SetTasksCollection(const Ref<Relations>& oTaskRelationcol,
                                                                 const Ref<TasksCol>& oTaskCol) {
    return kTail<Self>.As(kSectionRow<Self>.wiring).template Run<Boolean>("SetTasksCollection", [&](Boolean& result) {
        for (const auto& entry : this->NewEnum()) result = entry.item->SetTasksCollection(oTaskRelationcol, oTaskCol);
    });
}

template class PlanItemCol<PeopleCol, peopleCls, TaskAssigmentRelationCol>;
template class PlanItemCol<GoalsCol, GoalsCls, TaskGoalRelationCol>;
template class PlanItemCol<obstaclesCol, ObstaclesCls, TaskObstaclesRelationCol>;

}  // namespace mrlxmlclass
