#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

// --- What can be done with a cell ------------------------------------------------------------------------------------

TEST(OffersList, IsTrueOfTheColumnsThatNameAPredecessor) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build");
    EditInDialog(plan, "Build", [](EditTask& form) {
        const GridControl& grid = form.VSFlexGridPredecessor;
        for (const char* key : {"ID", "Name"}) EXPECT_EQ(form.OffersList(grid, grid.ColIndex(key)), True) << key;
        for (const char* key : {"Type", "Lag"}) EXPECT_EQ(form.OffersList(grid, grid.ColIndex(key)), False) << key;
        EXPECT_EQ(form.OffersList(grid, -1), False);
        for (const GridControl* other : {&form.VSFlexGridResource, &form.gridattachement}) {
            EXPECT_EQ(form.OffersList(*other, 0), False) << other->Name();
        }
    });
}

TEST(OffersList, IsFalseWhereNoTaskCanBeNamed) {
    Plan plan;
    plan.WithLinks().Task("Build");
    EditInDialog(plan, "Build", [](EditTask& form) {
        const GridControl& grid = form.VSFlexGridPredecessor;
        for (const char* key : {"ID", "Name"}) EXPECT_EQ(form.OffersList(grid, grid.ColIndex(key)), False) << key;
    });
}

TEST(ClickEdits, IsTrueOfWhereAnEmptyRowNamesAPredecessor) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Permit").Task("Build").After("Design");
    EditInDialog(plan, "Build", [](EditTask& form) {
        const GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(grid.Rows(), 3);
        for (int col = 0; col < 4; ++col) {
            EXPECT_EQ(form.ClickEdits(grid, 0, col), False) << "the headings, " << col;
            EXPECT_EQ(form.ClickEdits(grid, 1, col), False) << "a predecessor, " << col;
            EXPECT_EQ(form.ClickEdits(grid, 2, col), col < 2) << "the empty row, " << col;
            EXPECT_EQ(form.ClickEdits(grid, 3, col), False) << "no row, " << col;
        }
        EXPECT_EQ(form.ClickEdits(grid, 2, 4), False);
        EXPECT_EQ(form.ClickEdits(grid, -1, 0), False);
    });
}

TEST(ClickEdits, IsTrueOfTheNameOfANewPersonAlone) {
    Plan plan;
    AddPerson(plan, "Ann");
    plan.Task("Build");
    EditInDialog(plan, "Build", [](EditTask& form) {
        const GridControl& grid = form.VSFlexGridResource;
        EXPECT_EQ(form.ClickEdits(grid, 1, 1), False);
        EXPECT_EQ(form.ClickEdits(grid, 2, 0), False);
        EXPECT_EQ(form.ClickEdits(grid, 2, 1), True);
    });
}

TEST(ColToEdit, LeadsToTheNameOfANewPersonAndNowhereElse) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design");
    AddPerson(plan, "Ann");
    EditInDialog(plan, "Build", [](EditTask& form) {
        for (int col = 0; col < 2; ++col) {
            EXPECT_EQ(form.ColToEdit(form.VSFlexGridResource, 1, col), col) << "a person";
            EXPECT_EQ(form.ColToEdit(form.VSFlexGridResource, 2, col), 1) << "a new person";
            EXPECT_EQ(form.ColToEdit(form.VSFlexGridResource, 3, col), col) << "no row";
            EXPECT_EQ(form.ColToEdit(form.VSFlexGridPredecessor, 2, col), col) << "the empty row";
        }
        EXPECT_EQ(form.ColToEdit(form.gridattachement, 0, 0), 0);
    });
}

TEST(CarriesTick, IsTrueOfTheNamesOfThePeopleThatThereAre) {
    Plan plan;
    AddPerson(plan, "Ann");
    plan.Task("Build");
    EditInDialog(plan, "Build", [](EditTask& form) {
        const GridControl& grid = form.VSFlexGridResource;
        EXPECT_EQ(form.CarriesTick(grid, 0, 1), False);
        EXPECT_EQ(form.CarriesTick(grid, 1, 0), False);
        EXPECT_EQ(form.CarriesTick(grid, 1, 1), True);
        EXPECT_EQ(form.CarriesTick(grid, 2, 1), False);
        EXPECT_EQ(form.CarriesTick(grid, 3, 1), False);
        EXPECT_EQ(form.CarriesTick(form.VSFlexGridPredecessor, 1, 1), False);
    });
}

// --- The end of an edit ----------------------------------------------------------------------------------------------

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
