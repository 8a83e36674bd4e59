#include "mrlxmlclass/dialog/TaskCombos.h"

#include <gtest/gtest.h>

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {
namespace {

TEST(SetComboTask, ListsWhatMayBeWaitedForInOutlineOrder) {
    Plan plan;
    plan.WithLinks().Task("A").Task("Phase").Task("B").Under("Phase").Task("Old").Candidate().Task("C");
    plan["A"].TaskPosition(9);
    String positions;
    EXPECT_EQ(Gloabal::SetComboTask(plan.app->xTaskCol(), plan.Key("C"), positions), "#3;B|#1;A|");
    EXPECT_EQ(positions, "#3;3|#1;9|");
}

TEST(SetComboTask, OffersNoPhaseThatHasTasksHoweverDeepItStands) {
    Plan plan;
    plan.WithLinks().Task("Phase").Task("Part").Under("Phase").Task("Draw").Under("Part").Task("X");
    plan["Part"].TaskType(True);  // for which nothing may wait, as for any parent
    String positions;
    EXPECT_EQ(Gloabal::SetComboTask(plan.app->xTaskCol(), plan.Key("X"), positions), "#3;Draw|");
}

TEST(SetComboTask, KeepsAskingTheWrongWayRound) {
    Plan plan;
    plan.WithLinks().Task("Phase").Task("A").Under("Phase").Task("B").After("A").Task("C");
    String positions;
    // A direct predecessor is hidden, and to a summary nothing is offered.
    EXPECT_EQ(Gloabal::SetComboTask(plan.app->xTaskCol(), plan.Key("B"), positions), "#4;C|");
    EXPECT_EQ(Gloabal::SetComboTask(plan.app->xTaskCol(), plan.Key("Phase"), positions), "");
    // A successor is offered, though it would close a loop.
    EXPECT_EQ(Gloabal::SetComboTask(plan.app->xTaskCol(), plan.Key("A"), positions), "#3;B|#4;C|");
}

}  // namespace
}  // namespace mrlxmlclass::testing
