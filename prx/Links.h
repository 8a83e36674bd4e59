#pragma once

#include <optional>
#include <string>
#include <vector>

#include "prx/Project.h"

/// Links between tasks, as a host makes and shows them.
namespace prx {

/// Makes a task wait for another. With a lag it is put that many working days behind its predecessor, a negative lag
/// being a lead; without one it moves only where it starts too early. Refuses, in words, what the library refuses.
void LinkTasks(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
               const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& predecessor, std::optional<mrlxmlclass::Integer> lag);
/// Refuses where there is no such link.
void UnlinkTasks(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
                 const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& predecessor);

/// The tasks that a task waits for, in the order of its links.
std::vector<mrlxmlclass::Ref<mrlxmlclass::TasksCls>> Predecessors(const Project& project, mrlxmlclass::TasksCls& task);
/// Working days that a link keeps free, or by which it overlaps.
mrlxmlclass::Integer LagOf(const Project& project, mrlxmlclass::TasksCls& task,
                           const mrlxmlclass::TasksCls& predecessor);
/// Whether a task waits for itself, over however many others.
bool WaitsForItself(const Project& project, mrlxmlclass::TasksCls& task);

}  // namespace prx
