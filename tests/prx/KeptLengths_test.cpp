#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Before (a Monday), 2 Half (a part of the Tuesday behind it), 3 Behind, each waits for the one before.
class KeptLengths : public testing::Test {
protected:
    KeptLengths() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Before", "--start", "2026-12-07", "--duration", "1"});
        plan_.Output({"add", "a.prx", "Half", "--start", "2026-12-08", "--duration", "0.5"});
        plan_.Output({"add", "a.prx", "Behind", "--start", "2026-12-09", "--duration", "0.25"});
        plan_.Output({"link", "a.prx", "Half", "Before"});
        plan_.Output({"link", "a.prx", "Behind", "Half"});
    }
    void ExpectOn(const std::string& half, const std::string& behind) const {
        EXPECT_EQ(plan_.Days("Half"), half + " " + half);
        EXPECT_EQ(plan_.Days("Behind"), behind + " " + behind);
        EXPECT_TRUE(Has(plan_.Row("Half"), R"("duration": 0.5)")) << plan_.Row("Half");
        EXPECT_TRUE(Has(plan_.Row("Behind"), R"("duration": 0.25)")) << plan_.Row("Behind");
    }
    const PlanFolder plan_;
};

}  // namespace

TEST_F(KeptLengths, LastsATaskOfAPartOfADayThatStartsElsewhere) {
    plan_.Edit({"set", "Half", "start=2026-12-11"});
    ExpectOn("2026-12-11", "2026-12-14");
}

TEST_F(KeptLengths, GivesNoTaskDatesThatHasNone) {
    std::string file = plan_.Read("a.prx");
    for (const char* date : {"TaskBDate", "TaskEDate"}) {
        file = Replaced(file, std::string("<") + date + ">12/8/2026</" + date + ">", "");
    }
    plan_.Write("a.prx", file);
    const Result edited = plan_.Prx({"set", "a.prx", "Before", "done=50"});
    EXPECT_EQ(edited.status, 0) << edited.err;
    EXPECT_FALSE(Has(edited.out, "(2, ")) << edited.out;
    EXPECT_TRUE(Has(plan_.Row("Half"), R"("start": null)")) << plan_.Row("Half");
}

TEST_F(KeptLengths, LastsOneThatFollowsAnotherTask) {
    plan_.Edit({"set", "Before", "duration=4"});
    ExpectOn("2026-12-11", "2026-12-14");
    plan_.Edit({"set", "Before", "end=2026-12-08"});
    ExpectOn("2026-12-09", "2026-12-10");
}

TEST_F(KeptLengths, LastsOneThatIsLinkedShiftedOrMoved) {
    plan_.Edit({"link", "Behind", "Before", "--lag", "3"});
    ExpectOn("2026-12-08", "2026-12-11");
    plan_.Edit({"shift", "7"});
    EXPECT_EQ(plan_.Days("Behind"), "2026-12-18 2026-12-18");
    plan_.Edit({"indent", "Behind"});
    plan_.Edit({"outdent", "Behind"});
    const std::string days = plan_.Days("Behind");
    EXPECT_EQ(days.substr(0, 10), days.substr(11));
}

TEST_F(KeptLengths, LastsMostOfAWeekOrMonthThatGotADay) {
    plan_.Edit({"set", "Half", "duration=0.9wks"});
    plan_.Edit({"set", "Behind", "duration=0.6mons"});
    const auto expect_on = [&](const std::string& half, const std::string& behind) {
        EXPECT_EQ(plan_.Days("Half"), half + " " + half);
        EXPECT_EQ(plan_.Days("Behind"), behind + " " + behind);
        EXPECT_TRUE(Has(plan_.Row("Half"), R"("duration": 0.9, "unit": "wks")")) << plan_.Row("Half");
        EXPECT_TRUE(Has(plan_.Row("Behind"), R"("duration": 0.6, "unit": "mons")")) << plan_.Row("Behind");
    };
    expect_on("2026-12-08", "2026-12-09");
    plan_.Edit({"set", "Before", "duration=4"});
    expect_on("2026-12-11", "2026-12-14");
    plan_.Edit({"set", "Half", "start=2026-12-14"});
    expect_on("2026-12-14", "2026-12-15");
    plan_.Edit({"shift", "7"});
    expect_on("2026-12-21", "2026-12-22");
}

TEST_F(KeptLengths, LastsAMonthBelowASummaryThatMoves) {
    plan_.Output({"add", "a.prx", "Phase", "--start", "2026-12-09"});
    plan_.Output({"add", "a.prx", "First", "--under", "Phase", "--start", "2026-12-09", "--duration", "1"});
    plan_.Output({"add", "a.prx", "Month", "--under", "Phase", "--start", "2026-12-10", "--duration", "1mons"});
    plan_.Output({"add", "a.prx", "Next", "--start", "2027-01-13", "--duration", "2"});
    plan_.Output({"link", "a.prx", "Next", "Month", "--lag", "1"});
    EXPECT_EQ(plan_.Days("Next"), "2027-01-12 2027-01-13");
    plan_.Output({"link", "a.prx", "Phase", "Before", "--lag", "2"});
    EXPECT_EQ(plan_.Days("Month"), "2026-12-11 2027-01-11");
    EXPECT_EQ(plan_.Days("Phase"), "2026-12-10 2027-01-11");
    EXPECT_EQ(plan_.Days("Next"), "2027-01-13 2027-01-14");
    plan_.Output({"check", "a.prx"});
}

TEST_F(KeptLengths, LeavesASummaryItsOwnLength) {
    plan_.Edit({"set", "Half", "duration=0.9wks"});
    plan_.Edit({"unlink", "Behind"});
    plan_.Edit({"indent", "Behind"});
    EXPECT_TRUE(Has(plan_.Row("Half"), R"("duration": 1, "unit": "days")")) << plan_.Row("Half");
}

TEST_F(KeptLengths, TellsTheLengthThatATaskHas) {
    const std::string told = plan_.Edit({"set", "Half", "start=2026-12-11"});
    EXPECT_TRUE(
        told.ends_with("DurationChange(2, 0.5, days, False, False)\n"
                       "TaskDurationChange(2, 0.5, days, False, False)\n"
                       "DurationChange(3, 0.25, days, False, False)\n"
                       "TaskDurationChange(3, 0.25, days, False, False)\n"))
        << told;
}

TEST_F(KeptLengths, LeavesATaskTheLengthThatItIsGiven) {
    plan_.Edit({"set", "Half", "duration=1"});
    EXPECT_TRUE(Has(plan_.Row("Half"), R"("duration": 1,)")) << plan_.Row("Half");
    plan_.Edit({"set", "Behind", "unit=hrs"});
    EXPECT_TRUE(Has(plan_.Row("Behind"), R"("duration": 0.25)")) << plan_.Row("Behind");
    EXPECT_TRUE(Has(plan_.Row("Behind"), R"("unit": "hrs")")) << plan_.Row("Behind");
}

}  // namespace prx_test
