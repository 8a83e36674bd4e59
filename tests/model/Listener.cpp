#include "tests/model/Listener.h"

#include <algorithm>
#include <array>

#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass::model {
namespace {

/// Rows of linked tasks as a host is shown them. Candidates, in no row, are shown among successors alone.
String RowsOf(World& world, const std::vector<String>& keys, bool candidates_too) {
    String rows;
    for (const String& key : keys) {
        const Ref<TasksCls> task = world.col().Item(key);
        if (!task || (!candidates_too && !task->TaskCondidat())) continue;
        rows += (rows.empty() ? "" : ", ") + KeyText(task->TaskPosition()).text();
    }
    return rows;
}

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::ranges::find(names, name) != names.end();
}

}  // namespace

Ref<TasksCls> Listener::About(const char* event, Long key, bool although_silent) {
    if (world_.setting.silent && !although_silent) world_.Complain("silence", event);
    Ref<TasksCls> task = world_.col().Item(key);
    if (!task) world_.Complain("event", String(event) + " of a task that is not there: " + KeyText(key).text());
    return task;
}

void Listener::Check(const char* event, Long key, bool holds, const String& told) {
    if (!holds) world_.Complain("event", String(event) + " tells of task " + KeyText(key).text() + ": " + told);
}

void Listener::CheckFlags(const char* event, const TasksCls& task, Boolean milestone, Boolean parent) {
    Check(event, task.TaskKey(), milestone == task.TaskMilstones(), "milestone or not");
    // What adjusts a span calls the task a parent, whether it has children or not.
    const bool adjusts_rows =
        IsOneOf(world_.running, {"AdjustSummary", "MoveSummary", "RollUpOne", "Indent", "Outdent", "MoveInto"});
    const bool is_parent = bool(world_.col().isParent(KeyOf(task)));
    Check(event, task.TaskKey(), bool(parent) == is_parent || (parent && adjusts_rows), "a parent or not");
}

void Listener::DateStartChange(Long key, Date start, Boolean milestone, Boolean parent) {
    const Ref<TasksCls> task = About("DateStartChange", key);
    if (!task) return;
    world_.heard[key].start = start;
    Check("DateStartChange", key, start == task->TaskBDate(), testing::DayName(start));
    CheckFlags("DateStartChange", *task, milestone, parent);
}

void Listener::DateEndChange(Long key, Date end, Boolean milestone, Boolean parent, const String& unit) {
    const Ref<TasksCls> task = About("DateEndChange", key);
    if (!task) return;
    world_.heard[key].end = end;
    Check("DateEndChange", key, end == task->TaskEDate(), testing::DayName(end));
    // A shift tells every unit as days.
    const bool shifts = IsOneOf(world_.running, {"Shift", "ShiftAlongLinks", "ShiftOneByOne"});
    Check("DateEndChange", key, unit == task->TaskDurationUnit() || (shifts && unit == "days"), unit);
    CheckFlags("DateEndChange", *task, milestone, parent);
}

void Listener::CheckDuration(const char* event, const Ref<TasksCls>& task, Double duration, const String& unit,
                             Boolean milestone, Boolean parent) {
    if (!task) return;
    const String told = Conversions::DoubleToString(duration) + " " + unit;
    Check(event, task->TaskKey(), duration == task->TaskDuration() && unit == task->TaskDurationUnit(), told);
    CheckFlags(event, *task, milestone, parent);
}

void Listener::DurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) {
    CheckDuration("DurationChange", About("DurationChange", key), duration, unit, milestone, parent);
}

void Listener::TaskDurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) {
    const Ref<TasksCls> task = About("TaskDurationChange", key, /*although_silent=*/true);
    CheckDuration("TaskDurationChange", task, duration, unit, milestone, parent);
}

void Listener::RoolUpCostChange(Long key, const Variant& cost) {
    const Ref<TasksCls> task = About("RoolUpCostChange", key);
    if (!task) return;
    const Currency held = world_.running == "RollUpCostOfParent" ? task->TaskCostUp() : task->TaskCost();
    const Currency* told = cost.If<Currency>();
    Check("RoolUpCostChange", key, told != nullptr && *told == held, "another cost");
}

void Listener::PredecessorChange(Long key, const String& predecessors) {
    const Ref<TasksCls> task = About("PredecessorChange", key);
    if (!task) return;
    Check("PredecessorChange", key, predecessors == RowsOf(world_, In(task).PredecessorKeys(), false), predecessors);
}

void Listener::SucessorChange(Long key, const String& successors) {
    const Ref<TasksCls> task = About("SucessorChange", key);
    if (!task) return;
    Check("SucessorChange", key, successors == RowsOf(world_, In(task).SuccessorKeys(), true), successors);
}

void Listener::PredecessorKeyChange(Long key, const String& predecessor, const String& action) {
    const Ref<TasksCls> task = About("PredecessorKeyChange", key);
    if (!task) return;
    const Ref<TasksCls> other = world_.col().Item(predecessor);
    const bool linked = In(task).HasPredecessor(KeyText(predecessor));
    const bool known = other && In(other).HasSuccessor(KeyText(key));
    // Reading the rows before this is told takes a candidate off again.
    const bool dropped = other && !other->TaskCondidat() && !linked && !known;
    Check("PredecessorKeyChange", key,
          action == "add" ? (linked && known) || dropped : action == "remove" && !linked && !known,
          action + " " + predecessor);
}

void Listener::IamASummary(Long key, Boolean summary) {
    if (world_.setting.silent) world_.Complain("silence", "IamASummary");
    if (key == 0) return;  // the top is told of too
    const Ref<TasksCls> task = About("IamASummary", key);
    if (!task) return;
    Check("IamASummary", key, summary == world_.col().isParent(KeyOf(*task)), summary ? "True" : "False");
}

void Listener::TaskInserted(Long key, const String& parent, Long position) {
    const Ref<TasksCls> task = About("TaskInserted", key);
    if (!task) return;
    Check("TaskInserted", key, parent == KeyText(task->ParentID()).text(), "below " + parent);
    const bool names = world_.running == "Rename" || world_.running == "Add";
    Check("TaskInserted", key, position == (names ? task->TaskPosition() : task->TaskSubPosition()),
          "at " + KeyText(position).text());
}

void Listener::TaskDeleted(Long key, const String& parent, Long position, Boolean arrange) {
    const Ref<TasksCls> task = world_.col().Item(key);
    if (world_.setting.silent) world_.Complain("silence", "TaskDeleted");
    if (!parent.empty()) {  // the rows have closed, the task is on its way out
        Check("TaskDeleted", key, task && task->ParentID() == 0 && position == task->TaskPosition() && arrange,
              "row " + KeyText(position).text());
    } else {
        Check("TaskDeleted", key, !task || !task->TaskCondidat(), "it is still in the outline");
    }
}

void Listener::TaskNameChanged(Long key, const String& name) {
    const Ref<TasksCls> task = About("TaskNameChanged", key);
    if (task) Check("TaskNameChanged", key, name == task->TaskName(), name);
}

void Listener::Indented(Long key, const String& parent, const String& /*source*/) {
    const Ref<TasksCls> task = About("Indented", key);
    if (task) Check("Indented", key, parent == KeyText(task->ParentID()).text(), "below " + parent);
}

void Listener::Outented(Long key, const String& parent, const String& /*old_parent*/, const String& /*source*/) {
    const Ref<TasksCls> task = About("Outented", key);
    if (task) Check("Outented", key, parent == KeyText(task->ParentID()).text(), "below " + parent);
}

void Listener::UpDown(Boolean /*up*/, Long key, const String& parent, const String& /*old_parent*/, Boolean changed,
                      const String& /*source*/) {
    const Ref<TasksCls> task = About("UpDown", key);
    if (!task) return;
    Check("UpDown", key, !changed || parent == KeyText(task->ParentID()).text(), "below " + parent);
    Check("UpDown", key, bool(task->TaskType()) == (task->ParentID() != 0), "a row of another kind");
}

void Listener::CompletedChange(Long key, Integer percent) {
    const Ref<TasksCls> task = About("CompletedChange", key);
    if (task) Check("CompletedChange", key, task->TaskPercentDone() == Long(percent), "another progress");
}

void Listener::AssigmentChange(Long key, const String& people) {
    const Ref<TasksCls> task = About("AssigmentChange", key);
    if (task) Check("AssigmentChange", key, people == task->PeopleAsString(), people);
}

void Listener::GoalChange(Long key, const String& goals) {
    const Ref<TasksCls> task = About("GoalChange", key);
    if (task) Check("GoalChange", key, goals == task->GoalsAsString(), goals);
}

void Listener::ObstaclesChange(Long key, const String& obstacles) {
    const Ref<TasksCls> task = About("ObstaclesChange", key);
    if (task) Check("ObstaclesChange", key, obstacles == task->ObstaclesAsString(), obstacles);
}

void Listener::NoteChange(Long key, const String& note) {
    const Ref<TasksCls> task = About("NoteChange", key);
    if (task) Check("NoteChange", key, note == task->NoteAsString(), note);
}

}  // namespace mrlxmlclass::model
