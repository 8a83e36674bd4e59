#pragma once

#include <cstddef>
#include <string>

#include "prx/Project.h"

namespace prx {

/// What part of a plan is drawn, and how wide.
struct GanttView {
    mrlxmlclass::Date from;  ///< not set: from the first day of the plan
    mrlxmlclass::Date to;    ///< not set: to the last
    std::size_t width = 80;  ///< columns, the names and links among them
};

/// The outline as bars over a time line: summaries, milestones, free days shaded, and behind each name the rows that it
/// waits for. A column is a day, or as many as it takes to get all of it into the width.
std::string AsGantt(const Project& project, const GanttView& view);

}  // namespace prx
