#include "mrlxmlclass/scheduling/HeldDates.h"

#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// 1 Phase (2 A, 3 B waits for it), 4 C waits for B, a working day behind.
class Row : public Plan {
public:
    Row() {
        WithLinks().Task("Phase").Task("A").Under("Phase").From(Monday).Lasting(2);
        Task("B").Under("Phase").From(Wednesday).Lasting(1).After("A").Task("C").From(Friday).Lasting(2).After("B", 1);
        col().AdjustSummary("1");
        Heard();
    }
    Ref<TasksCol> tasks() const { return app->xTaskCol(); }
};

TEST(HeldDates, PutsBackWhatWasMovedWithoutAWordInSilence) {
    Row plan;
    {
        const HeldDates held(plan.tasks());
        plan["C"].TaskBDate(NextMonday + 14);
    }
    EXPECT_EQ(plan["C"].TaskBDate(), Friday);
    EXPECT_EQ(plan["C"].TaskEDate(), NextMonday);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(HeldDates, GivesTheDaysBackThatWereHeldWhateverTheCalendarSaysNow) {
    Row plan;
    plan.calendar().SetADayAsHoliday(Friday);
    {
        const HeldDates held(plan.tasks());
        plan["C"].TaskBDate(NextMonday + 14);
    }
    EXPECT_EQ(plan["C"].TaskBDate(), Friday);
    EXPECT_EQ(plan["C"].TaskEDate(), NextMonday);
    EXPECT_EQ(plan["C"].TaskDuration(), 2);
}

TEST(HeldDates, LeavesWhatWasTold) {
    Row plan;
    {
        const HeldDates held(plan.tasks());
        plan.col().DependsDateChanged("3", NextMonday, 1, /*LeadTimeCalc=*/True);
        plan.Heard();
    }
    EXPECT_EQ(plan["B"].TaskBDate(), NextMonday);
    EXPECT_EQ(plan["C"].TaskBDate(), NextMonday + 2);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(HeldDates, LetsTheSummaryFollow) {
    Row plan;
    {
        const HeldDates held(plan.tasks());
        plan["B"].TaskBDate(NextMonday);
        plan.col().AdjustSummary("1");
        plan.Heard();
    }
    EXPECT_EQ(plan["Phase"].TaskEDate(), Wednesday);
    EXPECT_EQ(plan.Heard(), Summed(1, Monday, Wednesday, 3));
}

TEST(HeldDates, PutsBackWhatABridgeMovesUnheard) {
    Row plan;
    plan.Task("D").From(Monday).Lasting(1);
    plan.About("C").After("D", 3);
    plan.col().AutoLink(True);
    plan.col().Phases();
    {
        const HeldDates held(plan.tasks());
        plan.col().Remove("3", {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True, /*p_sort=*/True, /*p_arrange=*/True);
        EXPECT_NE(plan["C"].TaskBDate(), Friday);
    }
    EXPECT_EQ(plan["C"].TaskBDate(), Friday);
    EXPECT_EQ(plan["C"].TaskEDate(), NextMonday);
    EXPECT_EQ(Links(plan), "A -> C\nC <- A|2 D|3\nD -> C\n") << "two working days behind A, three behind D";
}

TEST(HeldDates, LeavesWhatWentAndWhatBecameASummary) {
    Row plan;
    plan.Task("D").From(Tuesday);
    {
        const HeldDates held(plan.tasks());
        plan.col().RemoveForLib("4");
        plan.About("D").Task("Part").Under("D").From(Friday);
        plan["D"].TaskBDate(Friday);
    }
    EXPECT_EQ(plan["D"].TaskBDate(), Friday);
}

}  // namespace
}  // namespace mrlxmlclass
