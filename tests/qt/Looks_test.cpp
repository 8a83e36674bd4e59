#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QHeaderView>
#include <QLabel>
#include <QSizeGrip>
#include <QStyleOptionButton>
#include <QTabWidget>
#include <QTextCharFormat>
#include <QTextEdit>
#include <QTimer>

#include "tests/qt/Looks.h"

namespace mrlxmlclass::testing {
namespace {

// --- Texts -----------------------------------------------------------------------------------------------------------

TEST_F(Looks, HasTheTextsOfTheHost) {
    LookAt(0, [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Task information");
        const auto& tabs = Find<QTabWidget>(window, "TabTask");
        QStringList texts;
        for (int tab = 0; tab < tabs.count(); ++tab) texts << tabs.tabText(tab);
        EXPECT_EQ(texts, (QStringList{"General", "Predecessors", "Notes and attachments", "People"}));
        for (const auto& [button, text] : {std::pair("CmdOK", "OK"), {"CmdCancel", "Cancel"}, {"CmdHelp", "&Help"}}) {
            EXPECT_EQ(Find<QAbstractButton>(window, button).text(), text);
        }
    });
}

TEST_F(Looks, HasFieldsAndTablesInTheFontOfTheHost) {
    QFont other = QApplication::font();
    other.setPointSizeF(17);
    QApplication::setFont(other);
    LookAt(0, [&](QWidget& window) {
        const QWidget* const told[] = {&Find(window, "TxtName"),
                                       &Find(window, "TxtDurtion"),
                                       &Find(window, "TxtPercentComplet"),
                                       &Find(window, "Txtcost"),
                                       &DateIn(window, "DTPickerStart"),
                                       &DateIn(window, "DTPickerEnd"),
                                       &Find(window, "txtNote"),
                                       &Find(window, "VSFlexGridPredecessor"),
                                       &Find(window, "VSFlexGridResource"),
                                       &Find(window, "gridattachement")};
        for (const QWidget* widget : told) {
            EXPECT_EQ(widget->font().families().value(0), "Arial") << widget->objectName().toStdString();
            EXPECT_EQ(widget->font().pointSizeF(), 10) << widget->objectName().toStdString();
        }
        EXPECT_EQ(Find(window, "LblDuration").font().families().value(0), other.family());
        EXPECT_EQ(Find(window, "LblDuration").font().pointSizeF(), 17);
    });
}

TEST_F(Looks, HasHeadingsInBold) {
    LookAt(0, [](QWidget& window) {
        QWidget& frame = Find(window, "FrStartDate");
        QFont heading = frame.font();
        const int plain = QFontMetrics(heading).tightBoundingRect("Schedule").width();
        heading.setBold(true);
        const int bold = QFontMetrics(heading).tightBoundingRect("Schedule").width();
        const QRect top(0, 0, frame.width(), QFontMetrics(heading).height());
        int last = 0;
        for (int x = 0; x < top.width(); ++x) {
            if (StandsOut(frame, QRect(x, 0, 1, top.height())) > 60) last = x;
        }
        EXPECT_GT(bold, plain + 3);
        EXPECT_GT(last, (plain + bold) / 2);
    });
}

TEST_F(Looks, BeginsItsHeadingsWhereTheLabelsBelowThemDo) {
    for (const char* style : {"fusion", "windows"}) {
        for (const bool mirrored : {false, true}) {
            QApplication::setStyle(style);
            QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            LookAt(0, [&](QWidget& window) {
                QWidget& frame = Find(window, "FrStartDate");
                const QImage heading = Drawn(frame, QRect(0, 0, frame.width(), frame.fontMetrics().height()));
                const QRect label = Find(window, "LblStartDate").geometry();
                const int begin = heading.offset().x();
                constexpr int kNear = 4;  // half a blank may stand around it
                if (mirrored) {
                    EXPECT_NEAR(begin + heading.width() - 1, label.right(), kNear) << style;
                } else {
                    EXPECT_NEAR(begin, label.left(), kNear) << style;
                }
            });
        }
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

// --- Colours ---------------------------------------------------------------------------------------------------------

TEST_F(Looks, OutlinesBoxesOnADarkDesktop) {
    QApplication::setPalette(DarkPalette());
    LookAt(0, [](QWidget& window) {
        auto& box = Find<QCheckBox>(window, "chkAsMilistones");
        QStyleOptionButton option;
        option.initFrom(&box);
        const QRect square = box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
        const QColor edge = ColourAt(box, {square.left(), square.center().y()});
        EXPECT_GT(Difference(edge, box.palette().color(QPalette::Window)), 40);
    });
}

TEST_F(Looks, HasWeekendsThatCanBeReadInItsCalendar) {
    OnBothDesktops([this] {
        LookAt(0, [](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClick(&start, Qt::Key_F4);
            const QCalendarWidget& calendar = *start.calendarWidget();
            for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
                const QColor red = calendar.weekdayTextFormat(day).foreground().color();
                EXPECT_GE(Difference(red, QApplication::palette().color(QPalette::Base)), 80);
                EXPECT_EQ(red.hue(), 0) << "it is still told from other days";
            }
            EXPECT_EQ(calendar.weekdayTextFormat(Qt::Friday).foreground().style(), Qt::NoBrush);
            QTest::keyClick(start.calendarWidget()->window(), Qt::Key_Escape);
        });
    });
}

// --- Sizes -----------------------------------------------------------------------------------------------------------

TEST_F(Looks, GivesAnAddressFiftyCharacters) {
    LookAt(2, [](QWidget& window) {
        QTimer::singleShot(0, [] {
            QWidget& address = *QApplication::activeModalWidget();
            EXPECT_GE(Find(address, "txturl").width(), 50 * address.fontMetrics().averageCharWidth());
            Click(Find(address, "CmdCancel"));
        });
        Click(Find(window, "Cmdlink"));
    });
}

/// How much larger a widget is in the larger window.
QSize Growth(QWidget& window, QWidget& widget, QSize larger) {
    const QSize before = widget.size();
    const QSize window_before = window.size();
    window.resize(window_before + larger);
    Settle();
    const QSize growth = widget.size() - before;
    window.resize(window_before);
    Settle();
    return growth;
}

TEST_F(Looks, GrowsWithItsWindow) {
    constexpr QSize kLarger(300, 200);
    LookAt(0, [&](QWidget& window) {
        EXPECT_NE(window.findChild<QSizeGrip*>(), nullptr);
        auto& tabs = Find<QTabWidget>(window, "TabTask");
        EXPECT_EQ(Growth(window, tabs, kLarger), kLarger);
        EXPECT_EQ(Growth(window, Find(window, "TxtName"), kLarger), QSize(300, 0));
        EXPECT_EQ(Growth(window, Find(window, "TxtDurtion"), kLarger), QSize(0, 0));
        for (const auto& [tab, table, column] :
             {std::tuple(1, "VSFlexGridPredecessor", 1), {3, "VSFlexGridResource", 1}}) {
            tabs.setCurrentIndex(tab);
            auto& view = Find<QTableView>(window, table);
            EXPECT_EQ(Growth(window, view, kLarger), kLarger) << table;
            const QHeaderView& header = *view.horizontalHeader();
            const int before = header.sectionSize(column);
            window.resize(window.size() + kLarger);
            Settle();
            EXPECT_EQ(header.sectionSize(column), before + 300) << table;
            window.resize(window.size() - kLarger);
            Settle();
        }
        tabs.setCurrentIndex(2);
        auto& note = Find<QTextEdit>(window, "txtNote");
        auto& links = Find<QTableView>(window, "gridattachement");
        EXPECT_EQ(Growth(window, note, kLarger).width(), 300);
        EXPECT_EQ(Growth(window, links, kLarger).width(), 300);
        EXPECT_EQ(Growth(window, note, kLarger).height() + Growth(window, links, kLarger).height(), 200);
        EXPECT_GT(Growth(window, note, kLarger).height(), 100) << "the larger share";
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
