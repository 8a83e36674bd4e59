#include <fmt/core.h>

#include "prx/Command.h"
#include "prx/Inspection.h"
#include "prx/Outline.h"
#include "prx/Project.h"
#include "prx/Terminal.h"

namespace prx {
namespace {

class Show : public Command {
public:
    explicit Show(CLI::App& app) : Command(app, "show", "Print the outline") {
        options().add_flag("--json", json_, "Print everything as JSON, for programs");
    }

    int Run(Host& host) override {
        const Project project = Project::ToLook(host, file());
        fmt::print("{}", json_ ? AsJson(project.app()) : AsTable(project.app()));
        if (!Losses(project).empty()) {
            Note(fmt::format("{}: this is not all of it; see \"prx check\"", Plain(project.path())));
        }
        return kDone;
    }

private:
    bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeShow(CLI::App& app) {
    return std::make_unique<Show>(app);
}

}  // namespace prx
