#include "mrlxmlclass/dialog/GridControl.h"

#include <gtest/gtest.h>

#include "tests/support/NumberOf.h"
#include "tests/support/Printing.h"

namespace mrlxmlclass::testing {
namespace {

/// Counts what its controls tell.
class CountingForm : public ControlWatcher {
public:
    void Refresh(const Control&) override { ++refreshed; }
    void Changed(Control&) override { ++changed; }

    int refreshed = 0;
    int changed = 0;
};

TEST(ComboEntries, AreWhatStandsBetweenHashAndBar) {
    EXPECT_EQ(ComboEntries("#3;Design|#12;Build|"), (std::vector<ComboEntry>{{"3", "Design"}, {"12", "Build"}}));
    EXPECT_EQ(ComboEntries(""), std::vector<ComboEntry>());
    EXPECT_EQ(ComboEntries("no entry|"), std::vector<ComboEntry>());
}

TEST(ComboEntries, HoldTextsWithSignsOfTheirOwn) {
    EXPECT_EQ(ComboEntries("#3;this | that;|#12;#1|#13;|"),
              (std::vector<ComboEntry>{{"3", "this | that;"}, {"12", "#1"}, {"13", ""}}));
}

TEST(GridControl, TellsItsFormWhatShowsOtherwise) {
    CountingForm form;
    GridControl grid(form, "grid", {"A", "B"}, 1);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.AddRow(), 1);
    EXPECT_EQ(grid.TextMatrix(1, 0), "");
    grid.TextMatrix(1, 0, "x");
    const int told = form.refreshed;
    grid.TextMatrix(1, 0, "x");
    grid.RowData(1, "");
    EXPECT_EQ(form.refreshed, told);
    grid.TextMatrix(1, 0, "new");
    EXPECT_EQ(form.refreshed, told + 1);
    EXPECT_EQ(form.changed, 0);
}

TEST(GridControl, FindsTheFirstRowOfSomeData) {
    CountingForm form;
    GridControl grid(form, "grid", {"A"}, 1);
    grid.Rows(4);
    grid.RowData(2, "x");
    grid.RowData(3, "x");
    EXPECT_EQ(grid.FindRow("x"), 2);
    EXPECT_EQ(grid.FindRow("y"), -1);
    EXPECT_EQ(grid.ColIndex("A"), 0);
    EXPECT_EQ(grid.ColIndex("B"), -1);
}

TEST(GridControl, KeepsItsCurrentRowAmongThoseThatAreLeft) {
    CountingForm form;
    GridControl grid(form, "grid", {"A"}, 0);
    EXPECT_EQ(grid.Row(), -1);
    grid.Rows(3);
    grid.Row(2);
    grid.RemoveItem(0);
    EXPECT_EQ(grid.Row(), 1);
    grid.Rows(0);
    EXPECT_EQ(grid.Row(), -1);
}

TEST(GridControl, ShowsItsLastRowsWhenWhatStoodBehindIsGone) {
    CountingForm form;
    GridControl grid(form, "grid", {"A"}, 0);
    grid.Rows(5);
    grid.TopRow(4);
    grid.RemoveItem(0);
    EXPECT_EQ(grid.TopRow(), 3);
    grid.Rows(2);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.Rows(0);
    EXPECT_EQ(grid.TopRow(), 0);
}

TEST(GridControl, SortsTheRowsBelowItsHeadingsAsNumbers) {
    CountingForm form;
    GridControl grid(form, "grid", {"A", "B"}, 1);
    for (const auto& [number, name] :
         std::initializer_list<std::pair<const char*, const char*>>{{"10", "a"}, {"9", "b"}, {"", "c"}, {"9", "d"}}) {
        const Long row = grid.AddRow();
        grid.TextMatrix(row, 0, number);
        grid.TextMatrix(row, 1, name);
    }
    grid.TextMatrix(0, 0, "99");
    grid.SortAscending();
    String order;
    for (Long row = 1; row < grid.Rows(); ++row) order += grid.TextMatrix(row, 1);
    EXPECT_EQ(order, "cbda");
}

TEST(GridControl, FailsWhereThereIsNoCell) {
    CountingForm form;
    GridControl grid(form, "grid", {"A"}, 1);
    EXPECT_EQ(NumberOf([&] { grid.TextMatrix(1, 0); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { grid.TextMatrix(0, 1); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { grid.RowData(-1); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { grid.Rows(0); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { grid.RemoveItem(7); }), failure::kIndexOutOfRange);
}

TEST(ControlArray, FailsWhereThereIsNoElement) {
    CountingForm form;
    ControlArray<TextControl> fields(form, "field", 2);
    EXPECT_EQ(fields[1].Index(), 1);
    EXPECT_EQ(NumberOf([&] { fields[2]; }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { fields[-1]; }), failure::kIndexOutOfRange);
    fields[0].Text("x");
    EXPECT_EQ(form.changed, 1);
    fields[0].Text("x");
    EXPECT_EQ(form.changed, 1);
}

}  // namespace
}  // namespace mrlxmlclass::testing
