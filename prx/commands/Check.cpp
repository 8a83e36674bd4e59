#include <fmt/core.h>
#include <fmt/ranges.h>

#include "prx/Command.h"
#include "prx/Inspection.h"
#include "prx/LinkFaults.h"
#include "prx/LostRecords.h"
#include "prx/Outline.h"
#include "prx/Project.h"
#include "prx/Refusal.h"
#include "prx/Summaries.h"
#include "prx/TaskKeys.h"
#include "prx/Terminal.h"
#include "prx/TieFaults.h"
#include "prx/ValueFaults.h"

namespace prx {
namespace {

class Check : public Command {
public:
    explicit Check(CLI::App& app)
        : Command(app, "check", "Open a project and tell what is wrong with it; exit status 1 if anything is") {
        options().footer(
            "Comments, instructions and attributes belong to no record: no edit and no repair keeps them, and a file "
            "that has any is not wrong for it.");
        auto* repair = repair_.AddTo(options(), "--repair",
                                     "Mend the links between tasks, their summaries, and what ties them to people, "
                                     "goals, obstacles and notes, in a new file of this name");
        options().add_flag("--force", force_, "Write the new file also without what could not be read")->needs(repair);
    }

    int Run(Host& host) override {
        if (repair_) return Repair(host);
        const Project project = Project::ToLook(host, file());
        const bool lossless = Tell("Not read", Unread(project));
        const bool quiet = Tell("Recorded on the way", Recorded(project));
        const bool in_order = Tell("Repaired in memory, not in the file", prx::Repairs(project));
        const bool consistent = Tell("Still wrong", Unmended(project));
        const bool keyed = Tell("Without a key; --repair files it under one in a new file", KeyFaults(project));
        const bool tied = Tell("Tied wrongly; --repair mends it in a new file", TieFaults(project));
        const bool linked = Tell("Linked wrongly; --repair mends it in a new file", LinkFaults(project));
        const bool added_up = Tell("Added up wrongly; --repair mends it in a new file", SummaryFaults(project));
        TellBeside(project);
        if (!lossless || !quiet || !in_order || !consistent || !keyed || !tied || !linked || !added_up) {
            return kFoundFaults;
        }
        return TellThatAllIsWell(project);
    }

private:
    int Repair(Host& host) const {
        Project::RefuseToReplace(*repair_);
        bool whole = true;
        {
            Project project = Project::ToLook(host, file());
            const std::vector<std::string> lost = RefuseUnlessWhole(project);
            const std::vector<std::string> recorded = Recorded(project);
            const std::vector<std::string> repaired = prx::Repairs(project);
            const std::vector<std::string> mended = project.Mend();
            const std::vector<std::string> failed = project.FailuresSince();
            const bool well = lost.empty() && recorded.empty() && repaired.empty() && mended.empty() &&
                              failed.empty() && Unmended(project).empty();
            TellBeside(project);
            if (well) {
                Note(fmt::format("there is nothing to repair: {} was not written", Plain(*repair_)));
                return TellThatAllIsWell(project);
            }
            project.SaveAs(*repair_);
            whole = Tell("Not read, and so not in the new file", lost);
            Tell("Recorded on the way", recorded);
            Tell("Repaired", repaired);
            Tell("Mended", mended);
            whole &= Tell("The mending did not go through", failed);
        }
        const Project mended = Project::ToLook(host, *repair_);
        fmt::print("{}: written\n", Plain(mended.path()));
        std::vector<std::string> left = Losses(mended);
        for (const std::vector<std::string>& more : {prx::Repairs(mended), Unmended(mended), KeyFaults(mended),
                                                     TieFaults(mended), LinkFaults(mended), SummaryFaults(mended)}) {
            left.insert(left.end(), more.begin(), more.end());
        }
        return Tell("Still wrong", left) && whole ? kDone : kFoundFaults;
    }

    /// What is lost: nothing, or with --force something.
    std::vector<std::string> RefuseUnlessWhole(const Project& project) const {
        std::vector<std::string> lost = Unread(project);
        if (force_ || lost.empty()) return lost;
        throw Refusal(
            fmt::format("{}: this project could not be read whole, and the new file would lack the rest:\n  {}\n"
                        "Nothing was written; --force writes it all the same.",
                        Plain(project.path()), fmt::join(Shortened(lost), "\n  ")));
    }

    /// What no repair mends.
    static std::vector<std::string> Unmended(const Project& project) {
        std::vector<std::string> lines = OutlineFaults(project);
        for (const std::vector<std::string>& more : {ValueFaults(project), CostsBeyondRange(project)}) {
            lines.insert(lines.end(), more.begin(), more.end());
        }
        return lines;
    }
    static void TellBeside(const Project& project) {
        if (project.read_only()) Note("somebody else has this project open");
        if (const std::string passed = PassedBy(project); !passed.empty()) {
            Note(fmt::format("no edit and no repair keeps what belongs to no record: {}", passed));
        }
    }
    static int TellThatAllIsWell(const Project& project) {
        const std::size_t rows = Outline(project.tasks()).size();
        const auto all = static_cast<std::size_t>(project.tasks()->Count(mrlxmlclass::True).value());
        fmt::print("{}: nothing is wrong, {}{}\n", Plain(project.path()), Tasks(rows),
                   all > rows ? fmt::format(", {} beside the outline", all - rows) : "");
        return kDone;
    }
    /// True when there is nothing to tell.
    static bool Tell(const char* what, const std::vector<std::string>& lines) {
        if (lines.empty()) return true;
        fmt::print("{}:\n", what);
        for (const std::string& line : Shortened(lines)) fmt::print("  {}\n", line);
        return false;
    }

    OptionalText repair_;
    bool force_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeCheck(CLI::App& app) {
    return std::make_unique<Check>(app);
}

}  // namespace prx
