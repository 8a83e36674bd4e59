#include "mrlxmlclass/runtime/Ref.h"

#include <gtest/gtest.h>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

struct OnlyDeclared;

struct Watched : Counted {
    explicit Watched(int& alive_now) : alive(alive_now) { ++alive; }
    Watched(const Watched& other) : Counted(other), alive(other.alive) { ++alive; }
    ~Watched() override { --alive; }
    int& alive;
    int mark = 0;
    Ref<Watched> next;
};

/// Hands a reference to itself around while it dies.
struct SelfNaming : Counted {
    explicit SelfNaming(int& deaths_seen) : deaths(deaths_seen) {}
    ~SelfNaming() override {
        ++deaths;
        const Ref<SelfNaming> self(this);
        const Ref<SelfNaming> copy = self;
    }
    int& deaths;
};

TEST(Ref, KeepsItsObjectUntilTheLastReferenceGoes) {
    int alive = 0;
    Ref<Watched> first = Make<Watched>(alive);
    Ref<Watched> second = first;
    EXPECT_EQ(first, second);
    first = {};
    EXPECT_EQ(alive, 1);
    second = nullptr;
    EXPECT_EQ(alive, 0);
}

TEST(Ref, SurvivesBeingAssignedToItself) {
    int alive = 0;
    Ref<Watched> held = Make<Watched>(alive);
    Ref<Watched>& same = held;
    held = same;
    held = std::move(same);
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(held->mark, 0);
}

TEST(Ref, SurvivesBeingReplacedByWhatItsObjectHolds) {
    int alive = 0;
    Ref<Watched> list = Make<Watched>(alive);
    list->next = Make<Watched>(alive);
    list->next->mark = 2;
    list = list->next;
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(list->mark, 2);
}

TEST(Ref, LeavesNothingBehindWhenMovedFrom) {
    int alive = 0;
    Ref<Watched> from = Make<Watched>(alive);
    const Ref<Watched> to = std::move(from);
    EXPECT_FALSE(from);  // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(to.alone());
}

TEST(Ref, FailsWhenNothingIsFollowed) {
    const Ref<Watched> nothing;
    EXPECT_EQ(NumberOf([&] { nothing->mark = 1; }), failure::kNothing);
    EXPECT_EQ(NumberOf([&] { (*nothing).mark = 1; }), failure::kNothing);
    EXPECT_EQ(nothing.get(), nullptr);
    EXPECT_FALSE(nothing);
}

TEST(Ref, KnowsWhetherItIsTheOnlyOne) {
    int alive = 0;
    const Ref<Watched> first = Make<Watched>(alive);
    EXPECT_TRUE(first.alone());
    {
        const Ref<Watched> second = first;
        EXPECT_FALSE(first.alone());
    }
    EXPECT_TRUE(first.alone());
    EXPECT_FALSE(Ref<Watched>().alone());
}

TEST(Ref, ComparesTheObjectAndNotItsContent) {
    int alive = 0;
    const Ref<Watched> one = Make<Watched>(alive);
    const Ref<Watched> other = Make<Watched>(alive);
    EXPECT_FALSE(one == other);
    EXPECT_TRUE(Ref<Watched>() == Ref<Watched>());
    EXPECT_TRUE(Ref<Counted>(one) == one);
}

TEST(Ref, StartsACopiedObjectWithACountOfItsOwn) {
    int alive = 0;
    const Ref<Watched> original = Make<Watched>(alive);
    const Ref<Watched> second = original;
    Ref<Watched> copy = Make<Watched>(*original);
    EXPECT_TRUE(copy.alone());
    copy = {};
    EXPECT_EQ(alive, 1);
    EXPECT_FALSE(original.alone());
}

TEST(Ref, CopiesAndDiesWhereItsClassIsOnlyDeclared) {
    Ref<OnlyDeclared> nothing;
    const Ref<OnlyDeclared> copy = nothing;
    nothing = copy;
    EXPECT_FALSE(nothing);
}

TEST(Ref, EndsAnObjectOnceThoughItNamesItselfWhileItDies) {
    int deaths = 0;
    Make<SelfNaming>(deaths);
    EXPECT_EQ(deaths, 1);
}

}  // namespace
}  // namespace mrlxmlclass
