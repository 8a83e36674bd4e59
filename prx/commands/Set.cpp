#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/EventLog.h"
#include "prx/Fields.h"
#include "prx/Project.h"

namespace prx {
namespace {

class Set : public EditCommand {
public:
    explicit Set(CLI::App& app) : EditCommand(app, "set", "Set fields of a task and print what followed") {
        options().add_option("TASK", task_, "A key, #row or name")->required();
        options().add_option("FIELD=VALUE", assignments_, "What to set, such as start=2026-03-02")->required();
        options().footer(FieldHelp());
    }

    int Run(Host& host) override {
        std::vector<Assignment> assignments;
        for (const std::string& text : assignments_) assignments.push_back(ReadAssignment(text));
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());
        const auto task = FindTask(project, task_);
        const Effects effects = SetFields(project, task, assignments);
        if (effects.dates_changed) AdjustDatesAbove(project, *task);
        if (effects.cost_changed) AdjustCostFrom(project, *task);
        project.Save();
        for (const std::string& note : effects.notes) Note(note);
        events.Print();
        return kDone;
    }

private:
    std::string task_;
    std::vector<std::string> assignments_;
};

}  // namespace

std::unique_ptr<Command> MakeSet(CLI::App& app) {
    return std::make_unique<Set>(app);
}

}  // namespace prx
