#include "mrlxmlclass/runtime/LazyCell.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

struct Notes : Counted {
    ~Notes() override {
        if (last_act) last_act();
    }
    std::function<void()> last_act;
};

Ref<Notes> MakeNotes() {
    return Make<Notes>();
}

TEST(LazyCell, MakesItsObjectAtTheFirstRead) {
    LazyCell<Notes> cell;
    int made = 0;
    const auto make = [&] {
        ++made;
        return Make<Notes>();
    };
    EXPECT_FALSE(cell.Peek());
    EXPECT_EQ(made, 0);
    const Ref<Notes> first = cell.ReadOr(make);
    EXPECT_TRUE(first);
    EXPECT_EQ(cell.ReadOr(make), first);
    EXPECT_EQ(cell.Peek(), first);
    EXPECT_EQ(made, 1);
}

TEST(LazyCell, SharesItsPlaceBeforeAnythingStandsThere) {
    for (const bool original_first : {true, false}) {
        LazyCell<Notes> original;
        LazyCell<Notes> clone = original.Share();
        EXPECT_FALSE(clone.Peek());
        const Ref<Notes> notes = (original_first ? original : clone).ReadOr(MakeNotes);
        EXPECT_EQ(original.Peek(), notes);
        EXPECT_EQ(clone.Peek(), notes);
        EXPECT_EQ((original_first ? clone : original).ReadOr(MakeNotes), notes);
    }
}

TEST(LazyCell, SharesOnePlaceAlongAChainOfClones) {
    LazyCell<Notes> first;
    LazyCell<Notes> second = first.Share();
    LazyCell<Notes> third = second.Share();
    const Ref<Notes> notes = third.ReadOr(MakeNotes);
    EXPECT_EQ(first.Peek(), notes);
    EXPECT_EQ(second.Peek(), notes);
}

TEST(LazyCell, LeavesItsClonesTheirsWhenItIsSet) {
    LazyCell<Notes> original;
    LazyCell<Notes> clone = original.Share();
    const Ref<Notes> shared = clone.ReadOr(MakeNotes);
    const Ref<Notes> own = MakeNotes();
    original.Set(own);
    EXPECT_EQ(original.Peek(), own);
    EXPECT_EQ(clone.Peek(), shared);
}

TEST(LazyCell, PartsFromItsClonesWhenItIsSetToNothing) {
    LazyCell<Notes> original;
    LazyCell<Notes> clone = original.Share();
    original.Set({});
    EXPECT_TRUE(clone.ReadOr(MakeNotes));
    EXPECT_FALSE(original.Peek());
    EXPECT_FALSE(original.ReadOr(MakeNotes) == clone.Peek());
}

TEST(LazyCell, KeepsItsObjectForAsLongAsOnePlaceStands) {
    int deaths = 0;
    {
        LazyCell<Notes> clone;
        {
            LazyCell<Notes> original;
            clone = original.Share();
            original.ReadOr(MakeNotes)->last_act = [&] { ++deaths; };
        }
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(LazyCell, MayBeSetWhileItsObjectIsBeingMade) {
    LazyCell<Notes> cell;
    const Ref<Notes> put = MakeNotes();
    const Ref<Notes> read = cell.ReadOr([&] {
        cell.Set(put);
        return Make<Notes>();
    });
    EXPECT_TRUE(read);
    EXPECT_EQ(cell.Peek(), put);
}

TEST(LazyCell, HoldsTheNewObjectWhenTheFormerDies) {
    LazyCell<Notes> cell;
    const Ref<Notes> next = MakeNotes();
    Ref<Notes> seen;
    cell.ReadOr(MakeNotes)->last_act = [&] { seen = cell.ReadOr(MakeNotes); };
    cell.Set(next);
    EXPECT_EQ(seen, next);
    EXPECT_EQ(cell.Peek(), next);
}

TEST(LazyCell, StaysEmptyWhenTheMakingFails) {
    LazyCell<Notes> cell;
    const auto fail = []() -> Ref<Notes> { Raise(failure::kOutOfMemory); };
    EXPECT_EQ(NumberOf([&] { cell.ReadOr(fail); }), failure::kOutOfMemory);
    EXPECT_FALSE(cell.Peek());
    EXPECT_TRUE(cell.ReadOr(MakeNotes));
}

}  // namespace
}  // namespace mrlxmlclass
