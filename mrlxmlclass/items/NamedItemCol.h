#pragma once

#include "mrlxmlclass/items/PlanItemCol.h"

namespace mrlxmlclass {

/// What the lists of goals and obstacles share.
template <class Self, class ItemOf, class Relations>
class NamedItemCol : public PlanItemCol<Self, ItemOf, Relations> {
public:
    /// When a task is deleted: unties every item of this list from it. Gives True.
    Boolean RemoveTasksRelations(const Variant& TaskKey, const Ref<Relations>& TaskRelations,
                                 const Ref<TasksCol>& oTaskCol);

protected:
    Boolean Assigne(const String& item_key, Integer TaskKey, const Ref<TasksCol>& oTaskCol,
                    const Ref<Relations>& relations);
    Boolean UnAssigne(const Variant& item_key, const Variant& TaskKey, const Ref<TasksCol>& oTaskCol,
                      const Ref<Relations>& relations);
    enum class Answer { kOfTheItem, kTrue };
    Boolean SetTasksCollectionOf(const char* member_label, const Variant& item_key, const Ref<Relations>& relations,
                                 const Ref<TasksCol>& oTaskCol, Answer answer);
};

}  // namespace mrlxmlclass
