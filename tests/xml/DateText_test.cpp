#include "mrlxmlclass/xml/DateText.h"

#include <gtest/gtest.h>

#include <limits>

#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

constexpr double kHalfPastTwo = 14.5 / 24;

/// Everything that a load prepares once it knows the file's format.
DateAdjustment AdjustmentOf(const String& file_format, const String& system_format) {
    DateAdjustment dates{True, file_format, system_format, {}, {}, {}};
    Gloabal::SetALLFormat(file_format, system_format, dates.system_parts, dates.file_parts, dates.separator);
    return dates;
}

String DescriptionOf(const Ref<Dictionary>& parts) {
    String text;
    for (const auto& entry : parts->Snapshot()) text += entry.key.text()->text() + "=" + *entry.item.If<String>() + " ";
    return text;
}

TEST(FormatDate, WritesEachPatternWithAFourDigitYear) {
    const Date day = Date::Of(2026, 3, 2);
    struct Row {
        const char* pattern;
        const char* text;
    };
    for (const Row& row : {Row{"M/d/yyyy", "3/2/2026"}, Row{"dd/MM/yyyy", "02/03/2026"}, Row{"d.M.yyyy", "2.3.2026"},
                           Row{"yyyy-MM-dd", "2026-03-02"}, Row{"d. M. yyyy", "2. 3. 2026"},
                           Row{"dd.MM.yy", "02.03.2026"}, Row{"yyyy. MM. dd.", "2026. 03. 02."}}) {
        SCOPED_TRACE(row.pattern);
        EXPECT_EQ(FormatDate(day, row.pattern), row.text);
    }
}

TEST(FormatDate, UnderstandsThePatternLettersThatFileFormatsMayHave) {
    EXPECT_EQ(FormatDate(Date::Of(2026, 3, 2), "DD/MM/YYYY"), "02/03/2026");
    EXPECT_EQ(FormatDate(Date::Of(2026, 3, 2), "jj/mm/aaaa"), "02/03/2026");
    EXPECT_EQ(ParseDate("02/03/2026", "JJ/MM/AAAA"), Date::Of(2026, 3, 2));
}

TEST(FormatDate, AddsTheTimeUnlessItIsMidnight) {
    EXPECT_EQ(FormatDate(Date(Date::Of(2026, 3, 2).days() + kHalfPastTwo), "M/d/yyyy"), "3/2/2026 14:30:00");
    EXPECT_EQ(FormatDate(Date(Date::Of(2026, 3, 2).days() + 1.0 / 86400), "M/d/yyyy"), "3/2/2026 00:00:01");
}

TEST(FormatDate, RoundsToTheSecondAndCarriesIntoTheNextDay) {
    EXPECT_EQ(FormatDate(Date(Date::Of(2026, 12, 31).days() + 0.4 / 86400), "M/d/yyyy"), "12/31/2026");
    EXPECT_EQ(FormatDate(Date(Date::Of(2026, 12, 31).days() + 86399.6 / 86400), "M/d/yyyy"), "1/1/2027");
}

TEST(FormatDate, WritesTheDateThatIsNotSetAsDayZero) {
    EXPECT_EQ(FormatDate(Date(), "M/d/yyyy"), "12/30/1899");
}

TEST(FormatDate, PadsAnEarlyYear) {
    EXPECT_EQ(FormatDate(Date::Of(101, 1, 2), "d.M.yyyy"), "2.1.0101");
}

TEST(ParseDate, TakesThePartsInThePatternsOrder) {
    const Date first_of_february = Date::Of(2008, 2, 1);
    EXPECT_EQ(ParseDate("2/1/2008", "M/d/yyyy"), first_of_february);
    EXPECT_EQ(ParseDate("01/02/2008", "dd/MM/yyyy"), first_of_february);
    EXPECT_EQ(ParseDate("1.2.2008", "d.M.yyyy"), first_of_february);
    EXPECT_EQ(ParseDate("2008-02-01", "yyyy-MM-dd"), first_of_february);
    EXPECT_EQ(ParseDate("1. 2. 2008", "d. M. yyyy"), first_of_february);
    EXPECT_EQ(ParseDate("2008. 02. 01.", "yyyy. MM. dd."), first_of_february);
}

TEST(ParseDate, AcceptsAnyOfTheSeparators) {
    for (const char* text :
         {"2/1/2008", "2-1-2008", "2.1.2008", "2 1 2008", "2/1-2008", " 2 / 1 / 2008 ", "02/01/2008"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ParseDate(text, "M/d/yyyy"), Date::Of(2008, 2, 1));
    }
}

TEST(ParseDate, TakesALongPartForTheYearWhereverItStands) {
    EXPECT_EQ(ParseDate("2008-02-01", "M/d/yyyy"), Date::Of(2008, 2, 1));
    EXPECT_EQ(ParseDate("2/2008/1", "M/d/yyyy"), Date::Of(2008, 2, 1));
    EXPECT_EQ(ParseDate("01/02/2008", "yyyy-MM-dd"), Date::Of(2008, 1, 2));
    EXPECT_EQ(ParseDate("1/2/999", "M/d/yyyy"), Date::Of(999, 1, 2));
}

TEST(ParseDate, SwapsDayAndMonthWhenOnlyThatMakesAMonth) {
    EXPECT_EQ(ParseDate("31/12/2008", "M/d/yyyy"), Date::Of(2008, 12, 31));
    EXPECT_EQ(ParseDate("12/31/2008", "dd/MM/yyyy"), Date::Of(2008, 12, 31));
    EXPECT_EQ(NumberOf([] { ParseDate("13/13/2008", "M/d/yyyy"); }), failure::kTypeMismatch);
}

TEST(ParseDate, PutsTwoDigitYearsBetween1930And2029) {
    struct Row {
        const char* text;
        int year;
    };
    for (const Row& row :
         {Row{"1/2/00", 2000}, Row{"1/2/29", 2029}, Row{"1/2/30", 1930}, Row{"1/2/99", 1999}, Row{"1/2/5", 2005}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ParseDate(row.text, "M/d/yyyy"), Date::Of(row.year, 1, 2));
    }
    EXPECT_EQ(ParseDate("08-02-01", "yyyy-MM-dd"), Date::Of(2008, 2, 1));
}

TEST(ParseDate, ReadsATimeBehindTheDate) {
    const double day = Date::Of(2008, 2, 1).days();
    struct Row {
        const char* text;
        double time;
    };
    for (const Row& row : {Row{"2/1/2008 14:30", kHalfPastTwo}, Row{"2/1/2008 14:30:00", kHalfPastTwo},
                           Row{"2/1/2008 2:30 PM", kHalfPastTwo}, Row{"2/1/2008 02:30:00 pm", kHalfPastTwo},
                           Row{"2/1/2008  12:00 AM", 0}, Row{"2/1/2008 12:00 PM", 0.5}, Row{"2/1/2008 0:00", 0},
                           Row{"2/1/2008 11:59:59 AM", (12 * 3600 - 1) / 86400.0}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ParseDate(row.text, "M/d/yyyy"), Date(day + row.time));
    }
}

TEST(ParseDate, ReadsATimeAloneAsOneOfDayZero) {
    EXPECT_EQ(ParseDate("14:30", "M/d/yyyy"), Date(kHalfPastTwo));
    EXPECT_EQ(ParseDate("2:30 PM", "M/d/yyyy"), Date(kHalfPastTwo));
}

TEST(ParseDate, KnowsTheLeapYears) {
    EXPECT_EQ(ParseDate("2/29/2008", "M/d/yyyy"), Date::Of(2008, 2, 29));
    EXPECT_EQ(ParseDate("2/29/2000", "M/d/yyyy"), Date::Of(2000, 2, 29));
    for (const char* text : {"2/29/2007", "2/29/1900", "2/30/2008"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberOf([&] { ParseDate(text, "M/d/yyyy"); }), failure::kTypeMismatch);
    }
}

TEST(ParseDate, RefusesWhatIsNoDate) {
    for (const char* text : {"",
                             "   ",
                             "yesterday",
                             "1/2",
                             "1/2/3/4",
                             "1//2/2008",
                             "/1/2/2008",
                             "1/2/2008//",
                             "1/2/-2008",
                             "1/2/20080",
                             "+1/2/2008",
                             "0/2/2008",
                             "1/0/2008",
                             "1/32/2008",
                             "1/2/0099",
                             "2008/2009/1",
                             "PM",
                             "1/2/2008 PM",
                             "1/2/2008 25:00",
                             "1/2/2008 10:60",
                             "1/2/2008 10:30:60",
                             "1/2/2008 10",
                             "1/2/2008 10:",
                             "1/2/2008 :30",
                             "1/2/2008 1:2:3:4",
                             "1/2/2008 13:00 PM",
                             "1/2/2008 0:30 AM",
                             "10:30 1/2/2008",
                             "1/2/2008 10::30",
                             "1/2/2008 100:30",
                             "1/2/a"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberOf([&] { ParseDate(text, "M/d/yyyy"); }), failure::kTypeMismatch);
    }
}

TEST(ParseDate, RefusesATextThatIsFarTooLong) {
    TestSession session;
    const String apart(1000, ' ');
    EXPECT_EQ(ParseDate(apart + "1/2/2008" + apart, "M/d/yyyy"), Date::Of(2008, 1, 2));
    EXPECT_EQ(NumberOf([&] { ParseDate("1/2/2008" + apart + "10:00", "M/d/yyyy"); }), failure::kTypeMismatch);
}

TEST(ParseDate, TakesBackWhatFormatDateWrites) {
    const double first = Date::Of(2008, 1, 1).days();
    for (const char* pattern : {"M/d/yyyy", "dd/MM/yyyy", "d.M.yyyy", "yyyy-MM-dd", "d. M. yyyy", "yyyy. MM. dd."}) {
        SCOPED_TRACE(pattern);
        for (int i = 0; i < 366; ++i) {
            const Date day(first + i);
            EXPECT_EQ(ParseDate(FormatDate(day, pattern), pattern), day);
            const Date timed(first + i + kHalfPastTwo);
            EXPECT_EQ(ParseDate(FormatDate(timed, pattern), pattern), timed);
        }
        EXPECT_EQ(ParseDate(FormatDate(Date(), pattern), pattern), Date());
    }
}

TEST(GetSystemDateFormat, IsTheShortDatePatternOfTheLocale) {
    TestSession session;
    session.locale.Use("dd/MM/yyyy");
    EXPECT_EQ(Gloabal::GetSystemDateFormat(), "dd/MM/yyyy");
}

TEST(GetSystemDateFormat, LeavesOutBlanksAndAClosingSeparator) {
    TestSession session;
    session.locale.Use("d. M. yyyy");
    EXPECT_EQ(Gloabal::GetSystemDateFormat(), "d.M.yyyy");
    session.locale.Use("yyyy. MM. dd.");
    EXPECT_EQ(Gloabal::GetSystemDateFormat(), "yyyy.MM.dd");
}

TEST(GetSystemDateFormat, IsEmptyWhenThePatternIsLongerThanFifteenCharacters) {
    TestSession session;
    session.locale.Use("dddddd/MMM/yyyy");
    EXPECT_EQ(Gloabal::GetSystemDateFormat(), "dddddd/MMM/yyyy");
    session.locale.Use("ddddddd/MMM/yyyy");
    EXPECT_EQ(Gloabal::GetSystemDateFormat(), "");
}

TEST(GetSeparator, FindsSlashThenDashThenPoint) {
    EXPECT_EQ(Gloabal::GetSeparator("dd/MM/yyyy"), "/");
    EXPECT_EQ(Gloabal::GetSeparator("yyyy-MM-dd"), "-");
    EXPECT_EQ(Gloabal::GetSeparator("d.M.yyyy"), ".");
    EXPECT_EQ(Gloabal::GetSeparator("d.M-yyyy/"), "/");
    EXPECT_EQ(Gloabal::GetSeparator("d.M-yyyy"), "-");
}

TEST(GetSeparator, IsEmptyForAFormatWithoutAKnownOne) {
    EXPECT_EQ(Gloabal::GetSeparator("ddMMyyyy"), "");
    EXPECT_EQ(Gloabal::GetSeparator("d M yyyy"), "");
    EXPECT_EQ(Gloabal::GetSeparator(""), "");
}

TEST(FormatKey, IsTheFirstLetterInLowerCase) {
    EXPECT_EQ(Gloabal::FormatKey("dd"), "d");
    EXPECT_EQ(Gloabal::FormatKey("MM"), "m");
    EXPECT_EQ(Gloabal::FormatKey("YYYY"), "y");
    EXPECT_EQ(Gloabal::FormatKey(""), "");
}

TEST(FormatKey, ReadsTheLettersOfAFrenchPattern) {
    EXPECT_EQ(Gloabal::FormatKey("JJ"), "d");
    EXPECT_EQ(Gloabal::FormatKey("aaaa"), "y");
}

TEST(SetALLFormat, DescribesThePartsOfBothFormats) {
    TestSession session;
    const DateAdjustment dates = AdjustmentOf("dd/MM/yyyy", "yyyy-M-d");
    EXPECT_EQ(DescriptionOf(dates.file_parts), "d=2|1|dd m=2|4|MM y=4|7|yyyy ");
    EXPECT_EQ(DescriptionOf(dates.system_parts), "y=4|1|yyyy m=1|6|M d=1|8|d ");
    EXPECT_EQ(dates.separator, "/");
    EXPECT_EQ(Module().g_FileDateSeparator, "/");
    EXPECT_EQ(Module().g_SystemDateSeparator, "-");
}

TEST(SetALLFormat, TakesAFormatWithoutASeparatorAsOnePart) {
    TestSession session;
    const DateAdjustment dates = AdjustmentOf("ddMMyyyy", "M/d/yyyy");
    EXPECT_EQ(dates.separator, "");
    EXPECT_EQ(DescriptionOf(dates.file_parts), "d=8|1|ddMMyyyy ");
    EXPECT_EQ(NumberOf([&] { dates.Adjusted("31122008"); }), failure::kTypeMismatch);
}

TEST(SetALLFormat, TrimsThePartsOfAFormatWithBlanks) {
    TestSession session;
    EXPECT_EQ(AdjustmentOf("d. M. yyyy", "M/d/yyyy").Adjusted("31. 12. 2008"), "12/31/2008");
    EXPECT_EQ(AdjustmentOf("yyyy. MM. dd.", "M/d/yyyy").Adjusted("2008. 12. 31."), "12/31/2008");
}

TEST(SetALLFormat, RecordsAFormatThatNamesAPartTwice) {
    TestSession session;
    AdjustmentOf("dd/dd/yyyy", "M/d/yyyy");
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetALLFormat 457\n");
}

TEST(SetALLFormat, KeepsTheSeparatorsInForceAfterTheLoad) {
    TestSession session;
    session.locale.Use("M/d/yyyy");
    AdjustmentOf("dd.MM.yyyy", "M/d/yyyy");
    EXPECT_EQ(Conversions::StringToDate("2.1.2008"), Date::Of(2008, 2, 1));
    EXPECT_EQ(Conversions::StringToDate("2/1/2008"), Date::Of(2008, 2, 1));
}

TEST(ConvertDateText, PutsThePartsIntoTheSystemsOrder) {
    TestSession session;
    struct Row {
        const char* file_format;
        const char* system_format;
        const char* text;
        const char* converted;
    };
    for (const Row& row : {Row{"dd/MM/yyyy", "M/d/yyyy", "31/12/2008", "12/31/2008"},
                           Row{"dd/MM/yyyy", "M/d/yyyy", "01/02/2008", "02/01/2008"},
                           Row{"M/d/yyyy", "dd/MM/yyyy", "12/31/2008", "31/12/2008"},
                           Row{"d.M.yyyy", "yyyy-MM-dd", "5.11.2008", "2008-11-5"},
                           Row{"yyyy-MM-dd", "d.M.yyyy", "2008-02-01", "01.02.2008"},
                           Row{"JJ/MM/AAAA", "M/d/yyyy", "31/12/2008", "12/31/2008"},
                           Row{"dd/MM/yy", "M/d/yyyy", "31/12/08", "12/31/2008"},
                           Row{"dd/MM/yy", "M/d/yyyy", "31/12/98", "12/31/1998"}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(AdjustmentOf(row.file_format, row.system_format).Adjusted(row.text), row.converted);
    }
}

TEST(ConvertDateText, FollowsADayOfTwoDigitsUnderAPatternWithOne) {
    TestSession session;
    EXPECT_EQ(AdjustmentOf("d/M/yyyy", "M/d/yyyy").Adjusted("31/12/2008"), "12/31/2008");
    EXPECT_EQ(AdjustmentOf("d/M/yyyy", "M/d/yyyy").Adjusted("1/12/2008"), "12/1/2008");
}

TEST(ConvertDateText, DropsATime) {
    TestSession session;
    EXPECT_EQ(AdjustmentOf("dd/MM/yyyy", "M/d/yyyy").Adjusted("31/12/2008 14:30:00"), "12/31/2008");
    EXPECT_EQ(AdjustmentOf("yyyy-MM-dd", "M/d/yyyy").Adjusted("2008-12-31 2:30 PM"), "12/31/2008");
}

TEST(ConvertDateText, RefusesATextThatDoesNotFollowTheFormat) {
    TestSession session;
    const DateAdjustment dates = AdjustmentOf("dd/MM/yyyy", "M/d/yyyy");
    for (const char* text : {"", "31/12", "31/12/2008/1", "31-12-2008", "31//12/2008", "31/12/never", "14:30",
                             "31/12/0008", "5/6/0099", "5/6/099", "31/12/02008"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberOf([&] { dates.Adjusted(text); }), failure::kTypeMismatch);
    }
}

TEST(ConvertDateText, RefusesATextThatIsFarTooLong) {
    TestSession session;
    const String apart(1000, ' ');
    const DateAdjustment dates = AdjustmentOf("dd/MM/yyyy", "M/d/yyyy");
    EXPECT_EQ(NumberOf([&] { dates.Adjusted("31/12/2008" + apart + "10:00"); }), failure::kTypeMismatch);
}

TEST(ConvertDateText, GivesEveryDateBackBetweenAnyTwoFormats) {
    TestSession session;
    const Date days[] = {Date(),
                         Date::Of(2008, 12, 31),
                         Date::Of(2008, 2, 1),
                         Date::Of(2008, 1, 2),
                         Date::Of(2008, 2, 29),
                         Date::Of(2036, 11, 10),
                         Date::Of(2008, 10, 11),
                         Date::Of(1999, 1, 1)};
    const char* const formats[] = {"M/d/yyyy", "dd/MM/yyyy", "d.M.yyyy", "yyyy-MM-dd", "d. M. yyyy", "dd-MM-yyyy"};
    for (const char* file_format : formats) {
        for (const char* system_format : formats) {
            session.locale.Use(file_format);
            const String written_format = Gloabal::GetSystemDateFormat();
            String texts[std::size(days)];
            for (std::size_t i = 0; i < std::size(days); ++i) texts[i] = Conversions::DateToString(days[i]);
            const String timed = Conversions::DateToString(Date(days[1].days() + kHalfPastTwo));

            session.locale.Use(system_format);
            const DateAdjustment dates = AdjustmentOf(written_format, Gloabal::GetSystemDateFormat());
            for (std::size_t i = 0; i < std::size(days); ++i) {
                SCOPED_TRACE(String(file_format) + " to " + system_format + ": " + texts[i]);
                EXPECT_EQ(Conversions::StringToDate(dates.Adjusted(texts[i])), days[i]);
            }
            EXPECT_EQ(Conversions::StringToDate(dates.Adjusted(timed)), days[1]) << "without its time";
        }
    }
}

TEST(DateAdjustment, LeavesTheTextAloneWhenItIsOff) {
    EXPECT_EQ(DateAdjustment().Adjusted("31/12/2008 14:30"), "31/12/2008 14:30");
}

TEST(FormatDate, RefusesWhatIsNoMoment) {
    for (const double days : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(NumberOf([&] { FormatDate(Date(days), "d/M/yyyy"); }), failure::kOverflow);
        EXPECT_EQ(NumberOf([&] { FormatDate(Date(days), "never"); }), failure::kOverflow);
    }
}

TEST(ConvertDateText, RefusesPartsThatAHostFiledUnderOtherThanTexts) {
    TestSession session;
    const DateAdjustment plain = AdjustmentOf("dd/MM/yyyy", "M/d/yyyy");
    const auto numbers = Make<Dictionary>();
    for (const int place : {1, 2, 3}) numbers->Add(place, "2|1|dd");
    DateAdjustment of_file = plain;
    of_file.file_parts = numbers;
    EXPECT_EQ(NumberOf([&] { of_file.Adjusted("31/12/2008"); }), failure::kTypeMismatch);
    DateAdjustment of_system = plain;
    of_system.system_parts = numbers;
    EXPECT_EQ(NumberOf([&] { of_system.Adjusted("31/12/2008"); }), failure::kTypeMismatch);
}

}  // namespace
}  // namespace mrlxmlclass
