#include "mrlxmlclass/items/peopleCls.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/XmlRecord_members_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{LabelOf<peopleCls>::label, FailureTail::Gives::SoFar};

}  // namespace

String peopleCls::PersonNoteKey() {
    return kTail.Run<String>("PersonNoteKey", [&](String& result) {
        if (!f_.PersonNoteKey.valid) RaiseNotValid("PersonNoteKey");
        result = f_.PersonNoteKey.value;
    });
}

Ref<TaskAssigmentRelationCol> peopleCls::TaskPeopleRelation() {
    return kTail.Run<Ref<TaskAssigmentRelationCol>>("TaskPeopleRelation", [&](Ref<TaskAssigmentRelationCol>& result) {
        result = In(*this).ReadRelations();
        if (!result) RaiseNotValid("TaskPeopleRelation");
    });
}

Ref<peopleCls> peopleCls::Clone() {
    return kTail.Run<Ref<peopleCls>>("Clone", [&](Ref<peopleCls>& result) {
        f_.relations.Share();
        result = Make<peopleCls>();
        result->f_ = f_;
        result->f_.Tasks = {};
        result->PersonCompany(f_.PersonCompany.value);  // Kept: a clone's company counts as set, and is written empty.
    });
}

Boolean peopleCls::RemoveTasksRelation(const Variant& aTaskKey,
                                       const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol) {
    // Kept: recorded under the name of another member.
    return kTail.Run<Boolean>("SetTasksCollection", [&](Boolean& result) {
        const Ref<peopleCls> held(this);  // a listener may let go of it
        const KeyText key = In(*this).FirstRelationTo(oTaskPeopleRelationcol, [wanted = aTaskKey.Key()](Long task_key) {
            return KeyText(task_key) == wanted;  // as texts, here alone
        });
        if (!key.none()) {
            TaskPeopleRelation()->Remove(key.text());
            // Kept: the copy becomes a candidate and stays. It shares its lists with the live task: where the person
            // has a copy of the parent too, the live parent loses the child.
            Tasks()->Remove(aTaskKey, {}, {}, {}, {}, {}, {}, /*ForceDelete=*/False, /*p_sort=*/True,
                            /*p_arrange=*/True);
        }
        result = True;
    });
}

void peopleCls::Internal::Write(RecordWriter& out) const {
    WriteKey(out);
    out.Write("PersonPosition", f_.position);
    out.Write("PersonKeyChar", f_.PersonKeyChar);
    out.Write("PersonName", f_.PersonName);
    out.Write("PersonAddress", f_.PersonAddress);
    out.Write("PersonPhone", f_.PersonPhone);
    out.Write("PersonEmail", f_.PersonEmail);
    out.Write("PersonTitle", f_.PersonTitle);
    out.Write("PersonCompany", f_.PersonCompany);
    out.Write("PersonNoteKey", f_.PersonNoteKey);
    WriteRelations(out);
}

dom::Node peopleCls::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& reading) {
    f_ = {};
    f_.elementName = xmlParent.baseName();
    RecordReader in(xmlChild);
    ReadKey(in, reading);
    in.Read("PersonPosition", f_.position);
    in.Read("PersonKeyChar", f_.PersonKeyChar);
    in.Read("PersonName", f_.PersonName);
    in.Skip("PersonFirstName");  // Kept: the first name lives in memory only.
    in.Read("PersonAddress", f_.PersonAddress);
    in.Read("PersonPhone", f_.PersonPhone);
    in.Read("PersonEmail", f_.PersonEmail);
    in.Read("PersonTitle", f_.PersonTitle);
    in.Read("PersonCompany", f_.PersonCompany);
    in.Read("PersonNoteKey", f_.PersonNoteKey);
    ReadRelationKeys(in, reading);
    return in.position();
}

template class XmlRecord<peopleCls>;

}  // namespace mrlxmlclass
