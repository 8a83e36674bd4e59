#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

#include "mrlxmlclass/dialog/GridControl.h"

namespace mrlxmlclass::qt {

/// A table of the form as Qt's views see it: the rows below the fixed ones, the last fixed one being the heading. It
/// stands still until it is told to follow.
class GridModel : public QAbstractTableModel {
public:
    explicit GridModel(const GridControl& grid);

    /// Rows whose data is something other than this show in that column, by a check box, whether they are selected.
    void ShowSelection(int column, const String& never);
    /// Takes over what the table has become, row by row, so that the view keeps its place.
    void Follow();

    Long GridRow(const QModelIndex& index) const { return Long(index.row() + first_); }
    /// An index of no row when there is none.
    QModelIndex IndexOf(Long row, Long col) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        QStringList texts;
        bool selectable = false;
        bool selected = false;
        bool link = false;
        friend bool operator==(const Row&, const Row&) = default;
    };
    Row RowOf(Long row) const;
    void Replace(std::size_t from, const std::vector<Row>& rows, std::size_t old_count, std::size_t new_count);

    const GridControl& grid_;
    int first_;
    int check_column_ = -1;
    String never_selected_;
    std::vector<Row> rows_;
    QStringList headings_;
};

}  // namespace mrlxmlclass::qt
