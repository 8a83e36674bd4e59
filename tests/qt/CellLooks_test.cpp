#include <gtest/gtest.h>

#include <QTabWidget>

#include "tests/qt/Looks.h"

namespace mrlxmlclass::testing {
namespace {

/// Of the tables.
class CellLooks : public Looks {};

// --- Colours --------------------------------------------------------------------------------------------------------

TEST_F(CellLooks, WritesLinksInTheDesktopsColourOfLinks) {
    QPalette palette;
    palette.setColor(QPalette::Link, Qt::darkGreen);
    QApplication::setPalette(palette);
    LookAt(2, [](QWidget& window) {
        const auto& links = *Find<QTableView>(window, "gridattachement").model();
        for (int row = 0; row < 2; ++row) {
            EXPECT_EQ(links.index(row, 0).data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::darkGreen));
        }
    });
}

TEST_F(CellLooks, TintsWhoWorksOnTheTask) {
    OnBothDesktops([this] {
        LookAt(3, [](QWidget& window) {
            auto& people = Find<QTableView>(window, "VSFlexGridResource");
            const auto paper = [&](int row) {
                return ColourAt(*people.viewport(), CellOf(people, row, 1).topRight() + QPoint(-9, 4));
            };
            const auto distance = [](const QColor& one, const QColor& other) {
                return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
                       std::abs(one.blue() - other.blue());
            };
            EXPECT_GT(distance(paper(1), paper(3)), 50) << "one works on the task, the other does not";
            EXPECT_EQ(distance(paper(0), paper(2)), 0) << "neither of them does";
        });
    });
}

TEST_F(CellLooks, FramesTheCurrentPersonSoThatItIsSeen) {
    OnBothDesktops([this] {
        LookAt(3, [](QWidget& window) {
            auto& people = Find<QTableView>(window, "VSFlexGridResource");
            Find<QTabWidget>(window, "TabTask").setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            for (const int row : {4, 3}) {  // the one works on the task, the other does not
                EXPECT_EQ(people.currentIndex().row(), row);
                const QRect cell = people.visualRect(people.currentIndex());
                const QRect edge(cell.right() - 3, cell.top(), 4, cell.height());
                EXPECT_GT(StandsOut(*people.viewport(), edge), 60) << row;
                QTest::keyClick(&people, Qt::Key_Up);
                EXPECT_LT(StandsOut(*people.viewport(), edge), 10) << "the frame goes along";
            }
        });
    });
}

TEST_F(CellLooks, DrawsTheArrowOfACellThatOffersAList) {
    OnBothDesktops([this] {
        LookAt(1, [](QWidget& window) {
            auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
            const QRect cell = CellOf(table, 1, 1);
            const QRect end(cell.right() - cell.height(), cell.top() + 2, cell.height(), cell.height() - 4);
            EXPECT_GT(StandsOut(*table.viewport(), end), 60);
        });
    });
}

// --- Sizes ----------------------------------------------------------------------------------------------------------

TEST_F(CellLooks, HasPaperClipsAsHighAsTheirLinks) {
    LookAt(2, [this](QWidget& window) {
        plan.form().gridattachement.Font({"Arial", "24"});
        const auto& links = Find<QTableView>(window, "gridattachement");
        const QModelIndex link = links.model()->index(0, 0);
        const int high = links.fontMetrics().height();
        const int around = high / 4;
        const int before = links.sizeHintForIndex(link).width() - 2 * around -
                           links.fontMetrics().horizontalAdvance(link.data().toString());
        EXPECT_GE(before, high);
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
