#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "prx/Project.h"

/// People, goals, obstacles and notes, and what a host does to tie them to tasks.
namespace prx {

enum class Kind { kPerson, kGoal, kObstacle, kNote };
inline constexpr Kind kKinds[] = {Kind::kPerson, Kind::kGoal, Kind::kObstacle, Kind::kNote};

/// "person", "goal", "obstacle" or "note"; "people" and so on for several.
std::string NameOf(Kind kind);
std::string PluralOf(Kind kind);
/// Refuses what is no name of a kind.
Kind ReadKind(std::string_view text);

/// A text that an item may have beside its name.
struct ItemField {
    const char* name;
    const char* help;
};
std::vector<ItemField> FieldsOf(Kind kind);

/// An item as it is listed.
struct ItemRow {
    std::string key;
    std::string name;                 ///< of a note the text
    std::vector<std::string> fields;  ///< in the order of FieldsOf; "" where nothing is set
    std::vector<std::int64_t> tasks;  ///< keys of those that it is tied to
};
/// All items of a kind in their order.
std::vector<ItemRow> ItemsOf(const Project& project, Kind kind);
/// An item as a task shows it.
struct ItemOn {
    std::string key;
    std::string name;
};
/// The items of a kind that are tied to a task.
std::vector<ItemOn> ItemsOn(mrlxmlclass::TasksCls& task, Kind kind);

/// The key of the item that a text on the command line means: a key, or a name that only one item has, or one of those
/// that are tied to the task `of`.
std::string FindItem(const Project& project, Kind kind, const std::string& text,
                     const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& of = {});
/// Adds an item behind the others and gives its key. `fields` are in the order of FieldsOf; "" sets nothing.
std::string AddItem(const Project& project, Kind kind, const std::string& name, const std::vector<std::string>& fields);
/// Removes an item and all that ties it to tasks; work beside the outline that nothing else lists goes along.
void RemoveItem(const Project& project, Kind kind, const std::string& key);

/// Ties an item to a task. Refuses a pair that is tied already, and a note that another task has.
void Assign(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task, Kind kind,
            const std::string& key);
/// Unties them on every side; work beside the outline goes with its last tie. Refuses a pair that is not tied.
void Unassign(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task, Kind kind,
              const std::string& key);
/// Unties tasks from everything.
void UnassignAll(const Project& project, const std::vector<mrlxmlclass::Ref<mrlxmlclass::TasksCls>>& tasks);

}  // namespace prx
