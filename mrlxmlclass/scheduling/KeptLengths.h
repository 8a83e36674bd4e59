#pragma once

#include <cstdint>
#include <vector>

#include "mrlxmlclass/scheduling/ToldTasks.h"

namespace mrlxmlclass {

/// Made around an edit, for hosts that want tasks to last as long as they say: the walks that move tasks count some of
/// them anew. A part of one day ends on the day behind, be that free or not; most of a week or month, which got a day,
/// ends a week or month later; and below a summary that moves, weeks and months end so many days behind their start.
///
/// While this lives, parts that stand on one day last a day. When it goes, weeks and months that moved end where their
/// lengths say, and what waits for them follows as far behind as it was, as `DependsDateChanged` tells it. Then the
/// parts have their lengths again; those that were told otherwise tell them (`DateEndChange` where they count in weeks
/// or months, `DurationChange`, `TaskDurationChange`).
class KeptLengths {
public:
    enum class Tells { kAnew, kNothing };
    /// `but`, if any, is left alone.
    explicit KeptLengths(const Ref<TasksCol>& tasks, const TasksCls* but = nullptr, Tells tells = Tells::kAnew);
    ~KeptLengths();
    KeptLengths(const KeptLengths&) = delete;
    KeptLengths& operator=(const KeptLengths&) = delete;

private:
    struct Kept {
        Ref<TasksCls> task;
        Double length;
        String unit;
        Date start, end;
    };
    struct Lead {
        Ref<TasksCls> follower;
        std::int64_t days = 0;
    };
    struct Whole : Kept {
        std::vector<Lead> leads;  ///< of those that wait for it
    };
    void GiveLengthBack(const Kept& part) const;
    std::vector<Lead> LeadsTo(const Kept& kept) const;
    bool GiveEndBack(Whole& whole) const;

    Ref<TasksCol> tasks_;
    std::vector<Kept> parts_;    ///< of a day, or most of a week or month, on one day
    std::vector<Whole> wholes_;  ///< in weeks and months
    Tells tells_;
    ToldTasks told_;
};

}  // namespace mrlxmlclass
