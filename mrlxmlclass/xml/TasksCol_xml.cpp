#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
constexpr std::string_view kSection = "Tasks";

void WriteTask(const Ref<TasksCls>& task, const String& element_name, const Ref<dom::Document>& document,
               dom::Node parent) {
    task->ToXmlInt(document, document->AppendElement(parent, element_name));
}

}  // namespace

Ref<dom::Document> TasksCol::ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                       Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode,
                                       Boolean FileExist, Boolean Save) {
    return kTail.Run<Ref<dom::Document>>("ToXmlFile", [&](Ref<dom::Document>& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        // Kept: a document of its own gets no declaration.
        result =
            WriteSection({kSection, element_name_, Declaration::None},
                         {FileName, xmlDoc, includeDocHeader, unicode, FileExist, Save},
                         [&](const Ref<dom::Document>& document, dom::Node section) {
                             document->SetAttribute(section, "scheduler", Conversions::BooleanToString(GanttVisted));
                             SortMe(False);
                             ToXmlInt(document, section);
                         });
    });
}

String TasksCol::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    // Kept: this one and FromXml sign as a task does, FromXmlFile as the goals do.
    return kTail.As("TasksCls").Run<String>("ToXml", [&](String& result) {
        result = NewDocument(element_name_, includeDocHeader, unicode, BodyOf(*this))->xml();
    });
}

String TasksCol::ToXmlPart(const Ref<Collection>& p_col, Boolean includeDocHeader, Boolean /*useNamespace*/,
                           Boolean unicode) {
    return kTail.Run<String>("ToXmlPart", [&](String& result) {
        result = NewDocument(element_name_, includeDocHeader, unicode,
                             [&](const Ref<dom::Document>& document, dom::Node root) {
                                 ToXmlIntPartial(p_col, document, root);
                             })
                     ->xml();
    });
}

void TasksCol::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlInt", [&, xmlDoc] {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        for (const auto& entry : NewEnum()) WriteTask(entry.item, element_name_, xmlDoc, xmlElm);
    });
}

void TasksCol::ToXmlIntPartial(const Ref<Collection>& p_col, const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlIntPartial", [&, xmlDoc] {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        for (const auto& entry : p_col->Snapshot()) {
            const Ref<TasksCls> task = Item(entry.item);
            if (!task) Raise(failure::kNothing);
            WriteTask(task, element_name_, xmlDoc, xmlElm);
        }
    });
}

Ref<dom::Document> TasksCol::FromXmlFile(const String& FileName, Boolean loaded, ByRef<Ref<dom::Document>> xmlDoc,
                                         Boolean p_for_lib, Boolean p_adjust_date, const String& p_cur_date_format,
                                         const String& p_sys_date_format, const String& p_date_spe,
                                         const Ref<Dictionary>& p_cur, const Ref<Dictionary>& p_sys) {
    return kTail.As("GoalsCol").Run<Ref<dom::Document>>("FromXmlFile", [&](Ref<dom::Document>& result) {
        const Ref<TasksCol> held(this);  // whoever hears a yield may let go of the collection
        const Ref<dom::Document> document = DocumentToRead(FileName, loaded, xmlDoc);
        const auto contents = document->Contents();  // whoever hears a yield may load it anew
        const dom::Node section = RootOf(document).selectSingleNode(kSection);
        if (!section) Raise(failure::kNothing, "The document has no Tasks element");
        if (section.HasAttribute("scheduler")) {
            GanttVisted = Conversions::StringToBoolean(section.Attribute("scheduler"));
        }
        if (const dom::Node first = FirstElementIn(section)) {
            FromXmlInt(section, first, p_for_lib, p_adjust_date, p_cur_date_format, p_sys_date_format, p_date_spe,
                       p_cur, p_sys);
        }
        const Boolean needs_repair = AddTaskParentForAll();
        if (!p_for_lib && (needs_repair || In(*this).GetMaxPos() > Count())) In(*this).FixProject();
        result = document;
    });
}

Boolean TasksCol::FromXml(const String& xmlIn, const Ref<StaticCls>& counters) {
    return kTail.As("TasksCls").Run<Boolean>("FromXml", [&](Boolean& result) {
        const Ref<TasksCol> held(this);  // whoever hears a yield may let go of the collection
        const Ref<dom::Document> document = DocumentOfText(xmlIn);
        const dom::Node root = RootOf(document);
        const Ref<StaticCls> own = std::exchange(oPublicStaticCls, counters);
        FromXmlInt(root, FirstElementIn(root));
        oPublicStaticCls = own;
        result = True;
    });
}

dom::Node TasksCol::FromXmlInt(dom::Node /*xmlParent*/, dom::Node xmlChild, Boolean p_for_lib, Boolean p_adjust_date,
                               const String& p_cur_date_format, const String& p_sys_date_format,
                               const String& p_date_spe, const Ref<Dictionary>& p_cur, const Ref<Dictionary>& p_sys) {
    return kTail.Run<dom::Node>("FromXmlInt", [&](dom::Node& result) {
        const Ref<TasksCol> held(this);  // whoever hears a yield may let go of the collection
        const DateAdjustment dates{p_adjust_date, p_cur_date_format, p_sys_date_format, p_date_spe, p_cur, p_sys};
        result = ReadItems(xmlChild, element_name_, [&](dom::Node item) {
            auto task = Make<TasksCls>();
            In(task).elementName(element_name_);
            In(task).FromXmlInt(item, FirstElementIn(item), oPublicStaticCls, p_for_lib, dates);
            In(*this).File(task->TaskKey(), task);
        });
    });
}

}  // namespace mrlxmlclass
