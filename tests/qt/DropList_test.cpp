#include "qt/DropList.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

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
    plan.Edit("Build", [this](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(1);
        Settle();
        auto& table = Find<QTableView>(window, "VSFlexGridPredecessor");
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
        Click(Find(window, "CmdOK"));
    });
    EXPECT_TRUE(plan["Build"].isPredecessor(plan.Key("Draw")));
}

}  // namespace
}  // namespace mrlxmlclass::testing
