#include <gtest/gtest.h>

#include <clocale>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

using namespace platform;

TEST(ShortDateOf, TranslatesTheFormatsOfTheSystem) {
    struct Row {
        const char* format;
        const char* pattern;
    };
    for (const Row& row : {
             Row{"%d.%m.%Y", "dd.MM.yyyy"},
             Row{"%d/%m/%y", "dd/MM/yyyy"},
             Row{"%m/%d/%Y", "MM/dd/yyyy"},
             Row{"%Y-%m-%d", "yyyy-MM-dd"},
             Row{"%d-%m-%y", "dd-MM-yyyy"},
             Row{"%e.%m.%Y", "d.MM.yyyy"},
             Row{"%-d.%-m.%Y", "d.M.yyyy"},
             Row{"%d. %m. %Y", "dd.MM.yyyy"},
             Row{"%d.%m.%Y.", "dd.MM.yyyy"},
             Row{"%Y.%m.%d.", "yyyy.MM.dd"},
             Row{" %d//%m//%Y ", "dd/MM/yyyy"},
             Row{"%D", "MM/dd/yyyy"},
             Row{"%F", "yyyy-MM-dd"},
         }) {
        SCOPED_TRACE(row.format);
        EXPECT_EQ(ShortDateOf(row.format), row.pattern);
    }
}

TEST(ShortDateOf, FallsBackWhereTheFormatIsNoPlainOne) {
    for (const char* format :
         {"", "%d %b %Y", "%A %d %B %Y", "%Y年%m月%d日", "%d/%m/%Ey", "%Oy/%Om/%Od", "%d %m %Y", "%d%m%Y", "%d.%m-%Y",
          "%d.%m", "%d.%d.%Y", "%d.%m.%Y.%Y", "./%d/%m/%Y", "%d.-%m.-%Y", "text", "%"}) {
        SCOPED_TRACE(format);
        EXPECT_EQ(ShortDateOf(format), "yyyy-MM-dd");
    }
}

TEST(SettingsOf, KeepsTheMonthFirstInTheNeutralLocales) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", "en_US", "en_US.UTF-8", "en_US.ISO-8859-1"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(SettingsOf({name, "%m/%d/%y", ".", "", true}), LocaleSettings{});
    }
    EXPECT_EQ(SettingsOf({"en_GB.UTF-8", "%d/%m/%y", ".", ",", true}), (LocaleSettings{"dd/MM/yyyy", ".", ","}));
    EXPECT_EQ(SettingsOf({"Custom", "%m/%d/%Y", ".", ",", true}), (LocaleSettings{"MM/dd/yyyy", ".", ","}));
}

TEST(SettingsOf, TakesTheSeparatorsOfNumbers) {
    EXPECT_EQ(SettingsOf({"de_DE.UTF-8", "%d.%m.%Y", ",", ".", true}), (LocaleSettings{"dd.MM.yyyy", ",", "."}));
    EXPECT_EQ(SettingsOf({"C", "", "", ".", true}), (LocaleSettings{"M/d/yyyy", ".", ""}));
}

TEST(SettingsOf, GivesTextsInUtf8) {
    const auto group = [](const char* text, bool utf8) {
        return SettingsOf({"fr_FR", "%d/%m/%Y", ",", text, utf8}).group;
    };
    EXPECT_EQ(group("\xE2\x80\xAF", true), "\xE2\x80\xAF");
    EXPECT_EQ(group("\xA0", false), "\xC2\xA0");
    EXPECT_EQ(group("\xFE", false), "");
    EXPECT_EQ(group("'", false), "'");
}

TEST(LowerCaseOfAnyScript, TakesLettersOneByOne) {
    EXPECT_EQ(LowerCaseOfAnyScript("ABC xyz 1"), "abc xyz 1");
    EXPECT_EQ(LowerCaseOfAnyScript("\u00C4\u00D6\u00DC \u0416\u03A3 \U0001F3E0"),
              "\u00E4\u00F6\u00FC \u0436\u03C3 \U0001F3E0");
    EXPECT_EQ(LowerCaseOfAnyScript(""), "");
    EXPECT_EQ(LowerCaseOfAnyScript("A\xFF"), "a\xFF");
}

TEST(PosixLocale, LeavesTheLocaleOfTheProcessAlone) {
    const String before = std::setlocale(LC_ALL, nullptr);
    Locale& locale = SystemServices().locale;
    EXPECT_FALSE(locale.Settings().short_date.empty());
    EXPECT_FALSE(locale.Settings().decimal.empty());
    EXPECT_EQ(locale.Stamp(), locale.Stamp());
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

}  // namespace
}  // namespace mrlxmlclass::testing
