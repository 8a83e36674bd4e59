#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QTabWidget>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// Who works on the task.
class PeoplePage : public ::testing::Test {
protected:
    PeoplePage() { plan.Task("Build").From(Monday + 7).Lasting(5); }
    ~PeoplePage() override { plan.Heard(); }

    /// Opens the dialog there; `person(table)` uses the table, and the dialog is left by OK.
    void Use(const std::function<void(QTableView&)>& person, const char* leave = "CmdOK") {
        plan.Edit("Build", [&](QWidget& window) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(3);
            Settle();
            auto& view = Find<QTableView>(window, "VSFlexGridResource");
            view.setFocus();
            person(view);
            if (window.isVisible()) Click(Find(window, leave));
        });
    }

    OffscreenApplication application;
    QtPlan plan;
};

TEST_F(PeoplePage, TicksWhoWorksOnTheTask) {
    AddPerson(plan, "Ann");
    Assign(plan, AddPerson(plan, "Ben"), "Build");
    Use([](QTableView& table) {
        EXPECT_EQ(Shown(table), "1 | Ann\n2 | Ben*\n3 | New person...\n");
        EXPECT_FALSE(table.model()->index(2, 1).data(Qt::CheckStateRole).isValid());
    });
}

TEST_F(PeoplePage, AssignsAPersonWithAClickAndTakesOneOffWithAnother) {
    const String ann = AddPerson(plan, "Ann");
    const String ben = AddPerson(plan, "Ben");
    Assign(plan, ben, "Build");
    Use([](QTableView& table) {
        ClickCell(table, 0, 1);
        ClickCell(table, 1, 0);
        EXPECT_EQ(Shown(table), "1 | Ann*\n2 | Ben\n3 | New person...\n");
    });
    EXPECT_TRUE(plan["Build"].isAssigned(ann));
    EXPECT_FALSE(plan["Build"].isAssigned(ben));
}

TEST_F(PeoplePage, AssignsAPersonWithTheSpaceBar) {
    const String ann = AddPerson(plan, "Ann");
    Use([](QTableView& table) {
        table.setCurrentIndex(table.model()->index(0, 1));
        QTest::keyClick(&table, Qt::Key_Space);
        EXPECT_EQ(Shown(table), "1 | Ann*\n2 | New person...\n");
    });
    EXPECT_TRUE(plan["Build"].isAssigned(ann));
}

TEST_F(PeoplePage, HasACurrentPersonWheneverTabLeadsToThePeople) {
    const String ann = AddPerson(plan, "Ann");
    Use([](QTableView& table) {
        Find(*table.window(), "CmdOK").setFocus();
        EXPECT_FALSE(table.currentIndex().isValid());
        for (const auto& [from, key] : {std::pair("CmdOK", Qt::Key_Backtab), {"TabTask", Qt::Key_Tab}}) {
            QWidget& neighbour = Find(*table.window(), from);
            neighbour.setFocus();
            QTest::keyClick(QApplication::focusWidget(), key);
            EXPECT_TRUE(table.hasFocus()) << from;
            EXPECT_EQ(table.currentIndex().row(), 0) << from;
        }
        QTest::keyClick(&table, Qt::Key_Space);
        EXPECT_EQ(Shown(table), "1 | Ann*\n2 | New person...\n");
    });
    EXPECT_TRUE(plan["Build"].isAssigned(ann));
}

TEST_F(PeoplePage, TypesANewPersonFromAnyColumn) {
    Use([](QTableView& table) {
        for (const Qt::Key opens : {Qt::Key_F2, Qt::Key_Space, Qt::Key_E}) {
            table.setFocus();
            table.setCurrentIndex(table.model()->index(0, 0));
            QTest::keyClick(&table, opens);
            Settle();
            EXPECT_EQ(OpenLine(table).text(), opens == Qt::Key_E ? "e" : "") << opens;
            if (opens != Qt::Key_E) QTest::keyClick(&OpenLine(table), Qt::Key_Escape);
        }
        QTest::keyClicks(&OpenLine(table), "ve");
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | eve*\n | New person...\n");
    });
    EXPECT_TRUE(plan["Build"].isAssigned("1"));
}

TEST_F(PeoplePage, EditsNoPersonThatIsThere) {
    AddPerson(plan, "Ann");
    Use([](QTableView& table) {
        EditCell(table, 0, 1);
        EXPECT_EQ(table.viewport()->findChild<QLineEdit*>(), nullptr);
    });
}

TEST_F(PeoplePage, AddsAndAssignsATypedPerson) {
    Use([](QTableView& table) {
        ClickCell(table, 0, 1);
        EXPECT_EQ(OpenLine(table).text(), "");
        QTest::keyClicks(&OpenLine(table), "Eve");
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | Eve*\n | New person...\n");
    });
    ASSERT_EQ(plan.app->xPeopleCol()->Count(), 1);
    EXPECT_TRUE(plan["Build"].isAssigned("1"));
}

TEST_F(PeoplePage, AddsOnePersonByPastedLines) {
    QGuiApplication::clipboard()->setText("Ann\r\nBob\nEve\n");
    Use([](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClick(&OpenLine(table), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | Ann Bob Eve*\n | New person...\n");
    });
}

TEST_F(PeoplePage, AsksForAPersonAgainWhenNobodyWasTyped) {
    Use([](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClick(&OpenLine(table), Qt::Key_Escape);
        Find(*table.window(), "TxtName").setFocus();
        Settle();
        EXPECT_EQ(Shown(table), "1 | New person...\n");
        EXPECT_FALSE(table.currentIndex().isValid());
    });
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

TEST_F(PeoplePage, GoesOnWithAHalfTypedPersonAfterAnotherWindow) {
    Use([this](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClicks(&OpenLine(table), "Ev");
        InAnotherWindow(*table.window(), [this] { EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0); });
        QTest::keyClicks(&OpenLine(table), "e");
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | Eve*\n | New person...\n");
    });
}

TEST_F(PeoplePage, AsksForAPersonAgainThoughThePersonIsInAnotherWindow) {
    for (const bool open : {false, true}) {
        Use(
            [open](QTableView& table) {
                ClickCell(table, 0, 1);
                if (!open) QTest::keyClick(&OpenLine(table), Qt::Key_Escape);
                EXPECT_EQ(Shown(table), "1 | \n");
                InAnotherWindow(*table.window(), [&table] { Find(*table.window(), "TxtName").setFocus(); });
                EXPECT_EQ(Shown(table), open ? "1 | New person...\n | New person...\n" : "1 | New person...\n");
                EXPECT_FALSE(table.currentIndex().isValid());
            },
            "CmdCancel");
    }
}

TEST_F(PeoplePage, IsNotLeftByWhoGoesFromACellToTheTable) {
    Use([](QTableView& table) {
        ClickCell(table, 0, 1);
        bool moved = false;
        QObject::connect(table.selectionModel(), &QItemSelectionModel::currentChanged, &table, [&] { moved = true; });
        table.setFocus();
        EXPECT_FALSE(moved) << "who leaves the table leaves no row the current one";
    });
}

TEST_F(PeoplePage, ShowsTheFirstPersonOfManyWhenSomebodyIsAssigned) {
    for (int n = 1; n <= 60; ++n) AddPerson(plan, "Person " + std::to_string(n));
    Assign(plan, "60", "Build");
    Use([](QTableView& table) { EXPECT_EQ(table.rowAt(0), 0); });
}

TEST_F(PeoplePage, CountsBothOfTwoQuickClicks) {
    AddPerson(plan, "Ann");
    Use([](QTableView& table) {
        const QPoint ann = table.visualRect(table.model()->index(0, 1)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, ann);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, ann);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, ann);
        EXPECT_EQ(Shown(table), "1 | Ann\n2 | New person...\n");
    });
}

TEST_F(PeoplePage, BeginsANameWithWhatAnInputMethodTypesAtOnce) {
    Use([](QTableView& table) {
        table.setCurrentIndex(table.model()->index(0, 1));
        QInputMethodEvent typed("", {});
        typed.setCommitString("Annika");
        QCoreApplication::sendEvent(&table, &typed);
        EXPECT_EQ(OpenLine(table).text(), "Annika");
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | Annika*\n | New person...\n");
    });
}

TEST_F(PeoplePage, DropsAHalfTypedNameWhereTheMousePressesCancel) {
    Use(
        [](QTableView& table) {
            ClickCell(table, 0, 1);
            QTest::keyClicks(&OpenLine(table), "Ev");
        },
        "CmdCancel");
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
