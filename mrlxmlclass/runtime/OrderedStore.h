#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "mrlxmlclass/runtime/Ref.h"
#include "mrlxmlclass/runtime/Sequence.h"

namespace mrlxmlclass {

/// The places of items by key. Without any it is no larger than a pointer: most stores hold a few items and have none.
template <class Key>
class HashedPlaces {
public:
    HashedPlaces() = default;
    HashedPlaces(const HashedPlaces& other)
        : places_(other.places_ ? std::make_unique<Map>(*other.places_) : nullptr) {}
    HashedPlaces(HashedPlaces&&) noexcept = default;
    HashedPlaces& operator=(HashedPlaces&&) noexcept = default;

    bool empty() const { return !places_ || places_->empty(); }
    /// The place of a key, or null.
    const std::uint32_t* Find(const Key& key) const {
        if (!places_) return nullptr;
        const auto found = places_->find(key);
        return found == places_->end() ? nullptr : &found->second;
    }
    void Add(const Key& key, std::uint32_t place) { Made().emplace(key, place); }
    void Remove(const Key& key) {
        if (places_) places_->erase(key);
    }
    void Clear() { places_ = nullptr; }
    void Reserve(std::size_t count) { Made().reserve(count); }

private:
    using Map = std::unordered_map<Key, std::uint32_t>;
    Map& Made() {
        if (!places_) places_ = std::make_unique<Map>();
        return *places_;
    }

    std::unique_ptr<Map> places_;
};

/// Items in the order in which they came, most of them under a key: what stands behind every collection and dictionary.
///
/// A copy is a snapshot: it costs one count, and a change to either side while both live makes that side a store of its
/// own. So a loop copies the store and walks the copy, whatever happens meanwhile.
///
/// Look-up by key is O(1): a scan for a few items, a hashed index beyond. After items were taken out it halves between
/// as many places. `Key` tells by `none()` whether it is one.
template <class Key, class Item, class Places = HashedPlaces<Key>>
class OrderedStore {
public:
    struct Entry {
        Key key;
        std::uint32_t number;  ///< ascending along an indexed store; the place, until one before it is taken out
        Item item;
    };
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    OrderedStore() = default;
    OrderedStore(const OrderedStore&) = default;
    OrderedStore(OrderedStore&& other) noexcept : body_(std::move(other.body_)), stamp_(other.stamp_++) {}
    /// Takes over the other's items; the stamp goes on from this store's own, so that no stamp ever comes twice.
    OrderedStore& operator=(OrderedStore other) noexcept {
        ++stamp_;
        std::swap(body_, other.body_);
        return *this;
    }
    ~OrderedStore() { body_ = {}; }  // empty before its items die: their ends may lead back here

    std::size_t size() const { return body_ ? body_->entries.size() : 0; }
    bool empty() const { return size() == 0; }
    const Entry& operator[](std::size_t index) const { return body_->entries[index]; }
    const Entry* begin() const { return body_ ? body_->entries.begin() : nullptr; }
    const Entry* end() const { return begin() + size(); }
    /// Differs after every change to this store.
    std::uint64_t Stamp() const { return stamp_; }

    /// The 0-based place of the item under `key`, or npos.
    std::size_t IndexOf(const Key& key) const { return body_ && !key.none() ? body_->IndexOf(key) : npos; }
    /// The item under `key`, or null. Valid until the next change.
    const Item* Find(const Key& key) const {
        const std::size_t index = IndexOf(key);
        return index == npos ? nullptr : &body_->entries[index].item;
    }

    /// Puts the item last; false, and nothing happens, when the key is taken.
    bool Append(const Key& key, Item item) { return Insert(size(), key, std::move(item)); }

    /// Puts the item before the one at `index`; false, and nothing happens, when the key is taken.
    bool Insert(std::size_t index, const Key& key, Item item) {
        if (IndexOf(key) != npos) return false;
        Changing().Insert(index, key, std::move(item));
        return true;
    }

    void RemoveAt(std::size_t index) {
        // The item dies last: its end may lead back into this store.
        [[maybe_unused]] const Item item = Changing().TakeOut(index);
    }

    bool Remove(const Key& key) {
        const std::size_t index = IndexOf(key);
        if (index == npos) return false;
        RemoveAt(index);
        return true;
    }

    void Replace(std::size_t index, Item item) { std::swap(Changing().entries[index].item, item); }

    void Clear() {
        ++stamp_;
        body_ = {};  // last: the end of an item may lead back into this store
    }

    void Reserve(std::size_t count) { Changing().entries.Reserve(count); }

private:
    struct Body : Counted {
        static constexpr std::size_t kFew = 8;

        Sequence<Entry> entries;
        /// The numbers of the entries by key, once there are more than a few.
        Places index;
        /// By how much an entry's number may be above its place.
        std::size_t erased = 0;

        std::size_t IndexOf(const Key& key) const {
            if (index.empty()) {
                for (std::size_t i = 0; i < entries.size(); ++i) {
                    if (entries[i].key == key) return i;
                }
                return npos;
            }
            const std::uint32_t* const number = index.Find(key);
            return number == nullptr ? npos : PlaceOf(*number);
        }

        std::size_t PlaceOf(std::uint32_t number) const {
            const std::size_t last = std::min<std::size_t>(number, entries.size() - 1);
            const std::size_t first = number - std::min<std::size_t>(number, erased);
            const auto found =
                std::lower_bound(entries.begin() + first, entries.begin() + last, number,
                                 [](const Entry& entry, std::uint32_t wanted) { return entry.number < wanted; });
            return static_cast<std::size_t>(found - entries.begin());
        }

        /// Whatever lacks memory on the way, every item that stands is found afterwards.
        void Insert(std::size_t at, const Key& key, Item item) {
            const bool keyed = !key.none();
            const bool last = at == entries.size();
            const std::uint32_t number = last && at > 0 ? entries[at - 1].number + 1 : 0;
            entries.MakeRoom();
            Entry entry{key, number, std::move(item)};
            if (!index.empty() && last && keyed) index.Add(key, number);
            entries.Insert(at, std::move(entry));
            if (index.empty() ? keyed && entries.size() > kFew : !last) CountAnew();
        }

        Item TakeOut(std::size_t at) {
            const Key key = entries[at].key;
            Item item = std::move(entries[at].item);
            entries.Erase(at);
            if (!index.empty()) {
                if (!key.none()) index.Remove(key);
                if (at < entries.size() && ++erased > entries.size()) CountAnew();
            }
            return item;
        }

        void CountAnew() {
            erased = 0;
            index.Clear();  // should the memory for a new one be lacking, look-ups scan
            if (entries.size() <= kFew) return;
            Places numbers;
            numbers.Reserve(entries.size());
            std::uint32_t number = 0;
            for (Entry& entry : entries) {
                entry.number = number++;
                if (!entry.key.none()) numbers.Add(entry.key, entry.number);
            }
            index = std::move(numbers);
        }
    };

    Body& Changing() {
        ++stamp_;
        if (!body_) {
            body_ = Make<Body>();
        } else if (!body_.alone()) {
            body_ = Make<Body>(*body_);
        }
        return *body_;
    }

    Ref<Body> body_;
    std::uint64_t stamp_ = 0;
};

}  // namespace mrlxmlclass
