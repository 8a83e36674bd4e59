#include <gtest/gtest.h>

#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/xml/DictionaryText.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/CalendarSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// The three sets as texts, with bars between.
String Drawn(const Ref<CalendarCls>& calendar) {
    return Conversions::CreateSucessorString(calendar->NonWorkingDay()) + "|" +
           Conversions::CreateSucessorString(calendar->Holiday()) + "|" +
           Conversions::CreateSucessorString(calendar->ExceptionDay());
}

constexpr const char* kWhole =
    "<Calendar><CalendarKey>4</CalendarKey><NonWorkingDays>7:7;1:1</NonWorkingDays>"
    "<Holiday>12/25/2025:12/25/2025;1/1/2026:1/1/2026</Holiday><ExceptionDay>3/7/2026:3/7/2026</ExceptionDay>"
    "</Calendar>";

TEST(CalendarToXml, WritesFourElementsInTheirOrder) {
    CalendarSession session;
    session.calendar->CalendarKey(4);
    session.calendar->Monday(1);
    session.calendar->WorkStart(Date(0.25));
    session.calendar->SetADayAsHoliday(Date::Of(2025, 12, 25));
    session.calendar->SetADayAsHoliday(Date::Of(2026, 1, 1));
    session.calendar->SetADayAsExceptionDay(Saturday);
    EXPECT_EQ(session.calendar->ToXml(False), kWhole);
}

TEST(CalendarToXml, WritesAnEmptyTextForAnEmptySet) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    const auto again = Make<CalendarCls>();
    EXPECT_EQ(again->FromXml(calendar->ToXml()), True);
    EXPECT_EQ(Drawn(again), "||");
    EXPECT_NE(calendar->ToXml(False).find("Holiday"), String::npos) << "the element stands all the same";
}

TEST(CalendarFromXml, TakesEachElementThatStandsInItsPlace) {
    struct Row {
        const char* fields;
        const char* sets;
    };
    for (const Row& row :
         {Row{"", "||"}, Row{"<NonWorkingDays>2:2</NonWorkingDays>", "2:2||"},
          Row{"<Holiday>3/6/2026:3/6/2026</Holiday>", "|3/6/2026:3/6/2026|"},
          Row{"<ExceptionDay>3/6/2026:3/6/2026</ExceptionDay>", "||3/6/2026:3/6/2026"},
          Row{"<CalendarKey>1</CalendarKey><!-- none --><Holiday/><ExceptionDay>3/6/2026:3/6/2026</ExceptionDay>",
              "||3/6/2026:3/6/2026"},
          // What is out of order or unknown ends the reading of what follows.
          Row{"<Holiday>3/6/2026:3/6/2026</Holiday><NonWorkingDays>2:2</NonWorkingDays><ExceptionDay>3/7/2026:3/7/2026"
              "</ExceptionDay>",
              "|3/6/2026:3/6/2026|"},
          Row{"<New/><Holiday>3/6/2026:3/6/2026</Holiday>", "||"}}) {
        SCOPED_TRACE(row.fields);
        TestSession session;
        const auto calendar = Make<CalendarCls>();
        EXPECT_EQ(calendar->FromXml(String("<Calendar>") + row.fields + "</Calendar>"), True);
        EXPECT_EQ(Drawn(calendar), row.sets);
    }
}

TEST(CalendarFromXml, StartsFromAnEmptyCalendarAndTakesTheElementsName) {
    CalendarSession session;
    session.calendar->Monday(8);
    session.calendar->CalendarKey(3);
    const Ref<Dictionary> before = session.calendar->Holiday();
    EXPECT_EQ(session.calendar->FromXml("<Plan><ExceptionDay/></Plan>"), True);
    EXPECT_EQ(session.calendar->elementName(), "Plan");
    EXPECT_EQ(session.calendar->Monday(), 0);
    EXPECT_EQ(session.calendar->CalendarKey(), 0);
    EXPECT_EQ(Drawn(session.calendar), "||");
    EXPECT_FALSE(session.calendar->Holiday() == before) << "the sets are new";
}

TEST(CalendarFromXml, BringsDatesToTheFormInWhichTheyAreLookedUp) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    EXPECT_EQ(calendar->FromXml("<Calendar><Holiday>03/06/2026:03/06/2026</Holiday></Calendar>"), True);
    EXPECT_EQ(calendar->isHoliday(Friday), True);
    EXPECT_EQ(Drawn(calendar), "|3/6/2026:3/6/2026|");
}

TEST(CalendarFromXml, RecordsABadSetAndKeepsWhatCameBefore) {
    struct Row {
        const char* fields;
        const char* failure;
    };
    for (const Row& row : {Row{"<CalendarKey>9</CalendarKey><NonWorkingDays>7</NonWorkingDays>", "9"},
                           Row{"<CalendarKey>9</CalendarKey><NonWorkingDays>7:7;</NonWorkingDays>", "9"},
                           Row{"<CalendarKey>9</CalendarKey><NonWorkingDays>7:7;7:7</NonWorkingDays>", "457"},
                           Row{"<CalendarKey>9</CalendarKey><Holiday>soon:soon</Holiday>", "13"},
                           Row{"<CalendarKey>9</CalendarKey><Holiday>2/30/2026:2/30/2026</Holiday>", "13"}}) {
        SCOPED_TRACE(row.fields);
        TestSession session;
        const auto calendar = Make<CalendarCls>();
        EXPECT_EQ(calendar->FromXml(String("<Calendar>") + row.fields + "</Calendar>"), True);
        EXPECT_EQ(session.failures.Taken(), String("CalendarCls/FromXmlInt ") + row.failure + "\n");
        EXPECT_EQ(calendar->CalendarKey(), 9);
        EXPECT_EQ(Drawn(calendar), "||");
    }
}

TEST(CalendarFromXml, RecordsATextThatIsNoDocument) {
    TestSession session;
    EXPECT_EQ(Make<CalendarCls>()->FromXml("<Calendar>"), False);
    EXPECT_EQ(Make<CalendarCls>()->FromXml("<Calendar><CalendarKey/></Calendar>"), True);
    EXPECT_EQ(session.failures.Taken(), "CalendarCls/FromXml 91\nCalendarCls/FromXmlInt 13\n");
}

TEST(CalendarToXmlFile, ComesBackFromAFileOfItsOwn) {
    CalendarSession session;
    session.calendar->FromXml(kWhole);
    Ref<dom::Document> none;
    ASSERT_TRUE(session.calendar->ToXmlFile(session.Path("c.xml"), none, True, False, False, False, True));
    const auto calendar = Make<CalendarCls>();
    const Ref<dom::Document> document = calendar->FromXmlFile(session.Path("c.xml"), False, none);
    EXPECT_TRUE(document);
    EXPECT_EQ(document, none) << "the caller receives the document";
    EXPECT_EQ(document->documentElement().baseName(), "Calendar");
    EXPECT_EQ(Drawn(calendar), "7:7;1:1|12/25/2025:12/25/2025;1/1/2026:1/1/2026|3/7/2026:3/7/2026");
}

TEST(CalendarToXmlFile, AddsItsSectionToADocument) {
    CalendarSession session;
    const Ref<dom::Document> document = DocumentOfText("<Project><ProjectName/></Project>");
    EXPECT_EQ(session.calendar->ToXmlFile("", document, False), document);
    EXPECT_EQ(document->documentElement().childNodes(1).baseName(), "Calendar");
}

TEST(CalendarFromXmlFile, SetsTheWeekendOnTheCalendarAsItStandsWhereTheSectionIsMissing) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    calendar->SetADayAsHoliday(Friday);
    calendar->CalendarKey(3);
    Ref<dom::Document> document = DocumentOfText("<Project/>");
    EXPECT_EQ(calendar->FromXmlFile("", True, document), document);
    EXPECT_EQ(Drawn(calendar), "7:7;1:1|3/6/2026:3/6/2026|");
    EXPECT_EQ(calendar->CalendarKey(), 3);
}

TEST(CalendarFromXmlFile, LeavesAnEmptySectionWithoutAWeekend) {
    CalendarSession session;
    Ref<dom::Document> document = DocumentOfText("<Project><Calendar/></Project>");
    EXPECT_EQ(session.calendar->FromXmlFile("", True, document), document);
    EXPECT_EQ(Drawn(session.calendar), "||");
}

TEST(CalendarFromXmlFile, BringsTheFilesDatesToTheSystemsFormat) {
    TestSession session;
    Ref<Dictionary> system_parts;
    Ref<Dictionary> file_parts;
    String separator;
    Gloabal::SetALLFormat("dd.MM.yyyy", "M/d/yyyy", system_parts, file_parts, separator);
    Ref<dom::Document> document = DocumentOfText(
        "<Project><Calendar><NonWorkingDays>3:3</NonWorkingDays><Holiday>06.03.2026:06.03.2026;31.12.2026:31.12.2026"
        "</Holiday><ExceptionDay>07.03.2026:07.03.2026</ExceptionDay></Calendar></Project>");
    const auto calendar = Make<CalendarCls>();
    calendar->FromXmlFile("", True, document, True, "dd.MM.yyyy", "M/d/yyyy", separator, file_parts, system_parts);
    EXPECT_EQ(Drawn(calendar), "3:3|3/6/2026:3/6/2026;12/31/2026:12/31/2026|3/7/2026:3/7/2026");
}

TEST(CalendarFromXmlFile, RecordsAFileThatIsNotThere) {
    TestSession session;
    const auto calendar = Make<CalendarCls>();
    EXPECT_FALSE(calendar->FromXmlFile(session.Path("none.xml"), False));
    EXPECT_EQ(session.failures.Taken(), "CalendarCls/FromXmlFile 91\n");
    EXPECT_EQ(Drawn(calendar), "||");
}

TEST(CalendarCls, WritesNothingUnderANameThatNoElementCanHave) {
    CalendarSession session;
    session.calendar->elementName("1");
    EXPECT_EQ(session.calendar->ToXml(), "");
    EXPECT_FALSE(session.calendar->ToXmlFile(session.Path("a.prx"), {}, True, False, False, False, True));
    EXPECT_EQ(session.failures.Taken(), "");
    EXPECT_FALSE(session.Exists("a.prx"));
}

}  // namespace
}  // namespace mrlxmlclass
