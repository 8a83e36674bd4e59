#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

/// Looks at a file with every command that reads, and tries to change it: each ends in time with an ordinary status,
/// and a refused edit changes nothing.
void ExpectHarmless(const Folder& folder, const std::string& content) {
    folder.Write("a.prx", content);
    EXPECT_LE(folder.Prx({"check", "a.prx"}).status, 2);
    const Result shown = folder.Prx({"show", "--json", "a.prx"});
    if (shown.status == 0) {
        EXPECT_EQ(JsonFault(shown.out), "");
    }
    EXPECT_LE(folder.Prx({"show", "--gantt", "a.prx"}).status, 2);
    if (folder.Prx({"set", "a.prx", "2", "done=5"}).status != 0) {
        EXPECT_TRUE(folder.Read("a.prx") == content);
    }
    for (const std::vector<std::string>& edit : {std::vector<std::string>{"link", "a.prx", "#3", "#2"},
                                                 {"indent", "a.prx", "#3"},
                                                 {"outdent", "a.prx", "#4"},
                                                 {"move", "a.prx", "#2", "--down"},
                                                 {"shift", "a.prx", "7"}}) {
        const std::string before = folder.Read("a.prx");
        if (folder.Prx(edit).status != 0) {
            EXPECT_TRUE(folder.Read("a.prx") == before) << edit.front();
        }
    }
    EXPECT_FALSE(folder.Has("~a.prxl"));
}

std::string House() {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    return folder.Read("a.prx");
}

}  // namespace

TEST(Hostile, FilesCutAnywhere) {
    const Folder folder;
    const std::string whole = House();
    constexpr std::size_t kCuts = 17;
    for (std::size_t i = 0; i < kCuts; ++i) {
        SCOPED_TRACE(i);
        ExpectHarmless(folder, whole.substr(0, whole.size() * i / kCuts));
    }
}

TEST(Hostile, FilesWithAFlippedByte) {
    const Folder folder;
    const std::string whole = House();
    constexpr std::size_t kFlips = 17;
    for (std::size_t i = 0; i < kFlips; ++i) {
        SCOPED_TRACE(i);
        std::string flipped = whole;
        char& byte = flipped[whole.size() * i / kFlips + i];
        byte = static_cast<char>(byte ^ (1 << (i % 8)));
        ExpectHarmless(folder, flipped);
    }
}

TEST(Hostile, TextsThatAreNoProject) {
    const Folder folder;
    for (const std::string& content :
         {std::string(), std::string("\0\0\0", 3), std::string("<html/>"), std::string("<Project/>"),
          std::string("\xFF\xFE<\0P\0/\0>\0", 10), std::string("\xFE\xFF\0<\0P\0/\0>", 10),
          std::string(
              "<?xml version='1.0' encoding='windows-1252'?><Project><ProjectName>\x80\xE9</ProjectName></Project>"),
          std::string("<Project><ProjectName>\xC3\x28</ProjectName></Project>"),
          std::string("<!DOCTYPE p [<!ENTITY x SYSTEM "
                      "'file:///etc/passwd'>]><Project><ProjectName>&x;</ProjectName></Project>"),
          std::string("<!DOCTYPE p [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'>]><Project>&b;</Project>")}) {
        SCOPED_TRACE(content);
        ExpectHarmless(folder, content);
    }
}

TEST(Hostile, ElementsNestedWithoutEnd) {
    const Folder folder;
    constexpr int kDepth = 100'000;
    std::string nested = "<Project><Tasks><Task>";
    for (int i = 0; i < kDepth; ++i) nested += "<a>";
    for (int i = 0; i < kDepth; ++i) nested += "</a>";
    ExpectHarmless(folder, nested + "</Task></Tasks></Project>");
}

TEST(Hostile, RingsOfParents) {
    const Folder folder;
    const std::string whole = House();
    // Each task of the phase gets the next one as its parent, the last the first.
    std::string ring = Replaced(whole, "<ParentID>1</ParentID>", "<ParentID>4</ParentID>");
    ring = Replaced(ring, "<ParentID>0</ParentID>", "<ParentID>5</ParentID>");
    ExpectHarmless(folder, ring);
    folder.Write("a.prx", ring);
    EXPECT_EQ(folder.Prx({"check", "a.prx"}).status, 1);
}

TEST(Hostile, KeysAndRowsOutOfRange) {
    const Folder folder;
    const std::string whole = House();
    for (const char* key : {"0", "-5", "32767", "32768", "2147483647", "2147483648", "1e9", "x", ""}) {
        SCOPED_TRACE(key);
        const std::string text = key;
        ExpectHarmless(folder, Replaced(whole, "<TaskKey>20</TaskKey>", "<TaskKey>" + text + "</TaskKey>"));
        ExpectHarmless(folder,
                       Replaced(whole, "<TaskPosition>20</TaskPosition>", "<TaskPosition>" + text + "</TaskPosition>"));
        ExpectHarmless(folder, Replaced(whole, "<ParentID>16</ParentID>", "<ParentID>" + text + "</ParentID>"));
    }
}

TEST(Hostile, AVeryLongName) {
    const Folder folder;
    constexpr std::size_t kLong = 5'000'000;
    folder.Write("a.prx", Replaced(House(), "<TaskName>Excavate</TaskName>",
                                   "<TaskName>" + std::string(kLong, 'x') + "</TaskName>"));

    const Result result = folder.Prx({"show", "a.prx"});

    EXPECT_EQ(result.status, 0);
    EXPECT_LT(result.out.size(), 20'000U);
}

TEST(Hostile, APipeInTheFilesPlace) {
    const Folder folder;
    ASSERT_EQ(mkfifo(folder.Path("a.prx").c_str(), 0600), 0);

    for (const char* command : {"show", "check"}) EXPECT_NE(folder.Refusal({command, "a.prx"}), "");
    EXPECT_NE(folder.Refusal({"show", "/dev/zero"}), "");
}

}  // namespace prx_test
