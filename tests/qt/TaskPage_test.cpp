#include <gtest/gtest.h>

#include <QCheckBox>
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

QDateEdit& DateIn(QWidget& window, const char* name) {
    return *Find(window, name).findChild<QDateEdit*>();
}
QCheckBox& BoxIn(QWidget& window, const char* name) {
    return *Find(window, name).findChild<QCheckBox*>();
}

TEST_F(TaskPage, DropsLettersTypedIntoTheDuration) {
    plan.Edit("Design", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        Type(duration, "x1y2-z");
        EXPECT_EQ(duration.text(), "12");
        Click(Find(window, "CmdCancel"));
    });
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

TEST_F(TaskPage, ShowsDatesInTheFormatOfTheHost) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            EXPECT_EQ(DateIn(window, "DTPickerStart").text(), "02/03/2026");
            Click(Find(window, "CmdCancel"));
        },
        2, "dd/MM/yyyy");
}

TEST_F(TaskPage, ShowsDatesAsTheDesktopDoesWhereTheHostsFormatShowsNone) {
    for (const char* format : {"", "HH:mm", "nonsense"}) {
        SCOPED_TRACE(format);
        plan.Edit(
            "Design",
            [](QWidget& window) {
                const QString shown = DateIn(window, "DTPickerStart").text();
                EXPECT_TRUE(shown.contains("2026")) << shown.toStdString();
                Click(Find(window, "CmdCancel"));
            },
            2, format);
    }
}

TEST_F(TaskPage, MovesTheEndWithATypedStart) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            start.setSelectedSection(QDateTimeEdit::DaySection);
            QTest::keyClicks(&start, "04");
            Find(window, "TxtDurtion").setFocus();
            EXPECT_EQ(DateIn(window, "DTPickerEnd").date(), QDate(2026, 3, 6));
            Click(Find(window, "CmdOK"));
        },
        2, "dd/MM/yyyy");
    EXPECT_EQ(plan["Design"].TaskBDate(), Wednesday);
    EXPECT_EQ(plan["Design"].TaskEDate(), Friday);
}

TEST_F(TaskPage, ClearsBothDatesWithTheBoxOfOne) {
    plan.Edit("Design", [](QWidget& window) {
        Click(BoxIn(window, "DTPickerStart"));
        EXPECT_FALSE(BoxIn(window, "DTPickerEnd").isChecked());
        EXPECT_FALSE(DateIn(window, "DTPickerEnd").isEnabled());
        EXPECT_EQ(Find<QLineEdit>(window, "TxtDurtion").text(), "0");
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskBDate(), Date());
    EXPECT_EQ(plan["Design"].TaskEDate(), Date());
}

TEST_F(TaskPage, GivesADateBackWithItsBox) {
    plan.Edit("Design", [](QWidget& window) {
        Click(BoxIn(window, "DTPickerStart"));
        Click(BoxIn(window, "DTPickerStart"));
        EXPECT_TRUE(BoxIn(window, "DTPickerStart").isChecked());
        EXPECT_EQ(DateIn(window, "DTPickerStart").date(), QDate(2026, 3, 2));
        EXPECT_TRUE(BoxIn(window, "DTPickerEnd").isChecked());
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskPage, TakesAPercentageOfTwoDigitsThoughTheSignComesWithTheFirst) {
    plan.Edit("Design", [](QWidget& window) {
        auto& line = *Find<QComboBox>(window, "TxtPercentComplet").lineEdit();
        Type(line, "40");
        EXPECT_EQ(line.text(), "40 %");
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 40);
}

TEST_F(TaskPage, TakesAChosenPercentage) {
    plan.Edit("Design", [](QWidget& window) {
        auto& box = Find<QComboBox>(window, "TxtPercentComplet");
        box.showPopup();
        box.view()->setCurrentIndex(box.model()->index(box.findText("75"), 0));
        QTest::keyClick(box.view(), Qt::Key_Return);
        EXPECT_EQ(box.currentText(), "75 %");
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 75);
}

TEST_F(TaskPage, StepsThePercentage) {
    plan.Edit("Design", [](QWidget& window) {
        QWidget& arrows = Find(window, "VScrollPercentComplete");
        QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(arrows.width() / 2, arrows.height() / 4));
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 1);
}

TEST_F(TaskPage, PutsTheCaretBehindACostThatTheFormWrote) {
    plan.Edit("Design", [](QWidget& window) {
        auto& cost = Find<QLineEdit>(window, "Txtcost");
        EXPECT_EQ(cost.cursorPosition(), 0);
        Type(cost, "125");
        EXPECT_EQ(cost.text(), "125");
        EXPECT_EQ(cost.cursorPosition(), 3);
        cost.setCursorPosition(1);
        QTest::keyClicks(&cost, "9");
        EXPECT_EQ(cost.text(), "1925");
        EXPECT_EQ(cost.cursorPosition(), 4);
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskCost(), Currency(1925));
}

}  // namespace
}  // namespace mrlxmlclass::testing
