#include "prx/Values.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <vector>

#include "mrlxmlclass/dom/Characters.h"
#include "mrlxmlclass/runtime/Text.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"

namespace prx {
namespace {

using namespace mrlxmlclass;

constexpr std::array kWeekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

/// What a person may write for a unit. A letter that two of them begin with is none.
struct UnitWords {
    const char* unit;
    std::vector<std::string_view> others;
};

const std::vector<UnitWords>& Units() {
    static const std::vector<UnitWords> units = {{"days", {"day", "d"}},
                                                 {"wks", {"wk", "w", "week", "weeks"}},
                                                 {"mons", {"mon", "month", "months"}},
                                                 {"hrs", {"hr", "h", "hour", "hours"}},
                                                 {"mins", {"min", "minute", "minutes"}}};
    return units;
}

template <class Number>
std::optional<Number> WholeText(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// A digit run of a date, of exactly that length.
std::optional<int> Digits(std::string_view text) {
    if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    return WholeText<int>(text);
}

bool IsLine(std::string_view text) {
    return dom::FirstForbidden(text) == std::string_view::npos &&
           text.find_first_of("\r\n\t") == std::string_view::npos;
}

[[noreturn]] void Refuse(std::string_view text, std::string_view expected) {
    throw Refusal(fmt::format("\"{}\" is not {}", Plain(text), expected));
}

}  // namespace

Date ReadDate(std::string_view text) {
    constexpr std::string_view kExpected = "a date; write it as yyyy-mm-dd, such as 2026-03-02";
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') Refuse(text, kExpected);
    const auto year = Digits(text.substr(0, 4));
    const auto month = Digits(text.substr(5, 2));
    const auto day = Digits(text.substr(8, 2));
    if (!year || !month || !day) Refuse(text, kExpected);
    const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok() || *year < 100) Refuse(text, "a day of the calendar");
    const Date read = Date::Of(*year, *month, *day);
    if (!read.set()) Refuse(text, "a day that a plan can hold: in a file it stands for no day");
    return read;
}

std::string Text(Date date) {
    return date.set() ? DayText(date) : "none";
}

std::string DayText(Date day) {
    return fmt::format("{:04}-{:02}-{:02}", day.year(), day.month(), day.day_of_month());
}

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

Long ReadWhole(std::string_view text, int lowest, int highest) {
    const auto number = WholeText<int>(text);
    if (!number || *number < lowest || *number > highest) {
        Refuse(text, fmt::format("a whole number from {} to {}", lowest, highest));
    }
    return *number;
}

Currency ReadMoney(std::string_view text) {
    constexpr std::string_view kExpected = "an amount; write it as 1250 or 1250.50, with four decimals at most";
    std::string_view digits = text;
    const bool negative = digits.starts_with('-');
    if (negative) digits.remove_prefix(1);
    const std::size_t point = digits.find('.');
    std::string joined(digits.substr(0, point));
    std::string decimals(point == std::string_view::npos ? "" : digits.substr(point + 1));
    if (joined.empty() || decimals.size() > 4 || (point != std::string_view::npos && decimals.empty())) {
        Refuse(text, kExpected);
    }
    joined += decimals.append(4 - decimals.size(), '0');
    if (joined.find_first_not_of("0123456789") != std::string::npos) Refuse(text, kExpected);
    const auto count = WholeText<std::int64_t>(joined);
    if (!count) Refuse(text, "an amount that a project can hold");
    return Currency::OfTenThousandths(negative ? -*count : *count);
}

std::string Text(Currency amount) {
    const std::int64_t count = amount.ten_thousandths();
    const std::uint64_t size = count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
    std::string text =
        fmt::format("{}{}.{:04}", count < 0 ? "-" : "", size / Currency::kScale, size % Currency::kScale);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

Boolean ReadFlag(std::string_view text) {
    for (const char* yes : {"yes", "true", "1"}) {
        if (EqualsIgnoringCase(text, yes)) return True;
    }
    for (const char* no : {"no", "false", "0"}) {
        if (EqualsIgnoringCase(text, no)) return False;
    }
    Refuse(text, "yes or no");
}

std::string Text(Boolean flag) {
    return flag ? "True" : "False";
}

std::string Text(double number) {
    return fmt::format("{}", number);
}

std::string Text(Long number) {
    return fmt::format("{}", number.value());
}

DurationText ReadDuration(std::string_view text) {
    constexpr std::string_view kExpected = "a duration; write it as 5, \"5 days\", 2wks, 3mons, 8hrs or 30mins";
    DurationText duration;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), duration.length);
    if (error != std::errc() || !std::isfinite(duration.length) || duration.length < 0 ||
        duration.length > kLongestDuration) {
        Refuse(text, kExpected);
    }
    const std::string_view unit = Trim(text.substr(static_cast<std::size_t>(end - text.data())));
    if (!unit.empty()) duration.unit = ReadUnit(unit);
    return duration;
}

String ReadUnit(std::string_view text) {
    const std::string word = LowerCase(text);
    for (const UnitWords& known : Units()) {
        if (word == known.unit || std::ranges::count(known.others, word) > 0) return known.unit;
    }
    std::vector<std::string> words;
    for (const UnitWords& known : Units()) {
        words.push_back(fmt::format("{} ({})", known.unit, fmt::join(known.others, ", ")));
    }
    Refuse(text, fmt::format("a unit; there are {}", fmt::join(words, ", ")));
}

std::string UnitHelp() {
    std::string help = "Units, in any case:\n";
    for (const UnitWords& known : Units()) {
        help += fmt::format("  {:<10} {}\n", known.unit, fmt::join(known.others, ", "));
    }
    return help;
}

String ReadName(std::string_view text, std::string_view owner) {
    if (Trim(text).empty()) throw Refusal(fmt::format("{} needs a name", owner));
    if (!IsLine(text)) Refuse(text, "a name: it must be one line of UTF-8 text");
    constexpr std::size_t kLongestName = 160;
    if (Length(text) > kLongestName) {
        throw Refusal(fmt::format("the name has {} characters; {} are the most", Length(text), kLongestName));
    }
    return String(text);
}

String ReadLine(std::string_view text) {
    if (!IsLine(text)) Refuse(text, "one line of UTF-8 text");
    return String(text);
}

String ReadText(std::string_view text) {
    if (Trim(text).empty()) throw Refusal("a note needs a text");
    // A carriage return would not come back from the file.
    if (dom::FirstForbidden(text) != std::string_view::npos || text.find('\r') != std::string_view::npos) {
        Refuse(text, "a text in UTF-8 with line feeds");
    }
    return String(text);
}

Long ReadWeekday(std::string_view text) {
    const std::string wanted = LowerCase(text);
    for (std::size_t i = 0; i < kWeekdays.size(); ++i) {
        if (wanted.size() >= 3 && LowerCase(kWeekdays[i]).starts_with(wanted)) return Long(i + 1);
    }
    Refuse(text, "a weekday; write Monday or mon");
}

std::string WeekdayName(int weekday) {
    if (weekday < 1 || weekday > 7) return fmt::format("weekday {}", weekday);
    return kWeekdays[static_cast<std::size_t>(weekday - 1)];
}

}  // namespace prx
