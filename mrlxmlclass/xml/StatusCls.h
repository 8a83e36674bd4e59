#pragma once

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// A small record of its own file; no project file holds one.
class StatusCls : public Counted {
public:
    StatusCls();

    Long StatusDone() const { return f_.StatusDone; }
    void StatusDone(Long value) { f_.StatusDone = value; }
    Long StatusInProgress() const { return f_.StatusInProgress; }
    void StatusInProgress(Long value) { f_.StatusInProgress = value; }

    Ref<StatusCls> Clone();

    /// Writes a new file that holds this record alone.
    void ToXmlFile(const String& FileName, Boolean includeDocHeader = True, Boolean useNamespace = False,
                   Boolean unicode = False);
    /// `useNamespace` puts the root into a default namespace; nowhere else does it do anything.
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    /// Both give False when the file or the text cannot be read; the fields that came before the bad one stay.
    Boolean FromXmlFile(const String& FileName);
    Boolean FromXml(const String& xmlIn);

private:
    Ref<dom::Document> Written(Boolean includeDocHeader, Boolean unicode);
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild);

    struct Fields {
        Long StatusDone;
        Long StatusInProgress;
        String elementName = "Status";
    };
    Fields f_;
};

}  // namespace mrlxmlclass
