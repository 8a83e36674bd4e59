#pragma once

#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/Section.h"
#include "mrlxmlclass/xml/XmlRecord_internal.h"

// What XmlRecord does. The source of each record includes this, and nobody else, and instantiates it behind the
// record's own view from inside: `Internal` with `elementName()`, `Write(RecordWriter&)` and
// `FromXmlInt(element, first child, Reading)`.
namespace mrlxmlclass {

template <class Record>
constexpr FailureTail kRecordTail{LabelOf<Record>::label};

template <class Record>
Ref<dom::Document> DocumentOfRecord(Record& record, Boolean header, Boolean unicode) {
    return NewDocument(In(record).elementName(), header, unicode, BodyOf(record));
}

template <class Record>
void ReadRecord(Record& record, const Ref<dom::Document>& document, const Reading& reading) {
    const Ref<Record> held(&record);  // whoever hears a yield may let go of it
    ReadRoot(document, [&](dom::Node root, dom::Node first) { In(record).FromXmlInt(root, first, reading); });
}

template <class Self>
void XmlRecord<Self>::ToXmlFile(const String& FileName, Boolean includeDocHeader, Boolean /*useNamespace*/,
                                Boolean unicode) {
    kRecordTail<Self>.Run(
        "ToXmlFile", [&] { DocumentOfRecord(static_cast<Self&>(*this), includeDocHeader, unicode)->Save(FileName); });
}

template <class Self>
String XmlRecord<Self>::ToXml(Boolean includeDocHeader, Boolean useNamespace, Boolean unicode) {
    return kRecordTail<Self>.template Run<String>("ToXml", [&](String& result) {
        const auto document = DocumentOfRecord(static_cast<Self&>(*this), includeDocHeader, unicode);
        if (useNamespace && !kNamespaceOf<Self>.empty()) {
            document->SetAttribute(document->documentElement(), "xmlns", kNamespaceOf<Self>);
        }
        result = document->xml();
    });
}

template <class Self>
void XmlRecord<Self>::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kRecordTail<Self>.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        In(static_cast<Self&>(*this)).Write(out);
    });
}

template <class Self>
Boolean XmlRecord<Self>::ReadFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib) {
    return kRecordTail<Self>.template Run<Boolean>("FromXmlFile", [&](Boolean& result) {
        ReadRecord(static_cast<Self&>(*this), DocumentOfFile(FileName), {oPublicStaticCls, p_for_lib});
        result = True;
    });
}

template <class Self>
Boolean XmlRecord<Self>::ReadText(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib) {
    return kRecordTail<Self>.template Run<Boolean>("FromXml", [&](Boolean& result) {
        ReadRecord(static_cast<Self&>(*this), DocumentOfText(xmlIn), {oPublicStaticCls, p_for_lib});
        result = True;
    });
}

}  // namespace mrlxmlclass
