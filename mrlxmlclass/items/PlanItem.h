#pragma once

#include "mrlxmlclass/runtime/Flagged.h"
#include "mrlxmlclass/runtime/Guarded.h"
#include "mrlxmlclass/runtime/Variant.h"
#include "mrlxmlclass/xml/XmlRecord.h"

namespace mrlxmlclass {

class TasksCol;

/// What a person, a goal and an obstacle share: a key, a position, and ties to tasks. `Relations` is the collection of
/// those ties, `FieldsOf` the record's fields.
template <class Self, class Relations, class FieldsOf>
class PlanItem : public XmlRecord<Self> {
public:
    /// Copies of the tasks that the item is tied to. Made on first read.
    Ref<TasksCol> Tasks();
    void Tasks(const Ref<TasksCol>& tasks) { f_.Tasks.Set(tasks); }

    /// Reads one record and raises the counter of such keys in `oPublicStaticCls` to the key that is read. `p_for_lib`
    /// leaves the ties to tasks out.
    Boolean FromXmlFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib = False) {
        return this->ReadFile(FileName, oPublicStaticCls, p_for_lib);
    }
    Boolean FromXml(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib = False) {
        return this->ReadText(xmlIn, oPublicStaticCls, p_for_lib);
    }

    /// Fills `Tasks` anew from this item's relations, looked up in the project's, after a load.
    Boolean SetTasksCollection(const Ref<Relations>& oTaskRelationcol, const Ref<TasksCol>& TaskCol);
    /// True when one of this item's relations, looked up in the project's, leads to that task.
    Boolean TaskAssigned(const Variant& TaskKey, const Ref<Relations>& cTaskRelation);
    /// The key of the first such relation; Empty when there is none.
    Variant FindRelationKey(const Variant& TaskKey, const Ref<Relations>& cTaskRelation);

    class Internal;

protected:
    FieldsOf f_;
};

}  // namespace mrlxmlclass
