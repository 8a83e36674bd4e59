#include "mrlxmlclass/dialog/EditTask_internal.h"

namespace mrlxmlclass {

namespace {

bool HasCell(const GridControl& grid, Long row, Long col) {
    return row >= grid.FixedRows() && row < grid.Rows() && col >= 0 && col < grid.Cols();
}

}  // namespace

Boolean EditTask::OffersList(const GridControl& grid, Long col) const {
    if (&grid != &VSFlexGridPredecessor) return False;
    return (col == dialog::kPosition && !predecessor_positions_.empty()) ||
           (col == dialog::kName && !predecessor_names_.empty());
}

Boolean EditTask::ClickEdits(const GridControl& grid, Long row, Long col) const {
    if (!HasCell(grid, row, col)) return False;
    if (&grid == &VSFlexGridResource) return col == dialog::kPerson && grid.RowData(row) == kNewPerson;
    // An empty row has no other use; a click on any other makes it the current one.
    return OffersList(grid, col) && grid.RowData(row).empty();
}

Long EditTask::ColToEdit(const GridControl& grid, Long row, Long col) const {
    return ClickEdits(grid, row, dialog::kPerson) && &grid == &VSFlexGridResource ? Long(dialog::kPerson) : col;
}

Boolean EditTask::CarriesTick(const GridControl& grid, Long row, Long col) const {
    return &grid == &VSFlexGridResource && col == dialog::kPerson && HasCell(grid, row, col) &&
           grid.RowData(row) != kNewPerson;
}

void EditTask::MoveTo(GridControl& grid, Long row, Long col) {
    if (grid.Row() == row && grid.Col() == col) return;
    Boolean cancelled;
    if (&grid == &VSFlexGridResource) {
        VSFlexGridResource_BeforeRowColChange(grid.Row(), grid.Col(), row, col, cancelled);
    }
    if (cancelled) return;
    grid.Row(row);
    grid.Col(col);
}

Boolean EditTask::BeginEdit(GridControl& grid, Long row, Long col) {
    if (!HasCell(grid, row, col)) return False;
    MoveTo(grid, row, col);
    Boolean cancelled;
    if (&grid == &VSFlexGridPredecessor) {
        VSFlexGridPredecessor_BeforeEdit(row, col, cancelled);
    } else {
        VSFlexGridResource_BeforeEdit(row, col, cancelled);
    }
    grid.EditText(grid.TextMatrix(row, col));
    grid.ComboData("");
    return !cancelled;
}

Integer EditTask::EditKey(GridControl& grid, const String& text, Integer KeyAscii) {
    grid.EditText(text);
    if (&grid == &VSFlexGridPredecessor) VSFlexGridPredecessor_KeyPressEdit(grid.Row(), grid.Col(), KeyAscii);
    return KeyAscii;
}

void EditTask::EndEdit(GridControl& grid, const ComboEntry& chosen) {
    const Long row = grid.Row();
    const Long col = grid.Col();
    if (row < grid.FixedRows() || row >= grid.Rows()) return;
    grid.ComboData(chosen.data);
    Boolean finish;
    if (&grid == &VSFlexGridPredecessor) {
        VSFlexGridPredecessor_ComboCloseUp(row, col, finish);
    } else {
        VSFlexGridResource_ComboCloseUp(row, col, finish);
    }
    // The row may be gone: then another stands in its place, and takes nothing.
    if (row < grid.Rows() && grid.RowData(row) == chosen.data) grid.TextMatrix(row, col, chosen.text);
    RunAfterEdit(grid, row, col);
}

void EditTask::EndEdit(GridControl& grid, const String& text) {
    const Long row = grid.Row();
    const Long col = grid.Col();
    if (row < grid.FixedRows() || row >= grid.Rows()) return;
    grid.EditText(text);
    grid.TextMatrix(row, col, text);
    RunAfterEdit(grid, row, col);
}

void EditTask::RunAfterEdit(GridControl& grid, Long row, Long col) {
    if (&grid == &VSFlexGridPredecessor) {
        VSFlexGridPredecessor_AfterEdit(row, col);
    } else {
        VSFlexGridResource_AfterEdit(row, col);
    }
}

}  // namespace mrlxmlclass
