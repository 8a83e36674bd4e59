#pragma once

#include <QGroupBox>

namespace mrlxmlclass::qt {

/// Controls that belong together, under a heading and without a line around them. Where nothing shows, the heading does
/// not show either.
class Frame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

    void setVisible(bool visible) override;

    /// To be told when the widget came to show or not: the frame that it stands in follows.
    static void ContentChanged(const QWidget& widget);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool wanted_ = true;
};

}  // namespace mrlxmlclass::qt
