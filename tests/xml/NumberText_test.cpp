#include "mrlxmlclass/xml/NumberText.h"

#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass {
namespace {

const LocaleSettings kPoint{"M/d/yyyy", ".", ","};
const LocaleSettings kComma{"dd.MM.yyyy", ",", "."};
const LocaleSettings kNarrowBlank{"dd/MM/yyyy", ",", "\u202F"};

TEST(PlainNumber, ReadsWhatAPersonWritesUnderALocale) {
    struct Row {
        const char* text;
        const LocaleSettings& locale;
        const char* plain;
    };
    for (const Row& row : {
             Row{"12", kPoint, "12"},
             Row{"  12 ", kPoint, "12"},
             Row{"-12", kPoint, "-12"},
             Row{"+12", kPoint, "12"},
             Row{"1.5", kPoint, "1.5"},
             Row{".5", kPoint, "0.5"},
             Row{"-.5", kPoint, "-0.5"},
             Row{"5.", kPoint, "5"},
             Row{"1,234,567.5", kPoint, "1234567.5"},
             Row{"1e3", kPoint, "1e3"},
             Row{"1.5E+3", kPoint, "1.5e3"},
             Row{"1.5E-3", kPoint, "1.5e-3"},
             Row{"1,5", kComma, "1.5"},
             Row{"1.234,5", kComma, "1234.5"},
             Row{"1\u202F234,5", kNarrowBlank, "1234.5"},
             Row{"1\u202F234\u202F567", kNarrowBlank, "1234567"},
         }) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(PlainNumber(row.text, row.locale), row.plain);
    }
}

TEST(PlainNumber, KeepsGroupSeparatorsUncheckedSoThatAForeignDecimalPointIsLost) {
    EXPECT_EQ(PlainNumber("2.5", kComma), "25");
    EXPECT_EQ(PlainNumber("1,2,3", kPoint), "123");
}

TEST(PlainNumber, RefusesWhatIsNoNumber) {
    for (const char* text : {"",    " ",   "-",   "+",   ".",   "-.",  "e5",   "1e", "1e+", "1.5.2", "1 2",
                             "12a", "a12", "--1", "- 1", "inf", "nan", "0x10", "1,", ",1",  "1,.5"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(PlainNumber(text, kPoint), std::nullopt);
    }
}

TEST(PlainNumber, KnowsNoGroupsWhereTheLocaleHasNone) {
    EXPECT_EQ(PlainNumber("1,000", LocaleSettings{"M/d/yyyy", ".", ""}), std::nullopt);
}

TEST(PlainToDouble, GivesTheValue) {
    EXPECT_EQ(PlainToDouble("1234.5"), 1234.5);
    EXPECT_EQ(PlainToDouble("-1.5e-3"), -0.0015);
    EXPECT_EQ(PlainToDouble("0"), 0);
}

TEST(PlainToDouble, FailsWhenTheNumberIsTooLarge) {
    for (const String& text : {String("1e309"), String("-1e309"), "1" + String(400, '0') + "e-5",
                               String("1e99999999999999"), "0.001e" + String("400")}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberOf([&] { PlainToDouble(text); }), failure::kOverflow);
    }
}

TEST(PlainToDouble, GivesZeroWhenTheNumberIsTooSmall) {
    for (const String& text : {String("1e-400"), "0." + String(400, '0') + "1", "0." + String(400, '0') + "1e5",
                               String("123456e-9999999999999")}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(PlainToDouble(text), 0);
    }
}

TEST(PlainToCurrency, IsExactOverTheWholeRange) {
    for (const char* text :
         {"922337203685477.5807", "-922337203685477.5808", "90071992547409.9301", "0.0001", "-0.0001", "-12", "12.3"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(CurrencyText(PlainToCurrency(text), "."), text);
    }
}

TEST(PlainToCurrency, RoundsTheFifthDecimalHalfToEven) {
    struct Row {
        const char* plain;
        const char* amount;
    };
    for (const Row& row : {Row{"0.00005", "0"}, Row{"0.00015", "0.0002"}, Row{"0.00025", "0.0002"},
                           Row{"0.000251", "0.0003"}, Row{"-0.00015", "-0.0002"}, Row{"-0.00005", "0"},
                           Row{"0.99999", "1"}, Row{"0.00004999", "0"}, Row{"1.5e-3", "0.0015"}}) {
        SCOPED_TRACE(row.plain);
        EXPECT_EQ(CurrencyText(PlainToCurrency(row.plain), "."), row.amount);
    }
}

TEST(PlainToCurrency, FailsOutOfRange) {
    for (const char* text :
         {"922337203685477.5808", "-922337203685477.5809", "922337203685477.58075", "9999999999999999999999", "1e20"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberOf([&] { PlainToCurrency(text); }), failure::kOverflow);
    }
}

TEST(DoubleText, IsAsShortAsFifteenDigitsAllow) {
    struct Row {
        double value;
        const char* text;
    };
    for (const Row& row :
         {Row{0, "0"}, Row{-0.0, "0"}, Row{1.5, "1.5"}, Row{0.1, "0.1"}, Row{1.0 / 3, "0.333333333333333"},
          Row{0.1 + 0.2, "0.3"}, Row{-2, "-2"}, Row{1234567.25, "1234567.25"}, Row{1e15, "1E+15"}, Row{1e300, "1E+300"},
          Row{1e-7, "1E-07"}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DoubleText(row.value, "."), row.text);
    }
}

TEST(DoubleText, UsesTheDecimalSeparatorAndNoGroups) {
    EXPECT_EQ(DoubleText(1234567.25, ","), "1234567,25");
    EXPECT_EQ(DoubleText(1.5e-10, ","), "1,5E-10");
}

TEST(DoubleText, FailsOnWhatIsNoNumber) {
    EXPECT_EQ(NumberOf([] { DoubleText(HUGE_VAL, "."); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { DoubleText(std::nan(""), "."); }), failure::kOverflow);
}

TEST(DoubleText, ComesBackAsTheSameNumber) {
    for (const LocaleSettings& locale : {kPoint, kComma, kNarrowBlank}) {
        for (const double value : {0.0, 1.5, -2.25, 1e15, 1.23456789e-9, 999.0, 1e300}) {
            const String text = DoubleText(value, locale.decimal);
            SCOPED_TRACE(text);
            EXPECT_EQ(PlainToDouble(PlainNumber(text, locale).value_or("")), value);
        }
    }
}

TEST(CurrencyText, CutsTrailingZerosOffTheFourDecimals) {
    struct Row {
        std::int64_t ten_thousandths;
        const char* text;
    };
    for (const Row& row :
         {Row{0, "0"}, Row{12'0000, "12"}, Row{12'5000, "12,5"}, Row{12'0500, "12,05"}, Row{-1, "-0,0001"},
          Row{-12'3400, "-12,34"}, Row{INT64_MIN, "-922337203685477,5808"}, Row{INT64_MAX, "922337203685477,5807"}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(CurrencyText(Currency::OfTenThousandths(row.ten_thousandths), ","), row.text);
    }
}

}  // namespace
}  // namespace mrlxmlclass
