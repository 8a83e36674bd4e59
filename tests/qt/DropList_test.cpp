#include "qt/DropList.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QWindow>
#include <utility>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// The lists of the percentage and of a cell.
class DropList : public ::testing::Test {
protected:
    DropList() {
        plan.WithLinks();
        plan.Task("Draw").From(Monday).Lasting(2);
        plan.Task("Permit").From(Monday).Lasting(3);
        plan.Task("Build").From(Monday + 7).Lasting(5).After("Draw");
    }
    ~DropList() override { plan.Heard(); }

    /// `person(box)` uses the list of percentages of a task that is done so far, and the dialog is left by OK; gives
    /// how far it is then.
    Long Percent(int done, const std::function<void(QComboBox& box)>& person) {
        plan["Build"].TaskPercentDone(done);
        plan.Edit("Build", [&](QWidget& window) {
            auto& box = Find<QComboBox>(window, "TxtPercentComplet");
            box.setFocus();
            person(box);
            Click(Find(window, "CmdOK"));
        });
        return plan["Build"].TaskPercentDone();
    }

    /// `person(table)` uses the predecessors, and the dialog is left by OK.
    void UsePredecessors(const std::function<void(QTableView& table)>& person) {
        plan.Edit("Build", [&](QWidget& window) {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(1);
            Settle();
            person(Find<QTableView>(window, "VSFlexGridPredecessor"));
            Click(Find(window, "CmdOK"));
        });
    }

    OffscreenApplication application;
    QtPlan plan;
};

TEST_F(DropList, OpensOnThePercentageThatStandsInTheField) {
    for (const int done : {25, 75}) {
        EXPECT_EQ(Percent(done,
                          [done](QComboBox& box) {
                              QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
                              EXPECT_EQ(box.view()->currentIndex().data().toInt(), done);
                              QTest::keyClick(box.view(), Qt::Key_Return);
                              EXPECT_EQ(box.currentText(), QString("%1 %").arg(done));
                          }),
                  done);
    }
}

TEST_F(DropList, FollowsAPercentageThatIsTyped) {
    Percent(25, [](QComboBox& box) {
        Type(*box.lineEdit(), "50");
        ASSERT_EQ(box.currentText(), "50 %");
        QTest::keyClick(&box, Qt::Key_F4);
        EXPECT_EQ(box.view()->currentIndex().data().toString(), "50");
        QTest::keyClick(box.view(), Qt::Key_Escape);
    });
}

TEST_F(DropList, OpensOnNoneWhereThePercentageIsNotOffered) {
    EXPECT_EQ(Percent(30,
                      [](QComboBox& box) {
                          QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
                          EXPECT_FALSE(box.view()->currentIndex().isValid());
                          QTest::keyClick(box.view(), Qt::Key_Return);
                          EXPECT_FALSE(box.view()->isVisible());
                          EXPECT_EQ(box.currentText(), "30");
                      }),
              30);
}

TEST_F(DropList, GoesToItsFirstEntryByTheKeysFromNone) {
    EXPECT_EQ(Percent(30,
                      [](QComboBox& box) {
                          QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
                          for (int n = 0; n < 2; ++n) QTest::keyClick(box.view(), Qt::Key_Down);
                          QTest::keyClick(box.view(), Qt::Key_Return);
                      }),
              25);
}

TEST_F(DropList, ChoosesNothingByTheKeysWhileItIsClosed) {
    EXPECT_EQ(Percent(30,
                      [](QComboBox& box) {
                          for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown}) {
                              QTest::keyClick(&box, key, Qt::ShiftModifier);
                              EXPECT_EQ(box.currentText(), "30") << key;
                          }
                          QTest::keyClick(&box, Qt::Key_Up, Qt::AltModifier);
                          EXPECT_EQ(box.currentText(), "30");
                      }),
              30);
}

TEST_F(DropList, LeavesAPredecessorAsItIsWhenEnterComesAtOnce) {
    UsePredecessors([this](QTableView& table) {
        for (const Qt::Key opens : {Qt::Key_F2, Qt::Key_Space}) {
            table.setFocus();
            table.setCurrentIndex(table.model()->index(0, 1));
            QTest::keyClick(&table, opens);
            Settle();
            QAbstractItemView& list = *Find<QComboBox>(*table.viewport(), "").view();
            EXPECT_FALSE(list.currentIndex().isValid());
            QTest::keyClick(&list, Qt::Key_Return);
            Settle();
            EXPECT_EQ(Shown(table), "1 | Draw | 0\n |  | \n");
            EXPECT_EQ(table.viewport()->findChild<QComboBox*>(), nullptr);
        }
        EXPECT_EQ(plan.form().PredecessorsChanged(), False);
    });
    EXPECT_TRUE(plan["Build"].isPredecessor(plan.Key("Draw")));
}

// --- The mouse -------------------------------------------------------------------------------------------------------

/// The window that the mouse is over there, and the place in it.
std::pair<QWindow*, QPoint> Under(QPoint place) {
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget& hit = popup != nullptr ? *popup : *QApplication::activeWindow();
    return {hit.windowHandle(), hit.mapFromGlobal(place)};
}
void PressAt(QPoint place) {
    const auto [window, at] = Under(place);
    QTest::mouseMove(window, at);
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    Settle();
}
void ReleaseAt(QPoint place) {
    const auto [window, at] = Under(place);
    QTest::mouseMove(window, at + QPoint(1, 1));
    QTest::mouseRelease(window, Qt::LeftButton, {}, at);
    Settle();
}
void ClickAt(QPoint place) {
    PressAt(place);
    ReleaseAt(place);
}

TEST_F(DropList, ChoosesNothingByADoubleClick) {
    constexpr int kLong = 10'000;  // milliseconds, for a slow machine
    constexpr int kShort = 10;
    for (const int row : {0, 1}) {
        QApplication::setDoubleClickInterval(kLong);
        UsePredecessors([row](QTableView& table) {
            const QPoint cell = table.viewport()->mapToGlobal(table.visualRect(table.model()->index(row, 1)).center());
            ClickAt(cell);
            const bool open = QApplication::activePopupWidget() != nullptr;
            EXPECT_EQ(open, row == 1) << "the first click on the empty row, the second on a filled one";
            // Qt hears a double click, or, in the list that is open, two single ones.
            QTest::lastMouseTimestamp += open ? kLong : -QTest::mouseDoubleClickInterval;
            PressAt(cell);
            QApplication::setDoubleClickInterval(kShort);  // the button may stay down for longer
            QTest::qWait(2 * kShort);
            ReleaseAt(cell);
            QWidget* const list = QApplication::activePopupWidget();
            ASSERT_NE(list, nullptr) << "nothing was chosen";
            EXPECT_TRUE(list->geometry().contains(cell)) << "it lies where the second click came";
            EXPECT_EQ(Shown(table), "1 | Draw | 0\n |  | \n");
            QTest::keyClick(list, Qt::Key_Escape);
        });
    }
}

TEST_F(DropList, ChoosesNothingByTheWheelBeforeItIsOpen) {
    UsePredecessors([](QTableView& table) {
        table.setFocus();
        table.setCurrentIndex(table.model()->index(1, 1));
        QTest::keyClick(&table, Qt::Key_F2);
        Wheel(Find<QComboBox>(*table.viewport(), ""), -1);
        Settle();
        ASSERT_EQ(Shown(table), "1 | Draw | 0\n |  | \n");
        QTest::keyClick(Find<QComboBox>(*table.viewport(), "").view(), Qt::Key_Escape);
    });
}

TEST_F(DropList, ChoosesByAClickThatComesLater) {
    constexpr int kShort = 10;  // milliseconds
    QApplication::setDoubleClickInterval(kShort);
    UsePredecessors([](QTableView& table) {
        ClickCell(table, 1, 1);
        QAbstractItemView& list = *Find<QComboBox>(*table.viewport(), "").view();
        QTest::qWait(2 * kShort);
        const QModelIndex permit = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, "Permit").value(0);
        ClickAt(list.viewport()->mapToGlobal(list.visualRect(permit).center()));
        EXPECT_EQ(Shown(table), "1 | Draw | 0\n2 | Permit | 0\n |  | \n");
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
