#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prx/Project.h"

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

/// What setting fields leads to.
struct Effects {
    std::vector<std::string> notes;  ///< worth telling: a start that was moved to a working day
    bool dates_changed = false;
    bool cost_changed = false;
};

/// Sets the fields of a task in an order that lets one follow from the other, whatever order they came in. Refuses a
/// value that the library does not take as it stands; nothing may be saved then.
Effects SetFields(const Project& project, const mrlxmlclass::Ref<mrlxmlclass::TasksCls>& task,
                  const std::vector<Assignment>& assignments);

}  // namespace prx
