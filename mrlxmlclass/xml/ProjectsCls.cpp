#include "mrlxmlclass/xml/ProjectsCls.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"ProjectsCls"};

/// The parser hands every line end back as a line feed; here they become what the host's text boxes need.
void WithCarriageReturns(String& text) {
    text = Replace(Replace(text, "\r\n", "\n"), "\n", "\r\n");
}

}  // namespace

ProjectsCls::ProjectsCls() {
    EnsureErrorsHandler();
}

Long ProjectsCls::ProjectOwnerIdentifier() const {
    return kTail.Run<Long>("ProjectOwnerIdentifier", [&](Long& result) {
        if (!f_.ProjectOwnerIdentifier.valid) RaiseNotValid("ProjectOwnerIdentifier");
        result = f_.ProjectOwnerIdentifier.value;
    });
}

Ref<ProjectsCls> ProjectsCls::Clone() {
    return kTail.Run<Ref<ProjectsCls>>("Clone", [&](Ref<ProjectsCls>& result) {
        auto copy = Make<ProjectsCls>();
        copy->f_ = f_;
        // Kept: the copy starts on the deadline; the flag is the start line's own.
        copy->f_.ProjectStartLine.value = f_.ProjectDeadLine.value;
        result = copy;
    });
}

Ref<dom::Document> ProjectsCls::ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                          Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode,
                                          Boolean FileExist, Boolean Save) {
    // Kept: this one member signs as "Projectcls".
    return kTail.As("Projectcls").Run<Ref<dom::Document>>("ToXmlFile", [&](Ref<dom::Document>& result) {
        // Kept: whatever encoding is asked for, the declaration names none.
        result = WriteSection({"Project", f_.elementName, Declaration::Plain},
                              {FileName, xmlDoc, includeDocHeader, unicode, FileExist, Save}, BodyOf(*this));
    });
}

String ProjectsCls::ToXml(Boolean includeDocHeader, Boolean /*useNamespace*/, Boolean unicode) {
    return kTail.Run<String>("ToXml", [&](String& result) {
        result = NewDocument(f_.elementName, includeDocHeader, unicode, BodyOf(*this))->xml();
    });
}

void ProjectsCls::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kTail.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        RecordWriter out(xmlDoc, xmlElm);
        out.Write("ProjectID", f_.ProjectID);
        out.Write("ProjectName", f_.ProjectName);
        out.Write("ProjectCreationDate", f_.ProjectCreationDate);
        out.Write("ProjectStartLine", f_.ProjectStartLine);
        out.Write("ProjectDeadLine", f_.ProjectDeadLine);
        out.Write("ProjectDescription", f_.ProjectDescription);
        out.Write("ProjectOwnerIdentifier", f_.ProjectOwnerIdentifier);
        out.Write("ProjectOwnerName", f_.ProjectOwnerName);
        out.Write("ProjectCalendarkey", f_.ProjectCalendarkey);
        out.Write("DateFormat", f_.DateFormat);
        out.Write("PreviewSettings", f_.previewsettings);
    });
}

Ref<dom::Document> ProjectsCls::FromXmlFile(const String& FileName, Boolean loaded, ByRef<Ref<dom::Document>> xmlDoc) {
    return kTail.Run<Ref<dom::Document>>("FromXmlFile", [&](Ref<dom::Document>& result) {
        const Ref<dom::Document> document = DocumentToRead(FileName, loaded, xmlDoc);
        ReadRoot(document, [&](dom::Node root, dom::Node first) { FromXmlInt(root, first); });
        result = document;
    });
}

Boolean ProjectsCls::FromXml(const String& xmlIn) {
    return kTail.Run<Boolean>("FromXml", [&](Boolean& result) {
        ReadRoot(DocumentOfText(xmlIn), [&](dom::Node root, dom::Node first) { FromXmlInt(root, first); });
        result = True;
    });
}

dom::Node ProjectsCls::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild) {
    return kTail.Run<dom::Node>("FromXmlInt", [&](dom::Node& result) {
        f_ = Fields();
        f_.elementName = xmlParent.baseName();
        RecordReader in(xmlChild);
        in.Read("ProjectID", f_.ProjectID);
        in.Read("ProjectName", f_.ProjectName);
        in.Skip("ProjectCreationDate");  // Kept: stepped over, so the date is 0 after every load.
        // Kept: the two lines are read as they stand; day and month of another format are not put in order.
        in.Read("ProjectStartLine", f_.ProjectStartLine);
        in.Read("ProjectDeadLine", f_.ProjectDeadLine);
        if (in.Read("ProjectDescription", f_.ProjectDescription)) WithCarriageReturns(f_.ProjectDescription.value);
        in.Read("ProjectOwnerIdentifier", f_.ProjectOwnerIdentifier);
        in.Read("ProjectOwnerName", f_.ProjectOwnerName);
        in.Read("ProjectCalendarkey", f_.ProjectCalendarkey);
        in.Read("DateFormat", f_.DateFormat);
        in.Read("PreviewSettings", f_.previewsettings);
        result = in.position();
    });
}

}  // namespace mrlxmlclass
