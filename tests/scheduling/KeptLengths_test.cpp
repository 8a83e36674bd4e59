#include "mrlxmlclass/scheduling/KeptLengths.h"

#include <gtest/gtest.h>

#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(KeptLengths, GivesShortTasksADayAndTheirLengthBackWithoutAWord) {
    Plan plan;
    plan.Task("Half").From(Monday).Lasting(0.5).Task("Week").From(Monday).Lasting(0.5, "wks");
    plan.Task("Hours").From(Monday).Lasting(0.5, "hrs").Task("Long").From(Monday).Lasting(1.5);
    plan.Task("Never").Holding({}, {}, 0.5);
    plan.Heard();
    {
        const KeptLengths aside(plan.app->xTaskCol());
        EXPECT_EQ(plan["Half"].TaskDuration(), 1);
        EXPECT_EQ(plan["Week"].TaskDuration(), 1);
        EXPECT_EQ(plan["Week"].TaskDurationUnit(), "days");
        EXPECT_EQ(plan["Hours"].TaskDuration(), 0.5);
        EXPECT_EQ(plan["Long"].TaskDuration(), 1.5);
        EXPECT_EQ(plan["Never"].TaskDuration(), 0.5);
    }
    EXPECT_EQ(plan["Half"].TaskDuration(), 0.5);
    EXPECT_EQ(plan["Week"].TaskDuration(), 0.5);
    EXPECT_EQ(plan["Week"].TaskDurationUnit(), "wks");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(KeptLengths, TellsTheLengthOfWhatWasToldOtherwise) {
    Plan plan;
    plan.Task("Half").From(Monday).Lasting(0.5).Task("Week").From(Monday).Lasting(0.5, "wks");
    plan.Task("Quiet").From(Monday).Lasting(0.5);
    plan.Heard();
    const auto move = [&](const String& name, Date start) {
        plan.col().DependsDateChanged(plan.Key(name), start, 1, /*LeadTimeCalc=*/True);
    };
    {
        const KeptLengths aside(plan.app->xTaskCol());
        move("Half", Monday);
        move("Week", Tuesday);
        plan["Quiet"].TaskBDate(Tuesday);
        EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + Moved(2, Tuesday, Tuesday, 1));
    }
    EXPECT_EQ(plan.Heard(),
              "DurationChange(1, 0.5, days, False, False)\nTaskDurationChange(1, 0.5, days, False, False)\n"
              "DateEndChange(2, 2026-03-03, False, False, wks)\n"
              "DurationChange(2, 0.5, wks, False, False)\nTaskDurationChange(2, 0.5, wks, False, False)\n");
    {
        const KeptLengths aside(plan.app->xTaskCol(), nullptr, KeptLengths::Tells::kNothing);
        move("Half", Wednesday);
        plan.Heard();
    }
    EXPECT_EQ(plan.Heard(), "");
}

TEST(KeptLengths, LeavesTheOneThatIsGivenALength) {
    Plan plan;
    plan.Task("Half").From(Monday).Lasting(0.5).Task("Other").From(Monday).Lasting(0.25);
    {
        const KeptLengths aside(plan.app->xTaskCol(), &plan["Half"]);
        EXPECT_EQ(plan["Half"].TaskDuration(), 0.5);
        plan["Other"].TaskDuration(4);
    }
    EXPECT_EQ(plan["Half"].TaskDuration(), 0.5);
    EXPECT_EQ(plan["Other"].TaskDuration(), 4) << "it was given another meanwhile";
}

/// 1 House (2 Walls, 3 Print of two weeks behind it), 4 Sale waits for Print.
class PrintHouse : public Plan {
public:
    explicit PrintHouse(Integer lead) {
        WithLinks().Task("House").Task("Walls").Under("House").From(Tuesday).Lasting(1);
        Task("Print").Under("House").From(Thursday).Lasting(2, "wks");
        Task("Sale").From(Monday + 21).Lasting(2).After("Print", lead);
        col().AdjustSummary("1");
        Heard();
    }
    void Move(Date start) {
        col().SummaryTaskDateChanged2("1", start, {}, /*CalcLead=*/True, {}, {}, /*p_form_scheduler=*/False);
    }
    String Days(const String& name) const {
        return DayName((*this)[name].TaskBDate()) + " " + DayName((*this)[name].TaskEDate());
    }
};

TEST(KeptLengths, GivesWeeksBelowASummaryTheirEndBackAndTakesAlongWhatWaits) {
    PrintHouse plain(1);
    plain.Move(Friday);
    EXPECT_EQ(plain.Days("Print"), "2026-03-10 2026-03-12") << "the walk counts weeks as days";

    PrintHouse plan(1);
    ASSERT_EQ(plan.Days("Print"), "2026-03-05 2026-03-19");
    ASSERT_EQ(plan.Days("Sale"), "2026-03-23 2026-03-24");
    {
        const KeptLengths aside(plan.app->xTaskCol());
        plan.Move(Friday);
        plan.Heard();
    }
    EXPECT_EQ(plan.Days("Print"), "2026-03-10 2026-03-24");
    EXPECT_EQ(plan.Days("Sale"), "2026-03-26 2026-03-27") << "a working day free, as before";
    EXPECT_EQ(plan.Days("House"), "2026-03-06 2026-03-24");
    const Told print{.key = 3, .start = Monday + 8, .end = Monday + 22, .duration = 2, .unit = "wks"};
    EXPECT_EQ(plan.Heard(), print.Moved() + Moved(4, Monday + 24, Monday + 25, 2) + Summed(1, Friday, Monday + 22, 13));
}

TEST(KeptLengths, LeavesAFollowerThatWaitsNoMore) {
    PrintHouse plan(1);
    {
        const KeptLengths aside(plan.app->xTaskCol());
        plan.Move(Friday);
        plan.col().RemoveTaskPredecessor(plan.Key("Sale"), plan.Key("Print"));
    }
    EXPECT_EQ(plan.Days("Print"), "2026-03-10 2026-03-24");
    EXPECT_EQ(plan["Sale"].TaskLeadTime()->Count(), 0);
}

TEST(KeptLengths, KeepsHalfADayOnItsDayBehindWeeks) {
    PrintHouse plan(1);
    plan.Task("Half").From(Wednesday + 21).Lasting(0.5).After("Sale");
    {
        const KeptLengths aside(plan.app->xTaskCol());
        plan.Move(Friday);
    }
    EXPECT_EQ(plan.Days("Sale"), "2026-03-26 2026-03-27");
    EXPECT_EQ(plan.Days("Half"), "2026-03-30 2026-03-30");
    EXPECT_EQ(plan["Half"].TaskDuration(), 0.5);
}

TEST(KeptLengths, LeavesWeeksThatStandAndThoseThatAreGivenAnotherLength) {
    PrintHouse plan(1);
    {
        const KeptLengths aside(plan.app->xTaskCol());
        plan["Walls"].TaskBDate(Monday);
    }
    EXPECT_EQ(plan.Heard(), "");
    {
        const KeptLengths aside(plan.app->xTaskCol());
        plan["Print"].TaskDuration(1);
        plan["Print"].TaskEDate(Thursday + 1);
    }
    EXPECT_EQ(plan["Print"].TaskDuration(), 1);
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
