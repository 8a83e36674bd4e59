#pragma once

#include <optional>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/scheduling/WorkingDayTable.h"

namespace mrlxmlclass {

/// The days of the public calendar as they stand at this moment, for questions between which no host runs. Without a
/// calendar every day is worked. Failures are the caller's.
class PublicDays {
public:
    PublicDays();

    bool NonWorking(Date day) const { return table_ != nullptr && table_->NonWorking(day.number()); }
    /// The non-working days from `first` to `last`, both included; none when `last` comes before.
    std::int64_t CountNonWorking(Date first, Date last) const {
        if (table_ == nullptr || first > last) return 0;
        if (!last.in_calendar()) Raise(failure::kOverflow);
        const int first_day = first.number();
        return table_->CountNonWorking(first_day, first_day + static_cast<int>(last.days() - first.days()));
    }
    /// The same from `first` to so many days behind it.
    std::int64_t CountNonWorking(Date first, std::int64_t days) const {
        static_cast<void>(first + static_cast<double>(days));  // fails outside the calendar
        if (table_ == nullptr) return 0;
        const int first_day = first.number();
        return table_->CountNonWorking(first_day, first_day + static_cast<int>(days));
    }
    /// The `count`-th working day after the day of `date`; nothing without a calendar, and where it would take more
    /// than 10,000 days.
    std::optional<Date> WorkingDayAfter(Date date, std::int64_t count) const;
    /// The first working day from `date` on, `step` days at a time; 0 for no date.
    Date NextWorkingDay(Date date, int step) const {
        if (table_ == nullptr || !date.set()) return date;
        if (date.in_calendar() && !table_->NonWorking(date.number())) return date.day();
        return SearchWorkingDay(*table_, date, step);
    }

private:
    static Date SearchWorkingDay(WorkingDayTable& table, Date date, int step);

    WorkingDayTable* table_;
};

}  // namespace mrlxmlclass

/// What hosts ask of the public calendar.
namespace mrlxmlclass::Gloabal {

/// How many days a search goes through before it is endless: a calendar may have no working day at all.
inline constexpr int kMostDaysSearched = 366'000;

/// A holiday is non-working whatever else it is; an exception day turns a non-working weekday into a working day.
/// Under a public calendar the caller's date loses its time.
Boolean IsNonWorkingDay(ByRef<Date> date);
/// The non-working days between two dates, both included, whichever is the later.
Integer NumberOFNonWorkingDay(Date a, Date b);

/// The first working day from `date` on, `p_step` days at a time; 0 for no date. When more than `p_days` days were
/// skipped (0: never mind), goes on from there by that many days and the non-working ones among them. A calendar
/// without any working day fails (28) after 366,000 days and gives the date back.
Date SetNextWorkingDay(Date date, ByRef<Integer> p_step, ByRef<Integer> p_days);

/// The same for any number of days skipped.
Date NextWorkingDay(Date date, int step);

}  // namespace mrlxmlclass::Gloabal
