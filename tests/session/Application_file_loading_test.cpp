#include <gtest/gtest.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/StaticCls.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/session/LettingGo.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A project file around what stands under its root.
String File(const String& content) {
    return "<?xml version=\"1.0\" ?><Project><DateFormat>M/d/yyyy</DateFormat>" + content + "</Project>";
}

/// A task as short as a file can tell one.
String TaskElement(int key, int row, const String& more = {}) {
    const String text = std::to_string(key);
    return "<Task><ProjectID>0</ProjectID><TaskType>false</TaskType><TaskCondidat>true</TaskCondidat>"
           "<TaskMilstones>false</TaskMilstones><TaskKey>" +
           text + "</TaskKey><TaskName>T" + text + "</TaskName>" + more + "<TaskStatusKey>0</TaskStatusKey>" +
           "<TaskPosition>" + std::to_string(row) + "</TaskPosition></Task>";
}

// --- The session after a load ---------------------------------------------------------------------------------------

TEST(LoadXML, DiscardsTheGraphThatWasThere) {
    WholeProject plan;
    plan.platform.Write("p.prx", File("<Tasks>" + TaskElement(1, 1) + "</Tasks>"));
    ASSERT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(plan.col().Count(True), 1);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
    EXPECT_EQ(plan.app->xProject()->ProjectName(), "");
}

TEST(LoadXML, KeepsTheFileNameTheDirtyFlagAndTheTwoSwitches) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    plan.app->Dirty(True);
    ASSERT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(plan.app->Dirty(), True);
    EXPECT_EQ(plan.app->xFileName(), plan.platform.Path("p.prx"));
    EXPECT_EQ(Module().BVersion, True);
    EXPECT_EQ(Module().g_SourcePrima, False);
}

TEST(LoadXML, MakesTheFilesCalendarThePublicOne) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    ASSERT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(Module().g_PublicCalendar, plan.app->xCalendar());
    EXPECT_EQ(plan.calendar().isHoliday(Date::Of(2026, 5, 1)), True);
    EXPECT_EQ(plan.calendar().isExceptionDay(Saturday), True);
}

TEST(LoadXML, RaisesEachCounterToTheLargestKeyAndForgetsTheFreedOnes) {
    Plan plan;
    for (const char* name : {"A", "B", "C", "D", "E", "F"}) plan.Task(name);
    plan.col().SetPhases();
    const auto remove = [&](const char* name) {
        plan.col().Remove(plan.Key(name), {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True);
    };
    remove("E");
    plan.Task("G");
    EXPECT_EQ(plan.Number("G"), 5) << "the freed key comes first";
    remove("G");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(), True);
    ASSERT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.app->oPublicStaticCls()->TaskKeyValue(), 6);
    EXPECT_EQ(plan.col().Add("")->TaskKey(), 7);
    plan.app->endreadonly();
}

TEST(LoadXML, ForgetsTheFreedKeyOfAGoalThatANewRelationWouldHaveTaken) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    for (int i = 0; i < 3; ++i) plan.app->xGoalCol()->Add();
    plan.app->xGoalCol()->Remove(Long(3));
    EXPECT_EQ(plan.app->xTaskGoalRelationcol()->Add()->elementKey(), "3");
    plan.app->xGoalCol()->Remove(Long(2));
    ASSERT_EQ(plan.app->SaveXml(), True);
    ASSERT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.app->xTaskGoalRelationcol()->Add()->elementKey(), "4");
    EXPECT_EQ(plan.app->xGoalCol()->Add()->Goalkey(), 2) << "the largest goal is 1";
    plan.app->endreadonly();
}

TEST(LoadXML, FindsTheSpanOfThePlan) {
    WholeProject plan;
    plan["House"].TaskBDate(Monday);
    plan["Shell"].TaskBDate(Monday);
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    Module().g_MinDate = Monday - 1000;
    Module().g_MaxDate = Monday + 2000;
    ASSERT_EQ(plan.Load("p.prx", True), True);
    EXPECT_EQ(DayName(Module().g_MinDate), DayName(Monday));
    EXPECT_EQ(Module().g_MinDateTaskKey, plan.Number("House")) << "the first that starts then";
    EXPECT_EQ(Module().g_MaxDate, plan["Garden"].TaskEDate());
    EXPECT_EQ(Module().g_MaxDateTaskKey, plan.Number("Garden"));
}

TEST(LoadXML, AsALibraryRepairsNothing) {
    Plan plan;
    plan.platform.Write("p.prx", File("<Tasks>" + TaskElement(1, 1) + TaskElement(2, 4) + "</Tasks>"));
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->LoadXML(False, True), True);
    EXPECT_EQ(plan.col().Item("2")->TaskPosition(), 4);
    ASSERT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.col().Item("2")->TaskPosition(), 2);
    plan.app->endreadonly();
}

// --- The lock and the format ----------------------------------------------------------------------------------------

TEST(LoadXML, TakesTheLockAndTellsTheSecondOpenerThatItIsReadOnly) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(), True);
    Boolean read_only = True;
    ASSERT_EQ(plan.app->LoadXML(False, False, read_only), True);
    EXPECT_EQ(read_only, False);
    EXPECT_TRUE(plan.platform.Exists("~p.prxl"));

    ASSERT_EQ(plan.app->LoadXML(True, False, read_only), True) << "the tasks alone take it too";
    EXPECT_EQ(read_only, True);
    EXPECT_EQ(plan.app->SaveXml(), True) << "read-only is a message, nothing is refused";
    plan.app->endreadonly();
    EXPECT_FALSE(plan.platform.Exists("~p.prxl"));
}

TEST(LoadXML, OpensWithoutALockWhereNoneCanBeMade) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(), True);
    plan.platform.faults.FailAt(FileCall::Hold, 1, failure::kPermissionDenied);
    Boolean read_only = True;
    EXPECT_EQ(plan.app->LoadXML(False, False, read_only), True);
    EXPECT_EQ(read_only, False);
    EXPECT_EQ(plan.failures.Taken(), "locking/CreateLockFile 70\n");
}

TEST(LoadXML, KeepsTheDatesAndStoresTheSystemsFormatWhereTheFileNamesNone) {
    Plan plan;
    plan.platform.Write("p.prx", "<Project><DateFormat/><Tasks>" +
                                     TaskElement(1, 1, "<TaskBDate>3/5/2026</TaskBDate>") + "</Tasks></Project>");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.app->xProject()->DateFormat(), "M/d/yyyy");
    EXPECT_EQ(plan.col().Item("1")->TaskBDate(), Thursday);
    plan.app->endreadonly();
}

TEST(LoadXML, ReadsTheErrorFileThatItIsGiven) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(), True);
    ASSERT_EQ(plan.app->LoadXML(True, True, {}, plan.platform.Path("load-errors.xml")), True);
    EXPECT_EQ(Module().g_ErrorsHandler->ErrFileName(), plan.platform.Path("load-errors.xml"));
}

// --- Yields ---------------------------------------------------------------------------------------------------------

TEST(LoadXML, YieldsBetweenItsStagesAndAtEachRecord) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(), True);
    const auto yields = [&](Boolean only_tasks, Boolean for_lib) {
        plan.platform.ui.yields = 0;
        EXPECT_EQ(plan.app->LoadXML(only_tasks, for_lib), True);
        plan.app->endreadonly();
        return plan.platform.ui.yields;
    };
    EXPECT_EQ(yields(False, False), 21);
    EXPECT_EQ(yields(True, False), 3);
    EXPECT_EQ(yields(False, True), 5);
    EXPECT_EQ(yields(True, True), 2);

    plan.Task("A").Task("B");
    plan.app->xPeopleCol()->Add();
    ASSERT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(yields(False, False), 24);
}

TEST(LoadXML, TakesTheSystemsFormatBeforeItsFirstYieldAndTheLockBehindIt) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(), True);
    bool locked_at_first = true;
    plan.platform.ui.on_yield = [&] {
        if (plan.platform.ui.yields > 1) return;
        locked_at_first = plan.platform.Exists("~p.prxl");
        plan.platform.locale.Use("dd/MM/yyyy");
    };
    ASSERT_EQ(plan.app->LoadXML(), True);
    plan.app->endreadonly();
    EXPECT_FALSE(locked_at_first);
    EXPECT_EQ(Module().g_FileDateSeparator, "") << "the formats were equal when the load began";
}

TEST(LoadXML, GoesOnWhenAHandlerFails) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    plan.platform.ui.on_yield = [] { Raise(failure::kOverflow); };
    EXPECT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 1);
}

TEST(LoadXML, OutlivesAHostThatLetsGoOfTheSessionMeanwhile) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    auto other = Make<Application>();
    other->xFileName(plan.platform.Path("p.prx"));
    bool alive = false;
    plan.platform.ui.on_yield = [&] {
        if (!other) return;
        other = {};
        alive = SessionLives();
    };
    EXPECT_EQ(other->LoadXML(), True);
    EXPECT_TRUE(alive);
    EXPECT_FALSE(SessionLives()) << "it went when the load was over";
    plan.app->endreadonly();
}

TEST(LoadXML, OutlivesAListenerThatLetsGoOfTheSession) {
    WholeProject plan;
    auto other = Make<Application>();
    other->xFileName(plan.platform.Path("absent.prx"));
    const LettingGo listener(other);
    EXPECT_EQ(other->LoadXML(), False);
    EXPECT_TRUE(listener.alive_when_told);
    EXPECT_TRUE(plan.failures.Taken().ends_with("Application/LoadXML 91\n"));
    plan.app->endreadonly();
}

// --- What cannot be read --------------------------------------------------------------------------------------------

/// What every reader records when there is no document.
constexpr const char* kNoDocument =
    "ProjectsCls/FromXmlFile 91\nGoalsCol/FromXmlFile 91\nPeopleCol/FromXmlFile 91\nGoalsCol/FromXmlFile 91\n"
    "obstaclesCol/FromXmlFile 91\nNotesCol/FromXmlFile 91\nCalendarCls/FromXmlFile 91\n"
    "TaskAssigmentRelationCol/FromXmlFile 91\nTaskGoalRelationCol/FromXmlFile 91\n"
    "TaskObstaclesRelationCol/FromXmlFile 91\nTaskNoteRelationCol/FromXmlFile 91\nApplication/LoadXML 91\n";

/// What is wrong with a file, in words.
String Flaw(const String& path) {
    const auto document = Make<dom::Document>();
    EXPECT_FALSE(document->Load(path));
    EXPECT_NE(document->error_text(), "");
    return document->error_text();
}

TEST(LoadXML, OfAFileThatIsNotThereGivesFalseAnEmptySessionAndALock) {
    WholeProject plan;
    plan.app->xFileName(plan.platform.Path("no.prx"));
    Boolean read_only = True;
    EXPECT_EQ(plan.app->LoadXML(False, False, read_only), False);
    EXPECT_EQ(plan.failures.Taken(), kNoDocument);
    EXPECT_EQ(read_only, False);
    EXPECT_TRUE(plan.platform.Exists("~no.prxl"));
    EXPECT_EQ(plan.col().Count(True), 0);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
    EXPECT_EQ(plan.app->xProject()->ProjectName(), "");
}

TEST(LoadXML, OfAFileThatIsNotWellFormedGivesFalseAndTheErrorFileTellsWhatIsWrong) {
    Plan plan;
    plan.platform.Write("p.prx", "<Project><ProjectID>1</ProjectId></Project>");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->LoadXML(), False);
    EXPECT_EQ(plan.failures.Taken(), kNoDocument);
    const auto entry = Module().g_ErrorsHandler->Log()->Error_Col()->Item(1);
    EXPECT_TRUE(entry.ErrDescription().starts_with(Flaw(plan.app->xFileName()) + ",Line: ")) << entry.ErrDescription();
    EXPECT_NE(plan.platform.Read("SendToSupport.xml").find(Flaw(plan.app->xFileName())), String::npos);
    plan.app->endreadonly();
}

TEST(LoadXML, AsALibraryOfAFileThatIsNotThereTakesNoLock) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("no.prx"));
    EXPECT_EQ(plan.app->LoadXML(False, True), False);
    EXPECT_EQ(plan.failures.Taken(),
              "ProjectsCls/FromXmlFile 91\nGoalsCol/FromXmlFile 91\nPeopleCol/FromXmlFile 91\n"
              "GoalsCol/FromXmlFile 91\nobstaclesCol/FromXmlFile 91\nApplication/LoadXML 91\n");
    EXPECT_FALSE(plan.platform.Exists("~no.prxl"));
    EXPECT_EQ(plan.app->LoadXML(True), False);
    EXPECT_EQ(plan.failures.Taken(), "ProjectsCls/FromXmlFile 91\nGoalsCol/FromXmlFile 91\nApplication/LoadXML 91\n");
    plan.app->endreadonly();
}

TEST(LoadXML, LeavesASectionThatIsMissingEmptyWithoutAWord) {
    Plan plan;
    plan.platform.Write("p.prx", File("<Tasks>" + TaskElement(1, 1) + "</Tasks>"));
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.col().Count(), 1);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
    EXPECT_EQ(plan.calendar().NonWorkingDay()->Count(), 2) << "the usual weekend";
    plan.app->endreadonly();
}

TEST(LoadXML, RecordsThatTheTasksAreMissingAndIsTrueAllTheSame) {
    Plan plan;
    plan.platform.Write("p.prx", File("<People><Person><Personkey>4</Personkey><PersonPosition>1</PersonPosition>"
                                      "<PersonName>Ada</PersonName></Person></People>"));
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.failures.Taken(), "GoalsCol/FromXmlFile 91\n");
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 1);
    EXPECT_EQ(plan.app->oPublicStaticCls()->PersonKeyValue(), 4);
    plan.app->endreadonly();
}

TEST(LoadXML, TakesTheFirstOfTwoLikeSectionsAndFindsThemInAnyOrder) {
    Plan plan;
    plan.platform.Write("p.prx", File("<Calendar><CalendarKey>9</CalendarKey></Calendar><Tasks>" + TaskElement(1, 1) +
                                      "</Tasks><Tasks>" + TaskElement(2, 1) + "</Tasks>"));
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(ToldTasks(plan.col()).find("<TaskKey>2<"), String::npos);
    EXPECT_EQ(plan.col().Count(), 1);
    EXPECT_EQ(plan.calendar().CalendarKey(), 9);
    plan.app->endreadonly();
}

TEST(LoadXML, KeepsWhatWasReadBeforeABadFieldAndGoesOnWithTheNextSection) {
    struct Row {
        const char* what;
        String section;
        const char* recorded;
    };
    const String person = "<Personkey>4</Personkey><PersonPosition>1</PersonPosition><PersonName>Ada</PersonName>";
    for (const Row& row : {
             Row{"Boolean", "<Task><TaskType>maybe</TaskType></Task>", "TasksCol/FromXmlInt 1\n"},
             Row{"number", "<Task><ProjectID>one</ProjectID></Task>", "TasksCol/FromXmlInt 13\n"},
             Row{"large number", "<Task><ProjectID>9999999999</ProjectID></Task>", "TasksCol/FromXmlInt 6\n"},
             Row{"large key", "<Task><TaskKey>32768</TaskKey></Task>", "TasksCol/FromXmlInt 6\n"},
             Row{"date", "<Task><TaskBDate>today</TaskBDate></Task>", "TasksCol/FromXmlInt 13\n"},
             Row{"key twice", TaskElement(1, 3), "TasksCol/FromXmlInt 457\n"},
         }) {
        SCOPED_TRACE(row.what);
        Plan plan;
        plan.platform.Write("p.prx", File("<Tasks>" + TaskElement(1, 1) + row.section + TaskElement(2, 2) +
                                          "</Tasks><People><Person>" + person + "</Person></People>"));
        plan.app->xFileName(plan.platform.Path("p.prx"));
        EXPECT_EQ(plan.app->LoadXML(), True);
        EXPECT_EQ(plan.failures.Taken(), row.recorded);
        EXPECT_EQ(plan.col().Count(True), 1) << "what comes behind is not read";
        EXPECT_EQ(plan.app->xPeopleCol()->Count(), 1);
        plan.app->endreadonly();
    }
}

TEST(LoadXML, KeepsTheRestOfTheProjectRecordAtItsDefaultsBehindABadField) {
    Plan plan;
    plan.platform.Write("p.prx",
                        "<Project><ProjectID>4</ProjectID><ProjectName>N</ProjectName><ProjectStartLine>x"
                        "</ProjectStartLine><DateFormat>dd/MM/yyyy</DateFormat><Tasks/></Project>");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.failures.Taken(), "ProjectsCls/FromXmlInt 13\n");
    EXPECT_EQ(plan.app->xProject()->ProjectName(), "N");
    EXPECT_EQ(plan.app->xProject()->DateFormat(), "M/d/yyyy") << "as for a file that names none";
    plan.app->endreadonly();
}

TEST(LoadXML, ReadsCommentsBetweenElementsAsIfTheyWereNotThere) {
    Plan plan;
    String content = File("<Tasks>" + TaskElement(1, 1) + TaskElement(2, 2) + "</Tasks>");
    for (std::size_t at = content.find("><"); at != String::npos; at = content.find("><", at + 6)) {
        content.insert(at + 1, "<!-- a -->\n<?b c?>");
        at += String("<!-- a -->\n<?b c?>").size();
    }
    plan.platform.Write("p.prx", content);
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.col().Count(), 2);
    EXPECT_EQ(plan.col().Item("2")->TaskName(), "T2");
    plan.app->endreadonly();
}

}  // namespace
}  // namespace mrlxmlclass
