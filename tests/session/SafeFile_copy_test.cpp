#include <gtest/gtest.h>

#include "mrlxmlclass/session/SafeFile.h"
#include "tests/session/SavedProject.h"

namespace mrlxmlclass {

using testing::FileCall;
using testing::Listed;
using testing::SavedProject;

TEST(CopyOnItsWay, NamesItsCopySoThatItIsNoAutosaveItself) {
    SavedProject project;
    project.app->xFileName(project.Path("AutoSave001.prx"));
    project.platform.faults.FailAt(FileCall::Rename, 1);
    project.platform.faults.KeepFailing();

    EXPECT_NE(SaveSafely(project.app), "");
    project.platform.faults.Heal();

    EXPECT_EQ(project.FilesThere(), "~AutoSave001~.prx~");
    project.failures.Taken();
}

TEST(CopyOnItsWay, ReplacesACopyThatWasLeftBehind) {
    SavedProject project;
    project.Write("~house~.prx~", "<?xml version=\"1.0\" ?><Project><Proj");
    project.platform.files.SetMode(project.Path("~house~.prx~"), 0444);

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.FilesThere(), "house.prx");
    EXPECT_NE(project.Mode("house.prx"), 0444U);
}

TEST(CopyOnItsWay, GoesAroundALinkInThePlaceOfItsCopy) {
    SavedProject project;
    project.Write("precious", "data");
    std::filesystem::create_symlink("precious", project.Path("~house~.prx~"));

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.Read("precious"), "data");
    EXPECT_EQ(project.FilesThere(), "house.prx precious ~house~.prx~");
}

TEST(CopyOnItsWay, GoesAroundAFolderInThePlaceOfItsCopy) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("~house~.prx~"));

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.FilesThere(), "house.prx ~house~.prx~");
    EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "");
}

TEST(CopyOnItsWay, ReplacesAnEmptyCopyThatWasLeftBehind) {
    SavedProject project;
    project.Write("~house~.prx~", "");

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.FilesThere(), "house.prx");
}

TEST(CopyOnItsWay, GoesAroundAFileInThePlaceOfItsCopyThatIsNone) {
    SavedProject project;
    project.Write("~house~.prx~", "somebody's notes");

    EXPECT_EQ(SaveSafely(project.app), "");

    EXPECT_EQ(project.Read("~house~.prx~"), "somebody's notes");
    EXPECT_EQ(project.FilesThere(), "house.prx ~house~.prx~");
    EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "");
}

}  // namespace mrlxmlclass
