#include "tests/dialog/ThreeDays.h"

namespace mrlxmlclass::testing {
namespace {

// --- The milestone's box ---------------------------------------------------------------------------------------------

TEST(chkAsMilistones, TickedWritesNoDurationAndSoBringsTheEndToTheStart) {
    InDialog([](EditTask& form) {
        form.chkAsMilistones.Value(True);
        EXPECT_EQ(form.Task()->TaskMilstones(), True);
        EXPECT_EQ(form.Task()->TaskDuration(), 0);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 0");
    });
}

TEST(chkAsMilistones, BringsTheEndToTheStartWhereTheDurationWasNothingAlready) {
    Plan plan;
    plan.Task("Design").Holding(Monday, Friday, 0);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.chkAsMilistones.Value(True);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 0");
        EXPECT_EQ(form.Task()->TaskEDate(), Monday);
    });
}

TEST(chkAsMilistones, StaysTickedWhereTheDurationIsTypedAndLeft) {
    InDialog([](EditTask& form) {
        form.TxtDurtion[0].Text("0");
        EXPECT_EQ(form.chkAsMilistones.Value(), True);
        form.TxtDurtion_Validate(0);
        EXPECT_EQ(form.Task()->TaskMilstones(), True);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 0");
    });
}

TEST(chkAsMilistones, ClearedMakesATaskOfADay) {
    Plan plan;
    plan.Task("Done").From(Monday).Lasting(1);
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), plan.Key("Done"));
    EditInDialog(plan, "Done", [](EditTask& form) {
        EXPECT_EQ(form.chkAsMilistones.Value(), True);
        form.chkAsMilistones.Value(False);
        EXPECT_EQ(form.Task()->TaskMilstones(), False);
        EXPECT_EQ(form.Task()->TaskDuration(), 1);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 1");
    });
}

// --- The dates -------------------------------------------------------------------------------------------------------

TEST(DTPickerStart, MovesTheEndAlong) {
    InDialog([](EditTask& form) {
        form.Task()->TaskLag(2);
        form.DTPickerStart.Value(Thursday);
        form.DTPickerStart_Change();
        EXPECT_EQ(Dates(form), "2026-03-05 2026-03-09 3");
        EXPECT_EQ(form.Task()->TaskLag(), 0);
    });
}

TEST(DTPickerStart, MeasuresTheLeadTimesOfTheStoredTask) {
    Plan plan;
    plan.WithLinks().Task("Design").From(Monday).Lasting(1).Task("Build").From(Thursday).Lasting(1).After("Design", 9);
    EditInDialog(plan, "Build", [](EditTask& form) {
        form.DTPickerStart.Value(Friday);
        form.DTPickerStart_Change();
    });
    EXPECT_EQ(plan.col().GetLeadTime(plan.Key("Design"), plan["Build"].TaskLeadTime()), 2);
}

TEST(DTPickerStart, OfATaskWithoutAnEndBringsTheEndToTheStart) {
    Plan plan;
    plan.Task("Design");
    plan["Design"].TaskEDate(Date());
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.Task()->TaskEDateValid(True);
        form.DTPickerStart.Value(Tuesday);
        form.DTPickerStart_Change();
        EXPECT_EQ(Dates(form), "2026-03-03 2026-03-03 1");
    });
}

TEST(DTPickerStart, OfATaskWhoseEndNobodyCountsBringsItToTheStart) {
    Plan plan;
    plan.Task("Design").Holding(Date(), Date(), 1);
    plan["Design"].TaskEDateValid(False);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.DTPickerStart.Value(Tuesday);
        form.DTPickerStart_Change();
        EXPECT_EQ(form.Task()->TaskEDate(), Tuesday);
        EXPECT_EQ(Dates(form), "2026-03-03 2026-03-03 1");
    });
}

TEST(DTPickerStart, KeepsTheLastDayOfThePlanWhereItBringsAnEndToTheStart) {
    Plan plan;
    plan.Task("Design").Holding(Date(), Date(), 1).Task("Last").From(Wednesday);
    plan["Design"].TaskEDateValid(False);
    EditInDialog(plan, "Design", [](EditTask& form) {
        Module().g_MaxDate = Wednesday;
        form.DTPickerStart.Value(Friday);
        form.DTPickerStart_Change();
        EXPECT_EQ(form.Task()->TaskEDate(), Friday);
        EXPECT_EQ(Module().g_MaxDate, Wednesday) << "the end is stored past the rules";
    });
}

TEST(DTPickerStart, KeepsShowingTheDayThatWasChosenThoughTheTaskStartsOnAnother) {
    InDialog([](EditTask& form) {
        form.DTPickerStart.Value(Saturday);
        form.DTPickerStart_Change();
        EXPECT_EQ(form.DTPickerStart.Value().As<Date>(), Saturday);
        EXPECT_EQ(form.Task()->TaskBDate(), Monday + 7);
    });
}

TEST(DTPickerEnd, OfATaskWithoutAStartBringsTheStartToTheEnd) {
    Plan plan;
    plan.Task("Design").Holding(Date(), Date(), 1);
    plan["Design"].TaskEDateValid(False);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.DTPickerEnd.Value(Tuesday);
        form.DTPickerEnd_Change();
        EXPECT_EQ(form.Task()->TaskBDate(), Tuesday);
        EXPECT_EQ(Dates(form), "2026-03-03 2026-03-03 1");
    });
}

TEST(DTPickerEnd, OfAMilestoneWithoutAStartBringsTheStartToTheEnd) {
    Plan plan;
    plan.Task("Done").Milestone().Holding(Date(), Friday, 0);
    EditInDialog(plan, "Done", [](EditTask& form) {
        ASSERT_FALSE(form.Task()->TaskBDate().set());
        ASSERT_EQ(form.Task()->TaskEDate(), Friday);
        form.DTPickerEnd.Value(Wednesday);
        form.DTPickerEnd_Change();
        EXPECT_EQ(form.Task()->TaskBDate(), Wednesday);
    });
}

TEST(DTPickerEnd, CountsTheDurationAnew) {
    InDialog([](EditTask& form) {
        form.DTPickerEnd.Value(Friday);
        form.DTPickerEnd_Change();
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-06 5");
    });
}

TEST(DTPickerEnd, BeforeTheStartIsRefused) {
    InDialog([](EditTask& form) {
        form.DTPickerEnd.Value(Monday - 3);
        form.DTPickerEnd_Change();
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-04 3");
    });
}

TEST(PutDatenull, TakesDatesAndDurationAwayWhicheverPickerIsCleared) {
    for (const bool start : {true, false}) {
        InDialog([&](EditTask& form) {
            (start ? form.DTPickerStart : form.DTPickerEnd).Value(Variant::Null{});
            start ? form.DTPickerStart_Change() : form.DTPickerEnd_Change();
            EXPECT_EQ(Dates(form), "null null 0");
            EXPECT_EQ(form.Task()->TaskBDate(), Date());
            EXPECT_EQ(form.Task()->TaskEDate(), Date());
            EXPECT_EQ(form.Task()->TaskDuration(), 0);
        });
    }
}

TEST(PutDatenull, ClearsBothPickersOfAMilestoneToo) {
    Plan plan;
    plan.Task("Done").From(Monday).Lasting(1);
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), plan.Key("Done"));
    plan["Done"].TaskDurationUnit("wks");
    for (const bool start : {true, false}) {
        EditInDialog(plan, "Done", [&](EditTask& form) {
            (start ? form.DTPickerStart : form.DTPickerEnd).Value(Variant::Null{});
            start ? form.DTPickerStart_Change() : form.DTPickerEnd_Change();
            EXPECT_EQ(Dates(form), "null null 0");
            EXPECT_EQ(form.Task()->TaskDurationUnit(), "days");
        });
    }
}

TEST(PutDatenull, IsUndoneByADuration) {
    InDialog([](EditTask& form) {
        form.DTPickerStart.Value(Variant::Null{});
        form.DTPickerStart_Change();
        form.TxtDurtion[0].Text("2");
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-03 2");
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
