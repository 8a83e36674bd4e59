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
    // Some styles leave room for a line that is not drawn here.
    const QRect label = style()->subControlRect(QStyle::CC_GroupBox, &box, QStyle::SC_GroupBoxLabel, this);
    const QRect content = contentsRect();
    painter.translate(isRightToLeft() ? content.right() - label.right() : content.left() - label.left(), 0);
    painter.drawComplexControl(QStyle::CC_GroupBox, box);
}

void Frame::ContentChanged(const QWidget& widget) {
    auto* frame = dynamic_cast<Frame*>(widget.parentWidget());
    if (frame != nullptr) frame->setVisible(frame->wanted_);
}

}  // namespace mrlxmlclass::qt
