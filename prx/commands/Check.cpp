#include <fmt/core.h>

#include "prx/Command.h"
#include "prx/Inspection.h"
#include "prx/Project.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Check : public Command {
public:
    explicit Check(CLI::App& app)
        : Command(app, "check", "Open a project and tell what is wrong with it; exit status 1 if anything is") {}

    int Run(Host& host) override {
        const Project project = Project::ToLook(host, file());
        const bool lossless = Tell("Not read", Losses(project));
        const bool in_order = Tell("Repaired in memory, not in the file", Repairs(project));
        const bool consistent = Tell("Still wrong", OutlineFaults(project));
        if (project.read_only()) Note("somebody else has this project open");
        for (const std::string& failure : project.LockFailures()) Note("no lock could be taken: " + failure);
        if (!lossless || !in_order || !consistent) return kFoundFaults;
        fmt::print("{}: nothing is wrong, {} tasks\n", Plain(project.path()), Text(project.tasks()->Count()));
        return kDone;
    }

private:
    /// True when there is nothing to tell.
    static bool Tell(const char* what, const std::vector<std::string>& lines) {
        if (lines.empty()) return true;
        fmt::print("{}:\n", what);
        for (const std::string& line : Shortened(lines)) fmt::print("  {}\n", line);
        return false;
    }
};

}  // namespace

std::unique_ptr<Command> MakeCheck(CLI::App& app) {
    return std::make_unique<Check>(app);
}

}  // namespace prx
