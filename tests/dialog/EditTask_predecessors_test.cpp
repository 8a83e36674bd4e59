#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

constexpr int kId = 0;
constexpr int kName = 1;
constexpr int kType = 2;
constexpr int kLag = 3;

/// Four tasks of a day each, of which the last waits for the first two.
class PredecessorTable : public ::testing::Test {
protected:
    PredecessorTable() {
        plan.WithLinks();
        for (const char* name : {"A", "B", "C", "D"}) plan.Task(name).From(Monday).Lasting(1);
        plan.After("A", 4).After("B");
        plan.col().AutoLink(True);
    }
    void InDialog(const std::function<void(EditTask&)>& person) {
        EditInDialog(plan, "D", [&](EditTask& form) { person(form); });
    }
    static ComboEntry Offered(const GridControl& grid, const String& text) {
        for (const ComboEntry& entry : ComboEntries(grid.ComboList())) {
            if (entry.text == text) return entry;
        }
        ADD_FAILURE() << text << " is not offered in " << grid.ComboList();
        return {};
    }
    static void Choose(EditTask& form, int row, int col, const String& text) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, row, col), True);
        form.EndEdit(grid, Offered(grid, text));
    }
    static void Type(EditTask& form, int row, const String& lag) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, row, kLag), True);
        form.EndEdit(grid, lag);
    }

    Plan plan;
};

TEST_F(PredecessorTable, HoldsTheDirectPredecessorsAndAnEmptyRow) {
    InDialog([](EditTask& form) {
        const GridControl& grid = form.VSFlexGridPredecessor;
        EXPECT_EQ(Drawn(grid),
                  "1 A 0 =1\n"
                  "2 B 0 =2\n"
                  "   =\n");
        EXPECT_EQ(grid.TextMatrix(1, kType), "FS");
        EXPECT_EQ(grid.ColHidden(kType), True);
        EXPECT_EQ(grid.Row(), 3);
        EXPECT_EQ(form.TabTask.TabEnabled(1), True);
    });
}

TEST_F(PredecessorTable, KeepsShowingEveryLagAsNothing) {
    ASSERT_EQ(plan.col().GetLeadTime("1", plan["D"].TaskLeadTime()), 4);
    InDialog([](EditTask& form) { EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(1, kLag), "0"); });
}

TEST(PredecessorTab, IsOffWithoutLiveLinks) {
    Plan plan;
    plan.Task("A");
    EditInDialog(plan, "A", [](EditTask& form) {
        EXPECT_EQ(form.TabTask.TabEnabled(1), False);
        EXPECT_EQ(form.VSFlexGridPredecessor.Rows(), 1);
    });
}

// --- Editing a cell --------------------------------------------------------------------------------------------------

TEST_F(PredecessorTable, OffersRowsAndNamesAndRefusesTheType) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        EXPECT_EQ(form.BeginEdit(grid, 3, kId), True);
        EXPECT_EQ(grid.ComboList(), "#3;3|");
        EXPECT_EQ(form.BeginEdit(grid, 3, kName), True);
        EXPECT_EQ(grid.ComboList(), "#3;C|");
        EXPECT_EQ(form.BeginEdit(grid, 1, kType), False);
        EXPECT_EQ(grid.ComboList(), "");
        EXPECT_EQ(form.BeginEdit(grid, 0, kName), False);
        EXPECT_EQ(form.BeginEdit(grid, 9, kName), False);
        EXPECT_EQ(form.BeginEdit(grid, 1, 4), False);
    });
}

TEST_F(PredecessorTable, OffersNoNameWhereThereIsNone) {
    plan.col().AddTaskPredecessor(plan.Key("D"), plan.Key("C"));
    InDialog([](EditTask& form) {
        EXPECT_EQ(form.BeginEdit(form.VSFlexGridPredecessor, 4, kName), False);
        EXPECT_EQ(form.BeginEdit(form.VSFlexGridPredecessor, 4, kId), True);
    });
}

TEST_F(PredecessorTable, KeepsTakingAnyTextForARowWhereNoneIsOffered) {
    plan.col().AddTaskPredecessor(plan.Key("D"), plan.Key("C"));
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, 4, kId), True);
        EXPECT_EQ(grid.ComboList(), "");
        form.EndEdit(grid, String("77"));
        EXPECT_EQ(grid.TextMatrix(4, kId), "77");
        EXPECT_EQ(grid.RowData(4), "");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.col().PredessorAsString("4"), "1, 2, 3");
}

TEST_F(PredecessorTable, TakesALagWhereThereIsAPredecessorOnly) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        EXPECT_EQ(form.BeginEdit(grid, 3, kLag), False);
        EXPECT_EQ(form.BeginEdit(grid, 1, kLag), True);
        EXPECT_EQ(grid.EditMaxLength(), 3);
        grid.TextMatrix(1, kLag, "-12");
        EXPECT_EQ(form.BeginEdit(grid, 1, kLag), True);
        EXPECT_EQ(grid.EditMaxLength(), 4);
        grid.TextMatrix(1, kLag, "-");
        EXPECT_EQ(form.BeginEdit(grid, 1, kLag), True);
        EXPECT_EQ(grid.TextMatrix(1, kLag), "0");
        EXPECT_EQ(grid.EditMaxLength(), 3);
    });
}

TEST_F(PredecessorTable, LetsDigitsAndOneSignIntoALag) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        form.BeginEdit(grid, 1, kLag);
        for (const int key : {int{'0'}, int{'9'}, EditTask::kBackspace, EditTask::kEnter}) {
            EXPECT_EQ(form.EditKey(grid, "1", key), key);
        }
        EXPECT_EQ(form.EditKey(grid, "", int{'-'}), int{'-'});
        EXPECT_EQ(form.EditKey(grid, "-", int{'-'}), EditTask::kNoKey);
        EXPECT_EQ(form.EditKey(grid, "1", int{'.'}), EditTask::kNoKey);
        EXPECT_EQ(form.EditKey(grid, "1", int{'a'}), EditTask::kNoKey);
        form.BeginEdit(grid, 1, kName);
        EXPECT_EQ(form.EditKey(grid, "", int{'a'}), int{'a'});
        grid.TextMatrix(1, kLag, "-1");
        form.BeginEdit(grid, 1, kLag);
        Integer sign = int{'-'};
        form.VSFlexGridPredecessor_KeyPressEdit(1, kLag, sign);
        EXPECT_EQ(sign, EditTask::kNoKey);
    });
}

// --- Choosing --------------------------------------------------------------------------------------------------------

TEST_F(PredecessorTable, GetsANewRowForATaskThatIsChosen) {
    InDialog([](EditTask& form) {
        Choose(form, 3, kName, "C");
        EXPECT_EQ(Drawn(form.VSFlexGridPredecessor),
                  "1 A 0 =1\n"
                  "2 B 0 =2\n"
                  "3 C 0 =3\n"
                  "   =\n");
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(3, kType), "FS");
        EXPECT_EQ(form.PredecessorsChanged(), True);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.col().PredessorAsString("4"), "1, 2, 3");
}

TEST_F(PredecessorTable, ShowsTheNameOfARowThatIsChosen) {
    InDialog([](EditTask& form) {
        Choose(form, 3, kId, "3");
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(3, kName), "C");
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(3, kId), "3");
    });
}

TEST_F(PredecessorTable, TakesTheRowAwayAgainWhenItHoldsTheTaskAlready) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        Choose(form, 3, kName, "C");
        Choose(form, 4, kName, "C");
        EXPECT_EQ(Drawn(grid),
                  "1 A 0 =1\n"
                  "2 B 0 =2\n"
                  "3 C 0 =3\n"
                  "   =\n");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.col().PredessorAsString("4"), "1, 2, 3");
}

TEST_F(PredecessorTable, LetsGoOfThePredecessorWhoseRowTakesAnother) {
    for (const int col : {kName, kId}) {
        InDialog([&](EditTask& form) {
            Choose(form, 1, col, col == kName ? "C" : "3");
            EXPECT_EQ(Drawn(form.VSFlexGridPredecessor),
                      "3 C 0 =3\n"
                      "2 B 0 =2\n"
                      "   =\n");
            form.CmdOK_Click(0);
        });
        EXPECT_EQ(plan.col().PredessorAsString("4"), "2, 3");
        plan.col().RemoveTaskPredecessor("4", "3");
        plan.col().AddTaskPredecessor("4", "1");
    }
}

TEST_F(PredecessorTable, StaysAsItIsWhenARowTakesItsOwnTaskAgain) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        ASSERT_EQ(form.BeginEdit(grid, 1, kName), True);
        form.EndEdit(grid, ComboEntry{"1", "A"});
        EXPECT_EQ(Drawn(grid),
                  "1 A 0 =1\n"
                  "2 B 0 =2\n"
                  "   =\n");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(PredecessorTable, LetsGoOfThePredecessorWhoseRowWentToOneThatWasThere) {
    InDialog([](EditTask& form) {
        Choose(form, 3, kName, "C");
        Choose(form, 2, kName, "C");  // a row before the one that holds it already
        EXPECT_EQ(Drawn(form.VSFlexGridPredecessor),
                  "1 A 0 =1\n"
                  "3 C 0 =3\n"
                  "   =\n");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.col().PredessorAsString("4"), "1, 3");
}

// --- Lags ------------------------------------------------------------------------------------------------------------

TEST_F(PredecessorTable, KeepsMeasuringALagThatIsNotNegativeFromTheStart) {
    plan["A"].TaskEDate(Friday);
    InDialog([](EditTask& form) {
        // Friday to the day behind the shown start, Monday: no free day; Monday and one day.
        Type(form, 1, "0");
        EXPECT_EQ(form.Task()->TaskBDate(), Tuesday);
        EXPECT_EQ(form.Task()->TaskLag(), 0);
        EXPECT_EQ(form.DTPickerStart.Value().As<Date>(), Tuesday);
        // From Friday back to the day behind Tuesday and three: Saturday is free, so Monday and five days.
        Type(form, 1, "3");
        EXPECT_EQ(form.Task()->TaskBDate(), Monday + 7);
        EXPECT_EQ(form.Task()->TaskLag(), 3);
        EXPECT_EQ(form.LagDifference(), 3);
    });
}

TEST_F(PredecessorTable, TakesALagOfNothingBehindAFriday) {
    plan["A"].TaskBDate(Friday);
    InDialog([](EditTask& form) {
        form.Task()->TaskBDate(Friday);
        form.DTPickerStart.Value(Friday);
        // From Friday to the day behind the shown Friday: Saturday is free. Friday, that day and one more.
        Type(form, 1, "0");
        EXPECT_EQ(form.Task()->TaskBDate(), Monday + 7);
        // The shown Monday lies behind that weekend: from Friday to Tuesday two days are free.
        Type(form, 1, "0");
        EXPECT_EQ(form.Task()->TaskBDate(), Monday + 7);
        Type(form, 1, "3");
        Type(form, 1, "1");
        EXPECT_EQ(form.LagDifference(), -2);
    });
}

TEST_F(PredecessorTable, KeepsMeasuringANegativeLagFromTheEnd) {
    plan["A"].TaskEDate(Friday);
    InDialog([](EditTask& form) {
        // Monday less two and one, a Friday, up to the end: two free days. Friday less two, two more, less one.
        Type(form, 1, "-2");
        EXPECT_EQ(form.Task()->TaskBDate(), Thursday);
        EXPECT_EQ(form.Task()->TaskLag(), -2);
        EXPECT_EQ(form.LagDifference(), -2);
        EXPECT_EQ(form.DTPickerEnd.Value().As<Date>(), Thursday);
    });
}

TEST_F(PredecessorTable, TakesNoLagForNothing) {
    InDialog([](EditTask& form) {
        Type(form, 1, "-");
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(1, kLag), "0");
        Type(form, 1, "");
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(1, kLag), "0");
        form.VSFlexGridPredecessor.TextMatrix(3, kLag, "5");
        form.VSFlexGridPredecessor_AfterEdit(3, kLag);
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(3, kLag), "");
        EXPECT_EQ(form.Task()->TaskBDate(), Monday);
        EXPECT_EQ(form.PredecessorsChanged(), True);
    });
}

TEST_F(PredecessorTable, TakesALagAsLongAsTheDatesHoldIt) {
    InDialog([](EditTask& form) {
        Type(form, 1, "--3");
        EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(1, kLag), "0");
        Type(form, 1, "9999");  // beyond the last year, which takes its place
        EXPECT_EQ(form.Task()->TaskBDate().year(), 2036);
        Type(form, 1, "99999");
        form.BeginEdit(form.VSFlexGridPredecessor, 1, kLag);
        EXPECT_EQ(form.VSFlexGridPredecessor.EditMaxLength(), 3);
    });
    EXPECT_EQ(plan.failures.Taken(),
              "EditTask/VSFlexGridPredecessor_AfterEdit 6\nEditTask/VSFlexGridPredecessor_BeforeEdit 6\n");
}

TEST_F(PredecessorTable, RecordsALagWhileNoStartIsShownAndKeepsTheOldOne) {
    InDialog([](EditTask& form) {
        form.DTPickerStart.Value(Variant::Null{});
        form.DTPickerStart_Change();
        Type(form, 1, "2");
        EXPECT_EQ(form.PredecessorsChanged(), False);
    });
    EXPECT_EQ(plan.failures.Taken(), "EditTask/VSFlexGridPredecessor_AfterEdit 13\n");
}

// --- Deleting --------------------------------------------------------------------------------------------------------

TEST_F(PredecessorTable, LosesTheRowThatIsDeletedAndTheTaskItsPredecessorOnOk) {
    const auto delete_first = [](EditTask& form) {
        form.MoveTo(form.VSFlexGridPredecessor, 1, kName);
        form.VSFlexGridPredecessor_KeyDown(EditTask::kDelete, 0);
        EXPECT_EQ(Drawn(form.VSFlexGridPredecessor),
                  "2 B 0 =2\n"
                  "   =\n");
    };
    InDialog(delete_first);
    EXPECT_EQ(plan.col().PredessorAsString("4"), "1, 2");  // left by closing the window
    InDialog([&](EditTask& form) {
        delete_first(form);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.col().PredessorAsString("4"), "2");
}

TEST_F(PredecessorTable, DeletesNeitherItsEmptyRowNorItsHeadings) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridPredecessor;
        for (const int row : {3, 0, -1}) {
            form.MoveTo(grid, row, kName);
            form.VSFlexGridPredecessor_KeyDown(EditTask::kDelete, 0);
        }
        form.MoveTo(grid, 1, kName);
        form.VSFlexGridPredecessor_KeyDown(int{'D'}, 0);
        EXPECT_EQ(grid.Rows(), 4);
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
