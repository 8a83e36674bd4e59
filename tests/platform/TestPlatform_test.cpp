#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace mrlxmlclass::testing {
namespace {

TEST(TestPlatform, PutsItsOwnInPlaceOfTheSystem) {
    String folder;
    {
        TestPlatform plat;
        folder = plat.folder.path();
        EXPECT_EQ(Platform().clock.Now(), Date::Of(2026, 3, 2) + 0.375);
        EXPECT_EQ(Platform().locale.Settings(), (LocaleSettings{"M/d/yyyy", ".", ""}));
        plat.locale.Use("dd.MM.yyyy", ",");
        EXPECT_EQ(Platform().locale.Settings(), (LocaleSettings{"dd.MM.yyyy", ",", ""}));
        Platform().ui.Message("text");
        EXPECT_EQ(plat.ui.messages, std::vector<String>{"text"});
        plat.shell.answer = 2;
        EXPECT_EQ(Platform().shell.Open("a"), 2);
        EXPECT_EQ(plat.shell.targets, std::vector<String>{"a"});
        EXPECT_EQ(Platform().files.ProgramFolder(), folder);
        EXPECT_EQ(Platform().files.StateFolder(), folder);
        plat.files.special_folders[5] = "/docs";
        EXPECT_EQ(Platform().files.SpecialFolder(5), "/docs");
        EXPECT_EQ(Platform().files.SpecialFolder(77), "");
        plat.Write("a", "text");
        EXPECT_EQ(Platform().files.Read(plat.Path("a")), "text");
    }
    EXPECT_FALSE(SystemServices().files.Facts(folder).exists);
}

TEST(FaultyFiles, FailsTheCallWhoseTurnItIs) {
    TestPlatform plat;
    const auto save = [&] { return NumberOf([&] { WriteWhole(Platform().files, plat.Path("a"), "text"); }); };
    int failures = 0;
    for (int n = 1;; ++n) {
        plat.faults.FailAt(n, failure::kPermissionDenied);
        const int number = save();
        if (!plat.faults.Failed()) break;
        EXPECT_EQ(number, failure::kPermissionDenied);
        ++failures;
    }
    EXPECT_EQ(failures, 3);  // create, write, close
    EXPECT_EQ(plat.faults.Calls(), 3);
    EXPECT_EQ(plat.faults.Calls(FileCall::WriteAt), 1);
    EXPECT_EQ(plat.Read("a"), "text");
}

TEST(FaultyFiles, FailsByKindOnceOrForGood) {
    TestPlatform plat;
    plat.Write("a", "0123456789");
    const auto number = [&](auto&& call) { return NumberOf(call); };
    plat.faults.FailAt(FileCall::Read, 2);
    const auto read = [&] { plat.faults.Read(plat.Path("a")); };
    const auto facts = [&] { plat.faults.Facts(plat.Path("a")); };
    EXPECT_EQ(number(read), 0);
    EXPECT_EQ(number(facts), 0);
    EXPECT_EQ(number(read), failure::kDeviceFailure);
    EXPECT_EQ(number(read), 0);
    plat.faults.FailAt(FileCall::Read, 1);
    plat.faults.KeepFailing();
    EXPECT_EQ(number(facts), 0);
    EXPECT_EQ(number(read), failure::kDeviceFailure);
    EXPECT_EQ(number(facts), failure::kDeviceFailure);
    plat.faults.Heal();
    EXPECT_EQ(number(facts), 0);
}

TEST(FaultyFiles, CountsEveryCallThatCanFail) {
    TestPlatform plat;
    Files& files = plat.faults;
    const String a = plat.Path("a");
    const auto file = files.Create(a);
    file->Cut(0);
    file->Sync();
    file->Facts();
    file->Close();
    files.Open(a);
    files.SetMode(a, 0644);
    files.SetAttributes(a, 0);
    files.SyncFolder(plat.folder.path());
    files.Rename(a, plat.Path("b"));
    files.Delete(a);
    files.Release(files.Hold(a), a);
    for (const FileCall kind : {FileCall::Create, FileCall::Cut, FileCall::Sync, FileCall::OpenFacts, FileCall::Close,
                                FileCall::Open, FileCall::SetMode, FileCall::SetAttributes, FileCall::SyncFolder,
                                FileCall::Rename, FileCall::Delete, FileCall::Hold, FileCall::Release}) {
        EXPECT_EQ(plat.faults.Calls(kind), 1) << static_cast<int>(kind);
    }
    EXPECT_EQ(plat.faults.Calls(), 13);
}

TEST(FaultyFiles, WritesHalfWhenItIsToldTo) {
    TestPlatform plat;
    plat.faults.FailAt(FileCall::WriteAt, 1);
    plat.faults.WriteShort();
    EXPECT_EQ(NumberOf([&] { WriteWhole(plat.faults, plat.Path("a"), "0123456789"); }), failure::kDeviceFailure);
    EXPECT_EQ(plat.Read("a"), "01234");
}

TEST(Printing, ShowsValuesAsTheyRead) {
    const auto shown = [](const auto& value) { return ::testing::PrintToString(value); };
    EXPECT_EQ(shown(True), "True");
    EXPECT_EQ(shown(False), "False");
    EXPECT_EQ(shown(Boolean::Raw(3)), "True (3)");
    EXPECT_EQ(shown(Integer(-7)), "-7");
    EXPECT_EQ(shown(Long(70000)), "70000");
    EXPECT_EQ(shown(Date()), "no date");
    EXPECT_EQ(shown(Date::Of(2026, 3, 2)), "2026-03-02");
    EXPECT_EQ(shown(Date::Of(2026, 3, 2) + 0.375), "2026-03-02 09:00:00");
    EXPECT_EQ(shown(Date(1e9)), "day 1e+09");
    EXPECT_EQ(shown(Currency(12.5)), "12.5000");
    EXPECT_EQ(shown(Currency::OfTenThousandths(-5)), "-0.0005");
    EXPECT_EQ(shown(Ref<Counted>()), "nothing");
    EXPECT_EQ(shown(Variant()), "Empty");
    EXPECT_EQ(shown(Variant("a")), "\"a\"");
    EXPECT_EQ(shown(Variant(5)), "Long 5");
    EXPECT_EQ(shown(Variant(VariantArray{Variant(1), Variant(True)})), "{Long 1, Boolean True}");
}

}  // namespace
}  // namespace mrlxmlclass::testing
