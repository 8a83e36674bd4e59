#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Dictionary.h"

namespace mrlxmlclass {

/// The date by a short date pattern (d, dd, M, MM, yyyy), the year always with four digits; a time that is not midnight
/// follows as HH:mm:ss, rounded to the second. What is no number of days fails (6).
String FormatDate(Date date, std::string_view pattern);

/// The short date pattern of the locale, without blanks and without a separator at its end.
String SystemDatePattern();

/// Reads "date", "date time" or "time" (of day 0). The parts of a date come in the pattern's order, separated by "/",
/// "-", "." or blanks, the last of which may close it; a part of three or four digits is the year wherever it stands;
/// day and month change places when only that makes a month; two-digit years are 1930 to 2029. A time is H:mm[:ss], AM
/// or PM behind it. Anything else, the empty text too, fails (13).
Date ParseDate(std::string_view text, std::string_view pattern);

namespace Gloabal {

/// The short date pattern of the locale; "" when it is longer than 15 characters.
String GetSystemDateFormat();
/// "/", "-" or ".", the first of them that the format holds; else "".
String GetSeparator(std::string_view format);
/// "d", "m" or "y" for a part of a format, also one written with the letters j and a.
String FormatKey(std::string_view part);
/// Remembers the separators of the two formats for the conversion of dates, and describes the parts of each: key the
/// part's FormatKey, item its length, its 1-based place and the part itself, joined by "|".
void SetALLFormat(const String& p_cur_date_format, const String& p_sys_date_format, Ref<Dictionary>& p_sys,
                  Ref<Dictionary>& p_cur, String& p_date_spe);
/// The date text of a file, brought from the file's format to the system's; a time in it is dropped.
String ConvertDateText(const String& p_sys_date_format, const String& p_cur_date_format, const String& text,
                       const String& p_date_spe, const Ref<Dictionary>& p_cur, const Ref<Dictionary>& p_sys);

}  // namespace Gloabal

/// How the dates of a file are brought to this system: the six values that every reader of dates hands down.
struct DateAdjustment {
    Boolean on;
    String file_format;
    String system_format;
    String separator;
    Ref<Dictionary> file_parts;
    Ref<Dictionary> system_parts;

    /// The text in the system's format; unchanged when there is nothing to adjust.
    String Adjusted(const String& text) const;
};

}  // namespace mrlxmlclass
