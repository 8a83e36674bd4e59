#include "prx/Fields.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "mrlxmlclass/scheduling/KeptLengths.h"
#include "mrlxmlclass/scheduling/TaskEdit.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "prx/Edit.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr const char* kBadYear = "the year is out of range";
constexpr const char* kOfMilestones = "a milestone is a day, without a duration, an end or a unit of its own";

/// What the setting of one field may touch.
struct Setting {
    const Project& project;
    TasksCls& task;
    TaskEdit edit;
    bool announced;  ///< false: nobody has heard of the task yet
    Remarks remarks;
    bool start_is_given = false;

    TasksCol& tasks() const { return *project.tasks(); }
    std::string key() const { return KeyOf(task); }
};

[[noreturn]] void NotTaken(std::string_view field, std::string_view value, const std::string& instead) {
    throw Refusal(fmt::format("{}={} was not taken: {}", field, Plain(value), instead));
}

std::string Longest(const String& unit) {
    return fmt::format("{} {} are the longest", kMostUnits, unit);
}

bool IsWorkingDay(Date day) {
    return Gloabal::NextWorkingDay(day, 1) == day;
}

void TellStart(Setting& setting, const std::string& wanted) {
    setting.remarks.push_back(
        fmt::format("{} is not a working day; the task starts on {}", wanted, Text(setting.task.TaskBDate())));
}

/// A length is counted from a working day.
void LeaveFreeDay(Setting& setting) {
    const Date start = setting.task.TaskBDate();
    if (setting.edit.LeaveFreeDay() && !setting.start_is_given) TellStart(setting, Text(start));
}

void SetDurationIn(Setting& setting, Double length, const String& unit) {
    LeaveFreeDay(setting);
    setting.edit.ChangeLength(length, unit);
}

void SetUnit(Setting& setting, const std::string& value) {
    const String unit = ReadUnit(value);
    if (setting.task.TaskMilstones()) NotTaken("unit", value, kOfMilestones);
    const Double length = setting.task.TaskDuration();
    if (length > kMostUnits) NotTaken("unit", value, Longest(unit));
    SetDurationIn(setting, length, unit);
}

void SetMilestone(Setting& setting, const std::string& value) {
    if (ReadFlag(value)) {
        LeaveFreeDay(setting);
        setting.edit.MakeMilestone();
    } else if (setting.task.TaskMilstones()) {
        SetDurationIn(setting, 1, {});
    }
}

void SetStart(Setting& setting, const std::string& value) {
    const Date wanted = ReadDate(value);
    if (wanted.year() < kMinYear || wanted.year() > MaxYear()) NotTaken("start", value, kBadYear);
    setting.project.links().AskedFor(setting.task);
    setting.edit.MoveStart(wanted);
    const Date start = setting.task.TaskBDate();
    if (start.year() != wanted.year() && DaysBetween(wanted, start) != 0) {
        constexpr double kNearby = 31;  // over the holidays into the next year
        if (std::abs(start.days() - wanted.days()) > kNearby) NotTaken("start", value, kBadYear);
    }
    if (start != wanted) TellStart(setting, value);
}

void SetDuration(Setting& setting, const std::string& value) {
    const DurationText wanted = ReadDuration(value);
    if (wanted.length > kMostUnits) {
        NotTaken("duration", value, Longest(wanted.unit.empty() ? setting.task.TaskDurationUnit() : wanted.unit));
    }
    SetDurationIn(setting, wanted.length, wanted.unit);
    if (setting.task.TaskDuration() != wanted.length) NotTaken("duration", value, kBadYear);
}

void SetEnd(Setting& setting, const std::string& value) {
    const Date wanted = ReadDate(value);
    if (setting.task.TaskMilstones()) NotTaken("end", value, kOfMilestones);
    if (wanted < setting.task.TaskBDate()) {
        NotTaken("end", value,
                 fmt::format("the task starts on {}{}", Text(setting.task.TaskBDate()),
                             setting.announced || setting.start_is_given ? "" : " where no start is given"));
    }
    if (wanted.year() > MaxYear()) NotTaken("end", value, kBadYear);
    const String unit = setting.task.TaskDurationUnit();
    if (!IsDays(unit) && wanted != setting.task.TaskEDate()) {
        NotTaken("end", value,
                 fmt::format("the end of a task in {} follows from its duration; set that, or unit=days", unit));
    }
    if (!IsWorkingDay(wanted)) NotTaken("end", value, "it is not a working day");
    if (wanted != setting.task.TaskEDate()) LeaveFreeDay(setting);
    setting.edit.MoveEnd(wanted);
    if (setting.task.TaskEDate() != wanted) NotTaken("end", value, Longest("days"));
}

void SetDone(Setting& setting, const std::string& value) {
    constexpr int kWhole = 100;
    const std::string_view number = value;
    const Integer percent = ReadWhole(number.substr(0, number.size() - (number.ends_with('%') ? 1 : 0)), 0, kWhole);
    if (setting.announced) {
        setting.tasks().ChangePercentDone(setting.key(), percent);
    } else {
        setting.task.TaskPercentDone(percent);
    }
}

void SetCost(Setting& setting, const std::string& value) {
    setting.task.TaskCost(ReadMoney(value));
    if (setting.announced) AdjustCostFrom(setting.project, setting.task);
}

void SetColour(Setting& setting, const std::string& value) {
    constexpr int kMostColours = 0xFFFFFF;
    setting.task.TaskColor(ReadWhole(value, 0, kMostColours));
}

void SetName(Setting& setting, const std::string& value) {
    setting.tasks().ChangeName(setting.key(), ReadName(value));
}

struct Field {
    const char* name;
    const char* help;
    bool of_summaries;  ///< false: a summary's follows from the tasks below it
    bool of_length;     ///< says how long the task lasts
    void (*set)(Setting& setting, const std::string& value);
};

/// In the order in which they are set.
constexpr std::array kFields = {
    Field{"milestone", "yes or no", false, true, SetMilestone},
    Field{"unit", "days, wks, mons, hrs or mins; the number stays: 8 days become 8 wks", false, true, SetUnit},
    Field{"start", "yyyy-mm-dd; the end moves along", false, false, SetStart},
    Field{"duration", "such as 5, \"5 days\" or 2wks; the end follows, and 0 makes a milestone", false, true,
          SetDuration},
    Field{"end", "yyyy-mm-dd, of a task in days; the duration follows", false, true, SetEnd},
    Field{"done", "percent, 0 to 100", true, false, SetDone},
    Field{"cost", "such as 1250 or 1250.50", false, false, SetCost},
    Field{"colour", "a number, 0 to 16777215", true, false, SetColour},
    Field{"name", "one line of text", true, false, SetName},
};

const Field* FindField(std::string_view name) {
    const auto found =
        std::find_if(kFields.begin(), kFields.end(), [&](const Field& field) { return field.name == name; });
    return found == kFields.end() ? nullptr : &*found;
}

std::string FieldNames() {
    std::string names;
    for (const Field& field : kFields) names += fmt::format("{}{}", names.empty() ? "" : ", ", field.name);
    return names;
}

/// The value for a field; nothing when it is not set.
const std::string* ValueFor(const Field& field, const std::vector<Assignment>& assignments) {
    const std::string* value = nullptr;
    for (const Assignment& assignment : assignments) {
        if (assignment.field != field.name) continue;
        if (value != nullptr) throw Refusal(fmt::format("{} is set twice", field.name));
        value = &assignment.value;
    }
    return value;
}

const std::string* ValueFor(std::string_view field, const std::vector<Assignment>& assignments) {
    return ValueFor(*FindField(field), assignments);
}

/// Refuses fields of which one follows from the other.
void RefuseTogether(const std::vector<Assignment>& assignments) {
    const std::string* milestone = ValueFor("milestone", assignments);
    const bool length = ValueFor("duration", assignments) != nullptr;
    const bool end = ValueFor("end", assignments) != nullptr;
    if (length && end) throw Refusal("set the duration or the end, not both: one follows from the other");
    if (milestone != nullptr && ReadFlag(*milestone) && (length || end || ValueFor("unit", assignments) != nullptr)) {
        throw Refusal(kOfMilestones);
    }
}

/// A unit that is set beside a duration becomes the duration's.
std::vector<Assignment> WithUnits(std::vector<Assignment> assignments) {
    const std::string* duration = ValueFor("duration", assignments);
    const std::string* unit = ValueFor("unit", assignments);
    if (duration == nullptr || unit == nullptr) return assignments;
    const String named = ReadUnit(*unit);
    const DurationText read = ReadDuration(*duration);
    if (!read.unit.empty() && read.unit != named)
        NotTaken("unit", *unit, fmt::format("the duration is in {}", read.unit));
    for (Assignment& assignment : assignments) {
        if (assignment.field == "duration") assignment.value = Text(read.length) + named;
    }
    std::erase_if(assignments, [](const Assignment& assignment) { return assignment.field == "unit"; });
    return assignments;
}

Remarks SetAll(const Project& project, const Ref<TasksCls>& task, bool announced, std::vector<Assignment> assignments) {
    Setting setting{project, *task, TaskEdit(project.tasks(), task, announced), announced, {}};
    const bool summary = static_cast<bool>(setting.tasks().isParent(setting.key()));
    RefuseTogether(assignments);
    setting.start_is_given = ValueFor("start", assignments) != nullptr;
    assignments = WithUnits(std::move(assignments));
    for (const Field& field : kFields) {
        const std::string* value = ValueFor(field, assignments);
        if (value == nullptr) continue;
        if (summary && !field.of_summaries) {
            throw Refusal(fmt::format("the {} of \"{}\" follows from the tasks below it", field.name,
                                      Plain(setting.task.TaskName())));
        }
        const KeptLengths aside(setting.project.tasks(), field.of_length ? &setting.task : nullptr);
        field.set(setting, *value);
    }
    return setting.remarks;
}

}  // namespace

Assignment ReadAssignment(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos) {
        throw Refusal(fmt::format("\"{}\" sets nothing; write field=value, such as start=2026-03-02", Plain(text)));
    }
    Assignment assignment{text.substr(0, sign), text.substr(sign + 1)};
    if (FindField(assignment.field) == nullptr) {
        throw Refusal(
            fmt::format("there is no field \"{}\"; the fields are {}", Plain(assignment.field), FieldNames()));
    }
    return assignment;
}

std::string FieldHelp() {
    std::string help = "Fields:\n";
    for (const Field& field : kFields) help += fmt::format("  {:<10} {}\n", field.name, field.help);
    return help;
}

Remarks SetFields(const Project& project, const Ref<TasksCls>& task, const std::vector<Assignment>& assignments) {
    return SetAll(project, task, /*announced=*/true, assignments);
}

Remarks FillFields(const Project& project, const Ref<TasksCls>& task, const std::vector<Assignment>& assignments) {
    return SetAll(project, task, /*announced=*/false, assignments);
}

}  // namespace prx
