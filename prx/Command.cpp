#include "prx/Command.h"

#include <fmt/core.h>

#include "mrlxmlclass/scheduling/Waits.h"
#include "prx/Edit.h"
#include "prx/EventLog.h"
#include "prx/Project.h"

namespace prx {

void Command::Note(const std::string& text) {
    fmt::print(stderr, "prx: {}\n", text);
}

TaskCommand::TaskCommand(CLI::App& app, const std::string& name, const std::string& summary)
    : EditCommand(app, name, summary) {
    options().add_option("TASK", task_, "A key, #row or name")->required();
}

int TaskCommand::Run(Host& host) {
    Read();
    Project project = Project::ToEdit(host, file(), force());
    const EventLog events(project.tasks());
    const auto task = Find(project, task_);
    const bool in_circle = WaitsForItself(project.tasks(), task);
    Change(project, task);
    if (!in_circle && WaitsForItself(project.tasks(), task)) {
        Tell("the links run in a circle now: the task waits for itself");
    }
    project.Save();
    for (const std::string& note : notes_) Note(note);
    events.Print();
    return kDone;
}

mrlxmlclass::Ref<mrlxmlclass::TasksCls> TaskCommand::Find(const Project& project, const std::string& text) const {
    return FindTask(project, text);
}

void TaskCommand::SetFieldsOf(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
                              const std::vector<Assignment>& assignments) {
    TellEach(SetFields(project, task, assignments));
}

}  // namespace prx
