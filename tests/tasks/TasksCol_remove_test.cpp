#include <gtest/gtest.h>

#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Deletes for good, with nothing to untie.
void Delete(Plan& plan, const Variant& key, Boolean arrange = False, Boolean sort = False) {
    plan.col().Remove(key, {}, {}, {}, {}, {}, {}, True, sort, arrange);
}

/// Three tasks on rows 1 to 3, the phases listed.
class ThreePhases : public Plan {
public:
    ThreePhases() {
        Task("A").Task("B").Task("C");
        col().SetPhases();
        Heard();
    }
};

/// 1 Phase (costs 30)
/// 2   Design (10)
/// 3   Build (20)
/// 4 Last
class OnePhase : public Plan {
public:
    OnePhase() {
        Task("Phase").Costing(30).Task("Design").Under("Phase").Costing(10).Task("Build").Under("Phase").Costing(20);
        Task("Last");
        col().SetPhases();
        Heard();
    }
    Ref<Collection> DeletePhase(Boolean arrange = False, Boolean force = False) {
        return col().DeleteAllSubTasks(Key("Phase"), app->xTaskPeopleRelationcol(), app->xPeopleCol(),
                                       app->xTaskGoalRelationcol(), app->xGoalCol(), app->xTaskObstaclesRelationcol(),
                                       app->xObstaclesCol(), force, arrange);
    }
};

template <class Relations>
void Tie(const Ref<Relations>& relations, Long task_key) {
    relations->Add()->TaskKey(task_key);
}

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

/// Ties a task to an obstacle, a goal and a person by its own lists, so that only untying it by name finds them.
struct OwnLists {
    OwnLists(Plan& plan, TasksCls& task)
        : assigments(plan.app->xTaskPeopleRelationcol()),
          goals(plan.app->xTaskGoalRelationcol()),
          obstacles(plan.app->xTaskObstaclesRelationcol()) {
        task.TaskPeopleRelation()->AddItem(assigments->Add());
        task.TaskGoalRelation()->AddItem(goals->Add());
        task.TaskObstaclesRelation()->AddItem(obstacles->Add());
    }
    String Left() const {
        const auto count = [](Long value) { return std::to_string(value.value()); };
        return count(assigments->Count()) + count(goals->Count()) + count(obstacles->Count());
    }
    Ref<TaskAssigmentRelationCol> assigments;
    Ref<TaskGoalRelationCol> goals;
    Ref<TaskObstaclesRelationCol> obstacles;
};

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

TEST(DeleteAllSubTasks, DeletesBottomUpAndGivesTheChildren) {
    OnePhase plan;
    plan.Task("Detail").Under("Design");
    plan["Detail"].TaskPosition(5);

    const Ref<Collection> deleted = plan.DeletePhase();

    EXPECT_EQ(Listed(deleted), "2 3");
    EXPECT_TRUE(deleted->Has("3"));
    EXPECT_EQ(plan.Heard(),
              "TaskDeleted(5, , 0, False)\n"
              "TaskDeleted(2, , 0, False)\n"
              "TaskDeleted(3, , 0, False)\n"
              "TaskDeleted(1, , 0, False)\n");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

TEST(DeleteAllSubTasks, ClosesTheOutlineAtEachTask) {
    OnePhase plan;
    plan.DeletePhase(True);
    EXPECT_EQ(plan.Drawn(), "1 Last\n");
}

TEST(DeleteAllSubTasks, SortsByRowAtTheEnd) {
    OnePhase plan;
    plan.Task("First");
    plan["First"].TaskPosition(0);
    plan.DeletePhase();
    EXPECT_EQ(Walked(plan.col()), "First Last");
}

TEST(DeleteAllSubTasks, MakesCandidatesOfWhatARelationHolds) {
    OnePhase plan;
    Tie(plan.app->xTaskObstaclesRelationcol(), plan.Number("Design"));
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Build"));
    Tie(plan.app->xTaskPeopleRelationcol(), plan.Number("Phase"));
    EXPECT_EQ(Listed(plan.DeletePhase()), "2 3");
    EXPECT_EQ(Rows(plan.col()), "Phase0 Build0 Design0 Last4") << "the heap's order of equal rows";
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(DeleteAllSubTasks, KeepsDecidingByTheRelationsWhateverTheCallerForces) {
    OnePhase plan;
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Build"));
    Tie(plan.app->xTaskPeopleRelationcol(), plan.Number("Phase"));
    plan.DeletePhase(/*arrange=*/False, /*force=*/True);
    EXPECT_EQ(Rows(plan.col()), "Build0 Phase0 Last4");
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(DeleteAllSubTasks, CountsASummaryThatBecomesACandidateOnce) {
    OnePhase plan;
    plan.Task("Detail").Under("Design");
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Design"));
    plan.DeletePhase();
    EXPECT_EQ(plan.col().Count(True), 2);
    EXPECT_EQ(plan.col().Count(), 1);
}

TEST(DeleteAllSubTasks, KeepsTellingTwiceOfASummaryThatBecomesACandidate) {
    OnePhase plan;
    plan.Task("Detail").Under("Design");
    Tie(plan.app->xTaskGoalRelationcol(), plan.Number("Design"));
    plan.DeletePhase();
    EXPECT_EQ(plan.Heard(),
              "TaskDeleted(5, , 0, False)\n"
              "TaskDeleted(2, , 0, False)\n"
              "TaskDeleted(2, , 0, False)\n"
              "TaskDeleted(3, , 0, False)\n"
              "TaskDeleted(1, , 0, False)\n");
}

TEST(DeleteAllSubTasks, KeepsItsFlagUpAfterASummaryBelow) {
    OnePhase plan;
    plan.Task("Detail").Under("Build");
    plan["Detail"].TaskPosition(5);
    Boolean flag_while_told = False;
    struct Listener : TasksColEvents {
        explicit Listener(Boolean& flag) : flag_(flag) {}
        void TaskDeleted(Long, const String&, Long, Boolean) override { flag_ = Module().g_InAddOrRemove; }
        Boolean& flag_;
    } listener(flag_while_told);
    plan.col().Events.Add(listener);
    plan.DeletePhase();
    EXPECT_TRUE(flag_while_told);
    EXPECT_FALSE(Module().g_InAddOrRemove) << "the last removal lowers it";
    plan.col().Events.Remove(listener);
}

TEST(DeleteAllSubTasks, KeepsTheObstaclesOwnRecordsOnTheWayDown) {
    OnePhase plan;
    const OwnLists below(plan, plan["Design"]);
    plan.DeletePhase();
    EXPECT_EQ(below.Left(), "001");

    OnePhase again;
    const OwnLists top(again, again["Phase"]);
    again.DeletePhase();
    EXPECT_EQ(top.Left(), "000");
}

TEST(DeleteAllSubTasks, RecordsAnUnknownTask) {
    ThreePhases plan;
    EXPECT_FALSE(plan.col().DeleteAllSubTasks(77, {}, {}, {}, {}, {}, {}, True, True));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DeleteAllSubTasks 91\n");
    EXPECT_EQ(plan.col().Count(True), 3);
}

TEST(DeleteAllSubTasks, EndsInARing) {
    Plan plan;
    BuildRing(plan);
    plan.Task("Last");
    plan.col().SetPhases();
    plan.col().DeleteAllSubTasks(1, {}, {}, {}, {}, {}, {}, True, False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DeleteAllSubTasks 28\n");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

TEST(DeleteAllSubTasks, EndsAtATaskThatIsItsOwnChild) {
    Plan plan;
    BuildSelfParent(plan);
    plan.Task("Last");
    plan.col().SetPhases();
    plan.col().DeleteAllSubTasks(1, {}, {}, {}, {}, {}, {}, True, True);
    EXPECT_NE(plan.failures.Taken().find("TasksCol/DeleteAllSubTasks 28\n"), String::npos);
    EXPECT_EQ(Walked(plan.col()), "Last");
}

TEST(DeleteAllSubTasks, DeletesADeepOutlineOnASmallStack) {
    // Each summary sorts the whole plan, so the outline is shallower than elsewhere, and so is the stack.
    const auto delete_chain = [] {
        Plan plan;
        BuildChain(plan, 400);
        plan.col().SetPhases();
        EXPECT_EQ(Listed(plan.col().DeleteAllSubTasks(1, {}, {}, {}, {}, {}, {}, True, False)), "2");
        EXPECT_EQ(plan.col().Count(True), 0);
        plan.Heard();
    };
    dom::OnSmallStack(delete_chain, std::size_t{1} << 18U);
}

/// Removes a task, or brings another listener, while it is being told of a deletion.
class Meddler : public TasksColEvents {
public:
    Meddler(Plan& plan, Long key) : plan_(plan), key_(key) { plan_.col().Events.Add(*this); }
    ~Meddler() override { plan_.col().Events.Remove(*this); }

    void TaskDeleted(Long, const String&, Long, Boolean) override {
        if (std::exchange(done_, true)) return;
        if (newcomer != nullptr) plan_.col().Events.Add(*newcomer);
        Delete(plan_, key_);
    }
    TasksColEvents* newcomer = nullptr;

private:
    Plan& plan_;
    Long key_;
    bool done_ = false;
};

TEST(RemoveTask, EndsSilentlyWhenAListenerWasQuicker) {
    ThreePhases plan;
    const Meddler meddler(plan, 2);
    Delete(plan, 2, True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, 0, 2, True)\nTaskDeleted(2, , 0, False)\n");
    EXPECT_EQ(Rows(plan.col()), "A1 C2");
    EXPECT_FALSE(Module().g_InAddOrRemove);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 2);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 4);
}

TEST(RemoveTask, LetsAListenerRemoveAnotherTask) {
    ThreePhases plan;
    const Meddler meddler(plan, 3);
    Delete(plan, 2, True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, 0, 2, True)\nTaskDeleted(3, , 0, False)\nTaskDeleted(2, , 0, True)\n");
    EXPECT_EQ(Rows(plan.col()), "A1");
}

TEST(RemoveTask, LetsAListenerThatCameHearFromTheNextEventOn) {
    ThreePhases plan;
    EventLog newcomer;
    Meddler meddler(plan, 3);
    meddler.newcomer = &newcomer;
    Delete(plan, 2, True);
    EXPECT_EQ(newcomer.Taken(), "TaskDeleted(3, , 0, False)\nTaskDeleted(2, , 0, True)\n");
    plan.col().Events.Remove(newcomer);
}

TEST(DeleteAllSubTasks, GoesOnWhenAListenerRemovesTheNextChild) {
    OnePhase plan;
    const Meddler meddler(plan, plan.Number("Build"));
    EXPECT_EQ(Listed(plan.DeletePhase()), "2 3");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

}  // namespace
}  // namespace mrlxmlclass
