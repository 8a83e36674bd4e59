#include <benchmark/benchmark.h>

#include <pugixml.hpp>

#include "bench/Bench.h"

namespace mrlxmlclass::bench {
namespace {

void BareParse(benchmark::State& state) {
    const String path = FileOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        pugi::xml_document document;
        benchmark::DoNotOptimize(document.load_file(path.c_str(), pugi::parse_full));
    }
    state.SetComplexityN(state.range(0));
}

void Load(benchmark::State& state) {
    const Ref<Application> app = TimeLoading(state, FileOf(static_cast<int>(state.range(0))));
    app->Init(True);
    const std::size_t before = HeapInUse();
    app->LoadXML();
    app->endreadonly();
    state.counters["bytes_a_task"] = static_cast<double>(HeapInUse() - before) / static_cast<double>(state.range(0));
    state.SetComplexityN(state.range(0));
}

/// What eleven whole serialisations and writes of the same document cost without anything else.
void BareElevenSaves(benchmark::State& state) {
    pugi::xml_document document;
    document.load_file(FileOf(static_cast<int>(state.range(0))).c_str(), pugi::parse_full);
    const String path = ScratchPath("bare.prx");
    for (auto _ : state) {
        for (int i = 0; i < 11; ++i) document.save_file(path.c_str(), "", pugi::format_raw);
    }
    state.SetComplexityN(state.range(0));
}

void Save(benchmark::State& state) {
    const Ref<Application> app = PlanOf(static_cast<int>(state.range(0)));
    app->xFileName(ScratchPath("saved.prx"));
    for (auto _ : state) {
        if (!app->SaveXml(False)) state.SkipWithError("the plan was not saved");
    }
    state.SetComplexityN(state.range(0));
}

#define SIZES ->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->Complexity()
BENCHMARK(BareParse) SIZES;
BENCHMARK(Load) SIZES;
BENCHMARK(BareElevenSaves) SIZES;
BENCHMARK(Save) SIZES;

}  // namespace
}  // namespace mrlxmlclass::bench
