#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "mrlxmlclass/platform/OldPlans.h"

namespace prx {

/// A row of the outline as the table has it.
struct PlannedTask {
    std::size_t line;
    mrlxmlclass::String name;
    std::optional<mrlxmlclass::Date> start;
    std::optional<mrlxmlclass::Date> end;
    bool summary;  ///< its days follow from what is below it
};

/// A plan that is written as a table, shown as the conversion reads old plans. The first row names the columns, in any
/// order; `kind` and `name` must be there, an empty field counts as none:
///
///     kind    phase, task, person, goal or obstacle
///     name    a task of the outline may share its name with others, an item may not
///     level   of a task in the outline: 1 is a phase, which needs none, 2 stands right below one; a task without a
///             level stands on that of the task above it
///     start, end   of a phase or task, yyyy-mm-dd; both or none
///     done    of a phase or task: yes or no
///     note    of a phase, task, goal or obstacle
///     people  of a phase or task: names, parted by ";"; who has no row of his own is added behind those who have
///     tasks   of a person, goal or obstacle: names of work that does not stand in the outline, parted by ";"
///
/// Rows of the outline stand in its order. Reading refuses, by line, what is no such plan.
///
/// What the conversion ties to an obstacle does not last: it is shown obstacles without work, which a host ties
/// afterwards. It is shown no days either, for it would add up the summary anew behind each: they are set afterwards.
class CsvPlan : public mrlxmlclass::OldPlans {
public:
    explicit CsvPlan(std::string_view text, std::string name);

    mrlxmlclass::Ref<mrlxmlclass::ProgressBar> NewProgressBar() override;
    mrlxmlclass::Ref<mrlxmlclass::OldProject> NewProject() override { return project_; }

    /// The rows of the outline in their order.
    const std::vector<PlannedTask>& outline() const { return outline_; }
    /// The names of the work of each obstacle, in the order of the obstacles.
    const std::vector<std::vector<mrlxmlclass::String>>& work_of_obstacles() const { return work_of_obstacles_; }

private:
    mrlxmlclass::Ref<mrlxmlclass::OldProject> project_;
    std::vector<PlannedTask> outline_;
    std::vector<std::vector<mrlxmlclass::String>> work_of_obstacles_;
};

}  // namespace prx
