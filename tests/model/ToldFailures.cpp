#include "tests/model/ToldFailures.h"

#include <algorithm>
#include <limits>
#include <sstream>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/model/Invariants.h"

namespace mrlxmlclass::model {
namespace {

using Facts = ToldFailures::Facts;

struct Reason {
    std::string_view failure;
    std::initializer_list<std::string_view> operations;
    bool (*holds)(const Facts& facts);
};

bool NoPhaseList(const Facts& facts) {
    return !facts.has_phases;
}
bool PhasesStand(const Facts& facts) {
    return facts.has_phases;
}
bool Undated(const Facts& facts) {
    return facts.undated;
}
bool EndsFarOff(const Facts& facts) {
    return facts.ends_far_off;
}
bool NoneAbove(const Facts& facts) {
    return facts.none_above;
}
bool AnotherNoneAbove(const Facts& facts) {
    return facts.another_none_above;
}
bool Always(const Facts& /*facts*/) {
    return true;
}
bool PhaseListed(const Facts& facts) {
    return facts.phase_listed;
}

/// Whether a task has children, and waits for nothing that stands above it.
bool HasNoneAbove(const World& world, const Ref<TasksCls>& task) {
    if (!In(task).HasChildren()) return false;
    return std::ranges::none_of(In(task).PredecessorKeys(), [&](const auto& key) {
        const Ref<TasksCls> predecessor = world.col().Item(key);
        return predecessor && predecessor->TaskPosition() < task->TaskPosition();
    });
}

/// What moves tasks along links and below summaries.
const std::initializer_list<std::string_view> kWalks = {
    "ChangeDuration", "Follow",  "Indent",  "Link",   "Milestone", "MoveEnd", "MoveInto",        "MoveStart",
    "MoveSummary",    "Outdent", "PutLast", "Remove", "DeleteAll", "Shift",   "ShiftAlongLinks", "Splice",
};

const Reason kReasons[] = {
    // There is no list of phases to take the task out of.
    {"TasksCol/RemovePhase 91", {"RemovePhase", "Remove", "RemoveAndClose", "DeleteAll"}, NoPhaseList},
    // A phase is listed once.
    {"TasksCol/AddPhase 457", {"AddPhase"}, PhaseListed},
    {"TasksCol/AddPhase 457", {"Rebuild"}, PhasesStand},
    // The shift of a task without a start counts from day 0, and one that waits for a task without an end loses its
    // dates and counts to day 0: too far for an Integer, and the end of that part of the walk.
    {"TasksCol/DependsDateChanged 6", kWalks, Undated},
    {"TasksCol/SummaryTaskDateChanged2 6", kWalks, Undated},
    {"TasksCol/AdjustDate 6", kWalks, Undated},
    // One more predecessor puts a task behind the nearest above it, and where none stands above on day 0.
    {"TasksCol/SummaryTaskDateChanged2 6", {"Link", "Splice"}, NoneAbove},
    // What waited for a task that leaves waits for its predecessor instead.
    {"TasksCol/SummaryTaskDateChanged2 6", {"Remove", "DeleteAll", "PutLast"}, AnotherNoneAbove},
    // The first link of a summary without a start shifts it by as much.
    {"TasksCol/AddTaskPredecessor 6", {"Link", "Splice", "Indent", "Outdent"}, Undated},
    // The new end lies as far from none.
    {"TasksCol/DurationChanged 6", {"ChangeDuration"}, Undated},
    // From an end that months carried on over a century it is as far back.
    {"TasksCol/DurationChanged 6", {"ChangeDuration"}, EndsFarOff},
    // A gap that comes out too wide is widened until no date is left, and so is one that comes out too narrow.
    {"TasksCol/ResetStartDatefordependency2 6", {"ShiftOneByOne"}, Always},
};

}  // namespace

ToldFailures::ToldFailures(World& world) : world_(world) {
    facts_.has_phases = static_cast<bool>(In(world.col()).phases());
    facts_.undated = AnyUndated(world);
    facts_.ends_far_off = std::ranges::any_of(world.Rows(), [](const auto& task) {
        return task->TaskEDate().days() - task->TaskBDate().days() > std::numeric_limits<std::int16_t>::max();
    });
}

void ToldFailures::Check(const Step& step, const String& recorded) const {
    Facts facts = facts_;
    facts.undated = facts.undated || AnyUndated(world_);
    if (const Ref<TasksCls> task = world_.Numbered(step.task)) {
        const Ref<Collection> phases = In(world_.col()).phases();
        facts.phase_listed = phases && phases->Has(KeyOf(*task));
        facts.none_above = HasNoneAbove(world_, task);
    }
    facts.another_none_above = std::ranges::any_of(world_.Rows(), [&](const auto& task) {
        return !In(task).PredecessorKeys().empty() && HasNoneAbove(world_, task);
    });
    std::istringstream lines(recorded);
    for (String line; std::getline(lines, line);) {
        const bool told = std::ranges::any_of(kReasons, [&](const Reason& reason) {
            return reason.failure == line && reason.holds(facts) &&
                   std::ranges::find(reason.operations, step.operation) != reason.operations.end();
        });
        if (!told) world_.Complain("failure", String(step.operation) + " recorded " + line);
    }
}

}  // namespace mrlxmlclass::model
