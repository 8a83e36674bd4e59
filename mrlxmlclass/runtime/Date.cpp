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
constexpr double kSecondsADay = 86400;

year_month_day CivilOf(Date date) {
    return year_month_day{kDayZero + std::chrono::days{static_cast<int>(std::floor(date.days()))}};
}

Date DayOf(year_month_day civil) { return Date(static_cast<double>((sys_days{civil} - kDayZero).count())); }

Date InRange(double days) {
    if (!(days >= kFirstDay && days < kEnd)) Raise(failure::kOverflow);
    return Date(days);
}

Date AddMonths(Date date, double count) {
    const Long months(count);
    const year_month_day civil = CivilOf(date);
    const std::int64_t index = std::int64_t{static_cast<int>(civil.year())} * 12 +
                               (static_cast<unsigned>(civil.month()) - 1) + std::int64_t{months};
    if (index < kFirstYear * 12 || index >= (kLastYear + 1) * 12) Raise(failure::kOverflow);
    const year to_year{static_cast<int>(index / 12)};
    const month to_month{static_cast<unsigned>(index % 12 + 1)};
    const day month_end = (to_year / to_month / last).day();
    const Date to = DayOf(to_year / to_month / std::min(civil.day(), month_end));
    return Date(to.days() + (date.days() - std::floor(date.days())));
}

Date AddSeconds(Date date, double seconds) {
    const double total = std::round(date.days() * kSecondsADay) + std::round(seconds);
    return InRange(total / kSecondsADay);
}

}  // namespace

Date Date::Of(int y, int m, int d, SourceLine where) {
    const year_month_day civil = std::chrono::year{y} / m / d;
    if (y < kFirstYear || y > kLastYear || m < 1 || d < 1 || !civil.ok()) Raise(failure::kTypeMismatch, where);
    return DayOf(civil);
}

Date Date::day() const { return Date(std::floor(days_)); }
int Date::year() const { return static_cast<int>(CivilOf(*this).year()); }
int Date::month() const { return static_cast<int>(static_cast<unsigned>(CivilOf(*this).month())); }
int Date::day_of_month() const { return static_cast<int>(static_cast<unsigned>(CivilOf(*this).day())); }

int Date::weekday() const {
    // 30 December 1899 was a Saturday.
    const int since = static_cast<int>(std::floor(days_)) % 7;
    return (since + 6 + 7) % 7 + 1;
}

Date Date::Shifted(Date date, double days) { return InRange(date.days_ + days); }

Long DaysBetween(Date from, Date to) { return Long(to.day().days() - from.day().days()); }

Date DateAdd(Interval interval, double count, Date date) {
    switch (interval) {
        case Interval::Days: return date + RoundHalfToEven(count);
        case Interval::Weeks: return date + 7 * RoundHalfToEven(count);
        case Interval::Months: return AddMonths(date, count);
        case Interval::Hours: return AddSeconds(date, count * 3600);
        case Interval::Minutes: return AddSeconds(date, count * 60);
    }
    Raise(failure::kUnknownKey);
}

Date WithYear(Date date, int to_year) {
    const Date moved = Date::Of(to_year, date.month(), date.day_of_month());
    return Date(moved.days() + (date.days() - std::floor(date.days())));
}

}  // namespace mrlxmlclass
