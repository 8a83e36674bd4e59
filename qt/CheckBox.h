#pragma once

#include <QCheckBox>

namespace mrlxmlclass::qt {

/// Draws a faint line around a box to tick: some styles draw it in hardly another colour than what a dark desktop has
/// around it.
void DrawOutline(QPainter& painter, const QRect& box, const QPalette& palette);

/// A check box that can be seen on a dark desktop.
class CheckBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace mrlxmlclass::qt
