#include <fmt/core.h>

#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Command.h"
#include "prx/Project.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

class New : public Command {
public:
    explicit New(CLI::App& app) : Command(app, "new", "Start an empty project") {
        options().add_option("--name", name_, "Name of the project");
        options().add_option("--start", start_, "First day of the project, yyyy-mm-dd");
        options().add_option("--deadline", deadline_, "Last day of the project, yyyy-mm-dd");
    }

    int Run(Host& host) override {
        Project project = Project::Fresh(host, file());
        const auto record = project.app().xProject();
        record->ProjectCreationDate(mrlxmlclass::Platform().clock.Today());
        if (!name_.empty()) record->ProjectName(ReadName(name_));
        if (!start_.empty()) record->ProjectStartLine(ReadDate(start_));
        if (!deadline_.empty()) record->ProjectDeadLine(ReadDate(deadline_));
        project.Save();
        fmt::print("{}\n", Plain(project.path()));
        return kDone;
    }

private:
    std::string name_;
    std::string start_;
    std::string deadline_;
};

}  // namespace

std::unique_ptr<Command> MakeNew(CLI::App& app) {
    return std::make_unique<New>(app);
}

}  // namespace prx
