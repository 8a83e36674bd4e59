#include "mrlxmlclass/items/XmlRecord.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{LabelOf<Self>::label};

template <class Self>
Ref<dom::Document> DocumentOf(Self& record, Boolean header, Boolean unicode) {
    return NewDocument(In(record).elementName(), header, unicode, BodyOf(record));
}

template <class Self>
void ReadRecord(Self& record, const Ref<dom::Document>& document, const Reading& reading) {
    ReadRoot(document, [&](dom::Node root, dom::Node first) { In(record).FromXmlInt(root, first, reading); });
}

}  // namespace

template <class Self>
void XmlRecord<Self>::ToXmlFile(const String& FileName, Boolean includeDocHeader, Boolean /*useNamespace*/,
                                Boolean unicode) {
    kTail<Self>.Run("ToXmlFile",
                    [&] { DocumentOf(static_cast<Self&>(*this), includeDocHeader, unicode)->Save(FileName); });
}

template <class Self>
String XmlRecord<Self>::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    return kTail<Self>.template Run<String>("ToXml", [&](String& result) {
        result = DocumentOf(static_cast<Self&>(*this), includeDocHeader, unicode)->xml();
    });
}

template <class Self>
void XmlRecord<Self>::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail<Self>.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        In(static_cast<Self&>(*this)).Write(out);
    });
}

template <class Self>
Boolean XmlRecord<Self>::ReadFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib) {
    return kTail<Self>.template Run<Boolean>("FromXmlFile", [&](Boolean& result) {
        ReadRecord(static_cast<Self&>(*this), DocumentOfFile(FileName), {oPublicStaticCls, p_for_lib});
        result = True;
    });
}

template <class Self>
Boolean XmlRecord<Self>::ReadText(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib) {
    return kTail<Self>.template Run<Boolean>("FromXml", [&](Boolean& result) {
        ReadRecord(static_cast<Self&>(*this), DocumentOfText(xmlIn), {oPublicStaticCls, p_for_lib});
        result = True;
    });
}

template class XmlRecord<peopleCls>;
template class XmlRecord<GoalsCls>;
template class XmlRecord<ObstaclesCls>;
template class XmlRecord<NotesCls>;
template class XmlRecord<TaskGoalRelationCls>;
template class XmlRecord<TaskObstaclesRelationCls>;
template class XmlRecord<TaskAssigmentRelationCls>;
template class XmlRecord<TaskNoteRelationCls>;

}  // namespace mrlxmlclass
