#pragma once

#include <QFocusEvent>

namespace mrlxmlclass::qt {

/// Whether the person leaves the field with that. Who turns to another window, or opens a menu, comes back to what is
/// half typed.
inline bool LeavesField(const QEvent& event) {
    if (event.type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

}  // namespace mrlxmlclass::qt
