#include "mrlxmlclass/scheduling/RowText.h"

#include <gtest/gtest.h>

#include "tests/support/Printing.h"

namespace mrlxmlclass {
namespace {

TEST(isInteger, TakesDigitsCommasAndABlankBehindAComma) {
    struct Row {
        const char* text;
        Boolean is;
    };
    for (const Row& row : {
             Row{"", True},
             Row{"0", True},
             Row{"3,7", True},
             Row{"3, 7", True},
             Row{"3, 7, 12", True},
             Row{",", True},
             Row{",,", True},
             Row{", ", True},
             Row{",3", True},
             Row{"3,", True},
             Row{"3,7 8", True},  // the blank's latest character that is no digit is the comma
             Row{"007", True},
             Row{"99999999999999999999", True},
             Row{" ", False},
             Row{" 3", False},
             Row{"3 ", False},
             Row{"3 7", False},
             Row{"3 ,7", False},
             Row{"3,  7", False},
             Row{"3, 7 8", False},  // here it is the blank before the 7
             Row{"3;7", False},
             Row{"3.5", False},
             Row{"-3", False},
             Row{"+3", False},
             Row{"3,x", False},
             Row{"1e3", False},
             Row{"3,\t7", False},
             Row{"3\n", False},
             Row{"\xD9\xA3", False},  // an Arabic three
             Row{"3,\xC2\xA0"
                 "7",
                 False},  // a blank that does not break
         }) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Gloabal::isInteger(row.text), row.is);
    }
}

TEST(isNegative, AsksForALeadingSignAlone) {
    for (const char* text : {"-1", "-", "--", "-x"}) EXPECT_EQ(Gloabal::isNegative(text), True) << text;
    for (const char* text : {"", "1", " -1", "1-", "+"}) EXPECT_EQ(Gloabal::isNegative(text), False) << text;
}

TEST(isInteger, SeesBehindANullCharacter) {
    EXPECT_EQ(Gloabal::isInteger(String("3\0x", 3)), False);
}

TEST(isNumber, TakesDigitsWithOneCommaOrPoint) {
    struct Row {
        const char* text;
        Boolean is;
        const char* trimmed;
    };
    for (const Row& row : {
             Row{"5", True, "5"},
             Row{"3.5", True, "3.5"},
             Row{"3,5", True, "3,5"},
             Row{".5", True, ".5"},
             Row{"5,", True, "5,"},
             Row{"007", True, "007"},
             Row{"99999999999999999999", True, "99999999999999999999"},
             Row{"  5 ", True, "5"},
             Row{"", False, ""},
             Row{"   ", False, ""},
             Row{".", False, "."},
             Row{",", False, ","},
             Row{"1.2.3", False, "1.2.3"},
             Row{"1,2.3", False, "1,2.3"},
             Row{"1,2,3", False, "1,2,3"},
             Row{"-5", False, "-5"},
             Row{"+5", False, "+5"},
             Row{" 1 2 ", False, "1 2"},
             Row{"5a", False, "5a"},
             Row{" x", False, "x"},
             Row{"1e3", False, "1e3"},
             Row{"\t5", False, "\t5"},
             Row{"\xD9\xA3", False, "\xD9\xA3"},
         }) {
        SCOPED_TRACE(row.text);
        String text = row.text;
        EXPECT_EQ(Gloabal::isNumber(text), row.is);
        EXPECT_EQ(text, row.trimmed) << "trimmed for the caller";
    }
}

TEST(isNumber, TakesAValueThatNobodyHears) {
    EXPECT_EQ(Gloabal::isNumber(" 5 "), True);
    EXPECT_EQ(Gloabal::isNumber({}), False);
}

}  // namespace
}  // namespace mrlxmlclass
