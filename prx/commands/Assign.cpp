#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/Items.h"

namespace prx {
namespace {

using namespace mrlxmlclass;

/// What the two commands share: a task and an item.
class Tying : public TaskCommand {
protected:
    Tying(CLI::App& app, const std::string& name, const std::string& summary) : TaskCommand(app, name, summary) {
        options().add_option("KIND", kind_, "person, goal, obstacle or note")->required();
        options().add_option("ITEM", item_, "Its key or name")->required();
    }
    Kind kind() const { return ReadKind(kind_); }
    const std::string& item() const { return item_; }

private:
    void Read() override { ReadKind(kind_); }

    std::string kind_;
    std::string item_;
};

class ToAssign : public Tying {
public:
    explicit ToAssign(CLI::App& app) : Tying(app, "assign", "Give a task a person, goal, obstacle or note") {}

private:
    void Change(const Project& project, const Ref<TasksCls>& task) override {
        Assign(project, task, kind(), FindItem(project, kind(), item()));
    }
};

class ToUnassign : public Tying {
public:
    explicit ToUnassign(CLI::App& app) : Tying(app, "unassign", "Take a person, goal, obstacle or note off a task") {}

private:
    Ref<TasksCls> Find(const Project& project, const std::string& text) const override {
        return FindAnyTask(project, text);
    }
    void Change(const Project& project, const Ref<TasksCls>& task) override {
        Unassign(project, task, kind(), FindItem(project, kind(), item(), task));
    }
};

}  // namespace

std::unique_ptr<Command> MakeAssign(CLI::App& app) {
    return std::make_unique<ToAssign>(app);
}

std::unique_ptr<Command> MakeUnassign(CLI::App& app) {
    return std::make_unique<ToUnassign>(app);
}

}  // namespace prx
