#pragma once

#include "mrlxmlclass/items/RecordCol.h"

namespace mrlxmlclass {

/// What the four relation collections share. A key may be given as a number or as its text; it is never a place.
template <class Self, class Record>
class RelationCol : public RecordCol<Self, Record> {
public:
    /// A new relation under `ID`, or under a key that is issued. A key that is taken is recorded and gives nothing.
    Ref<Record> Add(const String& ID = {});
    /// Stores and gives a clone; most kinds issue a key to one whose key counts as 0. A key counts as the number that
    /// its leading digits are, so that "7x" is 7 and "x" is 0.
    Ref<Record> AddItem(const Ref<Record>& newProperty);
    /// The relation under that key, or nothing.
    Ref<Record> Item(const Variant& key) const;
    /// Takes a relation out. The key of an assignment is kept for a later one; that of a goal relation is kept too, but
    /// never used again.
    void Remove(const Variant& key);

    /// As of the common family; `xmlDoc` receives the document that is read when it is not `loaded`.
    Ref<dom::Document> FromXmlFile(const String& FileName, Boolean loaded = True,
                                   ByRef<Ref<dom::Document>> xmlDoc = {}) {
        return this->ReadSection(FileName, loaded, xmlDoc);
    }

    class Internal;

protected:
    /// Writes the records, or with `onlykey` a bare list of their keys, each in an element `diff` and "Key".
    void Write(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, Boolean onlykey, const String& diff = {});
    /// Takes a key that somebody reserves out of the freed ones; one that is not there fails, and is recorded.
    Boolean TakeFreedKey(const String& p_key);
};

}  // namespace mrlxmlclass
