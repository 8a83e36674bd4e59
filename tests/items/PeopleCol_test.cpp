#include <random>

#include "tests/items/Items.h"
#include "tests/support/Interruption.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

/// A plan with one task and the person 1, Ann.
struct PersonPlan : Plan {
    PersonPlan() {
        Task("Dig");
        people().Add()->PersonName("Ann");
        (void)Heard();
    }
    PeopleCol& people() const { return *app->xPeopleCol(); }
    peopleCls& ann() const { return *people().Item(1); }
    Ref<TaskAssigmentRelationCol> relations() const { return app->xTaskPeopleRelationcol(); }
    Integer dig() const { return Number("Dig"); }
    Boolean Assign(Boolean task = True, Boolean person = True) {
        return people().AssignePerson("1", dig(), app->xTaskCol(), relations(), task, person);
    }
    Boolean UnAssign() { return people().UnAssignePerson(1, dig(), app->xTaskCol(), relations()); }
};

TEST(AssignePerson, TiesAllThreeSidesAndTellsTheHost) {
    PersonPlan plan;
    EXPECT_EQ(plan.Assign(), True);
    EXPECT_EQ(plan.Heard(), "AssigmentChange(1, Ann)\n");
    EXPECT_EQ(KeysOf(plan.relations()), "1");
    EXPECT_EQ(KeysOf(plan["Dig"].TaskPeopleRelation()), "1");
    EXPECT_EQ(KeysOf(plan["Dig"].TasksPeople()), "1");
    EXPECT_EQ(KeysOf(plan.ann().TaskPeopleRelation()), "1");
    EXPECT_EQ(KeysOf(plan.ann().Tasks()), "1");
    EXPECT_EQ(plan.relations()->Item(1)->personkey(), 1);
    EXPECT_EQ(plan.ann().TaskPeopleRelation()->oPublicStaticCls, plan.app->oPublicStaticCls());
    EXPECT_EQ(plan.ann().Tasks()->oPublicStaticCls, plan.app->oPublicStaticCls());
    EXPECT_EQ(plan["Dig"].TaskPeopleRelation()->oPublicStaticCls, plan.app->oPublicStaticCls());
}

TEST(AssignePerson, WithoutTheTaskLeavesItsListsAloneAndRaisesNothing) {
    PersonPlan plan;
    EXPECT_EQ(plan.Assign(False), True);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Dig"].TaskPeopleRelationValid(), False);
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "");
    EXPECT_EQ(plan.relations()->Count(), 1);
    EXPECT_EQ(plan.ann().Tasks()->Count(), 1);
}

TEST(AssignePerson, WithoutThePersonLeavesTheirListsEmpty) {
    PersonPlan plan;
    EXPECT_EQ(plan.Assign(True, False), True);
    EXPECT_EQ(plan.ann().TaskPeopleRelation()->Count(), 0);
    EXPECT_EQ(plan.ann().Tasks()->Count(), 0);
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "Ann");
}

TEST(AssignePerson, LendsTheCountersToThePersonsListsEvenWhereThoseStayEmpty) {
    PersonPlan plan;
    plan.Assign(True, False);
    EXPECT_EQ(plan.ann().TaskPeopleRelation()->oPublicStaticCls, plan.app->oPublicStaticCls());
    EXPECT_EQ(plan.ann().Tasks()->oPublicStaticCls, plan.app->oPublicStaticCls());
}

TEST(AssignePerson, LeavesThePersonsListsTheirOwnCounters) {
    PersonPlan plan;
    const auto own = Make<StaticCls>();
    plan.ann().TaskPeopleRelation()->oPublicStaticCls = own;
    plan.ann().Tasks()->oPublicStaticCls = own;
    plan.Assign();
    EXPECT_EQ(plan.ann().TaskPeopleRelation()->oPublicStaticCls, own);
    EXPECT_EQ(plan.ann().Tasks()->oPublicStaticCls, own);
}

TEST(AssignePerson, TellsTheTasksSideBeforeTheProjectHasTheRelation) {
    PersonPlan plan;
    Long known = -1;
    const Interruption host(plan, "AssigmentChange", 1, [&] { known = plan.relations()->Count(); });
    EXPECT_EQ(plan.Assign(), True);
    EXPECT_EQ(known, 0);
}

TEST(AssignePerson, GoesOnWithItsListsWhenAListenerLetsGoOfThem) {
    PersonPlan plan;
    Ref<TasksCol> tasks = plan.app->xTaskCol();
    Ref<TaskAssigmentRelationCol> relations = plan.relations();
    const Ref<TaskAssigmentRelationCol> held = relations;
    PeopleCol& people = plan.people();
    const Ref<peopleCls> ann = people.Item(1);
    const Ref<Application> app = plan.app;
    const Interruption host(plan, "AssigmentChange", 1, [&] {
        tasks = {};
        relations = {};
        app->Init();
    });
    EXPECT_EQ(people.AssignePerson("1", plan.dig(), tasks, relations), True);
    EXPECT_EQ(KeysOf(held), "1");
    EXPECT_EQ(KeysOf(ann->Tasks()), "1");
}

TEST(RemoveTasksRelationsOfPeople, StayAtTheTaskThatTheyWereCalledWith) {
    PersonPlan plan;
    plan.Task("Fill");
    plan.people().Add()->PersonName("Bob");
    for (const char* person : {"1", "2"}) {
        for (const Long task : {plan.Number("Dig"), plan.Number("Fill")}) {
            plan.people().AssignePerson(person, Integer(task), plan.app->xTaskCol(), plan.relations());
        }
    }
    Variant key = plan.Number("Dig");
    const Interruption host(plan, "AssigmentChange", plan.Number("Dig"), [&] { key = plan.Number("Fill"); });
    plan.people().RemoveTasksRelations(key, plan.relations(), plan.app->xTaskCol());
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "");
    EXPECT_EQ(plan["Fill"].PeopleAsString(), "Ann, Bob");
}

TEST(AssignePerson, OfAnUnknownPersonIsRecordedOnce) {
    PersonPlan plan;
    EXPECT_EQ(plan.people().AssignePerson("7", plan.dig(), plan.app->xTaskCol(), plan.relations()), False);
    EXPECT_EQ(plan.failures.Taken(), "PeopleCol/AssignePerson 91\n");
}

TEST(AssignePerson, OfAnUnknownTaskTiesTheRestAndRecordsIt) {
    PersonPlan plan;
    EXPECT_EQ(plan.people().AssignePerson("1", 77, plan.app->xTaskCol(), plan.relations()), True);
    EXPECT_EQ(KeysOf(plan.relations()), "1");
    EXPECT_EQ(KeysOf(plan.ann().TaskPeopleRelation()), "1");
    EXPECT_EQ(plan.ann().Tasks()->Count(True), 0);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddAssigment 91\nTasksCol/AddItem 91\n");
}

TEST(AssignePerson, WhileTheHostIsSilencedDoesAllAndTellsNothing) {
    Plan plan;
    plan.Silenced().Task("Dig");
    plan.app->xPeopleCol()->Add()->PersonName("Ann");
    plan.app->xPeopleCol()->AssignePerson("1", plan.Number("Dig"), plan.app->xTaskCol(),
                                          plan.app->xTaskPeopleRelationcol());
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "Ann");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(UnAssignePerson, KeepsThePersonsOwnSideStale) {
    PersonPlan plan;
    plan.Assign();
    (void)plan.Heard();
    EXPECT_EQ(plan.UnAssign(), True);
    EXPECT_EQ(plan.Heard(), "AssigmentChange(1, )\n");
    EXPECT_EQ(plan.relations()->Count(), 0);
    EXPECT_EQ(plan["Dig"].TaskPeopleRelation()->Count(), 0);
    EXPECT_EQ(plan["Dig"].TasksPeople()->Count(), 0);
    EXPECT_EQ(KeysOf(plan.ann().TaskPeopleRelation()), "1");
    EXPECT_EQ(KeysOf(plan.ann().Tasks()), "1");
    EXPECT_EQ(plan.ann().TaskAssigned(plan.dig(), plan.relations()), False);
    EXPECT_EQ(FreedIn(plan.app->oPublicStaticCls(), Keys::AssigmentRelation), "1");
    EXPECT_EQ(plan.UnAssign(), True);  // nobody knows the pair any more
}

TEST(UnAssignePerson, OfAPairThatOnlyThePersonKnowsClearsThePersonsSide) {
    PersonPlan plan;
    plan.Assign(False);
    EXPECT_EQ(plan.UnAssign(), True);
    EXPECT_EQ(plan.relations()->Count(), 0);
    EXPECT_EQ(plan.ann().TaskPeopleRelation()->Count(), 0);
    EXPECT_EQ(plan.col().Count(True), 1);
}

TEST(UnAssignePerson, TakesACandidateThatOnlyThePersonKnowsAway) {
    PersonPlan plan;
    plan.Assign(False);
    plan.col().Remove(plan.dig(), {}, {}, {}, {}, {}, {}, False, True, True);
    EXPECT_EQ(plan.col().Count(True), 1);
    EXPECT_EQ(plan.failures.Taken(), "");
    EXPECT_EQ(plan.UnAssign(), True);
    EXPECT_EQ(plan.col().Count(True), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemovePhase 91\n") << "there is no list of phases yet";
}

TEST(UnAssignePerson, TellsTheTasksSideBeforeTheProjectLosesTheRelation) {
    PersonPlan plan;
    plan.Assign();
    Long known = -1;
    const Interruption host(plan, "AssigmentChange", 1, [&] { known = plan.relations()->Count(); });
    EXPECT_EQ(plan.UnAssign(), True);
    EXPECT_EQ(known, 1);
    EXPECT_EQ(plan.relations()->Count(), 0);
}

TEST(UnAssignePerson, LendsTheCountersToAListThatHasOthers) {
    PersonPlan plan;
    plan.Assign(False);
    plan.ann().TaskPeopleRelation()->oPublicStaticCls = Make<StaticCls>();
    plan.UnAssign();
    EXPECT_EQ(plan.ann().TaskPeopleRelation()->oPublicStaticCls, plan.app->oPublicStaticCls());
}

TEST(UnAssignePerson, ArrangesAndSortsWhereItTakesACandidateAway) {
    PersonPlan plan;
    plan.Task("Fill").Task("Pour");
    plan["Fill"].TaskPosition(3);
    plan["Pour"].TaskPosition(2);
    plan.col().SetPhases();
    plan.Assign(False);
    plan["Dig"].TaskCondidat(False);
    plan.Heard();
    EXPECT_EQ(plan.UnAssign(), True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(1, , 0, True)\n");
    EXPECT_EQ(KeysOf(plan.app->xTaskCol()), "3 2");
    EXPECT_EQ(plan.failures.Taken(), "");
}

TEST(UnAssignePerson, OfAnUnknownTaskIsRecordedOnce) {
    PersonPlan plan;
    EXPECT_EQ(plan.people().UnAssignePerson(1, 77, plan.app->xTaskCol(), plan.relations()), False);
    EXPECT_EQ(plan.failures.Taken(), "PeopleCol/UnAssignePerson 91\n");
}

TEST(RemoveTasksRelations, KeepsTheCopyOfTheTaskWithAPersonWhomTheTaskKnew) {
    PersonPlan plan;
    plan.people().Add();
    plan.Assign();
    EXPECT_EQ(plan.people().RemoveTasksRelations(plan.dig(), plan.relations(), plan.app->xTaskCol()), False);
    EXPECT_EQ(plan.relations()->Count(), 0);
    EXPECT_EQ(plan["Dig"].PeopleAsString(), "");
    EXPECT_EQ(plan.ann().Tasks()->Item(plan.dig())->TaskCondidat(), True);
}

TEST(RemoveTasksRelations, PassesByPeopleTheTaskDoesNotKnowUnlessForced) {
    PersonPlan plan;
    plan.Assign(False);
    plan.people().RemoveTasksRelations(plan.dig(), plan.relations(), plan.app->xTaskCol());
    EXPECT_EQ(plan.relations()->Count(), 1);
    plan.people().RemoveTasksRelations(plan.dig(), plan.relations(), plan.app->xTaskCol(), True);
    EXPECT_EQ(plan.relations()->Count(), 0);
    plan.people().RemoveTasksRelations(99, plan.relations(), plan.app->xTaskCol(), True);  // no such task: nothing
}

TEST(RemoveTasksRelations, KeepsTheTieOfTheSecondPersonWhereTheFirstTakesTheCandidateAway) {
    PersonPlan plan;
    plan.people().Add();
    plan.Task("Fill");
    plan.col().SetPhases();
    for (const char* person : {"1", "2"}) {
        plan.people().AssignePerson(person, plan.dig(), plan.app->xTaskCol(), plan.relations(), /*AssignTask=*/False);
    }
    plan["Dig"].TaskCondidat(False);
    (void)plan.Heard();
    plan.people().RemoveTasksRelations(plan.dig(), plan.relations(), plan.app->xTaskCol(), /*ForceDelete=*/True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(1, , 0, True)\n");
    EXPECT_EQ(KeysOf(plan.app->xTaskCol()), "2");
    EXPECT_EQ(KeysOf(plan.relations()), "2");
    EXPECT_EQ(KeysOf(plan.ann().TaskPeopleRelation()), "");
    EXPECT_EQ(KeysOf(plan.people().Item(2)->TaskPeopleRelation()), "2");
}

TEST(SetTasksCollectionByID, FillsOnePerson) {
    PersonPlan plan;
    plan.Assign();
    plan.ann().Tasks(Ref<TasksCol>());
    EXPECT_EQ(plan.people().SetTasksCollectionByID(1, plan.relations(), plan.app->xTaskCol()), True);
    EXPECT_EQ(KeysOf(plan.ann().Tasks()), "1");
    EXPECT_EQ(plan.people().SetTasksCollectionByID(9, plan.relations(), plan.app->xTaskCol()), False);
    EXPECT_EQ(plan.failures.Taken(), "PeopleCol/SetTasksCollectionByID 91\n");
}

TEST(AlreadyLinked, TakesAllBlanksOutOfBoth) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->Add()->PersonKeyChar("A B");
    EXPECT_EQ(people->AlreadyLinked("AB"), True);
    EXPECT_EQ(people->AlreadyLinked(" A B "), True);
    EXPECT_EQ(people->AlreadyLinked("ab"), False);
    EXPECT_EQ(people->AlreadyLinked(""), False);
}

TEST(AlreadyLinked, FindsTheSpacedKeyOfAPersonWithoutBlanks) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    people->Add()->PersonKeyChar("AB");
    EXPECT_EQ(people->AlreadyLinked("A B"), True);
}

TEST(FindPersonKeys, FindsTheFirstPersonOfExactlyThatName) {
    Items s;
    const auto people = s.Master<PeopleCol>();
    for (const char* name : {"Bob", "Ann", "Ann"}) people->AddItem(s.Person(name));
    EXPECT_EQ(In(people).FindPersonKeys("Ann"), 2);
    EXPECT_EQ(In(people).FindPersonKeys("ann"), 0);
}

TEST(AssigningAtRandom, KeepsTheProjectAndTheTasksInStep) {
    Plan plan;
    const std::vector<String> names{"Dig", "Pour", "Frame", "Roof"};
    for (const String& name : names) plan.Task(name);
    const auto people = plan.app->xPeopleCol();
    const auto project = plan.app->xTaskPeopleRelationcol();
    const auto tasks = plan.app->xTaskCol();
    for (int i = 0; i < 5; ++i) people->Add()->PersonName("P" + std::to_string(i));
    std::mt19937 random(20260302);
    std::size_t assigned = 0;
    for (int step = 0; step < 300; ++step) {
        SCOPED_TRACE(step);
        const String task = names[random() % names.size()];
        const Long person = 1 + random() % 5;
        const bool had = static_cast<bool>(plan[task].isAssigned(person));
        if (had) {
            people->UnAssignePerson(person, plan.Key(task), tasks, project);
            --assigned;
        } else {
            // The person's stale copy of the task is dropped first, as a host does that assigns again.
            people->Item(person)->Tasks(Ref<TasksCol>());
            people->Item(person)->TaskPeopleRelation(Make<TaskAssigmentRelationCol>());
            people->AssignePerson(KeyText(person).text(), plan.Number(task), tasks, project);
            ++assigned;
        }
        ASSERT_EQ(static_cast<bool>(plan[task].isAssigned(person)), !had);
        ASSERT_EQ(project->NewEnum().size(), assigned);
        for (const auto& entry : project->NewEnum()) {
            const Ref<TasksCls> owner = tasks->Item(entry.item->TaskKey());
            ASSERT_EQ(owner->GetTaskPeopleRelation(entry.item->personkey()), Variant(entry.item->elementKey()));
        }
    }
    EXPECT_LE(plan.app->oPublicStaticCls()->AssigmentTaskRelationKeyValue(), 20);  // freed keys are used again
}

}  // namespace
}  // namespace mrlxmlclass::testing
