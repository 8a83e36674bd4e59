#pragma once

#include "mrlxmlclass/items/Notes_internal.h"
#include "mrlxmlclass/items/PlanItem_internal.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {

/// A session with key counters and nothing else.
class Items : public TestSession {
public:
    /// A list of the project's.
    template <class Col>
    Ref<Col> Master() {
        auto col = Make<Col>();
        col->oPublicStaticCls = counters;
        return col;
    }
    Ref<peopleCls> Person(const String& name, Long position = 0) {
        auto person = Make<peopleCls>();
        person->PersonName(name);
        person->PersonPosition(position);
        return person;
    }
    Ref<GoalsCls> Goal(const String& name, Long position = 0) {
        auto goal = Make<GoalsCls>();
        goal->GoalName(name);
        goal->GoalPosition(position);
        return goal;
    }
    Ref<NotesCls> Note(const String& text) {
        auto note = Make<NotesCls>();
        note->NoteDescription(text);
        return note;
    }
    /// A relation that carries nothing but a key.
    template <class Relation>
    Ref<Relation> Bare(const String& key) {
        auto relation = Make<Relation>();
        relation->elementKey(key);
        return relation;
    }

    Ref<StaticCls> counters = Make<StaticCls>();
};

/// The keys of a collection in its order, blanks between.
template <class Col>
String KeysOf(const Ref<Col>& col) {
    String text;
    for (const auto& entry : col->NewEnum()) text += (text.empty() ? "" : " ") + entry.key.text();
    return text;
}

/// The freed keys of a pool, blanks between.
inline String FreedIn(const Ref<StaticCls>& counters, StaticCls::Internal::KeyKind pool) {
    String text;
    const Ref<Collection> freed = In(counters).PeekPool(pool);
    if (!freed) return text;
    for (const auto& entry : freed->Snapshot()) text += (text.empty() ? "" : " ") + entry.item.Key().text();
    return text;
}

using Keys = StaticCls::Internal;

}  // namespace mrlxmlclass::testing
