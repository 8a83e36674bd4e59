#include "mrlxmlclass/xml/SynchronisationCls.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"SynchronisationCls"};

}  // namespace

SynchronisationCls::SynchronisationCls() {
    EnsureErrorsHandler();
}

Ref<SynchronisationCls> SynchronisationCls::Clone() {
    return kTail.Run<Ref<SynchronisationCls>>("Clone", [&](Ref<SynchronisationCls>& result) {
        auto copy = Make<SynchronisationCls>();
        copy->f_ = f_;
        result = copy;
    });
}

Ref<dom::Document> SynchronisationCls::Written(Boolean includeDocHeader, Boolean unicode) {
    return NewDocument(f_.elementName, includeDocHeader, unicode, BodyOf(*this));
}

void SynchronisationCls::ToXmlFile(const String& FileName, Boolean includeDocHeader, Boolean /*useNamespace*/,
                                   Boolean unicode) {
    kTail.Run("ToXmlFile", [&] { Written(includeDocHeader, unicode)->Save(FileName); });
}

String SynchronisationCls::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    return kTail.Run<String>("ToXml", [&](String& result) { result = Written(includeDocHeader, unicode)->xml(); });
}

void SynchronisationCls::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        out.Write("SynchronisationID", f_.SynchronisationID);
        out.Write("ProjectID", f_.ProjectID);
        out.Write("SynchronisationApp", f_.SynchronisationApp);
        out.Write("SynchronisationLastDate", f_.SynchronisationLastDate);
        out.Write("SynchronisationFile", f_.SynchronisationFile);
    });
}

Boolean SynchronisationCls::FromXmlFile(const String& FileName) {
    return kTail.Run<Boolean>("FromXmlFile", [&](Boolean& result) {
        ReadRoot(DocumentOfFile(FileName), [&](dom::Node root, dom::Node first) { FromXmlInt(root, first); });
        result = True;
    });
}

Boolean SynchronisationCls::FromXml(const String& xmlIn) {
    return kTail.Run<Boolean>("FromXml", [&](Boolean& result) {
        ReadRoot(DocumentOfText(xmlIn), [&](dom::Node root, dom::Node first) { FromXmlInt(root, first); });
        result = True;
    });
}

dom::Node SynchronisationCls::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild) {
    f_ = Fields();
    f_.elementName = xmlParent.baseName();
    RecordReader in(xmlChild);
    in.Read("SynchronisationID", f_.SynchronisationID);
    in.Read("ProjectID", f_.ProjectID);
    in.Read("SynchronisationApp", f_.SynchronisationApp);
    in.Read("SynchronisationLastDate", f_.SynchronisationLastDate);
    in.Read("SynchronisationFile", f_.SynchronisationFile);
    return in.position();
}

}  // namespace mrlxmlclass
