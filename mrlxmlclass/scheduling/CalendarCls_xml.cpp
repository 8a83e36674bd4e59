#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/xml/DictionaryText.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"CalendarCls"};
constexpr std::string_view kSection = "Calendar";

}  // namespace

Ref<dom::Document> CalendarCls::ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                          Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode,
                                          Boolean FileExist, Boolean Save) {
    return kTail.Run<Ref<dom::Document>>("ToXmlFile", [&](Ref<dom::Document>& result) {
        result = WriteSection({kSection, f_.elementName},
                              {FileName, xmlDoc, includeDocHeader, unicode, FileExist, Save}, BodyOf(*this));
    });
}

String CalendarCls::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    return kTail.Run<String>("ToXml", [&](String& result) {
        result = NewDocument(f_.elementName, includeDocHeader, unicode, BodyOf(*this))->xml();
    });
}

void CalendarCls::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        out.Write("CalendarKey", f_.CalendarKey);
        out.Write("NonWorkingDays", Conversions::CreateSucessorString(f_.NonWorkingDay));
        out.Write("Holiday", Conversions::CreateSucessorString(f_.Holiday));
        out.Write("ExceptionDay", Conversions::CreateSucessorString(f_.ExceptionDay));
    });
}

Ref<dom::Document> CalendarCls::FromXmlFile(const String& FileName, Boolean loaded, ByRef<Ref<dom::Document>> xmlDoc,
                                            Boolean p_adjust_date, const String& p_cur_date_format,
                                            const String& p_sys_date_format, const String& p_date_spe,
                                            const Ref<Dictionary>& p_cur, const Ref<Dictionary>& p_sys) {
    return kTail.Run<Ref<dom::Document>>("FromXmlFile", [&](Ref<dom::Document>& result) {
        const Ref<dom::Document> document = DocumentToRead(FileName, loaded, xmlDoc);
        const dom::Node section = RootOf(document).selectSingleNode(kSection);
        if (section) {
            In(*this).FromXmlInt(section, FirstElementIn(section),
                                 {p_adjust_date, p_cur_date_format, p_sys_date_format, p_date_spe, p_cur, p_sys});
        } else {
            In(*this).SetUsualWeekend();
        }
        result = document;
    });
}

Boolean CalendarCls::FromXml(const String& xmlIn) {
    return kTail.Run<Boolean>("FromXml", [&](Boolean& result) {
        ReadRoot(DocumentOfText(xmlIn), [&](dom::Node root, dom::Node first) { In(*this).FromXmlInt(root, first); });
        result = True;
    });
}

dom::Node CalendarCls::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const DateAdjustment& dates) {
    return kTail.Run<dom::Node>("FromXmlInt", [&](dom::Node& result) {
        self_.init();
        Fields& f = self_.f_;
        f.elementName = xmlParent.baseName();
        RecordReader in(xmlChild);
        in.Read("CalendarKey", f.CalendarKey);
        if (in.At("NonWorkingDays")) f.NonWorkingDay = Conversions::DictionaryToString(in.Take());
        if (in.At("Holiday")) f.Holiday = Conversions::DictionaryToString(in.Take(), dates);
        if (in.At("ExceptionDay")) f.ExceptionDay = Conversions::DictionaryToString(in.Take(), dates);
        result = in.position();
    });
}

}  // namespace mrlxmlclass
