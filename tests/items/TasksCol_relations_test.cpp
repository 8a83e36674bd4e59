#include "tests/items/Items.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

template <class Relation>
Ref<Relation> Keyed(const String& key) {
    auto relation = Make<Relation>();
    relation->elementKey(key);
    return relation;
}

Ref<NotesCls> Note(const String& key, const String& text) {
    auto note = Make<NotesCls>();
    note->NoteKey(key);
    note->NoteDescription(text);
    return note;
}

Ref<peopleCls> Person(Long key, const String& name) {
    auto person = Make<peopleCls>();
    person->personkey(key);
    person->PersonName(name);
    return person;
}

TEST(AddAssigment, TellsTheTasksPeopleAndLendsTheCountersAfterAdding) {
    Plan plan;
    plan.Task("Dig");
    (void)plan.Heard();
    EXPECT_EQ(plan.col().AddAssigment("1", Keyed<TaskAssigmentRelationCls>("3"), Person(1, "Ann")), False);
    EXPECT_EQ(plan.col().AddAssigment(1, Keyed<TaskAssigmentRelationCls>("4"), Person(2, "Bob")), False);
    EXPECT_EQ(plan.Heard(), "AssigmentChange(1, Ann)\nAssigmentChange(1, Ann, Bob)\n");
    EXPECT_EQ(plan["Dig"].TaskPeopleRelation()->oPublicStaticCls, plan.app->oPublicStaticCls());
}

TEST(AddAssigment, KeepsFailingToIssueTheFirstKeyOfATask) {
    Plan plan;
    plan.Task("Dig");
    plan.col().AddAssigment(1, Make<TaskAssigmentRelationCls>(), Person(1, "Ann"));
    EXPECT_EQ(KeysOf(plan["Dig"].TaskPeopleRelation()), "0");
    EXPECT_EQ(plan.failures.Taken(), "TaskAssigmentRelationCls/IncrementID 91\n");
}

TEST(AddAssigment, LeavesTheTasksListItsOwnCounters) {
    Plan plan;
    plan.Task("Dig");
    const auto own = Make<StaticCls>();
    plan["Dig"].TaskPeopleRelation()->oPublicStaticCls = own;
    plan.col().AddAssigment(1, Keyed<TaskAssigmentRelationCls>("3"), Person(1, "Ann"));
    EXPECT_EQ(plan["Dig"].TaskPeopleRelation()->oPublicStaticCls, own);
}

TEST(AddGoals, LendsNoCountersNorDoTheOtherTwo) {
    Plan plan;
    plan.Task("Dig");
    plan.col().AddGoals(1, Keyed<TaskGoalRelationCls>("3"), plan.app->xGoalCol()->Add());
    plan.col().AddObstacles(1, Keyed<TaskObstaclesRelationCls>("3"), plan.app->xObstaclesCol()->Add());
    plan.col().AddNote(1, Keyed<TaskNoteRelationCls>("3"), Note("7", "n"));
    EXPECT_FALSE(plan["Dig"].TaskGoalRelation()->oPublicStaticCls);
    EXPECT_FALSE(plan["Dig"].TaskObstaclesRelation()->oPublicStaticCls);
    EXPECT_FALSE(plan["Dig"].TaskNoteRelation()->oPublicStaticCls);
}

TEST(AddNote, KeepsBeingTheOneThatGivesTrue) {
    Plan plan;
    plan.Task("Dig");
    (void)plan.Heard();
    EXPECT_EQ(plan.col().AddNote(1, Keyed<TaskNoteRelationCls>("3"), Note("7", "Mind the gas")), True);
    EXPECT_EQ(plan.Heard(), "NoteChange(1, Mind the gas)\n");
}

TEST(AddObstacles, TellsTheTasksObstacles) {
    Plan plan;
    plan.Task("Dig");
    (void)plan.Heard();
    const auto rain = plan.app->xObstaclesCol()->Add();
    rain->ObstaclesName("Rain");
    EXPECT_EQ(plan.col().AddObstacles(1, Keyed<TaskObstaclesRelationCls>("3"), rain), False);
    EXPECT_EQ(plan.col().RemoveAssigendObstacles(1, "3", 1), False);
    EXPECT_EQ(plan.Heard(), "ObstaclesChange(1, Rain; )\nObstaclesChange(1, )\n");
}

TEST(RelationOperations, OfAnUnknownTaskAreRecordedAndRaiseNothing) {
    Plan plan;
    plan.Task("Dig");
    (void)plan.Heard();
    plan.col().AddAssigment(9, Keyed<TaskAssigmentRelationCls>("3"), Person(1, "Ann"));
    plan.col().AddGoals(9, Keyed<TaskGoalRelationCls>("3"), Make<GoalsCls>());
    plan.col().AddObstacles(9, Keyed<TaskObstaclesRelationCls>("3"), Make<ObstaclesCls>());
    EXPECT_EQ(plan.col().AddNote(9, Keyed<TaskNoteRelationCls>("3"), Note("1", "n")), False);
    plan.col().RemoveAssigment(9, "3", 1);
    plan.col().RemoveAssigendGoals(9, "3", 1);
    plan.col().RemoveAssigendObstacles(9, "3", 1);  // asks first
    plan.col().RemoveNote(9, "3", "1");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.failures.Taken(),
              "TasksCol/AddAssigment 91\nTasksCol/AddGoals 91\nTasksCol/AddObstacles 91\nTasksCol/AddNote 91\n"
              "TasksCol/RemoveAssigment 91\nTasksCol/RemoveAssigendGoals 91\nTasksCol/RemoveNote 91\n");
}

TEST(RelationOperations, WhileTheHostIsSilencedChangeAllAndTellNothing) {
    Plan plan;
    plan.Silenced().Task("Dig");
    plan.col().AddNote(1, Keyed<TaskNoteRelationCls>("3"), Note("7", "n"));
    plan.col().AddAssigment(1, Keyed<TaskAssigmentRelationCls>("3"), Person(1, "Ann"));
    plan.col().RemoveNote(1, "3", "7");
    EXPECT_EQ(plan["Dig"].NoteAsString(), "");
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "Ann");

    const auto goal = plan.app->xGoalCol()->Add();
    const auto obstacle = plan.app->xObstaclesCol()->Add();
    goal->GoalName("Dry");
    obstacle->ObstaclesName("Rain");
    plan.col().AddGoals(1, Keyed<TaskGoalRelationCls>("3"), goal);
    plan.col().AddObstacles(1, Keyed<TaskObstaclesRelationCls>("3"), obstacle);
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "Dry; ");
    EXPECT_EQ(plan["Dig"].ObstaclesAsString(), "Rain; ");
    plan.col().RemoveAssigendGoals(1, "3", 1);
    plan.col().RemoveAssigendObstacles(1, "3", 1);
    EXPECT_EQ(plan["Dig"].GoalsAsString(), "");
    EXPECT_EQ(plan["Dig"].ObstaclesAsString(), "");

    plan.app->xPeopleCol()->Add()->PersonName("Anna");
    plan["Dig"].TaskPeopleRelation()->Item(3)->personkey(1);
    const auto project = plan["Dig"].TaskPeopleRelation()->Clone();
    EXPECT_EQ(plan.col().UpdatePeopleCollection(project, plan.app->xPeopleCol(), 1), True);
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "Anna");
    plan.col().RemoveAssigment(1, "3", 1);
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveAssigendGoals, TakesTheRelationAndTheCopy) {
    Plan plan;
    plan.Task("Dig");
    const auto dry = plan.app->xGoalCol()->Add();
    dry->GoalName("Dry");
    plan.col().AddGoals(1, Keyed<TaskGoalRelationCls>("3"), dry);
    (void)plan.Heard();
    EXPECT_EQ(plan.col().RemoveAssigendGoals(1, 3, 1), False);
    EXPECT_EQ(plan.Heard(), "GoalChange(1, )\n");
    EXPECT_EQ(plan["Dig"].TaskGoalRelation()->Count(), 0);
}

TEST(RemoveNote, OfARelationThatIsNotThereIsSilentAndLeavesTheNote) {
    Plan plan;
    plan.Task("Dig");
    plan.col().AddNote(1, Keyed<TaskNoteRelationCls>("3"), Note("7", "n"));
    (void)plan.Heard();
    EXPECT_EQ(plan.col().RemoveNote(1, "8", "7"), False);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Dig"].NoteAsString(), "n");
    EXPECT_EQ(plan.col().RemoveNote(1, "3", "7"), False);
    EXPECT_EQ(plan.Heard(), "NoteChange(1, )\n");
}

TEST(RemoveOfARelationThatIsNotThere, TakesTheCopyAndTellsOfItButForANote) {
    Plan plan;
    plan.Task("Dig");
    const auto dry = plan.app->xGoalCol()->Add();
    const auto rain = plan.app->xObstaclesCol()->Add();
    plan.col().AddAssigment(1, Keyed<TaskAssigmentRelationCls>("3"), Person(1, "Ann"));
    plan.col().AddGoals(1, Keyed<TaskGoalRelationCls>("3"), dry);
    plan.col().AddObstacles(1, Keyed<TaskObstaclesRelationCls>("3"), rain);
    (void)plan.Heard();

    plan.col().RemoveAssigment(1, "8", 1);
    EXPECT_EQ(plan.Heard(), "AssigmentChange(1, )\n");
    EXPECT_EQ(plan.failures.Taken(), "TaskAssigmentRelationCol/Remove 5\n");
    EXPECT_EQ(FreedIn(plan.app->oPublicStaticCls(), Keys::AssigmentRelation), "8");
    plan.col().RemoveAssigendGoals(1, "8", 1);
    EXPECT_EQ(plan.Heard(), "GoalChange(1, )\n");
    plan.col().RemoveAssigendObstacles(1, "8", 1);
    EXPECT_EQ(plan.Heard(), "ObstaclesChange(1, )\n");
    EXPECT_EQ(plan.failures.Taken(), "TaskObstaclesRelationCol/Remove 5\n");

    EXPECT_EQ(KeysOf(plan["Dig"].TaskPeopleRelation()), "3");
    EXPECT_EQ(KeysOf(plan["Dig"].TaskGoalRelation()), "3");
    EXPECT_EQ(KeysOf(plan["Dig"].TaskObstaclesRelation()), "3");
}

TEST(UpdatePeopleCollectionOfAll, RaisesOneEventForEachTaskThatHasThePerson) {
    Plan plan;
    plan.Task("Dig").Task("Pour").Task("Paint");
    const auto people = plan.app->xPeopleCol();
    const auto relations = plan.app->xTaskPeopleRelationcol();
    people->Add()->PersonName("Ann");
    for (const char* name : {"Dig", "Paint"}) {
        people->AssignePerson("1", plan.Number(name), plan.app->xTaskCol(), relations);
    }
    (void)plan.Heard();
    people->Item(1)->PersonName("Anna");
    EXPECT_EQ(plan.col().UpdatePeopleCollection(relations, people, 1), True);  // the last task's answer
    EXPECT_EQ(plan.Heard(), "AssigmentChange(1, Anna)\nAssigmentChange(3, Anna)\n");
    EXPECT_EQ(plan["Pour"].PeopleAsString(), "");
}

TEST(UpdatePeopleCollectionOfAll, GivesTheLastTasksAnswer) {
    for (const char* assigned : {"Dig", "Paint"}) {
        SCOPED_TRACE(assigned);
        Plan plan;
        plan.Task("Dig").Task("Pour").Task("Paint");
        const auto people = plan.app->xPeopleCol();
        const auto relations = plan.app->xTaskPeopleRelationcol();
        people->Add()->PersonName("Ann");
        people->AssignePerson("1", plan.Number(assigned), plan.app->xTaskCol(), relations);
        const Boolean last(assigned == String("Paint"));
        EXPECT_EQ(plan.col().UpdatePeopleCollection(relations, people, 1), last);
    }
}

TEST(SetCollections, KeepsGivingFalseAndGoingOnPastAFailure) {
    Plan plan;
    plan.Task("Dig").Task("Pour");
    plan["Dig"].TaskGoalRelation()->Add("9");
    plan["Pour"].TaskGoalRelation()->Add("3");
    plan.app->xTaskGoalRelationcol()->Add("3")->Goalkey(plan.app->xGoalCol()->Add()->Goalkey());
    const auto tasks = plan.app->xTaskCol();
    EXPECT_EQ(In(tasks).SetGoalCollection(plan.app->xTaskGoalRelationcol(), plan.app->xGoalCol()), False);
    EXPECT_EQ(KeysOf(plan["Pour"].TasksGoals()), "1");
    EXPECT_EQ(plan.failures.Taken(), "TaskGoalRelationCol/Item 5\nTasksCls/SetGoalCollection 91\n");
    EXPECT_EQ(In(tasks).SetPeopleCollection(plan.app->xTaskPeopleRelationcol(), plan.app->xPeopleCol()), False);
    EXPECT_EQ(In(tasks).SetNoteCollection(plan.app->xTaskNotesRelationcol(), plan.app->xNoteCol()), False);
    EXPECT_EQ(In(tasks).SetobstaclesCollection(plan.app->xTaskObstaclesRelationcol(), plan.app->xObstaclesCol()),
              False);
}

TEST(RemoveATask, KeepsReportingEachObstacleRelationThatIsTakenTwice) {
    Plan plan;
    plan.Task("Dig").Task("Pour");
    plan.col().SetPhases();
    const auto obstacles = plan.app->xObstaclesCol();
    auto relations = plan.app->xTaskObstaclesRelationcol();
    obstacles->Add();
    obstacles->AssigneObstacles("1", 1, plan.app->xTaskCol(), relations);
    plan.col().AddObstacles(1, relations->Item(1), obstacles->Item(1));
    plan.col().Remove(1, {}, {}, {}, {}, relations, obstacles, /*ForceDelete=*/True);
    EXPECT_EQ(relations->Count(), 0);
    EXPECT_EQ(plan.failures.Taken(), "TaskObstaclesRelationCol/Remove 5\n");
}

TEST(RemoveATask, IsSilentOfGoalRelationsThatAreTakenTwice) {
    Plan plan;
    plan.Task("Dig").Task("Pour");
    plan.col().SetPhases();
    const auto goals = plan.app->xGoalCol();
    auto relations = plan.app->xTaskGoalRelationcol();
    goals->Add();
    goals->AssigneGoal("1", 1, plan.app->xTaskCol(), relations);
    plan.col().AddGoals(1, relations->Item(1), goals->Item(1));
    plan.col().Remove(1, {}, {}, relations, goals, {}, {}, /*ForceDelete=*/True);
    EXPECT_EQ(relations->Count(), 0);
    EXPECT_EQ(FreedIn(plan.app->oPublicStaticCls(), Keys::GoalRelation), "1");
}

TEST(RemoveATask, ClearsTheAssignmentsOfTheProject) {
    Plan plan;
    plan.Task("Dig").Task("Pour");
    plan.col().SetPhases();
    const auto people = plan.app->xPeopleCol();
    auto relations = plan.app->xTaskPeopleRelationcol();
    people->Add();
    people->AssignePerson("1", 1, plan.app->xTaskCol(), relations);
    plan.col().Remove(1, relations, people, {}, {}, {}, {}, /*ForceDelete=*/True);
    EXPECT_EQ(relations->Count(), 0);
    EXPECT_FALSE(plan.col().Item(1));
}

}  // namespace
}  // namespace mrlxmlclass::testing
