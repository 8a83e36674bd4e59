#pragma once

#include "mrlxmlclass/runtime/OrderedStore.h"
#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

/// The 0-based place that `index` names in a store: a number is a 1-based place (9 outside), a text is a key (5 when it
/// is unknown).
template <class Item>
std::size_t PlaceIn(const OrderedStore<KeyText, Item>& store, const Variant& index,
                    SourceLine where = SourceLine::Here()) {
    if (const String* key = index.If<String>()) {
        const std::size_t place = store.IndexOf(KeyText(*key));
        if (place == store.npos) Raise(failure::kUnknownKey, where);
        return place;
    }
    const double* fraction = index.If<double>();
    const Long place = fraction != nullptr ? Long(*fraction, where) : index.As<Long>(where);
    if (place < 1 || std::cmp_greater(place.value(), store.size())) Raise(failure::kIndexOutOfRange, where);
    return static_cast<std::size_t>(place.value() - 1);
}

/// An ordered list, 1-based, whose items may stand under a text key. A number is a place, a text is a key.
/// An unknown key fails (5), a place outside the list fails (9), a key that is taken fails (457).
class Collection : public Counted {
public:
    using Store = OrderedStore<KeyText, Variant>;

    /// Adds an item, last of all or before the item at the place or key `before`.
    void Add(Variant item, KeyText key = {}, const Variant& before = Variant::Missing{},
             SourceLine where = SourceLine::Here());
    Variant Item(const Variant& index, SourceLine where = SourceLine::Here()) const;
    void Remove(const Variant& index, SourceLine where = SourceLine::Here());
    Long Count() const { return store_.size(); }

    bool Has(KeyText key) const { return store_.IndexOf(key) != Store::npos; }
    /// The items, to walk while nothing changes them.
    const Store& Items() const { return store_; }
    /// The items as they stand now, to walk while the collection changes.
    Store Snapshot() const { return store_; }
    bool empty() const { return store_.empty(); }
    std::uint64_t Stamp() const { return store_.Stamp(); }

private:
    Store store_;
};

}  // namespace mrlxmlclass
