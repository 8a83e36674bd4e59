#include "mrlxmlclass/items/NotesCls.h"

#include <cmath>

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/XmlRecord_members_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{LabelOf<NotesCls>::label, FailureTail::Gives::SoFar};

}  // namespace

String NotesCls::NoteObject() {
    return kTail.Run<String>("NoteObject", [&](String& result) {
        if (!f_.NoteObject.valid) RaiseNotValid("NoteObject");
        result = f_.NoteObject.value;
    });
}

Ref<NotesCls> NotesCls::Clone() {
    return kTail.Run<Ref<NotesCls>>("Clone", [&](Ref<NotesCls>& result) {
        result = Make<NotesCls>();
        result->f_ = f_;
        result->f_.NoteLink.valid = True;
        result->NoteLinkValid(f_.NoteLink.valid);  // a link whose flag is down does not come along
    });
}

Long NotesCls::Internal::KeyNumber() const {
    const Double number = Conversions::StringToDouble(f_.NoteKey);
    if (std::floor(number) != number) Raise(failure::kTypeMismatch);
    return Long(number);
}

Boolean NotesCls::Internal::IncrementID(const Ref<StaticCls>& oPublicStaticCls) {
    return kTail.Run<Boolean>("IncrementID", [&](Boolean& result) {
        f_.NoteKey = Conversions::LongToString(In(oPublicStaticCls).NextKey(Keys::Note));
        result = True;
    });
}

void NotesCls::Internal::Write(RecordWriter& out) const {
    const dom::Node key = out.Wrapper("NoteKey");  // Kept: of a key that is no number an empty element stays behind
    out.document()->SetText(key, Conversions::ToText(KeyNumber()));
    out.Write("NoteDescription", f_.NoteDescription);
    if (f_.NoteLink.valid || !f_.NoteLink.value.empty()) out.Write("NoteLink", f_.NoteLink.value);
    out.Write("NoteObject", f_.NoteObject);
}

dom::Node NotesCls::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& reading) {
    f_ = Fields();
    f_.elementName = xmlParent.baseName();
    RecordReader in(xmlChild);
    if (Long key; in.Read("NoteKey", key)) {
        f_.NoteKey = Conversions::LongToString(key);
        In(reading.counters).RaiseTo(Keys::Note, key);
    }
    in.Read("NoteDescription", f_.NoteDescription);
    in.Read("NoteLink", f_.NoteLink);
    in.Read("NoteObject", f_.NoteObject);
    return in.position();
}

template class XmlRecord<NotesCls>;

}  // namespace mrlxmlclass
