#include <gtest/gtest.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/support/OldPlan.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass {
namespace {

using namespace testing;
using Strings = std::vector<String>;

/// A session on which an old plan is converted.
class Converted : public ::testing::Test {
protected:
    Boolean Convert() { return plan.app->Convert3to4("/plans/a.prj", {}); }
    TasksCls& Task(Long key) { return *plan.col().Item(key); }
    /// The tasks in the order in which they came: key, name, parent, row, place in its list, whether in the outline.
    String Rows() {
        String rows;
        for (const auto& entry : plan.col().NewEnum()) {
            const TasksCls& task = *entry.item;
            rows += KeyText(task.TaskKey()).text() + " " + task.TaskName() + " under " +
                    KeyText(task.ParentID()).text() + " row " + KeyText(task.TaskPosition()).text() + "." +
                    KeyText(task.TaskSubPosition()).text() + "/" + KeyText(task.TaskPositionInitem()).text() +
                    (task.TaskCondidat() ? "" : " beside") + (task.TaskType() ? "" : " phase") + "\n";
        }
        return rows;
    }
    /// The pairs of a task and an item, by their keys.
    template <class Relations>
    String Tied(const Ref<Relations>& relations) {
        String pairs;
        for (const auto& entry : relations->NewEnum()) {
            pairs += KeyText(entry.item->TaskKey()).text() + "-" + KeyText(In(entry.item).item_key()).text() + " ";
        }
        return pairs;
    }

    Plan plan;
    OldPlan old;
};

TEST(Convert3to4, FailsWithoutAComponentBeforeAnythingChanges) {
    Plan plan;
    EXPECT_EQ(plan.app->Convert3to4("/plans/a.prj", {}), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/Convert3to4 429\n");
    EXPECT_EQ(plan.app->xFileName(), "");
    EXPECT_EQ(plan.col().GanttVisted, False);
    EXPECT_TRUE(bool(plan.calendar().IsNonWorkingDay(Long(7))));
}

TEST_F(Converted, FileNameComesFromTheOldOne) {
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.app->xFileName(), "/plans/a.prx");
}

TEST_F(Converted, FileNameKnowsTheOldEndingInAnyCaseAndEverywhere) {
    EXPECT_EQ(plan.app->Convert3to4("/my.PRJ.d/b.Prj", {}), True);
    EXPECT_EQ(plan.app->xFileName(), "/my.prx.d/b.prx");
}

TEST_F(Converted, FileNameStaysWhereThereIsOne) {
    plan.app->xFileName("/plans/mine.prx");
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.app->xFileName(), "/plans/mine.prx");
}

TEST_F(Converted, KeepsIgnoringTheNewNameButForNotTakingTheOldOne) {
    EXPECT_EQ(plan.app->Convert3to4("/plans/a.prj", {}, "/plans/new.prx"), True);
    EXPECT_EQ(plan.app->xFileName(), "");
}

TEST_F(Converted, OldProjectIsLoadedBehindTheBarAndReleasedAtTheEnd) {
    old.people = {OldRow("Ann"), OldRow("Bob")};
    old.phases = {OldRow("Phase")};
    old.goals = {OldRow("Goal")};
    old.obstacles = {OldRow("Rain")};
    EXPECT_EQ(Convert(), True);
    // 100 / (2 * 2 + 1 + 1 + 1 + 1): two for people twice, one each for the rest, one at the end.
    EXPECT_EQ(old.log, (Strings{"Show", "Location /plans/a.prj", "Load /plans/a.prj", "Update 12.500000",
                                "Update 12.500000", "Update 12.500000", "Update 12.500000", "Update 12.500000",
                                "Update 12.500000", "Update 12.500000", "Update 12.500000", "gone"}));
}

TEST_F(Converted, NoWeekdayIsFreeAnyMore) {
    EXPECT_EQ(Convert(), True);
    EXPECT_FALSE(bool(Gloabal::IsNonWorkingDay(Saturday)));
    EXPECT_FALSE(bool(Gloabal::IsNonWorkingDay(Sunday)));
    EXPECT_EQ(plan.app->xProject()->ProjectName(), "Old plan");
    EXPECT_EQ(plan.col().GanttVisted, True);
}

TEST_F(Converted, OutlineIsDepthFirst) {
    old.phases = {OldRow("A").With({OldRow("A1").With({OldRow("A11"), OldRow("A12")}), OldRow("A2")}), OldRow("B")};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Rows(),
              "1 A under 0 row 1.0/0 phase\n"
              "2 A1 under 1 row 2.0/0\n"
              "3 A11 under 2 row 3.0/0\n"
              "4 A12 under 2 row 4.1/0\n"
              "5 A2 under 1 row 5.1/0\n"
              "6 B under 0 row 6.1/0 phase\n");
    EXPECT_EQ(Task(3).ProjectID(), 1);
    EXPECT_TRUE(bool(plan.col().isParent("2")));
}

TEST_F(Converted, DatesGoThroughTheirSettersAndParentsFollow) {
    old.phases = {OldRow("A").From(Monday, Monday).With({OldRow("A1").From(Saturday, Sunday)})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Task(2).TaskBDate(), Saturday);
    EXPECT_EQ(Task(2).TaskEDate(), Sunday);
    EXPECT_EQ(Task(2).TaskDuration(), 2);
    EXPECT_EQ(Task(1).TaskBDate(), Saturday);
    EXPECT_EQ(Task(1).TaskEDate(), Sunday);
}

TEST_F(Converted, TaskWithoutAStartIsTodayForADay) {
    old.phases = {OldRow("A")};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Task(1).TaskBDate(), plan.platform.clock.Today());
    EXPECT_EQ(Task(1).TaskEDate(), plan.platform.clock.Today());
    EXPECT_EQ(Task(1).TaskDuration(), 1);
    EXPECT_EQ(Task(1).TaskBDateValid(), True) << "else no file would hold it";
}

TEST_F(Converted, PhaseDoesNotFollowATaskWithoutAStart) {
    old.phases = {OldRow("A").From(Monday, Tuesday).With({OldRow("A1")})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Task(1).TaskBDate(), Monday);
    EXPECT_EQ(Task(1).TaskEDate(), Tuesday);
}

TEST_F(Converted, DatesOutOfRangeAreMended) {
    old.phases = {OldRow("A").From(Date::Of(1990, 5, 7), Date::Of(1990, 5, 8)),
                  OldRow("B").From(Date::Of(2090, 5, 7), Date::Of(2090, 5, 8))};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Task(1).TaskBDate(), Date::Of(2000, 5, 7));
    EXPECT_EQ(Task(2).TaskBDate().year(), MaxYear());
}

TEST_F(Converted, CompletedTaskIsAllDone) {
    old.phases = {OldRow("A").Done(), OldRow("B")};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Task(1).TaskPercentDone(), 100);
    EXPECT_EQ(Task(2).TaskPercentDone(), 0);
    EXPECT_EQ(Task(2).TaskPercentDoneValid(), False) << "nothing is said of it";
}

TEST_F(Converted, PeopleKeepTheirOrderAndTheirWork) {
    old.people = {OldRow("Ann"), OldRow("Bob")};
    old.phases = {OldRow("A").By({"Bob", "Ann"})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.app->xPeopleCol()->Item(Long(1))->PersonName(), "Ann");
    EXPECT_EQ(plan.app->xPeopleCol()->Item(Long(2))->PersonPosition(), 1);
    EXPECT_EQ(Task(1).PeopleAsString(), "Bob, Ann");
    EXPECT_EQ(plan.app->xTaskPeopleRelationcol()->Count(), 2);
}

TEST_F(Converted, PeopleOfATaskComeBeforeItsNote) {
    old.people = {OldRow("Ann")};
    old.phases = {OldRow("A").By({"Ann"}).Saying("Text")};
    EXPECT_EQ(Convert(), True);
    const String heard = plan.Heard();
    const auto assigned = heard.find("AssigmentChange(1, Ann)");
    const auto noted = heard.find("NoteChange(1, Text)");
    ASSERT_NE(noted, String::npos) << heard;
    EXPECT_LT(assigned, noted) << heard;
}

TEST_F(Converted, WorkOfSomebodyUnknownIsRecordedAndPassedBy) {
    old.phases = {OldRow("A").By({"Nobody"}), OldRow("B")};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.failures.Taken(), "PeopleCol/AssignePerson 91\n");
    EXPECT_EQ(plan.col().Count(), 2);
}

TEST_F(Converted, NoteIsTiedToItsTask) {
    old.phases = {OldRow("A").Saying("Ask the bank")};
    EXPECT_EQ(Convert(), True);
    ASSERT_EQ(plan.app->xNoteCol()->Count(), 1);
    const Ref<NotesCls> note = plan.app->xNoteCol()->Item(Long(1));
    EXPECT_EQ(note->NoteDescription(), "Ask the bank");
    ASSERT_EQ(plan.app->xTaskNotesRelationcol()->Count(), 1);
    const Ref<TaskNoteRelationCls> relation = plan.app->xTaskNotesRelationcol()->Item("1");
    EXPECT_EQ(relation->NoteKey(), note->NoteKey());
    EXPECT_EQ(relation->TaskKey(), 1);
    EXPECT_EQ(Task(1).NoteAsString(), "Ask the bank");
}

TEST_F(Converted, ListOfAPersonFindsTheOutlinesTasksByName) {
    old.phases = {OldRow("A").With({OldRow("Dig"), OldRow("Dig")})};
    old.people = {OldRow("Ann").With({OldRow("Fly"), OldRow("Dig")})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Rows(),
              "1 A under 0 row 1.0/0 phase\n"
              "2 Dig under 1 row 2.0/1\n"
              "3 Dig under 1 row 3.1/0\n"
              "4 Fly under 0 row 0.0/0 beside\n")
        << "the first task of a name wins; what the outline lacks stands beside it";
    EXPECT_EQ(Task(2).PeopleAsString(), "") << "a task of the outline is not assigned by the person's list";
    EXPECT_EQ(Task(4).PeopleAsString(), "Ann");
}

TEST_F(Converted, ListKnowsANameByAllOfItThoughTheTasksOwnIsCut) {
    const String longest(160, 'n');
    old.phases = {OldRow(longest + "a")};
    old.people = {OldRow("Ann").With({OldRow(longest + "a"), OldRow(longest)})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Rows(), "1 " + longest + " under 0 row 1.0/0\n2 " + longest + " under 0 row 0.0/1 beside\n");
}

TEST_F(Converted, KeepsTwoRelationsOfAnItemAndACandidate) {
    old.people = {OldRow("Ann"), OldRow("Bob").With({OldRow("Fly")})};
    old.goals = {OldRow("Health"), OldRow("Money").With({OldRow("Earn")})};
    old.obstacles = {OldRow("Rain"), OldRow("Snow").With({OldRow("Melt")})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Task(1).PeopleAsString(), "Bob");
    EXPECT_EQ(Tied(plan.app->xTaskPeopleRelationcol()), "1-2 1-2 ");
    EXPECT_EQ(Tied(plan.app->xTaskGoalRelationcol()), "2-2 2-2 ");
    EXPECT_EQ(Tied(plan.app->xTaskObstaclesRelationcol()), "3-2 3-2 ");
}

TEST_F(Converted, KeepsForgettingTheNamesBehindTheFirstItem) {
    old.phases = {OldRow("Dig")};
    old.people = {OldRow("Ann").With({OldRow("Fly"), OldRow("Fly")}), OldRow("Bob").With({OldRow("Dig")})};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Rows(),
              "1 Dig under 0 row 1.0/0 phase\n"
              "2 Fly under 0 row 0.0/1 beside\n"
              "3 Dig under 0 row 0.0/0 beside\n")
        << "within one list a name is found again, in the next one it is new";
    EXPECT_EQ(plan.failures.Taken(), "PeopleCol/AddItem 457\nTasksCol/AddItem 457\n") << "Ann has Fly already";
}

TEST_F(Converted, GoalsAndObstaclesAreTiedToTheTasksOfTheirLists) {
    old.phases = {OldRow("Dig")};
    old.goals = {OldRow("Health").Saying("Why").With({OldRow("Dig")}), OldRow("Money")};
    old.obstacles = {OldRow("Rain").Saying("Wet").With({OldRow("Wait")}), OldRow("Snow")};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(Rows(),
              "1 Dig under 0 row 1.0/0\n"
              "2 Wait under 0 row 0.0/0 beside\n");
    const Ref<GoalsCls> goal = plan.app->xGoalCol()->Item(Long(1));
    EXPECT_EQ(goal->GoalName(), "Health");
    EXPECT_EQ(goal->GoalDescription(), "Why");
    EXPECT_EQ(plan.app->xGoalCol()->Item(Long(2))->GoalPosition(), 1);
    EXPECT_EQ(plan.app->xTaskGoalRelationcol()->Count(), 1) << "a task of the outline is assigned too";
    EXPECT_EQ(goal->Tasks()->Count(), 1);
    const Ref<ObstaclesCls> obstacle = plan.app->xObstaclesCol()->Item(Long(1));
    EXPECT_EQ(obstacle->ObstaclesName(), "Rain");
    EXPECT_EQ(obstacle->ObstaclesDescription(), "Wet");
    EXPECT_EQ(plan.app->xObstaclesCol()->Item(Long(2))->ObstaclesPosition(), 1);
    EXPECT_EQ(plan.app->xTaskObstaclesRelationcol()->Count(), 2) << "a candidate is tied twice";
}

TEST_F(Converted, FailureOnTheWayLeavesWhatWasConverted) {
    old.phases = {OldRow("A"), OldRow("B"), OldRow("C")};
    old.on_tasks = [](const String& row) {
        if (row == "B") throw std::runtime_error("the component broke");
    };
    EXPECT_EQ(Convert(), False);
    EXPECT_EQ(plan.failures.Taken(), "Application/Convert3to4 51\n");
    EXPECT_EQ(plan.col().Count(), 2);
    EXPECT_EQ(old.log.back(), "gone");
}

TEST_F(Converted, PlanOfAnyDepthIsConverted) {
    OldRow deepest("bottom");
    for (int i = 0; i < 300; ++i) deepest = OldRow("level").With({deepest});
    old.phases = {deepest};
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.col().Count(), 301);
    EXPECT_EQ(Task(301).TaskName(), "bottom");
    EXPECT_EQ(Task(301).ParentID(), 300);
}

TEST_F(Converted, ResultIsSavedAndOpened) {
    old.people = {OldRow("Ann")};
    old.phases = {OldRow("A").With({OldRow("A1").From(Monday, Friday).By({"Ann"}).Saying("Text")})};
    plan.app->xFileName(plan.platform.Path("a.prx"));
    EXPECT_EQ(Convert(), True);
    EXPECT_EQ(plan.app->SaveXml(False), True);
    EXPECT_EQ(plan.app->LoadXML(), True);
    EXPECT_EQ(Task(2).PeopleAsString(), "Ann");
    EXPECT_EQ(Task(2).NoteAsString(), "Text");
    EXPECT_EQ(Task(1).TaskEDate(), Friday);
    plan.app->endreadonly();
}

}  // namespace
}  // namespace mrlxmlclass
