#pragma once

#include "mrlxmlclass/items/RelationCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCls.h"

namespace mrlxmlclass {

class TasksCol;

/// Relations between tasks and persons: all of the project's, or those of one task or one person.
class TaskAssigmentRelationCol : public RelationCol<TaskAssigmentRelationCol, TaskAssigmentRelationCls> {
public:
    /// Appends the relations, or with `onlykey` only their keys, each in an element `AddDiference` and "Key".
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, Boolean onlykey = False,
                  const String& AddDiference = {}) {
        Write(xmlDoc, xmlElm, onlykey, AddDiference);
    }
    /// Takes a key that a host reserves out of the freed ones. A key that is not there is recorded: False.
    Boolean IamNotAvailable(const String& p_key) { return TakeFreedKey(p_key); }
    /// After a person was deleted: takes the person's relations out of their tasks' lists and out of this one. The
    /// tasks' copies of the person stay, and nothing is raised.
    Boolean RemoveForRelatedPople(ByRef<String> p_person_key, ByRef<Ref<TasksCol>> p_task_col);
};

}  // namespace mrlxmlclass
