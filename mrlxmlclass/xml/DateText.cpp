#include "mrlxmlclass/xml/DateText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass {
namespace {

constexpr std::string_view kDateSeparators = "/-. ";
constexpr std::size_t kLongestFormat = 15;
constexpr std::size_t kMostDigits = 4;      // of a year
constexpr std::size_t kLongestText = 1000;  // far longer than any date; no more is ever taken apart

void AppendNumber(String& to, int number, std::size_t width) {
    const String digits = std::to_string(number);
    if (digits.size() < width) to.append(width - digits.size(), '0');
    to += digits;
}

/// Without the blanks around; what is too long for a date fails (13).
std::string_view TrimmedDate(std::string_view text) {
    text = Trim(text);
    if (text.size() > kLongestText) Raise(failure::kTypeMismatch);
    return text;
}

/// The whole number that a run of digits is; nothing when it is no such run.
std::optional<int> DigitsOnly(std::string_view text) {
    int number = 0;
    if (text.empty() || !IsDigit(text[0])) return std::nullopt;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// The parts of a written date: one separator between two, blanks around it or in its place, one at the end at most.
std::vector<std::string_view> DateParts(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    text = Trim(text);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(separators), text.size());
        if (end == 0) Raise(failure::kTypeMismatch);
        parts.push_back(text.substr(0, end));
        text = Trim(text.substr(end));
        if (!text.empty() && separators.find(text[0]) != std::string_view::npos) text = Trim(text.substr(1));
    }
    return parts;
}

int FullYear(std::string_view part, int year) {
    if (part.size() > 2) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

/// The year that a part of a written date names; one that no date has fails (13).
int YearIn(std::string_view part) {
    const std::optional<int> number = DigitsOnly(part);
    if (!number || part.size() > kMostDigits) Raise(failure::kTypeMismatch);
    return Date::Of(FullYear(part, *number), 1, 1).year();
}

/// What a letter of a pattern stands for: "d", "m" or "y", whatever its case and in French too; else itself.
char KeyOf(char letter) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    if (letter == 'j') return 'd';
    if (letter == 'a') return 'y';
    return letter;
}

/// The order of day, month and year in a pattern, by their letters.
String OrderOf(std::string_view pattern) {
    String order;
    for (const char letter : pattern) {
        const char key = KeyOf(letter);
        if ((key == 'd' || key == 'm' || key == 'y') && (order.empty() || order.back() != key)) order += key;
    }
    return order;
}

Date ParseDay(std::string_view text, std::string_view pattern) {
    const std::vector<std::string_view> parts = DateParts(text, kDateSeparators);
    if (parts.size() != 3) Raise(failure::kTypeMismatch);
    const String order = OrderOf(pattern);
    std::array<int, 3> numbers{};
    std::size_t year_at = std::min<std::size_t>(order.find('y'), 2);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::optional<int> number = DigitsOnly(parts[i]);
        if (!number || parts[i].size() > kMostDigits) Raise(failure::kTypeMismatch);
        numbers[i] = *number;
        if (parts[i].size() > 2) year_at = i;
    }
    const std::size_t first = year_at == 0 ? 1 : 0;
    const std::size_t second = year_at == 2 ? 1 : 2;
    const bool day_first = order.find('d') < order.find('m');
    int day = numbers[day_first ? first : second];
    int month = numbers[day_first ? second : first];
    if (month > 12 && day <= 12) std::swap(day, month);
    return Date::Of(FullYear(parts[year_at], numbers[year_at]), month, day);
}

double ParseTime(std::string_view time, std::string_view half_of_day) {
    const std::vector<String> parts = Split(time, ":");
    if (parts.size() < 2 || parts.size() > 3) Raise(failure::kTypeMismatch);
    std::array<int, 3> numbers{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::optional<int> number = DigitsOnly(parts[i]);
        if (!number || parts[i].size() > 2 || *number > (i == 0 ? 23 : 59)) Raise(failure::kTypeMismatch);
        numbers[i] = *number;
    }
    if (!half_of_day.empty()) {
        if (numbers[0] < 1 || numbers[0] > 12) Raise(failure::kTypeMismatch);
        numbers[0] = numbers[0] % 12 + (EqualsIgnoringCase(half_of_day, "PM") ? 12 : 0);
    }
    return static_cast<double>((numbers[0] * 60 + numbers[1]) * 60 + numbers[2]) / kSecondsADay;
}

/// What stands behind the last blank.
std::string_view LastWord(std::string_view text) {
    return text.substr(text.rfind(' ') + 1);
}

/// Without the time that may follow a date: a blank and a part that holds ":".
std::string_view WithoutTime(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return text;
    const std::size_t blank = text.rfind(' ', colon);
    return blank == std::string_view::npos ? text : Trim(text.substr(0, blank));
}

/// Which part of a format an entry describes; a host may have filed it under what is no text.
const KeyText& PartOf(const DictionaryKey& key) {
    const KeyText* part = key.text();
    if (part == nullptr) Raise(failure::kTypeMismatch);
    return *part;
}

Ref<Dictionary> DescribeParts(std::string_view format, std::string_view separator) {
    auto parts = Make<Dictionary>();
    std::size_t place = 1;
    for (const String& piece : separator.empty() ? std::vector<String>{String(format)} : Split(format, separator)) {
        const std::string_view part = Trim(piece);
        if (!part.empty()) {
            parts->Add(Gloabal::FormatKey(part),
                       std::to_string(part.size()) + "|" + std::to_string(place) + "|" + String(part));
        }
        place += piece.size() + 1;
    }
    return parts;
}

}  // namespace

String FormatDate(Date date, std::string_view pattern) {
    if (!std::isfinite(date.days())) Raise(failure::kOverflow);
    double whole = std::floor(date.days());
    int seconds = static_cast<int>(std::round((date.days() - whole) * kSecondsADay));
    if (seconds == kSecondsADay) {
        whole += 1;
        seconds = 0;
    }
    const Date day(whole);
    String text;
    for (std::size_t i = 0; i < pattern.size();) {
        const char letter = pattern[i];
        const std::size_t end = std::min(pattern.find_first_not_of(letter, i), pattern.size());
        switch (KeyOf(letter)) {
            case 'd':
                AppendNumber(text, day.day_of_month(), end - i);
                break;
            case 'm':
                AppendNumber(text, day.month(), end - i);
                break;
            case 'y':
                AppendNumber(text, day.year(), 4);
                break;
            default:
                text.append(end - i, letter);
                break;
        }
        i = end;
    }
    if (seconds != 0) {
        text += ' ';
        AppendNumber(text, seconds / 3600, 2);
        text += ':';
        AppendNumber(text, seconds / 60 % 60, 2);
        text += ':';
        AppendNumber(text, seconds % 60, 2);
    }
    return text;
}

Date ParseDate(std::string_view text, std::string_view pattern) {
    text = TrimmedDate(text);
    std::string_view half_of_day = LastWord(text);
    if (EqualsIgnoringCase(half_of_day, "AM") || EqualsIgnoringCase(half_of_day, "PM")) {
        text = Trim(text.substr(0, text.size() - half_of_day.size()));
    } else {
        half_of_day = {};
    }
    const std::string_view time_text = LastWord(text);
    if (time_text.find(':') == std::string_view::npos) {
        if (!half_of_day.empty()) Raise(failure::kTypeMismatch);
        return ParseDay(text, pattern);
    }
    const double time = ParseTime(time_text, half_of_day);
    text = Trim(text.substr(0, text.size() - time_text.size()));
    return text.empty() ? Date(time) : Date(ParseDay(text, pattern).days() + time);
}

String SystemDatePattern() {
    String pattern = Replace(Platform().locale.Settings().short_date, " ", "");
    while (!pattern.empty() && kDateSeparators.find(pattern.back()) != std::string_view::npos) pattern.pop_back();
    return pattern;
}

namespace Gloabal {

String GetSystemDateFormat() {
    const String pattern = SystemDatePattern();
    return Length(pattern) > kLongestFormat ? String() : pattern;
}

String GetSeparator(std::string_view format) {
    for (const char* separator : {"/", "-", "."}) {
        if (format.find(separator) != std::string_view::npos) return separator;
    }
    return {};
}

String FormatKey(std::string_view part) {
    return part.empty() ? String() : String(1, KeyOf(part[0]));
}

void SetALLFormat(const String& p_cur_date_format, const String& p_sys_date_format, Ref<Dictionary>& p_sys,
                  Ref<Dictionary>& p_cur, String& p_date_spe) {
    FailureTail("Gloabal").Run("SetALLFormat", [&] {
        ModuleState& module = Module();
        // Kept: the separators stay in force after the load; they act on texts that hold the old one only.
        module.g_FileDateSeparator = GetSeparator(p_cur_date_format);
        p_date_spe = module.g_FileDateSeparator;
        p_cur = DescribeParts(p_cur_date_format, module.g_FileDateSeparator);
        module.g_SystemDateSeparator = GetSeparator(p_sys_date_format);
        p_sys = DescribeParts(p_sys_date_format, module.g_SystemDateSeparator);
    });
}

String ConvertDateText(const String& /*p_sys_date_format*/, const String& /*p_cur_date_format*/, const String& text,
                       const String& p_date_spe, const Ref<Dictionary>& p_cur, const Ref<Dictionary>& p_sys) {
    const auto parts = DateParts(WithoutTime(TrimmedDate(text)), p_date_spe + " ");
    const auto file_parts = p_cur->Snapshot();
    if (parts.size() != file_parts.size()) Raise(failure::kTypeMismatch);

    const auto part_of = [&](const KeyText& key) {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (PartOf(file_parts[i].key) == key) return String(parts[i]);
        }
        Raise(failure::kTypeMismatch);
    };
    String converted;
    for (const auto& entry : p_sys->Snapshot()) {
        const KeyText& key = PartOf(entry.key);
        String part = part_of(key);
        if (key.text() == "y") part = std::to_string(YearIn(part));
        if (!converted.empty()) converted += Module().g_SystemDateSeparator;
        converted += part;
    }
    return converted;
}

}  // namespace Gloabal

String DateAdjustment::Adjusted(const String& text) const {
    if (!on) return text;
    return Gloabal::ConvertDateText(system_format, file_format, text, separator, file_parts, system_parts);
}

}  // namespace mrlxmlclass
