#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

constexpr int kPerson = 1;

/// A task, and two people of whom the first is assigned to it.
class PeopleTable : public ::testing::Test {
protected:
    PeopleTable() {
        plan.Task("Design").From(Monday).Lasting(1);
        AddPerson(plan, "Ann");
        AddPerson(plan, "Bob");
        Assign(plan, "1", "Design");
    }
    void InDialog(const std::function<void(EditTask&)>& person) {
        EditInDialog(plan, "Design", [&](EditTask& form) { person(form); });
    }
    static void Type(EditTask& form, int row, const String& name) {
        GridControl& grid = form.VSFlexGridResource;
        ASSERT_EQ(form.BeginEdit(grid, row, kPerson), True);
        EXPECT_EQ(grid.TextMatrix(row, kPerson), "");
        form.EndEdit(grid, name);
    }

    Plan plan;
};

TEST_F(PeopleTable, HoldsEverybodyAndARowForSomebodyNew) {
    InDialog([](EditTask& form) {
        EXPECT_EQ(Drawn(form.VSFlexGridResource),
                  "1 Ann =1p*\n"
                  "2 Bob =2p\n"
                  "3 T10658 =newperson\n");
        EXPECT_EQ(form.VSFlexGridResource.Row(), 1);
        EXPECT_EQ(form.VSFlexGridResource.TopRow(), 1);
    });
}

TEST_F(PeopleTable, ShowsTheCompanyOfAPersonWithoutAName) {
    AddPerson(plan, "", "Sun & Sons");
    InDialog([](EditTask& form) {
        EXPECT_EQ(form.VSFlexGridResource.TextMatrix(3, kPerson), "Sun & Sons");
        form.VSFlexGridResource_Click(3);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan["Design"].isAssigned("3"), True);
}

TEST_F(PeopleTable, PassesByAPersonWhoIsNoMoreInTheProject) {
    plan.app->xPeopleCol()->Remove("1");
    InDialog([](EditTask& form) {
        EXPECT_EQ(Drawn(form.VSFlexGridResource),
                  "1 Bob =2p\n"
                  "2 T10658 =newperson\n");
        EXPECT_EQ(form.VSFlexGridResource.TopRow(), 0);
    });
}

TEST_F(PeopleTable, AssignsWhoIsSelectedAndTakesOffWhoIsNot) {
    InDialog([](EditTask& form) {
        form.VSFlexGridResource_Click(1);
        form.VSFlexGridResource_Click(2);
        EXPECT_EQ(form.ResourcesChanged(), True);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.Heard(),
              "AssigmentChange(1, )\n"
              "AssigmentChange(1, Bob)\n");
    EXPECT_EQ(plan["Design"].PeopleAsString(), "Bob");
}

TEST_F(PeopleTable, EndsAsItBeganWhenSomebodyIsSelectedAndTakenBack) {
    InDialog([](EditTask& form) {
        form.VSFlexGridResource_Click(2);
        form.VSFlexGridResource_Click(2);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Design"].PeopleAsString(), "Ann");
}

TEST_F(PeopleTable, TogglesNeitherTheLastRowNorWhatIsNoRow) {
    InDialog([](EditTask& form) {
        for (const int row : {0, 3, -1}) form.VSFlexGridResource_Click(row);
        EXPECT_EQ(form.VSFlexGridResource.SelectedRows(), 1);
        EXPECT_EQ(form.ResourcesChanged(), False);
        form.VSFlexGridResource_Click(9);
    });
    EXPECT_EQ(plan.failures.Taken(), "EditTask/VSFlexGridResource_Click 9\n");
}

TEST_F(PeopleTable, LetsNobodyButTheLastRowBeEdited) {
    InDialog([](EditTask& form) {
        EXPECT_EQ(form.BeginEdit(form.VSFlexGridResource, 1, kPerson), False);
        EXPECT_EQ(form.VSFlexGridResource.TextMatrix(1, kPerson), "Ann");
        EXPECT_EQ(form.BeginEdit(form.VSFlexGridResource, 3, 0), False);
        EXPECT_EQ(form.BeginEdit(form.VSFlexGridResource, 3, kPerson), True);
    });
}

TEST_F(PeopleTable, AddsAPersonWhoseNameIsTypedAndGetsAFreshLastRow) {
    InDialog([this](EditTask& form) {
        Type(form, 3, "Cleo");
        EXPECT_EQ(Drawn(form.VSFlexGridResource),
                  "1 Ann =1p*\n"
                  "2 Bob =2p\n"
                  "4 Cleo =3p*\n"
                  " T10658 =newperson\n");
        EXPECT_EQ(plan.app->xPeopleCol()->Item("3")->PersonName(), "Cleo");
        EXPECT_EQ(plan.app->xPeopleCol()->Item("3")->PersonPosition(), 2);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan["Design"].PeopleAsString(), "Ann, Cleo");
}

TEST_F(PeopleTable, KeepsAPersonWhoWasTypedAfterCancelToo) {
    InDialog([](EditTask& form) {
        Type(form, 3, "Cleo");
        form.CmdCancel_Click(0);
    });
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 3);
    EXPECT_EQ(plan["Design"].PeopleAsString(), "Ann");
}

TEST_F(PeopleTable, TakesItsCaptionForNobody) {
    InDialog([this](EditTask& form) {
        Type(form, 3, "t10658");
        EXPECT_EQ(plan.app->xPeopleCol()->Count(), 2);
    });
}

TEST_F(PeopleTable, TakesItsCaptionForNobodyInAnyScript) {
    const auto texts = DialogTexts();
    texts->Remove("10658");
    texts->Add(String("Neue Person hinzuf\u00FCgen"), KeyText(String("10658")));
    plan.platform.screens.person = [](EditTask& form) { Type(form, 3, "NEUE PERSON HINZUF\u00DCGEN"); };
    plan.app->showtaskinfo(plan.Key("Design"), plan.app->xTaskCol(), 2, texts);
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 2);
}

TEST_F(PeopleTable, KeepsAFurtherRowForAnEditThatLeftItsLastRowEmpty) {
    for (const char* text : {"", "   "}) {
        InDialog([&](EditTask& form) {
            const int last = form.VSFlexGridResource.Rows().value() - 1;
            Type(form, last, text);
            EXPECT_EQ(form.VSFlexGridResource.RowData(last + 1), "newperson");
            form.MoveTo(form.VSFlexGridResource, 1, kPerson);
            Type(form, last + 1, text == String() ? "Cleo" : "Dan");  // either row takes somebody
            EXPECT_EQ(plan.app->xPeopleCol()->Count(), text == String() ? 3 : 4);
        });
    }
}

TEST_F(PeopleTable, KeepsThatSomebodyCalledAsTheDataOfTheRowIsNobody) {
    InDialog([this](EditTask& form) {
        Type(form, 3, "newperson");
        EXPECT_EQ(plan.app->xPeopleCol()->Count(), 2);
    });
}

TEST_F(PeopleTable, WritesItsCaptionBackWhenTheEmptyRowIsLeft) {
    InDialog([](EditTask& form) {
        GridControl& grid = form.VSFlexGridResource;
        form.BeginEdit(grid, 3, kPerson);
        EXPECT_EQ(grid.TextMatrix(3, kPerson), "");
        form.MoveTo(grid, 1, kPerson);
        EXPECT_EQ(grid.TextMatrix(3, kPerson), "T10658");
        form.BeginEdit(grid, 3, kPerson);
        form.VSFlexGridResource_LostFocus();
        EXPECT_EQ(grid.TextMatrix(3, kPerson), "T10658");
        EXPECT_EQ(grid.Row(), -1);
    });
}

TEST_F(PeopleTable, TakesTheDataOfAChosenEntry) {
    InDialog([](EditTask& form) {
        form.VSFlexGridResource.ComboData("7p");
        Boolean finish;
        form.VSFlexGridResource_ComboCloseUp(3, kPerson, finish);
        EXPECT_EQ(form.VSFlexGridResource.RowData(3), "7p");
    });
}

TEST_F(PeopleTable, MakesNothingOfAKey) {
    InDialog([](EditTask& form) {
        form.MoveTo(form.VSFlexGridResource, 1, kPerson);
        const String before = Drawn(form.VSFlexGridResource);
        for (const int key : {int{EditTask::kDelete}, int{EditTask::kV}, int{'A'}}) {
            form.VSFlexGridResource_KeyDown(key, EditTask::kControlDown);
            form.VSFlexGridResource_KeyDown(key, 0);
        }
        EXPECT_EQ(Drawn(form.VSFlexGridResource), before);
        EXPECT_EQ(form.VSFlexGridResource.Row(), 1);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan["Design"].PeopleAsString(), "Ann");
}

}  // namespace
}  // namespace mrlxmlclass::testing
