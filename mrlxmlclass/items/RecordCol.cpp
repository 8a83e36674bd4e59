#include "mrlxmlclass/items/RecordCol.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{kSectionRow<Self>.label};
template <class Self>
constexpr FailureTail kLifetimeTail{kSectionRow<Self>.lifetime};

}  // namespace

template <class Self, class Record>
RecordCol<Self, Record>::RecordCol() : element_name_(kSectionRow<Self>.element) {
    kLifetimeTail<Self>.Run("Class_Initialize", [] { EnsureErrorsHandler(); });
}

template <class Self, class Record>
Ref<Self> RecordCol<Self, Record>::Clone() {
    return kTail<Self>.template Run<Ref<Self>>("Clone", [&](Ref<Self>& result) {
        const auto clone = Make<Self>();
        In(clone).elementName(element_name_);
        for (const auto& entry : NewEnum()) In(clone).File(entry.key, entry.item->Clone());
        result = clone;
    });
}

template <class Self, class Record>
Ref<dom::Document> RecordCol<Self, Record>::ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                                      Boolean includeDocHeader, Boolean /*useNamespace*/,
                                                      Boolean unicode, Boolean FileExist, Boolean Save) {
    return kLifetimeTail<Self>.template Run<Ref<dom::Document>>("ToXmlFile", [&](Ref<dom::Document>& result) {
        result = WriteSection({kSectionRow<Self>.section, element_name_},
                              {FileName, xmlDoc, includeDocHeader, unicode, FileExist, Save},
                              BodyOf(static_cast<Self&>(*this)));
    });
}

template <class Self, class Record>
String RecordCol<Self, Record>::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    return kTail<Self>.template Run<String>("ToXml", [&](String& result) {
        result = NewDocument(element_name_, includeDocHeader, unicode, BodyOf(static_cast<Self&>(*this)))->xml();
    });
}

template <class Self, class Record>
void RecordCol<Self, Record>::WriteRecords(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail<Self>.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        for (const auto& entry : NewEnum()) {
            entry.item->ToXmlInt(xmlDoc, xmlDoc->AppendElement(xmlElm, element_name_));
        }
    });
}

template <class Self, class Record>
Ref<dom::Document> RecordCol<Self, Record>::ReadSection(const String& FileName, Boolean loaded,
                                                        ByRef<Ref<dom::Document>>& xmlDoc, Boolean p_for_lib) {
    return kTail<Self>.template Run<Ref<dom::Document>>("FromXmlFile", [&](Ref<dom::Document>& result) {
        const Ref<dom::Document> document = DocumentToRead(FileName, loaded, xmlDoc);
        const auto contents = document->Contents();  // whoever hears a yield may load it anew
        const dom::Node section = RootOf(document).selectSingleNode(kSectionRow<Self>.section);
        if (section) Internal(*this).FromXmlInt(section, section.firstChild(), p_for_lib);
        result = document;
    });
}

template <class Self, class Record>
Boolean RecordCol<Self, Record>::FromXml(const String& xmlIn) {
    return kTail<Self>.template Run<Boolean>("FromXml", [&](Boolean& result) {
        const Ref<dom::Document> document = DocumentOfText(xmlIn);
        const dom::Node root = RootOf(document);
        Internal(*this).FromXmlInt(root, root.firstChild());
        result = True;
    });
}

template <class Self, class Record>
dom::Node RecordCol<Self, Record>::Internal::FromXmlInt(dom::Node /*xmlParent*/, dom::Node xmlChild,
                                                        Boolean p_for_lib) {
    return kTail<Self>.template Run<dom::Node>("FromXmlInt", [&](dom::Node& result) {
        const Ref<RecordCol> held(&self_);  // whoever hears a yield may let go of the collection
        result = ReadItems(xmlChild, self_.element_name_, [&](dom::Node element) {
            const auto record = Make<Record>();
            In(record).FromXmlInt(element, FirstElementIn(element), {self_.oPublicStaticCls, p_for_lib});
            if constexpr (requires { In(record).KeyOnceRead(); }) {
                File(In(record).KeyOnceRead(), record);
            } else {
                File(In(record).Key(), record);
            }
        });
    });
}

template class RecordCol<PeopleCol, peopleCls>;
template class RecordCol<GoalsCol, GoalsCls>;
template class RecordCol<obstaclesCol, ObstaclesCls>;
template class RecordCol<NotesCol, NotesCls>;
template class RecordCol<TaskGoalRelationCol, TaskGoalRelationCls>;
template class RecordCol<TaskObstaclesRelationCol, TaskObstaclesRelationCls>;
template class RecordCol<TaskAssigmentRelationCol, TaskAssigmentRelationCls>;
template class RecordCol<TaskNoteRelationCol, TaskNoteRelationCls>;

}  // namespace mrlxmlclass
