#pragma once

#include "mrlxmlclass/items/RelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCls.h"

namespace mrlxmlclass {

/// Relations between tasks and notes: all of the project's, or those of one task.
class TaskNoteRelationCol : public RelationCol<TaskNoteRelationCol, TaskNoteRelationCls> {
public:
    /// Appends the relations, or with `onlykey` only their keys, each in an element `Key`.
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, Boolean onlykey = False) {
        Write(xmlDoc, xmlElm, onlykey);
    }
};

}  // namespace mrlxmlclass
