#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Adds a task as a reader does: its parent is only a number, no list knows it yet.
Ref<TasksCls> Read(Plan& plan, const String& name, Long parent, Long row) {
    plan.Task(name);
    const Ref<TasksCls> task = plan.col().Item(plan.Key(name));
    task->ParentID(parent);
    task->TaskPosition(row);
    return task;
}

TEST(AddTaskParentForAll, BuildsTheListsOfChildrenAndOfPhases) {
    Plan plan;
    Read(plan, "Phase", 0, 1);
    Read(plan, "A", 1, 2)->TaskType(True);
    Read(plan, "B", 1, 3)->TaskType(True);
    Read(plan, "Last", 0, 4);

    EXPECT_FALSE(plan.col().AddTaskParentForAll()) << "nothing to repair";

    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys(1)), "2 3");
    EXPECT_EQ(Listed(In(plan.col()).phases()), "1 4");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(AddTaskParentForAll, FindsARowThatIsMissing) {
    Plan plan;
    Read(plan, "A", 0, 1);
    Read(plan, "B", 0, 2);
    Read(plan, "C", 0, 4);
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
    EXPECT_TRUE(In(plan.col()).FixProject());
    EXPECT_EQ(Rows(plan.col()), "A1 B2 C3");
}

TEST(AddTaskParentForAll, FindsARowThatIsTakenTwice) {
    Plan plan;
    Read(plan, "A", 0, 1);
    Read(plan, "B", 0, 1);
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
}

TEST(AddTaskParentForAll, FindsATaskWithoutARow) {
    Plan plan;
    Read(plan, "A", 0, 1);
    Read(plan, "B", 0, -1);
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
}

TEST(AddTaskParentForAll, AsksForRepairWheneverThereAreCandidates) {
    Plan plan;
    Read(plan, "A", 0, 1);
    plan.Task("Kept aside").Candidate();
    EXPECT_TRUE(plan.col().AddTaskParentForAll()) << "a candidate has no row";
}

TEST(AddTaskParentForAll, CountsCandidatesRightTheSecondTimeToo) {
    Plan plan;
    Read(plan, "A", 0, 1);
    plan.Task("Kept aside").Candidate();
    plan.col().AddTaskParentForAll();
    EXPECT_EQ(plan.col().Count(), 1);
    plan.col().RemovePhase(Variant(1));
    plan.col().AddTaskParentForAll();
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(AddTaskParentForAll, GivesAParentBehindItsChildTheChildsRow) {
    Plan plan;
    Read(plan, "Child", 2, 1)->TaskType(True);
    Read(plan, "Parent", 0, 2);
    Read(plan, "Last", 0, 3);

    EXPECT_TRUE(plan.col().AddTaskParentForAll());
    In(plan.col()).FixProject();

    EXPECT_EQ(plan.Drawn(), "1 Parent\n2   Child\n3 Last\n");
    EXPECT_EQ(plan.Heard().substr(0, 12), "TaskInserted") << "making way tells a task with a name";
}

TEST(AddTaskParentForAll, EndsAtAParentThatIsNotThere) {
    Plan plan;
    Read(plan, "A", 0, 1);
    Read(plan, "Orphan", 77, 2);
    Read(plan, "Later", 1, 4);
    EXPECT_FALSE(plan.col().AddTaskParentForAll());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskParentForAll 91\n");
    EXPECT_FALSE(plan.col().isParent("1")) << "what comes behind is not read";
}

TEST(AddTaskParentForAll, RemembersTheDamageThatItFoundBeforeItEnded) {
    Plan plan;
    Read(plan, "A", 2, 1);  // above its parent
    Read(plan, "B", 0, 2);
    Read(plan, "Orphan", 77, 3);
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskParentForAll 91\n");
    plan.Heard();
}

TEST(AddTaskParentForAll, FindsTheSpanOfTheOutlineAndItsHolders) {
    Plan plan;
    plan.Task("A").From(Tuesday).To(Wednesday);
    plan.Task("B").From(Monday).To(Tuesday);
    plan.Task("C").From(Wednesday).To(Friday);
    plan.Task("Kept aside").From(Monday - 7).To(Friday + 7).Candidate();
    plan.Task("Undated");
    Module().g_MinDate = Module().g_MaxDate = Date();

    plan.col().AddTaskParentForAll();

    EXPECT_EQ(Module().g_MinDate, Date()) << "a task without a start holds the minimum";
    EXPECT_EQ(Module().g_MinDateTaskKey, plan.Number("Undated"));
    EXPECT_EQ(DayName(Module().g_MaxDate), DayName(Friday));
    EXPECT_EQ(Module().g_MaxDateTaskKey, plan.Number("C"));
}

TEST(AddTaskParentForAll, SurvivesARingOfParents) {
    Plan plan;
    Read(plan, "A", 2, 1);
    Read(plan, "B", 1, 2);
    plan.col().AddTaskParentForAll();
    EXPECT_NE(plan.failures.Taken().find(" 28\n"), String::npos);
    EXPECT_TRUE(plan.col().isParent("1"));
    EXPECT_TRUE(plan.col().isParent("2"));
    plan.Heard();
}

TEST(AddTaskParentForAll, SurvivesATaskThatIsItsOwnParent) {
    Plan plan;
    Read(plan, "A", 1, 1);
    EXPECT_FALSE(plan.col().AddTaskParentForAll());
    EXPECT_TRUE(plan.col().isParent("1"));
}

TEST(AddTaskParentForAll, StopsArrangingAPlanThatIsDamagedThroughout) {
    constexpr int kTasks = 6'000;
    Plan plan;
    for (int i = 1; i <= kTasks; ++i) Read(plan, "T", i % kTasks + 1, i);  // each the child of the next: a ring
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskParentForAll 28\n");

    In(plan.col()).FixProject();
    Long row = 0;
    for (const auto& entry : plan.col().NewEnum()) EXPECT_EQ(entry.item->TaskPosition(), row += 1);
    EXPECT_EQ(row, kTasks);
    plan.Heard();
}

TEST(AddTaskParentForAll, ArrangesEveryChildOfALargePlanWithoutARing) {
    constexpr int kPairs = 800;
    Plan plan;
    for (int row = 1; row < 2 * kPairs; row += 2) {
        Read(plan, "Child", row + 1, row)->TaskType(True);
        Read(plan, "Parent", 0, row + 1);
    }
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
    In(plan.col()).FixProject();
    int behind = 0;
    for (int key = 1; key < 2 * kPairs; key += 2) {
        behind += plan.col().Item(key)->TaskPosition() == plan.col().Item(key + 1)->TaskPosition() + 1 ? 1 : 0;
    }
    EXPECT_EQ(behind, kPairs);
    plan.Heard();
}

TEST(AddTaskParentForAll, ArrangesWhatStandsOutsideOfARing) {
    constexpr int kRing = 3'000;
    Plan plan;
    for (int i = 1; i <= kRing; ++i) Read(plan, "T", i % kRing + 1, i);
    Read(plan, "Child", kRing + 2, kRing + 1)->TaskType(True);
    Read(plan, "Parent", 0, kRing + 2);
    Read(plan, "Last", 0, kRing + 3);
    plan.Heard();
    EXPECT_TRUE(plan.col().AddTaskParentForAll());
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddTaskParentForAll 28\n");
    EXPECT_TRUE(plan.Heard().ends_with("TaskInserted(" + plan.Key("Child") + ", " + plan.Key("Parent") + ", 0)\n"));
}

TEST(AddTaskParentForAll, ReadsADeepOutlineOnASmallStack) {
    dom::OnSmallStack([] {
        constexpr int kDeep = 30'000;
        Plan plan;
        for (int i = 1; i <= kDeep; ++i) Read(plan, std::to_string(i), i - 1, i);
        EXPECT_FALSE(plan.col().AddTaskParentForAll());
        EXPECT_EQ(plan.col().GetLevel(std::to_string(kDeep)), kDeep - 1);
    });
}

TEST(FixProject, NumbersTheOutlineInItsOrderAndLeavesCandidates) {
    Plan plan;
    Read(plan, "A", 0, 7);
    Read(plan, "B", 0, -3);
    plan.Task("Kept aside").Candidate();
    Read(plan, "C", 0, 12);
    EXPECT_TRUE(In(plan.col()).FixProject());
    EXPECT_EQ(Rows(plan.col()), "B1 Kept aside0 A2 C3");
}

TEST(FixProject, NumbersTasksThatShareARowInTheirOrderAmongTheCandidates) {
    Plan two;
    two.Task("First aside").Candidate().Task("Second aside").Candidate();
    Read(two, "A", 0, 1);
    Read(two, "B", 0, 1);
    EXPECT_TRUE(In(two.col()).FixProject());
    EXPECT_EQ(two["A"].TaskPosition(), 1);
    EXPECT_EQ(two["B"].TaskPosition(), 2);

    Plan one;
    Read(one, "A", 0, 1);
    Read(one, "B", 0, 1);
    Read(one, "C", 0, 2);
    one.Task("Aside").Candidate();
    EXPECT_TRUE(In(one.col()).FixProject());
    EXPECT_EQ(Rows(one.col()), "Aside0 A1 B2 C3");
}

}  // namespace
}  // namespace mrlxmlclass
