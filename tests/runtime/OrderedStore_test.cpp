#include "mrlxmlclass/runtime/OrderedStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>
#include <random>

#include "mrlxmlclass/runtime/KeyText.h"

namespace mrlxmlclass {
namespace {

/// A key whose copy fails when a countdown ends: as if memory were lacking just then.
struct FragileKey {
    FragileKey(int name, int* countdown) : id(name), copies_left(countdown) {}
    FragileKey(const FragileKey& other) : id(other.id), copies_left(other.copies_left) {
        if (copies_left != nullptr && --*copies_left == 0) throw std::bad_alloc();
    }
    FragileKey(FragileKey&&) noexcept = default;
    FragileKey& operator=(const FragileKey&) = default;
    FragileKey& operator=(FragileKey&&) noexcept = default;
    bool none() const { return false; }
    friend bool operator==(const FragileKey& a, const FragileKey& b) { return a.id == b.id; }

    int id;
    int* copies_left;
};

}  // namespace
}  // namespace mrlxmlclass

template <>
struct std::hash<mrlxmlclass::FragileKey> {
    std::size_t operator()(const mrlxmlclass::FragileKey& key) const { return static_cast<std::size_t>(key.id); }
};

namespace mrlxmlclass {
namespace {

using Store = OrderedStore<KeyText, int>;

Store Counting(int count) {
    Store store;
    for (int i = 0; i < count; ++i) store.Append(i, i);
    return store;
}

/// Every item in order, and every key found at its place.
void ExpectItems(const Store& store, const std::vector<int>& items) {
    ASSERT_EQ(store.size(), items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(store[i].item, items[i]);
        EXPECT_EQ(store.IndexOf(store[i].key), store[i].key.none() ? Store::npos : i);
    }
}

TEST(OrderedStore, IsEmptyAtFirst) {
    const Store store;
    EXPECT_TRUE(store.empty());
    EXPECT_EQ(store.begin(), store.end());
    EXPECT_EQ(store.IndexOf("1"), Store::npos);
    EXPECT_EQ(store.Find("1"), nullptr);
}

TEST(OrderedStore, RefusesATakenKeyAndChangesNothing) {
    for (const int count : {3, 30}) {
        Store store = Counting(count);
        const auto stamp = store.Stamp();
        EXPECT_FALSE(store.Append("2", 99));
        EXPECT_FALSE(store.Insert(0, "2", 99));
        EXPECT_EQ(store.Stamp(), stamp);
        EXPECT_EQ(*store.Find("2"), 2);
        EXPECT_EQ(store.size(), static_cast<std::size_t>(count));
    }
}

TEST(OrderedStore, FindsEveryKeyAfterManyErasures) {
    for (const std::size_t erased : {1U, 63U, 64U, 65U, 66U, 129U, 199U}) {
        SCOPED_TRACE(erased);
        Store store = Counting(200);
        for (std::size_t i = 0; i < erased; ++i) store.RemoveAt(0);
        std::vector<int> left;
        for (int i = static_cast<int>(erased); i < 200; ++i) left.push_back(i);
        ExpectItems(store, left);
        EXPECT_EQ(store.IndexOf("0"), Store::npos);
    }
}

TEST(OrderedStore, FindsEveryKeyWhenItGrowsBetweenErasures) {
    Store store = Counting(100);
    std::vector<int> items(100);
    for (int i = 0; i < 100; ++i) items[static_cast<std::size_t>(i)] = i;
    for (int round = 0; round < 90; ++round) {
        store.RemoveAt(1);
        items.erase(items.begin() + 1);
        store.Append(1000 + round, 1000 + round);
        items.push_back(1000 + round);
    }
    ExpectItems(store, items);
}

TEST(OrderedStore, TakesAKeyAgainThatWasErased) {
    Store store = Counting(50);
    for (int round = 0; round < 200; ++round) {
        ASSERT_TRUE(store.Remove("7"));
        ASSERT_FALSE(store.Remove("7"));
        ASSERT_TRUE(store.Append("7", round));
        ASSERT_EQ(*store.Find("7"), round);
    }
    EXPECT_EQ(store.IndexOf("7"), 49U);
}

TEST(OrderedStore, FindsEveryKeyAfterInsertionsInTheMiddle) {
    Store store;
    std::vector<int> items;
    for (int i = 0; i < 40; ++i) {
        const std::size_t at = items.size() / 2;
        ASSERT_TRUE(store.Insert(at, i, i));
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(at), i);
    }
    ExpectItems(store, items);
}

TEST(OrderedStore, HoldsItemsWithoutAKeyAmongOthers) {
    Store store;
    std::vector<int> items;
    for (int i = 0; i < 60; ++i) {
        store.Append(i % 3 == 0 ? KeyText(i) : KeyText(), i);
        items.push_back(i);
    }
    ExpectItems(store, items);
    for (int i = 0; i < 20; ++i) {
        store.Remove(3 * i);
        std::erase(items, 3 * i);
    }
    ExpectItems(store, items);
    store.Insert(5, "late", 500);
    items.insert(items.begin() + 5, 500);
    ExpectItems(store, items);
}

TEST(OrderedStore, LeavesASnapshotAsItWas) {
    for (const int count : {4, 40}) {
        Store store = Counting(count);
        const Store before = store;
        std::vector<int> items;
        for (int i = 0; i < count; ++i) items.push_back(i);
        store.RemoveAt(0);
        store.Append("new", 100);
        store.Replace(0, 77);
        ExpectItems(before, items);
        EXPECT_EQ(before.IndexOf("new"), Store::npos);
        store.Clear();
        ExpectItems(before, items);
        EXPECT_TRUE(store.empty());
    }
}

TEST(OrderedStore, LetsASnapshotChangeOnItsOwn) {
    Store store = Counting(20);
    Store copy = store;
    copy.Remove("3");
    EXPECT_NE(store.Find("3"), nullptr);
    EXPECT_EQ(copy.Find("3"), nullptr);
    store.Remove("4");
    EXPECT_NE(copy.Find("4"), nullptr);
}

TEST(OrderedStore, WalksASnapshotWhileItEmptiesItself) {
    Store store = Counting(100);
    int sum = 0;
    for (const Store snapshot = store; const auto& entry : snapshot) {
        store.Remove(entry.key);
        sum += entry.item;
    }
    EXPECT_EQ(sum, 4950);
    EXPECT_TRUE(store.empty());
}

TEST(OrderedStore, RemovesByAKeyThatItHoldsItself) {
    Store store = Counting(20);
    store.Remove(store[3].key);
    EXPECT_EQ(store.Find("3"), nullptr);
    EXPECT_EQ(store.size(), 19U);
}

TEST(OrderedStore, NeverShowsAStampTwice) {
    Store store;
    std::vector<std::uint64_t> stamps = {store.Stamp()};
    const auto changed = [&] {
        EXPECT_EQ(std::count(stamps.begin(), stamps.end(), store.Stamp()), 0) << "after change " << stamps.size();
        stamps.push_back(store.Stamp());
    };
    store.Append("1", 1), changed();
    store.Insert(0, "2", 2), changed();
    const Store earlier = store;
    store.Replace(0, 3), changed();
    store.RemoveAt(0), changed();
    store = earlier, changed();
    store.Remove("1"), changed();
    store.Clear(), changed();
    store = Store(), changed();
    store.Append("4", 4), changed();
    const Store moved = std::move(store);
    changed();
}

TEST(OrderedStore, HandsItsItemsOverWhenItIsMoved) {
    Store store = Counting(20);
    const int* item = store.Find("3");
    Store moved = std::move(store);
    EXPECT_TRUE(store.empty());
    EXPECT_EQ(moved.Find("3"), item) << "the very same";
    moved.Replace(3, 77);
    EXPECT_EQ(moved.Find("3"), item) << "and nobody else's, so that a change need not copy";
}

/// Does something when it dies.
struct Parting {
    explicit Parting(std::function<void()> last_act) : act(std::move(last_act)) {}
    Parting(Parting&& other) noexcept : act(std::exchange(other.act, nullptr)) {}
    Parting& operator=(Parting&& other) noexcept {
        std::swap(act, other.act);
        return *this;
    }
    Parting(const Parting& other) = default;
    Parting& operator=(const Parting&) = default;
    ~Parting() {
        if (act) act();
    }
    std::function<void()> act;
};

TEST(OrderedStore, MayBeEnteredByADyingItem) {
    using PartingStore = OrderedStore<KeyText, Parting>;
    int deaths = 0;
    PartingStore store;
    const auto add = [&](int key) {
        store.Append(key, Parting([&store, &deaths, key] {
                         ++deaths;
                         EXPECT_EQ(store.Find(key), nullptr);
                         store.Append("after " + std::to_string(key), Parting(nullptr));
                         store.Remove(key + 1);  // each takes its neighbour with it
                     }));
    };
    for (int key = 0; key < 30; ++key) add(key);
    store.Remove(10);
    EXPECT_EQ(deaths, 20);
    EXPECT_EQ(store.size(), 30U);
    for (int key = 0; key < 10; ++key) EXPECT_EQ(store.IndexOf(key), static_cast<std::size_t>(key));
    for (int key = 10; key < 30; ++key) EXPECT_NE(store.Find("after " + std::to_string(key)), nullptr);
}

TEST(OrderedStore, IsEmptyToAnItemThatDiesWithIt) {
    using PartingStore = OrderedStore<KeyText, Parting>;
    std::string seen;
    {
        PartingStore store;
        for (int key = 0; key < 20; ++key) {
            store.Append(key, Parting([&store, &seen, key] {
                             seen += std::to_string(store.size());
                             EXPECT_EQ(store.Find(key), nullptr);
                         }));
        }
    }
    EXPECT_EQ(seen, "00000000000000000000");
}

TEST(OrderedStore, MayBeEnteredByAnItemThatIsReplacedOrCleared) {
    using PartingStore = OrderedStore<KeyText, Parting>;
    PartingStore store;
    std::size_t seen = 99;
    std::uint64_t stamp = 0;
    const auto look = [&] {
        seen = store.size();
        stamp = store.Stamp();
        store.Append("after " + std::to_string(stamp), Parting(nullptr));
    };
    store.Append("1", Parting(look));
    store.Replace(0, Parting(nullptr));
    EXPECT_EQ(seen, 1U);
    EXPECT_EQ(store.size(), 2U);
    store.Append("2", Parting(look));
    const auto before = store.Stamp();
    store.Clear();
    EXPECT_EQ(seen, 0U);
    EXPECT_NE(stamp, before);
    EXPECT_EQ(store.size(), 1U);
}

TEST(OrderedStore, FindsWhatStandsAfterMemoryWasLacking) {
    using FragileStore = OrderedStore<FragileKey, int>;
    for (const std::size_t at : {std::size_t{0}, std::size_t{5}, FragileStore::npos}) {
        for (int present : {7, 8, 9, 40}) {
            int failures = 0;
            for (int n = 1; n < 120; ++n) {
                int countdown = 0;
                FragileStore store;
                for (int i = 0; i < present; ++i) store.Append(FragileKey(i, &countdown), i);
                const auto size = store.size();
                countdown = n;
                try {
                    store.Insert(at == FragileStore::npos ? size : at, FragileKey(1000, &countdown), 1000);
                } catch (const std::bad_alloc&) {
                    ++failures;
                }
                countdown = 0;
                ASSERT_EQ(store.size() == size, store.Find(FragileKey(1000, nullptr)) == nullptr) << n;
                for (std::size_t i = 0; i < store.size(); ++i) ASSERT_EQ(store.IndexOf(store[i].key), i) << n;
            }
            EXPECT_GT(failures, 0);
        }
    }
}

/// A store and a plain list that go through the same drawn changes.
class StoreAndList {
public:
    explicit StoreAndList(unsigned seed) : random_(seed) {}

    void Change(int step) {
        // Long phases of growing and of shrinking, so that every size is passed both ways.
        const bool growing = step / 300 % 2 == 0;
        const KeyText key = Below(10) == 0 ? KeyText() : KeyText(static_cast<int>(Below(400)));
        const std::size_t taken = PlaceOf(key);
        const std::size_t kind = Below(10);
        if (kind < 5 && growing) {
            ASSERT_EQ(store_.Append(key, step), taken == Store::npos);
            if (taken == Store::npos) list_.emplace_back(key, step);
        } else if (kind < 5 && !list_.empty()) {
            const std::size_t at = Below(list_.size());
            store_.RemoveAt(at);
            list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(at));
        } else if (kind == 5) {
            const std::size_t at = Below(list_.size() + 1);
            ASSERT_EQ(store_.Insert(at, key, step), taken == Store::npos);
            if (taken == Store::npos) list_.emplace(list_.begin() + static_cast<std::ptrdiff_t>(at), key, step);
        } else if (kind == 6 || kind == 7) {
            ASSERT_EQ(store_.Remove(key), taken != Store::npos);
            if (taken != Store::npos) list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(taken));
        } else if (kind == 8 && taken != Store::npos) {
            store_.Replace(taken, -step);
            list_[taken].second = -step;
        } else if (kind == 9) {
            if (step % 7 == 0) snapshots_.emplace_back(store_, list_);
            if (step % 5 == 0 && !snapshots_.empty()) snapshots_.erase(snapshots_.begin());
            if (step % 97 == 0) store_.Clear(), list_.clear();
        }
    }
    void LookForAFewKeys() {
        for (int look = 0; look < 8; ++look) {
            const KeyText wanted = KeyText(static_cast<int>(Below(400)));
            ASSERT_EQ(store_.IndexOf(wanted), PlaceOf(wanted));
        }
    }
    void ExpectTheSame() const { ExpectTheSame(store_, list_); }
    void ExpectTheSameOfSnapshots() const {
        for (const auto& [store, list] : snapshots_) ExpectTheSame(store, list);
    }

private:
    using List = std::vector<std::pair<KeyText, int>>;

    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }
    std::size_t PlaceOf(KeyText key) const {
        const auto found = std::ranges::find(list_, key, &List::value_type::first);
        return key.none() || found == list_.end() ? Store::npos : static_cast<std::size_t>(found - list_.begin());
    }
    static void ExpectTheSame(const Store& store, const List& list) {
        ASSERT_EQ(store.size(), list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            ASSERT_EQ(store[i].key, list[i].first);
            ASSERT_EQ(store[i].item, list[i].second);
        }
    }

    std::mt19937 random_;
    Store store_;
    List list_;
    std::vector<std::pair<Store, List>> snapshots_;
};

TEST(OrderedStore, AgreesWithAPlainListOverThousandsOfChanges) {
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        StoreAndList both(seed);
        for (int step = 0; step < 4000; ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            both.Change(step);
            both.LookForAFewKeys();
            if (step % 50 == 0) both.ExpectTheSame();
        }
        both.ExpectTheSame();
        both.ExpectTheSameOfSnapshots();
    }
}

}  // namespace
}  // namespace mrlxmlclass
