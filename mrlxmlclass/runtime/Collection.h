#pragma once

#include "mrlxmlclass/runtime/OrderedStore.h"
#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

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
    /// The items as they stand now, to walk while the collection changes.
    Store Snapshot() const { return store_; }
    std::uint64_t Stamp() const { return store_.Stamp(); }

private:
    std::size_t PlaceOf(const Variant& index, SourceLine where) const;

    Store store_;
};

}  // namespace mrlxmlclass
