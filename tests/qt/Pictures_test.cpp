#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// All tabs show, and no arrows to scroll to them.
void ExpectWholeTabs(const QWidget& window) {
    const QTabBar& tabs = *Find<QTabWidget>(window, "TabTask").tabBar();
    EXPECT_EQ(tabs.count(), 4);
    for (int tab = 0; tab < tabs.count(); ++tab) {
        EXPECT_TRUE(tabs.rect().contains(tabs.tabRect(tab))) << tab;
        EXPECT_GE(tabs.tabRect(tab).width(), tabs.fontMetrics().horizontalAdvance(tabs.tabText(tab))) << tab;
    }
}

/// Every caption that shows has the room that it needs.
void ExpectWholeCaptions(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool captioned = qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget);
        if (qobject_cast<const QTabBar*>(widget->parent())) continue;  // its arrows are Qt's own
        if (!captioned || !widget->isVisible() || widget->objectName().isEmpty()) continue;
        EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->sizeHint().height()) << widget->objectName().toStdString();
    }
}

/// Saves a picture of a window in its folder; the looks and the scale belong to its name.
void TakePicture(QWidget& window, const QString& looks, const QString& what) {
    const QDir folder(MRLXMLCLASS_PICTURES);
    ASSERT_TRUE(folder.mkpath("."));
    const QString scale = QString::number(qRound(100 * qApp->devicePixelRatio()));
    const QString name = QString("%1-%2-%3.png").arg(looks, scale, what);
    EXPECT_TRUE(window.grab().save(folder.filePath(name))) << name.toStdString();
}

/// Opens the dialog on a furnished task, or another; `person(window)` looks at it, and it is cancelled.
void LookAt(const std::function<void(QWidget& window)>& person, int from_where = 2, const char* task = "Foundation") {
    QtPlan plan;
    Furnish(plan);
    plan.Edit(
        task,
        [&](QWidget& window) {
            ExpectWholeTabs(window);
            person(window);
            Click(Find(window, "CmdCancel"));
        },
        from_where, "dd/MM/yyyy");
}

void GoTo(QWidget& window, int tab) {
    Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
    Settle();
}

/// Saves a picture of each tab.
void TakePictures(QWidget& window, const QString& looks) {
    const auto& tabs = Find<QTabWidget>(window, "TabTask");
    for (int tab = 0; tab < tabs.count(); ++tab) {
        if (!tabs.isTabEnabled(tab)) continue;
        GoTo(window, tab);
        ExpectWholeCaptions(window);
        TakePicture(window, looks, QString::number(tab));
    }
}

/// Does that on a light desktop, and on a dark one.
void OnBothDesktops(const std::function<void(const QString& looks)>& take) {
    const OffscreenApplication application;
    take("light");
    QApplication::setPalette(DarkPalette());
    take("dark");
}

TEST(Pictures, AreTakenOfEveryTab) {
    OnBothDesktops([](const QString& looks) { LookAt([&](QWidget& window) { TakePictures(window, looks); }); });
}

TEST(Pictures, AreTakenOfTheScreenThatShowsNamesOnly) {
    const OffscreenApplication application;
    LookAt([](QWidget& window) { TakePictures(window, "names"); }, 1);
}

TEST(Pictures, AreTakenFromRightToLeft) {
    const OffscreenApplication application;
    QApplication::setLayoutDirection(Qt::RightToLeft);
    LookAt([](QWidget& window) { TakePictures(window, "mirrored"); });
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST(Pictures, AreTakenOfTheSmallestWindow) {
    const OffscreenApplication application;
    LookAt([](QWidget& window) {
        window.resize(window.minimumSizeHint());
        TakePictures(window, "smallest");
    });
}

TEST(Pictures, AreTakenInALargeFontThatFitsTheScreen) {
    const OffscreenApplication application;
    const QFont large = LargeFont();
    QApplication::setFont(large);
    LookAt([&](QWidget& window) {
        EXPECT_EQ(Find(window, "lblName").font().pointSizeF(), large.pointSizeF()) << "the desktop's font";
        const QSize screen = window.screen()->availableSize().expandedTo(window.minimumSizeHint());
        EXPECT_LE(window.width(), screen.width());
        EXPECT_LE(window.height(), screen.height());
        EXPECT_LE(Find(window, "TxtPercentComplet").height(), Find(window, "TxtDurtion").height() + 2);
        TakePictures(window, "large");
    });
}

TEST(Pictures, AreTakenOfASummaryWhichKeepsItsName) {
    OnBothDesktops([](const QString& looks) {
        LookAt([&](QWidget& window) { TakePicture(window, looks, "summary"); }, 2, "House");
    });
}

TEST(Pictures, AreTakenOfATaskWithoutDates) {
    OnBothDesktops([](const QString& looks) {
        LookAt([&](QWidget& window) {
            Click(BoxIn(window, "DTPickerStart"));
            TakePicture(window, looks, "undated");
        });
    });
}

TEST(Pictures, AreTakenOfCellsThatAreTypedIn) {
    OnBothDesktops([](const QString& looks) {
        LookAt([&](QWidget& window) {
            GoTo(window, 1);
            EditCell(Find<QTableView>(window, "VSFlexGridPredecessor"), 1, 3);
            TakePicture(window, looks, "lag");
            GoTo(window, 3);
            auto& people = Find<QTableView>(window, "VSFlexGridResource");
            Find<QTabWidget>(window, "TabTask").tabBar()->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_TRUE(people.hasFocus());
            TakePicture(window, looks, "current");
            QTest::keyClick(&people, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClick(&people, Qt::Key_F2);
            QTest::keyClicks(&OpenLine(people), "Ida");
            TakePicture(window, looks, "person");
        });
    });
}

TEST(Pictures, AreTakenOfSelectedRows) {
    OnBothDesktops([](const QString& looks) {
        LookAt([&](QWidget& window) {
            GoTo(window, 1);
            auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
            table.setFocus();
            table.setCurrentIndex(table.model()->index(0, 3));
            TakePicture(window, looks, "predecessor");
            GoTo(window, 2);
            ClickCell(Find<QTableView>(window, "gridattachement"), 0, 0);
            TakePicture(window, looks, "attachment");
        });
    });
}

TEST(Pictures, AreTakenInAnotherStyle) {
    OnBothDesktops([](const QString& looks) {
        QApplication::setStyle("windows");
        LookAt([&](QWidget& window) { TakePictures(window, looks + "-windows"); });
    });
}

TEST(Pictures, AreTakenOfOpenLists) {
    OnBothDesktops([](const QString& looks) {
        LookAt([&](QWidget& window) {
            const auto take = [&](QComboBox& list, const char* what) {
                QTest::keyClick(list.view(), Qt::Key_Down);
                TakePicture(*list.view()->window(), looks, what);
                QTest::keyClick(list.view(), Qt::Key_Escape);
                Settle();
            };
            auto& percent = Find<QComboBox>(window, "TxtPercentComplet");
            QTest::keyClick(&percent, Qt::Key_F4);
            take(percent, "percentages");
            GoTo(window, 1);
            auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
            ClickCell(table, 2, 1);
            auto& tasks = Find<QComboBox>(*table.viewport(), "");
            EXPECT_GT(tasks.count(), 1);
            take(tasks, "list");
        });
    });
}

TEST(Pictures, AreTakenOfTheCalendar) {
    OnBothDesktops([](const QString& looks) {
        LookAt([&](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClick(&start, Qt::Key_F4);
            QWidget& calendar = *start.calendarWidget()->window();
            TakePicture(calendar, looks, "calendar");
            QTest::keyClick(&calendar, Qt::Key_Escape);
        });
    });
}

TEST(Pictures, AreTakenOfTheMenuAndTheWindowOfAnAddress) {
    OnBothDesktops([](const QString& looks) {
        QGuiApplication::clipboard()->clear();  // the menu offers what is there
        LookAt([&](QWidget& window) {
            GoTo(window, 2);
            auto& note = Find<QTextEdit>(window, "txtNote");
            QContextMenuEvent right(QContextMenuEvent::Mouse, {5, 5}, note.mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(note.viewport(), &right);
            auto& menu = Find<QMenu>(window, "mnuFile");
            TakePicture(menu, looks, "menu");
            menu.close();

            QTimer::singleShot(0, [&] {
                QWidget& address = *QApplication::activeModalWidget();
                ExpectWholeCaptions(address);
                TakePicture(address, looks, "address");
                Click(Find(address, "CmdCancel"));
            });
            Click(Find(window, "Cmdlink"));
        });
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
