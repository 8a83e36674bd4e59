#include "qt/StepArrows.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>
#include <cstdlib>
#include <utility>

namespace mrlxmlclass::qt {

StepArrows::StepArrows(QWidget& field, const QLineEdit& line, std::function<void()> up, std::function<void()> down)
    : QAbstractSpinBox(field.parentWidget()), field_(field), up_(std::move(up)), down_(std::move(down)) {
    field.installEventFilter(this);
    lineEdit()->hide();
    // What a screen reader says. The form may have answered before this is told.
    connect(&line, &QLineEdit::textChanged, lineEdit(), [this, &line] { lineEdit()->setText(line.text()); });
    setFocusPolicy(Qt::ClickFocus);  // no stop for Tab
    setFocusProxy(&field);           // which takes the arrow keys
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StepArrows::stepBy(int steps) {
    const std::function<void()>& step = steps > 0 ? up_ : down_;
    for (int done = 0; done < std::abs(steps); ++done) step();
}

bool StepArrows::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return StepKey(static_cast<const QKeyEvent&>(*event));
        case QEvent::Wheel:
            wheelEvent(static_cast<QWheelEvent*>(event));
            return true;
        case QEvent::FocusOut:
            // An arrow that the mouse holds steps no further: where it is let go the arrows do not hear of it.
            focusOutEvent(static_cast<QFocusEvent*>(event));
            return false;
        case QEvent::FontChange:
        case QEvent::StyleChange:
            updateGeometry();  // as high as the field
            [[fallthrough]];
        default:
            return QAbstractSpinBox::eventFilter(watched, event);
    }
}

/// Whether the key goes no further.
bool StepArrows::StepKey(const QKeyEvent& key) {
    const bool alone = !(key.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::ShiftModifier));
    const bool steps = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
    if (!alone || !steps) return false;
    if (CanBeUsed()) stepBy(key.key() == Qt::Key_Up ? 1 : -1);
    return true;
}

void StepArrows::wheelEvent(QWheelEvent* event) {
    if (field_.hasFocus() && CanBeUsed()) return QAbstractSpinBox::wheelEvent(event);
    event->ignore();  // whoever scrolls past changes nothing
}

QSize StepArrows::sizeHint() const {
    QStyleOptionSpinBox wide;
    initStyleOption(&wide);
    wide.direction = Qt::LeftToRight;
    const int height = field_.sizeHint().height();
    wide.rect = QRect(0, 0, 10 * height, height);
    const QRect arrows = style()->subControlRect(QStyle::CC_SpinBox, &wide, QStyle::SC_SpinBoxUp, this);
    return {wide.rect.right() - arrows.left() + 1, height};
}

}  // namespace mrlxmlclass::qt
