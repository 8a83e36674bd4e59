#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

TEST(TellStart, CarriesTheDateAndTheFlags) {
    Plan plan;
    plan.Task("Gate").From(Tuesday).Milestone();
    In(plan.col()).TellStart(plan.col().Item(1), False);
    EXPECT_EQ(plan.Heard(), "DateStartChange(1, 2026-03-03, True, False)\n");
}

TEST(TellEnd, CarriesTheUnitToo) {
    Plan plan;
    plan.Task("Dig").From(Monday).Lasting(3);
    In(plan.col()).TellEnd(plan.col().Item(1), True);
    EXPECT_EQ(plan.Heard(), "DateEndChange(1, 2026-03-04, False, True, days)\n");
}

TEST(TellDates, KeepsTellingASilencedHostTheTaskDurationAlone) {
    Plan plan;
    plan.Silenced().Task("Dig").From(Monday).Lasting(3);
    In(plan.col()).TellStart(plan.col().Item(1), False);
    In(plan.col()).TellEnd(plan.col().Item(1), False);
    In(plan.col()).TellDuration(plan.col().Item(1), False);
    EXPECT_EQ(plan.Heard(), "");
    In(plan.col()).TellDates(plan.col().Item(1), False);
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 3, days, False, False)\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
