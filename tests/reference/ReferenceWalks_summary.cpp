#include <cmath>

#include "mrlxmlclass/platform/Services.h"
#include "tests/reference/ReferenceWalks.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::reference {

namespace day_by_day = testing::day_by_day;

void ReferenceWalks::AdjustSummary(const String& key, Boolean InitDate) {
    kTasksColTail.Run("AdjustSummary", [&] {
        if (key == "0") return;
        const Ref<TasksCls> summary = Task(key);
        const std::vector<String> children = Children(key);
        if (InitDate && !children.empty()) summary->InitDate();
        for (const String& child_key : children) {
            const Ref<TasksCls> child = Task(child_key);
            if (child->TaskBDate() < summary->TaskBDate() || !summary->TaskBDate().set()) {
                In(summary).StoreStart(child->TaskBDate());
            }
            if (child->TaskEDate() > summary->TaskEDate()) In(summary).StoreEnd(child->TaskEDate());
        }
        if (!summary->TaskBDate().set()) summary->TaskBDate(summary->TaskEDate());

        const Date start = summary->TaskBDate();
        const Date end = summary->TaskEDate();
        if (Integer(std::abs(DaysBetween(start, end) + 1)) >= 0) {  // more than an Integer holds end it here
            In(summary).StoreDuration(day_by_day::SummaryDuration(start, end));
        }
        if (summary->TaskDuration() == 0 && !summary->TaskBDate().set()) {
            summary->TaskBDate(Platform().clock.Today());
        }
        summary->TaskLag(CalcLeadTime(key));
        summary->TaskMilstones(summary->TaskEDate() == summary->TaskBDate() && summary->TaskDuration() == 0);

        TellDuration(key, True);
        TellTaskDuration(key, True);
        TellEnd(key, True);
        TellStart(key, True);
        AdjustParentOf(summary);
    });
}

Boolean ReferenceWalks::SummaryTaskDateChanged2(const String& key, Date& stDate, Date& UsethisDate,
                                                Boolean /*CalcLead*/, Date /*p_preview_date*/,
                                                Ref<Dictionary>& p_changeds, Boolean /*p_form_scheduler*/,
                                                Integer p_diff) {
    return kTasksColTail.Run<Boolean>("SummaryTaskDateChanged2", [&](Boolean& result) {
        if (!p_changeds) p_changeds = Make<Dictionary>();
        const Ref<Dictionary> children = col_.GetTasksAsKeys(key);
        bool exact = false;
        if (p_diff == 0 && day_by_day::NonWorking(stDate)) {
            stDate = day_by_day::NextWorkingDay(stDate, 1);
            if (UsethisDate.set()) {
                UsethisDate = stDate;
                exact = true;
            }
        } else if (p_diff == 0 && !UsethisDate.set()) {
            p_diff = DaysBetween(Task(key)->TaskBDate(), stDate);
        } else if (p_diff == 0) {
            exact = true;
        }

        String previous;
        Date previous_end;
        for (const Variant& child_number : children->Keys()) {
            const String child_key = child_number.Key().text();
            if (Reached(p_changeds, child_key)) continue;
            const Ref<TasksCls> child = Task(child_key);
            const Long lag = child->TaskLag();
            child->TaskLag(0);
            Date target;
            if (previous.empty() || !previous_end.set()) {
                target = exact ? UsethisDate : child->TaskBDate() + static_cast<double>(p_diff.value());
                previous_end = child->TaskEDate();
            } else {
                const Integer gap = CalcLeadTimeNoLink(child_key, previous_end);
                previous_end = child->TaskEDate();
                AdjustDateNoLink(child_key, previous, gap);
                SeekGap(child_key, Task(previous)->TaskEDate(), gap);
                target = child->TaskBDate();
                child->TaskLag(lag);
                if (!IsParent(child_key)) p_diff = ShiftFrom(previous_end, target);
            }
            previous = child_key;
            if (!IsParent(child_key)) {
                DependsDateChanged(child_key, target, p_diff >= 0 ? 1 : -1, /*LeadTimeCalc=*/True, /*SummaryCalc=*/True,
                                   {}, /*p_not_same_parent=*/True, /*p_calc_date=*/True, p_changeds, p_diff);
            } else {
                MoveSummary(child_key, target, target, p_changeds, p_diff);
            }
        }

        ModuleState& module = Module();
        module.g_MinDate = module.g_MaxDate = Date();
        module.g_MinDateTaskKey = module.g_MaxDateTaskKey = 0;
        AdjustSummary(key);
        result = True;
    });
}

/// Moves the start day by day until it has its gap again; the end follows in plain days.
void ReferenceWalks::SeekGap(const String& key, Date previous_end, Integer gap) {
    const Ref<TasksCls> task = Task(key);
    int days = 0;
    while (CalcLeadTimeNoLink(key, previous_end) != gap) {
        const bool can_end = task->TaskBDate().set() && previous_end.set();
        if (++days > kMostDaysSought || !can_end) Raise(failure::kEndlessWalk);
        In(task).TaskBDate_Int(task->TaskBDate() + (gap < 0 ? -1 : 1));
        In(task).TaskEDate_Int(task->TaskBDate() + std::nearbyint(double(task->TaskDuration())));
    }
}

/// The days from a task's old end to its new start, without non-working ones beside the old end.
std::int64_t ReferenceWalks::ShiftFrom(Date old_end, Date start) {
    const std::int64_t days = DaysBetween(old_end, start);
    const bool free_before = day_by_day::NonWorkingOn(old_end - 1);
    const bool free_behind = day_by_day::NonWorkingOn(old_end + 1);
    if (days >= 0) return free_behind ? days - day_by_day::NumberOfNonWorking(old_end, start) : days;
    if (free_before) return days + day_by_day::NumberOfNonWorking(start, old_end);
    std::int64_t run = 0;
    while (day_by_day::NonWorkingOn(old_end + static_cast<double>(run + 1))) ++run;
    return days - run;
}

void ReferenceWalks::MoveSummary(const String& key, Date start, Integer p_diff) {
    Ref<Dictionary> reached;
    MoveSummary(key, start, Date(), reached, p_diff);
}

void ReferenceWalks::MoveSummary(const String& key, Date start, Date exact, Ref<Dictionary>& p_changeds,
                                 Integer p_diff) {
    SummaryTaskDateChanged2(key, start, exact, /*CalcLead=*/True, {}, p_changeds, /*p_form_scheduler=*/False, p_diff);
}

Boolean ReferenceWalks::RollUpDateChanged(const String& key, Double& diff) {
    return kTasksColTail.Run<Boolean>("RollUpDateChanged", [&](Boolean&) {
        const Ref<TasksCls> task = Task(key);
        if (task->ParentID() == 0) return;
        const String parent_key = ParentOf(task);
        const Ref<TasksCls> parent = Task(parent_key);
        if (task->TaskBDate() < parent->TaskBDate() || !parent->TaskBDate().set()) {
            parent->TaskBDate(task->TaskBDate());
            TellStart(parent_key, IsParent(parent_key));
            parent->TaskEDate(task->TaskEDate());
            TellEnd(parent_key, IsParent(parent_key));
        }
        if (task->TaskEDate() > parent->TaskEDate()) {
            parent->TaskEDate(task->TaskEDate());
            TellEnd(parent_key, IsParent(parent_key));
        }
        AdjustSummary(parent_key);
        diff = diff + task->TaskDuration();
        RollUpDateChanged(parent_key, diff);
        TellSummary(parent_key, True);
    });
}

Boolean ReferenceWalks::RolUpOneDate(const String& key, const String& parent_key, Boolean Minus) {
    return kTasksColTail.Run<Boolean>("RolUpOneDate", [&](Boolean&) {
        const Ref<TasksCls> task = Task(key);
        const Ref<TasksCls> parent = Task(parent_key);
        if (Minus) {
            parent->TaskDuration(parent->TaskDuration() - task->TaskDuration());
        } else {
            parent->TaskDuration(task->TaskDuration());
            parent->TaskEDate(task->TaskEDate());
            parent->TaskBDate(task->TaskBDate());
        }
        TellTaskDuration(parent_key, True);
        TellDuration(parent_key, True);
        TellEnd(parent_key, True);
        TellStart(parent_key, True);
        if (parent->ParentID() != 0) RolUpOneDate(parent_key, ParentOf(parent), Minus);
    });
}

}  // namespace mrlxmlclass::reference
