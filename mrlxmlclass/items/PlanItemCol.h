#pragma once

#include "mrlxmlclass/items/RecordCol.h"

namespace mrlxmlclass {

class TasksCol;

/// What the lists of people, goals and obstacles share. A key may be given as a number or as its text; it is never a
/// place.
template <class Self, class ItemOf, class Relations>
class PlanItemCol : public RecordCol<Self, ItemOf> {
public:
    /// A new item under a key that is issued. Kept: with any ID but an empty one the item has the key 0, whatever the
    /// ID, so that a second such call fails.
    Ref<ItemOf> Add(const Variant& ID = Variant::Missing{});
    /// Stores and gives a clone; an item without a key gets one. A key that is taken is recorded and gives nothing.
    Ref<ItemOf> AddItem(const Ref<ItemOf>& newProperty);
    /// The item under that key; an unknown one is recorded and gives nothing.
    Ref<ItemOf> Item(const Variant& Index) const;
    /// Takes the item out and, on the project's own list, keeps its key in the pool of freed ones. Silent, whatever
    /// goes wrong; relations stay.
    void Remove(const Variant& Index);
    /// Takes a key that a host reserves out of the freed ones. With no freed key at all True; one that is not among
    /// them is recorded: False.
    Boolean IamNotAvailable(const String& p_key);

    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) { this->WriteRecords(xmlDoc, xmlElm); }
    /// As of the common family; `p_for_lib` leaves the ties to tasks out.
    Ref<dom::Document> FromXmlFile(const String& FileName, Boolean loaded = True, ByRef<Ref<dom::Document>> xmlDoc = {},
                                   Boolean p_for_lib = False) {
        return this->ReadSection(FileName, loaded, xmlDoc, p_for_lib);
    }

    /// Sorts by position, ascending. Equal positions have no order to rely on. Gives False.
    Boolean SortMe();
    /// Fills the `Tasks` of every item anew, after a load; gives the last item's answer.
    Boolean SetTasksCollection(const Ref<Relations>& oTaskRelationcol, const Ref<TasksCol>& oTaskCol);
};

}  // namespace mrlxmlclass
