#pragma once

#include "tests/model/Running.h"

namespace mrlxmlclass::model {

/// Leaves out the steps that a complaint of the same check does not need, many at a time first.
Script Shrunk(const Script& script, std::string_view check);

/// A failed run as a reader needs it: the complaint, the shortest script that leads to it, the plan before its last
/// step and behind it.
String Report(const Outcome& run);

}  // namespace mrlxmlclass::model
