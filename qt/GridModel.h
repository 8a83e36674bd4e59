#pragma once

#include <QAbstractTableModel>
#include <QSet>
#include <QStringList>
#include <vector>

#include "mrlxmlclass/dialog/EditTask.h"

namespace mrlxmlclass::qt {

/// A table of the form as Qt's views see it: the rows below the fixed ones, the last fixed one being the heading. It
/// stands still until it is told to follow.
class GridModel : public QAbstractTableModel {
public:
    GridModel(const EditTask& form, const GridControl& grid);

    /// The column is one of numbers.
    void AlignRight(int column) { right_columns_ << column; }
    /// Takes over what the table has become, row by row, so that the view keeps its place.
    void Follow();

    Long GridRow(const QModelIndex& index) const { return Long(index.row() + first_); }
    /// An index of no row when there is none.
    QModelIndex IndexOf(Long row, Long col) const;

    /// Numbers and addresses are written so, also where texts are not.
    bool ReadsLeftToRight(const QModelIndex& index) const;
    bool HasTicks(int column) const { return tick_columns_.contains(column); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        QStringList texts;
        int tick_column = -1;
        bool selected = false;
        bool link = false;
        friend bool operator==(const Row&, const Row&) = default;
    };
    Row RowOf(Long row) const;
    QVariant Alignment(int column) const;
    QString Tip(const QModelIndex& index) const;
    void Replace(std::size_t from, const std::vector<Row>& rows, std::size_t old_count, std::size_t new_count);

    const EditTask& form_;
    const GridControl& grid_;
    int first_;
    QList<int> right_columns_;
    std::vector<Row> rows_;
    QStringList headings_;
    QSet<int> tick_columns_;
};

}  // namespace mrlxmlclass::qt
