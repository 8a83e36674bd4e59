#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "mrlxmlclass/scheduling/Waits.h"

namespace mrlxmlclass {

/// Moves a whole plan by calendar days, each task once: for hosts whose users expect that of a shift.
/// `TasksCol::ResetStartDate` leaves tasks in weeks and months where they are, and moves a task that is linked across
/// phases with each of them.
///
/// A task of the outline that has a start and waits for nothing starts on the next working day that way. One that waits
/// for others keeps its lead times: it starts on the first day that brings it no closer to any of them, nor a summary
/// above it; but for those without dates, and one link of each circle. Its length stays, in whatever unit. Lead times
/// are measured anew, links stay as they are, summaries follow.
class PlanShift {
public:
    /// `days` below 0 move earlier. Nothing moves yet.
    PlanShift(const Ref<TasksCol>& tasks, Long days);
    /// The first start and the last end as they would be; 0 where no task has dates. `Run` stays within the years that
    /// a plan can have, which squeezes one together that would leave them: ask before.
    Date first() const;
    Date last() const;

    /// For each task that moved, by row: `DateStartChange`, `DateEndChange`, `DurationChange`, `TaskDurationChange`;
    /// then what `AdjustSummary` tells of the summaries. False after a failure, which is recorded; what moved stays
    /// moved.
    Boolean Run();
    /// After `Run`: the tasks that stand where they did. The calendar may leave a short shift no other day.
    std::vector<Ref<TasksCls>> Stayed() const;

private:
    struct Leaf {
        Ref<TasksCls> task;
        Date start, end;  ///< before the shift
        std::vector<Wait> waits;
        std::vector<std::int64_t> leads;  ///< of each, before the shift
        std::size_t looked_at = 0;        ///< waits whose predecessors had their turn
        bool reached = false;
        bool placed = false;

        bool moved() const { return task->TaskBDate() != start || task->TaskEDate() != end; }
    };
    Date ByDays(Date start) const;
    Leaf* LeafOf(const TasksCls& task);
    void PlaceBehindOthers(Leaf& leaf);
    void Place(Leaf& leaf);
    void Follow(const Leaf& leaf) const;
    void AdjustSummaries() const;

    Ref<TasksCol> tasks_;
    Long days_;
    std::vector<Leaf> leaves_;  ///< tasks without children that have a start, by row
    std::unordered_map<std::int64_t, std::size_t> places_;
};

}  // namespace mrlxmlclass
