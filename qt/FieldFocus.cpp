#include "qt/FieldFocus.h"

#include <QCoreApplication>
#include <QWindow>
#include <utility>

namespace mrlxmlclass::qt {

FieldFocus::FieldFocus(QWidget& window) : window_(window), field_(window.focusWidget()) {
    window.winId();
    connect(window.windowHandle(), &QWindow::focusObjectChanged, this, [this] { Moved(); });
}

// Comes before Qt itself tells the field.
void FieldFocus::Moved() {
    const QPointer<QWidget> left = std::exchange(field_, window_.focusWidget());
    if (left == nullptr || left == field_ || left->hasFocus()) return;
    QFocusEvent leave(QEvent::FocusOut);
    QCoreApplication::sendEvent(left, &leave);
}

}  // namespace mrlxmlclass::qt
