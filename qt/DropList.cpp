#include "qt/DropList.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace mrlxmlclass::qt {

bool DropsDown(const QKeyEvent& key) {
    return (key.key() == Qt::Key_F4 && key.modifiers() == Qt::NoModifier) ||
           (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
}

void DropList::showPopup() {
    view()->installEventFilter(this);
    view()->setCurrentIndex({});  // otherwise the list goes to its first entry by itself
    QComboBox::showPopup();
    view()->setCurrentIndex(model()->index(Standing(), modelColumn()));
}

// Enter without an entry closes the list.
bool DropList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == view() && !view()->currentIndex().isValid()) {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            hidePopup();
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void DropList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (DropsDown(*event)) showPopup();
            return;
        default:
            QComboBox::keyPressEvent(event);
    }
}

}  // namespace mrlxmlclass::qt
