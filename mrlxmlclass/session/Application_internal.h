#pragma once

#include <string_view>

#include "mrlxmlclass/session/Application.h"

namespace mrlxmlclass {

/// What the library alone knows of a session.
class Application::Internal {
public:
    /// Calls `visit(name, held)` for each section under the root of a project file, in the order in which they are
    /// written. `held(application)` gives the object of the section: goals, notes and obstacles are made where there
    /// are none, the others may be nothing. The project's own record, which comes before them, has no element of its
    /// own.
    template <class Visit>
    static void EachSection(const Visit& visit) {
        visit("Tasks", [](Application& app) { return app.xTaskCol_; });
        visit("People", [](Application& app) { return app.xPeopleCol_; });
        visit("TaskAssigmentRelations", [](Application& app) { return app.xTaskPeopleRelationcol_; });
        visit("TaskGoalRelations", [](Application& app) { return app.xTaskGoalRelationcol_; });
        visit("TaskObstaclesRelations", [](Application& app) { return app.xTaskObstaclesRelationcol_; });
        visit("TaskNoteRelations", [](Application& app) { return app.xTaskNotesRelationcol_; });
        visit("Goals", [](Application& app) { return app.xGoalCol(); });
        visit("Notes", [](Application& app) { return app.xNoteCol(); });
        visit("Obstacles", [](Application& app) { return app.xObstaclesCol(); });
        visit("Calendar", [](Application& app) { return app.xCalendar_; });
    }
};

}  // namespace mrlxmlclass
