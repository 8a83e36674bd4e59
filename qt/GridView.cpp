#include "qt/GridView.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

namespace mrlxmlclass::qt {

GridView::GridView(EditTask& form, GridControl& grid, QWidget* parent)
    : QTableView(parent),
      form_(form),
      grid_(grid),
      model_(form, grid),
      delegate_(new CellDelegate(form, grid, model_, this)),
      top_row_(grid.TopRow()) {
    setModel(&model_);
    setItemDelegate(delegate_);
    setTabKeyNavigation(false);  // Tab leads on to the next control
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setVisible(grid.FixedRows() > 0);

    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) { Clicked(index, pressed_at_); });
    connect(this, &QTableView::doubleClicked, this, [this] {
        if (on_open) on_open();
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (!following_) TellTopRow();
    });
    delegate_->on_leave = [this] { Left(); };
}

void GridView::Follow() {
    {
        const QScopedValueRollback<bool> following(following_, true);
        model_.Follow();
        for (Long col = 0; col < grid_.Cols(); ++col) {
            setColumnHidden(static_cast<int>(col.value()), static_cast<bool>(grid_.ColHidden(col)));
        }
        ShowCurrent();
        if (top_row_ != grid_.TopRow()) {
            top_row_ = grid_.TopRow();
            scroll_on_show_ = !isVisible();
            scrollTo(model_.IndexOf(top_row_, 0), PositionAtTop);
        }
    }
    // Fewer rows, or the current one, may have moved the table.
    if (isVisible()) TellTopRow();
}

void GridView::TellTopRow() {
    const QModelIndex top = indexAt(QPoint(0, 0));
    if (scroll_on_show_ || !top.isValid()) return;
    top_row_ = model_.GridRow(top);
    grid_.TopRow(top_row_);
}

void GridView::DropEdit() {
    QWidget* editor = indexWidget(currentIndex());
    if (editor != nullptr) closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

// A table that has not been shown yet goes to its current row first.
void GridView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (std::exchange(scroll_on_show_, false)) scrollTo(model_.IndexOf(top_row_, 0), PositionAtTop);
}

void GridView::ShowCurrent() {
    const QModelIndex current = model_.IndexOf(grid_.Row(), grid_.Col());
    if (currentIndex() != current) setCurrentIndex(current);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);  // ends an edit in the cell that was current
    if (following_ || !current.isValid()) return;
    form_.MoveTo(grid_, model_.GridRow(current), current.column());
}

void GridView::mousePressEvent(QMouseEvent* event) {
    pressed_at_ = event->position().toPoint();
    QTableView::mousePressEvent(event);
}

// Where each click counts, so does the second of two quick ones.
void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (on_click) return mousePressEvent(event);
    if (event->button() == Qt::LeftButton) QTableView::mouseDoubleClickEvent(event);
}

void GridView::Clicked(const QModelIndex& index, QPoint at) {
    const QPersistentModelIndex cell = index;
    const bool opens = delegate_->ArrowIn(*this, index).contains(at);
    if (on_click) on_click(model_.GridRow(index));
    if (!cell.isValid()) return;
    if (opens || form_.ClickEdits(grid_, model_.GridRow(cell), cell.column())) edit(cell, AllEditTriggers, nullptr);
}

QModelIndex GridView::EditedFrom(const QModelIndex& index) const {
    return model_.IndexOf(model_.GridRow(index), form_.ColToEdit(grid_, model_.GridRow(index), index.column()));
}

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    if (!index.isValid() || !(trigger & (EditKeyPressed | AnyKeyPressed))) {
        return QTableView::edit(index, trigger, event);
    }
    const QModelIndex cell = EditedFrom(index);
    if (cell != index) setCurrentIndex(cell);
    return QTableView::edit(cell, trigger, event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const bool on_row = currentIndex().isValid();
    const bool space = event->key() == Qt::Key_Space;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool removes = event->key() == Qt::Key_Delete;
    if ((space || enter || removes) && event->isAutoRepeat()) return;  // a key that is held acts once
    if (removes && on_key) return on_key(EditTask::kDelete);
    if (space && on_row && on_click) return Clicked(EditedFrom(currentIndex()), {-1, -1});
    if ((space || enter) && on_row && on_open) return on_open();
    QTableView::keyPressEvent(event);
}

// What an input method types at once, without composing it, opens a line and does not get there by itself.
void GridView::inputMethodEvent(QInputMethodEvent* event) {
    QTableView::inputMethodEvent(event);
    auto* line = qobject_cast<QLineEdit*>(indexWidget(currentIndex()));
    if (line != nullptr && !event->commitString().isEmpty()) QCoreApplication::sendEvent(line, event);
}

// Who comes by the keyboard has a cell to go on from.
void GridView::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    const bool by_key =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (by_key && !currentIndex().isValid()) {
        setCurrentIndex(model_.index(rowAt(0), static_cast<int>(grid_.Col().value())));
    }
    QTableView::focusInEvent(event);
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    Left();
}

void GridView::Left() {
    const bool inside = isAncestorOf(window()->focusWidget());  // also where that is the table itself
    if (on_leave && !inside) on_leave();
}

}  // namespace mrlxmlclass::qt
