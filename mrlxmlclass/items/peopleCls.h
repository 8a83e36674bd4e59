#pragma once

#include "mrlxmlclass/items/PlanItem.h"
#include "mrlxmlclass/runtime/LazyCell.h"

namespace mrlxmlclass {

class TaskAssigmentRelationCol;

/// The fields of a person in their order.
struct PersonFields {
    Long key;
    Long position;
    Flagged<String> PersonKeyChar;
    String PersonName;
    String PersonFirstName;
    Flagged<String> PersonAddress;
    Flagged<String> PersonCompany;
    Flagged<String> PersonPhone;
    Flagged<String> PersonEmail;
    Flagged<String> PersonTitle;
    Flagged<String> PersonNoteKey;
    Guarded<TaskAssigmentRelationCol> relations;
    String elementName = "People";
    LazyCell<TasksCol> Tasks;
};

/// A person, or a company, that work can be assigned to. A text with a companion ending in `Valid` raises it when it is
/// set, and loses its content when the flag changes; the contact fields are carried for the host.
class peopleCls : public PlanItem<peopleCls, TaskAssigmentRelationCol, PersonFields> {
public:
    /// Unique in the project; 0 until one is issued.
    Long personkey() const { return f_.key; }
    void personkey(Long value) { f_.key = value; }
    /// Display order; see PeopleCol::SortMe.
    Long PersonPosition() const { return f_.position; }
    void PersonPosition(Long value) { f_.position = value; }
    String PersonName() const { return f_.PersonName; }
    void PersonName(const String& name) { f_.PersonName = name; }
    /// In memory only: never written, never read back.
    String PersonFirstName() const { return f_.PersonFirstName; }
    void PersonFirstName(const String& name) { f_.PersonFirstName = name; }
    /// A text key of the host's; see PeopleCol::AlreadyLinked.
    String PersonKeyChar() const { return f_.PersonKeyChar.value; }
    void PersonKeyChar(const String& text) { f_.PersonKeyChar.Let(text); }
    Boolean PersonKeyCharValid() const { return f_.PersonKeyChar.valid; }
    void PersonKeyCharValid(Boolean flag) { f_.PersonKeyChar.LetFlag(flag); }
    String PersonAddress() const { return f_.PersonAddress.value; }
    void PersonAddress(const String& text) { f_.PersonAddress.Let(text); }
    Boolean PersonAddressValid() const { return f_.PersonAddress.valid; }
    void PersonAddressValid(Boolean flag) { f_.PersonAddress.LetFlag(flag); }
    /// Stands for a person without a name. A clone always counts it as set.
    String PersonCompany() const { return f_.PersonCompany.value; }
    void PersonCompany(const String& text) { f_.PersonCompany.Let(text); }
    Boolean PersonCompanyValid() const { return f_.PersonCompany.valid; }
    void PersonCompanyValid(Boolean flag) { f_.PersonCompany.LetFlag(flag); }
    String PersonPhone() const { return f_.PersonPhone.value; }
    void PersonPhone(const String& text) { f_.PersonPhone.Let(text); }
    Boolean PersonPhoneValid() const { return f_.PersonPhone.valid; }
    void PersonPhoneValid(Boolean flag) { f_.PersonPhone.LetFlag(flag); }
    String PersonEmail() const { return f_.PersonEmail.value; }
    void PersonEmail(const String& text) { f_.PersonEmail.Let(text); }
    Boolean PersonEmailValid() const { return f_.PersonEmail.valid; }
    void PersonEmailValid(Boolean flag) { f_.PersonEmail.LetFlag(flag); }
    String PersonTitle() const { return f_.PersonTitle.value; }
    void PersonTitle(const String& text) { f_.PersonTitle.Let(text); }
    Boolean PersonTitleValid() const { return f_.PersonTitle.valid; }
    void PersonTitleValid(Boolean flag) { f_.PersonTitle.LetFlag(flag); }
    /// Reading one whose flag is down is recorded and gives "".
    String PersonNoteKey();
    void PersonNoteKey(const String& text) { f_.PersonNoteKey.Let(text); }
    Boolean PersonNoteKeyValid() const { return f_.PersonNoteKey.valid; }
    void PersonNoteKeyValid(Boolean flag) { f_.PersonNoteKey.LetFlag(flag); }
    /// This person's relations to tasks. Made on first read, which raises the flag; a change of the flag drops them.
    Ref<TaskAssigmentRelationCol> TaskPeopleRelation();
    void TaskPeopleRelation(const Ref<TaskAssigmentRelationCol>& relations) { f_.relations.Let(relations); }
    Boolean TaskPeopleRelationValid() const { return f_.relations.valid; }
    void TaskPeopleRelationValid(Boolean flag) { f_.relations.LetFlag(flag); }

    /// Shares the relations; the copies of the tasks stay behind.
    Ref<peopleCls> Clone();
    /// Unties this person from a task: takes the first relation that still leads there out of the person's list, and
    /// makes the person's copy of the task a candidate. Gives True.
    Boolean RemoveTasksRelation(const Variant& aTaskKey, const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol);

    class Internal;
};

}  // namespace mrlxmlclass
