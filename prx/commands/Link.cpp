#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/Links.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Link : public TaskCommand {
public:
    explicit Link(CLI::App& app) : TaskCommand(app, "link", "Make a task wait for another, its predecessor") {
        options().add_option("PREDECESSOR", predecessor_, "The task that has to end first")->required();
        lag_.AddTo(options(), "--lag", "Put it so many working days behind; a negative lag overlaps");
    }

private:
    void Read() override {
        constexpr int kMostDays = 999;
        if (lag_) days_ = ReadWhole(*lag_, -kMostDays, kMostDays);
    }
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        LinkTasks(project, task, FindTask(project, predecessor_), days_);
    }

    std::string predecessor_;
    OptionalText lag_;
    std::optional<mrlxmlclass::Integer> days_;
};

}  // namespace

std::unique_ptr<Command> MakeLink(CLI::App& app) {
    return std::make_unique<Link>(app);
}

}  // namespace prx
