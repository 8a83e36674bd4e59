#include "prx/Gantt.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "mrlxmlclass/scheduling/Waits.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/xml/ProjectsCls.h"
#include "prx/Edit.h"
#include "prx/Outline.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr const char* kTask = "█";
constexpr const char* kTaskOnFreeDay = "▒";
constexpr const char* kSummary = "▀";
constexpr const char* kMilestone = "◆";
constexpr const char* kFreeDay = "░";
constexpr const char* kNothing = " ";

constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

int Weekday(Date day) {                   // 0 = Monday
    constexpr std::int64_t kAMonday = 2;  // 1 January 1900
    const auto days = static_cast<std::int64_t>(day.day().days()) - kAMonday;
    return static_cast<int>((days % kDaysOfAWeek + kDaysOfAWeek) % kDaysOfAWeek);
}

Date Plus(Date day, std::int64_t days) {
    return Date(day.days() + static_cast<double>(days));
}

/// The days of the chart, cut into columns of equal length.
class TimeLine {
public:
    TimeLine(Date from, Date to, std::size_t columns) : first_(from.day()) {
        const std::int64_t room = static_cast<std::int64_t>(columns);
        std::int64_t days = DaysBetween(first_, to.day()) + 1;
        if (days > room) {  // whole weeks stand below each other
            first_ = Plus(first_, -Weekday(first_));
            days = DaysBetween(first_, to.day()) + 1;
        }
        step_ = (days + room - 1) / room;
        columns_ = static_cast<std::size_t>((days + step_ - 1) / step_);
        for (std::size_t column = 0; column < columns_; ++column) {
            free_.push_back(2 * FreeDays(day(column), day(column + 1)) >= step_);
        }
    }

    std::size_t columns() const { return columns_; }
    std::int64_t step() const { return step_; }
    Date day(std::size_t column) const { return Plus(first_, static_cast<std::int64_t>(column) * step_); }
    bool MostlyFree(std::size_t column) const { return free_[column]; }
    /// Whether a day of the column lies between the two.
    bool Touches(std::size_t column, Date from, Date to) const {
        return to.day() >= day(column) && from.day() < day(column + 1);
    }
    /// Whether one of them is a working day.
    bool TouchesWork(std::size_t column, Date from, Date to) const {
        const Date begin = std::max(from.day(), day(column));
        const Date end = std::min(Plus(to.day(), 1), day(column + 1));
        return FreeDays(begin, end) < DaysBetween(begin, end);
    }

private:
    static std::int64_t FreeDays(Date begin, Date end) {
        std::int64_t free = 0;
        for (Date day = begin; day < end; day = Plus(day, 1)) free += Gloabal::IsNonWorkingDay(day) ? 1 : 0;
        return free;
    }

    Date first_;
    std::int64_t step_ = 1;
    std::size_t columns_ = 0;
    std::vector<bool> free_;
};

/// A line of labels over the columns.
class Labels {
public:
    explicit Labels(std::size_t columns) : line_(columns, ' ') {}
    /// Puts a label where it fits with a blank on either side; where it does not, it is left out.
    void Put(std::size_t column, const std::string& label) {
        const std::size_t from = column == 0 ? 0 : column - 1;
        const std::size_t to = std::min(column + label.size() + 1, line_.size());
        if (column + label.size() > line_.size()) return;
        if (line_.substr(from, to - from).find_first_not_of(' ') != std::string::npos) return;
        line_.replace(column, label.size(), label);
    }
    const std::string& line() const { return line_; }

private:
    std::string line_;
};

/// The months where they begin, a January by its year.
std::string MonthLine(const TimeLine& time) {
    Labels months(time.columns());
    for (const bool only_years : {true, false}) {
        for (std::size_t column = 0; column < time.columns(); ++column) {
            const Date last = Plus(time.day(column), time.step() - 1);
            if (column > 0 && last.day_of_month() > time.step()) continue;
            const Date month = column == 0 ? time.day(0) : last;
            const bool january = column > 0 && month.month() == 1;
            if (january != only_years) continue;
            months.Put(column,
                       january ? std::to_string(month.year()) : kMonths[static_cast<std::size_t>(month.month() - 1)]);
        }
    }
    return months.line();
}

/// The days on which weeks begin, where the weeks have room for them.
std::string DayLine(const TimeLine& time) {
    Labels days(time.columns());
    constexpr int kWidestDay = 2;
    if (time.step() > kWidestDay) return "";
    for (std::size_t column = 0; column < time.columns(); ++column) {
        for (Date day = time.day(column); day < time.day(column + 1); day = Plus(day, 1)) {
            if (Weekday(day) == 0) days.Put(column, std::to_string(day.day_of_month()));
        }
    }
    return days.line();
}

std::string Bar(const TimeLine& time, const TasksCls& task, bool summary) {
    const Date from = task.TaskBDate();
    const Date to = task.TaskMilstones() || task.TaskEDate() < from ? from : task.TaskEDate();
    std::string bar;
    for (std::size_t column = 0; column < time.columns(); ++column) {
        if (!from.set() || !time.Touches(column, from, to)) {
            bar += time.MostlyFree(column) ? kFreeDay : kNothing;
        } else if (task.TaskMilstones()) {
            bar += kMilestone;
        } else if (summary) {
            bar += kSummary;
        } else {
            bar += time.TouchesWork(column, from, to) ? kTask : kTaskOnFreeDay;
        }
    }
    return bar;
}

/// "7,9+2": rows, each with its lag.
std::string LinkCell(const Project& project, const Ref<TasksCls>& task) {
    std::string cell;
    for (const Ref<TasksCls>& predecessor : PredecessorsOf(project.tasks(), *task)) {
        const Integer lag = LeadOf(project.tasks(), {task, predecessor});
        cell += fmt::format("{}{}", cell.empty() ? "" : ",", predecessor->TaskPosition().value());
        if (lag != 0) cell += fmt::format("{:+}", lag.value());
    }
    return cell;
}

struct GanttRow {
    OutlineRow row;
    std::string number;
    std::string name;
    std::string links;
};

std::vector<GanttRow> RowsIn(const Project& project, Date from, Date to) {
    constexpr std::size_t kDeepestDrawn = 8;
    constexpr std::size_t kWidestName = 400;
    std::vector<GanttRow> rows;
    for (const OutlineRow& row : Outline(project.tasks())) {
        TasksCls& task = *row.task;
        const Date last = std::max(task.TaskBDate(), task.TaskEDate());
        if (task.TaskBDate().set() && (last < from || task.TaskBDate() > to)) continue;
        const std::string indent(std::min(row.level, kDeepestDrawn), ' ');
        rows.push_back({row, Text(task.TaskPosition()), indent + Plain(CutTo(task.TaskName(), kWidestName)),
                        LinkCell(project, row.task)});
    }
    return rows;
}

std::size_t Widest(const std::vector<GanttRow>& rows, std::string GanttRow::*cell, std::size_t least,
                   std::size_t most) {
    std::size_t width = least;
    for (const GanttRow& row : rows) width = std::max(width, Width(row.*cell));
    return std::min(width, most);
}

std::string Legend(std::int64_t step, std::size_t width) {
    std::string legend = fmt::format("A column is {}:", step == 1 ? "a day" : fmt::format("{} days", step));
    const std::string signs = fmt::format("{} task  {} on free days  {} summary  {} milestone  {} free\n", kTask,
                                          kTaskOnFreeDay, kSummary, kMilestone, kFreeDay);
    const bool fits = Width(legend) + Width(signs) <= width;
    return legend + (fits ? " " : "\n") + signs;
}

std::string WithoutEnd(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

}  // namespace

std::string AsGantt(const Project& project, const GanttView& view) {
    constexpr std::size_t kNarrowest = 60;
    if (view.width < kNarrowest) throw Refusal(fmt::format("a chart needs {} columns at least", kNarrowest));
    Application& app = project.app();
    if (project.tasks()->Count() == 0) return "There is nothing to draw: the plan has no tasks\n";
    const Date from = view.from.set() ? view.from : app.MinDate();
    const Date to = view.to.set() ? view.to : app.MaxDate();
    if (to < from) throw Refusal(fmt::format("there is no day from {} to {}", Text(from), Text(to)));
    constexpr int kMostDays = 36'600;
    if (DaysBetween(from, to) > kMostDays) {
        throw Refusal(fmt::format("from {} to {} is too long for a chart; draw a part of it with --from and --to",
                                  Text(from), Text(to)));
    }
    const std::vector<GanttRow> rows = RowsIn(project, from, to);

    // A third of the width is for the names; what they and the links do not take is the chart's.
    const std::size_t number = Widest(rows, &GanttRow::number, 3, 5);
    const std::size_t name = Widest(rows, &GanttRow::name, 4, view.width * 3 / 10);
    const std::size_t links = Widest(rows, &GanttRow::links, 5, view.width / 8);
    const std::size_t before = number + 1 + name + 1 + links + 1;
    const TimeLine time(from, to, view.width - before);

    const std::string title = Plain(app.xProject()->ProjectName());
    std::string text =
        fmt::format("{}, {} to {}\n", CutTo(title.empty() ? kNoName : title, view.width - 26), Text(from), Text(to));
    text += WithoutEnd(std::string(before, ' ') + MonthLine(time));
    text += WithoutEnd(PadLeft("Row", number) + " " + PadRight("Task", name) + " " + PadRight("After", links) + " " +
                       DayLine(time));
    for (const GanttRow& row : rows) {
        const bool summary = static_cast<bool>(project.tasks()->isParent(KeyOf(*row.row.task)));
        text += WithoutEnd(PadLeft(row.number, number) + " " + PadRight(CutTo(row.name, name), name) + " " +
                           PadRight(CutTo(row.links, links), links) + " " + Bar(time, *row.row.task, summary));
    }
    return text + Legend(time.step(), view.width);
}

}  // namespace prx
