#include "mrlxmlclass/items/NamedItemCol.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail::Gives kSoFar = FailureTail::Gives::SoFar;
template <class Self>
constexpr FailureTail kTail{kSectionRow<Self>.label, kSoFar};
template <class Self>
constexpr FailureTail kAssigningTail{kSectionRow<Self>.assigning, kSoFar};

}  // namespace

template <class Self, class ItemOf, class Relations>
Boolean NamedItemCol<Self, ItemOf, Relations>::Assigne(const String& item_key, Integer TaskKey,
                                                       const Ref<TasksCol>& oTaskCol, const Ref<Relations>& relations) {
    const Ref<Self> held(static_cast<Self*>(this));  // a host may let go of the list, and of what it was called with
    const auto assigne = [&, item_key, oTaskCol, relations](Boolean& result) {
        const auto relation = Make<typename Relations::Held>();
        In(relation).IncrementID(this->oPublicStaticCls);
        relation->TaskKey(TaskKey);
        In(relation).item_key(Conversions::StringToLong(item_key));
        const Ref<ItemOf> item = In(static_cast<Self&>(*this)).Find(item_key);
        In(item).ReadRelations()->AddItem(relation);
        relations->AddItem(relation);
        item->Tasks()->AddItem(oTaskCol->Item(TaskKey));
        result = True;
    };
    return kAssigningTail<Self>.template Run<Boolean>(kSectionRow<Self>.assigne, assigne);
}

template <class Self, class ItemOf, class Relations>
Boolean NamedItemCol<Self, ItemOf, Relations>::UnAssigne(const Variant& item_key, const Variant& TaskKey,
                                                         const Ref<TasksCol>& /*oTaskCol*/,
                                                         const Ref<Relations>& relations) {
    const Ref<Self> held(static_cast<Self*>(this));  // a host may let go of the list, and of what it was called with
    return kAssigningTail<Self>.template Run<Boolean>(
        kSectionRow<Self>.unassigne, [&, TaskKey, relations](Boolean& result) {
            const Ref<ItemOf> item = In(static_cast<Self&>(*this)).Find(item_key.Key());
            const Variant key = item->FindRelationKey(TaskKey, relations);
            if (key.is_empty()) return;
            In(item).ReadRelations()->Remove(key);
            // Kept: the copy of the task becomes a candidate of the item's own list, and stays there. It shares its
            // lists with the live task, which loses its links where they are live, and its place below its parent where
            // the item has a copy of the parent too.
            item->Tasks()->Remove(TaskKey, {}, {}, {}, {}, {}, {}, /*ForceDelete=*/False, /*p_sort=*/True,
                                  /*p_arrange=*/True);
            relations->Remove(key);
            result = True;
        });
}

template <class Self, class ItemOf, class Relations>
Boolean NamedItemCol<Self, ItemOf, Relations>::RemoveTasksRelations(const Variant& TaskKey,
                                                                    const Ref<Relations>& TaskRelations,
                                                                    const Ref<TasksCol>& oTaskCol) {
    const Ref<Self> held(static_cast<Self*>(this));  // a host may let go of the list while it is yielded to
    return kTail<Self>.template Run<Boolean>("RemoveTasksRelations", [&, TaskKey, TaskRelations](Boolean& result) {
        for (const auto& entry : this->NewEnum()) UnAssigne(In(entry.item).key(), TaskKey, oTaskCol, TaskRelations);
        result = True;
    });
}

template <class Self, class ItemOf, class Relations>
Boolean NamedItemCol<Self, ItemOf, Relations>::SetTasksCollectionOf(const char* member_label, const Variant& item_key,
                                                                    const Ref<Relations>& relations,
                                                                    const Ref<TasksCol>& oTaskCol, Answer answer) {
    return kTail<Self>.template Run<Boolean>(member_label, [&](Boolean& result) {
        const Ref<ItemOf> item = In(static_cast<Self&>(*this)).Find(item_key.Key());
        const Boolean wired = item->SetTasksCollection(relations, oTaskCol);
        result = answer == Answer::kTrue ? True : wired;
    });
}

template class NamedItemCol<GoalsCol, GoalsCls, TaskGoalRelationCol>;
template class NamedItemCol<obstaclesCol, ObstaclesCls, TaskObstaclesRelationCol>;

}  // namespace mrlxmlclass
