#include "mrlxmlclass/dialog/EditTask.h"

#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(GetTaskInfo, GivesTrueWhenThePersonLeavesWithAnotherDuration) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);

    EXPECT_EQ(EditInDialog(plan, "Design",
                           [](EditTask& form) {
                               form.TxtDurtion[0].Text("5");
                               form.CmdOK_Click(0);
                           }),
              True);

    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(plan["Design"].TaskEDate(), Friday);
}

TEST(GetTaskInfo, GivesFalseAfterCancelAndLeavesTheTaskAlone) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);

    EXPECT_EQ(EditInDialog(plan, "Design",
                           [](EditTask& form) {
                               form.TxtDurtion[0].Text("5");
                               form.CmdCancel_Click(0);
                           }),
              False);

    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass::testing
