// Starts a plan, saves it, opens it in a second session and looks whether it is the same.
#include <cstdio>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"

using namespace mrlxmlclass;

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const auto writer = Make<Application>();
    writer->Init();
    writer->xFileName(argv[1]);
    writer->xTaskCol()->Add()->TaskName("Built elsewhere");
    if (!writer->SaveXml(/*p_persit=*/False)) return 1;

    const auto reader = Make<Application>();
    reader->Init();
    reader->xFileName(argv[1]);
    if (!reader->LoadXML()) return 1;
    reader->endreadonly();
    const auto task = reader->xTaskCol()->Item(1);
    if (!task || task->TaskName() != "Built elsewhere") return 1;
    std::puts("The installed library works.");
    return 0;
}
