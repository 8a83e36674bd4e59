#include "prx/Outline.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <unordered_map>

#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Calendar.h"
#include "prx/Json.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr std::size_t kColumns = 8;
constexpr std::size_t kNameColumn = 2;
using Cells = std::array<std::string, kColumns>;

// However deep a plan is and however long its names, a line stays a line.
constexpr std::size_t kDeepestDrawn = 20;
constexpr std::size_t kWidestName = 100;

std::string NameCell(const OutlineRow& row) {
    const std::string name = CutTo(Plain(CutTo(row.task->TaskName(), 2 * kWidestName)), kWidestName);
    return std::string(2 * std::min(row.level, kDeepestDrawn), ' ') + name;
}

Cells CellsOf(const OutlineRow& row) {
    TasksCls& task = *row.task;
    return {Text(task.TaskPosition()),
            Text(task.TaskKey()),
            NameCell(row),
            task.TaskBDate().set() ? Text(task.TaskBDate()) : "",
            task.TaskEDate().set() ? Text(task.TaskEDate()) : "",
            task.TaskMilstones() ? "milestone" : fmt::format("{} {}", task.TaskDuration(), task.TaskDurationUnit()),
            task.TaskPercentDoneValid() ? Text(task.TaskPercentDone()) + "%" : "",
            task.TaskCost() != Currency(0) ? Text(task.TaskCost()) : ""};
}

bool LeftAligned(std::size_t column) {
    return column >= kNameColumn && column <= kNameColumn + 2;
}

std::string Line(const Cells& cells, const std::array<std::size_t, kColumns>& widths) {
    std::string line;
    for (std::size_t i = 0; i < kColumns; ++i) {
        if (i > 0) line += "  ";
        line += LeftAligned(i) ? PadRight(cells[i], widths[i]) : PadLeft(cells[i], widths[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string KeysOf(const Ref<Collection>& keys) {
    std::vector<std::string> texts;
    for (const auto& entry : keys->Snapshot()) texts.push_back(json::Quote(entry.item.Key().text()));
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
        .Add("lag", number(task.TaskLag()));
    if (task.TaskPredecessorValid()) object.Add("predecessors", KeysOf(task.TaskPredecessor()));
    return object.Text();
}

std::string Heading(Application& app, std::size_t count) {
    const std::string name = Plain(app.xProject()->ProjectName());
    std::string heading = name.empty() ? "A project without a name" : name;
    heading += fmt::format(": {} task{}", count, count == 1 ? "" : "s");
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

std::string AsTable(Application& app) {
    const std::vector<OutlineRow> rows = Outline(app.xTaskCol());
    std::vector<Cells> table = {{"Row", "Key", "Name", "Start", "End", "Duration", "Done", "Cost"}};
    for (const OutlineRow& row : rows) table.push_back(CellsOf(row));

    std::array<std::size_t, kColumns> widths{};
    for (const Cells& cells : table) {
        for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], Width(cells[i]));
    }
    std::string text = Heading(app, rows.size());
    if (rows.empty()) return text;
    for (const Cells& cells : table) text += Line(cells, widths);
    return text;
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
