#include "prx/Edit.h"

#include "examples/task_dialog_texts.h"
#include "mrlxmlclass/scheduling/KeptLengths.h"
#include "mrlxmlclass/scheduling/TaskEdit.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "prx/Command.h"
#include "prx/Content.h"
#include "prx/EventLog.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Windows.h"

namespace prx {
namespace {

class Edit : public EditCommand {
public:
    explicit Edit(CLI::App& app)
        : EditCommand(app, "edit", "Edit a task in a window; saves when it is left by OK and something changed") {
        options().add_option("TASK", task_, "A key, #row or name")->required();
    }

    bool opens_window() const override { return true; }
    int Run(Host& host) override {
        if (const std::string reason = WhyNoWindow(); !reason.empty()) throw Refusal(reason);
        Project project = Project::ToEdit(host, file(), force());
        // Told before the person types what could not be saved.
        const std::string reason = mrlxmlclass::WhyNotReplaceable(project.path());
        if (!reason.empty()) throw Refusal(Plain(reason));
        const EventLog events(project.tasks());
        const mrlxmlclass::Ref<mrlxmlclass::TasksCls> task = FindTask(project, task_);

        project.tasks()->SortMe(mrlxmlclass::True);  // as the dialog does: that alone is no change
        project.links().AskedFor(*task);
        const std::string before = ContentOf(project);
        const mrlxmlclass::Date start = task->TaskBDate();
        const mrlxmlclass::Date end = task->TaskEDate();
        project.app().showtaskinfo(KeyOf(*task), project.tasks(), kScreen, EnglishTaskDialogTexts());
        const Ending ending = EndingOfDialog();
        if (ending == Ending::Failed) {
            project.RefuseIfFailed();
            throw Refusal("the window did not come to its end, so nothing was saved");
        }
        project.TellFailures("in the window");  // of what the person tried meanwhile
        if (ending != Ending::Saved || ContentOf(project) == before) {
            Note(ending == Ending::Saved ? "nothing changed, so nothing was saved"
                                         : "left without OK, so nothing was saved");
            return kDone;
        }
        // The dialog stores dates without moving what depends on them.
        if (task->TaskBDate() != start || task->TaskEDate() != end) {
            const KeptLengths aside(project.tasks(), task.get());
            mrlxmlclass::TaskEdit(project.tasks(), task).Follow();
        }
        project.Save();
        events.Print();
        return kDone;
    }

private:
    using Ending = mrlxmlclass::EditTask::Ending;
    /// The screen of a host's on which all of a task can be edited.
    static constexpr int kScreen = 2;

    std::string task_;
};

}  // namespace

std::unique_ptr<Command> MakeEdit(CLI::App& app) {
    return std::make_unique<Edit>(app);
}

}  // namespace prx
