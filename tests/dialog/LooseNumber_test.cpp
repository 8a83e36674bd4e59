#include "mrlxmlclass/dialog/LooseNumber.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {
namespace {

TEST(LooseNumber, ReadsWhatATextBeginsWith) {
    struct Row {
        const char* text;
        double number;
    };
    for (const Row& row : {Row{"12", 12}, Row{"12 wks", 12}, Row{" 1 2.5x", 12.5}, Row{"-3", -3}, Row{"+4", 4},
                           Row{".5", 0.5}, Row{"1,5", 1}, Row{"2e3", 2000}, Row{"", 0}, Row{"x1", 0}, Row{"-", 0},
                           Row{"inf", 0}, Row{"-inf", 0}, Row{"nan", 0}, Row{"+-4", 0}}) {
        EXPECT_EQ(LooseNumber(row.text), row.number) << row.text;
    }
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(LooseNumber("1e999"), kEndless);
    EXPECT_EQ(LooseNumber("-1e999"), -kEndless);
    EXPECT_EQ(LooseNumber("1e-999"), 0);
    EXPECT_EQ(LooseNumber("1E-999"), 0);
    for (const char* endless : {"1e+400", "0.01e+311", "0.01E+311", ".5e+400 pieces"}) {
        EXPECT_EQ(LooseNumber(endless), kEndless) << endless;
    }
    const String zeros(400, '0');
    EXPECT_EQ(LooseNumber("0." + zeros + "1"), 0);
    EXPECT_EQ(LooseNumber("1" + zeros + "e-5"), kEndless);
    EXPECT_EQ(LooseNumber("-1" + zeros + "E-5 pieces"), -kEndless);
}

TEST(FormatWhole, GivesThreeDigitsAtLeast) {
    TestSession session;
    struct Row {
        const char* text;
        const char* formatted;
    };
    for (const Row& row : {Row{"5", "005"}, Row{"25", "025"}, Row{"1234", "1234"}, Row{"2.5", "003"}, Row{"0.4", "000"},
                           Row{"-5", "-5"}, Row{"-0.2", "-0.2"}, Row{"-0", "-0"}, Row{"1e400", "1e400"},
                           Row{"1e-400", "000"}, Row{"12x", "12x"}, Row{"", ""}, Row{"abc", "abc"}}) {
        EXPECT_EQ(FormatWhole(row.text), row.formatted) << row.text;
    }
    EXPECT_EQ(FormatWhole("1e300").size(), 301);
}

TEST(FormatWhole, ReadsTheNumberOfTheLocale) {
    TestSession session;
    session.locale.Use("d.M.yyyy", ",", ".");
    EXPECT_EQ(FormatWhole("1.234,5"), "1235");
    EXPECT_EQ(FormatWhole("12,4"), "012");
}

TEST(IsNumeric, TakesASignAndWhatTheLocaleReads) {
    TestSession session;
    for (const char* text : {"0", "-2", "+3", " 4 ", "1.5"}) EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", "-", "--3", "x", "3x"}) EXPECT_FALSE(IsNumeric(text)) << text;
}

}  // namespace
}  // namespace mrlxmlclass::testing
