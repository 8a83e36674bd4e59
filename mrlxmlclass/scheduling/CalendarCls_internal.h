#pragma once

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

private:
    CalendarCls& self_;
};

}  // namespace mrlxmlclass
