#include "tests/model/Shrinking.h"

#include <algorithm>

namespace mrlxmlclass::model {
namespace {

/// Without some steps in the middle; what they made senseless is left out too. Nothing where all then holds.
std::optional<Script> Without(const Script& script, std::size_t from, std::size_t count, std::string_view check) {
    Script shorter = script;
    const auto first = shorter.steps.begin() + static_cast<std::ptrdiff_t>(from);
    const auto last = shorter.steps.begin() + static_cast<std::ptrdiff_t>(std::min(from + count, script.steps.size()));
    shorter.steps.erase(first, last);
    Outcome run = RunScript(shorter);
    if (!run.complaint || run.complaint->check != check) return {};
    return std::move(run.done);
}

}  // namespace

Script Shrunk(const Script& script, std::string_view check) {
    Script shortest = script;
    for (std::size_t count = std::max<std::size_t>(script.steps.size() / 2, 1); count > 0;) {
        bool shrank = false;
        for (std::size_t from = 0; from < shortest.steps.size();) {
            if (std::optional<Script> shorter = Without(shortest, from, count, check)) {
                shortest = std::move(*shorter);
                shrank = true;
            } else {
                from += count;
            }
        }
        if (count > 1 || !shrank) count /= 2;  // one by one until nothing goes any more
    }
    return shortest;
}

String Report(const Outcome& run) {
    if (!run.complaint) return {};
    const Script shortest = Shrunk(run.done, run.complaint->check);
    const Complaint complaint = RunScript(shortest).complaint.value_or(*run.complaint);
    Script before = shortest;
    before.steps.pop_back();
    return String(complaint.check) + ": " + complaint.text + "\nafter " + Written(shortest) +
           "the plan before the last step:\n" + PlanAfter(before) + "and after it:\n" + PlanAfter(shortest);
}

}  // namespace mrlxmlclass::model
