#include <fmt/core.h>

#include <set>

#include "prx/Command.h"
#include "prx/EventLog.h"
#include "prx/Moving.h"
#include "prx/Outline.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Phase : public EditCommand {
public:
    explicit Phase(CLI::App& app)
        : EditCommand(app, "phase", "Print the phases, or make a task one: it goes to the top of the outline") {
        task_.AddTo(options(), "TASK", "A key, #row or name");
    }

    int Run(Host& host) override {
        if (!task_) {
            Print(Project::ToLook(host, file()));
            return kDone;
        }
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());
        TakeToTop(project, FindTask(project, *task_));
        project.Save();
        events.Print();
        return kDone;
    }

private:
    static void Print(const Project& project) {
        std::set<std::int64_t> phases;
        for (const auto& entry : project.tasks()->Phases()->Snapshot()) phases.insert(entry.item.Key().Number());
        for (const OutlineRow& row : Outline(project.tasks())) {
            const mrlxmlclass::TasksCls& task = *row.task;
            if (!phases.contains(task.TaskKey())) continue;
            fmt::print("{}  {}  {}\n", PadLeft(Text(task.TaskPosition()), 3), PadLeft(Text(task.TaskKey()), 3),
                       Plain(task.TaskName()));
        }
    }

    OptionalText task_;
};

}  // namespace

std::unique_ptr<Command> MakePhase(CLI::App& app) {
    return std::make_unique<Phase>(app);
}

}  // namespace prx
