#include "prx/Command.h"
#include "prx/Values.h"

namespace prx {
namespace {

class Set : public TaskCommand {
public:
    explicit Set(CLI::App& app) : TaskCommand(app, "set", "Set fields of a task and print what followed") {
        options().add_option("FIELD=VALUE", texts_, "What to set, such as start=2026-03-02")->required();
        options().footer(FieldHelp() + "\n" + UnitHelp());
    }

private:
    void Read() override {
        for (const std::string& text : texts_) assignments_.push_back(ReadAssignment(text));
    }
    void Change(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task) override {
        SetFieldsOf(project, task, assignments_);
    }

    std::vector<std::string> texts_;
    std::vector<Assignment> assignments_;
};

}  // namespace

std::unique_ptr<Command> MakeSet(CLI::App& app) {
    return std::make_unique<Set>(app);
}

}  // namespace prx
