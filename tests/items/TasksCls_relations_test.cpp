#include "mrlxmlclass/runtime/Text.h"
#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

Ref<TasksCls> TaskOf(Long key) {
    auto task = Make<TasksCls>();
    task->TaskKey(key);
    return task;
}

TEST(TaskRelations, AreMadeOnFirstReadAndDroppedByAChangeOfTheFlag) {
    Items s;
    const auto task = TaskOf(1);
    EXPECT_EQ(task->TaskGoalRelationValid(), False);
    const auto goals = task->TaskGoalRelation();
    EXPECT_EQ(task->TaskGoalRelationValid(), True);
    task->TaskGoalRelationValid(False);
    EXPECT_FALSE(task->TaskGoalRelation() == goals);
    EXPECT_EQ(task->TaskGoalRelationValid(), True);
    EXPECT_TRUE(task->TaskNoteRelation());
    EXPECT_TRUE(task->TaskObstaclesRelation());
    EXPECT_TRUE(task->TaskPeopleRelation());
    const auto people = Make<TaskAssigmentRelationCol>();
    task->TaskPeopleRelation(people);
    EXPECT_EQ(task->TaskPeopleRelation(), people);
}

TEST(TaskRelations, AreRefusedWhenFilledFromInsideWithTheirFlagDown) {
    Items s;
    const auto task = TaskOf(1);
    In(task).TaskGoalRelation_Int(Make<TaskGoalRelationCol>());
    In(task).TaskObstaclesRelation_Int(Make<TaskObstaclesRelationCol>());
    EXPECT_FALSE(task->TaskGoalRelation());
    EXPECT_FALSE(task->TaskObstaclesRelation());
    EXPECT_EQ(s.failures.Taken(), "TasksCls/TaskGoalRelation 1\nTasksCls/TaskObstaclesRelation 1\n");
    In(task).TaskGoalRelationValid_Int(True);
    EXPECT_TRUE(task->TaskGoalRelation());
}

TEST(TaskRelations, KeepsTheLabelAndTheWordsOfThePeoplesRefusal) {
    Items s;
    const auto task = TaskOf(1);
    In(task).TaskPoepleRelation_Int(Make<TaskAssigmentRelationCol>());
    EXPECT_FALSE(task->TaskPeopleRelation());
    EXPECT_EQ(s.failures.LatestWords(),
              "The Property TaskPeopleRelationValid is not valid set m_m_TaskPeopleRelationValid = true");
    EXPECT_EQ(s.failures.Taken(), "TasksCls/TaskObstaclesRelation 1\n");
}

TEST(TaskRelations, KeepsTheRefusalOfTheNotesWithoutANumber) {
    Items s;
    const auto task = TaskOf(1);
    In(task).TaskNoteRelation_Int(Make<TaskNoteRelationCol>());
    EXPECT_FALSE(task->TaskNoteRelation());
    EXPECT_EQ(s.failures.Taken(), "TasksCls/TaskNoteRelation 0\n");
}

TEST(TaskCopies, AreMadeOnFirstReadAndOnlyThePeopleAreSharedWithAClone) {
    Items s;
    const auto task = TaskOf(1);
    const auto clone = task->Clone();
    EXPECT_EQ(clone->TasksPeople(), task->TasksPeople());
    EXPECT_FALSE(clone->TasksGoals() == task->TasksGoals());
    EXPECT_FALSE(clone->TaskNotes() == task->TaskNotes());
    EXPECT_FALSE(clone->TaskObstacles() == task->TaskObstacles());
}

TEST(PeopleAsString, JoinsNamesAndTakesTheCompanyForABlankName) {
    Items s;
    const auto task = TaskOf(1);
    EXPECT_EQ(task->PeopleAsString(), "");
    task->TasksPeople()->oPublicStaticCls = s.counters;
    task->TasksPeople()->AddItem(s.Person("Ann"));
    const auto firm = s.Person("  ");
    firm->PersonCompany("Diggers");
    task->TasksPeople()->AddItem(firm);
    EXPECT_EQ(task->PeopleAsString(), "Ann, Diggers");
}

TEST(GoalsAsString, EndsEachNameWithASemicolonAndABlank) {
    Items s;
    const auto task = TaskOf(1);
    task->TasksGoals(s.Master<GoalsCol>());
    task->TasksGoals()->AddItem(s.Goal("Dry"));
    EXPECT_EQ(task->GoalsAsString(), "Dry; ");
    task->TaskObstacles(s.Master<obstaclesCol>());
    for (const char* name : {"Rain", "Frost"}) task->TaskObstacles()->Add()->ObstaclesName(name);
    EXPECT_EQ(task->ObstaclesAsString(), "Rain; Frost; ");
}

TEST(NoteAsString, JoinsTextsAndLinksWithNothingBetween) {
    Items s;
    const auto task = TaskOf(1);
    EXPECT_EQ(task->HasAttachemt(), False);
    for (const char* key : {"1", "2"}) {
        const auto note = s.Note(String("n") + key);
        note->NoteKey(key);
        if (String(key) == "2") note->NoteLink("l");
        task->TaskNotes()->AddItem(note);
    }
    EXPECT_EQ(task->NoteAsString(), "n1n2");
    EXPECT_EQ(task->LinkAsString(), "l");
    EXPECT_EQ(task->HasAttachemt(), True);
}

TEST(NoteIndex, CountsFromOneAndIsMinusOneForAnAbsentNote) {
    Items s;
    const auto task = TaskOf(1);
    EXPECT_EQ(task->NoteIndex("4"), -1);
    for (const char* key : {"4", "5"}) {
        const auto note = s.Note(key);
        note->NoteKey(key);
        task->TaskNotes()->AddItem(note);
    }
    EXPECT_EQ(task->NoteIndex("4"), 1);
    EXPECT_EQ(task->NoteIndex("5"), 2);
    EXPECT_EQ(task->NoteIndex("05"), -1);
    EXPECT_EQ(task->NoteExist("5"), True);
    EXPECT_EQ(task->NoteExist("6"), False);
    EXPECT_EQ(task->GetTaskNote("5")->NoteDescription(), "5");
    EXPECT_FALSE(task->GetTaskNote("6"));
}

TEST(TaskQuestions, KeepsTheLabelsOfOtherMembers) {
    Items s;
    const auto task = TaskOf(1);
    In(task->TasksPeople()).File("1", {});
    In(task->TaskNotes()).File("1", {});
    EXPECT_EQ(task->HasAttachemt(), False);
    EXPECT_EQ(task->isAssigned(1), False);
    EXPECT_EQ(task->UpdatePeopleCollection({}, {}, Variant::Null{}), False);
    EXPECT_EQ(s.failures.Taken(),
              "TasksCls/NoteAsString 91\nTasksCls/isPredecessor 91\nTasksCls/SetPeopleCollection 13\n");
}

TEST(isAssigned, TakesTheKeyAsANumberOrAText) {
    Items s;
    const auto task = TaskOf(1);
    task->TasksPeople(s.Master<PeopleCol>());
    task->TasksPeople()->Add();
    EXPECT_EQ(task->isAssigned(1), True);
    EXPECT_EQ(task->isAssigned("1"), True);
    EXPECT_EQ(task->isAssigned(2), False);
}

TEST(GetTaskPeopleRelation, GivesTheFirstKeyOrEmpty) {
    Items s;
    const auto task = TaskOf(1);
    EXPECT_TRUE(task->GetTaskPeopleRelation(5).is_empty());
    for (const char* key : {"8", "9"}) task->TaskPeopleRelation()->Add(key)->personkey(5);
    EXPECT_EQ(task->GetTaskPeopleRelation("5"), Variant("8"));
}

TEST(TaskQuestionsAndTexts, MakeNoCollectionsSoThatNothingNewIsWritten) {
    Items s;
    const auto task = TaskOf(1);
    const String before = task->ToXml(False);
    (void)task->PeopleAsString();
    (void)task->isAssigned(1);
    (void)task->GetTaskPeopleRelation(1);
    task->SetPeopleCollection(Make<TaskAssigmentRelationCol>(), Make<PeopleCol>());
    task->SetGoalCollection(Make<TaskGoalRelationCol>(), Make<GoalsCol>());
    EXPECT_EQ(task->ToXml(False), before);
    EXPECT_FALSE(In(task).PeekPeople());
    EXPECT_FALSE(In(task).PeekGoals());
}

TEST(RemoveTaskRelation, TakesTheKeysFromTheProjectAndLeavesTheTasksOwn) {
    Items s;
    const auto task = TaskOf(1);
    Ref<TaskAssigmentRelationCol> project = s.Master<TaskAssigmentRelationCol>();
    for (const char* key : {"1", "2", "3"}) {
        project->Add(key);
        if (String(key) != "2") task->TaskPeopleRelation()->Add(key);
    }
    EXPECT_EQ(task->RemoveTaskRelation(project), True);
    EXPECT_EQ(KeysOf(project), "2");
    EXPECT_EQ(KeysOf(task->TaskPeopleRelation()), "1 3");
    EXPECT_EQ(TaskOf(2)->RemoveGoalRelation({}), True);  // nothing to take
}

TEST(RemoveObstacleRelation, RecordsAKeyThatTheProjectDoesNotHave) {
    Items s;
    const auto task = TaskOf(1);
    task->TaskObstaclesRelation()->Add("4");
    EXPECT_EQ(task->RemoveObstacleRelation(Make<TaskObstaclesRelationCol>()), True);
    EXPECT_EQ(s.failures.Taken(), "TaskObstaclesRelationCol/Remove 5\n");
}

/// A task with bare relations 1, 2 and 3, of which the project has 1 and 3; items 11 and 13 are theirs.
template <class Relations>
void Fill(const Ref<Relations>& own, const Ref<Relations>& project) {
    for (const int key : {1, 2, 3}) {
        own->Add(std::to_string(key));
        if (key == 2) continue;
        const auto relation = project->Add(std::to_string(key));
        relation->TaskKey(4);
        if constexpr (std::same_as<Relations, TaskNoteRelationCol>) {
            relation->NoteKey(std::to_string(10 + key));
        } else {
            In(relation).item_key(10 + key);
        }
    }
}

TEST(SetPeopleCollection, PassesByAKeyThatTheProjectDoesNotHave) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskAssigmentRelationCol>();
    const auto people = s.Master<PeopleCol>();
    Fill(task->TaskPeopleRelation(), project);
    s.counters->PersonKeyValue(10);
    for (int i = 0; i < 3; ++i) people->Add();
    task->SetPeopleCollection(project, people);
    EXPECT_EQ(KeysOf(task->TasksPeople()), "11 13");
    EXPECT_EQ(KeysOf(task->TaskPeopleRelation()), "1 2 3");
    EXPECT_EQ(task->TaskPeopleRelation()->Item(3)->personkey(), 13);
    EXPECT_EQ(task->TaskPeopleRelation()->Item(2)->personkey(), 0);
}

TEST(SetPeopleCollection, PassesByAnotherTasksRelationAndAMissingPerson) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskAssigmentRelationCol>();
    Fill(task->TaskPeopleRelation(), project);
    const auto people = s.Master<PeopleCol>();
    s.counters->PersonKeyValue(10);
    for (int i = 0; i < 2; ++i) people->Add();  // 11 and 12; nobody is 13
    project->Item(1)->TaskKey(5);
    task->SetPeopleCollection(project, people);
    EXPECT_EQ(KeysOf(task->TasksPeople()), "");
}

TEST(SetNoteCollection, PassesByAKeyThatTheProjectDoesNotHave) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskNoteRelationCol>();
    const auto notes = s.Master<NotesCol>();
    Fill(task->TaskNoteRelation(), project);
    In(s.counters).Counter(Keys::Note, 10);
    for (int i = 0; i < 3; ++i) notes->AddItem(s.Note("n"));
    task->SetNoteCollection(project, notes);
    EXPECT_EQ(KeysOf(task->TaskNotes()), "11 13");
}

TEST(SetNoteCollection, RecordsARelationThatLeadsToNoNoteAndGoesOn) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskNoteRelationCol>();
    const auto notes = s.Master<NotesCol>();
    Fill(task->TaskNoteRelation(), project);
    In(s.counters).Counter(Keys::Note, 12);
    notes->AddItem(s.Note("the note 13"));
    task->SetNoteCollection(project, notes);
    EXPECT_EQ(KeysOf(task->TaskNotes()), "13");
    EXPECT_EQ(s.failures.Taken(), "NotesCol/Item 5\nTaskNotes/AddItem 91\n");
}

TEST(SetItemCollections, KeepsGivingFalseWhenAllWentWell) {
    Items s;
    const auto task = TaskOf(4);
    const auto goals = s.Master<GoalsCol>();
    const auto obstacles = s.Master<obstaclesCol>();
    const auto people = s.Master<PeopleCol>();
    const auto notes = s.Master<NotesCol>();
    goals->Add();
    obstacles->Add();
    people->Add();
    notes->AddItem(s.Note("n"));
    const auto tied = [](const auto& own, const auto& item_key) {
        const auto relation = own->Add("1");
        relation->TaskKey(4);
        In(relation).item_key(item_key);
        return own->Clone();  // the project's, with the same relation
    };
    EXPECT_EQ(task->SetGoalCollection(tied(task->TaskGoalRelation(), 1), goals), False);
    EXPECT_EQ(task->SetobstaclesCollection(tied(task->TaskObstaclesRelation(), 1), obstacles), False);
    EXPECT_EQ(task->SetPeopleCollection(tied(task->TaskPeopleRelation(), 1), people), False);
    EXPECT_EQ(task->SetNoteCollection(tied(task->TaskNoteRelation(), "1"), notes), False);
    EXPECT_EQ(KeysOf(task->TasksGoals()), "1");
    EXPECT_EQ(KeysOf(task->TaskObstacles()), "1");
    EXPECT_EQ(KeysOf(task->TasksPeople()), "1");
    EXPECT_EQ(KeysOf(task->TaskNotes()), "1");
}

TEST(SetGoalCollection, KeepsEndingAtAKeyThatLeadsNowhere) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskGoalRelationCol>();
    const auto goals = s.Master<GoalsCol>();
    Fill(task->TaskGoalRelation(), project);
    s.counters->GoalKeyValue(10);
    for (int i = 0; i < 3; ++i) goals->Add();
    EXPECT_EQ(task->SetGoalCollection(project, goals), False);
    EXPECT_EQ(KeysOf(task->TasksGoals()), "11");
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/Item 5\nTasksCls/SetGoalCollection 91\n");
}

TEST(SetobstaclesCollection, KeepsEndingAtAMissingObstacleUnderAnotherLabel) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskObstaclesRelationCol>();
    Fill(task->TaskObstaclesRelation(), project);
    EXPECT_EQ(task->SetobstaclesCollection(project, Make<obstaclesCol>()), False);
    EXPECT_EQ(s.failures.Taken(), "obstaclesCol/Item 5\nTasksCls/SetObstaclesCollection 91\n");
}

TEST(UpdatePeopleCollection, TakesTheCopyOfAPersonAnew) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskAssigmentRelationCol>();
    const auto people = s.Master<PeopleCol>();
    people->Add()->PersonName("Ann");
    task->TaskPeopleRelation()->Add("1")->personkey(1);
    project->Add("1")->personkey(1);
    task->TasksPeople()->AddItem(people->Item(1));
    people->Item(1)->PersonName("Anna");
    EXPECT_EQ(task->PeopleAsString(), "Ann");
    EXPECT_EQ(task->UpdatePeopleCollection(project, people, "2"), False);
    EXPECT_EQ(task->UpdatePeopleCollection(project, people, "1"), True);
    EXPECT_EQ(task->PeopleAsString(), "Anna");
}

TEST(UpdatePeopleCollection, ComparesAsNumbersAndRemovesByText) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskAssigmentRelationCol>();
    const auto people = s.Master<PeopleCol>();
    people->Add()->PersonName("Ann");
    task->TaskPeopleRelation()->Add("1")->personkey(1);
    task->TaskPeopleRelation()->Add("2");
    project->Add("1")->personkey(1);
    task->TasksPeople()->AddItem(people->Item(1));
    for (const char* nobody : {"99999999999", "1.5", "2"}) {
        EXPECT_EQ(task->UpdatePeopleCollection(project, people, nobody), False) << nobody;
    }
    people->Item(1)->PersonName("Anna");
    EXPECT_EQ(task->UpdatePeopleCollection(project, people, "01"), True);
    EXPECT_EQ(task->PeopleAsString(), "Ann") << "Kept: no copy stands under \"01\", so the new one has no place";
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/AddItem 457\n");
}

TEST(UpdatePeopleCollection, TakesThePersonWhomTheProjectsRelationNames) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskAssigmentRelationCol>();
    const auto people = s.Master<PeopleCol>();
    for (const char* name : {"Ann", "Bob"}) people->Add()->PersonName(name);
    task->TaskPeopleRelation()->Add("1")->personkey(1);
    project->Add("1")->personkey(2);
    task->TasksPeople()->AddItem(people->Item(1));
    EXPECT_EQ(task->UpdatePeopleCollection(project, people, 1), True);
    EXPECT_EQ(task->PeopleAsString(), "Bob");
}

TEST(UpdatePeopleCollection, LosesTheCopyOfAPersonWhomTheProjectLost) {
    Items s;
    const auto task = TaskOf(4);
    const auto project = Make<TaskAssigmentRelationCol>();
    task->TaskPeopleRelation()->Add("1")->personkey(1);
    project->Add("1")->personkey(1);
    const auto ann = s.Person("Ann");
    ann->personkey(1);
    task->TasksPeople()->AddItem(ann);
    EXPECT_EQ(task->UpdatePeopleCollection(project, Make<PeopleCol>(), 1), True);  // it was the task's person
    EXPECT_EQ(task->TasksPeople()->Count(), 0);
    EXPECT_EQ(s.failures.Taken(), "PeopleCol/Item 5\nPeopleCol/AddItem 91\n");
}

TEST(UpdatePeopleCollection, LosesTheCopyAndFailsWhereTheProjectLostTheRelation) {
    Items s;
    const auto task = TaskOf(4);
    const auto people = s.Master<PeopleCol>();
    people->Add()->PersonName("Ann");
    task->TaskPeopleRelation()->Add("1")->personkey(1);
    task->TasksPeople()->AddItem(people->Item(1));
    EXPECT_EQ(task->UpdatePeopleCollection(Make<TaskAssigmentRelationCol>(), people, 1), False);
    EXPECT_EQ(task->TasksPeople()->Count(), 0);
    EXPECT_EQ(s.failures.Taken(), "TasksCls/SetPeopleCollection 91\n");
}

TEST(UpdatePeopleCollection, LosesTheCopyBeforeItLooksIntoTheProjectsLists) {
    for (const bool relations_missing : {true, false}) {
        Items s;
        const auto task = TaskOf(4);
        const auto people = s.Master<PeopleCol>();
        const auto project = Make<TaskAssigmentRelationCol>();
        people->Add();
        project->Add("1")->personkey(1);
        task->TaskPeopleRelation()->Add("1")->personkey(1);
        task->TasksPeople()->AddItem(people->Item(1));
        EXPECT_EQ(relations_missing ? task->UpdatePeopleCollection({}, people, 1)
                                    : task->UpdatePeopleCollection(project, {}, 1),
                  False);
        EXPECT_EQ(task->TasksPeople()->Count(), 0);
        EXPECT_EQ(s.failures.Taken(), "TasksCls/SetPeopleCollection 91\n");
    }
}

TEST(TaskKeyLists, ComeBackFromTheTasksElement) {
    Items s;
    const auto task = TaskOf(4);
    task->TaskPeopleRelation()->Add("8");
    task->TaskGoalRelation()->Add("9");
    task->TaskNoteRelation()->Add("6");
    task->TaskObstaclesRelation()->Add("5");
    const String xml = task->ToXml(False);
    EXPECT_NE(xml.find("<TaskPeopleRelationKeys><tKey>8</tKey></TaskPeopleRelationKeys>"), String::npos) << xml;
    const auto read = Make<TasksCls>();
    EXPECT_EQ(read->FromXml(xml, s.counters), True);
    EXPECT_EQ(KeysOf(read->TaskPeopleRelation()), "8");
    EXPECT_EQ(KeysOf(read->TaskGoalRelation()), "9");
    EXPECT_EQ(KeysOf(read->TaskNoteRelation()), "6");
    EXPECT_EQ(KeysOf(read->TaskObstaclesRelation()), "5");
}

TEST(TaskKeyLists, LoadNothingFromElementsWithoutThePrefix) {
    Items s;
    const auto task = TaskOf(4);
    task->TaskPeopleRelation()->Add("8");
    const auto read = Make<TasksCls>();
    EXPECT_EQ(read->FromXml(Replace(task->ToXml(False), "tKey>", "Key>"), s.counters), True);
    EXPECT_EQ(read->TaskPeopleRelationValid(), True);
    EXPECT_EQ(read->TaskPeopleRelation()->Count(), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
