#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(Loading, FillsTheFields) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3).Costing(12);
    plan["Design"].TaskPercentDone(40);
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.TxtDurtion[0].Text(), "3");
        EXPECT_EQ(form.TxtDurtion[0].MaxLength(), 3);
        for (TextControl& field : form.TxtName) {
            EXPECT_EQ(field.Text(), "Design");
            EXPECT_EQ(field.MaxLength(), 160);
            EXPECT_EQ(field.Locked(), False);
        }
        EXPECT_EQ(form.TxtPercentComplet.Text(), "40");
        EXPECT_EQ(form.DTPickerStart.Value().As<Date>(), Monday);
        EXPECT_EQ(form.DTPickerEnd.Value().As<Date>(), Wednesday);
        EXPECT_EQ(form.chkAsMilistones.Value(), False);
        EXPECT_EQ(form.Txtcost.Text(), "12");
        EXPECT_EQ(form.txtNote.Text(), "");
        EXPECT_EQ(form.gridattachement.Rows(), 0);
        EXPECT_EQ(form.gridattachement.FixedRows(), 0);
        EXPECT_EQ(form.gridattachement.Cols(), 1);
    });
}

TEST(Loading, AnswersNothingOfWhatItFills) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(2, "wks").Costing(12);
    plan["Design"].TaskPercentDone(40);
    plan.About("Design").Holding(Monday, Friday, 7);  // nothing follows from anything
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.Task()->TaskDurationUnit(), "wks");
        EXPECT_EQ(form.Task()->TaskEDate(), Friday);
        EXPECT_EQ(form.TxtPercentComplet.Text(), "40");  // an answer would add the sign
    });
}

TEST(Loading, ShowsEveryDigitOfALongDuration) {
    Plan plan;
    plan.Task("Design").Holding(Monday, Monday + 2100, 1500);
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.TxtDurtion[0].Text(), "1500");
        EXPECT_EQ(form.TxtDurtion[0].MaxLength(), 4);
    });
}

TEST(StandsIn, IsTrueOfADateThatTheTaskDoesNotHave) {
    Plan plan;
    plan.Task("Design").Task("Build").From(Monday).Lasting(2);
    EditInDialog(plan, "Build", [](EditTask& form) {
        EXPECT_EQ(form.StandsIn(form.DTPickerStart), False);
        EXPECT_EQ(form.StandsIn(form.DTPickerEnd), False);
    });
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.StandsIn(form.DTPickerStart), True);
        EXPECT_EQ(form.StandsIn(form.DTPickerEnd), True);
        form.DTPickerEnd_Change();
        EXPECT_EQ(form.StandsIn(form.DTPickerStart), False) << "it begins on the day on which it ends";
        EXPECT_EQ(form.StandsIn(form.DTPickerEnd), False);
        form.DTPickerStart.Value(Variant::Null{});
        form.DTPickerStart_Change();
        EXPECT_EQ(form.StandsIn(form.DTPickerStart), False) << "no date shows";
    });
}

TEST(Loading, ShowsTodayForATaskWithoutDatesWhichKeepsNone) {
    Plan plan;
    plan.Task("Design").Holding(Date(), Date(), 0);
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.DTPickerStart.Value().As<Date>(), Monday);
        EXPECT_EQ(form.DTPickerEnd.Value().As<Date>(), Monday);
        EXPECT_EQ(form.Task()->TaskBDate(), Date());
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan["Design"].TaskBDate(), Date());
    EXPECT_EQ(plan["Design"].TaskEDate(), Date());
}

TEST(Loading, TakesUnknownProgressForNone) {
    Plan plan;
    plan.Task("Design");
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.TxtPercentComplet.Text(), "0");
        EXPECT_EQ(form.Task()->TaskPercentDoneValid(), True);
    });
    EXPECT_EQ(plan["Design"].TaskPercentDoneValid(), False);
}

TEST(Loading, LocksTheNameOfASummary) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase");
    EditInDialog(plan, "Phase", [](EditTask& form) { EXPECT_EQ(form.TxtName[3].Locked(), True); });
}

TEST(Loading, KeepsTheNameOfASummaryOpenThatStandsInAnother) {
    Plan plan;
    plan.Task("Phase").Task("Part").Under("Phase").Task("Design").Under("Part");
    EditInDialog(plan, "Part", [](EditTask& form) {
        EXPECT_EQ(form.TxtName[0].Locked(), False);
        EXPECT_EQ(form.DTPickerStart.Enabled(), False);
    });
}

TEST(Loading, KeepsTheNameOfARowThatIsNoSummaryOpenThoughItHasChildren) {
    Plan plan;
    plan.Task("Row").Task("Design").Under("Row");
    plan["Row"].TaskType(True);
    EditInDialog(plan, "Row", [](EditTask& form) {
        EXPECT_EQ(form.TxtName[0].Locked(), False);
        EXPECT_EQ(form.DTPickerStart.Enabled(), False);
    });
}

TEST(Loading, PutsEveryTextInItsPlace) {
    Plan plan;
    plan.Task("Design");
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.Caption, "T10350");
        const char* const tabs[] = {"T10320", "T10328", "T10619", "T10334"};
        for (int tab = 0; tab < EditTask::kTabs; ++tab) {
            EXPECT_EQ(form.TabTask.TabCaption(tab), tabs[tab]);
            EXPECT_EQ(form.frmTaskPro[tab].Caption(), "T10657");
            EXPECT_EQ(form.lblName[tab].Caption(), "T10321");
            EXPECT_EQ(form.CmdOK[tab].Caption(), "T10336");
            EXPECT_EQ(form.CmdCancel[tab].Caption(), "T10337");
            EXPECT_EQ(form.CmdHelp[tab].Caption(), "T10638");
        }
        const std::pair<const Control*, const char*> captions[] = {
            {&form.chkAsMilistones, "T10327"}, {&form.lblcost[0], "T10644"},
            {&form.LblDuration[0], "T10322"},  {&form.lblPercentComplet, "T10323"},
            {&form.LblStartDate, "T10325"},    {&form.LblEndDate, "T10326"},
            {&form.FrStartDate, "T10652"},     {&form.frpred, "T10718"},
            {&form.FrAssi, "T10653"},          {&form.FrNote, "T10654"},
            {&form.Frattach, "T10655"},        {&form.CmdAttach, "T10656"},
            {&form.CmdRemove, "T10661"},       {&form.mnuLinkNote, "T10656"},
            {&form.mnuunattach, "T10661"},     {&form.Cmdlink, "T10675"}};
        for (const auto& [control, caption] : captions) EXPECT_EQ(control->Caption(), caption) << control->Name();
        for (int col = 0; col < 4; ++col) {
            EXPECT_EQ(form.VSFlexGridPredecessor.TextMatrix(0, col), "T" + std::to_string(10329 + col));
        }
        EXPECT_EQ(form.VSFlexGridResource.TextMatrix(0, 1), "T10333");
    });
}

TEST(Loading, GivesTheFormForAnAddressItsTexts) {
    Plan plan;
    plan.Task("Design");
    plan.platform.screens.at_address = [](frmurl& form) {
        EXPECT_EQ(form.caption, "T10676");
        EXPECT_EQ(form.lblLabels.Caption(), "T10677");
        EXPECT_EQ(form.CmdOK.Caption(), "T10336");
        EXPECT_EQ(form.CmdCancel.Caption(), "T10337");
        form.CmdCancel_Click();
    };
    EditInDialog(plan, "Design", [](EditTask& form) { form.Cmdlink_Click(); });
}

TEST(Loading, RecordsATextThatIsMissingAndShowsNothing) {
    Plan plan;
    plan.Task("Design");
    for (const char* key : {"10350", "10718", "10677"}) {
        const auto texts = DialogTexts();
        texts->Remove(key);
        EXPECT_EQ(plan.app->showtaskinfo(plan.Key("Design"), plan.app->xTaskCol(), 0, texts), False);
        EXPECT_EQ(plan.failures.Taken(), "EditTask/GetTaskInfo 5\n");
    }
    EXPECT_EQ(plan.app->showtaskinfo(plan.Key("Design"), plan.app->xTaskCol(), 0, {}), False);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/GetTaskInfo 91\n");
    EXPECT_EQ(plan.platform.screens.shown, 0);
}

TEST(Loading, GivesFieldsAndTablesTheFont) {
    Plan plan;
    plan.Task("Design");
    EditInDialog(plan, "Design", [](EditTask& form) {
        const ControlFont font{"Arial", "10"};
        for (const Control* control : std::initializer_list<const Control*>{
                 &form.TxtDurtion[0], &form.TxtName[3], &form.TxtPercentComplet, &form.DTPickerStart, &form.DTPickerEnd,
                 &form.txtNote, &form.Txtcost, &form.VSFlexGridPredecessor, &form.VSFlexGridResource,
                 &form.gridattachement}) {
            EXPECT_EQ(control->Font(), font) << control->Name();
        }
    });
}

TEST(Loading, GivesThePickersTheHostsFormatUnlessItIsSilenced) {
    for (const bool silenced : {false, true}) {
        Plan plan;
        if (silenced) plan.Silenced();
        plan.Task("Design");
        plan.platform.screens.person = [&](EditTask& form) {
            EXPECT_EQ(form.DTPickerStart.CustomFormat(), silenced ? "" : "dd/MM/yyyy");
            EXPECT_EQ(form.DTPickerEnd.CustomFormat(), silenced ? "" : "dd/MM/yyyy");
        };
        plan.app->showtaskinfo(plan.Key("Design"), plan.app->xTaskCol(), 0, DialogTexts(), "dd/MM/yyyy");
        EXPECT_EQ(plan.platform.screens.shown, 1);
    }
}

TEST(Loading, KeepsTheClonesDatesInTheProjectsOwn) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(3);
    plan.app->MinDate();
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.DTPickerEnd.Value(Friday);
        form.DTPickerEnd_Change();
        form.CmdCancel_Click(0);
    });
    EXPECT_EQ(Module().g_MaxDate, Friday);  // though nothing was saved
    EXPECT_EQ(plan["Design"].TaskEDate(), Wednesday);
}

}  // namespace
}  // namespace mrlxmlclass::testing
