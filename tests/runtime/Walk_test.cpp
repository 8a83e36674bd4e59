#include "mrlxmlclass/runtime/Walk.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "mrlxmlclass/runtime/Numbers.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/Failures.h"

namespace mrlxmlclass {
namespace {

using testing::Failures;

constexpr FailureTail kClimberTail{"Climber"};
constexpr FailureTail kKeepingTail{"Keeper", FailureTail::Gives::SoFar};

Walk<Long> Depth(int levels) {
    auto& result = co_await kClimberTail.Begin("Depth");
    if (levels == 0) co_return;
    auto below = Depth(levels - 1);
    result = co_await std::move(below);
    ++result;
}

/// Fails on the level `bad`, and says afterwards what came from below.
Walk<String> Descend(int level, int bad, String& seen) {
    auto& result = co_await kClimberTail.Begin("Descend");
    result = "level " + std::to_string(level);
    if (level == bad) Raise(failure::kUnknownKey);
    if (level == 3) co_return;
    auto walk = Descend(level + 1, bad, seen);
    const String below = co_await std::move(walk);
    seen += std::to_string(level) + " got <" + below + ">\n";
}

Walk<Long> FailsWith(std::function<void()> act, const FailureTail& tail) {
    auto& result = co_await tail.Begin("FailsWith");
    result = 7;
    act();
    result = 8;
}

TEST(Walk, GivesWhatTheOutermostCallMade) {
    const Failures failures;
    EXPECT_EQ(Depth(0).Run(), 0);
    EXPECT_EQ(Depth(5).Run(), 5);
}

/// A call that waits for another, unless there is none to wait for.
Walk<Long> Short(int levels) {
    if (levels == 0) return Long(40);
    return Depth(levels);
}

TEST(Walk, MayBeOverBeforeItWaits) {
    const Failures failures;
    EXPECT_EQ(Short(0).Run(), 40);
    EXPECT_EQ(Short(2).Run(), 2);
    const auto caller = []() -> Walk<Long> {
        auto& result = co_await kClimberTail.Begin("Caller");
        auto over = Short(0);
        auto deep = Short(3);
        result = co_await std::move(over);
        result += co_await std::move(deep);
    };
    EXPECT_EQ(caller().Run(), 43);
}

TEST(Walk, NestsToAnyDepthOnASmallStack) {
    dom::OnSmallStack([] {
        const Failures failures;
        EXPECT_EQ(Depth(200'000).Run(), 200'000);
    });
}

TEST(Walk, EndsTheCallThatFailedAndLetsItsCallersGoOn) {
    Failures failures;
    String seen;
    EXPECT_EQ(Descend(1, 3, seen).Run(), "level 1");
    EXPECT_EQ(seen, "2 got <>\n1 got <level 2>\n");
    EXPECT_EQ(failures.Taken(), "Climber/Descend 5\n");
}

TEST(Walk, GivesTheEmptyValueWhenTheOutermostCallFails) {
    Failures failures;
    String seen;
    EXPECT_EQ(Descend(1, 1, seen).Run(), "");
    EXPECT_EQ(failures.Taken(), "Climber/Descend 5\n");
}

TEST(Walk, GivesTheResultSoFarUnderATailThatKeepsIt) {
    Failures failures;
    EXPECT_EQ(FailsWith([] { Raise(failure::kOverflow); }, kKeepingTail).Run(), 7);
    EXPECT_EQ(failures.Taken(), "Keeper/FailsWith 6\n");
}

TEST(Walk, LetsNoOtherExceptionPass) {
    Failures failures;
    EXPECT_EQ(FailsWith([] { throw std::bad_alloc(); }, kClimberTail).Run(), 0);
    EXPECT_EQ(FailsWith([] { throw std::logic_error("not ours"); }, kClimberTail).Run(), 0);
    EXPECT_EQ(FailsWith([] { throw 1; }, kClimberTail).Run(), 0);
    EXPECT_EQ(failures.Taken(), "Climber/FailsWith 7\nClimber/FailsWith 51\nClimber/FailsWith 51\n");
}

TEST(Walk, RecordsAsItsOwnWhatFailsBeforeATailIsOpen) {
    Failures failures;
    const auto late = [](bool fail) -> Walk<Long> {
        if (fail) Raise(failure::kUnknownKey);
        auto& result = co_await kClimberTail.Begin("late");
        result = 7;
    };
    EXPECT_EQ(late(false).Run(), 7);
    EXPECT_EQ(late(true).Run(), 0);
    EXPECT_EQ(failures.Taken(), "Walk/Begin 5\n");
}

TEST(Walk, LeavesANumberSilentThatItsTailDoesNotRecord) {
    const Failures failures;
    static constexpr FailureTail silent{"Silent", FailureTail::Gives::Empty, failure::kUnknownKey};
    EXPECT_EQ(FailsWith([] { Raise(failure::kUnknownKey); }, silent).Run(), 0);
}

TEST(Walk, RunsAnotherWalkInside) {
    const Failures failures;
    Long inner;
    EXPECT_EQ(FailsWith([&] { inner = Depth(3).Run(); }, kClimberTail).Run(), 8);
    EXPECT_EQ(inner, 3);
}

TEST(Walk, DoesNothingBeforeItRuns) {
    const Failures failures;
    bool ran = false;
    {
        const auto walk = FailsWith([&] { ran = true; }, kClimberTail);
    }
    EXPECT_FALSE(ran);
}

TEST(Walk, TakesItsFramesDownAsItReturns) {
    Failures failures;
    struct Watched {
        explicit Watched(int& count) : alive(count) { ++alive; }
        ~Watched() { --alive; }
        int& alive;
    };
    int alive = 0;
    int most = 0;
    const auto below = [&](auto&& self, int levels) -> Walk<Long> {
        auto& result = co_await kClimberTail.Begin("below");
        const Watched watched(alive);
        most = std::max(most, alive);
        result = levels;
        if (levels == 0) Raise(failure::kUnknownKey);
        auto walk = self(self, levels - 1);
        co_await std::move(walk);
        auto again = self(self, levels > 1 ? 1 : 0);
        if (levels == 3) co_await std::move(again);
    };
    static_cast<void>(below(below, 3).Run());
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(most, 4);
    EXPECT_EQ(failures.Taken(), "Climber/below 5\nClimber/below 5\n");
}

}  // namespace
}  // namespace mrlxmlclass
