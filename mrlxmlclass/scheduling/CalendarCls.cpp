#include "mrlxmlclass/scheduling/CalendarCls.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"CalendarCls", FailureTail::Gives::SoFar};
constexpr int kSaturday = 7;
constexpr int kSunday = 1;

String DayText(Date date) {
    return Conversions::DateToString(date.day());
}

void AddOnce(const Ref<Dictionary>& days, const String& key) {
    if (!days->Exists(key)) days->Add(key, key);
}

void RemoveIfThere(const Ref<Dictionary>& days, const String& key) {
    if (days->Exists(key)) days->Remove(key);
}

/// The day behind a key of a set, which a host may have filed as a date.
Date DayOf(const Variant& key) {
    if (const Date* date = key.If<Date>()) return *date;
    return Conversions::StringToDate(key.As<String>());
}

}  // namespace

Boolean CalendarCls::SetAsNonWorkingDay(ByRef<Long> NonWorkingDay) {
    return kTail.Run<Boolean>("SetAsNonWorkingDay", [&](Boolean& result) {
        AddOnce(f_.NonWorkingDay, Conversions::LongToString(*NonWorkingDay));
        result = True;
    });
}

Boolean CalendarCls::SetAsWorkingDay(ByRef<Long> WorkingDay) {
    return kTail.Run<Boolean>("SetAsWorkingDay", [&](Boolean& result) {
        const String weekday = Conversions::LongToString(*WorkingDay);
        if (f_.NonWorkingDay->Exists(weekday)) {
            f_.NonWorkingDay->Remove(weekday);
            for (const auto& entry : f_.ExceptionDay->Snapshot()) {
                const Variant day = entry.key.value();
                if (DayOf(day).weekday() == *WorkingDay) f_.ExceptionDay->Remove(day);
            }
        }
        result = True;
    });
}

Boolean CalendarCls::IsNonWorkingDay(ByRef<Long> aDay) {
    return kTail.Run<Boolean>("IsNonWorkingDay", [&](Boolean& result) {
        result = f_.NonWorkingDay->Exists(Conversions::LongToString(*aDay));
    });
}

Boolean CalendarCls::SetADayAsHoliday(ByRef<Date> aDate) {
    return kTail.Run<Boolean>("SetADayAsHoliday", [&](Boolean& result) {
        AddOnce(f_.Holiday, DayText(*aDate));
        result = True;
    });
}

Boolean CalendarCls::SetADayAsNormalDay(ByRef<Date> aDate) {
    return kTail.Run<Boolean>("SetADayAsNormalDay", [&](Boolean& result) {
        RemoveIfThere(f_.Holiday, DayText(*aDate));
        result = True;
    });
}

Boolean CalendarCls::SetADayAsExceptionDay(ByRef<Date> aDate) {
    return kTail.Run<Boolean>("SetADayAsExceptionDay", [&](Boolean& result) {
        AddOnce(f_.ExceptionDay, DayText(*aDate));
        result = True;
    });
}

Boolean CalendarCls::SetAsNonException(ByRef<Date> aDate) {
    return kTail.Run<Boolean>("SetAsNonException", [&](Boolean& result) {
        RemoveIfThere(f_.ExceptionDay, DayText(*aDate));
        result = True;
    });
}

Boolean CalendarCls::isHoliday(ByRef<Date> aDate) {
    return kTail.Run<Boolean>("isHoliday", [&](Boolean& result) {
        *aDate = aDate->day();
        result = holidays_.Has(f_.Holiday, *aDate);
    });
}

Boolean CalendarCls::isExceptionDay(ByRef<Date> aDate) {
    return kTail.Run<Boolean>("isExceptionDay", [&](Boolean& result) {
        *aDate = aDate->day();
        result = exceptions_.Has(f_.ExceptionDay, *aDate);
    });
}

Integer CalendarCls::numberofNonWorkingDay(Date p_start_date, Date p_end_date) {
    return kTail.Run<Integer>("numberofNonWorkingDay", [&](Integer& result) {
        for (Date date = p_start_date; date < p_end_date; date += 1) {
            // Kept: the day of the month stands for the weekday, so the default week counts the 1st and the 7th.
            if (IsNonWorkingDay(Long(date.day_of_month()))) ++result;
        }
    });
}

Ref<CalendarCls> CalendarCls::Clone() {
    return kTail.Run<Ref<CalendarCls>>("Clone", [&](Ref<CalendarCls>& result) {
        result = Make<CalendarCls>();
        const Fields empty = result->f_;
        result->f_ = f_;
        // Kept: the three sets are not carried over.
        result->f_.NonWorkingDay = empty.NonWorkingDay;
        result->f_.Holiday = empty.Holiday;
        result->f_.ExceptionDay = empty.ExceptionDay;
    });
}

void CalendarCls::Internal::CountDays() {
    const Fields& f = self_.f_;
    DayRules rules{{}, self_.holidays_.Days(f.Holiday), {}};
    if (f.ExceptionDay) rules.exceptions = self_.exceptions_.Days(f.ExceptionDay);
    for (int weekday = kSunday; weekday <= kSaturday; ++weekday) {
        rules.free_weekday[static_cast<std::size_t>(weekday)] =
            bool(f.NonWorkingDay->Exists(Conversions::LongToString(weekday)));
    }
    self_.counted_ = {SetsStamp(), Platform().locale.Stamp(), WorkingDayTable(std::move(rules))};
}

void CalendarCls::Internal::SetUsualWeekend() {
    self_.SetAsNonWorkingDay(Long(kSaturday));
    self_.SetAsNonWorkingDay(Long(kSunday));
}

}  // namespace mrlxmlclass
