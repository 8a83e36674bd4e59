#include "tests/support/Plan.h"

#include <algorithm>

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "mrlxmlclass/xml/DateText.h"

namespace mrlxmlclass::testing {
namespace {

String Text(Boolean flag) {
    return flag ? "True" : "False";
}
String Text(Date day) {
    return DayName(day);
}
String Text(Double number) {
    return Conversions::DoubleToString(number);
}
String Text(Long number) {
    return Conversions::LongToString(number);
}
String Text(const String& text) {
    return text;
}
String Text(const Variant& value) {
    const Currency* amount = value.If<Currency>();
    return amount != nullptr ? Conversions::CurrencyToString(*amount) : "?";
}

template <class... Arguments>
String Line(const char* event, const Arguments&... arguments) {
    String list;
    ((list += (list.empty() ? "" : ", ") + Text(arguments)), ...);
    return String(event) + "(" + list + ")\n";
}

}  // namespace

String DayName(Date day) {
    return day.set() ? FormatDate(day, "yyyy-MM-dd") : "-";
}

void EventLog::DateStartChange(Long key, Date start, Boolean milestone, Boolean parent) {
    heard_ += Line("DateStartChange", key, start, milestone, parent);
}
void EventLog::DateEndChange(Long key, Date end, Boolean milestone, Boolean parent, const String& unit) {
    heard_ += Line("DateEndChange", key, end, milestone, parent, unit);
}
void EventLog::DurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) {
    heard_ += Line("DurationChange", key, duration, unit, milestone, parent);
}
void EventLog::TaskDurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) {
    heard_ += Line("TaskDurationChange", key, duration, unit, milestone, parent);
}
void EventLog::AssigmentChange(Long key, const String& people) {
    heard_ += Line("AssigmentChange", key, people);
}
void EventLog::GoalChange(Long key, const String& goals) {
    heard_ += Line("GoalChange", key, goals);
}
void EventLog::ObstaclesChange(Long key, const String& obstacles) {
    heard_ += Line("ObstaclesChange", key, obstacles);
}
void EventLog::NoteChange(Long key, const String& note) {
    heard_ += Line("NoteChange", key, note);
}
void EventLog::RoolUpCostChange(Long key, const Variant& cost) {
    heard_ += Line("RoolUpCostChange", key, cost);
}
void EventLog::PredecessorChange(Long key, const String& predecessors) {
    heard_ += Line("PredecessorChange", key, predecessors);
}
void EventLog::SucessorChange(Long key, const String& successors) {
    heard_ += Line("SucessorChange", key, successors);
}
void EventLog::PredecessorKeyChange(Long key, const String& predecessor, const String& action) {
    heard_ += Line("PredecessorKeyChange", key, predecessor, action);
}
void EventLog::IamASummary(Long key, Boolean summary) {
    heard_ += Line("IamASummary", key, summary);
}
void EventLog::TaskInserted(Long key, const String& parent, Long position) {
    heard_ += Line("TaskInserted", key, parent, position);
}
void EventLog::TaskDeleted(Long key, const String& parent, Long position, Boolean arrange) {
    heard_ += Line("TaskDeleted", key, parent, position, arrange);
}
void EventLog::TaskNameChanged(Long key, const String& name) {
    heard_ += Line("TaskNameChanged", key, name);
}
void EventLog::Indented(Long key, const String& parent, const String& source) {
    heard_ += Line("Indented", key, parent, source);
}
void EventLog::Outented(Long key, const String& parent, const String& old_parent, const String& source) {
    heard_ += Line("Outented", key, parent, old_parent, source);
}
void EventLog::UpDown(Boolean up, Long key, const String& parent, const String& old_parent, Boolean changed,
                      const String& source) {
    heard_ += Line("UpDown", up, key, parent, old_parent, changed, source);
}
void EventLog::CompletedChange(Long key, Integer percent) {
    heard_ += Line("CompletedChange", key, Long(percent));
}

Plan::Plan() : app(Make<Application>()) {
    Start();
}

Plan::~Plan() {
    col().Events.Remove(events_);
    Module() = ModuleState();
}

void Plan::Start() {
    app->Init(links_, silent_);
    col().Events.Add(events_);
}

Plan& Plan::WithLinks() {
    links_ = True;
    Start();
    return *this;
}

Plan& Plan::Silenced() {
    silent_ = True;
    Start();
    return *this;
}

Plan& Plan::WithoutWeekends() {
    calendar().SetAsWorkingDay(Long(1));
    calendar().SetAsWorkingDay(Long(7));
    return *this;
}

Plan& Plan::Task(const String& name) {
    last_ = col().Add("");
    last_->TaskName(name);
    last_->TaskPosition(col().Count());
    keys_[name] = last_->TaskKey();
    return *this;
}

Plan& Plan::Under(const String& parent) {
    last_->ParentID(Number(parent));
    last_->TaskType(True);
    col().AddParentTask(Number(parent), last_->TaskKey());
    return *this;
}

Plan& Plan::From(Date start) {
    last_->TaskBDate(start);
    if (!last_->TaskEDate().set()) last_->TaskBDate(start);
    return *this;
}

Plan& Plan::To(Date end) {
    last_->TaskEDate(end);
    return *this;
}

Plan& Plan::Lasting(Double duration, const String& unit) {
    last_->TaskDurationUnit(unit);
    last_->TaskDuration(duration);
    return *this;
}

Plan& Plan::Milestone() {
    last_->TaskMilstones(True);
    last_->TaskDuration(0);
    last_->TaskEDate(last_->TaskBDate());
    return *this;
}

Plan& Plan::Costing(Currency cost) {
    last_->TaskCost(cost);
    return *this;
}

Plan& Plan::After(const String& predecessor, Integer lead) {
    const String from = Key(predecessor);
    const String to = KeyText(last_->TaskKey()).text();
    last_->TaskPredecessor()->Add(from, from);
    (*this)[predecessor].TaskSuccessor()->Add(to, to);
    last_->TaskLeadTime()->Add(from + "|" + KeyText(Long(lead)).text(), from);
    return *this;
}

Plan& Plan::Candidate() {
    last_->TaskCondidat(False);
    last_->TaskType(True);
    last_->TaskPosition(0);
    col().SetNumberOFCondidat(False);
    return *this;
}

Plan& Plan::Holding(Date start, Date end, Double duration) {
    In(*last_).StoreStart(start);
    In(*last_).StoreEnd(end);
    In(*last_).StoreDuration(duration);
    return *this;
}

Plan& Plan::About(const String& name) {
    last_ = col().Item(keys_.at(name));
    return *this;
}

String Plan::Key(const String& name) const {
    return KeyText(keys_.at(name)).text();
}

TasksCls& Plan::operator[](const String& name) const {
    return *col().Item(keys_.at(name));
}

String Plan::Drawn() const {
    std::map<int, String> rows;
    for (const auto& entry : col().NewEnum()) {
        const TasksCls& task = *entry.item;
        const int row = static_cast<int>(task.TaskPosition().value());
        String line = Text(task.TaskPosition()) + " ";
        const Integer level = col().GetLevel(KeyText(task.TaskKey()).text());
        line.append(static_cast<std::size_t>(2 * level.value()), ' ');
        line += task.TaskName();
        if (task.TaskBDate().set()) line += "  " + DayName(task.TaskBDate()) + " " + DayName(task.TaskEDate());
        rows[row] += line + "\n";
    }
    String drawing;
    for (const auto& [row, lines] : rows) drawing += lines;
    return drawing;
}

}  // namespace mrlxmlclass::testing
