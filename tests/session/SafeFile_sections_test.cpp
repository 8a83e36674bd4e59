#include "mrlxmlclass/session/SafeFile.h"
#include "tests/session/SavedProject.h"

namespace mrlxmlclass {
namespace {

using testing::kSections;
using testing::Listed;
using testing::SavedProject;
using testing::SectionsFrom;

TEST(MissingSections, NamesNothingOfAWholeFile) {
    SavedProject project;
    ASSERT_EQ(project.app->SaveXml(), True);

    EXPECT_EQ(MissingSections(project.Path("house.prx"))->Count(), 0);
    EXPECT_EQ(project.FilesThere(), "house.prx");
}

TEST(MissingSections, NamesWhatAnInterruptedSaveDidNotReach) {
    SavedProject project;
    for (std::size_t written = 0; written < kSections.size(); ++written) {
        SCOPED_TRACE(written);
        project.platform.faults.FailAt(FileCall::WriteAt, static_cast<int>(written) + 2);
        EXPECT_EQ(project.app->SaveXml(False), False);
        project.platform.faults.Heal();
        project.failures.Taken();

        EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), SectionsFrom(written));
    }
}

TEST(MissingSections, NamesASectionThatIsGoneFromTheMiddle) {
    SavedProject project;
    project.Write("house.prx",
                  "<Project><Tasks/><Obstacles/><Calendar/><Notes/><TaskNoteRelations/><TaskGoalRelations/>"
                  "<TaskObstaclesRelations/><Goal><Goals/></Goal><People/></Project>");

    EXPECT_EQ(Listed(MissingSections(project.Path("house.prx"))), "TaskAssigmentRelations Goals");
}

TEST(MissingSections, NamesThemAllForWhatIsNoProject) {
    SavedProject project;
    std::filesystem::create_directory(project.Path("folder"));
    project.Write("cut", "<Project><Tasks></Tasks>");
    project.Write("empty", "");
    project.Write("page", "<html><body/></html>");
    for (const char* name : {"folder", "cut", "empty", "page", "not there"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Listed(MissingSections(project.Path(name))), SectionsFrom(0));
    }
    EXPECT_EQ(Listed(MissingSections("")), SectionsFrom(0));
}

}  // namespace
}  // namespace mrlxmlclass
