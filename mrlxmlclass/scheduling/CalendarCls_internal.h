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
        return self_.counted_->table;
    }

private:
    bool TableStands() const {
        const std::optional<CountedDays>& counted = self_.counted_;
        return counted && counted->sets_stamp == SetsStamp() && counted->locale_stamp == Platform().locale.Stamp();
    }
    /// Differs after every change of one of the three sets: no stamp ever falls. A host may take the exception days
    /// away altogether.
    std::uint64_t SetsStamp() const {
        const Fields& f = self_.f_;
        return f.NonWorkingDay->Stamp() + f.Holiday->Stamp() + (f.ExceptionDay ? f.ExceptionDay->Stamp() : 0);
    }
    void CountDays();

    CalendarCls& self_;
};

}  // namespace mrlxmlclass
