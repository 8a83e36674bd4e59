#pragma once

#include "mrlxmlclass/items/NotesCls.h"
#include "mrlxmlclass/runtime/Collection.h"

namespace mrlxmlclass {

class ErrorsHandler;

/// Copies of the notes of one task, in the order in which they came. Of them a task's element in the file
/// holds nothing but the keys of the relations that lead to them.
class TaskNotes : public Counted {
public:
    using Store = OrderedStore<KeyText, Ref<NotesCls>>;

    TaskNotes();

    Ref<ErrorsHandler> oErrorHandler;

    /// Stores and gives a clone, under the number that its key is.
    Ref<NotesCls> AddItem(const Ref<NotesCls>& newProperty);
    /// A new note of these values, under `sKey`, or under no key when that is empty. Of each pair the variant comes
    /// first, without any rule, then the other through its property.
    Ref<NotesCls> Add(const String& elementName, const Variant& NoteObjectValid_Int, Boolean NoteObjectValid,
                      const Variant& NoteObject_Int, const String& NoteObject, const Variant& NoteDescription_Int,
                      const String& NoteDescription, const Variant& NoteKey_Int, const String& NoteKey,
                      const String& sKey = {});
    /// The note at a 1-based place (a number) or under a key (a text); an unknown one is recorded and gives nothing.
    Ref<NotesCls> Item(const Variant& Index) const;
    Long Count() const { return notes_.size(); }
    /// By place or by key, as `Item`.
    void Remove(const Variant& Index);
    Store NewEnum() const { return notes_; }

    class Internal;

private:
    Store notes_;
};

}  // namespace mrlxmlclass
