#pragma once

#include "mrlxmlclass/items/Relation.h"

namespace mrlxmlclass {

/// The tie between a task and a goal.
class TaskGoalRelationCls : public Relation<TaskGoalRelationCls, Long, String> {
public:
    Long Goalkey() const { return f_.item_key; }
    void Goalkey(Long value) { f_.item_key = value; }
    String Description() const { return f_.Description; }
    void Description(const String& text) { f_.Description = text; }

    /// Appends this relation's key in an element named `diff` and "Key".
    void ToXmlIntkey(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, const String& diff = {}) {
        WriteKey(xmlDoc, xmlElm, diff);
    }
};

}  // namespace mrlxmlclass
