#pragma once

#include <cstdint>
#include <vector>

#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/tasks/TasksCol.h"

/// What tasks wait for, for hosts that show, check or move a plan. Nothing here changes a link.
namespace mrlxmlclass {

/// The days that a link lies between.
struct LinkDates {
    Date predecessor_end;
    Date start;
    bool operator==(const LinkDates&) const = default;
    /// Whether there are two days that can be compared.
    bool measurable() const;
    /// Working days in between, as a lead time counts them: 0 on the next one, -1 on the predecessor's last. Measured,
    /// because a walk along the links may store another one than the dates keep. Of measurable days only.
    std::int64_t Gap() const;
};

/// A task, or a summary that it stands below, and what that waits for.
struct Wait {
    Ref<TasksCls> waiting;
    Ref<TasksCls> predecessor;
};

/// The tasks of the outline that a task waits for, in the order of its links.
std::vector<Ref<TasksCls>> PredecessorsOf(const Ref<TasksCol>& tasks, TasksCls& task);
/// What a task waits for, itself first, then as a part of each that it stands below.
std::vector<Wait> WaitsOf(const Ref<TasksCol>& tasks, const Ref<TasksCls>& task);
/// The tasks that wait for a task itself and know so, in the order of its links.
std::vector<Ref<TasksCls>> FollowersOf(const Ref<TasksCol>& tasks, TasksCls& task);
/// The lead time that is stored for a link; 0 where none is.
Integer LeadOf(const Ref<TasksCol>& tasks, const Wait& wait);
/// Stores for a link the lead time that its dates tell, where they tell one. `CalcLeadTime` counts the free day on
/// which a predecessor of weeks or months may end, too, and some walks leave lead times as they were.
void StoreMeasuredLead(const Ref<TasksCol>& tasks, const Wait& wait);
/// Whether a task stands below another, at any depth.
bool StandsBelow(const Ref<TasksCol>& tasks, const TasksCls& task, const TasksCls& above);
/// Whether a task waits for itself, or for what stands below it, over however many others. A task waits for what its
/// parents wait for, too.
bool WaitsForItself(const Ref<TasksCol>& tasks, const Ref<TasksCls>& task);

}  // namespace mrlxmlclass
