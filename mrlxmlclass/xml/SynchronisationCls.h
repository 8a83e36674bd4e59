#pragma once

#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/xml/XmlRecord.h"

namespace mrlxmlclass {

/// A small record of its own file, which tells what a project was last matched with; no project file holds one.
class SynchronisationCls : public XmlRecord<SynchronisationCls> {
public:
    SynchronisationCls();

    Long SynchronisationID() const { return f_.SynchronisationID; }
    void SynchronisationID(Long value) { f_.SynchronisationID = value; }
    Long ProjectID() const { return f_.ProjectID; }
    void ProjectID(Long value) { f_.ProjectID = value; }
    String SynchronisationApp() const { return f_.SynchronisationApp; }
    void SynchronisationApp(const String& name) { f_.SynchronisationApp = name; }
    Date SynchronisationLastDate() const { return f_.SynchronisationLastDate; }
    void SynchronisationLastDate(Date value) { f_.SynchronisationLastDate = value; }
    String SynchronisationFile() const { return f_.SynchronisationFile; }
    void SynchronisationFile(const String& path) { f_.SynchronisationFile = path; }

    Ref<SynchronisationCls> Clone();

    /// Both give False when the file or the text cannot be read; the fields that came before the bad one stay.
    Boolean FromXmlFile(const String& FileName) { return ReadFile(FileName); }
    Boolean FromXml(const String& xmlIn) { return ReadText(xmlIn); }

    class Internal;

private:
    struct Fields {
        Long SynchronisationID;
        Long ProjectID;
        String SynchronisationApp;
        Date SynchronisationLastDate;
        String SynchronisationFile;
        String elementName = "Synchronisation";
    };
    Fields f_;
};

}  // namespace mrlxmlclass
