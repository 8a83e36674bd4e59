#include <gtest/gtest.h>

#include "mrlxmlclass/session/SafeFile.h"
#include "tests/session/SavedProject.h"

namespace mrlxmlclass {
namespace {

using testing::FileCall;
using testing::SavedProject;

TEST(SaveSafely, KeepsTheOldFileWhicheverCallFails) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app), "");
    int not_durable = 0;
    int without_wizard = 0;
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE("call " + std::to_string(nth));
        const String before = project.Read("house.prx");
        project.Rename("Roof", "Roof " + std::to_string(nth));
        project.platform.faults.FailAt(nth);

        const String trouble = SaveSafely(project.app);

        if (!project.platform.faults.Failed()) break;
        project.platform.faults.Heal();
        const String after = project.Read("house.prx");
        EXPECT_EQ(project.FilesThere(), "house.prx");
        EXPECT_EQ(project.app->xFileName(), project.Path("house.prx"));
        EXPECT_EQ(SaveSafely(project.app), "");
        EXPECT_EQ(project.FilesThere(), "house.prx");
        if (trouble.starts_with(project.Path("house.prx") + " was not saved: ")) {
            EXPECT_EQ(after, before);
            EXPECT_NE(project.failures.Taken(), "");
            continue;
        }
        EXPECT_EQ(after, project.Read("house.prx"));
        if (trouble.empty()) {
            ++without_wizard;
        } else {
            ++not_durable;
            EXPECT_EQ(trouble,
                      project.Path("house.prx") + " was saved, but a power cut may still undo that (Planned failure).");
        }
        project.failures.Taken();
    }
    EXPECT_EQ(not_durable, 1);
    EXPECT_GT(without_wizard, 0);
}

TEST(SaveSafely, KeepsTheOldFileWhicheverWriteStopsHalfway) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app, False), "");
    const String before = project.Read("house.prx");
    project.Rename("Roof", "Thatch");
    int nth = 1;
    for (;; ++nth) {
        SCOPED_TRACE("write " + std::to_string(nth));
        project.platform.faults.FailAt(FileCall::WriteAt, nth);
        project.platform.faults.WriteShort();
        const String trouble = SaveSafely(project.app, False);
        if (!project.platform.faults.Failed()) break;

        EXPECT_EQ(trouble, project.Path("house.prx") +
                               " was not saved: the new copy beside it could not be written (Planned failure).");
        EXPECT_EQ(project.Read("house.prx"), before);
        EXPECT_EQ(project.FilesThere(), "house.prx");
        EXPECT_NE(project.failures.Taken(), "");
    }
    EXPECT_EQ(nth, 12);
    EXPECT_NE(project.Read("house.prx").find("Thatch"), String::npos);
}

TEST(SaveSafely, ClearsAwayWhatItHadToLeaveOnABrokenDisk) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app, False), "");
    bool left_behind = false;
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE("from call " + std::to_string(nth));
        const String before = project.Read("house.prx");
        project.Rename("Roof", "Roof " + std::to_string(nth));
        project.platform.faults.FailAt(nth);
        project.platform.faults.KeepFailing();
        const String trouble = SaveSafely(project.app, False);
        if (!project.platform.faults.Failed()) break;
        project.platform.faults.Heal();

        EXPECT_NE(trouble, "");
        project.failures.Taken();
        left_behind = left_behind || project.FilesThere() != "house.prx";
        if (trouble.find(" was not saved: ") != String::npos) {
            EXPECT_EQ(project.Read("house.prx"), before);
        }
        EXPECT_EQ(SaveSafely(project.app, False), "");
        EXPECT_EQ(project.FilesThere(), "house.prx");
    }
    EXPECT_TRUE(left_behind);
}

TEST(SaveSafely, LeavesNothingWhereNothingWas) {
    SavedProject project;
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE("call " + std::to_string(nth));
        project.platform.faults.FailAt(nth);
        const String trouble = SaveSafely(project.app, False);
        if (!project.platform.faults.Failed()) break;
        project.platform.faults.Heal();

        project.failures.Taken();
        EXPECT_NE(trouble, "");
        EXPECT_EQ(project.FilesThere(), trouble.find(" was not saved: ") != String::npos ? "" : "house.prx");
        project.platform.files.Delete(project.Path("house.prx"));
    }
    EXPECT_EQ(project.FilesThere(), "house.prx");
}

TEST(SaveSafely, IsOnTheDiskBeforeItTakesTheOldPlace) {
    SavedProject project;
    ASSERT_EQ(SaveSafely(project.app, False), "");
    const String before = project.Read("house.prx");
    project.Rename("Roof", "Thatch");

    project.platform.faults.FailAt(FileCall::Sync, 1);
    EXPECT_EQ(SaveSafely(project.app, False),
              project.Path("house.prx") +
                  " was not saved: the new copy beside it could not be brought onto the disk (Planned failure).");
    EXPECT_EQ(project.Read("house.prx"), before);
    EXPECT_EQ(project.platform.faults.Calls(FileCall::Rename), 0);

    project.platform.faults.FailAt(FileCall::Rename, 1);
    EXPECT_EQ(SaveSafely(project.app, False),
              project.Path("house.prx") +
                  " was not saved: the new copy beside it could not take its place (Planned failure).");
    EXPECT_EQ(project.Read("house.prx"), before);
    EXPECT_EQ(project.platform.faults.Calls(FileCall::Sync), 1);
    EXPECT_EQ(project.platform.faults.Calls(FileCall::SyncFolder), 0);
    EXPECT_EQ(project.failures.Taken(), "SafeFile/SaveSafely 57\nSafeFile/SaveSafely 57\n");
}

}  // namespace
}  // namespace mrlxmlclass
