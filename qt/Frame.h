#pragma once

#include <QGroupBox>

namespace mrlxmlclass::qt {

/// A box around controls. One in which nothing shows does not show either.
class Frame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

    void setVisible(bool visible) override;

    /// To be told when the widget came to show or not: the frame that it stands in follows.
    static void ContentChanged(const QWidget& widget);

private:
    bool wanted_ = true;
};

}  // namespace mrlxmlclass::qt
