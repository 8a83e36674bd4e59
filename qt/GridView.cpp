#include "qt/GridView.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

namespace mrlxmlclass::qt {

GridView::GridView(EditTask& form, GridControl& grid, QWidget* parent)
    : QTableView(parent),
      form_(form),
      grid_(grid),
      model_(grid),
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
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setVisible(grid.FixedRows() > 0);

    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) { Clicked(index); });
    connect(this, &QTableView::doubleClicked, this, [this] {
        if (on_open) on_open();
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        const QModelIndex top = indexAt(QPoint(0, 0));
        if (following_ || scroll_on_show_ || !top.isValid()) return;
        top_row_ = model_.GridRow(top);
        grid_.TopRow(top_row_);
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* from, QWidget* to) { FocusMoved(from, to); });
}

void GridView::Follow() {
    const QScopedValueRollback<bool> following(following_, true);
    model_.Follow();
    for (Long col = 0; col < grid_.Cols(); ++col) {
        setColumnHidden(static_cast<int>(col.value()), static_cast<bool>(grid_.ColHidden(col)));
    }
    ShowCurrent();
    if (top_row_ == grid_.TopRow()) return;
    top_row_ = grid_.TopRow();
    scroll_on_show_ = !isVisible();
    scrollTo(model_.IndexOf(top_row_, 0), PositionAtTop);
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

void GridView::Clicked(const QModelIndex& index) {
    const QPersistentModelIndex cell = index;
    if (on_click) on_click(model_.GridRow(index));
    if (cell.isValid() && edits_at && edits_at(cell)) edit(cell, AllEditTriggers, nullptr);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const bool on_row = currentIndex().isValid();
    if (event->key() == Qt::Key_Delete && on_key) return on_key(EditTask::kDelete);
    if (event->key() == Qt::Key_Space && on_row && on_click) return Clicked(currentIndex());
    if (event->key() == Qt::Key_Space && on_row && on_open) return on_open();
    QTableView::keyPressEvent(event);
}

void GridView::FocusMoved(const QWidget* from, const QWidget* to) {
    const auto inside = [this](const QWidget* widget) { return widget == this || isAncestorOf(widget); };
    if (on_leave && from != nullptr && to != nullptr && inside(from) && !inside(to)) on_leave();
}

}  // namespace mrlxmlclass::qt
