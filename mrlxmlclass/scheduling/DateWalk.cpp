#include <algorithm>

#include "mrlxmlclass/scheduling/DateWalk_internal.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"

namespace mrlxmlclass {
namespace {

using Gloabal::NextWorkingDay;
using Gloabal::NumberOFNonWorkingDay;

constexpr auto kTail = kTasksColTail;
constexpr std::int64_t kMostIdleDaysTaken = 2;
constexpr int kNewEnd = 2;
const KeyText kNoText("");

/// Sets the start to where the user put it and measures the gaps to the predecessors anew. The first task that really
/// moves gives the walk its shift.
void SetStartFreely(TasksCol& col, const Ref<TasksCls>& task, Date date, Integer direction, Integer& p_diff) {
    const Date old_start = task->TaskBDate();
    const bool moves = old_start != date;
    task->TaskLag(0);
    task->TaskBDate(NextWorkingDay(date, direction.value()));
    task->TaskLag(In(col).CalcLeadTime(task));
    if (!moves || p_diff != 0) return;
    // Kept: without an old start the days from day 0 fit no Integer, which ends it.
    p_diff = DaysBetween(old_start, task->TaskBDate());
    // Kept: where no day is worked the correction turns the sign round.
    const std::int64_t idle =
        std::min<std::int64_t>(NumberOFNonWorkingDay(old_start, task->TaskBDate()), kMostIdleDaysTaken);
    p_diff += p_diff < 0 ? idle : p_diff > 0 ? -idle : 0;
}

/// Puts a successor behind the task that changed, by the lag that it carries.
void PutBehind(const Ref<TasksCls>& successor, const Ref<TasksCls>& changed, Integer lead) {
    const Date end = changed->TaskEDate();
    if (!end.set()) {
        successor->InitDate();
    } else {
        successor->TaskBDate(lead < 0 ? end : end + 1);
    }
}

}  // namespace

/// Gives the date that the task had; 0 where none is kept.
Date DateWalk::SetDate(const Ref<TasksCls>& task, Date& changed_date, const Change& how, Integer& p_diff) {
    const bool plainly = In(task).Unit().plain;
    const Integer direction = how.StartFinishDate;
    if (direction == kNewEnd) {
        const Date old_end = plainly ? Date() : task->TaskEDate();
        if (!how.p_calc_date) return old_end;
        if (!plainly) changed_date = NoLaterThanMaxYear(changed_date);
        // Kept: the kind of date, 2, is the step of the search.
        task->TaskEDate(plainly ? changed_date : NextWorkingDay(changed_date, direction.value()));
        return old_end;  // Kept: the old end, which is then held against the start
    }
    // Kept: a task in weeks or months takes no start, and nothing of it is kept.
    if (plainly || (direction != 1 && direction != -1)) return {};
    const Date old_start = task->TaskBDate();
    if (how.p_calc_date && changed_date.set()) {
        if (how.LeadTimeCalc) {
            SetStartFreely(col_, task, changed_date, direction, p_diff);
        } else {
            task->TaskBDate(NextWorkingDay(changed_date, direction.value()));
        }
    }
    return old_start;
}

/// The task itself; the walk goes on where others wait for it.
Walk<Boolean> DateWalk::DependsDateChanged(KeyText key, Date& changed_date, const Change& how, Integer& p_diff) {
    Ref<TasksCls> task;
    Date remembered;
    const Boolean moved = kTail.Run<Boolean>("DependsDateChanged", [&](Boolean& result) {
        task = tasks_.Item(key);
        reached_.Tell();
        reached_.Add(key);
        reached_.AddParent(task->ParentID());
        remembered = SetDate(task, changed_date, how, p_diff);
        tasks_.TellDates(task, key);
        result = True;
    });
    if (!moved || !module_.BVersion || !In(task).HasSuccessors()) return moved;
    return MoveSuccessors(std::move(task), remembered, how, p_diff);
}

/// The successors of a task that was moved, one after the other.
Walk<Boolean> DateWalk::MoveSuccessors(Ref<TasksCls> task, Date remembered, const Change& how, Integer& p_diff) {
    auto& result = co_await kTail.Begin("DependsDateChanged");
    result = True;
    const auto successors = In(task).PeekSuccessor()->Snapshot();
    Turn turn(/*with_siblings=*/!how.p_not_same_parent);
    Date old_start;
    Follower follower;
    // Of the loop an index is all that waits in the frame.
    for (std::size_t place = 0; place < successors.size(); ++place) {  // NOLINT(modernize-loop-convert)
        turn.Next(successors[place].item.Key());
        if (!Takes(turn, task, how)) continue;
        if (turn.adjusts) {
            follower = PutFollower(turn.key, task, turn.follow, p_diff, old_start);
            if (follower.onward) {
                auto walk = DependsDateChanged(turn.key, follower.start, *follower.onward, p_diff);
                co_await std::move(walk);
            }
            AdjustParentOf(follower);
        }
        if (turn.summary && how.SummaryCalc) {
            auto walk = MoveSummary(turn.key, MoveBehind(turn, task, remembered, p_diff));
            co_await std::move(walk);
        }
        reached_.Add(turn.key);
    }
}

void DateWalk::Turn::Next(KeyText next) {
    previous = key == kNoText ? KeyText() : key;
    key = next;
}

/// Whether a successor is moved now, and how it follows then.
bool DateWalk::Takes(Turn& turn, const Ref<TasksCls>& changed, const Change& how) {
    const Ref<TasksCls> next = tasks_.Item(turn.key);
    // Kept: once one is eligible, so is the rest of the list.
    if (!turn.eligible) turn.eligible = !next || next->ParentID() == 0 || next->ParentID() != changed->ParentID();
    if (!turn.eligible || !IsDue(turn, next)) return false;
    const bool first = turn.first();
    // Kept: only the first takes its lag afresh; a later one follows by the changed task's.
    if (first && next) next->TaskLag(tasks_.LeadTowards(next, KeyText(changed->TaskKey())));
    turn.summary = next && In(next).HasChildren();
    turn.adjusts = !turn.summary || (!first && how.SummaryCalc);
    if (!turn.adjusts) return true;
    const Integer lead = !next ? Long(0) : first ? next->TaskLag() : changed->TaskLag();
    // Kept: the parent of a later leaf stays as it was.
    turn.follow = {lead, how.LeadTimeCalc, !turn.summary, first || turn.summary, how.p_not_same_parent};
    return true;
}

/// Kept: a later one that was moved already has its parent adjusted once more, unless it waits for the one before it.
bool DateWalk::IsDue(const Turn& turn, const Ref<TasksCls>& task) {
    const bool later = !turn.first() && task;
    if (later && In(task).HasPredecessor(turn.previous)) return false;  // the walk through that one reaches it
    if (!reached_.Has(turn.key)) return true;
    if (later) AdjustParentOf(task);
    return false;
}

/// A first summary keeps its gap to the task that changed, if that moved; any other moves as far as that.
DateWalk::SummaryMove DateWalk::MoveBehind(const Turn& turn, const Ref<TasksCls>& changed, Date remembered,
                                           Integer& p_diff) {
    const bool keeps_gap = turn.first() && remembered != changed->TaskBDate();
    Date start = tasks_.Item(turn.key)->TaskBDate();
    if (!keeps_gap) return {start, Date(), p_diff};
    tasks_.AdjustDateForSummary(start, changed->TaskBDate(), remembered, p_diff);
    return {start, start, 0};
}

Boolean DateWalk::AdjustDate(KeyText key, const Ref<TasksCls>& changed, const Follow& how, Integer& p_diff,
                             Date& p_preview_date) {
    Follower follower = PutFollower(key, changed, how, p_diff, p_preview_date);
    if (follower.onward) follower.result = DependsDateChanged(key, follower.start, *follower.onward, p_diff).Run();
    AdjustParentOf(follower);
    return follower.result;
}

/// AdjustDate up to where the walk goes on.
DateWalk::Follower DateWalk::PutFollower(KeyText key, const Ref<TasksCls>& changed, const Follow& how, Integer& p_diff,
                                         Date& p_preview_date) {
    return kTail.Run<Follower>("AdjustDate", [&](Follower& follower) {
        const Ref<TasksCls> task = tasks_.Item(key);
        if (!changed || !task) {
            if (changed) changed->TaskSuccessor()->Remove(key.text());
            follower.result = True;
            return;
        }
        p_preview_date = task->TaskBDate();
        task->TaskLag(tasks_.LeadTowards(task, KeyText(changed->TaskKey())));
        if (task->TaskBDate().set()) {
            PutBehind(task, changed, how.theLeadTime);
            follower.start = task->TaskBDate();
            p_diff = DaysBetween(p_preview_date, follower.start);
            // Kept: unless measured anew, the lag is in the start and is added once more.
            if (how.AdjustOtherDate) follower.onward = Change{1, how.LeadTimeCalc, True, how.p_do_same_parent, True};
        }
        if (how.adjustParent) follower.whose_parent = task;
    });
}

void DateWalk::AdjustParentOf(const Follower& follower) {
    if (follower.whose_parent) AdjustParentOf(follower.whose_parent);
}

void DateWalk::AdjustParentOf(const Ref<TasksCls>& task) {
    if (task->ParentID() != 0) tasks_.AdjustSummary(KeyText(task->ParentID()));
}

}  // namespace mrlxmlclass
