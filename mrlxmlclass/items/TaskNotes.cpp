#include "mrlxmlclass/items/TaskNotes.h"

#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"TaskNotes", FailureTail::Gives::SoFar};

/// Not by way of `Key`: that would hold on to every text for good.
String TextOf(const Variant& value) {
    if (const String* text = value.If<String>()) return *text;
    if (const Long* number = value.If<Long>()) return Conversions::LongToString(*number);
    return value.is_missing() ? String() : value.Key().text();
}

Boolean FlagOf(const Variant& value) {
    if (const Boolean* flag = value.If<Boolean>()) return *flag;
    if (const Long* number = value.If<Long>()) return *number != 0;
    if (const String* text = value.If<String>()) return Conversions::StringToBoolean(*text);
    return False;
}

}  // namespace

TaskNotes::TaskNotes() {
    kTail.Run("Class_Initialize", [&] {
        EnsureErrorsHandler();
        oErrorHandler = Module().g_ErrorsHandler;
    });
}

Ref<NotesCls> TaskNotes::AddItem(const Ref<NotesCls>& newProperty) {
    return kTail.Run<Ref<NotesCls>>("AddItem", [&](Ref<NotesCls>& result) {
        const Ref<NotesCls> clone = newProperty->Clone();
        In(*this).File(In(clone).Key(), clone);
        result = clone;
    });
}

Ref<NotesCls> TaskNotes::Add(const String& elementName, const Variant& NoteObjectValid_Int, Boolean NoteObjectValid,
                             const Variant& NoteObject_Int, const String& NoteObject,
                             const Variant& NoteDescription_Int, const String& NoteDescription,
                             const Variant& NoteKey_Int, const String& NoteKey, const String& sKey) {
    return kTail.Run<Ref<NotesCls>>("Add", [&](Ref<NotesCls>& result) {
        const auto note = Make<NotesCls>();
        In(note).elementName(elementName);
        In(note).NoteObjectValid_Int(FlagOf(NoteObjectValid_Int));
        In(note).NoteObject_Int(TextOf(NoteObject_Int));
        In(note).NoteDescription_Int(TextOf(NoteDescription_Int));
        In(note).NoteKey_Int(TextOf(NoteKey_Int));
        note->NoteObjectValid(NoteObjectValid);
        note->NoteObject(NoteObject);
        note->NoteDescription(NoteDescription);
        note->NoteKey(NoteKey);
        In(*this).File(sKey.empty() ? KeyText() : KeyText(sKey), note);
        result = note;
    });
}

Ref<NotesCls> TaskNotes::Item(const Variant& Index) const {
    return kTail.Run<Ref<NotesCls>>("Item",
                                    [&](Ref<NotesCls>& result) { result = notes_[PlaceIn(notes_, Index)].item; });
}

void TaskNotes::Remove(const Variant& Index) {
    kTail.Run("Remove", [&] { notes_.RemoveAt(PlaceIn(notes_, Index)); });
}

}  // namespace mrlxmlclass
