#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/tasks/Removals.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(RemoveTask, KeepsItsFlagUpAfterAnUnknownKey) {
    ThreePhases plan;
    plan.col().Remove(77, {}, {}, {}, {}, {}, {}, True);
    plan.col().Remove("", {}, {}, {}, {}, {}, {}, True);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.col().Count(True), 3);
    EXPECT_TRUE(Module().g_InAddOrRemove);

    plan.col().SetNumberOFCondidat(False);
    EXPECT_EQ(plan.col().Count(), 3) << "the flip of a host is not counted";

    plan.col().Remove(plan.Key("A"), {}, {}, {}, {}, {}, {});
    plan.col().SetNumberOFCondidat(False);
    EXPECT_EQ(plan.col().Count(), 1) << "until the next task is removed";

    plan.col().Remove(77, {}, {}, {}, {}, {}, {}, True);
    plan.col().AddItem(Make<TasksCls>());
    plan.col().SetNumberOFCondidat(False);
    EXPECT_EQ(plan.col().Count(), 1) << "or added, which makes two that count";
}

TEST(RemoveTask, MakesACandidateUnlessItIsForced) {
    ThreePhases plan;
    plan["B"].ParentID(1);
    plan.col().Remove(plan.Key("B"), {}, {}, {}, {}, {}, {});

    EXPECT_EQ(plan.col().Count(True), 3);
    EXPECT_EQ(plan.col().Count(), 2);
    EXPECT_EQ(plan.col().GetValidTaskNumber(), 2);
    const TasksCls& candidate = plan["B"];
    EXPECT_FALSE(candidate.TaskCondidat());
    EXPECT_TRUE(candidate.TaskType());
    EXPECT_EQ(candidate.ParentID(), 0);
    EXPECT_EQ(candidate.TaskPosition(), 0);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, , 0, False)\n");
    EXPECT_FALSE(Module().g_InAddOrRemove);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 4) << "the key of a candidate stays taken";
}

TEST(RemoveTask, CountsACandidateOnce) {
    ThreePhases plan;
    plan.col().Remove(2, {}, {}, {}, {}, {}, {});
    plan.col().Remove(2, {}, {}, {}, {}, {}, {});
    EXPECT_EQ(plan.col().Count(), 2);
}

TEST(RemoveTask, KeepsACandidateInTheListOfItsFormerParent) {
    OnePhase plan;
    plan.col().Remove(plan.Key("Build"), {}, {}, {}, {}, {}, {});
    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys(1)), "3 2");
}

TEST(RemoveTask, KeepsACandidateThatIsDeletedForGoodLaterInThatListToo) {
    OnePhase plan;
    plan.col().Remove(plan.Key("Design"), {}, {}, {}, {}, {}, {});
    Delete(plan, plan.Key("Design"));
    EXPECT_FALSE(plan.col().GetTasksAsKeys("1"));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetTasksAsKeys 91\n");
    EXPECT_TRUE(plan.col().RemoveParentTask("1", "2"));
    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys("1")), "3");
}

TEST(RemoveTask, DeletesForGoodAndFreesTheKey) {
    ThreePhases plan;
    Delete(plan, 2);
    EXPECT_FALSE(plan.col().Item(2));
    EXPECT_EQ(plan.col().Count(True), 2);
    EXPECT_EQ(plan.col().Count(), 2);
    EXPECT_EQ(Listed(In(plan.col()).phases()), "1 3");
    EXPECT_EQ(Rows(plan.col()), "A1 C3") << "without arranging the gap stays";
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, , 0, False)\n");
    EXPECT_EQ(plan.col().Add()->TaskKey(), 2);
}

TEST(RemoveTask, TakesAChildOutOfItsParentSilently) {
    OnePhase plan;
    Delete(plan, plan.Key("Design"));
    EXPECT_EQ(Listed(plan.col().GetTasksAsKeys(1)), "3");
    EXPECT_EQ(plan["Phase"].TaskCost(), Currency(30)) << "nothing is rolled up";
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, , 0, False)\n");
}

TEST(RemoveTask, KeepsParentAndRowOutOfTheSecondEvent) {
    OnePhase plan;
    Delete(plan, plan.Key("Design"), True);
    EXPECT_EQ(plan.Heard(),
              "DurationChange(1, 1, days, False, True)\n"
              "TaskDurationChange(1, 1, days, False, True)\n"
              "DateEndChange(1, -, False, True, days)\n"
              "DateStartChange(1, -, False, True)\n"
              "RoolUpCostChange(1, 20)\n"
              "IamASummary(1, True)\n"
              "TaskDeleted(2, 1, 2, True)\n"
              "TaskDeleted(2, , 0, True)\n");
    EXPECT_EQ(Rows(plan.col()), "Phase1 Build2 Last3");
}

TEST(RemoveTask, ArrangesForACandidateToo) {
    ThreePhases plan;
    plan.col().Remove(plan.Key("A"), {}, {}, {}, {}, {}, {}, False, False, True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(1, 0, 1, True)\nTaskDeleted(1, , 0, True)\n");
    EXPECT_EQ(Rows(plan.col()), "A0 B1 C2");
}

TEST(RemoveTask, DeletesACandidateWithoutArranging) {
    ThreePhases plan;
    plan.col().Remove(2, {}, {}, {}, {}, {}, {});
    plan.Heard();
    Delete(plan, 2, True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, , 0, True)\n");
    EXPECT_EQ(plan.col().Count(True), 2);
    EXPECT_EQ(plan.col().Count(), 2);
}

TEST(RemoveTask, SortsByRowWhenItIsAskedTo) {
    ThreePhases plan;
    plan["A"].TaskPosition(9);
    Delete(plan, 2, False, True);
    EXPECT_EQ(Walked(plan.col()), "C A");
}

TEST(RemoveTask, WorksForASilencedHostTheSame) {
    Plan plan;
    plan.Silenced().Task("A").Task("B");
    plan.col().SetPhases();
    Delete(plan, 1, True);
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Rows(plan.col()), "B1");
    EXPECT_EQ(plan.col().Add()->TaskKey(), 1);
}

TEST(RemoveTask, RecordsAMissingListOfPhasesAndGoesOn) {
    Plan plan;
    plan.Task("A");
    Delete(plan, 1);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemovePhase 91\n");
    EXPECT_EQ(plan.col().Count(True), 0);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(1, , 0, False)\n");
}

TEST(RemoveTask, LowersItsFlagWhenItFails) {
    ThreePhases plan;
    plan.col().Remove(plan.app, {}, {}, {}, {}, {}, {});
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/Remove 13\n");
    EXPECT_FALSE(Module().g_InAddOrRemove);
}

TEST(RemoveTask, FreesNoKeyTwice) {
    ThreePhases plan;
    Delete(plan, 2);
    auto copy = Make<TasksCls>();
    copy->TaskKey(2);
    plan.col().AddItem(copy);
    Delete(plan, 2);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 2);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 4);
}

struct Caches {
    Long max_holder;
    Long min_holder;
    bool max_known;
    bool min_known;
};

TEST(RemoveTask, ForgetsTheDatesThatItsTaskHeldOrThatNobodyHolds) {
    for (const Caches& after : {Caches{2, 2, true, true}, Caches{1, 2, false, true}, Caches{2, 1, true, false},
                                Caches{1, 1, false, false}, Caches{0, 0, false, false}}) {
        SCOPED_TRACE(std::to_string(after.max_holder.value()) + " and " + std::to_string(after.min_holder.value()));
        ThreePhases plan;
        ModuleState& module = Module();
        module.g_MaxDate = Friday;
        module.g_MinDate = Monday;
        module.g_MaxDateTaskKey = after.max_holder;
        module.g_MinDateTaskKey = after.min_holder;
        Delete(plan, 1);
        EXPECT_EQ(module.g_MaxDate.set(), after.max_known);
        EXPECT_EQ(module.g_MinDate.set(), after.min_known);
        EXPECT_EQ(module.g_MaxDateTaskKey, after.max_known ? 2 : 0);
        EXPECT_EQ(module.g_MinDateTaskKey, after.min_known ? 2 : 0);
    }
}

TEST(RemoveTask, UntiesTheRelationsThatAreGivenWhenItDeletes) {
    ThreePhases plan;
    const OwnLists ties(plan, plan["B"]);
    plan.col().Remove(2, ties.assigments, {}, ties.goals, {}, ties.obstacles, {}, False);
    EXPECT_EQ(ties.Left(), "111") << "a candidate stays tied";
    plan.col().Remove(2, ties.assigments, {}, {}, {}, ties.obstacles, {}, True);
    EXPECT_EQ(ties.Left(), "010") << "what is not given is left alone";
}

TEST(RemoveRelation, UntiesATaskThatStays) {
    ThreePhases plan;
    const OwnLists ties(plan, plan["B"]);
    plan.col().RemoveRelation(2, ties.assigments, {}, ties.goals, {}, ties.obstacles, {});
    EXPECT_EQ(ties.Left(), "111") << "only by force";
    plan.col().RemoveRelation(77, ties.assigments, {}, ties.goals, {}, ties.obstacles, {}, True);
    EXPECT_EQ(ties.Left(), "111");
    plan.col().RemoveRelation(2, ties.assigments, {}, ties.goals, {}, ties.obstacles, {}, True);
    EXPECT_EQ(ties.Left(), "000");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(Rows(plan.col()), "A1 B2 C3");
}

TEST(RemoveForLib, TakesTheTaskOutAndTouchesNothingElse) {
    OnePhase plan;
    plan.col().RemoveForLib(plan.Key("Phase"));
    plan.col().RemoveForLib(77);
    EXPECT_FALSE(plan.col().Item(1));
    EXPECT_EQ(plan["Design"].ParentID(), 1) << "a parent that finds nothing";
    EXPECT_EQ(Rows(plan.col()), "Design2 Build3 Last4");
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(plan.col().Add("")->TaskKey(), 5) << "the key is not freed";
}

}  // namespace
}  // namespace mrlxmlclass
