#pragma once

#include <string>
#include <vector>

#include "tests/prx/Prx.h"

namespace prx_test {

/// A plan in a folder of its own, and what a test reads off it.
class PlanFolder : public Folder {
public:
    /// What the command prints; afterwards the plan is in order.
    std::string Edit(std::vector<std::string> arguments) const;
    /// What a command that must be refused says; the file stays as it was, byte for byte.
    std::string Refused(std::vector<std::string> arguments) const;
    /// The outline as a drawing: "1 Phase\n2   Design\n".
    std::string Drawing() const;
    /// First and last day of a task: "2026-03-02 2026-03-06".
    std::string Days(const std::string& name) const;
    /// The row of a task in the JSON output.
    std::string Row(const std::string& name) const;
    /// The keys of those that a task waits for: "2 6".
    std::string Predecessors(const std::string& name) const;
    /// The summaries whose days or cost are not those of the tasks below them, a line each.
    std::string WrongSummaries() const;
    /// How many tasks there are.
    int Count() const;

private:
    static std::vector<std::string> WithFile(std::vector<std::string> arguments);
};

/// The three plans to try prx on.
inline constexpr const char* kExamples[] = {"house.prx", "festival.prx", "orchard.prx"};

}  // namespace prx_test
