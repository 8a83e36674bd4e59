#pragma once

#include <string_view>

#include "mrlxmlclass/platform/OldPlans.h"

namespace prx {

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
class CsvPlan : public mrlxmlclass::OldPlans {
public:
    explicit CsvPlan(std::string_view text, std::string name);

    mrlxmlclass::Ref<mrlxmlclass::ProgressBar> NewProgressBar() override;
    mrlxmlclass::Ref<mrlxmlclass::OldProject> NewProject() override { return project_; }

private:
    mrlxmlclass::Ref<mrlxmlclass::OldProject> project_;
};

}  // namespace prx
