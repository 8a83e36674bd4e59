#pragma once

#include <QTableView>
#include <functional>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/CellDelegate.h"
#include "qt/GridModel.h"

namespace mrlxmlclass::qt {

/// A table of the form on the screen. Clicks, keys and edits go to the form; what it makes of them is shown.
class GridView : public QTableView {
public:
    GridView(EditTask& form, GridControl& grid, QWidget* parent);

    GridModel& model() { return model_; }

    void Follow();
    /// What is half typed in a cell is thrown away.
    void DropEdit();

    /// What the form has for this table; left empty, nothing follows.
    std::function<void(Long row)> on_click;    ///< also Space on the current row
    std::function<void(Integer code)> on_key;  ///< of the keys that edit rows: Delete
    std::function<void()> on_open;             ///< a double click or Enter, or Space where on_click has no meaning
    std::function<void()> on_leave;            ///< the focus went elsewhere in the window

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// The cell that is edited when a key is typed in this one.
    QModelIndex EditedFrom(const QModelIndex& index) const;
    /// `at` is where in the view.
    void Clicked(const QModelIndex& index, QPoint at);
    /// The focus left the table itself, or an editor in it.
    void Left();
    void ShowCurrent();
    void TellTopRow();

    EditTask& form_;
    GridControl& grid_;
    GridModel model_;
    CellDelegate* delegate_;
    QPoint pressed_at_;
    bool following_ = false;
    Long top_row_;
    bool scroll_on_show_ = false;
};

}  // namespace mrlxmlclass::qt
