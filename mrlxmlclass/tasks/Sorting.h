#pragma once

#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace mrlxmlclass {

/// The places 0 to count - 1 in ascending order of `key_of(place)`, by a heap sort over the places. Equal keys have no
/// stable order but always the same one, and files show it: the heap is what it is.
template <class KeyOf>
std::vector<std::size_t> HeapOrder(std::size_t count, KeyOf&& key_of) {
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t{0});

    const auto sift_down = [&](std::size_t start, std::size_t length) {
        while (start < length / 2) {
            std::size_t child = 2 * start + 1;
            if (child + 1 < length && key_of(places[child]) < key_of(places[child + 1])) ++child;
            if (!(key_of(places[start]) < key_of(places[child]))) return;
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
