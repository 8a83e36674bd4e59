#include "tests/model/ToldDates.h"

#include <algorithm>

namespace mrlxmlclass::model {
namespace {

constexpr std::string_view kTellDates[] = {
    "AdjustSummary", "ChangeDuration", "Milestone", "MoveEnd",         "MoveStart",     "MoveSummary",
    "RollUp",        "RollUpOne",      "Shift",     "ShiftAlongLinks", "ShiftOneByOne", "Rename",
};

}  // namespace

ToldDates::ToldDates(World& world) : world_(world) {
    world.heard.clear();
    for (const auto& entry : world.col().NewEnum()) {
        before_[entry.item->TaskKey()] = {entry.item->TaskBDate(), entry.item->TaskEDate()};
    }
}

void ToldDates::Check(std::string_view operation, bool failed) const {
    const bool tells = std::ranges::find(kTellDates, operation) != std::end(kTellDates);
    if (!tells || failed || world_.setting.silent) return;
    for (const auto& entry : world_.col().NewEnum()) {
        const TasksCls& task = *entry.item;
        const auto& [start, end] = before_.at(task.TaskKey());
        const World::Heard& heard = world_.heard[task.TaskKey()];
        if (task.TaskBDate() != start && heard.start != task.TaskBDate()) {
            world_.Complain("told dates", Named(task) + " starts on " + testing::DayName(task.TaskBDate()) + " untold");
        }
        if (task.TaskEDate() != end && heard.end != task.TaskEDate()) {
            world_.Complain("told dates", Named(task) + " ends on " + testing::DayName(task.TaskEDate()) + " untold");
        }
    }
}

}  // namespace mrlxmlclass::model
