// Opens a plan, moves a task, adds another and prints what the library tells about it.
// hear_changes FILE (an absolute path; it is not saved)
#include <cstdio>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"

using namespace mrlxmlclass;

namespace {

/// A host overrides the events that it wants to hear.
class Ear : public TasksColEvents {
public:
    void TaskInserted(Long TaskKey, const String& ParentID, Long Position) override {
        std::printf("  task %d stands in row %d, below task %s\n", TaskKey.value(), Position.value(), ParentID.c_str());
    }
    void TaskNameChanged(Long TaskKey, const String& TaskName) override {
        std::printf("  task %d is called %s\n", TaskKey.value(), TaskName.c_str());
    }
    void DateStartChange(Long TaskKey, Date BDate, Boolean, Boolean isParent) override {
        std::printf("  %s %d starts on %s\n", isParent ? "summary" : "task", TaskKey.value(),
                    Conversions::DateToString(BDate).c_str());
    }
    void DateEndChange(Long TaskKey, Date EDate, Boolean, Boolean isParent, const String&) override {
        std::printf("  %s %d ends on %s\n", isParent ? "summary" : "task", TaskKey.value(),
                    Conversions::DateToString(EDate).c_str());
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const auto app = Make<Application>();
    app->Init(/*BVersion=*/True);
    app->xFileName(argv[1]);
    if (!app->LoadXML()) return 1;

    Ear ear;
    const auto tasks = app->xTaskCol();  // of this load: another one makes another collection
    tasks->Events.Add(ear);

    // A record stores what it is told, and the collection passes it on when it is asked to.
    const auto dig = tasks->Item(2);
    dig->TaskBDate(Date::Of(2026, 3, 9));
    std::puts("The trench moves to Monday:");
    tasks->AdjustSummary("1");

    const auto pour = tasks->Add();
    pour->ParentID(1);
    pour->TaskType(True);
    tasks->AddParentTask(1, pour->TaskKey());
    pour->TaskBDate(Date::Of(2026, 3, 12));
    std::puts("The concrete comes on Thursday:");
    tasks->ChangeName(KeyText(pour->TaskKey()).text(), "Pour the concrete", /*NewTask=*/True);
    tasks->AdjustSummary("1");

    tasks->Events.Remove(ear);
    app->endreadonly();
    return 0;
}
