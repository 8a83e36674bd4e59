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

TEST_F(Shift, TellsHowManyTasksStayWhereTheyAre) {
    plan_.Edit({"set", "Party", "unit=wks"});

    const Result result = plan_.Prx({"shift", "a.prx", "14"});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "prx: 1 of 3 tasks did not move\n");
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

TEST(ShiftOfAnExample, LeavesTheOutlineWhole) {
    const PlanFolder plan;
    for (const char* example : kExamples) {
        plan.CopyExample(example, "a.prx");
        const std::string drawing = plan.Drawing();
        for (const char* days : {"7", "-7", "30", "-1"}) plan.Edit({"shift", days});
        EXPECT_EQ(plan.Drawing(), drawing);
    }
}

TEST(ShiftOfAnEmptyPlan, DoesNothing) {
    const PlanFolder plan;
    plan.Output({"new", "a.prx"});
    EXPECT_EQ(plan.Edit({"shift", "7"}), "");
}

}  // namespace prx_test
