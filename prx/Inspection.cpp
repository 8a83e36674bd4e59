#include "prx/Inspection.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/SafeFile.h"
#include "prx/Outline.h"
#include "prx/Project.h"
#include "prx/Terminal.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

using Lines = std::vector<std::string>;

/// Calls `visit(element)` for each child element of that name.
template <class Visit>
void ForEach(dom::Node parent, std::string_view name, Visit&& visit) {
    for (dom::Node node = parent.firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() == dom::Node::kElement && node.baseName() == name) visit(node);
    }
}

struct SectionCount {
    const char* section;
    const char* record;
    std::int64_t in_memory;
};

std::vector<SectionCount> CountsInMemory(Application& app) {
    return {{"Tasks", "Task", app.xTaskCol()->Count(True)},
            {"People", "Person", app.xPeopleCol()->Count()},
            {"TaskAssigmentRelations", "TaskAssigmentRelation", app.xTaskPeopleRelationcol()->Count()},
            {"TaskGoalRelations", "TaskGoalRelation", app.xTaskGoalRelationcol()->Count()},
            {"TaskObstaclesRelations", "TaskObstaclesRelation", app.xTaskObstaclesRelationcol()->Count()},
            {"TaskNoteRelations", "TaskNoteRelation", app.xTaskNotesRelationcol()->Count()},
            {"Goals", "Goal", app.xGoalCol()->Count()},
            {"Notes", "Note", app.xNoteCol()->Count()},
            {"Obstacles", "Obstacle", app.xObstaclesCol()->Count()}};
}

void CompareCounts(const Project& project, dom::Node root, Lines& lines) {
    for (const SectionCount& count : CountsInMemory(project.app())) {
        std::int64_t sections = 0;
        std::int64_t in_file = 0;
        ForEach(root, count.section, [&](dom::Node section) {
            ++sections;
            ForEach(section, count.record, [&](dom::Node) { ++in_file; });
        });
        if (sections > 1) lines.push_back(fmt::format("the section {} stands {} times", count.section, sections));
        if (in_file > count.in_memory) {
            lines.push_back(fmt::format("{} of {} records in {} could not be read", in_file - count.in_memory, in_file,
                                        count.section));
        }
    }
}

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
        const Ref<Dictionary> listed = tasks->GetTasksAsKeys(key);
        if (!listed) {
            lines.push_back(fmt::format("{} is filed under another key", TitleOf(*entry.item)));
            continue;
        }
        for (const Variant& child : listed->Keys()) {
            const std::int64_t number = child.As<Long>();
            if (expected.erase(number) == 0) {
                lines.push_back(fmt::format("{} lists task {}, which is no child of it", TitleOf(*entry.item), number));
            }
        }
        for (const std::int64_t missing : expected) {
            lines.push_back(fmt::format("{} does not list its child, task {}", TitleOf(*entry.item), missing));
        }
    }
}

void CheckDates(const std::vector<OutlineRow>& rows, Lines& lines) {
    for (const OutlineRow& row : rows) {
        const TasksCls& task = *row.task;
        if (task.TaskBDate().set() && task.TaskEDate().set() && task.TaskEDate() < task.TaskBDate()) {
            lines.push_back(fmt::format("{} ends before it starts", TitleOf(task)));
        }
    }
}

}  // namespace

namespace {

Lines LostRecords(const Project& project) {
    Lines lines;
    for (const auto& entry : MissingSections(project.path())->Snapshot()) {
        lines.push_back(fmt::format("the section {} is missing: a save was interrupted, or it was taken out",
                                    entry.item.As<String>()));
    }
    const auto document = Make<dom::Document>();
    if (document->Load(project.path())) CompareCounts(project, document->documentElement(), lines);
    return lines;
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
    const auto document = Make<dom::Document>();
    if (!document->Load(project.path())) return lines;
    ForEach(document->documentElement().selectSingleNode("Tasks"), "Task", [&](dom::Node record) {
        const String key = record.selectSingleNode("TaskKey").Text();
        const Ref<TasksCls> task = project.tasks()->Item(String(Trim(key)));
        if (!task || !task->TaskCondidat()) return;
        const String row = record.selectSingleNode("TaskPosition").Text();
        const std::string now = std::to_string(task->TaskPosition().value());
        if (Trim(row) == now) return;
        lines.push_back(fmt::format("{} was moved from row {} to row {}", TitleOf(*task),
                                    row.empty() ? "none" : Plain(Trim(row)), now));
    });
    return lines;
}

std::vector<std::string> OutlineFaults(const Project& project) {
    Lines lines;
    const std::vector<OutlineRow> rows = Outline(project.tasks());
    CheckRows(rows, lines);
    CheckSubtrees(rows, lines);
    CheckChildren(project.tasks(), lines);
    CheckDates(rows, lines);
    return lines;
}

std::vector<std::string> Shortened(std::vector<std::string> lines) {
    constexpr std::size_t kMost = 20;
    if (lines.size() <= kMost + 1) return lines;
    const std::size_t more = lines.size() - kMost;
    lines.resize(kMost);
    lines.push_back(fmt::format("... and {} more", more));
    return lines;
}

}  // namespace prx
