#include "tests/model/Span.h"

#include <algorithm>

#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass::model {
namespace {

/// Kept: a first task without a date makes the span begin with none, and a later one ends it there.
template <class Pick, class Better>
Date Extreme(const World& world, Pick&& pick, Better&& better) {
    std::optional<Date> extreme;
    for (const auto& entry : world.col().NewEnum()) {
        if (!entry.item->TaskCondidat()) continue;
        if (!extreme || better(pick(*entry.item), *extreme)) extreme = pick(*entry.item);
    }
    return extreme && extreme->set() ? *extreme : Platform().clock.Now().day();
}

constexpr std::string_view kSetNoDate[] = {
    "AddPhase",      "AdjustCost",   "Ask",         "AskGap",         "AskPhases",
    "AskValidTasks", "Assign",       "CopyByText",  "Cost",           "Done",
    "DropBackward",  "DropLead",     "Exception",   "FreeSuccessors", "Holiday",
    "Lag",           "MeasureLeads", "NoHoliday",   "ReadRows",       "RemovePhase",
    "Rename",        "RenamePerson", "ReplaceCost", "RollUpCost",     "RollUpCostOfParent",
    "SetLead",       "SetPhases",    "Sort",        "TakeRest",       "Tie",
    "Unassign",      "Unit",         "Unlink",      "Untie",          "Weekday",
};

}  // namespace

Date FirstDay(const World& world) {
    return Extreme(
        world, [](const TasksCls& task) { return task.TaskBDate(); }, std::less<>());
}

Date LastDay(const World& world) {
    return Extreme(
        world, [](const TasksCls& task) { return task.TaskEDate(); }, std::greater<>());
}

void CheckSpan(World& world) {
    ModuleState& module = Module();
    for (const Long holder : {module.g_MinDateTaskKey, module.g_MaxDateTaskKey}) {
        const Ref<TasksCls> task = world.col().Item(holder);
        if (holder != 0 && (!task || !task->TaskCondidat())) {
            world.Complain("span", "held by task " + KeyText(holder).text() + ", which is not in the outline");
        }
    }
    const auto kept = std::tuple(module.g_MinDate, module.g_MinDateTaskKey, module.g_MaxDate, module.g_MaxDateTaskKey);
    module.g_MaxDate = Date();
    const Date first = world.col().GetMinDate(True);
    const Date last = world.app->MaxDate();
    std::tie(module.g_MinDate, module.g_MinDateTaskKey, module.g_MaxDate, module.g_MaxDateTaskKey) = kept;
    if (first != FirstDay(world)) world.Complain("span", "begins on " + testing::DayName(FirstDay(world)));
    if (last != LastDay(world)) world.Complain("span", "ends on " + testing::DayName(LastDay(world)));
}

KnownSpan::KnownSpan(World& world) : world_(world) {}

KnownSpan::Known KnownSpan::Now() {
    const ModuleState& module = Module();
    return {module.g_MinDate, module.g_MinDateTaskKey, module.g_MaxDate, module.g_MaxDateTaskKey};
}

void KnownSpan::Check(std::string_view operation) const {
    const Known now = Now();
    if (std::ranges::find(kSetNoDate, operation) != std::end(kSetNoDate) && now != before_) {
        world_.Complain("span", "it changed though no date did");
    }
}

}  // namespace mrlxmlclass::model
