#include "prx/EventLog.h"

#include <fmt/core.h>

#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

std::string Argument(const String& text) {
    return Plain(text);
}

std::string Argument(Integer number) {
    return Text(Long(number));
}

std::string Argument(const Variant& amount) {
    const Currency* cost = amount.If<Currency>();
    return cost == nullptr ? "" : Text(*cost);
}

template <class Value>
std::string Argument(const Value& value) {
    return Text(value);
}

}  // namespace

template <class... Values>
void EventLog::Heard(const char* event, const Values&... values) {
    std::string arguments;
    ((arguments += (arguments.empty() ? "" : ", ") + Argument(values)), ...);
    lines_.push_back(fmt::format("{}({})", event, arguments));
}

void EventLog::Print() const {
    for (const std::string& line : lines_) fmt::print("{}\n", line);
}

void EventLog::DateStartChange(Long TaskKey, Date BDate, Boolean Milstones, Boolean isParent) {
    Heard("DateStartChange", TaskKey, BDate, Milstones, isParent);
}
void EventLog::DateEndChange(Long TaskKey, Date EDate, Boolean Milstones, Boolean isParent, const String& Unit) {
    Heard("DateEndChange", TaskKey, EDate, Milstones, isParent, Unit);
}
void EventLog::DurationChange(Long TaskKey, Double duration, const String& Unit, Boolean Milstones, Boolean isParent) {
    Heard("DurationChange", TaskKey, duration, Unit, Milstones, isParent);
}
void EventLog::TaskDurationChange(Long TaskKey, Double duration, const String& Unit, Boolean Milstones,
                                  Boolean isParent) {
    Heard("TaskDurationChange", TaskKey, duration, Unit, Milstones, isParent);
}
void EventLog::AssigmentChange(Long TaskKey, const String& sPeoples) {
    Heard("AssigmentChange", TaskKey, sPeoples);
}
void EventLog::GoalChange(Long TaskKey, const String& sGoal) {
    Heard("GoalChange", TaskKey, sGoal);
}
void EventLog::ObstaclesChange(Long TaskKey, const String& sObstacles) {
    Heard("ObstaclesChange", TaskKey, sObstacles);
}
void EventLog::NoteChange(Long TaskKey, const String& sNote) {
    Heard("NoteChange", TaskKey, sNote);
}
void EventLog::RoolUpCostChange(Long TaskKey, const Variant& Cost) {
    Heard("RoolUpCostChange", TaskKey, Cost);
}
void EventLog::PredecessorChange(Long TaskKey, const String& Predecessor) {
    Heard("PredecessorChange", TaskKey, Predecessor);
}
void EventLog::SucessorChange(Long TaskKey, const String& Sucessor) {
    Heard("SucessorChange", TaskKey, Sucessor);
}
void EventLog::PredecessorKeyChange(Long TaskKey, const String& Predecessor, const String& Action) {
    Heard("PredecessorKeyChange", TaskKey, Predecessor, Action);
}
void EventLog::IamASummary(Long TaskKey, Boolean IamNot) {
    Heard("IamASummary", TaskKey, IamNot);
}
void EventLog::TaskInserted(Long TaskKey, const String& ParentID, Long Position) {
    Heard("TaskInserted", TaskKey, ParentID, Position);
}
void EventLog::TaskDeleted(Long TaskKey, const String& ParentID, Long Position, Boolean p_arrange) {
    Heard("TaskDeleted", TaskKey, ParentID, Position, p_arrange);
}
void EventLog::TaskNameChanged(Long TaskKey, const String& TaskName) {
    Heard("TaskNameChanged", TaskKey, TaskName);
}
void EventLog::Indented(Long TaskKey, const String& ParentID, const String& source) {
    Heard("Indented", TaskKey, ParentID, source);
}
void EventLog::Outented(Long TaskKey, const String& ParentID, const String& oldParentID, const String& source) {
    Heard("Outented", TaskKey, ParentID, oldParentID, source);
}
void EventLog::UpDown(Boolean UpDown, Long TaskKey, const String& ParentID, const String& oldParentID,
                      Boolean parentChanged, const String& source) {
    Heard("UpDown", UpDown, TaskKey, ParentID, oldParentID, parentChanged, source);
}
void EventLog::CompletedChange(Long TaskKey, Integer PercentDone) {
    Heard("CompletedChange", TaskKey, PercentDone);
}

}  // namespace prx
