#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {

TEST(Show, DrawsTheOutlineAsATable) {
    const Folder folder;
    folder.Output({"new", "a.prx", "--name", "Trial"});
    folder.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
    folder.Output({"add", "a.prx", "Ö", "--under", "Phase", "--start", "2026-03-02", "--duration", "3d", "--done", "40",
                   "--cost", "1250.50"});
    folder.Output({"add", "a.prx", "Done", "--under", "Phase", "--start", "2026-03-05", "--milestone"});

    EXPECT_EQ(folder.Output({"show", "a.prx"}),
              "Trial: 3 tasks, 2026-03-02 to 2026-03-05\n"
              "Row  Key  Name    Start       End          Duration  Done    Cost\n"
              "  1    1  Phase   2026-03-02  2026-03-05     4 days        1250.5\n"
              "  2    2    Ö     2026-03-02  2026-03-04     3 days   40%  1250.5\n"
              "  3    3    Done  2026-03-05  2026-03-05  milestone\n");
}

TEST(Show, DrawsPeopleAndNotesWithinTheLine) {
    const Folder folder;
    folder.Output({"new", "a.prx", "--name", "Trial"});
    folder.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
    folder.Output({"add", "a.prx", "Build", "--under", "Phase", "--start", "2026-03-02", "--duration", "3d"});
    for (const char* name : {"Ann", "Ben", "Catherine the Great of the North"}) {
        folder.Output({"person", "a.prx", "add", name});
        folder.Output({"assign", "a.prx", "Build", "person", name});
    }
    folder.Output({"note", "a.prx", "add", "Ask\nthe town hall before the digger comes, and the neighbours"});
    folder.Output({"assign", "a.prx", "Phase", "note", "1"});

    EXPECT_EQ(folder.Output({"show", "a.prx", "--people"}),
              "Trial: 2 tasks, 2026-03-02 to 2026-03-04\n"
              "Row  Key  Name     Start       End         People\n"
              "  1    1  Phase    2026-03-02  2026-03-04\n"
              "  2    2    Build  2026-03-02  2026-03-04  Ann, Ben, Catherine the Great of...\n");
    EXPECT_EQ(folder.Output({"show", "a.prx", "--people", "--notes"}),
              "Trial: 2 tasks, 2026-03-02 to 2026-03-04\n"
              "Row  Key  Name     Start       End         People            Notes\n"
              "  1    1  Phase    2026-03-02  2026-03-04                    Ask the town h...\n"
              "  2    2    Build  2026-03-02  2026-03-04  Ann, Ben, Cat...\n");
    EXPECT_EQ(folder.Prx({"show", "a.prx", "--people", "--json"}).status, 2);
}

TEST(Show, NamesTheItemsOfATaskInJson) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
    for (const char* kind : {"person", "goal", "obstacle", "note"}) {
        folder.Output({kind, "a.prx", "add", std::string("\"") + kind});
        folder.Output({"assign", "a.prx", "Phase", kind, "1"});
    }

    const std::string json = folder.Output({"show", "--json", "a.prx"});

    EXPECT_EQ(JsonFault(json), "");
    EXPECT_TRUE(Has(json,
                    R"("people": [{"key": 1, "name": "\"person"}], "goals": [{"key": 1, "name": "\"goal"}], )"
                    R"("obstacles": [{"key": 1, "name": "\"obstacle"}], "notes": [{"key": 1, "text": "\"note"}]})"))
        << json;
}

TEST(Show, TellsTwoPeopleOfOneNameApartInJson) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    plan.Edit({"add", "Build"});
    for (const char* key : {"1", "2"}) {
        plan.Edit({"person", "add", "Ida Berg"});
        plan.Edit({"assign", "Build", "person", key});
    }
    EXPECT_TRUE(Has(plan.Row("Build"), R"("people": [{"key": 1, "name": "Ida Berg"}, {"key": 2, "name": "Ida Berg"}])"))
        << plan.Row("Build");
}

TEST(Show, PrintsJsonThatProgramsCanRead) {
    const Folder folder;
    for (const char* example : {"house.prx", "festival.prx", "orchard.prx"}) {
        folder.CopyExample(example, "a.prx");
        const std::string json = folder.Output({"show", "--json", "a.prx"});
        EXPECT_EQ(JsonFault(json), "") << example;
        EXPECT_NE(json.find("\"summary\": true"), std::string::npos);
    }
}

TEST(Show, EscapesWhatJsonCannotHold) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), "<TaskName>Excavate</TaskName>",
                                   "<TaskName>\"Ex\\cav\tate\"\n&#x85;\xF0\x9F\x8F\xA0</TaskName>"));

    const std::string json = folder.Output({"show", "--json", "a.prx"});

    EXPECT_EQ(JsonFault(json), "");
    EXPECT_NE(json.find(R"("\"Ex\\cav\u0009ate\"\u000a\u0085)"), std::string::npos);
}

TEST(Show, KeepsATaskInOneLineAndTheTerminalUnsteered) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), "<TaskName>Excavate</TaskName>",
                                   "<TaskName>Ex\nca&#x9B;31mvate</TaskName>"));

    const std::string table = folder.Output({"show", "a.prx"});

    EXPECT_NE(table.find("Ex ca 31mvate"), std::string::npos);
}

TEST(Show, TellsOnTheErrorOutputThatSomethingIsMissing) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), "Goals>", "Plans>"));

    const Result result = folder.Prx({"show", "a.prx"});

    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.err.find("prx check"), std::string::npos);
    EXPECT_NE(result.out.find("63 tasks"), std::string::npos);
}

TEST(Show, WritesNothingToTheFile) {
    const Folder folder;
    folder.CopyExample("orchard.prx", "a.prx");
    const std::string before = folder.Read("a.prx");

    folder.Output({"show", "a.prx"});

    EXPECT_EQ(folder.Read("a.prx"), before);
}

}  // namespace prx_test
