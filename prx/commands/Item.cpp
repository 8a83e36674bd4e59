#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <deque>

#include "prx/Command.h"
#include "prx/EventLog.h"
#include "prx/Items.h"
#include "prx/Json.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {
namespace {

/// One for each kind of item.
class Item : public EditCommand {
public:
    Item(CLI::App& app, Kind kind)
        : EditCommand(app, NameOf(kind), fmt::format("Add, list or remove {}", PluralOf(kind))), kind_(kind) {
        options().require_subcommand(0, 1);  // what is none of them is named
        add_ = Action("add", "Add one and print its key");
        add_->add_option(NameColumn(), name_, kind == Kind::kNote ? "The text" : "The name")->required();
        for (const ItemField& field : FieldsOf(kind)) {
            add_->add_option(fmt::format("--{}", field.name), fields_.emplace_back(), field.help);
        }
        list_ = Action("list", "Print them and the keys of their tasks");
        list_->add_flag("--json", json_, "Print them as JSON, for programs");
        remove_ = Action("remove", "Remove one, also from its tasks, and print what followed");
        remove_->add_option("ITEM", name_, "Its key or name")->required();
    }

    int Run(Host& host) override {
        if (options().get_subcommands().empty()) {
            throw Refusal(fmt::format("say what to do with the {}: add, list or remove", PluralOf(kind_)));
        }
        if (list_->parsed()) {
            const Project project = Project::ToLook(host, file());
            fmt::print("{}", json_ ? AsJson(ItemsOf(project, kind_)) : AsTable(ItemsOf(project, kind_)));
            return kDone;
        }
        const std::string name = add_->parsed() ? ReadNewName() : name_;
        Project project = Project::ToEdit(host, file(), force());
        const EventLog events(project.tasks());
        std::string key;
        if (add_->parsed()) {
            key = AddItem(project, kind_, name, {fields_.begin(), fields_.end()});
        } else {
            RemoveItem(project, kind_, FindItem(project, kind_, name));
        }
        project.Save();
        if (!key.empty()) fmt::print("Added {} {}\n", NameOf(kind_), key);
        events.Print();
        return kDone;
    }

private:
    CLI::App* Action(const char* name, const char* summary) {
        return options().add_subcommand(name, summary)->fallthrough();
    }
    const char* NameColumn() const { return kind_ == Kind::kNote ? "TEXT" : "NAME"; }

    std::string ReadNewName() const {
        for (const std::string& field : fields_) {
            if (!field.empty()) ReadLine(field);
        }
        return kind_ == Kind::kNote ? ReadText(name_) : ReadName(name_, "a " + NameOf(kind_));
    }

    std::string AsTable(const std::vector<ItemRow>& rows) const {
        constexpr std::size_t kWidestName = 40;
        constexpr std::size_t kWidestTasks = 20;
        if (rows.empty()) return fmt::format("There are no {}\n", PluralOf(kind_));
        struct Line {
            std::string key, name, tasks, rest;
        };
        std::vector<Line> lines = {{"Key", kind_ == Kind::kNote ? "Text" : "Name", "Tasks", ""}};
        for (const ItemRow& row : rows) {
            lines.push_back({Plain(row.key), Plain(CutTo(row.name, kWidestName)),
                             CutTo(fmt::format("{}", fmt::join(row.tasks, ",")), kWidestTasks), Rest(row)});
        }
        const auto widest = [&](std::string Line::*cell) {
            std::size_t width = 0;
            for (const Line& line : lines) width = std::max(width, Width(line.*cell));
            return width;
        };
        const std::size_t key = widest(&Line::key), name = widest(&Line::name), tasks = widest(&Line::tasks);
        std::string text;
        for (const Line& line : lines) {
            std::string shown = fmt::format("{}  {}  {}  {}", PadLeft(line.key, key), PadRight(line.name, name),
                                            PadRight(line.tasks, tasks), line.rest);
            shown.erase(shown.find_last_not_of(' ') + 1);
            text += shown + "\n";
        }
        return text;
    }
    /// The fields that are set, behind their names.
    std::string Rest(const ItemRow& row) const {
        std::string text;
        const std::vector<ItemField> fields = FieldsOf(kind_);
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (row.fields[i].empty()) continue;
            text += fmt::format("{}{}: {}", text.empty() ? "" : ", ", fields[i].name, Plain(row.fields[i]));
        }
        return text;
    }

    std::string AsJson(const std::vector<ItemRow>& rows) const {
        std::vector<std::string> lines;
        const std::vector<ItemField> fields = FieldsOf(kind_);
        for (const ItemRow& row : rows) {
            json::Object object;
            object.Add("key", json::Key(row.key)).Add(kind_ == Kind::kNote ? "text" : "name", json::Quote(row.name));
            for (std::size_t i = 0; i < fields.size(); ++i) object.Add(fields[i].name, json::Quote(row.fields[i]));
            object.Add("tasks", fmt::format("[{}]", fmt::join(row.tasks, ", ")));
            lines.push_back(object.Text());
        }
        return json::Lines(lines) + "\n";
    }

    Kind kind_;
    CLI::App* add_;
    CLI::App* list_;
    CLI::App* remove_;
    std::string name_;
    std::deque<std::string> fields_;  ///< in the order of FieldsOf; the options hold on to them
    bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakePerson(CLI::App& app) {
    return std::make_unique<Item>(app, Kind::kPerson);
}

std::unique_ptr<Command> MakeGoal(CLI::App& app) {
    return std::make_unique<Item>(app, Kind::kGoal);
}

std::unique_ptr<Command> MakeObstacle(CLI::App& app) {
    return std::make_unique<Item>(app, Kind::kObstacle);
}

std::unique_ptr<Command> MakeNote(CLI::App& app) {
    return std::make_unique<Item>(app, Kind::kNote);
}

}  // namespace prx
