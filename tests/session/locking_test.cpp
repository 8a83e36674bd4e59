#include "mrlxmlclass/session/locking.h"

#include <filesystem>

#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {
namespace {

class Locking : public ::testing::Test {
protected:
    // A test may leave locks behind, which would stay held as long as the process.
    ~Locking() override {
        for (int number = 1; number <= 4; ++number) session.files.Release(number, "");
    }

    /// Somebody else opens the project.
    void HoldBySomebodyElse(const String& name) { session.files.Hold(locking::LockFileOf(session.Path(name))); }

    TestSession session;
    const String project = session.Path("p.prx");
    const String lock_file = session.Path("~p.prxl");
};

using LockFileOf = Locking;
using IsFileInUse = Locking;
using CreateLockFile = Locking;
using FileCanBeOveriwrite = Locking;
using EndReadOnly = Locking;

TEST_F(LockFileOf, StandsBesideTheProjectUnderItsNameBetweenATildeAndAnL) {
    EXPECT_EQ(locking::LockFileOf("/plans/p.prx"), "/plans/~p.prxl");
    EXPECT_EQ(locking::LockFileOf("/plans/new house/Bau Plan.prx"), "/plans/new house/~Bau Plan.prxl");
    EXPECT_EQ(locking::LockFileOf("/pl\xC3\xA4ne/h\xC3\xA4user"), "/pl\xC3\xA4ne/~h\xC3\xA4userl");
    EXPECT_EQ(locking::LockFileOf("plans/p.prx"), "plans/~p.prxl");
}

TEST_F(LockFileOf, AddsNoSecondSlashToTheRootFolderOrToADoubledOne) {
    EXPECT_EQ(locking::LockFileOf("/p.prx"), "/~p.prxl");
    EXPECT_EQ(locking::LockFileOf("/plans//p.prx"), "/plans/~p.prxl");
}

TEST_F(LockFileOf, TakesABackslashForALetterOfTheName) {
    EXPECT_EQ(locking::LockFileOf("/plans/a\\b.prx"), "/plans/~a\\b.prxl");
}

TEST_F(LockFileOf, KeepsTheLockOfABareFileNameInTheRootFolder) {
    EXPECT_EQ(locking::LockFileOf("p.prx"), "/~p.prxl");
}

TEST_F(LockFileOf, MakesANameOfAFolderAndOfNothingToo) {
    EXPECT_EQ(locking::LockFileOf("/plans/"), "/plans/~l");
    EXPECT_EQ(locking::LockFileOf(""), "/~l");
}

TEST_F(IsFileInUse, TellsAnAbsentAFreeAndAHeldFileApart) {
    EXPECT_EQ(locking::IsFileInUse(project), -999);
    session.Write("p.prx", "<Project/>");
    EXPECT_EQ(locking::IsFileInUse(project), 0);
    const Integer number = session.files.Hold(project);
    EXPECT_EQ(locking::IsFileInUse(project), -1);
    session.files.Release(number, "");
    EXPECT_EQ(locking::IsFileInUse(project), 0);
}

TEST_F(IsFileInUse, CountsAFolderAsInUseAndAFileBelowAFileAsAbsent) {
    session.Write("file", "");
    EXPECT_EQ(locking::IsFileInUse(session.folder.path()), -1);
    EXPECT_EQ(locking::IsFileInUse(session.Path("file/p.prx")), -999);
    EXPECT_EQ(locking::IsFileInUse(""), -999);
}

TEST_F(CreateLockFile, HoldsAnEmptyFileBesideTheProject) {
    EXPECT_EQ(locking::CreateLockFile(project), True);

    EXPECT_EQ(session.Read("~p.prxl"), "");
    EXPECT_EQ(locking::IsFileInUse(lock_file), -1);
    EXPECT_EQ(Module().g_LockFileName, lock_file);
    EXPECT_GT(Module().g_LockFileNumber, 0);
    EXPECT_EQ(Module().g_ReadOnly, False);
}

TEST_F(CreateLockFile, AsksNothingOfTheProjectFileItself) {
    EXPECT_FALSE(session.Exists("p.prx"));
    EXPECT_EQ(locking::CreateLockFile(project), True);
    EXPECT_FALSE(session.Exists("p.prx"));
}

TEST_F(CreateLockFile, GivesReadOnlyWhenTheSameProjectIsOpenedTwiceWithoutAnEnd) {
    EXPECT_EQ(locking::CreateLockFile(project), True);
    EXPECT_EQ(locking::CreateLockFile(project), False);
    EXPECT_EQ(Module().g_ReadOnly, True);
    EXPECT_EQ(Module().g_LockFileName, lock_file);
}

TEST_F(CreateLockFile, GivesReadOnlyWhenSomebodyElseHasTheProject) {
    HoldBySomebodyElse("p.prx");
    EXPECT_EQ(locking::CreateLockFile(project), False);
    EXPECT_EQ(Module().g_ReadOnly, True);
    EXPECT_EQ(Module().g_LockFileName, "");
    EXPECT_EQ(Module().g_LockFileNumber, 0);
}

TEST_F(CreateLockFile, TakesALeftoverFileThatNobodyHolds) {
    session.Write("~p.prxl", "");
    EXPECT_EQ(locking::CreateLockFile(project), True);
    EXPECT_EQ(Module().g_ReadOnly, False);
}

TEST_F(CreateLockFile, GivesFalseAndNoReadOnlyWithoutAFileName) {
    Module().g_ReadOnly = True;
    EXPECT_EQ(locking::CreateLockFile(""), False);
    EXPECT_EQ(Module().g_ReadOnly, False);
}

TEST_F(CreateLockFile, RecordsAFolderThatIsNotThereAndGoesOnAsWritable) {
    EXPECT_EQ(locking::CreateLockFile(session.Path("missing/p.prx")), False);
    EXPECT_EQ(Module().g_ReadOnly, False);
    EXPECT_EQ(Module().g_LockFileName, "");
    EXPECT_EQ(session.failures.Taken(), "locking/CreateLockFile 76\n");
}

// Also what the later of two openers meets when both saw the file free.
TEST_F(CreateLockFile, RecordsALockThatItMayNotMakeAndGoesOnAsWritable) {
    session.faults.FailAt(FileCall::Hold, 1, failure::kPermissionDenied);
    EXPECT_EQ(locking::CreateLockFile(project), False);
    EXPECT_EQ(Module().g_ReadOnly, False);
    EXPECT_EQ(Module().g_LockFileName, "");
    EXPECT_EQ(session.failures.Taken(), "locking/CreateLockFile 70\n");
}

TEST_F(CreateLockFile, GivesReadOnlyWhenAFolderStandsWhereTheLockShould) {
    ASSERT_TRUE(std::filesystem::create_directory(lock_file));
    EXPECT_EQ(locking::CreateLockFile(project), False);
    EXPECT_EQ(Module().g_ReadOnly, True);
}

TEST_F(CreateLockFile, KeepsAnEarlierLockHeldWhenAnotherIsTaken) {
    EXPECT_EQ(locking::CreateLockFile(project), True);
    EXPECT_EQ(locking::CreateLockFile(session.Path("q.prx")), True);
    EXPECT_EQ(Module().g_LockFileName, session.Path("~q.prxl"));

    EXPECT_EQ(locking::EndReadOnly(), True);
    EXPECT_FALSE(session.Exists("~q.prxl"));
    EXPECT_EQ(locking::IsFileInUse(lock_file), -1);
}

TEST_F(FileCanBeOveriwrite, KeepsBeingTrueWhileSomebodyHasTheProjectOpen) {
    HoldBySomebodyElse("p.prx");
    EXPECT_EQ(locking::FileCanBeOveriwrite(project), True);
}

TEST_F(FileCanBeOveriwrite, IsFalseForAProjectThatNobodyHasOpenWithOrWithoutALeftoverLock) {
    EXPECT_EQ(locking::FileCanBeOveriwrite(project), False);
    session.Write("~p.prxl", "");
    EXPECT_EQ(locking::FileCanBeOveriwrite(project), False);
    EXPECT_TRUE(session.Exists("~p.prxl"));
}

TEST_F(FileCanBeOveriwrite, LooksAtTheLockAndNotAtTheProject) {
    session.files.Hold(project);
    EXPECT_EQ(locking::FileCanBeOveriwrite(project), False);
}

TEST_F(EndReadOnly, GivesTrueWithoutALock) {
    EXPECT_EQ(locking::EndReadOnly(), True);
    EXPECT_EQ(locking::EndReadOnly(), True);
}

TEST_F(EndReadOnly, LetsTheLockGoAndDeletesItsFile) {
    locking::CreateLockFile(project);
    EXPECT_EQ(locking::EndReadOnly(), True);

    EXPECT_FALSE(session.Exists("~p.prxl"));
    EXPECT_EQ(Module().g_LockFileName, "");
    EXPECT_EQ(locking::FileCanBeOveriwrite(project), False);
    EXPECT_EQ(locking::CreateLockFile(project), True);
}

TEST_F(EndReadOnly, KeepsTheNumberOfTheLockThatItEnded) {
    locking::CreateLockFile(project);
    const Integer number = Module().g_LockFileNumber;
    locking::EndReadOnly();
    EXPECT_EQ(Module().g_LockFileNumber, number);
}

TEST_F(EndReadOnly, LeavesANumberAloneThatSomebodyElseHasTakenMeanwhile) {
    locking::CreateLockFile(project);
    locking::EndReadOnly();
    HoldBySomebodyElse("q.prx");  // gets the same number, the lowest free one

    EXPECT_EQ(locking::EndReadOnly(), True);
    EXPECT_EQ(locking::FileCanBeOveriwrite(session.Path("q.prx")), True);
}

TEST_F(EndReadOnly, DeletesNothingOfAProjectThatSomebodyElseHas) {
    HoldBySomebodyElse("p.prx");
    locking::CreateLockFile(project);
    EXPECT_EQ(locking::EndReadOnly(), True);
    EXPECT_TRUE(session.Exists("~p.prxl"));
    EXPECT_EQ(locking::FileCanBeOveriwrite(project), True);
}

TEST_F(EndReadOnly, TakesALockFileThatWasDeletedByHand) {
    locking::CreateLockFile(project);
    session.files.Delete(lock_file);
    EXPECT_EQ(locking::EndReadOnly(), True);
    EXPECT_EQ(Module().g_LockFileName, "");
}

TEST_F(EndReadOnly, RecordsAFileThatCannotBeDeletedAndTriesAgainNextTime) {
    locking::CreateLockFile(project);
    session.faults.FailAt(FileCall::Release, 1, failure::kPermissionDenied);
    EXPECT_EQ(locking::EndReadOnly(), False);
    EXPECT_EQ(session.failures.Taken(), "locking/EndReadOnly 70\n");
    EXPECT_EQ(Module().g_LockFileName, lock_file);

    EXPECT_EQ(locking::EndReadOnly(), True);
    EXPECT_FALSE(session.Exists("~p.prxl"));
}

TEST_F(CreateLockFile, KeepsTheNumberOfALockThatItCouldNotMake) {
    EXPECT_EQ(locking::CreateLockFile(project), True);
    EXPECT_EQ(locking::CreateLockFile(session.Path("missing/p.prx")), False);
    EXPECT_EQ(session.failures.Taken(), "locking/CreateLockFile 76\n");
    EXPECT_EQ(Module().g_LockFileNumber, 2);
    EXPECT_EQ(Module().g_LockFileName, lock_file);

    EXPECT_EQ(locking::EndReadOnly(), True) << "closes a number that holds nothing";
    EXPECT_FALSE(session.Exists("~p.prxl"));
    Platform().files.Release(1, "");
}

}  // namespace
}  // namespace mrlxmlclass::testing
