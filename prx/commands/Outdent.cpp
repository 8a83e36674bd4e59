#include "prx/Command.h"
#include "prx/Moving.h"

namespace prx {
namespace {

class Outdent : public TaskCommand {
public:
    explicit Outdent(CLI::App& app)
        : TaskCommand(app, "outdent", "Take a task out of its summary, to stand right behind it") {}

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
