#include "qt/CheckBox.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace mrlxmlclass::qt {

void DrawOutline(QPainter& painter, const QRect& box, const QPalette& palette) {
    constexpr double kFaint = 0.4;
    painter.save();
    painter.setOpacity(kFaint);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

void CheckBox::paintEvent(QPaintEvent* event) {
    QCheckBox::paintEvent(event);
    QStyleOptionButton box;
    initStyleOption(&box);
    QPainter painter(this);
    DrawOutline(painter, style()->subElementRect(QStyle::SE_CheckBoxIndicator, &box, this), palette());
}

}  // namespace mrlxmlclass::qt
