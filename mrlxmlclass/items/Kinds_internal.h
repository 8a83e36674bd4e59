#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/xml/XmlRecord_internal.h"

namespace mrlxmlclass {

class GoalsCls;
class GoalsCol;
class NotesCls;
class NotesCol;
class ObstaclesCls;
class PeopleCol;
class TaskAssigmentRelationCls;
class TaskAssigmentRelationCol;
class TaskGoalRelationCls;
class TaskGoalRelationCol;
class TaskNoteRelationCls;
class TaskNoteRelationCol;
class TaskObstaclesRelationCls;
class TaskObstaclesRelationCol;
class obstaclesCol;
class peopleCls;

// What differs between the kinds of items and relations, a row a kind. Whatever is not told here is the same for all.

using Keys = StaticCls::Internal;

template <>
struct LabelOf<peopleCls> {
    static constexpr const char* label = "peopleCls";
};
template <>
struct LabelOf<GoalsCls> {
    static constexpr const char* label = "GoalCls";  // Kept: not the name of the class.
};
template <>
struct LabelOf<ObstaclesCls> {
    static constexpr const char* label = "ObstaclesCls";
};
template <>
struct LabelOf<NotesCls> {
    static constexpr const char* label = "NotesCls";
};
template <>
struct LabelOf<TaskGoalRelationCls> {
    static constexpr const char* label = "TaskGoalRelationCls";
};
template <>
struct LabelOf<TaskObstaclesRelationCls> {
    static constexpr const char* label = "TaskObstaclesRelationCls";
};
template <>
struct LabelOf<TaskAssigmentRelationCls> {
    static constexpr const char* label = "TaskAssigmentRelationCls";
};
template <>
struct LabelOf<TaskNoteRelationCls> {
    static constexpr const char* label = "TaskNoteRelationCls";
};

/// A collection and its section of the project file.
struct SectionRow {
    const char* label;
    std::string_view section;        ///< the element of the section
    std::string_view element;        ///< the element of a record, and the root of a file of its own
    const char* lifetime = label;    ///< label of `Class_Initialize` and `ToXmlFile`
    const char* wiring = label;      ///< label of `SetTasksCollection`
    const char* assigning = label;   ///< label of the operations that assign and unassign
    const char* sorting = "SortMe";  ///< member label of `SortMe`
    const char* assigne = nullptr;   ///< member label of the operation that assigns
    const char* unassigne = nullptr;
};
template <class Col>
struct SectionOf;
template <class Col>
inline constexpr SectionRow kSectionRow = SectionOf<Col>::row;
template <>
struct SectionOf<PeopleCol> {
    static constexpr SectionRow row = {.label = "PeopleCol",
                                       .section = "People",
                                       .element = "Person",
                                       .sorting = "Sort"};  // Kept: not the name of the member.
};
template <>
struct SectionOf<GoalsCol> {
    static constexpr SectionRow row = {.label = "GoalsCol",
                                       .section = "Goals",
                                       .element = "Goal",
                                       .wiring = "GoalsGol",  // Kept: not the name of the class.
                                       .assigne = "AssigneGoal",
                                       .unassigne = "UnAssigneGoal"};
};
template <>
struct SectionOf<obstaclesCol> {
    static constexpr SectionRow row = {.label = "obstaclesCol",
                                       .section = "Obstacles",
                                       .element = "Obstacle",
                                       .lifetime = "NotesCol",        // Kept: the name of another class.
                                       .wiring = "obstaclessGol",     // Kept: not the name of the class.
                                       .assigning = "ObstaclessCol",  // Kept: nor is this one.
                                       .assigne = "AssigneObstacles",
                                       .unassigne = "UnAssigneObstacles"};
};
template <>
struct SectionOf<NotesCol> {
    static constexpr SectionRow row = {.label = "NotesCol", .section = "Notes", .element = "Note"};
};
template <>
struct SectionOf<TaskGoalRelationCol> {
    static constexpr SectionRow row = {
        .label = "TaskGoalRelationCol", .section = "TaskGoalRelations", .element = "TaskGoalRelation"};
};
template <>
struct SectionOf<TaskObstaclesRelationCol> {
    static constexpr SectionRow row = {
        .label = "TaskObstaclesRelationCol", .section = "TaskObstaclesRelations", .element = "TaskObstaclesRelation"};
};
template <>
struct SectionOf<TaskAssigmentRelationCol> {
    static constexpr SectionRow row = {
        .label = "TaskAssigmentRelationCol", .section = "TaskAssigmentRelations", .element = "TaskAssigmentRelation"};
};
template <>
struct SectionOf<TaskNoteRelationCol> {
    static constexpr SectionRow row = {
        .label = "TaskNoteRelationCol", .section = "TaskNoteRelations", .element = "TaskNoteRelation"};
};

/// A person, a goal or an obstacle.
struct ItemRow {
    std::string_view key_element;
    std::string_view relations_element;
    Keys::KeyKind counter;
    Keys::KeyKind freed;                      ///< where the project's list keeps the keys of deleted items
    std::optional<Keys::KeyKind> draws_from;  ///< where a new item looks for its key first
    const char* wiring;                       ///< class label of `SetTasksCollection`
    bool drops_copies;                        ///< `SetTasksCollection` makes a new list of tasks, others empty theirs
    bool wants_relation;                      ///< it passes over a relation that the project does not have
    bool wants_task;                          ///< it passes over a task that the project does not have
    bool lends_counters;                      ///< a reader gives the relations the counters in hand
};
template <class Item>
struct ItemKind;
template <class Item>
inline constexpr ItemRow kItemRow = ItemKind<Item>::row;
template <>
struct ItemKind<peopleCls> {
    static constexpr ItemRow row = {.key_element = "Personkey",
                                    .relations_element = "PeopleTaskRelationKeys",
                                    .counter = Keys::Person,
                                    .freed = Keys::Person,
                                    .draws_from = Keys::Person,
                                    .wiring = "peopleCls",
                                    .drops_copies = true,
                                    .wants_relation = true,
                                    .wants_task = true,
                                    .lends_counters = false};
};
template <>
struct ItemKind<GoalsCls> {
    static constexpr ItemRow row = {.key_element = "Goalkey",
                                    .relations_element = "GoalTaskRelationKeys",
                                    .counter = Keys::Goal,
                                    .freed = Keys::Goal,
                                    .draws_from = Keys::Goal,
                                    .wiring = "GoalCls",
                                    .drops_copies = false,
                                    .wants_relation = true,
                                    .wants_task = false,
                                    .lends_counters = true};
};
template <>
struct ItemKind<ObstaclesCls> {
    static constexpr ItemRow row = {.key_element = "Obstacleskey",
                                    .relations_element = "ObstaclesTaskRelationKeys",
                                    .counter = Keys::Obstacle,
                                    .freed = Keys::Obstacle,
                                    .draws_from = std::nullopt,  // Kept: its freed keys are never used again.
                                    .wiring = "obstaclesCls",    // Kept: not the name of the class.
                                    .drops_copies = false,
                                    .wants_relation = false,
                                    .wants_task = false,
                                    .lends_counters = false};
};

/// The names that goals and obstacles have of their own.
struct NamedItemRow {
    std::string_view position_element, name_element, link_element, description_element;
    std::string_view element;  ///< of an item that stands alone
    const char* link;          ///< the guarded property
};
template <class Item>
struct NamedItemKind;
template <class Item>
inline constexpr NamedItemRow kNamedItemRow = NamedItemKind<Item>::row;
template <>
struct NamedItemKind<GoalsCls> {
    static constexpr NamedItemRow row = {.position_element = "GoalPosition",
                                         .name_element = "GoalName",
                                         .link_element = "GoalLink",
                                         .description_element = "GoalDescription",
                                         .element = "Goal",
                                         .link = "GoalLink"};
};
template <>
struct NamedItemKind<ObstaclesCls> {
    static constexpr NamedItemRow row = {.position_element = "ObstaclesPosition",
                                         .name_element = "ObstaclesName",
                                         .link_element = "ObstaclesLink",
                                         .description_element = "ObstaclesDescription",
                                         .element = "Obstacle",
                                         .link = "ObstaclesLink"};
};

/// The children of a relation's element.
enum class RelationChild { Task, Item, Description, Key };

/// What taking a relation out of a collection does beside it.
enum class RelationRemoval {
    ThenFrees,   ///< then frees the key, where there are counters; silent, whatever goes wrong
    FreesFirst,  ///< frees the key first, where there are counters and it is not free yet
    Only,        ///< nothing
    Raises,      ///< nothing; what goes wrong is the calling member's failure
};

/// The rules of a kind of relation. Their differences are deliberate.
struct RelationRow {
    std::string_view element;       ///< of a record that stands alone
    std::string_view item_element;  ///< of the item's key
    std::array<RelationChild, 4> order;
    Keys::KeyKind counter;
    std::optional<Keys::KeyKind> draws_from;  ///< where a new relation looks for its key first
    Keys::KeyKind freed;                      ///< where freed keys go, and where a host reserves one
    std::string_view first_key;               ///< `elementKey` of a new record
    bool numbers_key;                         ///< AddItem replaces a key by the text of its number
    bool issues_key;                          ///< AddItem issues a key where the number is 0
    bool names_records;                       ///< records take the element name of their collection
    bool silent_item;                         ///< Item does not record an unknown key
    RelationRemoval removal;
};
template <class Record>
struct RelationKind;
template <class Record>
inline constexpr RelationRow kRelationRow = RelationKind<Record>::row;
template <>
struct RelationKind<TaskGoalRelationCls> {
    static constexpr RelationRow row = {
        .element = "TaskGoalsRelation",
        .item_element = "GoalKey",
        .order = {RelationChild::Task, RelationChild::Item, RelationChild::Description, RelationChild::Key},
        .counter = Keys::GoalRelation,
        .draws_from = Keys::Goal,  // Kept: the keys of deleted goals, not those of deleted relations.
        .freed = Keys::GoalRelation,
        .first_key = "",
        .numbers_key = true,
        .issues_key = true,
        .names_records = true,
        .silent_item = false,
        .removal = RelationRemoval::ThenFrees};
};
template <>
struct RelationKind<TaskObstaclesRelationCls> {
    static constexpr RelationRow row = {
        .element = "TaskObstaclesRelation",
        .item_element = "ObstacleKey",
        .order = {RelationChild::Task, RelationChild::Item, RelationChild::Description, RelationChild::Key},
        .counter = Keys::ObstacleRelation,
        .draws_from = std::nullopt,
        .freed = Keys::ObstacleRelation,  // Kept: nothing ever fills this pool.
        .first_key = "",
        .numbers_key = false,
        .issues_key = false,
        .names_records = true,
        .silent_item = false,
        .removal = RelationRemoval::Only};
};
template <>
struct RelationKind<TaskAssigmentRelationCls> {
    static constexpr RelationRow row = {
        .element = "TaskAssigmentRelation",
        .item_element = "PersonKey",
        .order = {RelationChild::Key, RelationChild::Task, RelationChild::Item, RelationChild::Description},
        .counter = Keys::AssigmentRelation,
        .draws_from = Keys::AssigmentRelation,
        .freed = Keys::AssigmentRelation,
        .first_key = "0",
        .numbers_key = false,
        .issues_key = true,
        .names_records = true,
        .silent_item = true,
        .removal = RelationRemoval::FreesFirst};
};
template <>
struct RelationKind<TaskNoteRelationCls> {
    static constexpr RelationRow row = {
        .element = "TaskNoteKeys",
        .item_element = "NoteKey",
        .order = {RelationChild::Task, RelationChild::Item, RelationChild::Key, RelationChild::Description},
        .counter = Keys::NoteRelation,
        .draws_from = std::nullopt,
        .freed = Keys::NoteRelation,
        .first_key = "",
        .numbers_key = false,
        .issues_key = true,
        .names_records = false,
        .silent_item = false,
        .removal = RelationRemoval::Raises};
};

/// Gives a new record of a kind its key: the first freed one of the kind's pool, where it has one, else the next.
inline KeyText IssueKey(const Ref<StaticCls>& counters, Keys::KeyKind counter, std::optional<Keys::KeyKind> pool) {
    return pool ? In(counters).NextKey(counter, *pool) : KeyText(Long(In(counters).NextKey(counter)));
}

}  // namespace mrlxmlclass
