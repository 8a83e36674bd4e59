#include <gtest/gtest.h>

#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "tests/qt/Looks.h"

namespace mrlxmlclass::testing {
namespace {

/// Of the tables.
class CellLooks : public Looks {};

// --- Texts -----------------------------------------------------------------------------------------------------------

TEST_F(CellLooks, WritesNumbersAndAddressesFromLeftToRightAlsoInAMirroredWindow) {
    AddNote(plan, "Foundation", "", "http://www.a.example/");
    QImage lag;
    QImage address;
    for (const bool mirrored : {false, true}) {
        QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        LookAt(1, [&](QWidget& window) {
            auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
            EditCell(table, 0, 3);
            QTest::keyClicks(&OpenLine(table), "-5");
            QTest::keyClick(&OpenLine(table), Qt::Key_Return);
            table.setCurrentIndex(table.model()->index(2, 1));
            Find(window, "TxtName").setFocus();
            const QImage lag_here = Drawn(*table.viewport(), CellOf(table, 0, 3));

            Find<QTabWidget>(window, "TabTask").setCurrentIndex(2);
            Settle();
            auto& links = Find<QTableView>(window, "gridattachement");
            const QModelIndex link = links.model()->index(2, 0);
            const int clip = links.fontMetrics().height() + 6;
            const QRect text = CellOf(links, 2, 0).adjusted(mirrored ? 0 : clip, 0, mirrored ? -clip : 0, 0);
            const QImage address_here = Drawn(*links.viewport(), text);
            QTextDocument tip;
            tip.setDefaultTextOption(QTextOption(Qt::AlignLeft));
            tip.setHtml(link.data(Qt::ToolTipRole).toString());
            EXPECT_EQ(tip.firstBlock().textDirection(), Qt::LeftToRight);
            if (mirrored) {
                EXPECT_LT(Unlikeness(lag_here, lag), 30);
                EXPECT_LT(Unlikeness(address_here, address), 30);
            } else {
                lag = lag_here;
                address = address_here;
            }
        });
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(CellLooks, BeginsNewPersonWhereTheNamesDo) {
    LookAt(3, [](QWidget& window) {
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        const int box = people.style()->pixelMetric(QStyle::PM_IndicatorWidth) + 4;
        const auto begin_of = [&](int row, int from) {
            return Drawn(*people.viewport(), CellOf(people, row, 1).adjusted(from, 0, 0, 0)).offset().x();
        };
        const int names = begin_of(2, box);
        EXPECT_NEAR(begin_of(5, 0), names, 1);
        EditCell(people, 5, 1);
        const QLineEdit& line = OpenLine(people);
        const QRectF caret = line.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
        EXPECT_NEAR(line.x() + caret.center().x(), names, 3) << "also while one is typed";
    });
}

TEST_F(CellLooks, AlignsNumbersAtTheirEnds) {
    LookAt(1, [](QWidget& window) {
        const auto& model = *Find<QTableView>(window, "VSFlexGridPredecessor").model();
        for (const auto& [col, right] : {std::pair(0, true), {1, false}, {3, true}}) {
            const auto at_right = [](const QVariant& alignment) { return (alignment.toInt() & Qt::AlignRight) != 0; };
            EXPECT_EQ(at_right(model.index(0, col).data(Qt::TextAlignmentRole)), right) << col;
            EXPECT_EQ(at_right(model.headerData(col, Qt::Horizontal, Qt::TextAlignmentRole)), right) << col;
        }
    });
}

TEST_F(CellLooks, TellsTheWholeOfANameThatDoesNotFit) {
    const String name = "A <b>name</b> that is longer than any column, " + String(200, 'o');
    AddPerson(plan, name);
    LookAt(3, [&](QWidget& window) {
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        const auto tip_of = [&](int row) {
            const QPoint place = CellOf(people, row, 1).center();
            QHelpEvent rests(QEvent::ToolTip, place, people.viewport()->mapToGlobal(place));
            QCoreApplication::sendEvent(people.viewport(), &rests);
            return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString();
        };
        EXPECT_EQ(tip_of(0), "") << "all of it shows";
        EXPECT_EQ(tip_of(5), name);
    });
}

TEST_F(CellLooks, TellsNothingWhereThereIsNoRow) {
    for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        QApplication::setLayoutDirection(direction);
        LookAt(2, [](QWidget& window) {
            auto& links = Find<QTableView>(window, "gridattachement");
            const QPoint below = links.viewport()->rect().center() + QPoint(0, links.viewport()->height() / 3);
            ASSERT_FALSE(links.indexAt(below).isValid());
            QHelpEvent rests(QEvent::ToolTip, below, links.viewport()->mapToGlobal(below));
            QCoreApplication::sendEvent(links.viewport(), &rests);
            EXPECT_FALSE(QToolTip::isVisible());
            EXPECT_FALSE(links.model()->data({}).isValid());
        });
    }
}

TEST_F(CellLooks, TicksABoxWhereItIsDrawnAndMovesThere) {
    for (const char* name : {"Ann", "Bob", "Carlos"}) AddPerson(plan, name);
    LookAt(3, [](QWidget& window) {
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        const QModelIndex last = people.model()->index(people.model()->rowCount() - 2, 1);
        const QRect cell = people.visualRect(last);
        const QVariant before = last.data(Qt::CheckStateRole);
        QTest::mouseClick(people.viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(8, cell.height() / 2));
        EXPECT_NE(last.data(Qt::CheckStateRole), before);
        EXPECT_EQ(people.currentIndex().row(), last.row());
    });
}

// --- Colours ---------------------------------------------------------------------------------------------------------

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

TEST_F(CellLooks, FramesTheCurrentCellOfASelectedRow) {
    OnBothDesktops([this] {
        LookAt(1, [](QWidget& window) {
            auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
            table.setFocus();
            table.setCurrentIndex(table.model()->index(0, 3));
            const QRect cell = CellOf(table, 0, 3);
            const QRect edge(cell.topLeft(), QSize(3, cell.height()));
            EXPECT_GT(StandsOut(*table.viewport(), edge), 60);
            QTest::keyClick(&table, Qt::Key_Left);
            EXPECT_TRUE(table.selectionModel()->isSelected(table.model()->index(0, 3)));
            EXPECT_LT(StandsOut(*table.viewport(), edge), 10) << "the frame goes along";
        });
    });
}

TEST_F(CellLooks, FramesACellThatIsTypedIn) {
    OnBothDesktops([this] {
        LookAt(1, [](QWidget& window) {
            auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
            EditCell(table, 0, 3);
            QLineEdit& line = OpenLine(table);
            EXPECT_GT(StandsOut(line, QRect(0, 0, 3, line.height())), 40);
        });
    });
}

TEST_F(CellLooks, DrawsPaperClipsInTheColourOfTextsThatAreSelected) {
    LookAt(2, [](QWidget& window) {
        auto& links = Find<QTableView>(window, "gridattachement");
        ClickCell(links, 0, 0);
        QTest::keyClick(&links, Qt::Key_Down);
        const QRect cell = CellOf(links, 1, 0);
        const QImage row = links.viewport()->grab(cell.adjusted(2, 2, -2, -2)).toImage();
        const int ground = qGray(links.palette().color(QPalette::Highlight).rgb());
        EXPECT_EQ(qGray(row.pixel(0, 0)), ground);
        int lightest = 0;
        for (int y = 0; y < row.height(); ++y) {
            for (int x = 0; x < links.fontMetrics().height(); ++x) {
                EXPECT_GE(qGray(row.pixel(x, y)), ground) << "nothing of it is black";
                lightest = std::max(lightest, qGray(row.pixel(x, y)));
            }
        }
        EXPECT_GT(lightest, ground + 60);

        QPalette inverted = links.palette();  // as some styles have it while another window is active
        inverted.setColor(QPalette::Highlight, Qt::white);
        inverted.setColor(QPalette::HighlightedText, Qt::black);
        links.setPalette(inverted);
        const QRect clip(cell.topLeft() + QPoint(2, 2), QSize(links.fontMetrics().height(), cell.height() - 4));
        EXPECT_GT(StandsOut(*links.viewport(), clip), 60);
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

// --- Sizes -----------------------------------------------------------------------------------------------------------

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
