#include "tests/items/Items.h"
#include "tests/support/HeldByHost.h"

namespace mrlxmlclass::testing {
namespace {

/// Two records of one kind, as a text of their own and as a section of a project.
struct TwoRecords {
    TwoRecords(const String& record, const String& key, const String& section) {
        String both;
        for (const char* number : {"1", "2"}) {
            both += "<" + record + "><" + key + ">" + number + "</" + key + "></" + record + ">";
        }
        alone = "<R>" + both + "</R>";
        project->LoadXML("<Project><" + section + ">" + both + "</" + section + "></Project>");
    }
    String alone;
    Ref<dom::Document> project = Make<dom::Document>();
};

/// A collection of which the host lets go while it is read is read to its end, both ways.
template <class Col>
void ExpectReadToItsEnd(Keys::KeyKind counter, const char* record, const char* key, const char* section) {
    SCOPED_TRACE(section);
    const TwoRecords two(record, key, section);
    for (const bool alone : {true, false}) {
        Items s;
        HeldByHost<Col> col(s);
        col->oPublicStaticCls = s.counters;
        if (alone) {
            EXPECT_EQ(col->FromXml(two.alone), True);
        } else {
            EXPECT_EQ(col->FromXmlFile("", True, two.project), two.project);
        }
        EXPECT_TRUE(col.outlived());
        EXPECT_EQ(In(s.counters).Counter(counter), 2) << "both were read";
    }
}

TEST(SectionXml, IsReadToItsEndUnderAHostThatLetsGoOfTheCollection) {
    ExpectReadToItsEnd<PeopleCol>(Keys::Person, "Person", "Personkey", "People");
    ExpectReadToItsEnd<GoalsCol>(Keys::Goal, "Goal", "Goalkey", "Goals");
    ExpectReadToItsEnd<obstaclesCol>(Keys::Obstacle, "Obstacle", "Obstacleskey", "Obstacles");
    ExpectReadToItsEnd<NotesCol>(Keys::Note, "Note", "NoteKey", "Notes");
    ExpectReadToItsEnd<TaskGoalRelationCol>(Keys::GoalRelation, "TaskGoalRelation", "Key", "TaskGoalRelations");
    ExpectReadToItsEnd<TaskObstaclesRelationCol>(Keys::ObstacleRelation, "TaskObstaclesRelation", "Key",
                                                 "TaskObstaclesRelations");
    ExpectReadToItsEnd<TaskAssigmentRelationCol>(Keys::AssigmentRelation, "TaskAssigmentRelation", "Key",
                                                 "TaskAssigmentRelations");
    ExpectReadToItsEnd<TaskNoteRelationCol>(Keys::NoteRelation, "TaskNoteRelation", "Key", "TaskNoteRelations");
}

TEST(SectionXml, IsReadToItsEndUnderAHostThatLoadsTheDocumentAnew) {
    for (const char* text : {"<Other/>", "<broken"}) {
        Items s;
        const TwoRecords two("Person", "Personkey", "People");
        s.ui.on_yield = [&] { two.project->LoadXML(text); };
        const auto people = s.Master<PeopleCol>();
        EXPECT_EQ(people->FromXmlFile("", True, two.project), two.project);
        EXPECT_EQ(KeysOf(people), "1 2");
    }
}

TEST(SectionXml, LetsGoOfWhatTheDocumentHeldWhenItIsRead) {
    Items s;
    const TwoRecords two("Person", "Personkey", "People");
    s.Master<PeopleCol>()->FromXmlFile("", True, two.project);
    const std::weak_ptr<const void> contents = two.project->Contents();
    EXPECT_FALSE(contents.expired());
    two.project->LoadXML("<Other/>");
    EXPECT_TRUE(contents.expired());
}

/// A record of which the host lets go while it reads the keys of its relations.
template <class Item>
void ExpectItemReadToItsEnd(const char* element) {
    SCOPED_TRACE(element);
    Items s;
    const String text = String("<R><") + element + "><Key>1</Key><Key>2</Key></" + element + "></R>";
    s.Write("item.xml", text);
    for (const bool file : {true, false}) {
        HeldByHost<Item> item(s);
        EXPECT_EQ(file ? item->FromXmlFile(s.Path("item.xml"), s.counters) : item->FromXml(text, s.counters), True);
        EXPECT_TRUE(item.outlived());
    }
}

TEST(ItemXml, IsReadToItsEndUnderAHostThatLetsGoOfTheItem) {
    ExpectItemReadToItsEnd<peopleCls>("PeopleTaskRelationKeys");
    ExpectItemReadToItsEnd<GoalsCls>("GoalTaskRelationKeys");
    ExpectItemReadToItsEnd<ObstaclesCls>("ObstaclesTaskRelationKeys");
}

TEST(ItemXml, LendsTheCountersThatItWasCalledWith) {
    Items s;
    Ref<StaticCls> counters = s.counters;
    s.ui.on_yield = [&] { counters = {}; };
    const auto goal = Make<GoalsCls>();
    EXPECT_EQ(goal->FromXml("<R><GoalTaskRelationKeys><Key>1</Key></GoalTaskRelationKeys></R>", counters), True);
    EXPECT_EQ(goal->TaskGoalRelation()->oPublicStaticCls, s.counters);
}

}  // namespace
}  // namespace mrlxmlclass::testing
