#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {

TEST(Remove, TakesATaskWithAllBelowIt) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");

    folder.Output({"remove", "a.prx", "Shell"});

    const std::string table = folder.Output({"show", "a.prx"});
    EXPECT_NE(table.find("49 tasks"), std::string::npos) << table;
    EXPECT_EQ(table.find("Roof trusses"), std::string::npos);
    EXPECT_NE(table.find("24   38  Services"), std::string::npos) << table;
    folder.Output({"check", "a.prx"});
}

TEST(Remove, PrintsEveryEvent) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
    folder.Output({"add", "a.prx", "Design", "--under", "1", "--start", "2026-03-02", "--duration", "5"});
    folder.Output({"add", "a.prx", "Build", "--under", "1", "--start", "2026-03-09", "--duration", "2"});

    EXPECT_EQ(folder.Output({"remove", "a.prx", "Build"}),
              "DurationChange(1, 5, days, False, True)\n"
              "TaskDurationChange(1, 5, days, False, True)\n"
              "DateEndChange(1, 2026-03-06, False, True, days)\n"
              "DateStartChange(1, 2026-03-02, False, True)\n"
              "RoolUpCostChange(1, 0)\n"
              "IamASummary(1, True)\n"
              "TaskDeleted(3, 1, 3, True)\n"
              "TaskDeleted(3, , 0, True)\n");
}

TEST(Remove, MakesNoTaskWaitForWhatStandsBelowIt) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    plan.Output({"add", "a.prx", "A", "--start", "2026-12-07"});
    plan.Output({"add", "a.prx", "B", "--under", "A"});
    plan.Output({"add", "a.prx", "C", "--under", "B"});
    plan.Output({"add", "a.prx", "X", "--start", "2026-12-10"});
    plan.Output({"link", "a.prx", "X", "C"});
    plan.Output({"link", "a.prx", "A", "X"});

    const Result result = plan.Prx({"remove", "a.prx", "X"});

    EXPECT_EQ(result.err, "prx: task 1 \"A\" was to wait for task 3 \"C\", which stands below it: taken off\n");
    EXPECT_EQ(plan.Predecessors("A"), "");
    plan.Output({"check", "a.prx"});
}

TEST(Remove, MovesNoTaskWithoutAWordWhateverTheRows) {
    // The library puts what it bridges behind the start of another predecessor, or where all of them stand in rows
    // below at the beginning of time.
    for (const char* order : {"ADBCE", "BCADE", "CBEDA", "DABCE"}) {
        SCOPED_TRACE(order);
        const PlanFolder plan;
        plan.Output({"new", "a.prx"});
        for (const char task : std::string(order)) {
            plan.Output({"add", "a.prx", std::string(1, task), "--start", "2026-12-01", "--duration", "2"});
        }
        plan.Output({"link", "a.prx", "B", "A"});
        plan.Output({"link", "a.prx", "C", "B", "--lag", "1"});
        plan.Output({"link", "a.prx", "C", "D"});
        plan.Output({"link", "a.prx", "E", "C"});
        ASSERT_EQ(plan.Days("C"), "2026-12-08 2026-12-09");

        const Result result = plan.Prx({"remove", "a.prx", "B"});

        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(plan.Days("C"), "2026-12-08 2026-12-09");
        EXPECT_EQ(plan.Days("E"), "2026-12-10 2026-12-11");
        EXPECT_TRUE(Has(plan.Row("C"), R"("lag": 3})")) << plan.Row("C");
        EXPECT_FALSE(Has(result.out, "DateStartChange")) << result.out;
        plan.Output({"check", "a.prx"});
    }
}

TEST(Remove, EmptiesAPlanAndFillsItAgain) {
    const Folder folder;
    folder.CopyExample("festival.prx", "a.prx");
    for (int phase = 0; phase < 6; ++phase) folder.Output({"remove", "a.prx", "#1"});

    EXPECT_EQ(folder.Output({"show", "a.prx"}), "Summer festival of the Lakeside School: 0 tasks\n");

    folder.Output({"add", "a.prx", "Again"});
    folder.Output({"check", "a.prx"});
}

TEST(Remove, RefusesATaskThatIsNotThere) {
    const Folder folder;
    folder.CopyExample("festival.prx", "a.prx");
    const std::string before = folder.Read("a.prx");

    EXPECT_EQ(folder.Refusal({"remove", "a.prx", "Fireworks"}), "prx: there is no task \"Fireworks\"\n");
    EXPECT_NE(folder.Refusal({"remove", "a.prx", "#0"}), "");

    EXPECT_EQ(folder.Read("a.prx"), before);
}

}  // namespace prx_test
