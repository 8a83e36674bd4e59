#pragma once

#include <cmath>
#include <set>

#include "mrlxmlclass/scheduling/CalendarCls.h"

namespace mrlxmlclass::testing {

/// A calendar that counts days on its fingers: what the arithmetic of working days is held against.
struct PlainCalendar {
    std::set<int> free_weekdays;  ///< 1 = Sunday ... 7 = Saturday
    std::set<double> holidays;
    std::set<double> exceptions;

    bool Worked(Date day) const {
        if (holidays.contains(day.days())) return false;
        return !free_weekdays.contains(day.weekday()) || exceptions.contains(day.days());
    }

    /// The day on which `duration` days are worked off; the start counts as the first whatever it is.
    Date End(Date start, double duration) const {
        if (duration < 1) return start + 1;
        Date day = start;
        for (double worked = 1; worked < duration;) {
            day += 1;
            if (Worked(day)) ++worked;
        }
        return day;
    }

    /// The day before the end, then a working day back for each day of the duration past the second.
    Date Start(Date end, double duration) const {
        if (duration <= 1) return Next(end, 1);
        Date day = end - 1;
        for (double left = duration - 2; left > 0; --left) day = Next(day - 1, -1);
        return day;
    }

    /// The start, and every working day behind it to the end; the day behind the start counts in any case.
    long Duration(Date start, Date end) const {
        if (start == end) return 1;
        long days = 1;
        for (Date day = start + 1; day <= std::max(end, start + 1); day += 1) days += Worked(day) ? 1 : 0;
        return days;
    }

    long Free(Date from, Date to) const {
        long days = 0;
        for (Date day = from; day <= to; day += 1) days += Worked(day) ? 0 : 1;
        return days;
    }

    Date Next(Date day, int step) const {
        while (!Worked(day)) day += step;
        return day;
    }

    /// Brings the same days to a calendar of the library.
    void Set(CalendarCls& calendar) const {
        for (const int weekday : free_weekdays) calendar.SetAsNonWorkingDay(weekday);
        for (const double day : holidays) calendar.SetADayAsHoliday(Date(day));
        for (const double day : exceptions) calendar.SetADayAsExceptionDay(Date(day));
    }
};

}  // namespace mrlxmlclass::testing
