#include <gtest/gtest.h>

#include "tests/reference/Edits.h"

namespace mrlxmlclass::reference {
namespace {

template <class... Values>
String Given(const Values&... values) {
    String text;
    ((text += (text.empty() ? "" : ", ") + ::testing::PrintToString(values)), ...);
    return text;
}

/// The tasks that a walk has reached already, or nothing: the caller need not know.
Ref<Dictionary> AnyReached(Edit& edit) {
    if (edit.Flag()) return {};
    const auto reached = Make<Dictionary>();
    if (edit.Flag()) Reach(reached, edit.Key());
    return reached;
}

String Keys(const Ref<Dictionary>& reached) {
    return reached ? Given(reached->Keys()) : "nothing";
}

// --- Dates along links -----------------------------------------------------------------------------------------------

template <class Walks>
String Depends(Walks& walks, Edit& edit) {
    constexpr int kKinds[] = {1, 1, 1, -1, 2, 2, 0};
    const String key = edit.Key();
    Date date = edit.Day();
    const int kind = edit.Asked(edit.draws.One(kKinds));
    const bool measures = edit.Flag();
    const bool summaries = !edit.Flag(5);
    const bool only_others = edit.Flag(4);
    const bool sets = !edit.Flag(8);
    Ref<Dictionary> reached = AnyReached(edit);
    Integer shift = edit.Flag(5) ? edit.Number(-6, 6) : 0;
    const Boolean result =
        walks.DependsDateChanged(key, date, kind, measures, summaries, Double(), only_others, sets, reached, shift);
    return Given(result, date, shift) + Keys(reached);
}

template <class Walks>
String Adjust(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const Ref<TasksCls> changed = edit.plan.col().Item(edit.Key());
    const int lead = edit.Number(-2, 3);
    const bool measures = edit.Flag();
    const bool walks_on = !edit.Flag(5);
    const bool adjusts = !edit.Flag(4);
    const bool only_others = edit.Flag(4);
    Ref<Dictionary> reached = AnyReached(edit);
    Integer shift = edit.Number(-1, 1);
    Date old_start;
    const Boolean result =
        walks.AdjustDate(key, changed, lead, measures, walks_on, adjusts, reached, only_others, shift, old_start);
    return Given(result, shift, old_start) + Keys(reached);
}

template <class Walks>
String ChangeDuration(Walks& walks, Edit& edit) {
    constexpr double kDurations[] = {0, 0.5, 1, 2, 3, 4.5, 5, 8, 1500};
    constexpr const char* kUnits[] = {"", "", "", "d", "w", "m", "h"};
    const String key = edit.Key();
    Double duration = edit.Asked(edit.draws.One(kDurations));
    const String unit = edit.Asked(String(edit.draws.One(kUnits)));
    const Boolean result = walks.DurationChanged(key, duration, unit);
    return Given(result, duration);
}

template <class Walks>
String MakeMilestone(Walks& walks, Edit& edit) {
    return Given(walks.SeTAsMilstones(Ref<TasksCol>(&edit.plan.col()), edit.Key()));
}

// --- Summaries and costs ---------------------------------------------------------------------------------------------

template <class Walks>
String MoveSummary(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    Date start = edit.Day();
    Date exact = edit.Flag() ? Date() : edit.Day();
    Ref<Dictionary> reached = AnyReached(edit);
    const Integer shift = edit.Flag() ? edit.Number(-6, 6) : 0;
    const Boolean result = walks.SummaryTaskDateChanged2(key, start, exact, True, Date(), reached, False, shift);
    return Given(result, start, exact) + Keys(reached);
}

template <class Walks>
String Sum(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    walks.AdjustSummary(key, !edit.Flag(3));
    return {};
}

template <class Walks>
String RollUp(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    Double sum = edit.Number(0, 4);
    const Boolean result = walks.RollUpDateChanged(key, sum);
    return Given(result, sum);
}

template <class Walks>
String RollUpOne(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const String parent = edit.Key();
    return Given(walks.RolUpOneDate(key, parent, edit.Flag(3)));
}

template <class Walks>
String SumCosts(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    walks.AdjustCost(key, !edit.Flag(3));
    return {};
}

template <class Walks>
String AddCost(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const Currency difference = edit.Number(-9, 9);
    const bool changes = !edit.Flag(4);
    return Given(walks.RollUpCostChanged(key, difference, changes, !edit.Flag(4)));
}

template <class Walks>
String SetCost(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const Currency cost = edit.Number(-9, 9);
    return Given(walks.RolUpOneTask(key, cost, edit.Flag()));
}

template <class Walks>
String AddOtherCost(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const Currency difference = edit.Number(-9, 9);
    return Given(walks.RollUpCostChangedImdParent(key, difference, !edit.Flag(3)));
}

// --- Links -----------------------------------------------------------------------------------------------------------

template <class Walks>
String Measure(Walks& walks, Edit& edit) {
    return Given(walks.CalcLeadTime(edit.Key()));
}

template <class Walks>
String MeasureFrom(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    return Given(walks.CalcLeadTimeNoLink(key, edit.Day()));
}

template <class Walks>
String PutBehind(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const String previous = edit.Key();
    return Given(walks.AdjustDateNoLink(key, previous, edit.Number(-3, 5)));
}

template <class Walks>
String Link(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const String predecessor = edit.Key();
    const bool first_time = edit.Flag();
    const bool unlinked = edit.Flag(4);
    return Given(walks.AddTaskPredecessor(key, predecessor, first_time, unlinked, edit.Flag(3)));
}

template <class Walks>
String Unlink(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const std::vector<String> waits_for = In(edit.plan[edit.plan.Existing()]).PredecessorKeys();
    return Given(walks.RemoveTaskPredecessor(key, waits_for.empty() ? edit.Key() : edit.Asked(waits_for.back())));
}

template <class Walks>
String FreeFollowers(Walks& walks, Edit& edit) {
    return Given(walks.RemoveAllTaskPredecessor(edit.Key()));
}

template <class Walks>
String Replace(Walks& walks, Edit& edit) {
    const String old_key = edit.Key();
    return Given(walks.ReplacePredecessor(old_key, edit.Key()));
}

template <class Walks>
String Clean(Walks& walks, Edit& edit) {
    return Given(walks.cleanPredcessor(edit.Key()));
}

template <class Walks>
String Splice(Walks& walks, Edit& edit) {
    const Integer row = edit.Number(1, edit.plan.size());
    const String key = edit.KeyOrNone();
    return Given(walks.SetPredSucByPos(row, key, edit.Flag()));
}

template <class Walks>
String ReadLinks(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const bool by_name = edit.Flag(3);
    const String predecessors = walks.PredessorAsString(key, by_name);
    return Given(predecessors, walks.SucessorAsString(key, by_name));
}

String AnyRows(Edit& edit) {
    constexpr const char* kBetween[] = {",", ", ", ",", ", ", ",,", " ", "x"};
    String rows;
    for (int count = edit.draws.From(0, 3); count > 0; --count) {
        if (!rows.empty()) rows += edit.draws.One(kBetween);
        rows += std::to_string(edit.draws.From(0, edit.plan.size() + 1));
    }
    return edit.Asked(rows);
}

template <class Walks>
String CheckRows(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const Boolean one = walks.ValidPredecessor(key, edit.Key());
    const String rows = AnyRows(edit);
    return Given(one, walks.ValidPredecessors(key, rows, edit.Flag()));
}

template <class Walks>
String Arrange(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const String rows = AnyRows(edit);
    return Given(walks.ArrangePred(rows, key));
}

template <class Walks>
String ArrangeFollowers(Walks& walks, Edit& edit) {
    const String key = edit.Key();
    const String rows = AnyRows(edit);
    return Given(walks.ArrangeSuccessor(rows, key));
}

// --- The whole plan --------------------------------------------------------------------------------------------------

double AnyShift(Edit& edit) {
    constexpr double kParts[] = {0, 0, 0, 0, 0.5};
    return edit.Asked(edit.draws.From(-9, 9) + edit.draws.One(kParts));
}

template <class Walks>
String Shift(Walks& walks, Edit& edit) {
    return Given(walks.ResetStartDate(AnyShift(edit)));
}

template <class Walks>
String ShiftLinked(Walks& walks, Edit& edit) {
    return Given(walks.ResetStartDatefordependency(AnyShift(edit)));
}

template <class Walks>
String ShiftOneByOne(Walks& walks, Edit& edit) {
    return Given(walks.ResetStartDatefordependency2(AnyShift(edit)));
}

// --- Moving ----------------------------------------------------------------------------------------------------------

/// A task that may stand above that one.
String AnyAbove(Edit& edit, const String& key) {
    const String above = edit.plan.Existing();
    return edit.plan.Below(above, key) ? "0" : above;
}

String ParentOf(const Edit& edit, const String& key) {
    return KeyText(edit.plan[key].ParentID()).text();
}

template <class Walks>
String HandOver(Walks& walks, Edit& edit) {
    const String old_parent = edit.Asked(edit.plan.Existing());
    const String new_parent = edit.Key();
    for (Long key = 1; key <= edit.plan.size(); ++key) {
        if (edit.plan[KeyText(key).text()].ParentID() != KeyNumber(old_parent)) continue;
        if (edit.plan.Below(new_parent, KeyText(key).text())) return "not asked";
    }
    return Given(walks.ChangeParent(old_parent, new_parent));
}

template <class Walks>
String Reparent(Walks& walks, Edit& edit) {
    const String key = edit.Asked(edit.plan.Existing());
    String parent = edit.Asked(edit.draws.OneIn(3) ? "0" : AnyAbove(edit, key));
    const String old_parent = edit.Flag() ? "" : ParentOf(edit, key);
    const String predecessor = edit.Flag() ? "" : edit.Asked(AnyAbove(edit, key));
    const bool indents = !edit.Flag(3);
    const String action = edit.Flag() ? "indent" : "";
    const Integer result = walks.ChangeTaskParent(key, parent, old_parent, "", predecessor == "0" ? "" : predecessor,
                                                  indents, action, "here", edit.Flag(4));
    return Given(result, parent);
}

template <class Walks>
String Outdent(Walks& walks, Edit& edit) {
    const String key = edit.Asked(edit.plan.Existing());
    const String old_parent = ParentOf(edit, key);
    const bool one_level = edit.Flag();
    const String parent = one_level && old_parent != "0" ? ParentOf(edit, old_parent) : "0";
    const String successor = edit.KeyOrNone();
    const String predecessor = edit.KeyOrNone();
    return Given(walks.ChangeRemoveTaskParent(key, parent, old_parent, successor, predecessor, "here", edit.Flag(4)));
}

}  // namespace

template <class Walks>
std::span<const Operation<Walks>> Operations() {
    static constexpr Operation<Walks> kOperations[] = {
        {"DependsDateChanged", Depends<Walks>},
        {"AdjustDate", Adjust<Walks>},
        {"DurationChanged", ChangeDuration<Walks>},
        {"SeTAsMilstones", MakeMilestone<Walks>},
        {"SummaryTaskDateChanged2", MoveSummary<Walks>},
        {"AdjustSummary", Sum<Walks>},
        {"RollUpDateChanged", RollUp<Walks>},
        {"RolUpOneDate", RollUpOne<Walks>},
        {"AdjustCost", SumCosts<Walks>},
        {"RollUpCostChanged", AddCost<Walks>},
        {"RolUpOneTask", SetCost<Walks>},
        {"RollUpCostChangedImdParent", AddOtherCost<Walks>},
        {"CalcLeadTime", Measure<Walks>},
        {"CalcLeadTimeNoLink", MeasureFrom<Walks>},
        {"AdjustDateNoLink", PutBehind<Walks>},
        {"AddTaskPredecessor", Link<Walks>},
        {"RemoveTaskPredecessor", Unlink<Walks>},
        {"RemoveAllTaskPredecessor", FreeFollowers<Walks>},
        {"ReplacePredecessor", Replace<Walks>},
        {"cleanPredcessor", Clean<Walks>},
        {"SetPredSucByPos", Splice<Walks>},
        {"PredessorAsString", ReadLinks<Walks>},
        {"ValidPredecessors", CheckRows<Walks>},
        {"ArrangePred", Arrange<Walks>},
        {"ArrangeSuccessor", ArrangeFollowers<Walks>},
        {"ResetStartDate", Shift<Walks>},
        {"ResetStartDatefordependency", ShiftLinked<Walks>},
        {"ResetStartDatefordependency2", ShiftOneByOne<Walks>},
        {"ChangeParent", HandOver<Walks>},
        {"ChangeTaskParent", Reparent<Walks>},
        {"ChangeRemoveTaskParent", Outdent<Walks>},
    };
    return kOperations;
}

template std::span<const Operation<TasksCol>> Operations();
template std::span<const Operation<ReferenceWalks>> Operations();

}  // namespace mrlxmlclass::reference
