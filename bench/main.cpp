#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

/// Prints what is measured, and at the end the ratios that count.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const auto a_task = run.counters.find("ns_a_task");
            times_[run.benchmark_name()] =
                a_task != run.counters.end() ? a_task->second.value : run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void Finalize() override {
        Ratio("Load/10000", "BareParse/10000", "at most 5");
        Ratio("Save/10000", "BareElevenSaves/10000", "at most 1.5");
        Ratio("Load/30000", "Load/1000", "linear: 30");
        Ratio("Save/30000", "Save/1000", "linear: 30");
        Ratio("Add/30000", "Add/1000", "linear: 30");
        Ratio("AddItem/30000", "AddItem/1000", "linear: 30");
        Ratio("AddTaskParentForAll/30000", "AddTaskParentForAll/1000", "linear: 30");
        Ratio("ItemByNumber/30000", "ItemByNumber/1000", "constant: 1");
        Ratio("ItemByText/30000", "ItemByText/1000", "constant: 1");
        for (const char* chain : {"100/0", "999/0", "2500/0", "100/-1", "1000/-1", "10000/-1", "30000/-1"}) {
            Ratio("ChainWalk/" + std::string(chain), "FloorChain/" + std::string(chain), "a task; at most 30");
        }
        Ratio("OutlineWalkDown/10/10", "FloorChain/100/-1", "a task; at most 30");
        Ratio("OutlineWalkDown/10/100", "FloorChain/1000/-1", "a task; at most 30");
        Ratio("OutlineWalkDown/100/100", "FloorChain/10000/-1", "a task; at most 30");
        Ratio("OutlineWalkDown/10/1000", "FloorChain/10000/-1", "a task; at most 30");
        Ratio("OutlineWalkDown/30/1000", "FloorChain/30000/-1", "a task; at most 30");
        Ratio("ChainWalk/30000/-1", "ChainWalk/1000/-1", "a task; linear: 1");
        Ratio("OutlineWalkDown/10/1000", "OutlineWalkDown/10/100", "a task; linear: 1");
        Ratio("OutlineWalkDown/100/100", "OutlineWalkDown/10/100", "a task; linear: 1");
        Ratio("OutlineWalkDown/30/1000", "OutlineWalkDown/10/100", "a task; linear: 1");
        Ratio("LinksAcrossSummaries/1000", "LinksAcrossSummaries/100", "a task; linear: 1");
        Ratio("LinkThatMovesWhatFollows/10000", "LinkThatMovesWhatFollows/1000", "a task; linear: 1");
        Ratio("ResetStartDateOfAll/30000", "ResetStartDateOfAll/1000", "a task; linear: 1");
        for (const char* of :
             {"AssignPeople", "UnAssignPeople", "AssignGoals", "UnAssignGoals", "LoadRelations", "SaveRelations"}) {
            Ratio(std::string(of) + "/10000", std::string(of) + "/1000", "two relations a task; linear: 10");
        }
        // From where the plan no longer fits into the processor's caches.
        for (const char* of : {"LoadRelations", "SaveRelations"}) {
            Ratio(std::string(of) + "/16000", std::string(of) + "/8000", "two relations a task; linear: 2");
        }
        ConsoleReporter::Finalize();
    }

private:
    void Ratio(const std::string& measured, const std::string& against, const char* wanted) const {
        const auto over = times_.find(measured);
        const auto under = times_.find(against);
        if (over == times_.end() || under == times_.end()) return;
        std::printf("%-28s / %-28s = %7.2f  (%s)\n", measured.c_str(), against.c_str(), over->second / under->second,
                    wanted);
    }

    std::map<std::string, double> times_;  ///< of a task where the benchmark tells it
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
