#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "mrlxmlclass/runtime/Ref.h"

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
/// Look-up by key is O(1): a scan for a few items, a hashed index beyond. `Key` tells by `none()` whether it is one.
template <class Key, class Item, class Places = HashedPlaces<Key>>
class OrderedStore {
public:
    struct Entry {
        Key key;
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
    const Entry* begin() const { return body_ ? body_->entries.data() : nullptr; }
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
        Changing().Insert(index, Entry{key, std::move(item)});
        return true;
    }

    void RemoveAt(std::size_t index) {
        Body& body = Changing();
        const Key key = body.entries[index].key;
        // The item dies last: its end may lead back into this store.
        [[maybe_unused]] const Item item = std::move(body.entries[index].item);
        body.entries.erase(body.entries.begin() + static_cast<std::ptrdiff_t>(index));
        body.Erased(index, key);
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

    void Reserve(std::size_t count) { Changing().entries.reserve(count); }

private:
    struct Body : Counted {
        static constexpr std::size_t kFew = 8;
        static constexpr std::size_t kDrift = 64;

        std::vector<Entry> entries;
        /// Places by key, once there are more than a few items. After an erase the places behind it are too high, by
        /// `erased` at the most, until the index is counted anew.
        Places index;
        std::size_t erased = 0;

        std::size_t IndexOf(const Key& key) const {
            const std::uint32_t* const found = index.Find(key);
            if (found == nullptr) {
                if (!index.empty()) return npos;
                for (std::size_t i = 0; i < entries.size(); ++i) {
                    if (entries[i].key == key) return i;
                }
                return npos;
            }
            std::size_t at = std::min<std::size_t>(*found, entries.size() - 1);
            while (!(entries[at].key == key)) --at;
            return at;
        }

        /// Whatever lacks memory on the way, every item that stands is found afterwards.
        void Insert(std::size_t at, Entry entry) {
            const bool keyed = !entry.key.none();
            const bool last = at == entries.size();
            if (entries.size() == entries.capacity()) entries.reserve(std::max<std::size_t>(1, 2 * entries.size()));
            if (!index.empty() && last && keyed) index.Add(entry.key, static_cast<std::uint32_t>(at));
            entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(at), std::move(entry));
            if (index.empty() ? keyed && entries.size() > kFew : !last) CountAnew();
        }

        void Erased(std::size_t at, const Key& key) {
            if (index.empty()) return;
            if (!key.none()) index.Remove(key);
            if (at < entries.size() && ++erased > kDrift) CountAnew();
        }

        void CountAnew() {
            erased = 0;
            index.Clear();  // should the memory for a new one be lacking, look-ups scan
            if (entries.size() <= kFew) return;
            Places places;
            places.Reserve(entries.size());
            for (std::size_t i = 0; i < entries.size(); ++i) {
                if (!entries[i].key.none()) places.Add(entries[i].key, static_cast<std::uint32_t>(i));
            }
            index = std::move(places);
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
