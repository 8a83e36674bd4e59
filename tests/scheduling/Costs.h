#pragma once

#include "tests/support/Interruption.h"

namespace mrlxmlclass::testing {

/// 1 House (typed 500)
/// 2   Phase (typed 7)
/// 3     Design (10)
/// 4     Build (20)
/// 5   Roof (100)
class Costs : public Plan {
public:
    Costs() {
        Task("House").Costing(500).Task("Phase").Under("House").Costing(7);
        Task("Design").Under("Phase").Costing(10).Task("Build").Under("Phase").Costing(20);
        Task("Roof").Under("House").Costing(100);
        Heard();
    }
};

}  // namespace mrlxmlclass::testing
