#pragma once

#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {

/// A phase over a task, and another task beside them.
class Saving : public ::testing::Test {
protected:
    Saving() {
        plan.WithLinks();
        plan.Task("Phase");
        plan.Task("Design").Under("Phase").From(Monday).Lasting(3).Costing(10);
        plan.Task("Survey").From(Monday).Lasting(1);
        plan["Phase"].TaskCost(10);
        plan.col().AutoLink(True);
    }
    /// Does something in the dialog on "Design" and leaves it with OK.
    Boolean OnOk(const std::function<void(EditTask&)>& person) {
        return EditInDialog(plan, "Design", [&](EditTask& form) {
            person(form);
            form.CmdOK_Click(0);
        });
    }
    static void ChooseSurvey(EditTask& form) {
        ASSERT_EQ(form.BeginEdit(form.VSFlexGridPredecessor, 1, 1), True);
        form.EndEdit(form.VSFlexGridPredecessor, ComboEntry{"3", "Survey"});
    }

    Plan plan;
};

}  // namespace mrlxmlclass::testing
