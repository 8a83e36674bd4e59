#pragma once

#include <cstdint>
#include <vector>

namespace mrlxmlclass::bench {

/// The least that a reschedule can be: tasks and links in flat arrays, already in topological order, moved in one pass
/// over a prefix table of working days, with nobody to tell.
class Floor {
public:
    /// A chain of tasks of one day, each `gap` working days behind the one before.
    static Floor Chain(int tasks, int gap);
    /// Moves the first task to a day (0 is a Monday) and everything behind it along; gives the last end.
    int Reschedule(int first_day);

private:
    struct Link {
        std::int32_t predecessor;
        std::int32_t gap;
    };
    struct Task {
        std::int32_t first_link;  ///< its links are those up to the next task's first
        std::int32_t duration;
        std::int32_t start;
        std::int32_t end;
    };

    explicit Floor(int days);

    std::vector<Task> tasks_;
    std::vector<Link> links_;
    std::vector<std::int32_t> worked_before_;  ///< by day
    std::vector<std::int32_t> day_of_;         ///< by number of working day
};

}  // namespace mrlxmlclass::bench
