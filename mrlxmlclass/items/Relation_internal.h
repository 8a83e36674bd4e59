#pragma once

#include <concepts>

#include "mrlxmlclass/items/RecordCol_internal.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/XmlRecord_internal.h"

namespace mrlxmlclass {

/// The library's own view of a relation. What ends in `_Int` stores without touching a flag.
template <class Self, class ItemKey, class Note>
class Relation<Self, ItemKey, Note>::Internal {
public:
    explicit Internal(Relation& self) : f_(self.f_) {}

    void TaskKey_Int(Long value) { f_.TaskKey = value; }
    void Description_Int(const String& text) {
        if constexpr (std::same_as<Note, String>) {
            f_.Description = text;
        } else {
            f_.Description.value = text;
        }
    }
    /// For the kinds that have that flag.
    void DescriptionValid_Int(Boolean flag) {
        if constexpr (!std::same_as<Note, String>) f_.Description.valid = flag;
    }
    String elementName() const { return f_.elementName; }
    void elementName(const String& name) { f_.elementName = name; }

    const ItemKey& item_key() const { return f_.item_key; }
    void item_key(const ItemKey& key) { f_.item_key = key; }
    KeyText Key() const { return KeyText(f_.elementKey); }
    /// Issues an `elementKey`. A failure is recorded, and leaves the key as it is.
    Boolean IncrementID(const Ref<StaticCls>& oPublicStaticCls);

    void Write(RecordWriter& out) const;
    /// Reads the fields from `xmlChild` on; gives the element at which it stopped. Failures are the caller's.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& reading);

private:
    Fields& f_;
};

/// The library's own view of a collection of relations.
template <class Self, class Record>
class RelationCol<Self, Record>::Internal : public RecordCol<Self, Record>::Internal {
public:
    explicit Internal(RelationCol& self) : RecordCol<Self, Record>::Internal(self), relations_(self) {}

    /// With `onlykey` adds a bare record for each element `AddDiference` and "Key", holding that key alone; otherwise
    /// whole records. Gives the node at which it stopped. A failure is recorded, and ends it.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, Boolean onlykey = False,
                         const String& AddDiference = {});
    /// As the public one, but what goes wrong is the caller's failure.
    void RemoveOrRaise(const KeyText& key);

private:
    RelationCol& relations_;
};

}  // namespace mrlxmlclass
