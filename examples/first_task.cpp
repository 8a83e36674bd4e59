// Starts a plan of one task and saves it.  first_task FILE (an absolute path)
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "mrlxmlclass/tasks/TasksCol.h"

int main(int, char** argv) {
    const auto app = mrlxmlclass::Make<mrlxmlclass::Application>();
    app->Init();
    app->xFileName(argv[1]);
    const auto dig = app->xTaskCol()->Add();
    dig->TaskName("Dig the trench");
    dig->TaskBDate(mrlxmlclass::Date::Of(2026, 3, 6));  // a Friday
    dig->TaskDuration(3);                               // so it ends on Tuesday
    return mrlxmlclass::SaveSafely(app).empty() ? 0 : 1;
}
