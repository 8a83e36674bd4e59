#pragma once

#include <array>
#include <string_view>

namespace mrlxmlclass {

/// The sections under the root of a project file, in the order in which they are written. The project's own record,
/// which comes before them, has no element of its own.
inline constexpr std::array<std::string_view, 10> kProjectSections{
    "Tasks",
    "People",
    "TaskAssigmentRelations",
    "TaskGoalRelations",
    "TaskObstaclesRelations",
    "TaskNoteRelations",
    "Goals",
    "Notes",
    "Obstacles",
    "Calendar",
};

}  // namespace mrlxmlclass
