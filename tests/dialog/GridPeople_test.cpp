#include "mrlxmlclass/dialog/GridPeople.h"

#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

TEST(AddPeople, AddsAPersonLastOfAll) {
    Plan plan;
    const Ref<PeopleCol> people = plan.app->xPeopleCol();
    AddPerson(plan, "Ann");
    EXPECT_EQ(Gloabal::AddPeople(people, "", "Bob", "555", "bob@example.org", "Dr.", "Sun & Sons", "B", True), "2");
    const Ref<peopleCls> bob = people->Item("2");
    EXPECT_EQ(bob->PersonName(), "Bob");
    EXPECT_EQ(bob->PersonPhone(), "555");
    EXPECT_EQ(bob->PersonEmail(), "bob@example.org");
    EXPECT_EQ(bob->PersonTitle(), "Dr.");
    EXPECT_EQ(bob->PersonCompany(), "Sun & Sons");
    EXPECT_EQ(bob->PersonKeyChar(), "B");
    EXPECT_EQ(bob->PersonPosition(), 1);
}

TEST(AddPeople, AddsNobodyWithoutAName) {
    Plan plan;
    EXPECT_EQ(Gloabal::AddPeople(plan.app->xPeopleCol(), "", "", "555"), "");
    EXPECT_EQ(plan.app->xPeopleCol()->Count(), 0);
}

TEST(AddPeople, ChangesWhatIsGivenOfThePersonOfAKey) {
    Plan plan;
    const String ann = AddPerson(plan, "Ann", "Sun & Sons");
    EXPECT_EQ(Gloabal::AddPeople(plan.app->xPeopleCol(), ann, "", "555"), ann);
    const Ref<peopleCls> person = plan.app->xPeopleCol()->Item(ann);
    EXPECT_EQ(person->PersonName(), "Ann");
    EXPECT_EQ(person->PersonCompany(), "Sun & Sons");
    EXPECT_EQ(person->PersonPhone(), "555");
    EXPECT_EQ(person->PersonPosition(), 0);
}

TEST(AddPeople, KeepsTheFlagItselfForThePositionOfAKnownPerson) {
    Plan plan;
    const String ann = AddPerson(plan, "Ann");
    Gloabal::AddPeople(plan.app->xPeopleCol(), ann, "Anna", {}, {}, {}, {}, {}, True);
    EXPECT_EQ(plan.app->xPeopleCol()->Item(ann)->PersonName(), "Anna");
    EXPECT_EQ(plan.app->xPeopleCol()->Item(ann)->PersonPosition(), -1);
}

TEST(AssignAllPeopleInTheGrid, PassesByRowsWithoutAPersonOrAName) {
    Plan plan;
    plan.Task("Design");
    AddPerson(plan, "Ann");
    EditInDialog(plan, "Design", [&](EditTask& form) {
        GridControl& grid = form.VSFlexGridResource;
        grid.IsSelected(1, True);
        grid.IsSelected(2, True);  // the row for somebody new
        grid.TextMatrix(1, 1, "  ");
        grid.Rows(4);
        grid.IsSelected(3, True);
        Gloabal::AssignAllPeopleInTheGrid(grid, plan.app->xPeopleCol(), 1, plan.app->xTaskCol(),
                                          plan.app->xTaskPeopleRelationcol());
    });
    EXPECT_EQ(plan["Design"].PeopleAsString(), "");
}

}  // namespace
}  // namespace mrlxmlclass::testing
