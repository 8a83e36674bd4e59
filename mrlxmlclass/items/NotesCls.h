#pragma once

#include "mrlxmlclass/runtime/Flagged.h"
#include "mrlxmlclass/xml/XmlRecord.h"

namespace mrlxmlclass {

/// A text with an optional link or attachment, tied to one task.
class NotesCls : public XmlRecord<NotesCls> {
public:
    /// Unique in the project, a whole number as text; "" until one is issued.
    String NoteKey() const { return f_.NoteKey; }
    void NoteKey(const String& key) { f_.NoteKey = key; }
    String NoteDescription() const { return f_.NoteDescription; }
    void NoteDescription(const String& text) { f_.NoteDescription = text; }
    /// A link, or the path of an attachment. A change of the flag clears it.
    String NoteLink() const { return f_.NoteLink.value; }
    void NoteLink(const String& link) { f_.NoteLink.Let(link); }
    Boolean NoteLinkValid() const { return f_.NoteLink.valid; }
    void NoteLinkValid(Boolean flag) { f_.NoteLink.LetFlag(flag); }
    /// Carried for the host. Reading one whose flag is down is recorded and gives "". A change of the flag clears it.
    String NoteObject();
    void NoteObject(const String& text) { f_.NoteObject.Let(text); }
    Boolean NoteObjectValid() const { return f_.NoteObject.valid; }
    void NoteObjectValid(Boolean flag) { f_.NoteObject.LetFlag(flag); }

    Ref<NotesCls> Clone();

    /// Reads one record and raises the counter of note keys in `oPublicStaticCls` to the key that is read.
    Boolean FromXmlFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls) {
        return ReadFile(FileName, oPublicStaticCls);
    }
    Boolean FromXml(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls) {
        return ReadText(xmlIn, oPublicStaticCls);
    }

    class Internal;

private:
    struct Fields {
        String NoteKey;
        String NoteDescription;
        Flagged<String> NoteLink;
        Flagged<String> NoteObject;
        String elementName = "Notes";
    };
    Fields f_;
};

}  // namespace mrlxmlclass
