#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
#include <type_traits>
#include <utility>
#include <vector>

namespace mrlxmlclass {

/// The places 0 to count - 1 in ascending order of `key_of(place)`, by a heap sort over the places. Equal keys have no
/// stable order but always the same one, and files show it.
/// Each key is asked for once, and none where there is nothing to compare.
// Kept: another sort would order equal keys differently.
template <class KeyOf>
std::vector<std::size_t> HeapOrder(std::size_t count, KeyOf&& key_of) {
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t{0});
    if (count < 2) return places;
    std::vector<std::invoke_result_t<KeyOf, std::size_t>> keys;
    keys.reserve(count);
    for (const std::size_t place : places) keys.push_back(key_of(place));
    // Most often they ascend already, and different keys have only one order.
    if (std::ranges::adjacent_find(keys, std::ranges::greater_equal{}) == keys.end()) return places;

    const auto sift_down = [&](std::size_t start, std::size_t length) {
        while (start < length / 2) {
            std::size_t child = 2 * start + 1;
            if (child + 1 < length && keys[places[child]] < keys[places[child + 1]]) ++child;
            if (!(keys[places[start]] < keys[places[child]])) return;
            std::swap(places[start], places[child]);
            start = child;
        }
    };
    for (std::size_t start = count / 2; start-- > 0;) sift_down(start, count);
    for (std::size_t last = count; last-- > 1;) {
        std::swap(places[0], places[last]);
        sift_down(0, last);
    }
    return places;
}

}  // namespace mrlxmlclass
