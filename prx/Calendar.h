#pragma once

#include <string>
#include <vector>

#include "mrlxmlclass/scheduling/CalendarCls.h"

namespace prx {

/// Working and free weekdays, holidays and exceptions, a line each.
std::string CalendarAsText(const mrlxmlclass::CalendarCls& calendar);
/// The exceptions in their order, a text each.
std::vector<std::string> ExceptionsOf(const mrlxmlclass::CalendarCls& calendar);
/// Whether any day is worked: a weekday, or an exception.
bool HasWorkingWeekday(const mrlxmlclass::CalendarCls& calendar);
/// In one line.
std::string CalendarAsJson(const mrlxmlclass::CalendarCls& calendar);

}  // namespace prx
