#include "mrlxmlclass/scheduling/WorkingDays.h"

#include <algorithm>
#include <cmath>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass::Gloabal {
namespace {

constexpr FailureTail kTail{"Gloabal", FailureTail::Gives::SoFar};
/// How many days WorkingDayAfter looks ahead.
constexpr int kReach = 10'000;
/// How many steps are near.
constexpr int kNear = 32;
constexpr int kLargestInteger = 32767;

/// The public calendar's days counted up; nothing where every day is worked.
WorkingDayTable* PublicTable() {
    const Ref<CalendarCls>& calendar = Module().g_PublicCalendar;
    return calendar ? &In(calendar).Table() : nullptr;
}

/// Whether a whole search would find no working day, counted in blocks instead of days. False also where it would leave
/// the calendar, which fails otherwise.
bool NothingWorked(WorkingDayTable& table, int day, int step) {
    const Date end = Date(day + static_cast<double>(kMostDaysSearched) * step);
    if (!end.in_calendar()) return false;
    const int first = std::min(day, end.number());
    const int last = std::max(day, end.number());
    return table.CountNonWorking(first, last) == last - first + 1;
}

}  // namespace

Boolean IsNonWorkingDay(ByRef<Date> date) {
    return kTail.Run<Boolean>("IsNonWorkingDay", [&](Boolean& result) {
        WorkingDayTable* const table = PublicTable();
        if (table == nullptr) return;
        const int day = date->number();
        *date = Date(day);
        result = table->NonWorking(day);
    });
}

Integer NumberOFNonWorkingDay(Date a, Date b) {
    return kTail.Run<Integer>("NumberOFNonWorkingDay", [&](Integer& result) {
        const std::int64_t days = NonWorkingDaysFrom(std::min(a, b), std::max(a, b));
        result = std::min<std::int64_t>(days, kLargestInteger);
        if (days > kLargestInteger) Raise(failure::kOverflow);
    });
}

std::int64_t NonWorkingDaysFrom(Date first, Date last) {
    WorkingDayTable* const table = PublicTable();
    if (table == nullptr || first > last) return 0;
    const int steps = static_cast<int>(std::floor(last.days() - first.days()));
    const int last_day = (Date(first.number()) + steps).number();
    return table->CountNonWorking(last_day - steps, last_day);
}

std::optional<Date> WorkingDayAfter(Date date, std::int64_t count) {
    WorkingDayTable* const table = PublicTable();
    if (table == nullptr) return {};
    const std::optional<int> day = table->WorkingDayAfter(date.number(), count, kReach);
    return day ? std::optional(Date(*day)) : std::nullopt;
}

Date SetNextWorkingDay(Date date, ByRef<Integer> p_step, ByRef<Integer> p_days) {
    if (*p_days == 0 && date.in_calendar()) {  // the usual question, and nearly always a near answer
        WorkingDayTable* const table = PublicTable();
        if (table == nullptr || !date.set()) return date;
        Date day = date.day();
        for (int searched = 0; searched < kNear && day.in_calendar(); ++searched) {
            if (!table->NonWorking(day.number())) return day;
            day = Date(day.days() + p_step->value());
        }
        if (NothingWorked(*table, date.number(), p_step->value())) {
            kTail.Run("SetNextWorkingDay", [] { Raise(failure::kEndlessWalk); });
            return date;
        }
    }
    return kTail.Run<Date>("SetNextWorkingDay", [&](Date& result) {
        result = date;
        Date day = date;
        for (int searched = 0; date.set() && IsNonWorkingDay(day); ++searched) {
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
