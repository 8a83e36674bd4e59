#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(XmlRecord, CarriesTheDeclarationThatIsAskedFor) {
    Items s;
    const auto note = s.Note("t");
    note->NoteKey("1");
    EXPECT_TRUE(note->ToXml().starts_with(R"(<?xml version="1.0" encoding="utf-8")")) << note->ToXml();
    EXPECT_TRUE(note->ToXml(True, False, True).starts_with(R"(<?xml version="1.0" encoding="utf-16")"));
    EXPECT_TRUE(note->ToXml(False).starts_with("<Notes>"));
}

TEST(XmlRecord, SavesADocumentOfItsOwnAndReadsItBack) {
    Items s;
    const auto person = s.Person("Ann");
    person->personkey(3);
    person->ToXmlFile(s.Path("ann.xml"));
    const auto read = Make<peopleCls>();
    EXPECT_EQ(read->FromXmlFile(s.Path("ann.xml"), s.counters), True);
    EXPECT_EQ(read->PersonName(), "Ann");
    EXPECT_EQ(s.counters->PersonKeyValue(), 3);
}

TEST(XmlRecord, RecordsWhatGoesWrongUnderItsOwnLabels) {
    Items s;
    const auto goal = Make<GoalsCls>();
    goal->ToXmlFile(s.Path("no/folder.xml"));
    EXPECT_EQ(goal->FromXmlFile(s.Path("absent.xml"), s.counters), False);
    EXPECT_EQ(goal->FromXml("", s.counters), False);
    EXPECT_EQ(s.failures.Taken(), "GoalCls/ToXmlFile 76\nGoalCls/FromXmlFile 91\nGoalCls/FromXml 91\n");
}

TEST(XmlRecord, WritesNothingUnderNothing) {
    Items s;
    s.Note("t")->ToXmlInt(Make<dom::Document>(), {});
    s.Person("p")->ToXmlInt({}, {});
}

TEST(XmlRecord, TakesTheNameOfTheElementThatIsRead) {
    Items s;
    const auto person = Make<peopleCls>();
    person->FromXml("<x:Somebody xmlns:x=\"u\"/>", s.counters);
    EXPECT_EQ(In(person).elementName(), "Somebody");
}

}  // namespace
}  // namespace mrlxmlclass::testing
