#pragma once

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/Flagged.h"

namespace mrlxmlclass {

/// The project's own record: what stands directly under the root of a project file.
///
/// A value with a companion ending in `Valid` raises that flag when it is set and is written only while the flag is up;
/// a change of the flag clears the value.
class ProjectsCls : public Counted {
public:
    ProjectsCls();

    Long ProjectID() const { return f_.ProjectID; }
    void ProjectID(Long value) { f_.ProjectID = value; }
    String ProjectName() const { return f_.ProjectName; }
    void ProjectName(const String& name) { f_.ProjectName = name; }
    /// Written, but never read back: a host that wants to keep it sets it anew after each load.
    Date ProjectCreationDate() const { return f_.ProjectCreationDate; }
    void ProjectCreationDate(Date value) { f_.ProjectCreationDate = value; }
    Date ProjectStartLine() const { return f_.ProjectStartLine.value; }
    void ProjectStartLine(Date value) { f_.ProjectStartLine.Let(value); }
    Boolean ProjectStartLineValid() const { return f_.ProjectStartLine.valid; }
    void ProjectStartLineValid(Boolean flag) { f_.ProjectStartLine.LetFlag(flag); }
    Date ProjectDeadLine() const { return f_.ProjectDeadLine.value; }
    void ProjectDeadLine(Date value) { f_.ProjectDeadLine.Let(value); }
    Boolean ProjectDeadLineValid() const { return f_.ProjectDeadLine.valid; }
    void ProjectDeadLineValid(Boolean flag) { f_.ProjectDeadLine.LetFlag(flag); }
    /// Lines end with carriage return and line feed after a load.
    String ProjectDescription() const { return f_.ProjectDescription.value; }
    void ProjectDescription(const String& text) { f_.ProjectDescription.Let(text); }
    Boolean ProjectDescriptionValid() const { return f_.ProjectDescription.valid; }
    void ProjectDescriptionValid(Boolean flag) { f_.ProjectDescription.LetFlag(flag); }
    /// Reading it while its flag is down is recorded as a failure (1) and gives 0.
    Long ProjectOwnerIdentifier() const;
    void ProjectOwnerIdentifier(Long value) { f_.ProjectOwnerIdentifier.Let(value); }
    Boolean ProjectOwnerIdentifierValid() const { return f_.ProjectOwnerIdentifier.valid; }
    void ProjectOwnerIdentifierValid(Boolean flag) { f_.ProjectOwnerIdentifier.LetFlag(flag); }
    String ProjectOwnerName() const { return f_.ProjectOwnerName.value; }
    void ProjectOwnerName(const String& name) { f_.ProjectOwnerName.Let(name); }
    Boolean ProjectOwnerNameValid() const { return f_.ProjectOwnerName.valid; }
    void ProjectOwnerNameValid(Boolean flag) { f_.ProjectOwnerName.LetFlag(flag); }
    Long ProjectCalendarkey() const { return f_.ProjectCalendarkey; }
    void ProjectCalendarkey(Long value) { f_.ProjectCalendarkey = value; }
    /// "Project"; after reading, the name of the root that was read.
    String elementName() const { return f_.elementName; }
    void elementName(const String& name) { f_.elementName = name; }
    /// The short date pattern in which the file's dates are written; "" only where the session never saved the record.
    String DateFormat() const { return f_.DateFormat; }
    void DateFormat(const String& pattern) { f_.DateFormat = pattern; }
    /// Lives in memory only.
    Boolean islocked() const { return f_.islocked; }
    void islocked(Boolean value) { f_.islocked = value; }
    /// Bits that the host gives a meaning.
    Integer previewsettings() const { return f_.previewsettings; }
    void previewsettings(Integer value) { f_.previewsettings = value; }

    /// A copy whose start line is this project's deadline.
    Ref<ProjectsCls> Clone();

    /// Writes the fields directly under the root. The declaration never names an encoding. Gives the document, or
    /// nothing when it has no root or could not be saved.
    Ref<dom::Document> ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                 Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False,
                                 Boolean FileExist = False, Boolean Save = False);
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    /// Reads the fields under the root, from a file or, when `loaded`, from the document handed in. Gives the document,
    /// or nothing when there is no file or no root. A field that cannot be read ends the record; what came before
    /// stays, and the document is given all the same.
    Ref<dom::Document> FromXmlFile(const String& FileName, Boolean loaded = False,
                                   ByRef<Ref<dom::Document>> xmlDoc = {});
    Boolean FromXml(const String& xmlIn);

private:
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild);

    /// The record's fields in their order.
    struct Fields {
        Long ProjectID;
        String ProjectName;
        Date ProjectCreationDate;
        Flagged<Date> ProjectStartLine;
        Flagged<Date> ProjectDeadLine;
        Flagged<String> ProjectDescription;
        Flagged<Long> ProjectOwnerIdentifier;
        Flagged<String> ProjectOwnerName;
        Long ProjectCalendarkey;
        String elementName = "Project";
        String DateFormat;
        Boolean islocked;
        Integer previewsettings;
    };
    Fields f_;
};

}  // namespace mrlxmlclass
