#include "qt/StepArrows.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <utility>

namespace mrlxmlclass::qt {

StepArrows::StepArrows(QWidget* parent, std::function<void()> up, std::function<void()> down)
    : QAbstractSpinBox(parent), up_(std::move(up)), down_(std::move(down)) {
    lineEdit()->hide();
    setFocusPolicy(Qt::NoFocus);  // the field has it, and takes the arrow keys
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StepArrows::stepBy(int steps) {
    const std::function<void()>& step = steps > 0 ? up_ : down_;
    for (int done = 0; done < std::abs(steps); ++done) step();
}

QSize StepArrows::sizeHint() const {
    QStyleOptionSpinBox wide;
    initStyleOption(&wide);
    const int height = QAbstractSpinBox::sizeHint().height();
    wide.rect = QRect(0, 0, 10 * height, height);
    const QRect arrows = style()->subControlRect(QStyle::CC_SpinBox, &wide, QStyle::SC_SpinBoxUp, this);
    return {wide.rect.right() - arrows.left() + 1, height};
}

}  // namespace mrlxmlclass::qt
