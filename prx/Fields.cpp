#include "prx/Fields.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "mrlxmlclass/session/ModuleState.h"
#include "prx/Edit.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// What the setting of one field may touch.
struct Setting {
    const Project& project;
    TasksCls& task;
    bool announced;  ///< false: nobody has heard of the task yet
    Remarks remarks;

    TasksCol& tasks() const { return *project.tasks(); }
    std::string key() const { return KeyOf(task); }
    /// Whether a walk along the links starts here: it gives no first date, and a task in weeks or months no start.
    bool walks() const { return announced && task.TaskBDate().set(); }
    bool in_days() const { return task.TaskDurationUnit() != "wks" && task.TaskDurationUnit() != "mons"; }
};

[[noreturn]] void NotTaken(std::string_view field, std::string_view value, const std::string& instead) {
    throw Refusal(fmt::format("{}={} was not taken: {}", field, Plain(value), instead));
}

void SetDurationIn(Setting& setting, Double length, const String& unit) {
    const String in = unit.empty() ? setting.task.TaskDurationUnit() : unit;
    const bool whole_days = in != "hrs" && in != "mins" && length == std::floor(length);
    if (setting.walks() && whole_days) {
        setting.task.TaskMilstones(False);  // a milestone would keep no duration
        setting.tasks().DurationChanged(setting.key(), length, unit);
        return;
    }
    // A walk that starts at the end would round the duration to whole days.
    if (!unit.empty()) {
        setting.task.TaskDurationUnit(unit);
        setting.task.TaskDurationUnitValid("True");
    }
    if (setting.announced) setting.task.TaskMilstones(False);
    setting.task.TaskDuration(length);
    if (setting.announced) DatesChanged(setting.project, setting.task);
}

void SetUnit(Setting& setting, const std::string& value) {
    SetDurationIn(setting, setting.task.TaskDuration(), ReadUnit(value));
}

void SetMilestone(Setting& setting, const std::string& value) {
    const Boolean milestone = ReadFlag(value);
    if (!setting.announced) {
        setting.task.TaskMilstones(milestone);
        if (milestone) setting.task.TaskEDate(setting.task.TaskBDate());
        setting.task.TaskDuration(milestone ? 0 : 1);
    } else if (milestone) {
        setting.tasks().SeTAsMilstones(setting.project.tasks(), setting.key());
    } else if (setting.task.TaskMilstones()) {
        SetDurationIn(setting, 1, {});
    }
}

/// The gaps to what the task waits for are measured anew: the day is the one that was asked for.
void MoveStart(Setting& setting, Date wanted) {
    if (setting.walks() && setting.in_days()) {
        setting.tasks().DependsDateChanged(setting.key(), wanted, /*StartFinishDate=*/1, /*LeadTimeCalc=*/True);
        AdjustDatesAbove(setting.project, setting.task);
        return;
    }
    const Double length = setting.task.TaskDuration();
    setting.task.TaskLag(0);
    setting.task.TaskBDate(wanted);
    if (!setting.task.TaskEDate().set()) {  // the first start of all leaves the end open and the duration at a day
        setting.task.TaskBDate(wanted);
        setting.task.TaskDuration(length);
    }
    if (!setting.announced) return;
    setting.task.TaskLag(setting.tasks().CalcLeadTime(setting.key()));
    DatesChanged(setting.project, setting.task);
}

void SetStart(Setting& setting, const std::string& value) {
    const Date wanted = ReadDate(value);
    MoveStart(setting, wanted);
    const Date start = setting.task.TaskBDate();
    if (start.year() != wanted.year() && DaysBetween(wanted, start) != 0) {
        constexpr double kNearby = 31;  // over the holidays into the next year
        if (std::abs(start.days() - wanted.days()) > kNearby) NotTaken("start", value, "the year is out of range");
    }
    if (start != wanted) {
        setting.remarks.push_back(fmt::format("{} is not a working day; the task starts on {}", value, Text(start)));
    }
}

void SetDuration(Setting& setting, const std::string& value) {
    const DurationText wanted = ReadDuration(value);
    SetDurationIn(setting, wanted.length, wanted.unit);
    if (setting.task.TaskDuration() != wanted.length) {
        NotTaken(
            "duration", value,
            fmt::format("{} {} is the longest", Text(setting.task.TaskDuration()), setting.task.TaskDurationUnit()));
    }
}

void MoveEnd(Setting& setting, Date wanted) {
    if (!setting.announced) {
        setting.task.TaskEDate(wanted);
        return;
    }
    const Integer shift = setting.task.TaskEDate().set() ? DaysBetween(setting.task.TaskEDate(), wanted) : Long(0);
    setting.tasks().DependsDateChanged(setting.key(), wanted, /*StartFinishDate=*/2, /*LeadTimeCalc=*/True,
                                       /*SummaryCalc=*/True, /*p_number_to_shift=*/0, /*p_not_same_parent=*/False,
                                       /*p_calc_date=*/True, /*p_changeds=*/{}, shift);
    AdjustDatesAbove(setting.project, setting.task);
}

void SetEnd(Setting& setting, const std::string& value) {
    const Date wanted = ReadDate(value);
    if (wanted < setting.task.TaskBDate()) {
        NotTaken("end", value, fmt::format("the task starts on {}", Text(setting.task.TaskBDate())));
    }
    if (wanted.year() > MaxYear()) NotTaken("end", value, "the year is out of range");
    MoveEnd(setting, wanted);
    const Date end = setting.task.TaskEDate();
    if (end != wanted) NotTaken("end", value, fmt::format("the library gives {}", Text(end)));
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
    void (*set)(Setting& setting, const std::string& value);
};

/// In the order in which they are set.
constexpr std::array kFields = {
    Field{"unit", "days, wks, mons, hrs or mins", false, SetUnit},
    Field{"milestone", "yes or no", false, SetMilestone},
    Field{"start", "yyyy-mm-dd; the end moves along", false, SetStart},
    Field{"duration", "such as 5, \"5 days\" or 2wks; the end follows", false, SetDuration},
    Field{"end", "yyyy-mm-dd; the duration follows", false, SetEnd},
    Field{"done", "percent, 0 to 100", true, SetDone},
    Field{"cost", "such as 1250 or 1250.50", false, SetCost},
    Field{"colour", "a number, 0 to 16777215", true, SetColour},
    Field{"name", "one line of text", true, SetName},
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

Remarks SetAll(Setting setting, const std::vector<Assignment>& assignments) {
    const bool summary = static_cast<bool>(setting.tasks().isParent(setting.key()));
    if (ValueFor(*FindField("duration"), assignments) != nullptr &&
        ValueFor(*FindField("end"), assignments) != nullptr) {
        throw Refusal("set the duration or the end, not both: one follows from the other");
    }
    for (const Field& field : kFields) {
        const std::string* value = ValueFor(field, assignments);
        if (value == nullptr) continue;
        if (summary && !field.of_summaries) {
            throw Refusal(fmt::format("the {} of \"{}\" follows from the tasks below it", field.name,
                                      Plain(setting.task.TaskName())));
        }
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
    return SetAll({project, *task, /*announced=*/true, {}}, assignments);
}

Remarks FillFields(const Project& project, const Ref<TasksCls>& task, const std::vector<Assignment>& assignments) {
    return SetAll({project, *task, /*announced=*/false, {}}, assignments);
}

}  // namespace prx
