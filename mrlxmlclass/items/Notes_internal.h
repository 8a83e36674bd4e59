#pragma once

#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/RecordCol_internal.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/XmlRecord_internal.h"

namespace mrlxmlclass {

/// The library's own view of a note. What ends in `_Int` stores without any rule and touches no flag, but for the link.
class NotesCls::Internal {
public:
    explicit Internal(NotesCls& self) : f_(self.f_) {}

    void NoteKey_Int(const String& key) { f_.NoteKey = key; }
    void NoteDescription_Int(const String& text) { f_.NoteDescription = text; }
    void NoteLink_Int(const String& link) { f_.NoteLink.Let(link); }  // Kept: raises the flag, unlike all others.
    void NoteObject_Int(const String& text) { f_.NoteObject.value = text; }
    void NoteObjectValid_Int(Boolean flag) { f_.NoteObject.valid = flag; }
    String elementName() const { return f_.elementName; }
    void elementName(const String& name) { f_.elementName = name; }

    /// The key as a number; a text that is no whole number fails (13).
    Long KeyNumber() const;
    KeyText Key() const { return KeyText(KeyNumber()); }
    /// A note that was read without a key stands under the empty text.
    KeyText KeyOnceRead() const { return f_.NoteKey.empty() ? KeyText("") : Key(); }
    /// Issues a key; freed ones are never used again. A failure is recorded, and leaves the key as it is.
    Boolean IncrementID(const Ref<StaticCls>& oPublicStaticCls);

    void Write(RecordWriter& out) const;
    /// Reads the fields from `xmlChild` on; gives the element at which it stopped. Failures are the caller's.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& reading);

private:
    Fields& f_;
};

/// The library's own view of a task's notes.
class TaskNotes::Internal {
public:
    explicit Internal(TaskNotes& self) : self_(self) {}

    /// Puts a note last; a key that is taken fails (457).
    void File(const KeyText& key, const Ref<NotesCls>& note) {
        if (!self_.notes_.Append(key, note)) Raise(failure::kDuplicateKey);
    }

private:
    TaskNotes& self_;
};

}  // namespace mrlxmlclass
