// Opens a plan and prints its outline.  list_plan FILE (an absolute path)
#include <cstdio>

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "mrlxmlclass/xml/ProjectsCls.h"

using namespace mrlxmlclass;

namespace {

void Print(TasksCol& tasks, TasksCls& task) {
    const int indent = 2 * tasks.GetLevel(KeyText(task.TaskKey()).text()).value();
    std::printf("%3d %*s%s: %s to %s, %s %s\n", task.TaskPosition().value(), indent, "", task.TaskName().c_str(),
                Conversions::DateToString(task.TaskBDate()).c_str(),
                Conversions::DateToString(task.TaskEDate()).c_str(),
                Conversions::DoubleToString(task.TaskDuration()).c_str(), task.TaskDurationUnit().c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const auto app = Make<Application>();
    app->Init(/*BVersion=*/True);
    app->xFileName(argv[1]);
    Boolean read_only;
    if (!app->LoadXML(/*p_onlyTasks=*/False, /*p_for_lib=*/False, read_only)) {
        std::puts("This is no project file.");
        return 1;
    }
    const auto tasks = app->xTaskCol();
    std::printf("%d tasks%s\n", tasks->Count().value(), read_only ? ", open elsewhere" : "");
    const auto outline = tasks->SortMe(/*byPos=*/True);
    for (const auto& row : outline->Snapshot()) Print(*tasks, *row.item.Object<TasksCls>());
    app->endreadonly();  // LoadXML took the lock, unless somebody else has it
    return 0;
}
