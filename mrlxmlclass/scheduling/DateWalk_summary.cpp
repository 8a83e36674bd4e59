#include "mrlxmlclass/scheduling/DateWalk_internal.h"
#include "mrlxmlclass/scheduling/Gaps.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"

namespace mrlxmlclass {
namespace {

using Gloabal::IsNonWorkingDay;
using Gloabal::NextWorkingDay;
using Gloabal::NumberOFNonWorkingDay;

constexpr auto kTail = kTasksColTail;

/// How many non-working days come right behind a day.
Long IdleDaysBehind(Date day) {
    return DaysBetween(day + 1, NextWorkingDay(day + 1, 1));
}

/// The shift of a child that was placed: from its old end to its new start, less what idle days stand next to the end.
Integer ShiftFrom(Date old_end, Date start, const PublicDays& days) {
    Integer shift = DaysBetween(old_end, start);
    if (shift >= 0) {
        if (days.NonWorking(old_end + 1)) shift -= NumberOFNonWorkingDay(old_end, start);
    } else if (days.NonWorking(old_end - 1)) {
        shift += NumberOFNonWorkingDay(start, old_end);
    } else if (days.NonWorking(old_end + 1)) {
        shift -= IdleDaysBehind(old_end);
    }
    return shift;
}

/// Steps a child's start until the gap in working days behind an end is met, its end plainly a duration later. Kept:
/// weeks and months count as days here.
void SeekStart(const Ref<TasksCls>& child, Date previous_end, Integer gap, const PublicDays& days) {
    Date start = child->TaskBDate();
    const bool met = SeekGap(start, previous_end, gap, days);
    if (start != child->TaskBDate()) {
        In(child).TaskBDate_Int(start);
        In(child).TaskEDate_Int(start + RoundHalfToEven(child->TaskDuration()));
    }
    if (!met) Raise(failure::kEndlessWalk);
}

}  // namespace

/// Brings the wanted start to a working day and finds the shift; true when the first child takes the date exactly.
bool DateWalk::SetTarget(const Ref<TasksCls>& summary, Date& stDate, Date& UsethisDate, Integer& p_diff) {
    if (p_diff != 0) return false;  // Kept: a shift beats the exact date
    const bool exact = UsethisDate.set();
    if (IsNonWorkingDay(stDate)) {
        stDate = NextWorkingDay(stDate, 1);
        // Kept: without an exact date the wanted start moves and the children stay.
        if (exact) UsethisDate = stDate;
    } else if (!exact) {
        p_diff = DaysBetween(summary->TaskBDate(), stDate);
    }
    return exact;
}

/// Puts a child behind the one before it, at its old gap in working days, and gives it its lag back; gives its start.
/// `previous_end` is the end that the one before had, and becomes the child's own old end.
Date DateWalk::PlaceBehind(const Ref<TasksCls>& child, Long lag, const Ref<TasksCls>& previous, Date& previous_end,
                           Integer& p_diff) {
    const Integer gap = col_.GetLeadTimeNoLink(child->TaskBDate(), previous_end);
    previous_end = child->TaskEDate();
    tasks_.AdjustDateNoLink(child, previous, gap);
    const PublicDays days;
    SeekStart(child, previous->TaskEDate(), gap, days);
    const Date start = child->TaskBDate();
    child->TaskLag(lag);
    if (!In(child).HasChildren()) p_diff = ShiftFrom(previous_end, start, days);
    return start;
}

/// SummaryTaskDateChanged2 from a successor on, with dates of its own.
Walk<Boolean> DateWalk::MoveSummary(KeyText key, SummaryMove move) {
    auto& result = co_await kTail.Begin("SummaryTaskDateChanged2");
    OutlineWalk below(col_);
    auto walk = SummaryTaskDateChanged2(key, move.stDate, move.UsethisDate, move.p_diff, below);
    result = co_await std::move(walk);
}

Walk<Boolean> DateWalk::SummaryTaskDateChanged2(KeyText key, Date& stDate, Date& UsethisDate, Integer p_diff,
                                                OutlineWalk& below) {
    auto& result = co_await kTail.Begin("SummaryTaskDateChanged2");
    if (below.over()) co_return;  // recorded where the outline led back into itself
    below.Step();
    reached_.Tell();
    const Ref<TasksCls> summary = tasks_.Item(key);
    const Ref<ChildOrder> children = tasks_.Children(summary);
    const bool exact = SetTarget(summary, stDate, UsethisDate, p_diff);
    const std::vector<Long>& child_keys = children->keys;  // a damaged outline ends it here

    KeyText previous;
    Date previous_end;
    for (const Long child_number : child_keys) {
        const KeyText child_key(child_number);
        if (reached_.Has(child_key)) continue;
        const Ref<TasksCls> child = tasks_.Item(child_key);
        const Long lag = child->TaskLag();
        child->TaskLag(0);
        Date target;
        if (previous.none() || !previous_end.set()) {
            target = exact ? UsethisDate : child->TaskBDate() + static_cast<double>(p_diff.value());
            previous_end = child->TaskEDate();
        } else {
            target = PlaceBehind(child, lag, tasks_.Item(previous), previous_end, p_diff);
        }
        previous = child_key;
        if (!In(child).HasChildren()) {
            const Change change{p_diff >= 0 ? 1 : -1, True, True, True, True};
            auto walk = DependsDateChanged(child_key, target, change, p_diff);
            co_await std::move(walk);
        } else {
            auto walk = SummaryTaskDateChanged2(child_key, target, target, p_diff, below);
            co_await std::move(walk);
            if (below.over()) co_return;
        }
    }

    module_.g_MinDate = module_.g_MaxDate = Date();
    module_.g_MinDateTaskKey = module_.g_MaxDateTaskKey = 0;
    tasks_.AdjustSummary(key);
    result = True;
}

}  // namespace mrlxmlclass
