#include "tests/support/Weeks.h"

#include <algorithm>

#include "mrlxmlclass/scheduling/WorkingDays.h"

namespace mrlxmlclass::testing {
namespace {

char Sign(const TasksCls& task, Date day) {
    const bool free = Gloabal::IsNonWorkingDay(day).full();
    if (!task.TaskBDate().set() || day < task.TaskBDate() || task.TaskEDate() < day) return free ? ' ' : '.';
    if (task.TaskMilstones()) return 'o';
    return free ? '=' : '#';
}

}  // namespace

String Weeks(const Plan& plan, int weeks) {
    std::multimap<int, Ref<TasksCls>> rows;
    std::size_t width = 0;
    for (const auto& entry : plan.col().NewEnum()) {
        if (!entry.item->TaskCondidat()) continue;
        rows.emplace(entry.item->TaskPosition().value(), entry.item);
        width = std::max(width, entry.item->TaskName().size());
    }
    String drawing;
    for (const auto& [row, task] : rows) {
        drawing += task->TaskName();
        drawing.append(width - task->TaskName().size(), ' ');
        drawing += " |";
        for (int day = 0; day < 7 * weeks; ++day) {
            drawing += Sign(*task, Monday + day);
            if (day % 7 == 6) drawing += '|';
        }
        drawing += '\n';
    }
    return drawing;
}

}  // namespace mrlxmlclass::testing
