#include <unistd.h>

#include "mrlxmlclass/items/PeopleCol.h"
#include "tests/dom/SmallStack.h"
#include "tests/session/HostileFile.h"
#include "tests/support/Draws.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// A sample of the places in a file, as many as MRLXMLCLASS_ROUNDS says: with 400 every byte of one that is not large.
std::size_t Cases() {
    return Rounds(60);
}
std::size_t StrideIn(const String& whole) {
    return std::max<std::size_t>(1, whole.size() / Cases());
}

TEST(LoadHostileFile, CutAtAnyByteIsRefused) {
    for (const auto& [name, whole] : PlansToDamage()) {
        HostileFiles files;
        const std::size_t ends = Cases();
        for (std::size_t length = 0; length < whole.size();
             length += length < ends || whole.size() - length <= ends ? 1 : StrideIn(whole)) {
            SCOPED_TRACE(name + " cut after " + std::to_string(length));
            EXPECT_EQ(files.Open(whole.substr(0, length), "cut").loaded, False);
        }
    }
}

TEST(LoadHostileFile, WithAnyByteChangedIsRefusedOrReadInPart) {
    for (const auto& [name, whole] : PlansToDamage()) {
        HostileFiles files;
        const std::size_t stride = StrideIn(whole);
        std::size_t loaded = 0;
        std::size_t cases = 0;
        for (const int change : {0x01, 0x20, 0x80}) {
            for (std::size_t at = static_cast<std::size_t>(change) % stride; at < whole.size(); at += stride) {
                SCOPED_TRACE(name + ", byte " + std::to_string(at) + " by " + std::to_string(change));
                String bytes = whole;
                bytes[at] = static_cast<char>(bytes[at] ^ change);
                loaded += files.Open(bytes, "changed byte").loaded ? 1 : 0;
                ++cases;
            }
        }
        EXPECT_GT(loaded, 0U);
        EXPECT_LT(loaded, cases);
    }
}

TEST(LoadHostileFile, OfTwoTasksCutAtEveryByteAndWithEveryByteChanged) {
    const String whole = FileOfTasks(TaskText("1", "0", "1") + TaskText("2", "1", "2"));
    HostileFiles files;
    ASSERT_EQ(files.Open(whole, "whole").loaded, True);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE("cut after " + std::to_string(length));
        EXPECT_EQ(files.Open(whole.substr(0, length), "cut").loaded, False);
    }
    for (const int change : {0x01, 0x20, 0x80}) {
        for (std::size_t at = 0; at < whole.size(); at += kSample) {
            SCOPED_TRACE("byte " + std::to_string(at) + " by " + std::to_string(change));
            String bytes = whole;
            bytes[at] = static_cast<char>(bytes[at] ^ change);
            files.Open(bytes, "changed byte");
        }
    }
}

TEST(LoadHostileFile, ThatIsEmptyOrNoProjectIsRefused) {
    HostileFiles files;
    for (const char* bytes : {"", " ", "\xEF\xBB\xBF", "\xFF\xFE", "Project", "<", "<Project", "<Project/><Project/>",
                              "<Project></Project>x",
                              "\x7F"
                              "ELF",
                              "{\"Project\": 1}", "<?xml version=\"1.0\" ?>", "<!-- only this -->"}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(files.Open(bytes, bytes).loaded, False);
    }
    EXPECT_EQ(files.Open(String(1, '\0'), "a zero").loaded, False);
    EXPECT_EQ(files.Open(String("<Project>") + '\0' + "</Project>", "a zero inside").loaded, False);
}

TEST(LoadHostileFile, ThatIsAFolderIsRefused) {
    HostileFiles files;
    ASSERT_EQ(symlink(files.host().platform.folder.path().c_str(), files.host().platform.Path("evil.prx").c_str()), 0);
    EXPECT_EQ(files.OpenIt().loaded, False);
}

TEST(LoadHostileFile, ThatMayNotBeReadIsRefused) {
    Plan plan;
    plan.platform.Write("p.prx", FileOfTasks(""));
    plan.app->xFileName(plan.platform.Path("p.prx"));
    plan.platform.faults.FailAt(FileCall::Read, 1, failure::kPermissionDenied);
    EXPECT_EQ(plan.app->LoadXML(False, True), False);
    EXPECT_TRUE(plan.platform.faults.Failed());
    EXPECT_TRUE(plan.failures.Taken().ends_with("Application/LoadXML 91\n"));
}

TEST(LoadHostileFile, WithAnotherRootIsReadAllTheSameAndKeepsThatRoot) {
    HostileFiles files;
    String bytes = FileOfTasks(TaskText("1", "0", "1"));
    bytes.replace(bytes.find("<Project>"), 9, "<Whatever>");
    bytes.replace(bytes.rfind("</Project>"), 10, "</Whatever>");
    const Outcome outcome = files.Open(bytes, "another root");
    EXPECT_EQ(outcome.loaded, True);
    EXPECT_EQ(outcome.recorded, "");
    EXPECT_EQ(files.tasks().Count(), 1);
    EXPECT_NE(files.host().platform.Read("copy.prx").find("<Whatever>"), String::npos);
}

TEST(LoadHostileFile, OfAnotherKindIsTrueAndTheErrorFileTellsThatItHasNoTasks) {
    HostileFiles files;
    const Outcome outcome = files.Open("<html><body><p>No project</p></body></html>", "another kind");
    EXPECT_EQ(outcome.loaded, True);
    EXPECT_EQ(outcome.recorded, "GoalsCol/FromXmlFile 91\n");
    EXPECT_NE(files.host().platform.Read("SendToSupport.xml").find("Tasks"), String::npos);
}

TEST(LoadHostileFile, ThatIsNotInUtf8IsRefusedUnlessItSaysInWhat) {
    HostileFiles files;
    const String latin = "<Project><ProjectName>Zo\xEB \x80</ProjectName><Tasks/></Project>";
    EXPECT_EQ(files.Open(latin, "undeclared").loaded, False);
    EXPECT_EQ(files.Open("<Project><ProjectName>\xC0\xAF</ProjectName><Tasks/></Project>", "too long").loaded, False);
    EXPECT_EQ(files.Open("<Project><ProjectName>\xED\xA0\x80</ProjectName><Tasks/></Project>", "half a pair").loaded,
              False);
    EXPECT_EQ(files.Open("<?xml version=\"1.0\" encoding=\"klingon\"?><Project><Tasks/></Project>", "unknown").loaded,
              False);
    EXPECT_EQ(files.Open("<?xml version=\"1.0\" encoding=\"windows-1252\"?>" + latin, "declared").loaded, True);
    EXPECT_EQ(files.host().app->xProject()->ProjectName(), "Zo\xC3\xAB \xE2\x82\xAC");
}

TEST(LoadHostileFile, InEitherOrderOfUtf16IsRead) {
    const String text = FileOfTasks(TaskText("1", "0", "1"));
    for (const bool little : {true, false}) {
        SCOPED_TRACE(little);
        String bytes = little ? "\xFF\xFE" : "\xFE\xFF";
        for (const char letter : text) {
            bytes += little ? String{letter, '\0'} : String{'\0', letter};
        }
        HostileFiles files;
        EXPECT_EQ(files.Open(bytes, "utf-16").loaded, True);
        EXPECT_EQ(files.tasks().Item("1")->TaskName(), "T1");
        EXPECT_EQ(files.Open(bytes.substr(0, bytes.size() - 1), "half a character").loaded, False);
    }
}

TEST(LoadHostileFile, WithEntitiesOfItsOwnIsRefusedAndNoneIsFetchedOrExpanded) {
    HostileFiles files;
    files.host().platform.Write("secret.txt", "secret");
    const String tasks = "<Tasks/></Project>";
    const String external = "<!DOCTYPE Project [<!ENTITY x SYSTEM \"" + files.host().platform.Path("secret.txt") +
                            "\">]><Project><ProjectName>&x;</ProjectName>" + tasks;
    EXPECT_EQ(files.Open(external, "external entity").loaded, False);
    EXPECT_EQ(files.host().app->xProject()->ProjectName(), "");

    String laughs = "<!DOCTYPE Project [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 30; ++i) {
        const String before = "&a" + std::to_string(i - 1) + ";";
        laughs += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">";
    }
    EXPECT_EQ(files.Open(laughs + "]><Project><ProjectName>&a29;</ProjectName>" + tasks, "exploding").loaded, False);

    EXPECT_EQ(
        files.Open("<!DOCTYPE Project SYSTEM \"http://example.invalid/p.dtd\"><Project>" + tasks, "unused").loaded,
        True);
}

TEST(LoadHostileFile, WithANameOfFiftyMegabytesIsRead) {
    const TimeLimit limit("fifty megabytes");
    constexpr std::size_t kLength = 50U << 20U;
    Plan plan;
    plan.app->xFileName(plan.platform.Path("p.prx"));
    {
        String bytes = FileOfTasks(TaskText("1", "0", "1"));
        bytes.insert(bytes.find("T1"), String(kLength, 'n'));
        plan.platform.Write("p.prx", bytes);
    }
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.col().Item("1")->TaskName().size(), kLength + 2) << "only the setter cuts a name";
    EXPECT_EQ(plan.app->SaveXml(), True);
    EXPECT_GT(plan.platform.Read("p.prx").size(), kLength);
    plan.app->endreadonly();
}

TEST(LoadHostileFile, WithAHundredThousandElementsInsideEachOtherIsReadOnASmallStack) {
    constexpr int kDepth = 100000;
    String nest;
    String close;
    for (int i = 0; i < kDepth; ++i) {
        nest += "<n>";
        close += "</n>";
    }
    nest += "deep" + close;
    const String task = TaskText("1", "0", "1");
    const auto inside = [&](const char* before) {
        String bytes = FileOfTasks(task);
        bytes.insert(bytes.find(before), nest);
        return bytes;
    };
    const std::vector<String> places{inside("<ProjectID>"), inside("<Tasks "), inside("<Task>"),
                                     inside("<TaskName>"),  inside("T1<"),     inside("</Project>")};
    dom::OnSmallStack([&] {
        HostileFiles files;
        for (const String& bytes : places) EXPECT_EQ(files.Open(bytes, "nested").loaded, True);
        EXPECT_EQ(files.Open(nest, "nothing but nests").loaded, True);
        EXPECT_EQ(files.Open(nest.substr(0, nest.size() / 2), "open nests").loaded, False);
    });
}

}  // namespace
}  // namespace mrlxmlclass
