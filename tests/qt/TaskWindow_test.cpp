#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QWindow>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

class TaskWindow : public ::testing::Test {
protected:
    TaskWindow() { plan.Task("Design").From(Monday).Lasting(3); }

    OffscreenApplication application;
    QtPlan plan;
};

TEST_F(TaskWindow, StoresATypedDurationOnOk) {
    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "5");
                            Click(Find(window, "CmdOK"));
                        }),
              True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(plan["Design"].TaskEDate(), Friday);
}

TEST_F(TaskWindow, StoresNothingOnCancel) {
    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "5");
                            Click(Find(window, "CmdCancel"));
                        }),
              False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(TaskWindow, TakesEscForCancel) {
    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            QWidget& duration = Find(window, "TxtDurtion");
                            Type(duration, "5");
                            QTest::keyClick(&duration, Qt::Key_Escape);
                        }),
              False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
}

TEST_F(TaskWindow, TakesEnterForOk) {
    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            QWidget& duration = Find(window, "TxtDurtion");
                            Type(duration, "5");
                            QTest::keyClick(&duration, Qt::Key_Return);
                        }),
              True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
}

TEST_F(TaskWindow, TakesAClosedWindowForCancel) {
    EXPECT_EQ(plan.Edit("Design",
                        [](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "5");
                            window.close();
                        }),
              False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(TaskWindow, GoesWhenTheHostUnloadsItFromAnEvent) {
    EXPECT_EQ(plan.Edit("Design",
                        [this](QWidget& window) {
                            Type(Find(window, "TxtDurtion"), "5");
                            plan.app->unloadtaskinfo();
                            EXPECT_FALSE(window.isVisible());
                        }),
              False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
}

TEST_F(TaskWindow, GoesWithTheWindowInFrontOfItWhenTheHostUnloadsIt) {
    EXPECT_EQ(plan.Edit("Design",
                        [this](QWidget& window) {
                            QTimer::singleShot(0, [this] { plan.app->unloadtaskinfo(); });
                            Click(Find(window, "Cmdlink"));
                        }),
              False);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TaskWindow, OpensAnotherDialogFromWithin) {
    plan.Task("Build").From(Monday).Lasting(2);
    EXPECT_EQ(plan.Edit("Design",
                        [this](QWidget& outer) {
                            Type(Find(outer, "TxtDurtion"), "5");
                            plan.Edit("Build", [&outer](QWidget& inner) {
                                EXPECT_NE(&inner, &outer);
                                Type(Find(inner, "TxtDurtion"), "4");
                                Click(Find(inner, "CmdOK"));
                            });
                            EXPECT_TRUE(outer.isVisible());
                            Click(Find(outer, "CmdOK"));
                        }),
              True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(plan["Build"].TaskDuration(), 4);
    plan.Heard();
}

TEST_F(TaskWindow, CountsAsCancelledWhenTheHostQuits) {
    Boolean changed = True;
    QTimer::singleShot(0, [&] {
        changed = plan.Edit("Design", [](QWidget& window) {
            Type(Find(window, "TxtDurtion"), "5");
            QCoreApplication::exit(7);
            window.hide();  // left open, and meant so
        });
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
    EXPECT_EQ(changed, False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
}

TEST_F(TaskWindow, LetsTheHostQuitThatAsksItsWindows) {
    for (const bool address_asked : {false, true}) {
        bool quit = false;
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp, [&quit] { quit = true; });
        QWidget host;
        host.show();
        Boolean changed = True;
        QTimer::singleShot(0, [&] {
            changed = plan.Edit("Design", [&](QWidget& window) {
                Type(Find(window, "TxtDurtion"), "5");
                if (!address_asked) return QApplication::quit();
                QTimer::singleShot(0, [] { QApplication::quit(); });
                Click(Find(window, "Cmdlink"));
            });
            QTimer::singleShot(300, [] { QCoreApplication::exit(7); });  // where it goes on
        });
        EXPECT_EQ(QCoreApplication::exec(), 0);
        EXPECT_TRUE(quit);
        EXPECT_FALSE(host.isVisible());
        EXPECT_EQ(changed, False);
        EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    }
}

TEST_F(TaskWindow, LeavesAHostRunningThatHasNoWindowOfItsOwn) {
    for (const auto leave : {+[](QWidget& window) { Click(Find(window, "CmdCancel")); },
                             +[](QWidget& window) { EXPECT_TRUE(window.close()); }}) {
        QTimer::singleShot(0, [this, leave] {
            plan.Edit("Design", leave);
            QTimer::singleShot(50, [] { QCoreApplication::exit(7); });
        });
        EXPECT_EQ(QCoreApplication::exec(), 7);
    }
}

TEST_F(TaskWindow, StandsBeforeTheWindowThatThePersonWasIn) {
    QWidget host;
    host.show();
    QApplication::setActiveWindow(&host);
    Settle();
    plan.Edit("Design", [&](QWidget& window) {
        EXPECT_EQ(window.windowHandle()->transientParent(), host.windowHandle());
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, StaysOnTheTabThatThePersonWentTo) {
    plan.Edit("Design", [this](QWidget& window) {
        auto& tabs = Find<QTabWidget>(window, "TabTask");
        QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(3).center());
        EXPECT_EQ(plan.form().TabTask.CurrTab(), 3);
        plan.form().TabTask.TabCaption(3, "Staff");
        EXPECT_EQ(tabs.currentIndex(), 3);
        plan.form().Form_Activate();
        EXPECT_EQ(tabs.currentIndex(), 3) << "it is where the form begins from now on";
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, StaysOnItsTabWhenSomebodyScrollsPast) {
    plan.Edit("Design", [](QWidget& window) {
        auto& tabs = Find<QTabWidget>(window, "TabTask");
        Find(window, "TxtName").setFocus();
        EXPECT_FALSE(Wheel(*tabs.tabBar(), -1));
        EXPECT_EQ(tabs.currentIndex(), 0);
        tabs.setFocus();
        EXPECT_TRUE(Wheel(*tabs.tabBar(), -1));
        EXPECT_GT(tabs.currentIndex(), 0);
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, ValidatesANameWhenTheFocusGoesOn) {
    plan.Edit("Design", [](QWidget& window) {
        auto& name = Find<QLineEdit>(window, "TxtName");
        Type(name, "   ");
        Find(window, "TxtDurtion").setFocus();
        EXPECT_EQ(name.text(), "Design");
        Type(name, "Draw");
        Click(Find(window, "CmdOK"));
    });
    EXPECT_EQ(plan["Design"].TaskName(), "Draw");
    EXPECT_EQ(plan.Heard().substr(0, 25), "TaskNameChanged(1, Draw)\n");
}

TEST_F(TaskWindow, ValidatesANameAlsoWhenAShortcutPressesOk) {
    plan.Edit("Design", [](QWidget& window) {
        Type(Find(window, "TxtName"), "Draw");
        Find<QAbstractButton>(window, "CmdOK").click();
    });
    EXPECT_EQ(plan["Design"].TaskName(), "Draw");
    plan.Heard();
}

TEST_F(TaskWindow, TakesANameOfAsManyCharactersAsMayBeTyped) {
    plan.Edit("Design", [](QWidget& window) {
        auto& name = Find<QLineEdit>(window, "TxtName");
        Type(name, QByteArray(170, 'x'));
        EXPECT_EQ(name.text().size(), 160);
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, ShowsTheNameOfASummaryAndTakesNone) {
    plan.Task("Phase").Task("Part").Under("Phase").From(Monday).Lasting(2);
    plan.Edit("Phase", [](QWidget& window) {
        EXPECT_TRUE(Find<QLineEdit>(window, "TxtName").isReadOnly());
        for (const char* name : {"DTPickerStart", "DTPickerEnd", "TxtDurtion", "Txtcost", "chkAsMilistones"}) {
            EXPECT_FALSE(Find(window, name).isEnabled()) << name;
        }
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, BeginsOnTheTabOfTheHostsScreenWithTheFocusOnTheTabs) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            EXPECT_EQ(Find<QTabWidget>(window, "TabTask").currentIndex(), 2);
            EXPECT_TRUE(Find<QTabWidget>(window, "TabTask").tabBar()->hasFocus());
            Click(Find(window, "CmdCancel"));
        },
        9);
}

TEST_F(TaskWindow, OffersNoTabThatIsOff) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            EXPECT_FALSE(Find<QTabWidget>(window, "TabTask").isTabEnabled(1));
            EXPECT_TRUE(Find<QTabWidget>(window, "TabTask").isTabEnabled(3));
            Click(Find(window, "CmdCancel"));
        },
        1);
}

TEST_F(TaskWindow, HidesAHeadingUnderWhichNothingShows) {
    plan.Edit(
        "Design",
        [](QWidget& window) {
            EXPECT_FALSE(Find(window, "FrStartDate").isVisible());
            EXPECT_TRUE(Find(window, "Txtcost").isVisible());
            Click(Find(window, "CmdCancel"));
        },
        1);
}

TEST_F(TaskWindow, HidesCostAndHelpWhereTheHostIsSilent) {
    plan.Silenced().Task("Design");
    plan.Edit("Design", [](QWidget& window) {
        for (const char* name : {"Txtcost", "lblcost", "CmdHelp"}) EXPECT_FALSE(Find(window, name).isVisible()) << name;
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, AsksForHelpAndStaysOpen) {
    plan.Edit("Design", [](QWidget& window) {
        Click(Find(window, "CmdHelp"));
        EXPECT_TRUE(window.isVisible());
        Click(Find(window, "CmdCancel"));
    });
    EXPECT_EQ(plan.platform.help.calls, (std::vector<String>{"loadSystem", "OpenHelpPage editing1"}));
}

TEST_F(TaskWindow, NamesItsWidgetsAfterTheControls) {
    plan.Edit("Design", [](QWidget& window) {
        for (const char* name : {"TabTask",
                                 "TxtName",
                                 "lblName",
                                 "frmTaskPro",
                                 "Txtcost",
                                 "lblcost",
                                 "TxtPercentComplet",
                                 "lblPercentComplet",
                                 "VScrollPercentComplete",
                                 "FrStartDate",
                                 "DTPickerStart",
                                 "DTPickerEnd",
                                 "TxtDurtion",
                                 "VScrollDuration",
                                 "chkAsMilistones",
                                 "LblStartDate",
                                 "LblEndDate",
                                 "LblDuration",
                                 "frpred",
                                 "VSFlexGridPredecessor",
                                 "FrNote",
                                 "txtNote",
                                 "Frattach",
                                 "gridattachement",
                                 "Cmdlink",
                                 "CmdAttach",
                                 "CmdRemove",
                                 "FrAssi",
                                 "VSFlexGridResource",
                                 "CmdOK",
                                 "CmdCancel",
                                 "CmdHelp",
                                 "Picgen",
                                 "Picgeneral",
                                 "Picgeneral_1",
                                 "Picgeneral_2",
                                 "Picgeneral_3"}) {
            EXPECT_NE(window.findChild<QWidget*>(name), nullptr) << name;
        }
        Click(Find(window, "CmdCancel"));
    });
}

TEST_F(TaskWindow, TakesTheHostsWaitingPointerAway) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    plan.Edit("Design", [](QWidget& window) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        Click(Find(window, "CmdCancel"));
    });
}

// Under the sanitizers this finds what is not given back.
TEST_F(TaskWindow, OpensAndClosesAThousandTimes) {
    Furnish(plan);
    using Leave = void (*)(QWidget & window);
    const Leave ways[] = {[](QWidget& window) { Click(Find(window, "CmdOK")); },
                          [](QWidget& window) { Click(Find(window, "CmdCancel")); },
                          [](QWidget& window) { window.close(); }};
    int opened = 0;
    for (int n = 0; n < 1000; ++n) {
        const bool stores = n % 3 == 0;
        const Boolean changed = plan.Edit("Foundation", [&](QWidget& window) {
            ++opened;
            Type(Find(window, "TxtDurtion"), n % 2 == 0 ? "5" : "6");
            ways[n % 3](window);
        });
        EXPECT_EQ(changed, Boolean(stores));
    }
    plan.Heard();
    EXPECT_EQ(opened, 1000);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
}

}  // namespace
}  // namespace mrlxmlclass::testing
