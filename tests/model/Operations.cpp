#include "tests/model/Operations.h"

#include <stdexcept>

namespace mrlxmlclass::model {
namespace {

const std::vector<Operation>& AllOperations() {
    static const std::vector<Operation> kAll = [] {
        std::vector<Operation> all;
        for (const auto group : {OutlineOperations(), MoveOperations(), DateOperations(), LinkOperations(),
                                 ItemOperations(), QuestionOperations(), OtherOperations()}) {
            all.insert(all.end(), group.begin(), group.end());
        }
        return all;
    }();
    return kAll;
}

/// A link of the plan, the task that waits first; no tasks where there is none.
std::pair<int, int> DrawLink(const World& world, testing::Draws& draws) {
    std::vector<std::pair<int, int>> links;
    const std::vector<int> numbers = world.InOutline();
    for (const int waiting : numbers) {
        for (const int predecessor : numbers) {
            if (In(world.Numbered(waiting)).HasPredecessor(KeyText(KeyOf(*world.Numbered(predecessor))))) {
                links.emplace_back(waiting, predecessor);
            }
        }
    }
    return links.empty() ? std::pair(0, 0) : draws.One(links);
}

}  // namespace

const Operation& OperationNamed(std::string_view name) {
    for (const Operation& operation : AllOperations()) {
        if (operation.name == name) return operation;
    }
    throw std::invalid_argument("no such operation: " + String(name));
}

const Operation& DrawOperation(testing::Draws& draws) {
    static const int kWeights = [] {
        int sum = 0;
        for (const Operation& operation : AllOperations()) sum += operation.weight;
        return sum;
    }();
    int left = draws.From(1, kWeights);
    for (const Operation& operation : AllOperations()) {
        left -= operation.weight;
        if (left <= 0) return operation;
    }
    return AllOperations().back();
}

Step DrawStep(const Operation& operation, const World& world, testing::Draws& draws) {
    const std::vector<int> rows = world.InOutline();
    const auto any = [&] { return rows.empty() ? 0 : draws.One(rows); };
    Step step{operation.name, 0, 0, draws.From(operation.first, operation.last)};
    switch (operation.about) {
        case About::kNone:
            break;
        case About::kNewTask:
            step.task = world.NextNumber();
            step.other = any();
            break;
        case About::kTask:
            step.task = any();
            break;
        case About::kTwoTasks:
            step.task = any();
            step.other = any();
            break;
        case About::kLink:
            std::tie(step.task, step.other) = DrawLink(world, draws);
            break;
        case About::kCandidate: {
            const std::vector<int> candidates = world.Candidates();
            step.task = candidates.empty() ? 0 : draws.One(candidates);
            break;
        }
    }
    return step;
}

bool Act(World& world, const Step& step) {
    const Operation& operation = OperationNamed(step.operation);
    Edit edit{world, step, world.Numbered(step.task), world.Numbered(step.other)};
    const auto in_outline = [](const Ref<TasksCls>& task) { return task && task->TaskCondidat(); };
    bool makes_sense = true;
    switch (operation.about) {
        case About::kNone:
            break;
        case About::kNewTask:
            if (!in_outline(edit.other)) edit.other = {};
            makes_sense = !edit.task;
            break;
        case About::kTask:
            makes_sense = in_outline(edit.task);
            break;
        case About::kTwoTasks:
        case About::kLink:
            makes_sense = in_outline(edit.task) && in_outline(edit.other);
            break;
        case About::kCandidate:
            makes_sense = edit.task && !in_outline(edit.task);
            break;
    }
    world.running = step.operation;
    return makes_sense && operation.act(edit);
}

}  // namespace mrlxmlclass::model
