#include "mrlxmlclass/scheduling/Units.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using Gloabal::SetTaskUnit;
using Gloabal::unitvalid;
using testing::TestSession;

TEST(UnitNamed, KnowsFiveUnitsToTheLetter) {
    struct Row {
        const char* name;
        const char* letter;
        Interval interval;
        bool plain;
    };
    for (const Row& row : {Row{"days", "d", Interval::Days, false}, Row{"wks", "ww", Interval::Weeks, true},
                           Row{"mons", "m", Interval::Months, true}, Row{"hrs", "h", Interval::Hours, false},
                           Row{"mins", "n", Interval::Minutes, false}}) {
        const DurationUnit* unit = UnitNamed(row.name);
        ASSERT_NE(unit, nullptr) << row.name;
        EXPECT_EQ(unit->name, row.name);
        EXPECT_EQ(unit->letter, row.letter) << row.name;
        EXPECT_EQ(unit->interval, row.interval) << row.name;
        EXPECT_EQ(unit->plain, row.plain) << row.name;
    }
    for (const char* text : {"", "day", "Days", "DAYS", "days ", "hours", "d"}) {
        EXPECT_EQ(UnitNamed(text), nullptr) << text;
    }
}

TEST(Unitvalid, MapsLooseTextByItsFirstLetters) {
    struct Row {
        const char* text;
        const char* unit;
    };
    for (const Row& row : {Row{"hours", "hrs"}, Row{"h", "hrs"}, Row{"d", "days"}, Row{"dozen", "days"},
                           Row{"weeks", "wks"}, Row{"mi", "mins"}, Row{"minutes", "mins"}, Row{"m", "mons"},
                           Row{"months", "mons"}, Row{"mI", "mons"}, Row{"m i", "mons"}}) {
        EXPECT_EQ(unitvalid(row.text), row.unit) << row.text;
    }
}

TEST(Unitvalid, TakesAnythingElseForDaysAndTellsLetterCase) {
    for (const char* text : {"", "H", "Weeks", "Mins", "x", " h", "1h", "\xC3\xA9"}) {
        EXPECT_EQ(unitvalid(text), "days") << text;
    }
}

struct Entry {
    const char* typed;
    double value;
    const char* text;  // what the entry is afterwards
    const char* unit;
};

void ExpectSplit(const Entry& row) {
    SCOPED_TRACE(row.typed);
    String text = row.typed;
    Double value = -1;
    EXPECT_EQ(SetTaskUnit(text, value), row.unit);
    EXPECT_EQ(value, row.value);
    EXPECT_EQ(text, row.text);
}

TEST(SetTaskUnit, PartsNumberAndUnitAtTheFirstBlank) {
    TestSession session;
    for (const Entry& row :
         {Entry{"3 days", 3, "days", "days"}, Entry{"12 wks", 12, "wks", "wks"}, Entry{"2 mi", 2, "mi", "mins"},
          Entry{"2 m", 2, "m", "mons"}, Entry{"1.5 d", 1.5, "d", "days"}, Entry{"-2 h", -2, "h", "hrs"},
          Entry{"3 d ays", 3, "d ays", "days"}, Entry{"4 ", 4, "", ""}}) {
        ExpectSplit(row);
    }
}

TEST(SetTaskUnit, TakesLeadingDigitsWhereThereIsNoBlank) {
    TestSession session;
    for (const Entry& row :
         {Entry{"3d", 3, "d", "days"}, Entry{"12wks", 12, "wks", "wks"}, Entry{"007h", 7, "h", "hrs"},
          Entry{"10mins", 10, "mins", "mins"}, Entry{"4", 4, "", ""}}) {
        ExpectSplit(row);
    }
}

TEST(SetTaskUnit, StopsAtAPointWhereThereIsNoBlank) {
    TestSession session;
    ExpectSplit({"1.5d", 1, ".5d", ""});
}

TEST(SetTaskUnit, LeavesTheNumberAloneWhereThereIsNone) {
    TestSession session;
    ExpectSplit({"days", -1, "days", "days"});
    ExpectSplit({"", -1, "", ""});
}

TEST(SetTaskUnit, KeepsAUnitTextThatNoLetterMatchesBehindABlankAlone) {
    TestSession session;
    ExpectSplit({"5 Years", 5, "Years", "Years"});
    ExpectSplit({"5Years", 5, "Years", ""});
}

TEST(SetTaskUnit, ReadsTheNumberInTheLocalesForm) {
    TestSession session;
    session.locale.Use("dd.MM.yyyy", ",");
    ExpectSplit({"1,5 d", 1.5, "d", "days"});
}

TEST(SetTaskUnit, RecordsANumberThatIsNone) {
    TestSession session;
    ExpectSplit({" 3d", -1, " 3d", ""});
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetTaskUnit 13\n");
    ExpectSplit({"three days", -1, "three days", ""});
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetTaskUnit 13\n");
    ExpectSplit({(String(400, '9') + "d").c_str(), -1, (String(400, '9') + "d").c_str(), ""});
    EXPECT_EQ(session.failures.Taken(), "Gloabal/SetTaskUnit 6\n");
}

}  // namespace
}  // namespace mrlxmlclass
