#include "qt/PaperClip.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace mrlxmlclass::qt {
namespace {

constexpr double kSide = 16;  ///< of the square that the wire below is drawn in

/// One bent wire, from its outer end to its inner one.
QPainterPath Wire() {
    QPainterPath wire(QPointF(11.5, 5.5));
    wire.lineTo(11.5, 10.5);
    wire.arcTo(QRectF(4.5, 7, 7, 7), 0, -180);
    wire.lineTo(4.5, 4.5);
    wire.arcTo(QRectF(4.5, 2, 5, 5), 180, -180);
    wire.lineTo(9.5, 10.2);
    wire.arcTo(QRectF(6.5, 8.7, 3, 3), 0, -180);
    wire.lineTo(6.5, 6);
    return wire;
}

class Engine : public QIconEngine {
public:
    explicit Engine(const QPalette& palette) : palette_(palette) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        constexpr double kWire = 1.2;
        constexpr double kTilt = 30;  // degrees
        const QPalette::ColorRole text = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text;
        const double scale = std::min(rect.width(), rect.height()) / kSide;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        painter->scale(scale, scale);
        painter->rotate(kTilt);
        painter->translate(-kSide / 2, -kSide / 2);
        painter->setPen(QPen(palette_.color(text), kWire, Qt::SolidLine, Qt::RoundCap));
        painter->drawPath(Wire());
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new Engine(*this); }

private:
    QPalette palette_;
};

}  // namespace

QIcon PaperClip(const QPalette& palette) {
    return QIcon(new Engine(palette));
}

}  // namespace mrlxmlclass::qt
