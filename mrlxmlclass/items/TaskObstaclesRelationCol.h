#pragma once

#include "mrlxmlclass/items/RelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCls.h"

namespace mrlxmlclass {

/// Relations between tasks and obstacles: all of the project's, or those of one task or one obstacle.
class TaskObstaclesRelationCol : public RelationCol<TaskObstaclesRelationCol, TaskObstaclesRelationCls> {
public:
    /// Appends the relations, or with `onlykey` only their keys, each in an element `Key`.
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, Boolean onlykey = False) {
        Write(xmlDoc, xmlElm, onlykey);
    }
    /// Takes a key that a host reserves out of the freed ones. A key that is not there is recorded: False.
    Boolean IamNotAvailable(const String& p_key) { return TakeFreedKey(p_key); }
};

}  // namespace mrlxmlclass
