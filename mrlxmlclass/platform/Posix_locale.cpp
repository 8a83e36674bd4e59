#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <optional>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass::platform {
namespace {

constexpr std::string_view kPlainPattern = "yyyy-MM-dd";

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

String InUtf8(const String& text, bool utf8) {
    if (utf8 || IsAscii(text)) return text;
    return text == "\xA0" ? "\xC2\xA0" : String();  // the hard blank of the 8-bit sets
}

// The language and country of a locale's name.
std::string_view Territory(std::string_view name) {
    return name.substr(0, name.find_first_of(".@"));
}

const char* NameOfDates() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != '\0') return name;
    }
    return "C";
}

LocaleSettings SettingsOfEnvironment() {
    // A locale object of our own: that of the process stays as it is.
    const locale_t locale = newlocale(LC_TIME_MASK | LC_NUMERIC_MASK | LC_CTYPE_MASK, "", locale_t{});
    if (locale == locale_t{}) return {};
    LocaleFacts facts;
    facts.name = NameOfDates();
    facts.date_format = nl_langinfo_l(D_FMT, locale);
    facts.decimal = nl_langinfo_l(RADIXCHAR, locale);
    facts.group = nl_langinfo_l(THOUSEP, locale);
    facts.utf8 = std::string_view(nl_langinfo_l(CODESET, locale)) == "UTF-8";
    freelocale(locale);
    return SettingsOf(facts);
}

class PosixLocale final : public Locale {
public:
    const LocaleSettings& Settings() override { return settings_; }

private:
    const LocaleSettings settings_ = SettingsOfEnvironment();
};

/// The thread reads and writes UTF-8 meanwhile, whatever the process does.
class UsesUtf8 {
public:
    UsesUtf8() : before_(uselocale(Utf8())) {}
    ~UsesUtf8() { uselocale(before_); }
    UsesUtf8(const UsesUtf8&) = delete;
    UsesUtf8& operator=(const UsesUtf8&) = delete;

private:
    static locale_t Utf8() {
        static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
        return utf8;
    }
    const locale_t before_;
};

// One part of a date taken off the front of a format; nothing when no plain one stands there.
std::optional<std::string_view> TakePart(std::string_view& format) {
    struct Row {
        std::string_view directive;
        std::string_view part;
    };
    for (const Row& row : {Row{"%d", "dd"}, Row{"%m", "MM"}, Row{"%y", "yyyy"}, Row{"%Y", "yyyy"}, Row{"%-d", "d"},
                           Row{"%e", "d"}, Row{"%-e", "d"}, Row{"%-m", "M"}}) {
        if (!format.starts_with(row.directive)) continue;
        format.remove_prefix(row.directive.size());
        return row.part;
    }
    return {};
}

String Expanded(std::string_view date_format) {
    String format;
    for (const char c : date_format) {
        if (c != ' ' && c != '\t') format += c;
    }
    if (format == "%D") return "%m/%d/%y";
    if (format == "%F") return "%Y-%m-%d";
    return format;
}

}  // namespace

Locale& SystemLocale() {
    return Lasting<PosixLocale>();
}

String ShortDateOf(std::string_view date_format) {
    const String expanded = Expanded(date_format);
    std::string_view format = expanded;
    String pattern;
    String kinds;  // one letter a part
    std::string_view separator;
    while (const auto part = TakePart(format)) {
        pattern += *part;
        kinds += part->front();
        const std::size_t length = std::min(format.find_first_not_of("/-."), format.size());
        const std::string_view between = format.substr(0, std::min<std::size_t>(length, 1));
        if (separator.empty()) separator = between;
        if (!std::ranges::all_of(format.substr(0, length), [&](char c) { return c == separator.front(); })) break;
        format.remove_prefix(length);
        if (format.empty()) break;
        if (between.empty()) return String(kPlainPattern);  // two parts that nothing keeps apart
        pattern += between;
    }
    std::ranges::sort(kinds);
    return format.empty() && kinds == "Mdy" ? pattern : String(kPlainPattern);
}

LocaleSettings SettingsOf(const LocaleFacts& facts) {
    LocaleSettings settings;
    const std::string_view territory = Territory(facts.name);
    if (territory != "C" && territory != "POSIX" && territory != "en_US") {
        settings.short_date = ShortDateOf(facts.date_format);
    }
    if (const String decimal = InUtf8(facts.decimal, facts.utf8); !decimal.empty()) settings.decimal = decimal;
    settings.group = InUtf8(facts.group, facts.utf8);
    if (settings.group == settings.decimal) settings.group.clear();
    return settings;
}

}  // namespace mrlxmlclass::platform

namespace mrlxmlclass {

String LowerCaseOfAnyScript(const String& text) {
    const platform::UsesUtf8 utf8;
    std::wstring letters(text.size(), L'\0');
    const std::size_t read = std::mbstowcs(letters.data(), text.c_str(), letters.size());
    if (read == static_cast<std::size_t>(-1) || text.find('\0') != String::npos) return LowerCase(text);
    letters.resize(read);
    for (wchar_t& letter : letters) letter = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(letter)));
    String lower(letters.size() * MB_LEN_MAX, '\0');
    lower.resize(std::wcstombs(lower.data(), letters.c_str(), lower.size()));
    return lower;
}

}  // namespace mrlxmlclass
