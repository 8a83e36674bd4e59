#include <fmt/core.h>

#include <algorithm>
#include <filesystem>

#include "mrlxmlclass/session/Application.h"
#include "prx/Command.h"
#include "prx/CsvPlan.h"
#include "prx/Project.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/TieFaults.h"
#include "prx/Values.h"

namespace prx {
namespace {

using namespace mrlxmlclass;

/// Builds a new project of a plan that is kept in another form.
class NewFromPlan : public Command {
protected:
    NewFromPlan(CLI::App& app, const std::string& name, const std::string& summary) : Command(app, name, summary) {
        options().add_option("--to", to_, "The new project file; beside FILE where none is given");
    }

    int ConvertInto(Host& host) {
        Project project =
            Project::Fresh(host, to_.empty() ? std::filesystem::path(file()).replace_extension(".prx").string() : to_);
        project.app().Convert3to4(file(), {}, project.path());
        MendTies(project);  // the conversion ties a candidate to its item twice
        project.Save();
        const auto tasks = project.tasks()->NewEnum();
        const auto rows =
            std::ranges::count_if(tasks, [](const auto& entry) { return bool(entry.item->TaskCondidat()); });
        fmt::print("{}: {} tasks\n", Plain(project.path()), rows);
        Note("No weekday is free in the new plan; \"prx calendar\" sets those that are.");
        return kDone;
    }

private:
    std::string to_;
};

class Convert : public NewFromPlan {
public:
    explicit Convert(CLI::App& app) : NewFromPlan(app, "convert", "Start a project from a plan of version 3 (.prj)") {}

    int Run(Host& host) override {
        if (&Platform().old_plans == &NoOldPlans()) {
            throw Refusal(
                "plans of version 3 can only be read by the older program's component, and there is none here; write "
                "the plan as a table and use \"prx import\"");
        }
        return ConvertInto(host);
    }
};

class Import : public NewFromPlan {
public:
    explicit Import(CLI::App& app)
        : NewFromPlan(app, "import", "Start a project from a table of comma-separated values (.csv)") {}

    int Run(Host& host) override {
        CsvPlan plan = ReadPlan();
        const Services& system = Platform();
        Services with_plan{system.clock, system.locale, system.files, system.shell, system.ui, plan};
        const InstalledServices installed(with_plan);
        return ConvertInto(host);
    }

private:
    CsvPlan ReadPlan() const {
        const FileFacts facts = Platform().files.Facts(file());
        if (!facts.exists) throw Refusal(fmt::format("{}: there is no such file", Plain(file())));
        if (facts.folder) throw Refusal(fmt::format("{}: this is a folder, not a table", Plain(file())));
        try {
            return CsvPlan(Platform().files.Read(file()), std::filesystem::path(file()).stem().string());
        } catch (const Refusal& refusal) {
            throw Refusal(fmt::format("{}: {}", Plain(file()), refusal.what()));
        } catch (const Failure& failure) {
            throw Refusal(fmt::format("{}: this cannot be read: {}", Plain(file()), failure.what()));
        }
    }
};

}  // namespace

std::unique_ptr<Command> MakeConvert(CLI::App& app) {
    return std::make_unique<Convert>(app);
}

std::unique_ptr<Command> MakeImport(CLI::App& app) {
    return std::make_unique<Import>(app);
}

}  // namespace prx
