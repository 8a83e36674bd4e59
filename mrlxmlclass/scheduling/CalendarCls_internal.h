#pragma once

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/xml/DateText.h"

namespace mrlxmlclass {

class CalendarCls::Internal {
public:
    explicit Internal(CalendarCls& self) : self_(self) {}

    /// Reads the record from `xmlChild` on; gives the element at which it stopped. What was read before a failure
    /// stays.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const DateAdjustment& dates = {});
    /// Saturday, then Sunday: their order shows in the file.
    void SetUsualWeekend();
    /// The days counted up by the three sets as they stand now. Valid until the next call.
    WorkingDayTable& Table() {
        if (!TableStands()) CountDays();
        return self_.counted_.table;
    }

private:
    bool TableStands() const {
        const Fields& f = self_.f_;
        const CountedDays& counted = self_.counted_;
        return counted.weekdays == f.NonWorkingDay && counted.weekdays_stamp == f.NonWorkingDay->Stamp() &&
               counted.holidays == f.Holiday && counted.holidays_stamp == f.Holiday->Stamp() &&
               counted.exceptions == f.ExceptionDay && counted.exceptions_stamp == StampOf(f.ExceptionDay) &&
               counted.locale_stamp == Platform().locale.Stamp();
    }
    /// A host may take the exception days away altogether: there are none then.
    static std::uint64_t StampOf(const Ref<Dictionary>& days) { return days ? days->Stamp() : 0; }
    void CountDays();

    CalendarCls& self_;
};

}  // namespace mrlxmlclass
