// Starts a plan of one phase with one task and saves it.  new_plan FILE (an absolute path)
#include <cstdio>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "mrlxmlclass/tasks/TasksCol.h"

using namespace mrlxmlclass;

int main(int, char** argv) {
    const auto app = Make<Application>();
    app->Init(/*BVersion=*/True);  // links between tasks are live
    app->xFileName(argv[1]);
    if (!app->CreateLockFile()) return 1;  // somebody else has that project

    const auto tasks = app->xTaskCol();
    const auto phase = tasks->Add(), dig = tasks->Add();
    phase->TaskName("Groundwork");
    dig->TaskName("Dig the trench");
    dig->ParentID(phase->TaskKey());
    dig->TaskType(True);  // a plain row
    tasks->AddParentTask(phase->TaskKey(), dig->TaskKey());
    dig->TaskBDate(Date::Of(2026, 3, 6));                    // a Friday
    dig->TaskDuration(3);                                    // so it ends on Tuesday
    tasks->AdjustSummary(KeyText(phase->TaskKey()).text());  // and the phase with it

    const String trouble = SaveSafely(app);  // the old file stands until the new one is durable
    std::puts(trouble.empty() ? "Saved." : trouble.c_str());
    app->endreadonly();
    return trouble.empty() ? 0 : 1;
}
