#include "mrlxmlclass/dialog/Desktop.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {
namespace {

TEST(GetSpecialfolder, AsksTheSystem) {
    TestSession session;
    session.files.special_folders[5] = "/home/ann/Documents";
    EXPECT_EQ(Gloabal::GetSpecialfolder(5), "/home/ann/Documents");
    EXPECT_EQ(Gloabal::GetSpecialfolder(77), "");
}

TEST(ShowHelp, AsksForOneHelpSystemOnly) {
    TestSession session;
    EXPECT_EQ(Gloabal::ShowHelp({}, "editing1"), True);
    EXPECT_EQ(Gloabal::ShowHelp({}, "saving"), True);
    EXPECT_EQ(session.help.made, 1);
    EXPECT_EQ(session.help.calls, (std::vector<String>{"loadSystem of nothing", "OpenHelpPage editing1",
                                                       "loadSystem of nothing", "OpenHelpPage saving"}));
}

TEST(PathIsURL, AsksForASchemeAlone) {
    for (const char* text : {"http://www.example.org", "mailto:ann@example.org", "ftp:x", "news:"}) {
        EXPECT_EQ(Gloabal::PathIsURL(text), True) << text;
    }
    for (const char* text : {"", "www.example.org", "C:\\plan.pdf", "/plan.pdf", ":x", "-a:b", "a b:c"}) {
        EXPECT_EQ(Gloabal::PathIsURL(text), False) << text;
    }
}

TEST(IsValidURL, RefusesWhatNobodyCouldOpen) {
    for (const char* text :
         {"http://www.example.org/?q='a';$(id)|",
          "http://www.b\xC3\xBC"
          "cher.example",
          "http://www.x:", "https://ann@example.org:80/x", "ftp://x", "mailto:ann@example.org", "news:x"}) {
        EXPECT_EQ(Gloabal::IsValidURL(text), True) << text;
    }
    for (const char* text :
         {"http:", "http://", "http:www.x", "http:///www.x", "http://:80", "http://ann@", "http://?www", "http://a b",
          "http://a\nb", "http://a\x7F", "http://www.a<b>", "http://www.x/\"q\"", "www.example.org", "news:", ""}) {
        EXPECT_EQ(Gloabal::IsValidURL(text), False) << text;
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
