#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// What every edit leaves behind: rows from 1 on without a hole, each subtree in one run behind its parent, parents and
/// lists of children that agree, both sides of every link, the count of candidates, a span that is counted right.
/// Complains of the first that does not hold.
void CheckPlan(World& world);

/// The span of each task above one, and of the task itself if it has children, is that of its children, its duration
/// that of its span. Those with a
/// child that lacks a date are passed by. Complains of the first that is not.
void CheckSummaries(World& world, const TasksCls& task);

/// Whether a task of the outline has no start or no end.
bool AnyUndated(const World& world);

}  // namespace mrlxmlclass::model
