#include "qt/GridView.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTabWidget>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// Of the tables on the tabs.
class GridView : public ::testing::Test {
protected:
    GridView() {
        plan.WithLinks();
        plan.Task("Draw").From(Monday).Lasting(2);
        plan.Task("Permit").From(Monday).Lasting(3);
        plan.Task("Build").From(Monday + 7).Lasting(5).After("Draw");
    }
    ~GridView() override { plan.Heard(); }

    /// Opens the dialog on the tab; `person(table)` uses the table there, and the dialog is left by OK.
    void Use(int tab, const char* table, const std::function<void(QTableView&)>& person, const char* leave = "CmdOK") {
        plan.Edit("Build", [&](QWidget& window) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
            Settle();
            auto& view = Find<QTableView>(window, table);
            view.setFocus();
            person(view);
            Click(Find(window, leave));
        });
    }
    void UsePredecessors(const std::function<void(QTableView&)>& person, const char* leave = "CmdOK") {
        Use(1, "VSFlexGridPredecessor", person, leave);
    }
    void UsePeople(const std::function<void(QTableView&)>& person, const char* leave = "CmdOK") {
        Use(3, "VSFlexGridResource", person, leave);
    }

    OffscreenApplication application;
    QtPlan plan;
};

// --- Predecessors ----------------------------------------------------------------------------------------------------

TEST_F(GridView, ShowsWhatTheTaskWaitsForUnderTheHeadings) {
    UsePredecessors([](QTableView& table) {
        EXPECT_EQ(Shown(table), "1 | Draw | 0\n |  | \n");
        EXPECT_EQ(table.model()->headerData(1, Qt::Horizontal).toString(), "Task");
        EXPECT_TRUE(table.isColumnHidden(2));
    });
}

TEST_F(GridView, TakesAPredecessorChosenByNameInTheEmptyRow) {
    plan.col().AutoLink(True);
    UsePredecessors([](QTableView& table) {
        ClickCell(table, 1, 1);
        Choose(table, "Permit");
        EXPECT_EQ(Shown(table), "1 | Draw | 0\n2 | Permit | 0\n |  | \n");
    });
    EXPECT_TRUE(plan["Build"].isPredecessor(plan.Key("Permit")));
}

TEST_F(GridView, TakesAPredecessorChosenByRow) {
    UsePredecessors([](QTableView& table) {
        EditCell(table, 1, 0);
        Choose(table, "2");
        EXPECT_EQ(Shown(table), "1 | Draw | 0\n2 | Permit | 0\n |  | \n");
    });
}

TEST_F(GridView, TakesTheRowAwayInWhichAPredecessorIsChosenAgain) {
    UsePredecessors([](QTableView& table) {
        for (const int empty_row : {1, 2}) {
            ClickCell(table, empty_row, 1);
            Choose(table, "Permit");
            EXPECT_EQ(Shown(table), "1 | Draw | 0\n2 | Permit | 0\n |  | \n");
        }
    });
}

TEST_F(GridView, ChangesNothingWhenTheListIsLeftWithoutAChoice) {
    UsePredecessors([](QTableView& table) {
        ClickCell(table, 1, 1);
        auto& list = Find<QComboBox>(*table.viewport(), "");
        QTest::keyClick(list.view(), Qt::Key_Escape);
        Settle();
        EXPECT_EQ(table.viewport()->findChild<QComboBox*>(), nullptr);
        EXPECT_EQ(Shown(table), "1 | Draw | 0\n |  | \n");
        EXPECT_TRUE(table.window()->isVisible());
    });
}

TEST_F(GridView, LooksForATypedLetterInTheListAndChoosesOnEnterAlone) {
    plan.col().AutoLink(True);
    UsePredecessors([](QTableView& table) {
        for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
            table.setFocus();
            table.setCurrentIndex(table.model()->index(0, 1));
            QTest::keyClick(&table, Qt::Key_P);
            Settle();
            EXPECT_EQ(Shown(table), "1 | Draw | 0\n |  | \n") << "nothing was chosen yet";
            QAbstractItemView& list = *Find<QComboBox>(*table.viewport(), "").view();
            EXPECT_TRUE(list.isVisible());
            EXPECT_EQ(list.currentIndex().data().toString(), "Permit");
            QTest::keyClick(&list, end);
            Settle();
        }
        EXPECT_EQ(Shown(table), "2 | Permit | 0\n |  | \n");
    });
}

TEST_F(GridView, OpensTheListOfAFilledRowByItsArrow) {
    UsePredecessors([](QTableView& table) {
        const QRect cell = table.visualRect(table.model()->index(0, 1));
        const auto click = [&](QPoint at) {
            QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, at);
            Settle();
            return table.viewport()->findChild<QComboBox*>() != nullptr;
        };
        EXPECT_FALSE(click(cell.center()));
        EXPECT_TRUE(click({cell.right() - cell.height() / 2, cell.center().y()}));
    });
}

TEST_F(GridView, StaysWhereItIsWhenAHeadingIsClicked) {
    for (const auto& [tab, table] : {std::pair(1, "VSFlexGridPredecessor"), {3, "VSFlexGridResource"}}) {
        AddPerson(plan, "Ann");
        Use(tab, table, [](QTableView& view) {
            const QModelIndex last = view.model()->index(1, 1);
            view.setCurrentIndex(last);
            QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(100, 5));
            EXPECT_EQ(view.currentIndex(), last);
            EXPECT_FALSE(view.selectionModel()->isColumnSelected(1));
        });
    }
}

TEST_F(GridView, OpensNothingByADoubleClickOfAnotherButton) {
    AddNote(plan, "Build", "", "http://www.one.example");
    Use(2, "gridattachement", [this](QTableView& table) {
        const QPoint link = table.visualRect(table.model()->index(0, 0)).center();
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseClick(table.viewport(), button, {}, link);
            QTest::mouseDClick(table.viewport(), button, {}, link);
        }
        EXPECT_TRUE(plan.platform.shell.targets.empty());
    });
}

TEST_F(GridView, TakesALagOfDigitsAndOneSign) {
    UsePredecessors([](QTableView& table) {
        EditCell(table, 0, 3);
        QLineEdit& line = OpenLine(table);
        line.selectAll();
        QTest::keyClicks(&line, "-x-4");
        EXPECT_EQ(line.text(), "-4");
        QTest::keyClick(&line, Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "1 | Draw | -4\n |  | \n");
        EXPECT_TRUE(table.window()->isVisible()) << "Enter only ended the edit";
    });
    EXPECT_EQ(plan["Build"].TaskLag(), -4);
}

TEST_F(GridView, TakesASignOverALagThatHasOne) {
    UsePredecessors([](QTableView& table) {
        for (const char* lag : {"-4", "-5"}) {
            EditCell(table, 0, 3);
            QTest::keyClicks(&OpenLine(table), lag);
            QTest::keyClick(&OpenLine(table), Qt::Key_Return);
            Settle();
            EXPECT_EQ(Shown(table), QString("1 | Draw | %1\n |  | \n").arg(lag));
        }
        table.setCurrentIndex(table.model()->index(0, 3));
        QTest::keyClick(&table, Qt::Key_Minus);
        QTest::keyClicks(&OpenLine(table), "6");
        OpenLine(table).setSelection(1, 1);
        QTest::keyClicks(&OpenLine(table), "-7");
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "1 | Draw | -7\n |  | \n") << "the first sign stays";
    });
}

TEST_F(GridView, TakesAsManyCharactersOfALagAsTheFormSays) {
    UsePredecessors([](QTableView& table) {
        EditCell(table, 0, 3);
        QTest::keyClicks(&OpenLine(table), "12345");
        EXPECT_EQ(OpenLine(table).text(), "123");
    });
    EXPECT_EQ(plan["Build"].TaskLag(), 123);
}

TEST_F(GridView, TakesALagByTabInEitherDirection) {
    UsePredecessors([](QTableView& table) {
        for (const auto& [key, lag] : {std::pair(Qt::Key_Tab, "5"), {Qt::Key_Backtab, "6"}}) {
            EditCell(table, 0, 3);
            QTest::keyClicks(&OpenLine(table), lag);
            QTest::keyClick(&OpenLine(table), key);
            Settle();
            EXPECT_EQ(Shown(table), QString("1 | Draw | %1\n |  | \n").arg(lag));
            EXPECT_EQ(table.viewport()->findChild<QWidget*>(), nullptr) << "no other cell is edited";
        }
    });
}

TEST_F(GridView, BeginsAnEditWithTheKeyThatIsTyped) {
    UsePredecessors([](QTableView& table) {
        table.setCurrentIndex(table.model()->index(0, 3));
        QTest::keyClicks(&table, "7");
        QTest::keyClick(&OpenLine(table), Qt::Key_Tab);
        Settle();
        EXPECT_EQ(Shown(table), "1 | Draw | 7\n |  | \n");
    });
}

TEST_F(GridView, PutsTheOldLagBackOnEsc) {
    UsePredecessors([](QTableView& table) {
        EditCell(table, 0, 3);
        QTest::keyClicks(&OpenLine(table), "9");
        QTest::keyClick(&OpenLine(table), Qt::Key_Escape);
        Settle();
        EXPECT_EQ(Shown(table), "1 | Draw | 0\n |  | \n");
        EXPECT_TRUE(table.window()->isVisible());
    });
}

TEST_F(GridView, CountsALagAsTypedWhenOkIsPressed) {
    UsePredecessors([](QTableView& table) {
        EditCell(table, 0, 3);
        OpenLine(table).selectAll();
        QTest::keyClicks(&OpenLine(table), "3");
    });
    EXPECT_EQ(plan["Build"].TaskLag(), 3);
}

TEST_F(GridView, OffersNoEditorForALagWithoutAPredecessor) {
    UsePredecessors([](QTableView& table) {
        EditCell(table, 1, 3);
        EXPECT_EQ(table.viewport()->findChild<QLineEdit*>(), nullptr);
    });
}

TEST_F(GridView, TakesAPredecessorOffWithDelete) {
    UsePredecessors([](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClick(&table, Qt::Key_Delete);
        EXPECT_EQ(Shown(table), " |  | \n");
    });
    EXPECT_FALSE(plan["Build"].isPredecessor(plan.Key("Draw")));
}

TEST_F(GridView, GivesAPredecessorBackOnCancel) {
    UsePredecessors(
        [](QTableView& table) {
            ClickCell(table, 0, 1);
            QTest::keyClick(&table, Qt::Key_Delete);
        },
        "CmdCancel");
    EXPECT_TRUE(plan["Build"].isPredecessor(plan.Key("Draw")));
}

TEST_F(GridView, EditsALagWhereItShows) {
    for (const bool mirrored : {false, true}) {
        QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        UsePredecessors([mirrored](QTableView& table) {
            EditCell(table, 0, 3);
            const QLineEdit& line = OpenLine(table);
            const bool at_the_left = line.inputMethodQuery(Qt::ImCursorRectangle).toRectF().x() < line.width() / 2.0;
            EXPECT_EQ(at_the_left, mirrored);
        });
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(GridView, LetsTabLeadOutOfTheTable) {
    UsePredecessors([](QTableView& table) {
        QTest::keyClick(&table, Qt::Key_Tab);
        EXPECT_FALSE(table.hasFocus());
    });
}

// --- People ----------------------------------------------------------------------------------------------------------

TEST_F(GridView, TicksWhoWorksOnTheTask) {
    AddPerson(plan, "Ann");
    Assign(plan, AddPerson(plan, "Ben"), "Build");
    UsePeople([](QTableView& table) {
        EXPECT_EQ(Shown(table), "1 | Ann\n2 | Ben*\n3 | New person...\n");
        EXPECT_FALSE(table.model()->index(2, 1).data(Qt::CheckStateRole).isValid());
    });
}

TEST_F(GridView, AssignsAPersonWithAClickAndTakesOneOffWithAnother) {
    const String ann = AddPerson(plan, "Ann");
    const String ben = AddPerson(plan, "Ben");
    Assign(plan, ben, "Build");
    UsePeople([](QTableView& table) {
        ClickCell(table, 0, 1);
        ClickCell(table, 1, 0);
        EXPECT_EQ(Shown(table), "1 | Ann*\n2 | Ben\n3 | New person...\n");
    });
    EXPECT_TRUE(plan["Build"].isAssigned(ann));
    EXPECT_FALSE(plan["Build"].isAssigned(ben));
}

TEST_F(GridView, AssignsAPersonWithTheSpaceBar) {
    const String ann = AddPerson(plan, "Ann");
    UsePeople([](QTableView& table) {
        table.setCurrentIndex(table.model()->index(0, 1));
        QTest::keyClick(&table, Qt::Key_Space);
        EXPECT_EQ(Shown(table), "1 | Ann*\n2 | New person...\n");
    });
    EXPECT_TRUE(plan["Build"].isAssigned(ann));
}

TEST_F(GridView, HasACurrentPersonWheneverTabLeadsToThePeople) {
    const String ann = AddPerson(plan, "Ann");
    UsePeople([](QTableView& table) {
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

TEST_F(GridView, TypesANewPersonFromAnyColumn) {
    UsePeople([](QTableView& table) {
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

TEST_F(GridView, EditsNoPersonThatIsThere) {
    AddPerson(plan, "Ann");
    UsePeople([](QTableView& table) {
        EditCell(table, 0, 1);
        EXPECT_EQ(table.viewport()->findChild<QLineEdit*>(), nullptr);
    });
}

TEST_F(GridView, AddsAndAssignsATypedPerson) {
    UsePeople([](QTableView& table) {
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

TEST_F(GridView, AddsOnePersonByPastedLines) {
    QGuiApplication::clipboard()->setText("Ann\r\nBob\nEve\n");
    UsePeople([](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClick(&OpenLine(table), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | Ann Bob Eve*\n | New person...\n");
    });
}

TEST_F(GridView, AsksForAPersonAgainWhenNobodyWasTyped) {
    UsePeople([](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClick(&OpenLine(table), Qt::Key_Escape);
        Find(*table.window(), "TxtName").setFocus();
        Settle();
        EXPECT_EQ(Shown(table), "1 | New person...\n");
        EXPECT_FALSE(table.currentIndex().isValid());
    });
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

TEST_F(GridView, GoesOnWithAHalfTypedPersonAfterAnotherWindow) {
    UsePeople([this](QTableView& table) {
        ClickCell(table, 0, 1);
        QTest::keyClicks(&OpenLine(table), "Ev");
        InAnotherWindow(*table.window(), [this] { EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0); });
        QTest::keyClicks(&OpenLine(table), "e");
        QTest::keyClick(&OpenLine(table), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Shown(table), "2 | Eve*\n | New person...\n");
    });
}

TEST_F(GridView, AsksForAPersonAgainThoughThePersonIsInAnotherWindow) {
    for (const bool open : {false, true}) {
        UsePeople(
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

TEST_F(GridView, IsNotLeftByWhoGoesFromACellToTheTable) {
    UsePeople([](QTableView& table) {
        ClickCell(table, 0, 1);
        bool moved = false;
        QObject::connect(table.selectionModel(), &QItemSelectionModel::currentChanged, &table, [&] { moved = true; });
        table.setFocus();
        EXPECT_FALSE(moved) << "who leaves the table leaves no row the current one";
    });
}

TEST_F(GridView, ShowsTheFirstPersonOfManyWhenSomebodyIsAssigned) {
    for (int n = 1; n <= 60; ++n) AddPerson(plan, "Person " + std::to_string(n));
    Assign(plan, "60", "Build");
    UsePeople([](QTableView& table) { EXPECT_EQ(table.rowAt(0), 0); });
}

}  // namespace
}  // namespace mrlxmlclass::testing
