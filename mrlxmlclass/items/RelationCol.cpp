#include "mrlxmlclass/items/RelationCol.h"

#include "mrlxmlclass/items/Kinds_internal.h"
#include "mrlxmlclass/items/LeadingNumber.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

template <class Self>
constexpr FailureTail kTail{kSectionRow<Self>.label, FailureTail::Gives::SoFar};
template <class Self>
constexpr FailureTail kXmlTail{kSectionRow<Self>.label};

/// What goes wrong in `Remove` is silent where freeing comes last, and where nobody handles it.
template <class Self, class Record>
constexpr FailureTail kRemoveTail = kRelationRow<Record>.removal == RelationRemoval::ThenFrees ||
                                            kRelationRow<Record>.removal == RelationRemoval::Raises
                                        ? kTail<Self>.Silent()
                                        : kTail<Self>;

}  // namespace

template <class Self, class Record>
Ref<Record> RelationCol<Self, Record>::Add(const String& ID) {
    return kTail<Self>.template Run<Ref<Record>>("Add", [&](Ref<Record>& result) {
        const Ref<Self> held(static_cast<Self*>(this));  // a listener may let go of the list
        const auto record = Make<Record>();
        if (ID.empty()) {
            In(record).IncrementID(this->oPublicStaticCls);
        } else {
            record->elementKey(ID);
        }
        if (kRelationRow<Record>.names_records) In(record).elementName(this->element_name_);
        Internal(*this).File(In(record).Key(), record);
        result = record;
    });
}

template <class Self, class Record>
Ref<Record> RelationCol<Self, Record>::AddItem(const Ref<Record>& newProperty) {
    return kTail<Self>.template Run<Ref<Record>>("AddItem", [&](Ref<Record>& result) {
        const Ref<Self> held(static_cast<Self*>(this));  // a listener may let go of the list
        const Ref<Record> clone = newProperty->Clone();
        if (kRelationRow<Record>.names_records) In(clone).elementName(this->element_name_);
        if (kRelationRow<Record>.issues_key) {
            const String key = clone->elementKey();
            if (kRelationRow<Record>.numbers_key) clone->elementKey(Conversions::LongToString(LeadingNumber(key)));
            if (LeadsWithNothing(key)) In(clone).IncrementID(this->oPublicStaticCls);
        }
        Internal(*this).File(In(clone).Key(), clone);
        result = clone;
    });
}

template <class Self, class Record>
Ref<Record> RelationCol<Self, Record>::Item(const Variant& key) const {
    constexpr FailureTail tail = kRelationRow<Record>.silent_item ? kTail<Self>.Silent() : kTail<Self>;
    return tail.template Run<Ref<Record>>("Item", [&](Ref<Record>& result) {
        const Ref<Record>* record = this->records_.Find(key.Key());
        if (record != nullptr) {
            result = *record;
        } else if (!kRelationRow<Record>.silent_item) {
            Raise(failure::kUnknownKey);
        }
    });
}

template <class Self, class Record>
void RelationCol<Self, Record>::Remove(const Variant& key) {
    kRemoveTail<Self, Record>.Run("Remove", [&] { Internal(*this).RemoveOrRaise(key.Key()); });
}

template <class Self, class Record>
void RelationCol<Self, Record>::Internal::RemoveOrRaise(const KeyText& key) {
    const Ref<StaticCls>& counters = relations_.oPublicStaticCls;
    const auto remove = [&] {
        if (!relations_.records_.Remove(key)) Raise(failure::kUnknownKey);
    };
    switch (kRelationRow<Record>.removal) {
        case RelationRemoval::ThenFrees:
            remove();
            if (counters) In(counters).Free(kRelationRow<Record>.freed, key);
            break;
        case RelationRemoval::FreesFirst:
            // Kept: freed before it is gone, and once: the same key leaves the task's list and the project's, and both
            // may have counters.
            if (counters && !In(counters).IsFree(kRelationRow<Record>.freed, key))
                In(counters).Free(kRelationRow<Record>.freed, key);
            remove();
            break;
        case RelationRemoval::Only:
        case RelationRemoval::Raises:
            remove();
            break;
    }
}

template <class Self, class Record>
Boolean RelationCol<Self, Record>::TakeFreedKey(const String& p_key) {
    return kTail<Self>.template Run<Boolean>("IamNotAvailable", [&](Boolean& result) {
        In(this->oPublicStaticCls).Pool(kRelationRow<Record>.freed)->Remove(p_key);
        result = True;
    });
}

template <class Self, class Record>
void RelationCol<Self, Record>::Write(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm, Boolean onlykey,
                                      const String& diff) {
    if (!onlykey) return this->WriteRecords(xmlDoc, xmlElm);
    kXmlTail<Self>.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        for (const auto& entry : this->NewEnum()) {
            if constexpr (requires { entry.item->ToXmlIntkey(xmlDoc, xmlElm, diff); }) {
                entry.item->ToXmlIntkey(xmlDoc, xmlElm, diff);
            } else {
                entry.item->ToXmlIntkey(xmlDoc, xmlElm);
            }
        }
    });
}

template <class Self, class Record>
dom::Node RelationCol<Self, Record>::Internal::FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, Boolean onlykey,
                                                          const String& AddDiference) {
    if (!onlykey) return RecordCol<Self, Record>::Internal::FromXmlInt(xmlParent, xmlChild);
    return kXmlTail<Self>.template Run<dom::Node>("FromXmlInt", [&](dom::Node& result) {
        result = ReadItems(xmlChild, AddDiference + "Key", [&](dom::Node element) {
            const auto record = Make<Record>();
            In(record).elementName(relations_.element_name_);
            record->elementKey(element.Text());
            this->File(In(record).Key(), record);
        });
    });
}

template class RelationCol<TaskGoalRelationCol, TaskGoalRelationCls>;
template class RelationCol<TaskObstaclesRelationCol, TaskObstaclesRelationCls>;
template class RelationCol<TaskAssigmentRelationCol, TaskAssigmentRelationCls>;
template class RelationCol<TaskNoteRelationCol, TaskNoteRelationCls>;

Boolean TaskAssigmentRelationCol::RemoveForRelatedPople(ByRef<String> p_person_key, ByRef<Ref<TasksCol>> p_task_col) {
    return kTail<TaskAssigmentRelationCol>.Run<Boolean>("RemoveForRelatedPople", [&](Boolean& result) {
        const Ref<TaskAssigmentRelationCol> held(this);  // a listener may let go of the list
        const double person = KeyValue(*p_person_key);
        std::vector<String> keys;  // chosen before the first one goes
        for (const auto& entry : NewEnum()) {
            if (entry.item->personkey().value() == person) keys.push_back(entry.item->elementKey());
        }
        for (const String& key : keys) {
            const Ref<TaskAssigmentRelationCls> relation = Item(key);
            const Ref<TasksCls> task = (*p_task_col)->Item(relation->TaskKey());
            task->TaskPeopleRelation()->Remove(key);
            Remove(key);
        }
        result = True;
    });
}

}  // namespace mrlxmlclass
