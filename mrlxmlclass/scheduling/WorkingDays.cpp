#include "mrlxmlclass/scheduling/WorkingDays.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass::Gloabal {
namespace {

constexpr FailureTail kTail{"Gloabal", FailureTail::Gives::SoFar};

/// Adds the non-working days from `first` to `last` to a count.
void CountNonWorking(Date first, Date last, Integer& count) {
    for (Date day = first; day <= last; day += 1) {
        if (IsNonWorkingDay(Date(day))) ++count;
    }
}

}  // namespace

Boolean IsNonWorkingDay(ByRef<Date> date) {
    return kTail.Run<Boolean>("IsNonWorkingDay", [&](Boolean& result) {
        const Ref<CalendarCls> calendar = Module().g_PublicCalendar;
        if (!calendar) return;
        result = calendar->IsNonWorkingDay(Long(date->weekday()));
        if (result) result = !calendar->isExceptionDay(*date);
        if (!result) result = calendar->isHoliday(*date);
    });
}

Integer NumberOFNonWorkingDay(Date a, Date b) {
    return kTail.Run<Integer>("NumberOFNonWorkingDay",
                              [&](Integer& result) { CountNonWorking(std::min(a, b), std::max(a, b), result); });
}

Integer NonWorkingDaysFrom(Date first, Date last) {
    Integer count;
    CountNonWorking(first, last, count);
    return count;
}

Date SetNextWorkingDay(Date date, ByRef<Integer> p_step, ByRef<Integer> p_days) {
    return kTail.Run<Date>("SetNextWorkingDay", [&](Date& result) {
        result = date;
        if (!date.set()) return;
        Date day = date;
        for (int searched = 0; IsNonWorkingDay(day); ++searched) {
            if (searched == kMostDaysSearched) Raise(failure::kEndlessWalk);
            day += static_cast<double>(p_step->value());
        }
        result = day;
        if (*p_days != 0 && DaysBetween(date, day) > *p_days) {
            const Integer further = *p_days + NumberOFNonWorkingDay(day, date);
            result = SetNextWorkingDay(day + static_cast<double>(further.value()), *p_step, Integer(0));
        }
    });
}

}  // namespace mrlxmlclass::Gloabal
