#include "mrlxmlclass/items/NamedItem.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/XmlRecord_members_internal.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{LabelOf<Self>::label, FailureTail::Gives::SoFar};

}  // namespace

template <class Self, class Relations>
NamedItem<Self, Relations>::NamedItem() {
    this->f_.elementName = kNamedItemRow<Self>.element;
}

template <class Self, class Relations>
Ref<Self> NamedItem<Self, Relations>::Clone() {
    return kTail<Self>.template Run<Ref<Self>>("Clone", [&](Ref<Self>& result) {
        this->f_.relations.Share();
        this->f_.Tasks.Share();
        result = Make<Self>();
        result->f_ = this->f_;
    });
}

template <class Self, class Relations>
String NamedItem<Self, Relations>::GuardedLink() {
    return kTail<Self>.template Run<String>(kNamedItemRow<Self>.link, [&](String& result) {
        if (!this->f_.link.valid) RaiseNotValid(kNamedItemRow<Self>.link);
        result = this->f_.link.value;
    });
}

template <class Self, class Relations>
Ref<Relations> NamedItem<Self, Relations>::ReadRelations() {
    return Internal(*this).ReadRelations();
}

template <class Self, class Relations>
void NamedItem<Self, Relations>::Internal::Write(RecordWriter& out) const {
    this->WriteKey(out);
    out.Write(kNamedItemRow<Self>.position_element, this->f_.position);
    out.Write(kNamedItemRow<Self>.name_element, this->f_.name);
    out.Write(kNamedItemRow<Self>.link_element, this->f_.link);
    out.Write(kNamedItemRow<Self>.description_element, this->f_.description);
    this->WriteRelations(out);
}

template <class Self, class Relations>
dom::Node NamedItem<Self, Relations>::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild,
                                                           const Reading& reading) {
    auto& f = this->f_;
    f = {};
    f.elementName = xmlParent.baseName();
    RecordReader in(xmlChild);
    this->ReadKey(in, reading);
    in.Read(kNamedItemRow<Self>.position_element, f.position);
    in.Read(kNamedItemRow<Self>.name_element, f.name);
    if (!reading.for_lib) {
        in.Read(kNamedItemRow<Self>.link_element, f.link);
        in.Read(kNamedItemRow<Self>.description_element, f.description);
        this->ReadRelationKeys(in, reading);
    }
    return in.position();
}

template class XmlRecord<GoalsCls>;
template class XmlRecord<ObstaclesCls>;
template class NamedItem<GoalsCls, TaskGoalRelationCol>;
template class NamedItem<ObstaclesCls, TaskObstaclesRelationCol>;

}  // namespace mrlxmlclass
