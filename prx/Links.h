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

}  // namespace prx
