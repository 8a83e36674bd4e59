#include "qt/Frame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <algorithm>

namespace mrlxmlclass::qt {

void Frame::setVisible(bool visible) {
    const QList<QWidget*> content = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    wanted_ = visible;
    QGroupBox::setVisible(wanted_ && !std::ranges::all_of(content, &QWidget::isHidden));
}

void Frame::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QFont heading = font();
    heading.setBold(true);
    painter.setFont(heading);
    QStyleOptionGroupBox box;
    initStyleOption(&box);
    box.fontMetrics = QFontMetrics(heading);
    box.subControls = QStyle::SC_GroupBoxLabel;
    painter.drawComplexControl(QStyle::CC_GroupBox, box);
}

void Frame::ContentChanged(const QWidget& widget) {
    auto* frame = dynamic_cast<Frame*>(widget.parentWidget());
    if (frame != nullptr) frame->setVisible(frame->wanted_);
}

}  // namespace mrlxmlclass::qt
