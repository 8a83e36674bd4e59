#include "mrlxmlclass/dialog/EditTask.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/wizard/Steps.h"
#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

// --- Opening and closing ---------------------------------------------------------------------------------------------

TEST(GetTaskInfo, GivesTrueWhenThePersonLeavesWithAnotherDuration) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EXPECT_EQ(EditInDialog(plan, "Design",
                           [](EditTask& form) {
                               form.TxtDurtion[0].Text("5");
                               form.CmdOK_Click(0);
                           }),
              True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(plan["Design"].TaskEDate(), Friday);
}

TEST(GetTaskInfo, GivesFalseAfterCancelOrAClosedWindowAndLeavesTheTaskAlone) {
    for (const bool cancel : {true, false}) {
        Plan plan;
        plan.Task("Design").From(Monday).Lasting(3);
        EXPECT_EQ(EditInDialog(plan, "Design",
                               [&](EditTask& form) {
                                   form.TxtDurtion[0].Text("5");
                                   form.TxtName[0].Text("Draw");
                                   form.TxtName_Validate(0);
                                   form.txtNote.Text("Mind the roof");
                                   if (cancel) form.CmdCancel_Click(2);
                               }),
                  False);
        EXPECT_EQ(plan["Design"].TaskDuration(), 3);
        EXPECT_EQ(plan["Design"].TaskName(), "Design");
        EXPECT_EQ(NotesOf(plan, "Design"), "");
        EXPECT_EQ(plan.Heard(), "");
    }
}

TEST(Saved, TellsOfOkWhateverChanged) {
    Plan plan;
    plan.Task("Design");
    for (const bool ok : {true, false}) {
        Ref<EditTask> dialog;
        EditInDialog(plan, "Design", [&](EditTask& form) {
            dialog = Ref<EditTask>(&form);
            ok ? form.CmdOK_Click(0) : form.CmdCancel_Click(0);
        });
        EXPECT_EQ(dialog->ending(), ok ? EditTask::Ending::Saved : EditTask::Ending::Unsaved);
        EXPECT_EQ(dialog->Unchanged(), True);
    }
}

TEST(FormActivate, GoesToTheStartTabAndTheTabs) {
    Plan plan;
    plan.Task("Design");
    EditInDialog(
        plan, "Design",
        [&](EditTask& form) {
            EXPECT_EQ(form.TabTask.CurrTab(), 2);
            EXPECT_EQ(form.StartTab(), 2);
            EXPECT_EQ(form.Txtcost.SelStart(), 0);
            form.TabTask.CurrTab(1);
            form.TabTask_Click();
            EXPECT_EQ(form.StartTab(), 1);
            form.Txtcost.Text("25");
            EXPECT_EQ(form.Txtcost.SelStart(), 2);
            form.Form_Activate();
            EXPECT_EQ(form.Txtcost.SelStart(), 0);
            EXPECT_EQ(form.TabTask.CurrTab(), 1);
        },
        9);
    EXPECT_EQ(plan.platform.screens.focused, (std::vector<String>{"TabTask", "TabTask"}));
    EXPECT_EQ(plan.platform.screens.pointer_resets, 2);
}

TEST(FormActivate, ShowsCostsAndHelpUnlessTheHostIsSilenced) {
    for (const bool silenced : {false, true}) {
        Plan plan;
        if (silenced) plan.Silenced();
        plan.Task("Design");
        EditInDialog(plan, "Design", [&](EditTask& form) {
            const Boolean shown = !silenced;
            EXPECT_EQ(form.Txtcost.Visible(), shown);
            EXPECT_EQ(form.lblcost[0].Visible(), shown);
            EXPECT_EQ(form.CmdHelp[3].Visible(), shown);
        });
    }
}

TEST(CmdHelp, OpensThePageOnEditing) {
    Plan plan;
    plan.Task("Design");
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.CmdHelp_Click(0);
        form.CmdHelp_Click(1);
    });
    EXPECT_EQ(plan.platform.help.made, 1);
    EXPECT_EQ(plan.platform.help.calls,
              (std::vector<String>{"loadSystem", "OpenHelpPage editing1", "loadSystem", "OpenHelpPage editing1"}));
    Module().help_system = {};
}

TEST(CmdHelp, RecordsThatThereIsNoneAndStaysOpen) {
    Plan plan;
    plan.platform.help.missing = true;
    plan.Task("Design").From(Monday).Lasting(3);
    EXPECT_EQ(EditInDialog(plan, "Design",
                           [](EditTask& form) {
                               form.CmdHelp_Click(0);
                               form.TxtDurtion[0].Text("4");
                               form.CmdOK_Click(0);
                           }),
              True);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/CmdHelp_Click 429\n");
}

TEST(Events, RecordTheirFailuresUnderTheirOwnNames) {
    struct Row {
        const char* recorded;
        std::function<void(EditTask&)> event;
    };
    Boolean flag;
    constexpr int kNowhere = 99;
    const Row rows[] = {
        {"DTPickerStart_Change 13",
         [](EditTask& form) {
             form.DTPickerStart.Value("x");
             form.DTPickerStart_Change();
         }},
        {"DTPickerEnd_Change 13",
         [](EditTask& form) {
             form.DTPickerEnd.Value("x");
             form.DTPickerEnd_Change();
         }},
        {"VSFlexGridPredecessor_BeforeEdit 9",
         [&](EditTask& form) { form.VSFlexGridPredecessor_BeforeEdit(kNowhere, 3, flag); }},
        {"VSFlexGridPredecessor_ComboCloseUp 9",
         [&](EditTask& form) {
             form.VSFlexGridPredecessor.ComboData("1");
             form.VSFlexGridPredecessor_ComboCloseUp(kNowhere, 1, flag);
         }},
        {"VSFlexGridPredecessor_AfterEdit 9",
         [](EditTask& form) { form.VSFlexGridPredecessor_AfterEdit(kNowhere, 3); }},
        {"VSFlexGridPredecessor_KeyDown 9",
         [](EditTask& form) {
             form.VSFlexGridPredecessor.Row(kNowhere);
             form.VSFlexGridPredecessor_KeyDown(EditTask::kDelete, 0);
         }},
        {"VSFlexGridResource_Click 9", [](EditTask& form) { form.VSFlexGridResource_Click(kNowhere); }},
        {"VSFlexGridResource_BeforeEdit 9",
         [&](EditTask& form) { form.VSFlexGridResource_BeforeEdit(kNowhere, 1, flag); }},
        {"VSFlexGridResource_AfterEdit 9", [](EditTask& form) { form.VSFlexGridResource_AfterEdit(kNowhere, 1); }},
        {"VSFlexGridResource_ComboCloseUp 9",
         [&](EditTask& form) { form.VSFlexGridResource_ComboCloseUp(kNowhere, 1, flag); }},
        {"gridattachement_DblClick 9",
         [](EditTask& form) {
             form.gridattachement.Row(kNowhere);
             form.gridattachement_DblClick();
         }},
        {"mnuunattach_Click 9",
         [](EditTask& form) {
             form.gridattachement.Row(kNowhere);
             form.CmdRemove_Click();
         }},
    };
    for (const Row& row : rows) {
        Plan plan;
        plan.WithLinks().Task("Design").From(Monday).Lasting(3);
        EditInDialog(plan, "Design", row.event);
        EXPECT_EQ(plan.failures.Taken(), String("EditTask/") + row.recorded + "\n");
    }
}

TEST(Refreshing, TellsTheViewWhatShowsOtherwiseAndNothingElse) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    EditInDialog(plan, "Design", [&](EditTask& form) {
        auto& refreshed = plan.platform.screens.refreshed;
        refreshed.clear();
        form.TxtDurtion[0].Text("3");
        EXPECT_TRUE(refreshed.empty());
        form.TxtDurtion[0].Text("5");
        EXPECT_EQ(refreshed, (std::vector<String>{"TxtDurtion", "DTPickerEnd"}));
    });
}

TEST(OpeningTheDialog, AThousandTimesLeavesNothingBehind) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(3).Task("Build").From(Monday).Lasting(1).After("Design");
    AddPerson(plan, "Ann");
    for (int times = 0; times < 1000; ++times) {
        EditInDialog(plan, times % 2 == 0 ? "Design" : "Build", [&](EditTask& form) {
            form.TxtDurtion[0].Text(times % 3 == 0 ? "2" : "4");
            form.txtNote.Text("Note " + std::to_string(times));
            times % 5 == 0 ? form.CmdCancel_Click(0) : form.CmdOK_Click(0);
        });
    }
    EXPECT_EQ(plan.platform.screens.shown, 1000);
    EXPECT_EQ(plan.col().Count(), 2);
}

// --- The screens of the host -----------------------------------------------------------------------------------------

/// What a screen makes of the dialog, a line: which tabs are on, what does not show, what is not enabled.
String Layout(EditTask& form) {
    String tabs;
    for (int tab = 0; tab < EditTask::kTabs; ++tab) {
        if (form.TabTask.TabEnabled(tab)) tabs += std::to_string(tab);
    }
    const std::pair<const char*, Control*> controls[] = {{"start", &form.DTPickerStart},
                                                         {"end", &form.DTPickerEnd},
                                                         {"box", &form.chkAsMilistones},
                                                         {"lblstart", &form.LblStartDate},
                                                         {"lblend", &form.LblEndDate},
                                                         {"lbldur", &form.LblDuration[0]},
                                                         {"dur", &form.TxtDurtion[0]},
                                                         {"durarrows", &form.VScrollDuration[0]},
                                                         {"pct", &form.TxtPercentComplet},
                                                         {"pctarrows", &form.VScrollPercentComplete},
                                                         {"lblpct", &form.lblPercentComplet},
                                                         {"dates", &form.FrStartDate},
                                                         {"cost", &form.Txtcost},
                                                         {"name", &form.TxtName[0]}};
    String hidden;
    String disabled;
    for (const auto& [name, control] : controls) {
        if (!control->Visible()) hidden += String(" ") + name;
        if (!control->Enabled()) disabled += String(" ") + name;
    }
    return tabs + " at " + std::to_string(form.StartTab().value()) + ", hidden:" + hidden + ", off:" + disabled;
}

constexpr const char* kDateGroup = " start end box lblstart lblend lbldur dur durarrows";
constexpr const char* kWizardHides = " start end box pctarrows";
constexpr const char* kSummaryOff = " start end box dur durarrows cost";
constexpr const char* kSummaryOffFromLists = " start end box lblend dur durarrows cost";

TEST(TheScreensOfTheHost, DecideWhatShowsForEveryTask) {
    struct Row {
        int from_where;
        const char* tabs_with_links;
        const char* tabs_without;
        const char* start_tab;
        String hidden;
        const char* summary_off;
    };
    const String names_only = String(kDateGroup) + " pct pctarrows lblpct";
    const String wizard = String(kWizardHides) + " dates";
    const Row rows[] = {
        {0, "0123", "023", "0", "", kSummaryOff},          {1, "023", "023", "0", names_only, kSummaryOff},
        {2, "0123", "023", "0", "", kSummaryOffFromLists}, {3, "023", "023", "0", wizard, kSummaryOff},
        {4, "023", "023", "0", "", kSummaryOff},           {5, "023", "023", "3", wizard, kSummaryOff},
        {6, "0123", "023", "3", "", kSummaryOff},          {7, "0123", "023", "3", "", kSummaryOff},
        {8, "023", "023", "2", wizard, kSummaryOff},       {9, "0123", "023", "2", "", kSummaryOffFromLists},
        {10, "0123", "023", "0", "", kSummaryOff},         {-1, "0123", "023", "0", "", kSummaryOff},
    };
    for (const bool links : {true, false}) {
        for (const bool silent : {false, true}) {
            Plan plan;
            if (links) plan.WithLinks();
            if (silent) plan.Silenced();
            plan.Task("Phase").Task("Leaf").Under("Phase").From(Monday).Lasting(2);
            plan.Task("Done").From(Monday).Lasting(1);
            plan.col().SeTAsMilstones(plan.app->xTaskCol(), plan.Key("Done"));
            for (const Row& row : rows) {
                for (const char* task : {"Leaf", "Done", "Phase"}) {
                    SCOPED_TRACE(String(task) + " from " + std::to_string(row.from_where));
                    const bool summary = String(task) == "Phase";
                    String layout;
                    Boolean ticked;
                    EditInDialog(
                        plan, task,
                        [&](EditTask& form) {
                            layout = Layout(form);
                            ticked = form.chkAsMilistones.Value();
                        },
                        row.from_where);
                    EXPECT_EQ(layout, String(links ? row.tabs_with_links : row.tabs_without) + " at " + row.start_tab +
                                          ", hidden:" + row.hidden + (silent ? " cost" : "") +
                                          ", off:" + (summary ? row.summary_off : ""));
                    EXPECT_EQ(ticked, String(task) == "Done");
                }
            }
        }
    }
}

TEST(TheScreensOfTheWizard, ShowTheDatesOnceTheStepWasVisited) {
    Plan plan;
    plan.Task("Leaf");
    plan.app->xStep()->Visted(8);
    for (const int from_where : {3, 5, 8}) {
        EditInDialog(
            plan, "Leaf", [](EditTask& form) { EXPECT_EQ(form.FrStartDate.Visible(), True); }, from_where);
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
