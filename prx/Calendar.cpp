#include "prx/Calendar.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <vector>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "prx/Json.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr int kMonday = 2;

/// The weekdays from Monday on, those of the weekly rule or the others.
std::vector<std::string> Weekdays(const CalendarCls& calendar, bool free) {
    std::vector<std::string> names;
    for (int i = 0; i < kDaysOfAWeek; ++i) {
        const int day = (kMonday - 1 + i) % kDaysOfAWeek + 1;
        if (static_cast<bool>(calendar.NonWorkingDay()->Exists(std::to_string(day))) == free) {
            names.push_back(WeekdayName(day));
        }
    }
    return names;
}

/// The days of a set in their order; a text that is no date stands as it is.
std::vector<std::string> Days(const Ref<Dictionary>& set) {
    std::vector<std::string> days;
    for (const auto& entry : set->Snapshot()) {
        const Variant key = entry.key.value();
        const String text = key.If<String>() != nullptr ? key.As<String>() : String();
        const Date date = FailureTail("prx").Silent().Run<Date>("Days", [&](Date& result) {
            result = key.If<Date>() != nullptr ? key.As<Date>() : Conversions::StringToDate(text);
        });
        days.push_back(date.set() ? Text(date) : Plain(text));
    }
    std::sort(days.begin(), days.end());
    return days;
}

std::string Listed(const std::vector<std::string>& names) {
    return names.empty() ? "none" : fmt::format("{}", fmt::join(names, ", "));
}

std::string JsonTexts(const std::vector<std::string>& texts) {
    std::vector<std::string> quoted;
    for (const std::string& text : texts) quoted.push_back(json::Quote(text));
    return json::Array(quoted);
}

}  // namespace

std::string CalendarAsText(const CalendarCls& calendar) {
    return fmt::format("Working days: {}\nFree days:    {}\nHolidays:     {}\nExceptions:   {}\n",
                       Listed(Weekdays(calendar, false)), Listed(Weekdays(calendar, true)),
                       Listed(Days(calendar.Holiday())), Listed(Days(calendar.ExceptionDay())));
}

std::vector<std::string> ExceptionsOf(const CalendarCls& calendar) {
    return Days(calendar.ExceptionDay());
}

bool HasWorkingWeekday(const CalendarCls& calendar) {
    return !Weekdays(calendar, false).empty();
}

std::string CalendarAsJson(const CalendarCls& calendar) {
    return json::Object()
        .Add("working", JsonTexts(Weekdays(calendar, false)))
        .Add("free", JsonTexts(Weekdays(calendar, true)))
        .Add("holidays", JsonTexts(Days(calendar.Holiday())))
        .Add("exceptions", JsonTexts(Days(calendar.ExceptionDay())))
        .Text();
}

}  // namespace prx
