#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/wizard/Steps.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr int kHiddenAndSystem = 6;

/// The sections that a file has, in their order.
String Sections(const String& path) {
    const auto document = Make<dom::Document>();
    EXPECT_TRUE(document->Load(path));
    String names;
    for (dom::Node child = document->documentElement().firstChild(); child; child = child.nextSibling()) {
        const bool field = child.childCount() == 1 && child.firstChild().nodeType() != dom::Node::kElement;
        if (!field && !child.baseName().starts_with("Project")) names.append(child.baseName()).append(" ");
    }
    return names;
}

// --- Saving ---------------------------------------------------------------------------------------------------------

TEST(SaveXml, OfAFreshSessionWritesTheProjectAndEmptySectionsThatLoadBack) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("new.prx"));
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(plan.platform.Read("new.prx"),
              "<?xml version=\"1.0\" ?><Project><ProjectID>0</ProjectID><ProjectName/>"
              "<ProjectCreationDate>12/30/1899</ProjectCreationDate><ProjectCalendarkey>0</ProjectCalendarkey>"
              "<DateFormat>M/d/yyyy</DateFormat><PreviewSettings>0</PreviewSettings><Tasks scheduler=\"false\"/>"
              "<People/><TaskAssigmentRelations/><TaskGoalRelations/><TaskObstaclesRelations/><TaskNoteRelations/>"
              "<Goals/><Notes/><Obstacles/><Calendar><CalendarKey>0</CalendarKey><NonWorkingDays>7:7;1:1"
              "</NonWorkingDays><Holiday/><ExceptionDay/></Calendar></Project>");

    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.col().Count(), 0);
    plan.app->endreadonly();
}

TEST(SaveXml, WritesAWholeProjectToTheByte) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("house.prx"), True);
    EXPECT_EQ(plan.platform.Read("house.prx"), Golden("whole_project.prx"));
}

TEST(SaveXml, WritesTheFileOnceForEachOfItsElevenSections) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    const auto writes = [&] {
        plan.platform.faults.Heal();
        const int before = plan.platform.faults.Calls(FileCall::Create) + plan.platform.faults.Calls(FileCall::Open);
        EXPECT_EQ(plan.app->SaveXml(False), True);
        return plan.platform.faults.Calls(FileCall::Create) + plan.platform.faults.Calls(FileCall::Open) - before;
    };
    EXPECT_EQ(writes(), 11);
    plan.app->xCalendar({});
    EXPECT_EQ(writes(), 10) << "a calendar that is not there is passed over";
    EXPECT_EQ(plan.platform.Read("p.prx").find("<Calendar>"), String::npos);
}

TEST(SaveXml, WritesNothingWithoutAProjectsRecord) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.Task("A");
    plan.app->xProject({});
    EXPECT_EQ(plan.app->SaveXml(), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/Save 91\n");
    EXPECT_FALSE(plan.platform.Exists("p.prx"));
}

TEST(SaveXml, MakesTheGoalsNotesAndObstaclesButNoOtherCollectionThatIsMissing) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.app->xPeopleCol({});
    plan.app->xTaskPeopleRelationcol({});
    plan.app->xGoalCol({});
    plan.app->xNoteCol({});
    plan.app->xObstaclesCol({});
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(Sections(plan.app->xFileName()),
              "Tasks TaskGoalRelations TaskObstaclesRelations TaskNoteRelations "
              "Goals Notes Obstacles Calendar ");
}

TEST(SaveXml, NamesTheFormatInWhichItWritesItsDates) {
    WholeProject plan;
    plan.platform.locale.Use("dd/MM/yyyy");
    plan.app->xProject()->DateFormat("whatever stood there");
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    EXPECT_EQ(plan.app->xProject()->DateFormat(), "dd/MM/yyyy");
    EXPECT_NE(plan.platform.Read("p.prx").find("<DateFormat>dd/MM/yyyy</DateFormat>"), String::npos);
    EXPECT_NE(plan.platform.Read("p.prx").find("<TaskBDate>02/03/2026</TaskBDate>"), String::npos);
}

TEST(SaveXml, GoesStraightOverTheOldFileSoThatItsModeAndItsLinksStay) {
    Plan plan;
    plan.platform.Write("real.prx", String(100000, 'x'));
    const String real = plan.platform.Path("real.prx");
    ASSERT_EQ(chmod(real.c_str(), 0640), 0);
    ASSERT_EQ(symlink("real.prx", plan.platform.Path("link.prx").c_str()), 0);
    plan.app->xFileName(plan.platform.Path("link.prx"));
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(plan.platform.files.Facts(real).mode & 0777U, 0640U);
    EXPECT_TRUE(plan.platform.Read("real.prx").ends_with("</Calendar></Project>")) << "nothing of the old file is left";
}

TEST(SaveXml, LeavesTheObjectsAndTheDirtyFlagAsTheyAre) {
    WholeProject plan;
    const String before = ToldTasks(plan.col());
    plan.app->Dirty(True);
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    EXPECT_EQ(ToldTasks(plan.col()), before);
    EXPECT_EQ(plan.app->Dirty(), True);
    EXPECT_EQ(plan.platform.ui.yields, 0) << "only a load yields";
}

TEST(SaveXml, HidesAnAutosaveFile) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prxAutoSave001.prx"));
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(plan.platform.files.Attributes(plan.app->xFileName()), kHiddenAndSystem);
    EXPECT_EQ(plan.app->SaveXml(), True) << "over the hidden file";
    EXPECT_EQ(plan.platform.files.Attributes(plan.app->xFileName()), kHiddenAndSystem);

    plan.platform.files.SetAttributes(plan.app->xFileName(), file_attribute::kReadOnly);
    EXPECT_EQ(plan.app->SaveXml(), True) << "even over one that is read-only";
    EXPECT_EQ(plan.platform.files.Attributes(plan.app->xFileName()), kHiddenAndSystem);
}

TEST(SaveXml, TakesAnAutosaveFileForAnyOtherWhileTheHostIsSilenced) {
    Plan plan;
    plan.Silenced();
    plan.app->xFileName(plan.platform.Path("AutoSave001.prx"));
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(plan.platform.files.Attributes(plan.app->xFileName()), 0);
}

TEST(SaveXml, KnowsAnAutosaveFileByItsExactLettersOnly) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("autosave001.prx"));
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(plan.platform.files.Attributes(plan.app->xFileName()), 0);
}

TEST(SaveXml, KeepsANewAutosaveFileVisibleWhenOnlyTheProjectIsWritten) {
    Plan plan;
    const String path = plan.platform.Path("AutoSave001.prx");
    auto document = Make<dom::Document>();
    plan.app->xProject()->ToXmlFile(path, document, True, False, True, False, True);
    EXPECT_EQ(plan.platform.files.Attributes(path), 0);
    plan.app->xProject()->ToXmlFile(path, document, True, False, True, False, True);
    EXPECT_EQ(plan.platform.files.Attributes(path), kHiddenAndSystem);
}

TEST(SaveXml, StoresTheWizardsStateOnlyWhenItIsToldTo) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    EXPECT_EQ(plan.app->SaveXml(False), True);
    EXPECT_FALSE(plan.platform.Exists("steps.xml"));
    EXPECT_EQ(plan.app->SaveXml(), True);
    const String stored = plan.platform.Read("steps.xml");
    EXPECT_NE(stored, "");

    plan.app->xStep()->Visted(3);
    EXPECT_EQ(plan.app->SaveXml(False), True);
    EXPECT_EQ(plan.platform.Read("steps.xml"), stored);
    EXPECT_EQ(plan.app->SaveXml(True), True);
    EXPECT_NE(plan.platform.Read("steps.xml"), stored);
}

TEST(SaveXml, SucceedsWithoutAWizardsStateAndRecordsThatThereIsNone) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.app->xStep({});
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_EQ(plan.failures.Taken(), "Persist/SaveObject 91\n");
}

TEST(SaveXml, RecordsTheSectionAndItselfWhenTheFileCannotBeWritten) {
    struct Row {
        const char* what;
        const char* name;
        int number;
    };
    for (const Row& row : {Row{"a folder", "folder", failure::kPathAccess},
                           Row{"in a folder that is not there", "no/p.prx", failure::kPathNotFound},
                           Row{"read-only", "locked.prx", failure::kPermissionDenied}}) {
        SCOPED_TRACE(row.what);
        Plan plan;
        ASSERT_EQ(mkdir(plan.platform.Path("folder").c_str(), 0755), 0);
        plan.platform.Write("locked.prx", "old");
        ASSERT_EQ(chmod(plan.platform.Path("locked.prx").c_str(), 0444), 0);
        plan.Task("A");
        plan.app->xFileName(plan.platform.Path(row.name));
        EXPECT_EQ(plan.app->SaveXml(), False);
        EXPECT_EQ(plan.failures.Taken(),
                  "Projectcls/ToXmlFile " + std::to_string(row.number) + "\nApplication/Save 91\n");
        EXPECT_TRUE(plan.platform.Exists("steps.xml")) << "the wizard's state is stored all the same";
        EXPECT_EQ(plan.col().Count(), 1);
        EXPECT_EQ(plan.platform.Read("locked.prx"), "old");

        plan.app->xFileName(plan.platform.Path("good.prx"));
        EXPECT_EQ(plan.app->SaveXml(), True) << "a further save can succeed";
    }
}

TEST(SaveXml, KeepsSigningItsFailuresAsSave) {
    Plan plan;
    EXPECT_EQ(plan.app->SaveXml(False), False);
    EXPECT_TRUE(plan.failures.Taken().ends_with("Application/Save 91\n"));
}

TEST(SaveXml, WithoutAFileNameFailsAndStoresNoState) {
    Plan plan;
    EXPECT_EQ(plan.app->SaveXml(), False);
    EXPECT_EQ(plan.failures.Taken(), "Projectcls/ToXmlFile 75\nApplication/Save 91\n");
    EXPECT_FALSE(plan.platform.Exists("steps.xml"));
}

TEST(SaveXml, KeepsTurningTheTasksThatShareAPlaceInTheirItem) {
    Plan plan;
    plan.Task("A").Task("B").Task("C");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    const auto order = [&] {
        String names;
        for (const auto& entry : plan.col().NewEnum()) names += entry.item->TaskName();
        return names;
    };
    ASSERT_EQ(order(), "ABC");
    plan.app->SaveXml();
    EXPECT_EQ(order(), "BCA");
    plan.app->SaveXml();
    EXPECT_EQ(order(), "CAB");
    plan.app->SaveXml();
    EXPECT_EQ(order(), "ABC");
}

// --- Round trips ----------------------------------------------------------------------------------------------------

TEST(LoadXML, BringsEverythingBackThatWasSaved) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    const String before = Told(*plan.app);
    ASSERT_EQ(plan.Load("p.prx"), True);
    // The creation date is written and never read.
    plan.app->xProject()->ProjectCreationDate(Monday);
    EXPECT_EQ(Told(*plan.app), before);
    EXPECT_EQ(plan.app->xProject()->ProjectDescription(), "First line\r\nsecond line");
}

TEST(LoadXML, BringsEverythingBackThroughTenSavesAndLoads) {
    WholeProject plan;
    const String before = Told(*plan.app);
    for (int round = 0; round < 10; ++round) {
        ASSERT_EQ(plan.SaveAs("p.prx"), True);
        ASSERT_EQ(plan.Load("p.prx"), True);
    }
    plan.app->xProject()->ProjectCreationDate(Monday);
    plan.app->xProject()->DateFormat("");
    EXPECT_EQ(Told(*plan.app), before);
}

TEST(LoadXML, ReadsTheFileOfAnEarlierDay) {
    WholeProject plan;
    const String before = ToldTasks(plan.col());
    plan.platform.Write("p.prx", Golden("whole_project.prx"));
    ASSERT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(ToldTasks(plan.col()), before);
    EXPECT_EQ(plan.Drawn(),
              "0 Old shed\n"
              "1 House\n"
              "2   Shell\n"
              "3     Walls  2026-03-02 2026-03-04\n"
              "4     Roof  2026-03-06 2026-03-20\n"
              "5   Keys handed over  2026-03-23 2026-03-23\n"
              "6 Garden  2026-03-30 2026-04-30\n");
}

TEST(LoadXML, TiesEachTaskToItsItemsAndEachItemToItsTasks) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    ASSERT_EQ(plan.Load("p.prx"), True);
    EXPECT_EQ(plan["Walls"].PeopleAsString(), "Ada");
    EXPECT_EQ(plan["Roof"].GoalsAsString(), "Dry by winter; ");
    EXPECT_EQ(plan["Roof"].ObstaclesAsString(), "Frost; ");
    EXPECT_EQ(plan["Garden"].NoteAsString(), "Ask the neighbour");
    EXPECT_EQ(plan["Garden"].LinkAsString(), "letter.txt");
    EXPECT_EQ(plan.app->xPeopleCol()->Item(Long(1))->Tasks()->Item(plan.Key("Walls"))->TaskName(), "Walls");
    EXPECT_EQ(plan.app->xGoalCol()->Item(Long(1))->Tasks()->Item(plan.Key("Roof"))->TaskName(), "Roof");
    EXPECT_EQ(plan.app->xObstaclesCol()->Item(Long(1))->Tasks()->Item(plan.Key("Roof"))->TaskName(), "Roof");
}

TEST(LoadXML, OfTheTasksOnlyLeavesTheRestEmptyAndTheRelationsBareKeys) {
    WholeProject plan;
    const String before = ToldTasks(plan.col());
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    ASSERT_EQ(plan.Load("p.prx", /*only_tasks=*/True), True);
    EXPECT_EQ(ToldTasks(plan.col()), before);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
    EXPECT_EQ(plan.app->xGoalCol()->Count(), 0);
    EXPECT_EQ(plan.app->xObstaclesCol()->Count(), 0);
    EXPECT_EQ(plan.app->xNoteCol()->Count(), 0);
    EXPECT_EQ(plan.app->xTaskPeopleRelationcol()->Count(), 0);
    EXPECT_EQ(plan.calendar().Holiday()->Count(), 0);
    EXPECT_EQ(plan.calendar().NonWorkingDay()->Count(), 2) << "as Init left it";

    const auto relations = plan["Walls"].TaskPeopleRelation();
    ASSERT_EQ(relations->Count(), 1);
    EXPECT_EQ(relations->Item("1")->elementKey(), "1");
    EXPECT_EQ(relations->Item("1")->TaskKey(), 0);
    EXPECT_EQ(relations->Item("1")->personkey(), 0);
    EXPECT_EQ(plan["Walls"].PeopleAsString(), "");
}

TEST(LoadXML, AsALibraryReadsReducedTasksAndThePeopleGoalsAndObstacles) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    const auto open_calendar = Module().g_PublicCalendar;
    const auto library = Make<Application>();
    library->xFileName(plan.platform.Path("p.prx"));
    Boolean read_only = True;
    ASSERT_EQ(library->LoadXML(False, /*p_for_lib=*/True, read_only), True);

    EXPECT_EQ(read_only, True) << "not written";
    EXPECT_FALSE(plan.platform.Exists("~p.prxl"));
    EXPECT_EQ(Module().g_PublicCalendar, open_calendar);
    EXPECT_FALSE(library->xStep());
    EXPECT_EQ(library->xTaskCol()->Count(True), 7);
    const auto roof = library->xTaskCol()->Item(plan.Key("Roof"));
    EXPECT_EQ(roof->TaskName(), "Roof");
    EXPECT_EQ(roof->ParentID(), plan.Number("Shell"));
    EXPECT_EQ(roof->TaskPosition(), 4);
    EXPECT_EQ(roof->TaskBDate(), Date());
    EXPECT_EQ(roof->TaskBDateValid(), False);
    EXPECT_EQ(roof->TaskColor(), 0);
    EXPECT_EQ(library->xTaskCol()->isParent(plan.Key("Shell")), True);
    EXPECT_EQ(library->xPeopleCol()->Count(), 1);
    EXPECT_EQ(library->xGoalCol()->Count(), 1);
    EXPECT_EQ(library->xObstaclesCol()->Count(), 1);
    EXPECT_EQ(library->xNoteCol()->Count(), 0);
    EXPECT_EQ(library->xTaskPeopleRelationcol()->Count(), 0);
    EXPECT_EQ(library->xCalendar()->Holiday()->Count(), 0);
    EXPECT_EQ(library->xProject()->ProjectName(), "House & garden <1>");
}

TEST(LoadXML, OfTheTasksOnlyAsALibraryStopsBehindTheReducedTasks) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("p.prx"), True);
    ASSERT_EQ(plan.Load("p.prx", True, True), True);
    EXPECT_EQ(plan.col().Count(True), 7);
    EXPECT_EQ(plan["Roof"].TaskBDateValid(), False);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

TEST(LoadXML, ReadsTheWizardsStateOfThatFile) {
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.app->xStep()->Visted(0);
    plan.app->xStep()->Visted(1);
    ASSERT_EQ(plan.app->SaveXml(), True);
    ASSERT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.app->xStep()->Sequence(), "|;Na;Ph|");
    EXPECT_EQ(plan.app->xStep()->LastVisitedStep(), 1);
    plan.app->endreadonly();
    ASSERT_EQ(plan.app->LoadXML(/*p_onlyTasks=*/True), True);
    EXPECT_EQ(plan.app->xStep()->Sequence(), "|") << "not with the tasks only";
    plan.app->endreadonly();
}

}  // namespace
}  // namespace mrlxmlclass
