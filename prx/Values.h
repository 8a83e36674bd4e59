#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Currency.h"
#include "mrlxmlclass/runtime/Date.h"

/// Values as they stand on the command line and in what prx prints: the same in every locale. Reading refuses, in
/// words, what is no such value.
namespace prx {

/// yyyy-mm-dd.
mrlxmlclass::Date ReadDate(std::string_view text);
/// "none" for a date that is not set.
std::string Text(mrlxmlclass::Date date);
/// Also of the day that stands for "not set".
std::string DayText(mrlxmlclass::Date day);

/// Digits alone, such as a key.
bool IsNumber(std::string_view text);
/// A whole number between the two.
mrlxmlclass::Long ReadWhole(std::string_view text, int lowest, int highest);
/// Up to four decimals behind a point.
mrlxmlclass::Currency ReadMoney(std::string_view text);
std::string Text(mrlxmlclass::Currency amount);
/// yes, no, true, false, 1 or 0.
mrlxmlclass::Boolean ReadFlag(std::string_view text);
/// "True" or "False".
std::string Text(mrlxmlclass::Boolean flag);
std::string Text(double number);
std::string Text(mrlxmlclass::Long number);

/// A length such as "5", "5d", "2.5 days" or "3 Weeks"; the unit is empty where none is named.
struct DurationText {
    double length = 0;
    mrlxmlclass::String unit;
};
inline constexpr double kLongestDuration = 1'000'000;
DurationText ReadDuration(std::string_view text);
/// One of the five units, by any word for it.
mrlxmlclass::String ReadUnit(std::string_view text);
/// The words for the units, for the help: a line each.
std::string UnitHelp();

/// A text of one line that a project can hold; `owner` is whose name it is.
mrlxmlclass::String ReadName(std::string_view text, std::string_view owner = "a task");
/// The same of any length.
mrlxmlclass::String ReadLine(std::string_view text);
/// A text of one line or more.
mrlxmlclass::String ReadText(std::string_view text);

inline constexpr int kDaysOfAWeek = 7;
/// 1 = Sunday ... 7 = Saturday, by name or its first three letters.
mrlxmlclass::Long ReadWeekday(std::string_view text);
std::string WeekdayName(int weekday);

}  // namespace prx
