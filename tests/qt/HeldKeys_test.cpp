#include "qt/HeldKeys.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTabWidget>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// A key that is held comes again and again, and acts once.
class HeldKeys : public ::testing::Test {
protected:
    HeldKeys() {
        plan.WithLinks();
        plan.Task("Draw").From(Monday).Lasting(2);
        plan.Task("Build").From(Monday + 7).Lasting(5).After("Draw");
    }

    void Use(const std::function<void(QWidget& window)>& person) {
        plan.Edit("Build", [&](QWidget& window) {
            person(window);
            if (window.isVisible()) Click(Find(window, "CmdCancel"));
        });
    }

    OffscreenApplication application;
    QtPlan plan;
};

QWidget* WhoHasTheKeys() {
    const QWidget* popup = QApplication::activePopupWidget();
    return popup != nullptr ? popup->focusWidget() : QApplication::focusWidget();
}

/// The key tells whoever has the keys so many times that it is down.
void Hold(Qt::Key key, const char* text, int times) {
    for (int n = 0; n < times && WhoHasTheKeys() != nullptr; ++n) {
        QKeyEvent down(QEvent::KeyPress, key, {}, text, /*autorep=*/n > 0);
        QCoreApplication::sendEvent(WhoHasTheKeys(), &down);
        Settle();
    }
}

TEST_F(HeldKeys, OpensAnAttachmentOnceThoughTheKeyIsHeld) {
    AddNote(plan, "Build", "", "http://www.one.example");
    Use([this](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(2);
        ClickCell(Find<QTableView>(window, "gridattachement"), 0, 0);
        for (const auto& [key, text] : {std::pair(Qt::Key_Return, "\r"), {Qt::Key_Space, " "}}) {
            plan.platform.shell.targets.clear();
            Hold(key, text, 3);
            EXPECT_EQ(plan.platform.shell.targets, (std::vector<String>{"http://www.one.example"})) << key;
        }
    });
}

TEST_F(HeldKeys, AssignsAPersonForGoodThoughTheSpaceBarIsHeld) {
    AddPerson(plan, "Ann");
    Use([](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(3);
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        people.setFocus();
        people.setCurrentIndex(people.model()->index(0, 1));
        for (const char* shown : {"1 | Ann*\n2 | New person...\n", "1 | Ann\n2 | New person...\n"}) {
            Hold(Qt::Key_Space, " ", 2);
            EXPECT_EQ(Shown(people), shown);
        }
    });
}

TEST_F(HeldKeys, TakesOnePredecessorOffThoughDeleteIsHeld) {
    plan.Task("Permit").From(Monday).About("Build").After("Permit");
    Use([](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(1);
        auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
        table.setFocus();
        const int rows = table.model()->rowCount();
        table.setCurrentIndex(table.model()->index(0, 1));
        Hold(Qt::Key_Delete, "", 3);
        EXPECT_EQ(table.model()->rowCount(), rows - 1);
    });
}

TEST_F(HeldKeys, StaysThoughTheEnterIsHeldThatEndsAnEdit) {
    Use([](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(1);
        auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
        EditCell(table, 0, 3);
        QTest::keyClicks(&OpenLine(table), "4");
        Hold(Qt::Key_Return, "\r", 3);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(Shown(table), "1 | Draw | 4\n |  | \n");
    });
}

TEST_F(HeldKeys, StayThoughTheEscapeIsHeldThatEndsAnEdit) {
    plan.Task("Permit").From(Monday);
    for (const int col : {3, 1}) {  // a line, and a list
        Use([col](QWidget& window) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(1);
            EditCell(Find<QTableView>(window, "VSFlexGridPredecessor"), 0, col);
            Hold(Qt::Key_Escape, "\x1b", 3);
            EXPECT_TRUE(window.isVisible()) << col;
            Hold(Qt::Key_Escape, "\x1b", 1);
            EXPECT_FALSE(window.isVisible()) << col;
        });
    }
}

TEST_F(HeldKeys, PressAButtonOnce) {
    AddNote(plan, "Build", "", "http://www.one.example");
    AddNote(plan, "Build", "", "http://www.two.example");
    AddNote(plan, "Build", "", "http://www.three.example");
    Use([](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(2);
        auto& links = Find<QTableView>(window, "gridattachement");
        ClickCell(links, 0, 0);
        const int rows = links.model()->rowCount();
        Find(window, "CmdRemove").setFocus();
        Hold(Qt::Key_Return, "\r", 3);
        EXPECT_EQ(links.model()->rowCount(), rows - 1);
    });
}

TEST_F(HeldKeys, PressNothingThatTheyWereHeldBefore) {
    Use([](QWidget& window) {
        for (const char* field : {"TxtName", "CmdOK", "CmdCancel"}) {
            QWidget& there = Find(window, field);
            there.setFocus();
            for (const auto& [key, text] : {std::pair(Qt::Key_Return, "\r"), {Qt::Key_Escape, "\x1b"}}) {
                QKeyEvent again(QEvent::KeyPress, key, {}, text, /*autorep=*/true);
                QCoreApplication::sendEvent(&there, &again);
                EXPECT_TRUE(window.isVisible()) << field;
            }
        }
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
