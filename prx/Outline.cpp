#include "prx/Outline.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <unordered_map>

#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Calendar.h"
#include "prx/Items.h"
#include "prx/Json.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

struct Column {
    const char* heading;
    bool left;
    std::string (*cell)(const OutlineRow&);
};

// However deep a plan is and however long its names, a line stays a line.
constexpr std::size_t kDeepestDrawn = 20;

std::string NameCell(const OutlineRow& row) {
    constexpr std::size_t kWidestName = 100;
    const std::string name = CutTo(Plain(CutTo(row.task->TaskName(), 2 * kWidestName)), kWidestName);
    return std::string(2 * std::min(row.level, kDeepestDrawn), ' ') + name;
}

std::string Names(const OutlineRow& row, Kind kind) {
    std::vector<std::string> names;
    for (const ItemOn& item : ItemsOn(*row.task, kind)) names.push_back(item.name);
    return Plain(fmt::format("{}", fmt::join(names, ", ")));
}

const Column kRow = {"Row", false, [](const OutlineRow& row) { return Text(row.task->TaskPosition()); }};
const Column kKey = {"Key", false, [](const OutlineRow& row) { return Text(row.task->TaskKey()); }};
const Column kName = {"Name", true, NameCell};
const Column kStart = {"Start", true, [](const OutlineRow& row) {
                           return row.task->TaskBDate().set() ? Text(row.task->TaskBDate()) : "";
                       }};
const Column kEnd = {
    "End", true, [](const OutlineRow& row) { return row.task->TaskEDate().set() ? Text(row.task->TaskEDate()) : ""; }};
const Column kDuration = {"Duration", false, [](const OutlineRow& row) {
                              return row.task->TaskMilstones()
                                         ? "milestone"
                                         : fmt::format("{} {}", row.task->TaskDuration(), row.task->TaskDurationUnit());
                          }};
const Column kDone = {"Done", false, [](const OutlineRow& row) {
                          return row.task->TaskPercentDoneValid() ? Text(row.task->TaskPercentDone()) + "%" : "";
                      }};
const Column kCost = {"Cost", false, [](const OutlineRow& row) {
                          return row.task->TaskCost() != Currency(0) ? Text(row.task->TaskCost()) : "";
                      }};
const Column kPeople = {"People", true, [](const OutlineRow& row) { return Names(row, Kind::kPerson); }};
const Column kNotes = {"Notes", true, [](const OutlineRow& row) { return Names(row, Kind::kNote); }};

constexpr std::size_t kGap = 2;

/// The columns as lines; the last `shared` ones share the width that the others leave.
std::string Table(const std::vector<OutlineRow>& rows, const std::vector<Column>& columns, std::size_t shared,
                  std::size_t width) {
    constexpr std::size_t kNarrowest = 12;
    std::vector<std::vector<std::string>> cells;
    std::size_t taken = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::vector<std::string> column = {columns[i].heading};
        for (const OutlineRow& row : rows) column.push_back(columns[i].cell(row));
        const std::size_t sharing = i + shared < columns.size() ? 0 : columns.size() - i;
        std::size_t widest = 0;
        const std::size_t left = width > taken ? (width - taken) / std::max<std::size_t>(sharing, 1) : 0;
        for (std::string& cell : column) {
            if (sharing > 0) cell = CutTo(cell, std::max(kNarrowest, left > kGap ? left - kGap : 0));
            widest = std::max(widest, Width(cell));
        }
        for (std::string& cell : column) cell = columns[i].left ? PadRight(cell, widest) : PadLeft(cell, widest);
        taken += widest + kGap;
        cells.push_back(std::move(column));
    }
    std::string text;
    for (std::size_t row = 0; row <= rows.size(); ++row) {
        std::string line;
        for (const std::vector<std::string>& column : cells) {
            if (&column != &cells.front()) line.append(kGap, ' ');
            line += column[row];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

/// Whom a task waits for, and the working days that each link keeps free.
std::string PredecessorsOf(TasksCls& task, TasksCol& tasks) {
    std::vector<std::string> links;
    if (!task.TaskPredecessorValid()) return json::Array(links);
    for (const auto& entry : task.TaskPredecessor()->Snapshot()) {
        const std::string key = entry.item.Key().text();
        links.push_back(json::Object()
                            .Add("key", json::Key(key))
                            .Add("lag", std::to_string(tasks.GetLeadTime(key, task.TaskLeadTime()).value()))
                            .Text());
    }
    return json::Array(links);
}

std::string ItemsAsJson(TasksCls& task, Kind kind) {
    std::vector<std::string> texts;
    for (const ItemOn& item : ItemsOn(task, kind)) {
        texts.push_back(json::Object()
                            .Add("key", json::Key(item.key))
                            .Add(kind == Kind::kNote ? "text" : "name", json::Quote(item.name))
                            .Text());
    }
    return json::Array(texts);
}

std::string DateOrNull(Date date) {
    return date.set() ? json::Quote(Text(date)) : "null";
}

std::string JsonOf(const OutlineRow& row, const Ref<TasksCol>& tasks) {
    TasksCls& task = *row.task;
    const auto number = [](Long value) { return std::to_string(value.value()); };
    json::Object object;
    object.Add("position", number(task.TaskPosition()))
        .Add("key", number(task.TaskKey()))
        .Add("parent", number(task.ParentID()))
        .Add("level", std::to_string(row.level))
        .Add("name", json::Quote(task.TaskName()))
        .Add("summary", json::Flag(static_cast<bool>(tasks->isParent(Text(task.TaskKey())))))
        .Add("milestone", json::Flag(static_cast<bool>(task.TaskMilstones())))
        .Add("start", DateOrNull(task.TaskBDate()))
        .Add("end", DateOrNull(task.TaskEDate()))
        .Add("duration", json::Number(task.TaskDuration()))
        .Add("unit", json::Quote(task.TaskDurationUnit()))
        .Add("done", task.TaskPercentDoneValid() ? number(task.TaskPercentDone()) : "null")
        .Add("cost", Text(task.TaskCost()))
        .Add("colour", task.TaskcolorValid() ? number(task.TaskColor()) : "null")
        .Add("lag", number(task.TaskLag()))
        .Add("predecessors", PredecessorsOf(task, *tasks));
    for (const Kind kind : kKinds) object.Add(PluralOf(kind), ItemsAsJson(task, kind));
    return object.Text();
}

std::string Heading(Application& app, std::size_t count) {
    const std::string name = Plain(app.xProject()->ProjectName());
    std::string heading = name.empty() ? kNoName : name;
    heading += ": " + Tasks(count);
    if (count > 0) heading += fmt::format(", {} to {}", Text(app.MinDate()), Text(app.MaxDate()));
    return heading + "\n";
}

}  // namespace

std::vector<OutlineRow> Outline(const Ref<TasksCol>& tasks) {
    std::vector<OutlineRow> rows;
    for (const auto& entry : tasks->NewEnum()) {
        if (entry.item->TaskCondidat()) rows.push_back({entry.item});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const OutlineRow& a, const OutlineRow& b) {
        return a.task->TaskPosition() < b.task->TaskPosition();
    });
    std::unordered_map<std::int64_t, std::size_t> levels;
    for (OutlineRow& row : rows) {
        const auto parent = levels.find(row.task->ParentID());
        row.level = parent == levels.end() ? 0 : parent->second + 1;
        levels.emplace(row.task->TaskKey(), row.level);
    }
    return rows;
}

std::string Quoted(const TasksCls& task) {
    return fmt::format("\"{}\"", Plain(task.TaskName()));
}

std::string TitleOf(const TasksCls& task) {
    constexpr std::size_t kWidestName = 60;
    const std::string name = Plain(CutTo(task.TaskName(), kWidestName));
    if (task.TaskKey() == 0) return fmt::format("task \"{}\"", name);
    return fmt::format("task {} \"{}\"", task.TaskKey().value(), name);
}

std::string Tasks(std::size_t count) {
    return fmt::format("{} task{}", count, count == 1 ? "" : "s");
}

std::string AsTable(Application& app, const TableView& view) {
    const std::vector<OutlineRow> rows = Outline(app.xTaskCol());
    std::string text = Heading(app, rows.size());
    if (rows.empty()) return text;
    std::vector<Column> columns = {kRow, kKey, kName, kStart, kEnd};
    if (view.people || view.notes) {
        if (view.people) columns.push_back(kPeople);
        if (view.notes) columns.push_back(kNotes);
    } else {
        columns.insert(columns.end(), {kDuration, kDone, kCost});
    }
    return text + Table(rows, columns, (view.people ? 1U : 0U) + (view.notes ? 1U : 0U), view.width);
}

std::string AsJson(Application& app) {
    const ProjectsCls& project = *app.xProject();
    json::Object head;
    head.Add("name", json::Quote(project.ProjectName()))
        .Add("start", DateOrNull(project.ProjectStartLine()))
        .Add("deadline", DateOrNull(project.ProjectDeadLine()))
        .Add("description", json::Quote(project.ProjectDescription()));

    std::vector<std::string> tasks;
    for (const OutlineRow& row : Outline(app.xTaskCol())) tasks.push_back(JsonOf(row, app.xTaskCol()));
    return fmt::format("{{\"project\": {},\n\"calendar\": {},\n\"tasks\": {}}}\n", head.Text(),
                       CalendarAsJson(*app.xCalendar()), json::Lines(tasks));
}

}  // namespace prx
