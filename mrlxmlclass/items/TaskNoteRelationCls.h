#pragma once

#include "mrlxmlclass/items/Relation.h"

namespace mrlxmlclass {

/// The tie between a task and a note.
class TaskNoteRelationCls : public Relation<TaskNoteRelationCls, String, Flagged<String>> {
public:
    String NoteKey() const { return f_.item_key; }
    void NoteKey(const String& key) { f_.item_key = key; }
    /// Reading one whose flag is down is recorded and gives "". A change of the flag clears it.
    String Description() { return GuardedDescription(); }
    void Description(const String& text) { f_.Description.Let(text); }
    Boolean DescriptionValid() const { return f_.Description.valid; }
    void DescriptionValid(Boolean flag) { f_.Description.LetFlag(flag); }

    /// Appends this relation's key in an element `Key`.
    void ToXmlIntkey(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) { WriteKey(xmlDoc, xmlElm); }
};

}  // namespace mrlxmlclass
