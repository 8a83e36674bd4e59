#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(EndEdit, LeavesAloneWhatIsNoCellAnyMore) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design");
    EditInDialog(plan, "Build", [](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, 1, 3), True);
        grid.Rows(1);
        form.EndEdit(grid, "5");
        grid.Row(-1);
        form.EndEdit(grid, "5");
        form.EndEdit(grid, ComboEntry{"1", "Design"});
        EXPECT_EQ(grid.Rows(), 1);
        EXPECT_EQ(form.PredecessorsChanged(), False);
    });
}

TEST(EndEdit, ShowsTheTextOfTheEntryThatWasChosen) {
    Plan plan;
    plan.WithLinks().Task("This | that").Task("Build");
    EditInDialog(plan, "Build", [](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, 1, 1), True);
        form.EndEdit(grid, ComboEntries(grid.ComboList()).at(0));
        EXPECT_EQ(Drawn(grid),
                  "1 This | that 0 =1\n"
                  "   =\n");
    });
}

TEST(EndEdit, TakesNoEntryForNothing) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build");
    EditInDialog(plan, "Build", [](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, 1, 1), True);
        form.EndEdit(grid, ComboEntry{});
        EXPECT_EQ(Drawn(grid), "   =\n");
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
