#include <algorithm>

#include "mrlxmlclass/scheduling/Units.h"
#include "tests/reference/ReferenceWalks.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::reference {

namespace day_by_day = testing::day_by_day;

Boolean ReferenceWalks::DependsDateChanged(const String& key, Date& changed_date, Integer StartFinishDate,
                                           Boolean LeadTimeCalc, Boolean SummaryCalc, Double /*p_number_to_shift*/,
                                           Boolean p_not_same_parent, Boolean p_calc_date, Ref<Dictionary>& p_changeds,
                                           Integer& p_diff) {
    return kTasksColTail.Run<Boolean>("DependsDateChanged", [&](Boolean& result) {
        const Ref<TasksCls> task = Task(key);
        if (!p_changeds) p_changeds = Make<Dictionary>();
        Reach(p_changeds, key);
        const Long parent = task->ParentID();
        if (parent != 0 && !p_changeds->Exists(parent)) p_changeds->Add(parent, parent);

        const Date remembered = SetChangedDate(key, changed_date, StartFinishDate, LeadTimeCalc, p_calc_date, p_diff);

        TellStart(key, IsParent(key));
        TellEnd(key, IsParent(key));
        TellDuration(key, IsParent(key));
        TellTaskDuration(key, IsParent(key));

        result = True;
        if (!Module().BVersion) return;
        String previous;
        bool eligible = false;
        for (const String& successor_key : Successors(task)) {
            const Ref<TasksCls> successor = Task(successor_key);
            if (!p_not_same_parent) eligible = true;
            if (!successor || successor->ParentID() == 0 || successor->ParentID() != task->ParentID()) eligible = true;
            if (eligible && previous.empty() && !Reached(p_changeds, successor_key)) {
                MoveFirstSuccessor(successor_key, task, remembered, LeadTimeCalc, SummaryCalc, p_not_same_parent,
                                   p_changeds, p_diff);
                Reach(p_changeds, successor_key);
            } else if (eligible && !previous.empty()) {
                if (successor && WaitsFor(successor, previous)) {
                    // The walk through that one has reached it.
                } else if (Reached(p_changeds, successor_key)) {
                    if (successor) AdjustParentOf(successor);
                } else {
                    MoveLaterSuccessor(successor_key, task, LeadTimeCalc, SummaryCalc, p_not_same_parent, p_changeds,
                                       p_diff);
                    Reach(p_changeds, successor_key);
                }
            }
            previous = successor_key;
        }
    });
}

/// Gives the date that the task had, of the kind that changes.
Date ReferenceWalks::SetChangedDate(const String& key, Date& changed_date, Integer kind, Boolean LeadTimeCalc,
                                    Boolean p_calc_date, Integer& p_diff) {
    const Ref<TasksCls> task = Task(key);
    if (kind == 2 && HasPlainUnit(task)) {
        if (p_calc_date) task->TaskEDate(changed_date);
        return {};
    }
    if (kind == 2) {
        const Date old_end = task->TaskEDate();
        if (p_calc_date) {
            if (changed_date.year() > MaxYear()) {
                changed_date = WithYear(changed_date, static_cast<int>(MaxYear().value()));
            }
            task->TaskEDate(day_by_day::NextWorkingDay(changed_date, 2));
        }
        return old_end;
    }
    if ((kind == 1 || kind == -1) && !HasPlainUnit(task)) {
        const Date old_start = task->TaskBDate();
        if (p_calc_date && changed_date.set() && LeadTimeCalc) SetStartFreely(key, changed_date, kind, p_diff);
        if (p_calc_date && changed_date.set() && !LeadTimeCalc) {
            task->TaskBDate(day_by_day::NextWorkingDay(changed_date, kind.value()));
        }
        return old_start;
    }
    return {};
}

void ReferenceWalks::SetStartFreely(const String& key, Date date, Integer direction, Integer& p_diff) {
    const Ref<TasksCls> task = Task(key);
    const Date old_start = task->TaskBDate();
    task->TaskLag(0);
    task->TaskBDate(day_by_day::NextWorkingDay(date, direction.value()));
    task->TaskLag(CalcLeadTime(key));
    if (old_start == date || p_diff != 0) return;
    p_diff = DaysBetween(old_start, task->TaskBDate());
    const long idle = std::min(day_by_day::NumberOfNonWorking(old_start, task->TaskBDate()), 2L);
    if (p_diff < 0) {
        p_diff += idle;
    } else if (p_diff > 0) {
        p_diff -= idle;
    }
}

void ReferenceWalks::MoveFirstSuccessor(const String& key, const Ref<TasksCls>& changed, Date remembered,
                                        Boolean LeadTimeCalc, Boolean SummaryCalc, Boolean p_not_same_parent,
                                        Ref<Dictionary>& p_changeds, Integer& p_diff) {
    const Ref<TasksCls> successor = Task(key);
    if (successor) successor->TaskLag(StoredLead(KeyOf(changed), successor));
    if (!IsParent(key)) {
        Date old_start;
        AdjustDate(key, changed, successor ? Integer(successor->TaskLag()) : Integer(0), LeadTimeCalc,
                   /*AdjustOtherDate=*/True, /*adjustParent=*/True, p_changeds, p_not_same_parent, p_diff, old_start);
    } else if (SummaryCalc && remembered != changed->TaskBDate()) {
        Date start = successor->TaskBDate();
        AdjustDateForSummary(start, changed->TaskBDate(), remembered, p_diff);
        MoveSummary(key, start, start, p_changeds, 0);
    } else if (SummaryCalc) {
        MoveSummary(key, successor->TaskBDate(), Date(), p_changeds, p_diff);
    }
}

void ReferenceWalks::MoveLaterSuccessor(const String& key, const Ref<TasksCls>& changed, Boolean LeadTimeCalc,
                                        Boolean SummaryCalc, Boolean p_not_same_parent, Ref<Dictionary>& p_changeds,
                                        Integer& p_diff) {
    const Integer lead = Task(key) ? Integer(changed->TaskLag()) : Integer(0);
    Date old_start;
    if (!IsParent(key)) {
        AdjustDate(key, changed, lead, LeadTimeCalc, /*AdjustOtherDate=*/True, /*adjustParent=*/False, p_changeds,
                   p_not_same_parent, p_diff, old_start);
    } else if (SummaryCalc) {
        AdjustDate(key, changed, lead, LeadTimeCalc, /*AdjustOtherDate=*/False, /*adjustParent=*/True, p_changeds,
                   p_not_same_parent, p_diff, old_start);
        MoveSummary(key, Task(key)->TaskBDate(), Date(), p_changeds, p_diff);
    }
}

Boolean ReferenceWalks::AdjustDate(const String& key, Ref<TasksCls> changed, Integer theLeadTime, Boolean LeadTimeCalc,
                                   Boolean AdjustOtherDate, Boolean adjustParent, Ref<Dictionary>& p_changeds,
                                   Boolean p_do_same_parent, Integer& p_diff, Date& p_preview_date) {
    return kTasksColTail.Run<Boolean>("AdjustDate", [&](Boolean& result) {
        result = True;
        if (!changed) return;
        const Ref<TasksCls> task = Task(key);
        if (!task) {
            changed->TaskSuccessor()->Remove(key);
            return;
        }
        result = False;
        p_preview_date = task->TaskBDate();
        task->TaskLag(StoredLead(KeyOf(changed), task));
        if (task->TaskBDate().set()) {
            const Date end = changed->TaskEDate();
            if (!end.set()) {
                task->TaskBDate(Date());
                task->TaskEDate(Date());
                task->TaskDuration(0);
            } else {
                task->TaskBDate(theLeadTime < 0 ? end : end + 1);
            }
            p_diff = DaysBetween(p_preview_date, task->TaskBDate());
            if (AdjustOtherDate) {
                Date start = task->TaskBDate();
                result = DependsDateChanged(key, start, 1, LeadTimeCalc, /*SummaryCalc=*/True, {}, p_do_same_parent,
                                            /*p_calc_date=*/True, p_changeds, p_diff);
            }
        }
        if (adjustParent) AdjustParentOf(task);
    });
}

Boolean ReferenceWalks::DurationChanged(const String& key, Double& duration, const String& unit) {
    return kTasksColTail.Run<Boolean>("DurationChanged", [&](Boolean& result) {
        if (!IsParent(key) && duration > 999) duration = 999;
        const Ref<TasksCls> task = Task(key);
        Ref<Dictionary> reached;
        if (duration == 0) {
            task->TaskMilstones(True);
            Date start = task->TaskBDate();
            Integer shift;
            result = DependsDateChanged(key, start, 1, True, True, {}, False, True, reached, shift);
        } else {
            if (!unit.empty()) task->TaskDurationUnit(Gloabal::unitvalid(unit));
            const Date old_end = task->TaskEDate();
            task->TaskDuration(duration);
            Integer shift = DaysBetween(old_end, task->TaskEDate());
            task->TaskMilstones(False);
            Date end = task->TaskEDate();
            result = DependsDateChanged(key, end, 2, True, True, {}, False, True, reached, shift);
        }
        Double sum = task->TaskDuration();
        RollUpDateChanged(key, sum);
    });
}

void ReferenceWalks::WalkFrom(const String& key, Date start, Boolean LeadTimeCalc) {
    Ref<Dictionary> reached;
    Integer shift;
    DependsDateChanged(key, start, 1, LeadTimeCalc, /*SummaryCalc=*/True, {}, /*p_not_same_parent=*/False,
                       /*p_calc_date=*/True, reached, shift);
}

void ReferenceWalks::AdjustParentOf(const Ref<TasksCls>& task) {
    if (task->ParentID() != 0) AdjustSummary(ParentOf(task));
}

}  // namespace mrlxmlclass::reference
