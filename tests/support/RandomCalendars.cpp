#include "tests/support/RandomCalendars.h"

#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/Days.h"

namespace mrlxmlclass::testing {

RandomCalendar::RandomCalendar(Draws& draws) : draws_(draws) {
    NewCalendar();
}

Date RandomCalendar::Middle() {
    return Monday;
}

CalendarCls& RandomCalendar::calendar() const {
    return *Module().g_PublicCalendar;
}

void RandomCalendar::NewCalendar() {
    Module().g_PublicCalendar = Make<CalendarCls>();
    for (int n = draws_.From(0, 4); n > 0; --n) FlipWeekday();
    for (int n = draws_.From(0, 20); n > 0; --n) calendar().SetADayAsHoliday(AnyDay());
    for (int n = draws_.From(0, 20); n > 0; --n) calendar().SetADayAsExceptionDay(AnyDay());
}

void RandomCalendar::FlipWeekday() {
    const Long weekday = draws_.From(1, 7);
    const Ref<Dictionary> free = calendar().NonWorkingDay();
    const String text = Conversions::LongToString(weekday);
    const bool by_hand = draws_.OneIn(2);
    if (free->Exists(text)) {
        by_hand ? free->Remove(text) : static_cast<void>(calendar().SetAsWorkingDay(weekday));
    } else if (free->Count() < 6) {
        by_hand ? free->Add(text, text) : static_cast<void>(calendar().SetAsNonWorkingDay(weekday));
    }
}

void RandomCalendar::ChangeDays(const Ref<Dictionary>& days, bool exceptions) {
    const Date day = AnyDay();
    const String text = Conversions::DateToString(day);
    switch (draws_.From(1, 8)) {
        case 1:
            if (!days->Exists(text)) days->Add(text, "");
            break;
        case 2:
            if (!days->Exists(day)) days->Add(day, True);
            break;
        case 3:
            if (days->Count() > 0) days->Remove(draws_.One(days->Keys()));
            break;
        case 4:
            if (draws_.OneIn(5)) days->RemoveAll();
            break;
        case 5:  // what no day has for its text
            days->Item(draws_.OneIn(2) ? "03/2/2026" : "2026-3-5", "");
            if (!exceptions) days->Item(draws_.OneIn(2) ? "someday" : "", "");
            break;
        case 6:
            exceptions ? calendar().SetADayAsExceptionDay(day) : calendar().SetADayAsHoliday(day);
            break;
        default:
            exceptions ? calendar().SetAsNonException(day) : calendar().SetADayAsNormalDay(day);
            break;
    }
}

void RandomCalendar::Change() {
    if (!Module().g_PublicCalendar) return NewCalendar();
    switch (draws_.From(1, 12)) {
        case 1:
        case 2:
        case 3:
            FlipWeekday();
            break;
        case 4:
            locale.Use(draws_.One(std::vector<String>{"M/d/yyyy", "dd.MM.yyyy", "d/M/yyyy", "yyyy-MM-dd"}));
            break;
        case 5:
            if (draws_.OneIn(3)) NewCalendar();
            break;
        case 6:
            if (draws_.OneIn(4)) Module().g_PublicCalendar = {};
            break;
        case 7:
            if (draws_.OneIn(3)) calendar().ExceptionDay(Make<Dictionary>());
            break;
        case 8:
        case 9:
            ChangeDays(calendar().Holiday(), false);
            break;
        default:
            ChangeDays(calendar().ExceptionDay(), true);
            break;
    }
}

}  // namespace mrlxmlclass::testing
