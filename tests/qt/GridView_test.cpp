#include "qt/GridView.h"

#include <gtest/gtest.h>

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

    OffscreenApplication application;
    QtPlan plan;
};

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
            std::fprintf(stderr, "A %s\n",
                         QApplication::focusWidget() ? QApplication::focusWidget()->metaObject()->className() : "none");
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

TEST_F(GridView, OpensNoListOfAnEditThatIsOver) {
    UsePredecessors([](QTableView& table) {
        table.setCurrentIndex(table.model()->index(1, 1));
        for (const auto& [key, text] : {std::pair(Qt::Key_P, "p"), {Qt::Key_Escape, "\x1b"}}) {
            QKeyEvent ahead(QEvent::KeyPress, key, {}, text);
            QCoreApplication::sendEvent(QApplication::focusWidget(), &ahead);
        }
        Settle();
        EXPECT_TRUE(table.hasFocus());
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

}  // namespace
}  // namespace mrlxmlclass::testing
