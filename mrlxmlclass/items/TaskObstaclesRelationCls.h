#pragma once

#include "mrlxmlclass/items/Relation.h"

namespace mrlxmlclass {

/// The tie between a task and an obstacle.
class TaskObstaclesRelationCls : public Relation<TaskObstaclesRelationCls, Long, String> {
public:
    Long Obstaclekey() const { return f_.item_key; }
    void Obstaclekey(Long value) { f_.item_key = value; }
    String Description() const { return f_.Description; }
    void Description(const String& text) { f_.Description = text; }

    /// Appends this relation's key in an element `Key`.
    void ToXmlIntkey(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) { WriteKey(xmlDoc, xmlElm); }
};

}  // namespace mrlxmlclass
