#include "mrlxmlclass/items/peopleCls.h"

#include "tests/items/Items.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

constexpr TextRow<peopleCls> kTexts[] = {
    {"PersonKeyChar", [](peopleCls& item) { return item.PersonKeyChar(); }, &peopleCls::PersonKeyChar,
     &peopleCls::PersonKeyCharValid, &peopleCls::PersonKeyCharValid},
    {"PersonAddress", [](peopleCls& item) { return item.PersonAddress(); }, &peopleCls::PersonAddress,
     &peopleCls::PersonAddressValid, &peopleCls::PersonAddressValid},
    {"PersonCompany", [](peopleCls& item) { return item.PersonCompany(); }, &peopleCls::PersonCompany,
     &peopleCls::PersonCompanyValid, &peopleCls::PersonCompanyValid},
    {"PersonPhone", [](peopleCls& item) { return item.PersonPhone(); }, &peopleCls::PersonPhone,
     &peopleCls::PersonPhoneValid, &peopleCls::PersonPhoneValid},
    {"PersonEmail", [](peopleCls& item) { return item.PersonEmail(); }, &peopleCls::PersonEmail,
     &peopleCls::PersonEmailValid, &peopleCls::PersonEmailValid},
    {"PersonTitle", [](peopleCls& item) { return item.PersonTitle(); }, &peopleCls::PersonTitle,
     &peopleCls::PersonTitleValid, &peopleCls::PersonTitleValid},
    {"PersonNoteKey", [](peopleCls& item) { return item.PersonNoteKey(); }, &peopleCls::PersonNoteKey,
     &peopleCls::PersonNoteKeyValid, &peopleCls::PersonNoteKeyValid},
};

TEST(PersonText, RaisesItsFlagAndIsEmptiedByAChangeOfIt) {
    Items s;
    ExpectFlagsOfTheirOwn(kTexts);
}

TEST(TaskPeopleRelation, IsMadeOnFirstReadAndRaisesTheFlag) {
    Items s;
    ExpectRelationsWithTheirFlag<peopleCls, TaskAssigmentRelationCol>(
        &peopleCls::TaskPeopleRelation, &peopleCls::TaskPeopleRelationValid, &peopleCls::TaskPeopleRelationValid);
}

TEST(PersonNoteKey, IsRefusedWhileItsFlagIsDown) {
    Items s;
    const auto person = Make<peopleCls>();
    EXPECT_EQ(person->PersonNoteKey(), "");
    EXPECT_EQ(s.failures.LatestWords(), "The Property PersonNoteKey is not valid set m_PersonNoteKeyValid = true");
    EXPECT_EQ(s.failures.Taken(), "peopleCls/PersonNoteKey 1\n");
    person->PersonNoteKey("4");
    EXPECT_EQ(person->PersonNoteKey(), "4");
}

TEST(TaskPeopleRelation, IsRefusedWhenFilledFromInsideWithItsFlagDown) {
    Items s;
    const auto person = Make<peopleCls>();
    In(person).TaskPeopleRelation_Int(Make<TaskAssigmentRelationCol>());
    EXPECT_FALSE(person->TaskPeopleRelation());
    EXPECT_EQ(s.failures.LatestWords(),
              "The Property TaskPeopleRelation is not valid set m_TaskPeopleRelationValid = true");
    EXPECT_EQ(s.failures.Taken(), "peopleCls/TaskPeopleRelation 1\n");
    person->TaskPeopleRelationValid(True);
    EXPECT_TRUE(person->TaskPeopleRelation());
}

TEST(PersonClone, SharesTheRelationsButNotTheTasks) {
    Items s;
    const auto person = s.Person("Ann", 3);
    person->personkey(5);
    person->PersonFirstName("A");
    person->Tasks();
    const auto clone = person->Clone();
    EXPECT_EQ(clone->PersonName(), "Ann");
    EXPECT_EQ(clone->PersonFirstName(), "A");
    EXPECT_EQ(clone->PersonPosition(), 3);
    EXPECT_EQ(clone->TaskPeopleRelation(), person->TaskPeopleRelation());
    EXPECT_FALSE(clone->Tasks() == person->Tasks());
}

TEST(PersonClone, KeepsTheCompanyOfACloneSetAndWrittenEvenWhenEmpty) {
    Items s;
    const auto person = s.Person("Ann");
    EXPECT_EQ(person->ToXml(False).find("PersonCompany"), String::npos);
    const auto clone = person->Clone();
    EXPECT_EQ(clone->PersonCompanyValid(), True);
    EXPECT_NE(clone->ToXml(False).find("<PersonCompany"), String::npos);
}

TEST(PersonXml, WritesItsChildrenInOrderAndReadsThemBack) {
    Items s;
    const auto person = s.Person("Ann", 2);
    person->personkey(6);
    person->PersonKeyChar("k");
    person->PersonAddress("a");
    person->PersonPhone("p");
    person->PersonEmail("e");
    person->PersonTitle("t");
    person->PersonCompany("c");
    person->PersonNoteKey("n");
    person->TaskPeopleRelation()->Add("8");
    const String xml = person->ToXml(False);
    EXPECT_EQ(xml,
              "<People><Personkey>6</Personkey><PersonPosition>2</PersonPosition><PersonKeyChar>k</PersonKeyChar>"
              "<PersonName>Ann</PersonName><PersonAddress>a</PersonAddress><PersonPhone>p</PersonPhone>"
              "<PersonEmail>e</PersonEmail><PersonTitle>t</PersonTitle><PersonCompany>c</PersonCompany>"
              "<PersonNoteKey>n</PersonNoteKey><PeopleTaskRelationKeys><Key>8</Key></PeopleTaskRelationKeys></People>");
    const auto read = Make<peopleCls>();
    EXPECT_EQ(read->FromXml(xml, s.counters), True);
    EXPECT_EQ(read->ToXml(False), xml);
    EXPECT_EQ(s.counters->PersonKeyValue(), 6);
}

TEST(PersonXml, KeepsTheFirstNameOutOfTheFileInBothDirections) {
    Items s;
    const auto person = Make<peopleCls>();
    EXPECT_EQ(person->FromXml("<Person><Personkey>1</Personkey><PersonName>N</PersonName>"
                              "<PersonFirstName>F</PersonFirstName><PersonAddress>A</PersonAddress></Person>",
                              s.counters),
              True);
    EXPECT_EQ(person->PersonFirstName(), "");
    EXPECT_EQ(person->PersonAddress(), "A");
    person->PersonFirstName("F");
    EXPECT_EQ(person->ToXml(False).find("PersonFirstName"), String::npos);
}

TEST(PersonXml, ReadForALibraryHasNoRelations) {
    Items s;
    const auto person = Make<peopleCls>();
    person->FromXml(
        "<Person><PersonName>N</PersonName><PeopleTaskRelationKeys><Key>1</Key></PeopleTaskRelationKeys>"
        "</Person>",
        s.counters, True);
    EXPECT_EQ(person->TaskPeopleRelationValid(), False);
    EXPECT_FALSE(In(person).PeekRelations());
}

TEST(PersonXml, StopsAtAnElementOutOfOrderWithoutAFailure) {
    Items s;
    const auto person = Make<peopleCls>();
    EXPECT_EQ(person->FromXml("<Person><PersonName>N</PersonName><PersonPosition>4</PersonPosition>"
                              "<PersonAddress>A</PersonAddress></Person>",
                              s.counters),
              True);
    EXPECT_EQ(person->PersonName(), "N");
    EXPECT_EQ(person->PersonPosition(), 0);
    EXPECT_EQ(person->PersonAddressValid(), False);
}

TEST(RemoveTasksRelation, KeepsTheLabelOfAnotherMember) {
    Items s;
    const auto person = Make<peopleCls>();
    person->TaskPeopleRelation()->Add("1");
    EXPECT_EQ(person->RemoveTasksRelation(1, {}), False);
    EXPECT_EQ(s.failures.Taken(), "peopleCls/SetTasksCollection 91\n");
}

TEST(RemoveTasksRelation, HandlesTheFirstMatchAndMakesTheCopyOfTheTaskACandidate) {
    Items s;
    const auto project = Make<TaskAssigmentRelationCol>();
    const auto person = Make<peopleCls>();
    for (const char* key : {"1", "2", "3"}) {
        const auto relation = s.Bare<TaskAssigmentRelationCls>(key);
        relation->TaskKey(4);
        person->TaskPeopleRelation()->AddItem(relation);
        if (String(key) != "1") project->AddItem(relation);
    }
    const auto task = Make<TasksCls>();
    task->TaskKey(4);
    person->Tasks()->AddItem(task);
    EXPECT_EQ(person->RemoveTasksRelation("4", project), True);
    EXPECT_EQ(KeysOf(person->TaskPeopleRelation()), "1 3");  // 1 is gone from the project, so it is passed by
    EXPECT_EQ(person->Tasks()->Item(4)->TaskCondidat(), False);
}

TEST(RemoveTasksRelation, ComparesTextsAndRemovesTheKeyThatThePersonHas) {
    Items s;
    const auto person = s.Person("Ann");
    const auto project = s.Master<TaskAssigmentRelationCol>();
    const auto relation = s.Bare<TaskAssigmentRelationCls>("7");
    relation->TaskKey(4);
    project->AddItem(relation);
    person->TaskPeopleRelation()->AddItem(relation);
    project->Item("7")->elementKey("9");
    EXPECT_EQ(person->RemoveTasksRelation("04", project), True);
    EXPECT_EQ(person->TaskPeopleRelation()->Count(), 1);
    EXPECT_EQ(person->RemoveTasksRelation("4", project), True);
    EXPECT_EQ(person->TaskPeopleRelation()->Count(), 0);
}

TEST(RemoveTasksRelation, KeepsTakingTheChildFromTheLiveParentWhereThePersonHasACopyOfThatToo) {
    Plan plan;
    plan.Task("Phase").Task("Dig").Under("Phase");
    const auto project = plan.app->xTaskPeopleRelationcol();
    const auto ann = plan.app->xPeopleCol()->Add();
    for (const char* name : {"Phase", "Dig"}) {
        plan.app->xPeopleCol()->AssignePerson("1", plan.Number(name), plan.app->xTaskCol(), project);
    }
    ASSERT_EQ(plan.col().GetTasksAsKeys(plan.Key("Phase"))->Count(), 1);
    EXPECT_EQ(ann->RemoveTasksRelation(plan.Key("Dig"), project), True);
    EXPECT_EQ(plan.col().GetTasksAsKeys(plan.Key("Phase"))->Count(), 0);
    EXPECT_EQ(plan["Dig"].ParentID(), plan.Number("Phase"));  // the live child still names it
}

TEST(RemoveTasksRelation, SortsThePersonsCopiesByTheirRows) {
    Plan plan;
    plan.Task("Dig").Task("Fill");
    const auto people = plan.app->xPeopleCol();
    const auto relations = plan.app->xTaskPeopleRelationcol();
    people->Add();
    for (const int task : {1, 2}) people->AssignePerson("1", task, plan.app->xTaskCol(), relations);
    const Ref<TasksCol> copies = people->Item(1)->Tasks();
    EXPECT_EQ(KeysOf(copies), "1 2");
    EXPECT_EQ(people->Item(1)->RemoveTasksRelation(2, relations), True);
    EXPECT_EQ(KeysOf(copies), "2 1") << "the one that became a candidate has row 0";
}

}  // namespace
}  // namespace mrlxmlclass::testing
