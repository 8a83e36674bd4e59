#include "prx/Summaries.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>

#include "prx/Edit.h"
#include "prx/Inspection.h"
#include "prx/Outline.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

/// What the tasks right below a summary come to.
struct Sum {
    Date start;
    Date end;
    std::optional<Currency> cost = Currency(0);  ///< nothing where it is beyond the range of amounts
};

std::optional<Currency> Plus(std::optional<Currency> sum, Currency cost) {
    if (!sum) return sum;
    try {
        return *sum + cost;
    } catch (const Failure&) {
        return {};
    }
}

Sum SumBelow(const Ref<TasksCol>& tasks, const TasksCls& summary) {
    Sum sum;
    for (const Variant& key : tasks->GetTasksAsKeys(summary.TaskKey())->Keys()) {
        const TasksCls& task = *tasks->Item(key);
        // The library lets a task without a start take back what was found before it.
        if (task.TaskBDate() < sum.start || !sum.start.set()) sum.start = task.TaskBDate();
        sum.end = std::max(sum.end, task.TaskEDate());
        sum.cost = Plus(sum.cost, task.TaskCost());
    }
    return sum;
}

bool Spans(const TasksCls& summary, const Sum& sum) {
    return !sum.start.set() || (summary.TaskBDate() == sum.start && summary.TaskEDate() == sum.end);
}

/// All the working days of its span, as the library counts them.
bool LastsItsSpan(TasksCls& summary) {
    if (!CountsInDays(summary) || !summary.TaskBDate().set()) return true;
    const Long days = summary.SetDurationWithoutWeekend(summary.TaskBDate(), summary.TaskEDate());
    return !summary.TaskMilstones() && summary.TaskDuration() == static_cast<double>(days.value());
}

/// Where it can.
bool CostsTheirSum(const TasksCls& summary, const Sum& sum) {
    return !sum.cost || summary.TaskCost() == *sum.cost;
}

/// The summaries of an outline that is in order, by row.
std::vector<Ref<TasksCls>> SummariesOf(const Project& project) {
    std::vector<Ref<TasksCls>> summaries;
    const std::vector<OutlineRow> rows = Outline(project.tasks());
    const bool keyed = std::ranges::all_of(rows, [](const OutlineRow& row) { return row.task->TaskKey() != 0; });
    if (!keyed || !OutlineFaults(project).empty()) return summaries;
    for (const OutlineRow& row : rows) {
        if (project.tasks()->isParent(KeyOf(*row.task))) summaries.push_back(row.task);
    }
    return summaries;
}

}  // namespace

std::vector<std::string> SummaryFaults(const Project& project) {
    std::vector<std::string> lines;
    for (const Ref<TasksCls>& summary : SummariesOf(project)) {
        const Sum sum = SumBelow(project.tasks(), *summary);
        if (!CountsInDays(*summary)) {
            lines.push_back(
                fmt::format("{} counts in {}, a summary in days", TitleOf(*summary), summary->TaskDurationUnit()));
        }
        if (!Spans(*summary, sum)) {
            lines.push_back(fmt::format("{} runs from {} to {}, the tasks below it from {} to {}", TitleOf(*summary),
                                        Text(summary->TaskBDate()), Text(summary->TaskEDate()), Text(sum.start),
                                        Text(sum.end)));
        }
        if (Spans(*summary, sum) && !LastsItsSpan(*summary)) {
            lines.push_back(fmt::format("{} {}, from {} to {}", TitleOf(*summary),
                                        summary->TaskMilstones()
                                            ? "is a milestone"
                                            : fmt::format("takes {} days", Text(summary->TaskDuration())),
                                        Text(summary->TaskBDate()), Text(summary->TaskEDate())));
        }
        if (!CostsTheirSum(*summary, sum)) {
            lines.push_back(fmt::format("{} costs {}, the tasks below it {}", TitleOf(*summary),
                                        Text(summary->TaskCost()), Text(*sum.cost)));
        }
    }
    return lines;
}

std::vector<std::string> MendSummaries(const Project& project) {
    std::vector<std::string> lines = SummaryFaults(project);
    if (lines.empty()) return lines;
    const Ref<TasksCol> tasks = project.tasks();
    std::vector<Ref<TasksCls>> summaries = SummariesOf(project);
    std::ranges::reverse(summaries);
    for (const Ref<TasksCls>& summary : summaries) {
        const bool in_days = CountsInDays(*summary);
        if (!in_days) CountInDays(*summary);
        if (!in_days || !Spans(*summary, SumBelow(tasks, *summary)) || !LastsItsSpan(*summary)) {
            tasks->AdjustSummary(KeyOf(*summary));
        }
    }
    for (const Ref<TasksCls>& summary : summaries) {
        if (!CostsTheirSum(*summary, SumBelow(tasks, *summary))) tasks->AdjustCost(KeyOf(*summary));
    }
    for (std::string& line : lines) line += ": added up anew";
    return lines;
}

std::vector<std::string> CostsBeyondRange(const Project& project) {
    std::vector<std::string> lines;
    for (const Ref<TasksCls>& summary : SummariesOf(project)) {
        if (SumBelow(project.tasks(), *summary).cost) continue;
        lines.push_back(fmt::format("the tasks below {} cost more than can be added up", TitleOf(*summary)));
    }
    return lines;
}

void CountSummariesInDays(const Project& project) {
    for (const Ref<TasksCls>& summary : SummariesOf(project)) {
        if (!CountsInDays(*summary)) CountInDays(*summary);
    }
}

}  // namespace prx
