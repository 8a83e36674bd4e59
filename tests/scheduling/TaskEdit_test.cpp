#include "mrlxmlclass/scheduling/TaskEdit.h"

#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(StoreStart, LeavesLinksAndLagAside) {
    Plan plan;
    plan.WithLinks().Task("A").From(Monday).Task("B").From(Tuesday).Lasting(2).After("A");
    plan["B"].TaskLag(3);
    plan.Heard();
    StoreStart(plan["B"], Monday);
    EXPECT_EQ(plan["B"].TaskBDate(), Monday);
    EXPECT_EQ(plan["B"].TaskEDate(), Tuesday);
    EXPECT_EQ(plan["B"].TaskLag(), 0);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(StoreStart, GivesTheFirstEndTheLengthThatTheTaskHas) {
    Plan plan;
    plan.Task("A").Holding({}, {}, 3);
    StoreStart(plan["A"], Thursday);
    EXPECT_EQ(plan["A"].TaskEDate(), NextMonday);
    EXPECT_EQ(plan["A"].TaskDuration(), 3);
}

/// 1 Phase (2 Work, 3 Next waits for it).
class Edited : public Plan {
public:
    explicit Edited(Double length = 2, const String& unit = "days") {
        WithLinks().Task("Phase").Task("Work").Under("Phase").From(Monday).Lasting(length, unit);
        const Date behind = (*this)["Work"].TaskEDate() + 1;
        Task("Next").Under("Phase").From(behind).Lasting(1).After("Work");
        col().AdjustSummary("1");
        Heard();
    }
    TaskEdit Work(bool announced = true) const {
        return TaskEdit(app->xTaskCol(), app->xTaskCol()->Item(2), announced);
    }
    /// The walk adjusts the summary of what waits, the edit that of the task.
    static String MovedToThursday() {
        const String summed = Summed(1, Thursday, NextMonday, 3);
        return Moved(2, Thursday, Friday, 2) + Moved(3, NextMonday, NextMonday, 1) + summed + summed;
    }
    String Days(const String& name) const {
        return DayName((*this)[name].TaskBDate()) + " " + DayName((*this)[name].TaskEDate());
    }
};

TEST(TaskEdit, MovesAStartWithWhatWaitsAndTheSummary) {
    Edited plan;
    plan.Work().MoveStart(Thursday);
    EXPECT_EQ(plan.Heard(), Edited::MovedToThursday());
    plan.Work().MoveStart(Saturday);
    EXPECT_EQ(plan.Days("Work"), "2026-03-09 2026-03-10");
}

TEST(TaskEdit, MovesTheStartOfATaskInWeeksOrMonths) {
    for (const char* unit : {"wks", "mons"}) {
        SCOPED_TRACE(unit);
        Edited plan(1, unit);
        plan.Work().MoveStart(Tuesday);
        EXPECT_EQ(plan["Work"].TaskBDate(), Tuesday);
        EXPECT_EQ(plan["Work"].TaskDuration(), 1);
        EXPECT_GT(plan["Next"].TaskBDate(), plan["Work"].TaskEDate());
        EXPECT_EQ(plan["Phase"].TaskBDate(), Tuesday);
        EXPECT_EQ(plan["Phase"].TaskEDate(), plan["Next"].TaskEDate());
    }
}

TEST(TaskEdit, MovesAnEnd) {
    Edited plan;
    plan.Work().MoveEnd(Friday);
    EXPECT_EQ(plan.Days("Work"), "2026-03-02 2026-03-06");
    EXPECT_EQ(plan["Work"].TaskDuration(), 5);
    EXPECT_EQ(plan.Days("Next"), "2026-03-09 2026-03-09");
    EXPECT_EQ(plan.Days("Phase"), "2026-03-02 2026-03-09");
}

TEST(TaskEdit, ChangesALengthInAnyUnit) {
    struct Row {
        Double length;
        const char* unit;
        const char* days;
    };
    for (const Row& row : {Row{4, "", "2026-03-02 2026-03-05"}, Row{4, "days", "2026-03-02 2026-03-05"},
                           Row{1.5, "", "2026-03-02 2026-03-03"}, Row{0.5, "", "2026-03-02 2026-03-02"},
                           Row{3, "hrs", "2026-03-02 2026-03-02"}, Row{2, "wks", "2026-03-02 2026-03-16"},
                           Row{1, "mons", "2026-03-02 2026-04-02"}, Row{0, "", "2026-03-02 2026-03-02"}}) {
        SCOPED_TRACE(std::to_string(row.length) + row.unit);
        Edited plan;
        plan.Work().ChangeLength(row.length, row.unit);
        EXPECT_EQ(plan.Days("Work"), row.days);
        EXPECT_EQ(plan["Work"].TaskDuration(), row.length);
        EXPECT_EQ(plan["Work"].TaskDurationUnit(), row.unit[0] == 0 ? "days" : row.unit);
        EXPECT_EQ(plan["Work"].TaskMilstones(), Boolean(row.length == 0));
        EXPECT_NE(plan.Heard(), "");
    }
}

TEST(TaskEdit, MakesAMilestoneOnTheDayOfItsStart) {
    Edited plan;
    plan.Work().MakeMilestone();
    EXPECT_EQ(plan.Days("Work"), "2026-03-02 2026-03-02");
    EXPECT_EQ(plan["Work"].TaskDuration(), 0);
    plan.Work().ChangeLength(1);
    EXPECT_EQ(plan["Work"].TaskMilstones(), False);
    EXPECT_EQ(plan["Work"].TaskDuration(), 1);
}

TEST(TaskEdit, LeavesAFreeDayBeforeALengthIsCounted) {
    Edited plan;
    EXPECT_FALSE(plan.Work().LeaveFreeDay());
    plan.calendar().SetADayAsHoliday(Monday);
    plan.Work().ChangeLength(1);
    EXPECT_EQ(plan.Days("Work"), "2026-03-03 2026-03-03");
    plan.calendar().SetADayAsHoliday(Tuesday);
    EXPECT_TRUE(plan.Work().LeaveFreeDay());
    EXPECT_EQ(plan["Work"].TaskBDate(), Wednesday);
    plan.calendar().SetADayAsHoliday(Wednesday);
    plan.Work().MoveEnd(Friday);
    EXPECT_EQ(plan.Days("Work"), "2026-03-05 2026-03-06");
}

TEST(TaskEdit, TakesNothingAlongBeforeTheTaskIsAnnounced) {
    Edited plan;
    TaskEdit edit = plan.Work(/*announced=*/false);
    edit.MoveStart(Tuesday);
    edit.ChangeLength(3);
    EXPECT_EQ(plan.Days("Work"), "2026-03-03 2026-03-05");
    edit.MoveEnd(Friday);
    EXPECT_EQ(plan["Work"].TaskDuration(), 4);
    edit.MakeMilestone();
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.Days("Next"), "2026-03-04 2026-03-04");
}

TEST(TaskEdit, TellsDatesThatWereStored) {
    Edited plan;
    StoreStart(plan["Work"], Thursday);
    EXPECT_EQ(plan.Heard(), "");
    plan.Work().Follow();
    EXPECT_EQ(plan.Heard(), Edited::MovedToThursday());
}

}  // namespace
}  // namespace mrlxmlclass
