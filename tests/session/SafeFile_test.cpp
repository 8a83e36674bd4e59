#include "mrlxmlclass/session/SafeFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <sstream>

#include "tests/session/LettingGo.h"
#include "tests/session/SavedProject.h"
#include "tests/support/OtherProcess.h"

namespace mrlxmlclass {
namespace {

using testing::FileCall;
using testing::kSideFile;
using testing::Listed;
using testing::SavedProject;

/// Hands out another content than the file's.
class TamperingFiles : public ForwardingFiles {
public:
    explicit TamperingFiles(testing::TestPlatform& platform)
        : ForwardingFiles(platform.faults),
          services_{platform.clock, platform.locale, *this, platform.shell, platform.ui} {}

    String Read(const String& path) override {
        String content = ForwardingFiles::Read(path);
        const std::size_t at = content.find(from);
        if (at != String::npos) content.erase(at, content.find(to, at) + to.size() - at);
        return content;
    }

    String from;  ///< what is read lacks the text from here
    String to;    ///< to the end of this

private:
    Services services_;
    InstalledServices installed_{services_};
};

TEST(SaveSafely, WritesWhatAPlainSaveWrites) {
    SavedProject project;

    EXPECT_EQ(SaveSafely(project.app), "");
    const String safe = project.Read("house.prx");
    EXPECT_EQ(project.app->SaveXml(), True);

    EXPECT_EQ(project.Read("house.prx"), safe);
    EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "");
    EXPECT_EQ(project.FilesThere(), "house.prx");
}

TEST(SaveSafely, CanBeLoadedAgain) {
    SavedProject project;
    EXPECT_EQ(SaveSafely(project.app), "");

    const auto other = Make<Application>();
    other->xFileName(project.Path("house.prx"));
    EXPECT_EQ(other->LoadXML(), True);

    EXPECT_EQ(other->xTaskCol()->Count(), 3);
    EXPECT_EQ(other->xTaskCol()->Item(project.Key("Walls"))->TaskName(), "Walls");
    other->endreadonly();
}

TEST(SaveSafely, LeavesTheSessionAsItWas) {
    SavedProject project;
    const Ref<TasksCol> tasks = project.app->xTaskCol();
    const Ref<CalendarCls> calendar = Module().g_PublicCalendar;
    project.app->Dirty(True);

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.app->xFileName(), project.Path("house.prx"));
    EXPECT_EQ(project.app->xTaskCol(), tasks);
    EXPECT_EQ(Module().g_PublicCalendar, calendar);
    EXPECT_EQ(project.app->Dirty(), True);
}

TEST(SaveSafely, SaysWhatFailedForWhichPath) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("folder"));
    struct Row {
        String path;
        const char* reason;
    };
    for (const Row& row : {Row{project.Path("folder"), "it cannot be replaced (The path cannot be used as a file)."},
                           Row{project.Path("none/house.prx"),
                               "the new copy beside it could not be written (The folder was not found)."},
                           Row{"", "it cannot be replaced (The project has no file name)."}}) {
        project.app->xFileName(row.path);

        EXPECT_EQ(SaveSafely(project.app), row.path + " was not saved: " + row.reason);

        EXPECT_TRUE(project.failures.Taken().starts_with("SafeFile/SaveSafely "));
    }
    EXPECT_EQ(project.FilesThere(), "folder");
    EXPECT_FALSE(project.platform.Exists(kSideFile));
}

/// Saves as a user in whose folder the project lies; gives owner, group and mode of the file afterwards.
String SavedBy(SavedProject& project, const testing::User& who) {
    const String folder = project.platform.Path("plans");
    EXPECT_EQ(chmod(project.platform.folder.path().c_str(), 0755), 0);
    EXPECT_EQ(chmod(folder.c_str(), 0777), 0);
    EXPECT_EQ(testing::AsUser(who, [&] { return SaveSafely(project.app, /*persist=*/False).empty() ? 0 : 1; }), 0);
    const FileFacts saved = project.platform.files.Facts(project.Path("house.prx"));
    std::ostringstream words;
    words << saved.owner << " " << saved.group << " " << std::oct << saved.mode;
    return words.str();
}

TEST(SaveSafely, LeavesTheFileToItsGroupWhoeverSaves) {
    if (!testing::MayBecomeAnybody()) GTEST_SKIP() << "only an administrator can become another user";
    SavedProject project;
    project.Write("house.prx", "<old/>");
    project.platform.files.SetMode(project.Path("house.prx"), 0660);
    ASSERT_EQ(chown(project.Path("house.prx").c_str(), 5004, 5001), 0);

    EXPECT_EQ(SavedBy(project, {.user = 5003, .group = 5002, .member_of = 5001}), "5003 5001 660");
}

TEST(SaveSafely, GivesAnotherGroupNoRightButThatOfEverybody) {
    if (!testing::MayBecomeAnybody()) GTEST_SKIP() << "only an administrator can become another user";
    struct Row {
        std::uint32_t mode;
        const char* saved;
    };
    for (const Row& row : {Row{0660, "5003 5002 600"}, Row{0664, "5003 5002 644"}, Row{0606, "5003 5002 606"},
                           Row{0666, "5003 5002 666"}}) {
        SCOPED_TRACE(row.saved);
        SavedProject project;
        project.Write("house.prx", "<old/>");
        project.platform.files.SetMode(project.Path("house.prx"), row.mode);
        ASSERT_EQ(chown(project.Path("house.prx").c_str(), 5003, 5001), 0);

        EXPECT_EQ(SavedBy(project, {.user = 5003, .group = 5002, .member_of = 5002}), row.saved);
    }
}

TEST(SaveSafely, OutlivesAListenerThatLetsGoOfTheSession) {
    SavedProject project;
    auto other = Make<Application>();
    other->Init();
    other->xFileName(project.Path("other.prx"));
    testing::LettingGo listener(other);
    project.platform.faults.FailAt(FileCall::WriteAt, 1);

    EXPECT_NE(SaveSafely(other), "");

    EXPECT_TRUE(listener.alive_when_told);
    EXPECT_FALSE(other);
    EXPECT_TRUE(project.failures.Taken().ends_with("SafeFile/SaveSafely 57\n"));
}

TEST(SaveSafely, SaysThatThereIsNoProject) {
    SavedProject project;

    EXPECT_EQ(SaveSafely({}), "There is no project to save (The object is not set).");

    EXPECT_EQ(project.failures.Taken(), "SafeFile/SaveSafely 91\n");
}

TEST(SaveSafely, RefusesAWriteProtectedFile) {
    SavedProject project;
    project.Write("house.prx", "<old/>");
    project.platform.files.SetMode(project.Path("house.prx"), 0444);

    EXPECT_EQ(SaveSafely(project.app),
              project.Path("house.prx") + " was not saved: it cannot be replaced (Permission denied).");

    EXPECT_EQ(project.Read("house.prx"), "<old/>");
    EXPECT_EQ(project.failures.Taken(), "SafeFile/SaveSafely 70\n");
}

TEST(WhyNotReplaceable, TellsOfAWriteProtectedFileAndChangesNone) {
    SavedProject project;
    EXPECT_EQ(WhyNotReplaceable(project.Path("new.prx")), "");
    project.Write("house.prx", "<old/>");
    EXPECT_EQ(WhyNotReplaceable(project.Path("house.prx")), "");
    EXPECT_EQ(project.Read("house.prx"), "<old/>");
    project.platform.files.SetMode(project.Path("house.prx"), 0444);
    EXPECT_EQ(WhyNotReplaceable(project.Path("house.prx")),
              project.Path("house.prx") + " cannot be replaced (Permission denied).");
    EXPECT_EQ(project.failures.Taken(), "SafeFile/WhyNotReplaceable 70\n");
}

TEST(SaveSafely, DoesNotPutAFileInThePlaceOfADevice) {
    SavedProject project;
    const String path = project.Path("device");
    // Only an administrator can make a device; anybody can make a pipe.
    const bool device = mknod(path.c_str(), S_IFCHR | 0666, makedev(1, 7)) == 0;
    ASSERT_TRUE(device || mkfifo(path.c_str(), 0666) == 0);
    project.app->xFileName(path);

    EXPECT_TRUE(SaveSafely(project.app).starts_with(path + " was not saved: it cannot be replaced ("));

    struct stat status {};
    ASSERT_EQ(lstat(path.c_str(), &status), 0);
    EXPECT_FALSE(S_ISREG(status.st_mode));
    EXPECT_EQ(project.FilesThere(), "device");
    EXPECT_TRUE(project.failures.Taken().starts_with("SafeFile/SaveSafely "));
}

TEST(SaveSafely, KeepsModeAndAttributes) {
    SavedProject project;
    const String path = project.Path("house.prx");
    project.Write("house.prx", "<old/>");
    project.platform.files.SetMode(path, 0640);
    project.platform.files.SetAttributes(path, file_attribute::kHidden);

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.Mode("house.prx"), 0640U);
    EXPECT_EQ(project.Attributes("house.prx"), file_attribute::kHidden);
    EXPECT_EQ(Listed(MissingSections(path)), "");
}

TEST(SaveSafely, GivesANewFileTheUsualMode) {
    SavedProject project;
    project.Write("usual", "");

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.Mode("house.prx"), project.Mode("usual"));
    EXPECT_EQ(project.Attributes("house.prx"), 0);
}

TEST(SaveSafely, ReplacesWhatALinkLeadsTo) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("real"));
    project.Write("real/house.prx", "<old/>");
    std::filesystem::create_symlink("real/house.prx", project.Path("house.prx"));

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(std::filesystem::read_symlink(project.Path("house.prx")), "real/house.prx");
    EXPECT_EQ(Listed(MissingSections(project.Path("real/house.prx"))), "");
    EXPECT_EQ(project.FilesThere(), "house.prx real");
    EXPECT_EQ(SavedProject::FilesIn(project.Path("real")), "house.prx");
}

TEST(SaveSafely, KeepsTheLock) {
    SavedProject project;
    ASSERT_EQ(project.app->CreateLockFile(), True);

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.platform.files.Use(project.Path("~house.prxl")), FileUse::InUse);
    EXPECT_EQ(project.FilesThere(), "house.prx ~house.prxl");
    project.app->endreadonly();
}

TEST(SaveSafely, HidesAnAutosave) {
    SavedProject project;
    project.app->xFileName(project.Path("AutoSave001.prx"));

    EXPECT_EQ(SaveSafely(project.app), "");
    EXPECT_EQ(project.Attributes("AutoSave001.prx"), 6);

    project.platform.files.SetAttributes(project.Path("AutoSave001.prx"), 7);
    EXPECT_EQ(SaveSafely(project.app), "");
    EXPECT_EQ(project.Attributes("AutoSave001.prx"), 6);
    EXPECT_EQ(project.FilesThere(), "AutoSave001.prx");
}

TEST(SaveSafely, LeavesTheAutosaveOfASilencedHostVisible) {
    SavedProject project;
    Module().g_SourcePrima = True;
    project.app->xFileName(project.Path("AutoSave001.prx"));

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.Attributes("AutoSave001.prx"), 0);
}

TEST(SaveSafely, MakesTheFileThatALinkPointsToWhereThereIsNone) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("real"));
    std::filesystem::create_symlink("real/house.prx", project.Path("house.prx"));

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(std::filesystem::read_symlink(project.Path("house.prx")), "real/house.prx");
    EXPECT_EQ(Listed(MissingSections(project.Path("real/house.prx"))), "");
    EXPECT_EQ(project.FilesThere(), "house.prx real");
}

TEST(SaveSafely, LeavesALinkAloneThatPointsToNoFolder) {
    SavedProject project;
    std::filesystem::create_symlink("none/house.prx", project.Path("house.prx"));

    EXPECT_EQ(SaveSafely(project.app),
              project.Path("house.prx") +
                  " was not saved: the new copy beside it could not be written (The folder was not found).");

    EXPECT_EQ(std::filesystem::read_symlink(project.Path("house.prx")), "none/house.prx");
    EXPECT_EQ(project.failures.Taken(), "SafeFile/SaveSafely 76\n");
}

TEST(SaveSafely, LeavesAFileVisibleThatOnlyLiesBehindALinkInAnAutosaveFolder) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("AutoSave001.prx"));
    project.Write("AutoSave001.prx/house.prx", "<old/>");
    std::filesystem::create_symlink("AutoSave001.prx/house.prx", project.Path("house.prx"));

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.Attributes("AutoSave001.prx/house.prx"), 0);
}

TEST(SaveSafely, StoresTheWizardStateLast) {
    SavedProject project;
    project.platform.faults.FailAt(FileCall::Rename, 1);
    EXPECT_NE(SaveSafely(project.app), "");
    EXPECT_FALSE(project.platform.Exists(kSideFile));
    project.platform.faults.Heal();
    project.failures.Taken();

    EXPECT_EQ(SaveSafely(project.app, False), "");
    EXPECT_FALSE(project.platform.Exists(kSideFile));

    EXPECT_EQ(SaveSafely(project.app), "");
    EXPECT_NE(project.platform.Read(kSideFile).find("PropertiesValues"), String::npos);
}

TEST(SaveSafely, DoesNotTrustACopyThatLacksSomething) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app), "");
    const String before = project.Read("house.prx");
    const String not_whole = project.Path("house.prx") + " was not saved: the new copy beside it is not whole (";
    project.Rename("Roof", "Thatch");
    struct Row {
        const char* from;
        const char* to;
        const char* reason;
    };
    for (const Row& row : {Row{"<Task>", "</Task>", "The section Tasks holds 2 records instead of 3)."},
                           Row{"<Goals", ">", "The section Goals is missing)."},
                           Row{"<Calendar>", "</Calendar>", "The section Calendar is missing)."}}) {
        TamperingFiles files(project.platform);
        files.from = row.from;
        files.to = row.to;

        EXPECT_EQ(SaveSafely(project.app), not_whole + row.reason);

        EXPECT_EQ(project.failures.Taken(), "SafeFile/SaveSafely 1\n");
    }
    TamperingFiles files(project.platform);
    files.from = "</Project>";
    files.to = ">";
    EXPECT_TRUE(SaveSafely(project.app).starts_with(not_whole));
    EXPECT_EQ(project.failures.Taken(), "SafeFile/SaveSafely 91\n");
    EXPECT_EQ(project.Read("house.prx"), before);
    EXPECT_EQ(project.FilesThere(), "house.prx");
}

TEST(SaveSafely, DoesNotTakeARecordThatWasCutShort) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app), "");
    const String before = project.Read("house.prx");
    Module().BVersion = True;
    project["Walls"].TaskPredecessor()->Add(Variant::Null{});  // no text comes of it

    EXPECT_EQ(SaveSafely(project.app), project.Path("house.prx") +
                                           " was not saved: the new copy beside it could not be written (The value is "
                                           "not of the type that is needed).");

    EXPECT_EQ(project.Read("house.prx"), before);
    EXPECT_EQ(project.failures.Taken(), "TasksCls/ToXmlInt 13\nSafeFile/SaveSafely 57\n");
}

}  // namespace
}  // namespace mrlxmlclass
