#include "prx/Fields.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>

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
    Effects effects;
};

[[noreturn]] void NotTaken(std::string_view field, std::string_view value, const std::string& instead) {
    throw Refusal(fmt::format("{}={} was not taken: {}", field, Plain(value), instead));
}

void SetUnit(Setting& setting, const std::string& value) {
    setting.task.TaskDurationUnit(ReadUnit(value));
    setting.task.TaskDurationUnitValid("True");
    setting.task.TaskDuration(setting.task.TaskDuration());  // the end follows from the new unit
    setting.effects.dates_changed = true;
}

void SetMilestone(Setting& setting, const std::string& value) {
    const Boolean milestone = ReadFlag(value);
    setting.task.TaskMilstones(milestone);
    if (milestone) setting.task.TaskEDate(setting.task.TaskBDate());
    setting.task.TaskDuration(milestone ? 0 : 1);
    setting.effects.dates_changed = true;
}

void SetStart(Setting& setting, const std::string& value) {
    const Date wanted = ReadDate(value);
    setting.task.TaskBDate(wanted);
    const Date start = setting.task.TaskBDate();
    if (start.year() != wanted.year() && DaysBetween(wanted, start) != 0) {
        constexpr double kNearby = 31;  // over the holidays into the next year
        if (std::abs(start.days() - wanted.days()) > kNearby) NotTaken("start", value, "the year is out of range");
    }
    if (start != wanted) {
        setting.effects.notes.push_back(
            fmt::format("{} is not a working day; the task starts on {}", value, Text(start)));
    }
    setting.effects.dates_changed = true;
}

void SetDuration(Setting& setting, const std::string& value) {
    const DurationText wanted = ReadDuration(value);
    if (!wanted.unit.empty()) SetUnit(setting, wanted.unit);
    setting.task.TaskDuration(wanted.length);
    if (setting.task.TaskDuration() != wanted.length) {
        NotTaken(
            "duration", value,
            fmt::format("{} {} is the longest", Text(setting.task.TaskDuration()), setting.task.TaskDurationUnit()));
    }
    setting.effects.dates_changed = true;
}

void SetEnd(Setting& setting, const std::string& value) {
    const Date wanted = ReadDate(value);
    setting.task.TaskEDate(wanted);
    const Date end = setting.task.TaskEDate();
    if (end < wanted || end > wanted) {
        const bool early = wanted < setting.task.TaskBDate();
        NotTaken("end", value,
                 early ? fmt::format("the task starts on {}", Text(setting.task.TaskBDate()))
                       : fmt::format("the library gives {}", Text(end)));
    }
    setting.effects.dates_changed = true;
}

void SetDone(Setting& setting, const std::string& value) {
    constexpr int kWhole = 100;
    const std::string_view number = value;
    setting.task.TaskPercentDone(
        ReadWhole(number.substr(0, number.size() - (number.ends_with('%') ? 1 : 0)), 0, kWhole));
}

void SetCost(Setting& setting, const std::string& value) {
    setting.task.TaskCost(ReadMoney(value));
    setting.effects.cost_changed = true;
}

void SetColour(Setting& setting, const std::string& value) {
    constexpr int kMostColours = 0xFFFFFF;
    setting.task.TaskColor(ReadWhole(value, 0, kMostColours));
}

void SetName(Setting& setting, const std::string& value) {
    setting.project.tasks()->ChangeName(KeyOf(setting.task), ReadName(value));
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

Effects SetFields(const Project& project, const Ref<TasksCls>& task, const std::vector<Assignment>& assignments) {
    Setting setting{project, *task, {}};
    const bool summary = static_cast<bool>(project.tasks()->isParent(KeyOf(*task)));
    if (ValueFor(*FindField("duration"), assignments) != nullptr &&
        ValueFor(*FindField("end"), assignments) != nullptr) {
        throw Refusal("set the duration or the end, not both: one follows from the other");
    }
    for (const Field& field : kFields) {
        const std::string* value = ValueFor(field, assignments);
        if (value == nullptr) continue;
        if (summary && !field.of_summaries) {
            throw Refusal(
                fmt::format("the {} of \"{}\" follows from the tasks below it", field.name, Plain(task->TaskName())));
        }
        field.set(setting, *value);
    }
    return setting.effects;
}

}  // namespace prx
