#include "mrlxmlclass/dialog/GridControl.h"

#include <algorithm>

#include "mrlxmlclass/dialog/LooseNumber.h"

namespace mrlxmlclass {
namespace {

/// Where an entry begins: "#", digits, ";".
bool BeginsEntry(std::string_view text) {
    if (!text.starts_with('#')) return false;
    const std::size_t behind_digits = text.find_first_not_of("0123456789", 1);
    return behind_digits != std::string_view::npos && behind_digits > 1 && text[behind_digits] == ';';
}

}  // namespace

std::vector<ComboEntry> ComboEntries(const String& list) {
    std::vector<ComboEntry> entries;
    std::string_view rest = list;
    while (!rest.empty()) {
        // A text may hold a bar of its own: it ends where the list does, or another entry begins.
        std::size_t end = rest.find('|');
        while (end + 1 < rest.size() && !BeginsEntry(rest.substr(end + 1))) end = rest.find('|', end + 1);
        const std::string_view entry = rest.substr(0, end);
        rest.remove_prefix(std::min(rest.size(), entry.size() + 1));
        if (!BeginsEntry(entry)) continue;
        const std::size_t parted = entry.find(';');
        entries.push_back({String(entry.substr(1, parted - 1)), String(entry.substr(parted + 1))});
    }
    return entries;
}

GridControl::GridControl(ControlWatcher& watcher, const char* name, std::vector<String> column_keys, int fixed_rows)
    : Control(watcher, name), fixed_rows_(fixed_rows) {
    for (String& key : column_keys) columns_.push_back({std::move(key), False});
    rows_.resize(static_cast<std::size_t>(fixed_rows), NewRow());
}

void GridControl::Rows(Long count) {
    if (count < fixed_rows_) Raise(failure::kIndexOutOfRange);
    rows_.resize(static_cast<std::size_t>(count.value()), NewRow());
    StayInside();
}

const String& GridControl::TextMatrix(Long row, Long col) const {
    return At(row).texts[PlaceOf(col, columns_.size())];
}

void GridControl::TextMatrix(Long row, Long col, const String& text) {
    Store(At(row).texts[PlaceOf(col, columns_.size())], text);
}

void GridControl::RowData(Long row, const String& data) {
    Store(At(row).data, data);
}

Long GridControl::AddRow() {
    Rows(Rows() + 1);
    return Rows() - 1;
}

void GridControl::RemoveItem(Long row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(PlaceOf(row, rows_.size())));
    StayInside();
}

void GridControl::StayInside() {
    const Long last = Rows() - 1;
    if (row_ > last) row_ = last;
    if (top_row_ > last) top_row_ = std::max(last, Long(0));
    Refresh();
}

Long GridControl::FindRow(const String& data) const {
    const auto found = std::ranges::find(rows_, data, &OneRow::data);
    return found == rows_.end() ? Long(-1) : Long(found - rows_.begin());
}

void GridControl::SortAscending() {
    const std::size_t col = PlaceOf(col_, columns_.size());
    std::ranges::stable_sort(rows_.begin() + fixed_rows_.value(), rows_.end(), {},
                             [&](const OneRow& row) { return LooseNumber(row.texts[col]); });
    Refresh();
}

void GridControl::IsSelected(Long row, Boolean flag) {
    Store(At(row).selected, flag);
}

Long GridControl::SelectedRows() const {
    return std::ranges::count(rows_, True, &OneRow::selected);
}

Long GridControl::ColIndex(const String& key) const {
    const auto found = std::ranges::find(columns_, key, &Column::key);
    return found == columns_.end() ? Long(-1) : Long(found - columns_.begin());
}

void GridControl::ShowsLink(Long row, Boolean flag) {
    Store(At(row).shows_link, flag);
}

}  // namespace mrlxmlclass
