#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prx/Edit.h"

namespace prx {

/// One value that the command line sets: `start=2026-03-02`.
struct Assignment {
    std::string field;
    std::string value;
};

/// Splits `field=value`. Refuses an unknown field and names those that there are.
Assignment ReadAssignment(const std::string& text);
/// The fields, for the help: a line each.
std::string FieldHelp();

/// Sets the fields of a task in an order that lets one follow from the other, whatever order they came in; what waits
/// for the task moves along, and the summaries above follow. Refuses a value that the library does not take as it
/// stands; nothing may be saved then.
Remarks SetFields(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
                  const std::vector<Assignment>& assignments);
/// The same for a task that nobody has heard of yet: it gets its values, and nothing follows.
Remarks FillFields(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
                   const std::vector<Assignment>& assignments);

}  // namespace prx
