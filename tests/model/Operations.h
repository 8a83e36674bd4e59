#pragma once

#include <span>

#include "tests/model/World.h"
#include "tests/support/Draws.h"

namespace mrlxmlclass::model {

/// An edit at work: the tasks of its step, which stand in the plan, and its number.
struct Edit {
    World& world;
    const Step& step;
    Ref<TasksCls> task;
    Ref<TasksCls> other;

    TasksCol& col() const { return world.col(); }
    String key() const { return KeyOf(*task); }
    String other_key() const { return KeyOf(*other); }
    String parent_key() const { return KeyText(task->ParentID()).text(); }
    int number() const { return step.number; }
    /// A bit of the number.
    Boolean Is(int bit) const { return ((step.number >> bit) & 1) != 0; }
    /// A day of the plan.
    Date Day() const { return Monday + step.number; }
};

/// Which tasks an edit is about.
enum class About { kNone, kNewTask, kTask, kTwoTasks, kLink, kCandidate };

struct Operation {
    std::string_view name;
    int weight;  ///< how often it is drawn, beside the others
    About about;
    int first;  ///< the numbers that are drawn
    int last;
    /// False where it makes no sense in this plan, which it leaves as it is then.
    bool (*act)(const Edit& edit);
};

// Each group in the file of its name.
std::span<const Operation> OutlineOperations();
std::span<const Operation> MoveOperations();
std::span<const Operation> DateOperations();
std::span<const Operation> LinkOperations();
std::span<const Operation> ItemOperations();
std::span<const Operation> QuestionOperations();
std::span<const Operation> OtherOperations();

const Operation& OperationNamed(std::string_view name);

/// By their weights.
const Operation& DrawOperation(testing::Draws& draws);
/// A step that may make sense in a plan.
Step DrawStep(const Operation& operation, const World& world, testing::Draws& draws);

/// Runs a step; false where it made no sense.
bool Act(World& world, const Step& step);

}  // namespace mrlxmlclass::model
