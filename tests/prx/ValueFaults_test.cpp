#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// The house plan with one text of its file replaced; what check tells of it.
std::string FaultsWith(const std::string& from, const std::string& to) {
    const PlanFolder plan;
    plan.CopyExample("house.prx", "a.prx");
    const std::string whole = plan.Read("a.prx");
    plan.Write("a.prx", Replaced(whole, from, to));
    EXPECT_NE(plan.Read("a.prx"), whole) << from;
    const Result result = plan.Prx({"check", "a.prx"});
    EXPECT_EQ(result.status, 1) << result.out << result.err;
    return result.out;
}

const std::string kSurvey = "<TaskBDate>3/2/2026</TaskBDate><TaskEDate>3/4/2026</TaskEDate><TaskDuration>";

}  // namespace

TEST(ValueFaults, AreLengthsThatNoTaskHas) {
    struct Row {
        const char* length;
        const char* told;
    };
    for (const Row& row : {Row{"77", "takes 77 days, from 2026-03-02 to 2026-03-04"},
                           Row{"0", "takes 0 days, from 2026-03-02 to 2026-03-04"},
                           Row{"1", "takes 1 days, from 2026-03-02 to 2026-03-04"},
                           Row{"-1", "takes -1 days, from 2026-03-02 to 2026-03-04"},
                           Row{"1e30", "takes 1e+30 days, from 2026-03-02 to 2026-03-04"}}) {
        EXPECT_EQ(FaultsWith(kSurvey + "3<", kSurvey + row.length + "<"),
                  "Still wrong:\n  task 2 \"Site survey\" " + std::string(row.told) + "\n");
    }
    for (const std::string length : {"1e+30 wks", "900 wks", "16 wks", "900 mons", "1e+30 hrs"}) {
        const std::size_t blank = length.find(' ');
        EXPECT_EQ(FaultsWith("<TaskDuration>2</TaskDuration><TaskDurationUnit>wks<",
                             "<TaskDuration>" + length.substr(0, blank) + "</TaskDuration><TaskDurationUnit>" +
                                 length.substr(blank + 1) + "<"),
                  "Still wrong:\n  task 23 \"Curing\" takes " + length + ", from 2026-06-09 to 2026-06-23\n");
    }
}

TEST(ValueFaults, AreSharesThatNothingCanBeDone) {
    EXPECT_EQ(FaultsWith("<TaskPercentDone>60<", "<TaskPercentDone>-700<"),
              "Still wrong:\n  task 6 \"Structural calculation\" is -700% done\n");
}

TEST(ValueFaults, AreWeekdaysThatNoWeekHas) {
    EXPECT_EQ(FaultsWith("<NonWorkingDays>7:7;1:1<", "<NonWorkingDays>7:7;1:1;9:9<"),
              "Still wrong:\n  the calendar has a free weekday \"9\"; a week has 1 to 7\n");
}

TEST(ValueFaults, AreDaysOfTheCalendarThatAreTwo) {
    EXPECT_TRUE(Has(FaultsWith("<Holiday>", "<Holiday>5/20/2026:5/21/2026;"),
                    "Still wrong:\n  the calendar has \"5/20/2026:5/21/2026\" in Holiday, where both are one day\n"));
    EXPECT_TRUE(Has(FaultsWith("<NonWorkingDays>7:7;1:1<", "<NonWorkingDays>7:7;1:1;2:x<"),
                    "Still wrong:\n  the calendar has \"2:x\" in NonWorkingDays, where both are one day\n"));
}

TEST(ValueFaults, AreEndsThatAreNotThere) {
    EXPECT_EQ(
        FaultsWith("<TaskBDate>3/2/2026</TaskBDate><TaskEDate>3/4/2026</TaskEDate>", "<TaskBDate>3/2/2026</TaskBDate>"),
        "Repaired in memory, not in the file:\n"
        "  the end of task 2 \"Site survey\" is not there, and was set to 2026-03-05\n");
}

TEST(ValueFaults, AreWorkThatATaskListsAndThatLeftTheOutline) {
    const std::string flags = "</TaskCondidat><TaskMilstones>false</TaskMilstones><TaskKey>63<";
    EXPECT_TRUE(Has(FaultsWith("true" + flags, "false" + flags),
                    " lists task 63, which does not stand in the outline: its TaskCondidat is false\n"));
}

TEST(ValueFaults, AreTextsBetweenTheElements) {
    EXPECT_EQ(FaultsWith("<Tasks ", "some text<Tasks "), "Not read:\n  Project: the text \"some text\" was not read\n");
    EXPECT_EQ(FaultsWith("<Tasks scheduler=\"false\">", "<Tasks scheduler=\"false\">\n more\n"),
              "Not read:\n  Tasks: the text \"more\" was not read\n");
}

}  // namespace prx_test
