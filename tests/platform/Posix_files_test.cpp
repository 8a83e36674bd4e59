#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/OtherProcess.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(Read, GivesEveryByte) {
    TestPlatform plat;
    String bytes(300'000, '\0');
    for (std::size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<char>(at * 7 % 251);
    plat.Write("a", bytes);
    EXPECT_TRUE(plat.files.Read(plat.Path("a")) == bytes);
    plat.Write("empty", "");
    EXPECT_EQ(plat.Read("empty"), "");
}

TEST(Read, TakesFilesThatTellNoSize) {
    EXPECT_NE(SystemServices().files.Read("/proc/self/status").find("Pid:"), String::npos);
}

TEST(Read, FailsWhereThereIsNothingToRead) {
    TestPlatform plat;
    plat.Write("file", "text");
    const auto number = [&](const String& path) { return NumberOf([&] { plat.files.Read(path); }); };
    EXPECT_EQ(number(plat.Path("absent")), failure::kFileNotFound);
    EXPECT_EQ(number(plat.Path("absent/a")), failure::kPathNotFound);
    EXPECT_EQ(number(plat.Path("file/a")), failure::kPathNotFound);
    EXPECT_EQ(number(plat.folder.path()), failure::kPathAccess);
    EXPECT_EQ(number(""), failure::kPathAccess);
    EXPECT_EQ(number(plat.Path("file") + String("\0x", 2)), failure::kPathAccess);
}

TEST(Read, RefusesPipesAndDevicesWithoutWaiting) {
    TestPlatform plat;
    ASSERT_EQ(mkfifo(plat.Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(NumberOf([&] { plat.Read("pipe"); }), failure::kPathAccess);
    EXPECT_EQ(NumberOf([&] { plat.files.Read("/dev/zero"); }), failure::kPathAccess);
}

TEST(Create, EmptiesTheFileAndOpenKeepsIt) {
    TestPlatform plat;
    plat.Write("a", "0123456789");
    plat.files.Open(plat.Path("a"))->WriteAt(3, "abc");
    EXPECT_EQ(plat.Read("a"), "012abc6789");
    plat.files.Create(plat.Path("a"))->WriteAt(2, "z");
    EXPECT_EQ(plat.Read("a"), String("\0\0z", 3));
}

TEST(Create, RefusesAFileWithoutAnyWriteBitWhoeverAsks) {
    TestPlatform plat;
    plat.Write("a", "kept");
    plat.files.SetMode(plat.Path("a"), 0444);
    EXPECT_EQ(NumberOf([&] { plat.files.Create(plat.Path("a")); }), failure::kPermissionDenied);
    EXPECT_EQ(NumberOf([&] { plat.files.Open(plat.Path("a")); }), failure::kPermissionDenied);
    EXPECT_EQ(plat.Read("a"), "kept");
}

TEST(Create, FailsWhereNoFileCanBe) {
    TestPlatform plat;
    plat.Write("file", "text");
    ASSERT_EQ(mkfifo(plat.Path("pipe").c_str(), 0600), 0);
    const auto create = [&](const String& path) { return NumberOf([&] { plat.files.Create(path); }); };
    EXPECT_EQ(create(plat.folder.path()), failure::kPathAccess);
    EXPECT_EQ(create(plat.Path("absent/a")), failure::kPathNotFound);
    EXPECT_EQ(create(plat.Path("file/a")), failure::kPathNotFound);
    EXPECT_EQ(create(plat.Path("pipe")), failure::kPathAccess);
    EXPECT_EQ(create(""), failure::kPathAccess);
    EXPECT_EQ(NumberOf([&] { plat.files.Open(plat.Path("absent")); }), failure::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { plat.files.Open(plat.Path("absent/a")); }), failure::kPathNotFound);
}

TEST(OutputFile, CutsSyncsAndTellsItsFacts) {
    TestPlatform plat;
    const auto file = plat.files.Create(plat.Path("a"));
    file->WriteAt(0, "0123456789");
    file->Cut(4);
    file->Sync();
    EXPECT_EQ(file->Facts().size, 4u);
    EXPECT_EQ(file->Facts(), plat.files.Facts(plat.Path("a")));
    file->Close();
    file->Close();
    EXPECT_EQ(NumberOf([&] { file->WriteAt(0, "late"); }), failure::kDeviceFailure);
    EXPECT_EQ(NumberOf([&] { file->Facts(); }), failure::kDeviceFailure);
    EXPECT_EQ(plat.Read("a"), "0123");
}

// In a process of its own: the limit can't be raised again.
TEST(OutputFile, FailsWhenTheFileMayNotGrowThatFar) {
    TestPlatform plat;
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        const auto file = plat.files.Create(plat.Path("a"));
        _exit(NumberOf([&] { file->WriteAt(0, String(1500, 'x')); }));
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), failure::kDeviceFailure);
    EXPECT_EQ(plat.Read("a").size(), 1000u);  // what fitted was written first
}

TEST(SetOwner, GivesAFileToTheOwnerOfAnother) {
    TestPlatform plat;
    plat.Write("a", "");
    FileFacts like = plat.files.Facts(plat.Path("a"));
    like.owner += 7;
    const bool may = getuid() == 0;  // nobody else gives files away
    plat.files.SetOwner(plat.Path("a"), like);
    EXPECT_EQ(plat.files.Facts(plat.Path("a")).owner, may ? like.owner : getuid());
    EXPECT_EQ(NumberOf([&] { plat.files.SetOwner(plat.Path("none"), like); }), failure::kFileNotFound);
}

TEST(SetOwner, GivesTheGroupAloneWhereTheOwnerIsNotItsToGive) {
    if (!MayBecomeAnybody()) GTEST_SKIP() << "only an administrator can become another user";
    constexpr User kUser{5003, 5002, 5001};
    TestPlatform plat;
    plat.Write("a", "");
    ASSERT_EQ(chown(plat.Path("a").c_str(), kUser.user, kUser.group), 0);
    ASSERT_EQ(chmod(plat.folder.path().c_str(), 0755), 0);
    FileFacts like = plat.files.Facts(plat.Path("a"));
    like.owner = 5004;
    const auto group_after = [&](gid_t group) {
        like.group = group;
        EXPECT_EQ(AsUser(kUser, [&] { return NumberOf([&] { plat.files.SetOwner(plat.Path("a"), like); }); }), 0);
        EXPECT_EQ(plat.files.Facts(plat.Path("a")).owner, kUser.user);
        return plat.files.Facts(plat.Path("a")).group;
    };
    EXPECT_EQ(group_after(kUser.member_of), kUser.member_of);
    EXPECT_EQ(group_after(5009), kUser.member_of) << "not of its groups";
}

TEST(Facts, TellsWhatIsAtThePath) {
    TestPlatform plat;
    plat.Write("a", "12345");
    plat.files.SetMode(plat.Path("a"), 0640);
    const FileFacts facts = plat.files.Facts(plat.Path("a"));
    EXPECT_TRUE(facts.exists);
    EXPECT_FALSE(facts.folder);
    EXPECT_TRUE(facts.writable);
    EXPECT_EQ(facts.mode, 0640u);
    EXPECT_EQ(facts.size, 5u);
    EXPECT_TRUE(plat.files.Facts(plat.folder.path()).folder);
    plat.files.SetMode(plat.Path("a"), 0400);
    EXPECT_FALSE(plat.files.Facts(plat.Path("a")).writable);
    for (const String& path : {plat.Path("absent"), plat.Path("absent/a"), plat.Path("a/b"), String()}) {
        EXPECT_EQ(plat.files.Facts(path), FileFacts{}) << path;
    }
}

TEST(Facts, DifferAfterAChangeOfTheContent) {
    TestPlatform plat;
    plat.Write("a", "12345");
    const timeval long_ago[2] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(utimes(plat.Path("a").c_str(), long_ago), 0);
    const FileFacts before = plat.files.Facts(plat.Path("a"));
    EXPECT_EQ(before.changed_ns, 1000'000'000'000);
    EXPECT_EQ(plat.files.Facts(plat.Path("a")), before);
    plat.Write("a", "54321");
    EXPECT_NE(plat.files.Facts(plat.Path("a")), before);
}

TEST(Facts, FollowsLinksAndFailsOnACircle) {
    TestPlatform plat;
    plat.Write("a", "12345");
    ASSERT_EQ(symlink("a", plat.Path("link").c_str()), 0);
    ASSERT_EQ(symlink("circle", plat.Path("circle").c_str()), 0);
    EXPECT_EQ(plat.files.Facts(plat.Path("link")), plat.files.Facts(plat.Path("a")));
    EXPECT_EQ(NumberOf([&] { plat.files.Facts(plat.Path("circle")); }), failure::kPathAccess);
}

TEST(Rename, ReplacesTheTarget) {
    TestPlatform plat;
    plat.Write("a", "new");
    plat.Write("b", "old");
    plat.files.Rename(plat.Path("a"), plat.Path("b"));
    EXPECT_EQ(plat.Read("b"), "new");
    EXPECT_FALSE(plat.Exists("a"));
}

TEST(Rename, TellsAMissingFileFromAMissingFolder) {
    TestPlatform plat;
    plat.Write("a", "text");
    const auto rename = [&](const char* from, const char* to) {
        return NumberOf([&] { plat.files.Rename(plat.Path(from), plat.Path(to)); });
    };
    EXPECT_EQ(rename("absent", "b"), failure::kFileNotFound);
    EXPECT_EQ(rename("absent/a", "b"), failure::kPathNotFound);
    EXPECT_EQ(rename("a", "absent/b"), failure::kPathNotFound);
    EXPECT_EQ(rename("a", "."), failure::kDeviceFailure);  // EBUSY: the folder itself
    EXPECT_EQ(plat.Read("a"), "text");
}

TEST(Delete, TakesAFileThatIsNotThereForDeleted) {
    TestPlatform plat;
    plat.Write("a", "text");
    plat.files.Delete(plat.Path("a"));
    EXPECT_FALSE(plat.Exists("a"));
    plat.files.Delete(plat.Path("a"));
    plat.files.Delete(plat.Path("absent/a"));
    EXPECT_EQ(NumberOf([&] { plat.files.Delete(plat.folder.path()); }), failure::kPathAccess);
}

TEST(SetMode, SetsThePermissionBits) {
    TestPlatform plat;
    plat.Write("a", "text");
    plat.files.SetMode(plat.Path("a"), 0604);
    EXPECT_EQ(plat.files.Facts(plat.Path("a")).mode, 0604u);
    EXPECT_EQ(NumberOf([&] { plat.files.SetMode(plat.Path("absent"), 0600); }), failure::kFileNotFound);
}

TEST(SyncFolder, TakesNoFolderForThePresentOne) {
    TestPlatform plat;
    plat.Write("a", "text");
    plat.files.SyncFolder(plat.folder.path());
    plat.files.SyncFolder("");
    EXPECT_EQ(NumberOf([&] { plat.files.SyncFolder(plat.Path("absent")); }), failure::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { plat.files.SyncFolder(plat.Path("a")); }), failure::kPathNotFound);
}

TEST(Resolve, FollowsEveryLink) {
    TestPlatform plat;
    plat.Write("a", "text");
    ASSERT_EQ(symlink("a", plat.Path("b").c_str()), 0);
    ASSERT_EQ(symlink("b", plat.Path("c").c_str()), 0);
    EXPECT_EQ(FileNameOf(plat.files.Resolve(plat.Path("c"))), "a");
    EXPECT_EQ(plat.files.Resolve(plat.Path("absent")), plat.Path("absent"));
    EXPECT_EQ(plat.files.Resolve(""), "");
}

TEST(Resolve, FollowsLinksToAFileThatIsNotThereYet) {
    TestPlatform plat;
    ASSERT_EQ(mkdir(plat.Path("real").c_str(), 0700), 0);
    ASSERT_EQ(symlink("real", plat.Path("folder").c_str()), 0);
    ASSERT_EQ(symlink("../absent", plat.Path("real/up").c_str()), 0);
    ASSERT_EQ(symlink("folder/up", plat.Path("first").c_str()), 0);
    ASSERT_EQ(symlink("/no/such/folder/a", plat.Path("far").c_str()), 0);
    EXPECT_EQ(plat.files.Resolve(plat.Path("far")), "/no/such/folder/a");

    WriteWhole(plat.files, plat.files.Resolve(plat.Path("first")), "new");
    EXPECT_EQ(plat.Read("absent"), "new");
}

TEST(Resolve, GivesThePathItselfWhenItsLinksHaveNoEnd) {
    TestPlatform plat;
    ASSERT_EQ(symlink("b", plat.Path("a").c_str()), 0);
    ASSERT_EQ(symlink("a", plat.Path("b").c_str()), 0);
    EXPECT_EQ(plat.files.Resolve(plat.Path("a")), plat.Path("a"));
}

}  // namespace
}  // namespace mrlxmlclass::testing
