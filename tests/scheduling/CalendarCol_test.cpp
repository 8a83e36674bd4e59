#include "mrlxmlclass/scheduling/CalendarCol_internal.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/session/StaticCls.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/CalendarSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

Ref<CalendarCol> Calendars(std::initializer_list<int> keys) {
    const auto calendars = Make<CalendarCol>();
    calendars->oPublicStaticCls = Make<StaticCls>();
    for (const int key : keys) {
        const auto calendar = Make<CalendarCls>();
        calendar->CalendarKey(key);
        calendars->AddItem(calendar);
    }
    return calendars;
}

/// The keys that the calendars hold, in their order.
String Keys(const CalendarCol& calendars) {
    String keys;
    for (const auto& entry : calendars.NewEnum()) keys += std::to_string(entry.item->CalendarKey().value()) + " ";
    return keys;
}

TEST(CalendarColAddItem, StoresACloneWithoutItsDays) {
    CalendarSession session;
    session.calendar->SetADayAsHoliday(Friday);
    session.calendar->CalendarKey(4);
    const auto calendars = Make<CalendarCol>();
    calendars->elementName("Plan");
    const auto stored = calendars->AddItem(session.calendar);
    EXPECT_FALSE(stored == session.calendar);
    EXPECT_EQ(stored, calendars->Item("4"));
    EXPECT_EQ(stored->elementName(), "Plan");
    EXPECT_EQ(stored->Holiday()->Count(), 0);
    EXPECT_EQ(stored->NonWorkingDay()->Count(), 0);
    EXPECT_EQ(session.calendar->elementName(), "Calendar");
}

TEST(CalendarColAddItem, IssuesAKeyWhereThereIsNone) {
    TestSession session;
    const auto calendars = Calendars({});
    calendars->oPublicStaticCls->CalendarKeyValue(6);
    const auto calendar = Make<CalendarCls>();
    EXPECT_EQ(calendars->AddItem(calendar)->CalendarKey(), 7);
    EXPECT_EQ(calendars->AddItem(calendar)->CalendarKey(), 8);
    EXPECT_EQ(calendar->CalendarKey(), 0);
    EXPECT_EQ(calendars->oPublicStaticCls->CalendarKeyValue(), 8);
    EXPECT_EQ(calendars->Item("8")->CalendarKey(), 8);
}

TEST(CalendarColAddItem, RecordsWhatCannotBeStored) {
    TestSession session;
    const auto calendars = Calendars({4});
    const auto calendar = Make<CalendarCls>();
    calendar->CalendarKey(4);
    EXPECT_FALSE(calendars->AddItem(calendar));
    EXPECT_FALSE(calendars->AddItem({}));
    calendars->oPublicStaticCls = {};
    calendar->CalendarKey(0);
    EXPECT_FALSE(calendars->AddItem(calendar)) << "no counters to take a key from";
    EXPECT_EQ(session.failures.Taken(), "CalendarCol/AddItem 457\nCalendarCol/AddItem 91\nCalendarCol/AddItem 91\n");
    EXPECT_EQ(Keys(*calendars), "4 ");
}

TEST(CalendarColAdd, KeepsFilingUnderZeroSoThatASecondOneFails) {
    TestSession session;
    const auto calendars = Make<CalendarCol>();
    calendars->elementName("Plan");
    const auto calendar = calendars->Add();
    EXPECT_EQ(calendar, calendars->Item("0"));
    EXPECT_EQ(calendar->elementName(), "Plan");
    EXPECT_FALSE(calendars->Add());
    EXPECT_EQ(session.failures.Taken(), "CalendarCol/Add 457\n");
}

TEST(CalendarColRemove, TakesAPlace) {
    TestSession session;
    const auto calendars = Calendars({4, 5, 6});
    calendars->Remove(2);
    EXPECT_EQ(Keys(*calendars), "4 6 ");
    EXPECT_EQ(calendars->Count(), 2);
}

TEST(CalendarColRemove, RaisesToItsCallerOutsideTheList) {
    TestSession session;
    const auto calendars = Calendars({4, 5});
    for (const int index : {0, 3, -1}) {
        try {
            calendars->Remove(index);
            ADD_FAILURE() << index << " was taken";
        } catch (const Failure& failed) {
            EXPECT_EQ(failed.number(), 1);
            EXPECT_EQ(failed.description(), "index " + std::to_string(index) + "is out of range, use 1 - 2");
        }
    }
    EXPECT_EQ(session.failures.Taken(), "") << "nothing is recorded here";
    EXPECT_EQ(Keys(*calendars), "4 5 ");
}

TEST(CalendarColItem, FindsByPlaceAndByKey) {
    TestSession session;
    const auto calendars = Calendars({4, 1});
    EXPECT_EQ(calendars->Item(1)->CalendarKey(), 4);
    EXPECT_EQ(calendars->Item("1")->CalendarKey(), 1);
    EXPECT_FALSE(calendars->Item(3));
    EXPECT_FALSE(calendars->Item("3"));
    EXPECT_EQ(session.failures.Taken(), "CalendarCol/Item 9\nCalendarCol/Item 5\n");
}

TEST(CalendarColClone, ClonesEveryItemUnderItsKey) {
    TestSession session;
    const auto calendars = Calendars({4, 5});
    calendars->elementName("Plan");
    calendars->Item("4")->SetADayAsHoliday(Friday);
    const auto clone = calendars->Clone();
    EXPECT_EQ(Keys(*clone), "4 5 ");
    EXPECT_EQ(clone->elementName(), "Plan");
    EXPECT_FALSE(clone->Item("4") == calendars->Item("4"));
    EXPECT_EQ(clone->Item("4")->Holiday()->Count(), 0);
}

TEST(CalendarColXml, ComesBackFromItsElementsWithoutKeys) {
    TestSession session;
    const auto calendars = Calendars({4, 5});
    calendars->elementName("Plan");
    calendars->Item("5")->SetADayAsHoliday(Friday);
    const Ref<dom::Document> document = DocumentOfText("<Plans/>");
    calendars->ToXmlInt(document, document->documentElement());
    const auto again = Make<CalendarCol>();
    again->elementName("Plan");
    EXPECT_FALSE(again->FromXmlInt(document->documentElement(), document->documentElement().firstChild()));
    EXPECT_EQ(Keys(*again), "4 5 ");
    EXPECT_EQ(again->Item(2)->isHoliday(Friday), True);
    EXPECT_EQ(again->Item(2)->elementName(), "Plan");
    EXPECT_FALSE(again->Item("5"));
    EXPECT_EQ(session.failures.Taken(), "CalendarCol/Item 5\n");
}

TEST(CalendarColXml, StopsAtAnElementOfAnotherName) {
    TestSession session;
    const Ref<dom::Document> document =
        DocumentOfText("<Plans><!-- two --><Calendar/><Calendar/><Other/><Calendar/></Plans>");
    const auto calendars = Make<CalendarCol>();
    const dom::Node stopped =
        calendars->FromXmlInt(document->documentElement(), document->documentElement().firstChild());
    EXPECT_EQ(stopped.baseName(), "Other");
    EXPECT_EQ(calendars->Count(), 2);
}

TEST(CalendarColXml, WritesNothingUnderNoElement) {
    TestSession session;
    const Ref<dom::Document> document = DocumentOfText("<Plans/>");
    Calendars({4})->ToXmlInt(document, {});
    EXPECT_FALSE(document->documentElement().firstChild());
}

}  // namespace
}  // namespace mrlxmlclass
