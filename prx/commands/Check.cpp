#include <fmt/core.h>

#include "prx/Command.h"
#include "prx/Inspection.h"
#include "prx/Project.h"
#include "prx/Terminal.h"
#include "prx/TieFaults.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Check : public Command {
public:
    explicit Check(CLI::App& app)
        : Command(app, "check", "Open a project and tell what is wrong with it; exit status 1 if anything is") {
        options().add_option("--repair", copy_,
                             "Mend what ties tasks to people, goals, obstacles and notes, in a "
                             "new file of this name");
    }

    int Run(Host& host) override {
        if (Repairs()) return Repair(host);
        const Project project = Project::ToLook(host, file());
        const bool lossless = Tell("Not read", Losses(project));
        const bool in_order = Tell("Repaired in memory, not in the file", prx::Repairs(project));
        const bool consistent = Tell("Still wrong", OutlineFaults(project));
        const bool tied = Tell("Tied wrongly; --repair mends it in a new file", TieFaults(project));
        TellOfLock(project);
        if (!lossless || !in_order || !consistent || !tied) return kFoundFaults;
        return TellThatAllIsWell(project);
    }

private:
    bool Repairs() const { return !copy_.empty(); }

    int Repair(Host& host) const {
        Project::RefuseToReplace(copy_);
        bool lossless = true;
        {
            Project project = Project::ToLook(host, file());
            lossless = Tell("Not read, and so not in the new file", LostRecords(project));
            const bool in_order = Tell("Repaired", prx::Repairs(project));
            const bool tied = Tell("Mended", MendTies(project));
            TellOfLock(project);
            if (lossless && in_order && tied && Losses(project).empty() && OutlineFaults(project).empty()) {
                return TellThatAllIsWell(project);
            }
            project.SaveAs(copy_);
        }
        const Project mended = Project::ToLook(host, copy_);
        fmt::print("{}: written\n", Plain(mended.path()));
        std::vector<std::string> left = Losses(mended);
        for (const std::vector<std::string>& more : {prx::Repairs(mended), OutlineFaults(mended), TieFaults(mended)}) {
            left.insert(left.end(), more.begin(), more.end());
        }
        return Tell("Still wrong", left) && lossless ? kDone : kFoundFaults;
    }

    static void TellOfLock(const Project& project) {
        if (project.read_only()) Note("somebody else has this project open");
        for (const std::string& failure : project.LockFailures()) Note("no lock could be taken: " + failure);
    }
    static int TellThatAllIsWell(const Project& project) {
        fmt::print("{}: nothing is wrong, {} tasks\n", Plain(project.path()), Text(project.tasks()->Count()));
        return kDone;
    }
    /// True when there is nothing to tell.
    static bool Tell(const char* what, const std::vector<std::string>& lines) {
        if (lines.empty()) return true;
        fmt::print("{}:\n", what);
        for (const std::string& line : Shortened(lines)) fmt::print("  {}\n", line);
        return false;
    }

    std::string copy_;
};

}  // namespace

std::unique_ptr<Command> MakeCheck(CLI::App& app) {
    return std::make_unique<Check>(app);
}

}  // namespace prx
