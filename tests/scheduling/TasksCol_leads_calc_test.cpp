#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Build waits for Design. Their dates are stored as they stand, without any rule.
class Linked : public Plan {
public:
    Linked(Date design_end, Date build_start) {
        WithLinks().Task("Design").Task("Build");
        In((*this)["Design"]).StoreEnd(design_end);
        In((*this)["Build"]).StoreStart(build_start);
        (*this)["Build"].TaskPredecessor()->Add("1", "1");
    }
    Integer StoredGap() { return col().CalcLeadTime("2"); }
    String Stored() { return Listed((*this)["Build"].TaskLeadTime()); }
};

struct LeadRow {
    const char* what;
    Date design_end;
    Date build_start;
    const char* stored;
    int given;
};

TEST(CalcLeadTime, MeasuresTheGapInWorkingDays) {
    const Date next_monday = Monday + 7;
    for (const LeadRow& gap : {
             LeadRow{"the next day", Monday, Tuesday, "1|0", 0},
             LeadRow{"two days between", Monday, Thursday, "1|2", 2},
             LeadRow{"the Monday after a Friday", Friday, next_monday, "1|0", 0},
             LeadRow{"the Tuesday after a Friday", Friday, next_monday + 1, "1|1", 1},
             LeadRow{"the Monday after a Saturday", Saturday, next_monday, "1|-1", 0},
             LeadRow{"over two weekends", Thursday, Monday + 15, "1|7", 7},
             LeadRow{"the end's own day", Monday, Monday, "1|-1", 0},
             LeadRow{"two days before the end", Friday, Wednesday, "1|-3", 0},
             LeadRow{"an overlap across a weekend", next_monday, Friday, "1|-2", 0},
             LeadRow{"an overlap of free days only", Saturday, Saturday, "1|-1", 0},
             LeadRow{"the free days before the end", Sunday, Saturday, "1|-1", 0},
         }) {
        SCOPED_TRACE(gap.what);
        Linked plan(gap.design_end, gap.build_start);
        EXPECT_EQ(plan.StoredGap(), gap.given);
        EXPECT_EQ(plan.Stored(), gap.stored);
    }
}

TEST(CalcLeadTime, KnowsHolidays) {
    Linked plan(Monday, Thursday);
    plan.calendar().SetADayAsHoliday(Tuesday);
    EXPECT_EQ(plan.StoredGap(), 1);
}

TEST(CalcLeadTime, TakesTheDayOfAnEndAndNotItsTime) {
    Linked plan(Monday + 0.75, Tuesday + 0.25);
    EXPECT_EQ(plan.StoredGap(), 0);
    EXPECT_EQ(plan.Stored(), "1|0");
}

TEST(CalcLeadTime, StoresNothingWithoutLiveLinks) {
    Plan plan;
    plan.Task("Design").From(Monday).Task("Build").From(Friday);
    plan["Build"].TaskPredecessor()->Add("1", "1");
    EXPECT_EQ(plan.col().CalcLeadTime("2"), 0);
    EXPECT_EQ(plan["Build"].TaskLeadTime()->Count(), 0);
}

TEST(CalcLeadTime, IsZeroForAnUnknownTaskAndWithoutPredecessors) {
    Plan plan;
    plan.WithLinks().Task("Build").From(Friday);
    EXPECT_EQ(plan.col().CalcLeadTime("77"), 0);
    EXPECT_EQ(plan.col().CalcLeadTime("1"), 0);
    EXPECT_FALSE(plan["Build"].TaskPredecessorValid()) << "asking makes no collection";
}

TEST(CalcLeadTime, EndsAtATaskWithoutAStart) {
    Linked plan(Monday, Date());
    EXPECT_EQ(plan.StoredGap(), 0);
    EXPECT_EQ(plan.Stored(), "");
}

TEST(CalcLeadTime, GivesTheLargestGapAndKeepsStoringEachAnewInTheLinksOrder) {
    Linked plan(Monday, Friday);
    plan.Task("Test").To(Wednesday);
    plan["Build"].TaskPredecessor()->Add("3", "3");
    plan.col().AddLeadTime("2", "3", 99);
    plan.col().AddLeadTime("2", "1", 99);
    EXPECT_EQ(plan.StoredGap(), 3);
    EXPECT_EQ(plan.Stored(), "1|3 3|1");
}

TEST(CalcLeadTime, KeepsTheLagOfThePredecessorBeforeOneWithoutAnEnd) {
    Linked plan(Monday, Friday);
    plan.WithoutWeekends().Task("Undated");
    plan["Build"].TaskPredecessor()->Add("3", "3");
    EXPECT_EQ(plan.StoredGap(), 3);
    EXPECT_EQ(plan.Stored(), "1|3 3|2");
}

TEST(CalcLeadTime, StartsFromZeroWhenTheFirstPredecessorHasNoEnd) {
    Linked plan(Date(), Friday);
    EXPECT_EQ(plan.StoredGap(), 0);
    EXPECT_EQ(plan.Stored(), "1|-1");
}

TEST(CalcLeadTime, EndsAtAPredecessorThatIsNotThere) {
    Linked plan(Monday, Friday);
    plan["Build"].TaskPredecessor()->Add("77", "77");
    EXPECT_EQ(plan.StoredGap(), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CalcLeadTime 91\n");
    EXPECT_EQ(plan.Stored(), "1|3") << "what was measured before stays";
}

TEST(CalcLeadTime, RecordsAGapThatNoIntegerHolds) {
    Linked plan(Date::Of(1900, 1, 2), Date::Of(2026, 3, 2));
    EXPECT_EQ(plan.StoredGap(), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/CalcLeadTime 6\n");
}

}  // namespace
}  // namespace mrlxmlclass
