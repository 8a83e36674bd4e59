#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Command.h"
#include "prx/CsvPlan.h"
#include "prx/Edit.h"
#include "prx/Inspection.h"
#include "prx/Items.h"
#include "prx/Outline.h"
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
    NewFromPlan(CLI::App& app, const std::string& name, const std::string& summary, const std::string& of_file)
        : Command(app, name, summary, of_file) {
        to_.AddTo(options(), "--to", "The new project file; beside FILE where none is given");
    }

    /// What the conversion leaves to its host.
    virtual void Complete(const Project& /*project*/) {}

    int ConvertInto(Host& host) {
        Project project = Project::Fresh(host, NewFile());
        project.app().xProject()->ProjectCreationDate(Platform().clock.Today());
        project.app().Convert3to4(file(), {}, project.path());
        MendTies(project);  // the conversion ties a candidate to its item twice
        Complete(project);
        project.Save();
        fmt::print("{}: {}\n", Plain(project.path()), Tasks(Outline(project.tasks()).size()));
        Note("No weekday is free in the new plan; \"prx calendar\" sets those that are.");
        if (project.tasks()->TaskCanNotBeAdd()) Note("The plan is full: it cannot take another task.");
        TellWhatStandsBeside(project);
        return kDone;
    }

private:
    std::string NewFile() const {
        if (to_) return *to_;
        return std::filesystem::path(file()).replace_extension(".prx").string();
    }

    static void TellWhatStandsBeside(const Project& project) {
        std::map<std::int64_t, std::string> beside;
        for (const auto& entry : project.tasks()->NewEnum()) {
            if (!entry.item->TaskCondidat()) beside.emplace(entry.item->TaskKey(), TitleOf(*entry.item));
        }
        if (beside.empty()) return;
        std::vector<std::string> lines;
        for (const auto& [key, title] : beside) lines.push_back(title);
        Note(fmt::format("This work stands beside the outline; \"unassign\" and \"remove\" take it by its key:\n  {}",
                         fmt::join(Shortened(lines), "\n  ")));
    }

    OptionalText to_;
};

class Convert : public NewFromPlan {
public:
    explicit Convert(CLI::App& app)
        : NewFromPlan(app, "convert", "Start a project from a plan of version 3 (.prj)", "The old plan") {}

    int Run(Host& host) override {
        if (&Platform().old_plans == &NoOldPlans()) {
            throw Refusal(
                "plans of version 3 can only be read by the older program's component, and there is none here; write "
                "the plan as a table and use \"prx import\"");
        }
        return ConvertInto(host);
    }
};

/// Keeps what the library has to say.
class HeldUi : public Ui {
public:
    void Message(const String& text) override { texts_.push_back(text); }
    const std::vector<String>& texts() const { return texts_; }

protected:
    void DoEvents() override {}

private:
    std::vector<String> texts_;
};

class Import : public NewFromPlan {
public:
    explicit Import(CLI::App& app)
        : NewFromPlan(app, "import", "Start a project from a table of comma-separated values (.csv)", "The table") {
        options().footer(
            "The first row of the table names its columns: kind and name, and of level, start, end, done, note, people "
            "and tasks those that are needed. docs/table.md tells what they hold.");
    }

    int Run(Host& host) override {
        plan_.emplace(ReadPlan());
        const Services& system = Platform();
        HeldUi held;  // what it would say of days, the import says with the line
        Services with_plan{system.clock, system.locale, system.files, system.shell, held, *plan_};
        int status = kRefused;
        {
            const InstalledServices installed(with_plan);
            status = ConvertInto(host);
        }
        for (const std::string& text : held.texts()) Platform().ui.Message(text);
        return status;
    }

private:
    void Complete(const Project& project) override {
        TieWorkOfObstacles(project);
        const std::vector<OutlineRow> rows = Outline(project.tasks());
        SetDays(rows);
        RefuseOtherDays(rows);
    }

    /// Of the tasks without children; the summaries follow when all is saved.
    void SetDays(const std::vector<OutlineRow>& rows) const {
        for (std::size_t i = 0; i < std::min(rows.size(), plan_->outline().size()); ++i) {
            const PlannedTask& planned = plan_->outline()[i];
            if (planned.summary || !planned.start) continue;
            rows[i].task->TaskBDate(*planned.start);
            rows[i].task->TaskEDate(*planned.end);
        }
    }

    /// A day that no plan can have is changed without a word.
    void RefuseOtherDays(const std::vector<OutlineRow>& rows) const {
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < std::min(rows.size(), plan_->outline().size()); ++i) {
            const PlannedTask& planned = plan_->outline()[i];
            const TasksCls& task = *rows[i].task;
            if (planned.summary || !planned.start) continue;
            if (task.TaskBDate() == planned.start && task.TaskEDate() == planned.end) continue;
            lines.push_back(fmt::format("line {}: \"{}\" would be {} to {} instead of {} to {}", planned.line,
                                        Plain(CutTo(planned.name, kWidestName)), Text(task.TaskBDate()),
                                        Text(task.TaskEDate()), DayText(*planned.start), DayText(*planned.end)));
        }
        if (lines.empty()) return;
        throw Refusal(fmt::format("{}: a task lies in the years {} to {} and takes {} days at most:\n  {}",
                                  Plain(file()), kFirstYear, MaxYear().value(), kMostDays,
                                  fmt::join(Shortened(lines), "\n  ")));
    }

    void TieWorkOfObstacles(const Project& project) const {
        const std::vector<ItemRow> obstacles = ItemsOf(project, Kind::kObstacle);
        for (std::size_t i = 0; i < std::min(obstacles.size(), plan_->work_of_obstacles().size()); ++i) {
            Long place = 0;
            for (const String& name : plan_->work_of_obstacles()[i]) {
                Assign(project, AddBeside(project, name, place), Kind::kObstacle, obstacles[i].key);
                ++place;
            }
        }
    }

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

    static constexpr std::size_t kWidestName = 60;
    static constexpr int kFirstYear = 2000;
    static constexpr int kMostDays = 999;
    std::optional<CsvPlan> plan_;
};

}  // namespace

std::unique_ptr<Command> MakeConvert(CLI::App& app) {
    return std::make_unique<Convert>(app);
}

std::unique_ptr<Command> MakeImport(CLI::App& app) {
    return std::make_unique<Import>(app);
}

}  // namespace prx
