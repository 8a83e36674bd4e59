#pragma once

#include "mrlxmlclass/items/NotesCls.h"
#include "mrlxmlclass/items/RecordCol.h"

namespace mrlxmlclass {

/// All notes of the project.
class NotesCol : public RecordCol<NotesCol, NotesCls> {
public:
    /// An empty note, filed under its empty key, so that a second one fails; see AddItem.
    Ref<NotesCls> Add();
    /// Stores and gives a clone; a note without a key gets one. A key that is taken is recorded and gives nothing.
    Ref<NotesCls> AddItem(const Ref<NotesCls>& newProperty);
    /// The note at a 1-based place (a number) or under a key (a text); an unknown one is recorded and gives nothing.
    Ref<NotesCls> Item(const Variant& Index) const;
    /// Takes out the note under `Key`, if `Index` is a place of this list at all. Both are needed; what is wrong with
    /// them is recorded.
    void Remove(Long Index, const String& Key = {});

    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) { WriteRecords(xmlDoc, xmlElm); }
    Ref<dom::Document> FromXmlFile(const String& FileName, Boolean loaded = True,
                                   ByRef<Ref<dom::Document>> xmlDoc = {}) {
        return ReadSection(FileName, loaded, xmlDoc);
    }
};

}  // namespace mrlxmlclass
