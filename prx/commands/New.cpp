#include <fmt/core.h>

#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Command.h"
#include "prx/Project.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

class New : public Command {
public:
    explicit New(CLI::App& app) : Command(app, "new", "Start an empty project") {
        name_.AddTo(options(), "--name", "Name of the project");
        start_.AddTo(options(), "--start", "First day of the project, yyyy-mm-dd");
        deadline_.AddTo(options(), "--deadline", "Last day of the project, yyyy-mm-dd");
    }

    int Run(Host& host) override {
        Project project = Project::Fresh(host, file());
        const auto record = project.app().xProject();
        record->ProjectCreationDate(mrlxmlclass::Platform().clock.Today());
        if (name_) record->ProjectName(ReadName(*name_, "a project"));
        if (start_) record->ProjectStartLine(ReadDate(*start_));
        if (deadline_) record->ProjectDeadLine(ReadDate(*deadline_));
        if (start_ && deadline_ && ReadDate(*deadline_) < ReadDate(*start_)) {
            throw Refusal(fmt::format("the deadline {} lies before the start {}", *deadline_, *start_));
        }
        project.Save();
        fmt::print("{}\n", Plain(project.path()));
        return kDone;
    }

private:
    OptionalText name_;
    OptionalText start_;
    OptionalText deadline_;
};

}  // namespace

std::unique_ptr<Command> MakeNew(CLI::App& app) {
    return std::make_unique<New>(app);
}

}  // namespace prx
