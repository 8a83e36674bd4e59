#pragma once

#include <QGroupBox>

namespace mrlxmlclass::qt {

/// Controls that belong together, under a heading and without a line around them. Where nothing shows, the heading does
/// not show either.
class Frame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

    void setVisible(bool visible) override;
    /// The frame's layout, which begins where the heading does, close below it.
    template <class Layout>
    Layout* Lay(Layout* layout) {
        constexpr int kAir = 4;
        setLayout(layout);
        layout->setContentsMargins(0, kAir, 0, kAir);
        return layout;
    }

    /// To be told when the widget came to show or not: the frame that it stands in follows.
    static void ContentChanged(const QWidget& widget);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool wanted_ = true;
};

}  // namespace mrlxmlclass::qt
