#include <gtest/gtest.h>

#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

/// How the import of that table is refused, behind the file's name.
std::string RefusalOf(const std::string& table) {
    const Folder folder;
    folder.Write("a.csv", table);
    const std::string refusal = folder.Refusal({"import", "a.csv"});
    EXPECT_FALSE(folder.Has("a.prx")) << "nothing may be written";
    EXPECT_FALSE(folder.Has("~a.prxl")) << "no lock may stay";
    const std::string start = "prx: a.csv: ";
    EXPECT_TRUE(refusal.starts_with(start)) << refusal;
    return refusal.substr(start.size());
}

}  // namespace

TEST(Import, BuildsThePlanOfATable) {
    const Folder folder;
    folder.Write("club.csv",
                 "kind,level,name,start,end,done,note,people,tasks\r\n"
                 "phase,,Season,,,,,,\r\n"
                 "task,2,Book the hall,2026-03-02,2026-03-04,yes,\"Ask for \"\"Hall 2\"\",\nnot Hall 1\",Ann; Bob,\r\n"
                 "task,,Posters,2026-03-05,2026-03-09,,,Cleo,\r\n"
                 "task,3,Draw,2026-03-05,2026-03-06,no,,Cleo,\r\n"
                 "\r\n"
                 ",,,,,,,,\r\n"
                 " , ,,,,,,,  \r\n"
                 "phase,,Concert,2026-04-04,2026-04-04,,,,\r\n"
                 "person,,Bob,,,,,,Fix the van\r\n"
                 "goal,,Full house,,,,More than last year,,Write to the paper\r\n"
                 "obstacle,,Rain,,,,,,");

    EXPECT_EQ(folder.Output({"import", "club.csv"}), folder.Path("club.prx") + ": 5 tasks\n");

    EXPECT_EQ(folder.Output({"show", "club.prx"}),
              "club: 5 tasks, 2026-03-02 to 2026-04-04\n"
              "Row  Key  Name             Start       End         Duration  Done  Cost\n"
              "  1    1  Season           2026-03-02  2026-03-06    5 days\n"
              "  2    2    Book the hall  2026-03-02  2026-03-04    3 days  100%\n"
              "  3    3    Posters        2026-03-05  2026-03-06    2 days\n"
              "  4    4      Draw         2026-03-05  2026-03-06    2 days\n"
              "  5    5  Concert          2026-04-04  2026-04-04    1 days\n");
    const std::string file = folder.Read("club.prx");
    for (const char* text :
         {"<PersonName>Bob</PersonName>", "<PersonName>Ann</PersonName>", "<PersonName>Cleo</PersonName>",
          "<GoalName>Full house</GoalName>", "<ObstaclesName>Rain</ObstaclesName>", "Ask for \"Hall 2\",\nnot Hall 1",
          "<TaskName>Fix the van</TaskName>", "<TaskName>Write to the paper</TaskName>"}) {
        EXPECT_TRUE(Has(file, text)) << text;
    }
    EXPECT_EQ(folder.Output({"check", "club.prx"}),
              folder.Path("club.prx") + ": nothing is wrong, 5 tasks, 2 beside the outline\n");
}

TEST(Import, WritesToTheFileThatIsNamed) {
    const Folder folder;
    folder.Write("a.csv", "name,kind\nA,phase\n");
    EXPECT_EQ(folder.Output({"import", "a.csv", "--to", "b.prx"}), folder.Path("b.prx") + ": 1 task\n");
    EXPECT_FALSE(folder.Has("a.prx"));
}

TEST(Import, LeavesAFileThatIsThereAlone) {
    const Folder folder;
    folder.Write("a.csv", "name,kind\nA,phase\n");
    folder.Write("a.prx", "precious");
    EXPECT_EQ(folder.Refusal({"import", "a.csv"}), "prx: " + folder.Path("a.prx") + ": there is such a file already\n");
    EXPECT_EQ(folder.Read("a.prx"), "precious");
}

TEST(Import, RefusesWhatIsNoFile) {
    const Folder folder;
    EXPECT_EQ(folder.Refusal({"import", "a.csv"}), "prx: a.csv: there is no such file\n");
    EXPECT_EQ(folder.Refusal({"import", "."}), "prx: .: this is a folder, not a table\n");
}

TEST(Import, RefusesATableThatIsNone) {
    EXPECT_EQ(RefusalOf(""), "the table is empty\n");
    EXPECT_EQ(RefusalOf("\n\r\n\n"), "the table is empty\n");
    EXPECT_EQ(RefusalOf("kind,name\nphase,\"A\n\nB"), "line 2: a quote is not closed\n");
    EXPECT_EQ(RefusalOf("kind,name\nphase,\"A\"B\n"), "line 2: text behind a closing quote\n");
    EXPECT_EQ(RefusalOf("kind,name\nphase,A\"B\n"), "line 2: a quote inside a field without quotes\n");
    EXPECT_EQ(RefusalOf("kind,name\nphase\n"), "line 2: 1 fields; the first row has 2\n");
}

TEST(Import, RefusesColumnsThatItDoesNotKnow) {
    EXPECT_EQ(RefusalOf("kind,name,colour\n"), "line 1: there is no column \"colour\"\n");
    EXPECT_EQ(RefusalOf("kind,name,name\n"), "line 1: two columns \"name\"\n");
    EXPECT_EQ(RefusalOf("name\nA\n"), "line 1: the first row names the columns, and \"kind\" is missing\n");
    EXPECT_TRUE(Has(RefusalOf("\x1B[31m,name\n"), "there is no column")) << "and steers no terminal";
}

TEST(Import, RefusesRowsThatMakeNoPlan) {
    const std::string header = "kind,name,level,start,end,done,note,people,tasks\n";
    struct Case {
        const char* rows;
        const char* why;
    };
    for (const Case& one : {
             Case{"song,A,,,,,,,", "line 2: \"song\" is no kind; there are phase, task, person, goal and obstacle\n"},
             Case{"phase,,,,,,,,", "line 2: a phase needs a name\n"},
             Case{"task,A,,,,,,,", "line 2: the outline begins with a phase\n"},
             Case{"phase,A,2,,,,,,", "line 2: a phase stands on level 1\n"},
             Case{"phase,A,,,,,,,\ntask,B,3,,,,,,", "line 3: level 3 right below level 1\n"},
             Case{"phase,A,,2026-03-02,,,,,", "line 2: give both start and end, in this order, or none\n"},
             Case{"phase,A,,2026-03-02,2026-03-01,,,,", "line 2: give both start and end, in this order, or none\n"},
             Case{"phase,A,,,,,,Ann;Ann,", "line 2: \"Ann\" is named twice\n"},
             Case{"phase,A,,,,,,,B", "line 2: the tasks of a phase have rows of their own\n"},
             Case{"person,A,1,,,,,,", "line 2: level, start, end, done and people are for phases and tasks\n"},
             Case{"person,A,,,,,x,,", "line 2: a person has no note\n"},
             Case{"goal,A,,,,,,,\ngoal,A,,,,,,,", "line 3: there is a goal \"A\" already\n"},
             Case{"phase,B,,,,,,,\ngoal,A,,,,,,,B",
                  "line 3: \"B\" stands in the outline; \"tasks\" is for other work\n"},
             Case{"goal,A,,,,,,,B; B", "line 2: \"B\" is named twice\n"},
         }) {
        EXPECT_EQ(RefusalOf(header + one.rows + "\n"), one.why) << one.rows;
    }
    EXPECT_TRUE(Has(RefusalOf(header + "phase,A,0,,,,,,\n"), "line 2: "));
    EXPECT_TRUE(Has(RefusalOf(header + "phase,A,,2026-02-30,2026-03-01,,,,\n"), "2026-02-30"));
    EXPECT_TRUE(Has(RefusalOf(header + "phase,A,,,,maybe,,,\n"), "maybe"));
    EXPECT_TRUE(Has(RefusalOf(header + "phase,A\xFF,,,,,,,\n"), "line 2: "));
    EXPECT_TRUE(Has(RefusalOf(header + std::string("phase,A,,,,,x\0y,,\n", 18)), "line 2: "));
}

TEST(Import, TakesDeepAndLongTables) {
    const Folder folder;
    std::string table = "kind,name,level\n";
    for (int level = 1; level <= 200; ++level) {
        table += (level == 1 ? "phase,top," : "task,deeper,") + std::to_string(level) + "\n";
    }
    for (int i = 0; i < 1000; ++i) table += "task,flat " + std::to_string(i) + ",2\n";
    folder.Write("a.csv", table);
    EXPECT_EQ(folder.Output({"import", "a.csv"}), folder.Path("a.prx") + ": 1200 tasks\n");
}

TEST(Convert, SaysThatThereIsNoReader) {
    const Folder folder;
    folder.Write("old.prj", "whatever it holds");
    EXPECT_EQ(folder.Refusal({"convert", "old.prj"}),
              "prx: plans of version 3 can only be read by the older program's component, and there is none here; "
              "write the plan as a table and use \"prx import\"\n");
    EXPECT_FALSE(folder.Has("old.prx"));
}

}  // namespace prx_test
