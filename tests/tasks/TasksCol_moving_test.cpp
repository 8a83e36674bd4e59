#include <gtest/gtest.h>

#include "tests/support/Interruption.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/Told.h"
#include "tests/tasks/Family.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// 1 House: four tasks
class House : public Plan {
public:
    House() {
        Task("House").Task("Roof").Under("House").Task("Door").Under("House");
        Task("Wall").Under("House").Task("Floor").Under("House");
    }
};

TEST(ChangeParent, HandsTheChildrenBehindTheNewParentOver) {
    House plan;
    EXPECT_FALSE(plan.col().ChangeParent("1", plan.Key("Door")));
    EXPECT_EQ(Family(plan),
              "1 House: Roof Door\n"
              "2   -Roof\n"
              "3   -Door: Wall Floor\n"
              "4     -Wall\n"
              "5     -Floor\n");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ChangeParent, HandsThemOverInTheOrderOfTheirRows) {
    House plan;
    Number(plan, {"House", "Roof", "Door", "Floor", "Wall"});
    plan.col().ChangeParent("1", plan.Key("Door"));
    EXPECT_EQ(Family(plan).substr(0, 52), "1 House: Roof Door\n2   -Roof\n3   -Door: Floor Wall\n4");
}

TEST(ChangeParent, KeepsEmptyingTheListWhereBothParentsAreOne) {
    House plan;
    plan.col().ChangeParent("1", "1");
    EXPECT_EQ(Family(plan), "1 House\n2   -Roof\n3   -Door\n4   -Wall\n5   -Floor\n");
}

TEST(ChangeParent, RecordsAParentThatIsNotThere) {
    House plan;
    const String before = Family(plan);
    for (const char* parent : {"77", "0", ""}) {
        EXPECT_FALSE(plan.col().ChangeParent(parent, "3"));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeParent 91\n") << parent;
        EXPECT_FALSE(plan.col().ChangeParent("1", parent));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeParent 91\n") << parent;
    }
    EXPECT_EQ(Family(plan), before);
}

TEST(ChangeTaskParent, IndentsATaskToTheStartOfItsNewParent) {
    Plan plan;
    plan.Task("Phase").From(Monday).Lasting(3).Costing(100).Task("Design").From(Friday).Costing(10);
    String parent = "1";
    EXPECT_EQ(plan.col().ChangeTaskParent("2", parent, "", "", "", True, "indent", "grid"), 0);
    EXPECT_EQ(parent, "1");
    EXPECT_EQ(Family(plan), "1 Phase: Design\n2   -Design\n");
    EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\n" + Moved(2, Monday, Monday, 1) + Costs(2, 10) + Costs(1, 10) +
                                Summed(1, Monday, Monday, 1) + "Indented(2, 1, grid)\n");
}

TEST(ChangeTaskParent, TakesATaskOutOfItsPresentParent) {
    Plan plan;
    plan.Task("House").Task("Roof").Under("House").From(Tuesday).Costing(100);
    plan.Task("Door").Under("House").From(Thursday).Costing(10);
    Settle(plan, {"House"});

    EXPECT_EQ(plan.col().ChangeTaskParent("3", String("2"), "", "", "", True, "indent", "grid"), 0);

    EXPECT_EQ(Family(plan), "1 House: Roof\n2   Roof: Door\n3     -Door\n");
    EXPECT_EQ(plan.Heard(), "IamASummary(2, True)\n" + Moved(3, Tuesday, Tuesday, 1) + Costs(3, 10) + Costs(2, 10) +
                                Costs(1, 10) + Summed(2, Tuesday, Tuesday, 1) + Summed(1, Tuesday, Tuesday, 1) +
                                Summed(1, Tuesday, Tuesday, 1) + Costs(1, 10) + "Indented(3, 2, grid)\n");
}

/// 1 House: a roof on Tuesday
/// 3 Shed: a door on Thursday and a wall on Friday
class TwoHouses : public Plan {
public:
    TwoHouses() {
        Task("House").Task("Roof").Under("House").From(Tuesday).Costing(100).Task("Shed");
        Task("Door").Under("Shed").From(Thursday).Costing(10).Task("Wall").Under("Shed").From(Friday).Costing(1);
        Settle(*this, {"House", "Shed"});
    }
};

TEST(ChangeTaskParent, LeavesTheDatesOfATaskThatIsNotIndented) {
    TwoHouses plan;
    EXPECT_EQ(plan.col().ChangeTaskParent("4", String("1")), 0);
    EXPECT_EQ(Family(plan),
              "1 House: Roof Door\n"
              "2   -Roof\n"
              "3 Shed: Wall\n"
              "4   -Door\n"
              "5   -Wall\n");
    EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\n" + Summed(1, Tuesday, Thursday, 3) + Costs(4, 10) + Costs(1, 110) +
                                Costs(3, 1) + Costs(3, 1));
    EXPECT_EQ(DayName(plan["Shed"].TaskBDate()), DayName(Thursday)) << "the old parent keeps its span";
}

TEST(ChangeTaskParent, LeavesLinksAndDatesOfABatchToTheCaller) {
    TwoHouses plan;
    EXPECT_EQ(plan.col().ChangeTaskParent("4", String("1"), "", "", "", True, "indent", "grid", True), 0);
    EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\n" + Costs(3, 1) + "Indented(4, 1, grid)\n");
    EXPECT_EQ(DayName(plan["Door"].TaskBDate()), DayName(Thursday));
}

TEST(ChangeTaskParent, MovesTheNewParentToTheStartOfItsOwn) {
    Plan plan;
    plan.Task("House").Task("Phase").Under("House").Task("Design").Under("Phase").From(Wednesday);
    plan.Task("Roof").Under("House").From(Monday).Task("Door").From(Friday);
    Settle(plan, {"Phase"});

    plan.col().ChangeTaskParent("5", String("2"));

    EXPECT_EQ(plan.Heard(), "IamASummary(2, True)\n" + Summed(2, Wednesday, Friday, 3) + Summed(1, Monday, Friday, 5) +
                                Moved(3, Monday, Monday, 1) + Moved(5, Wednesday, Wednesday, 1) +
                                Summed(2, Monday, Wednesday, 3) + Summed(1, Monday, Wednesday, 3) + Costs(5, 0) +
                                Costs(2, 0) + Costs(1, 0));
}

TEST(ChangeTaskParent, PutsATaskAtTheTop) {
    TwoHouses plan;
    EXPECT_EQ(plan.col().ChangeTaskParent("4", String("0")), 0);
    EXPECT_EQ(Family(plan), "1 House: Roof\n2   -Roof\n3 Shed: Wall\n4 Door\n5   -Wall\n");
    EXPECT_EQ(plan.Heard(), Costs(3, 1) + Costs(3, 1));
}

TEST(ChangeTaskParent, AdjustsTheOldParentOfATaskThatIsIndentedToTheTop) {
    TwoHouses plan;
    plan.col().ChangeTaskParent("4", String("0"), "", "", "", True, "indent", "grid");
    EXPECT_EQ(plan.Heard(), Summed(3, Friday, Friday, 1) + Costs(3, 1) + "Indented(4, 0, grid)\n");
}

TEST(ChangeTaskParent, TakesATextThatIsNoNumberForTheTop) {
    TwoHouses plan;
    plan.col().ChangeTaskParent("4", String("shed"), "", "", "", True, "indent", "grid", True);
    EXPECT_EQ(plan["Door"].ParentID(), 0);
    EXPECT_FALSE(plan["Door"].TaskType());
    EXPECT_EQ(plan.Heard(), Costs(3, 1) + "Indented(4, shed, grid)\n");
}

TEST(ChangeTaskParent, ZeroesTheCostOfAParentWithoutChildren) {
    Plan plan;
    plan.Task("Phase").Task("Only").Under("Phase").From(Monday).Costing(10);
    Settle(plan, {"Phase"});
    plan.col().ChangeTaskParent("2", String("0"));
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(0));
    EXPECT_EQ(plan.Heard(), Costs(1, 0) + Costs(1, 0));
}

/// 1 Phase on Monday to Wednesday
/// 2 Group: Thursday and Friday
class PhaseAndGroup : public Plan {
public:
    PhaseAndGroup() {
        Task("Phase").From(Monday).Lasting(3).Task("Group").Task("Design").Under("Group").From(Thursday);
        Task("Build").Under("Group").From(Friday);
        Settle(*this, {"Group"});
    }
};

TEST(ChangeTaskParent, KeepsTheChildrenOfAnIndentedSummaryWhereTheyAre) {
    PhaseAndGroup plan;
    plan.col().ChangeTaskParent("2", String("1"), "", "", "", True, "indent", "grid");
    const Told group{.key = 2, .start = Monday, .end = Tuesday, .duration = 2, .parent = True};
    EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\n" + group.Moved() + Costs(2, 0) + Costs(1, 0) +
                                Summed(1, Monday, Tuesday, 2) + Moved(3, Thursday, Thursday, 1) +
                                Moved(4, Friday, Friday, 1) + Summed(2, Thursday, Friday, 2) +
                                Summed(1, Thursday, Friday, 2) + "Indented(2, 1, grid)\n");
}

TEST(ChangeTaskParent, KeepsMakingAPlainRowOfATaskWithChildren) {
    PhaseAndGroup plan;
    plan.col().ChangeTaskParent("2", String("1"), "", "", "", True);
    EXPECT_EQ(Family(plan), "1 Phase: Group\n2   -Group: Design Build\n3     -Design\n4     -Build\n");
    EXPECT_FALSE(plan.col().Summary("2"));
    plan.Heard();
}

TEST(ChangeTaskParent, KeepsTakingATaskOutOfTheListOfTheParentThatItHas) {
    TwoHouses plan;
    plan.col().ChangeTaskParent("4", String("3"), "", "", "", False, "", "", True);
    EXPECT_EQ(plan["Door"].ParentID(), 3);
    EXPECT_EQ(Listed(In(plan["Shed"]).Tasks()), "5");
    EXPECT_EQ(plan.Heard(), "IamASummary(3, True)\n" + Costs(3, 1));
}

TEST(ChangeTaskParent, TellsAnIndentToTheLetterOnly) {
    for (const char* action : {"", "Indent", "outdent"}) {
        Plan plan;
        plan.Task("Phase").Task("Design");
        plan.col().ChangeTaskParent("2", String("1"), "", "", "", True, action, "grid", True);
        EXPECT_EQ(plan.Heard(), "IamASummary(1, True)\n") << action;
    }
}

TEST(ChangeTaskParent, DoesNothingWithoutATask) {
    TwoHouses plan;
    const String before = Family(plan);
    EXPECT_EQ(plan.col().ChangeTaskParent("", String("1"), "3", "", "", True, "indent", "grid"), 0);
    EXPECT_EQ(Family(plan), before);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ChangeTaskParent, RecordsATaskThatIsNotThere) {
    TwoHouses plan;
    const String before = Family(plan);
    for (const char* parent : {"1", "0"}) {
        for (const char* old_parent : {"", "3", "0"}) {
            EXPECT_EQ(plan.col().ChangeTaskParent("77", String(parent), old_parent, "", "", True, "indent"), 0);
            EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeTaskParent 91\n") << parent << " " << old_parent;
        }
    }
    EXPECT_EQ(Family(plan), before);
    EXPECT_EQ(plan.Heard(), "");
}

TEST(ChangeTaskParent, KeepsWhatWasDoneWhenTheNewParentIsNotThere) {
    TwoHouses plan;
    EXPECT_EQ(plan.col().ChangeTaskParent("4", String("77"), "", "", "", True, "indent"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/ChangeTaskParent 91\n");
    EXPECT_EQ(plan["Door"].ParentID(), 77);
    EXPECT_EQ(Listed(In(plan["Shed"]).Tasks()), "5");
    EXPECT_EQ(plan.Heard(), "IamASummary(77, True)\n");
}

TEST(ChangeTaskParent, EndsWhenATaskComesBelowItself) {
    for (const char* parent : {"1", "2", "3"}) {
        SCOPED_TRACE(parent);
        Plan plan;
        plan.Task("A").From(Monday).Task("B").Under("A").From(Monday).Task("C").Under("B").From(Monday);
        const TimeLimit limit("a task below itself");
        plan.col().ChangeTaskParent("1", String(parent), "", "", "", True, "indent");
        EXPECT_EQ(plan["A"].ParentID(), KeyNumber(parent));
        EXPECT_NE(plan.failures.Taken(), "") << "no walk to the top ever arrives";
        plan.Heard();
    }
}

TEST(ChangeTaskParent, TellsASilencedHostTheDurationsAlone) {
    Plan plan;
    plan.Silenced().Task("Phase").From(Monday).Lasting(3).Task("Design").From(Friday);
    plan.col().ChangeTaskParent("2", String("1"), "", "", "", True, "indent", "grid");
    EXPECT_EQ(Family(plan), "1 Phase: Design\n2   -Design\n");
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(2, 1, days, False, False)\n"
              "TaskDurationChange(1, 1, days, False, True)\n");
}

TEST(ChangeTaskParent, SurvivesAListenerThatTakesTheTaskAway) {
    Plan plan;
    plan.Task("Phase").From(Monday).Task("Design").From(Friday);
    {
        const Interruption host(plan, "IamASummary", 1, [&] { plan.col().RemoveForLib("2"); });
        EXPECT_EQ(plan.col().ChangeTaskParent("2", String("1"), "", "", "", True, "indent"), 0);
    }
    plan.failures.Taken();
    EXPECT_EQ(plan.col().Count(True), 1);
    plan.Heard();
}

}  // namespace
}  // namespace mrlxmlclass
