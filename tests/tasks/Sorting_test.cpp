#include "mrlxmlclass/tasks/Sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace mrlxmlclass {
namespace {

using Places = std::vector<std::size_t>;

Places OrderOf(const std::vector<int>& keys) {
    return HeapOrder(keys.size(), [&](std::size_t place) { return keys[place]; });
}

/// The heap written down a second time, over an index array that counts from 1, with nothing shared.
class PlainHeap {
public:
    explicit PlainHeap(const std::vector<int>& keys) : keys_(keys) {
        const int n = static_cast<int>(keys.size());
        for (int k = 0; k < n; ++k) index_.push_back(k + 1);
        for (int s = n / 2 - 1; s >= 0; --s) SiftDown(s, n);
        for (int m = n; m >= 2; --m) {
            std::swap(index_[0], index_[static_cast<std::size_t>(m - 1)]);
            SiftDown(0, m - 1);
        }
    }
    Places ZeroBased() const {
        Places places;
        for (const int index : index_) places.push_back(static_cast<std::size_t>(index - 1));
        return places;
    }

private:
    int Key(int element) const {
        return keys_[static_cast<std::size_t>(index_[static_cast<std::size_t>(element)] - 1)];
    }
    void SiftDown(int s, int n) {
        for (;;) {
            if (s >= n / 2) break;
            const int left = 2 * s + 1;
            const int right = 2 * s + 2;
            int child = left;
            if (right < n) {
                if (Key(left) < Key(right)) child = right;
            }
            if (Key(s) >= Key(child)) break;
            std::swap(index_[static_cast<std::size_t>(s)], index_[static_cast<std::size_t>(child)]);
            s = child;
        }
    }

    const std::vector<int>& keys_;
    std::vector<int> index_;
};

TEST(HeapOrder, AsksForNoKeyOfNothingOrOfASingleItem) {
    const auto never = [](std::size_t) -> int {
        ADD_FAILURE() << "a key was asked for";
        return 0;
    };
    EXPECT_EQ(HeapOrder(0, never), Places());
    EXPECT_EQ(HeapOrder(1, never), Places{0});
}

TEST(HeapOrder, PutsKeysInAscendingOrder) {
    EXPECT_EQ(OrderOf({30, 10, 40, 20}), (Places{1, 3, 0, 2}));
    EXPECT_EQ(OrderOf({2, 1}), (Places{1, 0}));
    EXPECT_EQ(OrderOf({-1, 5, 0}), (Places{0, 2, 1}));
}

TEST(HeapOrder, TurnsEqualKeysByOnePlace) {
    for (std::size_t n = 0; n <= 8; ++n) {
        Places turned(n);
        std::iota(turned.begin(), turned.end(), std::size_t{0});
        if (n > 1) std::rotate(turned.begin(), turned.begin() + 1, turned.end());
        EXPECT_EQ(OrderOf(std::vector<int>(n, 7)), turned) << n << " equal keys";
    }
}

TEST(HeapOrder, OrdersEqualKeysAsThePlainHeapDoes) {
    constexpr unsigned kSeed = 20260302;
    std::mt19937 random(kSeed);
    for (int round = 0; round < 3000; ++round) {
        std::vector<int> keys(random() % 33);
        const auto different = 1 + random() % 6;
        for (int& key : keys) key = static_cast<int>(random() % different);
        const Places order = OrderOf(keys);
        ASSERT_EQ(order, PlainHeap(keys).ZeroBased()) << "seed " << kSeed << ", round " << round;
        ASSERT_TRUE(std::is_sorted(order.begin(), order.end(), [&](auto a, auto b) { return keys[a] < keys[b]; }));
    }
}

TEST(HeapOrder, OrdersAscendingKeysAsThePlainHeapDoes) {
    for (std::size_t n = 2; n <= 33; ++n) {
        std::vector<int> ascending(n);
        std::iota(ascending.begin(), ascending.end(), 0);
        EXPECT_EQ(OrderOf(ascending), PlainHeap(ascending).ZeroBased()) << n << " keys";
        for (std::size_t place = 1; place < n; ++place) {
            std::vector<int> keys = ascending;
            keys[place] = keys[place - 1];
            EXPECT_EQ(OrderOf(keys), PlainHeap(keys).ZeroBased()) << n << " keys, two equal ones at " << place;
        }
    }
}

}  // namespace
}  // namespace mrlxmlclass
