#include "mrlxmlclass/scheduling/Gaps.h"

#include <algorithm>
#include <cstdlib>

namespace mrlxmlclass {

std::int64_t GapBetween(Date start, Date end, const PublicDays& days) {
    if (!start.set()) return 0;
    const std::int64_t size = end.set() ? std::abs(std::int64_t{DaysBetween(end, start)}) : 0;
    if (start > end) return size - days.CountNonWorking(end, size);
    return -(size - days.CountNonWorking(start, DaysUpTo(size, start, end)));
}

bool SeekGap(Date& start, Date reference, Integer wanted, const PublicDays& days) {
    if (!start.set() || !reference.set()) return GapBetween(start, reference, days) == wanted;
    const int step = wanted < 0 ? -1 : 1;
    std::int64_t gap = GapBetween(start, reference, days);
    if (gap == wanted) return true;
    if (step > 0 && start > reference && gap < wanted && start == start.day()) {
        // Each working day adds one from here on.
        const auto day = days.WorkingDayAfter(start, wanted - gap);
        if (day && day->in_calendar()) start = *day;
        gap = GapBetween(start, reference, days);
    }
    for (int searched = 0; gap != wanted; ++searched) {
        if (searched == Gloabal::kMostDaysSearched) return false;
        const bool leaves = step > 0 ? start > reference : start <= reference;
        start += step;
        // Away from the reference each working day adds one; only across it the gap is measured anew.
        gap = leaves ? gap + (days.NonWorking(start) ? 0 : step) : GapBetween(start, reference, days);
    }
    return true;
}

}  // namespace mrlxmlclass
