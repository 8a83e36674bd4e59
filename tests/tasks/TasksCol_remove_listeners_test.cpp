#include <gtest/gtest.h>

#include "tests/support/Interruption.h"
#include "tests/tasks/Removals.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

/// Removes a task, or brings another listener, while it is being told of a deletion.
class Deleter : public TasksColEvents {
public:
    Deleter(Plan& plan, Long key) : plan_(plan), key_(key) { plan_.col().Events.Add(*this); }
    ~Deleter() override { plan_.col().Events.Remove(*this); }

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
    const Deleter meddler(plan, 2);
    Delete(plan, 2, True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, 0, 2, True)\nTaskDeleted(2, , 0, False)\n");
    EXPECT_EQ(Rows(plan.col()), "A1 C2");
    EXPECT_FALSE(Module().g_InAddOrRemove);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 2);
    EXPECT_EQ(plan.col().Add()->TaskKey(), 4);
}

TEST(RemoveTask, LetsAListenerRemoveAnotherTask) {
    ThreePhases plan;
    const Deleter meddler(plan, 3);
    Delete(plan, 2, True);
    EXPECT_EQ(plan.Heard(), "TaskDeleted(2, 0, 2, True)\nTaskDeleted(3, , 0, False)\nTaskDeleted(2, , 0, True)\n");
    EXPECT_EQ(Rows(plan.col()), "A1");
}

TEST(RemoveTask, LetsAListenerThatCameHearFromTheNextEventOn) {
    ThreePhases plan;
    EventLog newcomer;
    Deleter meddler(plan, 3);
    meddler.newcomer = &newcomer;
    Delete(plan, 2, True);
    EXPECT_EQ(newcomer.Taken(), "TaskDeleted(3, , 0, False)\nTaskDeleted(2, , 0, True)\n");
    plan.col().Events.Remove(newcomer);
}

TEST(DeleteAllSubTasks, GoesOnWhenAListenerRemovesTheNextChild) {
    OnePhase plan;
    const Deleter meddler(plan, plan.Number("Build"));
    EXPECT_EQ(Listed(plan.DeletePhase()), "2 3");
    EXPECT_EQ(Walked(plan.col()), "Last");
}

/// A candidate that another task waits for.
class Waiting : public Plan {
public:
    Waiting() {
        WithLinks().Task("A").From(Monday).Task("X").Candidate().Task("Z").After("X");
        col().SetPhases();
        Heard();
    }
};

TEST(RemoveTask, CountsACandidateOutBeforeItLeaves) {
    Waiting plan;
    const Interruption host(plan, "SucessorChange", 2, [&] { plan.col().RemoveForLib("2"); });
    Delete(plan, 2);
    EXPECT_EQ(plan.col().Count(True), 2);
    EXPECT_EQ(plan.col().Count(False), 2) << "though a listener was quicker";
    plan.Heard();
}

TEST(RemoveTask, KeepsCountingOutTwiceACandidateThatAListenerRemovesMeanwhile) {
    Waiting plan;
    const Interruption host(plan, "SucessorChange", 2, [&] { Delete(plan, 2); });
    Delete(plan, 2);
    EXPECT_EQ(plan.col().Count(True), 2);
    EXPECT_EQ(plan.col().Count(False), 3);
    plan.Heard();
}

TEST(RemoveTask, AsksAnewWhetherLinksAreLiveAfterItHasTold) {
    Plan plan;
    plan.WithLinks().Task("A").Task("B").Under("A").Task("C").After("B");
    plan.col().SetPhases();
    plan.Heard();
    const Interruption host(plan, "IamASummary", 1, [] { Module().BVersion = False; });
    Delete(plan, 2, True);
    EXPECT_TRUE(plan["C"].isPredecessor("2")) << "links are not live any more when it would be taken off";
    EXPECT_EQ(plan.Heard().find("Predecessor"), String::npos);
    EXPECT_FALSE(plan.col().Item(2));
}

}  // namespace
}  // namespace mrlxmlclass
