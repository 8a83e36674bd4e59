#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

class TaskPage : public ::testing::Test {
protected:
    TaskPage() { plan.Task("Design").From(Monday).Lasting(3); }
    ~TaskPage() override { plan.Heard(); }

    OffscreenApplication application;
    QtPlan plan;
};

TEST_F(TaskPage, DropsLettersTypedIntoTheDuration) {
    plan.Edit("Design", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        Type(duration, "x1y2-z");
        EXPECT_EQ(duration.text(), "12");
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, LeavesEnterInTheDurationToTheForm) {
    plan.Edit("Design", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        bool taken = false;
        QObject::connect(&duration, &QLineEdit::returnPressed, &duration, [&taken] { taken = true; });
        QTest::keyClick(&duration, Qt::Key_Return);
        EXPECT_FALSE(taken) << "the field's rules drop the key";
        EXPECT_FALSE(window.isVisible()) << "the window's button takes it";
    });
}

TEST_F(TaskPage, TakesTheCostThatShowsOnEnter) {
    plan.Edit("Design", [this](QWidget& window) {
        QWidget& cost = Find(window, "Txtcost");
        Type(cost, "25");
        plan.form().Task()->TaskCost(Currency(70));  // as only a host could
        QTest::keyClick(&cost, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(25));
}

TEST_F(TaskPage, TakesADurationOfThreeDigitsAtMost) {
    plan.Edit("Design", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        Type(duration, "1000");
        EXPECT_EQ(duration.text(), "100");
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, ShowsALongerDurationWholeThatNobodyTyped) {
    plan.Task("Cure").Holding(Monday, Friday, 12.25);
    plan.Edit("Cure", [](QWidget& window) {
        EXPECT_EQ(Find<QLineEdit>(window, "TxtDurtion").text(), "12.25");
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, TakesANumberThatWasPastedWithTheEndOfItsLine) {
    for (const char* lines : {"25\n", "25\r\n", "\n25", "25"}) {
        SCOPED_TRACE(lines);
        plan.Task("Look").From(Monday).Lasting(1);
        QGuiApplication::clipboard()->setText(lines);
        plan.Edit("Look", [](QWidget& window) {
            for (QLineEdit* line : {&Find<QLineEdit>(window, "Txtcost"), &Find<QLineEdit>(window, "TxtDurtion"),
                                    Find<QComboBox>(window, "TxtPercentComplet").lineEdit()}) {
                Type(*line, "");
                QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
            }
            Click(Find(window, "CmdOK"));
        });
        EXPECT_EQ(plan["Look"].TaskCost(), Currency(25));
        EXPECT_EQ(plan["Look"].TaskDuration(), 25);
        EXPECT_EQ(plan["Look"].TaskPercentDone(), 25);
    }
}

TEST_F(TaskPage, TypesOverTheZeroThatComesForAnEmptyDuration) {
    plan.Task("Look").From(Monday).Lasting(1);
    plan.Edit("Look", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        Type(duration, "");
        QTest::keyClick(&duration, Qt::Key_Backspace);
        EXPECT_EQ(duration.text(), "0");
        QTest::keyClicks(&duration, "7");
        EXPECT_EQ(duration.text(), "7");
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, StepsTheDurationByItsArrowsAndByTheKeys) {
    plan.Edit("Design", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        QWidget& arrows = Find(window, "VScrollDuration");
        QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(arrows.width() / 2, arrows.height() / 4));
        EXPECT_EQ(duration.text(), "4");
        QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(arrows.width() / 2, arrows.height() * 3 / 4));
        EXPECT_EQ(duration.text(), "3");
        QTest::keyClick(&duration, Qt::Key_Up);
        EXPECT_EQ(duration.text(), "4");
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskDuration(), 4);
}

TEST_F(TaskPage, StepsNothingByArrowsThatDoNotShow) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            auto& box = Find<QComboBox>(window, "TxtPercentComplet");
            EXPECT_FALSE(Find(window, "VScrollPercentComplete").isVisible());
            box.setFocus();
            QTest::keyClick(&box, Qt::Key_Up);
            EXPECT_FALSE(Wheel(box, 1));
            EXPECT_EQ(box.currentText(), "0");
            Click(Find(window, "CmdCancel"));
        },
        5);
}

TEST_F(TaskPage, HasNarrowArrowsFromRightToLeftToo) {
    int width[2] = {};
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        plan.Edit("Design", [&](QWidget& window) {
            width[direction == Qt::RightToLeft] = Find(window, "VScrollDuration").width();
            EXPECT_LT(width[0], Find(window, "VScrollDuration").height());
            Click(Find(window, "CmdCancel"));
        });
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(width[1], width[0]);
}

TEST_F(TaskPage, HasArrowsAsHighAsTheirFieldsOnADesktopOfLargeFonts) {
    QApplication::setFont(LargeFont());
    plan.Edit("Design", [](QWidget& window) {
        for (const auto& [arrows, field] :
             {std::pair("VScrollDuration", "TxtDurtion"), {"VScrollPercentComplete", "TxtPercentComplet"}}) {
            EXPECT_EQ(Find(window, arrows).height(), Find(window, field).height()) << arrows;
        }
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, KeepsItsFieldsBelowOneAnotherWhenTheFontOfTheDesktopChanges) {
    plan.Edit("Design", [](QWidget& window) {
        const auto place = [&](const char* name) { return Find(window, name).mapTo(&window, QPoint()).x(); };
        const int before = place("Txtcost");
        EXPECT_EQ(place("DTPickerStart"), before);
        QApplication::setFont(LargeFont());
        Settle();
        EXPECT_GT(place("Txtcost"), before);
        EXPECT_EQ(place("DTPickerStart"), place("Txtcost"));
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, ShowsWhatATickedMilestoneMakesOfTheDuration) {
    plan.Task("Look").From(Monday).Lasting(1);
    plan.Edit("Look", [](QWidget& window) {
        Click(Find(window, "chkAsMilistones"));
        EXPECT_EQ(Find<QLineEdit>(window, "TxtDurtion").text(), "0");
        EXPECT_EQ(DateIn(window, "DTPickerEnd").date(), DateIn(window, "DTPickerStart").date());
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Look"].TaskMilstones(), True);
    EXPECT_EQ(plan["Look"].TaskDuration(), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
