#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// What came of running a script.
struct Outcome {
    std::optional<Complaint> complaint;  ///< nothing when all held
    Script done;                         ///< the steps that made sense, up to the one complained of
};

/// Draws a script step by step, each for the plan that the ones before it made, and runs it.
Outcome RunSeed(unsigned seed);
Outcome RunScript(const Script& script);

/// The plan that a script makes, drawn with its links.
String PlanAfter(const Script& script);

}  // namespace mrlxmlclass::model
