#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTabWidget>
#include <QTableView>
#include <algorithm>
#include <cstdlib>
#include <functional>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {

/// What the dialog looks like, on a furnished task.
class Looks : public ::testing::Test {
protected:
    Looks() { Furnish(plan); }

    /// What is done stands in the window that shows the tab; the task is left as it is.
    void LookAt(int tab, const std::function<void(QWidget& window)>& look) {
        plan.Edit("Foundation", [&](QWidget& window) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
            Settle();
            look(window);
            Click(Find(window, "CmdCancel"));
        });
    }
    void OnBothDesktops(const std::function<void()>& look) {
        look();
        SCOPED_TRACE("dark");
        QApplication::setPalette(DarkPalette());
        look();
    }

    OffscreenApplication application;
    QtPlan plan;
};

inline int Difference(const QColor& one, const QColor& other) {
    return std::abs(qGray(one.rgb()) - qGray(other.rgb()));
}

/// Of the pixels in a part of a widget, the one that stands out most from its first.
inline int StandsOut(QWidget& widget, const QRect& part) {
    const QImage picture = widget.grab(part).toImage();
    int most = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            most = std::max(most, Difference(picture.pixelColor(x, y), picture.pixelColor(0, 0)));
        }
    }
    return most;
}

inline QColor ColourAt(QWidget& widget, QPoint place) {
    return widget.grab(QRect(place, QSize(1, 1))).toImage().pixelColor(0, 0);
}

/// What is drawn in a part of a widget, cut out of its ground.
inline QImage Drawn(QWidget& widget, const QRect& part) {
    const QImage picture = widget.grab(part).toImage();
    QRect drawn;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (Difference(picture.pixelColor(x, y), picture.pixelColor(0, 0)) > 60) drawn |= QRect(x, y, 1, 1);
        }
    }
    QImage cut = picture.copy(drawn);
    cut.setOffset(drawn.topLeft() + part.topLeft());
    return cut;
}

/// How far two pictures are apart on the average; a little where a text begins between two pixels.
inline int Unlikeness(const QImage& one, const QImage& other) {
    int sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) sum += Difference(one.pixelColor(x, y), other.pixelColor(x, y));
    }
    return sum / (one.width() * one.height());
}

inline QRect CellOf(const QTableView& table, int row, int col) {
    return table.visualRect(table.model()->index(row, col));
}

}  // namespace mrlxmlclass::testing
