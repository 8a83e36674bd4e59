#pragma once

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/OrderedStore.h"
#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

class StaticCls;

/// What all collections of the items floor share: their records, each under its key, and one section of the project
/// file.
template <class Self, class Record>
class RecordCol : public Counted {
public:
    using Held = Record;
    using Store = OrderedStore<KeyText, Ref<Record>>;

    /// Key counters and freed keys of the session. Nothing on a copy and, until some are lent, on the lists that a task
    /// or an item holds: assigning lends them to assignments, reading a file to a goal's relations.
    Ref<StaticCls> oPublicStaticCls;

    Long Count() const { return records_.size(); }
    /// The records as they stand now, in their order.
    Store NewEnum() const { return records_; }
    /// A collection with clones of all records, each under the key under which it stands here.
    Ref<Self> Clone();

    /// Adds the section to a document, or to a new one, and saves that over the file when `Save` is the full True.
    /// Gives the document; nothing when it has no root to add to.
    Ref<dom::Document> ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                 Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False,
                                 Boolean FileExist = False, Boolean Save = False);
    /// The records as the text of a document of their own.
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    /// Adds the records of such a text. A record that cannot be read, or whose key is taken, ends the reading: it is
    /// recorded, and what came before it stays.
    Boolean FromXml(const String& xmlIn);

    class Internal;

protected:
    RecordCol();
    Ref<dom::Document> ReadSection(const String& FileName, Boolean loaded, ByRef<Ref<dom::Document>>& xmlDoc,
                                   Boolean p_for_lib = False);
    void WriteRecords(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);

    Store records_;
    String element_name_;
};

}  // namespace mrlxmlclass
