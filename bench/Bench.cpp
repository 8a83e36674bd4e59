#include "bench/Bench.h"

#include <malloc.h>

#include <cstdlib>
#include <filesystem>
#include <map>

namespace mrlxmlclass::bench {
namespace {

constexpr int kTasksInPhase = 100;

class Scratch {
public:
    Scratch() {
        String pattern = (std::filesystem::temp_directory_path() / "mrlxmlclass_bench_XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        folder_ = pattern;
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    String Path(const String& name) const { return folder_ + "/" + name; }

private:
    String folder_;
};

}  // namespace

String ScratchPath(const String& name) {
    static const Scratch scratch;
    return scratch.Path(name);
}

Ref<Application> PlanOf(int tasks) {
    auto app = Make<Application>();
    app->SetErrorFileName(ScratchPath("errors.xml"));
    app->Init(/*BVersion=*/True);
    const Ref<TasksCol> plan = app->xTaskCol();
    const Date first = Date::Of(2026, 3, 2);
    Long phase;
    for (int i = 0; i < tasks; ++i) {
        const Ref<TasksCls> task = plan->Add("");
        task->TaskPosition(i + 1);
        task->TaskName("Task number " + std::to_string(i));
        if (i % kTasksInPhase == 0) {
            phase = task->TaskKey();
        } else {
            task->ParentID(phase);
            task->TaskType(True);
            plan->AddParentTask(phase, task->TaskKey());
        }
        task->TaskEDate(first + i % 300);
        task->TaskBDate(first + i % 300);
        task->TaskDuration(1 + i % 9);
        task->TaskPercentDone(i % 101);
        task->TaskCost(Currency(i));
    }
    return app;
}

String FileOf(int tasks) {
    static std::map<int, String> files;
    String& path = files[tasks];
    if (path.empty()) {
        path = ScratchPath("plan" + std::to_string(tasks) + ".prx");
        const Ref<Application> app = PlanOf(tasks);
        app->xFileName(path);
        if (!app->SaveXml(False)) std::abort();
    }
    return path;
}

Ref<Application> TimeLoading(benchmark::State& state, const String& path) {
    auto app = Make<Application>();
    app->SetErrorFileName(ScratchPath("errors.xml"));
    app->Init(True);
    app->xFileName(path);
    for (auto _ : state) {
        if (!app->LoadXML()) state.SkipWithError("the plan did not load");
        app->endreadonly();
    }
    return app;
}

std::size_t HeapInUse() {
    return mallinfo2().uordblks;
}

}  // namespace mrlxmlclass::bench
