#include "mrlxmlclass/xml/StatusCls.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"StatusCls"};
constexpr std::string_view kNamespace = "urn:mrlxmlclass:status";

}  // namespace

StatusCls::StatusCls() {
    EnsureErrorsHandler();
}

Ref<StatusCls> StatusCls::Clone() {
    return kTail.Run<Ref<StatusCls>>("Clone", [&](Ref<StatusCls>& result) {
        auto copy = Make<StatusCls>();
        copy->f_ = f_;
        result = copy;
    });
}

Ref<dom::Document> StatusCls::Written(Boolean includeDocHeader, Boolean unicode) {
    return NewDocument(f_.elementName, includeDocHeader, unicode, BodyOf(*this));
}

void StatusCls::ToXmlFile(const String& FileName, Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    kTail.Run("ToXmlFile", [&] { Written(includeDocHeader, unicode)->Save(FileName); });
}

String StatusCls::ToXml(Boolean includeDocHeader, Boolean useNamespace, Boolean unicode) {
    return kTail.Run<String>("ToXml", [&](String& result) {
        const Ref<dom::Document> document = Written(includeDocHeader, unicode);
        if (useNamespace) document->SetAttribute(document->documentElement(), "xmlns", kNamespace);
        result = document->xml();
    });
}

void StatusCls::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        out.Write("StatusDone", f_.StatusDone);
        out.Write("StatusInProgress", f_.StatusInProgress);
    });
}

Boolean StatusCls::FromXmlFile(const String& FileName) {
    return kTail.Run<Boolean>("FromXmlFile", [&](Boolean& result) {
        ReadRoot(DocumentOfFile(FileName), [&](dom::Node root, dom::Node first) { FromXmlInt(root, first); });
        result = True;
    });
}

Boolean StatusCls::FromXml(const String& xmlIn) {
    return kTail.Run<Boolean>("FromXml", [&](Boolean& result) {
        ReadRoot(DocumentOfText(xmlIn), [&](dom::Node root, dom::Node first) { FromXmlInt(root, first); });
        result = True;
    });
}

dom::Node StatusCls::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild) {
    f_ = Fields();
    f_.elementName = xmlParent.baseName();
    RecordReader in(xmlChild);
    in.Read("StatusDone", f_.StatusDone);
    in.Read("StatusInProgress", f_.StatusInProgress);
    return in.position();
}

}  // namespace mrlxmlclass
