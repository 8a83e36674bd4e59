#include <gtest/gtest.h>

#include <QAbstractButton>
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

QPalette DarkPalette() {
    const QColor paper(35, 38, 41);
    const QColor window(49, 54, 59);
    const QColor text(239, 240, 241);
    QPalette dark(text, window, window.lighter(140), window.darker(160), window.darker(), text, Qt::white, paper,
                  window);
    dark.setColor(QPalette::Button, window.lighter(110));
    dark.setColor(QPalette::AlternateBase, paper.lighter(120));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::ToolTipBase, paper);
    dark.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(140, 144, 148));
    }
    return dark;
}

/// A task with something on every tab.
void Furnish(QtPlan& plan) {
    plan.WithLinks();
    plan.Task("House").Task("Drawings").Under("House").From(Monday).Lasting(3);
    plan.Task("Permit").Under("House").From(Monday).Lasting(5);
    plan.Task("Foundation").Under("House").From(Monday + 7).Lasting(8).Costing(Currency(12400));
    plan.After("Drawings").After("Permit", 2);
    plan.Task("Walls").Under("House").From(Monday + 21).Lasting(10);
    for (const char* name : {"Ann Becker", "Carlos Duarte", "Eve Falk", "Gino Hart", "Sun & Sons"})
        AddPerson(plan, name);
    Assign(plan, "2", "Foundation");
    Assign(plan, "5", "Foundation");
    AddNote(plan, "Foundation",
            "The ground is soft towards the road: ask for a second opinion before the pour.\n"
            "Concrete C25/30, delivery by 7 in the morning.");
    plan.platform.Write("soil report.pdf", "");
    AddNote(plan, "Foundation", "", plan.platform.Path("soil report.pdf"));
    AddNote(plan, "Foundation", "", "http://www.concrete.example/delivery?site=12");
    plan["Foundation"].TaskPercentDone(25);
    plan.Heard();
}

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

TEST(Pictures, AreTakenOfEveryTabOnALightDesktop) {
    const OffscreenApplication application;
    LookAt([](QWidget& window) { TakePictures(window, "light"); });
}

TEST(Pictures, AreTakenOfEveryTabOnADarkDesktop) {
    const OffscreenApplication application;
    QApplication::setPalette(DarkPalette());
    LookAt([](QWidget& window) { TakePictures(window, "dark"); });
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
    const OffscreenApplication application;
    const auto take = [](const QString& looks) {
        LookAt([&](QWidget& window) { TakePicture(window, looks, "summary"); }, 2, "House");
    };
    take("light");
    QApplication::setPalette(DarkPalette());
    take("dark");
}

TEST(Pictures, AreTakenOfCellsThatAreTypedIn) {
    const OffscreenApplication application;
    LookAt([](QWidget& window) {
        GoTo(window, 1);
        EditCell(Find<QTableView>(window, "VSFlexGridPredecessor"), 1, 3);
        TakePicture(window, "light", "lag");
        GoTo(window, 3);
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        Find<QTabWidget>(window, "TabTask").tabBar()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(people.hasFocus());
        TakePicture(window, "light", "current");
        QTest::keyClick(&people, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&people, Qt::Key_F2);
        QTest::keyClicks(&OpenLine(people), "Ida");
        TakePicture(window, "light", "person");
    });
}

TEST(Pictures, AreTakenOfAnOpenList) {
    const OffscreenApplication application;
    LookAt([](QWidget& window) {
        GoTo(window, 1);
        auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
        ClickCell(table, 2, 1);
        auto& list = Find<QComboBox>(*table.viewport(), "");
        TakePicture(*list.view()->window(), "light", "list");
        QTest::keyClick(list.view(), Qt::Key_Escape);
        Settle();
    });
}

TEST(Pictures, AreTakenOfTheMenuAndTheWindowOfAnAddress) {
    const OffscreenApplication application;
    LookAt([](QWidget& window) {
        GoTo(window, 2);
        auto& note = Find<QTextEdit>(window, "txtNote");
        QContextMenuEvent right(QContextMenuEvent::Mouse, {5, 5}, note.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(note.viewport(), &right);
        auto& menu = Find<QMenu>(window, "mnuFile");
        TakePicture(menu, "light", "menu");
        menu.close();

        QTimer::singleShot(0, [] {
            QWidget& address = *QApplication::activeModalWidget();
            ExpectWholeCaptions(address);
            TakePicture(address, "light", "address");
            Click(Find(address, "CmdCancel"));
        });
        Click(Find(window, "Cmdlink"));
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
