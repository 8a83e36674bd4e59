#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <cstring>

#include "mrlxmlclass/platform/Posix_internal.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

String Stored(const String& path) {
    char text[100];
    const ssize_t length = getxattr(path.c_str(), "user.DOSATTRIB", text, sizeof text);
    return length < 0 ? String("none") : String(text, static_cast<std::size_t>(length));
}

TEST(Attributes, GiveBackEverySum) {
    TestPlatform plat;
    plat.Write("a", "text");
    for (int value = 0; value < 8; ++value) {
        plat.files.SetAttributes(plat.Path("a"), value);
        EXPECT_EQ(plat.files.Attributes(plat.Path("a")), value);
    }
    for (int value = 7; value >= 0; --value) {
        plat.files.SetAttributes(plat.Path("a"), value);
        EXPECT_EQ(plat.files.Attributes(plat.Path("a")), value);
    }
}

TEST(Attributes, AreZeroForAFileThatIsNotThere) {
    TestPlatform plat;
    EXPECT_EQ(plat.files.Attributes(plat.Path("absent")), 0);
    EXPECT_EQ(plat.files.Attributes(""), 0);
    EXPECT_EQ(NumberOf([&] { plat.files.SetAttributes(plat.Path("absent"), 2); }), failure::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { plat.files.SetAttributes(plat.Path("absent/a"), 2); }), failure::kPathNotFound);
}

TEST(Attributes, TakeReadOnlyFromTheModeBits) {
    TestPlatform plat;
    plat.Write("a", "text");
    plat.files.SetMode(plat.Path("a"), 0444);
    EXPECT_EQ(plat.files.Attributes(plat.Path("a")), file_attribute::kReadOnly);
    plat.files.SetAttributes(plat.Path("a"), 0);
    EXPECT_EQ(plat.files.Facts(plat.Path("a")).mode, 0644u);
    plat.files.SetAttributes(plat.Path("a"), file_attribute::kReadOnly);
    EXPECT_EQ(plat.files.Facts(plat.Path("a")).mode, 0444u);
}

TEST(Attributes, StandAsTheTextThatFileServersUse) {
    TestPlatform plat;
    plat.Write("a", "text");
    plat.files.SetAttributes(plat.Path("a"), 6);
    EXPECT_EQ(plat.files.Attributes(plat.Path("a")), 6);
    if (Stored(plat.Path("a")) == "none") return;  // a folder without extended attributes: kept in memory instead
    EXPECT_EQ(Stored(plat.Path("a")), "0x6");
    plat.files.SetAttributes(plat.Path("a"), 0);
    EXPECT_EQ(Stored(plat.Path("a")), "none");
    struct Row {
        const char* text;
        int value;
    };
    for (const Row& row :
         {Row{"0x22", 2}, Row{"0x26", 6}, Row{"0x20", 0}, Row{"0x", 0}, Row{"hidden", 0}, Row{"", 0}}) {
        ASSERT_EQ(setxattr(plat.Path("a").c_str(), "user.DOSATTRIB", row.text, std::strlen(row.text), 0), 0);
        EXPECT_EQ(plat.files.Attributes(plat.Path("a")), row.value) << row.text;
    }
}

TEST(Attributes, StayWhenTheContentIsReplaced) {
    TestPlatform plat;
    plat.Write("a", "text");
    plat.files.SetAttributes(plat.Path("a"), 6);
    plat.Write("a", "other");
    EXPECT_EQ(plat.files.Attributes(plat.Path("a")), 6);
    plat.files.Rename(plat.Path("a"), plat.Path("b"));
    EXPECT_EQ(plat.files.Attributes(plat.Path("b")), 6);
}

// A file of a file system that has no extended attributes for us.
TEST(Attributes, AreRememberedWhereTheyCannotBeStored) {
    const String path = "/proc/self/comm";
    platform::AttributeStore store;
    ASSERT_EQ(store.Get(path), 0);
    store.Set(path, 6);
    EXPECT_EQ(Stored(path), "none");
    EXPECT_EQ(store.Get(path), 6);
    store.Set(path, 2);
    EXPECT_EQ(store.Get(path), 2);
    store.Set(path, 0);
    EXPECT_EQ(store.Get(path), 0);
    store.Set(path, 4);
    store.Forget(path);
    EXPECT_EQ(store.Get(path), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
