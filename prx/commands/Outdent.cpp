#include "prx/Command.h"
#include "prx/Moving.h"

namespace prx {
namespace {

class Outdent : public TaskCommand {
public:
    explicit Outdent(CLI::App& app)
        : TaskCommand(app, "outdent", "Take a task out of its summary, to stand right behind it") {
        options().footer(
            "Links may be lost on the way, mostly the first one of the task, and an only child is made to wait for its "
            "former parent. Each is told; \"move --after\" takes a task to the same place with all its links.");
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        OutdentTask(project, task);
    }
};

}  // namespace

std::unique_ptr<Command> MakeOutdent(CLI::App& app) {
    return std::make_unique<Outdent>(app);
}

}  // namespace prx
