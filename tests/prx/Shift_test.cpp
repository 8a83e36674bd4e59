#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design: Monday to Friday of the first week of March 2026; 3 Build waits for it), 4 Party on a Tuesday.
class Shift : public testing::Test {
protected:
    Shift() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        plan_.Output({"add", "a.prx", "Design", "--under", "Phase", "--start", "2026-03-02", "--duration", "5"});
        plan_.Output({"add", "a.prx", "Build", "--under", "Phase", "--start", "2026-03-09", "--duration", "2"});
        plan_.Output({"link", "a.prx", "Build", "Design"});
        plan_.Output({"add", "a.prx", "Party", "--start", "2026-03-17", "--duration", "1"});
    }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(Shift, MovesTheWholePlan) {
    const std::string events = plan_.Edit({"shift", "14"});

    EXPECT_EQ(plan_.Days("Design"), "2026-03-16 2026-03-20");
    EXPECT_EQ(plan_.Days("Build"), "2026-03-23 2026-03-24");
    EXPECT_EQ(plan_.Days("Phase"), "2026-03-16 2026-03-24");
    EXPECT_EQ(plan_.Days("Party"), "2026-03-31 2026-03-31");
    EXPECT_NE(events.find("DateStartChange(2, 2026-03-16, False, False)\n"), std::string::npos) << events;
}

TEST_F(Shift, GoesBackToo) {
    plan_.Edit({"shift", "-7"});
    EXPECT_EQ(plan_.Days("Party"), "2026-03-10 2026-03-10");
    plan_.Edit({"shift", "+7"});
    EXPECT_EQ(plan_.Days("Party"), "2026-03-17 2026-03-17");
}

TEST_F(Shift, MovesATaskInAnyUnitAndItsPhase) {
    plan_.Output({"add", "a.prx", "Weeks", "--start", "2026-03-03", "--duration", "2wks"});
    plan_.Output({"add", "a.prx", "Rest", "--start", "2026-03-04"});
    plan_.Output({"add", "a.prx", "Month", "--under", "Rest", "--start", "2026-03-04", "--duration", "1mons"});
    plan_.Output({"add", "a.prx", "Hours", "--under", "Rest", "--start", "2026-03-05", "--duration", "3hrs"});
    plan_.Output({"add", "a.prx", "Day", "--under", "Rest", "--start", "2026-03-06", "--duration", "2"});
    plan_.Output({"milestone", "a.prx", "Party"});

    EXPECT_EQ(plan_.Prx({"shift", "a.prx", "14"}).err, "");

    EXPECT_EQ(plan_.Days("Weeks"), "2026-03-17 2026-03-31");
    EXPECT_EQ(plan_.Days("Month"), "2026-03-18 2026-04-18");
    EXPECT_EQ(plan_.Days("Hours"), "2026-03-19 2026-03-19");
    EXPECT_EQ(plan_.Days("Day"), "2026-03-20 2026-03-23");
    EXPECT_EQ(plan_.Days("Rest"), "2026-03-18 2026-04-18");
    EXPECT_EQ(plan_.Days("Party"), "2026-03-31 2026-03-31");
    EXPECT_EQ(plan_.Days("Design"), "2026-03-16 2026-03-20");
    plan_.Output({"check", "a.prx"});
}

TEST_F(Shift, MovesWhatIsLinkedAcrossPhasesOnce) {
    plan_.Output({"add", "a.prx", "Later", "--start", "2026-03-09"});
    plan_.Output({"add", "a.prx", "Paint", "--under", "Later", "--start", "2026-03-12", "--duration", "2"});
    plan_.Output({"add", "a.prx", "Dry", "--under", "Later", "--start", "2026-03-16", "--duration", "1wks"});
    plan_.Output({"link", "a.prx", "Paint", "Build"});
    plan_.Output({"link", "a.prx", "Dry", "Paint"});
    plan_.Output({"link", "a.prx", "Dry", "Design"});
    const std::string links = R"("predecessors": [{"key": 2, "lag": 5}, {"key": 6, "lag": 0}])";
    EXPECT_TRUE(Has(plan_.Row("Dry"), links)) << plan_.Row("Dry");

    EXPECT_EQ(plan_.Prx({"shift", "a.prx", "7"}).err, "");

    EXPECT_EQ(plan_.Days("Design"), "2026-03-09 2026-03-13");
    EXPECT_EQ(plan_.Days("Build"), "2026-03-16 2026-03-17");
    EXPECT_EQ(plan_.Days("Paint"), "2026-03-19 2026-03-20");
    EXPECT_EQ(plan_.Days("Dry"), "2026-03-23 2026-03-30");
    EXPECT_TRUE(Has(plan_.Row("Dry"), links)) << plan_.Row("Dry");
    plan_.Output({"check", "a.prx"});
}

TEST_F(Shift, KeepsLeadTimesOverFreeDays) {
    plan_.Output({"calendar", "a.prx", "--holiday", "2026-03-11", "--holiday", "2026-03-16"});

    EXPECT_EQ(plan_.Prx({"shift", "a.prx", "7"}).err, "");

    EXPECT_EQ(plan_.Days("Design"), "2026-03-09 2026-03-17");
    EXPECT_EQ(plan_.Days("Build"), "2026-03-18 2026-03-19");
    EXPECT_EQ(plan_.Days("Party"), "2026-03-24 2026-03-24");
}

TEST_F(Shift, KeepsASummaryBehindWhatItWaitsFor) {
    plan_.Output({"add", "a.prx", "Later", "--start", "2026-03-09"});
    plan_.Output({"add", "a.prx", "Paint", "--under", "Later", "--start", "2026-03-11", "--duration", "1"});
    plan_.Output({"link", "a.prx", "Later", "Build"});
    plan_.Output({"calendar", "a.prx", "--holiday", "2026-03-16"});

    EXPECT_EQ(plan_.Prx({"shift", "a.prx", "7"}).err, "");

    EXPECT_EQ(plan_.Days("Build"), "2026-03-17 2026-03-18");
    EXPECT_EQ(plan_.Days("Paint"), "2026-03-19 2026-03-19");
    EXPECT_EQ(plan_.Days("Later"), "2026-03-19 2026-03-19");
}

TEST_F(Shift, MovesAFridayToAFridayAndPassesAWeekendThatWay) {
    plan_.Edit({"set", "Party", "start=2026-03-13"});
    for (const char* days : {"14", "1", "-1", "-14"}) plan_.Edit({"shift", days});
    EXPECT_EQ(plan_.Days("Party"), "2026-03-13 2026-03-13");
    plan_.Edit({"shift", "14"});
    EXPECT_EQ(plan_.Days("Party"), "2026-03-27 2026-03-27");
    plan_.Edit({"shift", "1"});
    EXPECT_EQ(plan_.Days("Party"), "2026-03-30 2026-03-30");
    plan_.Edit({"shift", "-1"});
    EXPECT_EQ(plan_.Days("Party"), "2026-03-27 2026-03-27");
}

TEST_F(Shift, MovesACircleOfLinks) {
    plan_.Output({"link", "a.prx", "Party", "Build"});
    plan_.Output({"link", "a.prx", "Phase", "Party"});
    const std::string party = plan_.Days("Party");
    const std::string phase = plan_.Days("Phase");

    EXPECT_FALSE(Has(plan_.Prx({"shift", "a.prx", "7"}).err, "did not move"));
    EXPECT_NE(plan_.Days("Party"), party);
    EXPECT_NE(plan_.Days("Phase"), phase);
    plan_.Output({"check", "a.prx"});
    plan_.Output({"shift", "a.prx", "-7"});
    EXPECT_EQ(plan_.Days("Party"), party);
    EXPECT_EQ(plan_.Days("Phase"), phase);
}

TEST_F(Shift, KeepsTheLeadBehindAMonthThatEndsOnAFreeDay) {
    plan_.Output({"add", "a.prx", "Month", "--start", "2026-03-05", "--duration", "1mons"});
    plan_.Output({"add", "a.prx", "Next", "--start", "2026-04-06", "--duration", "2"});
    plan_.Output({"link", "a.prx", "Next", "Month"});
    plan_.Edit({"shift", "-1"});
    EXPECT_EQ(plan_.Days("Month"), "2026-03-04 2026-04-04") << "a Saturday";
    plan_.Edit({"set", "Month", "start=2026-03-09"});
    EXPECT_EQ(plan_.Days("Month"), "2026-03-09 2026-04-09");
    EXPECT_EQ(plan_.Days("Next"), "2026-04-10 2026-04-13");
}

TEST_F(Shift, TellsATaskOfWhichOnlyTheEndMoves) {
    plan_.Output({"add", "a.prx", "First", "--start", "2026-03-06"});
    plan_.Output({"add", "a.prx", "Next", "--start", "2026-03-09", "--duration", "3"});
    plan_.Output({"link", "a.prx", "Next", "First"});
    plan_.Output({"calendar", "a.prx", "--holiday", "2026-03-06", "2026-03-10"});
    const Result result = plan_.Prx({"shift", "a.prx", "-1"});
    EXPECT_EQ(plan_.Days("First"), "2026-03-05 2026-03-05");
    EXPECT_EQ(plan_.Days("Next"), "2026-03-09 2026-03-12");
    EXPECT_TRUE(Has(result.out, "DateEndChange(6, 2026-03-12, False, False, days)\n")) << result.out;
    EXPECT_FALSE(Has(result.err, "Next")) << result.err;
}

TEST_F(Shift, TellsAPartOfAWeekOnceAsItIs) {
    plan_.Output({"add", "a.prx", "Part", "--start", "2026-03-03", "--duration", "0.9wks"});
    const std::string events = plan_.Edit({"shift", "1"});
    EXPECT_TRUE(Has(events,
                    "DateStartChange(5, 2026-03-04, False, False)\nDateEndChange(5, 2026-03-04, False, False, wks)\n"
                    "DurationChange(5, 0.9, wks, False, False)\nTaskDurationChange(5, 0.9, wks, False, False)\n"))
        << events;
    EXPECT_FALSE(Has(events, "(5, 1, days")) << events;
}

TEST_F(Shift, LeavesATaskWithoutDatesWithout) {
    plan_.Edit({"link", "Party", "Build"});
    std::string file = plan_.Read("a.prx");
    const std::string dated = file;
    for (const char* date : {"<TaskBDate>3/9/2026</TaskBDate>", "<TaskEDate>3/10/2026</TaskEDate>"}) {
        const std::size_t last = file.rfind(date);
        ASSERT_NE(last, std::string::npos) << date;
        file.erase(last, std::string(date).size());
    }
    plan_.Write("a.prx", file);
    ASSERT_TRUE(Has(plan_.Row("Build"), R"("start": null)")) << plan_.Row("Build");

    const Result result = plan_.Prx({"shift", "a.prx", "7"});

    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(plan_.Days("Design"), "2026-03-09 2026-03-13");
    EXPECT_EQ(plan_.Days("Party"), "2026-03-24 2026-03-24");
    EXPECT_TRUE(Has(plan_.Row("Build"), R"("start": null)")) << plan_.Row("Build");
}

TEST_F(Shift, LeavesWorkBesideTheOutline) {
    plan_.Write("t.csv", "kind,name,start,end,tasks\nphase,P,2026-03-02,2026-03-03,\ngoal,G,,,Call\n");
    plan_.Output({"import", "t.csv", "--to", "a2.prx"});
    const std::string file = plan_.Read("a2.prx");
    const auto dates_of_call = [&](const std::string& text) {
        const std::size_t name = text.find("<TaskName>Call<");
        const std::size_t begin = text.rfind("<Task>", name);
        const std::string record = text.substr(begin, text.find("</Task>", name) - begin);
        return record.substr(record.find("<TaskBDate>"), record.find("</TaskEDate>") - record.find("<TaskBDate>"));
    };
    ASSERT_TRUE(Has(dates_of_call(file), "<TaskEDate>"));
    plan_.Output({"shift", "a2.prx", "7"});
    EXPECT_EQ(dates_of_call(plan_.Read("a2.prx")), dates_of_call(file));
    EXPECT_NE(plan_.Read("a2.prx"), file);
}

TEST_F(Shift, NamesTheTasksThatTheCalendarKeepsWhereTheyAre) {
    plan_.Edit({"set", "Party", "start=2026-03-10"});
    plan_.Output({"add", "a.prx", "Clean", "--start", "2026-03-11"});
    plan_.Output({"link", "a.prx", "Clean", "Party"});
    plan_.Output({"calendar", "a.prx", "--holiday", "2026-03-09", "--holiday", "2026-03-10"});

    EXPECT_EQ(plan_.Prx({"shift", "a.prx", "-1"}).err, "prx: task 5 \"Clean\" did not move\n");
    EXPECT_EQ(plan_.Days("Party"), "2026-03-06 2026-03-06");
}

TEST_F(Shift, RefusesWhatIsNoShift) {
    for (const char* bad : {"0", "", "+", "-", "1.5", "two", "+-1", "10001", "99999999999"}) {
        EXPECT_NE(plan_.Refused({"shift", bad}), "") << bad;
    }
    EXPECT_NE(plan_.Refused({"shift"}), "");
}

TEST_F(Shift, RefusesToLeaveTheYearsThatAPlanCanHave) {
    EXPECT_NE(plan_.Refused({"shift", "-9999"}).find("it must stay within the years 2000 to"), std::string::npos);
    EXPECT_NE(plan_.Refused({"shift", "9999"}).find("it must stay within the years 2000 to"), std::string::npos);
}

TEST(ShiftOfAnExample, MovesEveryTaskAndLeavesLengthsLinksAndTheOutline) {
    const PlanFolder plan;
    const auto starts = [&] {
        std::vector<std::string> found;
        const std::string json = plan.Output({"show", "--json", "a.prx"});
        const std::string member = "\"summary\": false, ";
        for (std::size_t at = json.find(member); at != std::string::npos; at = json.find(member, at + 1)) {
            found.push_back(json.substr(json.find("\"start\": ", at), 21));
        }
        return found;
    };
    for (const char* example : kExamples) {
        plan.CopyExample(example, "a.prx");
        const std::string drawing = plan.Drawing();
        std::vector<std::string> before = starts();
        ASSERT_GT(before.size(), 20U);
        for (const char* days : {"7", "-7", "30", "-1"}) {
            SCOPED_TRACE(std::string(example) + " " + days);
            EXPECT_EQ(plan.Prx({"shift", "a.prx", days}).err, "");  // no link is any closer, and no task stays
            plan.Output({"check", "a.prx"});
            const std::vector<std::string> now = starts();
            ASSERT_EQ(now.size(), before.size());
            for (std::size_t i = 0; i < now.size(); ++i) EXPECT_NE(now[i], before[i]) << i;
            before = now;
        }
        EXPECT_EQ(plan.Drawing(), drawing);
    }
}

TEST(ShiftOfAnExample, ComesBackWhereNoDayIsFree) {
    const PlanFolder plan;
    plan.CopyExample("orchard.prx", "a.prx");
    const std::string before = plan.Output({"show", "--json", "a.prx"});
    plan.Edit({"shift", "7"});
    EXPECT_NE(plan.Output({"show", "--json", "a.prx"}), before);
    plan.Edit({"shift", "-7"});
    EXPECT_EQ(plan.Output({"show", "--json", "a.prx"}), before);
}

TEST(ShiftOfAnEmptyPlan, DoesNothing) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    EXPECT_EQ(plan.Edit({"shift", "7"}), "");
}

}  // namespace prx_test
