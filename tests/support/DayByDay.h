#pragma once

#include <map>
#include <vector>

#include "mrlxmlclass/runtime/Date.h"

/// The arithmetic of working days, one day after the other: what the counted tables of the library are held against.
/// Each day is looked up anew in the three sets of the public calendar by its text, so nothing here can be stale.
namespace mrlxmlclass::testing::day_by_day {

/// Cuts the time off the caller's date under a public calendar.
bool NonWorking(Date& date);
bool NonWorkingOn(Date date);

long NumberOfNonWorking(Date a, Date b);
Date NextWorkingDay(Date date, int step, int days = 0);

/// Working days from an end to a start, without the step of one day.
long GapBetween(Date start, Date end);
/// A start that keeps its gap to a date that moved, and a shift without the non-working days that it passed.
void KeepGap(Date& start, Date preview, Date old_preview, long& shift);
/// The working days of a summary that runs from one date to the other.
double SummaryDuration(Date start, Date end);

/// The lead times of a task that starts on `start`: to each of its predecessors' ends, in order. Nothing where the
/// start is not set.
struct Leads {
    std::vector<long> gaps;
    long largest = 0;
};
Leads MeasureLeads(Date start, const std::vector<Date>& ends);

/// The cached span of a plan, with the tasks that hold it.
struct Caches {
    Date min, max;
    long min_key = 0, max_key = 0;

    friend bool operator==(const Caches&, const Caches&) = default;
};

/// What a task's dates are made of, and the three setters that keep them in step.
struct Row {
    Date start, end;
    double duration = 0;
    bool start_valid = false, end_valid = false, duration_valid = false;
    String unit = "days";
    long lag = 0;
    bool milestone = false;
    bool candidate = false;  ///< off the outline: never held in the caches
    bool has_parent = false;
    bool has_children = false;
    long key = 0;

    void Start(Date value, Caches& caches);
    void End(Date value, Caches& caches);
    void Duration(double value);
    void EndValid(bool flag);

    Date EndOf(Date start_of, double length) const;
    Date StartOf(Date end_of, double length) const;
    long DurationBetween(Date from, Date to) const;

private:
    bool Plain() const { return unit == "wks" || unit == "mons"; }
    Date Step(Date from, double count) const;
};

}  // namespace mrlxmlclass::testing::day_by_day
