#pragma once

#include <string>
#include <vector>

#include "mrlxmlclass/tasks/TasksCol.h"
#include "prx/Project.h"

/// What a host does with the library to change a plan, step by step; every rule stays the library's.
namespace prx {

/// The task that a text on the command line means: a key, "#" and a row, or a name that only one task has. Refuses what
/// is no task of the outline.
mrlxmlclass::Ref<mrlxmlclass::TasksCls> FindTask(const Project& project, const std::string& text);
/// The same, and by its key alone work that does not stand in the outline.
mrlxmlclass::Ref<mrlxmlclass::TasksCls> FindAnyTask(const Project& project, const std::string& text);
/// The key as the library's operations take it.
std::string KeyOf(const mrlxmlclass::TasksCls& task);

/// Refuses a task whose parents do not lead to the top: one is not there, or they run in a circle.
void RefuseWithoutWayUp(const Project& project, const mrlxmlclass::TasksCls& task);

/// Worth telling beside what was asked for, a line each.
using Remarks = std::vector<std::string>;

/// What a task would lose by its first child beside its links, as a summary; nothing for one that has children.
Remarks LostAsSummary(const Project& project, mrlxmlclass::TasksCls& task);

bool CountsInDays(mrlxmlclass::TasksCls& task);
/// What becomes a summary counts in days from then on, as the library measures it.
void CountInDays(mrlxmlclass::TasksCls& summary);

/// Where a new task goes.
struct Place {
    mrlxmlclass::Ref<mrlxmlclass::TasksCls> under;  ///< last below this one
    mrlxmlclass::Ref<mrlxmlclass::TasksCls> after;  ///< a sibling, right behind this one and all below it
};
/// Puts a new task without a name into the outline: at its end, as a phase, where no place is given.
mrlxmlclass::Ref<mrlxmlclass::TasksCls> AddTask(const Project& project, const Place& place);
/// Gives a new task its name, which is when the library's listeners hear of it, and brings its summaries up to date.
void NameNewTask(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task, const std::string& name);

/// Adds work that does not stand in the outline: today, for a day. `place` counts from 0 among that of its item.
mrlxmlclass::Ref<mrlxmlclass::TasksCls> AddBeside(const Project& project, const std::string& name,
                                                  mrlxmlclass::Long place);

/// Removes a task with all below it, and whatever ties people, goals, obstacles and notes to them; these stay, and no
/// task moves without a word.
void RemoveTask(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task);

/// The summaries above a task follow its dates, and its cost.
void AdjustDatesAbove(const Project& project, const mrlxmlclass::TasksCls& task);
void AdjustCostFrom(const Project& project, const mrlxmlclass::TasksCls& task);

}  // namespace prx
