#include "mrlxmlclass/session/ErrorsHandler.h"
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
        const std::weak_ptr<const void> contents = two.project->Contents();
        s.ui.on_yield = [&] {
            two.project->LoadXML(text);
            EXPECT_FALSE(contents.expired()) << "they are being read";
        };
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

// --- Adding without counters -----------------------------------------------------------------------------------------

/// A list that can issue no key, and of which the host lets go when it hears so.
template <class Col>
void ExpectAddingToItsEnd(const char* failed) {
    SCOPED_TRACE(failed);
    Items s;
    {
        HeldByHost<Col> col(s);
        EXPECT_TRUE(col->Add());
        EXPECT_TRUE(col.outlived());
        EXPECT_EQ(s.failures.Taken(), failed);
    }
    HeldByHost<Col> col(s);
    EXPECT_TRUE(col->AddItem(Make<typename Col::Held>()));
    EXPECT_TRUE(col.outlived());
    EXPECT_EQ(s.failures.Taken(), failed);
}

TEST(ItemAdd, GoesToItsEndUnderAListenerThatLetsGoOfTheList) {
    ExpectAddingToItsEnd<PeopleCol>("peopleCls/IncrementID 91\n");
    ExpectAddingToItsEnd<GoalsCol>("GoalCls/IncrementID 91\n");
    ExpectAddingToItsEnd<obstaclesCol>("ObstaclesCls/IncrementID 91\n");
}

TEST(RelationAdd, GoesToItsEndUnderAListenerThatLetsGoOfTheList) {
    ExpectAddingToItsEnd<TaskAssigmentRelationCol>("TaskAssigmentRelationCls/IncrementID 91\n");
    ExpectAddingToItsEnd<TaskGoalRelationCol>("TaskGoalRelationCls/IncrementID 91\n");
    ExpectAddingToItsEnd<TaskNoteRelationCol>("TaskNoteRelationCls/IncrementID 91\n");
}

// --- Tying and wiring ------------------------------------------------------------------------------------------------

TEST(AssigneGoal, GoesToItsEndUnderAListenerThatLetsGoOfTheGoals) {
    Items s;
    HeldByHost<GoalsCol> goals(s);
    const Ref<GoalsCls> goal = s.Goal("Dry");
    goal->Goalkey(1);
    const Ref<GoalsCls> dry = goals->AddItem(goal);
    const auto task = Make<TasksCls>();
    task->TaskKey(4);
    Ref<TasksCol> tasks = Make<TasksCol>();
    tasks->AddItem(task);
    EXPECT_EQ(goals->AssigneGoal("1", 4, tasks, s.Master<TaskGoalRelationCol>()), True);
    EXPECT_TRUE(goals.outlived());
    EXPECT_EQ(KeysOf(dry->Tasks()), "4");
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCls/IncrementID 91\nTaskGoalRelationCls/IncrementID 91\n")
        << "no key from the goals, nor from the goal's own list";
}

TEST(SetTasksCollectionOfAGoal, GoesToItsEndUnderAListenerThatLetsGoOfIt) {
    Items s;
    HeldByHost<GoalsCls> goal(s);
    const Ref<TasksCol> copies = goal->Tasks();
    for (const char* key : {"1", "2"}) goal->TaskGoalRelation()->Add(key);
    auto project = s.Master<TaskGoalRelationCol>();
    project->Add("2")->TaskKey(4);
    const auto task = Make<TasksCls>();
    task->TaskKey(4);
    const auto tasks = Make<TasksCol>();
    tasks->AddItem(task);
    EXPECT_EQ(goal->SetTasksCollection(project, tasks), True);
    EXPECT_TRUE(goal.outlived());
    EXPECT_EQ(KeysOf(copies), "4");
    EXPECT_EQ(s.failures.Taken(), "TaskGoalRelationCol/Item 5\n");
}

TEST(SetNoteCollection, GoesToItsEndUnderAListenerThatLetsGoOfTheTask) {
    Items s;
    HeldByHost<TasksCls> task(s);
    const auto project = s.Master<TaskNoteRelationCol>();
    for (const char* key : {"1", "2"}) task->TaskNoteRelation()->AddItem(project->Add(key));
    project->Item("1")->NoteKey("8");
    project->Item("2")->NoteKey("9");
    const auto notes = s.Master<NotesCol>();
    const auto note = s.Note("the other is missing");
    note->NoteKey("9");
    notes->AddItem(note);
    const Ref<TaskNotes> copies = task->TaskNotes();
    task->SetNoteCollection(project, notes);
    EXPECT_TRUE(task.outlived());
    EXPECT_EQ(KeysOf(copies), "9");
    EXPECT_EQ(s.failures.Taken(), "NotesCol/Item 5\nTaskNotes/AddItem 91\n");
}

TEST(AddAssigment, GoesToItsEndUnderAListenerThatLetsGoOfTheTasks) {
    Items s;
    HeldByHost<TasksCol> tasks(s);
    tasks->oPublicStaticCls = s.counters;
    const Ref<TasksCls> task = tasks->Add();
    tasks->AddAssigment(1, Make<TaskAssigmentRelationCls>(), s.Person("Ann"));
    EXPECT_TRUE(tasks.outlived());
    EXPECT_EQ(task->PeopleAsString(), "Ann");
    EXPECT_EQ(task->TaskPeopleRelation()->oPublicStaticCls, s.counters);
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCls/IncrementID 91\npeopleCls/IncrementID 91\n");
}

TEST(RemoveForRelatedPople, GoesToItsEndUnderAListenerThatLetsGoOfTheRelations) {
    Items s;
    HeldByHost<TaskAssigmentRelationCol> project(s);
    project->oPublicStaticCls = s.counters;
    auto tasks = s.Master<TasksCol>();
    tasks->Add();
    for (const char* key : {"1", "2"}) {
        const auto relation = project->Add(key);
        relation->TaskKey(1);
        relation->personkey(5);
    }
    EXPECT_EQ(project->RemoveForRelatedPople("5", tasks), True);
    EXPECT_TRUE(project.outlived());
    EXPECT_EQ(FreedIn(s.counters, Keys::AssigmentRelation), "1 2");
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCol/Remove 5\nTaskAssigmentRelationCol/Remove 5\n")
        << "the task's own list has neither";
}

/// Gives the second relation to the person and takes the third away from them when the first failure is told.
class Reassigns : public ErrorsHandlerEvents {
public:
    explicit Reassigns(TaskAssigmentRelationCol& relations) : relations_(relations) {}
    void RaiseErrors(const String&, const String&) override {
        if (const auto second = relations_.Item("2")) second->personkey(5);
        if (const auto third = relations_.Item("3")) third->personkey(6);
    }

private:
    TaskAssigmentRelationCol& relations_;
};

TEST(RemoveForRelatedPople, ChoosesTheRelationsBeforeTheFirstGoes) {
    Items s;
    const auto project = s.Master<TaskAssigmentRelationCol>();
    auto tasks = s.Master<TasksCol>();
    const Ref<TasksCls> task = tasks->Add();
    for (const char* key : {"1", "2", "3"}) {
        const auto relation = project->Add(key);
        relation->TaskKey(1);
        relation->personkey(String(key) == "2" ? 6 : 5);
        if (String(key) != "1") task->TaskPeopleRelation()->AddItem(relation);
    }
    Reassigns host(*project);
    Module().g_ErrorsHandler->Events.Add(host);
    EXPECT_EQ(project->RemoveForRelatedPople("5", tasks), True);
    Module().g_ErrorsHandler->Events.Remove(host);
    EXPECT_EQ(KeysOf(project), "2");
    EXPECT_EQ(s.failures.Taken(), "TaskAssigmentRelationCol/Remove 5\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
