#include "tests/dialog/Saving.h"
#include "tests/support/Interruption.h"

namespace mrlxmlclass::testing {
namespace {

TEST_F(Saving, ChangesNothingWhereThePersonDidNothing) {
    EXPECT_EQ(OnOk([](EditTask&) {}), False);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Design"].TaskEDate(), Wednesday);
}

TEST_F(Saving, OfANameAloneGivesFalse) {
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.TxtName[0].Text("Draw");
                  form.TxtName_Validate(0);
              }),
              False);
    EXPECT_EQ(plan.Heard(),
              "TaskNameChanged(2, Draw)\n"
              "DateStartChange(2, 2026-03-02, False, False)\n"
              "DateEndChange(2, 2026-03-04, False, False, days)\n"
              "DurationChange(2, 3, days, False, False)\n"
              "TaskDurationChange(2, 3, days, False, False)\n");
    EXPECT_EQ(plan["Design"].TaskName(), "Draw");
}

TEST_F(Saving, OfANameAloneLeavesPredecessorsAndPeopleAlone) {
    plan.About("Design").After("Survey", 4);
    AddPerson(plan, "Ann");
    Assign(plan, "1", "Design");
    plan["Design"].TaskLag(4);
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.TxtName[0].Text("Draw");
                  form.TxtName_Validate(0);
              }),
              False);
    EXPECT_EQ(plan["Design"].TaskLag(), 4);
    EXPECT_EQ(plan["Design"].PeopleAsString(), "Ann");
    EXPECT_EQ(plan.app->xTaskPeopleRelationcol()->Count(), 1);
    EXPECT_EQ(plan.col().PredessorAsString("2"), "3");
}

TEST_F(Saving, OfAStartStoresItWithItsLagAndTellsNobody) {
    plan["Design"].TaskLag(5);  // which the rules of a start would count in
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.DTPickerStart.Value(Tuesday);
                  form.DTPickerStart_Change();
                  form.Task()->TaskLag(7);
              }),
              False);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.Drawn(),
              "1 Phase\n"
              "2   Design  2026-03-03 2026-03-05\n"
              "3 Survey  2026-03-02 2026-03-02\n");
    EXPECT_EQ(plan["Design"].TaskLag(), 7);
}

TEST_F(Saving, OfDatesAndADurationRaisesTheirFlags) {
    TasksCls& task = plan["Design"];
    task.TaskBDateValid(False);
    task.TaskEDateValid(False);
    task.TaskDurationValid(False);
    OnOk([](EditTask& form) {
        form.DTPickerStart.Value(Tuesday);
        form.DTPickerStart_Change();
        form.TxtDurtion[0].Text("5");
    });
    EXPECT_EQ(task.TaskBDateValid(), True);
    EXPECT_EQ(task.TaskEDateValid(), True);
    EXPECT_EQ(task.TaskDurationValid(), True);
}

TEST_F(Saving, OfTheSameStartLeavesTheLagAlone) {
    plan["Design"].TaskLag(5);
    OnOk([](EditTask& form) {
        form.DTPickerStart.Value(Monday);
        form.DTPickerStart_Change();
        EXPECT_EQ(form.Task()->TaskLag(), 0);
    });
    EXPECT_EQ(plan["Design"].TaskLag(), 5);
}

TEST_F(Saving, OfClearedDatesStoresNone) {
    OnOk([](EditTask& form) {
        form.DTPickerStart.Value(Variant::Null{});
        form.DTPickerStart_Change();
    });
    EXPECT_EQ(plan["Design"].TaskBDate(), Date());
    EXPECT_EQ(plan["Design"].TaskEDate(), Date());
    EXPECT_EQ(plan["Design"].TaskDuration(), 0);
}

TEST_F(Saving, OfADurationGivesTrueAndStoresItWithTheEnd) {
    EXPECT_EQ(OnOk([](EditTask& form) { form.TxtDurtion[0].Text("5"); }), True);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Design"].TaskEDate(), Friday);
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
}

TEST_F(Saving, KeepsGivingFalseForADateAlone) {
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.DTPickerStart.Value(Tuesday);
                  form.DTPickerStart_Change();
              }),
              False);
    EXPECT_EQ(plan["Design"].TaskBDate(), Tuesday);
}

TEST_F(Saving, OfProgressTellsIt) {
    EXPECT_EQ(OnOk([](EditTask& form) { form.TxtPercentComplet.Text("50"); }), False);
    EXPECT_EQ(plan.Heard(), "CompletedChange(2, 50)\n");
    EXPECT_EQ(plan["Design"].TaskPercentDone(), 50);
}

TEST_F(Saving, OfAMilestoneStoresWhatTheBoxSays) {
    OnOk([](EditTask& form) {
        form.TxtDurtion[0].Text("1");
        form.chkAsMilistones.Value(True);
    });
    EXPECT_EQ(plan["Design"].TaskMilstones(), True);
    EXPECT_EQ(plan["Design"].TaskDuration(), 0);
    EXPECT_EQ(plan.Heard(), "");
}

TEST_F(Saving, OfACostAddsTheDifferenceOnceToEveryAncestor) {
    EXPECT_EQ(OnOk([](EditTask& form) { form.Txtcost.Text("25"); }), False);
    EXPECT_EQ(plan.Heard(),
              "RoolUpCostChange(2, 25)\n"
              "RoolUpCostChange(1, 25)\n");
    EXPECT_EQ(plan["Design"].TaskCost(), 25);
    EXPECT_EQ(plan["Phase"].TaskCost(), 25);
}

TEST_F(Saving, OfACostReachesAncestorsAtAnyHeight) {
    plan.Task("Draw").Under("Design").From(Monday).Lasting(1);
    EditInDialog(plan, "Draw", [](EditTask& form) {
        form.Txtcost.Text("15");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.Heard(),
              "RoolUpCostChange(4, 15)\n"
              "RoolUpCostChange(2, 25)\n"
              "RoolUpCostChange(1, 25)\n");
}

TEST_F(Saving, OfPredecessorsLinksThemInTheOrderOfTheirRows) {
    plan.Task("Permit").From(Monday).Lasting(1);
    plan.Heard();
    EXPECT_EQ(OnOk([](EditTask& form) {
                  GridControl& grid = form.VSFlexGridPredecessor;
                  form.BeginEdit(grid, 1, 1);
                  form.EndEdit(grid, ComboEntry{"4", "Permit"});
                  form.BeginEdit(grid, 2, 1);
                  form.EndEdit(grid, ComboEntry{"3", "Survey"});
              }),
              False);
    EXPECT_EQ(plan.Heard(),
              "PredecessorChange(2, 3)\n"
              "PredecessorKeyChange(2, 3, add)\n"
              "SucessorChange(3, 2)\n"
              "PredecessorChange(2, 3, 4)\n"
              "PredecessorKeyChange(2, 4, add)\n"
              "SucessorChange(4, 2)\n");
}

TEST_F(Saving, KeepsTheLagOfTheLastPredecessor) {
    plan.Task("Permit").From(Monday).Lasting(1);
    OnOk([](EditTask& form) {
        ChooseSurvey(form);
        GridControl& grid = form.VSFlexGridPredecessor;
        form.BeginEdit(grid, 2, 1);
        form.EndEdit(grid, ComboEntry{"4", "Permit"});
        grid.TextMatrix(1, 3, "5");
        grid.TextMatrix(2, 3, "3");
    });
    EXPECT_EQ(plan["Design"].TaskLag(), 3);
}

TEST_F(Saving, OfRemovedPredecessorsComesBeforeTheNewOnes) {
    plan.About("Design").After("Survey");
    plan.Task("Permit").From(Monday).Lasting(1);
    OnOk([](EditTask& form) {
        form.BeginEdit(form.VSFlexGridPredecessor, 1, 1);
        form.EndEdit(form.VSFlexGridPredecessor, ComboEntry{"4", "Permit"});
    });
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(3, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 3, remove)\n"
              "PredecessorChange(2, 4)\n"
              "PredecessorKeyChange(2, 4, add)\n"
              "SucessorChange(4, 2)\n");
}

TEST_F(Saving, OfARemovedPredecessorAloneUnlinksIt) {
    plan.About("Design").After("Survey");
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.MoveTo(form.VSFlexGridPredecessor, 1, 1);
                  form.VSFlexGridPredecessor_KeyDown(EditTask::kDelete, 0);
              }),
              False);
    EXPECT_EQ(plan.Heard(),
              "SucessorChange(3, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 3, remove)\n");
}

TEST_F(Saving, EndsAtALagThatIsNoNumberAndWhatCameBeforeStands) {
    AddNote(plan, "Design", "old");
    plan.platform.screens.file = "/attached";
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.CmdAttach_Click();
                  form.TxtDurtion[0].Text("5");
                  form.Txtcost.Text("25");
                  form.txtNote.Text("new");
                  ChooseSurvey(form);
                  form.VSFlexGridPredecessor.TextMatrix(1, 3, "x");
              }),
              True);
    EXPECT_EQ(plan.failures.Taken(), "EditTask/SaveTaskInfo 13\n");
    EXPECT_EQ(plan["Design"].TaskDuration(), 5);
    EXPECT_EQ(plan["Phase"].TaskCost(), 25);
    EXPECT_EQ(plan.col().PredessorAsString("2"), "3");
    EXPECT_EQ(plan["Design"].TaskLag(), 0);
    EXPECT_EQ(NotesOf(plan, "Design"), "1:old:");
}

// --- All together ----------------------------------------------------------------------------------------------------

TEST_F(Saving, OfEverythingTellsInItsOrder) {
    plan.Task("Permit").From(Monday).Lasting(1);
    plan.About("Design").After("Permit");
    AddPerson(plan, "Ann");
    AddNote(plan, "Design", "old");
    AddNote(plan, "Design", "", "/old");
    plan.platform.screens.file = "/new";
    EXPECT_EQ(OnOk([](EditTask& form) {
                  form.TxtName[0].Text("Draw");
                  form.TxtName_Validate(0);
                  form.DTPickerStart.Value(Tuesday);
                  form.DTPickerStart_Change();
                  form.chkAsMilistones.Value(True);
                  form.TxtPercentComplet.Text("50");
                  form.Txtcost.Text("25");
                  form.VSFlexGridResource_Click(1);
                  ChooseSurvey(form);
                  form.CmdAttach_Click();
                  form.MoveTo(form.gridattachement, 0, 0);
                  form.CmdRemove_Click();
                  form.txtNote.Text("Mind the roof");
              }),
              True);
    EXPECT_EQ(plan.Heard(),
              "TaskNameChanged(2, Draw)\n"
              "DateStartChange(2, 2026-03-02, False, False)\n"
              "DateEndChange(2, 2026-03-04, False, False, days)\n"
              "DurationChange(2, 3, days, False, False)\n"
              "TaskDurationChange(2, 3, days, False, False)\n"
              "CompletedChange(2, 50)\n"
              "RoolUpCostChange(2, 25)\n"
              "RoolUpCostChange(1, 25)\n"
              "AssigmentChange(2, Ann)\n"
              "SucessorChange(4, )\n"
              "PredecessorChange(2, )\n"
              "PredecessorKeyChange(2, 4, remove)\n"
              "PredecessorChange(2, 3)\n"
              "PredecessorKeyChange(2, 3, add)\n"
              "SucessorChange(3, 2)\n"
              "NoteChange(2, old)\n");
    EXPECT_EQ(plan["Design"].TaskBDate(), Tuesday);
    EXPECT_EQ(plan["Design"].TaskEDate(), Tuesday);
    EXPECT_EQ(plan["Design"].TaskDuration(), 0);
    EXPECT_EQ(plan["Design"].TaskMilstones(), True);
    EXPECT_EQ(NotesOf(plan, "Design"), "1:Mind the roof:, 3::/new");
}

TEST_F(Saving, IsToldNothingWhileTheHostIsSilenced) {
    Plan silent;
    silent.Silenced().Task("Design").From(Monday).Lasting(1);
    EditInDialog(silent, "Design", [](EditTask& form) {
        form.TxtPercentComplet.Text("50");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(silent.Heard(), "");
    EXPECT_EQ(silent["Design"].TaskPercentDone(), 50);
}

TEST_F(Saving, HappensOnceHoweverOftenOkIsPressedMeanwhile) {
    plan.About("Design").After("Survey");
    plan.platform.screens.file = "/attached";
    OnOk([this](EditTask& form) {
        form.CmdAttach_Click();
        form.MoveTo(form.VSFlexGridPredecessor, 1, 1);
        form.VSFlexGridPredecessor_KeyDown(EditTask::kDelete, 0);
        plan.platform.ui.on_yield = [&form] { form.CmdOK_Click(0); };
    });
    EXPECT_EQ(MasterNotes(plan), "1::/attached");
}

TEST_F(Saving, LeavesAProjectAloneThatWasStartedMeanwhile) {
    AddPerson(plan, "Ann");
    const Ref<TasksCol> before = plan.app->xTaskCol();
    OnOk([this](EditTask& form) {
        plan.app->Init();
        plan.app->xTaskCol()->Add();
        AddPerson(plan, "Bob");
        form.VSFlexGridResource_Click(1);
        form.txtNote.Text("Mind the roof");
    });
    EXPECT_EQ(plan.app->xTaskPeopleRelationcol()->Count(), 0);
    EXPECT_EQ(MasterNotes(plan), "");
    EXPECT_EQ(before->Item(2)->PeopleAsString(), "Ann");
}

TEST_F(Saving, OfPastedBytesThatAreNoTextLosesNothingElse) {
    const String binary("\x01\xFF\xFE\0<", 5);
    OnOk([&](EditTask& form) {
        form.TxtName[0].Text(binary);
        form.TxtName_Validate(0);
        form.Txtcost.Text(binary);
        form.TxtPercentComplet.Text(binary);
        form.txtNote.Text(binary);
        ChooseSurvey(form);
        ASSERT_EQ(form.BeginEdit(form.VSFlexGridPredecessor, 1, 3), True);
        form.EndEdit(form.VSFlexGridPredecessor, binary);
    });
    EXPECT_EQ(plan["Design"].TaskName(), binary);
    EXPECT_EQ(plan["Design"].TaskCost(), 10);
    EXPECT_EQ(plan.col().PredessorAsString("2"), "3");
    plan.app->xFileName(plan.platform.Path("p.prx"));
    ASSERT_EQ(plan.app->SaveXml(False), True);
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(plan.app->xTaskCol()->Item(2)->TaskEDate(), Wednesday);
    plan.app->endreadonly();
}

TEST_F(Saving, CountsAsFailedWhereAnOperationOfItsRecordsAFailure) {
    plan["Phase"].TaskCost(922'337'203'685'470);
    Ref<EditTask> dialog;
    OnOk([&](EditTask& form) {
        dialog = Ref<EditTask>(&form);
        form.Txtcost.Text("99999998");
    });
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpCostChanged 6\n");
    EXPECT_EQ(dialog->ending(), EditTask::Ending::Failed);
}

TEST_F(Saving, RecordsATaskThatAHandlerTookAway) {
    const Interruption host(plan, "RoolUpCostChange", 1, [&] { plan.col().RemoveForLib("2"); });
    OnOk([](EditTask& form) {
        form.Txtcost.Text("25");
        form.txtNote.Text("Mind the roof");
    });
    EXPECT_EQ(plan.failures.Taken(), "EditTask/SaveTaskInfo 91\n");
}

}  // namespace
}  // namespace mrlxmlclass::testing
