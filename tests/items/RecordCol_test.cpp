#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

/// Writes a collection as a section of a document of its own and reads it back.
template <class Col>
void ExpectSection(Items& s, const String& section, const String& element, const Ref<Col>& col) {
    SCOPED_TRACE(section);
    const auto document = Make<dom::Document>();
    document->LoadXML("<Project/>");
    EXPECT_EQ(col->ToXmlFile("", document, False), document);
    const dom::Node written = document->documentElement().firstChild();
    EXPECT_EQ(written.baseName(), section);
    EXPECT_EQ(written.firstChild().baseName(), element);

    const auto read = s.Master<Col>();
    EXPECT_EQ(read->FromXmlFile("", True, document), document);
    EXPECT_EQ(KeysOf(read), KeysOf(col));
    EXPECT_EQ(read->ToXml(False), col->ToXml(False));
}

TEST(SectionXml, EachCollectionReadsTheSectionThatItWrote) {
    Items s;
    const auto notes = s.Master<NotesCol>();
    notes->AddItem(s.Note("t"));
    ExpectSection(s, "Notes", "Note", notes);
    const auto with_one = [&]<class Col>(Ref<Col> col) {
        col->Add();
        return col;
    };
    ExpectSection(s, "People", "Person", with_one(s.Master<PeopleCol>()));
    ExpectSection(s, "Goals", "Goal", with_one(s.Master<GoalsCol>()));
    ExpectSection(s, "Obstacles", "Obstacle", with_one(s.Master<obstaclesCol>()));
    ExpectSection(s, "TaskGoalRelations", "TaskGoalRelation", with_one(s.Master<TaskGoalRelationCol>()));
    ExpectSection(s, "TaskNoteRelations", "TaskNoteRelation", with_one(s.Master<TaskNoteRelationCol>()));
    ExpectSection(s, "TaskObstaclesRelations", "TaskObstaclesRelation", with_one(s.Master<TaskObstaclesRelationCol>()));
    ExpectSection(s, "TaskAssigmentRelations", "TaskAssigmentRelation", with_one(s.Master<TaskAssigmentRelationCol>()));
}

TEST(SectionXml, AFileOfItsOwnHasTheSectionUnderARootNamedAfterTheRecords) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->Add();
    people->ToXmlFile(s.Path("people.xml"), {}, True, False, False, False, True);
    const String bytes = s.Read("people.xml");
    EXPECT_NE(bytes.find("<Person><People><Person>"), String::npos) << bytes;
    Ref<dom::Document> document;
    const auto read = s.Master<PeopleCol>();
    EXPECT_TRUE(read->FromXmlFile(s.Path("people.xml"), False, document));
    EXPECT_TRUE(document);
    EXPECT_EQ(KeysOf(read), "1");
}

TEST(SectionXml, GivesNothingAndNoFailureForADocumentWithoutARoot) {
    Items s;
    EXPECT_FALSE(s.Master<GoalsCol>()->ToXmlFile("", Make<dom::Document>(), False));
}

TEST(SectionXml, AnEmptyCollectionStillWritesItsElement) {
    Items s;
    const auto document = Make<dom::Document>();
    document->LoadXML("<Project/>");
    s.Master<NotesCol>()->ToXmlFile("", document, False);
    EXPECT_TRUE(document->documentElement().selectSingleNode("Notes"));
}

TEST(SectionXml, KeepsTheLabelOfTheNotesWhenObstaclesCannotBeSaved) {
    Items s;
    const auto document = Make<dom::Document>();
    document->LoadXML("<Project/>");
    EXPECT_FALSE(
        s.Master<obstaclesCol>()->ToXmlFile(s.Path("no/folder.xml"), document, False, False, False, False, True));
    EXPECT_EQ(s.failures.Taken(), "NotesCol/ToXmlFile 76\n");
}

TEST(SectionXml, AMissingSectionIsSilentlyEmpty) {
    Items s;
    const auto document = Make<dom::Document>();
    document->LoadXML("<Project/>");
    const auto people = s.Master<PeopleCol>();
    EXPECT_EQ(people->FromXmlFile("", True, document), document);
    EXPECT_EQ(people->Count(), 0);
}

TEST(SectionXml, ADocumentThatIsNothingOrHasNoRootIsRecorded) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    EXPECT_FALSE(people->FromXmlFile("", True));
    EXPECT_FALSE(people->FromXmlFile("", True, Make<dom::Document>()));
    EXPECT_FALSE(people->FromXmlFile(s.Path("absent.prx"), False));
    EXPECT_EQ(people->FromXml("<broken"), False);
    EXPECT_EQ(s.failures.Taken(),
              "PeopleCol/FromXmlFile 91\nPeopleCol/FromXmlFile 91\nPeopleCol/FromXmlFile 91\nPeopleCol/FromXml 91\n");
}

TEST(SectionXml, AFailureInARecordIsOneEntryAndEndsTheSection) {
    Items s;
    const auto goals = s.Master<GoalsCol>();
    const auto document = Make<dom::Document>();
    document->LoadXML(
        "<Project><Goals><Goal><Goalkey>1</Goalkey></Goal><Goal><Goalkey>x</Goalkey></Goal>"
        "<Goal><Goalkey>3</Goalkey></Goal></Goals></Project>");
    EXPECT_EQ(goals->FromXmlFile("", True, document), document);
    EXPECT_EQ(KeysOf(goals), "1");
    EXPECT_EQ(s.failures.Taken(), "GoalsCol/FromXmlInt 13\n");
}

TEST(SectionXml, ADuplicateKeyEndsTheSection) {
    Items s;
    const auto relations = s.Master<TaskGoalRelationCol>();
    relations->FromXml(
        "<R><TaskGoalRelation><Key>2</Key></TaskGoalRelation>"
        "<TaskGoalRelation><TaskKey>1</TaskKey><Key>2</Key></TaskGoalRelation>"
        "<TaskGoalRelation><Key>3</Key></TaskGoalRelation></R>");
    EXPECT_EQ(KeysOf(relations), "2");
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/FromXmlInt 457\n");
}

TEST(SectionXml, StopsAtAnotherElementAndYieldsAtEachRecord) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->FromXml(
        "<R><!-- c --><Person><Personkey>4</Personkey></Person><Person><Personkey>2</Personkey></Person>"
        "<Other/><Person><Personkey>9</Personkey></Person></R>");
    EXPECT_EQ(KeysOf(people), "4 2");
    EXPECT_EQ(s.ui.yields, 4) << "the comment, the two and the other element";
    EXPECT_EQ(s.counters->PersonKeyValue(), 4);
}

TEST(SectionXml, WithoutCountersTheFirstKeyFails) {
    Items s;
    const auto people = Make<PeopleCol>();
    people->FromXml("<R><Person><Personkey>4</Personkey></Person></R>");
    EXPECT_EQ(people->Count(), 0);
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/FromXmlInt 91\n");
}

TEST(SectionXml, ReadForALibraryPassesItOnToTheRecords) {
    Items s;
    const auto document = Make<dom::Document>();
    document->LoadXML(
        "<Project><People><Person><Personkey>1</Personkey><PeopleTaskRelationKeys><Key>1</Key>"
        "</PeopleTaskRelationKeys></Person></People></Project>");
    const auto people = s.Master<PeopleCol>();
    people->FromXmlFile("", True, document, True);
    EXPECT_EQ(people->Item(1)->TaskPeopleRelationValid(), False);
}

TEST(CollectionClone, HoldsClonesUnderTheSameKeysAndNoCounters) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->Add();
    people->Add("x");
    In(people).elementName("Human");
    const auto clone = people->Clone();
    EXPECT_EQ(KeysOf(clone), "1 0");
    EXPECT_FALSE(clone->Item(1) == people->Item(1));
    EXPECT_FALSE(clone->oPublicStaticCls);
    EXPECT_EQ(In(clone).elementName(), "Human");
}

TEST(CollectionNewEnum, StandsStillWhileTheCollectionChanges) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    for (int i = 0; i < 3; ++i) people->Add();
    int seen = 0;
    for (const auto& entry : people->NewEnum()) {
        people->Remove(entry.item->personkey());
        ++seen;
    }
    EXPECT_EQ(seen, 3);
    EXPECT_EQ(people->Count(), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
