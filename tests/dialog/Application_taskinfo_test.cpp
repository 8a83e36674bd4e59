#include <gtest/gtest.h>

#include <functional>

#include "tests/support/Interruption.h"
#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(showtaskinfo, OpensNothingForAnEmptyKey) {
    Plan plan;
    plan.Task("Design");
    EXPECT_EQ(plan.app->showtaskinfo("", plan.app->xTaskCol(), 2, DialogTexts()), False);
    EXPECT_EQ(plan.app->showtaskinfo("", plan.app->xTaskCol(), 1, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/showtaskinfo 91\n") << "that screen tells a name anew";
    EXPECT_EQ(plan.platform.screens.shown, 0);
    EXPECT_EQ(plan.app->unloadtaskinfo(), False);
    EXPECT_EQ(Module().g_TaskInfoUnloading, False);  // none was open any more
}

TEST(showtaskinfo, TakesANumberForAKeyToo) {
    Plan plan;
    plan.Task("Design");
    plan.app->showtaskinfo(1, plan.app->xTaskCol(), 2, DialogTexts());
    EXPECT_EQ(plan.platform.screens.shown, 1);
}

TEST(showtaskinfo, RecordsATaskThatIsNotThere) {
    Plan plan;
    EXPECT_EQ(plan.app->showtaskinfo("7", plan.app->xTaskCol(), 2, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/GetTaskInfo 91\n");
    EXPECT_EQ(plan.app->showtaskinfo("7", plan.app->xTaskCol(), 1, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/GetTaskInfo 91\nApplication/showtaskinfo 91\n");
    EXPECT_EQ(plan.app->showtaskinfo("7", {}, 2, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/showtaskinfo 91\n");
    EXPECT_EQ(plan.platform.screens.shown, 0);
}

TEST(showtaskinfo, RecordsAWizardsScreenWithoutAWizard) {
    Plan plan;
    plan.Task("Design");
    plan.app->xStep({});
    EXPECT_EQ(plan.app->showtaskinfo("1", plan.app->xTaskCol(), 3, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/showtaskinfo 91\n");
}

TEST(showtaskinfo, LeavesNoDialogOpenWhenItFails) {
    Plan plan;
    plan.Task("Design");
    plan.app->showtaskinfo("1", {}, 2, DialogTexts());
    EXPECT_EQ(plan.failures.Taken(), "Application/showtaskinfo 91\n");
    plan.app->unloadtaskinfo();
    EXPECT_EQ(Module().g_TaskInfoUnloading, False);
}

TEST(showtaskinfo, KeepsTellingTheNameOfAnOpenedTaskAfterCancelToo) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(1);
    EXPECT_EQ(EditInDialog(
                  plan, "Design", [](EditTask& form) { form.CmdCancel_Click(0); }, /*from_where=*/1),
              False);
    EXPECT_EQ(plan.Heard(),
              "TaskNameChanged(1, Design)\n"
              "DateStartChange(1, 2026-03-02, False, False)\n"
              "DateEndChange(1, 2026-03-02, False, False, days)\n"
              "DurationChange(1, 1, days, False, False)\n"
              "TaskDurationChange(1, 1, days, False, False)\n");
}

TEST(showtaskinfo, RecordsThatTheTaskWentMeanwhile) {
    Plan plan;
    plan.Task("Design").From(Monday);
    plan.platform.screens.person = [&](EditTask& form) {
        plan.col().RemoveForLib("1");
        form.CmdCancel_Click(0);
    };
    EXPECT_EQ(plan.app->showtaskinfo("1", plan.app->xTaskCol(), 1, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/showtaskinfo 91\n");
}

TEST(showtaskinfo, RecordsThatNothingShowsIt) {
    Plan plan;
    plan.Task("Design");
    Services bare{plan.platform.clock, plan.platform.locale, plan.platform.faults, plan.platform.shell,
                  plan.platform.ui};
    const InstalledServices installed(bare);
    EXPECT_EQ(plan.app->showtaskinfo("1", plan.app->xTaskCol(), 2, DialogTexts()), False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/GetTaskInfo 429\n");
}

TEST(showtaskinfo, OpensOneInsideAnother) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(1).Task("Build").From(Monday).Lasting(1);
    EXPECT_EQ(EditInDialog(plan, "Design",
                           [&](EditTask& outer) {
                               EXPECT_EQ(EditInDialog(plan, "Build",
                                                      [](EditTask& inner) {
                                                          inner.TxtDurtion[0].Text("2");
                                                          inner.CmdOK_Click(0);
                                                      }),
                                         True);
                               outer.TxtDurtion[0].Text("3");
                               outer.CmdOK_Click(0);
                           }),
              True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    EXPECT_EQ(plan["Build"].TaskDuration(), 2);
}

TEST(showtaskinfo, OutlivesASessionThatIsDropped) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(1);
    const Ref<TasksCol> tasks = plan.app->xTaskCol();
    plan.platform.screens.person = [&](EditTask& form) {
        plan.app = Make<Application>();
        form.TxtDurtion[0].Text("2");
        form.txtNote.Text("Mind the roof");
        form.CmdOK_Click(0);
    };
    Application* const session = plan.app.get();
    EXPECT_EQ(session->showtaskinfo("1", tasks, 2, DialogTexts()), True);
    EXPECT_EQ(tasks->Item(1)->TaskDuration(), 2);
    plan.app->Init();
}

// --- unloadtaskinfo --------------------------------------------------------------------------------------------------

TEST(unloadtaskinfo, DoesNothingWhileNoneIsOpen) {
    Plan plan;
    EXPECT_EQ(plan.app->unloadtaskinfo(), False);
    EXPECT_EQ(Module().g_TaskInfoUnloading, False);
}

TEST(unloadtaskinfo, ClosesTheDialogWithoutSaving) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EXPECT_EQ(EditInDialog(
                  plan, "Design",
                  [&](EditTask& form) {
                      form.TxtDurtion[0].Text("5");
                      EXPECT_EQ(plan.app->unloadtaskinfo(), False);
                      EXPECT_EQ(Module().g_TaskInfoUnloading, True);
                  },
                  /*from_where=*/1),
              False);
    EXPECT_EQ(Module().g_TaskInfoUnloading, False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    EXPECT_EQ(plan.Heard(), "");  // not even the name
    EXPECT_EQ(plan.platform.screens.closed, 1);
}

TEST(unloadtaskinfo, WhileTheScreenIsMadeShowsNothing) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    plan.platform.screens.on_new_view = [&] { plan.app->unloadtaskinfo(); };
    EXPECT_EQ(EditInDialog(plan, "Design", [](EditTask&) { ADD_FAILURE() << "it shows"; }), False);
    EXPECT_EQ(plan.platform.screens.shown, 0);
    EXPECT_EQ(Module().g_TaskInfoUnloading, False);
}

/// Calls back whenever it is asked for the time.
class TellingClock : public Clock {
public:
    explicit TellingClock(std::function<void()> asked) : asked_(std::move(asked)) {}
    Date Now() override {
        asked_();
        return Monday;
    }

private:
    std::function<void()> asked_;
};

TEST(unloadtaskinfo, WhileTheFormIsFilledShowsNothing) {
    Plan plan;
    plan.Task("Someday");
    TellingClock clock([&] { plan.app->unloadtaskinfo(); });
    Services services{clock,         Platform().locale,    Platform().files,        Platform().shell,
                      Platform().ui, Platform().old_plans, Platform().task_screens, Platform().help_systems};
    const InstalledServices installed(services);
    EXPECT_EQ(EditInDialog(plan, "Someday", [](EditTask&) { ADD_FAILURE() << "it shows"; }), False);
    EXPECT_EQ(plan.platform.screens.shown, 0);
    EXPECT_EQ(Module().g_TaskInfoUnloading, False);
}

TEST(unloadtaskinfo, LeavesOkNothingToSave) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EditInDialog(plan, "Design", [&](EditTask& form) {
        form.TxtDurtion[0].Text("5");
        plan.app->unloadtaskinfo();
        form.CmdOK_Click(0);  // the view was about to press it
    });
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
}

TEST(unloadtaskinfo, KeepsTheFormOpenSoThatTheNextDialogGivesFalse) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EditInDialog(plan, "Design", [&](EditTask&) { plan.app->unloadtaskinfo(); });
    plan.app->unloadtaskinfo();
    EXPECT_EQ(Module().g_TaskInfoUnloading, True);
    EXPECT_EQ(EditInDialog(plan, "Design",
                           [](EditTask& form) {
                               form.TxtDurtion[0].Text("5");
                               form.CmdOK_Click(0);
                           }),
              False);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
}

TEST(CancelByAHandler, WhileItSavesIsNotHeard) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    Ref<EditTask> dialog;
    const Interruption host(plan, "RoolUpCostChange", 1, [&] { dialog->CmdCancel_Click(0); });
    EXPECT_EQ(EditInDialog(plan, "Design",
                           [&](EditTask& form) {
                               dialog = Ref<EditTask>(&form);
                               form.Txtcost.Text("25");
                               form.TxtDurtion[0].Text("5");
                               form.CmdOK_Click(0);
                           }),
              True);
    EXPECT_EQ(dialog->ending(), EditTask::Ending::Saved);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
}

TEST(unloadtaskinfo, ByAHandlerWhileItSavesLetsTheSavingEnd) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    const Interruption host(plan, "RoolUpCostChange", 1, [&] { plan.app->unloadtaskinfo(); });
    EXPECT_EQ(EditInDialog(plan, "Design",
                           [](EditTask& form) {
                               form.Txtcost.Text("25");
                               form.txtNote.Text("Mind the roof");
                               form.CmdOK_Click(0);
                           }),
              False);
    EXPECT_EQ(NotesOf(plan, "Design"), "1:Mind the roof:");
}

}  // namespace
}  // namespace mrlxmlclass::testing
