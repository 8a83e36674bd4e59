#pragma once

#include <algorithm>
#include <cstdint>

#include "mrlxmlclass/scheduling/WorkingDays.h"

/// The arithmetic of gaps between dates that no link ties.
namespace mrlxmlclass {

/// So many days, but no more than lie in full from `start` to `end`, which does not come before it.
inline std::int64_t DaysUpTo(std::int64_t days, Date start, Date end) {
    return static_cast<std::int64_t>(std::min(static_cast<double>(days), end.days() - start.days()));
}

/// The gap in working days from an end to a start, without the step of one day. Kept: equal dates give 0, but 1 on a
/// non-working day. 0 for no start; without an end the days between count as none, and day 0 as what it is.
std::int64_t GapBetween(Date start, Date end, const PublicDays& days = {});

/// Steps `start` from day to day, back for a negative gap, until its gap to `reference` is the one wanted. False when
/// it is never met; the start is then wherever the search ended.
bool SeekGap(Date& start, Date reference, Integer wanted, const PublicDays& days = {});

/// A shift without the non-working days that it passes: a negative one rises, any other falls. Kept: beyond 0, too.
template <class Number>
constexpr Number WithoutIdleDays(Number shift, Number non_working) {
    return shift < 0 ? shift + non_working : shift - non_working;
}

}  // namespace mrlxmlclass
