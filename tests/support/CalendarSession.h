#pragma once

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "tests/support/Days.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {

/// A session whose public calendar has the usual weekend.
class CalendarSession : public TestSession {
public:
    CalendarSession() {
        calendar->SetAsNonWorkingDay(7);
        calendar->SetAsNonWorkingDay(1);
        Module().g_PublicCalendar = calendar;
    }

    void WithoutCalendar() { Module().g_PublicCalendar = {}; }
    void WithoutAnyWorkingDay() {
        for (int weekday = 1; weekday <= 7; ++weekday) calendar->SetAsNonWorkingDay(weekday);
    }

    Ref<CalendarCls> calendar = Make<CalendarCls>();
};

}  // namespace mrlxmlclass::testing
