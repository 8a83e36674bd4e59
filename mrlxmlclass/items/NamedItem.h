#pragma once

#include "mrlxmlclass/items/PlanItem.h"
#include "mrlxmlclass/runtime/LazyCell.h"

namespace mrlxmlclass {

/// The fields of a goal and of an obstacle, in their order.
template <class Relations>
struct NamedItemFields {
    Long key;
    Long position;
    String name;
    Flagged<String> link;
    String elementName;
    LazyCell<TasksCol> Tasks;
    Flagged<String> description;
    Guarded<Relations> relations;
};

/// Goals and obstacles are one design: a name, a link and a description, tied to tasks.
template <class Self, class Relations>
class NamedItem : public PlanItem<Self, Relations, NamedItemFields<Relations>> {
public:
    NamedItem();

    /// Shares the relations and the copies of the tasks.
    Ref<Self> Clone();

    class Internal;

protected:
    /// The link, whose flag guards it.
    String GuardedLink();
    /// The relations, made on first read, which raises the flag.
    Ref<Relations> ReadRelations();
};

}  // namespace mrlxmlclass
