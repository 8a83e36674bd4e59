#include "prx/Command.h"

namespace prx {
namespace {

class Rename : public TaskCommand {
public:
    explicit Rename(CLI::App& app) : TaskCommand(app, "rename", "Give a task another name") {
        options().add_option("NAME", value_, "One line of text")->required();
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        SetFieldsOf(project, task, {{"name", value_}});
    }

    std::string value_;
};

}  // namespace

std::unique_ptr<Command> MakeRename(CLI::App& app) {
    return std::make_unique<Rename>(app);
}

}  // namespace prx
