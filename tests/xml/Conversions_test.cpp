#include "mrlxmlclass/xml/Conversions.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/xml/DateText.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace Conversions;
using testing::TestSession;

Ref<dom::Document> Parsed(std::string_view xml) {
    auto document = Make<dom::Document>();
    EXPECT_TRUE(document->LoadXML(xml)) << document->error_text();
    return document;
}

String KeysOf(const Ref<Collection>& col) {
    String text;
    for (const auto& entry : col->Snapshot()) text += entry.key.text() + "=" + *entry.item.If<String>() + " ";
    return text;
}

TEST(StringToBoolean, ReadsBothWordsInAnyLetterCase) {
    for (const char* text : {"true", "TRUE", "True", "tRuE"}) EXPECT_EQ(StringToBoolean(text), True) << text;
    for (const char* text : {"false", "FALSE", "False"}) EXPECT_EQ(StringToBoolean(text), False) << text;
}

TEST(StringToBoolean, RefusesAnythingElseAndSaysWhatItWas) {
    for (const char* text : {" true", "true ", "1", "-1", "0", "", "yes"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberOf([&] { StringToBoolean(text); }), failure::kDeliberate);
    }
    try {
        StringToBoolean(" true");
        FAIL();
    } catch (const Failure& failed) {
        EXPECT_EQ(failed.description(),
                  "A Boolean Value read from an XML document was invalid [ true] valid values are true & false");
    }
}

TEST(BooleanToString, KeepsWritingFalseForATrueThatIsNotFull) {
    EXPECT_EQ(BooleanToString(True), "true");
    EXPECT_EQ(BooleanToString(False), "false");
    EXPECT_EQ(BooleanToString(Boolean::Raw(1)), "false");
}

TEST(StringToInteger, RoundsHalfToEvenAndStaysIn16Bits) {
    TestSession session;
    EXPECT_EQ(StringToInteger("2.5"), 2);
    EXPECT_EQ(StringToInteger("3.5"), 4);
    EXPECT_EQ(StringToInteger(" -2.5 "), -2);
    EXPECT_EQ(StringToInteger("32767.4"), 32767);
    EXPECT_EQ(StringToInteger("-32768"), -32768);
    EXPECT_EQ(NumberOf([] { StringToInteger("32767.5"); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { StringToInteger("-32769"); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { StringToInteger(""); }), failure::kTypeMismatch);
    EXPECT_EQ(NumberOf([] { StringToInteger("twelve"); }), failure::kTypeMismatch);
}

TEST(StringToLong, RoundsHalfToEvenAndStaysIn32Bits) {
    TestSession session;
    EXPECT_EQ(StringToLong("0.5"), 0);
    EXPECT_EQ(StringToLong("1.5"), 2);
    EXPECT_EQ(StringToLong("1e3"), 1000);
    EXPECT_EQ(StringToLong("2147483647"), 2147483647);
    EXPECT_EQ(StringToLong("-2147483648"), INT32_MIN);
    EXPECT_EQ(NumberOf([] { StringToLong("2147483648"); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { StringToLong("1e400"); }), failure::kOverflow);
    EXPECT_EQ(NumberOf([] { StringToLong("-"); }), failure::kTypeMismatch);
}

TEST(StringToDouble, FollowsTheLocale) {
    TestSession session;
    EXPECT_EQ(StringToDouble("2.5"), 2.5);
    session.locale.Use("dd.MM.yyyy", ",", ".");
    EXPECT_EQ(StringToDouble("2,5"), 2.5);
    EXPECT_EQ(StringToDouble("1.234,5"), 1234.5);
}

TEST(StringToDouble, KeepsReadingANumberOfAnotherLocaleWrongly) {
    TestSession session;
    session.locale.Use("dd.MM.yyyy", ",", ".");
    EXPECT_EQ(StringToDouble("2.5"), 25);
}

TEST(StringToCurrency, FollowsTheLocale) {
    TestSession session;
    session.locale.Use("dd.MM.yyyy", ",", ".");
    EXPECT_EQ(StringToCurrency("1.234,5678").ten_thousandths(), 12345678);
    EXPECT_EQ(NumberOf([] { StringToCurrency("free"); }), failure::kTypeMismatch);
}

TEST(NumbersAsText, AreWrittenWithTheLocalesSeparatorAndWithoutGroups) {
    TestSession session;
    session.locale.Use("dd.MM.yyyy", ",", ".");
    EXPECT_EQ(IntegerToString(-1234), "-1234");
    EXPECT_EQ(LongToString(1234567), "1234567");
    EXPECT_EQ(DoubleToString(1234.5), "1234,5");
    EXPECT_EQ(CurrencyToString(Currency(1234.5)), "1234,5");
    session.locale.Use("M/d/yyyy", ".", ",");
    EXPECT_EQ(DoubleToString(1234.5), "1234.5");
    EXPECT_EQ(CurrencyToString(Currency(1234.5)), "1234.5");
}

TEST(DateToString, WritesTheShortDateAndATime) {
    TestSession session;
    EXPECT_EQ(DateToString(Date::Of(2026, 3, 2)), "3/2/2026");
    EXPECT_EQ(DateToString(Date(Date::Of(2026, 3, 2).days() + 0.5)), "3/2/2026 12:00:00");
    session.locale.Use("d. M. yyyy");
    EXPECT_EQ(DateToString(Date::Of(2026, 3, 2)), "2.3.2026");
}

TEST(DateToString, UsesAPatternThatIsTooLongToBeNamedInAFile) {
    TestSession session;
    session.locale.Use("dd/MM/yyyyyyyyyyyy");
    ASSERT_EQ(Gloabal::GetSystemDateFormat(), "");
    EXPECT_EQ(DateToString(Date::Of(2026, 3, 2)), "02/03/2026");
}

TEST(StringToDate, ReadsByTheLocaleWhileNoFileFormatIsKnown) {
    TestSession session;
    session.locale.Use("dd/MM/yyyy");
    EXPECT_EQ(StringToDate("02/03/2026"), Date::Of(2026, 3, 2));
    EXPECT_EQ(StringToDate("02.03.2026 12:00"), Date(Date::Of(2026, 3, 2).days() + 0.5));
    EXPECT_EQ(NumberOf([] { StringToDate(""); }), failure::kTypeMismatch);
}

TEST(StringToDate, ReplacesTheFilesSeparatorByTheSystemsFirst) {
    TestSession session;
    Module().g_FileDateSeparator = "_";
    Module().g_SystemDateSeparator = "/";
    EXPECT_EQ(StringToDate("3_2_2026"), Date::Of(2026, 3, 2));
    EXPECT_EQ(StringToDate("3/2/2026"), Date::Of(2026, 3, 2));
}

TEST(StringToDate, TakesBackTheDateThatIsNotSet) {
    TestSession session;
    for (const char* pattern : {"M/d/yyyy", "dd/MM/yyyy", "yyyy-MM-dd"}) {
        session.locale.Use(pattern);
        EXPECT_EQ(StringToDate(DateToString(Date())), Date()) << pattern;
    }
}

TEST(FindFirstSliblingElement, StartsAtTheNodeItselfAndPassesWhatIsNoElement) {
    const auto document = Parsed("<a><!-- c --><?i x?><b/>text<d/></a>");
    const dom::Node b = FindFirstSliblingElement(document->documentElement().firstChild());
    EXPECT_EQ(b.baseName(), "b");
    EXPECT_EQ(FindFirstSliblingElement(b), b);
    EXPECT_FALSE(FindFirstSliblingElement({}));
    EXPECT_FALSE(FindFirstSliblingElement(Parsed("<a><!-- c --></a>")->documentElement().firstChild()));
}

TEST(MoveNextSiblingElement, PassesCommentsAndTexts) {
    const auto document = Parsed("<a><b/> <!-- c -->text<![CDATA[x]]><d/></a>");
    const dom::Node b = document->documentElement().firstChild();
    const dom::Node d = MoveNextSiblingElement(b);
    EXPECT_EQ(d.baseName(), "d");
    EXPECT_FALSE(MoveNextSiblingElement(d));
    EXPECT_FALSE(MoveNextSiblingElement({}));
}

TEST(CreateParentNode, GivesTheRootForTheProject) {
    const auto document = Parsed("<Any/>");
    EXPECT_EQ(CreateParentNode(document, "Project"), document->documentElement());
}

TEST(CreateParentNode, KeepsAddingAnElementThatIsThereAlready) {
    const auto document = Parsed("<Project/>");
    const dom::Node first = CreateParentNode(document, "Tasks");
    const dom::Node second = CreateParentNode(document, "Tasks");
    EXPECT_FALSE(first == second);
    EXPECT_EQ(document->documentElement().childCount(), 2);
}

TEST(CreateParentNode, GivesNothingWithoutARoot) {
    EXPECT_FALSE(CreateParentNode(Make<dom::Document>(), "Tasks"));
    EXPECT_FALSE(CreateParentNode(Make<dom::Document>(), "Project"));
}

TEST(CreateSucessorString, JoinsTheItemsInTheirOrder) {
    const auto col = Make<Collection>();
    EXPECT_EQ(CreateSucessorString(col), "");
    FillSuccessor("12;3;15", col);
    EXPECT_EQ(CreateSucessorString(col), "12;3;15");
    EXPECT_EQ(CreatePredecessorString(col), "12;3;15");
    EXPECT_EQ(CreateLeadTimeAsString(col), "12;3;15");
}

TEST(CreateSucessorString, FailsForNothingWhereLeadTimesAreEmpty) {
    EXPECT_EQ(NumberOf([] { CreateSucessorString(Ref<Collection>()); }), failure::kNothing);
    EXPECT_EQ(NumberOf([] { CreatePredecessorString({}); }), failure::kNothing);
    EXPECT_EQ(CreateLeadTimeAsString({}), "");
}

TEST(FillPredecessor, FilesEachPieceUnderItself) {
    const auto col = Make<Collection>();
    FillPredecessor("12;3", col);
    EXPECT_EQ(KeysOf(col), "12=12 3=3 ");
}

TEST(FillPredecessor, FailsOnAPieceThatIsThereAlready) {
    const auto col = Make<Collection>();
    EXPECT_EQ(NumberOf([&] { FillPredecessor("12;3;12", col); }), failure::kDuplicateKey);
    EXPECT_EQ(NumberOf([&] { FillSuccessor("3", col); }), failure::kDuplicateKey);
}

TEST(FillLeadTime, FilesThePieceUnderItsPartBeforeTheBar) {
    const auto col = Make<Collection>();
    FillLeadTime("12|2;3|-1|x;7", col);
    EXPECT_EQ(KeysOf(col), "12=12|2 3=3|-1|x 7=7 ");
    EXPECT_EQ(NumberOf([&] { FillLeadTime("12|5", col); }), failure::kDuplicateKey);
}

TEST(isCurrency, TakesDigitsPointsAndCommasWithADigitLast) {
    for (const char* text : {"1", "1.5", "1,234.50", ".5", "1..5", ",,1"}) EXPECT_EQ(isCurrency(text), True) << text;
    for (const char* text : {"", ".", "1.", "1,", "-1", "1 ", "1e5", "x"}) EXPECT_EQ(isCurrency(text), False) << text;
}

}  // namespace
}  // namespace mrlxmlclass
