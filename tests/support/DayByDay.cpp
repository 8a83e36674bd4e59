#include "tests/support/DayByDay.h"

#include <cmath>
#include <cstdlib>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/DateText.h"

namespace mrlxmlclass::testing::day_by_day {
namespace {

String TextOf(Date date) {
    return FormatDate(date, Platform().locale.Settings().short_date);
}

bool Holiday(CalendarCls& calendar, Date date) {
    return bool(calendar.Holiday()->Exists(TextOf(date)));
}

bool ExceptionDay(CalendarCls& calendar, Date date) {
    return calendar.ExceptionDay()->Exists(date) || calendar.ExceptionDay()->Exists(TextOf(date));
}

Date InYear(Date date, int year) {
    const double time = date.days() - date.day().days();
    return Date::Of(year, date.month(), date.day_of_month()) + time;
}

Date NoLaterThanMaxYear(Date date) {
    return date.year() > MaxYear() ? InYear(date, static_cast<int>(MaxYear().value())) : date;
}

long DaysFrom(Date from, Date to) {
    return static_cast<long>(to.day().days() - from.day().days());
}

}  // namespace

bool NonWorking(Date& date) {
    const Ref<CalendarCls>& calendar = Module().g_PublicCalendar;
    if (!calendar) return false;
    bool result = bool(calendar->NonWorkingDay()->Exists(std::to_string(date.weekday())));
    date = date.day();
    if (result) result = !ExceptionDay(*calendar, date);
    if (!result) result = Holiday(*calendar, date);
    return result;
}

bool NonWorkingOn(Date date) {
    return NonWorking(date);
}

long NumberOfNonWorking(Date a, Date b) {
    if (a > b) std::swap(a, b);
    long count = 0;
    for (Date day = a; day <= b; day += 1) count += NonWorkingOn(day) ? 1 : 0;
    return count;
}

Date NextWorkingDay(Date date, int step, int days) {
    Date result = date;
    while (date.set() && NonWorking(result)) result += step;
    if (days != 0 && DaysFrom(date, result) > days) {
        const long further = days + NumberOfNonWorking(result, date);
        result = NextWorkingDay(result + static_cast<double>(further), step);
    }
    return result;
}

long GapBetween(Date start, Date end) {
    if (!start.set()) return 0;
    const long lag = end.set() ? DaysFrom(end, start) : 0;
    const long size = std::abs(lag);
    long idle = 0;
    for (long i = 0; i <= size; ++i) {
        const auto days = static_cast<double>(i);
        if (start <= end) {
            if (NonWorkingOn(start + days) && start + days <= end) ++idle;
        } else {
            if (NonWorkingOn(end + days)) ++idle;
        }
    }
    return start <= end ? -(size - idle) : lag - idle;
}

void KeepGap(Date& start, Date preview, Date old_preview, long& shift) {
    const Date came_in = start;
    const long wanted = GapBetween(start, old_preview);
    start = wanted == 0 ? preview : preview + static_cast<double>(wanted);
    while (GapBetween(start, preview) != wanted) start += wanted < 0 ? -1 : 1;
    const long idle = NumberOfNonWorking(came_in, start);
    shift += shift < 0 ? idle : -idle;
}

double SummaryDuration(Date start, Date end) {
    const long days = std::abs(DaysFrom(start, end) + 1);
    long idle = 0;
    if (end > start) {
        for (Date day = start + 1; day <= end; day += 1) idle += NonWorkingOn(day) ? 1 : 0;
    } else {
        for (Date day = start - 1; day >= end; day += -1) idle += NonWorkingOn(day) ? 1 : 0;
    }
    return static_cast<double>(days - idle);
}

Leads MeasureLeads(Date start, const std::vector<Date>& ends) {
    Leads leads;
    if (!start.set()) return leads;
    long lag = 0;
    for (const Date& end_moment : ends) {
        const Date end = end_moment.day();
        long idle = 0;
        if (end.set()) lag = DaysFrom(end, start);
        --lag;
        if (start > end) {
            for (long i = 0; i <= lag; ++i) idle += NonWorkingOn(end + static_cast<double>(i)) ? 1 : 0;
            lag -= idle;
        } else {
            for (long i = 0; i <= std::abs(lag); ++i) {
                const Date day = start + static_cast<double>(i);
                if (NonWorkingOn(day) && day <= end) ++idle;
            }
            lag = -(std::abs(lag) - idle);
            if (lag == 0) lag = -1;
        }
        leads.largest = std::max(leads.largest, lag);
        leads.gaps.push_back(lag);
    }
    return leads;
}

// --- The setters -----------------------------------------------------------------------------------------------------

void Row::Start(Date value, Caches& caches) {
    if (value.set()) {
        if (value.year() < 2000) value = InYear(value, 2000);
        value = NoLaterThanMaxYear(value);
        const int direction = lag < 0 ? -1 : 1;
        value = NextWorkingDay(value, direction);
        for (long steps = lag < 0 ? -lag - 1 : lag; steps > 0; --steps) {
            do value += direction;
            while (NonWorking(value));
        }
    }
    const bool changed = start.set() && start != value;
    start_valid = true;
    start = value.day();
    if (start.set()) {
        if (milestone) {
            End(start, caches);
            Duration(0);
        } else if (end != start || changed) {
            if (!end.set()) {
                Duration(1);
                end = start;
                EndValid(true);
            } else {
                end = EndOf(start, duration);
            }
        } else if (duration == 0) {
            duration_valid = true;
            Duration(1);
        }
    }
    if (candidate) return;
    if (caches.min <= start) {
        if (!caches.min.set()) {
            caches.min = start;
            caches.min_key = key;
        } else if (caches.min_key == key) {
            caches.min = Date();
            caches.min_key = 0;
        }
    } else if (start.set()) {
        caches.min = start;
        caches.min_key = key;
    }
    if (caches.max < end || !caches.max.set()) {
        caches.max = end;
        caches.max_key = key;
    } else if (caches.max_key == key) {
        caches.max = Date();
        caches.max_key = 0;
    }
}

void Row::End(Date value, Caches& caches) {
    if (start.set() && value < start) return Duration(duration);
    if (end.set()) {
        const long days = DurationBetween(start, value);
        if (!has_children && days > 999) return;
    }
    if (value.set()) value = NoLaterThanMaxYear(value);
    const Date old_end = end;
    const bool changed = old_end != value;
    end_valid = true;
    end = value;
    if (old_end <= value) {
        if (!value.set()) {
            // Nothing.
        } else if (value == start && !changed) {
            Duration(milestone ? 0 : 1);
        } else if (!start.set()) {
            start = value;
            if (duration == 0) Duration(1);
            start = end;
        } else if (milestone) {
            start = end;
        } else {
            Duration(static_cast<double>(DurationBetween(start, end)));
            end = value;
        }
    } else if (value.set()) {
        Duration(static_cast<double>(DurationBetween(start, end)));
    }
    if (end.set() && end == start && duration == 0) {
        duration_valid = true;
        if (!milestone) Duration(1);
    }
    if (candidate) return;
    if (caches.max < end || !caches.max.set()) {
        caches.max = end;
        caches.max_key = key;
    } else if (caches.max_key == key) {
        caches.max = end;
    }
}

void Row::Duration(double value) {
    duration_valid = true;
    if (has_parent && value > 999) value = 999;
    duration = value;
    if (milestone) return;
    if (!start.set() && end.set()) {
        start = StartOf(end, value);
    } else if (!start.set() && value != 0) {
        start = NextWorkingDay(Platform().clock.Today(), 1);
    }
    if (value >= 1) end = EndOf(start, value);
}

void Row::EndValid(bool flag) {
    if (flag == end_valid) return;
    end_valid = flag;
    end = Date();
}

Date Row::Step(Date from, double count) const {
    if (unit == "mons") return DateAdd(Interval::Months, count, from);
    if (unit == "hrs") return DateAdd(Interval::Hours, count, from);
    if (unit == "mins") return DateAdd(Interval::Minutes, count, from);
    return from + std::nearbyint(count) * (unit == "wks" ? 7 : 1);
}

Date Row::EndOf(Date start_of, double length) const {
    if (!start_of.set()) return EndOf(Platform().clock.Today(), length);
    if (Plain()) return Step(start_of, duration);
    if (length == 1) return start_of;
    Date current = Step(start_of, 1);
    double count = 1;
    while (count <= length) {
        if (!NonWorking(current)) ++count;
        if (count < length) {
            if (current.year() < 9999) {
                current = Step(current, 1);
            } else {
                count = length;
            }
        }
    }
    return current;
}

Date Row::StartOf(Date end_of, double length) const {
    if (Plain()) return Step(end_of, -duration);
    if (!end_of.set()) return NextWorkingDay(Platform().clock.Today(), 1);
    Date current = length <= 1 ? NextWorkingDay(end_of, 1) : Step(end_of, -1);
    for (double i = 1; length - 1 > i; ++i) {
        do current = Step(current, -1);
        while (NonWorking(current));
    }
    return current;
}

long Row::DurationBetween(Date from, Date to) const {
    if (Plain()) return static_cast<long>(std::nearbyint(duration));
    if (!from.set()) return 0;
    if (from.day() == to.day()) return 1;
    long count = 1;
    do {
        from = Step(from, 1);
        if (!NonWorking(from)) ++count;
    } while (from < to);
    return count;
}

}  // namespace mrlxmlclass::testing::day_by_day
