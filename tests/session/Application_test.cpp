#include "mrlxmlclass/session/Application.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/wizard/Steps.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/session/LettingGo.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A relation of a task, in the collection handed in.
template <class Relations>
void Relate(const Ref<Relations>& relations, Long task_key) {
    relations->Add()->TaskKey(task_key);
}

TEST(Application, TakesTheLastYearTenYearsFromToday) {
    TestPlatform platform;
    Module() = ModuleState();
    platform.clock.now = Date::Of(2031, 6, 1);
    const auto app = Make<Application>();
    EXPECT_EQ(Module().g_MaxYear, 2041);

    platform.clock.now = Date::Of(2050, 6, 1);
    app->Init();
    EXPECT_EQ(Module().g_MaxYear, 2041) << "it holds for the life of the object";
    const auto second = Make<Application>();
    EXPECT_EQ(Module().g_MaxYear, 2060) << "a second one takes it anew";
    Module() = ModuleState();
}

TEST(Application, MakesTheErrorLogAndLetsGoOfItAtItsEnd) {
    TestPlatform platform;
    Module() = ModuleState();
    {
        const auto app = Make<Application>();
        ASSERT_TRUE(Module().g_ErrorsHandler);
    }
    EXPECT_FALSE(Module().g_ErrorsHandler);
    EXPECT_TRUE(platform.Exists("SendToSupport.xml")) << "the log writes its file when it goes";
}

TEST(Application, KeepsASurvivingSessionWithoutALogUntilItsNextInitOrSave) {
    TestPlatform platform;
    Module() = ModuleState();
    const auto first = Make<Application>();
    first->Init();
    {
        const auto second = Make<Application>();
        second->Init();
    }
    EXPECT_FALSE(Module().g_ErrorsHandler);
    first->Init();
    EXPECT_TRUE(Module().g_ErrorsHandler);

    Module().g_ErrorsHandler = {};
    first->xFileName(platform.Path("p.prx"));
    EXPECT_EQ(first->SaveXml(), True);
    EXPECT_TRUE(Module().g_ErrorsHandler);
    Module() = ModuleState();
}

TEST(Application, MakesWhatIsReadFirstAndNeverTheCalendarOrTheSteps) {
    TestPlatform platform;
    Module() = ModuleState();
    const auto app = Make<Application>();
    EXPECT_TRUE(app->xTaskCol());
    EXPECT_EQ(app->xTaskCol(), app->xTaskCol());
    EXPECT_TRUE(app->xTaskPeopleRelationcol());
    EXPECT_TRUE(app->xTaskObstaclesRelationcol());
    EXPECT_TRUE(app->xTaskNotesRelationcol());
    EXPECT_TRUE(app->xTaskGoalRelationcol());
    EXPECT_TRUE(app->xGoalCol());
    EXPECT_TRUE(app->xObstaclesCol());
    EXPECT_TRUE(app->xPeopleCol());
    EXPECT_TRUE(app->xNoteCol());
    EXPECT_TRUE(app->xProject());
    EXPECT_FALSE(app->xCalendar());
    EXPECT_FALSE(app->xStep());
    EXPECT_FALSE(app->oPublicStaticCls());
    Module() = ModuleState();
}

TEST(Application, FailsToIssueKeysWithoutItsInit) {
    TestPlatform platform;
    Module() = ModuleState();
    const auto app = Make<Application>();
    Failures failures;
    EXPECT_EQ(app->xTaskCol()->Add("")->TaskKey(), 0);
    EXPECT_EQ(failures.Taken(), "ObstaclesCls/IncrementID 91\n");
    Module() = ModuleState();
}

TEST(Application, HandsOutWhateverWasSet) {
    Plan plan;
    const auto tasks = Make<TasksCol>();
    const auto people = Make<PeopleCol>();
    const auto project = Make<ProjectsCls>();
    const auto calendar = Make<CalendarCls>();
    const auto steps = Make<Steps>();
    plan.app->xTaskCol(tasks);
    plan.app->xPeopleCol(people);
    plan.app->xProject(project);
    plan.app->xCalendar(calendar);
    plan.app->xStep(steps);
    plan.app->xFileCalendarName("c.xml");
    plan.app->Dirty(True);
    EXPECT_EQ(plan.app->xTaskCol(), tasks);
    EXPECT_EQ(plan.app->xPeopleCol(), people);
    EXPECT_EQ(plan.app->xProject(), project);
    EXPECT_EQ(plan.app->xCalendar(), calendar);
    EXPECT_EQ(plan.app->xStep(), steps);
    EXPECT_EQ(plan.app->xFileCalendarName(), "c.xml");
    EXPECT_EQ(plan.app->Dirty(), True);

    plan.app->xTaskCol({});
    EXPECT_TRUE(plan.app->xTaskCol()) << "made anew where there is none";
    plan.app->xCalendar({});
    EXPECT_FALSE(plan.app->xCalendar());
}

TEST(Init, MakesAllObjectsAnewAndGivesTheNineCollectionsTheCounters) {
    Plan plan;
    const auto old_tasks = plan.app->xTaskCol();
    const auto old_project = plan.app->xProject();
    const auto old_calendar = plan.app->xCalendar();
    const auto counters = plan.app->oPublicStaticCls();
    ASSERT_TRUE(counters);
    plan.app->Init();
    EXPECT_NE(plan.app->xTaskCol(), old_tasks);
    EXPECT_NE(plan.app->xProject(), old_project);
    EXPECT_NE(plan.app->xCalendar(), old_calendar);
    EXPECT_EQ(plan.app->oPublicStaticCls(), counters) << "the session keeps its one";
    EXPECT_EQ(plan.app->xTaskCol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xTaskObstaclesRelationcol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xTaskNotesRelationcol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xTaskGoalRelationcol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xGoalCol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xObstaclesCol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xPeopleCol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xNoteCol()->oPublicStaticCls, counters);
    EXPECT_EQ(plan.app->xTaskPeopleRelationcol()->oPublicStaticCls, counters);
}

TEST(Init, UsesTheCountersThatTheHostHasSet) {
    TestPlatform platform;
    Module() = ModuleState();
    const auto app = Make<Application>();
    const auto own = Make<StaticCls>();
    own->TaskKeyValue(12);
    app->oPublicStaticCls(own);
    app->Init();
    EXPECT_EQ(app->oPublicStaticCls(), own);
    EXPECT_EQ(own->TaskKeyValue(), 0) << "and starts them anew";
    Module() = ModuleState();
}

TEST(Init, IssuesKeysFromOneAgain) {
    Plan plan;
    plan.Task("A").Task("B");
    In(plan.app->oPublicStaticCls()).Free(StaticCls::Internal::Task, KeyText("9"));
    plan.app->Init();
    EXPECT_EQ(plan.app->xTaskCol()->Add("")->TaskKey(), 1);
    EXPECT_EQ(plan.app->xPeopleCol()->Add()->personkey(), 1);
}

TEST(Init, StoresTheTwoSwitchesAndForgetsTheDatesOfTheSpan) {
    Plan plan;
    ModuleState& module = Module();
    module.g_MinDate = module.g_MaxDate = Monday;
    module.g_MinDateTaskKey = module.g_MaxDateTaskKey = 4;
    plan.app->Init(True, True);
    EXPECT_EQ(module.BVersion, True);
    EXPECT_EQ(module.g_SourcePrima, True);
    EXPECT_EQ(module.g_MinDate, Date());
    EXPECT_EQ(module.g_MaxDate, Date());
    EXPECT_EQ(module.g_MinDateTaskKey, 0);
    EXPECT_EQ(module.g_MaxDateTaskKey, 0);
    plan.app->Init();
    EXPECT_EQ(module.BVersion, False) << "links are off unless asked for";
    EXPECT_EQ(module.g_SourcePrima, False);
}

TEST(Init, MakesSaturdayAndSundayFreeUnlessToldOtherwise) {
    Plan plan;
    plan.app->Init();
    EXPECT_EQ(plan.app->xCalendar()->NonWorkingDay()->Count(), 2);
    EXPECT_EQ(plan.app->xCalendar()->NonWorkingDay()->Keys()[0].Key().text(), "7") << "Saturday comes first";
    EXPECT_EQ(plan.app->xCalendar()->NonWorkingDay()->Keys()[1].Key().text(), "1");

    plan.app->Init(False, False, False, /*p_set_calendar=*/False);
    EXPECT_EQ(plan.app->xCalendar()->NonWorkingDay()->Count(), 0);
    EXPECT_EQ(Module().g_PublicCalendar, plan.app->xCalendar());
}

TEST(Init, LeavesThePublicCalendarAndTheStepsToTheOpenSessionWhenItServesAsALibrary) {
    Plan plan;
    const auto open_calendar = plan.app->xCalendar();
    const auto library = Make<Application>();
    library->Init(False, False, /*p_for_lib=*/True);
    EXPECT_FALSE(library->xStep());
    EXPECT_TRUE(library->xCalendar());
    EXPECT_EQ(Module().g_PublicCalendar, open_calendar);

    const auto steps = plan.app->xStep();
    plan.app->Init(False, False, /*p_for_lib=*/True);
    EXPECT_EQ(plan.app->xStep(), steps) << "what was there stays";
}

TEST(Init, StartsTheWizardsState) {
    Plan plan;
    ASSERT_TRUE(plan.app->xStep());
    EXPECT_EQ(plan.app->xStep()->Sequence(), "|");
    EXPECT_EQ(plan.app->xStep()->LastVisitedStep(), 0);
}

TEST(Init, TakesAnErrorFileAndKeepsItWhenNoneIsNamed) {
    Plan plan;
    plan.app->Init(False, False, False, True, plan.platform.Path("mine.xml"));
    EXPECT_EQ(Module().g_ErrorsHandler->ErrFileName(), plan.platform.Path("mine.xml"));
    plan.app->Init();
    EXPECT_EQ(Module().g_ErrorsHandler->ErrFileName(), plan.platform.Path("mine.xml"));
    EXPECT_EQ(plan.app->SetErrorFileName(""), True);
    EXPECT_EQ(Module().g_ErrorsHandler->ErrFileName(), plan.platform.Path("mine.xml"));
    EXPECT_EQ(plan.app->SetErrorFileName(plan.platform.Path("other.xml")), True);
    EXPECT_EQ(Module().g_ErrorsHandler->ErrFileName(), plan.platform.Path("other.xml"));
}

TEST(xPhases, GivesANewCollectionAtEveryReadingAndWhatWasAddedMeanwhile) {
    Plan plan;
    plan.Task("First").Task("Second");
    const auto once = plan.app->xPhases();
    plan.Task("Third");
    const auto again = plan.app->xPhases();
    EXPECT_NE(once, again);
    EXPECT_EQ(once->Count(), 2);
    EXPECT_EQ(again->Count(), 3);
}

TEST(xPhases, HoldsClonesOfTheTopRowsThatMayHaveChildrenInTheOrderOfTheirRows) {
    Plan plan;
    plan.Task("Later").Task("Sooner").Task("Child").Under("Later").Task("Plain").Task("Kept aside").Candidate();
    plan["Plain"].TaskType(True);
    plan["Later"].TaskPosition(2);
    plan["Sooner"].TaskPosition(1);
    const auto phases = plan.app->xPhases();
    String names;
    for (const auto& entry : phases->NewEnum()) {
        names += entry.item->TaskName() + " ";
        EXPECT_NE(entry.item.object(), &plan[entry.item->TaskName()]) << "a copy of its own";
    }
    EXPECT_EQ(names, "Sooner Later ");
    EXPECT_FALSE(phases->oPublicStaticCls);
}

TEST(xPhases, KeepsNothingOfWhatItWasSetTo) {
    Plan plan;
    const auto set = Make<TasksCol>();
    plan.app->xPhases(set);
    EXPECT_NE(plan.app->xPhases(), set);
}

TEST(XPhases, OutlivesAListenerThatLetsGoOfTheSession) {
    Plan plan;
    auto other = Make<Application>();
    const auto task = other->xTaskCol()->Add("x");  // filed with the key 0
    task->TaskType(False);
    const testing::LettingGo listener(other);
    EXPECT_TRUE(other->xPhases());
    EXPECT_TRUE(listener.alive_when_told);
    EXPECT_FALSE(SessionLives()) << "it went with the answer";
    EXPECT_EQ(plan.failures.Taken(), "ObstaclesCls/IncrementID 91\n");
}

TEST(Report, GivesFalse) {
    Plan plan;
    EXPECT_EQ(plan.app->Report(), False);
}

TEST(SetPublicCalendar, KeepsGivingFalseAlthoughItsWorkIsDone) {
    Plan plan;
    const auto calendar = Make<CalendarCls>();
    plan.app->xCalendar(calendar);
    EXPECT_NE(Module().g_PublicCalendar, calendar);
    EXPECT_EQ(plan.app->SetPublicCalendar(), False);
    EXPECT_EQ(Module().g_PublicCalendar, calendar);
    EXPECT_EQ(plan.app->Dirty(), True);
}

TEST(TaskRelated, CountsPeopleGoalsAndObstacles) {
    Plan plan;
    plan.Task("Free").Task("Staffed").Task("Aimed").Task("Blocked");
    Relate(plan.app->xTaskPeopleRelationcol(), plan.Number("Staffed"));
    Relate(plan.app->xTaskGoalRelationcol(), plan.Number("Aimed"));
    Relate(plan.app->xTaskObstaclesRelationcol(), plan.Number("Blocked"));
    EXPECT_EQ(plan.app->TaskRelated(plan.Key("Free")), False);
    EXPECT_EQ(plan.app->TaskRelated(plan.Key("Staffed")), True);
    EXPECT_EQ(plan.app->TaskRelated(plan.Key("Aimed")), True);
    EXPECT_EQ(plan.app->TaskRelated(plan.Key("Blocked")), True);
}

TEST(TaskRelated, KeepsATaskWithNotesOnlyUnrelated) {
    Plan plan;
    plan.Task("Noted");
    Relate(plan.app->xTaskNotesRelationcol(), plan.Number("Noted"));
    EXPECT_EQ(plan.app->TaskRelated(plan.Key("Noted")), False);
}

TEST(TaskRelated, ComparesNumbersAndKnowsNoTextThatIsNone) {
    Plan plan;
    plan.Task("A");
    Relate(plan.app->xTaskPeopleRelationcol(), plan.Number("A"));
    Relate(plan.app->xTaskPeopleRelationcol(), 0);
    for (const char* one : {"01", "1.0", "1e0", " +1 "}) EXPECT_EQ(plan.app->TaskRelated(one), True) << one;
    for (const char* other : {"1.5", "99999999999", "-1e999"}) EXPECT_EQ(plan.app->TaskRelated(other), False) << other;
    for (const char* zero : {"0", "00", " 0", "+0", "-0"}) EXPECT_EQ(plan.app->TaskRelated(zero), True) << zero;
    EXPECT_EQ(plan.app->TaskRelated(""), False);
    EXPECT_EQ(plan.app->TaskRelated("A"), False);
}

TEST(PreviewSettings, AreThoseOfTheProject) {
    Plan plan;
    EXPECT_EQ(plan.app->GetPreviewSettings(), 0);
    plan.app->SetPreviewSettings(Long(12));
    EXPECT_EQ(plan.app->xProject()->previewsettings(), 12);
    plan.app->SetPreviewSettings("7");
    EXPECT_EQ(plan.app->GetPreviewSettings(), 7);
    plan.app->SetPreviewSettings(2.5);
    EXPECT_EQ(plan.app->GetPreviewSettings(), 2) << "half to even";
    plan.app->SetPreviewSettings(Currency(8));
    EXPECT_EQ(plan.app->GetPreviewSettings(), 8);
    plan.app->SetPreviewSettings(Date(9));
    EXPECT_EQ(plan.app->GetPreviewSettings(), 9);
    plan.app->SetPreviewSettings(Variant());
    EXPECT_EQ(plan.app->GetPreviewSettings(), 0);
    plan.app->SetPreviewSettings(True);
    EXPECT_EQ(plan.app->GetPreviewSettings(), -1);
}

TEST(PreviewSettings, StayWhenTheValueIsNoneOrTooLarge) {
    Plan plan;
    plan.app->SetPreviewSettings(Long(3));
    plan.app->SetPreviewSettings("many");
    plan.app->SetPreviewSettings(Long(40000));
    EXPECT_EQ(plan.app->GetPreviewSettings(), 3);
    EXPECT_EQ(plan.failures.Taken(), "Application/SetPreviewSettings 13\nApplication/SetPreviewSettings 6\n");
}

TEST(ApplicationCreateLockFile, OfASessionWithoutAFileNameDoesNothing) {
    Plan plan;
    EXPECT_EQ(plan.app->CreateLockFile(), False);
    EXPECT_EQ(Module().g_ReadOnly, False);
    EXPECT_EQ(plan.app->endreadonly(), True) << "even without a lock";
}

TEST(ApplicationCreateLockFile, KeepsItsLockBeyondTheEndOfTheSession) {
    Plan plan;
    auto other = Make<Application>();
    other->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(other->CreateLockFile(), True);
    other = {};
    EXPECT_EQ(plan.app->IsFileInUse(plan.platform.Path("p.prx")), True);
    EXPECT_EQ(plan.app->endreadonly(), True) << "any session of the thread can end it";
    EXPECT_FALSE(plan.platform.Exists("~p.prxl"));
}

TEST(ApplicationIsFileInUse, IsFalseForTheSessionsOwnFileWithoutTouchingTheDisk) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->CreateLockFile(), True);
    const int calls = plan.platform.faults.Calls();
    EXPECT_EQ(plan.app->IsFileInUse(plan.platform.Path("p.prx")), False);
    EXPECT_EQ(plan.platform.faults.Calls(), calls);

    const auto other = Make<Application>();
    EXPECT_EQ(other->IsFileInUse(plan.platform.Path("p.prx")), True);
    EXPECT_EQ(other->IsFileInUse(plan.platform.Path("q.prx")), False);
    EXPECT_EQ(plan.app->endreadonly(), True);
    EXPECT_EQ(other->IsFileInUse(plan.platform.Path("p.prx")), False);
}

TEST(ApplicationIsFileInUse, IsFalseBesideALeftoverLockFile) {
    Plan plan;
    plan.platform.Write("~p.prxl", "");
    EXPECT_EQ(plan.app->IsFileInUse(plan.platform.Path("p.prx")), False);
}

}  // namespace
}  // namespace mrlxmlclass
