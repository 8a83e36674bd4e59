#include "prx/Command.h"

namespace prx {
namespace {

class Cost : public TaskCommand {
public:
    explicit Cost(CLI::App& app) : TaskCommand(app, "cost", "Say what a task costs; the summaries above add it up") {
        options().add_option("AMOUNT", value_, "Such as 1250 or 1250.50")->required();
    }

private:
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        SetFieldsOf(project, task, {{"cost", value_}});
    }

    std::string value_;
};

}  // namespace

std::unique_ptr<Command> MakeCost(CLI::App& app) {
    return std::make_unique<Cost>(app);
}

}  // namespace prx
