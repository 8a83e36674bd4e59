#include "prx/Command.h"
#include "prx/Moving.h"

namespace prx {
namespace {

class Move : public TaskCommand {
public:
    explicit Move(CLI::App& app) : TaskCommand(app, "move", "Move a task with all below it; its dates stay") {
        CLI::Option_group& where = *options().add_option_group("Where to");
        where.add_flag("--up", up_, "Past the task above it on its level");
        where.add_flag("--down", down_, "Past the task below it on its level");
        under_.AddTo(where, "--under", "Last below this task: a key, #row or name");
        after_.AddTo(where, "--after", "Right behind this task, on its level");
        where.require_option(1);
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        if (up_ || down_) {
            MoveTask(project, task, up_ ? Direction::kUp : Direction::kDown);
            return;
        }
        Place place;
        if (under_) place.under = FindTask(project, *under_);
        if (after_) place.after = FindTask(project, *after_);
        TellEach(MoveTask(project, task, place));
    }

    bool up_ = false;
    bool down_ = false;
    OptionalText under_;
    OptionalText after_;
};

}  // namespace

std::unique_ptr<Command> MakeMove(CLI::App& app) {
    return std::make_unique<Move>(app);
}

}  // namespace prx
