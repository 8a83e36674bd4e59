#pragma once

#include <QAbstractSpinBox>
#include <functional>

class QLineEdit;

namespace mrlxmlclass::qt {

/// Two arrows beside a field, which step its value: a spin box of the desktop's own without the field. While the field
/// has the focus, its arrow keys and the mouse wheel over either step the value too.
class StepArrows : public QAbstractSpinBox {
public:
    /// `line` is where the field shows the value.
    StepArrows(QWidget& field, const QLineEdit& line, std::function<void()> up, std::function<void()> down);

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

private:
    bool StepKey(const QKeyEvent& key);
    bool CanBeUsed() const { return isEnabled() && !isHidden(); }

    QWidget& field_;
    std::function<void()> up_;
    std::function<void()> down_;
};

}  // namespace mrlxmlclass::qt
