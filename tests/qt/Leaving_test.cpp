#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>

#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "tests/qt/QtDialog.h"
#include "tests/support/Interruption.h"

namespace mrlxmlclass::testing {
namespace {

/// The ways out of the dialog while something is under way.
class Leaving : public ::testing::Test {
protected:
    Leaving() {
        plan.WithLinks();
        plan.Task("Draw").From(Monday).Lasting(2);
        plan.Task("Permit").From(Monday).Lasting(3);
        plan.Task("Build").From(Monday + 7).Lasting(5).After("Draw");
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }
    ~Leaving() override { plan.Heard(); }

    static QTableView& TableOn(QWidget& window, int tab, const char* table) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(tab);
        Settle();
        auto& view = Find<QTableView>(window, table);
        view.setFocus();
        return view;
    }
    /// Begins to type a new person's name.
    static void HalfTypeSomebody(QWidget& window) {
        QTableView& people = TableOn(window, 3, "VSFlexGridResource");
        ClickCell(people, 0, 1);
        QTest::keyClicks(&OpenLine(people), "Ev");
    }
    /// Does it in the next window in front.
    static void Then(std::function<void()> next) { QTimer::singleShot(0, std::move(next)); }

    OffscreenApplication application;
    QtPlan plan;
};

// --- The host ends the dialog ----------------------------------------------------------------------------------------

/// A host that ends the dialog as soon as a failure is told.
class ImpatientHost : public ErrorsHandlerEvents {
public:
    explicit ImpatientHost(Application& app) : app_(app) { log_->Events.Add(*this); }
    ~ImpatientHost() override { log_->Events.Remove(*this); }
    ImpatientHost(const ImpatientHost&) = delete;
    ImpatientHost& operator=(const ImpatientHost&) = delete;

    void RaiseErrors(const String&, const String&) override { app_.unloadtaskinfo(); }

private:
    Application& app_;
    Ref<ErrorsHandler> log_ = Module().g_ErrorsHandler;
};

TEST_F(Leaving, SavesNothingWhenTheHostEndsTheDialogOnTheWayToOk) {
    const ImpatientHost host(*plan.app);
    EXPECT_EQ(plan.Edit("Build",
                        [](QWidget& window) {
                            Type(Find(window, "Txtcost"), "77");
                            Click(BoxIn(window, "DTPickerStart"));
                            QTableView& table = TableOn(window, 1, "VSFlexGridPredecessor");
                            EditCell(table, 0, 3);
                            QTest::keyClicks(&OpenLine(table), "9");
                            EXPECT_TRUE(window.isVisible());
                            Click(Find(window, "CmdOK"));
                            EXPECT_FALSE(window.isVisible()) << "what ends the edit failed, and the host heard of it";
                        }),
              False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/VSFlexGridPredecessor_AfterEdit 13\n");
    EXPECT_EQ(plan["Build"].TaskCost(), 0);
    EXPECT_EQ(plan["Build"].TaskBDate(), Monday + 7);
}

TEST_F(Leaving, StaysUntilAllIsSavedWhenTheHostQuitsOnTheWay) {
    bool closed = true;
    const Interruption host(plan, "RoolUpCostChange", 3, [&] { closed = QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(plan.Edit("Build",
                        [](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "7");
                            Type(Find(window, "Txtcost"), "25");
                            Find<QTextEdit>(window, "txtNote").setPlainText("Mind the roof");
                            Click(Find(window, "CmdOK"));
                            EXPECT_FALSE(window.isVisible());
                        }),
              True);
    EXPECT_FALSE(closed);
    EXPECT_EQ(NotesOf(plan, "Build"), "1:Mind the roof:") << "the last that is saved";
}

TEST_F(Leaving, ThrowsAHalfTypedPersonAwayWhenTheHostEndsTheDialog) {
    plan.Edit("Build", [this](QWidget& window) {
        HalfTypeSomebody(window);
        plan.app->unloadtaskinfo();
    });
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

TEST_F(Leaving, ThrowsAHalfTypedPersonAwayWithTheWindow) {
    plan.Edit("Build", [](QWidget& window) {
        HalfTypeSomebody(window);
        window.close();
    });
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

TEST_F(Leaving, EndsAnOpenListWithTheDialog) {
    plan.Edit("Build", [this](QWidget& window) {
        QTableView& table = TableOn(window, 1, "VSFlexGridPredecessor");
        ClickCell(table, 1, 1);
        EXPECT_TRUE(Find<QComboBox>(*table.viewport(), "").view()->isVisible());
        plan.app->unloadtaskinfo();
    });
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
}

TEST_F(Leaving, EndsWhatThePersonOpenedAtOnceWithTheDialog) {
    const std::function<QWidget*(QWidget&)> opened[] = {
        [](QWidget& window) -> QWidget* {
            Find<QTabWidget>(window, "TabTask").setCurrentIndex(2);
            auto& note = Find<QTextEdit>(window, "txtNote");
            QContextMenuEvent right(QContextMenuEvent::Mouse, {5, 5}, note.mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(note.viewport(), &right);
            return &Find<QMenu>(window, "mnuFile");
        },
        [](QWidget& window) -> QWidget* {
            QDateEdit& start = DateIn(window, "DTPickerStart");
            start.setFocus();
            QTest::keyClick(&start, Qt::Key_F4);
            return start.calendarWidget();
        },
        [](QWidget& window) -> QWidget* {
            auto& percent = Find<QComboBox>(window, "TxtPercentComplet");
            percent.showPopup();
            return percent.view();
        },
    };
    for (const auto& open : opened) {
        plan.Edit("Build", [&](QWidget& window) {
            const QPointer<QWidget> popup = open(window);
            EXPECT_TRUE(popup->isVisible());
            plan.app->unloadtaskinfo();
            EXPECT_TRUE(popup.isNull() || !popup->isVisible()) << "the host goes on meanwhile";
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        });
        EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
    }
}

TEST_F(Leaving, LeavesAMenuOfTheHostOpen) {
    plan.Edit("Build", [this](QWidget& window) {
        QMenu menu;
        menu.addAction("Close all");
        menu.popup(window.mapToGlobal(QPoint()));
        plan.app->unloadtaskinfo();
        EXPECT_TRUE(menu.isVisible());
    });
}

TEST_F(Leaving, EndsWhatThePersonOpenedBehindAMenuOfTheHost) {
    plan.Edit("Build", [this](QWidget& window) {
        QDateEdit& start = DateIn(window, "DTPickerStart");
        start.setFocus();
        QTest::keyClick(&start, Qt::Key_F4);
        QMenu menu;
        menu.addAction("Close all");
        menu.popup(window.mapToGlobal(QPoint()));
        plan.app->unloadtaskinfo();
        EXPECT_FALSE(start.calendarWidget()->isVisible());
        EXPECT_TRUE(menu.isVisible());
        menu.close();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
}

TEST_F(Leaving, EndsTheChoiceOfAFileWithTheDialog) {
    EXPECT_EQ(plan.Edit("Build",
                        [this](QWidget& window) {
                            Find<QTabWidget>(window, "TabTask").setCurrentIndex(2);
                            Then([this] {
                                EXPECT_NE(qobject_cast<QFileDialog*>(QApplication::activeModalWidget()), nullptr);
                                plan.app->unloadtaskinfo();
                            });
                            Click(Find(window, "CmdAttach"));
                        }),
              False);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Leaving, EndsWhatTheChoiceOfAFileSaysWithTheDialog) {
    bool said = false;
    plan.Edit("Build", [&](QWidget& window) {
        Find<QTabWidget>(window, "TabTask").setCurrentIndex(2);
        Then([&] {
            auto& name = Find<QLineEdit>(*QApplication::activeModalWidget(), "fileNameEdit");
            QTest::keyClicks(&name, "no such file");
            Then([&] {
                said = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
                plan.app->unloadtaskinfo();
            });
            QTest::keyClick(&name, Qt::Key_Return);
        });
        Click(Find(window, "CmdAttach"));
    });
    EXPECT_TRUE(said);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// --- OK in a window that is not the active one -----------------------------------------------------------------------

TEST_F(Leaving, TakesWhatWasTypedThoughAnotherWindowIsTheActiveOne) {
    plan.Edit("Build", [](QWidget& window) {
        InAnotherWindow(window, [&] {
            auto& name = Find<QLineEdit>(window, "TxtName");
            Type(name, "Raise");
            EXPECT_FALSE(name.hasFocus());
            Find<QAbstractButton>(window, "CmdOK").click();
        });
    });
    EXPECT_EQ(plan["Build"].TaskName(), "Raise");
}

}  // namespace
}  // namespace mrlxmlclass::testing
