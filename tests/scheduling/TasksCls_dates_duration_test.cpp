#include <gtest/gtest.h>

#include "tests/scheduling/DatedRow.h"

namespace mrlxmlclass {
namespace {

using namespace testing;
using Row = DatedRow;

TEST(TaskDuration, StopsAt999BelowAParentOnly) {
    Row row;
    row.Holding(Monday, Monday, 1);
    row.task.TaskDuration(1500);
    EXPECT_EQ(row.task.TaskDuration(), 1500);
    row.task.ParentID(4);
    row.task.TaskDuration(1500);
    EXPECT_EQ(row.task.TaskDuration(), 999);
    row.task.TaskDuration(999.5);
    EXPECT_EQ(row.task.TaskDuration(), 999);
    row.task.TaskDuration(-5);
    EXPECT_EQ(row.task.TaskDuration(), -5);
}

TEST(TaskDuration, MovesTheEnd) {
    struct Case {
        Date start;
        double duration;
        Date end;
    };
    for (const Case& c : {Case{Thursday, 3, Monday + 7}, Case{Monday, 1, Monday}, Case{Monday, 2.5, Wednesday},
                          Case{Monday, 3, Wednesday}, Case{Saturday, 1, Saturday}, Case{Saturday, 2, Monday + 7}}) {
        SCOPED_TRACE(DayName(c.start));
        Row row;
        row.Holding(c.start, Friday + 70, 9);
        In(row.task).TaskDurationValid_Int(False);
        row.task.TaskDuration(c.duration);
        EXPECT_EQ(row.task.TaskBDate(), c.start);
        EXPECT_EQ(row.task.TaskEDate(), c.end);
        EXPECT_EQ(row.task.TaskDurationValid(), True);
    }
}

TEST(TaskDuration, LeavesTheEndAloneBelowOne) {
    for (const double duration : {0.5, 0.0, -3.0}) {
        Row row;
        row.Holding(Monday, Friday, 5);
        row.task.TaskDuration(duration);
        EXPECT_EQ(row.task.TaskEDate(), Friday);
        EXPECT_EQ(row.task.TaskDuration(), duration);
    }
}

TEST(TaskDuration, StoresOnlyOnAMilestone) {
    Row row;
    row.Holding(Monday, Monday, 0);
    row.task.TaskMilstones(True);
    row.task.TaskDuration(5);
    EXPECT_EQ(row.Drawn(), Drawing(Monday, Monday, 5));
}

TEST(TaskDuration, FindsAStartFromTheEndOrFromToday) {
    Row from_end;
    from_end.Holding(Date(), Wednesday, 0);
    from_end.task.TaskDuration(3);
    EXPECT_EQ(from_end.Drawn(), Drawing(Monday, Wednesday, 3));
    Row from_today;
    from_today.clock.now = Saturday + kTenOClock;
    from_today.task.TaskDuration(2);
    EXPECT_EQ(from_today.Drawn(), Drawing(Monday + 7, Tuesday + 7, 2));
    EXPECT_EQ(from_today.task.TaskBDateValid(), False);
    EXPECT_EQ(from_today.task.TaskEDateValid(), False);
    Row nothing;
    nothing.task.TaskDuration(0);
    EXPECT_EQ(nothing.Drawn(), "- - 0");
    Row below_one;
    below_one.task.TaskDuration(0.5);
    EXPECT_EQ(below_one.task.TaskBDate(), Monday);
    EXPECT_EQ(below_one.task.TaskEDate(), Date());
}

}  // namespace
}  // namespace mrlxmlclass
