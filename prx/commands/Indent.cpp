#include "prx/Command.h"
#include "prx/Moving.h"

namespace prx {
namespace {

class Indent : public TaskCommand {
public:
    explicit Indent(CLI::App& app) : TaskCommand(app, "indent", "Put a task below the one above it") {
        options().footer(
            "A task without tasks below it starts with its new parent, and what waits for it moves along. No task "
            "waits for a summary, and none for what stands below it: the links that the task's new parents so lose are "
            "told, and so is the cost of one that had no task below it.");
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        TellEach(IndentTask(project, task));
    }
};

}  // namespace

std::unique_ptr<Command> MakeIndent(CLI::App& app) {
    return std::make_unique<Indent>(app);
}

}  // namespace prx
