#include <benchmark/benchmark.h>

#include "bench/Bench.h"

namespace mrlxmlclass::bench {
namespace {

void Add(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const Ref<Application> app = PlanOf(0);
        state.ResumeTiming();
        for (std::int64_t i = 0; i < state.range(0); ++i) app->xTaskCol()->Add();
    }
    state.SetComplexityN(state.range(0));
}

void AddItem(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const Ref<Application> app = PlanOf(0);
        const auto task = Make<TasksCls>();
        state.ResumeTiming();
        for (std::int64_t i = 0; i < state.range(0); ++i) app->xTaskCol()->AddItem(task);
    }
    state.SetComplexityN(state.range(0));
}

void ItemByNumber(benchmark::State& state) {
    const Ref<Application> app = PlanOf(static_cast<int>(state.range(0)));
    const Ref<TasksCol> plan = app->xTaskCol();
    std::int64_t key = 0;
    for (auto _ : state) {
        key = key % state.range(0) + 1;
        benchmark::DoNotOptimize(plan->Item(Long(key)));
    }
}

void ItemByText(benchmark::State& state) {
    const Ref<Application> app = PlanOf(static_cast<int>(state.range(0)));
    const Ref<TasksCol> plan = app->xTaskCol();
    const String key = std::to_string(state.range(0) / 2);
    for (auto _ : state) benchmark::DoNotOptimize(plan->Item(key));
}

void AddTaskParentForAll(benchmark::State& state) {
    const Ref<Application> app = PlanOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        app->xTaskCol()->SetPhases();  // takes the phases that the last round filed out again
        state.ResumeTiming();
        app->xTaskCol()->AddTaskParentForAll();
    }
    state.SetComplexityN(state.range(0));
}

#define SIZES ->Arg(1000)->Arg(10000)->Arg(30000)
BENCHMARK(Add) SIZES->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(AddItem) SIZES->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(ItemByNumber) SIZES;
BENCHMARK(ItemByText) SIZES;
BENCHMARK(AddTaskParentForAll) SIZES->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace mrlxmlclass::bench
