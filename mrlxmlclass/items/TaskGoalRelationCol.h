#pragma once

#include "mrlxmlclass/items/RelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCls.h"

namespace mrlxmlclass {

/// Relations between tasks and goals: all of the project's, or those of one task or one goal.
class TaskGoalRelationCol : public RelationCol<TaskGoalRelationCol, TaskGoalRelationCls> {
public:
    /// Appends the relations, or with `onlykey` only their keys, each in an element `diff` and "Key".
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, Boolean onlykey = False,
                  const String& diff = {}) {
        Write(xmlDoc, xmlElm, onlykey, diff);
    }
    /// Takes a key that a host reserves out of the freed ones. A key that is not there is recorded: False.
    Boolean IamNotAvailable(const String& p_key) { return TakeFreedKey(p_key); }
};

}  // namespace mrlxmlclass
