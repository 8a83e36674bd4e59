#pragma once

#include <vector>

#include "mrlxmlclass/dialog/Controls.h"

namespace mrlxmlclass {

/// An entry of a list that a cell offers.
struct ComboEntry {
    String data;  ///< what the entry stands for
    String text;
    friend bool operator==(const ComboEntry&, const ComboEntry&) = default;
};

/// The entries of a list in its text form: each "#", the data, ";", the text, "|".
std::vector<ComboEntry> ComboEntries(const String& list);

/// A table of texts whose rows carry data, can be selected one by one, and can be edited cell by cell. Rows and columns
/// count from 0; the fixed rows come first and hold the headings. A cell that is not there fails (9).
class GridControl final : public Control {
public:
    /// A table of as many columns as there are keys, with no more than its fixed rows.
    GridControl(ControlWatcher& watcher, const char* name, std::vector<String> column_keys, int fixed_rows);

    // --- Rows and cells ---------------------------------------------------------------------------------------------

    Long Rows() const { return rows_.size(); }
    /// Adds empty rows at the end, or takes the last ones off.
    void Rows(Long count);
    Long Cols() const { return columns_.size(); }
    Long FixedRows() const { return fixed_rows_; }
    const String& TextMatrix(Long row, Long col) const;
    void TextMatrix(Long row, Long col, const String& text);
    /// What the row stands for; "" = nothing.
    const String& RowData(Long row) const { return At(row).data; }
    void RowData(Long row, const String& data);
    /// Adds an empty last row; gives its number.
    Long AddRow();
    void RemoveItem(Long row);
    /// The first row with that data; -1 when there is none.
    Long FindRow(const String& data) const;
    /// Sorts the rows that are not fixed by the current column, as numbers, ascending.
    void SortAscending();

    // --- Selection and the current cell -----------------------------------------------------------------------------

    Boolean IsSelected(Long row) const { return At(row).selected; }
    void IsSelected(Long row, Boolean flag);
    Long SelectedRows() const;
    /// The current row; -1 = none.
    Long Row() const { return row_; }
    void Row(Long row) { Store(row_, row); }
    Long Col() const { return col_; }
    void Col(Long col) { Store(col_, col); }
    /// The first row that shows below the fixed ones.
    Long TopRow() const { return top_row_; }
    void TopRow(Long row) { Store(top_row_, row); }

    // --- Looks ------------------------------------------------------------------------------------------------------

    /// The column of that key; -1 when there is none.
    Long ColIndex(const String& key) const;
    Boolean ColHidden(Long col) const { return ColumnAt(col).hidden; }
    void ColHidden(Long col, Boolean flag) { Store(ColumnAt(col).hidden, flag); }
    /// A row with a paper clip, in the colour of hyperlinks.
    Boolean ShowsLink(Long row) const { return At(row).shows_link; }
    void ShowsLink(Long row, Boolean flag);

    // --- The cell that is being edited ------------------------------------------------------------------------------

    /// What the cell offers to choose from, see ComboEntries; "" = text is typed.
    const String& ComboList() const { return combo_list_; }
    void ComboList(const String& list) { Store(combo_list_, list); }
    /// How many characters may be typed; 0 = any number.
    Long EditMaxLength() const { return edit_max_length_; }
    void EditMaxLength(Long characters) { Store(edit_max_length_, characters); }
    /// What stands in the cell's editor.
    const String& EditText() const { return edit_text_; }
    void EditText(const String& text) { edit_text_ = text; }
    /// The data of the entry that was chosen; "" = none.
    const String& ComboData() const { return combo_data_; }
    void ComboData(const String& data) { combo_data_ = data; }

private:
    struct OneRow {
        std::vector<String> texts;
        String data;
        Boolean selected;
        Boolean shows_link;
    };
    struct Column {
        String key;
        Boolean hidden;
    };

    /// Rows went, and what pointed behind the last points at it.
    void StayInside();
    OneRow NewRow() const { return {std::vector<String>(columns_.size()), {}, {}, {}}; }
    OneRow& At(Long row) { return rows_[PlaceOf(row, rows_.size())]; }
    const OneRow& At(Long row) const { return rows_[PlaceOf(row, rows_.size())]; }
    Column& ColumnAt(Long col) { return columns_[PlaceOf(col, columns_.size())]; }
    const Column& ColumnAt(Long col) const { return columns_[PlaceOf(col, columns_.size())]; }

    std::vector<Column> columns_;
    Long fixed_rows_;
    std::vector<OneRow> rows_;
    Long row_ = -1;
    Long col_;
    Long top_row_;
    String combo_list_;
    Long edit_max_length_;
    String edit_text_;
    String combo_data_;
};

}  // namespace mrlxmlclass
