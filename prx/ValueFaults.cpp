#include "prx/ValueFaults.h"

#include <fmt/core.h>

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "prx/Calendar.h"
#include "prx/Edit.h"
#include "prx/Outline.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

using Lines = std::vector<std::string>;

void CheckDates(const TasksCls& task, Lines& lines) {
    if (task.TaskBDate().set() && task.TaskEDate().set() && task.TaskEDate() < task.TaskBDate()) {
        lines.push_back(fmt::format("{} ends before it starts", TitleOf(task)));
    }
}

/// No day is free between the two but by the calendar, and one that was changed leaves tasks as they are: only a task
/// of a day at most is known to be too short. Of less than a day it may end on the next one.
bool IsTooShort(TasksCls& task) {
    if (task.TaskMilstones()) return false;
    if (task.TaskDuration() == 0) return true;
    constexpr int kMostDays = 2;
    return task.TaskDurationUnit() == "days" && task.TaskDuration() <= 1 &&
           task.SetDurationWithoutWeekend(task.TaskBDate(), task.TaskEDate()) > kMostDays;
}

/// Whatever days are free, it takes no more than there are; nor weeks or months, which a walk lays out as days where it
/// steps over free ones. Hours and minutes may all lie in one day.
void CheckLength(TasksCls& task, Lines& lines) {
    if (!task.TaskBDate().set() || task.TaskEDate() < task.TaskBDate()) return;
    const double length = task.TaskDuration();
    const double days = task.TaskEDate().day().days() - task.TaskBDate().day().days() + 1;
    const String unit = task.TaskDurationUnit();
    const double most = unit == "hrs" || unit == "mins" ? kLongestDuration : days;
    if (length >= 0 && length <= most && !IsTooShort(task)) return;
    lines.push_back(fmt::format("{} takes {} {}, from {} to {}", TitleOf(task), Text(length), unit,
                                Text(task.TaskBDate()), Text(task.TaskEDate())));
}

void CheckProgress(const TasksCls& task, Lines& lines) {
    constexpr int kWhole = 100;
    if (task.TaskPercentDone() >= 0 && task.TaskPercentDone() <= kWhole) return;
    lines.push_back(fmt::format("{} is {}% done", TitleOf(task), Text(Long(task.TaskPercentDone()))));
}

void CheckWeekdays(const CalendarCls& calendar, Lines& lines) {
    constexpr std::size_t kWidest = 20;
    for (const auto& entry : calendar.NonWorkingDay()->Snapshot()) {
        const std::string day = entry.key.value().Key().text();
        if (day.size() == 1 && day >= "1" && day <= std::to_string(kDaysOfAWeek)) continue;
        lines.push_back(fmt::format("the calendar has a free weekday \"{}\"; a week has 1 to {}",
                                    Plain(CutTo(day, kWidest)), kDaysOfAWeek));
    }
    if (!HasWorkingWeekday(calendar)) lines.push_back("the calendar has no working weekday");
}

/// The library takes a day by the first half of its pair.
void CheckPairs(const char* list, const Ref<Dictionary>& days, Lines& lines) {
    constexpr std::size_t kWidest = 40;
    for (const auto& entry : days->Snapshot()) {
        const std::string first = entry.key.value().Key().text();
        const std::string second = entry.item.Text();
        if (first == second) continue;
        lines.push_back(fmt::format("the calendar has \"{}:{}\" in {}, where both are one day",
                                    Plain(CutTo(first, kWidest)), Plain(CutTo(second, kWidest)), list));
    }
}

}  // namespace

Lines ValueFaults(const Project& project) {
    Lines lines;
    for (const OutlineRow& row : Outline(project.tasks())) {
        CheckDates(*row.task, lines);
        if (!project.tasks()->isParent(KeyOf(*row.task))) CheckLength(*row.task, lines);  // a summary's is mended
        CheckProgress(*row.task, lines);
    }
    const CalendarCls& calendar = *project.app().xCalendar();
    CheckWeekdays(calendar, lines);
    CheckPairs("NonWorkingDays", calendar.NonWorkingDay(), lines);
    CheckPairs("Holiday", calendar.Holiday(), lines);
    CheckPairs("ExceptionDay", calendar.ExceptionDay(), lines);
    return lines;
}

void RefuseBeyondLastYear(const Project& project) {
    Ref<TasksCls> beyond;  // the first one, and rather a task than the summaries above it
    for (const OutlineRow& row : Outline(project.tasks())) {
        if (row.task->TaskBDate().year() <= MaxYear() && row.task->TaskEDate().year() <= MaxYear()) continue;
        if (!beyond || project.tasks()->isParent(KeyOf(*beyond))) beyond = row.task;
    }
    if (!beyond) return;
    throw Refusal(fmt::format("{} would run from {} to {}; a plan must stay within the years {} to {}", Quoted(*beyond),
                              Text(beyond->TaskBDate()), Text(beyond->TaskEDate()), kMinYear, MaxYear().value()));
}

}  // namespace prx
