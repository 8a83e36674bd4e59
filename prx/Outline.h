#pragma once

#include <string>
#include <vector>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace prx {

/// A task of the outline and how deep it stands, the top being 0. Where the rows are in disorder, a task whose parent
/// does not stand above it is drawn at the top.
struct OutlineRow {
    mrlxmlclass::Ref<mrlxmlclass::TasksCls> task;
    std::size_t level = 0;
};

/// What stands for a project's name where it has none.
inline constexpr const char* kNoName = "A project without a name";

/// The tasks of the outline by row.
std::vector<OutlineRow> Outline(const mrlxmlclass::Ref<mrlxmlclass::TasksCol>& tasks);

/// "Build" in quotation marks, for messages.
std::string Quoted(const mrlxmlclass::TasksCls& task);
/// "task 3 "Build"", likewise; "task "Build"" where it has no key.
std::string TitleOf(const mrlxmlclass::TasksCls& task);
/// "1 task", "5 tasks".
std::string Tasks(std::size_t count);

/// What a table shows behind the dates: durations, progress and costs, or the people and notes of the tasks.
struct TableView {
    bool people = false;
    bool notes = false;
    std::size_t width = 80;  ///< columns of the terminal, which people and notes are cut to
};
/// The project's name and span, and its outline as a table with a line a task.
std::string AsTable(mrlxmlclass::Application& app, const TableView& view);
/// All of it for programs: the project, its calendar and its tasks, a line each.
std::string AsJson(mrlxmlclass::Application& app);

}  // namespace prx
