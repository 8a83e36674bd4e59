#pragma once

#include "mrlxmlclass/runtime/Flagged.h"
#include "mrlxmlclass/xml/XmlRecord.h"

namespace mrlxmlclass {

/// What the four relation records share: one task, one item, and the key of the tie itself. `ItemKey` is the type of
/// the item's key; `Note` is that of the description, Flagged where it has a Valid flag.
template <class Self, class ItemKey, class Note>
class Relation : public XmlRecord<Self> {
public:
    Relation();

    Long TaskKey() const { return f_.TaskKey; }
    void TaskKey(Long value) { f_.TaskKey = value; }
    /// Identity of the relation, a whole number as text: the key under which it stands in every collection, the
    /// project's, the task's and the item's. The copy that a task or an item holds may carry nothing but this.
    String elementKey() const { return f_.elementKey; }
    void elementKey(const String& key) { f_.elementKey = key; }

    Ref<Self> Clone();

    /// Reads one record; raises the counter of such keys in `oPublicStaticCls` to the key that is read.
    Boolean FromXmlFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls) {
        return this->ReadFile(FileName, oPublicStaticCls);
    }
    Boolean FromXml(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls) {
        return this->ReadText(xmlIn, oPublicStaticCls);
    }

    class Internal;

protected:
    /// Appends one element, `diff` and "Key", with the key of this relation.
    void WriteKey(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, const String& diff = {});
    /// The description of a kind whose flag guards it.
    String GuardedDescription();

    struct Fields {
        Long TaskKey;
        ItemKey item_key{};
        Note Description{};
        String elementName;
        String elementKey;
    };
    Fields f_;
};

}  // namespace mrlxmlclass
