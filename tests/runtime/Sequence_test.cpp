#include "mrlxmlclass/runtime/Sequence.h"

#include <gtest/gtest.h>

#include <random>

namespace mrlxmlclass {
namespace {

/// Counts how often one is moved.
struct Moved {
    explicit Moved(int number) : value(number) {}
    Moved(const Moved&) = default;
    Moved& operator=(const Moved&) = default;
    Moved(Moved&& other) noexcept : value(other.value) { ++moves; }
    Moved& operator=(Moved&& other) noexcept {
        value = other.value;
        ++moves;
        return *this;
    }
    ~Moved() = default;
    friend bool operator==(const Moved&, const Moved&) = default;

    static inline std::size_t moves = 0;
    int value;
};

Sequence<Moved> SequenceOf(int count) {
    Sequence<Moved> sequence;
    for (int i = 0; i < count; ++i) {
        sequence.MakeRoom();
        sequence.Insert(sequence.size(), Moved(i));
    }
    return sequence;
}

std::vector<Moved> Items(const Sequence<Moved>& sequence) {
    return {sequence.begin(), sequence.end()};
}

TEST(Sequence, IsEmptyAtFirst) {
    const Sequence<Moved> sequence;
    EXPECT_EQ(sequence.size(), 0U);
    EXPECT_EQ(sequence.begin(), sequence.end());
}

TEST(Sequence, MovesLittleWhenItIsEmptiedFromEitherEnd) {
    for (const bool first : {true, false}) {
        Sequence<Moved> sequence = SequenceOf(1000);
        Moved::moves = 0;
        while (sequence.size() > 0) sequence.Erase(first ? 0 : sequence.size() - 1);
        EXPECT_LE(Moved::moves, 1000U) << first;
    }
}

TEST(Sequence, MovesTheFewer) {
    Sequence<Moved> sequence = SequenceOf(1000);
    Moved::moves = 0;
    sequence.Erase(10);
    sequence.Erase(sequence.size() - 11);
    EXPECT_EQ(Moved::moves, 20U);
}

TEST(Sequence, KeepsItsOrderAsAQueue) {
    Sequence<Moved> sequence = SequenceOf(100);
    for (int i = 100; i < 10'000; ++i) {
        sequence.Erase(0);
        sequence.MakeRoom();
        sequence.Insert(99, Moved(i));
    }
    EXPECT_EQ(sequence[0], Moved(9900));
    EXPECT_EQ(sequence.size(), 100U);
}

TEST(Sequence, AgreesWithAVector) {
    std::mt19937 random(20261122);
    const auto below = [&](std::size_t end) { return static_cast<std::size_t>(random() % end); };
    Sequence<Moved> sequence;
    std::vector<Moved> vector;
    for (int step = 0; step < 6000; ++step) {
        const bool growing = step / 500 % 2 == 0;
        if (vector.empty() || below(3) < (growing ? 2U : 1U)) {
            const std::size_t at = below(vector.size() + 1);
            sequence.Insert(at, Moved(step));
            vector.insert(vector.begin() + static_cast<std::ptrdiff_t>(at), Moved(step));
        } else {
            const std::size_t at = below(2) == 0 ? 0 : below(vector.size());
            sequence.Erase(at);
            vector.erase(vector.begin() + static_cast<std::ptrdiff_t>(at));
        }
        if (step % 400 == 0) {
            const Sequence<Moved> copy = sequence;
            sequence.Reserve(vector.size() + below(50));
            ASSERT_EQ(Items(copy), vector);
        }
        ASSERT_EQ(Items(sequence), vector) << step;
    }
}

}  // namespace
}  // namespace mrlxmlclass
