#include "tests/model/Span.h"

#include <algorithm>

#include "mrlxmlclass/platform/Services.h"
#include "tests/model/Invariants.h"

namespace mrlxmlclass::model {
namespace {

Date StartOf(const TasksCls& task) {
    return task.TaskBDate();
}
Date EndOf(const TasksCls& task) {
    return task.TaskEDate();
}

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

/// An end of the span that an edit left known wrongly.
struct Wrong {
    bool first;  ///< the first day rather than the last
    const KnownSpan::End& before;
    const KnownSpan::End& now;
    bool undated;  ///< a task of the outline is, or was

    bool changed() const { return !now.SameAs(before); }
    /// Within the span that is counted.
    bool inside() const { return first ? now.day > now.counted : now.day < now.counted; }
};

bool SomeAreUndated(const Wrong& wrong) {
    return wrong.undated;
}
bool TakenFromOne(const Wrong& wrong) {
    return wrong.changed() && wrong.inside() && wrong.now.holders_day == wrong.now.day;
}
bool OfSummary(const Wrong& wrong) {
    return wrong.before.of_summary || wrong.now.of_summary;
}
bool StartOfMilestone(const Wrong& wrong) {
    return wrong.first && wrong.now.of_milestone;
}
bool LeftInside(const Wrong& wrong) {
    return !wrong.changed() && wrong.inside();
}
bool OfNobody(const Wrong& wrong) {
    return !wrong.changed() && !wrong.now.holders_day;
}
bool AtTheEnd(const Wrong& wrong) {
    return !wrong.first;
}

struct Excuse {
    bool (*holds)(const Wrong& wrong);
    std::initializer_list<std::string_view> operations;  ///< any when there are none
};

const Excuse kExcuses[] = {
    // A first task without a date makes the span begin with none, and one behind it ends it there.
    {SomeAreUndated, {}},
    // A date that is set while nothing is known is taken for the end of the span, and a last task that ends earlier
    // takes the known end along.
    {TakenFromOne, {}},
    // What rolls up sets the dates of a summary, and tells nobody.
    {OfSummary, {}},
    // The end of a milestone brings its start along, and tells nobody of that one.
    {StartOfMilestone, {}},
    // A new task has dates before anybody sets them.
    {LeftInside, {"Add"}},
    // Without a task the span is that of today.
    {OfNobody, {}},
    // A duration alone tells nobody of the new end.
    {AtTheEnd, {"Add", "ChangeDuration", "Duration", "End", "MoveEnd", "MoveStart", "Store"}},
};

void CheckEnd(World& world, std::string_view operation, const Wrong& end) {
    if (!end.before.Held() || end.now.Right()) return;
    const bool told = std::ranges::any_of(kExcuses, [&](const Excuse& excuse) {
        const auto& meant = excuse.operations;
        return (meant.size() == 0 || std::ranges::find(meant, operation) != meant.end()) && excuse.holds(end);
    });
    if (told) return;
    world.Complain("span", String(operation) + " leaves " + testing::DayName(end.now.day) + " known for the " +
                               (end.first ? "first" : "last") + " day, which is " + testing::DayName(end.now.counted));
}

template <class Pick>
KnownSpan::End EndNow(const World& world, Date day, Long holder, Date counted, Pick&& pick) {
    const Ref<TasksCls> task = world.col().Item(holder);
    if (!task) return {day, holder, counted, {}, false, false};
    return {day, holder, counted, pick(*task), In(task).HasChildren(), bool(task->TaskMilstones())};
}

}  // namespace

Date FirstDay(const World& world) {
    return Extreme(world, StartOf, std::less<>());
}

Date LastDay(const World& world) {
    return Extreme(world, EndOf, std::greater<>());
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

KnownSpan::Ends KnownSpan::Now(const World& world) {
    const ModuleState& module = Module();
    return {EndNow(world, module.g_MinDate, module.g_MinDateTaskKey, FirstDay(world), StartOf),
            EndNow(world, module.g_MaxDate, module.g_MaxDateTaskKey, LastDay(world), EndOf), AnyUndated(world)};
}

void KnownSpan::Check(std::string_view operation) const {
    const Ends now = Now(world_);
    const bool changed = !now.first.SameAs(before_.first) || !now.last.SameAs(before_.last);
    if (changed && std::ranges::find(kSetNoDate, operation) != std::end(kSetNoDate)) {
        world_.Complain("span", "it changed though no date did");
    }
    const bool undated = before_.undated || now.undated;
    CheckEnd(world_, operation, {true, before_.first, now.first, undated});
    CheckEnd(world_, operation, {false, before_.last, now.last, undated});
}

}  // namespace mrlxmlclass::model
