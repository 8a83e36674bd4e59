#pragma once

#include <gtest/gtest.h>

#include <span>

#include "tests/reference/DrawnPlan.h"
#include "tests/reference/ReferenceWalks.h"

namespace mrlxmlclass::reference {

/// A call of one operation with drawn arguments, which are noted as they are drawn.
class Edit {
public:
    Edit(DrawnPlan& drawn_for, testing::Draws& drawn_by) : plan(drawn_for), draws(drawn_by) {}

    bool Flag(int one_in = 2) { return Asked(draws.OneIn(one_in)); }
    int Number(int first, int last) { return Asked(draws.From(first, last)); }
    Date Day() { return Asked(plan.AnyDay()); }
    String Key() { return Asked(plan.AnyKey()); }
    String KeyOrNone() { return Asked(draws.OneIn(2) ? String() : plan.Existing()); }
    template <class Value>
    Value Asked(Value value) {
        asked += (asked.empty() ? "" : ", ") + ::testing::PrintToString(value);
        return value;
    }

    DrawnPlan& plan;
    testing::Draws& draws;
    String asked;
};

/// What an operation gives and writes back, as text.
template <class Walks>
struct Operation {
    const char* name;
    String (*run)(Walks& walks, Edit& edit);
};

/// The operations of a task collection that walk, or of the walks that stand beside it: the same ones in both.
template <class Walks>
std::span<const Operation<Walks>> Operations();

extern template std::span<const Operation<TasksCol>> Operations();
extern template std::span<const Operation<ReferenceWalks>> Operations();

}  // namespace mrlxmlclass::reference
