#include "mrlxmlclass/scheduling/DaySet.h"

#include <algorithm>
#include <optional>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/DateText.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"CalendarCls"};

/// The day whose short date a text is, to the letter.
std::optional<Date> DayWrittenAs(const String& text, const String& pattern) {
    return kTail.Silent().Run<std::optional<Date>>("DayWrittenAs", [&](std::optional<Date>& result) {
        const Date day = ParseDate(text, pattern);
        if (FormatDate(day, pattern) == text) result = day;
    });
}

}  // namespace

bool DaySet::Has(const Ref<Dictionary>& days, Date day) {
    const std::vector<double>& named = Days(days);
    return std::binary_search(named.begin(), named.end(), day.days());
}

const std::vector<double>& DaySet::Days(const Ref<Dictionary>& days) {
    const bool current = source_ == days && stamp_ == days->Stamp() && locale_stamp_ == Platform().locale.Stamp();
    if (!current) Take(days);
    return days_;
}

void DaySet::Take(const Ref<Dictionary>& days) {
    const String pattern = SystemDatePattern();
    std::vector<double> taken;
    for (const auto& entry : days->Snapshot()) {
        if (const KeyText* text = entry.key.text()) {
            if (const auto day = DayWrittenAs(text->text(), pattern)) taken.push_back(day->days());
        } else if (keys_ == Keys::TextsAndDates) {
            const Variant key = entry.key.value();
            if (const Date* day = key.If<Date>()) taken.push_back(day->days());
        }
    }
    std::sort(taken.begin(), taken.end());
    source_ = days;
    stamp_ = days->Stamp();
    locale_stamp_ = Platform().locale.Stamp();
    days_ = std::move(taken);
}

}  // namespace mrlxmlclass
