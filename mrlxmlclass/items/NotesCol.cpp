#include "mrlxmlclass/items/NotesCol.h"

#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Tail.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"NotesCol", FailureTail::Gives::SoFar};

}  // namespace

Ref<NotesCls> NotesCol::Add() {
    return kTail.Run<Ref<NotesCls>>("Add", [&](Ref<NotesCls>& result) {
        const auto note = Make<NotesCls>();
        In(note).elementName(element_name_);
        In(*this).File(note->NoteKey(), note);  // Kept: under the key "", so a second one fails.
        result = note;
    });
}

Ref<NotesCls> NotesCol::AddItem(const Ref<NotesCls>& newProperty) {
    return kTail.Run<Ref<NotesCls>>("AddItem", [&](Ref<NotesCls>& result) {
        const Ref<NotesCls> clone = newProperty->Clone();
        In(clone).elementName(element_name_);
        if (clone->NoteKey().empty()) In(clone).IncrementID(oPublicStaticCls);
        In(*this).File(In(clone).Key(), clone);
        result = clone;
    });
}

Ref<NotesCls> NotesCol::Item(const Variant& Index) const {
    return kTail.Run<Ref<NotesCls>>("Item",
                                    [&](Ref<NotesCls>& result) { result = records_[PlaceIn(records_, Index)].item; });
}

void NotesCol::Remove(Long Index, const String& Key) {
    kTail.Run("Remove", [&] {
        if (Index < 1 || Index > Count()) {
            Raise(failure::kDeliberate, "index " + std::to_string(Index.value()) + "is out of range, use 1 - " +
                                            std::to_string(Count().value()));
        }
        // Kept: a key that is left out is the key "", so that nothing is removed by its place alone.
        if (!records_.Remove(Key)) Raise(failure::kUnknownKey);
    });
}

}  // namespace mrlxmlclass
