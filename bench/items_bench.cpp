#include <benchmark/benchmark.h>

#include <cstdlib>
#include <map>

#include "bench/Bench.h"
#include "mrlxmlclass/items/GoalsCol.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskGoalRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskObstaclesRelationCol.h"
#include "mrlxmlclass/items/obstaclesCol.h"

namespace mrlxmlclass::bench {
namespace {

constexpr int kTasksOfOne = 10;  ///< there is an item of each kind for so many tasks
constexpr int kTies = 2;         ///< relations of a task to each kind

/// A plan, and a person, a goal, an obstacle and a note for every ten tasks.
class Staffed {
public:
    explicit Staffed(int tasks) : app_(PlanOf(tasks)), tasks_(tasks), items_(tasks / kTasksOfOne) {
        for (int i = 0; i < items_; ++i) {
            people()->Add()->PersonName("Person number " + std::to_string(i));
            goals()->Add()->GoalName("Goal number " + std::to_string(i));
            obstacles()->Add()->ObstaclesName("Obstacle number " + std::to_string(i));
            const auto note = Make<NotesCls>();
            note->NoteDescription("Note number " + std::to_string(i));
            notes()->AddItem(note);
        }
    }

    Application& app() { return *app_; }
    void Assign() {
        ForAllTies([&](int task, int person) {
            people()->AssignePerson(std::to_string(person), task, app_->xTaskCol(), app_->xTaskPeopleRelationcol());
        });
    }
    void UnAssign() {
        ForAllTies([&](int task, int person) {
            people()->UnAssignePerson(person, task, app_->xTaskCol(), app_->xTaskPeopleRelationcol());
        });
    }
    void AssignGoals() {
        const auto relations = app_->xTaskGoalRelationcol();
        ForAllTies([&](int task, int goal) {
            goals()->AssigneGoal(std::to_string(goal), task, app_->xTaskCol(), relations);
            app_->xTaskCol()->AddGoals(task, relations->Item(relations->Count()), goals()->Item(goal));
        });
    }
    void UnAssignGoals() {
        const auto relations = app_->xTaskGoalRelationcol();
        int key = 0;
        ForAllTies([&](int task, int goal) {
            goals()->UnAssigneGoal(goal, task, app_->xTaskCol(), relations);
            app_->xTaskCol()->RemoveAssigendGoals(task, ++key, goal);
        });
    }
    /// People, goals, obstacles and notes.
    void AssignAll() {
        Assign();
        AssignGoals();
        const auto relations = app_->xTaskObstaclesRelationcol();
        ForAllTies([&](int task, int obstacle) {
            obstacles()->AssigneObstacles(std::to_string(obstacle), task, app_->xTaskCol(), relations);
            app_->xTaskCol()->AddObstacles(task, relations->Item(relations->Count()), obstacles()->Item(obstacle));
        });
        ForAllTies([&](int task, int note) {
            const auto relation = app_->xTaskNotesRelationcol()->Add();
            relation->TaskKey(task);
            relation->NoteKey(std::to_string(note));
            app_->xTaskCol()->AddNote(task, relation, notes()->Item(note));
        });
    }

private:
    Ref<PeopleCol> people() { return app_->xPeopleCol(); }
    Ref<GoalsCol> goals() { return app_->xGoalCol(); }
    Ref<obstaclesCol> obstacles() { return app_->xObstaclesCol(); }
    Ref<NotesCol> notes() { return app_->xNoteCol(); }
    template <class Tie>
    void ForAllTies(Tie&& tie) {
        for (int task = 1; task <= tasks_; ++task) {
            for (int i = 0; i < kTies; ++i) tie(task, 1 + (task + i * 7) % items_);
        }
    }

    Ref<Application> app_;
    int tasks_;
    int items_;
};

/// Times one step on a new plan each round; `before` is not timed.
template <class Before, class Step>
void TimeOnPlans(benchmark::State& state, Before&& before, Step&& step) {
    for (auto _ : state) {
        state.PauseTiming();
        {
            Staffed plan(static_cast<int>(state.range(0)));
            before(plan);
            state.ResumeTiming();
            step(plan);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
void Nothing(Staffed&) {}

void AssignPeople(benchmark::State& state) {
    TimeOnPlans(state, Nothing, [](Staffed& plan) { plan.Assign(); });
}
void UnAssignPeople(benchmark::State& state) {
    TimeOnPlans(
        state, [](Staffed& plan) { plan.Assign(); }, [](Staffed& plan) { plan.UnAssign(); });
}
void AssignGoals(benchmark::State& state) {
    TimeOnPlans(state, Nothing, [](Staffed& plan) { plan.AssignGoals(); });
}
void UnAssignGoals(benchmark::State& state) {
    TimeOnPlans(
        state, [](Staffed& plan) { plan.AssignGoals(); }, [](Staffed& plan) { plan.UnAssignGoals(); });
}

/// The path of the file of such a plan with all its items assigned, written at first use.
String FileOfStaffed(int tasks) {
    static std::map<int, String> files;
    String& path = files[tasks];
    if (path.empty()) {
        path = ScratchPath("staffed" + std::to_string(tasks) + ".prx");
        Staffed plan(tasks);
        plan.AssignAll();
        plan.app().xFileName(path);
        if (!plan.app().SaveXml(False)) std::abort();
    }
    return path;
}

void LoadRelations(benchmark::State& state) {
    TimeLoading(state, FileOfStaffed(static_cast<int>(state.range(0))));
    state.SetComplexityN(state.range(0));
}

void SaveRelations(benchmark::State& state) {
    Staffed plan(static_cast<int>(state.range(0)));
    plan.AssignAll();
    plan.app().xFileName(ScratchPath("saved.prx"));
    for (auto _ : state) {
        if (!plan.app().SaveXml(False)) state.SkipWithError("the plan was not saved");
    }
    state.SetComplexityN(state.range(0));
}

#define SIZES ->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity()
BENCHMARK(AssignPeople) SIZES;
BENCHMARK(UnAssignPeople) SIZES;
BENCHMARK(AssignGoals) SIZES;
BENCHMARK(UnAssignGoals) SIZES;
BENCHMARK(LoadRelations) SIZES->Arg(8000)->Arg(16000);
BENCHMARK(SaveRelations) SIZES->Arg(8000)->Arg(16000);

}  // namespace
}  // namespace mrlxmlclass::bench
