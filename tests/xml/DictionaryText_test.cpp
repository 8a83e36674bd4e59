#include "mrlxmlclass/xml/DictionaryText.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using Conversions::CreateSucessorString;
using Conversions::DictionaryToString;
using testing::TestSession;

/// What a load hands down for a file of another date format.
DateAdjustment From(const String& file_format) {
    DateAdjustment dates{True, file_format, Gloabal::GetSystemDateFormat(), {}, {}, {}};
    Gloabal::SetALLFormat(dates.file_format, dates.system_format, dates.system_parts, dates.file_parts,
                          dates.separator);
    return dates;
}

TEST(DictionaryAsText, IsKeyAndItemOfEachEntryInItsOrder) {
    TestSession session;
    const auto week = Make<Dictionary>();
    EXPECT_EQ(CreateSucessorString(week), "");
    week->Add("7", "7");
    EXPECT_EQ(CreateSucessorString(week), "7:7");
    week->Add("1", "1");
    EXPECT_EQ(CreateSucessorString(week), "7:7;1:1");
}

TEST(DictionaryAsText, WritesTheDaysAndNumbersThatAHostFiledItself) {
    TestSession session;
    const auto days = Make<Dictionary>();
    days->Add(Date::Of(2026, 1, 1), Date::Of(2026, 1, 1));
    days->Add(7, 7);
    EXPECT_EQ(CreateSucessorString(days), "1/1/2026:1/1/2026;7:7");
}

TEST(DictionaryFromText, FilesEachEntryUnderItsText) {
    TestSession session;
    const Ref<Dictionary> week = DictionaryToString("7:7;1:1");
    EXPECT_EQ(week->Count(), 2);
    EXPECT_EQ(week->Exists("7"), True);
    EXPECT_EQ(week->Exists(7), False);
    EXPECT_EQ(CreateSucessorString(week), "7:7;1:1");
}

TEST(DictionaryFromText, IsEmptyForTheEmptyText) {
    TestSession session;
    EXPECT_EQ(DictionaryToString("")->Count(), 0);
    EXPECT_EQ(DictionaryToString("", DateAdjustment())->Count(), 0);
}

TEST(DictionaryFromText, FailsOnAnEntryWithoutAColonAndOnAKeyThatComesTwice) {
    TestSession session;
    EXPECT_EQ(NumberOf([] { DictionaryToString("7:7;1"); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([] { DictionaryToString("7:7;"); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([] { DictionaryToString("7:7;1:1;7:7"); }), failure::kDuplicateKey);
}

TEST(DictionaryFromText, BringsDaysIntoTheFormInWhichTheyAreLookedUp) {
    TestSession session;
    session.locale.Use("dd/MM/yyyy");
    const Ref<Dictionary> days = DictionaryToString("1/2/2006:1/2/2006;25/12/2005:25/12/2005", DateAdjustment());
    EXPECT_EQ(CreateSucessorString(days), "01/02/2006:01/02/2006;25/12/2005:25/12/2005");
}

TEST(DictionaryFromText, BringsDaysFromTheFilesFormatToTheSystems) {
    TestSession session;
    session.locale.Use("M/d/yyyy");
    const Ref<Dictionary> days = DictionaryToString("01.02.2006:01.02.2006;25.12.2005:25.12.2005", From("dd.MM.yyyy"));
    EXPECT_EQ(CreateSucessorString(days), "2/1/2006:2/1/2006;12/25/2005:12/25/2005");
    EXPECT_EQ(days->Exists(Conversions::DateToString(Date::Of(2006, 2, 1))), True);
}

TEST(DictionaryFromText, FailsOnADayThatIsNone) {
    TestSession session;
    EXPECT_EQ(NumberOf([] { DictionaryToString("never:never", DateAdjustment()); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { DictionaryToString("2/30/2006:2/30/2006", DateAdjustment()); }), failure::kTypeMismatch);
}

TEST(DictionaryFromText, FailsWhenTwoSpellingsAreOneDay) {
    TestSession session;
    EXPECT_EQ(NumberOf([] { DictionaryToString("1/2/2006:x;01/02/2006:x", DateAdjustment()); }), failure::kTypeMismatch)
        << "the item is no day either";
    EXPECT_EQ(NumberOf([] { DictionaryToString("1/2/2006:1/2/2006;01/02/2006:1/2/2006", DateAdjustment()); }),
              failure::kDuplicateKey);
}

TEST(DictionaryAsText, FailsOnAnItemThatIsNoText) {
    TestSession session;
    const auto odd = Make<Dictionary>();
    odd->Add("1", Make<Dictionary>());
    EXPECT_EQ(NumberOf([&] { CreateSucessorString(odd); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { CreateSucessorString(Ref<Dictionary>()); }), failure::kNothing);
}

TEST(DictionaryFromText, DropsWhatFollowsASecondColon) {
    TestSession session;
    EXPECT_EQ(CreateSucessorString(DictionaryToString("7:8:9;1:1")), "7:8;1:1");
}

TEST(DictionaryFromText, TakesAnEmptySideButNoEmptyEntry) {
    TestSession session;
    EXPECT_EQ(CreateSucessorString(DictionaryToString("a:b;:")), "a:b;:");
    EXPECT_EQ(NumberOf([] { DictionaryToString("7:7;;1:1"); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([] { DictionaryToString(";"); }), failure::kIndexOutOfRange);
}

TEST(DictionaryAsText, WritesADayThatCameWithATimeAsThatDay) {
    TestSession session;
    const auto days = Make<Dictionary>();
    days->Add(Date(Date::Of(2026, 1, 1).days() + 0.5), Date(Date::Of(2026, 1, 2).days() + 0.25));
    EXPECT_EQ(CreateSucessorString(days), "1/1/2026:1/2/2026");
    EXPECT_EQ(CreateSucessorString(DictionaryToString(CreateSucessorString(days), DateAdjustment())),
              "1/1/2026:1/2/2026");
}

TEST(DictionaryAsText, WritesEveryKindThatHasAText) {
    TestSession session;
    const auto odd = Make<Dictionary>();
    odd->Add("1", True);
    odd->Add("2", 1.5);
    odd->Add("3", Currency(2));
    odd->Add("4", Variant());
    odd->Add(2.5, "x");
    EXPECT_EQ(CreateSucessorString(odd), "1:True;2:1.5;3:2;4:;2.5:x");
}

}  // namespace
}  // namespace mrlxmlclass
