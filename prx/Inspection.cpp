#include "prx/Inspection.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "mrlxmlclass/xml/DateText.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/LostRecords.h"
#include "prx/Outline.h"
#include "prx/Project.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

using Lines = std::vector<std::string>;

/// Rows 1 to the number of tasks, each once.
void CheckRows(const std::vector<OutlineRow>& rows, Lines& lines) {
    std::int64_t expected = 1;
    for (const OutlineRow& row : rows) {
        if (row.task->TaskPosition() != expected) {
            lines.push_back(fmt::format("{} stands in row {}, where row {} is due", TitleOf(*row.task),
                                        row.task->TaskPosition().value(), expected));
        }
        ++expected;
    }
}

/// Each task stands behind its parent with only the parent's other descendants in between.
void CheckSubtrees(const std::vector<OutlineRow>& rows, Lines& lines) {
    std::unordered_set<std::int64_t> keys;
    for (const OutlineRow& row : rows) keys.insert(row.task->TaskKey());
    std::vector<std::int64_t> open;  // the last row and its parents, from the top
    for (const OutlineRow& row : rows) {
        const std::int64_t parent = row.task->ParentID();
        const auto found = std::find(open.rbegin(), open.rend(), parent);
        if (parent != 0 && !keys.contains(parent)) {
            lines.push_back(
                fmt::format("{} belongs to task {}, which is not in the outline", TitleOf(*row.task), parent));
        } else if (parent != 0 && found == open.rend()) {
            lines.push_back(fmt::format("{} does not stand below its parent, task {}", TitleOf(*row.task), parent));
        }
        if (found != open.rend()) {
            open.erase(found.base(), open.end());
        } else {
            open.clear();
        }
        open.push_back(row.task->TaskKey());
    }
}

/// What a task's parent says, and what the parent's list of children says, is one thing.
void CheckChildren(const Ref<TasksCol>& tasks, Lines& lines) {
    std::unordered_map<std::int64_t, std::unordered_set<std::int64_t>> by_parent;
    for (const auto& entry : tasks->NewEnum()) {
        if (entry.item->TaskCondidat()) by_parent[entry.item->ParentID()].insert(entry.item->TaskKey());
    }
    for (const auto& entry : tasks->NewEnum()) {
        if (!entry.item->TaskCondidat()) continue;
        const Long key = entry.item->TaskKey();
        auto& expected = by_parent[key];
        // A task without a key is told as such, and with it on the list nobody can read that.
        if (key == 0 || expected.contains(0)) continue;
        const Ref<Dictionary> listed = tasks->GetTasksAsKeys(key);
        if (!listed) {
            lines.push_back(fmt::format("{} is filed under another key", TitleOf(*entry.item)));
            continue;
        }
        for (const Variant& child : listed->Keys()) {
            const std::int64_t number = child.As<Long>();
            if (expected.erase(number) == 0) {
                const Ref<TasksCls> other = tasks->Item(Long(number));
                lines.push_back(fmt::format("{} lists task {}, which {}", TitleOf(*entry.item), number,
                                            other && !other->TaskCondidat()
                                                ? "does not stand in the outline: its TaskCondidat is false"
                                                : "is no child of it"));
            }
        }
        for (const std::int64_t missing : expected) {
            lines.push_back(fmt::format("{} does not list its child, task {}", TitleOf(*entry.item), missing));
        }
    }
}

/// The dates of a file, read as a load reads them, but not brought into range.
class FileDates {
public:
    explicit FileDates(const ProjectsCls& project) {
        dates_.file_format = project.DateFormat();
        dates_.system_format = Gloabal::GetSystemDateFormat();
        dates_.on = !dates_.file_format.empty() && dates_.file_format != dates_.system_format;
        if (!dates_.on) return;
        Gloabal::SetALLFormat(dates_.file_format, dates_.system_format, dates_.system_parts, dates_.file_parts,
                              dates_.separator);
    }

    void Compare(dom::Node record, const char* element, const TasksCls& task, const char* name, Date now,
                 Lines& lines) const {
        const dom::Node node = record.selectSingleNode(element);
        if (!now.set()) return;
        if (!node) {
            lines.push_back(
                fmt::format("the {} of {} is not there, and was set to {}", name, TitleOf(task), Text(now)));
            return;
        }
        const Date written = FailureTail("prx").Silent().Run<Date>(
            "FileDates", [&](Date& result) { result = Conversions::StringToDate(dates_.Adjusted(node.Text())); });
        if (!written.set() || written.day() == now) return;
        lines.push_back(
            fmt::format("the {} of {} was moved from {} to {}", name, TitleOf(task), DayText(written), DayText(now)));
    }

private:
    DateAdjustment dates_;
};

void CompareUnit(dom::Node record, TasksCls& task, Lines& lines) {
    const String written = record.selectSingleNode("TaskDurationUnit").Text();
    if (written.empty() || task.TaskDurationUnitValid() != "True" || written == task.TaskDurationUnit()) return;
    constexpr std::size_t kWidest = 20;
    lines.push_back(fmt::format("the duration of {} counts in {}, not in \"{}\"", TitleOf(task),
                                task.TaskDurationUnit(), Plain(CutTo(written, kWidest))));
}

void CompareRow(dom::Node record, const TasksCls& task, Lines& lines) {
    const String row = record.selectSingleNode("TaskPosition").Text();
    const std::string now = std::to_string(task.TaskPosition().value());
    if (Trim(row) == now) return;
    lines.push_back(
        fmt::format("{} was moved from row {} to row {}", TitleOf(task), row.empty() ? "none" : Plain(Trim(row)), now));
}

}  // namespace

std::vector<std::string> Unread(const Project& project) {
    Lines lines = LostRecords(project);
    const Lines failures = project.ReadingFailures();
    lines.insert(lines.end(), failures.begin(), failures.end());
    return lines;
}

std::vector<std::string> Losses(const Project& project) {
    Lines lines = Unread(project);
    const Lines failures = project.OtherFailures();
    lines.insert(lines.end(), failures.begin(), failures.end());
    return lines;
}

std::vector<std::string> Recorded(const Project& project) {
    Lines lines;
    std::unordered_map<std::string, int> times;
    for (const std::string& failure : project.OtherFailures()) {
        if (++times[failure] == 1) lines.push_back(failure);
    }
    for (std::string& line : lines) {
        if (const int count = times[line]; count > 1) line += fmt::format(", {} times", count);
    }
    return lines;
}

std::vector<std::string> Repairs(const Project& project) {
    Lines lines;
    const FileDates dates(*project.app().xProject());
    ForEachElement(project.root().selectSingleNode("Tasks"), "Task", [&](dom::Node record) {
        const String key = record.selectSingleNode("TaskKey").Text();
        const Ref<TasksCls> task = project.tasks()->Item(String(Trim(key)));
        if (!task) return;
        dates.Compare(record, "TaskBDate", *task, "start", task->TaskBDate(), lines);
        dates.Compare(record, "TaskEDate", *task, "end", task->TaskEDate(), lines);
        CompareUnit(record, *task, lines);
        if (task->TaskCondidat()) CompareRow(record, *task, lines);
    });
    return lines;
}

std::vector<std::string> OutlineFaults(const Project& project) {
    Lines lines;
    const std::vector<OutlineRow> rows = Outline(project.tasks());
    CheckRows(rows, lines);
    CheckSubtrees(rows, lines);
    CheckChildren(project.tasks(), lines);
    return lines;
}

std::vector<std::string> Shortened(std::vector<std::string> lines, std::size_t most) {
    if (lines.size() <= most + 1) return lines;
    const std::size_t more = lines.size() - most;
    lines.resize(most);
    lines.push_back(fmt::format("... and {} more", more));
    return lines;
}

}  // namespace prx
