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
/// A task, or a summary that it stands below, and what that waits for.
struct Wait {
    mrlxmlclass::Ref<mrlxmlclass::TasksCls> waiting;
    mrlxmlclass::Ref<mrlxmlclass::TasksCls> predecessor;
};
/// What a task waits for, itself first, then as a part of each that it stands below.
std::vector<Wait> WaitsOf(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task);
/// Whether a task stands below another, at any depth.
bool StandsBelow(const mrlxmlclass::Ref<mrlxmlclass::TasksCol>& tasks, const mrlxmlclass::TasksCls& task,
                 const mrlxmlclass::TasksCls& above);
/// Whether a task waits for itself, or for what stands below it, over however many others. A task waits for what its
/// parents wait for, too.
bool WaitsForItself(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task);

}  // namespace prx
