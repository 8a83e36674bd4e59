#include <algorithm>
#include <cstdlib>

#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// The gap in working days between a predecessor's end and a start: 0 on the next working day, -1 on the end itself.
/// `lag` is the difference in calendar days.
Integer WorkingGap(Date start, Date predecessor_end, Integer lag) {
    lag -= 1;
    if (start > predecessor_end) {
        return lag - Gloabal::NonWorkingDaysFrom(predecessor_end, predecessor_end + static_cast<double>(lag.value()));
    }
    const std::int64_t size = std::abs(std::int64_t{lag});
    const Integer gap =
        -(size - Gloabal::NonWorkingDaysFrom(start, std::min(start + static_cast<double>(size), predecessor_end)));
    return gap == 0 ? Integer(-1) : gap;  // an overlap stays an overlap
}

}  // namespace

Integer TasksCol::CalcLeadTime(ByRef<String> TaskKey) {
    return kTail.Run<Integer>("CalcLeadTime", [&](Integer& result) {
        if (!Module().BVersion) return;
        const Ref<TasksCls> task = Item(*TaskKey);
        if (!task || !In(task).PeekPredecessor()) return;
        const String key = KeyText(task->TaskKey()).text();

        Integer largest;
        Integer lag;
        for (const auto& entry : In(task).PeekPredecessor()->Snapshot()) {
            const String predecessor = entry.item.Key().text();
            const Date end = Item(predecessor)->TaskEDate();
            if (!task->TaskBDate().set()) {
                result = 0;
                return;
            }
            // Kept: without an end the lag of the predecessor before it goes on.
            if (end.set()) lag = DaysBetween(end, task->TaskBDate());
            lag = WorkingGap(task->TaskBDate(), end, lag);
            if (lag > largest) largest = lag;
            AddLeadTime(key, predecessor, lag);
        }
        result = largest;
    });
}

}  // namespace mrlxmlclass
