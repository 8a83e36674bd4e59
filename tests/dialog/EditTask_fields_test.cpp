#include "tests/dialog/ThreeDays.h"

namespace mrlxmlclass::testing {
namespace {

// --- The duration ----------------------------------------------------------------------------------------------------

TEST(TxtDurtion, MovesTheEnd) {
    InDialog([](EditTask& form) {
        form.TxtDurtion[0].Text("5");
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-06 5");
    });
}

TEST(TxtDurtion, ShowsAndTakesTheFirstThreeDigitsOfAThousand) {
    InDialog([](EditTask& form) {
        form.TxtDurtion[0].Text("1000");
        EXPECT_EQ(form.TxtDurtion[0].Text(), "100");
        EXPECT_EQ(form.Task()->TaskDuration(), 100);
    });
}

TEST(TxtDurtion, LeavesALongDurationAloneThatIsTypedLonger) {
    Plan plan;
    plan.Task("Design").Holding(Monday, Monday + 2100, 1500);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.TxtDurtion[0].Text("15007");
        EXPECT_EQ(form.TxtDurtion[0].Text(), "1500");
        EXPECT_EQ(form.Task()->TaskDuration(), 1500);
    });
}

TEST(TxtDurtion, TakesEmptyForNothing) {
    InDialog([](EditTask& form) {
        form.TxtDurtion[0].Text("");
        EXPECT_EQ(form.Task()->TaskMilstones(), True);
        EXPECT_EQ(form.chkAsMilistones.Value(), True);
        EXPECT_EQ(form.Task()->TaskEDate(), Monday);
    });
}

TEST(TxtDurtion, ReadsWhatIsPasted) {
    struct Row {
        const char* text;
        double duration;
        const char* unit;
    };
    for (const Row& row : {Row{"999", 999, "days"}, Row{"1.5d", 1, "days"}, Row{"12 wks", 12, "wks"},
                           Row{"4 mons", 4, "mons"}, Row{"7 x", 7, "days"}, Row{"2 ", 2, "days"}}) {
        SCOPED_TRACE(row.text);
        InDialog([&](EditTask& form) {
            form.TxtDurtion[0].Text(row.text);
            EXPECT_EQ(form.Task()->TaskDuration(), row.duration);
            EXPECT_EQ(form.Task()->TaskDurationUnit(), row.unit);
        });
    }
}

TEST(TxtDurtion, KeepsTakingTheUnitAwayWithAPlainNumber) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(2, "wks");
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.TxtDurtion[0].Text("3");
        EXPECT_EQ(form.Task()->TaskDurationUnit(), "days");
        form.CmdOK_Click(0);
    });
    // What is saved is the number alone, by no rule.
    EXPECT_EQ(plan["Design"].TaskDurationUnit(), "wks");
    EXPECT_EQ(plan["Design"].TaskDuration(), 3);
    EXPECT_EQ(plan["Design"].TaskEDate(), Wednesday);
}

TEST(TxtDurtion, KeepsTakingWhatItShowsWhenItIsLeftUntouched) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(2, "wks");
    EditInDialog(plan, "Design", [](EditTask& form) {
        EXPECT_EQ(form.TxtDurtion[0].Text(), "2");
        form.TxtDurtion_Validate(0);  // a plain number is one of days
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-03 2");
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan["Design"].TaskEDate(), Tuesday);
    EXPECT_EQ(plan["Design"].TaskDurationUnit(), "wks");
}

TEST(TxtDurtion, KeepsTheDatesOfAMilestoneUntilItIsLeft) {
    Plan plan;
    plan.Task("Done").From(Monday).Lasting(1);
    plan.col().SeTAsMilstones(plan.app->xTaskCol(), plan.Key("Done"));
    EditInDialog(plan, "Done", [](EditTask& form) {
        form.TxtDurtion[0].Text("3");
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 3");
        form.TxtDurtion_Validate(0);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-04 3");
    });
}

TEST(TxtDurtion, SurvivesLettersAndFloods) {
    for (const String& text : {String("abc"), String("-5"), String("inf"), String("1e999"), String(10'000, '9'),
                               String("\x01\xFF\xFE", 3), String("- 4")}) {
        Plan plan;
        plan.Task("Design").From(Monday).Lasting(3);
        EditInDialog(plan, "Design", [&](EditTask& form) {
            form.TxtDurtion[0].Text("4");
            form.TxtDurtion[0].Text(text);
            EXPECT_GE(form.Task()->TaskDuration(), 0);
            EXPECT_LE(form.Task()->TaskDuration(), 999);
            form.TxtDurtion[0].Text("5");
            form.TxtDurtion_Validate(0);
            EXPECT_EQ(Dates(form), "2026-03-02 2026-03-06 5") << "after " << text.substr(0, 9);
        });
        const String recorded = plan.failures.Taken();
        EXPECT_TRUE(recorded.empty() || recorded == "Gloabal/SetTaskUnit 13\n") << recorded;
    }
}

TEST(TxtDurtion, LetsDigitsAndBackspaceThrough) {
    InDialog([](EditTask& form) {
        const auto passes = [&](int key) {
            Integer typed = key;
            form.TxtDurtion_KeyPress(0, typed);
            EXPECT_TRUE(typed == key || typed == EditTask::kNoKey);
            return typed == key;
        };
        for (const char key : String("0123456789")) EXPECT_TRUE(passes(key));
        EXPECT_TRUE(passes(EditTask::kBackspace));
        for (const char key : {'-', '.', 'a', ' ', '/', ':', '\r', '\x7F'}) EXPECT_FALSE(passes(key));
    });
}

TEST(TxtDurtion, IsAnsweredAgainWhenItIsLeft) {
    InDialog([](EditTask& form) {
        form.TxtDurtion[0].Text("4");
        form.Task()->TaskDuration(9);
        form.TxtDurtion_Validate(0);
        EXPECT_EQ(form.Task()->TaskDuration(), 4);
    });
}

TEST(VScrollDuration, GoesUpAndDownWithinTheRange) {
    InDialog([](EditTask& form) {
        form.VScrollDuration_UpClick(0);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-05 4");
        form.VScrollDuration_DownClick(0);
        form.VScrollDuration_DownClick(0);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-03 2");
        form.TxtDurtion[0].Text("999");
        form.VScrollDuration_UpClick(0);
        EXPECT_EQ(form.Task()->TaskDuration(), 999);
    });
}

TEST(VScrollDuration, DownToNothingMakesAMilestone) {
    Plan plan;
    plan.Task("Design").From(Monday).Lasting(1);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.VScrollDuration_DownClick(0);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 0");
        EXPECT_EQ(form.chkAsMilistones.Value(), True);
        form.VScrollDuration_DownClick(0);
        EXPECT_EQ(form.TxtDurtion[0].Text(), "0");
        form.VScrollDuration_UpClick(0);
        EXPECT_EQ(Dates(form), "2026-03-02 2026-03-02 1");
        EXPECT_EQ(form.Task()->TaskMilstones(), False);
    });
}

// --- Progress --------------------------------------------------------------------------------------------------------

TEST(TxtPercentComplet, ShowsWhatTheTaskTook) {
    struct Row {
        const char* typed;
        int percent;
    };
    for (const Row& row : {Row{"25", 25}, Row{"25 %", 25}, Row{"100", 100}, Row{"250", 100}, Row{"12x", 12},
                           Row{"2.5", 2}, Row{"-5", 40}, Row{"", 0}, Row{"abc", 0}, Row{"1e30", 40}, Row{" 7", 7}}) {
        SCOPED_TRACE(row.typed);
        InDialog([&](EditTask& form) {
            form.TxtPercentComplet.Text("40");
            form.TxtPercentComplet.Text(row.typed);
            EXPECT_EQ(form.Task()->TaskPercentDone(), row.percent);
            EXPECT_EQ(form.TxtPercentComplet.Text(), std::to_string(row.percent) + " %");
        });
    }
}

TEST(TxtPercentComplet, TakesAChosenEntry) {
    InDialog([](EditTask& form) {
        EXPECT_EQ(form.TxtPercentComplet.List(), (std::vector<String>{"0", "25", "50", "75", "100"}));
        form.TxtPercentComplet.Text(form.TxtPercentComplet.List()[3]);
        form.TxtPercentComplet_Click();
        EXPECT_EQ(form.Task()->TaskPercentDone(), 75);
    });
}

TEST(VScrollPercentComplete, GoesByOneWithinTheRange) {
    InDialog([](EditTask& form) {
        form.VScrollPercentComplete_DownClick();
        EXPECT_EQ(form.Task()->TaskPercentDone(), 0);
        form.VScrollPercentComplete_UpClick();
        EXPECT_EQ(form.TxtPercentComplet.Text(), "1 %");
        form.TxtPercentComplet.Text("100");
        form.VScrollPercentComplete_UpClick();
        EXPECT_EQ(form.Task()->TaskPercentDone(), 100);
        form.VScrollPercentComplete_DownClick();
        EXPECT_EQ(form.TxtPercentComplet.Text(), "99 %");
    });
}

TEST(VScrollPercentComplete, ComesBackIntoTheRangeFromWhereverAFileHasIt) {
    for (const Long percent : {Long(INT32_MAX), Long(INT32_MIN)}) {
        Plan plan;
        plan.Task("Design");
        plan["Design"].TaskPercentDone(percent);
        EditInDialog(plan, "Design", [&](EditTask& form) {
            form.VScrollPercentComplete_UpClick();
            form.VScrollPercentComplete_DownClick();
            EXPECT_EQ(form.Task()->TaskPercentDone(), percent > 0 ? 99 : 0);
        });
    }
}

// --- The name --------------------------------------------------------------------------------------------------------

TEST(TxtName, GoesIntoEveryField) {
    InDialog([](EditTask& form) {
        form.TxtName[2].Text(" Build");
        form.TxtName_Validate(2);
        for (TextControl& field : form.TxtName) EXPECT_EQ(field.Text(), " Build");
        EXPECT_EQ(form.Task()->TaskName(), " Build");
    });
}

TEST(TxtName, ComesBackWhenWhatWasTypedIsNoName) {
    for (const String& text : {String(), String("   "), String(160, 'n'), String(161, 'n'), String("<New Phase>")}) {
        SCOPED_TRACE(text);
        InDialog([&](EditTask& form) {
            form.TxtName[0].Text(text);
            form.TxtName_Validate(0);
            EXPECT_EQ(form.TxtName[0].Text(), "Design");
            EXPECT_EQ(form.Task()->TaskName(), "Design");
        });
    }
}

TEST(TxtName, TakesUpTo159CharactersBehindItsBlanks) {
    for (const String& text : {String(159, 'n'), "  " + String(150, 'n'), String(157, 'n') + "\xF0\x9F\x8F\xA0"}) {
        InDialog([&](EditTask& form) {
            form.TxtName[0].Text(text);
            form.TxtName_Validate(0);
            EXPECT_EQ(form.Task()->TaskName(), text);
        });
    }
}

TEST(TxtName, KeepsTheWholeTextOnTheTaskWhenALineBreakCutsIt) {
    InDialog([](EditTask& form) {
        form.TxtName[0].Text("Build\r\nand more");
        form.TxtName_Validate(0);
        for (TextControl& field : form.TxtName) EXPECT_EQ(field.Text(), "Build");
        EXPECT_EQ(form.Task()->TaskName(), "Build\r\nand more");
    });
}

// --- The cost --------------------------------------------------------------------------------------------------------

TEST(Txtcost, TakesWholeAmounts) {
    struct Row {
        const char* typed;
        double cost;
        const char* shown;
    };
    for (const Row& row : {Row{"25", 25, "25"}, Row{"$25", 25, "25"}, Row{"$$7", 7, "7"}, Row{"2.5", 3, "3"},
                           Row{"99999998", 99999998, "99999998"}, Row{"99999999", 12, "12"}, Row{"100000000", 12, "12"},
                           Row{"99999998.6", 12, "12"}, Row{"abc", 12, "12"}, Row{"-5", 12, "12"},
                           Row{"-0.2", 12, "12"}, Row{"", 0, "0"}, Row{"0", 0, "0"}, Row{"1e99", 12, "12"}}) {
        SCOPED_TRACE(row.typed);
        Plan plan;
        plan.Task("Design").Costing(12);
        EditInDialog(plan, "Design", [&](EditTask& form) {
            form.Txtcost.Text(row.typed);
            EXPECT_EQ(form.Task()->TaskCost().ToDouble(), row.cost);
            EXPECT_EQ(form.Txtcost.Text(), row.shown);
            EXPECT_EQ(form.Txtcost.SelStart(), Long(String(row.shown).size()));
        });
    }
}

TEST(Txtcost, KeepsRoundingWhileAnAmountIsTyped) {
    InDialog([](EditTask& form) {
        for (const char* key : {"7", ".", "5", "0"}) form.Txtcost.Text(form.Txtcost.Text() + key);
        EXPECT_EQ(form.Txtcost.Text(), "80");  // 7.5 was 8 when the last key came
    });
}

TEST(Txtcost, ReadsGroupsAsTheLocaleHasThem) {
    Plan plan;
    plan.platform.locale.Use("M/d/yyyy", ".", ",");
    plan.Task("Design").Costing(12);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.Txtcost.Text("$1,234.56");
        EXPECT_EQ(form.Task()->TaskCost(), 1235);
        EXPECT_EQ(form.Txtcost.Text(), "1235");
        form.Txtcost.Text("1,5e400");
        EXPECT_EQ(form.Txtcost.Text(), "1235");
    });
}

TEST(Txtcost, KeepsAsItWasTypedWhatIsTheCostAlready) {
    Plan plan;
    plan.Task("Design").Costing(12);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.Txtcost.Text("12x");
        EXPECT_EQ(form.Txtcost.Text(), "12x");
        EXPECT_EQ(form.Task()->TaskCost(), 12);
    });
}

TEST(Txtcost, TakesBackWhatTheLocaleReadsAsNoNumber) {
    for (const char* text : {"1.2.3", "$1,234.56", "1e400", "7,"}) {
        Plan plan;
        plan.Task("Design").Costing(12);
        EditInDialog(plan, "Design", [&](EditTask& form) {
            form.Txtcost.Text(text);
            EXPECT_EQ(form.Txtcost.Text(), "12") << text;
        });
    }
}

TEST(Txtcost, AnswersEnterToo) {
    Plan plan;
    plan.Task("Design").Costing(12);
    EditInDialog(plan, "Design", [](EditTask& form) {
        form.Txtcost.Text("12x");
        form.Task()->TaskCost(7);
        Integer other = int{'x'};
        form.Txtcost_KeyPress(other);
        EXPECT_EQ(form.Txtcost.Text(), "12x");
        Integer enter = EditTask::kEnter;
        form.Txtcost_KeyPress(enter);
        EXPECT_EQ(form.Txtcost.Text(), "7");
    });
}

}  // namespace
}  // namespace mrlxmlclass::testing
