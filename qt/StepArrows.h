#pragma once

#include <QAbstractSpinBox>
#include <functional>

namespace mrlxmlclass::qt {

/// Two arrows beside a field, which step its value: a spin box of the desktop's own without the field.
class StepArrows : public QAbstractSpinBox {
public:
    StepArrows(QWidget* parent, std::function<void()> up, std::function<void()> down);

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

private:
    std::function<void()> up_;
    std::function<void()> down_;
};

}  // namespace mrlxmlclass::qt
