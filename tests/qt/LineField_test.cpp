#include "qt/LineField.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

class LineField : public ::testing::Test {
protected:
    LineField() { plan.Task("Design").From(Monday).Lasting(3); }
    ~LineField() override { plan.Heard(); }

    /// `person(box, line)` uses the field of the percentage, and the dialog is left by OK; gives what is stored.
    Long Percent(const std::function<void(QComboBox& box, QLineEdit& line)>& person) {
        plan.Edit("Design", [&](QWidget& window) {
            auto& box = Find<QComboBox>(window, "TxtPercentComplet");
            box.setFocus();
            person(box, *box.lineEdit());
            Click(Find(window, "CmdOK"));
        });
        return plan["Design"].TaskPercentDone();
    }

    OffscreenApplication application;
    QtPlan plan;
};

TEST_F(LineField, LeavesTheCaretWhereThePersonTypesAndWhatCanBeUndone) {
    plan.Edit("Design", [](QWidget& window) {
        auto& name = Find<QLineEdit>(window, "TxtName");
        Type(name, "Desgn");
        name.setCursorPosition(3);
        QTest::keyClicks(&name, "iXY");
        EXPECT_EQ(name.text(), "DesiXYgn");
        for (int n = 0; n < 2; ++n) QTest::keyClick(&name, Qt::Key_Backspace);
        EXPECT_EQ(name.text(), "Design");
        EXPECT_EQ(name.cursorPosition(), 4);
        QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(name.text(), "DesiXYgn");
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(LineField, LeavesTheCaretOfADurationWhereItWas) {
    plan.Edit("Design", [](QWidget& window) {
        auto& duration = Find<QLineEdit>(window, "TxtDurtion");
        Type(duration, "12");
        duration.setCursorPosition(1);
        QTest::keyClicks(&duration, "3");
        EXPECT_EQ(duration.text(), "132");
        EXPECT_EQ(duration.cursorPosition(), 2);
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(LineField, PutsTheCaretBehindACostThatTheFormWrote) {
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

TEST_F(LineField, LooksLikeAFieldOnlyWhereItTakesText) {
    plan.Task("Phase").Task("Part").Under("Phase").From(Monday).Lasting(2);
    for (const QPalette& palette : {QPalette(Qt::lightGray), QPalette(Qt::darkBlue)}) {
        QApplication::setPalette(palette);
        for (const auto& [task, paper] : {std::pair("Part", QPalette::Base), {"Phase", QPalette::Window}}) {
            plan.Edit(task, [&](QWidget& window) {
                auto& name = Find<QLineEdit>(window, "TxtName");
                const QImage picture = name.grab().toImage();
                EXPECT_EQ(picture.pixelColor(picture.rect().center()), palette.color(paper)) << task;
                Click(Find(window, "CmdCancel"));
            });
        }
    }
}

TEST_F(LineField, HasNoHalfOfACharacterWhereItIsFull) {
    constexpr char32_t kEmoji[] = U"\U0001F3E0";
    const QString house = QString::fromUcs4(kEmoji, 1);
    plan.Edit("Design", [&](QWidget& window) {
        auto& name = Find<QLineEdit>(window, "TxtName");
        name.setFocus();
        for (const int place : {159, 80, 0}) {
            name.setText(QString(159, 'x'));
            name.setCursorPosition(place);
            name.insert(house);
            EXPECT_EQ(name.text(), QString(159, 'x')) << place;
            EXPECT_EQ(name.cursorPosition(), place);
            EXPECT_EQ(plan.form().TxtName[0].Text(), std::string(159, 'x')) << place;
        }
        name.setText(QString(158, 'x'));
        name.insert(house);
        EXPECT_EQ(name.text(), QString(158, 'x') + house);
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(LineField, HandsOverThePastedLinesOfANameAsTheSystemBreaksThem) {
    for (const char* lines : {"First\nSecond", "First\r\nSecond"}) {
        plan.Edit("Design", [&](QWidget& window) {
            auto& name = Find<QLineEdit>(window, "TxtName");
            QGuiApplication::clipboard()->setText(lines);
            Type(name, "");
            QTest::keyClick(&name, Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(plan.form().TxtName[0].Text(), "First\r\nSecond");
            QTest::keyClicks(&name, "!");
            EXPECT_EQ(plan.form().TxtName[0].Text(), "First\r\nSecond!");
            QTest::keyClick(&name, Qt::Key_Tab);
            EXPECT_EQ(name.text(), "First");
            Click(Find(window, "CmdCancel"));
        });
    }
}

TEST_F(LineField, KeepsTheCaretBehindLinesThatWerePastedIntoAName) {
    QGuiApplication::clipboard()->setText("X\r\nY");
    plan.Edit("Design", [](QWidget& window) {
        auto& name = Find<QLineEdit>(window, "TxtName");
        name.setFocus();
        name.setCursorPosition(2);
        QTest::keyClick(&name, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClicks(&name, "!");
        EXPECT_EQ(name.text(), "DeX\nY!sign");
        Click(Find(window, "CmdCancel"));
    });
}

// --- The percentage --------------------------------------------------------------------------------------------------

TEST_F(LineField, TakesAPercentageOfTwoDigitsThoughTheSignComesWithTheFirst) {
    plan.Edit("Design", [](QWidget& window) {
        auto& line = *Find<QComboBox>(window, "TxtPercentComplet").lineEdit();
        Type(line, "40");
        EXPECT_EQ(line.text(), "40 %");
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 40);
}

TEST_F(LineField, TakesAChosenPercentage) {
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

TEST_F(LineField, StepsThePercentage) {
    plan.Edit("Design", [](QWidget& window) {
        QWidget& arrows = Find(window, "VScrollPercentComplete");
        QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(arrows.width() / 2, arrows.height() / 4));
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 1);
}

TEST_F(LineField, TakesAPercentageOfThreeDigits) {
    EXPECT_EQ(Percent([](QComboBox&, QLineEdit& line) {
                  Type(line, "100");
                  EXPECT_EQ(line.text(), "100 %");
              }),
              100);
}

TEST_F(LineField, CorrectsAPercentageByBackspace) {
    EXPECT_EQ(Percent([](QComboBox&, QLineEdit& line) {
                  Type(line, "40");
                  QTest::keyClick(&line, Qt::Key_Backspace);
                  EXPECT_EQ(line.text(), "4 %");
                  QTest::keyClicks(&line, "7");
                  EXPECT_EQ(line.text(), "47 %");
              }),
              47);
}

TEST_F(LineField, CorrectsAPercentageFromBehindItsSign) {
    EXPECT_EQ(Percent([](QComboBox&, QLineEdit& line) {
                  Type(line, "40");
                  QTest::keyClick(&line, Qt::Key_End);
                  EXPECT_EQ(line.cursorPosition(), 4);
                  QTest::keyClick(&line, Qt::Key_Backspace);
                  EXPECT_EQ(line.text(), "4 %");
                  QTest::keyClick(&line, Qt::Key_End);
                  QTest::keyClicks(&line, "2");
              }),
              42);
}

TEST_F(LineField, TakesWhatAnInputMethodTypesBehindTheSignOfAPercentage) {
    EXPECT_EQ(Percent([](QComboBox& box, QLineEdit& line) {
                  Type(line, "4");
                  QTest::keyClick(&line, Qt::Key_End);
                  EXPECT_EQ(line.cursorPosition(), 3);
                  QInputMethodEvent begun("2", {});
                  QCoreApplication::sendEvent(&box, &begun);
                  QInputMethodEvent typed;
                  typed.setCommitString("2");
                  QCoreApplication::sendEvent(&box, &typed);
              }),
              42);
}

TEST_F(LineField, TypesOverTheZeroThatComesForAPercentageThatIsTakenAway) {
    EXPECT_EQ(Percent([](QComboBox&, QLineEdit& line) {
                  Type(line, "40");
                  for (int n = 0; n < 2; ++n) QTest::keyClick(&line, Qt::Key_Backspace);
                  EXPECT_EQ(line.text(), "0 %");
                  QTest::keyClicks(&line, "7");
                  EXPECT_EQ(line.text(), "7 %");
              }),
              7);
}

TEST_F(LineField, StepsAPercentageByTheKeys) {
    EXPECT_EQ(Percent([](QComboBox& box, QLineEdit& line) {
                  Type(line, "80");
                  QTest::keyClick(&box, Qt::Key_Down);
                  EXPECT_EQ(line.text(), "79 %");
                  for (int n = 0; n < 3; ++n) QTest::keyClick(&box, Qt::Key_Up);
                  EXPECT_EQ(line.text(), "82 %");
                  for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown}) QTest::keyClick(&box, key);
                  EXPECT_EQ(line.text(), "82 %");
              }),
              82);
}

TEST_F(LineField, StepsAPercentageByTheWheel) {
    EXPECT_EQ(Percent([](QComboBox& box, QLineEdit& line) {
                  Type(line, "90");
                  Wheel(box, 1);
                  EXPECT_EQ(line.text(), "91 %");
                  Wheel(box, -2);
                  EXPECT_EQ(line.text(), "89 %");
              }),
              89);
}

TEST_F(LineField, StaysAsItIsWhenSomebodyScrollsPast) {
    EXPECT_EQ(Percent([](QComboBox& box, QLineEdit& line) {
                  Type(line, "90");
                  QWidget& window = *box.window();
                  Find(window, "TxtName").setFocus();
                  for (const char* name : {"TxtPercentComplet", "VScrollPercentComplete", "VScrollDuration"}) {
                      EXPECT_FALSE(Wheel(Find(window, name), 1)) << name;
                  }
                  EXPECT_EQ(line.text(), "90 %");
                  EXPECT_EQ(Find<QLineEdit>(window, "TxtDurtion").text(), "3");
              }),
              90);
}

TEST_F(LineField, OpensTheListOfPercentagesByAltDownAndF4) {
    Percent([](QComboBox& box, QLineEdit&) {
        for (const auto& [key, modifier] : {std::pair(Qt::Key_Down, Qt::AltModifier), {Qt::Key_F4, Qt::NoModifier}}) {
            QTest::keyClick(&box, key, modifier);
            EXPECT_TRUE(box.view()->isVisible()) << key;
            QTest::keyClick(box.view(), Qt::Key_Escape);
            EXPECT_FALSE(box.view()->isVisible());
        }
    });
}

TEST_F(LineField, TakesANameThatWasDroppedWhileTheFocusIsElsewhere) {
    plan.Edit("Design", [](QWidget& window) {
        auto& name = Find<QLineEdit>(window, "TxtName");
        Find(window, "Txtcost").setFocus();
        QMimeData text;
        text.setText("Garden ");
        const QPoint front(2, name.height() / 2);
        QDragEnterEvent enters(front, Qt::CopyAction, &text, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&name, &enters);
        QDropEvent dropped(front, Qt::CopyAction, &text, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&name, &dropped);
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskName(), "Garden Design");
}

TEST_F(LineField, TakesWhatAProgramWritesForThePerson) {
    plan.Edit("Design", [](QWidget& window) {
        for (const auto& [field, text] :
             {std::pair("TxtName", "Spoken"), {"TxtDurtion", "9"}, {"Txtcost", "44"}, {"TxtPercentComplet", "40"}}) {
            QWidget& widget = Find(window, field);
            auto* box = qobject_cast<QComboBox*>(&widget);
            QWidget* line = box != nullptr ? box->lineEdit() : &widget;
            QAccessible::queryAccessibleInterface(line)->setText(QAccessible::Value, text);
        }
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskName(), "Spoken");
    EXPECT_EQ(plan["Design"].TaskDuration(), 9);
    EXPECT_EQ(plan["Design"].TaskCost(), 44);
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 40);
}

TEST_F(LineField, FollowsTheFormToATextThatIsShorterThanTheLongest) {
    plan["Design"].TaskDuration(1000);
    plan.Edit("Design", [](QWidget& window) {
        QTest::keyClick(&Find(window, "TxtDurtion"), Qt::Key_Down);
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskDuration(), 999);
}

TEST_F(LineField, TakesAnOfferedPercentageForTypedUntilItIsChosen) {
    plan["Design"].TaskPercentDone(25);
    Percent([](QComboBox& box, QLineEdit& line) {
        EXPECT_EQ(line.text(), "25");
        Find(*box.window(), "TxtName").setFocus();
        EXPECT_EQ(line.text(), "25") << "nothing was chosen";
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
