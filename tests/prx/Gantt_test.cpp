#include <gtest/gtest.h>

#include <sstream>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// The characters of a UTF-8 text; each of those that a chart draws takes one column.
std::size_t Columns(const std::string& line) {
    std::size_t columns = 0;
    for (const char byte : line) columns += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U ? 1 : 0;
    return columns;
}

void ExpectNoWiderThan(std::size_t width, const std::string& chart) {
    std::istringstream lines(chart);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(Columns(line), width) << line;
}

class Gantt : public testing::Test {
protected:
    Gantt() {
        plan_.Output({"new", "a.prx", "--name", "Trial"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        plan_.Output({"add", "a.prx", "Design", "--under", "Phase", "--start", "2026-03-02", "--duration", "4"});
        plan_.Output({"add", "a.prx", "Build", "--under", "Phase", "--start", "2026-03-02", "--duration", "3"});
        plan_.Output({"add", "a.prx", "Done", "--under", "Phase", "--start", "2026-03-02", "--milestone"});
        plan_.Output({"link", "a.prx", "Build", "Design"});
        plan_.Output({"link", "a.prx", "Done", "Build", "--lag=1"});
    }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(Gantt, DrawsBarsMilestonesFreeDaysAndLinks) {
    EXPECT_EQ(plan_.Output({"show", "--gantt", "a.prx"}),
              "Trial, 2026-03-02 to 2026-03-12\n"
              "                  Mar\n"
              "Row Task    After 2      9\n"
              "  1 Phase         ▀▀▀▀▀▀▀▀▀▀▀\n"
              "  2  Design       ████ ░░\n"
              "  3  Build  2         █▒▒██\n"
              "  4  Done   3+1        ░░   ◆\n"
              "A column is a day: █ task  ▒ on free days  ▀ summary  ◆ milestone  ░ free\n");
}

TEST_F(Gantt, DrawsAPartOfThePlan) {
    EXPECT_EQ(plan_.Output({"show", "--gantt", "--from", "2026-03-09", "--to", "2026-03-16", "a.prx"}),
              "Trial, 2026-03-09 to 2026-03-16\n"
              "                 Mar\n"
              "Row Task   After 9\n"
              "  1 Phase        ▀▀▀▀ ░░\n"
              "  3  Build 2     ██   ░░\n"
              "  4  Done  3+1      ◆ ░░\n"
              "A column is a day: █ task  ▒ on free days  ▀ summary  ◆ milestone  ░ free\n");
}

TEST_F(Gantt, ShadesHolidaysAndLeavesExceptionsFree) {
    plan_.Output({"calendar", "a.prx", "--holiday", "2026-03-04", "--exception", "2026-03-07"});
    EXPECT_NE(plan_.Output({"show", "--gantt", "a.prx"}).find("  4  Done   3+1     ░   ░   ◆\n"), std::string::npos)
        << plan_.Output({"show", "--gantt", "a.prx"});
}

TEST_F(Gantt, StaysWithinItsWidth) {
    const PlanFolder plan;
    for (const char* example : kExamples) {
        plan.CopyExample(example, "a.prx");
        ExpectNoWiderThan(80, plan.Output({"show", "--gantt", "a.prx"}));
        ExpectNoWiderThan(60, plan.Output({"show", "--gantt", "--width=60", "--from=2026-06-01", "a.prx"}));
        ExpectNoWiderThan(200, plan.Output({"show", "--gantt", "--width=200", "a.prx"}));
    }
}

TEST_F(Gantt, PutsManyDaysIntoAColumnWhereItMust) {
    plan_.Output({"add", "a.prx", "Later", "--start", "2030-03-04", "--duration", "5"});

    const std::string chart = plan_.Output({"show", "--gantt", "a.prx"});

    EXPECT_NE(chart.find("A column is 24 days:"), std::string::npos) << chart;
    EXPECT_NE(chart.find("   2028 "), std::string::npos) << chart;
    ExpectNoWiderThan(80, chart);
}

TEST_F(Gantt, KeepsLongAndWideNamesInTheirColumn) {
    plan_.Output({"rename", "a.prx", "Build", "建てる建てる建てる建てる建てる建てる建てる建てる建てる建てる"});
    plan_.Output({"rename", "a.prx", "Done", std::string(150, 'x')});
    const std::string chart = plan_.Output({"show", "--gantt", "a.prx"});
    EXPECT_NE(chart.find("xxx... "), std::string::npos) << chart;
    ExpectNoWiderThan(80, chart);
}

TEST_F(Gantt, NamesATaskWithoutDates) {
    plan_.Write("a.prx", Replaced(plan_.Read("a.prx"), "<TaskBDate>3/6/2026</TaskBDate>", ""));
    const std::string chart = plan_.Output({"show", "--gantt", "a.prx"});
    EXPECT_NE(chart.find("  3  Build  2          ░░\n"), std::string::npos) << chart;
}

TEST_F(Gantt, DrawsNoThousandYears) {
    EXPECT_NE(plan_.Refusal({"show", "--gantt", "--to", "9999-12-31", "a.prx"}).find("draw a part of it"),
              std::string::npos);
}

TEST_F(Gantt, WritesNothingToTheFile) {
    const std::string before = plan_.Read("a.prx");
    plan_.Output({"show", "--gantt", "a.prx"});
    EXPECT_EQ(plan_.Read("a.prx"), before);
}

TEST_F(Gantt, RefusesBadInput) {
    EXPECT_NE(plan_.Refusal({"show", "--gantt", "--from", "soon", "a.prx"}), "");
    EXPECT_NE(plan_.Refusal({"show", "--gantt", "--width", "59", "a.prx"}), "");
    EXPECT_NE(plan_.Refusal({"show", "--gantt", "--width", "wide", "a.prx"}), "");
    EXPECT_NE(plan_.Refusal({"show", "--gantt", "--from", "2026-03-05", "--to", "2026-03-04", "a.prx"}), "");
    EXPECT_NE(plan_.Refusal({"show", "--from", "2026-03-05", "a.prx"}), "");
    EXPECT_NE(plan_.Refusal({"show", "--gantt", "--json", "a.prx"}), "");
}

TEST(GanttOfAnEmptyPlan, SaysSo) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    EXPECT_EQ(plan.Output({"show", "--gantt", "a.prx"}), "There is nothing to draw: the plan has no tasks\n");
}

TEST(GanttOfAProjectWithoutAName, HasAHeading) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"add", "a.prx", "A", "--start", "2026-12-09"});
    EXPECT_TRUE(folder.Output({"show", "--gantt", "a.prx"})
                    .starts_with("A project without a name, 2026-12-09 to 2026-12-09\n"));
}

}  // namespace prx_test
