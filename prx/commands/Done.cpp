#include "prx/Command.h"

namespace prx {
namespace {

class Done : public TaskCommand {
public:
    explicit Done(CLI::App& app) : TaskCommand(app, "done", "Say how far a task has come") {
        options().add_option("PERCENT", value_, "0 to 100")->required();
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        SetFieldsOf(project, task, {{"done", value_}});
    }

    std::string value_;
};

}  // namespace

std::unique_ptr<Command> MakeDone(CLI::App& app) {
    return std::make_unique<Done>(app);
}

}  // namespace prx
