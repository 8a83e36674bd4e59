#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "prx/Edit.h"
#include "prx/Links.h"

namespace prx {

/// Moves all tasks that have dates by calendar days, each once. The library's own shift leaves tasks in weeks or months
/// where they are, and moves a task that is linked across phases with each of them.
///
/// A task that waits for nothing starts on the next working day that way. One that waits for others keeps its lead
/// times: it starts on the first day that brings it no closer to any of them, nor a summary above it; but for those
/// without dates, and one link of each circle.
class PlanShift {
public:
    PlanShift(const Project& project, mrlxmlclass::Long days);
    /// The first start and the last end as they would be.
    mrlxmlclass::Date first() const;
    mrlxmlclass::Date last() const;

    void Run();
    /// The tasks that stand where they did, a line each: the calendar may leave a short shift no other day.
    Remarks Stayed() const;

private:
    struct Leaf {
        mrlxmlclass::Ref<mrlxmlclass::TasksCls> task;
        mrlxmlclass::Date start, end;  ///< before the shift
        std::vector<Wait> waits;
        std::vector<mrlxmlclass::Integer> leads;  ///< of each, before the shift
        std::size_t looked_at = 0;                ///< waits whose predecessors had their turn
        bool reached = false;
        bool placed = false;

        bool moved() const { return task->TaskBDate() != start || task->TaskEDate() != end; }
    };
    mrlxmlclass::Date ByDays(mrlxmlclass::Date start) const;
    Leaf* LeafOf(const mrlxmlclass::TasksCls& task);
    void PlaceBehindOthers(Leaf& leaf);
    void Place(Leaf& leaf);
    void Follow(const Leaf& leaf) const;

    const Project& project_;
    mrlxmlclass::Long days_;
    std::vector<Leaf> leaves_;  ///< tasks without children that have a start, by row
    std::unordered_map<std::int64_t, std::size_t> places_;
};

}  // namespace prx
