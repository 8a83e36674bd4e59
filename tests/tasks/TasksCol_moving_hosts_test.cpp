#include <gtest/gtest.h>

#include <functional>

#include "tests/support/Links.h"

/// Hosts that start another project at the first event that they hear: the plan that tells them has no other owner.
namespace mrlxmlclass {
namespace {

using namespace testing;

class Restless : public TasksColEvents {
public:
    explicit Restless(Plan& plan) : plan_(plan) { plan.col().Events.Add(*this); }
    void DateStartChange(Long, Date, Boolean, Boolean) override { Restart(); }
    void TaskDurationChange(Long, Double, const String&, Boolean, Boolean) override { Restart(); }
    void RoolUpCostChange(Long, const Variant&) override { Restart(); }
    void PredecessorChange(Long, const String&) override { Restart(); }
    void SucessorChange(Long, const String&) override { Restart(); }
    void IamASummary(Long, Boolean) override { Restart(); }
    void TaskNameChanged(Long, const String&) override { Restart(); }

private:
    void Restart() {
        if (!std::exchange(done_, true)) plan_.app->Init(True);
    }

    Plan& plan_;
    bool done_ = false;
};

struct MovingOperation {
    const char* name;
    std::function<void(TasksCol& col)> call;
    const char* last_event;
};

TEST(TasksColOperations, GoToTheirEndUnderAHostThatStartsAnotherProject) {
    const std::vector<MovingOperation> operations = {
        {"indent", [](TasksCol& col) { col.ChangeTaskParent("4", String("1"), "", "", "", True, "indent"); },
         "Indented(4, 1, )\n"},
        {"outdent", [](TasksCol& col) { col.ChangeRemoveTaskParent("3", "0", "1"); }, "Outented(3, 0, 1, )\n"},
        {"down", [](TasksCol& col) { col.MoveTaskUpOrDown("2", False, "1", "1"); },
         "UpDown(False, 2, 1, 1, False, )\n"},
        {"name", [](TasksCol& col) { col.ChangeName("2", "Plan"); }, "TaskDurationChange(2, 1, days, False, False)\n"},
        {"milestone", [](TasksCol& col) { col.SeTAsMilstones(Ref<TasksCol>(&col), "3"); }, "DateStartChange("},
        {"remove", [](TasksCol& col) { col.Remove("3", {}, {}, {}, {}, {}, {}, True, True, True); },
         "TaskDeleted(3, , 0, True)\n"},
        {"remove all", [](TasksCol& col) { col.DeleteAllSubTasks("1", {}, {}, {}, {}, {}, {}, True, True); },
         "TaskDeleted(1, , 0, True)\n"},
        {"link", [](TasksCol& col) { col.AddTaskPredecessor("5", "4", True); }, "SucessorChange(4, 5)\n"},
        {"rows", [](TasksCol& col) { col.ArrangePred("4", "3"); }, "PredecessorKeyChange(3, 2, remove)\n"},
        {"row", [](TasksCol& col) { col.SetPredSucByPos(4); }, "SucessorChange("},
        {"free", [](TasksCol& col) { col.RemoveAllTaskPredecessor("2"); }, "PredecessorKeyChange(3, 2, remove)\n"},
        {"cost", [](TasksCol& col) { col.RollUpCostChangedImdParent("2", 5); }, "RoolUpCostChange(2, 5)\n"},
        {"shift", [](TasksCol& col) { col.ResetStartDate(1); }, "DateEndChange(5, "},
    };
    for (const MovingOperation& operation : operations) {
        SCOPED_TRACE(operation.name);
        LinkingPlan plan;
        plan.Task("House").Task("Design").Under("House").From(Monday);
        plan.Task("Build").Under("House").From(Tuesday).After("Design").Task("Test").From(Monday).Task("Last");
        plan.About("Last").From(Monday);
        plan.col().AdjustSummary("1");
        plan.col().SetPhases();
        plan.Heard();
        Restless host(plan);
        operation.call(plan.col());
        const String heard = plan.Heard();
        EXPECT_EQ(plan.col().Count(True), 0) << "the new project";
        const std::size_t last = heard.rfind('\n', heard.size() - 2) + 1;
        EXPECT_EQ(heard.substr(last).substr(0, String(operation.last_event).size()), operation.last_event);
    }
}

}  // namespace
}  // namespace mrlxmlclass
