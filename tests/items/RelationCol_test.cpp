#include "tests/items/Items.h"

namespace mrlxmlclass::testing {
namespace {

TEST(RelationAdd, TakesTheIdOrIssuesAKey) {
    Items s;
    const auto goals = s.Master<TaskGoalRelationCol>();
    EXPECT_EQ(goals->Add("7")->elementKey(), "7");
    EXPECT_EQ(goals->Add()->elementKey(), "1");
    EXPECT_EQ(In(goals->Item(1)).elementName(), "TaskGoalRelation");
    const auto notes = s.Master<TaskNoteRelationCol>();
    EXPECT_EQ(In(notes->Add()).elementName(), "TaskNoteKeys");  // the one kind that keeps its own name
}

TEST(RelationAdd, TheSecondWithTheSameIdFailsAndTheFirstStays) {
    Items s;
    const auto goals = s.Master<TaskGoalRelationCol>();
    const auto first = goals->Add("7");
    EXPECT_FALSE(goals->Add("7"));
    EXPECT_EQ(goals->Item(7), first);
    EXPECT_EQ(goals->Count(), 1);
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/Add 457\n");
}

TEST(RelationAddItem, OfAnAssignmentWithKeyZeroIssuesANewOneToTheClone) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    const auto relation = Make<TaskAssigmentRelationCls>();
    EXPECT_EQ(project->AddItem(relation)->elementKey(), "1");
    EXPECT_EQ(relation->elementKey(), "0");
    EXPECT_EQ(KeysOf(project), "1");
}

TEST(RelationAddItem, NumbersTheKeyOfAGoalRelationOnly) {
    Items s;
    EXPECT_EQ(s.Master<TaskGoalRelationCol>()->AddItem(s.Bare<TaskGoalRelationCls>("07"))->elementKey(), "7");
    EXPECT_EQ(s.Master<TaskGoalRelationCol>()->AddItem(s.Bare<TaskGoalRelationCls>("7x"))->elementKey(), "7");
    EXPECT_EQ(s.Master<TaskGoalRelationCol>()->AddItem(s.Bare<TaskGoalRelationCls>("x"))->elementKey(), "1");
    EXPECT_EQ(s.Master<TaskAssigmentRelationCol>()->AddItem(s.Bare<TaskAssigmentRelationCls>("07"))->elementKey(),
              "07");
    EXPECT_EQ(s.Master<TaskNoteRelationCol>()->AddItem(s.Bare<TaskNoteRelationCls>(""))->elementKey(), "1");
}

TEST(RelationAddItem, TakesAKeyForOneWhenDigitsLead) {
    Items s;
    EXPECT_EQ(s.Master<TaskAssigmentRelationCol>()->AddItem(s.Bare<TaskAssigmentRelationCls>("7x"))->elementKey(),
              "7x");
    EXPECT_EQ(s.Master<TaskAssigmentRelationCol>()->AddItem(s.Bare<TaskAssigmentRelationCls>("x7"))->elementKey(), "1");
    EXPECT_EQ(s.Master<TaskNoteRelationCol>()->AddItem(s.Bare<TaskNoteRelationCls>("7x"))->elementKey(), "7x");
    EXPECT_EQ(s.Master<TaskNoteRelationCol>()->AddItem(s.Bare<TaskNoteRelationCls>("0x"))->elementKey(), "1");
}

TEST(RelationAddItem, FilesAKeyBeyondALongAsItStandsButForAGoal) {
    Items s;
    const String key = "99999999999";
    EXPECT_EQ(s.Master<TaskAssigmentRelationCol>()->AddItem(s.Bare<TaskAssigmentRelationCls>(key))->elementKey(), key);
    EXPECT_EQ(s.Master<TaskNoteRelationCol>()->AddItem(s.Bare<TaskNoteRelationCls>(key))->elementKey(), key);
    EXPECT_FALSE(s.Master<TaskGoalRelationCol>()->AddItem(s.Bare<TaskGoalRelationCls>(key)));
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/AddItem 6\n");
}

TEST(RelationAddItem, FilesAnObstacleRelationAsItStandsEvenWithoutAKey) {
    Items s;
    const auto project = s.Master<TaskObstaclesRelationCol>();
    EXPECT_EQ(project->AddItem(s.Bare<TaskObstaclesRelationCls>(""))->elementKey(), "");
    EXPECT_FALSE(project->AddItem(s.Bare<TaskObstaclesRelationCls>("")));
    EXPECT_TRUE(project->Item(""));
    EXPECT_EQ(s.failures.Taken(), "TaskObstaclesRelationCol/AddItem 457\n");
}

TEST(RelationAddItem, NamesTheCloneAfterTheCollectionButForANote) {
    Items s;
    const auto goal = s.Master<TaskGoalRelationCol>()->AddItem(s.Bare<TaskGoalRelationCls>("7"));
    const auto note = s.Master<TaskNoteRelationCol>()->AddItem(s.Bare<TaskNoteRelationCls>("7"));
    EXPECT_EQ(In(goal).elementName(), "TaskGoalRelation");
    EXPECT_EQ(In(note).elementName(), "TaskNoteKeys");
}

TEST(RelationAddItem, WithoutCountersFilesUnderZeroAndRecordsIt) {
    Items s;
    const auto own = Make<TaskAssigmentRelationCol>();
    own->AddItem(Make<TaskAssigmentRelationCls>());
    EXPECT_EQ(KeysOf(own), "0");
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCls/IncrementID 91\n");
}

TEST(RelationItem, TakesANumberAsAKey) {
    Items s;
    const auto project = s.Master<TaskObstaclesRelationCol>();
    project->Add("7");
    EXPECT_TRUE(project->Item(7));
    EXPECT_FALSE(project->Item(1));
    EXPECT_EQ(s.failures.Taken(), "TaskObstaclesRelationCol/Item 5\n");
}

TEST(RelationItem, IsSilentOfAnUnknownAssignmentOnly) {
    Items s;
    EXPECT_FALSE(Make<TaskAssigmentRelationCol>()->Item("x"));
    EXPECT_FALSE(Make<TaskAssigmentRelationCol>()->Item(Variant::Null{}));
    EXPECT_FALSE(Make<TaskGoalRelationCol>()->Item("x"));
    EXPECT_FALSE(Make<TaskNoteRelationCol>()->Item("x"));
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/Item 5\nTaskNoteRelationCol/Item 5\n");
}

TEST(RelationRemove, OfAGoalRelationTwiceFreesTheKeyOnceWithoutAReport) {
    Items s;
    const auto project = s.Master<TaskGoalRelationCol>();
    project->Add("4");
    project->Remove("4");
    project->Remove("4");
    EXPECT_EQ(FreedIn(s.counters, Keys::GoalRelation), "4");
}

TEST(RelationRemove, OfAnAssignmentFromTheTaskThenTheProjectFreesTheKeyOnce) {
    Items s;
    const auto own = s.Master<TaskAssigmentRelationCol>();
    const auto project = s.Master<TaskAssigmentRelationCol>();
    own->Add("4");
    project->Add("4");
    own->Remove(4);
    project->Remove("4");
    EXPECT_EQ(FreedIn(s.counters, Keys::AssigmentRelation), "4");
    EXPECT_EQ(project->Add()->elementKey(), "4");
}

TEST(RelationRemove, OfAnAssignmentGivesItsKeyBackToTheLetter) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    for (const char* key : {"07", "40000"}) {
        project->Add(key);
        project->Remove(key);
        EXPECT_EQ(project->Add()->elementKey(), key);
    }
    EXPECT_EQ(KeysOf(project), "07 40000");
}

TEST(RelationRemove, KeepsFreeingAnAssignmentBeforeItIsGone) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    project->Remove("8");
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCol/Remove 5\n");
    EXPECT_EQ(FreedIn(s.counters, Keys::AssigmentRelation), "8");
}

TEST(RelationRemove, OfAnObstacleRelationFreesNothingAndRecordsAMiss) {
    Items s;
    const auto project = s.Master<TaskObstaclesRelationCol>();
    project->Add();
    project->Remove(1);
    project->Remove(1);
    EXPECT_EQ(s.failures.Taken(), "TaskObstaclesRelationCol/Remove 5\n");
    EXPECT_EQ(FreedIn(s.counters, Keys::ObstacleRelation), "");
    EXPECT_EQ(project->Add()->elementKey(), "2");
}

TEST(RelationRemove, OfANoteRelationLeavesTheFailureToALibraryCallerAndTellsAHostNothing) {
    Items s;
    const auto project = s.Master<TaskNoteRelationCol>();
    project->Remove("1");
    EXPECT_EQ(NumberOf([&] { In(project).RemoveOrRaise("1"); }), 5);
}

TEST(RelationIamNotAvailable, TakesTheKeyOutOfThePoolOfItsKind) {
    Items s;
    const auto goals = s.Master<TaskGoalRelationCol>();
    const auto assigments = s.Master<TaskAssigmentRelationCol>();
    In(s.counters).Free(Keys::GoalRelation, "3");
    In(s.counters).Free(Keys::AssigmentRelation, "3");
    EXPECT_EQ(goals->IamNotAvailable("3"), True);
    EXPECT_EQ(FreedIn(s.counters, Keys::AssigmentRelation), "3");
    EXPECT_EQ(assigments->IamNotAvailable("3"), True);
    EXPECT_EQ(assigments->IamNotAvailable("3"), False);
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCol/IamNotAvailable 5\n");
}

TEST(RelationIamNotAvailable, KeepsAnObstaclePoolThatNothingFills) {
    Items s;
    const auto obstacles = s.Master<TaskObstaclesRelationCol>();
    obstacles->Add();
    obstacles->Remove(1);
    EXPECT_EQ(obstacles->IamNotAvailable("1"), False);
    EXPECT_EQ(s.failures.Taken(), "TaskObstaclesRelationCol/IamNotAvailable 5\n");
}

TEST(RelationIamNotAvailable, TakesAnObstaclesKeyOutOfThePoolOfThatKind) {
    Items s;
    for (const auto pool : {Keys::ObstacleRelation, Keys::Obstacle, Keys::GoalRelation}) In(s.counters).Free(pool, "3");
    EXPECT_EQ(s.Master<TaskObstaclesRelationCol>()->IamNotAvailable("3"), True);
    EXPECT_EQ(FreedIn(s.counters, Keys::ObstacleRelation), "");
    EXPECT_EQ(FreedIn(s.counters, Keys::Obstacle), "3");
    EXPECT_EQ(FreedIn(s.counters, Keys::GoalRelation), "3");
}

TEST(RelationKeysOnly, WritesOneElementARecordWithTheCallersPrefix) {
    Items s;
    const auto own = Make<TaskAssigmentRelationCol>();
    own->Add("3");
    own->Add("1");
    const auto document = Make<dom::Document>();
    document->LoadXML("<W/>");
    own->ToXmlInt(document, document->documentElement(), True, "t");
    EXPECT_NE(document->xml().find("<tKey>3</tKey><tKey>1</tKey>"), String::npos) << document->xml();
}

TEST(RelationKeysOnly, StopsReadingAtAnotherName) {
    Items s;
    const auto read = [&](const char* xml, const char* prefix) {
        const auto document = Make<dom::Document>();
        document->LoadXML(xml);
        const dom::Node wrapper = document->documentElement();
        const auto own = Make<TaskGoalRelationCol>();
        In(own).FromXmlInt(wrapper, wrapper.firstChild(), True, prefix);
        return KeysOf(own);
    };
    EXPECT_EQ(read("<W><!-- of two --><tKey>3</tKey><tKey>1</tKey></W>", "t"), "3 1");
    EXPECT_EQ(read("<W><Key>3</Key><tKey>1</tKey></W>", "t"), "");
    EXPECT_EQ(read("<W><tKey>3</tKey><Key>1</Key><tKey>2</tKey></W>", "t"), "3");
    EXPECT_EQ(read("<W/>", ""), "");
}

TEST(RelationKeysOnly, NamesWhatItReadsAfterTheCollection) {
    Items s;
    const auto document = Make<dom::Document>();
    document->LoadXML("<W><Key>3</Key></W>");
    const auto read = [&](const auto& own) {
        In(own).FromXmlInt(document->documentElement(), document->documentElement().firstChild(), True);
        return In(own->Item("3")).elementName();
    };
    EXPECT_EQ(read(Make<TaskGoalRelationCol>()), "TaskGoalRelation");
    EXPECT_EQ(read(Make<TaskNoteRelationCol>()), "TaskNoteRelation") << "this kind, too";
}

TEST(RelationKeysOnly, YieldsAtEveryNodeAndEndsAtADuplicateKey) {
    Items s;
    const auto document = Make<dom::Document>();
    document->LoadXML("<W><Key>3</Key><Key>3</Key><Key>4</Key></W>");
    const auto own = Make<TaskNoteRelationCol>();
    In(own).FromXmlInt(document->documentElement(), document->documentElement().firstChild(), True);
    EXPECT_EQ(KeysOf(own), "3");
    EXPECT_EQ(s.ui.yields, 2);
    EXPECT_EQ(s.failures.Taken(), "TaskNoteRelationCol/FromXmlInt 457\n");
}

TEST(RemoveForRelatedPople, ClearsTheTasksAndTheProjectAndNothingElse) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    auto tasks = Make<TasksCol>();
    for (const int key : {1, 2}) {
        const auto task = tasks->Add(std::to_string(key));
        task->TaskKey(key);
        const auto relation = Make<TaskAssigmentRelationCls>();
        relation->TaskKey(key);
        relation->personkey(key == 1 ? 5 : 6);
        relation->elementKey(std::to_string(10 + key));
        project->AddItem(relation);
        task->TaskPeopleRelation()->AddItem(relation);
        task->TasksPeople()->Add("x");
    }
    String person = " 5";
    EXPECT_EQ(project->RemoveForRelatedPople(person, tasks), True);
    EXPECT_EQ(KeysOf(project), "12");
    EXPECT_EQ(tasks->Item(1)->TaskPeopleRelation()->Count(), 0);
    EXPECT_EQ(tasks->Item(2)->TaskPeopleRelation()->Count(), 1);
    EXPECT_EQ(tasks->Item(1)->TasksPeople()->Count(), 1);
}

TEST(RemoveForRelatedPople, ComparesAsNumbers) {
    struct Row {
        const char* person;
        const char* left;
    };
    for (const Row& row : {Row{"7.0", "1"}, Row{"07", "1"}, Row{"7.5", "1 2"}, Row{"99999999999", "1 2"}, Row{"", "2"},
                           Row{"Ann", "2"}}) {
        SCOPED_TRACE(row.person);
        Items s;
        const auto project = s.Master<TaskAssigmentRelationCol>();
        const auto tasks = Make<TasksCol>();
        const auto task = tasks->Add("3");
        for (const auto& [key, person] : {std::pair("1", 0), std::pair("2", 7)}) {
            const auto relation = s.Bare<TaskAssigmentRelationCls>(key);
            relation->TaskKey(3);
            relation->personkey(person);
            project->AddItem(relation);
            task->TaskPeopleRelation()->AddItem(relation);
        }
        EXPECT_EQ(project->RemoveForRelatedPople(row.person, tasks), True);
        EXPECT_EQ(KeysOf(project), row.left);
    }
}

TEST(RemoveForRelatedPople, EndsAtATaskThatIsNotThere) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    for (const char* key : {"1", "2"}) {
        const auto relation = s.Bare<TaskAssigmentRelationCls>(key);
        relation->personkey(5);
        project->AddItem(relation);
    }
    EXPECT_EQ(project->RemoveForRelatedPople("5", Make<TasksCol>()), False);
    EXPECT_EQ(project->Count(), 2);
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCol/RemoveForRelatedPople 91\n");
}

TEST(RemoveForRelatedPople, RecordsWhatATaskDoesNotHaveAndGoesOn) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    auto tasks = s.Master<TasksCol>();
    tasks->Add();
    for (const char* key : {"1", "2", "3"}) {
        const auto relation = project->Add(key);
        relation->TaskKey(1);
        relation->personkey(5);
        if (*key != '2') tasks->Item(1)->TaskPeopleRelation()->AddItem(relation);
    }
    EXPECT_EQ(project->RemoveForRelatedPople("5", tasks), True);
    EXPECT_EQ(project->Count(), 0);
    EXPECT_EQ(tasks->Item(1)->TaskPeopleRelation()->Count(), 0);
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCol/Remove 5\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
