#include "mrlxmlclass/platform/Files.h"

#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(FileNameOf, IsWhatStandsBehindTheLastSlash) {
    EXPECT_EQ(FileNameOf("/home/a/plan.prx"), "plan.prx");
    EXPECT_EQ(FileNameOf("plan.prx"), "plan.prx");
    EXPECT_EQ(FileNameOf("/home/a/"), "");
    EXPECT_EQ(FileNameOf(""), "");
    EXPECT_EQ(FileNameOf("a\\b.prx"), "a\\b.prx");
}

TEST(FolderOf, IsWhatStandsBeforeTheLastSlash) {
    EXPECT_EQ(FolderOf("/home/a/plan.prx"), "/home/a");
    EXPECT_EQ(FolderOf("plan.prx"), "");
    EXPECT_EQ(FolderOf("/plan.prx"), "");
    EXPECT_EQ(FolderOf("/home/a/"), "/home/a");
    EXPECT_EQ(FolderOf(""), "");
}

TEST(WriteWhole, ReplacesWhatWasThere) {
    TestPlatform plat;
    WriteWhole(plat.files, plat.Path("a"), "a long content");
    WriteWhole(plat.files, plat.Path("a"), "short");
    EXPECT_EQ(plat.Read("a"), "short");
}

TEST(WriteWhole, FailsOnAFullDevice) {
    EXPECT_EQ(NumberOf([] { WriteWhole(SystemServices().files, "/dev/full", "text"); }), failure::kDeviceFailure);
}

TEST(WriteWhole, FailsWhenTheSystemTellsAtTheCloseOnly) {
    TestPlatform plat;
    plat.faults.FailAt(FileCall::Close, 1);
    EXPECT_EQ(NumberOf([&] { WriteWhole(plat.faults, plat.Path("a"), "text"); }), failure::kDeviceFailure);
}

}  // namespace
}  // namespace mrlxmlclass::testing
