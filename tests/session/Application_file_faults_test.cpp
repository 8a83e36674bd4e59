#include <gtest/gtest.h>

#include "mrlxmlclass/session/SafeFile.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/session/LettingGo.h"
#include "tests/session/SavedProject.h"

namespace mrlxmlclass {
namespace {

using testing::kSections;
using testing::kSideFile;
using testing::Listed;
using testing::SavedProject;

/// The class labels under which the writes of a save are recorded, one a write.
constexpr std::array kWriters{
    "Projectcls",
    "TasksCol",
    "PeopleCol",
    "TaskAssigmentRelationCol",
    "TaskGoalRelationCol",
    "TaskObstaclesRelationCol",
    "TaskNoteRelationCol",
    "GoalsCol",
    "NotesCol",
    "NotesCol",
    "CalendarCls",
};

/// The file as it stands when that many writes of a save succeeded.
String AfterWrites(const String& whole, std::size_t writes) {
    if (writes == 0) return {};  // the old content goes before the first write
    const String next = "<" + String(kSections.at(writes - 1));
    return whole.substr(0,
                        std::min(whole.find(next + ">"), std::min(whole.find(next + "/>"), whole.find(next + " ")))) +
           "</Project>";
}

TEST(SaveXml, KeepsOnlyWhatWasWrittenBeforeTheWriteThatFails) {
    SavedProject project;
    for (std::size_t nth = 1; nth <= kWriters.size(); ++nth) {
        for (const bool halfway : {false, true}) {
            SCOPED_TRACE("write " + std::to_string(nth) + (halfway ? ", halfway" : ""));
            project.platform.files.Delete(project.platform.Path(kSideFile));
            project.Rename("Roof", "Roof " + std::to_string(nth));
            project.platform.faults.FailAt(testing::FileCall::WriteAt, static_cast<int>(nth));
            if (halfway) project.platform.faults.WriteShort();

            EXPECT_EQ(project.app->SaveXml(), False);

            EXPECT_TRUE(project.platform.faults.Failed());
            EXPECT_EQ(project.failures.Taken(), kWriters.at(nth - 1) + String("/ToXmlFile 57\nApplication/Save 91\n"));
            const String left = project.Read("house.prx");
            EXPECT_NE(project.platform.Read(kSideFile).find("PropertiesValues"), String::npos);

            project.platform.faults.Heal();
            EXPECT_EQ(project.app->SaveXml(), True);
            EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "");
            if (nth == 1 && halfway) continue;  // of a first write there is nothing to fall back on
            EXPECT_EQ(left, AfterWrites(project.Read("house.prx"), nth - 1));
        }
    }
}

TEST(SaveXml, OutlivesAListenerThatLetsGoOfTheSession) {
    SavedProject project;
    auto other = Make<Application>();
    other->Init();
    other->xFileName(project.Path("other.prx"));
    const testing::LettingGo listener(other);
    project.platform.faults.FailAt(testing::FileCall::WriteAt, 1);

    EXPECT_EQ(other->SaveXml(), False);

    EXPECT_TRUE(listener.alive_when_told);
    EXPECT_EQ(project.failures.Taken(), "Projectcls/ToXmlFile 57\nApplication/Save 91\n");
}

TEST(SaveXml, FailsWhereTheRootsNameIsNone) {
    SavedProject project;
    project.app->xProject()->elementName("1");

    EXPECT_EQ(project.app->SaveXml(), False);

    EXPECT_EQ(project.failures.Taken(), "Application/Save 91\n");
    EXPECT_FALSE(project.platform.Exists("plans/house.prx"));
}

TEST(SaveXml, WritesNoTwelfthTime) {
    SavedProject project;
    project.platform.faults.FailAt(testing::FileCall::WriteAt, static_cast<int>(kWriters.size()) + 1);

    EXPECT_EQ(project.app->SaveXml(False), True);

    EXPECT_FALSE(project.platform.faults.Failed());
    EXPECT_EQ(project.platform.faults.Calls(testing::FileCall::WriteAt), static_cast<int>(kWriters.size()));
}

TEST(SaveXml, SucceedsAgainAfterADiskThatRefusedEverything) {
    SavedProject project;
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE("from call " + std::to_string(nth));
        project.platform.faults.FailAt(nth);
        project.platform.faults.KeepFailing();
        const Boolean saved = project.app->SaveXml(False);
        if (!project.platform.faults.Failed()) break;
        const int all = project.platform.faults.Calls();
        project.platform.faults.Heal();
        EXPECT_GE(all, nth);
        EXPECT_EQ(saved, False);
        EXPECT_NE(project.failures.Taken().find("Application/Save 91\n"), String::npos);
        // The error log lies on the same disk, so the user is told instead.
        EXPECT_EQ(project.platform.ui.messages.size(), 2U);
        project.platform.ui.messages.clear();

        EXPECT_EQ(project.app->SaveXml(False), True);
        EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "");
    }
}

TEST(SaveXml, FailsOnWhatCannotBeWritten) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("folder"));
    project.Write("protected.prx", "<old/>");
    project.platform.files.SetMode(project.Path("protected.prx"), 0444);
    struct Row {
        String path;
        const char* number;
    };
    for (const Row& row : {Row{project.Path("folder"), "75"}, Row{project.Path("no folder/house.prx"), "76"},
                           Row{project.Path("protected.prx"), "70"}, Row{"/dev/full", "57"}, Row{"", "75"}}) {
        SCOPED_TRACE(row.path);
        project.app->xFileName(row.path);

        EXPECT_EQ(project.app->SaveXml(False), False);

        EXPECT_EQ(project.failures.Taken(), String("Projectcls/ToXmlFile ") + row.number + "\nApplication/Save 91\n");
    }
    EXPECT_EQ(project.Read("protected.prx"), "<old/>");
    EXPECT_EQ(project.FilesThere(), "folder protected.prx");
}

TEST(SaveXml, StoresNoWizardStateWithoutAFileName) {
    SavedProject project;
    project.app->xFileName("");

    EXPECT_EQ(project.app->SaveXml(), False);

    EXPECT_EQ(project.failures.Taken(), "Projectcls/ToXmlFile 75\nApplication/Save 91\n");
    EXPECT_FALSE(project.platform.Exists(kSideFile));
}

TEST(SaveXml, LeavesTheWizardStateAloneWhenTold) {
    SavedProject project;

    EXPECT_EQ(project.app->SaveXml(False), True);
    EXPECT_FALSE(project.platform.Exists(kSideFile));
    EXPECT_EQ(project.app->SaveXml(), True);
    const String state = project.platform.Read(kSideFile);

    project.app->xFileName(project.Path("other.prx"));
    EXPECT_EQ(project.app->SaveXml(False), True);
    EXPECT_EQ(project.platform.Read(kSideFile), state);
}

TEST(SaveXml, HidesAnAutosave) {
    SavedProject project;
    project.app->xFileName(project.Path("AutoSave001.prx"));

    EXPECT_EQ(project.app->SaveXml(False), True);

    EXPECT_EQ(project.Attributes("AutoSave001.prx"), 6);
}

TEST(SaveXml, KeepsANewAutosaveVisibleUntilItsSecondSection) {
    SavedProject project;
    project.app->xFileName(project.Path("AutoSave001.prx"));
    testing::FaultyFiles& faults = project.platform.faults;
    const int sections = static_cast<int>(kWriters.size());

    faults.FailAt(0);
    EXPECT_EQ(project.app->SaveXml(False), True);
    EXPECT_EQ(faults.Calls(testing::FileCall::SetAttributes), 2 * (sections - 1));  // cleared before, set after

    faults.FailAt(0);
    EXPECT_EQ(project.app->SaveXml(False), True);
    EXPECT_EQ(faults.Calls(testing::FileCall::SetAttributes), 2 * sections);
}

TEST(SaveXml, WritesOverAnAutosaveThatIsHiddenAndWriteProtected) {
    SavedProject project;
    project.app->xFileName(project.Path("AutoSave001.prx"));
    project.Write("AutoSave001.prx", "<old/>");
    project.platform.files.SetAttributes(project.Path("AutoSave001.prx"), 7);

    EXPECT_EQ(project.app->SaveXml(False), True);

    EXPECT_EQ(Listed(MissingSections(project.Path("AutoSave001.prx"))), "");
    EXPECT_EQ(project.Attributes("AutoSave001.prx"), 6);
}

TEST(SaveXml, HidesWhateverLiesInAFolderNamedLikeAnAutosave) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("xAutoSave001.prxx"));
    project.app->xFileName(project.Path("xAutoSave001.prxx/house.prx"));

    EXPECT_EQ(project.app->SaveXml(False), True);

    EXPECT_EQ(project.Attributes("xAutoSave001.prxx/house.prx"), 6);
}

TEST(SaveXml, LeavesOtherNamesVisible) {
    SavedProject project;
    for (const char* name : {"house.prx", "autosave001.prx", "AutoSave001.PRX", "AutoSave002.prx"}) {
        SCOPED_TRACE(name);
        project.app->xFileName(project.Path(name));

        EXPECT_EQ(project.app->SaveXml(False), True);
        EXPECT_EQ(project.app->SaveXml(False), True);

        EXPECT_EQ(project.Attributes(name), 0);
    }
}

TEST(SaveXml, LeavesTheAutosaveOfASilencedHostVisible) {
    SavedProject project;
    Module().g_SourcePrima = True;
    project.app->xFileName(project.Path("AutoSave001.prx"));

    EXPECT_EQ(project.app->SaveXml(False), True);
    EXPECT_EQ(project.app->SaveXml(False), True);

    EXPECT_EQ(project.Attributes("AutoSave001.prx"), 0);
}

}  // namespace
}  // namespace mrlxmlclass
