#include "prx/Command.h"

namespace prx {
namespace {

class Milestone : public TaskCommand {
public:
    explicit Milestone(CLI::App& app) : TaskCommand(app, "milestone", "Make a task a milestone: a day, not a stretch") {
        options().add_flag("--off", off_, "Make it a task of one day again");
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        SetFieldsOf(project, task, {{"milestone", off_ ? "no" : "yes"}});
    }

    bool off_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeMilestone(CLI::App& app) {
    return std::make_unique<Milestone>(app);
}

}  // namespace prx
