#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <tuple>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// The way through the dialog without a mouse, and without a screen to look at.
class Keyboard : public ::testing::Test {
protected:
    Keyboard() {
        plan.WithLinks();
        plan.Task("Draw").From(Monday).Lasting(2);
        plan.Task("Build").From(Monday + 7).Lasting(5).After("Draw");
    }

    void Use(const std::function<void(QWidget& window)>& person) {
        plan.Edit("Build", [&](QWidget& window) {
            person(window);
            Click(Find(window, "CmdCancel"));
        });
    }

    OffscreenApplication application;
    QtPlan plan;
};

/// The control that the widget belongs to.
QString ControlOf(const QWidget* widget) {
    while (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) widget = widget->parentWidget();
    return widget->objectName();
}

/// Where the key leads from the tabs until it is back there: a line, in which a control stands once for each of its
/// widgets that stops at the focus.
QString WalkBy(Qt::Key key, QWidget& window) {
    constexpr int kMany = 40;
    QWidget* const from = Find<QTabWidget>(window, "TabTask").tabBar();
    from->setFocus();
    QStringList controls;
    const QWidget* last = nullptr;
    for (int n = 0; n < kMany; ++n) {
        QWidget* const here = QApplication::focusWidget();
        if (here == from && last != nullptr) break;
        if (here != last) controls << ControlOf(here);
        last = here;
        QTest::keyClick(here, key);
    }
    return controls.join(" ");
}

TEST_F(Keyboard, LeadsThroughEachTabInTheOrderInWhichItIsRead) {
    Use([](QWidget& window) {
        const char* const pages[] = {
            "DTPickerStart DTPickerStart DTPickerEnd DTPickerEnd TxtDurtion chkAsMilistones TxtPercentComplet Txtcost",
            "VSFlexGridPredecessor",
            "txtNote gridattachement Cmdlink CmdAttach CmdRemove",
            "VSFlexGridResource",
        };
        for (int tab = 0; tab < 4; ++tab) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
            Settle();
            const QString way = WalkBy(Qt::Key_Tab, window);
            EXPECT_EQ(way.toStdString(), "TabTask " + std::string(pages[tab]) + " CmdOK CmdCancel CmdHelp TxtName");
            QStringList back = way.split(' ');
            std::reverse(back.begin() + 1, back.end());
            EXPECT_EQ(WalkBy(Qt::Key_Backtab, window).toStdString(), back.join(" ").toStdString());
        }
    });
}

TEST_F(Keyboard, HasANameForAllThatTheFocusRestsOn) {
    Use([](QWidget& window) {
        const auto name_of = [](QWidget& widget) {
            return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
        };
        for (const auto& [control, name] : {std::pair("DTPickerStart", "Start:"), {"DTPickerEnd", "Finish:"}}) {
            EXPECT_EQ(name_of(BoxIn(window, control)), name);
            EXPECT_EQ(name_of(DateIn(window, control)), name);
        }
        for (const auto& [control, name] : {std::pair("VSFlexGridPredecessor", "The task waits for"),
                                            {"gridattachement", "Attachments"},
                                            {"VSFlexGridResource", "Who works on the task"},
                                            {"txtNote", "Note"},
                                            {"TxtName", "Name:"},
                                            {"TxtDurtion", "Duration:"},
                                            {"VScrollDuration", "Duration:"},
                                            {"VScrollPercentComplete", "Percent complete:"},
                                            {"Txtcost", "Cost:"}}) {
            EXPECT_EQ(name_of(Find(window, control)), name) << control;
        }
    });
}

TEST_F(Keyboard, HasTheValueOfTheFieldForItsArrows) {
    Use([](QWidget& window) {
        const auto value_of = [&](const char* arrows) {
            return QAccessible::queryAccessibleInterface(&Find(window, arrows))->text(QAccessible::Value).toStdString();
        };
        EXPECT_EQ(value_of("VScrollDuration"), "5");
        Type(Find(window, "TxtDurtion"), "7");
        EXPECT_EQ(value_of("VScrollDuration"), "7");
        Type(*Find(window, "TxtPercentComplet").findChild<QLineEdit*>(), "4");
        EXPECT_EQ(value_of("VScrollPercentComplete"), "4 %");
        EXPECT_EQ(value_of("VScrollDuration"), "7") << "also where the focus went on";
    });
}

TEST_F(Keyboard, HasABoxToTickForEachPerson) {
    Assign(plan, AddPerson(plan, "Ann"), "Build");
    AddPerson(plan, "Ben");
    Use([](QWidget& window) {
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&people)->tableInterface();
        const auto state_of = [&](int row) { return table->cellAt(row, 1)->state(); };
        EXPECT_TRUE(state_of(0).checkable);
        EXPECT_TRUE(state_of(0).checked);
        EXPECT_TRUE(state_of(1).checkable);
        EXPECT_FALSE(state_of(1).checked);
        EXPECT_FALSE(state_of(2).checkable) << "nobody is there yet";
    });
}

TEST_F(Keyboard, HasTheHeadingForTheNameOfACellThatIsTypedIn) {
    plan.Task("Permit").From(Monday).Lasting(3);
    Use([](QWidget& window) {
        for (const auto& [tab, table, row, col, heading] : {std::tuple(1, "VSFlexGridPredecessor", 0, 3, "Lag (days)"),
                                                            {1, "VSFlexGridPredecessor", 1, 1, "Task"},
                                                            {3, "VSFlexGridResource", 0, 1, "Name"}}) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
            auto& view = Find<QTableView>(window, table);
            EditCell(view, row, col);
            const auto* editor = view.viewport()->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
            ASSERT_NE(editor, nullptr) << heading;
            EXPECT_EQ(editor->accessibleName(), heading);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            Settle();
        }
    });
}

TEST_F(Keyboard, LeadsToAnotherTabOutOfACell) {
    Use([](QWidget& window) {
        auto& tabs = Find<QTabWidget>(window, "TabTask");
        auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
        for (const auto& [key, tab] : {std::pair(Qt::Key_Tab, 2), {Qt::Key_Backtab, 0}}) {
            tabs.setCurrentIndex(1);
            EditCell(table, 0, 3);
            QTest::keyClicks(&OpenLine(table), QByteArray::number(tab + 4));
            QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
            Settle();
            EXPECT_EQ(tabs.currentIndex(), tab);
            EXPECT_EQ(Shown(table), QString("1 | Draw | %1\n |  | \n").arg(tab + 4));
        }
    });
}

TEST_F(Keyboard, LeadsToAnotherTabOutOfADate) {
    Use([](QWidget& window) {
        auto& tabs = Find<QTabWidget>(window, "TabTask");
        for (const auto& [key, tab] : {std::pair(Qt::Key_Tab, 1), {Qt::Key_Backtab, 3}}) {
            tabs.setCurrentIndex(0);
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClick(&start, key, Qt::ControlModifier);
            Settle();
            EXPECT_EQ(tabs.currentIndex(), tab);
        }
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
