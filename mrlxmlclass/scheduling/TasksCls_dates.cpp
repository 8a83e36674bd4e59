#include <algorithm>
#include <cmath>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"

namespace mrlxmlclass {
namespace {

using Gloabal::IsNonWorkingDay;
using Gloabal::NextWorkingDay;

constexpr FailureTail kTail{"TasksCls"};
constexpr int kLastYear = 9999;
/// 1 January 2000.
constexpr Date kFirstDay(36526);
constexpr double kShortYear = 365;
/// Before the year 9900: no look ahead comes near the last one.
constexpr Date kDaysInReach(2921000);

Date NextWorkingDayFromToday() {
    return NextWorkingDay(Platform().clock.Today(), 1);
}

/// Before the last year, without asking for a year.
bool SurelyBeforeLastYear(Date date) {
    return date.in_calendar() &&
           date.days() < kFirstDay.days() + kShortYear * static_cast<double>(MaxYear() - kMinYear);
}

Date InRange(Date date) {
    if (date >= kFirstDay && SurelyBeforeLastYear(date)) return date;
    if (!(date >= kFirstDay) && date.year() < kMinYear) {
        Platform().ui.Message("Some dates had to be adjusted to fit within the program's range. ");
        date = WithYear(date, kMinYear);
    }
    return NoLaterThanMaxYear(date);
}

/// Moves by `days`, and on in the same direction while the day reached is non-working.
void StepOverNonWorking(Date& day, Interval interval, int direction) {
    int steps = 0;
    do {
        if (++steps > Gloabal::kMostDaysSearched) Raise(failure::kEndlessWalk);
        day = DateAdd(interval, direction, day);
    } while (IsNonWorkingDay(day));
}

/// A start that the governing predecessor allows, brought to where the lag puts it.
Date WithLag(Date start, Long lag) {
    const int direction = lag < 0 ? -1 : 1;
    Date day = NextWorkingDay(start, direction);
    // Kept: a lag of -1 is where the predecessor ends, a lag of 1 is one working day on.
    std::int64_t steps = lag < 0 ? -lag - 1 : std::int64_t{lag};
    if (steps == 0) return day;
    DateAdd(Interval::Days, static_cast<double>(direction * steps), day);  // fails at once where the walk would at last
    for (; steps > 0; --steps) StepOverNonWorking(day, Interval::Days, direction);
    return day;
}

void KeepMinDate(ModuleState& module, Date start, Long key) {
    if (module.g_MinDate <= start) {
        if (!module.g_MinDate.set()) {
            module.g_MinDate = start;
            module.g_MinDateTaskKey = key;
        } else if (module.g_MinDateTaskKey == key) {
            module.g_MinDate = Date();
            module.g_MinDateTaskKey = 0;
        }
    } else if (start.set()) {
        module.g_MinDate = start;
        module.g_MinDateTaskKey = key;
    }
}

/// Widens the cached end of the plan; false when it reaches that far already.
bool WidensMaxDate(ModuleState& module, Date end, Long key) {
    if (module.g_MaxDate >= end && module.g_MaxDate.set()) return false;
    module.g_MaxDate = end;
    module.g_MaxDateTaskKey = key;
    return true;
}

void KeepMaxDateOfStart(ModuleState& module, Date end, Long key) {
    if (WidensMaxDate(module, end, key) || module.g_MaxDateTaskKey != key) return;
    module.g_MaxDate = Date();
    module.g_MaxDateTaskKey = 0;
}

void KeepMaxDateOfEnd(ModuleState& module, Date end, Long key) {
    if (WidensMaxDate(module, end, key) || module.g_MaxDateTaskKey != key) return;
    module.g_MaxDate = end;  // a holder that ends earlier pulls the cache down with it
}

double SecondsOf(Interval interval) {
    return interval == Interval::Days ? 86400 : interval == Interval::Hours ? 3600 : 60;
}

/// How many intervals it takes from one moment to reach another; one at least.
double StepsTo(Date from, Date to, Interval interval) {
    return std::max(1.0, std::ceil(std::round((to.days() - from.days()) * 86400) / SecondsOf(interval)));
}

bool EveryDayIsWorked() {
    return !Module().g_PublicCalendar;
}

/// WalkToEnd where every day is worked: one stride instead of many steps.
Date StrideToEnd(Date start, Interval interval, Double duration) {
    const double steps = std::min(std::ceil(duration) - 1, StepsTo(start, Date::Of(kLastYear, 1, 1), interval));
    return DateAdd(interval, std::max(1.0, steps), start);
}

/// The day on which `duration` intervals are worked off, the start day counting as the first whatever it is.
Date WalkToEnd(Date start, Interval interval, Double duration) {
    if (interval == Interval::Days && duration > 1 && duration <= kMostUnits && start < kDaysInReach) {
        const auto steps = static_cast<std::int64_t>(std::ceil(duration)) - 1;
        if (const auto end = PublicDays().WorkingDayAfter(start, steps)) return *end;
    }
    Date current = DateAdd(interval, 1, start);
    double count = 1;
    int idle = 0;
    while (count <= duration) {
        const bool worked = !IsNonWorkingDay(current);
        // Hours and minutes never leave the day at hand, since the day test cuts the time off.
        if (worked && interval != Interval::Days) return current;
        if (worked) {
            if (count + 1 == count) Raise(failure::kOverflow);  // past 2^53 no count ever gets beyond the duration
            ++count;
            idle = 0;
        } else if (interval != Interval::Days || count >= duration) {
            Raise(failure::kOverflow);  // it would stay here for good
        } else if (++idle > Gloabal::kMostDaysSearched) {
            Raise(failure::kEndlessWalk);
        }
        if (count < duration) {
            if (current.year() < kLastYear) {
                current = DateAdd(interval, 1, current);
            } else {
                count = duration;
            }
        }
    }
    return current;
}

}  // namespace

Date NoLaterThanMaxYear(Date date) {
    if (SurelyBeforeLastYear(date)) return date;
    return date.year() > MaxYear() ? WithYear(date, MaxYear().value()) : date;
}

void TasksCls::TaskBDate(Date value) {
    kTail.Run("TaskBDate", [&] {
        const Ref<TasksCls> held(this);  // who is told of a date that does not fit may let go of it
        if (value.set()) {
            const Date start = InRange(value);
            value = WithLag(start, f_.TaskLag.value);
        }
        const bool changed = f_.TaskBDate.value.set() && f_.TaskBDate.value != value;
        f_.TaskBDate.Let(value.day());

        const Date start = f_.TaskBDate.value;
        if (start.set()) {
            if (f_.TaskMilstones) {
                TaskEDate(start);
                TaskDuration(0);
            } else if (f_.TaskEDate.value != start || changed) {
                if (!f_.TaskEDate.value.set()) {
                    TaskDuration(1);
                    // Kept: on a fresh record the flag's change wipes the end that was just stored.
                    f_.TaskEDate.value = f_.TaskBDate.value;
                    TaskEDateValid(True);
                } else {
                    f_.TaskEDate.value = In(*this).SetDateWithoutWeekend(start, f_.TaskDuration.value);
                }
            } else if (f_.TaskDuration.value == 0) {
                f_.TaskDuration.valid = True;
                TaskDuration(1);
            }
        }
        if (f_.TaskCondidat) {
            ModuleState& module = Module();
            KeepMinDate(module, f_.TaskBDate.value, f_.TaskKey);
            KeepMaxDateOfStart(module, f_.TaskEDate.value, f_.TaskKey);
        }
    });
}

void TasksCls::TaskEDate(Date value) {
    kTail.Run("TaskEDate", [&] {
        const Ref<TasksCls> held(this);  // a listener may let go of it
        Date& start = f_.TaskBDate.value;
        Date& end = f_.TaskEDate.value;
        if (start.set() && value < start) {
            TaskDuration(f_.TaskDuration.value);
            return;
        }
        if (end.set()) {
            const Long duration = SetDurationWithoutWeekend(start, value);
            if (!In(*this).HasChildren() && duration > kMostUnits) return;
        }
        if (value.set()) value = NoLaterThanMaxYear(value);

        const Date old_end = end;
        const bool changed = old_end != value;
        f_.TaskEDate.Let(value);
        if (old_end <= value) {
            if (!value.set()) {
                // Nothing follows from no end.
            } else if (value == start && !changed) {
                TaskDuration(f_.TaskMilstones ? 0 : 1);
            } else if (!start.set()) {
                start = value;  // Kept: without its flag
                if (f_.TaskDuration.value == 0) TaskDuration(1);
                start = end;
            } else if (f_.TaskMilstones) {
                start = end;
            } else {
                TaskDuration(static_cast<double>(SetDurationWithoutWeekend(start, end).value()));
                end = value;  // the duration's setter computed it anew
            }
        } else if (value.set()) {
            // Kept: a shortened task keeps the end that the duration's setter computes.
            TaskDuration(static_cast<double>(SetDurationWithoutWeekend(start, end).value()));
        }

        if (end.set() && end == start && f_.TaskDuration.value == 0) {
            f_.TaskDuration.valid = True;
            if (!f_.TaskMilstones) TaskDuration(1);
        }
        if (f_.TaskCondidat) KeepMaxDateOfEnd(Module(), end, f_.TaskKey);
    });
}

void TasksCls::TaskDuration(Double value) {
    kTail.Run("TaskDuration", [&] {
        const Ref<TasksCls> held(this);  // a listener may let go of it
        f_.TaskDuration.valid = True;
        if (f_.ParentID.value != 0) value = std::min<Double>(value, kMostUnits);
        f_.TaskDuration.value = value;
        if (f_.TaskMilstones) return;

        Date& start = f_.TaskBDate.value;
        if (!start.set()) {
            if (f_.TaskEDate.value.set()) {
                start = SetStartDateWithoutWeekend(f_.TaskEDate.value, value);
            } else if (value != 0) {
                start = NextWorkingDayFromToday();
            }
        }
        if (value >= 1) f_.TaskEDate.value = In(*this).SetDateWithoutWeekend(start, value);
    });
}

Date TasksCls::SetDateWithoutWeekend(Date WeekDate, ByRef<Double> duration) {
    return In(*this).SetDateWithoutWeekend(WeekDate, *duration);
}

Date TasksCls::Internal::SetDateWithoutWeekend(Date WeekDate, Double duration) {
    return kTail.Run<Date>("SetDateWithoutWeekend", [&](Date& result) {
        const DurationUnit& unit = Unit();
        const Date start = WeekDate.set() ? WeekDate : Platform().clock.Today();
        if (unit.plain) {
            result = DateAdd(unit.interval, f_.TaskDuration.value, start);
        } else {
            const auto walk = EveryDayIsWorked() ? StrideToEnd : WalkToEnd;
            result = duration == 1 ? start : walk(start, unit.interval, duration);
        }
    });
}

Date TasksCls::SetStartDateWithoutWeekend(Date WeekDate, ByRef<Double> duration) {
    return kTail.Run<Date>("SetStartDateWithoutWeekend", [&](Date& result) {
        const DurationUnit& unit = In(*this).Unit();
        if (unit.plain) {
            result = DateAdd(unit.interval, -f_.TaskDuration.value, WeekDate);
        } else if (!WeekDate.set()) {
            result = NextWorkingDayFromToday();
        } else if (*duration <= 1) {
            result = NextWorkingDay(WeekDate, 1);
        } else {
            // Kept: the first step may land on a non-working day, and a duration of 2 stays there.
            Date current = DateAdd(unit.interval, -1, WeekDate);
            if (EveryDayIsWorked()) {
                result = DateAdd(unit.interval, -std::max(0.0, std::ceil(*duration - 1) - 1), current);
                return;
            }
            double taken = 1;
            while (*duration - 1 > taken++) StepOverNonWorking(current, unit.interval, -1);
            result = current;
        }
    });
}

Long TasksCls::SetDurationWithoutWeekend(Date DateStart, Date DateEnd) {
    return kTail.Run<Long>("SetDurationWithoutWeekend", [&](Long& result) {
        const DurationUnit& unit = In(*this).Unit();
        if (unit.plain) {
            result = Long(f_.TaskDuration.value);
            return;
        }
        if (!DateStart.set()) return;
        if (DateStart.day() == DateEnd.day()) {
            result = 1;
            return;
        }
        const Interval interval = unit.interval;
        if (EveryDayIsWorked()) {
            result = Long(1 + StepsTo(DateStart, DateEnd, interval));
            return;
        }
        if (interval == Interval::Days) {
            const Date first = DateStart.day() + 1;
            const Date last = std::max(first, Date(std::ceil(DateEnd.days())));
            result = DaysBetween(first, last) + 2 - PublicDays().CountNonWorking(first, last);
            return;
        }
        Long count = 1;
        for (bool arrived = false; !arrived; arrived = DateStart >= DateEnd) {
            const Date before = DateStart;
            DateStart = DateAdd(interval, 1, DateStart);
            if (!IsNonWorkingDay(DateStart)) ++count;
            // Hours and minutes fall back to midnight at every step: they would count until a Long is full.
            if (!(DateStart > before) && !(DateStart >= DateEnd)) Raise(failure::kOverflow);
        }
        result = count;
    });
}

Boolean TasksCls::setBDatewithoutWeekend() {
    return kTail.Run<Boolean>("setBDatewithoutWeekend", [&](Boolean& result) {
        const Ref<TasksCls> held(this);  // a listener may let go of it
        const Date old_start = f_.TaskBDate.value;
        const Date day_before = old_start.day() - 1;
        const Date working_day = NextWorkingDay(day_before, -1);
        if (working_day == day_before) return;
        const Date start = old_start - (old_start.day().days() - working_day.days());  // it keeps its time of day
        f_.TaskBDate.value = start;
        TaskEDate(DateAdd(Interval::Days, f_.TaskDuration.value, start));
        result = True;
    });
}

Boolean TasksCls::InitDate() {
    return kTail.Run<Boolean>("InitDate", [&](Boolean& result) {
        const Ref<TasksCls> held(this);  // a listener may let go of it
        TaskBDate(Date());
        TaskEDate(Date());
        TaskDuration(0);
        result = True;
    });
}

String TasksCls::TaskDurationUnit() {
    return In(*this).Unit().name;
}

const DurationUnit& TasksCls::Internal::OtherUnit() {
    if (const DurationUnit* unit = UnitNamed(f_.TaskDurationUnit)) return *unit;
    if (f_.TaskDurationUnit.empty()) {
        f_.TaskDurationUnitValid = "True";
    }
    f_.TaskDurationUnit = kDays.name;
    return kDays;
}

Boolean TasksCls::IsVaildDuration() {
    return UnitNamed(f_.TaskDurationUnit) != nullptr;
}

String TasksCls::SetAddValue() {
    const DurationUnit* unit = UnitNamed(f_.TaskDurationUnit);
    return unit != nullptr ? unit->letter : String();
}

}  // namespace mrlxmlclass
