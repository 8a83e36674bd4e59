#include "tests/reference/ReferenceWalks.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::reference {

namespace day_by_day = testing::day_by_day;

namespace {

Date ShiftedAnchor(Date start, Double shift) {
    const int direction = Integer(shift) < 0 ? -1 : 1;
    int run = 0;
    while (day_by_day::NonWorkingOn(start + direction * (run + 1.0))) ++run;
    return start + shift + direction * static_cast<double>(run);
}

/// Working days between one task's end and the next one's start.
long DaysBehind(Date end, Date start) {
    return end.set() ? long(DaysBetween(end, start)) - day_by_day::NumberOfNonWorking(end, start) - 1 : 0;
}

/// Each step takes the start further back, or on: what the first one does not meet ends where dates do.
Date Mended(Date start, Date end, long have, long wanted) {
    if (have > wanted) Raise(failure::kOverflow);
    start += static_cast<double>(have - wanted);
    have = long(DaysBetween(end, start)) - day_by_day::NumberOfNonWorking(end, start);
    if (have < wanted) Raise(failure::kOverflow);
    return start;
}

}  // namespace

Boolean ReferenceWalks::ResetStartDate(Double shift) {
    return kTasksColTail.Run<Boolean>("ResetStartDate", [&](Boolean&) {
        if (Module().BVersion) {
            ResetStartDatefordependency(shift);
            Module().g_MinDate = Module().g_MaxDate = Date();
            col_.GetMinDate();
            In(col_).GetMaxDate();
        } else {
            MoveAnchors(shift, /*only_first=*/False);
        }
    });
}

Boolean ReferenceWalks::ResetStartDatefordependency(Double shift) {
    return kTasksColTail.Run<Boolean>("ResetStartDatefordependency",
                                      [&](Boolean&) { MoveAnchors(shift, /*only_first=*/True); });
}

/// Moves the tasks at the top, or those of them that wait for nothing; the gaps of these are measured anew.
void ReferenceWalks::MoveAnchors(Double shift, Boolean only_first) {
    col_.SortMe(True);
    for (const String& key : AllTasks()) {
        const Ref<TasksCls> task = Task(key);
        if (task->ParentID() != 0 || (only_first && !Predecessors(task).empty())) continue;
        if (col_.Summary(key)) {
            MoveSummary(key, task->TaskBDate(), Integer(shift));
        } else if (task->TaskCondidat()) {
            WalkFrom(key, ShiftedAnchor(task->TaskBDate(), shift), only_first);
            TellInDays(key);
        }
    }
}

void ReferenceWalks::TellInDays(const String& key) {
    TellStart(key, IsParent(key));
    TellEnd(key, IsParent(key), "days");
}

Boolean ReferenceWalks::ResetStartDatefordependency2(Double shift) {
    return kTasksColTail.Run<Boolean>("ResetStartDatefordependency2", [&](Boolean&) {
        col_.SortMe(True);
        Date old_end;
        Date new_end;
        for (const String& key : AllTasks()) {
            const Ref<TasksCls> task = Task(key);
            if (!task->TaskCondidat() || col_.Summary(key)) continue;
            const long wanted = DaysBehind(old_end, task->TaskBDate());
            const Date new_start = task->TaskBDate() + shift;
            old_end = task->TaskEDate();
            const Long lag = task->TaskLag();
            task->TaskLag(0);
            task->TaskBDate(new_start);
            task->TaskLag(lag);
            const long have = DaysBehind(new_end, task->TaskBDate());
            new_end = task->TaskEDate();
            if (have != wanted) {
                task->TaskBDate(Mended(task->TaskBDate(), new_end, have, wanted));
                new_end = task->TaskEDate();
            }
            TellInDays(key);
        }
        for (const String& key : AllTasks()) {
            if (col_.Summary(key)) AdjustSummary(key);
        }
    });
}

}  // namespace mrlxmlclass::reference
