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
    // Some styles leave room for a line that is not drawn here.
    painter.translate(isRightToLeft() ? contentsRect().right() - rect().right() : contentsRect().left(), 0);
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
