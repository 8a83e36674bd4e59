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

/// A text of an item with its flag.
template <class Item>
struct TextRow {
    const char* name;
    String (*get)(Item&);
    void (Item::*let)(const String&);
    Boolean (Item::*flag)() const;
    void (Item::*let_flag)(Boolean);
};

/// Each text raises its own flag, and no other; each flag empties its own text, and no other.
template <class Item, std::size_t N>
void ExpectFlagsOfTheirOwn(const TextRow<Item> (&rows)[N]) {
    const auto raised = [&](const Item& item) {
        String names;
        for (const auto& row : rows) names += (item.*row.flag)() ? row.name + String(" ") : "";
        return names;
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto item = Make<Item>();
        EXPECT_EQ(raised(*item), "");
        ((*item).*row.let)(row.name);
        EXPECT_EQ(raised(*item), row.name + String(" "));
        for (const auto& each : rows) ((*item).*each.let)(each.name);
        ((*item).*row.let_flag)(True);
        EXPECT_EQ(row.get(*item), row.name) << "the same flag changes nothing";
        ((*item).*row.let_flag)(False);
        EXPECT_EQ(((*item).*row.flag)(), False);
        ((*item).*row.let_flag)(True);  // some can be read with their flag up alone
        for (const auto& each : rows) EXPECT_EQ(each.get(*item), &each == &row ? "" : each.name);
    }
}

/// The relations of an item are made when they are read, which raises their flag, and dropped where it changes.
template <class Item, class Relations>
void ExpectRelationsWithTheirFlag(Ref<Relations> (Item::*read)(), Boolean (Item::*flag)() const,
                                  void (Item::*let_flag)(Boolean)) {
    const auto item = Make<Item>();
    EXPECT_EQ(((*item).*flag)(), False);
    const Ref<Relations> relations = ((*item).*read)();
    EXPECT_EQ(((*item).*flag)(), True);
    EXPECT_EQ(((*item).*read)(), relations);
    ((*item).*let_flag)(True);
    EXPECT_EQ(((*item).*read)(), relations) << "the same flag changes nothing";
    ((*item).*let_flag)(False);
    EXPECT_EQ(((*item).*flag)(), False);
    EXPECT_FALSE(((*item).*read)() == relations);
}

}  // namespace mrlxmlclass::testing
