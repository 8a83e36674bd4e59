#pragma once

#include "mrlxmlclass/items/Relation.h"

namespace mrlxmlclass {

/// The tie between a task and a person.
class TaskAssigmentRelationCls : public Relation<TaskAssigmentRelationCls, Long, Flagged<String>> {
public:
    Long personkey() const { return f_.item_key; }
    void personkey(Long value) { f_.item_key = value; }
    /// Reading one whose flag is down is recorded and gives "". A change of the flag clears it.
    String Description() { return GuardedDescription(); }
    void Description(const String& text) { f_.Description.Let(text); }
    Boolean DescriptionValid() const { return f_.Description.valid; }
    void DescriptionValid(Boolean flag) { f_.Description.LetFlag(flag); }

    /// Appends this relation's key in an element named `diff` and "Key".
    void ToXmlIntkey(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, const String& diff = {}) {
        WriteKey(xmlDoc, xmlElm, diff);
    }
};

}  // namespace mrlxmlclass
