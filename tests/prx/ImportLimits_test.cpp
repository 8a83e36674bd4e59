#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"
#include "tests/support/Sample.h"

namespace prx_test {
namespace {

/// A table and what becomes of it.
class Table : public PlanFolder {
public:
    explicit Table(const std::string& rows) { Write("a.csv", "kind,level,name,start,end\n" + rows); }
    /// The lines that an import refuses.
    std::string RefusedLines() const {
        const std::string refusal = Refusal({"import", "a.csv"});
        EXPECT_FALSE(Has("a.prx")) << "nothing may be written";
        EXPECT_FALSE(Has("~a.prxl")) << "no lock may stay";
        const std::string start = "prx: a.csv: a task lies in the years 2000 to ";
        EXPECT_TRUE(refusal.starts_with(start)) << refusal;
        return refusal.substr(refusal.find('\n') + 1);
    }
};

}  // namespace

TEST(Import, RefusesDaysThatATaskCannotHave) {
    const std::string lines = Table(
                                  "phase,1,A,,\ntask,2,Long,2026-01-01,2028-12-31\ntask,2,Early,1999-12-30,1999-12-31\n"
                                  "task,2,Fine,2026-01-01,2026-01-05\ntask,2,Late,2090-12-30,2090-12-31\n")
                                  .RefusedLines();
    const std::string first =
        "  line 3: \"Long\" would be 2026-01-01 to 2026-01-01 instead of 2026-01-01 to 2028-12-31\n"
        "  line 4: \"Early\" would be 2000-12-30 to 2000-12-30 instead of 1999-12-30 to 1999-12-31\n"
        "  line 6: \"Late\" would be ";
    EXPECT_TRUE(lines.starts_with(first)) << lines;
    EXPECT_TRUE(Has(Table("phase,1,A,2026-01-01,2028-12-31\n").RefusedLines(), "line 2: \"A\""));
}

TEST(Import, TakesTheLongestTaskAndTheFirstDay) {
    const Table table("phase,1,A,,\ntask,2,Long,2026-01-01,2028-09-25\ntask,2,Early,2000-01-03,2000-01-04\n");
    table.Output({"import", "a.csv"});
    EXPECT_EQ(table.Days("Long"), "2026-01-01 2028-09-25");
    EXPECT_EQ(table.Days("Early"), "2000-01-03 2000-01-04");
    EXPECT_EQ(table.Days("A"), "2000-01-03 2028-09-25");
}

TEST(Import, GivesASummaryTheDaysBelowItWhateverTheTableSays) {
    const Table table(
        "phase,1,A,1990-01-01,2090-01-01\ntask,2,B,2026-01-01,2026-01-02\ntask,2,C,,\nphase,1,D,2026-02-01,"
        "2026-02-03\ntask,2,E,,\n");
    const Result result = table.Prx({"import", "a.csv"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_FALSE(Has(result.err, "had to be adjusted")) << result.err;
    const std::string today = table.Days("C").substr(0, 10);
    EXPECT_EQ(table.Days("A"), "2026-01-01 " + today) << "the last one has no days of its own";
    EXPECT_EQ(table.Days("D"), table.Days("E"));
}

TEST(Import, GivesThePlanTodayAsItsDayOfCreation) {
    const Table table("phase,1,A,,\n");
    table.Output({"import", "a.csv"});
    table.Output({"new", "b.prx"});
    const auto day = [&](const char* name) {
        const std::string file = table.Read(name);
        const std::size_t at = file.find("<ProjectCreationDate>");
        return file.substr(at, file.find('<', at + 1) - at);
    };
    EXPECT_EQ(day("a.prx"), day("b.prx"));
}

TEST(Import, TellsAPlanThatIsFull) {
    std::string rows = "phase,1,A,,\n";
    for (int i = 0; i < 998; ++i) rows += "task,2,B,,\n";
    const Table table(rows);
    EXPECT_TRUE(Has(table.Prx({"import", "a.csv"}).err, "The plan is full: it cannot take another task."));
}

TEST(Import, RefusesMoreTasksThanThereAreKeys) {
    std::string rows = "phase,1,A,,\n";
    for (int i = 0; i < 32766; ++i) rows += "task,2,B,,\n";
    EXPECT_EQ(Table(rows).Refusal({"import", "a.csv"}), "prx: a.csv: line 32768: 32766 tasks are the most\n");
}

/// As many as there are keys for nearly: it must not have to be stopped.
TEST(Import, TakesAFullTableOfDays) {
    constexpr unsigned kTasks = 32'000 / mrlxmlclass::testing::kSample;
    std::string rows = "phase,1,A,,\n";
    for (unsigned i = 0; i < kTasks; ++i) rows += "task,2,B,2026-03-02,2026-03-06\n";
    const Table table(rows + "task,2,Last,2026-03-03,2026-04-01\n");
    table.Output({"import", "a.csv"});
    EXPECT_EQ(table.Days("A"), "2026-03-02 2026-04-01");
}

TEST(Import, RefusesTheDayThatStandsForNone) {
    for (const char* end : {"1899-12-30", "2026-03-02"}) {
        EXPECT_TRUE(
            Has(Table("phase,1,A,,\ntask,2,B,1899-12-30," + std::string(end) + "\n").Refusal({"import", "a.csv"}),
                "line 3: \"1899-12-30\" is not a day that a plan can hold"));
    }
}

TEST(Import, RefusesMoreTiesThanThereAreKeys) {
    constexpr int kPeople = 331;
    constexpr int kRows = 99;  // 99 times 331 is 32769
    std::string people;
    for (int i = 0; i < kPeople; ++i) people += "P" + std::to_string(i) + ";";
    std::string table = "kind,name,people\nphase,A,\n";
    for (int i = 0; i < kRows; ++i) table += "task,B," + people + "\n";
    const Folder folder;
    folder.Write("a.csv", table);
    EXPECT_EQ(
        folder.Refusal({"import", "a.csv"}),
        "prx: a.csv: line 101: 32767 ties of people to tasks are the most; one to work in \"tasks\" counts twice\n");

    std::string work;
    for (int i = 0; i < 16384; ++i) work += "W" + std::to_string(i) + ";";
    folder.Write("a.csv", "kind,name,tasks\nphase,A,\ngoal,G," + work + "\n");
    EXPECT_EQ(folder.Refusal({"import", "a.csv"}),
              "prx: a.csv: line 3: 32767 ties of goals to tasks are the most; one to work in \"tasks\" counts twice\n");
}

TEST(Import, CountsPeopleWithoutARowAmongTheItems) {
    std::string table = "kind,name,people\nphase,A,\n";
    for (int i = 0; i < 32760; ++i) table += "goal,G" + std::to_string(i) + ",\n";
    const Folder folder;
    folder.Write("a.csv", table + "phase,B,a;b;c;d;e;f\nphase,C,f;g\n");
    EXPECT_EQ(folder.Refusal({"import", "a.csv"}), "prx: a.csv: line 32764: 32766 items are the most\n");
}

TEST(Import, SaysWhatIsWrongWithTheHeader) {
    const Folder folder;
    const auto refusal = [&](const std::string& table) {
        folder.Write("a.csv", table);
        return folder.Refusal({"import", "a.csv"});
    };
    EXPECT_EQ(refusal("kind;name\nphase;A\n"), "prx: a.csv: line 1: fields are parted by \",\", not by \";\"\n");
    EXPECT_EQ(refusal("kind,name,\nphase,A,\n"), "prx: a.csv: line 1: column 3 has no name\n");
    EXPECT_EQ(refusal(std::string("\xFF\xFEk\0i\0", 6)),
              "prx: a.csv: this is a text in UTF-16; save the table as UTF-8\n");
    EXPECT_EQ(refusal("kind,name\nphase,Caf\xE9\n"), "prx: a.csv: line 2: this is no text in UTF-8\n");
    EXPECT_EQ(refusal("kind,name\nperson,Voss; Sons\n"), "prx: a.csv: line 2: \";\" parts the names of people\n");
}

TEST(Import, TakesColumnsAndKindsInAnyCase) {
    const Folder folder;
    folder.Write("a.csv", "Kind,NAME\nPhase,A\nGOAL,B\n");
    folder.Output({"import", "a.csv"});
    EXPECT_TRUE(Has(folder.Output({"goal", "a.prx", "list"}), "B"));
}

TEST(Import, CountsTheLinesOfAQuotedField) {
    const Folder folder;
    folder.Write("a.csv", "kind,name,note\rphase,A,\"one\rtwo\rthree\"\rsong,B,\r");
    EXPECT_TRUE(Has(folder.Refusal({"import", "a.csv"}), "line 5: \"song\""));
}

TEST(Import, RefusesANameThatIsEmpty) {
    const Folder folder;
    folder.Write("a.csv", "kind,name\nphase,A\n");
    EXPECT_EQ(folder.Refusal({"import", "a.csv", "--to", ""}), "prx: the file needs a name\n");
    EXPECT_FALSE(folder.Has("a.prx"));
}

TEST(Import, TellsItsColumns) {
    const Folder folder;
    const std::string help = folder.Output({"import", "--help"});
    EXPECT_FALSE(Has(help, "The project file")) << help;
    EXPECT_TRUE(Has(help, "docs/table.md")) << help;
}

}  // namespace prx_test
