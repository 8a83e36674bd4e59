#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

TEST(TellStart, CarriesTheDateAndTheFlags) {
    Plan plan;
    plan.Task("Gate").From(Tuesday).Milestone();
    In(plan.col()).TellStart(plan.col().Item(1), 1);
    EXPECT_EQ(plan.Heard(), "DateStartChange(1, 2026-03-03, True, False)\n");
}

TEST(TellEnd, CarriesTheUnitToo) {
    Plan plan;
    plan.Task("Dig").From(Monday).Lasting(3);
    In(plan.col()).TellEnd(plan.col().Item(1), 1, /*summary=*/true);
    EXPECT_EQ(plan.Heard(), "DateEndChange(1, 2026-03-04, False, True, days)\n");
}

TEST(TellDates, CarriesTheKeyThatWasAskedFor) {
    Plan plan;
    plan.Task("House").Task("Walls").Under("House");
    const Ref<TasksCls> house = plan.col().Item(1);
    In(plan.col()).TellStart(house, 77);
    In(plan.col()).TellStart(house, "a text");
    EXPECT_EQ(plan.Heard(), "DateStartChange(77, -, False, True)\nDateStartChange(0, -, False, False)\n")
        << "a key without a number is that of no parent";
}

TEST(TellDates, KeepsTellingASilencedHostTheTaskDurationAlone) {
    Plan plan;
    plan.Silenced().Task("Dig").From(Monday).Lasting(3);
    In(plan.col()).TellStart(plan.col().Item(1), 1);
    In(plan.col()).TellEnd(plan.col().Item(1), 1);
    In(plan.col()).TellDuration(plan.col().Item(1), 1);
    EXPECT_EQ(plan.Heard(), "");
    In(plan.col()).TellDates(plan.col().Item(1), 1);
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 3, days, False, False)\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
