#include "tests/model/Running.h"

#include "tests/model/Invariants.h"
#include "tests/model/Operations.h"
#include "tests/model/Span.h"
#include "tests/model/ToldDates.h"
#include "tests/model/ToldFailures.h"
#include "tests/support/Links.h"

namespace mrlxmlclass::model {
namespace {

constexpr int kFewestTasks = 2;  // to begin with
constexpr int kMostTasks = 9;
constexpr int kFewestEdits = 10;
constexpr int kMostEdits = 40;

/// A plan and the script that it went through.
class Running {
public:
    explicit Running(const Setting& setting) : world_(setting) { run_.done.setting = setting; }

    /// False when something did not hold.
    bool Take(const Step& step) {
        const ToldFailures told(world_);
        const ToldDates told_dates(world_);
        const KnownSpan span(world_);
        const bool makes_sense = Act(world_, step);
        const String recorded = world_.failures.Taken();
        told.Check(step, recorded);
        if (!makes_sense && !world_.complaint()) return true;
        world_.ForgetGone();
        span.Check(step.operation);
        told_dates.Check(step.operation, !recorded.empty());
        CheckPlan(world_);
        const String later = world_.failures.Taken();
        if (!later.empty()) world_.Complain("failure", "recorded by questions: " + later);
        run_.done.steps.push_back(step);
        if (!world_.complaint()) return true;
        run_.complaint = world_.complaint();
        return false;
    }
    const World& world() const { return world_; }
    String Drawn() const { return world_.Drawn() + testing::Links(world_); }
    Outcome run() && { return std::move(run_); }

private:
    World world_;
    Outcome run_;
};

}  // namespace

Outcome RunSeed(unsigned seed) {
    testing::Draws draws(seed);
    const Setting setting{.links = !draws.OneIn(5), .auto_link = !draws.OneIn(8), .silent = draws.OneIn(8)};
    Running running(setting);
    const int tasks = draws.From(kFewestTasks, kMostTasks);
    const int edits = draws.From(kFewestEdits, kMostEdits);
    for (int done = 0; done < tasks + edits; ++done) {
        const Operation& operation = done < tasks ? OperationNamed("Add") : DrawOperation(draws);
        if (!running.Take(DrawStep(operation, running.world(), draws))) return std::move(running).run();
    }
    running.Take({.operation = "SaveLoadSave"});
    return std::move(running).run();
}

Outcome RunScript(const Script& script) {
    Running running(script.setting);
    for (const Step& step : script.steps) {
        if (!running.Take(step)) break;
    }
    return std::move(running).run();
}

String PlanAfter(const Script& script) {
    Running running(script.setting);
    for (const Step& step : script.steps) running.Take(step);
    return running.Drawn();
}

}  // namespace mrlxmlclass::model
