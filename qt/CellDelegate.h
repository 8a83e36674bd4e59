#pragma once

#include <QStyledItemDelegate>
#include <functional>

#include "mrlxmlclass/dialog/EditTask.h"

class QLineEdit;

namespace mrlxmlclass::qt {

class GridModel;

/// Opens and closes the editors of a table's cells as the form says: a line, or a list to choose from.
class CellDelegate : public QStyledItemDelegate {
public:
    CellDelegate(EditTask& form, GridControl& grid, const GridModel& model, QObject* parent)
        : QStyledItemDelegate(parent), form_(form), grid_(grid), model_(model) {}

    /// The place of the arrow that tells that the cell offers a list; an empty one in other cells.
    QRect ArrowIn(const QAbstractItemView& view, const QModelIndex& index) const;

    std::function<void()> on_leave;  ///< the person went on from an editor, which has taken in what was typed

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// The tip of a link, or of a text that does not show as a whole.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* NewLine(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    QWidget* NewList(QWidget* parent) const;
    bool OffersList(const QModelIndex& index) const;
    bool LineKey(QLineEdit& line, const QKeyEvent& key);

    EditTask& form_;
    GridControl& grid_;
    const GridModel& model_;
    /// Closing an editor is not const, as making one is.
    const std::function<void(QWidget*)> close_ = [this](QWidget* editor) { Q_EMIT closeEditor(editor); };
};

}  // namespace mrlxmlclass::qt
