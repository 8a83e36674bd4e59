#pragma once

#include <compare>
#include <cstdint>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// A moment: days since 30 December 1899, the fraction being the time of day. 0 means "not set".
/// Dates run from the year 100 to 9999; arithmetic that leaves them, and asking a moment outside them for its parts,
/// fails (6).
class Date {
public:
    constexpr Date() = default;
    constexpr explicit Date(double days) : days_(days) {}
    /// Midnight of that day; a day that the calendar does not have fails (13).
    static Date Of(int year, int month, int day, SourceLine where = SourceLine::Here());

    constexpr double days() const { return days_; }
    constexpr bool set() const { return days_ != 0; }
    constexpr bool in_calendar() const { return days_ >= kFirst && days_ < kEnd; }

    /// The same day at midnight.
    Date day() const { return days_ + kNoFractions - kNoFractions == days_ ? Date(days_) : WithoutTime(days_); }
    /// Whole days since day zero.
    int number() const { return InRange(days_).Floor(); }
    int year() const;
    int month() const;
    int day_of_month() const;
    /// 1 = Sunday ... 7 = Saturday.
    int weekday() const;

    friend Date operator+(Date date, double days) { return Shifted(date, days); }
    friend Date operator-(Date date, double days) { return Shifted(date, -days); }
    Date& operator+=(double days) { return *this = *this + days; }
    friend constexpr bool operator==(Date, Date) = default;
    friend constexpr auto operator<=>(Date, Date) = default;

private:
    friend Long DaysBetween(Date from, Date to, SourceLine where);
    /// 1.5 times 2^52: what is added to it loses its fraction, if it is within 2^51.
    static constexpr double kNoFractions = 6755399441055744;
    static constexpr double kFirst = -657434;  ///< 1 January 100
    static constexpr double kEnd = 2958466;    ///< 1 January 10000

    static Date InRange(double days) {
        if (!(days >= kFirst && days < kEnd)) Raise(failure::kOverflow, SourceLine{});
        return Date(days);
    }
    static Date Shifted(Date date, double days) { return InRange(date.days_ + days); }
    static Date WithoutTime(double days);
    /// `number` of a moment in the calendar.
    int Floor() const {
        const int towards_zero = static_cast<int>(days_);
        return days_ < 0 && towards_zero > days_ ? towards_zero - 1 : towards_zero;
    }

    double days_ = 0;
};

/// DaysBetween for moments outside the calendar too.
Long DaysBetweenAny(Date from, Date to, SourceLine where);
/// Calendar days from `from` to `to`: the difference of the two date parts.
inline Long DaysBetween(Date from, Date to, SourceLine where = SourceLine::Here()) {
    return from.in_calendar() && to.in_calendar() ? Long(to.Floor() - from.Floor()) : DaysBetweenAny(from, to, where);
}

inline constexpr int kSecondsADay = 86400;

/// How far a date steps. Days and weeks are plain; a month keeps the day, clipped to the month's end.
enum class Interval { Days, Weeks, Months, Hours, Minutes };

/// `count` intervals after `date`; hours and minutes add in whole seconds, so 24 hours are exactly one day. Fractional
/// counts of days, weeks and months round half to even.
Date DateAdd(Interval interval, double count, Date date, SourceLine where = SourceLine::Here());

/// The date moved into another year, month, day and time kept; 29 February fails (13) where the year has none.
Date WithYear(Date date, int year, SourceLine where = SourceLine::Here());

}  // namespace mrlxmlclass
