#include "mrlxmlclass/scheduling/WorkingDays.h"

#include <algorithm>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass {
namespace {

using Gloabal::kMostDaysSearched;

constexpr FailureTail kTail{"Gloabal", FailureTail::Gives::SoFar};
/// How many days WorkingDayAfter looks ahead.
constexpr int kReach = 10'000;
/// How many steps are near.
constexpr int kNear = 32;
constexpr int kLargestInteger = 32767;

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

PublicDays::PublicDays() {
    const Ref<CalendarCls>& calendar = Module().g_PublicCalendar;
    table_ = calendar ? &In(calendar).Table() : nullptr;
}

std::optional<Date> PublicDays::WorkingDayAfter(Date date, std::int64_t count) const {
    if (table_ == nullptr) return {};
    const std::optional<int> day = table_->WorkingDayAfter(date.number(), count, kReach);
    return day ? std::optional(Date(*day)) : std::nullopt;
}

Date PublicDays::SearchWorkingDay(WorkingDayTable& table, Date date, int step) {
    if (date.in_calendar()) {  // as good as always, and the answer is near
        int day = date.number();
        for (int searched = 0; searched < kNear && Date(day).in_calendar(); ++searched, day += step) {
            if (!table.NonWorking(day)) return Date(day);
        }
        if (NothingWorked(table, date.number(), step)) Raise(failure::kEndlessWalk);
    }
    for (int searched = 0; Gloabal::IsNonWorkingDay(date); ++searched) {
        if (searched == kMostDaysSearched) Raise(failure::kEndlessWalk);
        date += step;
    }
    return date;
}

namespace Gloabal {

Boolean IsNonWorkingDay(ByRef<Date> date) {
    return kTail.Run<Boolean>("IsNonWorkingDay", [&](Boolean& result) {
        if (!Module().g_PublicCalendar) return;
        *date = Date(date->number());
        result = PublicDays().NonWorking(*date);
    });
}

Integer NumberOFNonWorkingDay(Date a, Date b) {
    return kTail.Run<Integer>("NumberOFNonWorkingDay", [&](Integer& result) {
        const std::int64_t days = PublicDays().CountNonWorking(std::min(a, b), std::max(a, b));
        result = std::min<std::int64_t>(days, kLargestInteger);
        if (days > kLargestInteger) Raise(failure::kOverflow);
    });
}

Date NextWorkingDay(Date date, int step) {
    return kTail.Run<Date>("SetNextWorkingDay", [&](Date& result) {
        result = date;
        result = PublicDays().NextWorkingDay(date, step);
    });
}

Date SetNextWorkingDay(Date date, ByRef<Integer> p_step, ByRef<Integer> p_days) {
    return kTail.Run<Date>("SetNextWorkingDay", [&](Date& result) {
        result = date;
        result = PublicDays().NextWorkingDay(date, p_step->value());
        if (*p_days == 0 || DaysBetween(date, result) <= *p_days) return;
        const Integer further = *p_days + NumberOFNonWorkingDay(result, date);
        result = NextWorkingDay(result + static_cast<double>(further.value()), p_step->value());
    });
}

}  // namespace Gloabal
}  // namespace mrlxmlclass
