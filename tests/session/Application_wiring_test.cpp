#include <gtest/gtest.h>

#include <algorithm>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/wizard/Steps.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(LoadXML, WiresTheTasksThatTheSessionHoldsAtEachStep) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    Ref<TasksCol> first;
    plan.platform.ui.on_yield = [&] {
        const Ref<TasksCol> tasks = plan.app->xTaskCol();
        // The people have their tasks, and the tasks have no people yet.
        if (first || plan.app->xPeopleCol()->Count() == 0 || plan.app->xPeopleCol()->Item(1)->Tasks()->Count(True) == 0)
            return;
        first = tasks;
        plan.app->xTaskCol(tasks->Clone());
    };
    EXPECT_EQ(plan.Load("p.prx"), True);
    plan.platform.ui.on_yield = nullptr;
    ASSERT_TRUE(first);
    const auto noted = [](const Ref<TasksCol>& tasks) {
        int count = 0;
        for (const auto& entry : tasks->NewEnum()) count += entry.item->NoteAsString().empty() ? 0 : 1;
        return count;
    };
    EXPECT_EQ(noted(first), 0);
    EXPECT_GT(noted(plan.app->xTaskCol()), 0);
}

TEST(LoadXML, WiresEachSideBehindTheOneBefore) {
    WholeProject plan;
    plan.app->xStep()->Visted(0);
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    const auto any = [](const auto& items, const auto& wired) {
        const auto entries = items->NewEnum();
        return std::any_of(entries.begin(), entries.end(), [&](const auto& entry) { return wired(*entry.item); });
    };
    const auto has_tasks = [](auto& item) { return item.Tasks()->Count(True) > 0; };
    String wired;
    plan.platform.ui.on_yield = [&] {
        Application& app = *plan.app;
        if (wired.empty() && app.xTaskNotesRelationcol()->Count() == 0) Module().g_PublicCalendar = Make<CalendarCls>();
        const auto tell = [&](const char* what, bool now) {
            if (now && wired.find(what) == String::npos) wired += what;
        };
        tell("tasks of people\n", any(app.xPeopleCol(), has_tasks));
        tell("people of tasks\n", any(app.xTaskCol(), [](auto& task) { return task.TasksPeople()->Count() > 0; }));
        tell("notes of tasks\n", any(app.xTaskCol(), [](auto& task) { return task.TaskNotes()->Count() > 0; }));
        tell("goals of tasks\n", any(app.xTaskCol(), [](auto& task) { return task.TasksGoals()->Count() > 0; }));
        tell("tasks of goals\n", any(app.xGoalCol(), has_tasks));
        tell("obstacles of tasks\n", any(app.xTaskCol(), [](auto& task) { return task.TaskObstacles()->Count() > 0; }));
        tell("tasks of obstacles\n", any(app.xObstaclesCol(), has_tasks));
        tell("calendar\n", Module().g_PublicCalendar == app.xCalendar());
        tell("steps\n", app.xStep()->Sequence() != "|");
    };
    EXPECT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(wired,
              "tasks of people\npeople of tasks\nnotes of tasks\ngoals of tasks\ntasks of goals\n"
              "obstacles of tasks\ntasks of obstacles\ncalendar\nsteps\n");
}

}  // namespace
}  // namespace mrlxmlclass
