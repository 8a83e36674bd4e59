#pragma once

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/RecordCol_internal.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/tasks/Sorting.h"
#include "mrlxmlclass/xml/RecordReader.h"
#include "mrlxmlclass/xml/RecordWriter.h"
#include "mrlxmlclass/xml/XmlRecord_internal.h"

namespace mrlxmlclass {

/// The library's own view of a person, a goal or an obstacle.
template <class Self, class Relations, class FieldsOf>
class PlanItem<Self, Relations, FieldsOf>::Internal {
public:
    explicit Internal(PlanItem& self) : f_(self.f_) {}

    String elementName() const { return f_.elementName; }
    void elementName(const String& name) { f_.elementName = name; }
    Long key() const { return f_.key; }
    Long position() const { return f_.position; }
    KeyText Key() const { return KeyText(f_.key); }
    Ref<Relations> PeekRelations() const { return f_.relations.cell.Peek(); }
    /// The relations, made on first read, which raises the flag.
    Ref<Relations> ReadRelations() {
        return f_.relations.Read([] { return Make<Relations>(); });
    }
    /// The key of the first of this item's relations that, looked up in the project's, leads to a task; none when there
    /// is none. `leads` tells of a task key whether it is that one.
    template <class Leads>
    KeyText FirstRelationTo(const Ref<Relations>& project, Leads&& leads) const {
        const Ref<Relations> own = PeekRelations();
        if (!own) return {};
        for (const auto& entry : own->NewEnum()) {
            const auto relation = project->Item(entry.item->elementKey());
            if (relation && leads(relation->TaskKey())) return KeyText(entry.item->elementKey());
        }
        return {};
    }
    /// The same for a task key as a number.
    KeyText FirstRelationTo(double task, const Ref<Relations>& project) const {
        return FirstRelationTo(project, [task](Long key) { return key.value() == task; });
    }
    /// Issues a key. A failure is recorded, and leaves the key as it is.
    Boolean IncrementID(const Ref<StaticCls>& oPublicStaticCls);

protected:
    /// The key and the keys-only list of the relations, which all kinds write and read alike.
    void WriteKey(RecordWriter& out) const;
    void WriteRelations(RecordWriter& out) const;
    void ReadKey(RecordReader& in, const Reading& reading);
    void ReadRelationKeys(RecordReader& in, const Reading& reading);

    FieldsOf& f_;
};

/// The items of a list in ascending order of their positions, each under its key. Two items with one key fail (457).
template <class Store>
Store SortedByPosition(const Store& items) {
    Store sorted;
    for (const std::size_t place :
         HeapOrder(items.size(), [&](std::size_t i) { return In(items[i].item).position(); })) {
        const auto& item = items[place].item;
        if (!sorted.Append(In(item).Key(), item)) Raise(failure::kDuplicateKey);
    }
    return sorted;
}

class peopleCls::Internal : public PlanItem::Internal {
public:
    explicit Internal(peopleCls& self) : PlanItem::Internal(self) {}

    /// Stores the relations and touches no flag.
    void TaskPeopleRelation_Int(const Ref<TaskAssigmentRelationCol>& relations) { f_.relations.LetInside(relations); }

    void Write(RecordWriter& out) const;
    /// Reads the fields from `xmlChild` on; gives the element at which it stopped. Failures are the caller's.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& reading);
};

template <class Self, class Relations>
class NamedItem<Self, Relations>::Internal : public PlanItem<Self, Relations, NamedItemFields<Relations>>::Internal {
public:
    explicit Internal(NamedItem& self) : PlanItem<Self, Relations, NamedItemFields<Relations>>::Internal(self) {}

    void Write(RecordWriter& out) const;
    /// Reads the fields from `xmlChild` on; gives the element at which it stopped. Failures are the caller's.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& reading);
};

class PeopleCol::Internal : public RecordCol::Internal {
public:
    explicit Internal(PeopleCol& self) : RecordCol::Internal(self) {}
    /// The key of the first person of exactly that name; 0 when there is none.
    Long FindPersonKeys(const String& name) const;
};

class GoalsCol::Internal : public RecordCol::Internal {
public:
    explicit Internal(GoalsCol& self) : RecordCol::Internal(self) {}
    /// The key of the first goal of exactly that name; 0 when there is none.
    Long FindGoalKeys(const String& name) const;
};

}  // namespace mrlxmlclass
