#pragma once

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <random>

#include "tests/support/Sample.h"

namespace mrlxmlclass::testing {

/// Draws that a seed fixes.
class Draws {
public:
    explicit Draws(unsigned seed) : random_(seed) {}

    int From(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }
    bool OneIn(int count) { return From(1, count) == 1; }
    template <class Values>
    auto One(const Values& values) {
        return *(std::begin(values) + From(0, static_cast<int>(std::size(values)) - 1));
    }

private:
    std::mt19937 random_;
};

/// How often a test with drawn values runs: as often as it says or as a sample of that, times MRLXMLCLASS_ROUNDS where
/// that is set.
inline unsigned Rounds(unsigned ordinary) {
    const char* more = std::getenv("MRLXMLCLASS_ROUNDS");
    const unsigned rounds = std::max(1U, ordinary / kSample);
    return more != nullptr ? rounds * static_cast<unsigned>(std::strtoul(more, nullptr, 10)) : rounds;
}

}  // namespace mrlxmlclass::testing
