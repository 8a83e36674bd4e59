#include "mrlxmlclass/wizard/Persist.h"

#include <filesystem>

#include "tests/support/TestSession.h"

namespace mrlxmlclass::testing {
namespace {

constexpr const char* kSideFile = "steps.xml";
constexpr int kHiddenAndSystem = file_attribute::kHidden + file_attribute::kSystem;

Ref<Steps> Fresh() {
    auto steps = Make<Steps>();
    steps->InitSteps();
    return steps;
}

Ref<Steps> Visiting(std::initializer_list<int> visits) {
    auto steps = Fresh();
    for (const int step : visits) steps->Visted(step);
    return steps;
}

class PersistTest : public ::testing::Test {
protected:
    // The modules clean the name in the caller's string; these take a copy.
    static Boolean Save(const Ref<Steps>& steps, String file_name) { return Persist::SaveObject(steps, file_name); }
    static Boolean Get(const Ref<Steps>& steps, String file_name) { return Persist::GetObject(steps, file_name); }

    static String SavedName(String file_name) {
        Persist::SaveObject(Fresh(), file_name);
        return file_name;
    }
    static String SoughtName(String file_name) {
        Persist::GetObject(Fresh(), file_name);
        return file_name;
    }
    /// The sequence that a newly opened project gets.
    static String Restored(const String& file_name) {
        const auto steps = Fresh();
        Get(steps, file_name);
        return steps->Sequence();
    }
    Integer Attributes() { return session.files.Attributes(session.Path(kSideFile)); }

    TestSession session;
};

using SaveObject = PersistTest;
using GetObject = PersistTest;

TEST_F(SaveObject, KeepsTheFirstSaveFalseAlthoughItSaves) {
    EXPECT_EQ(Save(Visiting({0}), "/plans/house.prx"), False);
    EXPECT_EQ(session.Read(kSideFile),
              "<?xml version='1.0'?><Persisting><Steps><planshouseprx><PropertiesValues><NameStep>true</NameStep>"
              "<PhaseStep>false</PhaseStep><GoalStep>false</GoalStep><SimilarStep>false</SimilarStep>"
              "<PeopleStep>false</PeopleStep><ObstacleStep>false</ObstacleStep><AssignStep>false</AssignStep>"
              "<TaskStep>false</TaskStep><GantStep>false</GantStep><Sequence>|;Na</Sequence>"
              "<LastVisitedStep>0</LastVisitedStep></PropertiesValues></planshouseprx></Steps></Persisting>");
}

TEST_F(SaveObject, GivesTrueFromTheSecondSaveOnOfWhicheverProject) {
    Save(Fresh(), "/plans/house.prx");
    EXPECT_EQ(Save(Fresh(), "/plans/garden.prx"), True);
    EXPECT_EQ(Save(Fresh(), "/plans/house.prx"), True);
}

TEST_F(SaveObject, LeavesTheFileHiddenAndSystem) {
    Save(Fresh(), "/plans/house.prx");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
    Save(Fresh(), "/plans/house.prx");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
}

TEST_F(SaveObject, WritesOverAFileThatIsMarkedReadOnly) {
    Save(Fresh(), "/plans/house.prx");
    session.files.SetAttributes(session.Path(kSideFile), kHiddenAndSystem + file_attribute::kReadOnly);
    EXPECT_EQ(Save(Visiting({3}), "/plans/house.prx"), True);
    EXPECT_EQ(Restored("/plans/house.prx"), "|;Si|");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
}

TEST_F(SaveObject, DoesNothingWithoutAFileName) {
    EXPECT_EQ(Save(Fresh(), ""), False);
    EXPECT_EQ(Save({}, ""), False);
    EXPECT_FALSE(session.Exists(kSideFile));
}

TEST_F(SaveObject, LeavesOnlyTheLettersOfThePathInTheCallersString) {
    EXPECT_EQ(SavedName("C:\\plans\\p 1.prx"), "Cplanspprx");
    EXPECT_EQ(SavedName("/a:\\. &';!@#$%^*,<>~-]--&gt;b&lt;--,-_[]0123456789()c"), "agtbltc");
    EXPECT_EQ(SavedName("/pl\xC3\xA4ne/h\xC3\xA4user.prx"), "pl\xC3\xA4neh\xC3\xA4userprx");
}

TEST_F(SaveObject, KeepsOneStateForProjectsWhosePathsHaveTheSameLetters) {
    Save(Visiting({1}), "C:\\a1\\b.prx");
    EXPECT_EQ(Restored("C:\\a2\\b.prx"), "|;Ph|");
    Save(Visiting({2}), "/plans/a-1.prx");
    EXPECT_EQ(Restored("/plans/a (2).prx"), "|;Go|");
}

TEST_F(SaveObject, TellsLettersOfDifferentCaseApart) {
    Save(Visiting({1}), "/plans/House.prx");
    EXPECT_EQ(Restored("/plans/house.prx"), "|");
}

TEST_F(SaveObject, KeepsAPathWithATildeFromBeingFoundAgain) {
    Save(Visiting({1}), "/home/~ann/house.prx");
    EXPECT_EQ(Restored("/home/~ann/house.prx"), "|");
    EXPECT_EQ(Restored("/home/ann/house.prx"), "|;Ph|");
    EXPECT_EQ(SoughtName("/home/~ann/house-1.prx"), "home~annhouseprx");
}

TEST_F(SaveObject, ReplacesTheStateOfItsProjectAndLeavesTheOthers) {
    Save(Visiting({0}), "/plans/first.prx");
    Save(Visiting({1}), "/plans/house.prx");
    Save(Visiting({2}), "/plans/last.prx");
    Save(Visiting({3}), "/plans/house.prx");

    EXPECT_EQ(Restored("/plans/first.prx"), "|;Na|");
    EXPECT_EQ(Restored("/plans/house.prx"), "|;Si|");
    EXPECT_EQ(Restored("/plans/last.prx"), "|;Go|");
    const String text = session.Read(kSideFile);
    EXPECT_EQ(text.find("<planshouseprx>"), text.rfind("<planshouseprx>"));
}

TEST_F(SaveObject, LeavesTheStatesOfOtherClassesAndWhatElseStandsInTheFile) {
    session.Write(kSideFile,
                  "<?xml version=\"1.0\"?><!-- by hand --><Persisting><Grid><planshouseprx>7</planshouseprx></Grid>"
                  "</Persisting>");
    EXPECT_EQ(Save(Visiting({1}), "/plans/house.prx"), False);
    EXPECT_EQ(Restored("/plans/house.prx"), "|;Ph|");
    const String text = session.Read(kSideFile);
    EXPECT_NE(text.find("<Grid><planshouseprx>7</planshouseprx></Grid>"), String::npos) << text;
    EXPECT_NE(text.find("<!-- by hand -->"), String::npos) << text;
}

TEST_F(SaveObject, StoresUnderTheNameOfTheObject) {
    const auto other = Visiting({4});
    other->Name("OtherSteps");
    Save(Visiting({1}), "/plans/house.prx");
    EXPECT_EQ(Save(other, "/plans/house.prx"), False);

    EXPECT_EQ(Restored("/plans/house.prx"), "|;Ph|");
    const auto restored = Fresh();
    restored->Name("OtherSteps");
    Get(restored, "/plans/house.prx");
    EXPECT_EQ(restored->Sequence(), "|;Pe|");
}

TEST_F(SaveObject, ReplacesABrokenFile) {
    for (const char* broken : {"", "<", "no XML", "<?xml version='1.0'?>", "<?xml version='1.0'?><Persisting><Steps>",
                               "<?xml version='1.0'?><Persisting>\xFF</Persisting>", "<a/><b/>"}) {
        SCOPED_TRACE(broken);
        session.Write(kSideFile, broken);
        EXPECT_EQ(Save(Visiting({5}), "/plans/house.prx"), False);
        EXPECT_EQ(Restored("/plans/house.prx"), "|;Ob|");
        EXPECT_EQ(Attributes(), kHiddenAndSystem);
    }
}

TEST_F(SaveObject, ReplacesABrokenFileThatIsMarkedReadOnly) {
    session.Write(kSideFile, "<");
    session.files.SetAttributes(session.Path(kSideFile), file_attribute::kReadOnly);
    Save(Visiting({5}), "/plans/house.prx");
    EXPECT_EQ(Restored("/plans/house.prx"), "|;Ob|");
}

TEST_F(SaveObject, KeepsAFileWithoutADeclarationAsItIs) {
    for (const char* text : {"<Persisting/>", "<Persisting><Steps/></Persisting>"}) {
        session.Write(kSideFile, text);
        EXPECT_EQ(Save(Visiting({5}), "/plans/house.prx"), False);
        EXPECT_EQ(session.Read(kSideFile), text);
    }
}

TEST_F(SaveObject, RecordsANameThatCleansToNoElementNameAndStoresNothing) {
    for (const char* name :
         {"/1/2.3", "~", "/a+b.prx", "/a?b", "/\"a\"", "/a|b", "/a=b", "/{a}", "/a\xC3\x97", "/a\xFF", "/a\nb"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Save(Visiting({1}), name), False);
        EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 5\n");
        EXPECT_EQ(session.Read(kSideFile), "<?xml version='1.0'?><Persisting/>");
        EXPECT_EQ(Attributes(), kHiddenAndSystem);
    }
}

TEST_F(SaveObject, KeepsItsResultTrueWhenANameIsRefusedAndLeavesTheStoredStatesAlone) {
    Save(Visiting({1}), "/plans/house.prx");
    const String before = session.Read(kSideFile);
    EXPECT_EQ(Save(Visiting({2}), "/plans/a+b.prx"), True) << "there is a state of the class";
    EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 5\n");
    EXPECT_EQ(session.Read(kSideFile), before);
}

TEST_F(SaveObject, RecordsAnObjectThatIsNothing) {
    EXPECT_EQ(Save({}, "/plans/house.prx"), False);
    EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 91\n");
}

TEST_F(SaveObject, RecordsAFolderThatIsNotThere) {
    session.files.program_folder = session.Path("missing");
    EXPECT_EQ(Save(Visiting({1}), "/plans/house.prx"), False);
    EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 76\n");
}

TEST_F(SaveObject, RecordsAFolderInWhichNothingCanBeMade) {
    session.faults.FailAt(FileCall::Create, 1, failure::kPermissionDenied);
    EXPECT_EQ(Save(Visiting({1}), "/plans/house.prx"), False);
    EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 70\n");
    EXPECT_FALSE(session.Exists(kSideFile));
}

TEST_F(SaveObject, RecordsAFolderInThePlaceOfTheFile) {
    ASSERT_TRUE(std::filesystem::create_directory(session.Path(kSideFile)));
    EXPECT_EQ(Save(Visiting({1}), "/plans/house.prx"), False);
    EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 75\n");
    EXPECT_EQ(Attributes(), 0);
}

TEST_F(SaveObject, KeepsItsResultTrueAfterAWriteThatFailedAndHidesTheFileAgain) {
    Save(Visiting({1}), "/plans/house.prx");
    session.faults.FailAt(FileCall::WriteAt, 1);
    EXPECT_EQ(Save(Visiting({2}), "/plans/house.prx"), True) << "there is a state of the class";
    EXPECT_EQ(session.failures.Taken(), "Persist/SaveObject 57\n");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
}

TEST_F(SaveObject, GoesOnAtTheNextSaveWhicheverFileCallFailed) {
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE(nth);
        ASSERT_LT(nth, 100);
        session.files.Delete(session.Path(kSideFile));
        session.faults.FailAt(nth);
        Save(Visiting({1}), "/plans/house.prx");
        const bool failed = session.faults.Failed();
        session.faults.Heal();
        session.failures.Taken();
        Save(Visiting({2}), "/plans/house.prx");
        EXPECT_EQ(Restored("/plans/house.prx"), "|;Go|");
        EXPECT_EQ(Attributes(), kHiddenAndSystem);
        if (!failed) break;
    }
}

TEST_F(GetObject, RestoresWhatWasStored) {
    const auto stored = Visiting({0, 3, 8});
    stored->LastVisitedStep(3);
    Save(stored, "/plans/house.prx");

    const auto restored = Fresh();
    Get(restored, "/plans/house.prx");
    EXPECT_TRUE(StepVisited(restored->NameStep()));
    EXPECT_FALSE(StepVisited(restored->PhaseStep()));
    EXPECT_TRUE(StepVisited(restored->SimilarStep()));
    EXPECT_TRUE(StepVisited(restored->GantStep()));
    EXPECT_EQ(restored->Sequence(), "|;Na;Si;Ga|");
    EXPECT_EQ(restored->LastVisitedStep(), 3);
}

TEST_F(GetObject, KeepsItsResultFalseWhateverItFinds) {
    EXPECT_EQ(Get(Fresh(), "/plans/house.prx"), False);
    Save(Visiting({1}), "/plans/house.prx");
    EXPECT_EQ(Get(Fresh(), "/plans/house.prx"), False);
}

TEST_F(GetObject, AddsABarToTheHistoryAtEveryOpening) {
    Save(Visiting({0, 1}), "/plans/house.prx");
    const auto second_day = Fresh();
    Get(second_day, "/plans/house.prx");
    second_day->Visted(2);
    Save(second_day, "/plans/house.prx");
    EXPECT_EQ(Restored("/plans/house.prx"), "|;Na;Ph|;Go|");
}

TEST_F(GetObject, DoesNothingWithoutAFileName) {
    Save(Visiting({1}), "/plans/house.prx");
    session.files.SetAttributes(session.Path(kSideFile), 0);
    EXPECT_EQ(Restored(""), "|");
    EXPECT_EQ(Attributes(), 0);
}

TEST_F(GetObject, MakesNoFileWhereThereIsNone) {
    EXPECT_EQ(Restored("/plans/house.prx"), "|");
    EXPECT_FALSE(session.Exists(kSideFile));
}

TEST_F(GetObject, LeavesTheObjectAsItIsWhenAnElementOnTheWayIsMissing) {
    for (const char* text :
         {"<Persisting/>", "<Persisting><Steps/></Persisting>", "<Persisting><Steps><otherprx/></Steps></Persisting>",
          "<Persisting><Steps><planshouseprx/></Steps></Persisting>",
          "<Persisting><Steps><planshouseprx>text</planshouseprx></Steps></Persisting>"}) {
        SCOPED_TRACE(text);
        session.Write(kSideFile, text);
        EXPECT_EQ(Restored("/plans/house.prx"), "|");
    }
}

TEST_F(GetObject, ReadsAFileWithoutADeclarationToo) {
    session.Write(kSideFile,
                  "<Persisting><Steps><planshouseprx><PropertiesValues><NameStep>-1</NameStep><PhaseStep>0</PhaseStep>"
                  "<GoalStep/><SimilarStep>True</SimilarStep><PeopleStep/><ObstacleStep/><AssignStep/><TaskStep/>"
                  "<GantStep/><Sequence>|;Na;Si</Sequence><LastVisitedStep>3</LastVisitedStep></PropertiesValues>"
                  "</planshouseprx></Steps></Persisting>");
    const auto restored = Fresh();
    Get(restored, "/plans/house.prx");
    EXPECT_TRUE(StepVisited(restored->NameStep()));
    EXPECT_FALSE(StepVisited(restored->PhaseStep()));
    EXPECT_TRUE(StepVisited(restored->SimilarStep()));
    EXPECT_EQ(restored->Sequence(), "|;Na;Si|");
}

TEST_F(GetObject, LeavesTheObjectToRecordAStateThatIsIncomplete) {
    session.Write(kSideFile,
                  "<Persisting><Steps><planshouseprx><PropertiesValues><NameStep>true</NameStep></PropertiesValues>"
                  "</planshouseprx></Steps></Persisting>");
    const auto restored = Fresh();
    Get(restored, "/plans/house.prx");
    EXPECT_EQ(session.failures.Taken(), "Steps/SetPropertiesValues 91\n");
    EXPECT_TRUE(StepVisited(restored->NameStep()));
    EXPECT_EQ(restored->Sequence(), "|");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
}

TEST_F(GetObject, LeavesABrokenFileAsItIsAndHidesIt) {
    session.Write(kSideFile, "<Persisting><Steps>");
    EXPECT_EQ(Restored("/plans/house.prx"), "|");
    EXPECT_EQ(session.Read(kSideFile), "<Persisting><Steps>");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
}

TEST_F(GetObject, FindsNothingUnderANameThatIsNone) {
    Save(Visiting({1}), "/plans/house.prx");
    for (const char* name : {"/1/2.3", "~", "/a+b.prx", "/a|b", "/\xFF", "/*"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Restored(name), "|");
    }
}

TEST_F(GetObject, RecordsAnObjectThatIsNothingAndHidesTheFileAgain) {
    Save(Visiting({1}), "/plans/house.prx");
    EXPECT_EQ(Get({}, "/plans/house.prx"), False);
    EXPECT_EQ(session.failures.Taken(), "Persist/GetObject 91\n");
    EXPECT_EQ(Attributes(), kHiddenAndSystem);
}

TEST_F(GetObject, RecordsAttributesThatCannotBeCleared) {
    Save(Visiting({1}), "/plans/house.prx");
    session.faults.FailAt(FileCall::SetAttributes, 1, failure::kPermissionDenied);
    EXPECT_EQ(Restored("/plans/house.prx"), "|");
    EXPECT_EQ(session.failures.Taken(), "Persist/GetObject 70\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
