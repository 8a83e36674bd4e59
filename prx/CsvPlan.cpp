#include "prx/CsvPlan.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "mrlxmlclass/dom/Characters.h"
#include "mrlxmlclass/runtime/Text.h"
#include "prx/Csv.h"
#include "prx/Items.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr int kMostLevels = 1000;
constexpr std::size_t kMostTasks = 32766;  ///< in the outline and beside it; also of items
constexpr std::size_t kMostTies = 32767;   ///< of people to tasks; also of goals

/// Anything that a row of the table can be: a phase, a task, a person, a goal, an obstacle.
struct Row {
    std::size_t line = 0;
    std::string kind;
    String name;
    int level = 0;
    std::optional<Date> start;
    std::optional<Date> end;
    Boolean done;
    String note;
    std::vector<String> people;
    std::vector<String> tasks;
};

class TableTask : public OldTask {
public:
    explicit TableTask(Row row) : row_(std::move(row)) {}

    String Name() override { return row_.name; }
    Date StartDate() override { return {}; }
    Date EndDate() override { return {}; }
    Boolean Completed() override { return row_.done; }
    String Note() override { return row_.note; }
    std::vector<String> AssignedResource() override { return row_.people; }
    std::vector<Ref<OldTask>> Tasks() override { return below; }

    PlannedTask Planned() const { return {row_.line, row_.name, row_.start, row_.end, !below.empty()}; }

    std::vector<Ref<OldTask>> below;

private:
    Row row_;
};

/// The work that an item lists beside the outline.
std::vector<Ref<OldTask>> WorkOf(const Row& row) {
    std::vector<Ref<OldTask>> work;
    for (const String& name : row.tasks) {
        Row idea;
        idea.name = name;
        work.emplace_back(Ref<OldTask>(new TableTask(std::move(idea))));
    }
    return work;
}

class TablePerson : public OldPerson {
public:
    explicit TablePerson(Row row) : row_(std::move(row)) {}
    String Name() override { return row_.name; }
    std::vector<Ref<OldTask>> Tasks() override { return WorkOf(row_); }

private:
    Row row_;
};

class TableItem : public OldItem {
public:
    explicit TableItem(Row row) : row_(std::move(row)) {}
    String Name() override { return row_.name; }
    String Note() override { return row_.note; }
    std::vector<Ref<OldTask>> Tasks() override { return WorkOf(row_); }

private:
    Row row_;
};

/// Its work is tied afterwards.
class TableObstacle : public TableItem {
public:
    using TableItem::TableItem;
    std::vector<Ref<OldTask>> Tasks() override { return {}; }
};

class TableProject : public OldProject {
public:
    explicit TableProject(String name) : name_(std::move(name)) {}

    void Location(const String& /*path*/) override {}
    void Load(const String& /*path*/) override {}  // read before the conversion began
    String Name() override { return name_; }
    std::vector<Ref<OldPerson>> People() override { return people; }
    std::vector<Ref<OldTask>> Phases() override { return phases; }
    std::vector<Ref<OldItem>> goals() override { return goals_; }
    std::vector<Ref<OldItem>> Obstacles() override { return obstacles; }

    void AddGoal(Ref<OldItem> goal) { goals_.push_back(std::move(goal)); }
    std::vector<Ref<OldPerson>> people;
    std::vector<Ref<OldTask>> phases;
    std::vector<Ref<OldItem>> obstacles;

private:
    String name_;
    std::vector<Ref<OldItem>> goals_;
};

/// A table is read before there is anything to wait for.
class NoBar : public ProgressBar {
public:
    void Show() override {}
    void Update(Double /*step*/) override {}
};

[[noreturn]] void RefuseLine(std::size_t line, const std::string& why) {
    throw Refusal(fmt::format("line {}: {}", line, why));
}

std::vector<String> NamesIn(std::string_view field) {
    std::vector<String> names;
    for (const String& piece : Split(field, ";")) {
        if (const std::string_view name = Trim(piece); !name.empty()) names.push_back(ReadName(name));
    }
    return names;
}

/// One column of the table: where its text goes.
struct CsvColumn {
    const char* name;
    void (*read)(Row& row, std::string_view text);
};
constexpr CsvColumn kColumns[] = {
    {"kind", [](Row& row, std::string_view text) { row.kind = LowerCase(text); }},
    {"name", [](Row& row, std::string_view text) { row.name = ReadName(text); }},
    {"level", [](Row& row, std::string_view text) { row.level = int(ReadWhole(text, 1, kMostLevels).value()); }},
    {"start", [](Row& row, std::string_view text) { row.start = ReadDate(text); }},
    {"end", [](Row& row, std::string_view text) { row.end = ReadDate(text); }},
    {"done", [](Row& row, std::string_view text) { row.done = ReadFlag(text); }},
    {"note", [](Row& row, std::string_view text) { row.note = String(text); }},
    {"people", [](Row& row, std::string_view text) { row.people = NamesIn(text); }},
    {"tasks", [](Row& row, std::string_view text) { row.tasks = NamesIn(text); }},
};

std::vector<const CsvColumn*> ColumnsNamedIn(const CsvRow& header) {
    std::vector<const CsvColumn*> columns;
    if (header.fields.size() == 1 && header.fields[0].find(';') != std::string::npos) {
        RefuseLine(header.line, "fields are parted by \",\", not by \";\"");
    }
    for (const std::string& field : header.fields) {
        const std::string name = LowerCase(Trim(field));
        if (name.empty()) RefuseLine(header.line, fmt::format("column {} has no name", columns.size() + 1));
        const auto known =
            std::ranges::find(kColumns, name, [](const CsvColumn& column) { return std::string_view(column.name); });
        if (known == std::end(kColumns)) RefuseLine(header.line, fmt::format("there is no column \"{}\"", Plain(name)));
        if (std::ranges::count(columns, &*known) > 0) RefuseLine(header.line, fmt::format("two columns \"{}\"", name));
        columns.push_back(&*known);
    }
    for (const CsvColumn* needed : {&kColumns[0], &kColumns[1]}) {
        if (std::ranges::count(columns, needed) == 0) {
            RefuseLine(header.line,
                       fmt::format("the first row names the columns, and \"{}\" is missing", needed->name));
        }
    }
    return columns;
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (dom::NextCharacter(text, at) == dom::kNoCharacter) return false;
    }
    return true;
}

Row ReadRow(const CsvRow& source, const std::vector<const CsvColumn*>& columns) {
    if (source.fields.size() != columns.size()) {
        RefuseLine(source.line, fmt::format("{} fields; the first row has {}", source.fields.size(), columns.size()));
    }
    Row row;
    row.line = source.line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string_view text = Trim(source.fields[i]);
        if (text.empty()) continue;
        if (!IsUtf8(text)) RefuseLine(source.line, "this is no text in UTF-8");
        if (dom::FirstForbidden(text) != std::string_view::npos)
            RefuseLine(source.line, "a character that no file can hold");
        try {
            columns[i]->read(row, text);
        } catch (const Refusal& refusal) {
            RefuseLine(source.line, refusal.what());
        }
    }
    if (row.name.empty())
        RefuseLine(row.line, fmt::format("a {} needs a name", row.kind.empty() ? "row" : Plain(row.kind)));
    return row;
}

/// Puts the rows of a table together.
class CsvTable {
public:
    explicit CsvTable(String name) : project_(Make<TableProject>(std::move(name))) {}

    void Add(const Row& row) {
        if (row.kind == "phase" || row.kind == "task") return AddToOutline(row);
        RefuseFieldsOfTasks(row);
        if (!items_.insert({row.kind, row.name}).second) {
            RefuseLine(row.line, fmt::format("there is a {} \"{}\" already", row.kind, Plain(row.name)));
        }
        RefuseMoreItems(row.line);
        lists_.push_back(row);
        for (std::size_t i = 0; i < row.tasks.size(); ++i) CountTask(row);
        constexpr std::size_t kByTheConversion = 2;  ///< it ties work beside the outline twice
        if (row.kind == "person") {
            CountTies(Kind::kPerson, kByTheConversion * row.tasks.size(), row.line);
            if (!row.note.empty()) RefuseLine(row.line, "a person has no note");
            if (row.name.find(';') != String::npos) RefuseLine(row.line, "\";\" parts the names of people");
            project_->people.emplace_back(Ref<OldPerson>(new TablePerson(row)));
        } else if (row.kind == "goal") {
            CountTies(Kind::kGoal, kByTheConversion * row.tasks.size(), row.line);
            project_->AddGoal(Ref<OldItem>(new TableItem(row)));
        } else if (row.kind == "obstacle") {
            project_->obstacles.emplace_back(Ref<OldItem>(new TableObstacle(row)));
            work_of_obstacles_.push_back(row.tasks);
        } else {
            RefuseLine(row.line, fmt::format("\"{}\" is no kind; there are phase, task, person, goal and obstacle",
                                             Plain(row.kind)));
        }
    }

    Ref<OldProject> Whole() {
        for (const auto& [name, line] : mentioned_) {
            if (!items_.insert({"person", name}).second) continue;
            RefuseMoreItems(line);
            Row person;
            person.name = name;
            project_->people.emplace_back(Ref<OldPerson>(new TablePerson(person)));
        }
        for (const Row& row : lists_) {
            std::set<String> seen;
            for (const String& name : row.tasks) {
                if (outline_.contains(name)) {
                    RefuseLine(row.line,
                               fmt::format("\"{}\" stands in the outline; \"tasks\" is for other work", Plain(name)));
                }
                if (!seen.insert(name).second) RefuseLine(row.line, fmt::format("\"{}\" is named twice", Plain(name)));
            }
        }
        return Ref<OldProject>(project_.get());
    }

    std::vector<PlannedTask> Outline() const {
        std::vector<PlannedTask> planned;
        for (const Ref<TableTask>& task : outline_rows_) planned.push_back(task->Planned());
        return planned;
    }
    const std::vector<std::vector<String>>& work_of_obstacles() const { return work_of_obstacles_; }

private:
    static void RefuseFieldsOfTasks(const Row& row) {
        if (row.level == 0 && !row.start && !row.end && !row.done && row.people.empty()) return;
        RefuseLine(row.line, "level, start, end, done and people are for phases and tasks");
    }

    void RefuseMoreItems(std::size_t line) const {
        if (items_.size() > kMostTasks) RefuseLine(line, fmt::format("{} items are the most", kMostTasks));
    }

    void CountTask(const Row& row) {
        if (++tasks_ > kMostTasks) RefuseLine(row.line, fmt::format("{} tasks are the most", kMostTasks));
    }

    void CountTies(Kind kind, std::size_t ties, std::size_t line) {
        if ((ties_[kind] += ties) <= kMostTies) return;
        RefuseLine(line, fmt::format("{} ties of {} to tasks are the most; one to work in \"tasks\" counts twice",
                                     kMostTies, PluralOf(kind)));
    }

    void AddToOutline(Row row) {
        CountTask(row);
        CountTies(Kind::kPerson, row.people.size(), row.line);
        if (!row.tasks.empty()) RefuseLine(row.line, "the tasks of a phase have rows of their own");
        if (row.start.has_value() != row.end.has_value() || row.end < row.start) {
            RefuseLine(row.line, "give both start and end, in this order, or none");
        }
        row.level = LevelOf(row);
        open_.resize(static_cast<std::size_t>(row.level) - 1);
        outline_.insert(row.name);
        for (const String& name : row.people) {
            if (std::ranges::count(row.people, name) > 1)
                RefuseLine(row.line, fmt::format("\"{}\" is named twice", Plain(name)));
            mentioned_.emplace_back(name, row.line);
        }
        const auto task = Make<TableTask>(std::move(row));
        outline_rows_.push_back(task);
        (open_.empty() ? project_->phases : open_.back()->below).emplace_back(Ref<OldTask>(task.get()));
        open_.push_back(task);
    }

    int LevelOf(const Row& row) const {
        const int above = static_cast<int>(open_.size());
        const bool phase = row.kind == "phase";
        const int level = row.level != 0 ? row.level : phase ? 1 : std::max(above, 2);
        if (phase && level != 1) RefuseLine(row.line, "a phase stands on level 1");
        if (level > above + 1) {
            RefuseLine(row.line, above == 0 ? "the outline begins with a phase"
                                            : fmt::format("level {} right below level {}", level, above));
        }
        return level;
    }

    Ref<TableProject> project_;
    std::vector<Ref<TableTask>> open_;  ///< the last task of each level
    std::vector<Ref<TableTask>> outline_rows_;
    std::set<String> outline_;
    std::vector<std::vector<String>> work_of_obstacles_;
    std::vector<std::pair<String, std::size_t>> mentioned_;  ///< people, and the lines that name them
    std::vector<Row> lists_;
    std::set<std::pair<std::string, String>> items_;
    std::size_t tasks_ = 0;
    std::map<Kind, std::size_t> ties_;
};

}  // namespace

CsvPlan::CsvPlan(std::string_view text, std::string name) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        throw Refusal("this is a text in UTF-16; save the table as UTF-8");
    }
    const std::vector<CsvRow> rows = ReadCsv(text);
    if (rows.empty()) throw Refusal("the table is empty");
    const std::vector<const CsvColumn*> columns = ColumnsNamedIn(rows.front());
    CsvTable table(std::move(name));
    for (std::size_t i = 1; i < rows.size(); ++i) table.Add(ReadRow(rows[i], columns));
    project_ = table.Whole();
    outline_ = table.Outline();
    work_of_obstacles_ = table.work_of_obstacles();
}

Ref<ProgressBar> CsvPlan::NewProgressBar() {
    return Ref<ProgressBar>(new NoBar);
}

}  // namespace prx
