#pragma once

#include "mrlxmlclass/items/RecordCol.h"

namespace mrlxmlclass {

/// The library's own view of a collection.
template <class Self, class Record>
class RecordCol<Self, Record>::Internal {
public:
    explicit Internal(RecordCol& self) : self_(self) {}

    /// The element of a record.
    String elementName() const { return self_.element_name_; }
    void elementName(const String& name) { self_.element_name_ = name; }

    Store& records() { return self_.records_; }
    /// The record under that key; nothing, silently, when there is none.
    Ref<Record> Find(const KeyText& key) const {
        const Ref<Record>* record = self_.records_.Find(key);
        return record != nullptr ? *record : Ref<Record>();
    }
    /// Puts a record last; a key that is taken fails (457).
    void File(const KeyText& key, const Ref<Record>& record) {
        if (!self_.records_.Append(key, record)) Raise(failure::kDuplicateKey);
    }

    /// Adds the records from `xmlChild` on; gives the node at which it stopped. A failure is recorded, and ends it.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, Boolean p_for_lib = False);

protected:
    RecordCol& self_;
};

}  // namespace mrlxmlclass
