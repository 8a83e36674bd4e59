#include "tests/support/Wiring.h"

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass::testing {
namespace {

/// How the file ties tasks to one kind of items.
struct Ties {
    const char* relations;  ///< the section of the relations
    const char* item_key;   ///< the element of the item's key there
    const char* items;      ///< the section of the items
    const char* on_task;    ///< the keys that a task lists
    const char* on_item;    ///< and those that an item does
    bool wants_own_task;    ///< a task passes by the relations of others
};
constexpr Ties kPeople{"TaskAssigmentRelations",     "PersonKey", "People", "TaskPeopleRelationKeys/tKey",
                       "PeopleTaskRelationKeys/Key", true};
constexpr Ties kGoals{"TaskGoalRelations",        "GoalKey", "Goals", "TaskGoalRelationKeys/tKey",
                      "GoalTaskRelationKeys/Key", false};
constexpr Ties kObstacles{"TaskObstaclesRelations",        "ObstacleKey", "Obstacles", "TaskObstaclesRelationKeys/Key",
                          "ObstaclesTaskRelationKeys/Key", false};
constexpr Ties kNotes{"TaskNoteRelations", "NoteKey", "Notes", "TaskNoteRelationsKeys/Key", nullptr, false};

String Field(const SavedRecords& file, const String& record, const char* field) {
    const String* text = file.Find(record, field);
    return text == nullptr ? String() : *text;
}

/// The keys of what a record's relations lead to, as far as it is there.
String LedTo(const SavedRecords& file, const Ties& ties, const String& record, const char* list, const char* target,
             const char* targets) {
    String keys;
    const String own = record.substr(record.find(' ') + 1);
    for (const auto& [name, text] : file.records.at(record)) {
        if (name != list) continue;
        const String relation = String(ties.relations) + " " + text;
        if (!file.records.contains(relation)) continue;
        if (list == ties.on_task && ties.wants_own_task && Field(file, relation, "TaskKey") != own) continue;
        const String key = Field(file, relation, target);
        if (file.records.contains(String(targets) + " " + key)) keys += " " + key;
    }
    return keys;
}

template <class Col>
String KeysIn(const Ref<Col>& col) {
    String keys;
    for (const auto& entry : col->NewEnum()) keys += " " + entry.key.text();
    return keys;
}

void Compare(String& wrong, const String& whose, const String& expected, const String& found) {
    if (expected != found) wrong += whose + " should hold" + expected + " and holds" + found + "\n";
}

template <class Items>
void CompareItems(String& wrong, const SavedRecords& file, const Ties& ties, const Ref<Items>& items) {
    for (const auto& entry : items->NewEnum()) {
        const String record = String(ties.items) + " " + entry.key.text();
        Compare(wrong, record, LedTo(file, ties, record, ties.on_item, "TaskKey", "Tasks"),
                KeysIn(entry.item->Tasks()));
    }
}

}  // namespace

String WrongCopies(Application& app, const SavedRecords& file) {
    String wrong;
    for (const auto& entry : app.xTaskCol()->NewEnum()) {
        const String record = "Tasks " + entry.key.text();
        const auto compare = [&](const Ties& ties, const String& found) {
            Compare(wrong, record + ", " + ties.items,
                    LedTo(file, ties, record, ties.on_task, ties.item_key, ties.items), found);
        };
        compare(kPeople, KeysIn(entry.item->TasksPeople()));
        compare(kGoals, KeysIn(entry.item->TasksGoals()));
        compare(kObstacles, KeysIn(entry.item->TaskObstacles()));
        compare(kNotes, KeysIn(entry.item->TaskNotes()));
    }
    CompareItems(wrong, file, kPeople, app.xPeopleCol());
    CompareItems(wrong, file, kGoals, app.xGoalCol());
    CompareItems(wrong, file, kObstacles, app.xObstaclesCol());
    return wrong;
}

}  // namespace mrlxmlclass::testing
