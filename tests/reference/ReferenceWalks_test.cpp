#include "tests/reference/ReferenceWalks.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/reference/Edits.h"

// Every operation that walks does to a drawn plan what the plain walks do to a copy of it: events in their order, all
// that is stored, failures, results.
namespace mrlxmlclass::reference {
namespace {

using testing::Draws;
using testing::Rounds;

/// One operation and all that came of it.
struct Done {
    String asked;
    String outcome;
};

template <class Walks>
Done Do(Walks& walks, const Operation<Walks>& operation, DrawnPlan& plan, Draws& draws) {
    Edit edit(plan, draws);
    const String given = operation.run(walks, edit);
    Done done{String(operation.name) + "(" + edit.asked + ")", given + "\n" + plan.Heard()};
    done.outcome += plan.failures.Taken() + plan.Stored();
    return done;
}

/// A few operations on the plan of a seed, the one that is asked for last. `MakeWalks` gives who does them.
template <class Walks, class MakeWalks>
std::vector<Done> Edited(unsigned seed, std::size_t last, MakeWalks make_walks) {
    Draws draws(seed);
    DrawnPlan plan(draws);
    Walks& walks = make_walks(plan.col());
    std::vector<Done> history{{"nothing", plan.Stored()}};
    const auto operations = Operations<Walks>();
    for (int before = draws.From(0, 2); before > 0; --before) {
        history.push_back(Do(walks, draws.One(operations), plan, draws));
    }
    history.push_back(Do(walks, operations[last], plan, draws));
    history.push_back({"ToXml", plan.col().ToXml()});
    return history;
}

std::vector<Done> ByTheCollection(unsigned seed, std::size_t operation) {
    return Edited<TasksCol>(seed, operation, [](TasksCol& col) -> TasksCol& { return col; });
}

std::vector<Done> Plainly(unsigned seed, std::size_t operation) {
    std::optional<ReferenceWalks> walks;
    return Edited<ReferenceWalks>(seed, operation,
                                  [&](TasksCol& col) -> ReferenceWalks& { return walks.emplace(col); });
}

class EveryWalk : public ::testing::TestWithParam<std::size_t> {};

TEST_P(EveryWalk, GoesAsThePlainOneDoes) {
    for (unsigned round = 1; round <= Rounds(30) && !HasFailure(); ++round) {
        const unsigned seed = 1000 * static_cast<unsigned>(GetParam()) + round;
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::vector<Done> done = ByTheCollection(seed, GetParam());
        const std::vector<Done> plain = Plainly(seed, GetParam());
        ASSERT_EQ(done.size(), plain.size());
        for (std::size_t step = 0; step < done.size(); ++step) {
            ASSERT_EQ(done[step].asked, plain[step].asked);
            ASSERT_EQ(done[step].outcome, plain[step].outcome) << done[step].asked << " on\n"
                                                               << (step == 0 ? "" : done[step - 1].outcome);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryWalk, ::testing::Range(std::size_t{0}, Operations<TasksCol>().size()),
                         [](const auto& walk) { return Operations<TasksCol>()[walk.param].name; });

}  // namespace
}  // namespace mrlxmlclass::reference
