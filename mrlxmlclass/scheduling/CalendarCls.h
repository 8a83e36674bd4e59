#pragma once

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Dictionary.h"
#include "mrlxmlclass/scheduling/DaySet.h"
#include "mrlxmlclass/scheduling/WorkingDayTable.h"

namespace mrlxmlclass {

struct DateAdjustment;

/// The working calendar of a project: non-working weekdays, holidays and exception days. The scheduler reads the public
/// calendar of the session, which `Application.SetPublicCalendar` sets.
///
/// A new calendar has no non-working day at all. Weekdays run from 1 = Sunday to 7 = Saturday; a weekday outside is
/// stored like any other and never matches. Every operation that changes something gives True.
class CalendarCls : public Counted {
public:
    Long CalendarKey() const { return f_.CalendarKey; }
    void CalendarKey(Long value) { f_.CalendarKey = value; }
    /// Values carried for the host: the library neither reads nor stores them.
    Long Monday() const { return f_.Monday; }
    void Monday(Long value) { f_.Monday = value; }
    Long Tuesday() const { return f_.Tuesday; }
    void Tuesday(Long value) { f_.Tuesday = value; }
    Long Wednesday() const { return f_.Wednesday; }
    void Wednesday(Long value) { f_.Wednesday = value; }
    Long Thursday() const { return f_.Thursday; }
    void Thursday(Long value) { f_.Thursday = value; }
    Long Friday() const { return f_.Friday; }
    void Friday(Long value) { f_.Friday = value; }
    Long Saturday() const { return f_.Saturday; }
    void Saturday(Long value) { f_.Saturday = value; }
    Long Sunday() const { return f_.Sunday; }
    void Sunday(Long value) { f_.Sunday = value; }
    Date WorkStart() const { return f_.WorkStart; }
    void WorkStart(Date value) { f_.WorkStart = value; }
    Date WorkEnd() const { return f_.WorkEnd; }
    void WorkEnd(Date value) { f_.WorkEnd = value; }
    /// "Calendar"; after reading, the name of the element that was read.
    String elementName() const { return f_.elementName; }
    void elementName(const String& name) { f_.elementName = name; }

    /// The sets themselves, which the host may change directly. Key and item are the same text: the weekday's number,
    /// or the date in the system's short date format.
    Ref<Dictionary> NonWorkingDay() const { return f_.NonWorkingDay; }
    Ref<Dictionary> Holiday() const { return f_.Holiday; }
    Ref<Dictionary> ExceptionDay() const { return f_.ExceptionDay; }
    void ExceptionDay(const Ref<Dictionary>& days) {
        f_.ExceptionDay = days;
        counted_.reset();
    }

    Boolean SetAsNonWorkingDay(ByRef<Long> NonWorkingDay);
    /// Also takes away the exception days that fall on that weekday; a weekday that is worked already changes nothing.
    Boolean SetAsWorkingDay(ByRef<Long> WorkingDay);
    /// The weekly rule alone: no holidays, no exception days.
    Boolean IsNonWorkingDay(ByRef<Long> aDay);
    Boolean SetADayAsHoliday(ByRef<Date> aDate);
    /// Takes the date out of the holidays; it stays non-working if its weekday is.
    Boolean SetADayAsNormalDay(ByRef<Date> aDate);
    /// A day that is worked although its weekday is not; a holiday beats it.
    Boolean SetADayAsExceptionDay(ByRef<Date> aDate);
    Boolean SetAsNonException(ByRef<Date> aDate);
    /// Cuts the time off the caller's date.
    Boolean isHoliday(ByRef<Date> aDate);
    /// Cuts the time off the caller's date. Finds dates under a key of type Date too, as a host may file them.
    Boolean isExceptionDay(ByRef<Date> aDate);
    /// Counts the days from `p_start_date` to before `p_end_date` whose day of the month is the number of a non-working
    /// weekday; 0 when the start is not before the end.
    Integer numberofNonWorkingDay(Date p_start_date, Date p_end_date);

    /// A copy without the three sets.
    Ref<CalendarCls> Clone();

    Ref<dom::Document> ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                 Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False,
                                 Boolean FileExist = False, Boolean Save = False);
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    /// A document without a `Calendar` element gives this calendar the usual weekend and changes nothing else.
    Ref<dom::Document> FromXmlFile(const String& FileName, Boolean loaded = True, ByRef<Ref<dom::Document>> xmlDoc = {},
                                   Boolean p_adjust_date = False, const String& p_cur_date_format = {},
                                   const String& p_sys_date_format = {}, const String& p_date_spe = {},
                                   const Ref<Dictionary>& p_cur = {}, const Ref<Dictionary>& p_sys = {});
    Boolean FromXml(const String& xmlIn);

    class Internal;

private:
    void init() {
        f_ = Fields();
        counted_.reset();
    }

    struct Fields {
        Long CalendarKey;
        Long Monday, Tuesday, Wednesday, Thursday, Friday, Saturday, Sunday;
        Date WorkStart, WorkEnd;
        String elementName = "Calendar";
        Ref<Dictionary> NonWorkingDay = Make<Dictionary>();
        Ref<Dictionary> Holiday = Make<Dictionary>();
        Ref<Dictionary> ExceptionDay = Make<Dictionary>();
    };
    Fields f_;
    DaySet holidays_{DaySet::Keys::Texts};
    DaySet exceptions_{DaySet::Keys::TextsAndDates};

    /// The days counted up, and when.
    struct CountedDays {
        std::uint64_t sets_stamp;
        std::uint64_t locale_stamp;
        WorkingDayTable table;
    };
    std::optional<CountedDays> counted_;  ///< none where a set may be another one than was counted
};

}  // namespace mrlxmlclass
