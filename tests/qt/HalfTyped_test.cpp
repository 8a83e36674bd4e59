#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPaintEvent>
#include <QTabWidget>
#include <utility>

#include "qt/FieldFocus.h"
#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// What stands half typed in a field while the person looks elsewhere.
class HalfTyped : public ::testing::Test {
protected:
    HalfTyped() {
        plan.Task("Design").From(Monday).Lasting(3);
        plan.Task("Idea");
    }
    ~HalfTyped() override { plan.Heard(); }

    static void InAMenu(QWidget& window) {
        QMenu menu(&window);
        menu.addAction("Paste");
        menu.popup(window.mapToGlobal(QPoint()));
        Settle();
        EXPECT_TRUE(menu.isVisible());
        menu.close();
        Settle();
    }
    const std::function<void(QWidget&)> elsewhere_[2] = {[](QWidget& window) { InAnotherWindow(window); },
                                                         [](QWidget& window) { InAMenu(window); }};

    OffscreenApplication application;
    QtPlan plan;
};

/// What a field hears.
class Heard : public QObject {
public:
    Heard(QWidget& field, std::function<bool(const QEvent&)> counts) : counts_(std::move(counts)) {
        field.installEventFilter(this);
    }
    int Times() { return std::exchange(times_, 0); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        times_ += counts_(*event);
        return false;
    }

private:
    std::function<bool(const QEvent&)> counts_;
    int times_ = 0;
};

void PressUp(QDateEdit& date, bool repeated) {
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(&date, &up);
}
constexpr int kSomeSteps = 500;  // milliseconds

/// The line that is typed in.
QLineEdit& LineOf(QWidget& field) {
    auto* line = qobject_cast<QLineEdit*>(&field);
    return line != nullptr ? *line : *field.findChild<QLineEdit*>();
}

TEST_F(HalfTyped, GoesOnInEachFieldWhereItWas) {
    for (const auto& look_away : elsewhere_) {
        plan.Task("Sketch").From(Monday).Lasting(3);
        plan.Edit("Sketch", [&](QWidget& window) {
            struct Field {
                const char* control;
                const char* first;
                const char* then;
            };
            for (const auto& [control, first, then] : {Field{"TxtDurtion", "1", "2"},
                                                       {"TxtPercentComplet", "4", "2"},
                                                       {"Txtcost", "1", "25"},
                                                       {"TxtName", "Dr", "aw"}}) {
                QLineEdit& line = LineOf(Find(window, control));
                Type(line, first);
                look_away(window);
                QTest::keyClicks(&line, then);
            }
            Click(Find(window, "CmdOK"));
        });
        EXPECT_EQ(plan["Sketch"].TaskName(), "Draw");
        EXPECT_EQ(plan["Sketch"].TaskDuration(), 12);
        EXPECT_EQ(plan["Sketch"].TaskPercentDone(), 42);
        EXPECT_EQ(plan["Sketch"].TaskCost(), Currency(125));
    }
}

TEST_F(HalfTyped, LeavesAnEmptiedNameEmptyUntilTheFocusGoesOn) {
    for (const auto& look_away : elsewhere_) {
        plan.Edit("Design", [&](QWidget& window) {
            auto& name = Find<QLineEdit>(window, "TxtName");
            Type(name, "");
            QTest::keyClick(&name, Qt::Key_Backspace);
            look_away(window);
            EXPECT_EQ(name.text(), "");
            QTest::keyClick(&name, Qt::Key_Tab);
            EXPECT_EQ(name.text(), "Design");
            Click(Find(window, "CmdCancel"));
        });
    }
}

TEST_F(HalfTyped, TellsOfADurationWhenTheFocusGoesOn) {
    for (const auto& look_away : elsewhere_) {
        plan.Edit("Idea", [&](QWidget& window) {
            auto& duration = Find<QLineEdit>(window, "TxtDurtion");
            duration.setFocus();
            look_away(window);
            EXPECT_TRUE(BoxIn(window, "DTPickerStart").isChecked()) << "a duration that was left takes the dates away";
            QTest::keyClick(&duration, Qt::Key_Tab);
            EXPECT_FALSE(BoxIn(window, "DTPickerStart").isChecked());
            Click(Find(window, "CmdCancel"));
        });
    }
}

TEST_F(HalfTyped, IsNoDateUntilTheFocusGoesOn) {
    for (const auto& look_away : elsewhere_) {
        plan.Edit(
            "Design",
            [&](QWidget& window) {
                QDateEdit& start = DateIn(window, "DTPickerStart");
                start.setFocus();
                QTest::keyClicks(&start, "1");
                look_away(window);
                EXPECT_EQ(start.text(), "1/03/2026");
                EXPECT_EQ(plan.form().Task()->TaskBDate(), Monday);
                QTest::keyClicks(&start, "8");
                look_away(window);
                EXPECT_EQ(plan.form().Task()->TaskBDate(), Monday);
                Find(window, "TxtName").setFocus();
                EXPECT_EQ(plan.form().Task()->TaskBDate(), Wednesday + 14);
                Click(Find(window, "CmdCancel"));
            },
            2, "dd/MM/yyyy");
    }
}

TEST_F(HalfTyped, ShowsNoCaretInADateWhileThePersonIsInAnotherWindow) {
    QApplication::setCursorFlashTime(0);  // a caret stands still
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_End);
        auto& line = *start.findChild<QLineEdit*>();
        line.deselect();
        const QImage with_caret = line.grab().toImage();
        InAnotherWindow(window, [&] { EXPECT_NE(line.grab().toImage(), with_caret); });
        EXPECT_EQ(line.grab().toImage(), with_caret);
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(HalfTyped, ShowsNoFocusAroundADateWhileThePersonIsInAnotherWindow) {
    QApplication::setPalette(QPalette(Qt::lightGray));  // the rest of the window looks as before
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        Heard drawn(start, [&start](const QEvent& event) {
            return event.type() == QEvent::Paint &&
                   static_cast<const QPaintEvent&>(event).region().contains(start.rect().topLeft());
        });
        start.setFocus();
        QTest::qWait(100);  // a new window is drawn several times
        drawn.Times();
        InAnotherWindow(window, [&drawn] { EXPECT_TRUE(QTest::qWaitFor([&drawn] { return drawn.Times() > 0; })); });
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(HalfTyped, CountsAsTypedWhenOkIsPressedFromAnotherWindow) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClicks(&start, "18");
            InAnotherWindow(window, [&] { Find<QAbstractButton>(window, "CmdOK").click(); });
        },
        2, "dd/MM/yyyy");
    EXPECT_EQ(plan["Design"].TaskBDate(), Wednesday + 14);
}

TEST_F(HalfTyped, IsTypedOnceTheFocusGoesOnWhileThePersonIsInAnotherWindow) {
    const auto go_on = [](QWidget& window) {
        InAnotherWindow(window, [&] {
            Click(Find(window, "Txtcost"));
            EXPECT_EQ(window.focusWidget(), &Find(window, "Txtcost"));
        });
    };
    plan.Edit("Design", [&](QWidget& window) {
        Type(Find(window, "TxtName"), "Half");
        go_on(window);
        EXPECT_EQ(plan.form().Task()->TaskName(), "Half");
        Click(Find(window, "CmdCancel"));
    });
    plan.Edit("Idea", [&](QWidget& window) {
        Find(window, "TxtDurtion").setFocus();
        go_on(window);
        EXPECT_FALSE(BoxIn(window, "DTPickerStart").isChecked()) << "a duration that was left takes the dates away";
        Click(Find(window, "CmdCancel"));
    });
    plan.Edit(
        "Design",
        [&](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClicks(&start, "18");
            go_on(window);
            EXPECT_EQ(plan.form().Task()->TaskBDate(), Wednesday + 14);
            Click(Find(window, "CmdCancel"));
        },
        2, "dd/MM/yyyy");
}

TEST_F(HalfTyped, IsTypedWhenTheMousePressesOkFromAnotherWindow) {
    const auto press_ok = [](QWidget& window) {
        InAnotherWindow(window, [&] { Click(Find(window, "CmdOK")); });
        EXPECT_FALSE(window.isVisible());
    };
    plan.Edit("Design", [&](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(3);
        Settle();
        auto& people = Find<QTableView>(window, "VSFlexGridResource");
        ClickCell(people, 0, 1);
        QTest::keyClicks(&OpenLine(people), "Eve");
        press_ok(window);
    });
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 1);
    plan.Edit("Design", [&](QWidget& window) {
        Type(Find(window, "TxtName"), "Draw");
        press_ok(window);
    });
    EXPECT_EQ(plan["Design"].TaskName(), "Draw");
}

TEST_F(HalfTyped, StepsADateNoFurtherWhileThePersonLooksElsewhere) {
    for (const auto& look_away : elsewhere_) {
        plan.Edit(
            "Design",
            [&](QWidget& window) {
                QDateEdit& end = DateIn(window, "DTPickerEnd");
                end.setFocus();
                end.setSelectedSection(QDateTimeEdit::DaySection);
                for (const bool repeated : {false, true}) PressUp(end, repeated);  // held down, and let go elsewhere
                look_away(window);
                const QDate there = end.date();
                QTest::qWait(kSomeSteps);
                EXPECT_EQ(end.date(), there);
                QTest::keyClick(&end, Qt::Key_Up);
                EXPECT_EQ(end.date(), there.addDays(1));
                Click(Find(window, "CmdCancel"));
            },
            2, "dd/MM/yyyy");
    }
}

TEST_F(HalfTyped, StepsADateNoFurtherThanTheStepThatLedThePersonElsewhere) {
    for (const auto& look_away : elsewhere_) {
        plan.Edit(
            "Design",
            [&](QWidget& window) {
                QDateEdit& end = DateIn(window, "DTPickerEnd");
                end.setFocus();
                end.setSelectedSection(QDateTimeEdit::DaySection);
                const QDate begin = end.date();
                for (const bool repeated : {false, true, true}) PressUp(end, repeated);
                EXPECT_EQ(end.date(), begin.addDays(3));
                QObject::connect(
                    &end, &QDateEdit::dateChanged, &end, [&] { look_away(window); }, Qt::SingleShotConnection);
                PressUp(end, true);
                QTest::qWait(kSomeSteps);
                EXPECT_EQ(end.date(), begin.addDays(4));
                Click(Find(window, "CmdCancel"));
            },
            2, "dd/MM/yyyy");
    }
}

TEST_F(HalfTyped, StepsAFieldNoFurtherByAnArrowThatTheMouseHeldBefore) {
    for (const auto& look_away : elsewhere_) {
        plan.Edit("Design", [&](QWidget& window) {
            for (const auto& [arrows_name, field] :
                 {std::pair("VScrollDuration", "TxtDurtion"), {"VScrollPercentComplete", "TxtPercentComplet"}}) {
                QWidget& arrows = Find(window, arrows_name);
                const QLineEdit& line = LineOf(Find(window, field));
                const QPoint up(arrows.width() / 2, arrows.height() / 4);
                QTest::mousePress(&arrows, Qt::LeftButton, {}, up);
                const QString first = line.text();
                EXPECT_TRUE(QTest::qWaitFor([&] { return line.text() != first; })) << "it goes on by itself";
                look_away(window);
                const QString there = line.text();
                QTest::qWait(kSomeSteps);
                EXPECT_EQ(line.text(), there) << field;
                QTest::mouseClick(&arrows, Qt::LeftButton, {}, up);
                EXPECT_NE(line.text(), there) << field;
            }
            Click(Find(window, "CmdCancel"));
        });
    }
}

TEST_F(HalfTyped, TellsAFieldOnceThatThePersonGoesOn) {
    for (const bool elsewhere : {false, true}) {
        for (const auto& [tab, field] : {std::pair(0, "TxtName"), {0, "TxtDurtion"}, {3, "VSFlexGridResource"}}) {
            plan.Edit("Design", [&, tab = tab, field = field](QWidget& window) {
                Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
                Find(window, field).setFocus();
                Heard left(Find(window, field), &qt::LeavesField);
                const auto go_on = [&] {
                    Find(window, "CmdHelp").setFocus();
                    EXPECT_EQ(left.Times(), 1) << field << elsewhere;
                };
                elsewhere ? InAnotherWindow(window, go_on) : go_on();
                EXPECT_EQ(left.Times(), 0) << field << elsewhere;
                Click(Find(window, "CmdCancel"));
            });
        }
    }
}

TEST_F(HalfTyped, TellsNothingOfAFieldThatIsLeftWithTheDialog) {
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWidget& window) { Find<QAbstractButton>(window, "CmdCancel").click(); },
        [](QWidget& window) { window.close(); },
        [this](QWidget&) { plan.app->unloadtaskinfo(); },
        [this](QWidget& window) { InAnotherWindow(window, [this] { plan.app->unloadtaskinfo(); }); },
    };
    for (const auto& leave : ways) {
        Ref<EditTask> dialog;
        const auto edit = [&](const char* task, const char* field, const char* keys) {
            plan.Edit(task, [&](QWidget& window) {
                dialog = Ref<EditTask>(&plan.form());
                Type(Find(window, field), keys);
                leave(window);
            });
        };
        edit("Design", "TxtName", "Half");
        EXPECT_EQ(dialog->Task()->TaskName(), "Design");
        edit("Idea", "TxtDurtion", "");
        EXPECT_FALSE(dialog->DTPickerStart.Value().is_null());
        plan.Edit("Design", [&](QWidget& window) {
            dialog = Ref<EditTask>(&plan.form());
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(3);
            auto& people = Find<QTableView>(window, "VSFlexGridResource");
            people.setFocus();
            people.setCurrentIndex(people.model()->index(0, 1));
            leave(window);
        });
        EXPECT_EQ(dialog->VSFlexGridResource.Row(), 1);
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
