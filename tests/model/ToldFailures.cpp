#include "tests/model/ToldFailures.h"

#include <algorithm>
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
bool Undated(const Facts& facts) {
    return facts.undated;
}
bool NoneAbove(const Facts& facts) {
    return facts.none_above;
}
bool Always(const Facts& /*facts*/) {
    return true;
}
bool PhaseListed(const Facts& facts) {
    return facts.phase_listed;
}

/// What moves tasks along links and below summaries.
const std::initializer_list<std::string_view> kWalks = {
    "ChangeDuration", "Follow",  "Indent", "Link",      "Milestone", "MoveEnd",         "MoveInto", "MoveStart",
    "MoveSummary",    "Outdent", "Remove", "DeleteAll", "Shift",     "ShiftAlongLinks", "Splice",
};

const Reason kReasons[] = {
    // There is no list of phases to take the task out of.
    {"TasksCol/RemovePhase 91", {"RemovePhase", "Remove", "RemoveAndClose", "DeleteAll"}, NoPhaseList},
    // A phase is listed once.
    {"TasksCol/AddPhase 457", {"AddPhase"}, PhaseListed},
    // The shift of a task without a start counts from day 0, and one that waits for a task without an end loses its
    // dates and counts to day 0: too far for an Integer, and the end of that part of the walk.
    {"TasksCol/DependsDateChanged 6", kWalks, Undated},
    {"TasksCol/SummaryTaskDateChanged2 6", kWalks, Undated},
    {"TasksCol/AdjustDate 6", kWalks, Undated},
    // One more predecessor puts a task behind the nearest above it, and where none stands above on day 0.
    {"TasksCol/SummaryTaskDateChanged2 6", {"Link", "Splice"}, NoneAbove},
    // The first link of a summary without a start shifts it by as much.
    {"TasksCol/AddTaskPredecessor 6", {"Link", "Splice", "Indent", "Outdent"}, Undated},
    // The new end lies as far from none.
    {"TasksCol/DurationChanged 6", {"ChangeDuration"}, Undated},
    // A gap that comes out too wide is widened until no date is left, and so is one that comes out too narrow.
    {"TasksCol/ResetStartDatefordependency2 6", {"ShiftOneByOne"}, Always},
};

}  // namespace

ToldFailures::ToldFailures(World& world) : world_(world) {
    facts_.has_phases = static_cast<bool>(In(world.col()).phases());
    facts_.undated = AnyUndated(world);
}

void ToldFailures::Check(const Step& step, const String& recorded) const {
    Facts facts = facts_;
    facts.undated = facts.undated || AnyUndated(world_);
    if (const Ref<TasksCls> task = world_.Numbered(step.task)) {
        const Ref<Collection> phases = In(world_.col()).phases();
        facts.phase_listed = phases && phases->Has(KeyOf(*task));
        facts.none_above =
            In(task).HasChildren() && std::ranges::none_of(In(task).PredecessorKeys(), [&](const auto& key) {
                return world_.col().Item(key)->TaskPosition() < task->TaskPosition();
            });
    }
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
