#pragma once

#include <cstdint>
#include <vector>

#include "mrlxmlclass/runtime/KeyText.h"
#include "mrlxmlclass/runtime/OrderedStore.h"

namespace mrlxmlclass {

/// The places of items whose keys are numbers, by number: for stores that hold most of the small ones. The few keys
/// that are none, or are large, are hashed.
class NumberedPlaces {
public:
    bool empty() const { return count_ == 0 && others_.empty(); }
    /// The place of a key, or null.
    const std::uint32_t* Find(KeyText key) const {
        if (!Small(key)) return others_.Find(key);
        const auto number = static_cast<std::size_t>(key.number());
        return number < places_.size() && places_[number] != kNone ? &places_[number] : nullptr;
    }
    void Add(KeyText key, std::uint32_t place) {
        if (!Small(key)) return others_.Add(key, place);
        const auto number = static_cast<std::size_t>(key.number());
        if (number >= places_.size()) places_.resize(number + 1 + number / 2, kNone);
        if (places_[number] == kNone) ++count_;
        places_[number] = place;
    }
    void Remove(KeyText key) {
        if (!Small(key)) return others_.Remove(key);
        const auto number = static_cast<std::size_t>(key.number());
        if (number >= places_.size() || places_[number] == kNone) return;
        places_[number] = kNone;
        --count_;
    }
    void Clear() {
        places_.clear();
        count_ = 0;
        others_.Clear();
    }
    void Reserve(std::size_t count) { places_.reserve(count + 1); }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    static constexpr std::int32_t kLargest = INT16_MAX;
    static bool Small(KeyText key) { return key.is_number() && key.number() <= kLargest; }

    std::vector<std::uint32_t> places_;
    std::size_t count_ = 0;
    HashedPlaces<KeyText> others_;
};

}  // namespace mrlxmlclass
