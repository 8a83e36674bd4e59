#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// Which failures an edit may record in a plan, and why. Made before the edit.
class ToldFailures {
public:
    explicit ToldFailures(World& world);

    /// Complains of a recorded failure, a line each, that the operation has no reason for.
    void Check(const Step& step, const String& recorded) const;

    /// What is known of the plan before the edit.
    struct Facts {
        bool has_phases = false;    ///< the list of phases stands
        bool phase_listed = false;  ///< with the task of the step in it
        bool undated = false;       ///< a task of the outline has no start or no end
        bool ends_far_off = false;  ///< a task of the outline ends more days behind its start than an Integer holds
        bool none_above = false;    ///< the task of the step has children, and waits for nothing that stands above it
        bool another_none_above = false;  ///< a task with children waits for others, of which none stands above it
    };

private:
    World& world_;
    Facts facts_;
};

}  // namespace mrlxmlclass::model
