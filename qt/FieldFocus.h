#pragma once

#include <QFocusEvent>
#include <QPointer>
#include <QWidget>

namespace mrlxmlclass::qt {

/// Whether the person leaves the field with that. Who turns to another window, or opens a menu, comes back to what is
/// half typed.
inline bool LeavesField(const QEvent& event) {
    if (event.type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

/// Tells a field that the focus of its window leaves it where Qt does not: while the keys go to another window.
class FieldFocus : public QObject {
public:
    explicit FieldFocus(QWidget& window);

private:
    void Moved();

    QWidget& window_;
    QPointer<QWidget> field_;  ///< that the focus is in
};

}  // namespace mrlxmlclass::qt
