#pragma once

#include <QStyledItemDelegate>
#include <vector>

#include "mrlxmlclass/dialog/EditTask.h"

class QLineEdit;

namespace mrlxmlclass::qt {

class GridModel;

/// Opens and closes the editors of a table's cells as the form says: a line, or a list to choose from.
class CellDelegate : public QStyledItemDelegate {
public:
    CellDelegate(EditTask& form, GridControl& grid, const GridModel& model, QObject* parent)
        : QStyledItemDelegate(parent), form_(form), grid_(grid), model_(model) {}

    /// The cells of that column show that they offer a list.
    void MarkList(int column) { list_columns_.push_back(column); }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* NewList(QWidget* parent) const;
    bool LineKey(QLineEdit& line, const QKeyEvent& key);

    EditTask& form_;
    GridControl& grid_;
    const GridModel& model_;
    std::vector<int> list_columns_;
};

}  // namespace mrlxmlclass::qt
