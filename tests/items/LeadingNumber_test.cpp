#include "mrlxmlclass/items/LeadingNumber.h"

#include "tests/support/NumberOf.h"
#include "tests/support/Printing.h"

namespace mrlxmlclass::testing {
namespace {

TEST(LeadingNumber, IsWhatTheLeadingDigitsSay) {
    struct Row {
        const char* text;
        int number;
    };
    for (const Row& row : {Row{"7", 7}, Row{"7x", 7}, Row{"07", 7}, Row{" 7 8", 7}, Row{"7.9", 7}, Row{"-3", -3},
                           Row{"+3x", 3}, Row{"2147483647", 2147483647}, Row{"x", 0}, Row{"x7", 0}, Row{"", 0},
                           Row{" ", 0}, Row{"+-3", 0}, Row{"-", 0}, Row{"0", 0}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(LeadingNumber(row.text), row.number);
        EXPECT_EQ(LeadsWithNothing(row.text), row.number == 0);
    }
}

TEST(LeadingNumber, BeyondALongFails) {
    EXPECT_EQ(NumberOf([] { (void)LeadingNumber("2147483648x"); }), 6);
    EXPECT_FALSE(LeadsWithNothing("2147483648x"));
}

}  // namespace
}  // namespace mrlxmlclass::testing
