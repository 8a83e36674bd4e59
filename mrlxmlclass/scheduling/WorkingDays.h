#pragma once

#include <optional>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Date.h"

/// All working-day arithmetic goes through these three. They ask the public calendar; without one every day is worked.
namespace mrlxmlclass::Gloabal {

/// How many days a search goes through before it is endless: a calendar may have no working day at all.
inline constexpr int kMostDaysSearched = 366'000;

/// A holiday is non-working whatever else it is; an exception day turns a non-working weekday into a working day.
/// Under a public calendar the caller's date loses its time.
Boolean IsNonWorkingDay(ByRef<Date> date);

/// The non-working days between two dates, both included, whichever is the later.
Integer NumberOFNonWorkingDay(Date a, Date b);

/// The non-working days from `first` to `last`, both included; none when `last` comes before. Failures are the
/// caller's.
std::int64_t NonWorkingDaysFrom(Date first, Date last);

/// The `count`-th working day after the day of `date`; nothing without a public calendar, and where it would take more
/// than 10,000 days. Failures are the caller's.
std::optional<Date> WorkingDayAfter(Date date, std::int64_t count);

/// The first working day from `date` on, `p_step` days at a time; 0 for no date. When more than `p_days` days were
/// skipped (0: never mind), goes on from there by that many days and the non-working ones among them. A calendar
/// without any working day fails (28) after 366,000 days and gives the date back.
Date SetNextWorkingDay(Date date, ByRef<Integer> p_step, ByRef<Integer> p_days);

}  // namespace mrlxmlclass::Gloabal
