#include "qt/GridModel.h"

#include <QBrush>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

#include "qt/Colours.h"
#include "qt/PaperClip.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

/// A tint of the desktop's highlight on which the usual text colour can be read.
QBrush SelectedRow() {
    constexpr double kTint = 0.25;
    QColor colour = QGuiApplication::palette().color(QPalette::Highlight);
    colour.setAlphaF(kTint);
    return colour;
}

/// A palette that was made of a few colours keeps the dark blue of a light one.
QColor Link() {
    return ReadableOnPaper(QGuiApplication::palette().color(QPalette::Link));
}

}  // namespace

GridModel::GridModel(const EditTask& form, const GridControl& grid)
    : form_(form), grid_(grid), first_(static_cast<int>(grid.FixedRows().value())) {}

GridModel::Row GridModel::RowOf(Long row) const {
    Row shown;
    for (Long col = 0; col < grid_.Cols(); ++col) {
        shown.texts << ToQt(grid_.TextMatrix(row, col));
        if (form_.CarriesTick(grid_, row, col)) shown.tick_column = static_cast<int>(col.value());
    }
    shown.selected = static_cast<bool>(grid_.IsSelected(row));
    shown.link = static_cast<bool>(grid_.ShowsLink(row));
    return shown;
}

void GridModel::Follow() {
    if (first_ > 0) {
        const QStringList headings = RowOf(first_ - 1).texts;
        if (headings != headings_) {
            headings_ = headings;
            Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        }
    }
    std::vector<Row> rows;
    for (Long row = first_; row < grid_.Rows(); ++row) rows.push_back(RowOf(row));
    tick_columns_.clear();
    for (const Row& row : rows) tick_columns_ << row.tick_column;

    const auto [old_end, new_end] = std::ranges::mismatch(rows_, rows);
    const auto same_before = static_cast<std::size_t>(old_end - rows_.begin());
    const std::size_t shorter = std::min(rows_.size(), rows.size());
    std::size_t same_behind = 0;
    while (same_before + same_behind < shorter && *(rows_.rbegin() + static_cast<std::ptrdiff_t>(same_behind)) ==
                                                      *(rows.rbegin() + static_cast<std::ptrdiff_t>(same_behind))) {
        ++same_behind;
    }
    Replace(same_before, rows, rows_.size() - same_before - same_behind, rows.size() - same_before - same_behind);
}

void GridModel::Replace(std::size_t from, const std::vector<Row>& rows, std::size_t old_count, std::size_t new_count) {
    const auto place = [](std::size_t row) { return static_cast<std::ptrdiff_t>(row); };
    const auto number = [](std::size_t row) { return static_cast<int>(row); };
    const std::size_t changed = std::min(old_count, new_count);
    std::copy_n(rows.begin() + place(from), changed, rows_.begin() + place(from));
    if (changed > 0) Q_EMIT dataChanged(index(number(from), 0), index(number(from + changed) - 1, columnCount() - 1));

    const std::size_t behind = from + changed;
    if (old_count > new_count) {
        beginRemoveRows({}, number(behind), number(from + old_count) - 1);
        rows_.erase(rows_.begin() + place(behind), rows_.begin() + place(from + old_count));
        endRemoveRows();
    } else if (new_count > old_count) {
        beginInsertRows({}, number(behind), number(from + new_count) - 1);
        rows_.insert(rows_.begin() + place(behind), rows.begin() + place(behind),
                     rows.begin() + place(from + new_count));
        endInsertRows();
    }
}

QModelIndex GridModel::IndexOf(Long row, Long col) const {
    if (row < first_) return {};
    return index(static_cast<int>(row.value()) - first_, static_cast<int>(col.value()));
}

bool GridModel::ReadsLeftToRight(const QModelIndex& index) const {
    if (!index.isValid()) return false;
    return right_columns_.contains(index.column()) || rows_[static_cast<std::size_t>(index.row())].link;
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(grid_.Cols().value());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return row.texts[index.column()];
        case Qt::CheckStateRole:
            if (index.column() != row.tick_column) return {};
            return row.selected ? Qt::Checked : Qt::Unchecked;
        case Qt::BackgroundRole:
            return row.selected ? QVariant(SelectedRow()) : QVariant();
        case Qt::DecorationRole:
            return row.link ? QVariant(PaperClip(QGuiApplication::palette())) : QVariant();
        case Qt::ForegroundRole:
            return row.link ? QVariant(Link()) : QVariant();
        case Qt::ToolTipRole:
            return Tip(index);
        case Qt::TextAlignmentRole:
            return Alignment(index.column());
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= headings_.size()) return {};
    if (role == Qt::TextAlignmentRole) return Alignment(section);
    return role == Qt::DisplayRole ? QVariant(headings_[section]) : QVariant();
}

QVariant GridModel::Alignment(int column) const {
    return right_columns_.contains(column) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
}

QString GridModel::Tip(const QModelIndex& index) const {
    const QString text = index.data().toString().toHtmlEscaped();
    return (ReadsLeftToRight(index) ? "<div dir='ltr'>" : "<div>") + text;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
    return index.data(Qt::CheckStateRole).isValid() ? flags | Qt::ItemIsUserCheckable : flags;
}

}  // namespace mrlxmlclass::qt
