#include "mrlxmlclass/items/Relation.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/XmlRecord_members_internal.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{LabelOf<Self>::label, FailureTail::Gives::SoFar};

}  // namespace

template <class Self, class ItemKey, class Note>
Relation<Self, ItemKey, Note>::Relation() {
    f_.elementName = kRelationRow<Self>.element;
    f_.elementKey = kRelationRow<Self>.first_key;
}

template <class Self, class ItemKey, class Note>
Ref<Self> Relation<Self, ItemKey, Note>::Clone() {
    return kTail<Self>.template Run<Ref<Self>>("Clone", [&](Ref<Self>& result) {
        result = Make<Self>();
        result->f_ = f_;
    });
}

template <class Self, class ItemKey, class Note>
void Relation<Self, ItemKey, Note>::WriteKey(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, const String& diff) {
    kTail<Self>.Run("ToXmlIntkey", [&] { xmlDoc->AppendText(xmlElm, diff + "Key", f_.elementKey); });
}

template <class Self, class ItemKey, class Note>
String Relation<Self, ItemKey, Note>::GuardedDescription() {
    return kTail<Self>.template Run<String>("Description", [&](String& result) {
        if constexpr (std::same_as<Note, String>) {
            result = f_.Description;
        } else {
            if (!f_.Description.valid) RaiseNotValid("Description");
            result = f_.Description.value;
        }
    });
}

template <class Self, class ItemKey, class Note>
Boolean Relation<Self, ItemKey, Note>::Internal::IncrementID(const Ref<StaticCls>& oPublicStaticCls) {
    return kTail<Self>.template Run<Boolean>("IncrementID", [&](Boolean& result) {
        f_.elementKey = IssueKey(oPublicStaticCls, kRelationRow<Self>.counter, kRelationRow<Self>.draws_from).text();
        result = True;
    });
}

template <class Self, class ItemKey, class Note>
void Relation<Self, ItemKey, Note>::Internal::Write(RecordWriter& out) const {
    for (const RelationChild child : kRelationRow<Self>.order) {
        switch (child) {
            case RelationChild::Task:
                out.Write("TaskKey", f_.TaskKey);
                break;
            case RelationChild::Item:
                out.Write(kRelationRow<Self>.item_element, f_.item_key);
                break;
            case RelationChild::Description:
                out.Write("Description", f_.Description);
                break;
            case RelationChild::Key:
                out.Write("Key", f_.elementKey);
                break;
        }
    }
}

template <class Self, class ItemKey, class Note>
dom::Node Relation<Self, ItemKey, Note>::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild,
                                                              const Reading& reading) {
    f_ = Fields();
    f_.elementName = xmlParent.baseName();
    f_.elementKey = kRelationRow<Self>.first_key;
    RecordReader in(xmlChild);
    for (const RelationChild child : kRelationRow<Self>.order) {
        switch (child) {
            case RelationChild::Task:
                in.Read("TaskKey", f_.TaskKey);
                break;
            case RelationChild::Item:
                in.Read(kRelationRow<Self>.item_element, f_.item_key);
                break;
            case RelationChild::Description:
                in.Read("Description", f_.Description);
                break;
            case RelationChild::Key:
                if (!in.Read("Key", f_.elementKey)) break;
                In(reading.counters).RaiseTo(kRelationRow<Self>.counter, Conversions::StringToLong(f_.elementKey));
                break;
        }
    }
    return in.position();
}

template class XmlRecord<TaskGoalRelationCls>;
template class XmlRecord<TaskObstaclesRelationCls>;
template class XmlRecord<TaskAssigmentRelationCls>;
template class XmlRecord<TaskNoteRelationCls>;
template class Relation<TaskGoalRelationCls, Long, String>;
template class Relation<TaskObstaclesRelationCls, Long, String>;
template class Relation<TaskAssigmentRelationCls, Long, Flagged<String>>;
template class Relation<TaskNoteRelationCls, String, Flagged<String>>;

}  // namespace mrlxmlclass
