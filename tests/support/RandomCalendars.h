#pragma once

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "tests/support/Draws.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {

/// A session whose public calendar is drawn, and is changed as a host may change it. At least one weekday is always
/// worked.
class RandomCalendar : public TestSession {
public:
    explicit RandomCalendar(Draws& draws);

    /// Changes something: a weekday, a holiday or an exception day, by the calendar's operations or straight in its
    /// sets, the whole set of exception days, the calendar itself, the locale.
    void Change();
    /// A day around which the calendar has holidays and exception days.
    Date AnyDay() { return Middle() + draws_.From(-60, 60); }
    /// Most days lie near enough to be counted one by one.
    Date DayNear(Date day) { return day + draws_.From(-3, draws_.OneIn(4) ? 60 : 12); }

private:
    static Date Middle();
    CalendarCls& calendar() const;
    void NewCalendar();
    void FlipWeekday();
    void ChangeDays(const Ref<Dictionary>& days, bool exceptions);

    Draws& draws_;
};

}  // namespace mrlxmlclass::testing
