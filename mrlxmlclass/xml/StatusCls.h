#pragma once

#include "mrlxmlclass/xml/XmlRecord.h"

namespace mrlxmlclass {

/// A small record of its own file; no project file holds one.
class StatusCls : public XmlRecord<StatusCls> {
public:
    StatusCls();

    Long StatusDone() const { return f_.StatusDone; }
    void StatusDone(Long value) { f_.StatusDone = value; }
    Long StatusInProgress() const { return f_.StatusInProgress; }
    void StatusInProgress(Long value) { f_.StatusInProgress = value; }

    Ref<StatusCls> Clone();

    /// Both give False when the file or the text cannot be read; the fields that came before the bad one stay.
    Boolean FromXmlFile(const String& FileName) { return ReadFile(FileName); }
    Boolean FromXml(const String& xmlIn) { return ReadText(xmlIn); }

    class Internal;

private:
    struct Fields {
        Long StatusDone;
        Long StatusInProgress;
        String elementName = "Status";
    };
    Fields f_;
};

}  // namespace mrlxmlclass
