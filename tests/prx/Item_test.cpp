#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

class Item : public testing::Test {
protected:
    Item() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        plan_.Output({"add", "a.prx", "Build", "--under", "Phase", "--start", "2026-03-02", "--duration", "3"});
    }
    std::string List(const char* kind) const { return plan_.Output({kind, "a.prx", "list"}); }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(Item, GetsAKeyAndIsListed) {
    EXPECT_EQ(plan_.Edit({"person", "add", "Ann Miller", "--company", "Miller & Co", "--email", "a@m.org"}),
              "Added person 1\n");
    EXPECT_EQ(plan_.Edit({"person", "add", "Bob", "--title", "Mason", "--phone", "12", "--address", "Hill 3"}),
              "Added person 2\n");
    plan_.Edit({"assign", "Build", "person", "Bob"});
    plan_.Edit({"assign", "Phase", "person", "Bob"});

    EXPECT_EQ(List("person"),
              "Key  Name        Tasks\n"
              "  1  Ann Miller         company: Miller & Co, email: a@m.org\n"
              "  2  Bob         2,1    title: Mason, address: Hill 3, phone: 12\n");
}

TEST_F(Item, OfEachKindIsListedForPrograms) {
    plan_.Edit({"goal", "add", "A \"quiet\" house", "--link", "goals.txt", "--description", "No noise"});
    plan_.Edit({"obstacle", "add", "Rain"});
    plan_.Edit({"note", "add", "Ask first", "--link", "http://example.org"});
    plan_.Edit({"person", "add", "Ann"});
    plan_.Edit({"assign", "Build", "goal", "1"});

    EXPECT_EQ(plan_.Output({"goal", "a.prx", "list", "--json"}),
              "[\n{\"key\": 1, \"name\": \"A \\\"quiet\\\" house\", \"link\": \"goals.txt\", "
              "\"description\": \"No noise\", \"tasks\": [2]}\n]\n");
    EXPECT_EQ(plan_.Output({"note", "a.prx", "list", "--json"}),
              "[\n{\"key\": 1, \"text\": \"Ask first\", \"link\": \"http://example.org\", \"tasks\": []}\n]\n");
    for (const char* kind : {"person", "goal", "obstacle", "note"}) {
        EXPECT_EQ(JsonFault(plan_.Output({kind, "a.prx", "list", "--json"})), "") << kind;
    }
}

TEST_F(Item, ListsSayWhenThereIsNone) {
    EXPECT_EQ(List("person"), "There are no people\n");
    EXPECT_EQ(List("obstacle"), "There are no obstacles\n");
    EXPECT_EQ(plan_.Output({"note", "a.prx", "list", "--json"}), "[]\n");
}

TEST_F(Item, SurvivesAReadAndASave) {
    plan_.Edit({"note", "add", "First line\nsecond & <last>"});
    plan_.Edit({"goal", "add", "Öl"});
    plan_.Edit({"rename", "Build", "Building"});

    EXPECT_NE(plan_.Output({"note", "a.prx", "list", "--json"}).find("First line\\u000asecond & <last>"),
              std::string::npos);
    EXPECT_EQ(List("note"), "Key  Text                        Tasks\n  1  First line second & <last>\n");
    EXPECT_EQ(List("goal"), "Key  Name  Tasks\n  1  Öl\n");
}

TEST_F(Item, GoesAndLeavesNothingAtItsTasks) {
    for (const char* kind : {"person", "goal", "obstacle"}) {
        plan_.Edit({kind, "add", "X"});
        plan_.Edit({kind, "add", "Y"});
        for (const char* task : {"Phase", "Build"}) {
            plan_.Edit({"assign", task, kind, "X"});
            plan_.Edit({"assign", task, kind, "Y"});
        }
    }

    EXPECT_EQ(plan_.Edit({"person", "remove", "X"}), "AssigmentChange(1, Y)\nAssigmentChange(2, Y)\n");
    EXPECT_EQ(plan_.Edit({"goal", "remove", "X"}), "GoalChange(1, Y; )\nGoalChange(2, Y; )\n");
    EXPECT_EQ(plan_.Edit({"obstacle", "remove", "1"}), "ObstaclesChange(1, Y; )\nObstaclesChange(2, Y; )\n");

    EXPECT_EQ(List("goal"), "Key  Name  Tasks\n  2  Y     1,2\n");
    EXPECT_EQ(List("person"), "Key  Name  Tasks\n  2  Y     1,2\n");
}

TEST_F(Item, NotesGoByTextOrKey) {
    plan_.Edit({"note", "add", "One"});
    plan_.Edit({"note", "add", "Two"});
    plan_.Edit({"assign", "Build", "note", "One"});

    EXPECT_EQ(plan_.Edit({"note", "remove", "One"}), "NoteChange(2, )\n");
    plan_.Edit({"note", "remove", "2"});

    EXPECT_EQ(List("note"), "There are no notes\n");
}

TEST_F(Item, OfTwoWithOneNameIsNamedByItsKey) {
    plan_.Edit({"person", "add", "Ann"});
    plan_.Edit({"person", "add", "Ann"});

    EXPECT_EQ(plan_.Refused({"person", "remove", "Ann"}),
              "prx: there is more than one person \"Ann\"; give its key instead\n");
    EXPECT_EQ(plan_.Refused({"assign", "Build", "person", "Ann"}),
              "prx: there is more than one person \"Ann\"; give its key instead\n");

    plan_.Edit({"assign", "Build", "person", "2"});
    EXPECT_EQ(List("person"), "Key  Name  Tasks\n  1  Ann\n  2  Ann   2\n");
}

TEST_F(Item, OfSeveralWithOneNameIsTakenOffTheTaskThatHasIt) {
    for (int i = 0; i < 4; ++i) plan_.Edit({"person", "add", "Ann"});
    plan_.Edit({"assign", "Build", "person", "3"});

    plan_.Edit({"unassign", "Build", "person", "Ann"});

    EXPECT_EQ(List("person"), "Key  Name  Tasks\n  1  Ann\n  2  Ann\n  3  Ann\n  4  Ann\n");
    for (const char* key : {"2", "4"}) plan_.Edit({"assign", "Build", "person", key});
    EXPECT_EQ(plan_.Refused({"unassign", "Build", "person", "Ann"}),
              "prx: there is more than one person \"Ann\"; give its key instead\n");
}

TEST_F(Item, NamesTheWordThatIsNoneOfItsOwn) {
    EXPECT_NE(plan_.Refused({"person", "frob"}).find("frob"), std::string::npos);
    EXPECT_EQ(plan_.Refused({"person"}), "prx: say what to do with the people: add, list or remove\n");
}

TEST_F(Item, WhoseNameIsAWordOfTheCommandIsNoTrouble) {
    for (const char* name : {"list", "add", "remove", "show", "person"}) plan_.Edit({"person", "add", name});
    plan_.Edit({"person", "remove", "list"});
    EXPECT_EQ(List("person").find("list"), std::string::npos);
}

TEST_F(Item, RefusesBadInput) {
    EXPECT_EQ(plan_.Refused({"person", "add", ""}), "prx: a person needs a name\n");
    EXPECT_EQ(plan_.Refused({"goal", "add", " "}), "prx: a goal needs a name\n");
    EXPECT_EQ(plan_.Refused({"note", "add", ""}), "prx: a note needs a text\n");
    for (const char* name : {"two\nlines", "a\tb", "\x01", "\xC3\x28", "a\rb"}) {
        EXPECT_NE(plan_.Refused({"person", "add", name}), "");
        EXPECT_NE(plan_.Refused({"person", "add", "Ann", "--company", name}), "");
    }
    for (const char* text : {"\x01", "\xC3\x28", "a\rb"}) EXPECT_NE(plan_.Refused({"note", "add", text}), "");
    EXPECT_NE(plan_.Refused({"obstacle", "add", std::string(161, 'x')}), "");
    EXPECT_EQ(plan_.Refused({"goal", "remove", "Nothing"}), "prx: there is no goal \"Nothing\"\n");
    EXPECT_EQ(plan_.Refused({"person", "remove", "7"}), "prx: there is no person \"7\"\n");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"person"}, {"person", "add"}, {"person", "remove"}, {"person", "rename", "x"}}) {
        EXPECT_NE(plan_.Refused(arguments), "");
    }
}

TEST_F(Item, NamesOfAForeignFileStayInTheirLine) {
    plan_.Edit({"person", "add", "Ann"});
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<PersonName>Ann<", "<PersonName>An\nn&#x9B;31m<"));
    EXPECT_EQ(List("person"), "Key  Name      Tasks\n  1  An n 31m\n");
    EXPECT_EQ(JsonFault(plan_.Output({"person", "a.prx", "list", "--json"})), "");
    plan_.Edit({"assign", "Build", "person", "1"});
}

TEST_F(Item, ACompanyStandsForAPersonWithoutAName) {
    plan_.Edit({"person", "add", "Ann", "--company", "Miller & Co"});
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<PersonName>Ann<", "<PersonName><"));

    EXPECT_EQ(plan_.Edit({"assign", "Build", "person", "Miller & Co"}), "AssigmentChange(2, Miller & Co)\n");
}

}  // namespace prx_test
