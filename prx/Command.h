#pragma once

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

#include "prx/Fields.h"
#include "prx/Host.h"

namespace prx {

/// A text of the command line that may be left out. One that is empty, such as a variable of the shell that nobody set,
/// is not left out.
class OptionalText {
public:
    CLI::Option* AddTo(CLI::App& options, const std::string& name, const std::string& help) {
        return option_ = options.add_option(name, text_, help);
    }
    explicit operator bool() const { return option_->count() > 0; }
    const std::string& operator*() const { return text_; }

private:
    CLI::Option* option_ = nullptr;
    std::string text_;
};

/// One command: its constructor declares what it takes, Run does it. Each stands in a file of its own under commands/.
class Command {
public:
    /// Exit statuses. A command that cannot do what it was asked to throws a Refusal instead, which is kRefused.
    static constexpr int kDone = 0;
    static constexpr int kFoundFaults = 1;
    static constexpr int kRefused = 2;

    virtual ~Command() = default;
    virtual int Run(Host& host) = 0;
    /// Whether the command line asks for this one.
    bool chosen() const { return options_->parsed(); }
    virtual bool opens_window() const { return false; }

protected:
    Command(CLI::App& app, const std::string& name, const std::string& summary,
            const std::string& of_file = "The project file")
        : options_(app.add_subcommand(name, summary)) {
        options_->add_option("FILE", file_, of_file)->required();
    }
    CLI::App& options() { return *options_; }
    const std::string& file() const { return file_; }

    /// Tells something beside the result, on the error output.
    static void Note(const std::string& text);

private:
    CLI::App* options_;
    std::string file_;
};

/// A command that changes the file.
class EditCommand : public Command {
protected:
    EditCommand(CLI::App& app, const std::string& name, const std::string& summary) : Command(app, name, summary) {
        options().add_flag("--force", force_, "Go on with a file that could not be read whole, and lose the rest");
    }
    bool force() const { return force_; }

private:
    bool force_ = false;
};

/// A command that changes one task and prints the events that followed.
class TaskCommand : public EditCommand {
public:
    int Run(Host& host) override;

protected:
    TaskCommand(CLI::App& app, const std::string& name, const std::string& summary);
    /// Before the file is opened: refuses what can be no value.
    virtual void Read() {}
    virtual void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) = 0;
    /// The task that is meant.
    virtual mrlxmlclass::Ref<mrlxmlclass::TasksCls> Find(const Project& project, const std::string& text) const;

    /// Told when all went through.
    void Tell(const std::string& note) { notes_.push_back(note); }
    void TellEach(const Remarks& remarks) { notes_.insert(notes_.end(), remarks.begin(), remarks.end()); }
    /// Sets fields of the task; see Fields.h.
    void SetFieldsOf(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
                     const std::vector<Assignment>& assignments);

private:
    std::string task_;
    Remarks notes_;
};

using Commands = std::vector<std::unique_ptr<Command>>;

std::unique_ptr<Command> MakeNew(CLI::App& app);
std::unique_ptr<Command> MakeConvert(CLI::App& app);
std::unique_ptr<Command> MakeImport(CLI::App& app);
std::unique_ptr<Command> MakeShow(CLI::App& app);
std::unique_ptr<Command> MakeAdd(CLI::App& app);
std::unique_ptr<Command> MakeEdit(CLI::App& app);
std::unique_ptr<Command> MakeSet(CLI::App& app);
std::unique_ptr<Command> MakeRename(CLI::App& app);
std::unique_ptr<Command> MakeMilestone(CLI::App& app);
std::unique_ptr<Command> MakeDone(CLI::App& app);
std::unique_ptr<Command> MakeCost(CLI::App& app);
std::unique_ptr<Command> MakeLink(CLI::App& app);
std::unique_ptr<Command> MakeUnlink(CLI::App& app);
std::unique_ptr<Command> MakeIndent(CLI::App& app);
std::unique_ptr<Command> MakeOutdent(CLI::App& app);
std::unique_ptr<Command> MakeMove(CLI::App& app);
std::unique_ptr<Command> MakePhase(CLI::App& app);
std::unique_ptr<Command> MakeShift(CLI::App& app);
std::unique_ptr<Command> MakeRemove(CLI::App& app);
std::unique_ptr<Command> MakePerson(CLI::App& app);
std::unique_ptr<Command> MakeGoal(CLI::App& app);
std::unique_ptr<Command> MakeObstacle(CLI::App& app);
std::unique_ptr<Command> MakeNote(CLI::App& app);
std::unique_ptr<Command> MakeAssign(CLI::App& app);
std::unique_ptr<Command> MakeUnassign(CLI::App& app);
std::unique_ptr<Command> MakeCalendar(CLI::App& app);
std::unique_ptr<Command> MakeCheck(CLI::App& app);

}  // namespace prx
