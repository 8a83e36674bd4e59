#include <benchmark/benchmark.h>

#include <string>

#include "bench/Bench.h"
#include "bench/Floor.h"

namespace mrlxmlclass::bench {
namespace {

const Date kMonday = Date::Of(2026, 3, 2);

/// Hears every event of a task collection.
class Counter : public TasksColEvents {
public:
    void DateStartChange(Long, Date, Boolean, Boolean) override { ++heard_; }
    void DateEndChange(Long, Date, Boolean, Boolean, const String&) override { ++heard_; }
    void DurationChange(Long, Double, const String&, Boolean, Boolean) override { ++heard_; }
    void TaskDurationChange(Long, Double, const String&, Boolean, Boolean) override { ++heard_; }
    void AssigmentChange(Long, const String&) override { ++heard_; }
    void GoalChange(Long, const String&) override { ++heard_; }
    void ObstaclesChange(Long, const String&) override { ++heard_; }
    void NoteChange(Long, const String&) override { ++heard_; }
    void RoolUpCostChange(Long, const Variant&) override { ++heard_; }
    void PredecessorChange(Long, const String&) override { ++heard_; }
    void SucessorChange(Long, const String&) override { ++heard_; }
    void LagTimeChange(Long, const Variant&) override { ++heard_; }
    void PredecessorKeyChange(Long, const String&, const String&) override { ++heard_; }
    void IamASummary(Long, Boolean) override { ++heard_; }
    void TaskInserted(Long, const String&, Long) override { ++heard_; }
    void TaskDeleted(Long, const String&, Long, Boolean) override { ++heard_; }
    void TaskNameChanged(Long, const String&) override { ++heard_; }
    void Indented(Long, const String&, const String&) override { ++heard_; }
    void Outented(Long, const String&, const String&, const String&) override { ++heard_; }
    void UpDown(Boolean, Long, const String&, const String&, Boolean, const String&) override { ++heard_; }
    void CompletedChange(Long, Integer) override { ++heard_; }
    std::int64_t heard() const { return heard_; }

private:
    std::int64_t heard_ = 0;
};

/// A plan with live links and one listener.
class Schedule {
public:
    Schedule() : app_(PlanOf(0)), col_(app_->xTaskCol()) {
        col_->AutoLink(True);
        col_->Events.Add(counter_);
    }
    ~Schedule() { col_->Events.Remove(counter_); }
    Schedule(const Schedule&) = delete;
    Schedule& operator=(const Schedule&) = delete;

    TasksCol& col() { return *col_; }
    void Report(benchmark::State& state, std::int64_t tasks) const {
        state.counters["ns_a_task"] =
            benchmark::Counter(static_cast<double>(tasks) * 1e-9,
                               benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
        state.counters["events"] =
            benchmark::Counter(static_cast<double>(counter_.heard()), benchmark::Counter::kAvgIterations);
    }

    Long Add(Date start, Long parent = 0) {
        const Ref<TasksCls> task = col_->Add("");
        task->TaskPosition(col_->Count());
        if (parent != 0) {
            task->ParentID(parent);
            task->TaskType(True);
            col_->AddParentTask(parent, task->TaskKey());
        }
        task->TaskEDate(start);
        task->TaskBDate(start);
        task->TaskDuration(1);
        return task->TaskKey();
    }
    /// Stored from inside: linking through the public operation would move dates at every link.
    void Link(Long predecessor, Long successor, int gap) {
        const auto text = [](Long key) { return KeyText(key).text(); };
        col_->Item(successor)->TaskPredecessor()->Add(text(predecessor), predecessor);
        col_->Item(predecessor)->TaskSuccessor()->Add(text(successor), successor);
        col_->AddLeadTime(text(successor), text(predecessor), gap);
    }
    void Chain(int tasks, int gap) {
        Long before;
        for (int i = 0; i < tasks; ++i) {
            const Long key = Add(kMonday);
            if (before != 0) Link(before, key, gap);
            before = key;
        }
    }
    /// One summary over phases, each over tasks of a day.
    void Outline(int phases, int tasks) {
        const Long top = Add(kMonday);
        for (int phase = 0; phase < phases; ++phase) {
            const Long summary = Add(kMonday, top);
            for (int i = 0; i < tasks; ++i) Add(kMonday + 7 * (i % 40), summary);
        }
        for (int phase = 0; phase < phases; ++phase) col_->AdjustSummary(KeyText(Long(2 + phase * (tasks + 1))).text());
    }

private:
    Ref<Application> app_;
    Ref<TasksCol> col_;
    Counter counter_;
};

/// A Monday and the one after it in turn, from the later one: no round finds everything where it wants it.
class EveryOtherMonday {
public:
    Date operator()() { return kMonday + (later_ = 7 - later_); }

private:
    int later_ = 0;
};

void FloorChain(benchmark::State& state) {
    Floor floor = Floor::Chain(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    int day = 0;
    for (auto _ : state) benchmark::DoNotOptimize(floor.Reschedule(day ^= 7));
    state.counters["ns_a_task"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void ChainWalk(benchmark::State& state) {
    Schedule schedule;
    schedule.Chain(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    EveryOtherMonday monday;
    for (auto _ : state) schedule.col().DependsDateChanged(Long(1), monday(), 1);
    schedule.Report(state, state.range(0));
}

void OutlineWalkDown(benchmark::State& state) {
    Schedule schedule;
    const auto phases = static_cast<int>(state.range(0));
    const auto tasks = static_cast<int>(state.range(1));
    schedule.Outline(phases, tasks);
    EveryOtherMonday monday;
    for (auto _ : state) schedule.col().SummaryTaskDateChanged2("1", monday());
    schedule.Report(state, std::int64_t{phases} * (tasks + 1) + 1);
}

/// Phases of ten tasks, the last task of each before the first of the next.
void LinksAcrossSummaries(benchmark::State& state) {
    Schedule schedule;
    Long last;
    for (int phase = 0; phase < state.range(0); ++phase) {
        const Long summary = schedule.Add(kMonday);
        for (int i = 0; i < 10; ++i) {
            const Long task = schedule.Add(kMonday, summary);
            if (last != 0) schedule.Link(last, task, -1);
            last = task;
        }
    }
    EveryOtherMonday monday;
    for (auto _ : state) schedule.col().DependsDateChanged(Long(2), monday(), 1);
    schedule.Report(state, state.range(0) * 11);
}

void ResetStartDateOfAll(benchmark::State& state) {
    Schedule schedule;
    schedule.Outline(static_cast<int>(state.range(0)) / 100, 100);
    double shift = 7;
    for (auto _ : state) schedule.col().ResetStartDate(shift = -shift);
    schedule.Report(state, state.range(0));
}

void AdjustCostOfOne(benchmark::State& state) {
    Schedule schedule;
    schedule.Outline(static_cast<int>(state.range(0)) / 100, 100);
    for (auto _ : state) schedule.col().AdjustCost("3");
    schedule.Report(state, 3);
}

/// A link made and taken off again in the middle of a chain.
void LinkAndUnlink(benchmark::State& state) {
    Schedule schedule;
    const auto tasks = static_cast<int>(state.range(0));
    schedule.Chain(tasks, -1);
    const String middle = std::to_string(tasks / 2);
    const String behind = std::to_string(tasks / 2 + 2);
    for (auto _ : state) {
        schedule.col().RemoveTaskPredecessor(std::to_string(tasks / 2 + 1), middle);
        schedule.col().AddTaskPredecessor(std::to_string(tasks / 2 + 1), middle);
    }
    schedule.Report(state, 1);
}

/// A late task comes before a chain, and goes again: all of the chain moves behind it, and back by the date of its
/// first task.
void LinkThatMovesWhatFollows(benchmark::State& state) {
    Schedule schedule;
    const auto tasks = static_cast<int>(state.range(0));
    schedule.Chain(tasks, -1);
    const String late = std::to_string(tasks + 1);
    schedule.Add(kMonday + 7);
    for (auto _ : state) {
        schedule.col().AddTaskPredecessor("1", late, /*FirstTime=*/True);
        schedule.col().RemoveTaskPredecessor("1", late);
        schedule.col().DependsDateChanged(Long(1), kMonday, 1);
    }
    schedule.Report(state, 2 * tasks);
}

/// A task moved up past the one before it and down again, in the middle of a chain.
void MoveUpAndDown(benchmark::State& state) {
    Schedule schedule;
    const auto tasks = static_cast<int>(state.range(0));
    schedule.Chain(tasks, -1);
    const int row = tasks / 2;
    const Ref<TasksCls> above = schedule.col().Item(Long(row));
    const Ref<TasksCls> task = schedule.col().Item(Long(row + 1));
    const String key = std::to_string(row + 1);
    for (auto _ : state) {
        for (const bool up : {true, false}) {
            task->TaskPosition(up ? row : row + 1);
            above->TaskPosition(up ? row + 1 : row);
            schedule.col().MoveTaskUpOrDown(key, up, "0", "0", /*ChangingParent=*/False);
        }
    }
    schedule.Report(state, 1);
}

/// A task indented and outdented again in the middle of an outline.
void IndentAndOutdent(benchmark::State& state) {
    Schedule schedule;
    const auto tasks = static_cast<int>(state.range(0));
    for (int i = 0; i < tasks; ++i) schedule.Add(kMonday);
    const String task = std::to_string(tasks / 2 + 1);
    const String parent = std::to_string(tasks / 2);
    for (auto _ : state) {
        schedule.col().ChangeTaskParent(task, String(parent), "0", "", "", True, "indent");
        schedule.col().ChangeRemoveTaskParent(task, "0", parent);
    }
    schedule.Report(state, 1);
}

#define CHAINS              \
    ->Args({100, 0})        \
        ->Args({999, 0})    \
        ->Args({2500, 0})   \
        ->Args({100, -1})   \
        ->Args({1000, -1})  \
        ->Args({10000, -1}) \
        ->Args({30000, -1})
BENCHMARK(FloorChain) CHAINS;
BENCHMARK(ChainWalk) CHAINS;
BENCHMARK(OutlineWalkDown)->Args({10, 10})->Args({10, 100})->Args({100, 100})->Args({10, 1000})->Args({30, 1000});
BENCHMARK(LinksAcrossSummaries)->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(ResetStartDateOfAll)->Arg(1000)->Arg(10000)->Arg(30000);
BENCHMARK(AdjustCostOfOne)->Arg(100)->Arg(10000);
BENCHMARK(LinkAndUnlink)->Arg(100)->Arg(10000);
BENCHMARK(LinkThatMovesWhatFollows)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(MoveUpAndDown)->Arg(100)->Arg(10000);
BENCHMARK(IndentAndOutdent)->Arg(100)->Arg(10000);

}  // namespace
}  // namespace mrlxmlclass::bench
