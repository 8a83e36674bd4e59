#include "mrlxmlclass/scheduling/OneDayEach.h"

#include <gtest/gtest.h>

#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(OneDayEach, GivesShortTasksADayAndTheirLengthBackWithoutAWord) {
    Plan plan;
    plan.Task("Half").From(Monday).Lasting(0.5).Task("Week").From(Monday).Lasting(0.5, "wks");
    plan.Task("Hours").From(Monday).Lasting(0.5, "hrs").Task("Long").From(Monday).Lasting(1.5);
    plan.Task("Never").Holding({}, {}, 0.5);
    plan.Heard();
    {
        const OneDayEach aside(plan.app->xTaskCol());
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

TEST(OneDayEach, TellsTheLengthOfWhatMoved) {
    Plan plan;
    plan.Task("Half").From(Monday).Lasting(0.5).Task("Week").From(Monday).Lasting(0.5, "wks");
    plan.Heard();
    {
        const OneDayEach aside(plan.app->xTaskCol());
        plan["Half"].TaskBDate(Tuesday);
        plan["Week"].TaskBDate(Tuesday);
    }
    EXPECT_EQ(plan.Heard(),
              "DurationChange(1, 0.5, days, False, False)\nTaskDurationChange(1, 0.5, days, False, False)\n"
              "DateEndChange(2, 2026-03-03, False, False, wks)\n"
              "DurationChange(2, 0.5, wks, False, False)\nTaskDurationChange(2, 0.5, wks, False, False)\n");
    {
        const OneDayEach aside(plan.app->xTaskCol(), nullptr, OneDayEach::Told::kNothing);
        plan["Half"].TaskBDate(Wednesday);
    }
    EXPECT_EQ(plan.Heard(), "");
}

TEST(OneDayEach, LeavesTheOneThatIsGivenALength) {
    Plan plan;
    plan.Task("Half").From(Monday).Lasting(0.5).Task("Other").From(Monday).Lasting(0.25);
    {
        const OneDayEach aside(plan.app->xTaskCol(), &plan["Half"]);
        EXPECT_EQ(plan["Half"].TaskDuration(), 0.5);
        plan["Other"].TaskDuration(4);
    }
    EXPECT_EQ(plan["Half"].TaskDuration(), 0.5);
    EXPECT_EQ(plan["Other"].TaskDuration(), 4) << "it was given another meanwhile";
}

}  // namespace
}  // namespace mrlxmlclass
