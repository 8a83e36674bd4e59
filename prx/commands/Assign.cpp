#include "prx/Command.h"
#include "prx/Edit.h"
#include "prx/Items.h"

namespace prx {
namespace {

/// What the two commands share: a task and an item.
class Tying : public TaskCommand {
public:
    using Operation = void (*)(const Project&, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>&, Kind,
                               const std::string&);

    Tying(CLI::App& app, const std::string& name, const std::string& summary, Operation operation)
        : TaskCommand(app, name, summary), operate_(operation) {
        options().add_option("KIND", kind_, "person, goal, obstacle or note")->required();
        options().add_option("ITEM", item_, "Its key or name")->required();
    }

private:
    void Read() override { ReadKind(kind_); }
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        const Kind kind = ReadKind(kind_);
        operate_(project, task, kind, FindItem(project, kind, item_));
    }

    Operation operate_;
    std::string kind_;
    std::string item_;
};

}  // namespace

std::unique_ptr<Command> MakeAssign(CLI::App& app) {
    return std::make_unique<Tying>(app, "assign", "Give a task a person, goal, obstacle or note", Assign);
}

std::unique_ptr<Command> MakeUnassign(CLI::App& app) {
    return std::make_unique<Tying>(app, "unassign", "Take a person, goal, obstacle or note off a task", Unassign);
}

}  // namespace prx
