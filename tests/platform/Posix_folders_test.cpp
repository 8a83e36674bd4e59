#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

using platform::AssignedFolder;

TEST(AssignedFolder, ReadsWhatTheDesktopWrites) {
    const String text =
        "# This file is written by a program\n"
        "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
        "  XDG_DOCUMENTS_DIR = \"/srv/my docs/\"\n"
        "#XDG_MUSIC_DIR=\"$HOME/Music\"\n"
        "XDG_VIDEOS_DIR=\"$HOME/\"\n"
        "XDG_PICTURES_DIR=\"$HOME\"\n"
        "XDG_DOWNLOAD_DIR=\"$HOME/a \\\"b\\\" \\\\c\"\n"
        "XDG_TEMPLATES_DIR=\"relative\"\n"
        "XDG_PUBLICSHARE_DIR=\"$HOMELY/x\"\n"
        "XDG_TWICE_DIR=\"/one\"\n"
        "XDG_TWICE_DIR=\"/two\"";
    struct Row {
        const char* name;
        const char* folder;
    };
    for (const Row& row :
         {Row{"XDG_DESKTOP_DIR", "/home/a/Schreibtisch"}, Row{"XDG_DOCUMENTS_DIR", "/srv/my docs"},
          Row{"XDG_MUSIC_DIR", ""}, Row{"XDG_VIDEOS_DIR", "/home/a"}, Row{"XDG_PICTURES_DIR", "/home/a"},
          Row{"XDG_DOWNLOAD_DIR", "/home/a/a \"b\" \\c"}, Row{"XDG_TEMPLATES_DIR", ""}, Row{"XDG_PUBLICSHARE_DIR", ""},
          Row{"XDG_TWICE_DIR", "/two"}, Row{"XDG_ABSENT_DIR", ""}, Row{"XDG", ""}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(AssignedFolder(text, row.name, "/home/a"), row.folder);
    }
}

TEST(AssignedFolder, EndsAtANul) {
    EXPECT_EQ(AssignedFolder(std::string_view("XDG_A_DIR=\"/a\0b\"", 16), "XDG_A_DIR", "/home"), "/a");
}

class Folders : public ::testing::Test {
protected:
    void MakeFolder(const String& name) { ASSERT_EQ(mkdir(temp.Path(name).c_str(), 0700), 0); }

    TempFolder temp;
    Files& files = SystemServices().files;
    ScopedEnvironment home{"HOME", temp.path()};
    ScopedEnvironment config{"XDG_CONFIG_HOME", nullptr};
    ScopedEnvironment data{"XDG_DATA_HOME", nullptr};
    ScopedEnvironment state{"XDG_STATE_HOME", nullptr};
};

TEST_F(Folders, AreTheCustomaryOnesWhenNothingIsAssigned) {
    EXPECT_EQ(files.SpecialFolder(5), temp.path());
    EXPECT_EQ(files.SpecialFolder(0), temp.path());
    MakeFolder("Documents");
    MakeFolder("Desktop");
    EXPECT_EQ(files.SpecialFolder(5), temp.Path("Documents"));
    EXPECT_EQ(files.SpecialFolder(0), temp.Path("Desktop"));
    EXPECT_EQ(files.SpecialFolder(26), temp.Path(".local/share"));
    EXPECT_EQ(files.StateFolder(), temp.Path(".local/state"));
    for (const int number : {-1, 1, 6, 1000}) EXPECT_EQ(files.SpecialFolder(number), "") << number;
}

TEST_F(Folders, AreThoseThatTheUserAssigned) {
    MakeFolder(".config");
    WriteWhole(files, temp.Path(".config/user-dirs.dirs"),
               "XDG_DESKTOP_DIR=\"$HOME/Tisch\"\nXDG_DOCUMENTS_DIR=\"/srv/docs\"\n");
    EXPECT_EQ(files.SpecialFolder(0), temp.Path("Tisch"));
    EXPECT_EQ(files.SpecialFolder(5), "/srv/docs");
    const ScopedEnvironment elsewhere("XDG_CONFIG_HOME", temp.Path("none"));
    EXPECT_EQ(files.SpecialFolder(5), temp.path());
}

TEST_F(Folders, FollowTheEnvironment) {
    const ScopedEnvironment other_data("XDG_DATA_HOME", "/srv/data/");
    const ScopedEnvironment other_state("XDG_STATE_HOME", "/srv/state");
    EXPECT_EQ(files.SpecialFolder(26), "/srv/data");
    EXPECT_EQ(files.StateFolder(), "/srv/state");
    const ScopedEnvironment relative("XDG_STATE_HOME", "state");
    EXPECT_EQ(files.StateFolder(), temp.Path(".local/state"));
}

TEST_F(Folders, AreFoundWithoutAHomeInTheEnvironment) {
    const ScopedEnvironment none("HOME", nullptr);
    EXPECT_TRUE(files.StateFolder().starts_with('/'));
    EXPECT_TRUE(files.StateFolder().ends_with("/.local/state"));
}

TEST(ProgramFolder, HoldsTheRunningProgram) {
    Files& files = SystemServices().files;
    const String folder = files.ProgramFolder();
    ASSERT_NE(folder, "");
    EXPECT_FALSE(folder.ends_with('/'));
    const FileFacts running = files.Facts("/proc/self/exe");
    EXPECT_EQ(files.Facts(folder + "/" + FileNameOf(files.Resolve("/proc/self/exe"))), running);
}

}  // namespace
}  // namespace mrlxmlclass::testing
