#include <gtest/gtest.h>

#include <regex>

#include "mrlxmlclass/platform/Services.h"
#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

/// Holds a project's lock as another program that has it open does.
class SomebodyElse {
public:
    SomebodyElse(const Folder& folder, const std::string& name)
        : path_(folder.Path("~" + name + "l")), number_(mrlxmlclass::SystemServices().files.Hold(path_)) {}
    ~SomebodyElse() { mrlxmlclass::SystemServices().files.Release(number_, path_); }
    SomebodyElse(const SomebodyElse&) = delete;
    SomebodyElse& operator=(const SomebodyElse&) = delete;

private:
    std::string path_;
    mrlxmlclass::Integer number_;
};

/// Every command that changes a file.
const std::vector<std::vector<std::string>> kEdits = {{"add", "a.prx", "X"},
                                                      {"set", "a.prx", "1", "done=5"},
                                                      {"remove", "a.prx", "1"},
                                                      {"calendar", "a.prx", "--free", "mon"}};

}  // namespace

TEST(Project, IsNotChangedWhileSomebodyElseHasItOpen) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const std::string before = folder.Read("a.prx");
    const SomebodyElse other(folder, "a.prx");

    for (const auto& edit : kEdits) {
        EXPECT_EQ(folder.Refusal(edit),
                  "prx: " + folder.Path("a.prx") + ": somebody else has this project open; try again later\n");
    }

    EXPECT_EQ(folder.Read("a.prx"), before);
    EXPECT_TRUE(folder.Has("~a.prxl"));
}

TEST(Project, CanBeLookedAtWhileSomebodyElseHasItOpen) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const SomebodyElse other(folder, "a.prx");

    folder.Output({"show", "a.prx"});
    folder.Output({"calendar", "a.prx"});
    folder.Output({"check", "a.prx"});

    EXPECT_TRUE(folder.Has("~a.prxl"));
}

TEST(Project, IsNotChangedWhenItsFileWasCutShort) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const std::string whole = folder.Read("a.prx");
    const std::string cut = whole.substr(0, whole.find("<TaskObstaclesRelations")) + "</Project>";
    folder.Write("a.prx", cut);

    for (const auto& edit : kEdits) {
        const std::string words = folder.Refusal(edit);
        EXPECT_NE(words.find("the section Calendar is missing"), std::string::npos) << words;
        EXPECT_NE(words.find("--force"), std::string::npos) << words;
    }

    EXPECT_EQ(folder.Read("a.prx"), cut);
    EXPECT_FALSE(folder.Has("~a.prxl"));
}

TEST(Project, IsChangedByForceAndIsWholeThen) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), "Goals>", "Plans>"));

    folder.Output({"set", "a.prx", "Excavate", "done=5", "--force"});

    folder.Output({"check", "a.prx"});
}

TEST(Project, IsNotChangedWhenItCouldNotBeReadWhole) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), "<TaskPercentDone>60", "<TaskPercentDone>most"));
    const std::string before = folder.Read("a.prx");

    EXPECT_NE(folder.Refusal({"set", "a.prx", "1", "done=5"}).find("saving it would lose the rest"), std::string::npos);

    EXPECT_EQ(folder.Read("a.prx"), before);
}

TEST(Project, KeepsEverythingThatAnEditDoesNotTouch) {
    const Folder folder;
    for (const char* example : {"house.prx", "festival.prx", "orchard.prx"}) {
        folder.CopyExample(example, "a.prx");
        const std::string before = folder.Output({"show", "--json", "a.prx"});
        folder.Output({"add", "a.prx", "Passing through"});
        EXPECT_NE(folder.Output({"show", "--json", "a.prx"}), before);
        folder.Output({"remove", "a.prx", "Passing through"});
        EXPECT_EQ(folder.Output({"show", "--json", "a.prx"}), before) << example;
    }
}

TEST(Project, KeepsTheDayOnWhichItWasStarted) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    const auto created = [&] {
        const std::string text = folder.Read("a.prx");
        const std::size_t at = text.find("<ProjectCreationDate>");
        return text.substr(at, text.find("</ProjectCreationDate>") - at);
    };
    const std::string before = created();
    EXPECT_EQ(before.find("1899"), std::string::npos);

    folder.Output({"add", "a.prx", "Task"});

    EXPECT_EQ(created(), before);
}

TEST(Project, ReadsTheSameDatesInEveryLocaleFormat) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const std::string before = folder.Output({"show", "--json", "a.prx"});
    // The same plan as a system with another date format would have written it.
    std::string text = folder.Read("a.prx");
    text = Replaced(text, "<DateFormat>M/d/yyyy</DateFormat>", "<DateFormat>M-d-yyyy</DateFormat>");
    std::string other;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool in_date = text[at] == '/' && at > 0 && text[at - 1] >= '0' && text[at - 1] <= '9';
        other += in_date ? '-' : text[at];
    }
    folder.Write("a.prx", other);

    EXPECT_EQ(folder.Output({"show", "--json", "a.prx"}), before);
}

/// The same plan as a system with another date format would have written it.
TEST(Project, HasItsOwnDatesOfAFileInAnotherFormatAndKeepsThem) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const std::string before = folder.Output({"show", "--json", "a.prx"});
    const std::regex date("(\\d+)/(\\d+)/(\\d{4})");
    const std::string other = std::regex_replace(folder.Read("a.prx"), date, "$2.$1.$3");
    folder.Write("a.prx", Replaced(other, "M/d/yyyy", "d.M.yyyy"));

    EXPECT_EQ(folder.Output({"show", "--json", "a.prx"}), before);
    folder.Output({"rename", "a.prx", "2", "Site survey"});
    EXPECT_EQ(folder.Output({"show", "--json", "a.prx"}), before);
    EXPECT_TRUE(Has(folder.Read("a.prx"), "<ProjectCreationDate>11/21/2026<"));
}

TEST(Project, KeepsTheDayOnWhichATaskWasChangedInAFileOfAnotherFormat) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const std::regex date("(\\d+)/(\\d+)/(\\d{4})");
    std::string other = std::regex_replace(folder.Read("a.prx"), date, "$2.$1.$3");
    other = Replaced(other, "M/d/yyyy", "d.M.yyyy");
    const std::string behind = "<TaskSuccessor>12</TaskSuccessor><TaskPredecessor>6<";
    ASSERT_TRUE(Has(other, behind));
    folder.Write("a.prx", Replaced(other, behind, "<TaskModifiedDate>4.3.2026</TaskModifiedDate>" + behind));

    folder.Output({"rename", "a.prx", "2", "Site survey"});
    EXPECT_TRUE(Has(folder.Read("a.prx"), "<TaskModifiedDate>3/4/2026<"));
}

TEST(Project, IsNotAtFaultForTheStateOfTheWizard) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    const std::string state = folder.Read("state/prx/steps.xml");
    folder.Write("state/prx/steps.xml", Replaced(state, "</LastVisitedStep>", "x</LastVisitedStep>"));
    ASSERT_NE(folder.Read("state/prx/steps.xml"), state);
    const auto expect_noted = [](const Result& result) {
        EXPECT_EQ(result.status, 0);
        EXPECT_TRUE(Has(result.err, "prx: no fault of the project, but of the wizard's state: ")) << result.err;
    };

    expect_noted(folder.Prx({"check", "a.prx"}));
    const Result shown = folder.Prx({"show", "a.prx"});
    expect_noted(shown);
    EXPECT_FALSE(Has(shown.err, "this is not all of it")) << shown.err;
    expect_noted(folder.Prx({"add", "a.prx", "Task"}));
}

/// The record in which that stands, taken out of a plan.
void TakeOutRecord(const Folder& folder, const std::string& record, const std::string& holding) {
    const std::string whole = folder.Read("a.prx");
    const std::size_t at = whole.find(holding);
    ASSERT_NE(at, std::string::npos);
    const std::size_t first = whole.rfind("<" + record + ">", at);
    const std::string end = "</" + record + ">";
    folder.Write("a.prx", whole.substr(0, first) + whole.substr(whole.find(end, at) + end.size()));
}

TEST(Project, IsNotChangedWhereATieLeadsToAnItemThatIsNotThere) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    TakeOutRecord(folder, "Person", "<Personkey>5<");

    const std::string words = folder.Refusal({"person", "a.prx", "add", "Newcomer"});

    EXPECT_TRUE(Has(words,
                    "it is in disorder, so that a change may go wrong:\n"
                    "  assignment 14 leads to person 5, which is not there\n"
                    "  assignment 15 leads to person 5, which is not there\n"))
        << words;
    EXPECT_EQ(folder.Prx({"person", "a.prx", "add", "Newcomer", "--force"}).status, 0);
    folder.Output({"check", "a.prx"});
    EXPECT_FALSE(Has(folder.Output({"show", "a.prx", "--people"}), "Newcomer"));
}

TEST(Project, IsNotChangedWhereATieLeadsToATaskThatIsNotThere) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"add", "a.prx", "Phase"});
    folder.Output({"add", "a.prx", "Task", "--under", "Phase"});
    folder.Output({"note", "a.prx", "add", "Keep this"});
    folder.Output({"assign", "a.prx", "Task", "note", "1"});
    TakeOutRecord(folder, "Task", "<TaskName>Task<");

    const std::string words = folder.Refusal({"add", "a.prx", "Unrelated"});

    EXPECT_TRUE(Has(words, "  note relation 1 leads to task 2, which is not there\n")) << words;
    EXPECT_EQ(folder.Prx({"add", "a.prx", "Unrelated", "--force"}).status, 0);
    folder.Output({"check", "a.prx"});
    EXPECT_FALSE(Has(folder.Output({"show", "a.prx", "--notes"}), "Keep this"));
}

TEST(Project, IsNotChangedWhereATaskListsATieThatIsNotThere) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    TakeOutRecord(folder, "TaskNoteRelation", "<NoteKey>2</NoteKey><Key>2<");

    EXPECT_TRUE(Has(folder.Refusal({"note", "a.prx", "add", "Another"}), "lists note relation 2, which is not there"));
}

TEST(Project, IsNotChangedWhereALinkLeadsToATaskThatIsNotThere) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    for (const char* name : {"First", "Second", "Third"}) folder.Output({"add", "a.prx", name});
    folder.Output({"link", "a.prx", "Second", "Third"});
    TakeOutRecord(folder, "Task", "<TaskName>Third<");

    EXPECT_TRUE(Has(folder.Refusal({"add", "a.prx", "Unrelated"}),
                    "  task 2 \"Second\" waits for task 3, which is not there\n"));
}

}  // namespace prx_test
