#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/EventLog.h"
#include "prx/Project.h"

namespace prx {
namespace {

class Remove : public EditCommand {
public:
    explicit Remove(CLI::App& app)
        : EditCommand(app, "remove", "Remove a task with all below it and print what followed") {
        options().add_option("TASK", task_, "A key, #row or name")->required();
        options().footer(
            "Its links go. Over the hole, the last task that waited for it then waits for the last one that it waited "
            "for, and may move, with all behind it. What comes of it for the links is told.");
    }

    int Run(Host& host) override {
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());
        RemoveTask(project, FindAnyTask(project, task_));
        project.Save();
        events.Print();
        return kDone;
    }

private:
    std::string task_;
};

}  // namespace

std::unique_ptr<Command> MakeRemove(CLI::App& app) {
    return std::make_unique<Remove>(app);
}

}  // namespace prx
