#include <fmt/core.h>

#include "prx/Command.h"
#include "prx/EventLog.h"
#include "prx/Moving.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Phase : public EditCommand {
public:
    explicit Phase(CLI::App& app)
        : EditCommand(app, "phase", "Print the phases, or make a task one: it goes to the top of the outline") {
        options().add_option("TASK", task_, "A key, #row or name");
    }

    int Run(Host& host) override {
        if (task_.empty()) {
            Print(Project::ToLook(host, file()));
            return kDone;
        }
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());
        TakeToTop(project, FindTask(project, task_));
        project.Save();
        events.Print();
        return kDone;
    }

private:
    static void Print(const Project& project) {
        for (const auto& entry : project.tasks()->Phases()->Snapshot()) {
            const auto phase = project.tasks()->Item(entry.item);
            if (!phase) continue;
            fmt::print("{}  {}  {}\n", PadLeft(Text(phase->TaskPosition()), 3), PadLeft(Text(phase->TaskKey()), 3),
                       Plain(phase->TaskName()));
        }
    }

    std::string task_;
};

}  // namespace

std::unique_ptr<Command> MakePhase(CLI::App& app) {
    return std::make_unique<Phase>(app);
}

}  // namespace prx
