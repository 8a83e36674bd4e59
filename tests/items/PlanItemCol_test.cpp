#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(ItemAdd, IssuesConsecutiveKeysForAnEmptyId) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    EXPECT_EQ(people->Add("")->personkey(), 1);
    EXPECT_EQ(people->Add()->personkey(), 2);
    EXPECT_EQ(KeysOf(people), "1 2");
}

TEST(ItemAdd, KeepsNothingOfAnIdAndFailsTheSecondTime) {
    Items s;
    const auto goals = s.Master<GoalsCol>();
    EXPECT_EQ(goals->Add("7")->Goalkey(), 0);
    EXPECT_EQ(KeysOf(goals), "0");
    EXPECT_FALSE(goals->Add("8"));
    EXPECT_EQ(s.failures.Taken(), "GoalsCol/Add 457\n");
    EXPECT_EQ(s.counters->GoalKeyValue(), 0);
}

TEST(ItemAdd, NamesTheItemAfterTheCollection) {
    Items s;
    EXPECT_EQ(In(s.Master<PeopleCol>()->Add()).elementName(), "Person");
    EXPECT_EQ(In(s.Master<GoalsCol>()->Add()).elementName(), "Goal");
    EXPECT_EQ(In(s.Master<obstaclesCol>()->Add()).elementName(), "Obstacle");
}

TEST(ItemAdd, WithoutCountersRecordsOneFailureAndFilesUnderZero) {
    Items s;
    const auto people = Make<PeopleCol>();
    EXPECT_EQ(people->Add()->personkey(), 0);
    EXPECT_EQ(s.failures.Taken(), "peopleCls/IncrementID 91\n");
}

TEST(ItemAdd, OverflowsPastTheLastKey) {
    Items s;
    s.counters->PersonKeyValue(32767);
    EXPECT_EQ(s.Master<PeopleCol>()->Add()->personkey(), 0);
    EXPECT_EQ(s.failures.Taken(), "peopleCls/IncrementID 6\n");
}

TEST(ItemAddItem, StoresACloneUnderItsOwnKeyOrANewOne) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    const auto ann = s.Person("Ann");
    const auto stored = people->AddItem(ann);
    EXPECT_EQ(stored->personkey(), 1);
    EXPECT_EQ(ann->personkey(), 0);
    EXPECT_EQ(In(stored).elementName(), "Person");
    ann->personkey(9);
    EXPECT_EQ(people->AddItem(ann)->personkey(), 9);
    EXPECT_FALSE(people->AddItem(ann));
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/AddItem 457\n");
    EXPECT_EQ(KeysOf(people), "1 9");
}

TEST(ItemAddItem, OfNothingIsRecorded) {
    Items s;
    EXPECT_FALSE(s.Master<GoalsCol>()->AddItem({}));
    EXPECT_EQ(s.failures.Taken(), "GoalsCol/AddItem 91\n");
}

TEST(ItemItem, TakesANumberAsAKeyAndRecordsAnUnknownOne) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    s.counters->PersonKeyValue(4);
    people->Add();
    EXPECT_EQ(people->Item(5)->personkey(), 5);
    EXPECT_EQ(people->Item("5")->personkey(), 5);
    EXPECT_FALSE(people->Item(1));
    EXPECT_FALSE(s.Master<GoalsCol>()->Item(1));
    EXPECT_FALSE(s.Master<obstaclesCol>()->Item("x"));
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/Item 5\nGoalsCol/Item 5\nobstaclesCol/Item 5\n");
}

TEST(ItemRemove, GivesTheFreedKeyToTheNextPerson) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    for (int i = 0; i < 6; ++i) people->Add();
    people->Remove(5);
    EXPECT_EQ(people->Add()->personkey(), 5);
    EXPECT_EQ(people->Add()->personkey(), 7);
}

TEST(ItemRemove, GivesAKeyPastTheCounterBackAsItWas) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    const auto ann = s.Person("Ann");
    ann->personkey(40000);
    people->AddItem(ann);
    people->Remove(40000);
    EXPECT_EQ(people->Add()->personkey(), 40000);
    EXPECT_EQ(KeysOf(people), "40000");
}

TEST(ItemRemove, IsSilentWhateverHappensAndFreesAKeyOnce) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->Add();
    people->Remove(1);
    people->Remove(1);
    people->Remove(Variant::Null{});
    people->AddItem(s.Person("Ann"));
    In(s.counters).Free(Keys::Person, "1");
    people->Remove("1");
    EXPECT_EQ(FreedIn(s.counters, Keys::Person), "1");
    EXPECT_EQ(people->Count(), 0);
}

TEST(ItemRemove, OfAKeyThatIsNotThereFreesNothing) {
    Items s;
    s.Master<PeopleCol>()->Remove(99);
    s.Master<GoalsCol>()->Remove("99");
    s.Master<obstaclesCol>()->Remove("x");
    for (const auto pool : {Keys::Person, Keys::Goal, Keys::Obstacle}) EXPECT_EQ(FreedIn(s.counters, pool), "");
    EXPECT_EQ(s.Master<PeopleCol>()->Add()->personkey(), 1);
}

TEST(ItemRemove, OnATasksOwnListFreesNothing) {
    Items s;
    const auto copies = Make<GoalsCol>();
    const auto goal = s.Goal("Safety");
    goal->Goalkey(3);
    copies->AddItem(goal);
    copies->Remove(3);
    EXPECT_EQ(copies->Count(), 0);
}

TEST(ItemRemove, KeepsFreedObstacleKeysUnusedWhileGoalsTakeThemAgain) {
    Items s;
    const auto goals = s.Master<GoalsCol>();
    const auto obstacles = s.Master<obstaclesCol>();
    goals->Add();
    obstacles->Add();
    goals->Remove(1);
    obstacles->Remove(1);
    EXPECT_EQ(FreedIn(s.counters, Keys::Obstacle), "1");
    EXPECT_EQ(goals->Add()->Goalkey(), 1);
    EXPECT_EQ(obstacles->Add()->Obstacleskey(), 2);
}

TEST(ItemIamNotAvailable, TakesAFreedKeyOutOfItsPool) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    EXPECT_EQ(people->IamNotAvailable("1"), True);  // no pool at all
    people->Add();
    people->Add();
    people->Remove(1);
    EXPECT_EQ(people->IamNotAvailable("2"), False);
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/IamNotAvailable 5\n");
    EXPECT_EQ(people->IamNotAvailable("1"), True);
    EXPECT_EQ(FreedIn(s.counters, Keys::Person), "");
    EXPECT_EQ(people->IamNotAvailable("1"), True);  // an empty one
}

TEST(ItemIamNotAvailable, OfGoalsAndObstaclesTakesFromThePoolOfTheKind) {
    Items s;
    for (const auto pool : {Keys::Goal, Keys::Obstacle, Keys::Person}) In(s.counters).Free(pool, "3");
    EXPECT_EQ(s.Master<GoalsCol>()->IamNotAvailable("3"), True);
    EXPECT_EQ(FreedIn(s.counters, Keys::Goal), "");
    EXPECT_EQ(FreedIn(s.counters, Keys::Obstacle), "3");
    EXPECT_EQ(s.Master<obstaclesCol>()->IamNotAvailable("3"), True);
    EXPECT_EQ(FreedIn(s.counters, Keys::Obstacle), "");
    EXPECT_EQ(FreedIn(s.counters, Keys::Person), "3");
}

TEST(ItemSortMe, SortsByPositionAndStillFindsEachByKey) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    for (const int position : {3, 1, 2}) people->AddItem(s.Person("P", position));
    people->SortMe();
    EXPECT_EQ(KeysOf(people), "2 3 1");
    for (const int key : {1, 2, 3}) EXPECT_EQ(people->Item(key)->personkey(), key);
}

TEST(ItemSortMe, OfNobodyChangesNothing) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->SortMe();
    EXPECT_EQ(people->Count(), 0);
}

TEST(ItemSortMe, KeepsItsLabelForPeopleAndTheOldOrderWhenItFails) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    const auto goals = s.Master<GoalsCol>();
    people->Add();
    people->Add()->personkey(1);
    goals->Add();
    goals->Add()->Goalkey(1);
    people->SortMe();
    goals->SortMe();
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/Sort 457\nGoalsCol/SortMe 457\n");
    EXPECT_EQ(KeysOf(people), "1 2");
}

TEST(ItemSetTasksCollection, KeepsTheLabelsOfTheCollections) {
    Items s;
    const auto person = Make<peopleCls>();
    const auto tasks = Make<TasksCol>();
    const auto people = s.Master<PeopleCol>();
    const auto goals = s.Master<GoalsCol>();
    const auto obstacles = s.Master<obstaclesCol>();
    EXPECT_EQ(people->SetTasksCollection({}, tasks), False);  // nobody to answer
    people->Add();
    goals->Add();
    obstacles->Add();
    EXPECT_EQ(people->SetTasksCollection({}, tasks), True);
    In(goals).File("9", {});
    In(obstacles).File("9", {});
    goals->SetTasksCollection({}, tasks);
    obstacles->SetTasksCollection({}, tasks);
    EXPECT_EQ(s.failures.Taken(), "GoalsGol/SetTasksCollection 91\nobstaclessGol/SetTasksCollection 91\n");
}

/// Two items of which the one with a relation fails, since there is no list to look it up in.
template <class Col>
void ExpectTheLastItemsAnswer(const char* failed) {
    SCOPED_TRACE(failed);
    for (const int failing : {1, 2}) {
        Items s;
        const auto items = s.Master<Col>();
        for (const int key : {1, 2}) {
            const auto item = items->Add();
            if (key == failing) In(item).ReadRelations()->Add("1");
        }
        EXPECT_EQ(items->SetTasksCollection({}, Make<TasksCol>()), Boolean(failing == 1));
        EXPECT_EQ(s.failures.Taken(), failed);
    }
}

TEST(ItemSetTasksCollection, OfAllGivesTheLastItemsAnswer) {
    ExpectTheLastItemsAnswer<PeopleCol>("peopleCls/SetTasksCollection 91\n");
    ExpectTheLastItemsAnswer<GoalsCol>("GoalCls/SetTasksCollection 91\n");
    ExpectTheLastItemsAnswer<obstaclesCol>("obstaclesCls/SetTasksCollection 91\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
