#include "mrlxmlclass/scheduling/Waits.h"
#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/Links.h"
#include "prx/Refusal.h"

namespace prx {
namespace {

class Unlink : public TaskCommand {
public:
    explicit Unlink(CLI::App& app) : TaskCommand(app, "unlink", "Let a task wait no longer; its dates stay") {
        predecessor_.AddTo(options(), "PREDECESSOR", "The task that it waits for; left out, all of them");
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        if (predecessor_) {
            UnlinkTasks(project, task, FindTask(project, *predecessor_));
            return;
        }
        const auto predecessors = PredecessorsOf(project.tasks(), *task);
        if (predecessors.empty()) throw Refusal("the task waits for nothing");
        for (const auto& predecessor : predecessors) UnlinkTasks(project, task, predecessor);
    }

    OptionalText predecessor_;
};

}  // namespace

std::unique_ptr<Command> MakeUnlink(CLI::App& app) {
    return std::make_unique<Unlink>(app);
}

}  // namespace prx
