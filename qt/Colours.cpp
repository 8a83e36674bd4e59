#include "qt/Colours.h"

#include <QGuiApplication>
#include <QPalette>
#include <cstdlib>

namespace mrlxmlclass::qt {

QColor ReadableOnPaper(const QColor& colour) {
    constexpr int kReadable = 80;
    const QPalette palette = QGuiApplication::palette();
    const QColor paper = palette.color(QPalette::Base);
    if (std::abs(qGray(colour.rgb()) - qGray(paper.rgb())) >= kReadable) return colour;
    const QColor text = palette.color(QPalette::Text);
    return {(colour.red() + text.red()) / 2, (colour.green() + text.green()) / 2, (colour.blue() + text.blue()) / 2};
}

}  // namespace mrlxmlclass::qt
