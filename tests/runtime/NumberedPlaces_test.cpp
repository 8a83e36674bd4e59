#include "mrlxmlclass/runtime/NumberedPlaces.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>

namespace mrlxmlclass {
namespace {

constexpr std::int32_t kLargestLong = INT32_MAX;

std::optional<std::uint32_t> PlaceOf(const NumberedPlaces& places, KeyText key) {
    const std::uint32_t* place = places.Find(key);
    return place != nullptr ? std::optional(*place) : std::nullopt;
}

/// Small and large numbers, on both sides of what is held by number, and texts that are none.
std::vector<KeyText> Keys() {
    return {0,  1,    2,    17,    63,           64,  65, 80, 32766, 32767, 32768, 100'000, kLargestLong,
            "", "05", "-1", "row", "2147483648", " 1"};
}

TEST(NumberedPlaces, IsEmptyAtFirst) {
    const NumberedPlaces places;
    EXPECT_TRUE(places.empty());
    for (const KeyText key : Keys()) EXPECT_EQ(PlaceOf(places, key), std::nullopt) << key.text();
}

TEST(NumberedPlaces, FindsEachKindOfKeyAlone) {
    for (const KeyText key : Keys()) {
        SCOPED_TRACE(key.text());
        NumberedPlaces places;
        places.Add(key, 7);
        EXPECT_FALSE(places.empty());
        for (const KeyText other : Keys()) {
            EXPECT_EQ(PlaceOf(places, other), other == key ? std::optional(7U) : std::nullopt) << other.text();
        }
        places.Remove(key);
        EXPECT_TRUE(places.empty());
        EXPECT_EQ(PlaceOf(places, key), std::nullopt);
    }
}

TEST(NumberedPlaces, HoldsAllKindsOfKeysTogether) {
    NumberedPlaces places;
    std::uint32_t next = 0;
    for (const KeyText key : Keys()) places.Add(key, next++);
    std::uint32_t place = 0;
    for (const KeyText key : Keys()) EXPECT_EQ(PlaceOf(places, key), place++) << key.text();
    for (const KeyText key : Keys()) places.Remove(key);
    EXPECT_TRUE(places.empty());
}

TEST(NumberedPlaces, LeavesTheRestWhereAKeyIsUnknown) {
    NumberedPlaces places;
    places.Add(3, 0);
    for (const KeyText unknown : Keys()) places.Remove(unknown);
    EXPECT_EQ(PlaceOf(places, 3), 0U);
    places.Remove(3);
    places.Remove(3);
    EXPECT_TRUE(places.empty());
}

TEST(NumberedPlaces, TakesANewPlaceUnderTheSameNumber) {
    NumberedPlaces places;
    places.Add(3, 0);
    places.Add(3, 9);
    EXPECT_EQ(PlaceOf(places, 3), 9U);
    places.Remove(3);
    EXPECT_TRUE(places.empty());
}

TEST(NumberedPlaces, FindsAllOfAPlanInWhateverOrderItsKeysCome) {
    constexpr std::int32_t kKeys = 3000;
    const auto expect_all = [](const NumberedPlaces& places) {
        for (std::int32_t key = 1; key <= kKeys; ++key) {
            ASSERT_EQ(PlaceOf(places, key), static_cast<std::uint32_t>(key)) << key;
        }
        EXPECT_EQ(PlaceOf(places, kKeys + 1), std::nullopt);
    };
    NumberedPlaces up;
    NumberedPlaces down;
    for (std::int32_t key = 1; key <= kKeys; ++key) up.Add(key, static_cast<std::uint32_t>(key));
    for (std::int32_t key = kKeys; key >= 1; --key) down.Add(key, static_cast<std::uint32_t>(key));
    expect_all(up);
    expect_all(down);
    for (std::int32_t key = 1; key <= kKeys; ++key) down.Remove(key);
    EXPECT_TRUE(down.empty());
}

TEST(NumberedPlaces, ForgetsEverything) {
    NumberedPlaces places;
    for (const KeyText key : Keys()) places.Add(key, 1);
    places.Clear();
    EXPECT_TRUE(places.empty());
    for (const KeyText key : Keys()) EXPECT_EQ(PlaceOf(places, key), std::nullopt) << key.text();
    places.Add(5, 2);
    EXPECT_EQ(PlaceOf(places, 5), 2U);
}

TEST(NumberedPlaces, HoldsTheSameWhetherRoomWasMadeOrNot) {
    NumberedPlaces places;
    places.Add(2, 8);
    places.Reserve(1000);
    EXPECT_EQ(PlaceOf(places, 2), 8U);
    EXPECT_EQ(PlaceOf(places, 999), std::nullopt);
    places.Add(1000, 9);
    EXPECT_EQ(PlaceOf(places, 1000), 9U);
}

TEST(NumberedPlaces, IsCopiedWhole) {
    NumberedPlaces places;
    for (const KeyText key : Keys()) places.Add(key, 1);
    const NumberedPlaces copy = places;
    places.Clear();
    for (const KeyText key : Keys()) EXPECT_EQ(PlaceOf(copy, key), 1U) << key.text();
}

TEST(NumberedPlaces, AgreesWithAMap) {
    std::mt19937 random(20260302);
    const auto below = [&](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
    const auto any_key = [&]() -> KeyText {
        switch (below(4)) {
            case 0:
                return KeyText(32700 + below(200));
            case 1:
                return KeyText("key " + std::to_string(below(50)));
            default:
                return KeyText(below(60));
        }
    };
    NumberedPlaces places;
    std::map<String, std::uint32_t> map;
    for (std::uint32_t step = 0; step < 20'000; ++step) {
        const KeyText key = any_key();
        if (below(3) == 0) {
            places.Remove(key);
            map.erase(key.text());
        } else if (!map.contains(key.text())) {
            places.Add(key, step);
            map[key.text()] = step;
        }
        if (below(2000) == 0) places.Clear(), map.clear();
        ASSERT_EQ(places.empty(), map.empty());
        const KeyText asked = any_key();
        const auto found = map.find(asked.text());
        ASSERT_EQ(PlaceOf(places, asked), found != map.end() ? std::optional(found->second) : std::nullopt);
    }
}

}  // namespace
}  // namespace mrlxmlclass
