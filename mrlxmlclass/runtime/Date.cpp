#include "mrlxmlclass/runtime/Date.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace mrlxmlclass {
namespace {

using std::chrono::day;
using std::chrono::last;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = year{1899} / 12 / 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr double kFirstDay = (sys_days{year{kFirstYear} / 1 / 1} - kDayZero).count();
constexpr double kEnd = (sys_days{year{kLastYear + 1} / 1 / 1} - kDayZero).count();

Date InRange(double days, SourceLine where) {
    if (!(days >= kFirstDay && days < kEnd)) Raise(failure::kOverflow, where);
    return Date(days);
}

year_month_day CivilOf(Date date) {
    return year_month_day{kDayZero + std::chrono::days{date.number()}};
}

Date DayOf(year_month_day civil) {
    return Date(static_cast<double>((sys_days{civil} - kDayZero).count()));
}

/// The time of day of `date`, on another day.
Date WithTimeOf(Date date, Date day) {
    return Date(day.days() + (date.days() - date.day().days()));
}

Date AddMonths(Date date, double count, SourceLine where) {
    const Long months(count, where);
    const year_month_day civil = CivilOf(date);
    const std::int64_t index = std::int64_t{static_cast<int>(civil.year())} * 12 +
                               (static_cast<unsigned>(civil.month()) - 1) + std::int64_t{months};
    if (index < std::int64_t{kFirstYear} * 12 || index >= std::int64_t{kLastYear + 1} * 12)
        Raise(failure::kOverflow, where);
    const year to_year{static_cast<int>(index / 12)};
    const month to_month{static_cast<unsigned>(index % 12 + 1)};
    const day month_end = (to_year / to_month / last).day();
    return WithTimeOf(date, DayOf(to_year / to_month / std::min(civil.day(), month_end)));
}

Date AddSeconds(Date date, double seconds, SourceLine where) {
    const double total = std::round(date.days() * kSecondsADay) + std::round(seconds);
    return InRange(total / kSecondsADay, where);
}

}  // namespace

Date Date::Of(int y, int m, int d, SourceLine where) {
    // The calendar's own types keep a byte of each, so that the 257th month would be a January.
    const bool plausible = y >= kFirstYear && y <= kLastYear && m >= 1 && m <= 12 && d >= 1 && d <= 31;
    const year_month_day civil = std::chrono::year{y} / m / d;
    if (!plausible || !civil.ok()) Raise(failure::kTypeMismatch, where);
    return DayOf(civil);
}

Date Date::WithoutTime(double days) {
    return Date(std::floor(days));
}

int Date::year() const {
    return static_cast<int>(CivilOf(*this).year());
}
int Date::month() const {
    return static_cast<int>(static_cast<unsigned>(CivilOf(*this).month()));
}
int Date::day_of_month() const {
    return static_cast<int>(static_cast<unsigned>(CivilOf(*this).day()));
}

int Date::weekday() const {
    const int since = number() % 7;  // 30 December 1899 was a Saturday
    return (since + 6 + 7) % 7 + 1;
}

Long DaysBetweenAny(Date from, Date to, SourceLine where) {
    return Long(to.day().days() - from.day().days(), where);
}

Date DateAdd(Interval interval, double count, Date date, SourceLine where) {
    switch (interval) {
        case Interval::Days:
            return InRange(date.days() + RoundHalfToEven(count), where);
        case Interval::Weeks:
            return InRange(date.days() + 7 * RoundHalfToEven(count), where);
        case Interval::Months:
            return AddMonths(date, count, where);
        case Interval::Hours:
            return AddSeconds(date, count * 3600, where);
        case Interval::Minutes:
            return AddSeconds(date, count * 60, where);
    }
    Raise(failure::kUnknownKey, where);
}

Date WithYear(Date date, int to_year, SourceLine where) {
    return WithTimeOf(date, Date::Of(to_year, date.month(), date.day_of_month(), where));
}

}  // namespace mrlxmlclass
