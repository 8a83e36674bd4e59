#pragma once

#include "prx/Edit.h"

/// How a host moves tasks in the outline: it decides the parent and numbers the rows, the library keeps dates, costs
/// and links in step. Each refuses, in words, a move that there is no place for.
namespace prx {

enum class Direction { kUp, kDown };

/// Below the task above it on its level, with all below it; it starts with its new parent. Tells what that one loses.
Remarks IndentTask(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task);
/// To its parent's level, right behind what is left below the parent.
void OutdentTask(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task);
/// Past its neighbour on the same level.
void MoveTask(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task, Direction direction);
/// To another place; under another parent it keeps its dates and its links. Tells what a new parent loses.
Remarks MoveTask(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task, const Place& place);
/// To the top level, right behind the phase that it belonged to.
void TakeToTop(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task);

}  // namespace prx
