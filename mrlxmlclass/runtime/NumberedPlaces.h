#pragma once

#include <cstdint>
#include <vector>

#include "mrlxmlclass/runtime/KeyText.h"
#include "mrlxmlclass/runtime/OrderedStore.h"

namespace mrlxmlclass {

/// The places of items whose keys are numbers, by number: for stores that hold most of the small ones. Keys that are
/// none, or lie far beyond as many as there are, are hashed, so that a store of a few tasks of a large plan stays
/// small.
class NumberedPlaces {
public:
    bool empty() const { return count_ == 0 && others_.empty(); }
    /// The place of a key, or null.
    const std::uint32_t* Find(KeyText key) const { return Numbered(key) ? &places_[Number(key)] : others_.Find(key); }
    void Add(KeyText key, std::uint32_t place) {
        if (!IsNear(key) || others_.Find(key) != nullptr) return others_.Add(key, place);
        const std::size_t number = Number(key);
        if (number >= places_.size()) places_.resize(number + 1 + number / 2, kNone);
        if (places_[number] == kNone) ++count_;
        places_[number] = place;
    }
    void Remove(KeyText key) {
        if (!Numbered(key)) return others_.Remove(key);
        places_[Number(key)] = kNone;
        --count_;
    }
    void Clear() {
        places_.clear();
        count_ = 0;
        others_.Clear();
    }
    /// For so many keys, none of them large.
    void Reserve(std::size_t count) { places_.reserve(count + 1); }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    /// How far numbers may lie apart, and how many at least have room.
    static constexpr std::size_t kSpread = 8;
    static constexpr std::size_t kRoom = 64;

    static std::size_t Number(KeyText key) { return static_cast<std::size_t>(key.number()); }
    bool IsNear(KeyText key) const {
        return key.is_number() && (Number(key) < places_.capacity() || Number(key) < kRoom + kSpread * count_);
    }
    bool Numbered(KeyText key) const {
        return key.is_number() && Number(key) < places_.size() && places_[Number(key)] != kNone;
    }

    std::vector<std::uint32_t> places_;
    std::size_t count_ = 0;  ///< of the numbered ones
    HashedPlaces<KeyText> others_;
};

}  // namespace mrlxmlclass
