#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

class DateField : public ::testing::Test {
protected:
    DateField() { plan.Task("Design").From(Monday).Lasting(3); }
    ~DateField() override { plan.Heard(); }

    OffscreenApplication application;
    QtPlan plan;
};

/// The days of its calendar, which has been opened.
QTableView& CalendarOf(QDateEdit& date) {
    return Find<QTableView>(*date.calendarWidget(), "qt_calendar_calendarview");
}

void OpenByMouse(QDateEdit& date) {
    QTest::mouseClick(&date, Qt::LeftButton, {}, QPoint(date.width() - 5, date.height() / 2));
}

TEST_F(DateField, ShowsDatesInTheFormatOfTheHost) {
    for (const Qt::LayoutDirection direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        QApplication::setLayoutDirection(direction);
        plan.Edit(
            "Design",
            [](QWidget& window) {
                EXPECT_EQ(DateIn(window, "DTPickerStart").text(), "02/03/2026");
                Click(Find(window, "CmdCancel"));
            },
            2, "dd/MM/yyyy");
    }
}

TEST_F(DateField, ShowsDatesAsTheDesktopDoesWhereTheHostsFormatShowsNoWholeOnes) {
    for (const char* format : {"", "HH:mm", "nonsense", "DD/MM/YYYY", "d/m/yyyy", "MM/yyyy"}) {
        SCOPED_TRACE(format);
        plan.Edit(
            "Design",
            [](QWidget& window) {
                const QDateEdit& start = DateIn(window, "DTPickerStart");
                EXPECT_EQ(start.text(), QLocale().toString(start.date(), "d MMM yyyy"));
                Click(Find(window, "CmdCancel"));
            },
            2, format);
    }
}

TEST_F(DateField, ShowsADateOfLongAgo) {
    plan.Task("Old").Holding(Date::Of(1700, 1, 4), Date::Of(1700, 1, 8), 5);
    plan.Task("Oldest").Holding(Date::Of(100, 1, 1), Date::Of(100, 1, 5), 5);
    for (const auto& [task, start] : {std::pair("Old", QDate(1700, 1, 4)), {"Oldest", QDate(100, 1, 1)}}) {
        plan.Edit(task, [start = start](QWidget& window) {
            EXPECT_EQ(DateIn(window, "DTPickerStart").date(), start);
            Click(Find(window, "CmdCancel"));
        });
    }
}

TEST_F(DateField, MovesTheEndWithATypedStart) {
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

TEST_F(DateField, ClearsBothDatesWithTheBoxOfOne) {
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

TEST_F(DateField, GivesADateBackWithItsBox) {
    plan.Edit("Design", [](QWidget& window) {
        Click(BoxIn(window, "DTPickerStart"));
        Click(BoxIn(window, "DTPickerStart"));
        EXPECT_TRUE(BoxIn(window, "DTPickerStart").isChecked());
        EXPECT_EQ(DateIn(window, "DTPickerStart").date(), QDate(2026, 3, 2));
        EXPECT_TRUE(BoxIn(window, "DTPickerEnd").isChecked());
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(DateField, StepsThePartOfTheDateThatThePersonIsIn) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            QDateEdit& end = DateIn(window, "DTPickerEnd");
            end.setFocus();
            end.setSelectedSection(QDateTimeEdit::YearSection);
            for (const int year : {2027, 2028, 2029}) {
                QTest::keyClick(&end, Qt::Key_Up);
                EXPECT_EQ(end.date().year(), year);
            }
            end.setSelectedSection(QDateTimeEdit::MonthSection);
            for (const int month : {4, 5}) {
                Wheel(end, 1);
                EXPECT_EQ(end.date().month(), month);
            }
            Click(Find(window, "CmdCancel"));
        },
        2, "dd/MM/yyyy");
}

// --- The calendar ----------------------------------------------------------------------------------------------------

TEST_F(DateField, OpensItsCalendarByAltDownAndF4) {
    for (const Qt::LayoutDirection direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        QApplication::setLayoutDirection(direction);
        plan.Edit("Design", [](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            for (const auto& [key, modifier] :
                 {std::pair(Qt::Key_Down, Qt::AltModifier), {Qt::Key_F4, Qt::NoModifier}}) {
                QTest::keyClick(&start, key, modifier);
                EXPECT_TRUE(start.calendarWidget()->isVisible()) << key;
                EXPECT_EQ(start.calendarWidget()->selectedDate(), QDate(2026, 3, 2));
                QTest::keyClick(start.calendarWidget()->window(), Qt::Key_Escape);
                EXPECT_FALSE(start.calendarWidget()->isVisible());
                EXPECT_TRUE(start.hasFocus());
            }
            EXPECT_EQ(start.date(), QDate(2026, 3, 2));
            Click(Find(window, "CmdCancel"));
        });
    }
}

TEST_F(DateField, TakesAnotherDateFromItsCalendar) {
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_F4);
        EXPECT_TRUE(CalendarOf(start).isVisible());
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Return}) QTest::keyClick(&CalendarOf(start), key);
        EXPECT_EQ(start.date(), QDate(2026, 3, 3));
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskBDate(), Tuesday);
}

TEST_F(DateField, CountsTheDateThatShowsAsChosenWhereTheTaskHasNone) {
    using Way = std::pair<const char*, std::function<void(QDateEdit&)>>;
    const Way ways[] = {
        {"typed", [](QDateEdit& date) { QTest::keyClicks(&date, date.text().left(2)); }},
        {"entered",
         [](QDateEdit& date) {
             QTest::keyClick(&date, Qt::Key_F4);
             QTest::keyClick(&CalendarOf(date), Qt::Key_Return);
         }},
        {"clicked",
         [](QDateEdit& date) {
             OpenByMouse(date);
             QTableView& calendar = CalendarOf(date);
             QTest::mouseClick(calendar.viewport(), Qt::LeftButton, {},
                               calendar.visualRect(calendar.currentIndex()).center());
         }},
    };
    const Date today = plan.platform.clock.Today();
    for (const auto& [way, choose] : ways) {
        SCOPED_TRACE(way);
        for (const char* control : {"DTPickerStart", "DTPickerEnd"}) {
            const std::string task = std::string("Idea ") + way + control;
            plan.Task(task.c_str());
            plan.Edit(
                task,
                [&](QWidget& window) {
                    QDateEdit& date = DateIn(window, control);
                    date.setFocus();
                    choose(date);
                    Click(Find(window, "CmdOK"));
                },
                2, "dd/MM/yyyy");
            EXPECT_EQ(plan[task].TaskBDate(), today) << control;
            EXPECT_EQ(plan[task].TaskEDate(), today) << control;
        }
    }
}

TEST_F(DateField, TakesNoOtherDateThanTheTypedOneWhereTheTaskHasNone) {
    plan.Task("Idea");
    plan.Edit(
        "Idea",
        [](QWidget& window) {
            QDateEdit& end = DateIn(window, "DTPickerEnd");
            end.setFocus();
            QTest::keyClicks(&end, "18");
            Click(Find(window, "CmdOK"));
        },
        2, "dd/MM/yyyy");
    EXPECT_EQ(plan["Idea"].TaskEDate(), Wednesday + 14);
    EXPECT_EQ(plan["Idea"].TaskBDate(), plan["Idea"].TaskEDate()) << "nor for a moment the date that stood in";
}

TEST_F(DateField, CountsNoDateAsChosenThatWasOnlyLookedAt) {
    plan.Task("Idea");
    plan.Edit("Idea", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_F4);
        QTest::keyClick(start.calendarWidget()->window(), Qt::Key_Escape);
        for (int part = 0; part < 3; ++part) QTest::keyClick(&start, Qt::Key_Tab);
        EXPECT_FALSE(start.hasFocus());
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Idea"].TaskBDate(), Date());
}

TEST_F(DateField, LeavesItsCalendarByEscapeAsItWas) {
    plan.Task("Idea");
    plan["Design"].TaskLag(2);
    for (const char* task : {"Idea", "Design"}) {
        SCOPED_TRACE(task);
        const Date before = plan[task].TaskBDate();
        plan.Edit(task, [&](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            const QDate shown = start.date();
            start.setFocus();
            QTest::keyClick(&start, Qt::Key_F4);
            QTest::keyClick(&CalendarOf(start), Qt::Key_Right);
            QTest::keyClick(&CalendarOf(start), Qt::Key_Down);
            QTest::keyClick(start.calendarWidget()->window(), Qt::Key_Escape);
            EXPECT_EQ(start.date(), shown);
            Click(Find(window, "CmdOK"));
        });
        EXPECT_EQ(plan[task].TaskBDate(), before);
    }
    EXPECT_EQ(plan["Design"].TaskLag(), 2);
}

TEST_F(DateField, TakesTheDayThatItsCalendarWasWalkedTo) {
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& end = DateIn(window, "DTPickerEnd");
        end.setFocus();
        QTest::keyClick(&end, Qt::Key_F4);
        for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) QTest::keyClick(&CalendarOf(end), key);
        QTest::keyClick(&CalendarOf(end), Qt::Key_Return);
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskEDate(), Wednesday + 7);
}

TEST_F(DateField, TakesNoDigitsInItsCalendar) {
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_F4);
        QTest::keyClicks(&CalendarOf(start), "18");
        QTest::keyClick(&CalendarOf(start), Qt::Key_Return);
        EXPECT_EQ(start.date(), QDate(2026, 3, 2));
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(DateField, CountsNoDateByEnterAlone) {
    plan.Task("Idea");
    plan["Design"].TaskLag(2);
    for (const char* task : {"Idea", "Design"}) {
        SCOPED_TRACE(task);
        const Date before = plan[task].TaskBDate();
        plan.Edit(task, [](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClick(&start, Qt::Key_Return);
        });
        EXPECT_EQ(plan[task].TaskBDate(), before);
    }
    EXPECT_EQ(plan["Design"].TaskLag(), 2);
}

TEST_F(DateField, KeepsWhatWasTypedBeforeItsCalendarOpened) {
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClicks(&start, "18");
        QTest::keyClick(&start, Qt::Key_F4);
        QTest::keyClick(start.calendarWidget()->window(), Qt::Key_Escape);
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskBDate(), Wednesday + 14);
}

TEST_F(DateField, CountsNoDateThatItMendedItself) {
    plan.Task("Idea");
    plan.Edit("Idea", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_Backspace);
        Find(window, "TxtName").setFocus();
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Idea"].TaskBDate(), Date());
}

TEST_F(DateField, ForgetsWhatIsHalfTypedWhenTheDialogIsLeft) {
    for (const auto leave :
         {+[](QWidget& window) { QTest::keyClick(&DateIn(window, "DTPickerStart"), Qt::Key_Escape); },
          +[](QWidget& window) { window.close(); }}) {
        Ref<EditTask> dialog;
        plan.Edit("Design", [&](QWidget& window) {
            dialog = Ref<EditTask>(&plan.form());
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClicks(&start, "18");
            leave(window);
        });
        EXPECT_EQ(dialog->Task()->TaskBDate(), Monday);
    }
}

TEST_F(DateField, LeavesOtherKeysWithF4Alone) {
    plan.Edit("Design", [](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_F4, Qt::AltModifier);
        EXPECT_FALSE(start.calendarWidget()->isVisible());
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(DateField, TellsNothingOfADateThatTheTaskHasAlready) {
    plan.Task("Build").From(Monday).Lasting(2);
    plan["Build"].TaskLag(2);
    plan.Edit(
        "Build",
        [this](QWidget& window) {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClicks(&start, "02");
            QTest::keyClick(&start, Qt::Key_F4);
            QTest::keyClick(&CalendarOf(start), Qt::Key_Return);
            Find(window, "TxtName").setFocus();
            EXPECT_EQ(plan.form().Task()->TaskLag(), 2) << "another start would take it away";
            Click(Find(window, "CmdCancel"));
        },
        2, "dd/MM/yyyy");
}

// --- The keys and the mouse ------------------------------------------------------------------------------------------

TEST_F(DateField, TakesAHalfTypedDateInBeforeTheArrowsOfTheDurationStep) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            QDateEdit& end = DateIn(window, "DTPickerEnd");
            end.setFocus();
            end.setSelectedSection(QDateTimeEdit::DaySection);
            QTest::keyClicks(&end, "06");
            QWidget& arrows = Find(window, "VScrollDuration");
            QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(arrows.width() / 2, arrows.height() / 4));
            EXPECT_TRUE(Find(window, "TxtDurtion").hasFocus());
            Click(Find(window, "CmdOK"));
        },
        2, "dd/MM/yyyy");
    EXPECT_EQ(plan["Design"].TaskDuration(), 6);
    EXPECT_EQ(plan["Design"].TaskEDate(), Monday + 7);
}

TEST_F(DateField, StaysAsItIsWhenSomebodyScrollsPast) {
    plan.Edit("Design", [](QWidget& window) {
        Find(window, "TxtName").setFocus();
        QDateEdit& start = DateIn(window, "DTPickerStart");
        for (QWidget* part : {static_cast<QWidget*>(&start), static_cast<QWidget*>(start.findChild<QLineEdit*>())}) {
            EXPECT_FALSE(Wheel(*part, 1)) << "the wheel scrolls what the field stands in";
            EXPECT_EQ(start.date(), QDate(2026, 3, 2));
            EXPECT_FALSE(start.hasFocus());
        }
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(DateField, IsReachedByTabAtItsBoxAndAtItsDate) {
    plan.Edit("Design", [](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").tabBar()->setFocus();
        const QWidget* const order[] = {&BoxIn(window, "DTPickerStart"), &DateIn(window, "DTPickerStart"),
                                        &BoxIn(window, "DTPickerEnd"), &DateIn(window, "DTPickerEnd"),
                                        &Find(window, "TxtDurtion")};
        for (const QWidget* next : order) {
            const QWidget* from = QApplication::focusWidget();
            // In a date Tab stops at each part of it.
            for (int n = 0; n < 3 && from->hasFocus(); ++n) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_TRUE(next->hasFocus()) << next->parentWidget()->objectName().toStdString();
        }
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(DateField, IsClearedByTheSpaceBarOnItsBox) {
    plan.Edit("Design", [](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").tabBar()->setFocus();
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Space}) QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_FALSE(BoxIn(window, "DTPickerStart").isChecked());
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskBDate(), Date());
}

TEST_F(DateField, IsReachedByTheKeyOfItsLabelAlsoWithoutADate) {
    plan.Edit("Design", [](QWidget& window) {
        const auto press_key_of_label = [&] {
            Find(window, "TxtName").setFocus();
            QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
        };
        ASSERT_EQ(Find<QLabel>(window, "LblStartDate").text(), "&Start:");
        press_key_of_label();
        EXPECT_TRUE(DateIn(window, "DTPickerStart").hasFocus());
        Click(BoxIn(window, "DTPickerStart"));
        press_key_of_label();
        EXPECT_TRUE(BoxIn(window, "DTPickerStart").hasFocus());
        Click(Find(window, "CmdCancel"));
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
