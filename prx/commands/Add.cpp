#include <fmt/core.h>

#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/EventLog.h"
#include "prx/Fields.h"
#include "prx/Project.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Add : public EditCommand {
public:
    explicit Add(CLI::App& app) : EditCommand(app, "add", "Add a task and print its key and what followed") {
        options().add_option("NAME", name_, "Name of the task")->required();
        auto* under = under_.AddTo(options(), "--under", "Last below this task: a key, #row or name");
        after_.AddTo(options(), "--after", "Right behind this task, on its level")->excludes(under);
        for (Option& option : fields_) option.value.AddTo(options(), std::string("--") + option.field, option.help);
        options().add_flag("--milestone", milestone_, "A day rather than a stretch of time");
        options().footer(UnitHelp());
    }

    int Run(Host& host) override {
        const std::string name = ReadName(name_);
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());

        Place place;
        if (under_) place.under = FindTask(project, *under_);
        if (after_) place.after = FindTask(project, *after_);
        Remarks remarks;
        if (place.under) remarks = LostAsSummary(project, *place.under);
        const auto task = AddTask(project, place);
        std::vector<Assignment> assignments;
        if (milestone_) assignments.push_back({"milestone", "yes"});
        for (const Option& option : fields_) {
            if (option.value) assignments.push_back({option.field, *option.value});
        }
        const Remarks of_fields = FillFields(project, task, assignments);
        remarks.insert(remarks.end(), of_fields.begin(), of_fields.end());
        NameNewTask(project, task, name);

        project.Save();
        for (const std::string& remark : remarks) Note(remark);
        fmt::print("Task {} added in row {}\n", Text(task->TaskKey()), Text(task->TaskPosition()));
        events.Print();
        return kDone;
    }

private:
    struct Option {
        const char* field;
        const char* help;
        OptionalText value = {};
    };

    std::string name_;
    OptionalText under_;
    OptionalText after_;
    bool milestone_ = false;
    std::array<Option, 7> fields_ = {{{"start", "First day, yyyy-mm-dd"},
                                      {"end", "Last day, yyyy-mm-dd"},
                                      {"duration", "Length, such as 5, \"5 days\" or 2wks"},
                                      {"unit", "days, wks, mons, hrs or mins"},
                                      {"done", "Percent, 0 to 100"},
                                      {"cost", "Such as 1250 or 1250.50"},
                                      {"colour", "A number, 0 to 16777215"}}};
};

}  // namespace

std::unique_ptr<Command> MakeAdd(CLI::App& app) {
    return std::make_unique<Add>(app);
}

}  // namespace prx
