#pragma once

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>

namespace mrlxmlclass::qt {

/// Whether the key is held so long that it comes again, and is one that presses a button or leaves a window.
inline bool PressesAgain(const QKeyEvent& event) {
    const bool presses = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Escape;
    return presses && event.isAutoRepeat();
}

/// What an ordinary button or window does for each key that comes, these do once for a key that is held: its first
/// press may have been meant for what was there before, a cell, a list or another window.
template <class Widget>
class OncePressed : public Widget {
public:
    using Widget::Widget;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!PressesAgain(*event)) Widget::keyPressEvent(event);
    }
};

using Button = OncePressed<QPushButton>;
using Window = OncePressed<QDialog>;

}  // namespace mrlxmlclass::qt
