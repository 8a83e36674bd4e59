#include "tests/reference/DrawnPlan.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass::reference {

using testing::Monday;

DrawnPlan::Setting::Setting(testing::Draws& draws)
    : links(!draws.OneIn(6)), silent(draws.OneIn(12)), auto_link(!draws.OneIn(10)), usual_week(!draws.OneIn(3)) {
    const testing::RandomCalendar session(draws);
    if (!draws.OneIn(20)) calendar = Module().g_PublicCalendar;
}

DrawnPlan::DrawnPlan(testing::Draws& draws, const Setting& setting)
    : draws_(draws),
      size_(draws.From(2, 10)),
      odd_(draws.OneIn(3)),
      undated_(draws.OneIn(4)),
      last_day_(draws.OneIn(2) ? 6 : 30) {
    if (setting.links) WithLinks();
    if (setting.silent) Silenced();
    if (!setting.usual_week) Module().g_PublicCalendar = setting.calendar;
    for (int days = draws_.From(0, 6); days > 0; --days) calendar().SetADayAsHoliday(Monday + draws_.From(-10, 40));
    for (int days = draws_.From(0, 4); days > 0; --days)
        calendar().SetADayAsExceptionDay(Monday + draws_.From(-10, 40));
    col().AutoLink(setting.auto_link);
    AddTasks();
    AddLinks();
    for (int key = size_; key >= 1 && !draws_.OneIn(3); --key) {
        if (col().isParent(std::to_string(key))) col().AdjustSummary(std::to_string(key));
    }
    if (draws_.OneIn(2)) {
        col().GetMinDate();
        In(col()).GetMaxDate();
    }
    Heard();
    failures.Taken();  // sums over what is damaged already
}

Date DrawnPlan::AnyDay() {
    if (draws_.OneIn(25)) return {};
    if (draws_.OneIn(40)) return Date::Of(2037, 5, 5);
    return Monday + draws_.From(-15, 45);
}

bool DrawnPlan::Below(const String& key, const String& top) const {
    for (Ref<TasksCls> task = col().Item(key); task; task = col().Item(task->ParentID())) {
        if (KeyText(task->TaskKey()).text() == top) return true;
    }
    return false;
}

void DrawnPlan::AddTasks() {
    std::vector<String> chain;  // the last row and all above it
    for (int row = 1; row <= size_; ++row) {
        const String name = std::to_string(row);
        Task(name);
        while (!chain.empty() && draws_.OneIn(2)) chain.pop_back();
        if (!chain.empty()) {
            Under(chain.back());
            if (!draws_.OneIn(15)) (*this)[chain.back()].TaskType(False);
        }
        chain.push_back(name);
        FillTask(name);
    }
}

void DrawnPlan::FillTask(const String& name) {
    constexpr const char* kUnits[] = {"days", "days", "days", "wks", "mons", "hrs"};
    const Date start = Monday + draws_.From(-8, last_day_);
    const String unit = draws_.One(kUnits);
    const double duration = draws_.OneIn(9) ? 1.5 : draws_.From(1, 7);
    if (draws_.OneIn(5)) {
        Holding(start, start + draws_.From(0, 6), draws_.From(0, 5));
    } else if (!undated_ || !draws_.OneIn(4)) {
        From(start).Lasting(duration, draws_.OneIn(2) ? "days" : unit);
        if (draws_.OneIn(7)) Milestone();
    }
    if (undated_ && draws_.OneIn(8)) In((*this)[name]).TaskEDate_Int(Date());
    if (OddlyOneIn(12)) (*this)[name].TaskMilstones(True);
    if (draws_.OneIn(4)) (*this)[name].TaskLag(draws_.From(-4, 5));
    Costing(draws_.From(0, 9));
    if (OddlyOneIn(12)) (*this)[name].TaskCondidat(False);
}

void DrawnPlan::AddLinks() {
    for (int count = draws_.From(0, 2 * size_); count > 0; --count) AddLink(Existing(), Existing());
    for (int count = draws_.From(0, 2); odd_ && count > 0; --count) {
        const Ref<Collection> followers = (*this)[Existing()].TaskSuccessor();
        if (!followers->Has("77")) followers->Add("77", "77");
    }
}

void DrawnPlan::AddLink(const String& successor, const String& predecessor) {
    TasksCls& task = (*this)[successor];
    const bool known = (*this)[predecessor].TaskSuccessor()->Has(successor) || task.TaskLeadTime()->Has(predecessor);
    if (known || task.TaskPredecessor()->Has(predecessor)) return;
    if (successor == predecessor && !OddlyOneIn(4)) return;
    // A task without dates goes back many years, where a summary behind it is put day by day.
    if (undated_ && col().isParent(successor)) return;
    constexpr int kLeads[] = {-4, -2, -1, -1, 0, 0, 0, 1, 3, 5};
    About(successor).After(predecessor, draws_.One(kLeads));
    if (draws_.OneIn(4)) task.TaskLeadTime()->Remove(predecessor);
    if (OddlyOneIn(10)) task.TaskPredecessor()->Remove(predecessor);
    if (OddlyOneIn(10)) (*this)[predecessor].TaskSuccessor()->Remove(successor);
}

namespace {

template <class Value>
String Named(const char* name, const Value& value) {
    return String(" ") + name + " " + ::testing::PrintToString(value);
}

String ListOf(const char* name, const Ref<Collection>& items) {
    String list = String(" ") + name + " [";
    if (items) {
        for (const auto& entry : items->Snapshot()) list += entry.item.As<String>() + ";";
    }
    return list + "]";
}

String StoredIn(const Ref<TasksCls>& task) {
    const auto in = In(task);
    String children;
    if (const Ref<Dictionary> keys = in.PeekTasks()) {
        for (const Variant& key : keys->Keys()) children += " " + key.Key().text();
    }
    return KeyText(task->TaskKey()).text() + Named("row", task->TaskPosition()) + Named("below", task->ParentID()) +
           Named("plain", task->TaskType()) + Named("from", task->TaskBDate()) + Named("to", task->TaskEDate()) +
           Named("for", task->TaskDuration()) + " " + task->TaskDurationUnit() + Named("lag", task->TaskLag()) +
           Named("milestone", task->TaskMilstones()) + Named("listed", task->TaskCondidat()) +
           Named("cost", task->TaskCost()) + Named("more", task->TaskCostUp()) +
           Named("flags", task->TaskBDateValid()) + Named("", task->TaskEDateValid()) +
           Named("", task->TaskDurationValid()) + ListOf("after", in.PeekPredecessor()) +
           ListOf("leads", in.PeekLeadTime()) + ListOf("before", in.PeekSuccessor()) + " above" + children + "\n";
}

}  // namespace

String DrawnPlan::Stored() const {
    String text;
    for (const auto& entry : col().NewEnum()) text += StoredIn(entry.item);
    const ModuleState& module = Module();
    return text + "plan" + Named("tasks", col().Count(True)) + Named("listed", col().Count(False)) +
           Named("from", module.g_MinDate) + Named("of", module.g_MinDateTaskKey) + Named("to", module.g_MaxDate) +
           Named("of", module.g_MaxDateTaskKey) + Named("messages", platform.ui.messages.size()) +
           Named("yields", platform.ui.yields) + "\n";
}

}  // namespace mrlxmlclass::reference
