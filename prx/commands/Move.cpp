#include "prx/Command.h"
#include "prx/Moving.h"
#include "prx/Refusal.h"

namespace prx {
namespace {

class Move : public TaskCommand {
public:
    explicit Move(CLI::App& app) : TaskCommand(app, "move", "Move a task with all below it; its dates stay") {
        CLI::Option_group& where = *options().add_option_group("Where to");
        where.add_flag("--up", up_, "Past the task above it on its level");
        where.add_flag("--down", down_, "Past the task below it on its level");
        where.add_option("--under", under_, "Last below this task: a key, #row or name");
        where.add_option("--after", after_, "Right behind this task, on its level");
        where.require_option(1);
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        if (up_ || down_) {
            MoveTask(project, task, up_ ? Direction::kUp : Direction::kDown);
            return;
        }
        Place place;
        if (!under_.empty()) place.under = FindTask(project, under_);
        if (!after_.empty()) place.after = FindTask(project, after_);
        if (!place.under && !place.after) throw Refusal("name the task that it goes under or after");
        MoveTask(project, task, place);
    }

    bool up_ = false;
    bool down_ = false;
    std::string under_;
    std::string after_;
};

}  // namespace

std::unique_ptr<Command> MakeMove(CLI::App& app) {
    return std::make_unique<Move>(app);
}

}  // namespace prx
