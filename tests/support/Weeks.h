#pragma once

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// The outline by row, drawn day by day from Monday on, a line a task: "#" a day of the task, "=" a free day in the
/// middle of it, "o" a milestone, "." any other working day, and a blank any other free one.
///
///     Design |###..  |.....  |
///     Build  |...##==|#....  |
String Weeks(const Plan& plan, int weeks = 2);

}  // namespace mrlxmlclass::testing
